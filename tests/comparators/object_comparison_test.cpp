#include "foreign_objects.h"

#include "comparators/comparison_context.h"
#include "comparators/content_comparison.h"
#include "comparators/object_type_name.h"
#include "support/document_makers.h"
#include "support/picture_plan.h"
#include "support/recording_reporter.h"
#include "support/text_makers.h"

#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/text.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;

namespace
{

PaintPointer Black()
{
    return Flat(Tints({{"Black", 1.0f}}));
}

std::unique_ptr<OrvDoc::Image> NewImage()
{
    return ImageOf({});
}

std::unique_ptr<OrvDoc::ImageMask> NewImageMask()
{
    return ImageMaskOf(StencilPlan());
}

std::unique_ptr<OrvDoc::Text> NewText()
{
    return TextOf("");
}

template <typename Object>
std::unique_ptr<Object> Filling(std::unique_ptr<Object> object, PaintPointer paint)
{
    object->SetFillPaint(std::move(paint));
    return object;
}

template <typename Object>
std::unique_ptr<Object> Stroking(std::unique_ptr<Object> object, PaintPointer paint)
{
    object->SetStrokePaint(std::move(paint));
    return object;
}

void ExpectObjectReports(const OrvDoc::ContentObject& left, const OrvDoc::ContentObject& right,
                         const std::vector<ExpectedReport>& expected)
{
    ExpectReports<OrvDoc::ContentObject>(left, right, expected);
}

bool CanGoOn(const OrvDoc::ContentObject& left, const OrvDoc::ContentObject& right)
{
    RecordingReporter reporter;
    Comparators::ComparisonContext context(reporter, AllOptions());
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(left, right);
    return Comparators::CompareObjects(context, scope);
}

/// Objects that stand in an uncoloured pattern.
class UncoloredPattern : public ::testing::Test
{
protected:
    template <typename Object>
    const OrvDoc::ContentObject& InPattern(std::unique_ptr<Object> object)
    {
        patterns.push_back(NewContent(*document, OrvDoc::Content::Type::UncoloredPatternContent));
        return Place(*patterns.back(), std::move(object));
    }

    std::unique_ptr<OrvDoc::Document> document = NewDocument();
    std::vector<std::unique_ptr<OrvDoc::Content>> patterns;
};

} // namespace

TEST(ObjectTypeName, IsTheClassWithItsNamespace)
{
    const auto document = NewDocument();
    EXPECT_EQ(Comparators::ObjectTypeName(*Square()), "OrvDoc::Path");
    EXPECT_EQ(Comparators::ObjectTypeName(*ImplicitGroup()), "OrvDoc::Group");
    EXPECT_EQ(Comparators::ObjectTypeName(OrvDoc::TextGroup()), "OrvDoc::TextGroup");
    EXPECT_EQ(Comparators::ObjectTypeName(OrvDoc::Layer(document->GetLayers().AddLayer("cut"))),
              "OrvDoc::Layer");
    EXPECT_EQ(Comparators::ObjectTypeName(*NewImage()), "OrvDoc::Image");
    EXPECT_EQ(Comparators::ObjectTypeName(*NewImageMask()), "OrvDoc::ImageMask");
    EXPECT_EQ(Comparators::ObjectTypeName(*NewText()), "OrvDoc::Text");
    EXPECT_EQ(Comparators::ObjectTypeName(UnknownObject()), "HarrowSupport::Testing::UnknownObject");
}

TEST(CompareObjects, ADerivedClassAgainstItsBaseIsAMismatch)
{
    const ForeignGroup foreign(OrvDoc::Group::Flags::Default);
    const OrvDoc::Group plain(OrvDoc::Group::Flags::Default);
    ExpectObjectReports(foreign, plain,
                        {Difference("ObjectType", "HarrowSupport::Testing::ForeignGroup", "OrvDoc::Group")});
    EXPECT_FALSE(CanGoOn(foreign, plain));
}

TEST(CompareObjects, AMismatchOfClassesHidesAllOtherDifferences)
{
    ExpectObjectReports(*Square("a"), *Named(NewText(), "b"),
                        {Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Text")});
}

TEST(CompareObjects, AForeignPathIsComparedAsAPath)
{
    const ForeignPath left(Square()->DefiningCompound());
    const ForeignPath right(Rectangle(0.0, 0.0, 1.0, 1.0)->DefiningCompound());
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(left), right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectShape"));
    EXPECT_TRUE(CanGoOn(left, right));
}

TEST(CompareObjects, AnObjectThatCannotBePaintedEndsTheWalkWithoutAReport)
{
    ExpectObjectReports(UnknownObject(), UnknownObject(), {});
    EXPECT_FALSE(CanGoOn(UnknownObject(), UnknownObject()));
}

TEST(CompareObjects, ThePropertiesOfAnUnknownObjectAreCompared)
{
    UnknownObject left;
    UnknownObject right;
    left.SetName("a");
    right.SetName("b");
    ExpectObjectReports(left, right, {Difference("ObjectName", "a", "b")});
}

TEST(CompareObjects, AnUnknownFillableIsComparedByItsFillAndNamedAsUnknown)
{
    UnknownFillable left;
    left.SetFillPaint(Black());
    ExpectObjectReports(left, UnknownFillable(),
                        {Difference("ObjectHasFill", "1", "0"), Difference("UnknownObjectType")});
    EXPECT_FALSE(CanGoOn(left, left));
}

TEST(CompareObjects, AnUnknownStrokableIsComparedByItsPaintsAndNamedAsUnknown)
{
    UnknownStrokable left;
    left.SetFillPaint(Black());
    left.SetStrokePaint(Black());
    ExpectObjectReports(left, UnknownStrokable(),
                        {Difference("ObjectHasFill", "1", "0"), Difference("ObjectHasStroke", "1", "0"),
                         Difference("UnknownObjectType")});
    EXPECT_FALSE(CanGoOn(left, left));
}

TEST(CompareObjects, AllKnownKindsLetTheWalkGoOn)
{
    EXPECT_TRUE(CanGoOn(*Square(), *Square()));
    EXPECT_TRUE(CanGoOn(*NewText(), *NewText()));
    EXPECT_TRUE(CanGoOn(*NewImage(), *NewImage()));
    EXPECT_TRUE(CanGoOn(*NewImageMask(), *NewImageMask()));
    EXPECT_TRUE(CanGoOn(OrvDoc::TextGroup(), OrvDoc::TextGroup()));
    EXPECT_TRUE(CanGoOn(*ImplicitGroup(), *ImplicitGroup()));
}

TEST(CompareObjects, AFillPaintOnOneSideIsADifference)
{
    ExpectObjectReports(*Filled(Black()), *Square(), {Difference("ObjectHasFill", "1", "0")});
    ExpectObjectReports(*Filling(NewText(), Black()), *NewText(), {Difference("ObjectHasFill", "1", "0")});
    ExpectObjectReports(*Filling(NewImageMask(), Black()), *NewImageMask(),
                        {Difference("ObjectHasFill", "1", "0")});
}

TEST(CompareObjects, AStrokePaintOnOneSideIsADifference)
{
    ExpectObjectReports(*Stroked(Black()), *Square(), {Difference("ObjectHasStroke", "1", "0")});
    ExpectObjectReports(*Stroking(NewText(), Black()), *NewText(), {Difference("ObjectHasStroke", "1", "0")});
}

TEST(CompareObjects, FillComesBeforeStroke)
{
    ExpectObjectReports(*Stroking(Filled(Black()), Black()), *Square(),
                        {Difference("ObjectHasFill", "1", "0"), Difference("ObjectHasStroke", "1", "0")});
}

TEST(CompareObjects, PaintsOfClippingObjectsDoNotCount)
{
    const auto left = Filling(Stroking(Clip("clip"), Black()), Black());
    ExpectObjectReports(*left, *Clip("clip"), {});
}

TEST(CompareObjects, TheClippingRoleIsAskedOnEachSide)
{
    const auto left = Filling(Clip("path"), Black());
    const auto right = Filling(Square("path"), Black());
    ExpectObjectReports(*left, *right,
                        {Difference("ObjectIsClipping", "1", "0"), Difference("ObjectHasFill", "0", "1")});
}

TEST(CompareObjects, ImagesWithOtherPicturesAreEqualWithoutImageData)
{
    Comparators::Options options = AllOptions();
    options.compareImageData = false;
    PicturePlan other;
    other.samples.back() += 1;
    ExpectReports<OrvDoc::ContentObject>(*Named(ImageOf({}), "i"), *Named(ImageOf(other), "i"), {}, options);
    ExpectReports<OrvDoc::ContentObject>(*Named(ImageOf({}), "i"), *Named(ImageOf(other), "j"),
                                         {Difference("ObjectName", "i", "j")}, options);
    ExpectReports<OrvDoc::ContentObject>(*ImageMaskOf(StencilPlan()),
                                         *ImageMaskOf(StencilPlan(2, 2, {1, 1, 1, 1})), {}, options);
}

TEST(CompareObjects, HalftonesOfImagesAreCompared)
{
    const auto left = NewImage();
    left->SetHalftoneSet(std::make_shared<OrvDoc::HalftoneSet>("Round", OrvSys::PdfObject()));
    ExpectObjectReports(*left, *NewImage(), {Difference("ObjectHalftoneSet", "1", "0")});
}

TEST(CompareObjects, ClassesMetBeforeAreJudgedAsAtTheirFirstMeeting)
{
    std::vector<std::unique_ptr<OrvDoc::ContentObject>> objects;
    objects.push_back(Filling(Square("a"), Black()));
    objects.push_back(std::make_unique<ForeignPath>(Square()->DefiningCompound()));
    objects.push_back(Stroking(NewText(), Black()));
    objects.push_back(std::make_unique<OrvDoc::TextGroup>());
    objects.push_back(std::make_unique<ForeignTextGroup>());
    objects.push_back(Moved(ImplicitGroup(), 500.0, 0.0));
    objects.push_back(UserGroup());
    objects.push_back(std::make_unique<ForeignGroup>(OrvDoc::Group::Flags::Default));
    objects.push_back(NewImage());
    objects.push_back(NewImageMask());
    objects.push_back(std::make_unique<UnknownObject>());
    objects.push_back(std::make_unique<UnknownFillable>());
    objects.push_back(std::make_unique<UnknownStrokable>());

    const auto outcome = [](Comparators::ComparisonContext& context, const OrvDoc::ContentObject& left,
                            const OrvDoc::ContentObject& right) {
        Comparators::DifferenceScope<OrvDoc::ContentObject> scope(left, right);
        std::vector<std::string> labels = {Comparators::CompareObjects(context, scope) ? "goes on" : "ends"};
        for (const Comparators::PendingDifference& difference : scope.differences)
            labels.push_back(difference.label);
        return labels;
    };
    RecordingReporter reporter;
    Comparators::ComparisonContext context(reporter, AllOptions());
    for (int round = 0; round < 2; ++round) {
        for (std::size_t left = 0; left < objects.size(); ++left) {
            for (std::size_t right = 0; right < objects.size(); ++right) {
                Comparators::ComparisonContext fresh(reporter, AllOptions());
                EXPECT_EQ(outcome(context, *objects[left], *objects[right]),
                          outcome(fresh, *objects[left], *objects[right]))
                    << left << " against " << right << " in round " << round;
            }
        }
    }
}

TEST_F(UncoloredPattern, AnImageIsReportedEvenIfItIsEqual)
{
    ExpectObjectReports(InPattern(NewImage()), InPattern(NewImage()),
                        {Difference("UncoloredPatternPaintHasImage")});
}

TEST_F(UncoloredPattern, OnlyTheLeftSideIsAsked)
{
    const OrvDoc::ContentObject& inside = InPattern(NewImage());
    const auto outside = NewImage();
    EXPECT_THAT(CompareLines<OrvDoc::ContentObject>(inside, *outside),
                ElementsAre("UncoloredPatternPaintHasImage"));
    EXPECT_THAT(CompareLines<OrvDoc::ContentObject>(*outside, inside), ElementsAre());
}

TEST_F(UncoloredPattern, TwoPaintsAreNotCompared)
{
    const PaintPointer cyan = Flat(Tints({{"Cyan", 1.0f}}));
    ExpectObjectReports(InPattern(Stroking(Filled(Black()), Black())),
                        InPattern(Stroking(Filled(cyan), cyan)), {});
}

TEST_F(UncoloredPattern, AMissingPaintIsStillADifference)
{
    ExpectObjectReports(InPattern(Stroking(Filled(Black()), Black())), InPattern(Square()),
                        {Difference("ObjectHasFill", "1", "0"), Difference("ObjectHasStroke", "1", "0")});
}

TEST_F(UncoloredPattern, ADeeperGroupStandsInThePatternToo)
{
    patterns.push_back(NewContent(*document, OrvDoc::Content::Type::UncoloredPatternContent));
    OrvDoc::Group& group = Place(*patterns.back(), NamedGroup("g"));
    const OrvDoc::ContentObject& image = Place(group, NewImage());
    ExpectObjectReports(image, image, {Difference("UncoloredPatternPaintHasImage")});
}

} // namespace HarrowSupport::Testing
