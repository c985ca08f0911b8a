// Composite fonts of a file: CMaps, CIDs, widths, vertical writing, and the glyphs of each kind of program.

#include "pdf/reader/fonts/composite_font_reader.h"

#include <gmock/gmock.h>

#include "document_library/pdf/reader/font_files.h"
#include "pdf/fonts/composite_font.h"
#include "support/made_programs.h"

namespace
{

using namespace HarrowSupport::Testing;
using namespace ReaderTests;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

enum class Program
{
    None,
    TrueType,
    Compact,
    CidKeyed
};

std::string MakeProgram(Program kind)
{
    MadeCompactFont compact = MakeSampleCompactFont();
    compact.isCidKeyed = kind == Program::CidKeyed;
    return kind == Program::TrueType ? JoinTrueType(MakeSampleTrueTypeTables()) : MakeCompactFont(compact);
}

/// A composite font, the object 3, with its CIDFont, 4, and its program, 6. More objects are those from 7.
std::vector<std::string> Composite(Program kind, const std::string& entries,
                                   const std::string& encoding = "/Identity-H",
                                   const std::vector<std::string>& more = {})
{
    const std::string subtype = kind == Program::TrueType ? "CIDFontType2" : "CIDFontType0";
    const std::string programKey = kind == Program::TrueType ? "/FontFile2 6 0 R" : "/FontFile3 6 0 R";
    std::vector<std::string> objects = {
        "<< /Type /Font /Subtype /Type0 /BaseFont /ABCDEF+Made-Identity-H /Encoding " + encoding +
            " /DescendantFonts [4 0 R] /ToUnicode 7 0 R >>",
        "<< /Type /Font /Subtype /" + subtype + " /BaseFont /ABCDEF+Made-Bold /FontDescriptor 5 0 R " +
            entries + " >>",
        "<< /Type /FontDescriptor /FontBBox [0 0 1 1] /Flags 4 " +
            (kind == Program::None ? std::string() : programKey) + " >>",
        PdfStream(MakeProgram(kind))};
    objects.insert(objects.end(), more.begin(), more.end());
    return objects;
}

std::string ProgramOutline(Program kind, std::uint32_t glyph, const OrvFont::Font::Point& origin = {0.0, 0.0})
{
    return HarrowSupport::Testing::OutlineOf(*OpenProgram(MakeProgram(kind)), glyph, origin);
}

std::string Code(unsigned value)
{
    return {static_cast<char>(value >> 8U), static_cast<char>(value & 0xFFU)};
}

double AdvanceOfCid(const OrvFont::Font& font, unsigned cid)
{
    return AdvanceOf(font, Code(cid));
}

TEST(CompositeFont, HasTheNamesOfItsCidFont)
{
    FontFile file(Composite(Program::TrueType, ""));
    const auto font = file.Read();
    ASSERT_TRUE(font);
    EXPECT_THAT(file.problems, IsEmpty());
    EXPECT_EQ(font->GetName(), "Made-Bold");
    EXPECT_EQ(font->GetFamilyName(), "Made");
    EXPECT_EQ(font->GetStyleName(), "Bold");
}

TEST(CompositeFont, HasCodesOfTwoBytesUnderTheIdentity)
{
    FontFile file(Composite(Program::TrueType, ""));
    const auto font = file.Read();
    EXPECT_THAT(Decode(*font, std::string("\x12\x34\x00\x20", 4)),
                ElementsAre(OrvFont::Character{0x1234, 0x1234, 2}, OrvFont::Character{0x20, 0x20, 2}));
    EXPECT_THAT(Decode(*font, "\x12\x34\x56"), SizeIs(2)) << "half a code is one";
    EXPECT_FALSE(OrvFont::IsWordSpace(Decode(*font, Code(0x20))[0]));
}

TEST(CompositeFont, HasTheCodesOfItsEmbeddedMap)
{
    const std::string map = "1 begincodespacerange <20> <7E> endcodespacerange\n"
                            "1 begincodespacerange <8000> <FFFF> endcodespacerange\n"
                            "1 begincidrange <41> <42> 1 endcidrange 1 begincidchar <8001> 3 endcidchar";
    FontFile file(Composite(Program::TrueType, "", "8 0 R", {"null", PdfStream(map)}));
    const auto font = file.Read();
    EXPECT_THAT(Decode(*font, "A\x80\x01\x42"),
                ElementsAre(OrvFont::Character{0x41, 1, 1}, OrvFont::Character{0x8001, 3, 2},
                            OrvFont::Character{0x42, 2, 1}));
    EXPECT_EQ(OutlineOf(*font, "\x80\x01"), ProgramOutline(Program::TrueType, 3));
}

TEST(CompositeFont, HasTheCodesOfTheMapsThatItsMapStandsOn)
{
    const std::string own = "1 begincodespacerange <00> <FF> endcodespacerange\n"
                            "1 begincidchar <42> 2 endcidchar";
    const std::string bottom = "1 begincodespacerange <00> <FF> endcodespacerange\n"
                               "2 begincidchar <41> 1 <42> 9 endcidchar";
    FontFile file(Composite(Program::TrueType, "", "8 0 R",
                            {"null", PdfStream(own, "/UseCMap 9 0 R"), PdfStream(bottom)}));
    EXPECT_THAT(Decode(*file.Read(), "AB"),
                ElementsAre(OrvFont::Character{0x41, 1, 1}, OrvFont::Character{0x42, 2, 1}));
}

TEST(CompositeFont, EndsTheCircleOfMaps)
{
    const std::string map = "1 begincodespacerange <00> <FF> endcodespacerange";
    FontFile file(Composite(Program::TrueType, "", "8 0 R",
                            {"null", PdfStream(map, "/UseCMap 9 0 R"), PdfStream(map, "/UseCMap 8 0 R")}));
    ASSERT_TRUE(file.Read());
    EXPECT_THAT(file.problems, ElementsAre(HasSubstr("UseCMap leads in a circle")));
}

TEST(CompositeFont, ReadsAnUnknownMapAsTheIdentity)
{
    FontFile horizontal(Composite(Program::TrueType, "", "/Unheard-H"));
    const auto font = horizontal.Read();
    EXPECT_THAT(horizontal.problems, ElementsAre("the font Made-Bold: Encoding: there is no CMap Unheard-H"));
    EXPECT_EQ(font->GetWritingMode(), OrvFont::WritingMode::Horizontal);
    EXPECT_THAT(Decode(*font, Code(7)), ElementsAre(OrvFont::Character{7, 7, 2}));
    FontFile vertical(Composite(Program::TrueType, "", "/Unheard-V"));
    EXPECT_EQ(vertical.Read()->GetWritingMode(), OrvFont::WritingMode::Vertical);
}

TEST(CompositeFont, DrawsGlyphsByCidWithoutAMap)
{
    for (const char* const entries : {"", "/CIDToGIDMap /Identity"}) {
        FontFile file(Composite(Program::TrueType, entries));
        EXPECT_EQ(OutlineOf(*file.Read(), Code(2)), ProgramOutline(Program::TrueType, 2)) << entries;
    }
}

TEST(CompositeFont, DrawsGlyphsThroughItsMap)
{
    FontFile file(Composite(Program::TrueType, "/CIDToGIDMap 8 0 R", "/Identity-H",
                            {"null", PdfStream(std::string("\0\0\0\3\0\1\0", 7))}));
    const auto font = file.Read();
    EXPECT_EQ(OutlineOf(*font, Code(1)), ProgramOutline(Program::TrueType, 3));
    EXPECT_EQ(OutlineOf(*font, Code(2)), ProgramOutline(Program::TrueType, 1));
    for (const unsigned cid : {3U, 4U, 0xFFFFU})
        EXPECT_EQ(OutlineOf(*font, Code(cid)), ProgramOutline(Program::TrueType, 0))
            << "behind the map's end";
}

TEST(CompositeFont, TellsThatItsMapIsDamagedWhenItIsUsed)
{
    FontFile file(Composite(Program::TrueType, "/CIDToGIDMap 8 0 R", "/Identity-H",
                            {"null", PdfStream("0000 00zz>", "/Filter /ASCIIHexDecode")}));
    const auto font = file.Read();
    EXPECT_THAT(file.TakeLateTexts(), IsEmpty());
    OutlineOf(*font, Code(1));
    EXPECT_THAT(file.TakeLateTexts(), ElementsAre(StartsWith("the font Made-Bold: its CIDToGIDMap: ")));
}

TEST(CompositeFont, LeavesItsStreamsAloneUntilAnOutlineIsAskedFor)
{
    FontFile file(Composite(Program::TrueType, "/CIDToGIDMap 8 0 R /W [1 [700]]", "/Identity-H",
                            {PdfStream("map"), PdfStream(std::string("\0\0\0\3", 4))}));
    const auto font = file.Read();
    EXPECT_EQ(AdvanceOfCid(*font, 1), 700.0);
    EXPECT_EQ(file.GetDecodedBytes(), 0U);
    OutlineOf(*font, Code(1));
    EXPECT_GT(file.GetDecodedBytes(), 0U);
}

TEST(CompositeFont, DrawsGlyphsOfACidKeyedProgramByTheirCids)
{
    FontFile file(Composite(Program::CidKeyed, ""));
    const auto font = file.Read();
    EXPECT_EQ(OutlineOf(*font, Code(40)), ProgramOutline(Program::CidKeyed, 1));
    EXPECT_EQ(OutlineOf(*font, Code(70)), ProgramOutline(Program::CidKeyed, 2));
    EXPECT_EQ(OutlineOf(*font, Code(1)), ProgramOutline(Program::CidKeyed, 0));
}

TEST(CompositeFont, DrawsGlyphsOfANamedProgramByTheirNumbers)
{
    FontFile file(Composite(Program::Compact, ""));
    EXPECT_EQ(OutlineOf(*file.Read(), Code(2)), ProgramOutline(Program::Compact, 2));
}

TEST(CompositeFont, AdvancesByItsWidths)
{
    FontFile file(Composite(Program::TrueType, "/DW 300 /W [2 [10 20.5] 100 200 55 5 5 (odd) 7 7 77]"));
    const auto font = file.Read();
    EXPECT_EQ(AdvanceOfCid(*font, 1), 300.0);
    EXPECT_EQ(AdvanceOfCid(*font, 2), 10.0);
    EXPECT_EQ(AdvanceOfCid(*font, 3), 20.5);
    EXPECT_EQ(AdvanceOfCid(*font, 4), 300.0);
    EXPECT_EQ(AdvanceOfCid(*font, 100), 55.0);
    EXPECT_EQ(AdvanceOfCid(*font, 200), 55.0);
    EXPECT_EQ(AdvanceOfCid(*font, 201), 300.0);
    EXPECT_EQ(AdvanceOfCid(*font, 7), 77.0) << "behind what makes no sense";
    EXPECT_THAT(file.problems,
                ElementsAre("the font Made-Bold: 3 entries of W make no sense and are left out"));
}

TEST(CompositeFont, AdvancesByAnEmWithoutWidths)
{
    FontFile file(Composite(Program::TrueType, ""));
    EXPECT_EQ(AdvanceOfCid(*file.Read(), 1), 1000.0);
}

TEST(CompositeFont, KeepsRangesOfWidthsAsRanges)
{
    std::string widths;
    for (int index = 0; index < 50000; ++index)
        widths += "0 2147483647 " + std::to_string(index) + " ";
    FontFile file(Composite(Program::TrueType, "/W [" + widths + "]"));
    EXPECT_EQ(AdvanceOfCid(*file.Read(), 1234), 49999.0);
}

TEST(CompositeFont, KeepsThePlacesOfWidthsBehindOneThatIsNone)
{
    FontFile file(Composite(Program::TrueType, "/W [1 [10 /x 30]]"));
    const auto font = file.Read();
    EXPECT_THAT(file.problems, SizeIs(1));
    EXPECT_EQ(AdvanceOfCid(*font, 2), 1000.0);
    EXPECT_EQ(AdvanceOfCid(*font, 3), 30.0);
}

TEST(CompositeFont, IsWrittenDownwardsFromTheMiddleOfItsGlyphs)
{
    FontFile file(Composite(Program::TrueType, "/W [1 [600]]", "/Identity-V"));
    const auto font = file.Read();
    EXPECT_EQ(font->GetWritingMode(), OrvFont::WritingMode::Vertical);
    EXPECT_EQ(AdvanceOfCid(*font, 1), -1000.0);
    EXPECT_EQ(OutlineOf(*font, Code(1)), ProgramOutline(Program::TrueType, 1, {300.0, 880.0}));
}

TEST(CompositeFont, IsWrittenDownwardsAsItsMetricsSay)
{
    FontFile file(Composite(
        Program::TrueType, "/DW 500 /DW2 [800 -900] /W2 [1 [-700 200 750] 5 6 -650 210 760]", "/Identity-V"));
    const auto font = file.Read();
    EXPECT_THAT(file.problems, IsEmpty());
    EXPECT_EQ(AdvanceOfCid(*font, 1), -700.0);
    EXPECT_EQ(OutlineOf(*font, Code(1)), ProgramOutline(Program::TrueType, 1, {200.0, 750.0}));
    EXPECT_EQ(AdvanceOfCid(*font, 6), -650.0);
    EXPECT_EQ(AdvanceOfCid(*font, 2), -900.0);
    EXPECT_EQ(OutlineOf(*font, Code(2)), ProgramOutline(Program::TrueType, 2, {250.0, 800.0}));
}

TEST(CompositeFont, DoesNotHeedVerticalMetricsWrittenHorizontally)
{
    FontFile file(Composite(Program::TrueType, "/DW2 [800 -900] /W2 [1 [-700 200 750]]"));
    const auto font = file.Read();
    EXPECT_EQ(AdvanceOfCid(*font, 1), 1000.0);
    EXPECT_EQ(OutlineOf(*font, Code(1)), ProgramOutline(Program::TrueType, 1));
}

TEST(CompositeFont, TakesTheWritingModeOfTheMapsDictionary)
{
    const std::string map = "1 begincodespacerange <00> <FF> endcodespacerange";
    FontFile file(Composite(Program::TrueType, "", "8 0 R", {"null", PdfStream(map, "/WMode 1")}));
    EXPECT_EQ(file.Read()->GetWritingMode(), OrvFont::WritingMode::Vertical);
}

TEST(CompositeFont, WithoutAProgramIsDrawnByTheMeaningOfItsCids)
{
    FontFile file(Composite(Program::None, "/CIDSystemInfo << /Registry (Adobe) /Ordering (Japan1) >>",
                            "/90ms-RKSJ-H"));
    const auto font = file.Read();
    EXPECT_THAT(file.problems,
                ElementsAre("the font Made-Bold is not embedded; LiberationSans-Bold is used instead"));
    EXPECT_EQ(OrvPdf::GetFileFont(*font)->GetText(Decode(*font, "A").at(0)), u"A");
    EXPECT_NE(OutlineOf(*font, "A"), "");
    EXPECT_EQ(Decode(*font, "\x88\x9F").size(), 1U);
    EXPECT_EQ(OutlineOf(*font, "\x88\x9F"), "") << "the library has no such letter";
}

TEST(CompositeFont, WithoutAProgramIsDrawnByItsTexts)
{
    FontFile file(
        Composite(Program::None, "", "/Identity-H", {PdfStream("1 beginbfchar <0005> <0041> endbfchar")}));
    const auto font = file.Read();
    EXPECT_NE(OutlineOf(*font, Code(5)), "");
    EXPECT_EQ(OutlineOf(*font, Code(6)), "");
}

TEST(CompositeFont, FindsTheCodesOfATextThatItCanShow)
{
    FontFile file(Composite(Program::TrueType, "", "/Identity-H",
                            {PdfStream("1 beginbfrange <0001> <0002> <0041> endbfrange "
                                       "1 beginbfchar <0009> <005A> endbfchar")}));
    const auto font = file.Read();
    std::vector<OrvFont::Character> characters;
    EXPECT_FALSE(font->Uni16StringToFontCharacters(L"BAZ", characters)) << "no glyph for Z";
    EXPECT_THAT(characters, ElementsAre(OrvFont::Character{2, 2, 2}, OrvFont::Character{1, 1, 2}));
}

TEST(SameOutlinesOfCompositeFonts, AreSeenInFontsThatSayTheSame)
{
    const auto objects = Composite(Program::TrueType, "/CIDToGIDMap 8 0 R /W [1 [600]]", "/Identity-H",
                                   {"null", PdfStream(std::string("\0\0\0\3", 4))});
    FontFile left(objects);
    FontFile right(objects);
    EXPECT_TRUE(HaveSameOutlines(*left.Read(), *right.Read()));
    const std::vector<std::string> plain = {"null", PdfStream(std::string("\0\0\0\1", 4))};
    for (const auto& other :
         {Composite(Program::TrueType, "/CIDToGIDMap 8 0 R /W [1 [601]]", "/Identity-H",
                    {"null", PdfStream(std::string("\0\0\0\3", 4))}),
          Composite(Program::TrueType, "/CIDToGIDMap 8 0 R /W [1 [600]]", "/Identity-H", plain),
          Composite(Program::TrueType, "/W [1 [600]]"),
          Composite(Program::TrueType, "/CIDToGIDMap 8 0 R /W [1 [600]]", "/Identity-V",
                    {"null", PdfStream(std::string("\0\0\0\3", 4))})}) {
        FontFile file(other);
        EXPECT_FALSE(HaveSameOutlines(*left.Read(), *file.Read()));
        EXPECT_FALSE(HaveSameOutlines(*file.Read(), *left.Read()));
    }
}

} // namespace
