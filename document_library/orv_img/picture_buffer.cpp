#include <orv_img/picture_buffer.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvImg
{

namespace
{

// Room for adding a few bytes to any size.
constexpr std::size_t LargestSize = std::numeric_limits<std::size_t>::max() / 16;

std::size_t Multiply(std::size_t left, std::size_t right)
{
    if (right != 0 && left > LargestSize / right)
        throw std::length_error("A picture of that size fits into no memory.");
    return left * right;
}

} // namespace

std::size_t PictureBuffer::BytesOfRow(std::size_t width, std::size_t channels, std::size_t bits)
{
    if (bits != 1 && bits != 2 && bits != 4 && bits != 8 && bits != 16)
        throw std::invalid_argument("Samples have 1, 2, 4, 8 or 16 bits, not " + std::to_string(bits) + ".");
    return (Multiply(Multiply(width, channels), bits) + 7) / 8;
}

PictureBuffer::PictureBuffer(std::size_t givenWidth, std::size_t givenHeight, std::size_t givenChannels,
                             std::size_t bits)
    : height(givenHeight),
      width(givenWidth),
      channels(givenChannels),
      bitsPerChannel(bits),
      bytesPerRow(BytesOfRow(givenWidth, givenChannels, bits))
{}

PictureBuffer::~PictureBuffer() = default;

std::unique_ptr<const PictureBuffer> PictureBuffer::Adopt(std::size_t width, std::size_t height,
                                                          std::size_t channels, std::size_t bits,
                                                          std::shared_ptr<const unsigned char> rows)
{
    std::unique_ptr<PictureBuffer> buffer(new PictureBuffer(width, height, channels, bits));
    buffer->rows = std::move(rows);
    return buffer;
}

PictureBuffer::Factory::Factory(std::size_t width, std::size_t height, std::size_t channels, std::size_t bits)
    : buffer(new PictureBuffer(width, height, channels, bits))
{
    const std::size_t size = Multiply(buffer->bytesPerRow, height);
    rows = new unsigned char[size]();
    buffer->rows = std::shared_ptr<const unsigned char>(rows, std::default_delete<const unsigned char[]>());
}

PictureBuffer::Factory::~Factory() = default;

std::size_t PictureBuffer::Factory::GetBytesPerRow() const
{
    if (!buffer)
        throw std::logic_error("The buffer is finished.");
    return buffer->bytesPerRow;
}

std::unique_ptr<const PictureBuffer> PictureBuffer::Factory::GetResult()
{
    if (!buffer)
        throw std::logic_error("The buffer is finished.");
    rows = nullptr;
    return std::move(buffer);
}

} // namespace OrvImg
