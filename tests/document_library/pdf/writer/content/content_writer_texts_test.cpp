#include <gtest/gtest.h>

#include <orv_doc/text.h>
#include <orv_doc/text_group.h>

#include "document_library/pdf/reader/interpreter_test_support.h"
#include "document_library/pdf/writer/writer_test_support.h"

namespace
{

using OrvPdf::ContentStart;
using OrvPdf::SeparationSpaces;
using OrvPdf::WriteContent;
using OrvPdf::WrittenContent;
using OrvPdf::Testing::Fill;
using OrvPdf::Testing::MakePlainFont;
using OrvPdf::Testing::Reading;
using OrvPdf::Testing::Tree;
using OrvPdf::Testing::WriteObjects;
using Place = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;

WrittenContent Write(const Reading& reading)
{
    SeparationSpaces separations(reading.document->GetSeparationInfo());
    return WriteContent(*reading.content, separations, ContentStart::Page);
}

/// What is written for what is read.
std::string Rewritten(std::string_view stream)
{
    Reading reading;
    reading.Read(stream);
    return Write(reading).bytes;
}

/// What is read from what is written, with the fonts by their new names.
std::string TreeOfWritten(const WrittenContent& written)
{
    Reading again;
    for (std::size_t index = 0; index < written.fonts.size(); ++index)
        again.resources.fonts["f" + std::to_string(index)] = written.fonts[index].font;
    again.Read(written.bytes);
    std::string text = Tree(again);
    for (const std::string& error : again.result.errors)
        text += " | " + error;
    return text;
}

/// Whether a stream's objects come back from what is written for them, and are written alike again.
void ExpectBack(std::string_view stream)
{
    Reading reading;
    reading.Read(stream);
    const WrittenContent written = Write(reading);
    EXPECT_TRUE(written.problems.GetTexts("").empty()) << stream;
    EXPECT_EQ(TreeOfWritten(written), Tree(reading)) << written.bytes;
}

std::unique_ptr<OrvDoc::Text> TextOf(const std::string& bytes,
                                     const std::shared_ptr<const OrvFont::Font>& font = MakePlainFont("F"))
{
    std::vector<OrvDoc::TextCharacter> characters;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        characters.push_back({{code, code, 1}, 0, 0});
    }
    return std::make_unique<OrvDoc::Text>(std::move(characters), font, 10.0);
}

std::unique_ptr<OrvDoc::TextGroup> GroupOf(std::unique_ptr<OrvDoc::Text> text)
{
    auto group = std::make_unique<OrvDoc::TextGroup>();
    group->AddOnTop(text.release());
    return group;
}

TEST(ContentWriterTexts, ATextGroupIsATextObject)
{
    EXPECT_EQ(Rewritten("BT /F 12 Tf 5 7 Td (AB) Tj ET"), "BT\n/f0 12 Tf\n1 0 0 1 5 7 Tm\n(AB) Tj\nET\n");
}

TEST(ContentWriterTexts, OnlyWhatDiffersIsSetAgain)
{
    EXPECT_EQ(Rewritten("BT /F 12 Tf (A) Tj 2 Tc (B) Tj ET BT (C) Tj ET"),
              "BT\n/f0 12 Tf\n1 0 0 1 0 0 Tm\n(A) Tj\n2 Tc\n1 0 0 1 6 0 Tm\n(B) Tj\nET\n"
              "BT\n1 0 0 1 0 0 Tm\n(C) Tj\nET\n");
}

TEST(ContentWriterTexts, StepsAreTheirOperators)
{
    EXPECT_EQ(
        Rewritten(
            "BT /F 10 Tf [(A) -120 3 (B)] TJ 1 -2 Td (C) Tj 95 Tz 3 Ts (D) Tj 1 0 0 1 7 8 Tm (E) Tj ET"),
        "BT\n/f0 10 Tf\n1 0 0 1 0 0 Tm\n[(A)-120 3(B)] TJ\n1 -2 Td\n(C) Tj\n95 Tz\n3 Ts\n(D) Tj\n"
        "1 0 0 1 7 8 Tm\n(E) Tj\nET\n");
}

TEST(ContentWriterTexts, ScaleAndRiseOfATextBeforeDoNotLast)
{
    EXPECT_EQ(Rewritten("BT /F 10 Tf 50 Tz 2 Ts (A) Tj ET BT 100 Tz 0 Ts (B) Tj ET"),
              "BT\n/f0 10 Tf\n1 0 0 1 0 0 Tm\n50 Tz\n2 Ts\n(A) Tj\nET\n"
              "BT\n1 0 0 1 0 0 Tm\n100 Tz\n0 Ts\n(B) Tj\nET\n");
}

TEST(ContentWriterTexts, StringsEscapeWhatTheyMust)
{
    EXPECT_EQ(Rewritten("BT /F 10 Tf (a\\(b\\)c\\\\d) Tj ET"),
              "BT\n/f0 10 Tf\n1 0 0 1 0 0 Tm\n(a\\(b\\)c\\\\d) Tj\nET\n");
    EXPECT_EQ(Rewritten("BT /F 10 Tf <00FF0180> Tj ET"),
              "BT\n/f0 10 Tf\n1 0 0 1 0 0 Tm\n<00FF0180> Tj\nET\n");
    EXPECT_EQ(Rewritten("BT /F 10 Tf <414243444500> Tj ET"),
              "BT\n/f0 10 Tf\n1 0 0 1 0 0 Tm\n(ABCDE\\000) Tj\nET\n");
    EXPECT_EQ(Rewritten("BT /F 10 Tf <41424344459C> Tj ET"),
              "BT\n/f0 10 Tf\n1 0 0 1 0 0 Tm\n(ABCDE\\234) Tj\nET\n");
}

TEST(ContentWriterTexts, RenderingModesAreThoseOfThePaints)
{
    EXPECT_EQ(Rewritten("BT /F 10 Tf 1 Tr (A) Tj 2 Tr (B) Tj 3 Tr (C) Tj ET"),
              "BT\n/f0 10 Tf\n1 Tr\n1 0 0 1 0 0 Tm\n(A) Tj\n2 Tr\n1 0 0 1 5 0 Tm\n(B) Tj\n"
              "3 Tr\n1 0 0 1 10 0 Tm\n(C) Tj\nET\n");
}

TEST(ContentWriterTexts, ATextGroupThatClipsIsATextObjectThatClips)
{
    EXPECT_EQ(Rewritten("q BT /F 10 Tf 7 Tr (A) Tj ET 0 0 m 1 0 l S Q"),
              "q\nBT\n/f0 10 Tf\n7 Tr\n1 0 0 1 0 0 Tm\n(A) Tj\nET\n0 0 m\n1 0 l\nS\nQ\n");
}

TEST(ContentWriterTexts, ATextInNoTextGroupIsMarked)
{
    EXPECT_EQ(OrvPdf::Testing::BytesOf(TextOf("A")),
              "/OrvObject BMC\nBT\n/f0 10 Tf\n3 Tr\n1 0 0 1 0 0 Tm\n(A) Tj\nET\nEMC\n");
}

TEST(ContentWriterTexts, ATextWithoutCharactersIsMarked)
{
    const WrittenContent written = WriteObjects(TextOf(""));
    EXPECT_EQ(written.bytes,
              "/OrvObject <</Empty true>> BDC\nBT\n/f0 10 Tf\n3 Tr\n1 0 0 1 0 0 Tm\n() Tj\nET\nEMC\n");
    EXPECT_EQ(TreeOfWritten(written), "F 10 ()");
}

TEST(ContentWriterTexts, CharactersThatArePlacedOneByOneComeBackExactly)
{
    auto text = TextOf("ABCD");
    text->SetTextTransformation({0.3, 0.1, -0.2, 0.7, 1234.5, 0.1});
    const std::vector<Place> places{{1, 0, 0, 1, 0.1, 0.2},
                                    {1, 0, 0, 1, 1.0 / 3.0, 0.2},
                                    {0.1, 0.7, -0.7, 0.1, 5.3, 1e-7},
                                    {1, 0, 0, 1, 7.1, 3.3}};
    text->SetCharacterTransformations(places);
    const WrittenContent written = WriteObjects(GroupOf(std::move(text)));
    Reading again;
    again.resources.fonts["f0"] = written.fonts[0].font;
    again.Read(written.bytes);
    const auto* const group = dynamic_cast<const OrvDoc::TextGroup*>(again.content->GetChildren().first);
    ASSERT_TRUE(group);
    const auto* const back = dynamic_cast<const OrvDoc::Text*>(group->children.first);
    ASSERT_TRUE(back);
    EXPECT_FALSE(back->next);
    EXPECT_EQ(back->GetCharacterTransformations(), places);
}

TEST(ContentWriterTexts, StreamsComeBackAsTheyAre)
{
    for (const char* const stream : {
             "BT /F 10 Tf 1.1 0 0 1.3 10.7 20.9 Tm (A) Tj 1.1 0 0 1.3 11.3 4.7 Tm (B) Tj 0 -1.7 Td (C) Tj ET",
             "BT /F 10 Tf .3 .1 -.1 .3 1 2 Tm (A) Tj .7 .1 -.1 .7 3 4 Tm (B) Tj .7 .1 -.1 .7 5.1 6.3 Tm (C) "
             "Tj ET",
             "BT /F 10 Tf (A) Tj /G 10 Tf (B) Tj 0 -12 Td (C) Tj ET",
             "BT /V 10 Tf [(A) 300 (B)] TJ 95 Tz 3 Ts /F 10 Tf [(C) -7 (D)] TJ ET",
             "q BT /F 10 Tf 7 Tr (A) Tj /G 10 Tf (B) Tj ET 0 0 m 1 0 l S Q",
             "q BT /F 10 Tf 6 Tr (A) Tj ET 0 0 m 1 0 l S Q BT (B) Tj ET",
             "2 0 0 2 1 1 cm BT /F 10 Tf (A) Tj /Span <</MCID 3>> BDC (B) Tj EMC ET",
             "q 2 0 0 2 1 1 cm BT /F 10 Tf 7 Tr (A) Tj ET 0 0 m 1 0 l S Q",
             "BT /F 10 Tf (A) Tj /OrvLine <</Matrix [1 0 0 1 2 3]>> DP 1 0 0 1 2 3 Tm (B) Tj ET",
             "BT ET",
             "BT /P BMC EMC ET",
             "/OrvTextGroup <</Name (g)>> BDC BT /F 10 Tf (A) Tj ET q 1 0 0 1 2 3 cm BT (B) Tj ET Q EMC",
             "/OrvGroup <</OwnClips 1>> BDC q /OrvTextGroup <</Clip true /Name (c)>> BDC BT /F 10 Tf 7 Tr "
             "(A) Tj "
             "ET EMC 0 0 m 1 0 l S Q EMC",
         }) {
        ExpectBack(stream);
    }
}

TEST(ContentWriterTexts, TextsThatDifferInNothingStayApart)
{
    const auto font = MakePlainFont("F");
    auto group = GroupOf(TextOf("A", font));
    group->AddOnTop(TextOf("B", font).release());
    const WrittenContent written = WriteObjects(std::move(group));
    EXPECT_EQ(written.bytes,
              "BT\n/f0 10 Tf\n3 Tr\n1 0 0 1 0 0 Tm\n(A) Tj\n1 0 0 1 0 0 Tm\n/OrvText MP\n(B) Tj\nET\n");
    EXPECT_EQ(TreeOfWritten(written), "text[F 10 (A); F 10 (B)]");
}

TEST(ContentWriterTexts, CharactersThatTheFontReadsOtherwiseAreTold)
{
    // The font has codes of one byte.
    std::vector<OrvDoc::TextCharacter> characters{{{65, 65, 2}, 0, 0}};
    const WrittenContent written =
        WriteObjects(std::make_unique<OrvDoc::Text>(characters, MakePlainFont("F"), 10.0));
    EXPECT_EQ(written.bytes, "");
    EXPECT_FALSE(written.problems.IsEmpty());
}

TEST(ContentWriterTexts, SourcesAndFlagsOfCharactersAreTold)
{
    for (const OrvDoc::TextCharacter& character :
         {OrvDoc::TextCharacter{{65, 65, 1}, 7, 0}, OrvDoc::TextCharacter{{65, 65, 1}, 0, 1}}) {
        const WrittenContent written = WriteObjects(std::make_unique<OrvDoc::Text>(
            std::vector<OrvDoc::TextCharacter>{character}, MakePlainFont("F"), 10.0));
        EXPECT_NE(written.bytes, "");
        EXPECT_FALSE(written.problems.IsEmpty());
    }
}

TEST(ContentWriterTexts, WhatCannotBeWrittenIsTold)
{
    auto infinite = TextOf("A");
    infinite->SetCharSpacing(std::numeric_limits<double>::infinity());
    auto flat = TextOf("A");
    flat->SetTextTransformation({0, 0, 0, 1, 0, 0});
    flat->SetCharacterTransformations({Place(1, 0, 0, 1, 5, 5)});
    const WrittenContent written = WriteObjects(std::move(infinite), std::move(flat));
    EXPECT_EQ(written.bytes, "");
    EXPECT_EQ(written.problems.GetTexts("").size(), 2U);
}

} // namespace
