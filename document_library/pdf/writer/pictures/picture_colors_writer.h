#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <orv_img/picture_source.h>
#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

class SeparationSpaces;

/// How many of a picture's channels, the leading ones, its colour space is for. Those behind stand beside it.
std::size_t CountColorChannels(const OrvImg::PictureSource& source);

/// Why no colour space of PDF can be made for a picture, in the plural; null if one can.
const char* FindColorProblem(const OrvImg::PictureSource& source);

/// The colour space of a picture's samples (ISO 32000-1, 8.6), its table included.
OrvSys::PdfObject MakePictureSpace(const OrvImg::PictureSource& source, SeparationSpaces& separations);

/// The `Decode` of a picture; null where it is the default.
OrvSys::PdfObject MakePictureDecode(const OrvImg::PictureSource& source);

/// The separations that the colour space of a picture names.
std::vector<std::string> ListSeparations(const OrvImg::PictureSource& source);

/// Two numbers.
OrvSys::PdfObject MakeRange(const std::array<double, 2>& range);

} // namespace OrvPdf
