#include "channel_decoding.h"

#include "sample_reading.h"

#include <orv_img/picture_buffer.h>

#include <algorithm>
#include <cmath>

namespace HarrowSupport::Comparators
{

namespace
{

/// Samples of a depth that a buffer can't have are all read as 0.
bool CanBeRead(std::size_t bits)
{
    return bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16;
}

/// Calls `decode` with each sample. A loop for each of the depths that are common leaves the question for the
/// depth out of it.
template <typename Decode>
void DecodeAll(const DecodedChannel::Part& part, double* numbers, Decode decode)
{
    const auto decodeBy = [&](auto readSample) {
        for (std::size_t i = 0; i < part.count; ++i)
            numbers[i] = decode(readSample(part.row, part.first + i * part.step));
    };
    if (part.bits == 8)
        decodeBy([](const unsigned char* row, std::size_t index) { return ReadSample(row, index, 8); });
    else if (part.bits == 16)
        decodeBy([](const unsigned char* row, std::size_t index) { return ReadSample(row, index, 16); });
    else
        decodeBy(
            [&](const unsigned char* row, std::size_t index) { return ReadSample(row, index, part.bits); });
}

} // namespace

double HighestSample(std::size_t bits)
{
    // No sample has more than 1024 bits, which is already more than a double holds.
    return std::ldexp(1.0, static_cast<int>(std::min<std::size_t>(bits, 1024))) - 1.0;
}

double DecodeSample(std::size_t sample, double highest, const DecodeRange& range)
{
    const double position = static_cast<double>(sample) / highest;
    return std::clamp(range[0] + (range[1] - range[0]) * position, 0.0, 1.0);
}

DecodeTable::DecodeTable(std::size_t givenBits, const DecodeRange& givenRange)
    : bits(givenBits), range(givenRange), highest(HighestSample(givenBits))
{}

const double* DecodeTable::Prepare(std::size_t count)
{
    if (!values.empty())
        return values.data();
    if (!CanBeRead(bits))
        return nullptr;
    const std::size_t size = std::size_t{1} << bits;
    if (decoded < size) {
        decoded += count;
        return nullptr;
    }
    values.reserve(size);
    for (std::size_t sample = 0; sample < size; ++sample)
        values.push_back(Decode(sample));
    return values.data();
}

DecodeTable& DecodeTables::Get(std::size_t bits, const DecodeRange& range)
{
    for (const auto& table : tables) {
        if (table->IsFor(bits, range))
            return *table;
    }
    tables.push_back(std::make_unique<DecodeTable>(bits, range));
    return *tables.back();
}

DecodedChannel::DecodedChannel(const OrvImg::PictureBuffer& givenBuffer,
                               const OrvColor::ChannelMappingPolicy::Value& channel, DecodeTables& tables)
    : buffer(&givenBuffer),
      index(channel.index),
      table(&tables.Get(givenBuffer.bitsPerChannel, channel.decode))
{}

DecodedChannel::Part DecodedChannel::Find(std::size_t row, std::size_t column, std::size_t count) const
{
    return {table->Prepare(count),  buffer->GetRowPtr(row),
            buffer->bitsPerChannel, index + column * buffer->channels,
            buffer->channels,       count};
}

void DecodedChannel::Decode(const Part& part, double* numbers) const
{
    if (part.table != nullptr)
        DecodeAll(part, numbers, [known = part.table](std::size_t sample) { return known[sample]; });
    else
        DecodeAll(part, numbers, [this](std::size_t sample) { return table->Decode(sample); });
}

} // namespace HarrowSupport::Comparators
