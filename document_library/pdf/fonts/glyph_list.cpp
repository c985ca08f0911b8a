#include "pdf/fonts/glyph_list.h"

#include "pdf/content_characters.h"

#include <cstddef>

namespace OrvPdf
{

GlyphList::Entry GlyphList::EntryAt(std::size_t begin) const
{
    const std::size_t mark = text.find_first_of("=:", begin);
    const std::size_t end = text.find(' ', mark);
    return {text.substr(begin, mark - begin),
            text.substr(mark + 1, end == std::string_view::npos ? end : end - mark - 1), text[mark] == ':'};
}

std::optional<GlyphList::Entry> GlyphList::Find(std::string_view name) const
{
    // Both bounds are where an entry begins, or the end.
    std::size_t low = 0;
    std::size_t high = text.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        const std::size_t blank = text.rfind(' ', middle);
        const std::size_t begin = blank == std::string_view::npos || blank < low ? low : blank + 1;
        const Entry entry = EntryAt(begin);
        const int order = name.compare(entry.name);
        if (order == 0)
            return entry;
        if (order < 0)
            high = begin;
        else
            low = begin + entry.name.size() + entry.codePoints.size() + 2;
    }
    return std::nullopt;
}

char32_t TakeCodePoint(std::string_view& digits)
{
    char32_t codePoint = 0;
    while (!digits.empty()) {
        const int digit = HexValue(digits.front());
        digits.remove_prefix(1);
        if (digit < 0)
            break;
        codePoint = codePoint * 16 + static_cast<char32_t>(digit);
    }
    return codePoint;
}

} // namespace OrvPdf
