#include "support/open_type_maker.h"

#include <algorithm>
#include <map>

#include "support/compact_font_maker.h"
#include "support/font_bytes.h"

namespace HarrowSupport::Testing
{

namespace
{

MadeCompactGlyph ToCompactGlyph(const MadeGlyph& glyph)
{
    return {glyph.name, 0, glyph.width, glyph.left, glyph.bottom, glyph.right, glyph.top};
}

/// With a horizontal stem, and half a unit across.
std::string MakeHintedOutline(const MadeGlyph& glyph)
{
    FontBytes code;
    const auto number = [&code](int value) { code.Add8(28).Add16(value); };
    const auto withHalf = [&code](int value, int sign) {
        code.Add8(255).Add32(std::int64_t{value} * 0x10000 + sign * 0x8000);
    };
    number(glyph.width);
    number(glyph.bottom);
    number(glyph.top - glyph.bottom);
    code.Add8(1); // hstem
    number(glyph.left);
    number(glyph.bottom);
    code.Add8(21); // rmoveto
    withHalf(glyph.right - glyph.left, 1);
    code.Add8(6); // hlineto
    number(glyph.top - glyph.bottom);
    code.Add8(7); // vlineto
    withHalf(glyph.left - glyph.right, -1);
    return code.Add8(6).Add8(14).text; // hlineto endchar
}

std::string MakeNames(const MadeFont& font)
{
    std::map<int, std::string> names = {{6, font.postScriptName}};
    if (!font.family.empty())
        names[1] = font.family;
    if (!font.style.empty())
        names[2] = font.style;
    return MakeNameTable(names);
}

std::string MakeCodePoints(const MadeFont& font)
{
    MadeCharacterMap map;
    for (std::size_t index = 0; index < font.glyphs.size(); ++index) {
        const auto glyph = static_cast<int>(index);
        if (font.glyphs[index].codePoint)
            map.glyphs[font.glyphs[index].codePoint] = glyph;
        for (const char16_t codePoint : font.glyphs[index].otherCodePoints)
            map.glyphs[codePoint] = glyph;
    }
    return MakeCharacterMaps({map});
}

std::string MakeHead(const MadeFont& font)
{
    MadeGlyph box;
    for (const MadeGlyph& glyph : font.glyphs) {
        box.left = std::min(box.left, glyph.left);
        box.bottom = std::min(box.bottom, glyph.bottom);
        box.right = std::max(box.right, glyph.right);
        box.top = std::max(box.top, glyph.top);
    }
    FontBytes head;
    head.Add32(0x10000).Add32(0x10000).Add32(0).Add32(0x5F0F3CF5).Add16(3).Add16(1000);
    head.Add32(0).Add32(0).Add32(0).Add32(0);
    head.Add16(box.left).Add16(box.bottom).Add16(box.right).Add16(box.top);
    return head.Add16(0).Add16(8).Add16(2).Add16(0).Add16(0).text;
}

std::string MakeHorizontalHeader(const MadeFont& font)
{
    FontBytes header;
    header.Add32(0x10000).Add16(800).Add16(-200).Add16(0).Add16(1000);
    return header.AddText(std::string(22, '\0')).Add16(static_cast<int>(font.glyphs.size())).text;
}

std::string MakeHorizontalMetrics(const MadeFont& font)
{
    FontBytes metrics;
    for (const MadeGlyph& glyph : font.glyphs)
        metrics.Add16(glyph.width).Add16(glyph.left);
    return metrics.text;
}

/// Version 4, regular, with 700 as the height of capital letters.
std::string MakeWindowsMetrics()
{
    FontBytes metrics;
    metrics.Add16(4).Add16(500).Add16(400).Add16(5).Add16(0);
    metrics.AddText(std::string(68 - 10, '\0'));
    metrics.Add16(800).Add16(-200).Add16(0).Add16(800).Add16(200).Add32(1).Add32(0);
    return metrics.Add16(500).Add16(700).Add16(0).Add16(32).Add16(1).text;
}

} // namespace

std::string MakeBareCompactFont(const MadeFont& font)
{
    MadeCompactFont compact;
    compact.postScriptName = font.postScriptName;
    compact.isCidKeyed = !font.cids.empty();
    std::vector<std::string> outlines;
    for (std::size_t index = 0; index < font.glyphs.size(); ++index) {
        const MadeGlyph& glyph = font.glyphs[index];
        MadeCompactGlyph drawn = ToCompactGlyph(glyph);
        if (drawn.name.empty())
            drawn.name = 'g' + std::to_string(index);
        if (compact.isCidKeyed)
            drawn.cid = font.cids[index];
        compact.glyphs.push_back(drawn);
        outlines.push_back(glyph.isHinted ? MakeHintedOutline(glyph) : MakeCompactOutline(drawn));
    }
    return MakeCompactFont(compact, outlines, {});
}

std::string MakeCompactOpenType(const MadeFont& font)
{
    const auto count = static_cast<int>(font.glyphs.size());
    return JoinTables("OTTO", {{"CFF ", MakeBareCompactFont(font)},
                               {"OS/2", MakeWindowsMetrics()},
                               {"cmap", MakeCodePoints(font)},
                               {"head", MakeHead(font)},
                               {"hhea", MakeHorizontalHeader(font)},
                               {"hmtx", MakeHorizontalMetrics(font)},
                               {"maxp", FontBytes().Add32(0x5000).Add16(count).text},
                               {"name", MakeNames(font)},
                               {"post", FontBytes().Add32(0x30000).AddText(std::string(28, '\0')).text}});
}

} // namespace HarrowSupport::Testing
