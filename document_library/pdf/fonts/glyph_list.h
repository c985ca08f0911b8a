#pragma once

#include <optional>
#include <string_view>

namespace OrvPdf
{

/// A list of glyph names with the text that each stands for. It is one constant text of entries
/// `name=XXXX+XXXX`, sorted by the bytes of the names, with a blank between two: nothing is made at the start
/// of a program, and a search halves the text. A colon in the place of the equals sign marks the name that
/// new fonts should give to the code point (Adobe Glyph List for New Fonts).
class GlyphList
{
public:
    struct Entry
    {
        std::string_view name;
        /// Hexadecimal code points, joined by `+`.
        std::string_view codePoints;
        bool isForNewFonts = false;
    };

    /// The Adobe Glyph List.
    static GlyphList GetAdobe();
    /// The names of ITC Zapf Dingbats.
    static GlyphList GetDingbats();

    explicit GlyphList(std::string_view entries) : text(entries) {}

    std::optional<Entry> Find(std::string_view name) const;

    /// Calls `visit` for each entry in the order of the list.
    template <typename Visitor>
    void Visit(const Visitor& visit) const
    {
        for (std::size_t begin = 0; begin < text.size();) {
            const Entry entry = EntryAt(begin);
            visit(entry);
            begin += entry.name.size() + entry.codePoints.size() + 2;
        }
    }

private:
    Entry EntryAt(std::size_t begin) const;

    std::string_view text;
};

/// Takes the hexadecimal digits at the front of `digits`, and a `+` behind them.
char32_t TakeCodePoint(std::string_view& digits);

} // namespace OrvPdf
