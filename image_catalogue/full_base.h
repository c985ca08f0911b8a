#pragma once

#include <harrow_support/generate_image.h>

namespace HarrowSupport::GenerateImage
{

/// Whether the ramps of a picture run down from the highest sample, so that what does not run is light:
/// images in the kinds from CalGray_Normal to ICCBased_Lab. DeviceGray and ICCBased_CMYK run up like
/// separations.
bool IsFullBase(const TestCase& testCase);

} // namespace HarrowSupport::GenerateImage
