#include "pdf/writer/fonts/glyph_texts.h"

#include <utility>

#include "orv_font/font_program.h"
#include "pdf/fonts/glyph_names.h"
#include "pdf/writer/fonts/harfbuzz_face.h"

namespace OrvPdf
{

namespace
{

void AppendCodePoint(std::u16string& text, char32_t codePoint)
{
    if (codePoint < 0x10000) {
        text.push_back(static_cast<char16_t>(codePoint));
        return;
    }
    const char32_t rest = codePoint - 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (rest >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (rest & 0x3FF)));
}

/// Whether a code point says better than another one what a glyph is. Plain characters have lower numbers
/// than their variants, but for the micro sign, which texts hold less often than the Greek letter, and
/// control characters and private ones, which nobody understands.
bool IsPlainer(char32_t one, char32_t other)
{
    const auto rank = [](char32_t codePoint) {
        constexpr char32_t microSign = 0xB5;
        const bool isPrivate = (codePoint >= 0xE000 && codePoint < 0xF900) || codePoint >= 0xF0000;
        const bool isControl = codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
        const int group = isPrivate ? 3 : isControl ? 2 : codePoint == microSign ? 1 : 0;
        return std::make_pair(group, codePoint);
    };
    return rank(one) < rank(other);
}

std::map<std::uint32_t, char32_t> FindPlainestCodePoints(const OrvFont::Detail::FontProgram& program,
                                                         const GlyphSet& glyphs)
{
    const HarfBuzzFace face = OpenHarfBuzzFace(*program.GetBytes(), program.GetFace());
    const HarfBuzzFont font(hb_font_create(face.get()));
    const HarfBuzzSet codePoints(hb_set_create());
    hb_face_collect_unicodes(face.get(), codePoints.get());
    std::map<std::uint32_t, char32_t> plainest;
    for (hb_codepoint_t codePoint = HB_SET_VALUE_INVALID; hb_set_next(codePoints.get(), &codePoint);) {
        const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
        hb_codepoint_t glyph = 0;
        if (isSurrogate || !hb_font_get_nominal_glyph(font.get(), codePoint, &glyph) ||
            glyphs.count(glyph) == 0)
            continue;
        const auto [found, isNew] = plainest.emplace(glyph, codePoint);
        if (!isNew && IsPlainer(codePoint, found->second))
            found->second = codePoint;
    }
    return plainest;
}

} // namespace

GlyphTexts ReadGlyphTexts(const OrvFont::Detail::FontProgram& program, const GlyphSet& glyphs)
{
    const auto codePoints = FindPlainestCodePoints(program, glyphs);
    GlyphTexts texts;
    for (const std::uint32_t glyph : glyphs) {
        const auto found = codePoints.find(glyph);
        std::u16string text;
        if (found != codePoints.end()) {
            AppendCodePoint(text, found->second);
        } else {
            for (const char32_t codePoint : GetTextOfGlyphName(program.GetGlyphName(glyph)))
                AppendCodePoint(text, codePoint);
        }
        if (!text.empty())
            texts.emplace(glyph, std::move(text));
    }
    return texts;
}

} // namespace OrvPdf
