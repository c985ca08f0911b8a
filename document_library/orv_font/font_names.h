#pragma once

#include <string>

#include <orv_font/font.h>

namespace OrvFont::Detail
{

/// The PostScript name without the tag of a subset, six capital letters and a plus sign (ISO 32000-1, 9.6.4).
std::string WithoutSubsetTag(const std::string& name);

/// What a PostScript name tells on its own: `Foo-BoldItalic` is the family `Foo` in the style `Bold Italic`,
/// as are `Foo,BoldItalic` and `ABCDEF+Foo-BoldItalic`. A name without a style is in the style `Regular`.
Font::Names NamesFromPostScriptName(const std::string& name);

} // namespace OrvFont::Detail
