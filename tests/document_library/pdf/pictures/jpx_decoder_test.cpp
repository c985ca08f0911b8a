#include "pdf/pictures/jpx_decoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "document_library/pdf/pictures/jpx_files.h"

namespace
{

using JpxFiles::Box;
using JpxFiles::ChannelDefinitions;
using JpxFiles::Component;
using JpxFiles::Encoded;
using JpxFiles::EnumeratedSpace;
using JpxFiles::File;
using JpxFiles::Number;
using JpxFiles::Settings;
using JpxFiles::Varied;
using OrvPdf::DecodeJpx;
using OrvPdf::JpxHeader;
using OrvPdf::Raster;
using OrvPdf::RasterLimits;
using OrvPdf::ReadJpxHeader;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr RasterLimits wide = {1 << 24, 1 << 28};

/// All samples as numbers, pixel by pixel.
std::vector<int> Samples(const Raster& raster)
{
    std::vector<int> samples;
    const std::string_view rows = raster.rows.View();
    const std::size_t bytes = raster.bits / 8;
    for (std::size_t at = 0; bytes > 0 && at + bytes <= rows.size(); at += bytes) {
        int sample = 0;
        for (std::size_t i = 0; i < bytes; ++i)
            sample = sample << 8 | static_cast<unsigned char>(rows[at + i]);
        samples.push_back(sample);
    }
    return samples;
}

/// The samples of components of the same size, pixel by pixel.
std::vector<int> Interleaved(const std::vector<Component>& components)
{
    std::vector<int> samples;
    for (std::size_t i = 0; i < components[0].samples.size(); ++i) {
        for (const Component& component : components)
            samples.push_back(component.samples[i]);
    }
    return samples;
}

Component Of(std::vector<int> samples, std::uint32_t precision = 8)
{
    Component component;
    component.precision = precision;
    component.samples = std::move(samples);
    return component;
}

std::vector<Component> ThreeVaried(std::size_t count, std::uint32_t precision = 8)
{
    return {Varied(count, precision, 1), Varied(count, precision, 2), Varied(count, precision, 3)};
}

TEST(JpxDecoder, GivesBackABareCodestream)
{
    const auto components = ThreeVaried(37 * 23);
    const Raster raster = DecodeJpx(Encoded(37, 23, components), wide);
    EXPECT_EQ(raster.width, 37u);
    EXPECT_EQ(raster.height, 23u);
    EXPECT_EQ(raster.channels, 3u);
    EXPECT_EQ(raster.bits, 8u);
    EXPECT_EQ(raster.problem, "");
    EXPECT_EQ(Samples(raster), Interleaved(components));
}

TEST(JpxDecoder, GivesBackAFileThatTheLibraryWrote)
{
    const auto components = ThreeVaried(37 * 23);
    Settings settings;
    settings.isFile = true;
    settings.space = OPJ_CLRSPC_SRGB;
    const std::string file = Encoded(37, 23, components, settings);
    EXPECT_EQ(ReadJpxHeader(file).space, JpxHeader::Space::Rgb);
    const Raster raster = DecodeJpx(file, wide);
    EXPECT_EQ(raster.problem, "");
    EXPECT_EQ(Samples(raster), Interleaved(components));
}

TEST(JpxDecoder, PutsTilesWhereTheyBelong)
{
    const auto components = ThreeVaried(50 * 41);
    Settings settings;
    settings.tileWidth = 16;
    settings.tileHeight = 20;
    settings.left = 3;
    settings.top = 5;
    const Raster raster = DecodeJpx(Encoded(50, 41, components, settings), wide);
    EXPECT_EQ(raster.problem, "");
    EXPECT_EQ(Samples(raster), Interleaved(components));
}

TEST(JpxDecoder, KeepsTheNumbersOfSamples)
{
    for (const std::uint32_t precision : {1u, 4u, 7u, 8u, 9u, 12u, 16u}) {
        const Component component = Varied(31 * 17, precision, 5);
        const Raster raster = DecodeJpx(Encoded(31, 17, {component}), wide);
        EXPECT_EQ(raster.bits, precision <= 8 ? 8u : 16u);
        EXPECT_EQ(raster.problem, "");
        EXPECT_EQ(Samples(raster), component.samples) << precision << " bits";
    }
}

TEST(JpxDecoder, GivesAllChannelsInTheDepthOfTheDeepest)
{
    const std::vector<Component> components = {Varied(64, 8, 1), Varied(64, 12, 2)};
    const Raster raster = DecodeJpx(Encoded(8, 8, components), wide);
    EXPECT_EQ(raster.bits, 16u);
    EXPECT_EQ(Samples(raster), Interleaved(components));
}

TEST(JpxDecoder, MovesSignedSamplesUp)
{
    for (const std::uint32_t precision : {8u, 12u}) {
        const int half = 1 << (precision - 1);
        Component component = Varied(64, precision, 1);
        const std::vector<int> expected = component.samples;
        component.isSigned = true;
        for (int& sample : component.samples)
            sample -= half;
        EXPECT_EQ(Samples(DecodeJpx(Encoded(8, 8, {component}), wide)), expected) << precision << " bits";
    }
}

TEST(JpxDecoder, KeepsTheHighestSixteenBits)
{
    Component component = Varied(64, 20, 1);
    const Raster raster = DecodeJpx(Encoded(8, 8, {component}), wide);
    for (int& sample : component.samples)
        sample >>= 4;
    EXPECT_EQ(Samples(raster), component.samples);
    EXPECT_THAT(raster.problem, HasSubstr("20 bits"));
    EXPECT_THAT(ReadJpxHeader(Encoded(8, 8, {component})).precisions, ElementsAre(16u));
}

TEST(JpxDecoder, RepeatsSubsampledSamples)
{
    Component half = Of({1, 2, 3, 4, 5, 6});
    half.stepX = half.stepY = 2;
    const Component full = Varied(5 * 3, 8, 1);
    const Raster raster = DecodeJpx(Encoded(5, 3, {full, half}), wide);
    const Component repeated = Of({1, 1, 2, 2, 3, 1, 1, 2, 2, 3, 4, 4, 5, 5, 6});
    EXPECT_EQ(Samples(raster), Interleaved({full, repeated}));
}

TEST(JpxDecoder, RepeatsSubsampledSamplesFromTheOriginOfTheGrid)
{
    Component half = Of({1, 2});
    half.stepX = 2;
    Settings settings;
    settings.left = 1;
    // The points are 1 to 5. The samples stand at 2 and 4, and the first has nothing to its left.
    const Component full = Varied(5, 8, 1);
    const Raster raster = DecodeJpx(Encoded(5, 1, {full, half}, settings), wide);
    EXPECT_EQ(Samples(raster), Interleaved({full, Of({1, 1, 1, 2, 2})}));
}

TEST(JpxDecoder, BringsThePictureToFullSizeIfAllChannelsAreSubsampled)
{
    Component half = Of({1, 2, 3, 4});
    half.stepX = half.stepY = 2;
    const Raster raster = DecodeJpx(Encoded(4, 4, {half}), wide);
    EXPECT_EQ(raster.width, 4u);
    EXPECT_THAT(Samples(raster), ElementsAre(1, 1, 2, 2, 1, 1, 2, 2, 3, 3, 4, 4, 3, 3, 4, 4));
}

/// Entries of three columns: 0 is (10, 20, 30), 1 is (40, 50, 60), 2 is (70, 80, 90).
std::string PaletteBoxes()
{
    const std::string palette =
        Number(3, 2) + Number(3, 1) + "\7\7\7" + "\x0A\x14\x1E\x28\x32\x3C\x46\x50\x5A";
    const std::string mapping = Number(0, 2) + Number(1, 1) + Number(0, 1) + Number(0, 2) + Number(1, 1) +
                                Number(1, 1) + Number(0, 2) + Number(1, 1) + Number(2, 1);
    return Box("pclr", palette) + Box("cmap", mapping);
}

TEST(JpxDecoder, AppliesThePalette)
{
    const std::string file = File(EnumeratedSpace(16) + PaletteBoxes(), Encoded(2, 2, {Of({2, 0, 1, 0}, 2)}));
    const Raster raster = DecodeJpx(file, wide);
    EXPECT_EQ(raster.channels, 3u);
    EXPECT_EQ(raster.problem, "");
    EXPECT_THAT(Samples(raster), ElementsAre(70, 80, 90, 10, 20, 30, 40, 50, 60, 10, 20, 30));
    EXPECT_THAT(ReadJpxHeader(file).precisions, ElementsAre(8u, 8u, 8u));
}

TEST(JpxDecoder, TakesTheLastEntryForPlacesBehindThePalette)
{
    const std::string file = File(PaletteBoxes(), Encoded(1, 1, {Of({3}, 2)}));
    EXPECT_THAT(Samples(DecodeJpx(file, wide)), ElementsAre(70, 80, 90));
}

TEST(JpxDecoder, GivesPaletteEntriesOfMoreBits)
{
    const std::string palette = Number(2, 2) + Number(1, 1) + "\x0B" + Number(4095, 2) + Number(7, 2);
    const std::string mapping = Number(0, 2) + Number(1, 1) + Number(0, 1);
    const std::string file =
        File(Box("pclr", palette) + Box("cmap", mapping), Encoded(2, 1, {Of({1, 0}, 1)}));
    const Raster raster = DecodeJpx(file, wide);
    EXPECT_EQ(raster.bits, 16u);
    EXPECT_THAT(Samples(raster), ElementsAre(7, 4095));
}

TEST(JpxDecoder, MapsAComponentBesideThePalette)
{
    const std::string palette = Number(2, 2) + Number(1, 1) + "\7\x64\x65";
    // The second component as it is, then the first through the palette.
    const std::string mapping = Number(1, 2) + Number(0, 2) + Number(0, 2) + Number(1, 1) + Number(0, 1);
    const std::string file =
        File(Box("pclr", palette) + Box("cmap", mapping), Encoded(2, 1, {Of({1, 0}, 1), Of({8, 9})}));
    EXPECT_THAT(Samples(DecodeJpx(file, wide)), ElementsAre(8, 101, 9, 100));
}

TEST(JpxDecoder, OrdersChannelsByTheirColours)
{
    // Stored as blue, opacity, red, green.
    const std::string file =
        File(EnumeratedSpace(16) + ChannelDefinitions({{0, 0, 3}, {1, 1, 0}, {2, 0, 1}, {3, 0, 2}}),
             Encoded(1, 1, {Of({30}), Of({99}), Of({10}), Of({20})}));
    EXPECT_THAT(Samples(DecodeJpx(file, wide)), ElementsAre(10, 20, 30, 99));
    const JpxHeader header = ReadJpxHeader(file);
    EXPECT_THAT(header.alphaChannels, ElementsAre(3u));
    EXPECT_FALSE(header.isPremultiplied);
}

TEST(JpxDecoder, PutsOpacitiesBehindChannelsThatAreNoColours)
{
    const std::string file =
        File(EnumeratedSpace(17) + ChannelDefinitions({{0, 2, 0}, {1, 65535, 65535}, {2, 0, 1}}),
             Encoded(1, 1, {Of({1}), Of({200}, 9), Of({3})}));
    EXPECT_THAT(Samples(DecodeJpx(file, wide)), ElementsAre(3, 200, 1));
    const JpxHeader header = ReadJpxHeader(file);
    EXPECT_THAT(header.precisions, ElementsAre(8u, 9u, 8u));
    EXPECT_THAT(header.alphaChannels, ElementsAre(2u));
    EXPECT_TRUE(header.isPremultiplied);
}

TEST(JpxDecoder, PutsChannelsOfNoColourBehindTheColours)
{
    const std::string file = File(EnumeratedSpace(17) + ChannelDefinitions({{0, 0, 0}, {1, 0, 1}}),
                                  Encoded(1, 1, {Of({7}), Of({8})}));
    EXPECT_THAT(Samples(DecodeJpx(file, wide)), ElementsAre(8, 7));
    EXPECT_THAT(ReadJpxHeader(file).alphaChannels, testing::IsEmpty());
}

TEST(JpxDecoder, MakesRgbOfYcc)
{
    const std::string file =
        File(EnumeratedSpace(18), Encoded(2, 1, {Of({100, 50}), Of({128, 178}), Of({178, 128})}));
    EXPECT_EQ(ReadJpxHeader(file).space, JpxHeader::Space::Rgb);
    EXPECT_THAT(Samples(DecodeJpx(file, wide)), ElementsAre(170, 64, 100, 50, 33, 139));
}

TEST(JpxDecoder, MakesRgbOfSubsampledYccAndKeepsItInRange)
{
    Component blue = Of({128});
    Component red = Of({255});
    blue.stepX = red.stepX = 2;
    const std::string file = File(EnumeratedSpace(18), Encoded(2, 1, {Of({200, 10}), blue, red}));
    EXPECT_THAT(Samples(DecodeJpx(file, wide)), ElementsAre(255, 109, 200, 188, 0, 10));
}

TEST(JpxDecoder, DoesNotConvertYccOfTwoDepths)
{
    const std::string file = File(EnumeratedSpace(18), Encoded(1, 1, {Of({100}), Of({8}, 4), Of({178})}));
    const Raster raster = DecodeJpx(file, wide);
    EXPECT_THAT(Samples(raster), ElementsAre(100, 8, 178));
    EXPECT_THAT(raster.problem, HasSubstr("YCC"));
}

TEST(JpxDecoder, DecodesLessOfATileThatIsCutOff)
{
    std::vector<int> ramp;
    for (int i = 0; i < 128 * 128; ++i)
        ramp.push_back(i % 128 + i / 256 + i * 7919 % 13);
    const std::string data = Encoded(128, 128, {Of(ramp)});
    const Raster raster = DecodeJpx(data.substr(0, data.size() / 2), wide);
    EXPECT_EQ(raster.problem, "the JPEG 2000 data ends early");
    const std::vector<int> samples = Samples(raster);
    ASSERT_EQ(samples.size(), ramp.size());
    double error = 0;
    for (std::size_t i = 0; i < samples.size(); ++i)
        error += std::abs(samples[i] - ramp[i]);
    EXPECT_LT(error / static_cast<double>(samples.size()), 5);
}

TEST(JpxDecoder, KeepsTheRowsOfTilesBeforeTheDataIsCutOff)
{
    const Component component = Varied(32 * 128, 8, 1);
    Settings settings;
    settings.tileWidth = 32;
    settings.tileHeight = 32;
    const std::string data = Encoded(32, 128, {component}, settings);
    // Behind the second of four tiles.
    std::size_t at = 0;
    for (int i = 0; i < 3; ++i)
        at = data.find(std::string("\xFF\x90\0\x0A", 4), at + 1);
    const Raster raster = DecodeJpx(data.substr(0, at), wide);
    EXPECT_EQ(raster.height, 128u);
    EXPECT_NE(raster.problem, "");
    EXPECT_EQ(Samples(raster),
              std::vector<int>(component.samples.begin(), component.samples.begin() + 32 * 64));
}

/// The length of the only tile-part stands behind marker, length and number of the tile.
std::string WithTileLength(std::string data, std::uint32_t length)
{
    data.replace(data.find("\xFF\x90") + 6, 4, Number(length, 4));
    return data;
}

TEST(JpxDecoder, TakesATilePartToTheEndIfItsLengthIsOpen)
{
    const Component component = Varied(64, 8, 1);
    const Raster raster = DecodeJpx(WithTileLength(Encoded(8, 8, {component}), 0), wide);
    EXPECT_EQ(Samples(raster), component.samples);
    EXPECT_EQ(raster.problem, "");
}

TEST(JpxDecoder, TellsATilePartThatGoesOnBehindTheEnd)
{
    // The library would take as many bytes as the length says.
    const Component component = Varied(64, 8, 1);
    const Raster raster = DecodeJpx(WithTileLength(Encoded(8, 8, {component}), 0xFFFFFFF0), wide);
    EXPECT_EQ(Samples(raster), component.samples);
    EXPECT_EQ(raster.problem, "the JPEG 2000 data ends early");
}

TEST(JpxDecoder, FindsTheCodestreamInDamagedBoxes)
{
    const Component component = Varied(64, 8, 1);
    std::string file = File(EnumeratedSpace(17), Encoded(8, 8, {component}));
    file[0] = '\x7F';
    EXPECT_EQ(Samples(DecodeJpx(file, wide)), component.samples);
}

TEST(JpxDecoder, ReadsBoxesWithLongLengthsAndToTheEnd)
{
    const Component component = Varied(64, 8, 1);
    const std::string codestream = Encoded(8, 8, {component});
    const std::string header = EnumeratedSpace(17);
    const std::string file = Box("jP  ", "\r\n\x87\n") + Number(1, 4) + "jp2h" +
                             Number(header.size() + 16, 8) + header + Number(0, 4) + "jp2c" + codestream;
    EXPECT_EQ(ReadJpxHeader(file).space, JpxHeader::Space::Gray);
    EXPECT_EQ(Samples(DecodeJpx(file, wide)), component.samples);
}

TEST(JpxDecoder, DecodesATileOnce)
{
    const Component component = Varied(64 * 64, 8, 1);
    const std::string data = Encoded(64, 64, {component});
    const std::size_t begin = data.find("\xFF\x90");
    const std::string tile = data.substr(begin, data.size() - 2 - begin);
    const Raster raster = DecodeJpx(data.substr(0, begin) + tile + tile + "\xFF\xD9", wide);
    EXPECT_EQ(Samples(raster), component.samples);
    EXPECT_NE(raster.problem, "");
}

TEST(JpxDecoder, TellsThatThereIsNoCodestream)
{
    EXPECT_THAT(DecodeJpx("", wide).problem, HasSubstr("no codestream"));
    EXPECT_THAT(DecodeJpx(File(EnumeratedSpace(17), ""), wide).problem, HasSubstr("no codestream"));
    EXPECT_THAT(DecodeJpx("\xFF\x4F\xFF\x51", wide).problem, HasSubstr("no valid main header"));
}

TEST(JpxDecoder, TellsDataWithoutTiles)
{
    const std::string data = Encoded(8, 8, {Varied(64, 8, 1)});
    const Raster raster = DecodeJpx(data.substr(0, data.find("\xFF\x90")), wide);
    EXPECT_NE(raster.problem, "");
    EXPECT_EQ(raster.rows.GetSize(), 0u);
}

TEST(JpxDecoder, TakesAsManySamplesAsTheLimitAndNoMore)
{
    const std::string data = Encoded(20, 10, ThreeVaried(200));
    EXPECT_EQ(DecodeJpx(data, {600, 1 << 24}).problem, "");
    const Raster raster = DecodeJpx(data, {599, 1 << 24});
    EXPECT_THAT(raster.problem, HasSubstr("limit pictureSamples: 599 reached"));
    EXPECT_EQ(raster.rows.GetCapacity(), 0u);
}

TEST(JpxDecoder, CountsTheMemoryOfTheLibrary)
{
    const std::string data = Encoded(1000, 1000, {Varied(1000000, 8, 1)});
    EXPECT_THAT(DecodeJpx(data, {1000000, 8000000}).problem, HasSubstr("limit streamBytes: 8000000 reached"));
    EXPECT_EQ(DecodeJpx(data, {1000000, 20000000}).problem, "");
}

TEST(JpxDecoder, RefusesSizesThatFewBytesAskFor)
{
    std::string data = Encoded(8, 8, {Varied(64, 8, 1)});
    // Width, height, and those of the tile.
    for (const std::size_t at : {8u, 12u, 24u, 28u})
        data.replace(at, 4, Number(0x7FFFFFFF, 4));
    const Raster raster = DecodeJpx(data, wide);
    EXPECT_THAT(raster.problem, HasSubstr("2147483647 by 2147483647"));
    EXPECT_EQ(raster.rows.GetCapacity(), 0u);
}

/// The number of quality layers stands in the COD segment, behind marker, length, style and order.
std::string WithLayers(std::string data, unsigned layers)
{
    data.replace(data.find("\xFF\x52") + 6, 2, Number(layers, 2));
    return data;
}

TEST(JpxDecoder, RefusesRecordsForTooManyPackets)
{
    Settings settings;
    settings.tileWidth = 4;
    settings.tileHeight = 4;
    const std::string data = Encoded(256, 256, {Varied(65536, 8, 1)}, settings);
    EXPECT_EQ(DecodeJpx(WithLayers(data, 2), wide).bits, 8u);
    EXPECT_THAT(DecodeJpx(WithLayers(data, 65535), wide).problem, HasSubstr("packets"));
}

TEST(JpxDecoder, RefusesTilesThatTakeMoreThanThePicture)
{
    std::string data = Encoded(200, 200, {Varied(40000, 8, 1)});
    data.replace(24, 8, Number(1, 4) + Number(1, 4));
    EXPECT_THAT(DecodeJpx(data, {40000, 1 << 24}).problem, HasSubstr("limit streamBytes: 16777216 reached"));
}

TEST(JpxDecoder, PrintsNothing)
{
    std::string data = Encoded(64, 64, {Varied(4096, 8, 1)});
    data.replace(data.find("\xFF\x52") + 4, 1, "\xFF");
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    EXPECT_NE(DecodeJpx(data, wide).problem, "");
    EXPECT_NE(DecodeJpx(data.substr(0, 200), wide).problem, "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(JpxDecoder, DecodesOnSeveralThreads)
{
    const auto components = ThreeVaried(120 * 90);
    const std::string data = Encoded(120, 90, components);
    const std::vector<int> expected = Interleaved(components);
    std::vector<int> same(4);
    std::vector<std::thread> threads;
    for (int& result : same)
        threads.emplace_back([&] { result = Samples(DecodeJpx(data, wide)) == expected; });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(same, testing::Each(1));
}

TEST(JpxHeader, TellsSizeAndPrecisionsOfABareCodestream)
{
    Settings settings;
    settings.left = 3;
    settings.top = 5;
    const std::string data = Encoded(37, 23, {Varied(851, 8, 1), Varied(851, 12, 1)}, settings);
    const JpxHeader header = ReadJpxHeader(data.substr(0, 60));
    EXPECT_TRUE(header.isValid);
    EXPECT_EQ(header.width, 37u);
    EXPECT_EQ(header.height, 23u);
    EXPECT_THAT(header.precisions, ElementsAre(8u, 12u));
    EXPECT_EQ(header.space, JpxHeader::Space::None);
    EXPECT_THAT(header.alphaChannels, testing::IsEmpty());
}

TEST(JpxHeader, TellsEachEnumeratedSpace)
{
    using Space = JpxHeader::Space;
    const std::string codestream = Encoded(1, 1, {Of({1})});
    const std::pair<unsigned, Space> spaces[] = {{12, Space::Cmyk}, {14, Space::Lab}, {16, Space::Rgb},
                                                 {17, Space::Gray}, {18, Space::Rgb}, {99, Space::None}};
    for (const auto& [number, space] : spaces)
        EXPECT_EQ(ReadJpxHeader(File(EnumeratedSpace(number), codestream)).space, space) << number;
}

TEST(JpxHeader, TakesTheFirstSpaceThatIsUnderstood)
{
    const std::string codestream = Encoded(1, 1, {Of({1})});
    const JpxHeader header =
        ReadJpxHeader(File(EnumeratedSpace(99) + EnumeratedSpace(17) + EnumeratedSpace(16), codestream));
    EXPECT_EQ(header.space, JpxHeader::Space::Gray);
}

TEST(JpxHeader, HasTheProfile)
{
    std::string profile(200, '\0');
    profile.replace(16, 4, "GRAY");
    const std::string codestream = Encoded(1, 1, {Of({1})});
    for (const char method : {'\2', '\3'}) {
        const JpxHeader header =
            ReadJpxHeader(File(Box("colr", method + std::string(2, '\0') + profile), codestream));
        ASSERT_EQ(header.space, JpxHeader::Space::Profile);
        EXPECT_EQ(header.profile->GetData(), profile);
    }
}

TEST(JpxHeader, PassesOverAProfileThatIsNone)
{
    const std::string boxes = Box("colr", std::string("\2\0\0", 3) + "short") + EnumeratedSpace(16);
    const JpxHeader header = ReadJpxHeader(File(boxes, Encoded(1, 1, {Of({1})})));
    EXPECT_EQ(header.space, JpxHeader::Space::Rgb);
    EXPECT_EQ(header.profile, nullptr);
}

TEST(JpxHeader, IsInvalidWithoutAMainHeader)
{
    EXPECT_FALSE(ReadJpxHeader("").isValid);
    EXPECT_FALSE(ReadJpxHeader(File(EnumeratedSpace(17), "")).isValid);
    const std::string data = Encoded(1, 1, {Of({1})});
    EXPECT_FALSE(ReadJpxHeader(data.substr(0, 44)).isValid);
    EXPECT_TRUE(ReadJpxHeader(data.substr(0, 45)).isValid);
}

} // namespace
