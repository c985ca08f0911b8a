#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include <orv_sys/export.h>

namespace OrvImg
{

/// The colours of an indexed picture (ISO 32000-1, 8.6.6.3). Immutable; handed around as shared pointer to
/// const.
///
/// A sample v of a picture whose highest sample is M stands for the position (high - low) * v + low * M of
/// the table, rounded to the nearest one and limited to 0 and M, where (low, high) is the decode range. The
/// last entry serves for the positions behind it.
class ORV_EXPORT ColorTable
{
public:
    /// Copies the data: entries times channels bytes, entry by entry. `bits` is the depth of a channel.
    /// Throws std::invalid_argument for other depths than 8 and for a table without an entry or a channel.
    ColorTable(const unsigned char* data, std::size_t entries, std::size_t channels, std::size_t bits,
               const std::array<double, 2>& decode);
    ~ColorTable();

    /// Bytes of one entry.
    std::size_t GetChannelCount() const { return channels; }

    const std::array<double, 2>& GetDecode() const { return decode; }

    /// Writes the entry at a position, one byte for each channel. `bits` is the depth of the index samples.
    void GetColor(std::size_t position, std::size_t bits, unsigned char* destination) const;

    /// Expands a row of `width` index samples of `bits` bits into pixels of one byte for each channel.
    /// `gap` bytes behind each pixel are left as they are.
    void MapIndexedBuffer(unsigned char* destination, const unsigned char* source, std::size_t bits,
                          std::size_t width, std::size_t gap) const;

    /// Same entries, and decode ranges that are the same but for the rounding on the way through a file,
    /// which gives them in steps of a sample.
    friend ORV_EXPORT bool operator==(const ColorTable& left, const ColorTable& right);
    friend bool operator!=(const ColorTable& left, const ColorTable& right) { return !(left == right); }

    // For makers of documents.

    std::size_t GetEntryCount() const { return colors.size() / channels; }

    /// Entry by entry.
    const std::vector<unsigned char>& GetData() const { return colors; }

    /// The position that a sample of that depth stands for.
    std::size_t GetPosition(std::size_t sample, std::size_t bits) const;

private:
    std::vector<unsigned char> colors;
    std::size_t channels;
    std::array<double, 2> decode;
};

} // namespace OrvImg
