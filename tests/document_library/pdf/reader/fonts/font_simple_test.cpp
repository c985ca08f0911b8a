// Simple fonts of a file: codes, widths, encodings.

#include "pdf/reader/fonts/simple_font_reader.h"

#include <gmock/gmock.h>

#include "document_library/pdf/reader/font_files.h"
#include "support/made_programs.h"

namespace
{

using namespace HarrowSupport::Testing;
using namespace ReaderTests;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A font with a program of two glyphs: `triangle` and `A` have the codes 65 and 66.
std::vector<std::string> SimpleFont(const std::string& entries, const std::string& descriptorEntries = "")
{
    return {"<< /Type /Font /Subtype /Type1 /BaseFont /Made /FontDescriptor 4 0 R " + entries + " >>",
            "<< /Type /FontDescriptor /Flags 4 /FontBBox [0 0 1 1] /FontFile 5 0 R " + descriptorEntries +
                " >>",
            PdfStream(MakeType1(MakeSampleType1())), PdfStream("1 beginbfchar <41> <03B1> endbfchar")};
}

std::string ProgramOutline(std::uint32_t glyph)
{
    return HarrowSupport::Testing::OutlineOf(*OpenProgram(MakeType1(MakeSampleType1())), glyph);
}

std::vector<double> AdvancesOf(const OrvFont::Font& font, const std::string& bytes)
{
    std::vector<double> advances;
    for (const OrvFont::Character& character : Decode(font, bytes))
        advances.push_back(font.GetAdvance(character));
    return advances;
}

TEST(SimpleFont, HasACharacterForEachByte)
{
    FontFile file(SimpleFont("/FirstChar 65 /LastChar 65 /Widths [600]"));
    const auto characters = Decode(*file.Read(), std::string("A\0\xFF", 3));
    EXPECT_THAT(characters, ElementsAre(OrvFont::Character{65, 65, 1}, OrvFont::Character{0, 0, 1},
                                        OrvFont::Character{255, 255, 1}));
    EXPECT_FALSE(OrvFont::IsWordSpace(characters[0]));
    EXPECT_TRUE(OrvFont::IsWordSpace(Decode(*file.Read(), " ")[0]));
}

TEST(SimpleFont, AdvancesByItsWidthsAndNotByThoseOfTheProgram)
{
    FontFile file(SimpleFont("/FirstChar 65 /LastChar 67 /Widths [100 200.5 300]", "/MissingWidth 50"));
    EXPECT_THAT(AdvancesOf(*file.Read(), "@ABCD"), ElementsAre(50.0, 100.0, 200.5, 300.0, 50.0));
}

TEST(SimpleFont, AdvancesByNothingWhereNoWidthIsStated)
{
    FontFile file(SimpleFont("/FirstChar 65 /LastChar 65 /Widths [600]"));
    EXPECT_THAT(AdvancesOf(*file.Read(), "@"), ElementsAre(0.0));
}

TEST(SimpleFont, AdvancesByItsProgramWithoutWidths)
{
    FontFile file(SimpleFont(""));
    EXPECT_THAT(AdvancesOf(*file.Read(), "ABC"), ElementsAre(600.0, 722.0, 500.0));
}

TEST(SimpleFont, TellsThatWidthsAreMissingUnlessItIsAStandardOne)
{
    FontFile own(SimpleFont(""));
    own.Read();
    EXPECT_THAT(own.problems, ElementsAre("the font Made: Widths is missing; those of the program count"));
    FontFile standard({"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica-Oblique >>"});
    standard.Read();
    EXPECT_THAT(standard.problems, ElementsAre(HasSubstr("is not embedded")));
}

TEST(SimpleFont, TellsThatWidthsAreFewerThanSaid)
{
    FontFile file(SimpleFont("/FirstChar 65 /LastChar 67 /Widths [100]", "/MissingWidth 50"));
    const auto font = file.Read();
    EXPECT_THAT(file.problems,
                ElementsAre("the font Made: Widths has 1 entries and not 3; MissingWidth counts "
                            "for the others"));
    EXPECT_THAT(AdvancesOf(*font, "AB"), ElementsAre(100.0, 50.0));
}

TEST(SimpleFont, KeepsThePlacesOfWidthsBehindOneThatIsNone)
{
    FontFile file(SimpleFont("/FirstChar 65 /LastChar 67 /Widths [100 (a) 300]", "/MissingWidth 50"));
    const auto font = file.Read();
    EXPECT_THAT(file.problems, ElementsAre("the font Made: 1 entries of Widths are no numbers"));
    EXPECT_THAT(AdvancesOf(*font, "ABC"), ElementsAre(100.0, 50.0, 300.0));
}

TEST(SimpleFont, HasNoMoreWidthsThanCodes)
{
    std::string widths;
    for (int count = 0; count < 100000; ++count)
        widths += "7 ";
    FontFile file(SimpleFont("/FirstChar 250 /LastChar 2147483647 /Widths [" + widths + "]"));
    EXPECT_THAT(AdvancesOf(*file.Read(), "\xF9\xFF"), ElementsAre(0.0, 7.0));
}

TEST(SimpleFont, LeavesOutWidthsWithoutAFirstCode)
{
    for (const char* const first :
         {"", "/FirstChar -1", "/FirstChar 256", "/FirstChar 99999999999999", "/FirstChar (A)"}) {
        FontFile file(SimpleFont(std::string(first) + " /LastChar 66 /Widths [100 200]"));
        const auto font = file.Read();
        EXPECT_THAT(file.problems, ElementsAre("the font Made: FirstChar is no code; Widths is left out"))
            << first;
        EXPECT_THAT(AdvancesOf(*font, "A"), ElementsAre(600.0)) << first;
    }
}

TEST(SimpleFont, DrawsByTheProgramsOwnEncoding)
{
    FontFile file(SimpleFont(""));
    const auto font = file.Read();
    EXPECT_EQ(OutlineOf(*font, "A"), ProgramOutline(1));
    EXPECT_EQ(OutlineOf(*font, "B"), ProgramOutline(2));
}

TEST(SimpleFont, DrawsByTheNamedEncoding)
{
    FontFile file(SimpleFont("/Encoding /WinAnsiEncoding"));
    EXPECT_EQ(OutlineOf(*file.Read(), "A"), ProgramOutline(2));
}

TEST(SimpleFont, DrawsByDifferencesFromAnEncoding)
{
    FontFile file(SimpleFont("/Encoding << /BaseEncoding /MacRomanEncoding /Differences [3 /triangle /A 65 "
                             "/triangle] >>"));
    const auto font = file.Read();
    EXPECT_EQ(OutlineOf(*font, "\x03"), ProgramOutline(1));
    EXPECT_EQ(OutlineOf(*font, "\x04"), ProgramOutline(2));
    EXPECT_EQ(OutlineOf(*font, "A"), ProgramOutline(1));
}

TEST(SimpleFont, DrawsTheProgramsGlyphForWhatItLacks)
{
    MadeType1Font program = MakeSampleType1();
    program.glyphs[0] = {".notdef", 500, 1, 2, 3, 4};
    std::vector<std::string> objects = SimpleFont("");
    objects[2] = PdfStream(MakeType1(program));
    FontFile file(objects);
    EXPECT_EQ(OutlineOf(*file.Read(), "z"),
              HarrowSupport::Testing::OutlineOf(*OpenProgram(MakeType1(program)), 0));
}

TEST(SimpleFont, DrawsNothingForWhatItsReplacementLacks)
{
    FontFile file({"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica /Encoding << /Differences [65 /g17 "
                   "/.notdef] >> >>"});
    const auto font = file.Read();
    EXPECT_EQ(OutlineOf(*font, "A"), "");
    EXPECT_EQ(OutlineOf(*font, "B"), "");
    EXPECT_NE(OutlineOf(*font, "C"), "");
}

TEST(SimpleFont, TellsWhatIsWrongWithItsEncoding)
{
    const auto problemsOf = [](const std::string& encoding) {
        FontFile file(SimpleFont("/FirstChar 65 /Widths [600] /Encoding " + encoding));
        EXPECT_TRUE(file.Read());
        return file.problems;
    };
    EXPECT_THAT(problemsOf("/NoEncoding"),
                ElementsAre("the font Made: Encoding: there is no encoding NoEncoding"));
    EXPECT_THAT(problemsOf("7"), ElementsAre(HasSubstr("neither a name nor a dictionary")));
    EXPECT_THAT(problemsOf("<< /Differences 7 >>"), ElementsAre(HasSubstr("Differences is no array")));
    EXPECT_THAT(problemsOf("<< /Differences [/A 255 /B /C -7 /D (x) 9999999999 /E] >>"),
                ElementsAre(HasSubstr("5 entries of Differences")));
    EXPECT_THAT(problemsOf("<< >>"), IsEmpty());
}

TEST(SimpleFont, SymbolHasAnEncodingOfItsOwn)
{
    FontFile file({"<< /Type /Font /Subtype /Type1 /BaseFont /Symbol >>",
                   "<< /Type /Font /Subtype /Type1 /BaseFont /ZapfDingbats /Encoding /WinAnsiEncoding >>"});
    EXPECT_EQ(OrvPdf::GetFileFont(*file.Read(3))->GetText({97, 97, 1}), u"\u03B1");
    EXPECT_EQ(OrvPdf::GetFileFont(*file.Read(4))->GetText({0x21, 0x21, 1}), u"\u2701");
    EXPECT_NE(OutlineOf(*file.Read(3), "a"), "");
    EXPECT_NE(OutlineOf(*file.Read(4), "!"), "");
}

TEST(SimpleFont, ReadsATrueTypeFontWithoutProgramOrEncodingAsThatOfWindows)
{
    FontFile file({"<< /Type /Font /Subtype /TrueType /BaseFont /Arial >>",
                   "<< /Type /Font /Subtype /Type1 /BaseFont /Arial >>"});
    EXPECT_EQ(OrvPdf::GetFileFont(*file.Read(3))->GetText({0xE4, 0xE4, 1}), u"\u00E4");
    EXPECT_EQ(OrvPdf::GetFileFont(*file.Read(4))->GetText({0xE1, 0xE1, 1}), u"\u00C6");
}

TEST(SimpleFont, TellsTheTextOfCodes)
{
    FontFile file(SimpleFont("/ToUnicode 6 0 R /Encoding << /Differences [67 /uni0416] >>"));
    const auto font = file.Read();
    const auto* const source = OrvPdf::GetFileFont(*font);
    EXPECT_EQ(source->GetText({65, 65, 1}), u"\u03B1") << "by the map";
    EXPECT_EQ(source->GetText({67, 67, 1}), u"\u0416") << "by the name of the encoding";
    EXPECT_EQ(source->GetText({66, 66, 1}), u"A") << "by the name in the program";
    EXPECT_EQ(source->GetText({68, 68, 1}), u"");
}

TEST(SimpleFont, FindsTheCodesOfATextThatItCanShow)
{
    FontFile file(SimpleFont("/ToUnicode 6 0 R /Encoding << /Differences [67 /B] >>"));
    const auto font = file.Read();
    std::vector<OrvFont::Character> characters;
    EXPECT_TRUE(font->Uni16StringToFontCharacters(L"\u03B1A", characters));
    EXPECT_THAT(characters, ElementsAre(OrvFont::Character{65, 65, 1}, OrvFont::Character{66, 66, 1}));
    EXPECT_FALSE(font->Uni16StringToFontCharacters(L"AB", characters)) << "the program has no B";
    EXPECT_THAT(characters, ElementsAre(OrvFont::Character{66, 66, 1}));
}

} // namespace
