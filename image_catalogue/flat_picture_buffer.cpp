#include <cstring>

#include "image_catalogue/channels.h"
#include "image_catalogue/color_table.h"
#include "image_catalogue/full_base.h"
#include "image_catalogue/picture_samples.h"

namespace HarrowSupport::GenerateImage
{

namespace
{

unsigned char GetRowByte(const TestCase& testCase, std::size_t row, std::size_t height)
{
    const auto last = static_cast<double>(height - 1);
    const auto level = static_cast<unsigned char>((last + static_cast<double>(row)) * 0.5 / last * 255.0);
    if (IsIndexedImage(testCase))
        return level;
    const unsigned char byte = IsFullBase(testCase) ? 0 : level;
    return static_cast<unsigned char>(testCase.decode == DecodeKind::DecodeInvert ? ~byte : byte);
}

} // namespace

PictureSamples MakeFlatPictureBuffer(const TestCase& testCase)
{
    const bool isIndexed = IsIndexedImage(testCase);
    const std::size_t channels = isIndexed ? 1 : ChannelCount(testCase.colorSpace.value(), false);
    const std::size_t height = 2 * channels;
    OrvImg::PictureBuffer::Factory factory(GetWidth(testCase), height, channels, testCase.bitsPerComponent);
    for (std::size_t y = 0; y < height; ++y)
        std::memset(factory.GetRowPtr(y), GetRowByte(testCase, y, height), factory.GetBytesPerRow());
    PictureSamples samples{factory.GetResult(), nullptr};
    if (isIndexed)
        samples.table = MakeColorTable(testCase, IsFullBase(testCase));
    return samples;
}

} // namespace HarrowSupport::GenerateImage
