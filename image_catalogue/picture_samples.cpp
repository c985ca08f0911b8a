#include "image_catalogue/picture_samples.h"

namespace HarrowSupport::GenerateImage
{

bool IsIndexedImage(const TestCase& testCase)
{
    return !testCase.isImageMask && testCase.isIndexed && *testCase.isIndexed;
}

std::size_t GetWidth(const TestCase& testCase)
{
    return std::size_t{1} << testCase.bitsPerComponent;
}

} // namespace HarrowSupport::GenerateImage
