#include "support/document_makers.h"
#include "support/picture_plan.h"
#include "support/recording_reporter.h"

#include <orv_doc/document.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

using OrvColor::RenderingIntent;
using OrvImg::MaskKind;

void ExpectImageReports(const PicturePlan& left, const PicturePlan& right,
                        const std::vector<ExpectedReport>& expected,
                        const Comparators::Options& options = AllOptions())
{
    ExpectReports<OrvDoc::ContentObject>(*ImageOf(left), *ImageOf(right), expected, options);
}

PicturePlan OtherSamples(PicturePlan plan)
{
    plan.samples.back() ^= 1;
    return plan;
}

Comparators::Options Unweighed()
{
    Comparators::Options options = AllOptions();
    options.softMaskAsChannel = false;
    return options;
}

/// A picture of one row in one separation.
PicturePlan RowPlan(const Samples& samples)
{
    PicturePlan plan;
    plan.width = samples.size();
    plan.height = 1;
    plan.samples = samples;
    plan.channels = {ColorChannel("Spot")};
    return plan;
}

PicturePlan MaskRow(const Samples& samples)
{
    PicturePlan plan = MaskPlan(samples);
    plan.width = samples.size();
    plan.height = 1;
    return plan;
}

const ExpectedReport pictureDiffers = Difference("DecodedImageData");
const ExpectedReport image = Difference("Image");

} // namespace

TEST(CompareImage, EqualPicturesAreEqual)
{
    ExpectImageReports({}, {}, {});
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked({}, MaskPlan()), {});
    ExpectImageReports(StencilMasked({}, StencilPlan()), StencilMasked({}, StencilPlan()), {});
}

TEST(CompareImage, AnotherSampleIsToldAtEachLevel)
{
    ExpectImageReports({}, OtherSamples({}), {pictureDiffers, image});
}

TEST(CompareImage, AnImageWithoutAPictureIsEqualToAnotherOneWithout)
{
    const OrvDoc::Image none(nullptr);
    ExpectReports<OrvDoc::ContentObject>(none, OrvDoc::Image(nullptr), {});
    ExpectReports<OrvDoc::ContentObject>(none, *ImageOf({}), {image});
}

TEST(CompareImage, OtherKindsOfMaskDiffer)
{
    ExpectImageReports(SoftMasked({}, MaskPlan()), StencilMasked({}, StencilPlan()),
                       {Difference("ImageMaskKind", "SoftMask", "StencilMask"), image});
    ExpectImageReports({}, SoftMasked({}, MaskPlan()),
                       {Difference("ImageMaskKind", "None", "SoftMask"), image});
    PicturePlan keyed;
    keyed.maskKind = MaskKind::ColorKey;
    ExpectImageReports({}, keyed, {Difference("ImageMaskKind", "None", "ColorKey"), image});
    ExpectImageReports(keyed, keyed, {});
}

TEST(CompareImage, ADifferenceOfThePictureHidesThatOfTheMask)
{
    ExpectImageReports({}, SoftMasked(OtherSamples({}), MaskPlan()), {pictureDiffers, image});
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked(OtherSamples({}), MaskPlan({0, 0, 0, 0})),
                       {pictureDiffers, image}, Unweighed());
    ExpectImageReports(StencilMasked({}, StencilPlan()),
                       StencilMasked(OtherSamples({}), StencilPlan(2, 2, {0, 0, 0, 0})),
                       {pictureDiffers, image});
}

TEST(CompareImage, SoftMasksAreComparedAsPictures)
{
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked({}, OtherSamples(MaskPlan())),
                       {pictureDiffers, Difference("DecodedSoftMaskData"), image});
    PicturePlan wide = MaskPlan();
    wide.width = 4;
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked({}, wide),
                       {Difference("ImageWidth", "2", "4"), Difference("DecodedSoftMaskData"), image});
}

TEST(CompareImage, TheChannelOfTheMaskMayStandAtAnotherPlace)
{
    PicturePlan two = MaskPlan({0, 255, 0, 128, 0, 64, 0, 255});
    two.channels.push_back(AlphaChannel());
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked({}, two, ChannelAt(1)), {});
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked({}, two, ChannelAt(0)),
                       {pictureDiffers, image});
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked({}, two, ChannelAt(0)),
                       {pictureDiffers, Difference("DecodedSoftMaskData"), image}, Unweighed());
}

TEST(CompareImage, TheRangeOfTheMaskCounts)
{
    const PicturePlan negative = MaskPlan({0, 127, 191, 0});
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked({}, negative, ChannelAt(0, inverted)), {});
    ExpectImageReports(SoftMasked({}, MaskPlan()), SoftMasked({}, negative),
                       {pictureDiffers, Difference("DecodedSoftMaskData"), image}, Unweighed());
}

TEST(CompareImage, AMaskChannelThatIsNotMappedIsEqualToAnotherOne)
{
    const ChannelPlace none = ChannelAt(OrvColor::Unmapped);
    ExpectImageReports(SoftMasked({}, MaskPlan(), none), SoftMasked({}, OtherSamples(MaskPlan()), none), {},
                       Unweighed());
    ExpectImageReports(SoftMasked({}, MaskPlan(), none), SoftMasked({}, MaskPlan()),
                       {Difference("ImageChannelsMapped", "(Foo @ UNMAPPED)", "(Foo @ 0)"),
                        Difference("DecodedSoftMaskData"), image},
                       Unweighed());
}

TEST(CompareImage, StencilMasksAreComparedByTheirSamples)
{
    const ExpectedReport differs = Difference("DecodedImageMaskData");
    ExpectImageReports(StencilMasked({}, StencilPlan()), StencilMasked({}, StencilPlan(2, 2, {1, 1, 0, 1})),
                       {differs, image});
    PicturePlan negative = StencilPlan(2, 2, {0, 1, 1, 0});
    negative.channels = {StencilChannel(inverted)};
    ExpectImageReports(StencilMasked({}, StencilPlan()), StencilMasked({}, negative), {});
}

TEST(CompareImage, AMaskDifferenceHidesThatOfTheRenderingIntent)
{
    PicturePlan left = SoftMasked(PlanIn(OrvImg::CalGray()), MaskPlan());
    PicturePlan right = SoftMasked(PlanIn(OrvImg::CalGray()), OtherSamples(MaskPlan()));
    right.intent = RenderingIntent::Saturation;
    ExpectImageReports(left, right, {pictureDiffers, Difference("DecodedSoftMaskData"), image}, Unweighed());
}

TEST(CompareImage, TheRenderingIntentCountsInDeviceIndependentSpacesOnly)
{
    const auto compare = [](const OrvImg::ColorSpace& space, const std::vector<ExpectedReport>& expected) {
        PicturePlan left = PlanIn(space, {ColorChannel("Spot")});
        PicturePlan right = left;
        right.intent = RenderingIntent::Saturation;
        ExpectImageReports(left, right, expected);
    };
    const std::vector<ExpectedReport> differs = {
        Difference("ObjectRenderingIntent", "RelativeColorimetric", "Saturation"), image};
    compare(OrvImg::CalGray(), differs);
    compare(OrvImg::CalRGB(), differs);
    compare(OrvImg::Lab(), differs);
    compare(OrvImg::DeviceGray(), {});
    compare(OrvImg::DeviceRGB(), {});
    compare(OrvImg::DeviceN(), {});
}

TEST(CompareImage, ColorsUnderAMaskValueOf0DoNotCountIfTheMaskIsAChannel)
{
    const PicturePlan left = SoftMasked(RowPlan({9, 9, 9}), MaskRow({255, 0, 255}));
    const PicturePlan right = SoftMasked(RowPlan({9, 200, 9}), MaskRow({255, 0, 255}));
    ExpectImageReports(left, right, {});
    ExpectImageReports(left, right, {pictureDiffers, image}, Unweighed());
}

TEST(CompareImage, WeightsComeFromTheMappedChannelOfTheMask)
{
    PicturePlan mask = MaskRow({255, 255, 255, 0, 255, 255});
    mask.width = 3;
    mask.channels.push_back(AlphaChannel());
    ExpectImageReports(SoftMasked(RowPlan({9, 9, 9}), mask, ChannelAt(1)),
                       SoftMasked(RowPlan({9, 200, 9}), mask, ChannelAt(1)), {});
    ExpectImageReports(SoftMasked(RowPlan({9, 9, 9}), mask, ChannelAt(0)),
                       SoftMasked(RowPlan({9, 200, 9}), mask, ChannelAt(0)), {pictureDiffers, image});
    // Inverted, the first channel hides all.
    ExpectImageReports(SoftMasked(RowPlan({9, 9, 9}), mask, ChannelAt(0, inverted)),
                       SoftMasked(RowPlan({9, 200, 9}), mask, ChannelAt(0, inverted)), {});
}

TEST(CompareImage, AMaskOfAnotherSizeThanItsPictureIsNoWeight)
{
    const PicturePlan wide = MaskRow({0, 0, 0, 0});
    PicturePlan high = MaskPlan({0, 0, 0, 0, 0, 0});
    high.width = 3;
    for (const PicturePlan& mask : {wide, high}) {
        ExpectImageReports(SoftMasked(RowPlan({9, 9, 9}), mask), SoftMasked(RowPlan({9, 200, 9}), mask),
                           {pictureDiffers, image});
        ExpectImageReports(SoftMasked(RowPlan({9, 9, 9}), MaskRow({0, 0, 0})),
                           SoftMasked(RowPlan({9, 200, 9}), mask), {pictureDiffers, image});
    }
}

TEST(CompareImage, AMaskOnOneSideOnlyIsNoWeight)
{
    ExpectImageReports(SoftMasked(RowPlan({9, 9}), MaskRow({0, 0})), RowPlan({9, 200}),
                       {pictureDiffers, image});
    PicturePlan stencil = StencilPlan(2, 1, {0, 0});
    ExpectImageReports(StencilMasked(RowPlan({9, 9}), stencil), StencilMasked(RowPlan({9, 200}), stencil),
                       {pictureDiffers, image});
}

TEST(CompareImage, TheMaskChannelOfADeviceIndependentPictureIsNumberedFrom4)
{
    // An own alpha channel behind three colour channels.
    const auto plan = [](unsigned hiddenColor) {
        PicturePlan result = PlanIn(OrvImg::CalRGB(), {AlphaChannel()});
        result.samples = {10, 20, 30, 0, 10, 20, 30, 255, 10, 20, 30, 255, 10, 20, 30, 255};
        result.samples[0] = hiddenColor;
        return result;
    };
    const auto imageOf = [](const PicturePlan& picture) {
        const PicturePointer data = MakePicture(picture);
        PicturePlan painted = picture;
        painted.maskKind = MaskKind::SoftMask;
        painted.mask = data;
        painted.maskPlace = data->GetDefaultSoftMaskMapping();
        return std::make_unique<OrvDoc::Image>(Paint(data, painted));
    };
    EXPECT_EQ(MakePicture(plan(10))->GetDefaultSoftMaskMapping().index, 4u);
    ExpectReports<OrvDoc::ContentObject>(*imageOf(plan(10)), *imageOf(plan(200)), {});
    ExpectReports<OrvDoc::ContentObject>(*imageOf(plan(10)), *imageOf(plan(200)), {pictureDiffers, image},
                                         Unweighed());
    PicturePlan otherAlpha = plan(10);
    otherAlpha.samples[7] = 254;
    ExpectReports<OrvDoc::ContentObject>(*imageOf(plan(10)), *imageOf(otherAlpha),
                                         {pictureDiffers, Difference("DecodedSoftMaskData"), image});
}

TEST(CompareImage, APairOfPicturesThatDifferedIsToldAgainByTheImageAlone)
{
    const PaintedPointer left = Paint({});
    const PaintedPointer right = Paint(OtherSamples({}));
    const auto leftDocument = NewDocument();
    const auto rightDocument = NewDocument();
    for (int i = 0; i < 3; ++i) {
        Fill(ContentOf(*leftDocument), std::make_unique<OrvDoc::Image>(left));
        Fill(ContentOf(*rightDocument), std::make_unique<OrvDoc::Image>(right));
    }
    ExpectReports(*leftDocument, *rightDocument, {pictureDiffers, image, image, image});
}

TEST(CompareImage, APictureIsComparedAnewWithEachOtherPartner)
{
    const PaintedPointer left = Paint({});
    const auto leftDocument = NewDocument();
    const auto rightDocument = NewDocument();
    for (int i = 0; i < 2; ++i) {
        Fill(ContentOf(*leftDocument), std::make_unique<OrvDoc::Image>(left));
        Fill(ContentOf(*rightDocument), ImageOf(OtherSamples({})));
    }
    Fill(ContentOf(*leftDocument), std::make_unique<OrvDoc::Image>(left));
    Fill(ContentOf(*rightDocument), std::make_unique<OrvDoc::Image>(left));
    ExpectReports(*leftDocument, *rightDocument, {pictureDiffers, image, pictureDiffers, image});
}

TEST(CompareImage, WhatIsRememberedEndsWithTheComparison)
{
    const OrvDoc::Image left(Paint({}));
    const OrvDoc::Image right(Paint(OtherSamples({})));
    for (int i = 0; i < 2; ++i)
        ExpectReports<OrvDoc::ContentObject>(left, right, {pictureDiffers, image});
}

TEST(CompareImageMask, OtherSamplesDiffer)
{
    ExpectReports<OrvDoc::ContentObject>(*ImageMaskOf(StencilPlan()), *ImageMaskOf(StencilPlan()), {});
    ExpectReports<OrvDoc::ContentObject>(*ImageMaskOf(StencilPlan()),
                                         *ImageMaskOf(StencilPlan(2, 2, {1, 0, 0, 0})),
                                         {Difference("DecodedImageMaskData")});
    ExpectReports<OrvDoc::ContentObject>(OrvDoc::ImageMask(nullptr), *ImageMaskOf(StencilPlan()),
                                         {Difference("DecodedImageMaskData")});
}

TEST(CompareImageMask, APairThatDifferedIsToldForEachObject)
{
    const PicturePointer left = MakePicture(StencilPlan());
    const PicturePointer right = MakePicture(StencilPlan(2, 2, {1, 0, 0, 0}));
    const auto leftDocument = NewDocument();
    const auto rightDocument = NewDocument();
    for (int i = 0; i < 2; ++i) {
        Fill(ContentOf(*leftDocument), std::make_unique<OrvDoc::ImageMask>(left));
        Fill(ContentOf(*rightDocument), std::make_unique<OrvDoc::ImageMask>(right));
    }
    const ExpectedReport differs = Difference("DecodedImageMaskData");
    ExpectReports(*leftDocument, *rightDocument, {differs, differs});
}

/// Pictures whose sources count what is decoded.
class Decoding : public ::testing::Test
{
protected:
    using Counting = std::shared_ptr<CountingSource>;

    static Counting Source(const PicturePlan& plan) { return std::make_shared<CountingSource>(plan); }

    static std::unique_ptr<OrvDoc::Image> Masked(const Counting& picture, const Counting& mask,
                                                 MaskKind kind = MaskKind::SoftMask)
    {
        PicturePlan plan;
        plan.maskKind = kind;
        const PicturePointer data = MakePicture(picture);
        plan.mask = mask == picture ? data : MakePicture(mask);
        plan.maskPlace = data->GetDefaultSoftMaskMapping();
        if (plan.maskPlace.index == OrvColor::Unmapped)
            plan.maskPlace.index = 0;
        return std::make_unique<OrvDoc::Image>(Paint(data, plan));
    }

    static std::vector<std::string> LinesOf(const OrvDoc::ContentObject& left,
                                            const OrvDoc::ContentObject& right)
    {
        return CompareLines<OrvDoc::ContentObject>(left, right);
    }
};

TEST_F(Decoding, HappensOnceForAPictureAndOnceForItsMask)
{
    const Counting picture = Source({});
    const Counting otherPicture = Source({});
    const Counting mask = Source(MaskPlan());
    const Counting otherMask = Source(MaskPlan());
    EXPECT_THAT(LinesOf(*Masked(picture, mask), *Masked(otherPicture, otherMask)), IsEmpty());
    for (const Counting& source : {picture, otherPicture, mask, otherMask})
        EXPECT_EQ(source->GetDecodes(), 1);
}

TEST_F(Decoding, HappensOnceForAPictureThatIsItsOwnMask)
{
    PicturePlan plan = PlanIn(OrvImg::DeviceRGB(), {AlphaChannel()});
    const Counting left = Source(plan);
    const Counting right = Source(plan);
    EXPECT_THAT(LinesOf(*Masked(left, left), *Masked(right, right)), IsEmpty());
    EXPECT_EQ(left->GetDecodes(), 1);
    EXPECT_EQ(right->GetDecodes(), 1);
}

TEST_F(Decoding, HappensOnceForAnIndexedPictureThatIsExpandedAndItsOwnMask)
{
    PicturePlan indexed = PlanIn(OrvImg::DeviceRGB());
    indexed.samples = {0, 1, 2, 3};
    indexed.table = MakeTable(3, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    PicturePlan expanded = PlanIn(OrvImg::DeviceRGB());
    expanded.samples = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const Counting left = Source(indexed);
    const Counting right = Source(expanded);
    EXPECT_THAT(LinesOf(*Masked(left, left), *Masked(right, right)), IsEmpty());
    EXPECT_EQ(left->GetDecodes(), 1);
    EXPECT_EQ(right->GetDecodes(), 1);
}

TEST_F(Decoding, HappensOnceForManyObjectsOfOnePicture)
{
    const Counting source = Source({});
    const PaintedPointer shared = Paint(MakePicture(source), {});
    const PaintedPointer other = Paint({});
    const auto left = NewDocument();
    const auto right = NewDocument();
    for (int i = 0; i < 5; ++i) {
        Fill(ContentOf(*left), std::make_unique<OrvDoc::Image>(shared));
        Fill(ContentOf(*right), std::make_unique<OrvDoc::Image>(other));
    }
    ExpectReports(*left, *right, {});
    EXPECT_EQ(source->GetDecodes(), 2) << "once each way round";
}

TEST_F(Decoding, DoesNotHappenForAPictureAgainstItself)
{
    const Counting picture = Source({});
    const Counting mask = Source(MaskPlan());
    EXPECT_THAT(LinesOf(*Masked(picture, mask), *Masked(picture, mask)), IsEmpty());
    const Counting stencil = Source(StencilPlan());
    EXPECT_THAT(LinesOf(*Masked(picture, stencil, MaskKind::StencilMask),
                        *Masked(picture, stencil, MaskKind::StencilMask)),
                IsEmpty());
    EXPECT_EQ(picture->GetDecodes() + mask->GetDecodes() + stencil->GetDecodes(), 0);
}

TEST_F(Decoding, DoesNotHappenForTheMaskOfAPictureThatDiffers)
{
    const Counting mask = Source(StencilPlan());
    const Counting otherMask = Source(StencilPlan());
    EXPECT_THAT(LinesOf(*Masked(Source({}), mask, MaskKind::StencilMask),
                        *Masked(Source(OtherSamples({})), otherMask, MaskKind::StencilMask)),
                ElementsAre("DecodedImageData", "Image"));
    EXPECT_EQ(mask->GetDecodes() + otherMask->GetDecodes(), 0);
}

TEST_F(Decoding, DoesNotHappenWhereTheSizeDiffersOrImagesAreNotCompared)
{
    PicturePlan wide;
    wide.width = 4;
    wide.height = 1;
    const Counting left = Source({});
    const Counting right = Source(wide);
    const auto imageOf = [](const Counting& source) {
        return std::make_unique<OrvDoc::Image>(Paint(MakePicture(source), {}));
    };
    EXPECT_THAT(LinesOf(*imageOf(left), *imageOf(right)), ElementsAre("ImageWidth: '2' vs '4'", "Image"));
    Comparators::Options options = AllOptions();
    options.compareImageData = false;
    EXPECT_THAT(CompareLines<OrvDoc::ContentObject>(*imageOf(left), *imageOf(Source({})), options),
                IsEmpty());
    EXPECT_EQ(left->GetDecodes() + right->GetDecodes(), 0);
}

} // namespace HarrowSupport::Testing
