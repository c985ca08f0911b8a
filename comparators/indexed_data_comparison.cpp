// Each row is judged by the colour of its first sample. Indices are never compared as such: two tables may
// hold the same colours at other positions.

#include "indexed_data_comparison.h"

#include "channel_decoding.h"
#include "decode_equality.h"
#include "sample_reading.h"
#include "stored_likeness.h"

#include <orv_img/color_table.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace HarrowSupport::Comparators
{

namespace
{

using ChannelValue = OrvColor::ChannelMappingPolicy::Value;

/// Full scale of an entry of a colour table.
constexpr double tableScale = 255.0;

/// The colours of one side.
class IndexedColors
{
public:
    IndexedColors(const OrvImg::PictureSource& source, HeldBuffers::Buffer givenBuffer)
        : table(source.GetColorTable()),
          buffer(std::move(givenBuffer)),
          highest(HighestSample(buffer->bitsPerChannel)),
          color(table->GetChannelCount())
    {}

    const OrvImg::PictureBuffer& GetBuffer() const { return *buffer; }

    const std::vector<unsigned char>& GetColor() const { return color; }

    /// Takes up the colour of the first sample of a row.
    void LookAt(std::size_t row)
    {
        const std::size_t sample =
            buffer->channels == 0 ? 0 : ReadSample(buffer->GetRowPtr(row), 0, buffer->bitsPerChannel);
        const auto& [low, high] = table->GetDecode();
        const double place = std::floor((high - low) * static_cast<double>(sample) + low * highest + 0.5);
        const double position = place > 0.0 ? std::min(place, highest) : 0.0;
        table->GetColor(static_cast<std::size_t>(position), buffer->bitsPerChannel, color.data());
    }

    bool Has(const ChannelValue& channel) const { return channel.index < color.size(); }

    double Decode(const ChannelValue& channel) const
    {
        const auto& [low, high] = channel.decode;
        const double value = (high - low) * static_cast<double>(color[channel.index]) / tableScale + low;
        return std::clamp(value, 0.0, 1.0);
    }

private:
    std::shared_ptr<const OrvImg::ColorTable> table;
    HeldBuffers::Buffer buffer;
    double highest;
    std::vector<unsigned char> color;
};

bool ChannelsAgree(const IndexedColors& left, const IndexedColors& right, const ChannelPair& pair)
{
    if (left.Has(pair.first) && right.Has(pair.second))
        return std::fabs(left.Decode(pair.first) - right.Decode(pair.second)) < decodeTolerance;
    return pair.first.index == pair.second.index && left.GetColor() == right.GetColor();
}

} // namespace

bool CompareIndexedData(const std::shared_ptr<const OrvImg::PictureSource>& left,
                        const std::shared_ptr<const OrvImg::PictureSource>& right,
                        const std::vector<ChannelPair>& pairs, HeldBuffers& buffers)
{
    if (pairs.empty())
        return true;
    if (AreSurelyDifferent(*left, *right))
        return false;
    IndexedColors leftColors(*left, buffers.Get(left));
    IndexedColors rightColors(*right, buffers.Get(right));
    const OrvImg::PictureBuffer& leftBuffer = leftColors.GetBuffer();
    const OrvImg::PictureBuffer& rightBuffer = rightColors.GetBuffer();
    if (leftBuffer.width == 0 || leftBuffer.height == 0)
        return true;
    if (rightBuffer.width < leftBuffer.width || rightBuffer.height < leftBuffer.height)
        return false;
    for (std::size_t row = 0; row < leftBuffer.height; ++row) {
        leftColors.LookAt(row);
        rightColors.LookAt(row);
        for (const ChannelPair& pair : pairs) {
            if (!ChannelsAgree(leftColors, rightColors, pair))
                return false;
        }
    }
    return true;
}

} // namespace HarrowSupport::Comparators
