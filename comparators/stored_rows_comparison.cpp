#include "stored_rows_comparison.h"

#include "sample_reading.h"

#include <orv_img/picture_buffer.h>

#include <cstddef>
#include <cstring>

namespace HarrowSupport::Comparators
{

namespace
{

bool SamplesAgree(const unsigned char* leftRow, const unsigned char* rightRow, std::size_t first,
                  std::size_t end, std::size_t bits)
{
    for (std::size_t i = first; i < end; ++i) {
        if (ReadSample(leftRow, i, bits) != ReadSample(rightRow, i, bits))
            return false;
    }
    return true;
}

} // namespace

bool StoredRowsAgree(const OrvImg::PictureBuffer& left, const OrvImg::PictureBuffer& right)
{
    const std::size_t samples = left.width * left.channels;
    const std::size_t bits = left.bitsPerChannel;
    const std::size_t wholeBytes = samples * bits / 8;
    const bool endsWithinAByte = samples * bits % 8 != 0;
    for (std::size_t row = 0; row < left.height;) {
        const unsigned char* const leftRow = left.GetRowPtr(row);
        const unsigned char* const rightRow = right.GetRowPtr(row);
        ++row;
        // Rows that follow one another without a gap are one run of bytes: a call for each row would be what
        // narrow pictures cost.
        std::size_t size = wholeBytes;
        while (!endsWithinAByte && row < left.height && left.GetRowPtr(row) == leftRow + size &&
               right.GetRowPtr(row) == rightRow + size) {
            size += wholeBytes;
            ++row;
        }
        if (size != 0 && std::memcmp(leftRow, rightRow, size) != 0)
            return false;
        if (endsWithinAByte && !SamplesAgree(leftRow, rightRow, wholeBytes * 8 / bits, samples, bits))
            return false;
    }
    return true;
}

} // namespace HarrowSupport::Comparators
