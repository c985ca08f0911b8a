#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvColor::ColorSpace;
using OrvPdf::Testing::Reading;
using OrvPdf::Testing::Tree;
using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string fill = " 0 0 m f ";
const std::string filled = "path {M 0 0} fill ";

std::shared_ptr<const OrvPaint::Paint> FillOf(const OrvDoc::ContentObject* object)
{
    return dynamic_cast<const OrvDoc::Path&>(*object).GetFillPaint();
}

/// A tint transform from some tints to black.
PdfObject ToCmyk(int tints)
{
    PdfObject::Items domain;
    for (int i = 0; i < 2 * tints; ++i)
        domain.push_back(PdfObject::Integer(i % 2));
    PdfObject::Items range;
    for (int i = 0; i < 8; ++i)
        range.push_back(PdfObject::Integer(i % 2));
    return PdfObject::Stream(PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)},
                                                    {"Domain", PdfObject::Array(domain)},
                                                    {"Range", PdfObject::Array(range)}}),
                             "{ 0 0 0 4 -1 roll }");
}

TEST(InterpreterColors, DeviceOperatorsSetSpaceAndColor)
{
    EXPECT_EQ(Tree("0.5 g" + fill), filled + "Gray 0.5");
    EXPECT_EQ(Tree("1 0.25 0 rg" + fill), filled + "RGB 1 0.25 0");
    EXPECT_EQ(Tree("0 .1 .2 .3 k" + fill), filled + "CMYK 0 0.1 0.2 0.3");
    EXPECT_EQ(Tree("0.5 G 0 0 m S"), "path {M 0 0} stroke Gray 0.5");
    EXPECT_EQ(Tree("1 0.25 0 RG 0 0 m S"), "path {M 0 0} stroke RGB 1 0.25 0");
    EXPECT_EQ(Tree("0 .1 .2 .3 K 0 0 m S"), "path {M 0 0} stroke CMYK 0 0.1 0.2 0.3");
}

TEST(InterpreterColors, FillAndStrokeHaveColorsOfTheirOwn)
{
    EXPECT_EQ(Tree("1 0 0 rg 0 1 0 RG 0 0 m B"), "path {M 0 0} fill RGB 1 0 0 stroke RGB 0 1 0");
}

TEST(InterpreterColors, ColorsBelongToTheStateThatIsSaved)
{
    EXPECT_EQ(Tree("1 g q 0.5 g" + fill + "Q" + fill), filled + "Gray 0.5; " + filled + "Gray 1");
}

TEST(InterpreterColors, AColorSpaceBeginsWithItsInitialColor)
{
    EXPECT_EQ(Tree("1 g /DeviceGray cs" + fill), filled + "Gray 0");
    EXPECT_EQ(Tree("/DeviceRGB cs" + fill), filled + "RGB 0 0 0");
    EXPECT_EQ(Tree("/DeviceCMYK cs" + fill), filled + "CMYK 0 0 0 1");
}

TEST(InterpreterColors, ASeparationBeginsWithFullTint)
{
    Reading reading;
    reading.resources.spaces["S"] = ColorSpace::Separation("Gold", ColorSpace::DeviceCMYK(), ToCmyk(1));
    reading.Read("/S cs" + fill + ".25 scn" + fill + ".5 sc" + fill);
    EXPECT_EQ(Tree(reading), filled + "Gold 1; " + filled + "Gold 0.25; " + filled + "Gold 0.5");
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST(InterpreterColors, TheSpaceOfStrokesIsSetByItsOwnOperators)
{
    EXPECT_EQ(Tree("/DeviceRGB CS 1 0 0 SC 0 0 m S 0 1 0 SCN 0 0 m B"),
              "path {M 0 0} stroke RGB 1 0 0; path {M 0 0} fill Gray 0 stroke RGB 0 1 0");
}

TEST(InterpreterColors, ADefaultSpaceStandsInForTheDeviceSpace)
{
    Reading reading;
    reading.resources.spaces["DeviceRGB"] = ColorSpace::CalRGB({0.95, 1.0, 1.09});
    reading.Read("1 0 0 rg" + fill + "/DeviceRGB cs 0 1 0 sc" + fill + "0.5 g" + fill);
    EXPECT_EQ(Tree(reading), filled + "CalRGB 1 0 0; " + filled + "CalRGB 0 1 0; " + filled + "Gray 0.5");
}

TEST(InterpreterColors, TheBlackOfTheStartIsOfThePlainDeviceSpace)
{
    Reading reading;
    reading.resources.spaces["DeviceGray"] = ColorSpace::CalGray({0.95, 1.0, 1.09});
    reading.Read(fill + "0 g" + fill);
    EXPECT_EQ(Tree(reading), filled + "Gray 0; " + filled + "CalGray 0");
}

TEST(InterpreterColors, ADefaultSpaceThatCannotBeReadLeavesTheDeviceSpace)
{
    Reading reading;
    reading.resources.spaces.erase("DeviceRGB");
    reading.Read("1 0 0 rg" + fill);
    EXPECT_EQ(Tree(reading), filled + "RGB 1 0 0");
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator rg: colour space /DeviceRGB: it is missing, byte 0"));
    EXPECT_TRUE(reading.result.hasUnmodelled);
}

TEST(InterpreterColors, ADefaultSpaceWithAnotherNumberOfComponentsIsNotUsed)
{
    Reading reading;
    reading.resources.spaces["DeviceRGB"] = ColorSpace::CalGray({0.95, 1.0, 1.09});
    reading.Read("1 0 0 rg" + fill);
    EXPECT_EQ(Tree(reading), filled + "RGB 1 0 0");
}

TEST(InterpreterColors, AProblemThatComesWithASpaceIsTold)
{
    Reading reading;
    reading.resources.warnings["DeviceGray"] = "DefaultGray is left out";
    reading.Read("0.5 g" + fill + "1 g" + fill);
    EXPECT_EQ(Tree(reading), filled + "Gray 0.5; " + filled + "Gray 1");
    EXPECT_THAT(
        reading.result.errors,
        ElementsAre("operator g: colour space /DeviceGray: DefaultGray is left out, byte 0 and 1 more"));
}

TEST(InterpreterColors, DeviceSpacesAreLookedUpOnce)
{
    Reading reading;
    reading.Read("0 g 1 g 0 G /DeviceGray cs 0 0 0 rg 0 0 0 RG");
    EXPECT_EQ(reading.resources.lookups, 2U);
}

TEST(InterpreterColors, AMissingSpaceLeavesObjectsWithoutPaint)
{
    Reading reading;
    reading.Read("/X cs 1 0 0 sc" + fill + "0.5 g" + fill);
    EXPECT_EQ(Tree(reading), "path {M 0 0}; " + filled + "Gray 0.5");
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator cs: colour space /X: it is missing, byte 0",
                            "operator sc: a colour in a space that is not modelled, byte 6"));
    EXPECT_TRUE(reading.result.hasUnmodelled);
}

TEST(InterpreterColors, APatternThatIsNotFoundIsToldAndLeavesNoPaint)
{
    Reading reading;
    reading.Read("/Pattern cs /P1 scn" + fill);
    EXPECT_EQ(Tree(reading), "path {M 0 0}");
    EXPECT_THAT(reading.result.errors, ElementsAre("operator scn: pattern /P1: it is missing, byte 12"));
    EXPECT_TRUE(reading.result.hasUnmodelled);
}

TEST(InterpreterColors, TooFewComponentsLeaveTheColor)
{
    EXPECT_EQ(Tree("/DeviceRGB cs 1 0 sc" + fill),
              filled +
                  "RGB 0 0 0 | operator sc: fewer numbers than the colour space has components, byte 14");
    EXPECT_EQ(Tree("1 0 rg" + fill), filled + "Gray 0 | operator rg: too few operands, byte 0");
}

TEST(InterpreterColors, OfTooManyComponentsTheLastOnesCount)
{
    EXPECT_EQ(Tree("/DeviceRGB cs .5 1 0 0 sc" + fill),
              filled +
                  "RGB 1 0 0 | operator sc: more numbers than the colour space has components; the last ones "
                  "count, byte 14");
}

TEST(InterpreterColors, AComponentThatIsNoNumberLeavesTheColor)
{
    EXPECT_EQ(Tree("/DeviceRGB cs 1 [1 2] 0 sc" + fill),
              filled + "RGB 0 0 0 | operator sc: a colour component that is no number, byte 14");
    EXPECT_EQ(Tree("(x) g" + fill), filled + "Gray 0 | operator g: an operand of the wrong type, byte 0");
}

TEST(InterpreterColors, EqualColorsShareOnePaint)
{
    Reading reading;
    reading.Read("1 0 0 rg" + fill + "0 1 0 rg" + fill + "1 0 0 rg" + fill + "/DeviceRGB cs 1 0 0 sc" + fill);
    const auto* const first = reading.content->GetChildren().first;
    EXPECT_EQ(FillOf(first), FillOf(first->next->next));
    EXPECT_EQ(FillOf(first), FillOf(first->next->next->next));
    EXPECT_NE(FillOf(first), FillOf(first->next));
}

std::string Overprinted(const PdfObject::Entries& parameters)
{
    Reading reading;
    reading.resources.states["G"] = PdfObject::Dictionary(parameters);
    reading.Read("0 0 0 1 k 0 0 0 1 K /G gs 0 0 m B");
    EXPECT_THAT(reading.result.errors, IsEmpty());
    return Tree(reading);
}

TEST(InterpreterColors, OverprintOfStrokesCountsForFillsWhereThoseHaveNone)
{
    const std::string black = "CMYK 0 0 0 1";
    EXPECT_EQ(Overprinted({{"OP", PdfObject::Boolean(true)}}),
              "path {M 0 0} fill " + black + " overprint stroke " + black + " overprint");
    EXPECT_EQ(Overprinted({{"OP", PdfObject::Boolean(true)}, {"op", PdfObject::Boolean(false)}}),
              "path {M 0 0} fill " + black + " stroke " + black + " overprint");
    EXPECT_EQ(Overprinted({{"op", PdfObject::Boolean(true)}}),
              "path {M 0 0} fill " + black + " overprint stroke " + black);
}

TEST(InterpreterColors, TheOverprintModeMattersWithOverprintAlone)
{
    const std::string black = "CMYK 0 0 0 1";
    EXPECT_EQ(Overprinted({{"OPM", PdfObject::Integer(1)}}),
              "path {M 0 0} fill " + black + " stroke " + black);
    EXPECT_EQ(Overprinted({{"OPM", PdfObject::Integer(1)}, {"op", PdfObject::Boolean(true)}}),
              "path {M 0 0} fill " + black + " overprint nonzero stroke " + black);
}

TEST(InterpreterColors, OverprintChangesTheObjectsBehindIt)
{
    Reading reading;
    reading.resources.states["On"] = PdfObject::Dictionary({{"OP", PdfObject::Boolean(true)}});
    reading.resources.states["Off"] = PdfObject::Dictionary({{"OP", PdfObject::Boolean(false)}});
    reading.Read(fill + "q /On gs" + fill + "q /Off gs" + fill + "Q" + fill + "Q" + fill);
    EXPECT_EQ(Tree(reading), filled + "Gray 0; " + filled + "Gray 0 overprint; " + filled + "Gray 0; " +
                                 filled + "Gray 0 overprint; " + filled + "Gray 0");
}

} // namespace
