#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace OrvFont
{
class Font;
}

namespace OrvPdf
{

/// A font that a content shows text in.
struct UsedFont
{
    std::shared_ptr<const OrvFont::Font> font;
    /// By the code of a character, whether it is shown. Not as long as there are codes, but up to the last
    /// one that is.
    std::vector<bool> codes;
};

/// The fonts of one content, each once, in order of their first use.
class UsedFonts
{
public:
    explicit UsedFonts(std::vector<UsedFont>& givenFonts) : fonts(givenFonts) {}

    /// The font's place in the list, which is the number in its name.
    std::size_t Add(const std::shared_ptr<const OrvFont::Font>& font);

    /// Notes that the font at that place shows a character of that code. Of codes with more than two bytes,
    /// which only fonts of files have, nothing is noted: their programs are kept whole.
    void AddCode(std::size_t place, std::uint32_t code)
    {
        std::vector<bool>& codes = fonts[place].codes;
        if (code >= codes.size()) {
            if (code > 0xFFFF)
                return;
            codes.resize(code + 1);
        }
        codes[code] = true;
    }

private:
    std::vector<UsedFont>& fonts;
    std::unordered_map<const OrvFont::Font*, std::size_t> places;
};

} // namespace OrvPdf
