#include "image_catalogue/full_base.h"

namespace HarrowSupport::GenerateImage
{

bool IsFullBase(const TestCase& testCase)
{
    return !testCase.isImageMask && testCase.colorSpace.value() >= ColorSpaceKind::CalGray_Normal &&
           *testCase.colorSpace <= ColorSpaceKind::ICCBased_Lab;
}

} // namespace HarrowSupport::GenerateImage
