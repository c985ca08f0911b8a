// Tiling patterns of small files, as pages paint with them.

#include "pdf/reader/resources/tiling_reader.h"

#include <gmock/gmock.h>

#include <orv_color/color_space.h>
#include <orv_paint/flat_paint.h>

#include "document_library/pdf/reader/nested_files.h"

namespace ReaderTests
{
namespace
{

using HarrowSupport::Testing::PdfStream;
using OrvColor::ColorSpace;
using OrvPaint::PatternPaint;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string square = "0 0 10 10 re f\n";
const std::string fillWithPattern = "/Pattern cs /P scn " + square;

/// A pattern with what all need.
std::string Tiling(const std::string& entries, const std::string& cell = "0 0 1 1 re f", int paintType = 1)
{
    return PdfStream(cell, "/PatternType 1 /PaintType " + std::to_string(paintType) + " " + entries);
}

std::string Usual(const std::string& cell = "0 0 1 1 re f", int paintType = 1)
{
    return Tiling("/TilingType 1 /BBox [0 0 10 10] /XStep 10 /YStep 10", cell, paintType);
}

/// A page that is filled with a pattern, the object 5.
std::unique_ptr<OrvDoc::Document> PageWith(const std::string& pattern,
                                           const std::string& content = fillWithPattern)
{
    return ReadPages({content}, "/Pattern << /P 5 0 R >>", {pattern});
}

/// A page that is filled with an uncoloured pattern over a space.
std::unique_ptr<OrvDoc::Document> PageInSpace(const std::string& space, const std::string& operators,
                                              const std::vector<std::string>& more = {})
{
    std::vector<std::string> objects{Usual("0 0 1 1 re f", 2)};
    objects.insert(objects.end(), more.begin(), more.end());
    return ReadPages({operators + square},
                     "/Pattern << /P 5 0 R >> /ColorSpace << /C [/Pattern " + space + "] >>", objects);
}

std::vector<std::string> ErrorsWith(const std::string& pattern)
{
    const auto document = PageWith(pattern);
    return ErrorsOfPage(*document);
}

TEST(TilingReader, ReadsMatrixBoxStepAndType)
{
    const auto document = PageWith(
        Tiling("/TilingType 2 /Matrix [1 2 3 4 5 6.125] /BBox [1 2 11 22] /XStep -10.5 /YStep 20.0001"));
    const auto pattern = PatternOf(PathOfPage(*document));
    ASSERT_TRUE(pattern);
    EXPECT_EQ(pattern->GetTransformation(), MilliPointMatrix(1.0, 2.0, 3.0, 4.0, 5000.0, 6125.0));
    EXPECT_EQ(pattern->GetCellClip(), MilliPointBox(1000.0, 2000.0, 10000.0, 20000.0));
    EXPECT_EQ(pattern->GetStep().width.value, -10500.0);
    EXPECT_EQ(pattern->GetStep().height.value, 20000.1);
    EXPECT_EQ(pattern->GetTilingType(), PatternPaint::TilingType::NoDistortion);
    EXPECT_FALSE(pattern->GetColor());
    EXPECT_THAT(ErrorsOfPage(*document), IsEmpty());
}

TEST(TilingReader, ReadsTheCellAsAContentOfItsKind)
{
    const auto colored = PageWith(Usual("1 0 0 rg 0 0 1 1 re f"));
    const auto pattern = PatternOf(PathOfPage(*colored));
    ASSERT_TRUE(pattern);
    EXPECT_EQ(pattern->GetContent().GetType(), OrvDoc::Content::Type::ColoredPatternContent);
    EXPECT_TRUE(PathOf(pattern->GetContent()).GetFillPaint());
    const auto uncolored = PageInSpace("/DeviceGray", "/C cs 0.5 /P scn ");
    EXPECT_EQ(PatternOf(PathOfPage(*uncolored))->GetContent().GetType(),
              OrvDoc::Content::Type::UncoloredPatternContent);
}

TEST(TilingReader, ReadsTheColorOfAnUncoloredPatternInAnySpace)
{
    struct Case
    {
        const char* space;
        const char* operators;
        std::vector<float> components;
    };
    const std::vector<Case> cases{
        {"/DeviceGray", "/C cs 0.25 /P scn ", {0.25f}},
        {"/DeviceRGB", "/C cs 0 0.5 1 /P scn ", {0.0f, 0.5f, 1.0f}},
        {"[/Separation /Spot /DeviceCMYK << /FunctionType 2 /Domain [0 1] /N 1 /C0 [0 0 0 0] /C1 [0 1 0 0] "
         ">>]",
         "/C cs 0.75 /P scn ",
         {0.75f}},
        {"[/ICCBased 6 0 R]", "/C cs 0 0.5 1 /P scn ", {0.0f, 0.5f, 1.0f}}};
    for (const Case& one : cases) {
        SCOPED_TRACE(one.space);
        const auto document =
            PageInSpace(one.space, one.operators, {PdfStream("profile", "/N 3 /Alternate /DeviceRGB")});
        const auto pattern = PatternOf(PathOfPage(*document));
        ASSERT_TRUE(pattern);
        ASSERT_TRUE(pattern->GetColor());
        EXPECT_EQ(pattern->GetNativeColor()->GetNativeComponents(), one.components);
        EXPECT_EQ(*pattern->GetColor(), pattern->GetNativeColor()->GetColor());
    }
}

TEST(TilingReader, GivesAnUncoloredPatternTheOverprintInForce)
{
    const auto document = ReadPages(
        {"/O gs /C cs 0 0.5 0 0 /P scn " + square},
        "/Pattern << /P 5 0 R >> /ColorSpace << /C [/Pattern /DeviceCMYK] >> /ExtGState << /O << /OP true "
        "/op true /OPM 1 >> >>",
        {Usual("0 0 1 1 re f", 2)});
    const auto pattern = PatternOf(PathOfPage(*document));
    ASSERT_TRUE(pattern && pattern->GetColor());
    EXPECT_TRUE(pattern->GetColor()->overprint);
    EXPECT_EQ(pattern->GetColor()->entries.size(), 1u);
}

TEST(TilingReader, TellsAColorWithTheWrongNumberOfComponents)
{
    for (const char* const operators : {"/C cs /P scn ", "/C cs 0.5 /P scn ", "/C cs 0 0 0 0 /P scn "}) {
        const auto document = PageInSpace("/DeviceRGB", operators);
        EXPECT_FALSE(PathOfPage(*document).GetFillPaint());
        EXPECT_THAT(ErrorsOfPage(*document), ElementsAre(HasSubstr("P"))) << operators;
    }
}

TEST(TilingReader, TellsAnUncoloredPatternInTheSpaceWithoutColors)
{
    const auto document = PageWith(Usual("0 0 1 1 re f", 2));
    EXPECT_FALSE(PathOfPage(*document).GetFillPaint());
    EXPECT_THAT(ErrorsOfPage(*document), ElementsAre(HasSubstr("a pattern without the colour")));
}

TEST(TilingReader, StrokesWithAPattern)
{
    const auto document = PageWith(Usual(), "/Pattern CS /P SCN 0 0 m 10 10 l S\n");
    EXPECT_EQ(PathOfPage(*document).GetStrokePaint()->GetType(), OrvPaint::Paint::Type::TilingPattern);
    EXPECT_FALSE(PathOfPage(*document).GetFillPaint());
}

TEST(TilingReader, MakesOnePaintOfAnObjectThatTwoPagesName)
{
    const auto document = ReadPages({fillWithPattern, fillWithPattern}, "/Pattern << /P 7 0 R >>", {Usual()});
    EXPECT_TRUE(PatternOf(PathOfPage(*document, 0, 0)));
    EXPECT_EQ(PathOfPage(*document, 0, 0).GetFillPaint(), PathOfPage(*document, 0, 1).GetFillPaint());
}

TEST(TilingReader, MakesOnePaintOfEachColorOfAnUncoloredPattern)
{
    const std::string red = "/C cs 1 0 0 /P scn " + square;
    const std::string blue = "/C cs 0 0 1 /P scn " + square;
    const auto document = ReadPages({red + blue, blue + red},
                                    "/Pattern << /P 7 0 R >> /ColorSpace << /C [/Pattern /DeviceRGB] >>",
                                    {Usual("0 0 1 1 re f", 2)});
    const auto first = PatternOf(PathOfPage(*document, 0, 0));
    const auto second = PatternOf(PathOfPage(*document, 1, 0));
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->GetSharedContent(), second->GetSharedContent());
    EXPECT_EQ(PatternOf(PathOfPage(*document, 0, 1)), second);
    EXPECT_EQ(PatternOf(PathOfPage(*document, 1, 1)), first);
}

TEST(TilingReader, MakesOnePaintWhereTheOverprintModeSaysNothing)
{
    const auto document = ReadPages({"/C cs /A gs 0.5 /P scn " + square + "/B gs " + square},
                                    "/Pattern << /P 5 0 R >> /ColorSpace << /C [/Pattern /DeviceGray] >> "
                                    "/ExtGState << /A << /op true /OPM "
                                    "0 >> /B << /op true /OPM 1 >> >>",
                                    {Usual("0 0 1 1 re f", 2)});
    ASSERT_TRUE(PatternOf(PathOfPage(*document, 0)));
    EXPECT_EQ(PathOfPage(*document, 0).GetFillPaint(), PathOfPage(*document, 1).GetFillPaint());
}

TEST(TilingReader, TellsApartColorsThatDifferInTheirSpaceAlone)
{
    const auto document = ReadPages(
        {"/C cs 0.5 /P scn " + square + "/D cs 0.5 /P scn " + square},
        "/Pattern << /P 5 0 R >> /ColorSpace << /C [/Pattern /DeviceGray] /D [/Pattern [/CalGray << "
        "/WhitePoint [0.9 1 1.1] >>]] >>",
        {Usual("0 0 1 1 re f", 2)});
    EXPECT_NE(PathOfPage(*document, 0).GetFillPaint(), PathOfPage(*document, 1).GetFillPaint());
}

TEST(TilingReader, LeadsToTheContentThatNamesThePattern)
{
    // The matrix of a pattern counts from the form whose content names it, not from where that is placed.
    const auto document = ReadPages(
        {"2 0 0 2 50 50 cm /F Do\n"}, "/XObject << /F 5 0 R >>",
        {PdfStream(
             "3 0 0 3 0 0 cm " + fillWithPattern,
             "/Subtype /Form /BBox [0 0 10 10] /Matrix [1 0 0 1 7 7] /Resources << /Pattern << /P 6 0 R "
             ">> >>"),
         Tiling("/TilingType 1 /BBox [0 0 10 10] /XStep 10 /YStep 10 /Matrix [1 0 0 1 5 5]")});
    const auto pattern = PatternOf(PathOf(FormContentOf(PathOfPage(*document))));
    ASSERT_TRUE(pattern);
    EXPECT_EQ(pattern->GetTransformation(), MilliPointMatrix(1.0, 0.0, 0.0, 1.0, 5000.0, 5000.0));
}

TEST(TilingReader, IsNotMovedByTheMatrixInForce)
{
    const auto document = PageWith(Usual(), "2 0 0 2 50 50 cm " + fillWithPattern);
    EXPECT_TRUE(Plexa::IsIdentity(PatternOf(PathOfPage(*document))->GetTransformation()));
}

TEST(TilingReader, TellsAPatternThatPaintsItself)
{
    const auto document = PageWith(
        Tiling("/TilingType 1 /BBox [0 0 10 10] /XStep 10 /YStep 10 /Resources << /Pattern << /P 5 0 R >> >>",
               fillWithPattern));
    const auto pattern = PatternOf(PathOfPage(*document));
    ASSERT_TRUE(pattern);
    EXPECT_FALSE(PathOf(pattern->GetContent()).GetFillPaint());
    EXPECT_THAT(ErrorsOfPage(*document),
                ElementsAre(AllOf(HasSubstr("pattern 5 0"), HasSubstr("/P"), HasSubstr("inside of itself"))));
}

TEST(TilingReader, TellsAPatternThatPaintsItselfThroughAForm)
{
    const auto document = ReadPages(
        {fillWithPattern}, "/Pattern << /P 5 0 R >>",
        {Tiling(
             "/TilingType 1 /BBox [0 0 10 10] /XStep 10 /YStep 10 /Resources << /XObject << /F 6 0 R >> >>",
             "/F Do"),
         PdfStream(fillWithPattern,
                   "/Subtype /Form /BBox [0 0 10 10] /Resources << /Pattern << /P 5 0 R >> >>")});
    ASSERT_TRUE(PatternOf(PathOfPage(*document)));
    EXPECT_THAT(ErrorsOfPage(*document), ElementsAre(HasSubstr("inside of itself")));
}

TEST(TilingReader, ComesBackEquallyWithAPatternThatPaintsItself)
{
    const auto document = PageWith(
        Tiling("/TilingType 1 /BBox [0 0 10 10] /XStep 10 /YStep 10 /Resources << /Pattern << /P 5 0 R >> >>",
               fillWithPattern));
    ContentOfPage(*document).MarkChanged();
    const auto back = SavedAndRead(*document);
    const auto pattern = PatternOf(PathOfPage(*back));
    ASSERT_TRUE(pattern);
    EXPECT_FALSE(PathOf(pattern->GetContent()).GetFillPaint());
}

TEST(TilingReader, TellsWhatIsMalformedWithTheNameOfThePattern)
{
    const std::string rest = " /TilingType 1 /XStep 10 /YStep 10";
    const auto tellsP = [](const char* reason) {
        return ElementsAre(AllOf(HasSubstr("/P"), HasSubstr(reason)));
    };
    EXPECT_THAT(ErrorsWith(Tiling("/BBox [0 0 10]" + rest)), tellsP("BBox has 3 entries"));
    EXPECT_THAT(ErrorsWith(Tiling("/BBox [0 0 10 /X]" + rest)), tellsP("entry 4 of BBox"));
    EXPECT_THAT(ErrorsWith("<< /PatternType 1 >>"), tellsP("no type of pattern"));
    EXPECT_THAT(ErrorsWith(PdfStream("", "/PatternType 7")), tellsP("no type of pattern"));
    EXPECT_THAT(ErrorsWith("null"), tellsP("missing"));
}

TEST(TilingReader, TellsWhatIsMissingAndReadsThePattern)
{
    const auto tells = [](const char* reason) {
        return ElementsAre(AllOf(HasSubstr("pattern 5 0"), HasSubstr(reason)));
    };
    const std::string box = "/BBox [0 0 9 9] /TilingType 1 ";
    EXPECT_THAT(ErrorsWith(Tiling("/TilingType 1 /XStep 10 /YStep 10")), tells("BBox is missing"));
    EXPECT_THAT(ErrorsWith(Tiling(box + "/XStep 10")), tells("YStep"));
    EXPECT_THAT(ErrorsWith(Tiling(box + "/XStep 0 /YStep 10")), tells("XStep"));
    EXPECT_THAT(ErrorsWith(Tiling(box + "/XStep (10) /YStep 10")), tells("XStep"));
    EXPECT_THAT(ErrorsWith(Tiling(box + "/XStep 10 /YStep 10 /Matrix [1 0 0 1 0]")),
                tells("Matrix has 5 entries"));
    const auto document = PageWith(Tiling(box));
    EXPECT_TRUE(PatternOf(PathOfPage(*document)));
}

TEST(TilingReader, TellsTypesThatAreNoneAndReadsThePattern)
{
    const auto odd = PageWith(Tiling("/BBox [0 0 9 9] /TilingType 4 /XStep 10 /YStep 10", "", 3));
    EXPECT_THAT(ErrorsOfPage(*odd), ElementsAre(AllOf(HasSubstr("pattern 5 0"), HasSubstr("PaintType")),
                                                AllOf(HasSubstr("pattern 5 0"), HasSubstr("TilingType"))));
    const auto pattern = PatternOf(PathOfPage(*odd));
    ASSERT_TRUE(pattern);
    EXPECT_EQ(pattern->GetTilingType(), PatternPaint::TilingType::ConstantSpacing);
    EXPECT_FALSE(pattern->GetColor());
}

TEST(TilingReader, TellsOnceWhatTheCellHasWrong)
{
    const auto document =
        PageWith(Usual("0 0 1 1 re f\nBT (text) Tj ET\n"), fillWithPattern + fillWithPattern);
    EXPECT_THAT(ErrorsOfPage(*document), ElementsAre(HasSubstr("pattern 5 0: ")));
}

TEST(TilingReader, KeepsTextInACellWhenThePageIsWrittenAnew)
{
    const std::string cell = "BT /T 9 Tf (kept) Tj ET 0 0 1 1 re f";
    const auto document = PageWith(Usual(cell));
    ContentOfPage(*document).MarkChanged();
    const HarrowSupport::Testing::TemporaryFolder folder;
    const std::string name = folder.NameOf("saved.pdf");
    document->Save(name, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    EXPECT_THAT(TextsOf(document->GetActiveErrors()), IsEmpty());
    QPDF file;
    file.processFile(name.c_str());
    bool isKept = false;
    for (QPDFObjectHandle object : file.getAllObjects()) {
        if (object.isStream() && object.getDict().getKey("/PatternType").isInteger()) {
            const auto data = object.getStreamData();
            const std::string bytes(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
            isKept = isKept || bytes.find("(kept) Tj") != std::string::npos;
        }
    }
    EXPECT_TRUE(isKept);
}

TEST(TilingReader, FindsAmongManyColorsTheOneThatWasThere)
{
    std::string content = "/C cs\n";
    constexpr int colors = 20000;
    for (int index = 0; index < colors; ++index)
        content += "0." + std::to_string(100000 + index) + " /P scn 0 0 1 1 re f\n";
    content += "0.100000 /P scn 0 0 1 1 re f\n";
    const auto document =
        ReadPages({content}, "/Pattern << /P 5 0 R >> /ColorSpace << /C [/Pattern /DeviceGray] >>",
                  {Usual("0 0 1 1 re f", 2)});
    EXPECT_EQ(PathOfPage(*document, 0).GetFillPaint(), PathOfPage(*document, colors).GetFillPaint());
}

} // namespace
} // namespace ReaderTests
