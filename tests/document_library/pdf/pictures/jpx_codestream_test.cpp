#include "pdf/pictures/jpx_codestream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "document_library/pdf/pictures/jpx_files.h"

namespace
{

using JpxFiles::Encoded;
using JpxFiles::Number;
using JpxFiles::Settings;
using JpxFiles::Varied;
using OrvPdf::EstimateJpxWork;
using OrvPdf::JpxSize;
using OrvPdf::JpxTileParts;
using OrvPdf::MendTileParts;
using OrvPdf::ReadJpxSize;

std::string Sound()
{
    return Encoded(64, 48, {Varied(64 * 48, 8, 1), Varied(64 * 48, 12, 2)});
}

/// With other numbers of so many bytes at that place.
std::string With(std::string data, std::size_t at, std::size_t bytes, std::uint64_t number)
{
    return data.replace(at, bytes, Number(number, bytes));
}

TEST(JpxSize, IsThatOfTheMainHeader)
{
    Settings settings;
    settings.left = 10;
    settings.top = 20;
    settings.tileWidth = 16;
    settings.tileHeight = 32;
    const JpxSize size = ReadJpxSize(Encoded(30, 50, {Varied(1500, 5, 1)}, settings));
    ASSERT_TRUE(size.isValid);
    EXPECT_EQ(size.Width(), 30u);
    EXPECT_EQ(size.Height(), 50u);
    EXPECT_EQ(size.components.at(0).precision, 5u);
    EXPECT_FALSE(size.components.at(0).isSigned);
    // The library lets the tiles begin at the origin of the grid: 0 to 48, and 0 to 96.
    EXPECT_EQ(size.tilesAcross, 3u);
    EXPECT_EQ(size.tilesDown, 3u);
}

TEST(JpxSize, IsInvalidWhereNoPictureIsLeft)
{
    const std::string data = Sound();
    EXPECT_TRUE(ReadJpxSize(With(data, 16, 4, 63)).isValid);
    EXPECT_FALSE(ReadJpxSize(With(data, 16, 4, 64)).isValid) << "the left edge is the right one";
    EXPECT_FALSE(ReadJpxSize(With(data, 20, 4, 48)).isValid) << "the top is the bottom";
    EXPECT_FALSE(ReadJpxSize(With(data, 24, 4, 0)).isValid) << "a tile has no width";
    EXPECT_FALSE(ReadJpxSize(With(data, 32, 4, 1)).isValid) << "tiles begin within the picture";
    EXPECT_FALSE(ReadJpxSize(With(data, 40, 2, 0)).isValid) << "there is no component";
    EXPECT_FALSE(ReadJpxSize(With(data, 43, 1, 0)).isValid) << "a component has no step";
    EXPECT_FALSE(ReadJpxSize(With(data, 8, 4, 0x80000000u)).isValid) << "the right edge is too far";
}

TEST(JpxSize, HasAsManyTilesAsNumbersForThem)
{
    const std::string data = With(With(Sound(), 24, 8, (std::uint64_t{1} << 32) + 1), 8, 4, 65535);
    EXPECT_TRUE(ReadJpxSize(With(data, 12, 4, 1)).isValid);
    EXPECT_FALSE(ReadJpxSize(With(data, 12, 4, 2)).isValid);
}

TEST(JpxTileParts, StayIfTheyEndWithinTheData)
{
    EXPECT_EQ(MendTileParts(Sound()).mended, "");
    EXPECT_FALSE(MendTileParts(Sound()).endsEarly);
}

TEST(JpxTileParts, EndBeforeTheLastMarker)
{
    const std::string data = Sound();
    const std::size_t at = data.find("\xFF\x90") + 6;
    const JpxTileParts open = MendTileParts(With(data, at, 4, 0));
    EXPECT_EQ(open.mended, data);
    EXPECT_FALSE(open.endsEarly);
    const JpxTileParts beyond = MendTileParts(With(data, at, 4, 0xFFFFFFFF));
    EXPECT_EQ(beyond.mended, data);
    EXPECT_TRUE(beyond.endsEarly);
}

TEST(JpxTileParts, MayEndWithTheDataAndNotBehind)
{
    const std::string data = Sound();
    const std::size_t begin = data.find("\xFF\x90");
    EXPECT_FALSE(MendTileParts(With(data, begin + 6, 4, data.size() - begin)).endsEarly);
    EXPECT_TRUE(MendTileParts(With(data, begin + 6, 4, data.size() - begin + 1)).endsEarly);
}

TEST(JpxWork, GrowsWithLayersAndPrecincts)
{
    const std::string data = Sound();
    const JpxSize size = ReadJpxSize(data);
    const auto sound = EstimateJpxWork(data, size);
    const std::size_t coding = data.find("\xFF\x52");
    const auto layers = EstimateJpxWork(With(data, coding + 6, 2, 1000), size);
    EXPECT_EQ(layers.steps, sound.steps * 1000);
    EXPECT_GT(layers.bytes, sound.bytes);

    // Three resolutions, each in precincts of one sample.
    std::string small = With(data, coding + 2, 2, 15);
    small = With(small, coding + 4, 1, 1).insert(coding + 14, std::string(3, '\0'));
    const auto precincts = EstimateJpxWork(small, size);
    EXPECT_GE(precincts.steps, 2u * 64 * 48);
    EXPECT_GT(precincts.bytes, 2u * 64 * 48 * 1000);
}

TEST(JpxWork, SeesCodingInTileHeadersAndOfSingleComponents)
{
    const std::string data = Sound();
    const JpxSize size = ReadJpxSize(data);
    const auto sound = EstimateJpxWork(data, size);
    // For component 0: precincts given, no level, blocks of 64, one precinct exponent for both sides.
    const std::string coding = std::string("\xFF\x53") + Number(10, 2) + Number(0, 1) + Number(1, 1) +
                               std::string("\0\4\4\0\1\0", 6);
    const std::size_t tile = data.find("\xFF\x90") + 12;
    EXPECT_GT(EstimateJpxWork(std::string(data).insert(tile, coding), size).steps, sound.steps * 100);
}

} // namespace
