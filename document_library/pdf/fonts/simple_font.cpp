#include "pdf/fonts/simple_font.h"

#include <utility>

#include <plexa/compound.h>

#include "orv_font/standard_advances.h"
#include "pdf/fonts/glyph_names.h"
#include "pdf/fonts/only_code_point.h"

namespace OrvPdf
{

namespace
{

constexpr unsigned codeCount = 256;

} // namespace

SimpleFont::SimpleFont(Parts givenParts)
    : FileFont(givenParts.origin), parts(std::move(givenParts)), toUnicode(parts.toUnicode.get())
{}

SimpleFont::~SimpleFont() = default;

void SimpleFont::Decode(std::string_view bytes, std::vector<OrvFont::Character>& characters) const
{
    characters.reserve(characters.size() + bytes.size());
    for (const char byte : bytes) {
        const std::uint32_t code = static_cast<unsigned char>(byte);
        characters.push_back({code, code, 1});
    }
}

std::uint32_t SimpleFont::FindGlyph(std::uint8_t code) const
{
    const auto* const program = parts.program->Get();
    if (!program)
        return 0;
    return parts.program->IsReplaced() ? FindReplacementGlyph(*program, parts.rules, code)
                                       : FindEmbeddedGlyph(*program, parts.rules, code);
}

std::shared_ptr<const Plexa::Compound> SimpleFont::MakeOutline(const OrvFont::Character& character) const
{
    if (character.code >= codeCount)
        return nullptr;
    const std::uint32_t glyph = FindGlyph(static_cast<std::uint8_t>(character.code));
    // The box that the library's fonts have for what they lack says nothing about the font of the file.
    if (glyph == 0 && parts.program->IsReplaced())
        return nullptr;
    return parts.program->Get()->MakeOutline(glyph, {0.0, 0.0});
}

double SimpleFont::GetAdvance(const OrvFont::Character& character) const
{
    if (parts.widths.isGiven)
        return parts.widths.Find(character.code);
    if (character.code >= codeCount)
        return 0.0;
    return programAdvances.Get([this] {
        const bool isReplaced = parts.program->IsReplaced();
        const OrvFont::Detail::FontKind kind = parts.program->GetKind();
        std::array<double, codeCount> advances{};
        for (unsigned code = 0; code < codeCount; ++code) {
            const auto byte = static_cast<std::uint8_t>(code);
            const std::uint32_t glyph = FindGlyph(byte);
            const bool isMissing = glyph == 0 && isReplaced;
            advances[code] = isMissing ? parts.widths.missing : parts.program->Get()->GetAdvance(glyph);
            if (isReplaced) {
                const auto name = parts.rules.encoding.FindName(byte);
                advances[code] = OrvFont::Detail::GetStandardAdvance(kind, name, advances[code]);
            }
        }
        return advances;
    })[character.code];
}

std::u16string SimpleFont::GetText(const OrvFont::Character& character) const
{
    std::u16string text = toUnicode.Find(character);
    if (!text.empty() || character.code >= codeCount)
        return text;
    const auto code = static_cast<std::uint8_t>(character.code);
    std::string name(parts.rules.encoding.FindName(code));
    if (name.empty() && !parts.rules.encoding.base && !parts.program->IsReplaced()) {
        if (const std::uint32_t glyph = FindGlyph(code))
            name = parts.program->Get()->GetGlyphName(glyph);
    }
    return ToUtf16(GetTextOfGlyphName(name, parts.rules.isDingbats));
}

bool SimpleFont::FindCharacter(char32_t codePoint, OrvFont::Character& character) const
{
    const auto& known = codes.Get([this] {
        std::map<char32_t, std::uint8_t> made;
        for (unsigned code = 0; code < codeCount; ++code) {
            const char32_t shown = GetOnlyCodePoint(GetText({code, code, 1}));
            if (shown != 0 && FindGlyph(static_cast<std::uint8_t>(code)) != 0)
                made.emplace(shown, static_cast<std::uint8_t>(code));
        }
        return made;
    });
    const auto found = known.find(codePoint);
    if (found == known.end())
        return false;
    character = {found->second, found->second, 1};
    return true;
}

bool SimpleFont::DrawsLike(const FileFont& other) const
{
    const auto* const font = dynamic_cast<const SimpleFont*>(&other);
    return font && parts.rules == font->parts.rules && parts.widths == font->parts.widths &&
           parts.program->IsSameAs(*font->parts.program);
}

} // namespace OrvPdf
