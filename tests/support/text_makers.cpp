#include "support/text_makers.h"

#include "document_library/orv_font/font_source.h"

#include <plexa/compound_builder.h>

#include <utility>

namespace HarrowSupport::Testing
{

namespace
{

class PlannedSource : public OrvFont::Detail::FontSource
{
public:
    explicit PlannedSource(FontPlan givenPlan) : plan(std::move(givenPlan)) {}

    Outline MakeOutline(const OrvFont::Character& character) const override
    {
        ++*plan.outlinesMade;
        return plan.outline(character);
    }

    double GetAdvance(const OrvFont::Character& character) const override { return plan.advance(character); }

    bool FindCharacter(char32_t codePoint, OrvFont::Character& character) const override
    {
        if (codePoint > 0xFFFE)
            return false;
        character.code = static_cast<std::uint32_t>(codePoint);
        character.glyph = character.code;
        return true;
    }

    void Decode(std::string_view bytes, std::vector<OrvFont::Character>& characters) const override
    {
        for (const char byte : bytes) {
            const auto code = static_cast<std::uint32_t>(static_cast<unsigned char>(byte));
            characters.push_back({code, code + plan.glyphShift, 1});
        }
    }

    bool HasSameOutlines(const FontSource& other) const override
    {
        const auto* const planned = dynamic_cast<const PlannedSource*>(&other);
        return this == &other || (planned && plan.program != 0 && plan.program == planned->plan.program);
    }

private:
    FontPlan plan;
};

} // namespace

Outline OutlineByGlyph(const OrvFont::Character& character)
{
    if (character.glyph == ' ')
        return nullptr;
    Plexa::CompoundBuilder builder;
    builder.AddRectangle(0.0, 0.0, character.glyph, 700.0);
    return builder.Finish(Plexa::WindingRule::NonZero);
}

FontPointer MakeFont(const FontPlan& plan)
{
    return std::make_shared<const OrvFont::Font>(plan.names, plan.box, plan.mode,
                                                 std::make_unique<const PlannedSource>(plan));
}

std::vector<OrvDoc::TextCharacter> Characters(const std::string& bytes)
{
    std::vector<OrvDoc::TextCharacter> characters;
    for (const char byte : bytes) {
        const auto code = static_cast<std::uint32_t>(static_cast<unsigned char>(byte));
        characters.push_back({{code, code, 1}, 0, 0});
    }
    return characters;
}

std::unique_ptr<OrvDoc::Text> TextOf(const std::string& bytes, FontPointer font, double size)
{
    return std::make_unique<OrvDoc::Text>(Characters(bytes), std::move(font), size);
}

std::unique_ptr<OrvDoc::Text> ShownTextOf(const std::string& bytes, FontPointer font)
{
    OrvDoc::ShownText shown;
    shown.AppendCodes(bytes);
    return std::make_unique<OrvDoc::Text>(std::move(font), 12.0, std::move(shown));
}

std::unique_ptr<OrvDoc::Text> TextAt(const std::string& bytes, std::vector<CharacterPlace> places,
                                     FontPointer font)
{
    auto text = TextOf(bytes, std::move(font));
    text->SetCharacterTransformations(std::move(places));
    return text;
}

} // namespace HarrowSupport::Testing
