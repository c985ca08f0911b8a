#pragma once

#include <string>
#include <string_view>

namespace OrvPdf
{

/// The text that a glyph's name stands for, as the rules for glyph names say: names of the Adobe Glyph List,
/// `uniXXXX`, `uXXXXX`, parts joined by underscores, what follows a full stop left out. Empty for a name that
/// says nothing. With `isDingbat`, the names of ZapfDingbats (`a1` ...) count too.
std::u32string GetTextOfGlyphName(std::string_view name, bool isDingbat = false);

/// The plainest name of a code point in the Adobe Glyph List; empty if it has none.
std::string_view GetGlyphNameOfCodePoint(char32_t codePoint);

} // namespace OrvPdf
