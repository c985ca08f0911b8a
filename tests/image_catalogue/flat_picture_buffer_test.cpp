#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "image_catalogue/catalogue_cases.h"
#include "image_catalogue/picture_samples.h"

namespace HarrowSupport::GenerateImage
{
namespace
{

using ::testing::Each;
using ::testing::ElementsAre;

/// The byte of each row, which has to be the same all along.
std::vector<int> RowsOf(const std::string& image,
                        const std::string& mask = "-MaskedImage(bps1-DecodeIdentity)")
{
    const auto buffer = MakeFlatPictureBuffer(CaseNamed(image + mask)).buffer;
    std::vector<int> rows;
    for (std::size_t row = 0; row < buffer->height; ++row) {
        const auto bytes = BytesOf(*buffer, row);
        EXPECT_THAT(bytes, Each(bytes.front())) << row;
        rows.push_back(bytes.front());
    }
    return rows;
}

TEST(FlatRowsOfAPicture, RiseFromTheMiddleToTheEnd)
{
    EXPECT_THAT(RowsOf("Image-DeviceGray-DecodeIdentity-bps8"), ElementsAre(127, 255));
    EXPECT_THAT(RowsOf("Image-DeviceN_All-DecodeIdentity-bps8"), ElementsAre(127, 255));
    // 127.5 and elevenths of it.
    EXPECT_THAT(RowsOf("Image-DeviceN_6Component-DecodeIdentity-bps8"),
                ElementsAre(127, 139, 150, 162, 173, 185, 197, 208, 220, 231, 243, 255));
}

TEST(FlatRowsOfAPicture, AreComplementedIfInverted)
{
    EXPECT_THAT(RowsOf("Image-DeviceGray-DecodeInvert-bps8"), ElementsAre(128, 0));
    EXPECT_THAT(RowsOf("Image-DeviceN_6Component-DecodeInvert-bps8"),
                ElementsAre(128, 116, 105, 93, 82, 70, 58, 47, 35, 24, 12, 0));
}

TEST(FlatRowsOfAPicture, StayAsTheyAreUnderTheWeirdRange)
{
    EXPECT_THAT(RowsOf("Image-DeviceGray-DecodeWeird-bps8"), ElementsAre(127, 255));
}

TEST(FlatRowsOfAPicture, AreZeroForLight)
{
    EXPECT_THAT(RowsOf("Image-DeviceRGB-DecodeIdentity-bps8"), ElementsAre(0, 0, 0, 0, 0, 0));
    EXPECT_THAT(RowsOf("Image-DeviceRGB-DecodeInvert-bps8"), ElementsAre(255, 255, 255, 255, 255, 255));
}

TEST(FlatRowsOfAPicture, AreTwoOfPositionsIfIndexed)
{
    for (const char* const decode : {"DecodeIdentity", "DecodeInvert", "DecodeWeird"}) {
        EXPECT_THAT(RowsOf(std::string("Image-DeviceRGB-Indexed-") + decode + "-bps8"),
                    ElementsAre(127, 255));
        EXPECT_THAT(RowsOf(std::string("Image-DeviceN_6Component-Indexed-") + decode + "-bps1"),
                    ElementsAre(127, 255));
    }
}

TEST(FlatRowsOfAPicture, AreBitsOfTheByteAtLowDepths)
{
    const auto buffer =
        MakeFlatPictureBuffer(
            CaseNamed("Image-DeviceN_6Component-DecodeIdentity-bps1-SoftMask(bps4-DecodeWeird)"))
            .buffer;
    EXPECT_EQ(buffer->width, 2u);
    EXPECT_EQ(buffer->bitsPerChannel, 1u);
    // 139, which is 10001011, in twelve samples.
    EXPECT_THAT(BytesOf(*buffer, 1), ElementsAre(139, 139));
    EXPECT_THAT(SamplesOf(*buffer, 1, 0), ElementsAre(1, 1));
    EXPECT_THAT(SamplesOf(*buffer, 1, 2), ElementsAre(0, 1));
}

TEST(FlatRowsOfAPicture, AreAsWideAsTheDepthHasValues)
{
    const auto buffer =
        MakeFlatPictureBuffer(CaseNamed("Image-DeviceRGB-DecodeWeird-bps8-SoftMask(bps16-DecodeInvert)"))
            .buffer;
    EXPECT_EQ(buffer->width, 256u);
    EXPECT_EQ(buffer->height, 6u);
    EXPECT_EQ(buffer->channels, 3u);
    EXPECT_EQ(buffer->bitsPerChannel, 8u);
}

TEST(FlatRowsOfAPicture, HaveAColorTableOnlyIfIndexed)
{
    EXPECT_NE(MakeFlatPictureBuffer(
                  CaseNamed("Image-DeviceRGB-Indexed-DecodeWeird-bps8-SoftMask(bps1-DecodeInvert)"))
                  .table,
              nullptr);
    EXPECT_EQ(MakeFlatPictureBuffer(CaseNamed("Image-DeviceRGB-DecodeWeird-bps8-SoftMask(bps1-DecodeInvert)"))
                  .table,
              nullptr);
}

} // namespace
} // namespace HarrowSupport::GenerateImage
