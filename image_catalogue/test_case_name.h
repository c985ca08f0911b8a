#pragma once

#include <harrow_support/generate_image.h>

#include <string>

namespace HarrowSupport::GenerateImage
{

/// What a case is like in words, such as "Image-DeviceRGB-Indexed-DecodeInvert-bps8". Values that no
/// enumerator stands for add nothing.
std::string BuildTestCaseName(const TestCase& testCase);

} // namespace HarrowSupport::GenerateImage
