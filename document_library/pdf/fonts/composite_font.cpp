#include "pdf/fonts/composite_font.h"

#include <utility>

#include <plexa/compound.h>

#include "pdf/fonts/only_code_point.h"
#include "pdf/fonts/to_unicode.h"

namespace OrvPdf
{

namespace
{

using OrvFont::Character;
using OrvFont::WritingMode;

bool IsIdentity(const CMap& map)
{
    return &map == CMap::GetIdentity(WritingMode::Horizontal).get() ||
           &map == CMap::GetIdentity(WritingMode::Vertical).get();
}

std::uint32_t ByteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<unsigned char>(bytes[index]);
}

} // namespace

CompositeFont::CompositeFont(Parts givenParts)
    : FileFont(givenParts.origin),
      parts(std::move(givenParts)),
      isIdentity(IsIdentity(*parts.encoding)),
      toUnicode(parts.toUnicode.get())
{}

CompositeFont::~CompositeFont() = default;

void CompositeFont::Decode(std::string_view bytes, std::vector<Character>& shown) const
{
    if (isIdentity) {
        shown.reserve(shown.size() + bytes.size() / 2 + 1);
        for (; bytes.size() >= 2; bytes.remove_prefix(2)) {
            const std::uint32_t code = (ByteAt(bytes, 0) << 8U) | ByteAt(bytes, 1);
            shown.push_back({code, code, 2});
        }
    }
    while (!bytes.empty()) {
        const CMap::Code code = parts.encoding->Next(bytes);
        shown.push_back({code.value, code.cid, code.bytes});
    }
}

const std::string& CompositeFont::GetGlyphIds() const
{
    return glyphIds.Get([this] {
        // There are no more CIDs (ISO 32000-1, annex C.2); what stands behind their glyphs is not kept.
        constexpr std::size_t most = std::size_t{65536} * 2;
        std::string problem;
        const std::string ids = parts.glyphIds->Read(problem);
        return ids.substr(0, most);
    });
}

std::uint32_t CompositeFont::FindGlyph(const Character& character) const
{
    const auto* const program = parts.program->Get();
    if (!program)
        return 0;
    const std::uint32_t cid = character.glyph;
    if (parts.program->IsReplaced()) {
        const char32_t codePoint = GetOnlyCodePoint(GetText(character));
        return codePoint == 0 ? 0 : program->FindGlyphByCodePoint(codePoint);
    }
    if (!parts.glyphIds)
        return program->FindGlyphByCid(cid);
    const std::string& ids = GetGlyphIds();
    const std::size_t place = std::size_t{cid} * 2;
    return place + 1 < ids.size() ? (ByteAt(ids, place) << 8U) | ByteAt(ids, place + 1) : 0;
}

std::shared_ptr<const Plexa::Compound> CompositeFont::MakeOutline(const Character& character) const
{
    const std::uint32_t glyph = FindGlyph(character);
    // The box that the library's fonts have for what they lack says nothing about the font of the file.
    if (glyph == 0 && parts.program->IsReplaced())
        return nullptr;
    OrvFont::Font::Point place{0.0, 0.0};
    if (parts.mode == WritingMode::Vertical) {
        const auto metrics = GetVerticalMetrics(character.glyph);
        place = {metrics[1], metrics[2]};
    }
    return parts.program->Get()->MakeOutline(glyph, place);
}

CidVerticalMetrics::Numbers CompositeFont::GetVerticalMetrics(std::uint32_t cid) const
{
    const CidVerticalMetrics::Numbers& own = parts.verticalMetrics.Find(cid);
    if (&own != &parts.verticalMetrics.GetRest())
        return own;
    return {parts.verticalAdvance, parts.widths.Find(cid)[0] / 2.0, parts.verticalOrigin};
}

double CompositeFont::GetAdvance(const Character& character) const
{
    return parts.mode == WritingMode::Vertical ? GetVerticalMetrics(character.glyph)[0]
                                               : parts.widths.Find(character.glyph)[0];
}

std::u16string CompositeFont::GetText(const Character& character) const
{
    std::u16string text = toUnicode.Find(character);
    if (!text.empty())
        return text;
    const char32_t codePoint = FindCodePointOfCid(parts.ordering, character.glyph);
    return codePoint == 0 ? std::u16string() : ToUtf16(std::u32string(1, codePoint));
}

CompositeFont::Characters CompositeFont::CollectCharacters() const
{
    constexpr unsigned byteCount = 256;
    Characters found;
    for (unsigned first = 0; first < byteCount; ++first) {
        for (unsigned second = 0; second < byteCount; ++second) {
            const std::string codeBytes = {static_cast<char>(first), static_cast<char>(second), 0, 0};
            std::string_view rest = codeBytes;
            const CMap::Code code = parts.encoding->Next(rest);
            if (code.bytes <= 2) {
                const Character character{code.value, code.cid, code.bytes};
                const char32_t codePoint = GetOnlyCodePoint(GetText(character));
                if (codePoint != 0 && FindGlyph(character) != 0)
                    found.emplace(codePoint, character);
            }
            if (code.bytes != 2)
                break;
        }
    }
    return found;
}

bool CompositeFont::FindCharacter(char32_t codePoint, Character& character) const
{
    const Characters& known = characters.Get([this] { return CollectCharacters(); });
    const auto found = known.find(codePoint);
    if (found == known.end())
        return false;
    character = found->second;
    return true;
}

bool CompositeFont::DrawsLike(const FileFont& other) const
{
    const auto* const font = dynamic_cast<const CompositeFont*>(&other);
    if (!font || parts.mode != font->parts.mode || !(parts.widths == font->parts.widths))
        return false;
    if (parts.mode == WritingMode::Vertical && !(parts.verticalMetrics == font->parts.verticalMetrics &&
                                                 parts.verticalAdvance == font->parts.verticalAdvance &&
                                                 parts.verticalOrigin == font->parts.verticalOrigin))
        return false;
    // Characters have their CIDs; which code stands for which is told by them.
    if (!parts.program->IsSameAs(*font->parts.program))
        return false;
    if (parts.program->IsReplaced())
        return !parts.toUnicode && !font->parts.toUnicode && parts.ordering == font->parts.ordering;
    if (!parts.glyphIds || !font->parts.glyphIds)
        return !parts.glyphIds && !font->parts.glyphIds;
    return GetGlyphIds() == font->GetGlyphIds();
}

} // namespace OrvPdf
