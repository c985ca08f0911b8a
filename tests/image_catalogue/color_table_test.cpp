#include "image_catalogue/color_table.h"

#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "image_catalogue/catalogue_cases.h"
#include "image_catalogue/picture_samples.h"

namespace HarrowSupport::GenerateImage
{
namespace
{

using ::testing::ElementsAre;

std::vector<unsigned char> TableOf(const std::string& name, bool invert)
{
    return MakeColorTable(CaseNamed(name), invert)->GetData();
}

TEST(ColorTableOfACase, RunsInEvenChannelsOnly)
{
    EXPECT_THAT(TableOf("Image-DeviceN_CMYK-Indexed-DecodeIdentity-bps2", false),
                ElementsAre(0, 0, 0, 0, 85, 0, 85, 0, 170, 0, 170, 0, 255, 0, 255, 0));
}

TEST(ColorTableOfACase, TurnsItsBytesRoundIfAskedTo)
{
    EXPECT_THAT(TableOf("Image-DeviceRGB-Indexed-DecodeIdentity-bps2", true),
                ElementsAre(255, 255, 255, 170, 255, 170, 85, 255, 85, 0, 255, 0));
}

TEST(ColorTableOfACase, TurnsItsOrderRoundIfInverted)
{
    EXPECT_THAT(TableOf("Image-DeviceN_MYC-Indexed-DecodeInvert-bps2", false),
                ElementsAre(255, 0, 255, 170, 0, 170, 85, 0, 85, 0, 0, 0));
    EXPECT_THAT(TableOf("Image-DeviceRGB-Indexed-DecodeInvert-bps1", true),
                ElementsAre(0, 255, 0, 255, 255, 255));
}

TEST(ColorTableOfACase, HasAnEntryForEachSampleRoundedDown)
{
    EXPECT_THAT(TableOf("Image-DeviceN_All-Indexed-DecodeIdentity-bps1", false), ElementsAre(0, 255));
    EXPECT_THAT(TableOf("Image-DeviceN_All-Indexed-DecodeWeird-bps4", false),
                ElementsAre(0, 17, 34, 51, 68, 85, 102, 119, 136, 153, 170, 187, 204, 221, 238, 255));
    const auto table = TableOf("Image-DeviceN_All-Indexed-DecodeIdentity-bps8", false);
    ASSERT_EQ(table.size(), 256u);
    for (std::size_t entry = 0; entry < 256; ++entry)
        EXPECT_EQ(table[entry], entry);
    // No depth of the catalogue has a step that is not whole, so that one stands in for rounding.
    TestCase testCase = CaseNamed("Image-DeviceN_All-Indexed-DecodeIdentity-bps8");
    testCase.bitsPerComponent = 3;
    EXPECT_THAT(MakeColorTable(testCase, false)->GetData(), ElementsAre(0, 36, 72, 109, 145, 182, 218, 255));
}

TEST(ColorTableOfACase, HasTheDecodeRangeOfTheCase)
{
    const auto decodeOf = [](const std::string& decode) {
        return MakeColorTable(CaseNamed("Image-DeviceGray-Indexed-" + decode + "-bps4"), false)->GetDecode();
    };
    EXPECT_THAT(decodeOf("DecodeIdentity"), ElementsAre(0.0, 1.0));
    EXPECT_THAT(decodeOf("DecodeInvert"), ElementsAre(1.0, 0.0));
    EXPECT_THAT(decodeOf("DecodeWeird"), ElementsAre(0.1, 0.6));
}

TEST(ColorTableOfACase, HasAChannelMoreForAnAlphaChannel)
{
    TestCase testCase = CaseNamed("Image-DeviceRGB-Indexed-DecodeIdentity-bps1");
    EXPECT_EQ(MakeColorTable(testCase, false)->GetChannelCount(), 3u);
    testCase.maskKind = TestMaskKind::SoftMaskViaTB;
    EXPECT_EQ(MakeColorTable(testCase, false)->GetChannelCount(), 4u);
}

TEST(ColorTableOfACase, RunsDownInThePicturesOfLight)
{
    EXPECT_THAT(
        MakeRampPictureBuffer(CaseNamed("Image-CalGray_Weird-Indexed-DecodeIdentity-bps1")).table->GetData(),
        ElementsAre(255, 0));
    EXPECT_THAT(
        MakeRampPictureBuffer(CaseNamed("Image-DeviceGray-Indexed-DecodeIdentity-bps1")).table->GetData(),
        ElementsAre(0, 255));
    EXPECT_THAT(MakeFlatPictureBuffer(
                    CaseNamed("Image-DeviceRGB-Indexed-DecodeIdentity-bps1-SoftMask(bps1-DecodeIdentity)"))
                    .table->GetData(),
                ElementsAre(255, 255, 255, 0, 255, 0));
}

} // namespace
} // namespace HarrowSupport::GenerateImage
