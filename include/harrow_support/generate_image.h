#pragma once

#include <harrow_support/export.h>

#include <boost/optional.hpp>

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace OrvDoc
{
class Document;
class Image;
class ImageMask;
} // namespace OrvDoc

/// A fixed catalogue of pictures: it walks the combinations of colour space, indexing, decode range, bit
/// depth and mask that an image can have. Nothing in it is random and nothing is read from a file, so that
/// the same case gives the same bytes on every run.
namespace HarrowSupport::GenerateImage
{

enum class ColorSpaceKind : std::uint32_t
{
    DeviceGray = 0,
    CalGray_Normal = 1,
    CalGray_Weird = 2,
    DeviceRGB = 3,
    CalRGB_Normal = 4,
    CalRGB_Weird = 5,
    Lab_Normal = 6,
    Lab_Weird = 7,
    ICCBased_Gray = 8,
    ICCBased_RGB = 9,
    ICCBased_Lab = 10,
    ICCBased_CMYK = 11,
    DeviceN_CMYK = 12,
    DeviceN_MYC = 13,
    DeviceN_6Component = 14,
    DeviceN_Black = 15,
    DeviceN_Magenta = 16,
    DeviceN_1Spot = 17,
    DeviceN_None = 18,
    DeviceN_All = 19
};

enum class DecodeKind : std::uint32_t
{
    DecodeIdentity = 0, ///< From 0 to 1.
    DecodeInvert = 1,   ///< From 1 to 0.
    DecodeWeird = 2     ///< From 0.1 to 0.6.
};

enum class TestMaskKind : std::uint32_t
{
    None = 0,
    SoftMask = 1,      ///< A soft mask in a picture of its own.
    SoftMaskViaTB = 2, ///< A soft mask in an alpha channel of the picture itself.
    MaskedImage = 3    ///< A stencil mask in a picture of its own.
};

/// What one picture of the catalogue is like.
struct TestCase
{
    /// To be made by CreateImageMask; otherwise by CreateImage.
    bool isImageMask = false;
    /// Empty for image masks.
    boost::optional<ColorSpaceKind> colorSpace;
    /// Set for every image, empty for image masks.
    boost::optional<bool> isIndexed;
    DecodeKind decode = DecodeKind::DecodeIdentity;
    /// 1, 2, 4, 8 or 16.
    std::size_t bitsPerComponent = 1;
    /// Set for every image, empty for image masks.
    boost::optional<TestMaskKind> maskKind;
    /// Set where the image has a mask.
    boost::optional<DecodeKind> maskDecode;
    /// Set where the mask is a picture of its own.
    boost::optional<std::size_t> maskBitsPerComponent;
    /// Says all of the above; no two cases share one.
    std::string name;
};

/// Writes the name and nothing else.
HARROW_EXPORT std::ostream& operator<<(std::ostream& stream, const TestCase& testCase);

/// All cases, in an order that never changes. Made at the first call and kept; any number of threads may ask.
HARROW_EXPORT const std::vector<TestCase>& GetTestCases();

/// The image of a case that is no image mask, with a width of 2 to the power of its depth. What the case asks
/// for is not checked. Passes on what the document library throws.
HARROW_EXPORT std::unique_ptr<OrvDoc::Image> CreateImage(const OrvDoc::Document& document,
                                                         const TestCase& testCase);

/// The same for a case that is an image mask; it is filled with black.
HARROW_EXPORT std::unique_ptr<OrvDoc::ImageMask> CreateImageMask(const OrvDoc::Document& document,
                                                                 const TestCase& testCase);

} // namespace HarrowSupport::GenerateImage
