#pragma once

#include <string>
#include <string_view>

namespace OrvPdf
{

/// A trailer for a file that has lost its own, to be put behind its bytes: it refers to the last catalogue
/// that stands in the file as an object of its own. Empty if there is none, or if the file speaks of
/// encryption, since what was encrypted can't be read without the lost trailer.
std::string MakeTrailer(std::string_view bytes);

} // namespace OrvPdf
