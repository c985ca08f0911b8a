#include <harrow_support/factories.h>

#include <cstddef>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/resource_manager.h>
#include <orv_font/font.h>
#include <orv_font/font_manager.h>
#include <orv_font/id.h>
#include <orv_sys/uni16char.h>

namespace HarrowSupport
{

namespace
{

constexpr const char* fontName = "QuorleSerif";
constexpr auto writingMode = OrvFont::WritingMode{0};
constexpr double textSize = 14.0;

using Uni16String = std::basic_string<wchar_t, OrvSys::Core::uni16char_traits>;

/// Empty if the text is not UTF-8.
Uni16String ToUni16String(boost::string_view text)
{
    const std::string terminated(text.data(), text.size());
    // No character of UTF-8 has fewer bytes than units.
    const std::size_t capacity = terminated.size() + 1;
    const std::unique_ptr<wchar_t[]> buffer(new wchar_t[capacity]);
    const int units = OrvSys::UTF8ToUni16Char(terminated.c_str(), buffer.get(), capacity);
    return units > 0 ? Uni16String(buffer.get(), static_cast<std::size_t>(units)) : Uni16String();
}

} // namespace

std::unique_ptr<OrvDoc::Text> CreateText(boost::string_view text, OrvDoc::Content& content)
{
    OrvFont::FontManager& fonts = content.GetDocument().GetResourceManager().GetFontManager();
    std::shared_ptr<const OrvFont::Font> font =
        fonts.GetOrCreateFont(OrvFont::GetFontIDForFontName(fontName), writingMode);

    const Uni16String units = ToUni16String(text);
    std::vector<OrvFont::Character> fontCharacters;
    if (!font->Uni16StringToFontCharacters({units.data(), units.size()}, fontCharacters))
        std::cerr << "Failed to convert UTF-8 string to font characters\n";

    std::vector<OrvDoc::TextCharacter> characters(fontCharacters.size());
    for (std::size_t index = 0; index < characters.size(); ++index)
        characters[index].character = fontCharacters[index];
    return std::make_unique<OrvDoc::Text>(std::move(characters), std::move(font), textSize);
}

std::unique_ptr<OrvDoc::TextGroup> CreateTextGroup(boost::string_view text, OrvDoc::Content& content)
{
    std::unique_ptr<OrvDoc::TextGroup> group = CreateTextGroup();
    group->AddOnTop(CreateText(text, content).release());
    return group;
}

} // namespace HarrowSupport
