#include "pdf/pictures/dct_decoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "document_library/pdf/pictures/dct_files.h"

namespace
{

using DctFiles::Encoded;
using DctFiles::FindFrame;
using DctFiles::FindScan;
using DctFiles::LargestError;
using DctFiles::Plain;
using DctFiles::Settings;
using DctFiles::Smooth;
using OrvPdf::DctHeader;
using OrvPdf::DecodeDct;
using OrvPdf::Raster;
using OrvPdf::RasterLimits;
using OrvPdf::ReadDctHeader;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr RasterLimits wide = {1 << 24, 1 << 26};
constexpr long long notGiven = -1;

Settings Stored(J_COLOR_SPACE space)
{
    Settings settings;
    settings.given = settings.stored = space;
    return settings;
}

std::vector<int> FirstPixel(const Raster& raster)
{
    std::vector<int> samples;
    for (std::size_t i = 0; i < raster.channels && i < raster.rows.GetSize(); ++i)
        samples.push_back(static_cast<unsigned char>(raster.rows.View()[i]));
    return samples;
}

/// The first pixel of a picture whose components have these numbers in the file.
std::vector<int> Decoded(const std::vector<int>& stored, bool hasAdobeMarker, J_COLOR_SPACE space,
                         long long colorTransform)
{
    // The name of the space decides on the marker's transform; given and stored are the same, so that the
    // numbers go in as they are.
    Settings settings = Stored(space);
    settings.hasAdobeMarker = hasAdobeMarker;
    return FirstPixel(
        DecodeDct(Encoded(Plain(64, stored), 8, 8, stored.size(), settings), colorTransform, wide));
}

TEST(DctDecoder, GivesBackGray)
{
    const std::string samples = Smooth(37, 23, 1);
    const Raster raster = DecodeDct(Encoded(samples, 37, 23, 1, Stored(JCS_GRAYSCALE)), notGiven, wide);
    EXPECT_EQ(raster.width, 37u);
    EXPECT_EQ(raster.height, 23u);
    EXPECT_EQ(raster.channels, 1u);
    EXPECT_EQ(raster.bits, 8u);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
    EXPECT_EQ(raster.problem, "");
}

TEST(DctDecoder, GivesBackThreeChannelsInOrder)
{
    const std::string samples = Smooth(37, 23, 3);
    const Raster raster = DecodeDct(Encoded(samples, 37, 23, 3, Stored(JCS_RGB)), 0, wide);
    EXPECT_EQ(raster.channels, 3u);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
    EXPECT_EQ(raster.problem, "");
}

TEST(DctDecoder, GivesBackFourChannelsInOrderAndDoesNotInvertThem)
{
    const std::string samples = Smooth(37, 23, 4);
    Settings settings = Stored(JCS_CMYK);
    settings.hasAdobeMarker = true;
    const Raster raster = DecodeDct(Encoded(samples, 37, 23, 4, settings), notGiven, wide);
    EXPECT_EQ(raster.channels, 4u);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
}

TEST(DctDecoder, GivesBackTwoChannelsAsTheyAre)
{
    const std::string samples = Smooth(37, 23, 2);
    const Raster raster = DecodeDct(Encoded(samples, 37, 23, 2, Stored(JCS_UNKNOWN)), 1, wide);
    EXPECT_EQ(raster.channels, 2u);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
}

TEST(DctDecoder, MakesRgbOfYcc)
{
    Settings settings;
    settings.stored = JCS_YCbCr;
    const std::string samples = Smooth(37, 23, 3);
    const Raster raster = DecodeDct(Encoded(samples, 37, 23, 3, settings), notGiven, wide);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 3);
}

TEST(DctDecoder, MakesCmykOfYcck)
{
    Settings settings;
    settings.given = JCS_CMYK;
    settings.stored = JCS_YCCK;
    settings.hasAdobeMarker = true;
    const std::string samples = Smooth(37, 23, 4);
    const Raster raster = DecodeDct(Encoded(samples, 37, 23, 4, settings), notGiven, wide);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 3);
}

// Y 100, Cb 128, Cr 178: 1.402 times 50 more red, 0.714 times 50 less green, as much blue.
const std::vector<int> reddish = {100, 128, 178};

TEST(DctDecoder, TransformsThreeComponentsUnlessToldNotTo)
{
    EXPECT_THAT(Decoded(reddish, false, JCS_YCbCr, notGiven), ElementsAre(170, 64, 100));
    EXPECT_THAT(Decoded(reddish, false, JCS_YCbCr, 1), ElementsAre(170, 64, 100));
    EXPECT_THAT(Decoded(reddish, false, JCS_YCbCr, 0), ElementsAre(100, 128, 178));
}

TEST(DctDecoder, DoesNotGoByTheNamesOfTheComponents)
{
    EXPECT_THAT(Decoded(reddish, false, JCS_RGB, notGiven), ElementsAre(170, 64, 100));
}

TEST(DctDecoder, LetsTheAdobeMarkerOverruleTheParameter)
{
    EXPECT_THAT(Decoded(reddish, true, JCS_YCbCr, 0), ElementsAre(170, 64, 100));
    EXPECT_THAT(Decoded(reddish, true, JCS_RGB, 1), ElementsAre(100, 128, 178));
}

TEST(DctDecoder, DoesNotTransformFourComponentsUnlessToldTo)
{
    const std::vector<int> stored = {100, 128, 178, 40};
    EXPECT_THAT(Decoded(stored, false, JCS_CMYK, notGiven), ElementsAre(100, 128, 178, 40));
    EXPECT_THAT(Decoded(stored, false, JCS_CMYK, 0), ElementsAre(100, 128, 178, 40));
    EXPECT_THAT(Decoded(stored, false, JCS_CMYK, 1), ElementsAre(85, 191, 155, 40));
    EXPECT_THAT(Decoded(stored, true, JCS_CMYK, 1), ElementsAre(100, 128, 178, 40));
    EXPECT_THAT(Decoded(stored, true, JCS_YCCK, 0), ElementsAre(85, 191, 155, 40));
}

TEST(DctDecoder, DecodesProgressiveFiles)
{
    Settings settings = Stored(JCS_RGB);
    settings.isProgressive = true;
    const std::string samples = Smooth(137, 93, 3);
    const Raster raster = DecodeDct(Encoded(samples, 137, 93, 3, settings), 0, wide);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
    EXPECT_EQ(raster.problem, "");
}

TEST(DctDecoder, DecodesArithmeticCoding)
{
    Settings settings = Stored(JCS_RGB);
    settings.isArithmetic = true;
    const std::string samples = Smooth(137, 93, 3);
    const Raster raster = DecodeDct(Encoded(samples, 137, 93, 3, settings), 0, wide);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
    EXPECT_EQ(raster.problem, "");
}

TEST(DctDecoder, FillsUpSubsampledComponents)
{
    Settings settings;
    settings.stored = JCS_YCbCr;
    settings.sampling = 2;
    const std::string samples = Plain(39 * 41, {200, 90, 30});
    const Raster raster = DecodeDct(Encoded(samples, 39, 41, 3, settings), notGiven, wide);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 3);
}

TEST(DctDecoder, PassesOverWhatStandsBeforeTheImage)
{
    const std::string samples = Smooth(16, 16, 1);
    const std::string file = Encoded(samples, 16, 16, 1, Stored(JCS_GRAYSCALE));
    for (const char* before : {"\r\n ", "garbage", "\xFF\xD8 not yet "}) {
        const Raster raster = DecodeDct(before + file, notGiven, wide);
        EXPECT_LE(LargestError(raster.rows.View(), samples), 2) << before;
        EXPECT_EQ(ReadDctHeader(before + file).width, 16u) << before;
    }
}

TEST(DctDecoder, KeepsTheRowsBeforeTheDataIsCutOff)
{
    const std::string samples = Smooth(256, 256, 3);
    const std::string file = Encoded(samples, 256, 256, 3, Stored(JCS_RGB));
    const std::size_t scan = FindScan(file);
    const Raster raster = DecodeDct(file.substr(0, scan + (file.size() - scan) / 2), 0, wide);
    const std::size_t rows = raster.rows.GetSize() / 768;
    EXPECT_EQ(raster.height, 256u);
    EXPECT_GT(rows, 64u);
    EXPECT_LT(rows, 200u);
    // The last row of blocks is there in part.
    const std::size_t whole = (rows - 8) * 768;
    EXPECT_LE(LargestError(raster.rows.View().substr(0, whole), std::string_view(samples).substr(0, whole)),
              2);
    EXPECT_EQ(raster.problem, "the JPEG data ends early");
}

TEST(DctDecoder, KeepsTheRowsBeforeAMarkerThatEndsTheData)
{
    const std::string samples = Smooth(256, 256, 1);
    std::string file = Encoded(samples, 256, 256, 1, Stored(JCS_GRAYSCALE));
    const std::size_t scan = FindScan(file);
    file.replace(scan + (file.size() - scan) / 2, 2, "\xFF\xD9");
    const Raster raster = DecodeDct(file, 0, wide);
    const std::size_t rows = raster.rows.GetSize() / 256;
    EXPECT_GT(rows, 64u);
    EXPECT_LT(rows, 200u);
    EXPECT_THAT(raster.problem, HasSubstr("damaged"));
}

TEST(DctDecoder, KeepsAllRowsIfOnlyTheEndMarkerIsMissing)
{
    const std::string samples = Smooth(64, 64, 1);
    const std::string file = Encoded(samples, 64, 64, 1, Stored(JCS_GRAYSCALE));
    const Raster raster = DecodeDct(file.substr(0, file.size() - 2), notGiven, wide);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
}

TEST(DctDecoder, GoesOnBehindARestartMarker)
{
    Settings settings = Stored(JCS_GRAYSCALE);
    settings.restartRows = 1;
    const std::string samples = Smooth(64, 64, 1);
    std::string file = Encoded(samples, 64, 64, 1, settings);
    // Takes away the data of the second row of blocks.
    const std::size_t first = file.find("\xFF\xD0", FindScan(file));
    const std::size_t second = file.find("\xFF\xD1", first);
    file.erase(first + 2, second - first - 2);
    const Raster raster = DecodeDct(file, notGiven, wide);
    const std::string_view rows = raster.rows.View();
    ASSERT_EQ(rows.size(), samples.size());
    const std::string_view expected = samples;
    EXPECT_LE(LargestError(rows.substr(0, 512), expected.substr(0, 512)), 2);
    EXPECT_GT(LargestError(rows.substr(512, 512), expected.substr(512, 512)), 2);
    EXPECT_LE(LargestError(rows.substr(1024), expected.substr(1024)), 2);
    EXPECT_THAT(raster.problem, HasSubstr("damaged"));
}

TEST(DctDecoder, KeepsThePictureOfTheScansBeforeDamage)
{
    Settings settings = Stored(JCS_RGB);
    settings.isProgressive = true;
    const std::string samples = Plain(128 * 128, {200, 90, 30});
    std::string file = Encoded(samples, 128, 128, 3, settings);
    // The second scan names a component that is not there.
    std::size_t at = file.find("\xFF\xDA") + 2;
    at = file.find("\xFF\xDA", at);
    file[at + 5] = '\x77';
    const Raster raster = DecodeDct(file, 0, wide);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
    EXPECT_THAT(raster.problem, HasSubstr("damaged"));
}

TEST(DctDecoder, KeepsAllRowsOfACutOffLaterScan)
{
    Settings settings = Stored(JCS_RGB);
    settings.isProgressive = true;
    const std::string samples = Plain(128 * 128, {200, 90, 30});
    const std::string file = Encoded(samples, 128, 128, 3, settings);
    const Raster raster = DecodeDct(file.substr(0, FindScan(file, 1) + 4), 0, wide);
    EXPECT_LE(LargestError(raster.rows.View(), samples), 2);
    EXPECT_EQ(raster.problem, "the JPEG data ends early");
}

TEST(DctDecoder, TellsTwelveBits)
{
    std::string file = Encoded(Smooth(16, 16, 1), 16, 16, 1, Stored(JCS_GRAYSCALE));
    file[FindFrame(file) + 4] = 12;
    const Raster raster = DecodeDct(file, notGiven, wide);
    EXPECT_EQ(raster.problem, "the JPEG data has 12 bits per component; only 8 can be decoded");
    EXPECT_EQ(raster.width, 16u);
    EXPECT_EQ(raster.rows.GetSize(), 0u);
}

TEST(DctDecoder, TellsAProcessThatCannotBeDecoded)
{
    std::string file = Encoded(Smooth(16, 16, 1), 16, 16, 1, Stored(JCS_GRAYSCALE));
    file[FindFrame(file) + 1] = '\xC3';
    EXPECT_THAT(DecodeDct(file, notGiven, wide).problem, HasSubstr("0xc3"));
}

TEST(DctDecoder, TellsThatThereIsNoImage)
{
    EXPECT_THAT(DecodeDct("", notGiven, wide).problem, HasSubstr("no image"));
    EXPECT_THAT(DecodeDct("BT ET", notGiven, wide).problem, HasSubstr("no image"));
    EXPECT_NE(DecodeDct("\xFF\xD8\xFF", notGiven, wide).problem, "");
}

TEST(DctDecoder, PrintsNothing)
{
    std::string file = Encoded(Smooth(64, 64, 1), 64, 64, 1, Stored(JCS_GRAYSCALE));
    file.replace(FindScan(file) + 20, 2, "\xFF\xC4");
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    EXPECT_NE(DecodeDct(file, notGiven, wide).problem, "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(DctDecoder, TakesAsManySamplesAsTheLimitAndNoMore)
{
    const std::string file = Encoded(Smooth(20, 10, 3), 20, 10, 3, Stored(JCS_RGB));
    EXPECT_EQ(DecodeDct(file, 0, {600, 600}).problem, "");
    const Raster samples = DecodeDct(file, 0, {599, 600});
    EXPECT_THAT(samples.problem, HasSubstr("limit pictureSamples: 599 reached"));
    EXPECT_EQ(samples.rows.GetCapacity(), 0u);
    const Raster bytes = DecodeDct(file, 0, {600, 599});
    EXPECT_THAT(bytes.problem, HasSubstr("limit streamBytes: 599 reached"));
    EXPECT_EQ(bytes.rows.GetCapacity(), 0u);
}

TEST(DctDecoder, CountsTheCoefficientsOfProgressiveFiles)
{
    Settings settings = Stored(JCS_GRAYSCALE);
    settings.isProgressive = true;
    const std::string file = Encoded(Smooth(800, 800, 1), 800, 800, 1, settings);
    // A byte for each sample, and two for each coefficient.
    EXPECT_THAT(DecodeDct(file, 0, {640000, 3 * 640000}).problem,
                HasSubstr("limit streamBytes: 1920000 reached"));
    EXPECT_EQ(DecodeDct(file, 0, {640000, 4 * 640000}).problem, "");
}

TEST(DctDecoder, RefusesMoreScansThanAnybodyWrites)
{
    Settings settings = Stored(JCS_GRAYSCALE);
    settings.isProgressive = true;
    std::string file = Encoded(Smooth(16, 16, 1), 16, 16, 1, settings);
    const std::size_t last = file.rfind("\xFF\xDA");
    const std::string scan = file.substr(last, file.size() - 2 - last);
    file.resize(file.size() - 2);
    for (int i = 0; i < 250; ++i)
        file += scan;
    EXPECT_THAT(DecodeDct(file + "\xFF\xD9", 0, wide).problem, HasSubstr("more than 200 scans"));
}

TEST(DctDecoder, DecodesOnSeveralThreads)
{
    const std::string samples = Smooth(320, 200, 3);
    const std::string file = Encoded(samples, 320, 200, 3, Stored(JCS_RGB));
    const std::string cut = file.substr(0, file.size() / 2);
    std::vector<int> same(4);
    std::vector<std::thread> threads;
    for (int& result : same)
        threads.emplace_back([&] {
            const bool isEarly = DecodeDct(cut, 0, wide).problem == "the JPEG data ends early";
            result = isEarly && LargestError(DecodeDct(file, 0, wide).rows.View(), samples) <= 2;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(same, testing::Each(1));
}

TEST(DctHeader, IsThatOfTheFrame)
{
    Settings settings = Stored(JCS_RGB);
    for (const bool isProgressive : {false, true}) {
        settings.isProgressive = isProgressive;
        const DctHeader header = ReadDctHeader(Encoded(Smooth(300, 5, 3), 300, 5, 3, settings));
        EXPECT_TRUE(header.isValid);
        EXPECT_EQ(header.width, 300u);
        EXPECT_EQ(header.height, 5u);
        EXPECT_EQ(header.channels, 3u);
    }
}

TEST(DctHeader, IsNotThatOfAPictureWithinTheHeader)
{
    const std::string small = Encoded(Smooth(8, 8, 1), 8, 8, 1, Stored(JCS_GRAYSCALE));
    const std::string file = Encoded(Smooth(30, 20, 1), 30, 20, 1, Stored(JCS_GRAYSCALE));
    const std::size_t length = small.size() + 2;
    const std::string segment =
        std::string("\xFF\xE1") + static_cast<char>(length >> 8) + static_cast<char>(length & 0xFF) + small;
    EXPECT_EQ(ReadDctHeader(file.substr(0, 2) + segment + file.substr(2)).width, 30u);
}

TEST(DctHeader, IsInvalidWhereNoFrameIs)
{
    const std::string file = Encoded(Smooth(30, 20, 1), 30, 20, 1, Stored(JCS_GRAYSCALE));
    EXPECT_FALSE(ReadDctHeader("").isValid);
    EXPECT_FALSE(ReadDctHeader("\xFF\xD8").isValid);
    EXPECT_FALSE(ReadDctHeader(file.substr(0, FindFrame(file) + 9)).isValid);
    EXPECT_TRUE(ReadDctHeader(file.substr(0, FindFrame(file) + 10)).isValid);
    EXPECT_FALSE(ReadDctHeader(file.substr(0, 2) + file.substr(FindScan(file) - 10)).isValid);
}

} // namespace
