#include <orv_doc/transformable.h>

#include <gtest/gtest.h>

#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/text_group.h>

#include "document_library/orv_doc/model_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;

TEST(Transformable, HasTheIdentityAtFirst)
{
    EXPECT_TRUE(Plexa::IsIdentity(MakePath()->GetTransformation()));
}

TEST(Transformable, AppendsAfterWhatItHas)
{
    const auto path = MakePath();
    path->Transform(Translation(10, 20), TransformationMode::Append);
    path->Transform(Scaling(3), TransformationMode::Append);
    EXPECT_EQ(path->GetTransformation(), Transformation(3, 0, 0, 3, 30, 60));
}

TEST(Transformable, ReplacesWhatItHas)
{
    const auto path = MakePath();
    path->SetTransformation(Translation(10, 20));
    path->Transform(Scaling(3), TransformationMode::Replace);
    EXPECT_EQ(path->GetTransformation(), Scaling(3));
}

TEST(AbsoluteTransformation, IsTheOwnOneOutsideOfGroups)
{
    const auto document = Document::CreateNew();
    Path& path = Add(document->AddPage({0, 0, 1, 1}).GetContent(), MakePath());
    path.SetTransformation(Translation(10, 20));
    EXPECT_EQ(GetAbsoluteTransformation(path), Translation(10, 20));
}

TEST(AbsoluteTransformation, AppliesTheOwnOneFirstAndTheOutermostLast)
{
    const auto outer = MakeGroup();
    Group& middle = Add(*outer, std::make_unique<TextGroup>());
    Path& path = Add(middle, MakePath());
    path.SetTransformation(Scaling(2));
    middle.SetTransformation(Translation(10, 20));
    outer->SetTransformation({0, 1, -1, 0, 100, 0});
    // (x, y) -> (2x + 10, 2y + 20) -> (-(2y + 20) + 100, 2x + 10)
    EXPECT_EQ(GetAbsoluteTransformation(path), Transformation(0, 2, -2, 0, 80, 10));
    EXPECT_EQ(GetAbsoluteTransformation(middle), Transformation(0, 1, -1, 0, 80, 10));
    EXPECT_EQ(GetAbsoluteTransformation(*outer), Transformation(0, 1, -1, 0, 100, 0));
}

TEST(BoundingBox, OfPicturesIsTheMappedUnitSquare)
{
    const Transformation t(2, 0, 0, 3, 10, 20);
    EXPECT_EQ(Image(nullptr).GetBoundingBoxSelf(BoxKind::Painted, t), Rectangle(10, 20, 2000, 3000));
    EXPECT_EQ(ImageMask(nullptr).GetBoundingBoxSelf(BoxKind::Outline, t), Rectangle(10, 20, 2000, 3000));
}

TEST(BoundingBox, OfAnEmptyGroupIsInitial)
{
    EXPECT_TRUE(MakeGroup()->GetBoundingBoxSelf(BoxKind::Painted, {}).isInitial);
}

TEST(BoundingBox, OfAGroupIsThatOfItsChildrenWhereTheyAre)
{
    Group group(Group::Flags::Default);
    group.SetTransformation(Scaling(7)); // Takes no part: the caller passes it.
    Add(group, MakePath());
    Group& inner = Add(group, MakeGroup());
    inner.SetTransformation(Translation(5000, 0));
    Add(inner, MakePath()).SetTransformation(Scaling(2));
    EXPECT_EQ(group.GetBoundingBoxSelf(BoxKind::Outline, {}), Rectangle(0, 0, 7000, 4000));
    EXPECT_EQ(group.GetBoundingBoxSelf(BoxKind::Outline, Translation(1, 2)), Rectangle(1, 2, 7000, 4000));
}

TEST(BoundingBox, OfAGroupLeavesOutWhatClips)
{
    TextGroup group;
    Add(group, MakePath());
    Path& clip = Add(group, std::make_unique<Path>(MakeRectangle(-9000, 0, 1, 1)));
    EXPECT_EQ(group.GetBoundingBoxSelf(BoxKind::Outline, {}), Rectangle(-9000, 0, 10000, 2000));
    clip.SetClippingObject(true);
    EXPECT_EQ(group.GetBoundingBoxSelf(BoxKind::Outline, {}), Rectangle(0, 0, 1000, 2000));
}

class ListeningPath : public Path
{
public:
    ListeningPath() : Path(MakeRectangle(0, 0, 1, 1)) {}
    std::vector<std::pair<Transformation, TransformationMode>> changes;

protected:
    void TransformationChangedSelf(const Transformation& change, TransformationMode mode) override
    {
        changes.emplace_back(change, mode);
        Path::TransformationChangedSelf(change, mode);
    }
};

TEST(TransformationChange, IsToldToEverythingBelowAGroup)
{
    const auto root = MakeGroup();
    ListeningPath& path =
        Add(Add(Add(*root, MakeGroup()), std::make_unique<TextGroup>()), std::make_unique<ListeningPath>());
    path.changes.clear();
    root->Transform(Scaling(2), TransformationMode::Append);
    ASSERT_EQ(path.changes.size(), 1u);
    EXPECT_EQ(path.changes.front(), std::make_pair(Scaling(2), TransformationMode::Append));
}

} // namespace
