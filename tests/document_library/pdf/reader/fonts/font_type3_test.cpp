// Type 3 fonts of a file: their glyphs are contents.

#include "pdf/reader/fonts/type3_font.h"

#include <gmock/gmock.h>

#include "document_library/pdf/reader/font_files.h"
#include "pdf/reader/file/qpdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using namespace ReaderTests;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> Type3(const std::string& matrix, const std::string& more = "")
{
    return {"<< /Type /Font /Subtype /Type3 /FontMatrix " + matrix +
                " /FontBBox [0 -10 50 100] /FirstChar 97 /LastChar 98 /Widths [50 25.5] /CharProcs << "
                "/square 4 0 "
                "R /dot 5 0 R /odd 7 >> /Encoding << /Differences [97 /square /dot /odd /none] >> " +
                more + " >>",
            PdfStream("50 0 d0 0 0 50 50 re f"), PdfStream("25 0 0 0 25 25 d1 0 0 25 25 re f")};
}

const OrvPdf::Type3Font& SourceOf(const OrvFont::Font& font)
{
    return dynamic_cast<const OrvPdf::Type3Font&>(font.GetSource());
}

TEST(Type3Font, HasTheMatrixOfTheFile)
{
    FontFile file(Type3("[0.01 0.002 0.003 0.02 0.5 -0.25]"));
    const auto font = file.Read();
    EXPECT_EQ(SourceOf(*font).GetMatrix(), OrvPdf::Matrix(0.01, 0.002, 0.003, 0.02, 500.0, -250.0));
}

TEST(Type3Font, AdvancesThroughItsMatrix)
{
    FontFile file(Type3("[0.01 0 0 0.01 0 0]"));
    const auto font = file.Read();
    EXPECT_EQ(AdvanceOf(*font, "a"), 500.0);
    EXPECT_EQ(AdvanceOf(*font, "b"), 255.0);
    EXPECT_EQ(AdvanceOf(*font, "c"), 0.0);
}

TEST(Type3Font, AdvancesByItsWidthsExactlyWhereTheyAreThousandths)
{
    FontFile file(Type3("[0.001 0 0 0.001 0 0]"));
    EXPECT_EQ(AdvanceOf(*file.Read(), "b"), 25.5);
}

TEST(Type3Font, HasItsBoxThroughItsMatrix)
{
    FontFile file(Type3("[0.01 0 0 -0.01 0 0]"));
    EXPECT_EQ(file.Read()->GetFontBBox(), OrvFont::Font::Rectangle(0.0, -1000.0, 500.0, 1100.0));
}

TEST(Type3Font, GivesTheProcedureOfACode)
{
    FontFile file(Type3("[0.01 0 0 0.01 0 0]"));
    const auto font = file.Read();
    EXPECT_EQ(SourceOf(*font).GetGlyphProcedure('a').getObjectID(), 4);
    EXPECT_EQ(SourceOf(*font).GetGlyphProcedure('b').getObjectID(), 5);
    for (const std::uint32_t code : {unsigned{'c'}, unsigned{'d'}, unsigned{'e'}, 256U, UINT32_MAX})
        EXPECT_TRUE(SourceOf(*font).GetGlyphProcedure(code).isNull()) << code;
}

TEST(Type3Font, GivesItsResources)
{
    FontFile without(Type3("[0.01 0 0 0.01 0 0]"));
    EXPECT_TRUE(SourceOf(*without.Read()).GetResources().isNull());
    FontFile with(Type3("[0.01 0 0 0.01 0 0]", "/Resources << /Font << /F 3 0 R >> >>"));
    EXPECT_EQ(SourceOf(*with.Read()).GetResources().getKey("/Font").getKey("/F").getObjectID(), 3);
}

TEST(Type3Font, HasEmptyOutlines)
{
    FontFile file(Type3("[0.01 0 0 0.01 0 0]"));
    EXPECT_EQ(OutlineOf(*file.Read(), "a"), "");
}

TEST(Type3Font, HasTheNameThatTheFileGivesIt)
{
    FontFile named(Type3("[0.01 0 0 0.01 0 0]", "/Name /Blocks"));
    EXPECT_EQ(named.Read()->GetName(), "Blocks");
    FontFile described(
        Type3("[0.01 0 0 0.01 0 0]",
              "/Name /F1 /FontDescriptor << /FontName /ABCDEF+Made-Bold /FontFamily (Made) >>"));
    const auto font = described.Read();
    EXPECT_EQ(font->GetName(), "Made-Bold");
    EXPECT_EQ(font->GetFamilyName(), "Made");
    EXPECT_EQ(font->GetStyleName(), "Bold");
}

TEST(Type3Font, CountsThousandthsWithoutAMatrix)
{
    FontFile file(Type3("[0.01 0 0]"));
    const auto font = file.Read();
    EXPECT_THAT(file.problems, ElementsAre(HasSubstr("FontMatrix is no array of six numbers")));
    EXPECT_EQ(AdvanceOf(*font, "a"), 50.0);
    EXPECT_EQ(SourceOf(*font).GetMatrix().a, 0.001);
}

TEST(Type3Font, HasFiniteMeasuresWhateverItsNumbers)
{
    const std::string huge = std::string(400, '9') + ".0";
    FontFile file({"<< /Type /Font /Subtype /Type3 /FontMatrix [" + huge + " 0 0 " + huge +
                   " 0 0] /FontBBox [0 0 " + huge + " " + huge + "] /FirstChar 97 /Widths [" + huge +
                   "] /CharProcs << >> >>"});
    const auto font = file.Read();
    ASSERT_TRUE(font);
    EXPECT_EQ(AdvanceOf(*font, "a"), 0.0);
    EXPECT_EQ(font->GetFontBBox(), OrvFont::Font::Rectangle(0.0, 0.0, 0.0, 0.0));
}

TEST(Type3Font, FindsTheCodesOfATextThatItCanShow)
{
    FontFile file(
        {"<< /Type /Font /Subtype /Type3 /FontMatrix [1 0 0 1 0 0] /CharProcs << /A 4 0 R >> /Encoding "
         "<< /Differences [1 /B /A] >> >>",
         PdfStream("")});
    const auto font = file.Read();
    std::vector<OrvFont::Character> characters;
    EXPECT_FALSE(font->Uni16StringToFontCharacters(L"AB", characters));
    EXPECT_THAT(characters, ElementsAre(OrvFont::Character{2, 2, 1}));
}

TEST(Type3Font, IsNeverTheSameAsAnother)
{
    FontFile left(Type3("[0.01 0 0 0.01 0 0]"));
    FontFile right(Type3("[0.01 0 0 0.01 0 0]"));
    EXPECT_TRUE(HaveSameOutlines(*left.Read(), *left.Read()));
    EXPECT_FALSE(HaveSameOutlines(*left.Read(), *right.Read()));
}

} // namespace
