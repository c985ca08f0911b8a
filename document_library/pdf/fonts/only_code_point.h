#pragma once

#include <string_view>

#include "pdf/fonts/utf16.h"

namespace OrvPdf
{

/// The code point that is the whole text; zero if it is none or more than one.
inline char32_t GetOnlyCodePoint(std::u16string_view text)
{
    if (text.empty() || CountLastUnits(text) != text.size())
        return 0;
    const bool isHalf = text.size() == 1 && (IsHighSurrogate(text[0]) || IsLowSurrogate(text[0]));
    return isHalf ? 0 : GetCodePoint(text);
}

} // namespace OrvPdf
