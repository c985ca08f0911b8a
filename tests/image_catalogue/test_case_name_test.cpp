#include "image_catalogue/test_case_name.h"

#include <gtest/gtest.h>

namespace HarrowSupport::GenerateImage
{
namespace
{

TestCase PlainCase()
{
    TestCase testCase;
    testCase.colorSpace = ColorSpaceKind::Lab_Weird;
    testCase.isIndexed = false;
    testCase.decode = DecodeKind::DecodeWeird;
    testCase.bitsPerComponent = 4;
    testCase.maskKind = TestMaskKind::None;
    return testCase;
}

TEST(NameOfATestCase, LeavesOutAMaskThatIsNotThere)
{
    TestCase testCase = PlainCase();
    testCase.maskDecode = DecodeKind::DecodeInvert;
    testCase.maskBitsPerComponent = 8;
    EXPECT_EQ(BuildTestCaseName(testCase), "Image-Lab_Weird-DecodeWeird-bps4");
}

TEST(NameOfATestCase, LeavesOutAMaskOfAnUnknownKind)
{
    TestCase testCase = PlainCase();
    testCase.maskKind = static_cast<TestMaskKind>(4);
    EXPECT_EQ(BuildTestCaseName(testCase), "Image-Lab_Weird-DecodeWeird-bps4");
}

TEST(NameOfATestCase, LeavesOutAnUnknownColorSpace)
{
    TestCase testCase = PlainCase();
    testCase.colorSpace = static_cast<ColorSpaceKind>(20);
    EXPECT_EQ(BuildTestCaseName(testCase), "Image-DecodeWeird-bps4");
}

TEST(NameOfATestCase, LeavesOutAnUnknownDecode)
{
    TestCase testCase = PlainCase();
    testCase.decode = static_cast<DecodeKind>(3);
    EXPECT_EQ(BuildTestCaseName(testCase), "Image-Lab_Weird--bps4");
}

TEST(NameOfATestCase, TellsTheMaskBehindTheDepth)
{
    TestCase testCase = PlainCase();
    testCase.isIndexed = true;
    testCase.maskKind = TestMaskKind::MaskedImage;
    testCase.maskDecode = DecodeKind::DecodeInvert;
    testCase.maskBitsPerComponent = 1;
    EXPECT_EQ(BuildTestCaseName(testCase),
              "Image-Lab_Weird-Indexed-DecodeWeird-bps4-MaskedImage(bps1-DecodeInvert)");
}

TEST(NameOfATestCase, ShowsWhatAnImageMaskCaseHasBesides)
{
    TestCase testCase = PlainCase();
    testCase.isImageMask = true;
    EXPECT_EQ(BuildTestCaseName(testCase), "ImageMask-Lab_Weird-DecodeWeird-bps4");
}

} // namespace
} // namespace HarrowSupport::GenerateImage
