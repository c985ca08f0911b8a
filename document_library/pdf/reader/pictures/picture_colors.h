#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <orv_color/color_space.h>
#include <orv_img/color_space.h>
#include <orv_img/color_table.h>

namespace OrvPdf
{

/// What the samples of a picture stand for, as the model has it.
struct PictureColors
{
    OrvImg::ColorSpace space;
    std::vector<OrvImg::ChannelInfo> channels;
    /// Null if the picture is not indexed.
    std::shared_ptr<const OrvImg::ColorTable> table;
    /// In one pixel of the picture's data.
    std::size_t samples = 0;
};

/// The colours of a picture in a colour space of a file. `decode` is the `Decode` of the dictionary (ISO
/// 32000-1, 8.9.5.2), empty for the default; one of another length is left out and told in `problems`, like a
/// profile that can't be read, for which the device space of as many components stands. Throws
/// std::invalid_argument for a space that no picture can have.
PictureColors MakePictureColors(const OrvColor::ColorSpace& native, const std::vector<double>& decode,
                                std::size_t bits, std::vector<std::string>& problems);

/// Those of a stencil.
PictureColors MakeStencilColors(const std::vector<double>& decode, std::vector<std::string>& problems);

} // namespace OrvPdf
