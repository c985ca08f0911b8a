#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "image_catalogue/catalogue_cases.h"
#include "image_catalogue/picture_samples.h"

namespace HarrowSupport::GenerateImage
{
namespace
{

using ::testing::ElementsAre;

struct Shape
{
    std::size_t width;
    std::size_t height;
    std::size_t channels;
    std::size_t bits;
};

bool operator==(const Shape& left, const Shape& right)
{
    return left.width == right.width && left.height == right.height && left.channels == right.channels &&
           left.bits == right.bits;
}

void PrintTo(const Shape& shape, std::ostream* stream)
{
    *stream << shape.width << " by " << shape.height << " with " << shape.channels << " channels of "
            << shape.bits << " bits";
}

std::unique_ptr<const OrvImg::PictureBuffer> RampOf(const std::string& name)
{
    return MakeRampPictureBuffer(CaseNamed(name)).buffer;
}

Shape ShapeOf(const std::string& name)
{
    const auto buffer = RampOf(name);
    return {buffer->width, buffer->height, buffer->channels, buffer->bitsPerChannel};
}

/// For each row a letter for each channel: a rising ramp, a falling one, zero, the highest value, or another.
std::vector<std::string> PatternOf(const std::string& name)
{
    const auto buffer = RampOf(name);
    const std::size_t width = buffer->width;
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < buffer->height; ++row) {
        rows.emplace_back();
        for (std::size_t channel = 0; channel < buffer->channels; ++channel) {
            const auto samples = SamplesOf(*buffer, row, channel);
            rows.back() += samples == Rising(width)                ? '/'
                           : samples == Falling(width)             ? '\\'
                           : samples == Constant(width, 0)         ? '0'
                           : samples == Constant(width, width - 1) ? '1'
                                                                   : '?';
        }
    }
    return rows;
}

TEST(RampsOfAPicture, AreTwoSamplesInThreeRowsForOneBitOfGray)
{
    const auto buffer = RampOf("Image-DeviceGray-DecodeIdentity-bps1");
    EXPECT_EQ(ShapeOf("Image-DeviceGray-DecodeIdentity-bps1"), (Shape{2, 3, 1, 1}));
    for (std::size_t row = 0; row < 3; ++row)
        EXPECT_THAT(BytesOf(*buffer, row), ElementsAre(0x40)) << row;
}

TEST(RampsOfAPicture, AreAsWideAsTheirDepthHasValues)
{
    for (const std::size_t bits : {1, 2, 4, 8, 16}) {
        const std::string depth = "-bps" + std::to_string(bits);
        EXPECT_EQ(ShapeOf("Image-Lab_Weird-DecodeWeird" + depth),
                  (Shape{std::size_t{1} << bits, 9, 3, bits}));
        EXPECT_EQ(ShapeOf("Image-DeviceN_None-DecodeInvert" + depth),
                  (Shape{std::size_t{1} << bits, 12, 4, bits}));
    }
}

TEST(RampsOfAPicture, HaveThreeRowsForEachChannel)
{
    EXPECT_EQ(ShapeOf("Image-DeviceRGB-DecodeIdentity-bps8"), (Shape{256, 9, 3, 8}));
    EXPECT_EQ(ShapeOf("Image-ICCBased_CMYK-DecodeIdentity-bps4"), (Shape{16, 12, 4, 4}));
    EXPECT_EQ(ShapeOf("Image-DeviceN_6Component-DecodeIdentity-bps2"), (Shape{4, 18, 6, 2}));
}

TEST(RampsOfAPicture, HaveARowMoreOfEachKindForAnAlphaChannel)
{
    EXPECT_EQ(ShapeOf("Image-DeviceRGB-DecodeIdentity-bps8-SoftMaskViaTB(DecodeInvert)"),
              (Shape{256, 12, 4, 8}));
    EXPECT_EQ(ShapeOf("Image-DeviceN_6Component-DecodeIdentity-bps1-SoftMaskViaTB(DecodeInvert)"),
              (Shape{2, 21, 7, 1}));
}

TEST(RampsOfAPicture, FallInTheirOwnChannelOfRgbAloneAndThenByPairs)
{
    EXPECT_THAT(PatternOf("Image-DeviceRGB-DecodeIdentity-bps8"),
                ElementsAre("\\11", "\\11", "1\\1", "1\\1", "11\\", "11\\", //
                            "\\\\1", "1\\\\", "\\1\\"));
}

TEST(RampsOfAPicture, RiseInInvertedRgb)
{
    EXPECT_THAT(PatternOf("Image-DeviceRGB-DecodeInvert-bps8"),
                ElementsAre("/00", "/00", "0/0", "0/0", "00/", "00/", "//0", "0//", "/0/"));
}

TEST(RampsOfAPicture, RiseInSeparations)
{
    EXPECT_THAT(PatternOf("Image-DeviceN_CMYK-DecodeIdentity-bps4"),
                ElementsAre("/000", "/000", "0/00", "0/00", "00/0", "00/0", "000/", "000/", //
                            "//00", "0//0", "00//", "/00/"));
}

TEST(RampsOfAPicture, FallInInvertedSeparations)
{
    EXPECT_THAT(PatternOf("Image-DeviceN_MYC-DecodeInvert-bps2"),
                ElementsAre("\\11", "\\11", "1\\1", "1\\1", "11\\", "11\\", "\\\\1", "1\\\\", "\\1\\"));
}

TEST(RampsOfAPicture, RiseInSixComponents)
{
    EXPECT_THAT(PatternOf("Image-DeviceN_6Component-DecodeIdentity-bps8"),
                ElementsAre("/00000", "/00000", "0/0000", "0/0000", "00/000", "00/000", "000/00", "000/00",
                            "0000/0", "0000/0", "00000/", "00000/", //
                            "//0000", "0//000", "00//00", "000//0", "0000//", "/0000/"));
}

TEST(RampsOfAPicture, RunInTheAlphaChannelAsInAnyOther)
{
    EXPECT_THAT(PatternOf("Image-DeviceRGB-DecodeIdentity-bps8-SoftMaskViaTB(DecodeInvert)"),
                ElementsAre("\\111", "\\111", "1\\11", "1\\11", "11\\1", "11\\1", "111\\", "111\\", //
                            "\\\\11", "1\\\\1", "11\\\\", "\\11\\"));
    EXPECT_THAT(PatternOf("Image-DeviceN_All-DecodeIdentity-bps8-SoftMaskViaTB(DecodeWeird)"),
                ElementsAre("/0", "/0", "0/", "0/", "//", "//"));
}

TEST(RampsOfAPicture, OfOneChannelAreEqualInAllRows)
{
    EXPECT_THAT(PatternOf("Image-DeviceGray-DecodeIdentity-bps8"), ElementsAre("/", "/", "/"));
    EXPECT_THAT(PatternOf("Image-DeviceN_All-DecodeInvert-bps8"), ElementsAre("\\", "\\", "\\"));
}

TEST(RampsOfAPicture, FallInInvertedDeviceGray)
{
    EXPECT_THAT(PatternOf("Image-DeviceGray-DecodeInvert-bps16"), ElementsAre("\\", "\\", "\\"));
}

TEST(RampsOfAPicture, FallInCalibratedSpacesAndProfilesOtherThanCmyk)
{
    for (const char* const space :
         {"CalGray_Normal", "CalGray_Weird", "DeviceRGB", "CalRGB_Normal", "CalRGB_Weird", "Lab_Normal",
          "Lab_Weird", "ICCBased_Gray", "ICCBased_RGB", "ICCBased_Lab"}) {
        EXPECT_EQ(PatternOf(std::string("Image-") + space + "-DecodeIdentity-bps4")[0][0], '\\') << space;
        EXPECT_EQ(PatternOf(std::string("Image-") + space + "-DecodeInvert-bps4")[0][0], '/') << space;
    }
    for (const char* const space :
         {"DeviceGray", "ICCBased_CMYK", "DeviceN_CMYK", "DeviceN_MYC", "DeviceN_6Component", "DeviceN_Black",
          "DeviceN_Magenta", "DeviceN_1Spot", "DeviceN_None", "DeviceN_All"}) {
        EXPECT_EQ(PatternOf(std::string("Image-") + space + "-DecodeIdentity-bps4")[0][0], '/') << space;
        EXPECT_EQ(PatternOf(std::string("Image-") + space + "-DecodeInvert-bps4")[0][0], '\\') << space;
    }
}

TEST(RampsOfAPicture, StayAsTheyAreUnderTheWeirdRange)
{
    for (const char* const space : {"DeviceGray", "DeviceRGB", "DeviceN_None"}) {
        const std::string name = std::string("Image-") + space;
        EXPECT_EQ(PatternOf(name + "-DecodeWeird-bps8"), PatternOf(name + "-DecodeIdentity-bps8")) << space;
    }
}

TEST(RampsOfAPicture, HoldPositionsInThreeRowsIfIndexed)
{
    for (const char* const decode : {"DecodeIdentity", "DecodeInvert", "DecodeWeird"}) {
        const std::string name = std::string("Image-DeviceRGB-Indexed-") + decode;
        EXPECT_EQ(ShapeOf(name + "-bps2"), (Shape{4, 3, 1, 2}));
        EXPECT_THAT(PatternOf(name + "-bps8"), ElementsAre("/", "/", "/")) << decode;
        EXPECT_THAT(PatternOf(name + "-bps1"), ElementsAre("/", "/", "/")) << decode;
    }
}

TEST(RampsOfAPicture, HaveAColorTableOnlyIfIndexed)
{
    EXPECT_NE(MakeRampPictureBuffer(CaseNamed("Image-Lab_Weird-Indexed-DecodeWeird-bps4")).table, nullptr);
    EXPECT_EQ(MakeRampPictureBuffer(CaseNamed("Image-Lab_Weird-DecodeWeird-bps4")).table, nullptr);
    EXPECT_EQ(MakeRampPictureBuffer(CaseNamed("ImageMask-DecodeInvert-bps1")).table, nullptr);
}

TEST(RampsOfAPicture, OfAnImageMaskAreTwoSamplesWide)
{
    EXPECT_EQ(ShapeOf("ImageMask-DecodeIdentity-bps1"), (Shape{2, 3, 1, 1}));
    EXPECT_THAT(PatternOf("ImageMask-DecodeIdentity-bps1"), ElementsAre("/", "/", "/"));
    EXPECT_THAT(PatternOf("ImageMask-DecodeInvert-bps1"), ElementsAre("\\", "\\", "\\"));
}

TEST(RampsOfAPicture, OfAnImageMaskRiseWhateverItsColorSpace)
{
    TestCase testCase = CaseNamed("ImageMask-DecodeIdentity-bps1");
    testCase.colorSpace = ColorSpaceKind::DeviceRGB;
    testCase.isIndexed = true;
    const PictureSamples samples = MakeRampPictureBuffer(testCase);
    EXPECT_EQ(samples.buffer->channels, 1u);
    EXPECT_EQ(SamplesOf(*samples.buffer, 0, 0), Rising(2));
    EXPECT_EQ(samples.table, nullptr);
}

TEST(RampsOfAPicture, LeaveTheEndOfARowZero)
{
    const auto buffer = RampOf("Image-DeviceRGB-DecodeIdentity-bps1");
    EXPECT_THAT(BytesOf(*buffer, 0), ElementsAre(0b11101100));
    EXPECT_THAT(BytesOf(*buffer, 8), ElementsAre(0b11101000));
}

TEST(RampsOfAPicture, ComeOutTheSameEachTime)
{
    const auto first = RampOf("Image-DeviceN_6Component-DecodeWeird-bps8");
    const auto second = RampOf("Image-DeviceN_6Component-DecodeWeird-bps8");
    for (std::size_t row = 0; row < first->height; ++row)
        EXPECT_EQ(BytesOf(*first, row), BytesOf(*second, row)) << row;
}

} // namespace
} // namespace HarrowSupport::GenerateImage
