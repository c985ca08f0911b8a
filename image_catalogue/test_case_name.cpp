#include "image_catalogue/test_case_name.h"

#include <array>

namespace HarrowSupport::GenerateImage
{

namespace
{

constexpr std::array<const char*, 20> ColorSpaceLabels = {
    "-DeviceGray",    "-CalGray_Normal",  "-CalGray_Weird", "-DeviceRGB",     "-CalRGB_Normal",
    "-CalRGB_Weird",  "-Lab_Normal",      "-Lab_Weird",     "-ICCBased_Gray", "-ICCBased_RGB",
    "-ICCBased_Lab",  "-ICCBased_CMYK",   "-DeviceN_CMYK",  "-DeviceN_MYC",   "-DeviceN_6Component",
    "-DeviceN_Black", "-DeviceN_Magenta", "-DeviceN_1Spot", "-DeviceN_None",  "-DeviceN_All",
};

std::string GetLabel(ColorSpaceKind kind)
{
    const auto index = static_cast<std::size_t>(kind);
    return index < ColorSpaceLabels.size() ? ColorSpaceLabels[index] : "";
}

std::string GetLabel(DecodeKind kind)
{
    switch (kind) {
    case DecodeKind::DecodeIdentity:
        return "DecodeIdentity";
    case DecodeKind::DecodeInvert:
        return "DecodeInvert";
    case DecodeKind::DecodeWeird:
        return "DecodeWeird";
    }
    return {};
}

std::string BuildMaskName(const TestCase& testCase)
{
    const auto depth = [&testCase] { return std::to_string(testCase.maskBitsPerComponent.value()); };
    const auto decode = [&testCase] { return GetLabel(testCase.maskDecode.value()) + ")"; };
    switch (testCase.maskKind.value()) {
    case TestMaskKind::None:
        return {};
    case TestMaskKind::SoftMask:
        return "-SoftMask(bps" + depth() + "-" + decode();
    case TestMaskKind::SoftMaskViaTB:
        return "-SoftMaskViaTB(" + decode();
    case TestMaskKind::MaskedImage:
        return "-MaskedImage(bps" + depth() + "-" + decode();
    }
    return {};
}

} // namespace

std::string BuildTestCaseName(const TestCase& testCase)
{
    std::string name = testCase.isImageMask ? "ImageMask" : "Image";
    if (testCase.colorSpace)
        name += GetLabel(*testCase.colorSpace);
    if (testCase.isIndexed && *testCase.isIndexed)
        name += "-Indexed";
    name += "-" + GetLabel(testCase.decode);
    name += "-bps" + std::to_string(testCase.bitsPerComponent);
    if (testCase.maskKind)
        name += BuildMaskName(testCase);
    return name;
}

} // namespace HarrowSupport::GenerateImage
