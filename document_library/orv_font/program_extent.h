#pragma once

#include <string_view>

namespace OrvFont::Detail
{

/// The part of a font program's bytes that FreeType reads, which wants the program at their very start and an
/// OpenType program whole:
/// - without white space before it, which some producers leave before a Type 1 program;
/// - without an OpenType wrapping that lacks the table `head`, as a PDF may have it around a CFF program
///   (ISO 32000-1, 9.9): the CFF program alone.
std::string_view FindProgramExtent(std::string_view bytes);

} // namespace OrvFont::Detail
