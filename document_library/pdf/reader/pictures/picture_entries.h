#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <orv_color/rendering_intent.h>
#include <orv_img/picture_link.h>
#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

/// What an image dictionary says of the picture itself (ISO 32000-1, Table 89), keys and names in full.
struct PictureEntries
{
    std::size_t width = 0;
    std::size_t height = 0;
    /// As the dictionary has it, whether samples can have that depth or not; 0 if it is no positive number.
    std::size_t bits = 0;
    bool isStencil = false;
    /// Empty if it is missing.
    std::vector<double> decode;
    boost::optional<OrvColor::RenderingIntent> intent;
    std::vector<std::array<std::size_t, 2>> colorKey;
    int softMaskInData = 0;
    std::array<double, 2> dpi = {0.0, 0.0};
    boost::optional<OrvImg::PictureLink> link;
};

/// Reads a dictionary whose values have no references. Throws std::invalid_argument, in words that can follow
/// "object 12 0: ", if width or height is missing. Anything else that is wrong is left out and told in
/// `problems`.
PictureEntries ReadPictureEntries(const OrvSys::PdfObject& dictionary, std::vector<std::string>& problems);

/// Numbers of an array; empty, with a problem, if one of them is none, and empty if there is no array.
std::vector<double> ReadNumbers(const OrvSys::PdfObject& dictionary, const char* key,
                                std::vector<std::string>& problems);

} // namespace OrvPdf
