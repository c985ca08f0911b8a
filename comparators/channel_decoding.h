#pragma once

#include <orv_color/color_list.h>

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace OrvImg
{
class PictureBuffer;
}

/// Samples as numbers from 0 to 1. Each number is that of DecodeSample, whose roundings decide which pictures
/// are equal. Multiplying by the reciprocal of the highest sample instead of dividing by it would be quicker
/// and round in another way; tables of all values that DecodeSample gives are quicker still and do not.
namespace HarrowSupport::Comparators
{

using DecodeRange = std::array<double, 2>;

/// 2 to the power of the depth, minus 1.
double HighestSample(std::size_t bits);

/// The number that a sample stands for, under a decode range.
double DecodeSample(std::size_t sample, double highest, const DecodeRange& range);

/// The numbers of all samples of one depth under one range. They are worked out at once, as soon as as many
/// samples were decoded one by one: before that a table costs more than it saves, and most pictures that
/// differ do so at their beginning.
class DecodeTable
{
public:
    DecodeTable(std::size_t bits, const DecodeRange& range);

    bool IsFor(std::size_t otherBits, const DecodeRange& otherRange) const
    {
        return bits == otherBits && range == otherRange;
    }

    /// The table, or null as long as samples are decoded one by one, for as many as are about to be.
    const double* Prepare(std::size_t count);

    double Decode(std::size_t sample) const { return DecodeSample(sample, highest, range); }

private:
    std::size_t bits;
    DecodeRange range;
    double highest;
    std::size_t decoded = 0;
    std::vector<double> values;
};

/// The tables of one comparison; channels of one depth and range share theirs.
class DecodeTables
{
public:
    /// Good as long as this object.
    DecodeTable& Get(std::size_t bits, const DecodeRange& range);

private:
    std::vector<std::unique_ptr<DecodeTable>> tables;
};

/// One channel of a buffer.
class DecodedChannel
{
public:
    /// Both must outlive this object, and the buffer has that channel.
    DecodedChannel(const OrvImg::PictureBuffer& buffer, const OrvColor::ChannelMappingPolicy::Value& channel,
                   DecodeTables& tables);

    /// The samples of some pixels of a row.
    struct Part
    {
        const double* table; ///< The numbers by sample; null as long as samples are decoded one by one.
        const unsigned char* row;
        std::size_t bits;
        std::size_t first; ///< Index of the first sample in the row.
        std::size_t step;  ///< From one sample to the next.
        std::size_t count;
    };

    /// The pixels are about to be decoded: `count` of them, from a column on.
    Part Find(std::size_t row, std::size_t column, std::size_t count) const;

    /// Writes the numbers of the samples.
    void Decode(const Part& part, double* numbers) const;

private:
    const OrvImg::PictureBuffer* buffer;
    std::size_t index;
    DecodeTable* table;
};

} // namespace HarrowSupport::Comparators
