// Glyphs of Type 3 fonts: what a page paints for them, and whether they come back as text.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/transparency.h>
#include <orv_doc/stroke_properties.h>

#include "support/child_process.h"
#include "text_file.h"

namespace OrvPdf::Testing
{
namespace
{

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

const std::string coloured = "500 0 d0 1 0 0 rg 0 0 500 500 re f";
const std::string stencil = "500 0 0 0 500 500 d1 0 0 500 500 re f";
const std::string square = "path {M 0 0 L 500000 0 L 500000 500000 L 0 500000 Z}";

const std::string squaringFunctions =
    "/ExtGState << /G << /TR << /FunctionType 2 /Domain [0 1] /N 2 >> >> >>";

/// The font `T3`, whose glyphs for A, B and so on are half as wide as high; the blank has a width and no
/// glyph.
class GlyphContents : public ::testing::Test
{
protected:
    void Read(const std::vector<std::string>& pages, const std::vector<std::string>& glyphs,
              const std::string& fontEntries = "", const std::string& resources = "",
              const OrvDoc::ReadOptions& options = {})
    {
        const std::size_t fontNumber = 3 + 2 * pages.size();
        std::string font = "<< /Type /Font /Subtype /Type3 /Name /Drawn /FontBBox [0 0 500 1000] "
                           "/FontMatrix [.001 0 0 .001 0 0] /FirstChar 32 /LastChar 69 /Widths [500";
        for (int code = 33; code <= 69; ++code)
            font += " 500";
        font += "] /Encoding << /Type /Encoding /Differences [32 /space 65 /A /B /C /D /E] >> /CharProcs <<";
        std::vector<std::string> objects(1);
        for (std::size_t index = 0; index < glyphs.size(); ++index) {
            font += " /" + std::string(1, static_cast<char>('A' + index)) + " " +
                    std::to_string(fontNumber + 1 + index) + " 0 R";
            objects.push_back(HarrowSupport::Testing::PdfStream(glyphs[index]));
        }
        objects[0] = font + " >> " + fontEntries + " >>";
        file.Read(pages, "/Font << /T3 " + std::to_string(fontNumber) + " 0 R >> " + resources, objects,
                  options);
    }

    /// The page, written anew and read again, shows the same, and as text.
    void ExpectBackAsText(const std::string& operators)
    {
        const auto before = file.Shown();
        const std::size_t errors = file.Errors().size();
        file.Page().MarkChanged();
        file.Reopen();
        EXPECT_EQ(file.Shown(), before);
        EXPECT_THAT(file.Errors(), SizeIs(errors));
        EXPECT_THAT(file.SavedStream(), HasSubstr(operators));
        EXPECT_THAT(file.SavedStream(), Not(HasSubstr(" Do")));
    }

    OrvDoc::Path& Glyph(std::size_t index)
    {
        std::vector<OrvDoc::Path*> paths;
        CollectForms(file.Page().GetChildren(), paths);
        return *paths.at(index);
    }

    static OrvDoc::Content& ContentOfGlyph(const OrvDoc::Path& path)
    {
        return dynamic_cast<const OrvPaint::FormPaint&>(*path.GetFillPaint()).GetContent();
    }

    TextFile file;
};

TEST_F(GlyphContents, AGlyphWithColoursOfItsOwnHasThem)
{
    Read({"0 1 0 rg BT /T3 10 Tf 3 4 Td (A) Tj ET"}, {coloured});
    EXPECT_THAT(file.Shown(), ElementsAre("@10,0,0,10,3000,4000[" + square + " fill RGB 1 0 0]"));
    EXPECT_THAT(file.Errors(), IsEmpty());
}

TEST_F(GlyphContents, AFormThatWasMadeOfAGlyphIsNoTextAnyMore)
{
    using OrvPaint::FormPaint;
    Read({"BT /T3 10 Tf (A) Tj ET"}, {coloured});
    const auto& form = dynamic_cast<const FormPaint&>(*Glyph(0).GetFillPaint());
    Glyph(0).SetFillPaint(FormPaint::Factory(form).SetScope(FormPaint::Scope::File).Get());
    file.Reopen();
    EXPECT_THAT(file.SavedStream(), HasSubstr(" Do"));
    EXPECT_THAT(file.Shown(), ElementsAre("@10,0,0,10,0,0[" + square + " fill RGB 1 0 0]"));
}

TEST_F(GlyphContents, AStencilHasTheColourAroundWhateverItSets)
{
    Read({"0 1 0 rg BT /T3 10 Tf (A) Tj ET"},
         {"500 0 0 0 500 500 d1 1 0 0 rg 1 g 1 0 0 0 k /DeviceGray cs .5 sc .5 scn /Perceptual ri "
          "0 0 500 500 re f"});
    EXPECT_THAT(file.Shown(), ElementsAre("@10,0,0,10,0,0[" + square + " fill RGB 0 1 0]"));
}

TEST_F(GlyphContents, AStencilStrokesInTheColourAround)
{
    Read({"0 1 0 RG 0 0 1 rg BT /T3 10 Tf (A) Tj ET"},
         {"500 0 0 0 500 500 d1 1 0 0 RG 1 G 1 0 0 0 K /DeviceGray CS .5 SC .5 SCN 10 w 0 0 m 9 0 l S"});
    ASSERT_THAT(file.Shown(), SizeIs(1));
    EXPECT_THAT(file.Shown()[0], AllOf(HasSubstr("stroke RGB"), Not(HasSubstr("stroke RGB 1 0 0"))));
}

TEST_F(GlyphContents, TheSameGlyphHasTheColourOfEachPlace)
{
    Read({"BT /T3 10 Tf 1 0 0 rg (A) Tj 0 0 1 rg (A) Tj ET"}, {stencil});
    EXPECT_THAT(file.Shown(), ElementsAre("@10,0,0,10,0,0[" + square + " fill RGB 1 0 0]",
                                          "@10,0,0,10,5000,0[" + square + " fill RGB 0 0 1]"));
    ExpectBackAsText("0 0 1 rg\n");
}

TEST_F(GlyphContents, GlyphsOfOneColourShareTheirContent)
{
    Read({"BT /T3 10 Tf 1 0 0 rg (AA) Tj 7 Tc (A) Tj ET"}, {stencil});
    EXPECT_EQ(&ContentOfGlyph(Glyph(0)), &ContentOfGlyph(Glyph(1)));
    EXPECT_EQ(&ContentOfGlyph(Glyph(0)), &ContentOfGlyph(Glyph(2)));
}

TEST_F(GlyphContents, SpacingsAreBetweenGlyphs)
{
    Read({"BT /T3 10 Tf 1 Tc 20 Tw (A A) Tj ET"}, {coloured});
    const auto shown = file.Shown();
    ASSERT_THAT(shown, SizeIs(2));
    EXPECT_THAT(shown[0], StartsWith("@10,0,0,10,0,0["));
    // Two advances of 5, two character spacings and one word spacing.
    EXPECT_THAT(shown[1], StartsWith("@10,0,0,10,32000,0["));
    ExpectBackAsText("(A) Tj\n");
}

TEST_F(GlyphContents, ScaleRiseAndAdjustmentsPlaceGlyphs)
{
    Read({"2 0 0 2 0 0 cm BT /T3 10 Tf 50 Tz 3 Ts 1 Tc 4 Tw 1 0 0 1 5 6 Tm [(A) -200 (A )] TJ (A) Tj ET"},
         {coloured});
    const auto shown = file.Shown();
    ASSERT_THAT(shown, SizeIs(3));
    EXPECT_THAT(shown[0], StartsWith("@10,0,0,20,10000,18000["));
    // Half of 5 + 1 + 2, in units of the page twice as long.
    EXPECT_THAT(shown[1], StartsWith("@10,0,0,20,18000,18000["));
    // Half of 5 + 1, and of 5 + 1 + 4 for the blank.
    EXPECT_THAT(shown[2], StartsWith("@10,0,0,20,34000,18000["));
    ExpectBackAsText("(A) Tj\n");
}

TEST_F(GlyphContents, ATextBehindGlyphsBeginsWhereTheyEnd)
{
    Read({"BT /T3 10 Tf (A) Tj /H 10 Tf (x) Tj /T3 10 Tf (A) Tj 0 -12 Td (A) Tj ET"}, {coloured}, "",
         "/Font << /T3 5 0 R /H << /Type /Font /Subtype /Type1 /BaseFont /Courier >> >>");
    const auto shown = file.Shown();
    ASSERT_THAT(shown, SizeIs(4));
    EXPECT_THAT(shown[1], HasSubstr("(x) at 1,0,0,1,5000,0"));
    EXPECT_THAT(shown[2], StartsWith("@10,0,0,10,11000,0["));
    EXPECT_THAT(shown[3], StartsWith("@10,0,0,10,0,-12000["));
    ExpectBackAsText("(A) Tj\n");
}

TEST_F(GlyphContents, ResourcesAreThoseOfTheFont)
{
    Read({"BT /T3 10 Tf (A) Tj ET"}, {"500 0 d0 /C cs 1 scn 0 0 500 500 re f"},
         "/Resources << /ColorSpace << /C /DeviceGray >> >>", "/ColorSpace << /C /DeviceRGB >>");
    EXPECT_THAT(file.Shown(), ElementsAre("@10,0,0,10,0,0[" + square + " fill Gray 1]"));
    ExpectBackAsText("(A) Tj\n");
}

TEST_F(GlyphContents, WithoutResourcesOfTheFontThoseOfThePageCount)
{
    Read({"BT /T3 10 Tf (A) Tj ET"}, {"500 0 d0 /C cs 1 0 1 scn 0 0 500 500 re f"}, "",
         "/ColorSpace << /C /DeviceRGB >>");
    const auto before = file.Shown();
    EXPECT_THAT(before, ElementsAre("@10,0,0,10,0,0[" + square + " fill RGB 1 0 1]"));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before) << file.SavedStream();
}

TEST_F(GlyphContents, AMissingGlyphPaintsNothingAndHasItsAdvance)
{
    Read({"BT /T3 10 Tf (ABA) Tj ET"}, {coloured});
    const auto shown = file.Shown();
    ASSERT_THAT(shown, SizeIs(2));
    EXPECT_THAT(shown[1], StartsWith("@10,0,0,10,10000,0["));
    EXPECT_THAT(file.Errors(), IsEmpty());
}

TEST_F(GlyphContents, AGlyphThatShowsItselfIsToldAndLeftOut)
{
    Read({"BT /T3 10 Tf (AB) Tj ET"}, {"500 0 d0 BT /T3 1 Tf (A) Tj ET", coloured},
         "/Resources << /Font << /T3 5 0 R >> >>");
    EXPECT_THAT(file.Shown(), Contains("@10,0,0,10,5000,0[" + square + " fill RGB 1 0 0]"));
    EXPECT_THAT(file.Errors(), Not(IsEmpty()));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_THAT(file.Shown(), Contains("@10,0,0,10,5000,0[" + square + " fill RGB 1 0 0]"));
}

TEST_F(GlyphContents, GlyphsThatShowEachOtherInLevelsEndAtTheLimit)
{
    OrvDoc::ReadOptions options;
    options.limits.formNesting = 1;
    Read({"BT /T3 10 Tf (A) Tj ET"}, {"500 0 d0 BT /T3 1 Tf (B) Tj ET", coloured},
         "/Resources << /Font << /T3 5 0 R >> >>", "", options);
    EXPECT_THAT(file.Errors(), Not(IsEmpty()));
    options.limits.formNesting = 2;
    Read({"BT /T3 10 Tf (A) Tj ET"}, {"500 0 d0 BT /T3 1 Tf (B) Tj ET", coloured},
         "/Resources << /Font << /T3 5 0 R >> >>", "", options);
    EXPECT_THAT(file.Errors(), IsEmpty());
}

TEST_F(GlyphContents, AChangedGlyphIsToldAndWrittenAsAForm)
{
    Read({"BT /T3 10 Tf (AB) Tj ET"}, {coloured, coloured});
    HarrowSupport::Testing::Fill(ContentOfGlyph(Glyph(0)),
                                 HarrowSupport::Testing::Rectangle(0.0, 0.0, 7000.0, 7000.0));
    file.document->Flush();
    EXPECT_THAT(file.Errors(), Contains(HasSubstr("written as forms, without their text")));
    const auto before = file.Shown();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
    EXPECT_THAT(file.SavedStream(), AllOf(HasSubstr(" Do"), HasSubstr("(B) Tj"), Not(HasSubstr("(A) Tj"))));
}

TEST_F(GlyphContents, AGlyphThatIsStrokedBesidesIsNoText)
{
    Read({"BT /T3 10 Tf (A) Tj ET"}, {coloured});
    Glyph(0).SetStrokePaint(HarrowSupport::Testing::Flat(HarrowSupport::Testing::Tints({{"Spot", 1.0f}})));
    file.Save();
    EXPECT_THAT(file.SavedStream(), AllOf(HasSubstr(" Do"), Not(HasSubstr("(A) Tj"))));
}

TEST_F(GlyphContents, AGlyphThatIsTransparentBesidesIsNoText)
{
    Read({"BT /T3 10 Tf (A) Tj ET"}, {coloured});
    Glyph(0).SetTransparency(OrvBlend::Transparency::Factory().SetFillAlpha(0.5f).Get());
    file.Reopen();
    EXPECT_THAT(file.SavedStream(), AllOf(HasSubstr(" Do"), Not(HasSubstr("(A) Tj"))));
    ASSERT_TRUE(Glyph(0).GetTransparency());
    EXPECT_NEAR(Glyph(0).GetTransparency()->fillAlpha, 0.5, 1e-6);
}

TEST_F(GlyphContents, GlyphsBesideTextUnderAMatrixStayWhereTheyAre)
{
    Read({"2 0 0 2 3 4 cm BT /H 10 Tf (x) Tj /T3 10 Tf (A) Tj /H 10 Tf (x) Tj ET"}, {coloured}, "",
         "/Font << /T3 5 0 R /H << /Type /Font /Subtype /Type1 /BaseFont /Courier >> >>");
    EXPECT_THAT(file.Shown(), Contains(StartsWith("@20,0,0,20,15000,4000[")));
    ExpectBackAsText("(A) Tj\n");
}

TEST_F(GlyphContents, AGlyphThatIsMovedIsTextElsewhere)
{
    Read({"BT /T3 10 Tf (A) Tj ET"}, {coloured});
    Glyph(0).SetTransformation({20, 0, 0, 20, 7000, 8000});
    file.Reopen();
    EXPECT_THAT(file.Shown(), ElementsAre("@20,0,0,20,7000,8000[" + square + " fill RGB 1 0 0]"));
    EXPECT_THAT(file.SavedStream(), HasSubstr("20 0 0 20 7 8 Tm\n(A) Tj"));
}

TEST_F(GlyphContents, APictureWithoutAWidthInsideOfAGlyphKeepsThePage)
{
    const std::string page = "BT /T3 10 Tf (A) Tj ET";
    for (const char* const fontEntries : {"", "/Resources << >>"}) {
        Read({page}, {"500 0 0 0 10 5 d1 BI /H 5 /BPC 1 /IM true ID 0123456789 EI"}, fontEntries);
        EXPECT_THAT(file.Errors(), ElementsAre(HasSubstr("the inline image is left out")));
        file.Save();
        EXPECT_EQ(file.SavedStream(), page) << fontEntries;
    }
}

TEST_F(GlyphContents, APictureWithoutAWidthInsideOfAGlyphLeavesAChangedPageItsText)
{
    Read({"BT /T3 10 Tf (A) Tj ET"}, {"500 0 0 0 10 5 d1 BI /H 5 /BPC 1 /IM true ID 0123456789 EI"},
         "/Resources << >>");
    file.Page().MarkChanged();
    file.Save();
    EXPECT_THAT(file.SavedStream(), AllOf(HasSubstr("(A) Tj"), Not(HasSubstr(" Do"))));
}

TEST_F(GlyphContents, AStencilInAPatternColourKeepsThePage)
{
    const std::string page = "/Pattern cs /P scn BT /T3 10 Tf (A) Tj ET";
    Read({page}, {stencil}, "",
         "/Pattern << /P << /PatternType 2 /Shading << /ShadingType 2 /ColorSpace /DeviceGray "
         "/Coords [0 0 100 0] /Function << /FunctionType 2 /Domain [0 1] /N 1 >> >> >> >>");
    EXPECT_THAT(file.Errors(), ElementsAre(HasSubstr("painted in the pattern around it")));
    file.Save();
    EXPECT_EQ(file.SavedStream(), page);
}

TEST_F(GlyphContents, OverprintAroundAGlyphComesBack)
{
    Read({"/G gs 0 1 0 0 k BT /T3 10 Tf (A) Tj ET"}, {stencil}, "",
         "/ExtGState << /G << /op true /OP true /OPM 1 >> >>");
    EXPECT_THAT(file.Shown(),
                ElementsAre("@10,0,0,10,0,0[" + square + " fill CMYK 0 1 0 0 overprint nonzero]"));
    ExpectBackAsText("(A) Tj\n");
}

TEST_F(GlyphContents, TransparencyAroundAGlyphComesBack)
{
    Read({"/G gs BT /T3 10 Tf (A) Tj ET 0 0 1 1 re f"}, {coloured}, "",
         "/ExtGState << /G << /ca .5 /BM /Multiply >> >>");
    const auto alphaOf = [this]() -> double {
        const auto& inner = dynamic_cast<const OrvDoc::Path&>(*ContentOfGlyph(Glyph(0)).GetChildren().first);
        return inner.GetTransparency() ? double(inner.GetTransparency()->fillAlpha) : 1.0;
    };
    EXPECT_NEAR(alphaOf(), 0.5, 1e-6);
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_NEAR(alphaOf(), 0.5, 1e-6);
}

TEST_F(GlyphContents, ALineWidthFromAroundTheGlyphIsNotLost)
{
    // A text cannot say the width in which its glyph strokes, since the writer sets it for paths alone.
    Read({"30 w BT /T3 10 Tf (A) Tj ET"}, {"500 0 d0 0 0 m 500 0 l S"});
    const auto before = file.Shown();
    EXPECT_THAT(before, ElementsAre(HasSubstr("width 30000")));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(GlyphContents, TextParametersThatAGlyphTakesOverComeBack)
{
    // The text of the glyph has the spacings and the mode of the text that shows it.
    Read({"2 Tc 3 Tw 1 Tr BT /T3 10 Tf (A) Tj ET"}, {"500 0 d0 BT /H 100 Tf (x y) Tj ET"},
         "/Resources << /Font << /H << /Type /Font /Subtype /Type1 /BaseFont /Courier >> >> >>");
    const auto before = file.Shown();
    EXPECT_THAT(before, ElementsAre(AllOf(HasSubstr("spaced 2 words 3"), HasSubstr("stroke"))));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(GlyphContents, AnotherMatrixOfTheFontScalesGlyphsAndAdvances)
{
    Read({"BT /T3 10 Tf (AA) Tj ET"}, {"50 0 d0 1 0 0 rg 0 0 50 50 re f"}, "/FontMatrix [.002 0 0 .004 0 0]");
    std::vector<OrvDoc::Path*> paths;
    CollectForms(file.Page().GetChildren(), paths);
    ASSERT_THAT(paths, SizeIs(2));
    const auto& form = dynamic_cast<const OrvPaint::FormPaint&>(*paths[0]->GetFillPaint());
    EXPECT_EQ(MatrixText(form.GetFormTransformation()), "0.002,0,0,0.004,0,0");
    EXPECT_EQ(MatrixText(paths[1]->GetTransformation()), "10,0,0,10,10000,0");
}

TEST_F(GlyphContents, TheBoxOfAStencilIsTheOneItStates)
{
    Read({"BT /T3 10 Tf (A) Tj ET"}, {"500 0 10 20 500 600 d1 0 0 500 500 re f"});
    const auto& form = dynamic_cast<const OrvPaint::FormPaint&>(*Glyph(0).GetFillPaint());
    const auto box = form.GetFormBBox();
    EXPECT_EQ(box.origin.x.value, 10000.0);
    EXPECT_EQ(box.origin.y.value, 20000.0);
    EXPECT_EQ(box.size.width.value, 490000.0);
    EXPECT_EQ(box.size.height.value, 580000.0);
}

TEST_F(GlyphContents, TheBoxOfAColouredGlyphIsThatOfItsObjects)
{
    Read({"BT /T3 10 Tf (A) Tj ET"}, {"500 0 d0 100 200 300 400 re f 0 0 10 10 re f"});
    const auto& form = dynamic_cast<const OrvPaint::FormPaint&>(*Glyph(0).GetFillPaint());
    const auto box = form.GetFormBBox();
    EXPECT_EQ(box.origin.x.value, 0.0);
    EXPECT_EQ(box.size.width.value, 400000.0);
    EXPECT_EQ(box.size.height.value, 600000.0);
}

TEST_F(GlyphContents, WidthOperatorsOutsideOfGlyphsAreTold)
{
    Read({"500 0 d0 0 0 m 5 0 l S", "500 0 0 0 9 9 d1 1 0 0 rg 0 0 1 1 re f"}, {coloured});
    EXPECT_THAT(file.Errors(0), ElementsAre(HasSubstr("d0")));
    EXPECT_THAT(file.Errors(1), ElementsAre(HasSubstr("d1")));
    EXPECT_THAT(file.Shown(1), ElementsAre(HasSubstr("RGB 1 0 0")));
}

TEST_F(GlyphContents, TheMarkOfATextBeginsNoneInAFontOfGlyphs)
{
    Read({"BT /T3 10 Tf /OrvText MP (A) Tj ET"}, {coloured});
    EXPECT_THAT(file.Shown(), ElementsAre("@10,0,0,10,0,0[" + square + " fill RGB 1 0 0]"));
    ExpectBackAsText("(A) Tj\n");
}

TEST_F(GlyphContents, TransferFunctionsOfThePageLeaveAGlyphAText)
{
    Read({"/G gs BT /T3 10 Tf (A) Tj ET 0 0 1 1 re f"}, {coloured}, "", squaringFunctions);
    ExpectBackAsText("(A) Tj\n");
}

TEST_F(GlyphContents, AGlyphWithOtherTransferFunctionsThanThePageIsNoText)
{
    Read({"0 0 1 1 re f /G gs BT /T3 10 Tf (A) Tj ET"}, {coloured}, "", squaringFunctions);
    const auto functions = ContentOfGlyph(Glyph(0)).GetTransferFunctionSet();
    ASSERT_TRUE(functions);
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_THAT(file.SavedStream(), HasSubstr(" Do"));
    EXPECT_TRUE(ContentOfGlyph(Glyph(0)).GetTransferFunctionSet() == functions);
}

TEST_F(GlyphContents, PdftotextReadsGlyphsThatAreWrittenAnew)
{
    if (HarrowSupport::Testing::RunProcess({"pdftotext", "-v"}).exitCode == 127)
        GTEST_SKIP() << "install poppler-utils to run this test";
    Read({"BT /T3 10 Tf 1 0 0 rg 10 50 Td (AB A) Tj 0 -20 Td [(B) -20 (A)] TJ ET"}, {stencil, coloured});
    file.Page().MarkChanged();
    file.Save();
    const auto run = HarrowSupport::Testing::RunProcess({"pdftotext", "-raw", file.Path(), "-"});
    EXPECT_THAT(run.output, StartsWith("AB A\nBA\n")) << file.SavedStream();
}

TEST_F(GlyphContents, GlyphsOfManyPagesAreOfOneFontObject)
{
    Read({"BT /T3 10 Tf (A) Tj ET", "BT /T3 10 Tf (B) Tj ET"}, {coloured, stencil});
    file.Page(0).MarkChanged();
    file.Page(1).MarkChanged();
    file.Save();
    const auto first = file.SavedFonts(0);
    ASSERT_THAT(first, SizeIs(1));
    const int number = QPDFObjectHandle(first[0]).getObjectID();
    const auto second = file.SavedFonts(1);
    ASSERT_THAT(second, SizeIs(1));
    EXPECT_EQ(QPDFObjectHandle(second[0]).getObjectID(), number);
}

} // namespace
} // namespace OrvPdf::Testing
