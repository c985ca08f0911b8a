#pragma once

#include "support/picture_plan.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_img/buffered_picture_source.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>

/// Pictures in a line each.
namespace HarrowSupport::Testing
{

using PicturePointer = std::shared_ptr<const OrvImg::PictureData>;
using PaintedPointer = std::shared_ptr<const OrvImg::PaintedPicture>;

/// What a picture is made of. The bytes are its rows, packed, one behind the other.
struct MadePicture
{
    std::size_t width = 1;
    std::size_t height = 1;
    std::size_t bits = 8;
    std::string bytes;
    OrvImg::ColorSpace space;
    std::vector<OrvImg::ChannelInfo> channels;
    std::shared_ptr<const OrvImg::ColorTable> table;
    double dpi = 0.0;
    std::shared_ptr<const Plexa::Compound> clippingPath;
};

/// Throws std::invalid_argument if the bytes are not those of the rows.
PicturePointer MakePicture(const OrvDoc::Document& document, const MadePicture& made);

/// A picture of eight bits in a space that tells its channels itself, one pixel high.
MadePicture InSpace(const OrvImg::ColorSpace& space, const std::string& bytes);

/// A picture of eight bits of such separations, one pixel high.
MadePicture OfSeparations(const std::vector<std::string>& names, const std::string& bytes);

/// A stencil of eight pixels in a row.
MadePicture Stencil(char bits, const std::array<double, 2>& decode = {0.0, 1.0});

PaintedPointer Painted(const OrvDoc::Document& document, const PicturePointer& picture);

/// An image of so many points.
std::unique_ptr<OrvDoc::Image> ImageOf(const PaintedPointer& picture, double width = 10.0,
                                       double height = 10.0);

} // namespace HarrowSupport::Testing
