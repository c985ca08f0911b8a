#include "foreign_objects.h"
#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <orv_blend/transparency.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/layer.h>
#include <orv_doc/text_group.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

using OrvBlend::Transparency;
using Factory = OrvBlend::Transparency::Factory;

template <typename Object>
std::unique_ptr<Object> Blended(std::unique_ptr<Object> object,
                                const Transparency& transparency = Transparency())
{
    object->SetTransparency(std::make_shared<const Transparency>(transparency));
    return object;
}

std::unique_ptr<OrvDoc::TextGroup> NewTextGroup()
{
    return std::make_unique<OrvDoc::TextGroup>();
}

template <typename Object>
std::unique_ptr<Object> Placed(std::unique_ptr<Object> object, const Matrix& matrix)
{
    object->SetTransformation(matrix);
    return object;
}

std::unique_ptr<OrvDoc::Path> WithHalftone(const std::string& name,
                                           OrvSys::PdfObject definition = OrvSys::PdfObject())
{
    auto path = Square();
    path->SetHalftoneSet(std::make_shared<OrvDoc::HalftoneSet>(name, std::move(definition)));
    return path;
}

std::string Print(const OrvDoc::HalftoneSet& set)
{
    std::ostringstream stream;
    stream << set;
    return stream.str();
}

void ExpectObjectReports(const OrvDoc::ContentObject& left, const OrvDoc::ContentObject& right,
                         const std::vector<ExpectedReport>& expected)
{
    ExpectReports<OrvDoc::ContentObject>(left, right, expected);
}

std::vector<std::string> Labels(const OrvDoc::ContentObject& left, const OrvDoc::ContentObject& right)
{
    RecordingReporter reporter;
    Comparators::Compare(reporter, left, right, AllOptions());
    return reporter.Labels();
}

/// Objects without any shape, so that only their position can differ.
std::unique_ptr<OrvDoc::TextGroup> At(double x, double y)
{
    return Moved(NewTextGroup(), x, y);
}

/// A transformation that takes (1, 1) to exactly the offset, in points, for small numbers.
std::unique_ptr<OrvDoc::TextGroup> Degenerate(double x)
{
    return Placed(NewTextGroup(), Matrix(0.0, 0.0, 0.0, 0.0, x, 0.0));
}

} // namespace

TEST(Transparency, NoneOnBothSidesGivesNoReportAndTheRestIsCompared)
{
    ExpectObjectReports(*Square("a"), *Square("a"), {});
    ExpectObjectReports(*Square("a"), *Square("b"), {Difference("ObjectName", "a", "b")});
}

TEST(Transparency, OnOneSideIsADifferenceForAPath)
{
    ExpectObjectReports(*Blended(Square()), *Square(), {Difference("ObjectHasTransparency", "1", "0")});
}

TEST(Transparency, TheDefaultOneEqualsNoneForATextGroup)
{
    ExpectObjectReports(*Blended(NewTextGroup(), *Factory::GetDefault()), *NewTextGroup(), {});
}

TEST(Transparency, TheDefaultOneEqualsNoneForAClassDerivedFromTextGroup)
{
    const ForeignTextGroup without;
    ForeignTextGroup with;
    with.SetTransparency(Factory::GetDefault());
    ExpectObjectReports(with, without, {});
}

TEST(Transparency, ATextGroupWithoutOneIsComparedAsTheDefault)
{
    Transparency transparency = *Factory::GetDefault();
    transparency.fillAlpha = 0.5f;
    ExpectObjectReports(*Blended(NewTextGroup(), transparency), *NewTextGroup(),
                        {Difference("ObjectFillAlpha", "0.5", "1")});
}

TEST(Transparency, TheDefaultOneIsNotNoneForAnyOtherGroup)
{
    ExpectObjectReports(*Blended(UserGroup(), *Factory::GetDefault()), *UserGroup(),
                        {Difference("ObjectHasTransparency", "1", "0")});
}

TEST(Transparency, EveryFieldIsComparedInItsOrder)
{
    Transparency other;
    other.blendMode = OrvBlend::BlendMode::Multiply;
    other.fillAlpha = 0.5f;
    other.strokeAlpha = 0.25f;
    other.isolated = true;
    other.knockout = true;
    other.alphaIsShape = true;
    ExpectObjectReports(*Blended(Square("a"), other), *Blended(Square("b")),
                        {Difference("ObjectBlendMode", "Multiply", "Normal"),
                         Difference("ObjectFillAlpha", "0.5", "1"),
                         Difference("ObjectStrokeAlpha", "0.25", "1"),
                         Difference("ObjectAlphaIsShape", "1", "0"), Difference("GroupIsIsolated", "1", "0"),
                         Difference("GroupIsKnockout", "1", "0"), Difference("ObjectName", "a", "b")});
}

TEST(Transparency, AlphasCloserThanTheToleranceAreEqual)
{
    Transparency left;
    Transparency right;
    left.fillAlpha = left.strokeAlpha = 0.0f;
    right.fillAlpha = right.strokeAlpha = std::nextafter(1e-5f, 0.0f);
    ExpectObjectReports(*Blended(Square(), left), *Blended(Square(), right), {});
}

TEST(Transparency, AlphasAtTheToleranceDiffer)
{
    Transparency left;
    Transparency right;
    left.fillAlpha = left.strokeAlpha = 0.0f;
    right.fillAlpha = right.strokeAlpha = 1e-5f;
    ExpectObjectReports(
        *Blended(Square(), left), *Blended(Square(), right),
        {Difference("ObjectFillAlpha", "0", "1e-05"), Difference("ObjectStrokeAlpha", "0", "1e-05")});
}

TEST(Transparency, AlphasAreSubtractedAsFloats)
{
    // The exact difference is below the tolerance; the nearest float to it is the tolerance itself.
    Transparency left;
    Transparency right;
    left.fillAlpha = 1e-5f;
    right.fillAlpha = 1e-13f;
    ExpectObjectReports(*Blended(Square(), left), *Blended(Square(), right),
                        {Difference("ObjectFillAlpha", "1e-05", "1e-13")});
}

TEST(Transparency, AnAlphaThatIsNoNumberMatchesNothing)
{
    Transparency transparency;
    transparency.fillAlpha = std::nanf("");
    const auto path = Blended(Square(), transparency);
    EXPECT_THAT(Labels(*path, *path), ElementsAre("ObjectFillAlpha"));
}

TEST(Position, PlainGroupsAreNotComparedIfOneHasNoTransparency)
{
    EXPECT_THAT(Labels(*Moved(UserGroup(), 0.0, 0.0), *Moved(UserGroup(), 500.0, 0.0)), IsEmpty());
    EXPECT_THAT(Labels(*Moved(Blended(UserGroup()), 0.0, 0.0), *Moved(UserGroup(), 500.0, 0.0)),
                ElementsAre("ObjectHasTransparency"));
    EXPECT_THAT(Labels(*Moved(UserGroup(), 0.0, 0.0), *Moved(Blended(UserGroup()), 500.0, 0.0)),
                ElementsAre("ObjectHasTransparency"));
}

TEST(Position, PlainGroupsThatAreBlendedAreCompared)
{
    ExpectObjectReports(*Moved(Blended(UserGroup()), 0.0, 0.0), *Moved(Blended(UserGroup()), 500.0, 0.0),
                        {Difference("ObjectAbsoluteTransformation", "[A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0]",
                                    "[A: 1, B: 0, C: 0, D: 1, X: 500, Y: 0]")});
}

TEST(Position, ClassesDerivedFromGroupAreCompared)
{
    EXPECT_THAT(Labels(*At(0.0, 0.0), *At(500.0, 0.0)), ElementsAre("ObjectAbsoluteTransformation"));
    ForeignGroup left(OrvDoc::Group::Flags::Default);
    ForeignGroup right(OrvDoc::Group::Flags::Default);
    right.SetTransformation(Matrix(1.0, 0.0, 0.0, 1.0, 0.0, 500.0));
    EXPECT_THAT(Labels(left, right), ElementsAre("ObjectAbsoluteTransformation"));
}

TEST(Position, ARotationAboutOneOneIsNotSeen)
{
    // A quarter turn that leaves the point of one point by one point where it is.
    const Matrix turn(0.0, 1.0, -1.0, 0.0, 2000.0, 0.0);
    ExpectObjectReports(*At(0.0, 0.0), *Placed(NewTextGroup(), turn), {});
}

TEST(Position, AShiftByAHundredthMilliPointIsSeen)
{
    for (const auto& [x, y] :
         {std::pair(0.01, 0.0), std::pair(-0.01, 0.0), std::pair(0.0, 0.01), std::pair(0.0, -0.01)}) {
        EXPECT_THAT(Labels(*Placed(NewTextGroup(), Matrix(0.0, 0.0, 0.0, 0.0, 0.0, 0.0)),
                           *Placed(NewTextGroup(), Matrix(0.0, 0.0, 0.0, 0.0, x, y))),
                    ElementsAre("ObjectAbsoluteTransformation"))
            << x << ", " << y;
    }
}

TEST(Position, AShiftByLessThanAHundredthMilliPointIsNotSeen)
{
    const double below = std::nextafter(0.01, 0.0);
    ExpectObjectReports(*Degenerate(0.0), *Degenerate(below), {});
    ExpectObjectReports(*Degenerate(0.0), *Degenerate(-below), {});
    ExpectObjectReports(*At(1000.0, 2000.0), *At(1000.009, 2000.0), {});
    EXPECT_THAT(Labels(*At(1000.0, 2000.0), *At(1000.011, 2000.0)),
                ElementsAre("ObjectAbsoluteTransformation"));
}

TEST(Position, TheLengthOfTheShiftCountsAndNotItsCoordinates)
{
    ExpectObjectReports(*At(0.0, 0.0), *At(0.005, 0.005), {});
    EXPECT_THAT(Labels(*At(0.0, 0.0), *At(0.009, 0.009)), ElementsAre("ObjectAbsoluteTransformation"));
}

TEST(Position, NumbersThatAreNotFiniteMatchNothing)
{
    const auto group = At(std::nan(""), 0.0);
    EXPECT_THAT(Labels(*group, *group), ElementsAre("ObjectAbsoluteTransformation"));
    const auto infinite = At(HUGE_VAL, 0.0);
    EXPECT_THAT(Labels(*infinite, *infinite), ElementsAre("ObjectAbsoluteTransformation"));
}

TEST(Position, IsThatOnThePage)
{
    const auto document = NewDocument();
    const OrvDoc::Path& inside = Place(Place(ContentOf(*document), Moved(UserGroup(), 500.0, 0.0)), Square());
    EXPECT_THAT(Labels(*Moved(Square(), 500.0, 0.0), inside), IsEmpty());
    EXPECT_THAT(Labels(*Square(), inside), ElementsAre("ObjectAbsoluteTransformation"));
}

TEST(Properties, OfAnyObjectComeInTheirOrder)
{
    auto left = Moved(Blended(WithHalftone("Round")), 500.0, 0.0);
    left->SetName("a");
    auto right = Clip("b");
    ExpectObjectReports(*left, *right,
                        {Difference("ObjectHasTransparency", "1", "0"),
                         Difference("ObjectIsClipping", "0", "1"),
                         Difference("ObjectAbsoluteTransformation", "[A: 1, B: 0, C: 0, D: 1, X: 500, Y: 0]",
                                    "[A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0]"),
                         Difference("ObjectName", "a", "b"), Difference("ObjectHalftoneSet", "1", "0")});
}

TEST(ClippingRole, IsCompared)
{
    ExpectObjectReports(*Clip("a"), *Square("a"), {Difference("ObjectIsClipping", "1", "0")});
}

TEST(Name, OfALayerObjectIsThatOfItsLayer)
{
    const auto leftDocument = NewDocument();
    const auto rightDocument = NewDocument();
    const OrvDoc::Layer left(leftDocument->GetLayers().AddLayer("cut"));
    const OrvDoc::Layer right(rightDocument->GetLayers().AddLayer("fold"));
    ExpectObjectReports(left, right, {Difference("ObjectName", "cut", "fold")});
}

TEST(Halftone, OnOneSideIsADifference)
{
    ExpectObjectReports(*WithHalftone("Round"), *Square(), {Difference("ObjectHalftoneSet", "1", "0")});
}

TEST(Halftone, EqualSetsAreEqual)
{
    ExpectObjectReports(*WithHalftone("Round"), *WithHalftone("Round"), {});
}

TEST(Halftone, TheNameIsReportedOnItsOwnAndBeforeTheSet)
{
    const auto left = WithHalftone("Round");
    const auto right = WithHalftone("Line");
    ExpectObjectReports(
        *left, *right,
        {Difference("HalftoneSetName", "Round", "Line"),
         Difference("HalftoneSet", Print(*left->GetHalftoneSet()), Print(*right->GetHalftoneSet()))});
}

TEST(Halftone, ADefinitionAloneIsReportedAsTheSet)
{
    EXPECT_THAT(Labels(*WithHalftone("Round", OrvSys::PdfObject::Integer(1)),
                       *WithHalftone("Round", OrvSys::PdfObject::Integer(2))),
                ElementsAre("HalftoneSet"));
}

TEST(Halftone, ComesBeforeThePaints)
{
    auto left = WithHalftone("Round");
    left->SetFillPaint(Flat(Tints({{"Black", 1.0f}})));
    EXPECT_THAT(Labels(*left, *Square()), ElementsAre("ObjectHalftoneSet", "ObjectHasFill"));
}

} // namespace HarrowSupport::Testing
