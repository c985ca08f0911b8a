// The list is built by four groups of nested loops, the outermost property first, and named in the end. Its
// order is part of what callers rely on: positions are written down in tests, so that no loop may be turned
// round.

#include <harrow_support/generate_image.h>

#include <array>
#include <ostream>
#include <utility>

#include "image_catalogue/test_case_name.h"

namespace HarrowSupport::GenerateImage
{

namespace
{

using Kind = ColorSpaceKind;

constexpr std::array<DecodeKind, 3> AllDecodes = {DecodeKind::DecodeIdentity, DecodeKind::DecodeInvert,
                                                  DecodeKind::DecodeWeird};
// A stencil paints or does not: a range between the two means nothing.
constexpr std::array<DecodeKind, 2> StencilDecodes = {DecodeKind::DecodeIdentity, DecodeKind::DecodeInvert};

TestCase MakeImageCase(Kind colorSpace, bool isIndexed, DecodeKind decode, std::size_t bits)
{
    TestCase result;
    result.colorSpace = colorSpace;
    result.isIndexed = isIndexed;
    result.decode = decode;
    result.bitsPerComponent = bits;
    result.maskKind = TestMaskKind::None;
    return result;
}

void AddPlainImages(std::vector<TestCase>& cases)
{
    for (const Kind colorSpace :
         {Kind::DeviceGray,    Kind::CalGray_Normal,  Kind::CalGray_Weird,      Kind::DeviceRGB,
          Kind::CalRGB_Normal, Kind::CalRGB_Weird,    Kind::Lab_Normal,         Kind::Lab_Weird,
          Kind::ICCBased_Gray, Kind::ICCBased_RGB,    Kind::ICCBased_Lab,       Kind::ICCBased_CMYK,
          Kind::DeviceN_CMYK,  Kind::DeviceN_MYC,     Kind::DeviceN_6Component, Kind::DeviceN_None,
          Kind::DeviceN_Black, Kind::DeviceN_Magenta, Kind::DeviceN_1Spot,      Kind::DeviceN_All}) {
        for (const bool isIndexed : {false, true}) {
            // A colour table has no place for positions of 16 bits.
            const std::vector<std::size_t> depths =
                isIndexed ? std::vector<std::size_t>{1, 2, 4, 8} : std::vector<std::size_t>{1, 2, 4, 8, 16};
            for (const DecodeKind decode : AllDecodes) {
                for (const std::size_t bits : depths)
                    cases.push_back(MakeImageCase(colorSpace, isIndexed, decode, bits));
            }
        }
    }
}

TestCase AddMask(const TestCase& image, TestMaskKind maskKind, DecodeKind maskDecode, std::size_t maskBits)
{
    TestCase masked = image;
    masked.maskKind = maskKind;
    masked.maskDecode = maskDecode;
    masked.maskBitsPerComponent = maskBits;
    return masked;
}

void AddMasksOf(std::vector<TestCase>& cases, const TestCase& image, TestMaskKind maskKind)
{
    if (maskKind == TestMaskKind::MaskedImage) {
        for (const DecodeKind maskDecode : StencilDecodes)
            cases.push_back(AddMask(image, maskKind, maskDecode, 1));
        return;
    }
    for (const DecodeKind maskDecode : AllDecodes) {
        for (const std::size_t maskBits : {1, 4, 8, 16})
            cases.push_back(AddMask(image, maskKind, maskDecode, maskBits));
    }
}

void AddMaskedImages(std::vector<TestCase>& cases)
{
    for (const TestMaskKind maskKind : {TestMaskKind::SoftMask, TestMaskKind::MaskedImage}) {
        for (const Kind colorSpace :
             {Kind::DeviceGray, Kind::DeviceRGB, Kind::DeviceN_6Component, Kind::DeviceN_All}) {
            for (const bool isIndexed : {false, true}) {
                for (const DecodeKind decode : AllDecodes) {
                    for (const std::size_t bits : {1, 8})
                        AddMasksOf(cases, MakeImageCase(colorSpace, isIndexed, decode, bits), maskKind);
                }
            }
        }
    }
}

// Indexed images are missing here: the one channel of their samples leaves no place for an alpha.
void AddImagesWithAlpha(std::vector<TestCase>& cases)
{
    for (const Kind colorSpace : {Kind::DeviceGray, Kind::DeviceRGB, Kind::DeviceN_6Component,
                                  Kind::DeviceN_Magenta, Kind::DeviceN_1Spot, Kind::DeviceN_All}) {
        for (const DecodeKind decode : AllDecodes) {
            for (const std::size_t bits : {1, 2, 8}) {
                for (const DecodeKind maskDecode : AllDecodes) {
                    TestCase masked = MakeImageCase(colorSpace, false, decode, bits);
                    masked.maskKind = TestMaskKind::SoftMaskViaTB;
                    masked.maskDecode = maskDecode;
                    cases.push_back(std::move(masked));
                }
            }
        }
    }
}

void AddImageMasks(std::vector<TestCase>& cases)
{
    for (const DecodeKind decode : StencilDecodes) {
        TestCase mask;
        mask.isImageMask = true;
        mask.decode = decode;
        cases.push_back(std::move(mask));
    }
}

std::vector<TestCase> MakeTestCases()
{
    std::vector<TestCase> cases;
    AddPlainImages(cases);
    AddMaskedImages(cases);
    AddImagesWithAlpha(cases);
    AddImageMasks(cases);
    for (TestCase& testCase : cases)
        testCase.name = BuildTestCaseName(testCase);
    return cases;
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const TestCase& testCase)
{
    return stream << testCase.name;
}

const std::vector<TestCase>& GetTestCases()
{
    static const std::vector<TestCase> cases = MakeTestCases();
    return cases;
}

} // namespace HarrowSupport::GenerateImage
