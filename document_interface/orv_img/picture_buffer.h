#pragma once

#include <cstddef>
#include <memory>

#include <orv_sys/export.h>

namespace OrvImg
{

/// Rows of packed samples. A row holds width times channels samples, one pixel after the other, packed from
/// the highest bit of each byte, and begins at a byte of its own. Samples of 16 bits have their high byte
/// first (ISO 32000-1, 8.9.5.2). Immutable once made; any number of threads may read one.
class ORV_EXPORT PictureBuffer
{
public:
    class Factory;

    std::size_t height;         ///< Rows.
    std::size_t width;          ///< Pixels in a row.
    std::size_t channels;       ///< Samples in a pixel.
    std::size_t bitsPerChannel; ///< 1, 2, 4, 8 or 16.

    ~PictureBuffer();
    PictureBuffer(const PictureBuffer&) = delete;
    PictureBuffer& operator=(const PictureBuffer&) = delete;

    /// Start of a row below `height`. Good as long as the buffer.
    const unsigned char* GetRowPtr(std::size_t row) const { return rows.get() + row * bytesPerRow; }

    // For makers of documents.

    /// Bytes from one row to the next: those that hold a sample, and no more.
    std::size_t GetBytesPerRow() const { return bytesPerRow; }

    /// A buffer over rows that are there already, GetBytesPerRow() apart, which nobody changes any more.
    /// Throws as the factory does.
    static std::unique_ptr<const PictureBuffer> Adopt(std::size_t width, std::size_t height,
                                                      std::size_t channels, std::size_t bits,
                                                      std::shared_ptr<const unsigned char> rows);

    /// Bytes of a row of that shape. Throws std::invalid_argument for other depths than those above and
    /// std::length_error for a row that no memory can hold.
    static std::size_t BytesOfRow(std::size_t width, std::size_t channels, std::size_t bits);

private:
    PictureBuffer(std::size_t givenWidth, std::size_t givenHeight, std::size_t givenChannels,
                  std::size_t bits);

    std::size_t bytesPerRow;
    std::shared_ptr<const unsigned char> rows;
};

/// Makes one buffer.
class ORV_EXPORT PictureBuffer::Factory
{
public:
    /// All samples are zero. Throws std::invalid_argument for other depths than 1, 2, 4, 8 and 16 and
    /// std::length_error for sizes that no memory can hold.
    Factory(std::size_t width, std::size_t height, std::size_t channels, std::size_t bits);
    ~Factory();
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    /// Writable start of a row, until GetResult is called.
    unsigned char* GetRowPtr(std::size_t row) { return rows + row * GetBytesPerRow(); }

    /// Bytes that may be written at GetRowPtr.
    std::size_t GetBytesPerRow() const;

    /// The finished buffer. May be called once; throws std::logic_error after that.
    std::unique_ptr<const PictureBuffer> GetResult();

private:
    std::unique_ptr<PictureBuffer> buffer;
    unsigned char* rows = nullptr;
};

} // namespace OrvImg
