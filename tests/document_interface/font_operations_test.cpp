// Fonts as a test program reaches them, with their exact signatures.

#include "document_interface/signature.h"

#include <gmock/gmock.h>

#include <orv_doc/document.h>
#include <orv_doc/resource_manager.h>
#include <orv_font/font.h>
#include <orv_font/font_manager.h>
#include <plexa/compound.h>

#include <cstdlib>
#include <sstream>

namespace
{

using namespace OrvFont;
using InterfaceTests::Has;
using Characters = std::vector<Character>;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using View = boost::basic_string_view<wchar_t, OrvSys::Core::uni16char_traits>;

static_assert(Has<ID (*)(const std::string&)>(&GetFontIDForFontName));
static_assert(
    Has<std::shared_ptr<const Font> (FontManager::*)(ID, WritingMode)>(&FontManager::GetOrCreateFont));
static_assert(Has<FontManager& (OrvDoc::ResourceManager::*)()>(&OrvDoc::ResourceManager::GetFontManager));
static_assert(
    Has<OrvDoc::ResourceManager& (OrvDoc::Document::*)() const>(&OrvDoc::Document::GetResourceManager));
static_assert(Has<bool (Font::*)(View, Characters&) const>(&Font::Uni16StringToFontCharacters));
static_assert(Has<const std::string& (Font::*)() const>(&Font::GetName));
static_assert(Has<const std::string& (Font::*)() const>(&Font::GetFamilyName));
static_assert(Has<const std::string& (Font::*)() const>(&Font::GetStyleName));
static_assert(Has<Rectangle (Font::*)() const>(&Font::GetFontBBox));
static_assert(static_cast<WritingMode>(0) == WritingMode::Horizontal);

std::shared_ptr<const Font> GetFont(FontManager& manager, const std::string& name,
                                    WritingMode mode = WritingMode::Horizontal)
{
    return manager.GetOrCreateFont(GetFontIDForFontName(name), mode);
}

double WidthOf(const Font& font, const std::wstring& text)
{
    Characters characters;
    EXPECT_TRUE(font.Uni16StringToFontCharacters(View(text.data(), text.size()), characters));
    double width = 0.0;
    for (const Character& character : characters)
        width += font.GetAdvance(character);
    return width;
}

TEST(FontOperations, GiveTheSerifOfTheLibrary)
{
    FontManager manager;
    const auto font = GetFont(manager, "QuorleSerif");
    EXPECT_EQ(font->GetName(), "LiberationSerif");
    EXPECT_EQ(font->GetFamilyName(), "Liberation Serif");
    EXPECT_EQ(font->GetStyleName(), "Regular");
    EXPECT_FALSE(font->GetFontBBox().isInitial);
    EXPECT_LT(font->GetFontBBox().origin.y.value, -200.0);
    EXPECT_GT(font->GetFontBBox().size.height.value, 1000.0);
}

TEST(FontOperations, GiveTheStandardFontsByNameAndAlias)
{
    FontManager manager;
    EXPECT_EQ(GetFont(manager, "Helvetica")->GetName(), "LiberationSans");
    EXPECT_EQ(GetFont(manager, "Arial,Bold")->GetName(), "LiberationSans-Bold");
    EXPECT_EQ(GetFont(manager, "TimesNewRomanPS-BoldItalicMT")->GetName(), "LiberationSerif-BoldItalic");
    EXPECT_EQ(GetFont(manager, "CourierNew")->GetName(), "LiberationMono");
    EXPECT_EQ(GetFont(manager, "ZapfDingbats")->GetName(), "DejaVuSans");
}

TEST(FontOperations, GiveAFontForAnyName)
{
    FontManager manager;
    EXPECT_EQ(GetFont(manager, "")->GetName(), "LiberationSans");
    EXPECT_EQ(GetFont(manager, "UnheardSerif-Bold")->GetName(), "LiberationSerif-Bold");
    EXPECT_NE(manager.GetOrCreateFont(ID(), WritingMode::Horizontal), nullptr);
}

TEST(FontOperations, GiveTheSameFontForTheSameArguments)
{
    FontManager manager;
    const auto font = GetFont(manager, "QuorleSerif");
    EXPECT_EQ(GetFont(manager, "QuorleSerif"), font);
    EXPECT_EQ(GetFont(manager, "Times-Roman"), font);
    EXPECT_NE(GetFont(manager, "Times-Bold"), font);
}

TEST(FontOperations, KeepTheWritingModesApart)
{
    FontManager manager;
    const auto horizontal = GetFont(manager, "QuorleSerif");
    const auto vertical = GetFont(manager, "QuorleSerif", WritingMode::Vertical);
    EXPECT_NE(vertical, horizontal);
    EXPECT_EQ(vertical, GetFont(manager, "QuorleSerif", WritingMode::Vertical));
    EXPECT_EQ(vertical->GetWritingMode(), WritingMode::Vertical);
    EXPECT_FALSE(HaveSameOutlines(*vertical, *horizontal));
}

TEST(FontOperations, NameIdsByTheirName)
{
    EXPECT_EQ(GetFontIDForFontName("Times-Roman"), GetFontIDForFontName("Times-Roman"));
    EXPECT_NE(GetFontIDForFontName("Times-Roman"), GetFontIDForFontName("Times-Bold"));
    EXPECT_NE(GetFontIDForFontName("Times-Roman"), ID());
}

TEST(FontOperations, ShareOutlinesAcrossDocuments)
{
    FontManager left;
    FontManager right;
    EXPECT_TRUE(HaveSameOutlines(*GetFont(left, "QuorleSerif"), *GetFont(right, "Times-Roman")));
    EXPECT_FALSE(HaveSameOutlines(*GetFont(left, "QuorleSerif"), *GetFont(right, "Helvetica")));
}

TEST(FontOperations, AreReachedThroughADocument)
{
    const auto document = OrvDoc::Document::CreateNew();
    FontManager& manager = document->GetResourceManager().GetFontManager();
    EXPECT_EQ(&manager, &document->GetResourceManager().GetFontManager());
    EXPECT_EQ(GetFont(manager, "QuorleSerif")->GetName(), "LiberationSerif");
}

TEST(FontOperations, MeasureTextLikeTheStandardFonts)
{
    FontManager manager;
    // A 722, V 722, E 611, space 250 in Times; 667, 667, 667, 278 in Helvetica.
    EXPECT_NEAR(WidthOf(*GetFont(manager, "Times-Roman"), L"AVE "), 2305.0, 1.0);
    EXPECT_NEAR(WidthOf(*GetFont(manager, "Helvetica"), L"AVE "), 2279.0, 1.0);
    EXPECT_NEAR(WidthOf(*GetFont(manager, "Courier"), L"AVE "), 2400.0, 1.0);
}

TEST(FontOperations, GiveOneCharacterForEachUnit)
{
    FontManager manager;
    const auto font = GetFont(manager, "QuorleSerif");
    Characters characters(7);
    ASSERT_TRUE(font->Uni16StringToFontCharacters(L"ABA\u20AC\u0416\u03A9", characters));
    ASSERT_EQ(characters.size(), 6u);
    EXPECT_EQ(characters[0], characters[2]);
    EXPECT_NE(characters[0], characters[1]);
    for (const Character& character : characters) {
        EXPECT_EQ(character.code, character.glyph);
        EXPECT_NE(character.glyph, 0u);
        EXPECT_EQ(character.codeBytes, 2u);
    }
}

TEST(FontOperations, GiveNothingForNoText)
{
    FontManager manager;
    Characters characters(3);
    EXPECT_TRUE(GetFont(manager, "QuorleSerif")->Uni16StringToFontCharacters(View(), characters));
    EXPECT_TRUE(characters.empty());
}

TEST(FontOperations, TakeASurrogatePairForOneCharacter)
{
    FontManager manager;
    // DejaVu Sans has U+1D538, a double-struck A.
    const auto font = GetFont(manager, "Symbol");
    Characters characters;
    EXPECT_TRUE(font->Uni16StringToFontCharacters(L"A\xD835\xDD38Z", characters));
    ASSERT_EQ(characters.size(), 3u);
    EXPECT_NE(characters[1].glyph, 0u);
    EXPECT_NE(characters[1], characters[0]);
}

TEST(FontOperations, LeaveOutLoneSurrogates)
{
    FontManager manager;
    const auto font = GetFont(manager, "Symbol");
    for (const std::wstring text : {L"A\xD835Z", L"A\xDD38Z", L"A\xDD38\xD835Z", L"AZ\xD835",
                                    L"\xDD38"
                                    L"AZ"}) {
        Characters characters;
        EXPECT_FALSE(font->Uni16StringToFontCharacters(View(text.data(), text.size()), characters));
        EXPECT_EQ(characters.size(), 2u);
    }
}

TEST(FontOperations, LeaveOutWhatTheFontLacks)
{
    FontManager manager;
    const auto font = GetFont(manager, "QuorleSerif");
    Characters characters;
    Characters others;
    EXPECT_FALSE(font->Uni16StringToFontCharacters(L"A\u4E00Z", characters));
    EXPECT_TRUE(font->Uni16StringToFontCharacters(L"AZ", others));
    EXPECT_EQ(characters, others);
}

TEST(FontOperations, GiveEachOutlineOnce)
{
    FontManager manager;
    const auto font = GetFont(manager, "QuorleSerif");
    Characters characters;
    ASSERT_TRUE(font->Uni16StringToFontCharacters(L"O ", characters));
    const auto outline = font->GetOutline(characters[0]);
    EXPECT_EQ(outline, font->GetOutline(characters[0]));
    EXPECT_EQ(outline->GetSubpaths().size(), 2u);
    EXPECT_TRUE(font->GetOutline(characters[1])->GetSubpaths().empty());
}

TEST(FontOperations, ReportAMissingFileAndRecover)
{
    FontManager manager;
    setenv("ORV_FONT_PATH", "/nowhere", 1);
    EXPECT_THROW(GetFont(manager, "Courier-Bold"), std::runtime_error);
    unsetenv("ORV_FONT_PATH");
    EXPECT_EQ(GetFont(manager, "Courier-Bold")->GetName(), "LiberationMono-Bold");
}

} // namespace
