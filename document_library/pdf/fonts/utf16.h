#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace OrvPdf
{

inline bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

inline bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

/// One unit, or two for a code point beyond the first plane; a surrogate alone stays what it is.
inline void AppendUtf16(char32_t codePoint, std::u16string& text)
{
    if (codePoint < 0x10000) {
        text += static_cast<char16_t>(codePoint);
        return;
    }
    text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
}

inline std::u16string ToUtf16(const std::u32string& codePoints)
{
    std::u16string text;
    for (const char32_t codePoint : codePoints)
        AppendUtf16(codePoint, text);
    return text;
}

/// The units that the last character of a text takes, which must not be empty.
inline std::size_t CountLastUnits(std::u16string_view text)
{
    const bool isPair =
        text.size() > 1 && IsLowSurrogate(text.back()) && IsHighSurrogate(text[text.size() - 2]);
    return isPair ? 2 : 1;
}

/// The code point of a character of one or two units.
inline char32_t GetCodePoint(std::u16string_view units)
{
    if (units.size() < 2)
        return units[0];
    return 0x10000 + ((char32_t{units[0]} - 0xD800) << 10) + (char32_t{units[1]} - 0xDC00);
}

} // namespace OrvPdf
