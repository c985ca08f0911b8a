#include "comparators/picture_data_comparison.h"

#include "comparators/color_channel_pairs.h"
#include "comparators/color_channels.h"
#include "comparators/picture_color_space_equality.h"
#include "support/document_makers.h"
#include "support/picture_plan.h"
#include "support/recording_reporter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;

namespace
{

using Profile = std::shared_ptr<const OrvColor::ICCProfile>;

constexpr double decodeTolerance = 1.0 / 131072.0;

/// A profile that has its header alone.
Profile MakeProfile(const std::string& dataSpace, char last = 0)
{
    std::string bytes(129, '\0');
    bytes.replace(16, 4, dataSpace);
    bytes.back() = last;
    return std::make_shared<const OrvColor::ICCProfile>(bytes);
}

/// What is told of two images, without the label that closes each difference.
std::vector<std::string> LinesOf(const PicturePlan& left, const PicturePlan& right,
                                 const Comparators::Options& options = AllOptions())
{
    return CompareLines<OrvDoc::ContentObject>(*ImageOf(left), *ImageOf(right), options);
}

void ExpectImageReports(const PicturePlan& left, const PicturePlan& right,
                        const std::vector<ExpectedReport>& expected,
                        const Comparators::Options& options = AllOptions())
{
    ExpectReports<OrvDoc::ContentObject>(*ImageOf(left), *ImageOf(right), expected, options);
}

Comparators::Options LooseLinks()
{
    Comparators::Options options = AllOptions();
    options.looseImageLinks = true;
    return options;
}

PicturePlan Linked(const std::string& uri, int definition = 0)
{
    PicturePlan plan;
    plan.link = OrvImg::PictureLink{uri, definition == 0 ? OrvSys::PdfObject()
                                                         : OrvSys::PdfObject::Integer(definition)};
    return plan;
}

PicturePlan OtherSamples(PicturePlan plan)
{
    plan.samples.back() ^= 1;
    return plan;
}

PicturePlan WithMapping(PicturePlan plan, const ChannelMap& mapping)
{
    plan.mapping = mapping;
    return plan;
}

std::vector<std::size_t> Positions(const PicturePlan& plan, const ChannelMap& mapping)
{
    std::vector<std::size_t> positions;
    for (const auto& channel : Comparators::SelectColorChannels(*MakeSource(plan), mapping))
        positions.push_back(channel.first);
    return positions;
}

const ExpectedReport pictureDiffers = Difference("DecodedImageData");
const ExpectedReport image = Difference("Image");

} // namespace

TEST(ResolveMaskChannel, CountsTheChannelsBehindAConvertedColorFrom4)
{
    const auto resolve = [](const OrvImg::ColorSpace& space, std::size_t index) {
        return Comparators::ResolveMaskChannel(*MakePicture(PlanIn(space, {AlphaChannel()})), index);
    };
    EXPECT_EQ(resolve(OrvImg::CalGray(), 4), 1u);
    EXPECT_EQ(resolve(OrvImg::CalRGB(), 4), 3u);
    EXPECT_EQ(resolve(OrvImg::Lab(), 6), 5u);
    EXPECT_EQ(resolve(MakeProfile("CMYK"), 5), 5u);
    for (std::size_t ink = 0; ink < 4; ++ink)
        EXPECT_EQ(resolve(OrvImg::CalRGB(), ink), OrvColor::Unmapped) << ink;
    EXPECT_EQ(resolve(OrvImg::CalRGB(), OrvColor::Unmapped), OrvColor::Unmapped);
}

TEST(ResolveMaskChannel, TakesTheNumberAsItIsInOtherSpaces)
{
    for (const OrvImg::ColorSpace& space :
         {OrvImg::ColorSpace(OrvImg::DeviceGray()), OrvImg::ColorSpace(OrvImg::DeviceRGB())}) {
        for (const std::size_t index : {std::size_t{0}, std::size_t{4}, OrvColor::Unmapped})
            EXPECT_EQ(Comparators::ResolveMaskChannel(*MakePicture(PlanIn(space)), index), index);
    }
}

TEST(SelectColorChannels, TakesTheConvertedColorsAndTheMappedOnesBehindThem)
{
    const PicturePlan plan =
        PlanIn(OrvImg::CalRGB(), {ColorChannel("Spot"), AlphaChannel(), ColorChannel("Gold")});
    EXPECT_THAT(Positions(plan, {}), ElementsAre(0, 1, 2));
    EXPECT_THAT(Positions(plan, Places({{"Spot", ChannelAt(4)}})), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(Positions(plan, Places({{"Gold", ChannelAt(6)}, {"Alpha", ChannelAt(5)}})),
                ElementsAre(0, 1, 2, 5));
}

// Pictures never get as far as two names that differ: their default mappings name the channels, and are
// matched by name.

class ColorChannelPairs : public ::testing::Test
{
protected:
    boost::optional<std::vector<Comparators::ChannelPair>>
    Pair(const PicturePlan& left, const PicturePlan& right, const ChannelMap& mapping)
    {
        scope.differences.clear();
        return Comparators::PairColorChannels(*MakeSource(left), *MakeSource(right), mapping, mapping, scope);
    }

    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        for (const Comparators::PendingDifference& difference : scope.differences)
            lines.push_back(difference.label + ": " + difference.text);
        return lines;
    }

    const std::unique_ptr<OrvDoc::Path> object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope{*object, *object};
    const ChannelMap spot = Places({{"Spot", ChannelAt(4)}});
};

TEST_F(ColorChannelPairs, HavePositionsAndRangesOfBothSides)
{
    const auto pairs = Pair(PlanIn(OrvImg::CalGray(), {ColorChannel("Spot", inverted)}),
                            PlanIn(OrvImg::CalGray(), {AlphaChannel(), ColorChannel("Spot")}), {});
    ASSERT_TRUE(pairs);
    EXPECT_THAT(*pairs, ElementsAre(Comparators::ChannelPair(ChannelAt(0), ChannelAt(0))));
    const auto both = Pair(PlanIn(OrvImg::CalGray(), {ColorChannel("Spot", inverted)}),
                           PlanIn(OrvImg::CalGray(), {ColorChannel("Spot", {0.1, 0.6})}), spot);
    ASSERT_TRUE(both);
    EXPECT_THAT(*both,
                ElementsAre(Comparators::ChannelPair(ChannelAt(0), ChannelAt(0)),
                            Comparators::ChannelPair(ChannelAt(1, inverted), ChannelAt(1, {0.1, 0.6}))));
    EXPECT_THAT(Lines(), ElementsAre());
}

TEST_F(ColorChannelPairs, NeedTheSameNamesForChannelsThatAreNotConverted)
{
    const PicturePlan left = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot")});
    const PicturePlan right = PlanIn(OrvImg::CalGray(), {ColorChannel("Gold")});
    EXPECT_FALSE(Pair(left, right, spot));
    EXPECT_THAT(Lines(), ElementsAre("ImageChannelInfoName: 'Spot' vs 'Gold'"));
    EXPECT_FALSE(Pair(right, left, spot));
    EXPECT_THAT(Lines(), ElementsAre("ImageChannelInfoName: 'Gold' vs 'Spot'"));
}

TEST_F(ColorChannelPairs, NeedNoNameWhereOneSideIsConverted)
{
    // Three converted channels against one and two others.
    const ChannelMap both = Places({{"Spot", ChannelAt(4)}, {"Gold", ChannelAt(5)}});
    const PicturePlan converted = PlanIn(OrvImg::CalRGB());
    const PicturePlan extra = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot"), ColorChannel("Gold")});
    const auto pairs = Pair(converted, extra, both);
    ASSERT_TRUE(pairs);
    EXPECT_EQ(pairs->size(), 3u);
    EXPECT_TRUE(Pair(extra, converted, both));
}

TEST_F(ColorChannelPairs, NeedAsManyChannelsOnBothSides)
{
    EXPECT_FALSE(Pair(PlanIn(OrvImg::CalGray()), PlanIn(OrvImg::CalRGB()), {}));
    EXPECT_THAT(Lines(), ElementsAre("ImageChannelInfoColorChannelCount: '1' vs '3'"));
}

TEST(CompareColorSpaces, OtherFamiliesDiffer)
{
    const std::vector<OrvImg::ColorSpace> spaces = {
        OrvImg::DeviceN(), OrvImg::DeviceGray(), OrvImg::DeviceRGB(), OrvImg::CalGray(),
        OrvImg::CalRGB(),  OrvImg::Lab(),        MakeProfile("RGB ")};
    for (std::size_t left = 0; left < spaces.size(); ++left) {
        for (std::size_t right = 0; right < spaces.size(); ++right)
            EXPECT_EQ(Comparators::CompareColorSpaces(spaces[left], spaces[right]), left == right)
                << left << " against " << right;
    }
}

TEST(CompareColorSpaces, EachNumberOfACalibratedSpaceCountsExactly)
{
    const auto differs = [](const OrvImg::ColorSpace& left, const OrvImg::ColorSpace& right) {
        return !Comparators::CompareColorSpaces(left, right) && !Comparators::CompareColorSpaces(right, left);
    };
    const auto more = [](double& number) { number = std::nextafter(number, 2.0); };
    for (std::size_t i = 0; i < 3; ++i) {
        OrvImg::CalGray gray;
        more(gray.whitePoint[i]);
        EXPECT_TRUE(differs(gray, OrvImg::CalGray()));
        gray = {};
        more(gray.blackPoint[i]);
        EXPECT_TRUE(differs(gray, OrvImg::CalGray()));
        OrvImg::CalRGB rgb;
        more(rgb.whitePoint[i]);
        EXPECT_TRUE(differs(rgb, OrvImg::CalRGB()));
        rgb = {};
        more(rgb.blackPoint[i]);
        EXPECT_TRUE(differs(rgb, OrvImg::CalRGB()));
        rgb = {};
        more(rgb.gamma[i]);
        EXPECT_TRUE(differs(rgb, OrvImg::CalRGB()));
    }
    OrvImg::CalGray gray;
    more(gray.gamma);
    EXPECT_TRUE(differs(gray, OrvImg::CalGray()));
    for (std::size_t i = 0; i < 9; ++i) {
        OrvImg::CalRGB rgb;
        more(rgb.matrix[i]);
        EXPECT_TRUE(differs(rgb, OrvImg::CalRGB()));
    }
}

TEST(CompareColorSpaces, NoNumberOfALabSpaceCounts)
{
    OrvImg::Lab other;
    other.whitePoint = {0.9, 1.0, 0.9};
    other.blackPoint = {0.1, 0.1, 0.1};
    other.range = {-50, 50, -50, 50};
    EXPECT_TRUE(Comparators::CompareColorSpaces(OrvImg::Lab(), other));
}

TEST(CompareColorSpaces, ProfilesAreComparedByTheirBytes)
{
    EXPECT_TRUE(Comparators::CompareColorSpaces(MakeProfile("RGB "), MakeProfile("RGB ")));
    EXPECT_FALSE(Comparators::CompareColorSpaces(MakeProfile("RGB "), MakeProfile("RGB ", 1)));
    EXPECT_TRUE(Comparators::CompareColorSpaces(Profile(), Profile()));
    EXPECT_FALSE(Comparators::CompareColorSpaces(Profile(), MakeProfile("RGB ")));
}

TEST(ComparePictureData, LinksAreComparedWhole)
{
    ExpectImageReports(Linked("a.tif"), Linked("a.tif"), {});
    ExpectImageReports(Linked("a.tif"), {}, {Difference("ImageLink", " a.tif", "--")});
    ExpectImageReports(Linked("a.tif"), Linked("b.tif"), {Difference("ImageLink", " a.tif", " b.tif")});
    EXPECT_THAT(LinesOf(Linked("a.tif", 1), Linked("a.tif", 2)),
                ElementsAre(::testing::StartsWith("ImageLink: ' a.tif (")));
}

TEST(ComparePictureData, LinksAreComparedLooselyByPresenceAndUri)
{
    ExpectImageReports(Linked("a.tif", 1), Linked("a.tif", 2), {}, LooseLinks());
    ExpectImageReports({}, {}, {}, LooseLinks());
    ExpectImageReports(Linked("a.tif"), {}, {Difference("ImageLinkPresence", "1", "0")}, LooseLinks());
    ExpectImageReports(Linked("a.tif"), Linked("b.tif"), {Difference("ImageLinkURI", "a.tif", "b.tif")},
                       LooseLinks());
}

TEST(ComparePictureData, UrisAreComparedAsTheyStandAndShownAsPaths)
{
    ExpectImageReports(Linked("file:///in/a%20b.tif"), Linked("file:///in/a%62.tif"),
                       {Difference("ImageLinkURI", "/in/a b.tif", "/in/ab.tif")}, LooseLinks());
    ExpectImageReports(Linked("file:///in/a%62.tif"), Linked("file:///in/ab.tif"),
                       {Difference("ImageLinkURI", "/in/ab.tif", "/in/ab.tif")}, LooseLinks());
}

TEST(ComparePictureData, ALinkIsToldAndTheSamplesAreComparedAllTheSame)
{
    ExpectImageReports(OtherSamples(Linked("a.tif")), {},
                       {Difference("ImageLink", " a.tif", "--"), pictureDiffers, image});
}

TEST(ComparePictureData, TheWidthIsToldBeforeTheHeightAndEndsTheComparison)
{
    PicturePlan other;
    other.width = 4;
    other.height = 1;
    other.space = OrvImg::CalRGB();
    ExpectImageReports({}, other,
                       {Difference("ImageChannelsMapped", "(Cyan @ 0, Spot @ 1)",
                                   "(Black @ 3, Cyan @ 0, Magenta @ 1, Yellow @ 2)"),
                        image});
    other.space = OrvImg::DeviceN();
    ExpectImageReports({}, other, {Difference("ImageWidth", "2", "4"), image});
    other.width = 2;
    ExpectImageReports(OtherSamples({}), other, {Difference("ImageHeight", "2", "1"), image});
}

TEST(ComparePictureData, ChannelsAreMatchedByName)
{
    PicturePlan swapped;
    swapped.channels = {ColorChannel("Spot"), ColorChannel("Cyan")};
    swapped.samples = {20, 10, 40, 30, 60, 50, 80, 70};
    ExpectImageReports({}, swapped, {});
    ExpectImageReports({}, OtherSamples(swapped), {pictureDiffers, image});
    swapped.samples = PicturePlan().samples;
    ExpectImageReports({}, swapped, {pictureDiffers, image});
}

TEST(ComparePictureData, MappingsThatDoNotFitEndTheComparison)
{
    PicturePlan other = OtherSamples({});
    other.channels = {ColorChannel("Cyan"), ColorChannel("Gold")};
    other.width = 1;
    other.height = 4;
    ExpectImageReports(
        {}, other,
        {Difference("ImageChannelsMapped", "(Cyan @ 0, Spot @ 1)", "(Cyan @ 0, Gold @ 1)"), image});
}

TEST(ComparePictureData, TheOverprintOfTheMappingIsToldAndIsNoDifferenceOfThePicture)
{
    PicturePlan overprinting;
    overprinting.overprint = true;
    ExpectImageReports({}, overprinting, {Difference("ImageOverprint", "0", "1")});
}

TEST(ComparePictureData, AMappingOfAllSeparationsAgainstASingleOneComparesThatChannel)
{
    PicturePlan all;
    all.channels = {ColorChannel("All")};
    all.samples = {10, 20, 30, 40};
    PicturePlan one = all;
    one.channels = {ColorChannel("Spot")};
    const ExpectedReport registration = Difference("ImageRegistrationColorSpace", "1", "0");
    ExpectImageReports(all, one, {registration});
    ExpectImageReports(all, OtherSamples(one), {registration, pictureDiffers, image});
}

TEST(ComparePictureData, WithoutAMappedChannelNoSampleIsCompared)
{
    const ChannelMap none = PlaceForAll(ChannelAt(OrvColor::Unmapped));
    ExpectImageReports(WithMapping({}, none), WithMapping(OtherSamples({}), none), {});
}

TEST(ComparePictureData, DeviceIndependentPicturesDifferFromOthers)
{
    const ChannelMap same = Places({{"Spot", ChannelAt(0)}});
    ExpectImageReports(WithMapping(PlanIn(OrvImg::DeviceRGB()), same),
                       WithMapping(PlanIn(OrvImg::CalRGB()), same),
                       {Difference("ImageDeviceIndependentColorSpace", "0", "1"), image});
}

TEST(ComparePictureData, OtherColorSpacesAreToldAndTheSamplesComparedAllTheSame)
{
    OrvImg::CalGray gamma;
    gamma.gamma = 2.0;
    EXPECT_THAT(LinesOf(PlanIn(OrvImg::CalGray()), PlanIn(gamma)),
                ElementsAre(::testing::StartsWith("ImageColorSpace: 'CalGray(")));
    EXPECT_THAT(
        LinesOf(PlanIn(gamma), OtherSamples(PlanIn(OrvImg::CalGray()))),
        ElementsAre(::testing::StartsWith("ImageColorSpace: 'CalGray("), "DecodedImageData", "Image"));
    OrvImg::Lab range;
    range.range = {-1, 1, -1, 1};
    ExpectImageReports(PlanIn(OrvImg::Lab()), PlanIn(range), {});
}

TEST(ComparePictureData, GrayAndASeparationOfThatNameAreTheSame)
{
    PicturePlan gray = PlanIn(OrvImg::DeviceGray());
    PicturePlan black = gray;
    black.space = OrvImg::DeviceN();
    black.channels = {ColorChannel("Black", inverted)};
    ExpectImageReports(gray, black, {});
    // Red, green and blue are none.
    const ChannelMap same = Places({{"Spot", ChannelAt(0)}});
    ExpectImageReports(WithMapping(PlanIn(OrvImg::DeviceRGB()), same), WithMapping(black, same),
                       {Difference("ImageColorSpace", "DeviceRGB", "DeviceN"), pictureDiffers, image});
}

TEST(ComparePictureData, TheRangesOfAMappingDecode)
{
    PicturePlan negative = PlanIn(OrvImg::DeviceGray());
    for (unsigned& sample : negative.samples)
        sample = 255 - sample;
    ExpectImageReports(PlanIn(OrvImg::DeviceGray()), negative, {pictureDiffers, image});
    negative.channels = {ColorChannel("Gray", inverted)};
    ExpectImageReports(PlanIn(OrvImg::DeviceGray()), negative, {});
}

TEST(ComparePictureData, ColorsOfDeviceIndependentPicturesAreNotNamed)
{
    PicturePlan left = PlanIn(OrvImg::CalRGB());
    PicturePlan right = left;
    right.channels[0] = ColorChannel("Rouge");
    ExpectImageReports(left, right, {});
    ExpectImageReports(left, OtherSamples(right), {pictureDiffers, image});
}

TEST(ComparePictureData, TheRangesOfDeviceIndependentPicturesAreThoseOfTheirChannels)
{
    PicturePlan left = PlanIn(OrvImg::CalGray());
    PicturePlan right = left;
    right.channels = {ColorChannel("Gray", inverted)};
    ExpectImageReports(left, right, {pictureDiffers, image});
    for (unsigned& sample : right.samples)
        sample = 255 - sample;
    ExpectImageReports(left, right, {});
}

TEST(ComparePictureData, ExtraChannelsOfDeviceIndependentPicturesAreCompared)
{
    const PicturePlan left = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot")});
    ExpectImageReports(left, left, {});
    ExpectImageReports(left, OtherSamples(left), {pictureDiffers, image});
}

TEST(ComparePictureData, ChannelsThatNoMappingNamesAreNotCompared)
{
    const PicturePlan left = PlanIn(OrvImg::CalGray(), {AlphaChannel()});
    ExpectImageReports(left, OtherSamples(left), {});
}

TEST(ComparePictureData, OtherNumbersOfColorChannelsDiffer)
{
    ExpectImageReports(PlanIn(OrvImg::CalGray()), PlanIn(OrvImg::CalRGB()),
                       {Difference("ImageColorSpace", "CalGray(0.9505, 1, 1.089; 0, 0, 0; 1)",
                                   "CalRGB(0.9505, 1, 1.089; 0, 0, 0; 1, 1, 1; 1, 0, 0, 0, 1, 0, 0, 0, 1)"),
                        Difference("ImageChannelInfoColorChannelCount", "1", "3"), image});
}

TEST(ComparePictureData, OtherPlacesOrRangesOfExtraChannelsDifferWithoutALabelOfTheirOwn)
{
    const PicturePlan left = PlanIn(OrvImg::CalGray(), {ColorChannel("Gold"), ColorChannel("Spot")});
    const PicturePlan swapped = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot"), ColorChannel("Gold")});
    ExpectImageReports(left, swapped, {image});

    const auto ending = [](double end) {
        return PlanIn(OrvImg::CalGray(), {ColorChannel("Spot", {0.0, end})});
    };
    ExpectImageReports(ending(0.0), ending(decodeTolerance), {image});
    ExpectImageReports(ending(0.0), ending(std::nextafter(decodeTolerance, 0.0)), {});
}

TEST(ComparePictureData, ExtraChannelsThatOnlyOneSideHasDoNotFit)
{
    const PicturePlan left = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot")});
    const PicturePlan right = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot"), ColorChannel("Gold")});
    ExpectImageReports(
        left, right,
        {Difference("ImageChannelsMapped", "(Black @ 3, Cyan @ 0, Magenta @ 1, Spot @ 4, Yellow @ 2)",
                    "(Black @ 3, Cyan @ 0, Gold @ 5, Magenta @ 1, Spot @ 4, Yellow @ 2)"),
         image});
}

TEST(ComparePictureData, AMappingOfItsOwnPairsTheFirstChannelsOfDeviceIndependentPictures)
{
    const auto plan = [](unsigned extra, unsigned color) {
        PicturePlan result = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot"), ColorChannel("Gold")});
        result.samples = {color, extra, 3, color, extra, 3, color, extra, 3, color, extra, 3};
        return WithMapping(result, Places({{"Spot", ChannelAt(4)}}));
    };
    ExpectImageReports(plan(9, 1), plan(9, 200), {});
    ExpectImageReports(plan(9, 1), plan(10, 1), {pictureDiffers, image});
    // Only the first entry counts.
    PicturePlan two = plan(9, 1);
    two.mapping = Places({{"Spot", ChannelAt(4)}, {"Cyan", ChannelAt(5)}});
    PicturePlan other = two;
    other.samples[2] = 77;
    ExpectImageReports(two, other, {});
}

TEST(ComparePictureData, OneMappingOfItsOwnIsEnoughForThat)
{
    PicturePlan left = PlanIn(OrvImg::CalGray());
    PicturePlan right = left;
    right.mapping = Places({{"Cyan", ChannelAt(0)},
                            {"Magenta", ChannelAt(1)},
                            {"Yellow", ChannelAt(2)},
                            {"Black", ChannelAt(3, inverted)}});
    // The inks are no channels of the pictures, so that all samples have to be the same.
    ExpectImageReports(left, right, {});
    ExpectImageReports(left, OtherSamples(right), {pictureDiffers, image});
}

TEST(ComparePictureData, TheRangeOfAFirstChannelIsThatOfThePictureNotOfTheMapping)
{
    const auto plan = [](const Range& ofChannel, const Range& ofMapping) {
        return WithMapping(PlanIn(OrvImg::CalGray(), {ColorChannel("Spot", ofChannel)}),
                           Places({{"Spot", ChannelAt(4, ofMapping)}}));
    };
    ExpectImageReports(plan(identity, identity), plan(identity, inverted), {});
    ExpectImageReports(plan(identity, identity), plan(inverted, identity), {pictureDiffers, image});
}

TEST(ComparePictureData, AMappingWithoutAnEntryNeedsTheSameSamplesThroughout)
{
    const PicturePlan gray = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot")});
    const PicturePlan empty = WithMapping(gray, {});
    ExpectImageReports(empty, empty, {});
    ExpectImageReports(empty, OtherSamples(empty), {pictureDiffers, image});
    const PicturePlan all = WithMapping(gray, PlaceForAll(ChannelAt(0)));
    ExpectImageReports(all, all, {});
    ExpectImageReports(all, OtherSamples(all), {pictureDiffers, image});
    const PicturePlan single = WithMapping(gray, Places({{"Spot", ChannelAt(4)}}));
    ExpectImageReports(all, single,
                       {Difference("ImageRegistrationColorSpace", "1", "0"), pictureDiffers, image});
}

TEST(ComparePictureData, AMappingOfAnInkNeedsTheSameSamplesThroughout)
{
    const PicturePlan ink = WithMapping(PlanIn(OrvImg::CalRGB()), Places({{"Spot", ChannelAt(1)}}));
    ExpectImageReports(ink, ink, {});
    ExpectImageReports(ink, OtherSamples(ink), {pictureDiffers, image});
}

TEST(ComparePictureData, AMappingOfAChannelThatIsNotThereNeedsTheSameSamplesThroughout)
{
    for (const std::size_t index : {std::size_t{2}, std::size_t{1} << 40}) {
        const PicturePlan plan = WithMapping({}, Places({{"Spot", ChannelAt(index)}}));
        ExpectImageReports(plan, plan, {});
        ExpectImageReports(plan, OtherSamples(plan), {pictureDiffers, image});
        const PicturePlan independent =
            WithMapping(PlanIn(OrvImg::CalRGB()), Places({{"Spot", ChannelAt(index + 4)}}));
        ExpectImageReports(independent, independent, {});
        ExpectImageReports(independent, OtherSamples(independent), {pictureDiffers, image});
    }
}

} // namespace HarrowSupport::Testing
