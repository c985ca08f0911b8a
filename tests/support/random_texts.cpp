#include "support/random_texts.h"

#include "support/random_objects.h"
#include "support/random_states.h"

#include <orv_doc/resource_manager.h>
#include <orv_font/font_manager.h>

#include <string>
#include <utility>
#include <vector>

namespace HarrowSupport::Testing
{

namespace
{

using Random = std::mt19937;
using Place = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;
using Units = OrvFont::Font::Uni16StringView;

/// Any number that a text matrix or a spacing may have, mostly small.
double RandomNumber(Random& random)
{
    return static_cast<double>(static_cast<int>(random() % 2001) - 1000) / (random() % 2 == 0 ? 100.0 : 97.0);
}

std::vector<OrvDoc::TextCharacter> RandomCharacters(const OrvFont::Font& font, Random& random)
{
    static const std::vector<std::wstring> words = {
        L"Hamburgefonstiv",
        L"two words, 3 figures",
        L"\u00C4rger \u00DF \u0152uvre",
        L"\u0393\u03C1\u03AC\u03BC\u03BC\u03B1\u03C4\u03B1",
        L"\u0411\u0443\u043A\u0432\u044B",
        L"\u062E\u0637 \u0639\u0631\u0628\u064A",
        L"\u6587\u5B57\u5316\u3051",
        L"\xD835\xDC00 \x263A",
        L" ",
        L"",
    };
    const std::wstring& word = words[random() % words.size()];
    std::vector<OrvFont::Character> found;
    // What the font lacks is left out.
    font.Uni16StringToFontCharacters(Units(word.data(), word.size()), found);
    std::vector<OrvDoc::TextCharacter> characters(found.size());
    for (std::size_t index = 0; index < found.size(); ++index) {
        characters[index].character = found[index];
    }
    return characters;
}

/// Moves characters of a text as PDF can: in the line, off it, on to other lines, or all of them.
std::vector<Place> RandomPlaces(std::vector<Place> places, Random& random)
{
    const auto kind = random() % 4;
    double kerning = 0.0;
    double line = 0.0;
    for (Place& place : places) {
        if (random() % 3 == 0) {
            kerning += RandomNumber(random) / 10.0;
            line -= kind == 2 ? RandomNumber(random) : 0.0;
        }
        place.x.value += kerning;
        place.y.value += kind == 1 ? 3.25 : line;
        if (kind == 3) {
            const double x = RandomNumber(random);
            place = Place(RandomNumber(random), RandomNumber(random), RandomNumber(random),
                          RandomNumber(random), x, RandomNumber(random));
        }
    }
    return places;
}

} // namespace

std::shared_ptr<const OrvFont::Font> RandomFont(OrvDoc::Document& document, Random& random)
{
    static const std::vector<std::string> names = {"QuorleSerif", "Helvetica", "Courier-Bold", "Times-Italic",
                                                   "Symbol"};
    return document.GetResourceManager().GetFontManager().GetOrCreateFont(
        OrvFont::GetFontIDForFontName(names[random() % names.size()]), OrvFont::WritingMode::Horizontal);
}

std::unique_ptr<OrvDoc::Text> RandomText(std::shared_ptr<const OrvFont::Font> font, Random& random)
{
    static constexpr double sizes[] = {1.0, 8.0, 9.963, 12.0, 72.0, 0.001};
    auto characters = RandomCharacters(*font, random);
    auto text = std::make_unique<OrvDoc::Text>(std::move(characters), std::move(font), sizes[random() % 6]);
    if (random() % 3 == 0) {
        text->SetCharSpacing(RandomNumber(random));
    }
    if (random() % 3 == 0) {
        text->SetWordSpacing(RandomNumber(random));
    }
    if (random() % 2 == 0) {
        text->SetTextTransformation(RandomMatrix(random));
    }
    if (random() % 3 == 0) {
        text->SetTransformation(RandomMatrix(random));
    }
    if (random() % 3 == 0) {
        text->SetCharacterTransformations(RandomPlaces(text->GetCharacterTransformations(), random));
    }
    return text;
}

std::unique_ptr<OrvDoc::TextGroup> RandomTextGroup(OrvDoc::Document& document, Random& random)
{
    auto group = std::make_unique<OrvDoc::TextGroup>();
    group->SetClippingObject(random() % 6 == 0);
    if (!group->IsClippingObject()) {
        SetRandomBlending(*group, random);
    }
    for (std::size_t count = 1 + random() % 3; count > 0; --count) {
        auto text = RandomText(RandomFont(document, random), random);
        if (!group->IsClippingObject()) {
            SetRandomPainting(*text, random);
        }
        group->AddOnTop(text.release());
    }
    return group;
}

} // namespace HarrowSupport::Testing
