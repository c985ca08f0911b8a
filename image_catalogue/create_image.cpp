#include <harrow_support/factories.h>
#include <harrow_support/generate_image.h>

#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_img/painted_picture.h>

#include "image_catalogue/picture_data.h"

namespace HarrowSupport::GenerateImage
{

namespace
{

using PictureFactory = OrvImg::PaintedPicture::Factory;

// What masks are made of is a case of its own, which the catalogue does not list.
TestCase MakeMaskCase(const TestCase& testCase)
{
    TestCase mask;
    mask.decode = testCase.maskDecode.value();
    mask.bitsPerComponent = testCase.maskBitsPerComponent.value();
    mask.maskKind = TestMaskKind::None;
    return mask;
}

void SetSoftMask(PictureFactory& factory, const OrvDoc::Document& document, const TestCase& testCase)
{
    TestCase maskCase = MakeMaskCase(testCase);
    maskCase.colorSpace = ColorSpaceKind::DeviceN_Black;
    maskCase.isIndexed = false;
    const auto mask = MakePictureData(document, maskCase, false);
    factory.SetMaskKind(OrvImg::MaskKind::SoftMask)
        .SetMaskData(mask)
        .SetSoftMaskMapping(mask->GetDefaultChannelMapping(false).entries.front().value);
}

void SetOwnAlphaAsMask(PictureFactory& factory, const std::shared_ptr<const OrvImg::PictureData>& picture)
{
    factory.SetMaskKind(OrvImg::MaskKind::SoftMask)
        .SetMaskData(picture)
        .SetSoftMaskMapping(picture->GetDefaultSoftMaskMapping());
}

void SetStencil(PictureFactory& factory, const OrvDoc::Document& document, const TestCase& testCase)
{
    TestCase maskCase = MakeMaskCase(testCase);
    maskCase.isImageMask = true;
    factory.SetMaskKind(OrvImg::MaskKind::StencilMask)
        .SetMaskData(MakePictureData(document, maskCase, false));
}

} // namespace

std::unique_ptr<OrvDoc::Image> CreateImage(const OrvDoc::Document& document, const TestCase& testCase)
{
    const TestMaskKind maskKind = testCase.maskKind.value_or(TestMaskKind::None);
    const bool isFlat = maskKind == TestMaskKind::SoftMask || maskKind == TestMaskKind::MaskedImage;
    const auto picture = MakePictureData(document, testCase, isFlat);
    PictureFactory factory(document, picture, false);
    factory.SetRenderingIntent(OrvColor::RenderingIntent::Saturation);
    if (maskKind == TestMaskKind::SoftMask)
        SetSoftMask(factory, document, testCase);
    else if (maskKind == TestMaskKind::SoftMaskViaTB)
        SetOwnAlphaAsMask(factory, picture);
    else if (maskKind == TestMaskKind::MaskedImage)
        SetStencil(factory, document, testCase);
    return std::make_unique<OrvDoc::Image>(factory.Get());
}

std::unique_ptr<OrvDoc::ImageMask> CreateImageMask(const OrvDoc::Document& document, const TestCase& testCase)
{
    auto mask = std::make_unique<OrvDoc::ImageMask>(MakePictureData(document, testCase, false));
    mask->SetFillPaint(CreateFlatPaint("Black"));
    return mask;
}

} // namespace HarrowSupport::GenerateImage
