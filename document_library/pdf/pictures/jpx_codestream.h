#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace OrvPdf
{

/// What the codestream's SIZ marker segment says (ISO/IEC 15444-1, A.5.1), in points of the reference grid.
struct JpxSize
{
    struct Component
    {
        std::size_t precision = 0;
        bool isSigned = false;
        /// One sample stands for so many points across and down.
        std::uint32_t stepX = 1;
        std::uint32_t stepY = 1;
    };

    bool isValid = false;
    std::uint32_t left = 0;
    std::uint32_t top = 0;
    std::uint32_t right = 0;
    std::uint32_t bottom = 0;
    std::uint32_t tileWidth = 0;
    std::uint32_t tileHeight = 0;
    std::uint32_t tilesAcross = 0;
    std::uint32_t tilesDown = 0;
    std::vector<Component> components;

    std::size_t Width() const { return right - left; }
    std::size_t Height() const { return bottom - top; }
};

/// Samples of a component before that point of the grid.
constexpr std::uint32_t SamplesBefore(std::uint32_t point, std::uint32_t step)
{
    return point / step + (point % step != 0 ? 1 : 0);
}

/// Not valid if the data does not begin with a codestream's main header, or one that cannot be.
JpxSize ReadJpxSize(std::string_view codestream);

/// Tile-parts that say they go on beyond the end of the data, or to an end that they leave open, are given
/// lengths that end with it: for others the library takes as much memory as they say, up to 4 GiB.
struct JpxTileParts
{
    /// The codestream with the lengths mended; empty if none had to be.
    std::string mended;
    bool endsEarly = false;
};

/// Linear in the data.
JpxTileParts MendTileParts(std::string_view codestream);

/// What decoding takes beside the samples, at most. A few bytes of data can ask for a record for each sample,
/// and for more packets than samples.
struct JpxWork
{
    std::uint64_t bytes = 0;
    /// Steps that cost time without any data.
    std::uint64_t steps = 0;
};

/// From the sizes and every marker segment that could be about coding; linear in the data.
JpxWork EstimateJpxWork(std::string_view codestream, const JpxSize& size);

} // namespace OrvPdf
