#include "pdf/pictures/jpx_decoder.h"

#include <algorithm>
#include <cmath>

#include "pdf/pictures/jpx_boxes.h"
#include "pdf/pictures/jpx_channels.h"
#include "pdf/pictures/jpx_codestream.h"
#include "pdf/pictures/jpx_planes.h"
#include "pdf/pictures/raster_size.h"

namespace OrvPdf
{

namespace
{

// Each takes some ten nanoseconds.
constexpr std::uint64_t maximalSteps = std::uint64_t{1} << 27;

std::size_t GivenPrecision(const JpxChannel& channel)
{
    return std::min(channel.precision, maximalJpxPrecision);
}

/// Entries of the palette for one channel, as samples.
std::vector<std::uint16_t> MakeTable(const JpxBoxes::Palette& palette, std::size_t column)
{
    const std::size_t precision = palette.columns[column].precision;
    const std::uint64_t mask = (std::uint64_t{1} << precision) - 1;
    const std::uint64_t raise = palette.columns[column].isSigned ? std::uint64_t{1} << (precision - 1) : 0;
    const std::size_t lost = precision - std::min(precision, maximalJpxPrecision);
    std::vector<std::uint16_t> table;
    for (std::size_t i = 0; i < palette.CountEntries(); ++i) {
        const std::uint64_t number = palette.numbers[i * palette.columns.size() + column];
        table.push_back(static_cast<std::uint16_t>(((number + raise) & mask) >> lost));
    }
    return table;
}

/// Gives rows of whole pixels from planes, which may have fewer samples than the picture.
class RowMaker
{
public:
    RowMaker(const JpxBoxes& givenBoxes, const JpxSize& givenSize,
             const std::vector<JpxChannel>& givenChannels, const std::vector<JpxPlane>& givenPlanes)
        : boxes(givenBoxes),
          size(givenSize),
          channels(givenChannels),
          planes(givenPlanes),
          pixels(size.Width() * channels.size())
    {
        for (const JpxChannel& channel : channels)
            tables.push_back(channel.usesPalette ? MakeTable(boxes.palette, channel.column)
                                                 : std::vector<std::uint16_t>());
    }

    const std::vector<std::uint16_t>& Make(std::size_t row)
    {
        for (std::size_t i = 0; i < channels.size(); ++i)
            Fill(row, i);
        if (boxes.isYcc)
            ConvertYcc();
        return pixels;
    }

private:
    /// The sample that a point of the grid shows: the nearest at or before it, or the first.
    static std::size_t FindSample(std::uint32_t point, std::uint32_t first, std::uint32_t step)
    {
        const std::uint32_t before = SamplesBefore(first, step);
        return std::max(point / step, before) - before;
    }

    void Fill(std::size_t row, std::size_t index)
    {
        const JpxChannel& channel = channels[index];
        const JpxSize::Component& component = size.components[channel.component];
        const JpxPlane& plane = planes[channel.component];
        const std::uint32_t top = size.top;
        const std::size_t planeRow = std::min(
            FindSample(top + static_cast<std::uint32_t>(row), top, component.stepY), plane.height - 1);
        const std::uint16_t* samples = plane.samples.data() + planeRow * plane.width;
        const std::vector<std::uint16_t>& table = tables[index];
        std::uint16_t* pixel = pixels.data() + index;
        for (std::uint32_t point = size.left; point < size.right; ++point, pixel += channels.size()) {
            const std::size_t place =
                component.stepX == 1 ? point - size.left : FindSample(point, size.left, component.stepX);
            const std::uint16_t sample = samples[std::min(place, plane.width - 1)];
            *pixel = table.empty() ? sample : table[std::min<std::size_t>(sample, table.size() - 1)];
        }
    }

    /// IEC 61966-2-1, annex F: the chromas lie around the middle of their range.
    void ConvertYcc()
    {
        const auto middle = [](const JpxChannel& channel) { return std::exp2(GivenPrecision(channel)) / 2; };
        const double blueMiddle = middle(channels[1]);
        const double redMiddle = middle(channels[2]);
        const double largest = 2 * middle(channels[0]) - 1;
        const auto toSample = [largest](double value) {
            return static_cast<std::uint16_t>(std::lround(std::clamp(value, 0.0, largest)));
        };
        for (std::size_t at = 0; at < pixels.size(); at += channels.size()) {
            const double luma = pixels[at];
            const double blue = (pixels[at + 1] - blueMiddle);
            const double red = (pixels[at + 2] - redMiddle);
            pixels[at] = toSample(luma + 1.402 * red);
            pixels[at + 1] = toSample(luma - 0.344136 * blue - 0.714136 * red);
            pixels[at + 2] = toSample(luma + 1.772 * blue);
        }
    }

    const JpxBoxes& boxes;
    const JpxSize& size;
    const std::vector<JpxChannel>& channels;
    const std::vector<JpxPlane>& planes;
    std::vector<std::vector<std::uint16_t>> tables;
    std::vector<std::uint16_t> pixels;
};

void PutRow(const std::vector<std::uint16_t>& pixels, std::size_t bits, char* target)
{
    for (const std::uint16_t sample : pixels) {
        if (bits == 16)
            *target++ = static_cast<char>(sample >> 8);
        *target++ = static_cast<char>(sample & 0xFF);
    }
}

/// Channels that are told to be YCC, but are no three of one depth, stay as they are.
void CheckYcc(JpxBoxes& boxes, const std::vector<JpxChannel>& channels, Raster& raster)
{
    if (!boxes.isYcc)
        return;
    const bool isSound = channels.size() >= 3 && !channels[2].isAlpha &&
                         channels[0].precision == channels[1].precision &&
                         channels[0].precision == channels[2].precision;
    boxes.isYcc = isSound;
    if (!isSound)
        TellProblem(raster, "the JPEG 2000 data says that it is YCC, but has no three channels of one depth");
}

} // namespace

JpxHeader ReadJpxHeader(std::string_view data)
{
    JpxHeader header;
    const JpxBoxes boxes = ReadJpxBoxes(data);
    const JpxSize size = ReadJpxSize(boxes.codestream);
    if (!size.isValid)
        return header;
    const std::vector<JpxChannel> channels = ListJpxChannels(boxes, size);
    header.isValid = !channels.empty();
    header.width = size.Width();
    header.height = size.Height();
    header.space = boxes.space;
    header.profile = boxes.profile;
    for (std::size_t i = 0; i < channels.size(); ++i) {
        header.precisions.push_back(GivenPrecision(channels[i]));
        if (channels[i].isAlpha)
            header.alphaChannels.push_back(i);
        header.isPremultiplied = header.isPremultiplied || channels[i].isPremultiplied;
    }
    return header;
}

Raster DecodeJpx(std::string_view data, const RasterLimits& limits)
{
    Raster raster;
    JpxBoxes boxes = ReadJpxBoxes(data);
    const JpxSize size = ReadJpxSize(boxes.codestream);
    const std::vector<JpxChannel> channels =
        size.isValid ? ListJpxChannels(boxes, size) : std::vector<JpxChannel>();
    if (channels.empty()) {
        raster.problem = boxes.codestream.empty() ? "the JPEG 2000 data has no codestream in it"
                                                  : "the JPEG 2000 data has no valid main header";
        return raster;
    }
    std::size_t deepest = 0;
    for (const JpxChannel& channel : channels)
        deepest = std::max(deepest, channel.precision);
    raster.width = size.Width();
    raster.height = size.Height();
    raster.channels = channels.size();
    raster.bits = deepest > 8 ? 16 : 8;
    // A component may be there without being a channel.
    Raster components = {raster.width, raster.height, size.components.size(), 8, {}, {}};
    if (!FitsLimits(components, 0, limits)) {
        raster.problem = components.problem;
        return raster;
    }
    const JpxWork work = EstimateJpxWork(boxes.codestream, size);
    const std::uint64_t rowWork = raster.width * raster.channels * sizeof(std::uint16_t);
    if (!FitsLimits(raster, work.bytes + BytesOfPlanes(size) + rowWork, limits))
        return raster;
    if (work.steps > maximalSteps) {
        raster.problem = "the JPEG 2000 data asks for " + std::to_string(work.steps) +
                         " packets, more than the limit of " + std::to_string(maximalSteps);
        return raster;
    }

    const JpxPlanes decoded = DecodePlanes(boxes.codestream, size);
    TellProblem(raster, decoded.problem);
    CheckYcc(boxes, channels, raster);
    if (deepest > maximalJpxPrecision)
        TellProblem(raster, "the JPEG 2000 data has samples of " + std::to_string(deepest) +
                                " bits, of which the highest " + std::to_string(maximalJpxPrecision) +
                                " are kept");
    const std::size_t rowBytes =
        static_cast<std::size_t>(BytesOfRasterRow(raster.width, raster.channels, raster.bits));
    raster.rows = DecodedBytes(decoded.rows * rowBytes);
    RowMaker rows(boxes, size, channels, decoded.planes);
    for (std::size_t row = 0; row < decoded.rows; ++row)
        PutRow(rows.Make(row), raster.bits, raster.rows.GetData() + row * rowBytes);
    raster.rows.SetSize(decoded.rows * rowBytes);
    return raster;
}

} // namespace OrvPdf
