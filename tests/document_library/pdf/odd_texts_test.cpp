// Texts of files that are odd or out for harm: what the pages show, and whether that comes back when they are
// written anew.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>

#include "text_file.h"

namespace OrvPdf::Testing
{
namespace
{

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

const std::string fonts =
    "/Font << /T3 5 0 R /F 6 0 R /V 7 0 R >> /XObject << /X 9 0 R /Y 10 0 R /Z 14 0 R /W 15 0 R >> "
    "/Pattern << /P 11 0 R /S << /PatternType 2 /Shading << /ShadingType 2 /ColorSpace /DeviceGray "
    "/Coords [0 0 100 0] /Function << /FunctionType 2 /Domain [0 1] /C0 [0] /C1 [1] /N 1 >> >> >> >> "
    "/ExtGState << /M << /SMask << /Type /Mask /S /Luminosity /G 12 0 R >> >> "
    "/H << /HT << /Type /Halftone /HalftoneType 1 /Frequency 60 /Angle 45 /SpotFunction /Round >> >> /N << "
    "/SMask /None >> >>";

/// `F` has advances of 500, `V` is written vertically. The form `X` shows text in the font around it, `Y` in
/// its own; the pattern `P` and the mask `M` hold text.
std::vector<std::string> Objects()
{
    using HarrowSupport::Testing::PdfStream;
    std::string widths;
    for (int code = 0; code < 256; ++code)
        widths += " 500";
    const std::string resources = " /Resources << /Font << /F 6 0 R >> >>";
    return {
        "<< /Type /Font /Subtype /Type3 /FontBBox [0 0 1 1] /FontMatrix [1 0 0 1 0 0] /FirstChar 65 "
        "/LastChar 65 /Widths [1] /Encoding << /Differences [65 /A] >> /CharProcs << /A 16 0 R >> /Resources "
        "<< >> >>",
        "<< /Type /Font /Subtype /TrueType /BaseFont /Helvetica /FirstChar 0 /LastChar 255 /Widths [" +
            widths +
            "] /Encoding /WinAnsiEncoding /FontDescriptor << /Type /FontDescriptor /FontName /Helvetica "
            "/Flags 32 /FontFile2 13 0 R >> >>",
        "<< /Type /Font /Subtype /Type0 /BaseFont /Upright /Encoding /Identity-V /DescendantFonts [8 0 R] >>",
        "<< /Type /Font /Subtype /CIDFontType2 /BaseFont /Upright /CIDSystemInfo << /Registry (Adobe) "
        "/Ordering (Identity) /Supplement 0 >> /DW 1000 /DW2 [880 -1000] /CIDToGIDMap /Identity "
        "/FontDescriptor << /Type /FontDescriptor /FontName /Upright /Flags 4 /FontFile2 13 0 R >> >>",
        PdfStream("BT (x) Tj ET", "/Type /XObject /Subtype /Form /BBox [0 0 100 100]" + resources),
        PdfStream("BT /F 8 Tf (y) Tj ET", "/Type /XObject /Subtype /Form /BBox [0 0 100 100]" + resources),
        PdfStream("BT /F 5 Tf (p) Tj ET", "/PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 9 9] "
                                          "/XStep 9 /YStep 9" +
                                              resources),
        PdfStream("1 g BT /F 50 Tf (m) Tj ET",
                  "/Type /XObject /Subtype /Form /BBox [0 0 100 100] /Group << /S /Transparency /CS "
                  "/DeviceGray >>" +
                      resources),
        PdfStream(HarrowSupport::Testing::FileBytes(
            "/usr/share/fonts/truetype/liberation2/LiberationMono-Regular.ttf")),
        PdfStream("BT /F 8 Tf (y) Tj T* (z) Tj ET",
                  "/Type /XObject /Subtype /Form /BBox [0 0 100 100]" + resources),
        PdfStream("0 g 0 G 1 w BT /F 8 Tf 1 Tc 2 Tw 90 Tz 3 TL 4 Ts 2 Tr (y) Tj T* (z) Tj ET",
                  "/Type /XObject /Subtype /Form /BBox [0 0 100 100]" + resources),
        PdfStream("1 0 d0 1 0 0 rg 0 0 1 1 re f")};
}

class OddTexts : public ::testing::Test
{
protected:
    void Read(const std::string& page, const OrvDoc::ReadOptions& options = {})
    {
        file.Read({page}, fonts, Objects(), options);
    }

    /// The page shows that, and again when it is written anew and read.
    void ExpectShown(const std::string& page, const ::testing::Matcher<std::vector<std::string>>& matcher)
    {
        Read(page);
        EXPECT_THAT(file.Shown(), matcher);
        const std::string before = TreeText(std::as_const(file.Page()).GetChildren());
        file.Page().MarkChanged();
        file.Reopen();
        EXPECT_EQ(TreeText(std::as_const(file.Page()).GetChildren()), before) << file.SavedStream();
    }

    /// Every text of a content has finite places, or says nothing about them.
    static void ExpectFinite(const OrvDoc::Content& content)
    {
        for (const OrvDoc::ContentObject* group = content.GetChildren().first; group; group = group->next) {
            const auto* const texts = dynamic_cast<const OrvDoc::Group*>(group);
            ASSERT_TRUE(texts);
            for (const OrvDoc::ContentObject* object = texts->children.first; object; object = object->next) {
                const auto& text = dynamic_cast<const OrvDoc::Text&>(*object);
                for (const double number :
                     {text.GetTextTransformation().a, text.GetTextTransformation().b,
                      text.GetTextTransformation().x.value, text.GetTextTransformation().y.value})
                    EXPECT_TRUE(std::isfinite(number)) << number;
                text.TransformedCompounds(nullptr);
                text.GetBoundingBoxSelf(OrvDoc::BoxKind::Painted, {});
            }
        }
    }

    TextFile file;
};

TEST_F(OddTexts, ScaleOfZeroIsTold)
{
    ExpectShown("BT /F 10 Tf 0 Tz (AB) Tj 100 Tz (C) Tj ET",
                ElementsAre("Helvetica 10 (scale 0 AB scale 1 C) fill Gray 0"));
}

TEST_F(OddTexts, ScaleOfZeroHoldsThePenOfTheNextText)
{
    ExpectShown("BT /F 10 Tf 0 Tz (AB) Tj 100 Tz 1 g (C) Tj ET",
                ElementsAre("Helvetica 10 (scale 0 AB) fill Gray 0", "Helvetica 10 (C) fill Gray 1"));
}

TEST_F(OddTexts, SizesOfZeroAndBelowAreSizes)
{
    ExpectShown("BT /F 0 Tf (A) Tj /F -10 Tf (BC) Tj /F 10 Tf (D) Tj ET",
                ElementsAre("Helvetica 0 (A) fill Gray 0", "Helvetica -10 (BC) fill Gray 0",
                            "Helvetica 10 (D) at 1,0,0,1,-10000,0 fill Gray 0"));
}

TEST_F(OddTexts, SavedStatesInsideOfATextObject)
{
    Read("BT /F 10 Tf (A) Tj q 1 g (B) Tj Q (C) Tj ET");
    EXPECT_THAT(file.Shown(),
                ElementsAre("Helvetica 10 (A) fill Gray 0", "Helvetica 10 (B) at 1,0,0,1,5000,0 fill Gray 1",
                            "Helvetica 10 (C) at 1,0,0,1,10000,0 fill Gray 0"));
    const auto before = file.Shown();
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, AMatrixInsideOfATextObjectMovesWhatFollows)
{
    Read("BT /F 10 Tf (A) Tj 1 0 0 1 7 8 cm (B) Tj ET");
    EXPECT_THAT(file.Shown(),
                ElementsAre("Helvetica 10 (A) fill Gray 0",
                            "Helvetica 10 @1,0,0,1,7000,8000 (B) at 1,0,0,1,5000,0 fill Gray 0"));
    const auto before = file.Shown();
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, PathsInsideOfATextObject)
{
    Read("BT /F 10 Tf (A) Tj 0 0 9 9 re f (B) Tj ET");
    const auto before = file.Shown();
    ASSERT_THAT(before, SizeIs(3));
    EXPECT_THAT(before[2], HasSubstr("(B) at 1,0,0,1,5000,0"));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, NumbersNearTheLargestLeaveFiniteTexts)
{
    for (const char* const page : {
             "BT /F 1e38 Tf (ABC) Tj /F 10 Tf (D) Tj ET",
             "BT /F 10 Tf 99999999999999999999999999999999999999 0 0 1 0 0 Tm (A) Tj (B) Tj ET",
             "BT /F 340282346638528859811704183484516925440 Tf 340282346638528859811704183484516925440 Tc "
             "340282346638528859811704183484516925440 Tz (AB) Tj /F 1 Tf (C) Tj ET",
             "BT /F 10 Tf 99999999999999999999999999999999999999 99999999999999999999999999999999999999 Td "
             "99999999999999999999999999999999999999 0 0 99999999999999999999999999999999999999 1 1 Tm (A) "
             "Tj "
             "99999999999999999999999999999999999999 99999999999999999999999999999999999999 Td (B) Tj ET",
         }) {
        SCOPED_TRACE(page);
        Read(page);
        ExpectFinite(file.Page());
        file.Page().MarkChanged();
        file.Reopen();
        ExpectFinite(file.Page());
    }
}

TEST_F(OddTexts, LinesBeyondAllNumbersAreTold)
{
    const std::string huge(300, '9');
    Read("BT /F 10 Tf " + huge + " 0 0 1 0 0 Tm " + huge + " 0 Td (A) Tj ET");
    ExpectFinite(file.Page());
    Read("BT /F " + huge + " Tf " + huge + " Tz (A) Tj 1 g (B) Tj ET");
    ExpectFinite(file.Page());
    file.Page().MarkChanged();
    file.Reopen();
    ExpectFinite(file.Page());
}

TEST_F(OddTexts, AFormShowsTextInTheFontAroundIt)
{
    Read("/F 12 Tf 2 Tc /X Do");
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("[text[Helvetica 12 spaced 2 (x) fill Gray 0]]")));
    EXPECT_THAT(file.Errors(), IsEmpty());
    const auto before = file.Shown();
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, AFormWithoutAFontAroundItIsTold)
{
    Read("/X Do");
    EXPECT_THAT(file.Errors(), Contains(HasSubstr("text without a font")));
}

TEST_F(OddTexts, AFormInTwoFontsIsTwoForms)
{
    Read("/F 12 Tf /X Do /F 20 Tf /X Do");
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("Helvetica 12 (x)"), HasSubstr("Helvetica 20 (x)")));
    const auto before = file.Shown();
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, AFormShowsTextInTheColoursAroundIt)
{
    Read("1 0 0 rg /Y Do 0 1 0 rg /Y Do 1 Tr 0 0 1 RG /Y Do 1 0 1 RG /Y Do 9 w /Y Do");
    EXPECT_THAT(file.Shown(),
                ElementsAre(HasSubstr("(y) fill RGB 1 0 0"), HasSubstr("(y) fill RGB 0 1 0"),
                            HasSubstr("(y) stroke RGB 0 0 1"), HasSubstr("(y) stroke RGB 1 0 1"),
                            HasSubstr("(y) stroke RGB 1 0 1 width 9000")));
    const auto before = file.Shown();
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, AFormHasTheLeadingAroundIt)
{
    Read("10 TL /Z Do 20 TL /Z Do");
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("(y move 0 -10 z)"), HasSubstr("(y move 0 -20 z)")));
}

TEST_F(OddTexts, AFormThatSetsItsParametersIsTheSameWhereverItIsPainted)
{
    Read("/W Do /F 20 Tf 7 Tc 7 Tw 70 Tz 7 TL 7 Ts 1 Tr 1 0 0 rg 1 0 0 RG 9 w /W Do");
    std::vector<OrvDoc::Path*> paths;
    CollectForms(file.Page().GetChildren(), paths);
    ASSERT_THAT(paths, SizeIs(2));
    EXPECT_EQ(paths[0]->GetFillPaint(), paths[1]->GetFillPaint());
}

TEST_F(OddTexts, TextUnderAHalftoneKeepsIt)
{
    Read("BT /F 10 Tf (A) Tj /H gs (B) Tj ET");
    const auto halftones = [this] {
        std::vector<bool> present;
        const auto* group = dynamic_cast<const OrvDoc::Group*>(file.Page().GetChildren().first);
        for (const OrvDoc::ContentObject* object = group->children.first; object; object = object->next)
            present.push_back(dynamic_cast<const OrvDoc::Text&>(*object).GetHalftoneSet() != nullptr);
        return present;
    };
    EXPECT_THAT(halftones(), ElementsAre(false, true));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_THAT(halftones(), ElementsAre(false, true));
}

TEST_F(OddTexts, AFormInsideOfATextObjectIsThere)
{
    Read("BT /F 10 Tf (A) Tj /Y Do (B) Tj ET");
    const auto before = file.Shown();
    ASSERT_THAT(before, SizeIs(3));
    EXPECT_THAT(before[1], HasSubstr("Helvetica 8 (y)"));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, TextIsFilledWithPatternsAndShadings)
{
    Read("BT /F 10 Tf /Pattern cs /P scn (A) Tj /S scn (B) Tj ET");
    EXPECT_THAT(file.Errors(), IsEmpty());
    const auto before = file.Shown();
    EXPECT_THAT(before, ElementsAre("Helvetica 10 (A) fill ?", "Helvetica 10 (B) at 1,0,0,1,5000,0 fill ?"));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
    EXPECT_THAT(file.Errors(), IsEmpty());
    EXPECT_THAT(file.SavedStream(), HasSubstr(" scn"));
}

TEST_F(OddTexts, TextUnderAMaskOfTextKeepsIt)
{
    Read("BT /F 10 Tf /M gs (A) Tj /N gs (B) Tj ET");
    EXPECT_THAT(file.Errors(), IsEmpty());
    const auto hasMask = [this] {
        std::vector<bool> masks;
        const auto* group = dynamic_cast<const OrvDoc::Group*>(file.Page().GetChildren().first);
        for (const OrvDoc::ContentObject* object = group->children.first; object; object = object->next) {
            const auto& text = dynamic_cast<const OrvDoc::Text&>(*object);
            masks.push_back(text.GetTransparency() && text.GetTransparency()->softMask);
        }
        return masks;
    };
    EXPECT_THAT(hasMask(), ElementsAre(true, false));
    const auto before = file.Shown();
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
    EXPECT_THAT(hasMask(), ElementsAre(true, false));
}

TEST_F(OddTexts, ObjectsBeyondTheLimitAreLeftOutAndTold)
{
    OrvDoc::ReadOptions options;
    options.limits.contentObjects = 3;
    Read("BT /F 10 Tf (A) Tj 1 g (B) Tj ET", options);
    EXPECT_THAT(file.Shown(), SizeIs(2));
    EXPECT_THAT(file.Errors(), IsEmpty());
    Read("BT /F 10 Tf (A) Tj 1 g (B) Tj 0 g (C) Tj 1 g (D) Tj ET", options);
    EXPECT_THAT(file.Shown(), SizeIs(2));
    EXPECT_THAT(file.Errors(), Contains(HasSubstr("contentObjects")));
}

TEST_F(OddTexts, MarksInsideOfATextObjectNestAsDeepAsTheyDo)
{
    // Up to eight stand in one text object, and deeper ones around text objects of their own.
    for (const int depth : {1, 7, 8, 9, 10, 40}) {
        SCOPED_TRACE(depth);
        std::string page = "BT /F 10 Tf (A) Tj ";
        for (int level = 0; level < depth; ++level)
            page += "/P BMC ";
        page += "(B) Tj ";
        for (int level = 0; level < depth; ++level)
            page += "EMC ";
        page += "(C) Tj ET";
        ExpectShown(page, SizeIs(3));
        const std::string stream = file.SavedStream();
        std::size_t textObjects = 0;
        for (std::size_t at = stream.find("BT\n"); at != std::string::npos; at = stream.find("BT\n", at + 1))
            ++textObjects;
        EXPECT_EQ(textObjects, depth <= 8 ? 1U : 3U) << stream;
    }
}

TEST_F(OddTexts, MarksAcrossTextObjectsKeepTheTexts)
{
    Read("/P BMC BT /F 10 Tf (A) Tj EMC (B) Tj /Q BMC ET EMC BT (C) Tj ET");
    const auto before = file.Shown();
    EXPECT_THAT(before, SizeIs(3));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, ATextObjectGoesOnInTheNextPartOfTheContent)
{
    const std::string bytes = HarrowSupport::Testing::PdfFile(
        {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
         "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 100 100] /Contents [4 0 R 5 0 R] /Resources << /Font "
         "<< "
         "/F << /Type /Font /Subtype /Type1 /BaseFont /Courier >> >> >> >>",
         HarrowSupport::Testing::PdfStream("BT /F 10 Tf (A) Tj 0 -12 Td"),
         HarrowSupport::Testing::PdfStream("(B) Tj ET")});
    file.document = OrvDoc::Document::Create(file.folder.Write("in.pdf", bytes), OrvDoc::ReadOptions());
    const auto before = file.Shown();
    EXPECT_THAT(before, ElementsAre(HasSubstr("(A move 0 -12 B)")));
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, VerticalWritingGoesDown)
{
    Read("BT /V 10 Tf 10 90 Td [<0024> 200 <00250026>] TJ 1 g 50 Tz <0027> Tj ET");
    const auto before = file.Shown();
    ASSERT_THAT(before, SizeIs(2));
    // Three advances of ten and an adjustment of two, whatever the scale.
    EXPECT_THAT(before[1], HasSubstr("at 1,0,0,1,10000,58000"));
    const auto* const group = dynamic_cast<const OrvDoc::Group*>(file.Page().GetChildren().first);
    const auto& text = dynamic_cast<const OrvDoc::Text&>(*group->children.first);
    std::vector<double> heights;
    for (const auto& place : text.GetCharacterTransformations())
        heights.push_back(place.y.value);
    EXPECT_THAT(heights, ElementsAre(0.0, -12.0, -22.0));
    EXPECT_EQ(text.GetFont()->GetWritingMode(), OrvFont::WritingMode::Vertical);
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(OddTexts, AVerticalTextGoesOnBehindItsLatestLine)
{
    Read("BT /V 10 Tf <0024> Tj 5 0 Td <00250025> Tj 1 g <0026> Tj ET");
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("move 5 0"), HasSubstr("at 1,0,0,1,5000,-20000")));
    Read("BT /V 10 Tf 50 Tz [<0024> 100 <0025>] TJ 1 g <0026> Tj ET");
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("back 100"), HasSubstr("at 1,0,0,1,0,-21000")));
    Read("BT /V 10 Tf <0024> Tj /F 10 Tf (B) Tj 3 -12 Td (C) Tj ET");
    EXPECT_THAT(file.Shown(),
                ElementsAre(HasSubstr("Upright"), HasSubstr("(B move 3 -2 C) at 1,0,0,1,0,-10000")));
}

TEST_F(OddTexts, AMoveBehindATurnIsInTheAxesOfTheTurn)
{
    Read("BT /F 10 Tf (A) Tj 0 1 -1 0 5 6 Tm (B) Tj 2 -3 Td (C) Tj ET");
    const auto* const group = dynamic_cast<const OrvDoc::Group*>(file.Page().GetChildren().first);
    const auto& text = dynamic_cast<const OrvDoc::Text&>(*group->children.first);
    const auto& place = text.GetCharacterTransformations().at(2);
    EXPECT_EQ(place.x.value, 8.0);
    EXPECT_EQ(place.y.value, 8.0);
}

TEST_F(OddTexts, AFormShowsGlyphsInTheFontAroundIt)
{
    file.Read({"/T3 12 Tf /X Do /T3 20 Tf /X Do"}, fonts, [] {
        auto objects = Objects();
        objects[4] = HarrowSupport::Testing::PdfStream(
            "BT (A) Tj ET", "/Type /XObject /Subtype /Form /BBox [0 0 100 100] /Resources << >>");
        return objects;
    }());
    std::vector<OrvDoc::Path*> paths;
    CollectForms(file.Page().GetChildren(), paths);
    ASSERT_THAT(paths, SizeIs(2));
    std::vector<double> sizes;
    for (const OrvDoc::Path* const path : paths) {
        std::vector<OrvDoc::Path*> glyphs;
        CollectForms(
            dynamic_cast<const OrvPaint::FormPaint&>(*path->GetFillPaint()).GetContent().GetChildren(),
            glyphs);
        ASSERT_THAT(glyphs, SizeIs(1));
        sizes.push_back(glyphs[0]->GetTransformation().a);
    }
    EXPECT_THAT(sizes, ElementsAre(12.0, 20.0));
}

TEST_F(OddTexts, SpacingShortensVerticalAdvances)
{
    Read("BT /V 10 Tf 1 Tc <0024> Tj 1 g <0025> Tj ET");
    EXPECT_THAT(file.Shown(), Contains(HasSubstr("at 1,0,0,1,0,-9000")));
}

TEST_F(OddTexts, RiseLiftsCharacters)
{
    Read("BT /F 10 Tf (A) Tj 5 Ts (B) Tj ET");
    const auto* const group = dynamic_cast<const OrvDoc::Group*>(file.Page().GetChildren().first);
    const auto& text = dynamic_cast<const OrvDoc::Text&>(*group->children.first);
    EXPECT_EQ(text.GetCharacterTransformations().at(0).y.value, 0.0);
    EXPECT_EQ(text.GetCharacterTransformations().at(1).y.value, 5.0);
}

TEST_F(OddTexts, CodesOfTwoBytesOfMadeTextsAreWrittenHighByteFirst)
{
    Read("BT /V 10 Tf <0024> Tj ET");
    auto& group = dynamic_cast<OrvDoc::Group&>(*file.Page().GetChildren().first);
    const auto font = dynamic_cast<const OrvDoc::Text&>(*group.children.first).GetFont();
    auto made = std::make_unique<OrvDoc::Text>(
        std::vector<OrvDoc::TextCharacter>{{{0x4241, 0x4241, 2}, 0, 0}}, font, 10.0);
    group.AddOnTop(made.release());
    file.Reopen();
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("Upright"), HasSubstr("BA)")));
}

TEST_F(OddTexts, WordSpacingSpreadsNoCodesOfTwoBytes)
{
    Read("BT /V 10 Tf 5 Tw <00200024> Tj 1 g <0024> Tj ET");
    ASSERT_THAT(file.Shown(), SizeIs(2));
    EXPECT_THAT(file.Shown()[1], HasSubstr("at 1,0,0,1,0,-20000"));
}

TEST_F(OddTexts, AdjustmentsBetweenCodesOfTwoBytesStandBetweenThem)
{
    Read("BT /V 10 Tf [<0024> 100 <0025> 200 <0026> 300] TJ 1 g <0027> Tj ET");
    EXPECT_THAT(file.Shown()[1], HasSubstr("at 1,0,0,1,0,-36000"));
}

TEST_F(OddTexts, TransferFunctionsAndHalftonesPartTexts)
{
    file.Read(
        {"BT /F 10 Tf (A) Tj /T gs (B) Tj ET", "BT /F 10 Tf (A) Tj /H gs (B) Tj ET",
         "BT /F 10 Tf (A) Tj /B gs (B) Tj ET"},
        "/Font << /F << /Type /Font /Subtype /Type1 /BaseFont /Courier >> >> /ExtGState << "
        "/T << /TR << /FunctionType 2 /Domain [0 1] /C0 [1] /C1 [0] /N 1 >> >> "
        "/H << /HT << /Type /Halftone /HalftoneType 1 /Frequency 60 /Angle 45 /SpotFunction /Round >> >> "
        "/B << /BM /Multiply >> >>",
        {});
    EXPECT_THAT(file.Shown(0), SizeIs(2));
    EXPECT_THAT(file.Shown(1), SizeIs(2));
    EXPECT_THAT(file.Shown(2), SizeIs(2));
}

TEST_F(OddTexts, MatricesAndStrokesPartTexts)
{
    Read("BT /F 10 Tf 1 Tr (A) Tj 5 w (B) Tj ET");
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("(A)"), HasSubstr("width 5000")));
    Read("BT /F 10 Tf 1 Tr (A) Tj 1 0 0 RG (B) Tj ET");
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("Gray 0"), HasSubstr("stroke RGB 1 0 0")));
}

TEST_F(OddTexts, AnAdjustmentOnANewLineMovesItsStart)
{
    ExpectShown("BT /F 10 Tf (A) Tj 0 -12 Td [300] TJ (B) Tj 0 -12 Td (C) Tj ET",
                ElementsAre("Helvetica 10 (A) fill Gray 0",
                            "Helvetica 10 (B move 3 -12 C) at 1,0,0,1,-3000,-12000 fill Gray 0"));
    ExpectShown("BT /F 10 Tf 50 Tz [300] TJ (A) Tj ET",
                ElementsAre("Helvetica 10 (scale 0.5 A) at 1,0,0,1,-1500,0 fill Gray 0"));
    Read("BT /V 10 Tf [300] TJ <0024> Tj ET");
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("at 1,0,0,1,0,-3000")));
}

} // namespace
} // namespace OrvPdf::Testing
