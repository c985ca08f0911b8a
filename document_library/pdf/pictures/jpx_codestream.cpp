#include "pdf/pictures/jpx_codestream.h"

#include <algorithm>
#include <limits>

#include "pdf/pictures/big_endian.h"

namespace OrvPdf
{

namespace
{

constexpr std::size_t sizeBytes = 42;
constexpr std::size_t componentBytes = 3;
constexpr std::size_t maximalComponents = 16384;
constexpr std::size_t maximalTiles = 65535;
constexpr std::size_t maximalPrecision = 38;

// Rounded up from what the library takes for each.
constexpr double bytesOfTile = 8192;
constexpr double bytesOfTileComponent = 2048;
constexpr double bytesOfPrecinct = 320;
constexpr double bytesOfBlock = 768;
constexpr double bytesOfTileSample = 8;
// A tile that is in the data has a header.
constexpr std::size_t tileHeaderBytes = 14;

/// A COD or COC marker segment, in which all exponents are of two.
struct Coding
{
    std::size_t layers = 1;
    std::size_t levels = 0;
    std::size_t blockWidth = 0;
    std::size_t blockHeight = 0;
    /// Empty if all precincts have the largest size.
    std::string_view precincts;
};

/// Reads from the number of levels on. False if no decoder would take it.
bool ReadCoding(std::string_view body, std::size_t at, bool hasPrecincts, Coding& coding)
{
    constexpr std::size_t fixedBytes = 5;
    constexpr std::size_t maximalLevels = 32;
    constexpr std::size_t maximalBlock = 10;
    if (body.size() < at + fixedBytes)
        return false;
    coding.levels = BigEndian(body, at, 1);
    coding.blockWidth = BigEndian(body, at + 1, 1) + 2;
    coding.blockHeight = BigEndian(body, at + 2, 1) + 2;
    if (coding.levels > maximalLevels || coding.blockWidth > maximalBlock ||
        coding.blockHeight > maximalBlock)
        return false;
    if (hasPrecincts)
        coding.precincts = body.substr(at + fixedBytes);
    return !hasPrecincts || coding.precincts.size() > coding.levels;
}

bool ReadCodingAt(std::string_view data, std::size_t at, bool hasWideIndices, Coding& coding)
{
    constexpr std::uint64_t defaults = 0x52;
    constexpr std::uint64_t forComponent = 0x53;
    constexpr std::size_t markerBytes = 4;
    if (data.size() - at < markerBytes)
        return false;
    const std::uint64_t marker = BigEndian(data, at + 1, 1);
    if (marker != defaults && marker != forComponent)
        return false;
    const std::size_t length = BigEndian(data, at + 2, 2);
    if (length < 2 || data.size() - at - 2 < length)
        return false;
    const std::string_view body = data.substr(at + markerBytes, length - 2);
    if (marker == forComponent) {
        const std::size_t style = hasWideIndices ? 2 : 1;
        return body.size() > style &&
               ReadCoding(body, style + 1, (BigEndian(body, style, 1) & 1) != 0, coding);
    }
    constexpr std::size_t commonBytes = 5;
    if (body.size() < commonBytes)
        return false;
    coding.layers = BigEndian(body, 2, 2);
    return coding.layers != 0 && ReadCoding(body, commonBytes, (BigEndian(body, 0, 1) & 1) != 0, coding);
}

/// Cells that a stretch can touch, wherever it lies.
double CountCells(std::uint64_t length, std::size_t exponent)
{
    const std::uint64_t cell = std::uint64_t{1} << exponent;
    return static_cast<double>((std::max<std::uint64_t>(length, 1) + cell - 2) / cell + 1);
}

struct TileWork
{
    double bytes = 0;
    double precincts = 0;
    double mostPrecincts = 0;
};

/// What one component of one tile takes.
TileWork EstimateTile(const Coding& coding, std::uint64_t width, std::uint64_t height)
{
    constexpr std::size_t largestPrecinct = 15;
    TileWork work;
    for (std::size_t resolution = 0; resolution <= coding.levels; ++resolution) {
        const std::size_t shift = coding.levels - resolution;
        const std::uint64_t across = (width >> shift) + 1;
        const std::uint64_t down = (height >> shift) + 1;
        std::size_t precinctWidth = largestPrecinct;
        std::size_t precinctHeight = largestPrecinct;
        if (!coding.precincts.empty()) {
            const std::uint64_t both = BigEndian(coding.precincts, resolution, 1);
            precinctWidth = both & 0xF;
            precinctHeight = both >> 4;
        }
        const double bands = resolution == 0 ? 1 : 3;
        const std::size_t halved = resolution == 0 ? 0 : 1;
        const double precincts = CountCells(across, precinctWidth) * CountCells(down, precinctHeight);
        // A block ends at its precinct.
        const auto blockExponent = [halved](std::size_t block, std::size_t precinct) {
            return std::min(block, precinct - std::min(precinct, halved));
        };
        const double blocks = CountCells(across >> halved, blockExponent(coding.blockWidth, precinctWidth)) *
                              CountCells(down >> halved, blockExponent(coding.blockHeight, precinctHeight));
        work.bytes += bands * (precincts * bytesOfPrecinct + blocks * bytesOfBlock);
        work.precincts += precincts;
        work.mostPrecincts = std::max(work.mostPrecincts, precincts);
    }
    return work;
}

std::uint64_t ToCount(double value)
{
    constexpr double largest = 1e18;
    return static_cast<std::uint64_t>(std::min(value, largest));
}

} // namespace

JpxSize ReadJpxSize(std::string_view codestream)
{
    using namespace std::string_view_literals;
    JpxSize size;
    if (codestream.size() < sizeBytes || codestream.substr(0, 4) != "\xFF\x4F\xFF\x51"sv)
        return size;
    const auto number = [codestream](std::size_t at) {
        return static_cast<std::uint32_t>(BigEndian(codestream, at, 4));
    };
    size.right = number(8);
    size.bottom = number(12);
    size.left = number(16);
    size.top = number(20);
    size.tileWidth = number(24);
    size.tileHeight = number(28);
    const std::uint32_t tileLeft = number(32);
    const std::uint32_t tileTop = number(36);
    const std::size_t count = BigEndian(codestream, 40, 2);
    constexpr std::uint32_t largest = std::numeric_limits<std::int32_t>::max();
    if (size.right > largest || size.bottom > largest || size.left >= size.right || size.top >= size.bottom ||
        size.tileWidth == 0 || size.tileHeight == 0 || tileLeft > size.left || tileTop > size.top ||
        std::uint64_t{tileLeft} + size.tileWidth <= size.left ||
        std::uint64_t{tileTop} + size.tileHeight <= size.top || count == 0 || count > maximalComponents ||
        codestream.size() - sizeBytes < count * componentBytes)
        return size;
    size.tilesAcross = SamplesBefore(size.right - tileLeft, size.tileWidth);
    size.tilesDown = SamplesBefore(size.bottom - tileTop, size.tileHeight);
    if (std::uint64_t{size.tilesAcross} * size.tilesDown > maximalTiles)
        return size;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = sizeBytes + i * componentBytes;
        JpxSize::Component component;
        component.precision = (BigEndian(codestream, at, 1) & 0x7F) + 1;
        component.isSigned = BigEndian(codestream, at, 1) > 0x7F;
        component.stepX = static_cast<std::uint32_t>(BigEndian(codestream, at + 1, 1));
        component.stepY = static_cast<std::uint32_t>(BigEndian(codestream, at + 2, 1));
        if (component.precision > maximalPrecision || component.stepX == 0 || component.stepY == 0 ||
            SamplesBefore(size.left, component.stepX) == SamplesBefore(size.right, component.stepX) ||
            SamplesBefore(size.top, component.stepY) == SamplesBefore(size.bottom, component.stepY))
            return size;
        size.components.push_back(component);
    }
    size.isValid = true;
    return size;
}

JpxTileParts MendTileParts(std::string_view codestream)
{
    using namespace std::string_view_literals;
    constexpr std::string_view start = "\xFF\x90\x00\x0A"sv;
    constexpr std::string_view endOfCodestream = "\xFF\xD9"sv;
    constexpr std::size_t startBytes = 12;
    constexpr std::size_t lengthPlace = 6;
    constexpr std::size_t lengthBytes = 4;
    JpxTileParts parts;
    for (std::size_t at = 0; (at = codestream.find(start, at)) != std::string_view::npos; ++at) {
        const std::string_view rest = codestream.substr(at);
        if (rest.size() < startBytes)
            break;
        const std::uint64_t length = BigEndian(rest, lengthPlace, lengthBytes);
        const bool isTooLong = length > rest.size();
        if (!isTooLong && length != 0)
            continue;
        const bool hasEnd = rest.substr(rest.size() - endOfCodestream.size()) == endOfCodestream;
        const std::uint64_t mended =
            std::max<std::uint64_t>(rest.size() - (hasEnd ? endOfCodestream.size() : 0), tileHeaderBytes);
        if (mended > std::numeric_limits<std::uint32_t>::max())
            continue;
        parts.endsEarly = parts.endsEarly || isTooLong;
        if (parts.mended.empty())
            parts.mended = codestream;
        for (std::size_t i = 0; i < lengthBytes; ++i)
            parts.mended[at + lengthPlace + i] =
                static_cast<char>(mended >> (8 * (lengthBytes - 1 - i)) & 0xFF);
    }
    return parts;
}

JpxWork EstimateJpxWork(std::string_view codestream, const JpxSize& size)
{
    const auto tileWidth = std::min<std::uint64_t>(size.tileWidth, size.Width());
    const auto tileHeight = std::min<std::uint64_t>(size.tileHeight, size.Height());
    const std::uint64_t tiles = std::uint64_t{size.tilesAcross} * size.tilesDown;
    const std::uint64_t presentTiles =
        std::min<std::uint64_t>(tiles, codestream.size() / tileHeaderBytes + 1);
    const auto components = static_cast<double>(size.components.size());
    constexpr std::size_t narrowIndices = 257;

    // The largest of each kind, from whichever segment.
    TileWork most;
    double layers = 1;
    double resolutions = 1;
    for (std::size_t at = 0; (at = codestream.find('\xFF', at)) != std::string_view::npos; ++at) {
        Coding coding;
        if (!ReadCodingAt(codestream, at, size.components.size() >= narrowIndices, coding))
            continue;
        const TileWork work = EstimateTile(coding, tileWidth, tileHeight);
        most.bytes = std::max(most.bytes, work.bytes);
        most.precincts = std::max(most.precincts, work.precincts);
        most.mostPrecincts = std::max(most.mostPrecincts, work.mostPrecincts);
        layers = std::max(layers, static_cast<double>(coding.layers));
        resolutions = std::max(resolutions, static_cast<double>(coding.levels + 1));
    }
    double tileSamples = 0;
    for (const JpxSize::Component& component : size.components)
        tileSamples += static_cast<double>(tileWidth / component.stepX + 1) *
                       static_cast<double>(tileHeight / component.stepY + 1);
    // Which packets there were is kept in two bytes for each that could be.
    const double packetBytes = 2 * components * most.mostPrecincts * resolutions * layers;
    const double tileBytes = components * most.bytes + packetBytes + tileSamples * bytesOfTileSample;
    const double headerBytes = static_cast<double>(tiles) * (bytesOfTile + components * bytesOfTileComponent);
    const double steps = static_cast<double>(presentTiles) * components * most.precincts * layers;
    // The library copies the data of tiles, and mending them takes another copy.
    const double dataBytes = 2 * static_cast<double>(codestream.size());
    return {ToCount(tileBytes + headerBytes + dataBytes), ToCount(steps)};
}

} // namespace OrvPdf
