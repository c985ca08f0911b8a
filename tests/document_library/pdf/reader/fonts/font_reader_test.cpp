// Font dictionaries of a file: which font each is, its names and its box, and what stands in for a program.

#include "pdf/reader/fonts/font_reader.h"

#include <thread>

#include <gmock/gmock.h>

#include "document_library/pdf/reader/font_files.h"
#include "pdf/reader/fonts/type3_font.h"
#include "support/made_programs.h"

namespace
{

using namespace HarrowSupport::Testing;
using namespace ReaderTests;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* plainWidths = "/FirstChar 65 /LastChar 66 /Widths [600 722]";

/// A simple font with an embedded Type 1 program. The descriptor has the number 4.
std::vector<std::string> EmbeddedType1(const std::string& entries, const std::string& descriptorEntries = "",
                                       const std::string& program = MakeType1(MakeSampleType1()))
{
    return {"<< /Type /Font /Subtype /Type1 /FontDescriptor 4 0 R " + entries + " >>",
            "<< /Type /FontDescriptor /Flags 4 /FontFile 5 0 R " + descriptorEntries + " >>",
            PdfStream(program)};
}

TEST(FontReader, GivesTheSameFontForOneObject)
{
    FontFile file(EmbeddedType1("/BaseFont /Made " + std::string(plainWidths), "/FontBBox [0 0 1 1]"));
    const auto font = file.Read();
    ASSERT_TRUE(font);
    EXPECT_THAT(file.problems, IsEmpty());
    EXPECT_EQ(file.Read(), font);
}

TEST(FontReader, GivesTheSameFontForDictionariesInOthersThatSayTheSame)
{
    const std::string dictionary = "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>";
    FontFile file({"<< /F1 " + dictionary + " /F2 " + dictionary +
                   " /F3 << /Type /Font /Subtype /Type1 /BaseFont /Courier >> >>"});
    QPDFObjectHandle fonts = file.GetFile().GetObject(3);
    const auto font = file.ReadHandle(fonts.getKey("/F1"));
    ASSERT_TRUE(font);
    EXPECT_EQ(file.ReadHandle(fonts.getKey("/F2")), font);
    EXPECT_NE(file.ReadHandle(fonts.getKey("/F3")), font);
}

TEST(FontReader, LeavesTheProgramAloneUntilAnOutlineIsAskedFor)
{
    FontFile file(EmbeddedType1("/BaseFont /ABCDEF+Made " + std::string(plainWidths),
                                "/FontBBox [0 0 1 1] /FontFamily (Made)"));
    const auto font = file.Read();
    EXPECT_EQ(AdvanceOf(*font, "A"), 600.0);
    EXPECT_EQ(file.GetDecodedBytes(), 0U);
    EXPECT_NE(OutlineOf(*font, "A"), "");
    EXPECT_GT(file.GetDecodedBytes(), 0U);
}

TEST(FontReader, DecodesTheProgramOnce)
{
    FontFile file(EmbeddedType1("/BaseFont /Made " + std::string(plainWidths), "/FontBBox [0 0 1 1]"));
    const auto font = file.Read();
    OutlineOf(*font, "A");
    const std::uint64_t bytes = file.GetDecodedBytes();
    OutlineOf(*font, "B");
    EXPECT_EQ(file.GetDecodedBytes(), bytes);
}

TEST(FontReader, TakesTheNameWithoutTheTagOfASubset)
{
    FontFile file(EmbeddedType1("/BaseFont /ABCDEF+Made-BoldItalic"));
    const auto font = file.Read();
    EXPECT_EQ(font->GetName(), "Made-BoldItalic");
    EXPECT_EQ(font->GetFamilyName(), "Made");
    EXPECT_EQ(font->GetStyleName(), "Bold Italic");
}

TEST(FontReader, TakesTheFamilyOfTheDescriptor)
{
    FontFile file(EmbeddedType1("/BaseFont /MadeTypePS-Bold", "/FontFamily (Made Type)"));
    const auto font = file.Read();
    EXPECT_EQ(font->GetFamilyName(), "Made Type");
    EXPECT_EQ(font->GetStyleName(), "Bold");
}

TEST(FontReader, TakesTheStyleThatTheLibraryWrote)
{
    FontFile file(EmbeddedType1("/BaseFont /Made-Bold", "/FontFamily (Made) /OrvStyle (Extra Fine)"));
    EXPECT_EQ(file.Read()->GetStyleName(), "Extra Fine");
}

TEST(FontReader, TakesAnEmptyStyleThatTheLibraryWrote)
{
    FontFile file(EmbeddedType1("/BaseFont /Made-Bold", "/OrvStyle ()"));
    EXPECT_EQ(file.Read()->GetStyleName(), "");
}

TEST(FontReader, AsksTheProgramForItsNameWhereNothingElseHasOne)
{
    FontFile file(EmbeddedType1(""));
    const auto font = file.Read();
    EXPECT_EQ(font->GetName(), "MadeType-Bold");
    EXPECT_EQ(font->GetFamilyName(), "Made Type");
    EXPECT_THAT(file.problems, Contains(HasSubstr("BaseFont is missing")));
}

TEST(FontReader, TakesTheBoxOfTheDescriptorInThousandths)
{
    FontFile file(EmbeddedType1("/BaseFont /Made", "/FontBBox [-10.5 -200 1000 900.25]"));
    EXPECT_EQ(file.Read()->GetFontBBox(), OrvFont::Font::Rectangle(-10.5, -200.0, 1010.5, 1100.25));
}

TEST(FontReader, AsksTheProgramForItsBoxWhereTheDescriptorHasNone)
{
    const auto program = OpenProgram(MakeType1(MakeSampleType1()));
    const std::string plain = "/BaseFont /Made " + std::string(plainWidths);
    FontFile missing(EmbeddedType1(plain));
    EXPECT_EQ(missing.Read()->GetFontBBox(), program->GetBox());
    EXPECT_THAT(missing.problems, IsEmpty());
    FontFile malformed(EmbeddedType1(plain, "/FontBBox [1 2 3]"));
    EXPECT_EQ(malformed.Read()->GetFontBBox(), program->GetBox());
    EXPECT_THAT(malformed.problems, ElementsAre("the font Made: FontBBox is no array of four numbers"));
}

TEST(FontReader, ReplacesAFontThatIsNotEmbeddedAndNamesBoth)
{
    FontFile file({"<< /Type /Font /Subtype /Type1 /BaseFont /Times-Bold >>"});
    const auto font = file.Read();
    EXPECT_EQ(font->GetName(), "Times-Bold");
    EXPECT_THAT(file.problems,
                ElementsAre("the font Times-Bold is not embedded; LiberationSerif-Bold is used instead"));
    EXPECT_NE(OutlineOf(*font, "A"), "");
    EXPECT_EQ(AdvanceOf(*font, "A"), 722.0) << "that of the standard font";
}

TEST(FontReader, TellsOnceThatAFontIsNotEmbedded)
{
    FontFile file({"<< /Type /Font /Subtype /Type1 /BaseFont /Times-Bold >>"});
    file.Read();
    EXPECT_THAT(file.problems, testing::SizeIs(1));
    file.Read();
    EXPECT_THAT(file.problems, IsEmpty());
}

TEST(FontReader, ChoosesAReplacementByTheDescriptor)
{
    const auto problemOf = [](const std::string& flags) {
        FontFile file({"<< /Type /Font /Subtype /TrueType /BaseFont /Unheard /FontDescriptor << /Flags " +
                       flags + " >> " + plainWidths + " >>"});
        file.Read();
        return file.problems.at(0);
    };
    EXPECT_THAT(problemOf("35"), HasSubstr("; LiberationMono is used"));
    EXPECT_THAT(problemOf("34"), HasSubstr("; LiberationSerif is used"));
    EXPECT_THAT(problemOf("96"), HasSubstr("; LiberationSans-Italic is used"));
}

TEST(FontReader, ReplacesADamagedProgramAndNamesBoth)
{
    FontFile file(EmbeddedType1("/BaseFont /Made-Bold /Encoding /WinAnsiEncoding " + std::string(plainWidths),
                                "/FontBBox [0 0 1 1]", "this is no program"));
    const auto font = file.Read();
    EXPECT_THAT(file.problems, IsEmpty()) << "nobody has looked at the program";
    EXPECT_NE(OutlineOf(*font, "A"), "");
    EXPECT_EQ(AdvanceOf(*font, "A"), 600.0) << "the widths of the file rule";
    EXPECT_THAT(file.TakeLateTexts(),
                ElementsAre(HasSubstr("the font Made-Bold is damaged; LiberationSans-Bold is used instead")));
}

TEST(FontReader, KeepsTheFileOpenForItsFonts)
{
    std::shared_ptr<const OrvFont::Font> font;
    {
        FontFile file(EmbeddedType1("/BaseFont /Made " + std::string(plainWidths), "/FontBBox [0 0 1 1]"));
        font = file.Read();
    }
    EXPECT_NE(OutlineOf(*font, "A"), "");
}

TEST(FontReader, RefusesWhatIsNoFont)
{
    FontFile file({"[1 2 3]", "<< /Type /Page >>", "<< /Subtype /Type0 /DescendantFonts [5 0 R] >>",
                   "<< /Subtype /Type0 >>",
                   "<< /Subtype /Type0 /DescendantFonts [<< /Subtype /Type1 >>] >>"});
    EXPECT_FALSE(file.Read(3));
    EXPECT_THAT(file.problems, ElementsAre("it is no font dictionary"));
    EXPECT_FALSE(file.Read(4));
    EXPECT_THAT(file.problems, ElementsAre("Subtype: it is no kind of font"));
    for (const int number : {5, 6, 7}) {
        EXPECT_FALSE(file.Read(number));
        EXPECT_THAT(file.problems, ElementsAre("DescendantFonts has no CIDFont"));
        EXPECT_FALSE(file.Read(number));
        EXPECT_THAT(file.problems, testing::SizeIs(1)) << "each time";
    }
}

TEST(FontReader, ReadsAFontWithoutASubtypeAsWhatItIs)
{
    FontFile file({"<< /Type /Font /BaseFont /Courier >>"});
    ASSERT_TRUE(file.Read());
    EXPECT_THAT(file.problems, Contains(HasSubstr("Subtype is missing")));
}

TEST(FontReader, ReadsFontsWhoseEntriesAreAllOfTheWrongType)
{
    const std::string odd = " /FontDescriptor [1] /FirstChar (a) /LastChar /b /Widths 7 /Encoding [1 2] "
                            "/ToUnicode 3 /W << >> /DW /x /W2 5 /DW2 [1] /CIDToGIDMap 9 /CIDSystemInfo 1 "
                            "/FontMatrix [1] /FontBBox 5 /CharProcs 4 /Resources 6 /BaseFont 12 ";
    for (const char* const subtype : {"Type1", "TrueType", "MMType1", "Type3"}) {
        FontFile file({"<< /Type /Font /Subtype /" + std::string(subtype) + odd + ">>"});
        const auto font = file.Read();
        ASSERT_TRUE(font) << subtype;
        EXPECT_THAT(file.problems, testing::SizeIs(testing::Gt(1U))) << subtype;
        EXPECT_EQ(Decode(*font, "AB").size(), 2U);
        font->GetOutline({65, 65, 1});
        font->GetAdvance({65, 65, 1});
    }
    FontFile file({"<< /Type /Font /Subtype /Type0" + odd + "/DescendantFonts [<< /Subtype /CIDFontType2" +
                   odd + ">>] >>"});
    const auto font = file.Read();
    ASSERT_TRUE(font);
    EXPECT_EQ(Decode(*font, "ABCD").size(), 2U);
    font->GetOutline({65, 65, 2});
    EXPECT_EQ(font->GetAdvance({65, 65, 2}), 1000.0);
}

TEST(FontReader, GivesFontsThatSeveralThreadsOpenAtOnce)
{
    const TemporaryFolder folder;
    std::vector<std::string> objects = EmbeddedType1("/BaseFont /Made", "/FontBBox [0 0 1 1]");
    objects.insert(objects.begin(), {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>"});
    const auto file = OrvPdf::SourceFile::Open(folder.Write("file.pdf", PdfFile(objects)), {});
    const auto font = [&file] {
        const OrvPdf::SourceFile::Access access(*file);
        std::vector<std::string> problems;
        return OrvPdf::FontReader(file).Read(access.GetQpdf().getObject(3, 0), problems);
    }();
    std::vector<std::shared_ptr<const Plexa::Compound>> outlines(4);
    std::vector<double> advances(outlines.size());
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < outlines.size(); ++index) {
        threads.emplace_back([&, index] {
            advances[index] = AdvanceOf(*font, "A");
            outlines[index] = font->GetOutline({65, 65, 1});
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(advances, testing::Each(600.0));
    EXPECT_THAT(outlines, testing::Each(font->GetOutline({65, 65, 1})));
    EXPECT_FALSE(outlines[0]->GetSubpaths().empty());
}

TEST(SameOutlines, AreSeenInFontsOfTwoFilesThatSayTheSame)
{
    FontFile left(EmbeddedType1("/BaseFont /ABCDEF+Made " + std::string(plainWidths)));
    FontFile right(EmbeddedType1("/BaseFont /GHIJKL+Made " + std::string(plainWidths)));
    EXPECT_TRUE(HaveSameOutlines(*left.Read(), *right.Read()));
    EXPECT_TRUE(HaveSameOutlines(*right.Read(), *left.Read()));
}

TEST(SameOutlines, AreNotThoseOfAnotherEncodingWidthOrProgram)
{
    MadeType1Font program = MakeSampleType1();
    program.glyphs[1].top += 1;
    const std::string plain = "/BaseFont /Made " + std::string(plainWidths);
    FontFile file(EmbeddedType1(plain));
    const auto font = file.Read();
    for (const auto& objects :
         {EmbeddedType1(plain + " /Encoding << /Differences [65 /A] >>"),
          EmbeddedType1("/BaseFont /Made /FirstChar 65 /LastChar 66 /Widths [600 723]"),
          EmbeddedType1(plain, "", MakeType1(program)), EmbeddedType1(plain, "", "damaged")}) {
        FontFile other(objects);
        EXPECT_FALSE(HaveSameOutlines(*font, *other.Read()));
        EXPECT_FALSE(HaveSameOutlines(*other.Read(), *font));
    }
}

TEST(FontOrigin, IsTheObjectInItsFile)
{
    FontFile file(EmbeddedType1("/BaseFont /Made"));
    FontFile other(EmbeddedType1("/BaseFont /Made"));
    const auto& origin = OrvPdf::GetFileFont(*file.Read())->GetOrigin();
    EXPECT_EQ(origin.GetObjectNumber(*file.GetFile().Get()), 3);
    EXPECT_EQ(origin.GetObjectNumber(*other.GetFile().Get()), 0);
    EXPECT_EQ(origin.GetDirectText(*file.GetFile().Get()), "");
}

TEST(FontOrigin, OfADictionaryInAnotherIsItsText)
{
    std::vector<std::string> objects = EmbeddedType1("/BaseFont /Made");
    objects[0] = "<< /F1 " + objects[0] + " >>";
    FontFile file(objects);
    FontFile other(objects);
    const auto font = file.ReadHandle(file.GetFile().GetObject(3).getKey("/F1"));
    const auto& origin = OrvPdf::GetFileFont(*font)->GetOrigin();
    EXPECT_EQ(origin.GetObjectNumber(*file.GetFile().Get()), 0);
    EXPECT_THAT(origin.GetDirectText(*file.GetFile().Get()),
                AllOf(HasSubstr("/BaseFont /Made"), HasSubstr("/FontDescriptor 4 0 R")));
    EXPECT_EQ(origin.GetDirectText(*other.GetFile().Get()), "");
}

TEST(FontOrigin, ConvertsTheWholeDictionaryWithItsProgram)
{
    FontFile file(EmbeddedType1("/BaseFont /Made /ToUnicode 5 0 R"));
    std::string problem;
    const auto object = OrvPdf::GetFileFont(*file.Read())->GetOrigin().Convert(problem);
    EXPECT_EQ(problem, "");
    EXPECT_TRUE(object.Find("BaseFont").IsName("Made"));
    EXPECT_EQ(object.Find("FontDescriptor").Find("FontFile").GetRawBytes(), MakeType1(MakeSampleType1()));
    EXPECT_TRUE(object.Find("ToUnicode").IsStream());
}

TEST(FontOrigin, TellsWhereADictionaryRefersToItself)
{
    FontFile file({"<< /Type /Font /Subtype /Type3 /FontMatrix [0.001 0 0 0.001 0 0] /CharProcs << >> "
                   "/Resources << /Font << /F1 3 0 R >> >> >>"});
    std::string problem;
    EXPECT_TRUE(OrvPdf::GetFileFont(*file.Read())->GetOrigin().Convert(problem).IsNull());
    EXPECT_EQ(problem, "object 3 0 refers to itself");
}

} // namespace
