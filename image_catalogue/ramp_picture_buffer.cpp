#include <cstdint>

#include "image_catalogue/channels.h"
#include "image_catalogue/color_table.h"
#include "image_catalogue/full_base.h"
#include "image_catalogue/picture_samples.h"
#include "image_catalogue/put_sample.h"

namespace HarrowSupport::GenerateImage
{

namespace
{

using Factory = OrvImg::PictureBuffer::Factory;

std::size_t GetRampChannelCount(const TestCase& testCase)
{
    if (testCase.isImageMask)
        return 1;
    return ChannelCount(testCase.colorSpace.value(), testCase.maskKind == TestMaskKind::SoftMaskViaTB);
}

PictureSamples MakeIndexedRamp(const TestCase& testCase)
{
    constexpr std::size_t height = 3;
    const std::size_t width = GetWidth(testCase);
    Factory factory(width, height, 1, testCase.bitsPerComponent);
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t x = 0; x < width; ++x)
            PutSample(factory.GetRowPtr(y), testCase.bitsPerComponent, x, x);
    }
    return {factory.GetResult(), MakeColorTable(testCase, IsFullBase(testCase))};
}

bool IsRamped(std::size_t row, std::size_t channel, std::size_t channels)
{
    if (row < 2 * channels)
        return channel == row / 2;
    const std::size_t first = row - 2 * channels;
    return channel == first || channel == (first + 1) % channels;
}

} // namespace

PictureSamples MakeRampPictureBuffer(const TestCase& testCase)
{
    if (IsIndexedImage(testCase))
        return MakeIndexedRamp(testCase);
    const std::size_t channels = GetRampChannelCount(testCase);
    const std::size_t height = 3 * channels;
    const std::size_t width = GetWidth(testCase);
    const std::size_t bits = testCase.bitsPerComponent;
    const std::uint64_t highest = width - 1;
    const bool isTurned = IsFullBase(testCase) != (testCase.decode == DecodeKind::DecodeInvert);
    Factory factory(width, height, channels, bits);
    for (std::size_t y = 0; y < height; ++y) {
        std::uint8_t* const row = factory.GetRowPtr(y);
        for (std::size_t channel = 0; channel < channels; ++channel) {
            const bool isRamped = IsRamped(y, channel, channels);
            for (std::size_t x = 0; x < width; ++x) {
                const std::uint64_t raw = isRamped ? x : 0;
                PutSample(row, bits, x * channels + channel, isTurned ? highest - raw : raw);
            }
        }
    }
    return {factory.GetResult(), nullptr};
}

} // namespace HarrowSupport::GenerateImage
