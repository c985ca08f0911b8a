#pragma once

#include <cstdint>
#include <string_view>

namespace OrvPdf
{

/// The encodings of simple fonts that PDF names, and those built into the two symbolic fonts of the standard
/// 14 (ISO 32000-1, annex D).
enum class BaseEncoding
{
    Standard,
    MacRoman,
    WinAnsi,
    MacExpert,
    Symbol,
    ZapfDingbats,
};

/// The name of the glyph that a code shows; empty if the encoding has none.
std::string_view GetGlyphName(BaseEncoding encoding, std::uint8_t code);

} // namespace OrvPdf
