#include <orv_doc/path.h>

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <thread>
#include <vector>

#include "document_library/orv_doc/model_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;

Plexa::PointBase<Plexa::MilliPointCoordinateSystem> GetStart(const CompoundPointer& compound)
{
    return compound->GetSubpaths().front()->GetStart();
}

/// A path with its lower left corner at (1, 2), two groups down in a content.
class TransformedCompound : public testing::Test
{
protected:
    std::unique_ptr<Document> document = Document::CreateNew();
    PageContent& content = document->AddPage({0, 0, 1, 1}).GetContent();
    Group& outer = Add(content, MakeGroup());
    Group& inner = Add(outer, MakeGroup());
    Path& path = Add(inner, std::make_unique<Path>(MakeRectangle(1, 2, 10, 10)));
};

TEST(Path, RefusesToBeWithoutAShape)
{
    EXPECT_THROW(Path(nullptr), std::invalid_argument);
    const auto path = MakePath();
    const CompoundPointer shape = path->DefiningCompound();
    EXPECT_THROW(path->SetDefiningCompound(nullptr), std::invalid_argument);
    EXPECT_EQ(path->DefiningCompound(), shape);
}

TEST_F(TransformedCompound, IsTheShapeItselfUnderTheIdentity)
{
    EXPECT_EQ(path.TransformedCompound(nullptr), path.DefiningCompound());
}

TEST_F(TransformedCompound, IsTheShapeWithAllTransformationsAroundItApplied)
{
    path.SetTransformation(Scaling(2));
    inner.SetTransformation(Translation(100, 0));
    outer.SetTransformation(Scaling(10));
    // ((1, 2) * 2 + (100, 0)) * 10
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(1020, 40, 0, 0).origin));
    EXPECT_EQ(GetStart(path.DefiningCompound()), (Rectangle(1, 2, 0, 0).origin));
}

TEST_F(TransformedCompound, IsMadeOnce)
{
    path.SetTransformation(Scaling(2));
    const CompoundPointer made = path.TransformedCompound(nullptr);
    EXPECT_EQ(path.TransformedCompound(nullptr), made);
    EXPECT_EQ(&path.TransformedCompound(nullptr), &path.TransformedCompound(nullptr));
}

TEST_F(TransformedCompound, FollowsTheTransformationOfThePath)
{
    path.SetTransformation(Scaling(2));
    path.TransformedCompound(nullptr);
    path.SetTransformation(Scaling(3));
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(3, 6, 0, 0).origin));
    path.SetTransformation({});
    EXPECT_EQ(path.TransformedCompound(nullptr), path.DefiningCompound());
}

TEST_F(TransformedCompound, FollowsTheTransformationOfEachGroupAroundIt)
{
    path.SetTransformation(Scaling(2));
    path.TransformedCompound(nullptr);
    outer.SetTransformation(Translation(5, 0));
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(7, 4, 0, 0).origin));
    inner.Transform(Translation(0, 6), TransformationMode::Append);
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(7, 10, 0, 0).origin));
    outer.Transform(Scaling(10), TransformationMode::Append);
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(70, 100, 0, 0).origin));
}

TEST_F(TransformedCompound, FollowsTheShape)
{
    path.SetTransformation(Scaling(2));
    path.TransformedCompound(nullptr);
    path.SetDefiningCompound(MakeRectangle(50, 50, 1, 1));
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(100, 100, 0, 0).origin));
}

TEST_F(TransformedCompound, FollowsThePathOutOfAGroup)
{
    inner.SetTransformation(Translation(100, 0));
    path.TransformedCompound(nullptr);
    const std::unique_ptr<ContentObject> extracted(path.ExtractFromParent());
    EXPECT_EQ(path.TransformedCompound(nullptr), path.DefiningCompound());
}

TEST_F(TransformedCompound, FollowsThePathIntoAnotherGroup)
{
    path.SetTransformation(Scaling(2));
    path.TransformedCompound(nullptr);
    Group& other = Add(content, MakeGroup());
    other.SetTransformation(Translation(100, 0));
    other.AddOnTop(path.ExtractFromParent());
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(102, 4, 0, 0).origin));
}

TEST_F(TransformedCompound, FollowsAGroupIntoAnotherGroup)
{
    inner.SetTransformation(Translation(100, 0));
    path.TransformedCompound(nullptr);
    Group& other = Add(content, MakeGroup());
    other.SetTransformation(Scaling(10));
    other.AddOnTop(outer.ExtractFromParent());
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(1010, 20, 0, 0).origin));
    // And once more, with the shape made where the path is now.
    Group& third = Add(content, MakeGroup());
    third.SetTransformation(Scaling(2));
    third.AddOnTop(outer.ExtractFromParent());
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(202, 4, 0, 0).origin));
}

TEST_F(TransformedCompound, FollowsAGroupOutOfAGroup)
{
    outer.SetTransformation(Scaling(10));
    path.TransformedCompound(nullptr);
    const std::unique_ptr<ContentObject> extracted(inner.ExtractFromParent());
    EXPECT_EQ(path.TransformedCompound(nullptr), path.DefiningCompound());
}

TEST_F(TransformedCompound, FollowsAGroupThatWasBuiltFromTheBottom)
{
    auto chain = MakeGroup();
    Path& deep = Add(*chain, std::make_unique<Path>(MakeRectangle(1, 2, 10, 10)));
    for (int level = 0; level < 3; ++level) {
        auto above = MakeGroup();
        above->SetTransformation(Scaling(2));
        Add(*above, std::move(chain));
        deep.TransformedCompound(nullptr);
        chain = std::move(above);
    }
    EXPECT_EQ(GetStart(deep.TransformedCompound(nullptr)), (Rectangle(8, 16, 0, 0).origin));
}

TEST_F(TransformedCompound, IsTransformedFurtherByAnArgument)
{
    path.SetTransformation(Scaling(2));
    const Transformation further = Translation(1000, 0);
    EXPECT_EQ(GetStart(path.TransformedCompound(&further)), (Rectangle(1002, 4, 0, 0).origin));
    EXPECT_EQ(GetStart(path.TransformedCompound(nullptr)), (Rectangle(2, 4, 0, 0).origin));
}

TEST_F(TransformedCompound, OfTwoPathsAreTwoObjects)
{
    Path& other = Add(inner, std::make_unique<Path>(MakeRectangle(3, 4, 10, 10)));
    inner.SetTransformation(Scaling(2));
    const CompoundPointer& first = path.TransformedCompound(nullptr);
    const CompoundPointer& second = other.TransformedCompound(nullptr);
    EXPECT_EQ(GetStart(first), (Rectangle(2, 4, 0, 0).origin));
    EXPECT_EQ(GetStart(second), (Rectangle(6, 8, 0, 0).origin));
}

TEST_F(TransformedCompound, IsTheSameForAllThreads)
{
    outer.SetTransformation(Scaling(2));
    std::vector<Path*> paths;
    for (int count = 0; count < 200; ++count)
        paths.push_back(&Add(inner, MakePath()));
    std::vector<std::vector<const Plexa::Compound*>> seen(4);
    std::vector<std::thread> threads;
    for (auto& mine : seen) {
        threads.emplace_back([&mine, &paths] {
            for (const Path* each : paths)
                mine.push_back(each->TransformedCompound(nullptr).get());
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& mine : seen)
        EXPECT_EQ(mine, seen.front());
}

TEST(PathBoundingBox, OfTheOutlineLeavesOutTheStroke)
{
    const auto path = MakePath();
    path->SetStrokePaint(MakeBlack());
    EXPECT_EQ(path->GetBoundingBoxSelf(BoxKind::Outline, Scaling(2)), Rectangle(0, 0, 2000, 4000));
}

TEST(PathBoundingBox, OfWhatIsPaintedIsTheOutlineWithoutAStroke)
{
    const auto path = MakePath();
    path->SetFillPaint(MakeBlack());
    EXPECT_EQ(path->GetBoundingBoxSelf(BoxKind::Painted, {}), Rectangle(0, 0, 1000, 2000));
}

TEST(PathBoundingBox, GrowsByHalfTheLineWidthUnderTheTransformation)
{
    const auto path = MakePath();
    path->SetStrokePaint(MakeBlack());
    StrokeProperties stroke;
    stroke.width = 200;
    stroke.join = LineJoin::Round;
    path->SetStrokeProperties(stroke);
    EXPECT_EQ(path->GetBoundingBoxSelf(BoxKind::Painted, {}), Rectangle(-100, -100, 1200, 2200));
    const Transformation unequal(2, 0, 0, 3, 0, 0);
    EXPECT_EQ(path->GetBoundingBoxSelf(BoxKind::Painted, unequal), Rectangle(-200, -300, 2400, 6600));
    const Transformation quarterTurn(0, 1, -1, 0, 0, 0);
    EXPECT_EQ(path->GetBoundingBoxSelf(BoxKind::Painted, quarterTurn), Rectangle(-2100, -100, 2200, 1200));
}

TEST(PathBoundingBox, GrowsByTheMiterLimitAtMiterJoins)
{
    const auto path = MakePath();
    path->SetStrokePaint(MakeBlack());
    StrokeProperties stroke;
    stroke.width = 200;
    stroke.miterLimit = 4;
    path->SetStrokeProperties(stroke);
    EXPECT_EQ(path->GetBoundingBoxSelf(BoxKind::Painted, {}), Rectangle(-400, -400, 1800, 2800));
}

TEST(PathBoundingBox, GrowsByTheDiagonalOfProjectingCaps)
{
    const auto path = MakePath();
    path->SetStrokePaint(MakeBlack());
    StrokeProperties stroke;
    stroke.width = 2000;
    stroke.join = LineJoin::Bevel;
    stroke.cap = LineCap::ProjectingSquare;
    path->SetStrokeProperties(stroke);
    EXPECT_NEAR(path->GetBoundingBoxSelf(BoxKind::Painted, {}).origin.x.value, -1414.2135623730951, 1e-9);
}

TEST(PathBoundingBox, DoesNotGrowBeyondAllNumbers)
{
    const auto path = MakePath();
    path->SetStrokePaint(MakeBlack());
    StrokeProperties stroke;
    stroke.width = std::numeric_limits<double>::infinity();
    path->SetStrokeProperties(stroke);
    EXPECT_EQ(path->GetBoundingBoxSelf(BoxKind::Painted, {}), Rectangle(0, 0, 1000, 2000));
}

TEST(PathBoundingBox, OfAPathWithoutSegmentsIsInitial)
{
    Path path(std::make_shared<Plexa::Compound>());
    path.SetStrokePaint(MakeBlack());
    EXPECT_TRUE(path.GetBoundingBoxSelf(BoxKind::Painted, {}).isInitial);
}

TEST(StrokeProperties, AreTheDefaultsUntilTheyAreSet)
{
    const auto path = MakePath();
    EXPECT_EQ(path->GetStrokeProperties(), StrokeProperties());
    EXPECT_EQ(path->GetSharedStrokeProperties(), nullptr);
    path->SetStrokeProperties(StrokeProperties());
    EXPECT_EQ(path->GetSharedStrokeProperties(), nullptr) << "defaults take no memory";
}

TEST(StrokeProperties, CanBeSharedByObjects)
{
    StrokeProperties stroke;
    stroke.width = 5;
    const auto path = MakePath();
    const auto other = MakePath();
    path->SetStrokeProperties(stroke);
    other->SetSharedStrokeProperties(path->GetSharedStrokeProperties());
    EXPECT_EQ(&path->GetStrokeProperties(), &other->GetStrokeProperties());
    EXPECT_EQ(other->GetStrokeProperties().width, 5);
}

} // namespace
