#include <harrow_support/factories.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/resource_manager.h>
#include <orv_font/font.h>
#include <orv_font/font_manager.h>
#include <orv_sys/uni16char.h>

#include "support/document_makers.h"
#include "support/recording_reporter.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* complaint = "Failed to convert UTF-8 string to font characters\n";

/// The glyph of each character.
std::vector<std::uint32_t> Glyphs(const OrvDoc::Text& text)
{
    std::vector<std::uint32_t> glyphs;
    for (const OrvDoc::TextCharacter& character : text.GetText())
        glyphs.push_back(character.character.glyph);
    return glyphs;
}

/// Texts of one document.
class CreatingText : public ::testing::Test
{
protected:
    /// Fails unless that is all that is said on the standard error stream.
    std::unique_ptr<OrvDoc::Text> Create(boost::string_view text, const std::string& said = "")
    {
        ::testing::internal::CaptureStderr();
        auto created = CreateText(text, content);
        EXPECT_EQ(::testing::internal::GetCapturedStderr(), said);
        return created;
    }

    std::unique_ptr<OrvDoc::Document> document = NewDocument();
    OrvDoc::Content& content = ContentOf(*document);
};

TEST_F(CreatingText, GivesACharacterOfTheFontForEachLetter)
{
    const auto text = Create("Ba\xC3\xA4");
    const auto& font = *text->GetFont();
    std::vector<OrvFont::Character> characters;
    const std::wstring units = L"Ba\u00E4";
    ASSERT_TRUE(font.Uni16StringToFontCharacters({units.data(), units.size()}, characters));
    ASSERT_THAT(text->GetText(), SizeIs(3));
    for (std::size_t index = 0; index < 3; ++index)
        EXPECT_EQ(text->GetText()[index], (OrvDoc::TextCharacter{characters[index], 0, 0})) << index;
}

TEST_F(CreatingText, GivesFourteenPointsAndTheDefaults)
{
    const auto text = Create("Text");
    EXPECT_EQ(text->GetSize(), 14.0);
    EXPECT_EQ(text->GetCharSpacing().value, 0.0);
    EXPECT_EQ(text->GetWordSpacing().value, 0.0);
    EXPECT_EQ(text->GetTextTransformation(), Matrix());
    EXPECT_EQ(OrvDoc::GetAbsoluteTransformation(*text), Matrix());
    EXPECT_EQ(text->GetFillPaint(), nullptr);
    EXPECT_EQ(text->GetStrokePaint(), nullptr);
    EXPECT_EQ(text->GetTransparency(), nullptr);
    EXPECT_EQ(text->GetName(), "");
}

TEST_F(CreatingText, TakesTheFontOfTheDocument)
{
    const auto font = document->GetResourceManager().GetFontManager().GetOrCreateFont(
        OrvFont::GetFontIDForFontName("QuorleSerif"), OrvFont::WritingMode::Horizontal);
    EXPECT_EQ(Create("one")->GetFont(), font);
    EXPECT_EQ(Create("two")->GetFont(), font);
}

TEST_F(CreatingText, OfAnEmptyStringGivesATextWithoutCharacters)
{
    EXPECT_THAT(Create("")->GetText(), IsEmpty());
    EXPECT_THAT(Create(boost::string_view())->GetText(), IsEmpty());
}

TEST_F(CreatingText, TakesNoMoreThanTheViewedPart)
{
    const boost::string_view longer = "text and more";
    EXPECT_EQ(Glyphs(*Create(longer.substr(0, 4))), Glyphs(*Create("text")));
}

TEST_F(CreatingText, EndsAtAZeroByte)
{
    EXPECT_EQ(Glyphs(*Create(boost::string_view("te\0xt", 5))), Glyphs(*Create("te")));
}

TEST_F(CreatingText, ComplainsAboutACharacterThatTheFontLacksAndGoesOn)
{
    // A Chinese character between two letters.
    EXPECT_EQ(Glyphs(*Create("a\xE6\x96\x87z", complaint)), Glyphs(*Create("az")));
}

TEST_F(CreatingText, ComplainsOnceAboutManyCharacters)
{
    EXPECT_THAT(Create("\xE6\x96\x87\xE5\xAD\x97", complaint)->GetText(), IsEmpty());
}

TEST_F(CreatingText, OfWhatIsNotUTF8IsEmptyWithNothingSaid)
{
    for (const char* bytes : {"a\xFFz", "\xC3", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80"})
        EXPECT_THAT(Create(bytes)->GetText(), IsEmpty()) << bytes;
}

TEST_F(CreatingText, TakesACharacterOutsideThePlaneAsOne)
{
    // U+1D400 is no character of the font, and neither of its two units is one by itself.
    EXPECT_EQ(Glyphs(*Create("a\xF0\x9D\x90\x80z", complaint)), Glyphs(*Create("az")));
    // It fits where all bytes make as many units as they can.
    EXPECT_THAT(Create("\xF0\x9D\x90\x80\xF0\x9D\x90\x80", complaint)->GetText(), IsEmpty());
}

TEST_F(CreatingText, LeavesTheContentAsItIs)
{
    Fill(content, Square("path"));
    const OrvDoc::ContentObject* const only = content.GetChildren().first;
    const auto text = Create("text");
    EXPECT_EQ(content.GetChildren().first, only);
    EXPECT_EQ(content.GetChildren().last, only);
    EXPECT_EQ(text->GetContent(), nullptr);
    EXPECT_EQ(text->GetParentGroup(), nullptr);
}

TEST_F(CreatingText, TwiceGivesEqualTexts)
{
    const auto other = NewDocument();
    const auto one = CreateTextGroup("the same", content);
    const auto two = CreateTextGroup("the same", ContentOf(*other));
    ExpectReports<OrvDoc::ContentObject>(*one->children.first, *two->children.first, {});
    EXPECT_THAT(
        CompareLines<OrvDoc::ContentObject>(*CreateText("same", content), *CreateText("some", content)),
        SizeIs(3))
        << "places, characters, outlines";
}

TEST_F(CreatingText, InAGroupGivesATextGroupWithThatTextAlone)
{
    const std::unique_ptr<OrvDoc::TextGroup> group = CreateTextGroup("text", content);
    ASSERT_NE(group->children.first, nullptr);
    EXPECT_EQ(group->children.first, group->children.last);
    const auto& text = dynamic_cast<const OrvDoc::Text&>(*group->children.first);
    EXPECT_EQ(Glyphs(text), Glyphs(*Create("text")));
    EXPECT_EQ(text.GetParentGroup(), group.get());
    EXPECT_EQ(group->GetFlags(), OrvDoc::TextGroup().GetFlags());
    EXPECT_EQ(group->GetContent(), nullptr);
    EXPECT_EQ(content.GetChildren().first, nullptr);
}

} // namespace
} // namespace HarrowSupport::Testing
