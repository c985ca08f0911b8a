#pragma once

#include <harrow_support/generate_image.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include <orv_img/picture_buffer.h>

namespace HarrowSupport::GenerateImage
{

/// The case of that name.
inline const TestCase& CaseNamed(const std::string& name)
{
    for (const TestCase& testCase : GetTestCases()) {
        if (testCase.name == name)
            return testCase;
    }
    throw std::out_of_range("there is no case " + name);
}

/// The samples of one channel in a row, from left to right.
inline std::vector<std::size_t> SamplesOf(const OrvImg::PictureBuffer& buffer, std::size_t row,
                                          std::size_t channel)
{
    std::vector<std::size_t> samples;
    for (std::size_t x = 0; x < buffer.width; ++x) {
        std::size_t sample = 0;
        const std::size_t firstBit = (x * buffer.channels + channel) * buffer.bitsPerChannel;
        for (std::size_t bit = firstBit; bit < firstBit + buffer.bitsPerChannel; ++bit)
            sample = 2 * sample + (buffer.GetRowPtr(row)[bit / 8] >> (7 - bit % 8) & 1);
        samples.push_back(sample);
    }
    return samples;
}

/// 0, 1, 2 and so on.
inline std::vector<std::size_t> Rising(std::size_t width)
{
    std::vector<std::size_t> samples;
    while (samples.size() < width)
        samples.push_back(samples.size());
    return samples;
}

/// The same from right to left.
inline std::vector<std::size_t> Falling(std::size_t width)
{
    std::vector<std::size_t> samples = Rising(width);
    std::reverse(samples.begin(), samples.end());
    return samples;
}

inline std::vector<std::size_t> Constant(std::size_t width, std::size_t value)
{
    return std::vector<std::size_t>(width, value);
}

/// The bytes of a row.
inline std::vector<unsigned char> BytesOf(const OrvImg::PictureBuffer& buffer, std::size_t row)
{
    return {buffer.GetRowPtr(row), buffer.GetRowPtr(row) + buffer.GetBytesPerRow()};
}

} // namespace HarrowSupport::GenerateImage
