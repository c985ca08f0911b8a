#include "support/compact_font_maker.h"

#include "support/font_bytes.h"

namespace HarrowSupport::Testing
{

namespace
{

constexpr int standardStringCount = 391;
// The numbers of the two strings of a CID-keyed program: the first ones after the standard strings.
constexpr int registryString = 391;
constexpr int orderingString = 392;

std::string MakeIndex(const std::vector<std::string>& items)
{
    FontBytes index;
    index.Add16(static_cast<std::int64_t>(items.size()));
    if (items.empty())
        return index.text;
    index.Add8(4);
    std::int64_t offset = 1;
    index.Add32(offset);
    for (const std::string& item : items)
        index.Add32(offset += static_cast<std::int64_t>(item.size()));
    for (const std::string& item : items)
        index.AddText(item);
    return index.text;
}

/// A number of a dictionary that takes five bytes whatever its value is.
std::string Number(std::size_t value)
{
    return FontBytes().Add8(29).Add32(static_cast<std::int64_t>(value)).text;
}

/// An operator of two bytes.
std::string Escape(int number)
{
    return FontBytes().Add8(12).Add8(number).text;
}

std::vector<std::string> MakeStrings(const MadeCompactFont& font)
{
    if (font.isCidKeyed)
        return {"Adobe", "Identity"};
    std::vector<std::string> strings;
    for (std::size_t glyph = 1; glyph < font.glyphs.size(); ++glyph)
        strings.push_back(font.glyphs[glyph].name);
    return strings;
}

std::string MakeCharset(const MadeCompactFont& font)
{
    FontBytes charset;
    charset.Add8(0);
    for (std::size_t glyph = 1; glyph < font.glyphs.size(); ++glyph)
        charset.Add16(font.isCidKeyed ? font.glyphs[glyph].cid
                                      : standardStringCount + static_cast<int>(glyph) - 1);
    return charset.text;
}

std::string MakeEncoding(const MadeCompactFont& font)
{
    FontBytes encoding;
    encoding.Add8(0).Add8(static_cast<int>(font.glyphs.size()) - 1);
    for (std::size_t glyph = 1; glyph < font.glyphs.size(); ++glyph)
        encoding.Add8(font.firstCode + static_cast<int>(glyph) - 1);
    return encoding.text;
}

} // namespace

std::string MakeCompactOutline(const MadeCompactGlyph& glyph)
{
    FontBytes code;
    const auto number = [&code](int value) { code.Add8(28).Add16(value); };
    number(glyph.width);
    number(glyph.left);
    number(glyph.bottom);
    code.Add8(21);
    number(glyph.right - glyph.left);
    code.Add8(6);
    number(glyph.top - glyph.bottom);
    code.Add8(7);
    number(glyph.left - glyph.right);
    return code.Add8(6).Add8(14).text;
}

std::string MakeCompactFont(const MadeCompactFont& font)
{
    std::vector<std::string> charStrings;
    for (const MadeCompactGlyph& glyph : font.glyphs)
        charStrings.push_back(MakeCompactOutline(glyph));
    return MakeCompactFont(font, charStrings, {});
}

std::string MakeCompactFont(const MadeCompactFont& font, const std::vector<std::string>& charStrings,
                            const std::vector<std::string>& subroutines)
{
    // Widths are told from zero on; the subroutines stand right behind.
    std::string privateDictionary = FontBytes().Add8(139).Add8(20).Add8(139).Add8(21).text;
    if (!subroutines.empty())
        privateDictionary +=
            FontBytes().Add8(139 + static_cast<int>(privateDictionary.size()) + 2).Add8(19).text;
    const std::size_t privateSize = privateDictionary.size();
    if (!subroutines.empty())
        privateDictionary += MakeIndex(subroutines);

    const std::string head =
        FontBytes().Add8(1).Add8(0).Add8(4).Add8(4).text + MakeIndex({font.postScriptName});
    const std::string tail = MakeIndex(MakeStrings(font)) + MakeIndex({});
    const std::string charset = MakeCharset(font);
    const std::string encoding = font.isCidKeyed ? "" : MakeEncoding(font);
    const std::string outlines = MakeIndex(charStrings);
    const auto makeFontDictionaries = [&](std::size_t privateOffset) {
        return MakeIndex({Number(privateSize) + Number(privateOffset) + '\x12'});
    };
    const auto makeSelection = [&] {
        return FontBytes().Add8(0).AddText(std::string(font.glyphs.size(), '\0')).text;
    };
    const auto makeTop = [&](std::size_t start) {
        const std::size_t encodingOffset = start + charset.size();
        const std::size_t outlinesOffset = encodingOffset + encoding.size();
        const std::size_t privateOffset = outlinesOffset + outlines.size();
        std::string top;
        if (font.isCidKeyed)
            top += Number(registryString) + Number(orderingString) + Number(0) + Escape(30);
        top += Number(start) + '\x0F' + Number(outlinesOffset) + '\x11';
        if (font.isCidKeyed) {
            const std::size_t listOffset = privateOffset + privateDictionary.size();
            top += Number(listOffset) + Escape(36);
            top += Number(listOffset + makeFontDictionaries(privateOffset).size()) + Escape(37);
        } else {
            top += Number(encodingOffset) + '\x10' + Number(privateSize) + Number(privateOffset) + '\x12';
        }
        return MakeIndex({top});
    };
    // The numbers in it have one length whatever they are.
    const std::size_t start = head.size() + makeTop(0).size() + tail.size();
    std::string bytes = head + makeTop(start) + tail + charset + encoding + outlines + privateDictionary;
    if (font.isCidKeyed)
        bytes += makeFontDictionaries(bytes.size() - privateDictionary.size()) + makeSelection();
    return bytes;
}

} // namespace HarrowSupport::Testing
