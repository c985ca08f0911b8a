#pragma once

#include "support/picture_plan.h"

#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>

#include <memory>
#include <random>
#include <vector>

namespace HarrowSupport::Testing
{

/// Random pictures of one document, of up to nine by five pixels: in every colour space and depth, indexed or
/// not, with any decode ranges, extra channels, links and masks. Some are shared: the painted picture, its
/// picture alone, or the mask.
class RandomPictures
{
public:
    explicit RandomPictures(const OrvDoc::Document& givenDocument) : document(givenDocument) {}

    /// An image with any matrix, blending and halftones.
    std::unique_ptr<OrvDoc::Image> NextImage(std::mt19937& random);

    /// A stencil with any matrix, blending and halftones, without paint.
    std::unique_ptr<OrvDoc::ImageMask> NextImageMask(std::mt19937& random);

private:
    PaintedPointer NextPainted(std::mt19937& random);
    PicturePointer NextPicture(std::mt19937& random);
    /// A picture of opacities, for some with the colour that `picture` was blended with.
    PicturePointer NextSoftMask(const OrvImg::PictureData& picture, std::mt19937& random);
    PicturePointer NextStencil(std::mt19937& random);
    void SetRandomMask(OrvImg::PaintedPicture::Factory& factory, const PicturePointer& picture,
                       std::mt19937& random);

    const OrvDoc::Document& document;
    std::vector<PaintedPointer> painted;
    std::vector<PicturePointer> pictures;
    std::vector<PicturePointer> softMasks;
    std::vector<PicturePointer> stencils;
};

} // namespace HarrowSupport::Testing
