#pragma once

#include <memory>
#include <string>

#include "orv_font/font_program.h"

namespace OrvPdf
{

/// The font program of those bytes; the same object for equal bytes as long as somebody uses it, since a
/// document, its saved form and each page of many files have the same programs again.
/// @throws std::runtime_error that says why if the bytes are no font program that can be used
std::shared_ptr<const OrvFont::Detail::FontProgram> ShareProgram(std::string bytes);

} // namespace OrvPdf
