#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"
#include "pdf/reader/content/neutral_parameters.h"

namespace
{

using OrvPdf::IsNeutralParameter;
using OrvPdf::Testing::Reading;
using OrvPdf::Testing::Tree;
using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string line = " 0 0 m 1 0 l S ";
const std::string stroked = "path {M 0 0 L 1000 0} stroke Gray 0";

PdfObject Numbers(const std::vector<double>& numbers)
{
    PdfObject::Items items;
    for (const double number : numbers)
        items.push_back(PdfObject::Real(number));
    return PdfObject::Array(items);
}

/// What a line looks like behind `/G gs`, with the errors behind bars.
std::string LineUnder(const PdfObject::Entries& parameters)
{
    Reading reading;
    reading.resources.states["G"] = PdfObject::Dictionary(parameters);
    reading.Read("/G gs" + line);
    std::string text = Tree(reading);
    for (const std::string& error : reading.result.errors)
        text += " | " + error;
    return text;
}

TEST(InterpreterState, StrokeOperatorsSetTheStrokeProperties)
{
    EXPECT_EQ(Tree("2.5 w" + line), stroked + " width 2500");
    EXPECT_EQ(Tree("0 w" + line), stroked + " width 0");
    EXPECT_EQ(Tree("1 J" + line), stroked + " cap 1");
    EXPECT_EQ(Tree("2 J" + line), stroked + " cap 2");
    EXPECT_EQ(Tree("1 j" + line), stroked + " join 1");
    EXPECT_EQ(Tree("2 j" + line), stroked + " join 2");
    EXPECT_EQ(Tree("3.5 M" + line), stroked + " miter 3.5");
    EXPECT_EQ(Tree("[3 1.5] .5 d" + line), stroked + " dash 3000 1500 from 500");
}

TEST(InterpreterState, AnEmptyDashArrayIsASolidLine)
{
    EXPECT_EQ(Tree("[3] 0 d [] 0 d" + line), stroked);
}

TEST(InterpreterState, StrokePropertiesBelongToTheStateThatIsSaved)
{
    EXPECT_EQ(Tree("2 w q 3 w 1 J" + line + "Q" + line),
              stroked + " width 3000 cap 1; " + stroked + " width 2000");
}

TEST(InterpreterState, StrokePropertiesOutOfBoundsAreLeftOut)
{
    EXPECT_EQ(Tree("-1 w" + line), stroked + " | operator w: a negative line width, byte 0");
    EXPECT_EQ(Tree("3 J" + line), stroked + " | operator J: no line cap has this number (3), byte 0");
    EXPECT_EQ(Tree("0.5 j" + line), stroked + " | operator j: no line join has this number (0.5), byte 0");
    EXPECT_EQ(Tree("0 M" + line), stroked + " | operator M: a miter limit that is not positive, byte 0");
    EXPECT_EQ(Tree("[0 0] 0 d" + line),
              stroked + " | operator d: dashes that are negative or all zero, byte 0");
    EXPECT_EQ(Tree("[1 -1] 0 d" + line),
              stroked + " | operator d: dashes that are negative or all zero, byte 0");
    EXPECT_EQ(Tree("[1 /A] 0 d" + line), stroked + " | operator d: a dash that is no number, byte 0");
}

TEST(InterpreterState, PathsThatAreOnlyFilledHaveNoStrokeProperties)
{
    EXPECT_EQ(Tree("5 w 0 0 m 1 0 l f"), "path {M 0 0 L 1000 0} fill Gray 0");
}

TEST(InterpreterState, StrokesInARowShareTheirProperties)
{
    Reading reading;
    reading.Read("2 w" + line + "2 w" + line);
    const auto& children = reading.content->GetChildren();
    EXPECT_EQ(dynamic_cast<OrvDoc::Path&>(*children.first).GetSharedStrokeProperties(),
              dynamic_cast<OrvDoc::Path&>(*children.last).GetSharedStrokeProperties());
}

TEST(InterpreterState, ParametersSetTheStrokePropertiesExactly)
{
    EXPECT_EQ(LineUnder({{"LW", PdfObject::Real("0.0345")}}), stroked + " width 34.5");
    EXPECT_EQ(LineUnder({{"LW", PdfObject::Real("4.35")}}), stroked + " width 4350");
    EXPECT_EQ(LineUnder({{"LC", PdfObject::Integer(2)}}), stroked + " cap 2");
    EXPECT_EQ(LineUnder({{"LJ", PdfObject::Integer(1)}}), stroked + " join 1");
    EXPECT_EQ(LineUnder({{"ML", PdfObject::Real("3.5")}}), stroked + " miter 3.5");
    EXPECT_EQ(LineUnder({{"D", PdfObject::Array({Numbers({3, 1.5}), PdfObject::Real("4.35")})}}),
              stroked + " dash 3000 1500 from 4350");
}

TEST(InterpreterState, MalformedParametersAreLeftOutAndTold)
{
    const auto problem = [](const std::string& key) {
        return stroked + " | operator gs: parameter " + key + " is malformed and left out, byte 0";
    };
    EXPECT_EQ(LineUnder({{"LW", PdfObject::Integer(-1)}}), problem("LW"));
    EXPECT_EQ(LineUnder({{"LW", PdfObject::Name("x")}}), problem("LW"));
    EXPECT_EQ(LineUnder({{"LC", PdfObject::Integer(3)}}), problem("LC"));
    EXPECT_EQ(LineUnder({{"LJ", PdfObject::Integer(-1)}}), problem("LJ"));
    EXPECT_EQ(LineUnder({{"ML", PdfObject::Integer(0)}}), problem("ML"));
    EXPECT_EQ(LineUnder({{"D", Numbers({3, 1})}}), problem("D"));
    EXPECT_EQ(LineUnder({{"D", PdfObject::Array({Numbers({0}), PdfObject::Integer(0)})}}), problem("D"));
    EXPECT_EQ(LineUnder({{"OP", PdfObject::Integer(1)}}), problem("OP"));
    EXPECT_EQ(LineUnder({{"OPM", PdfObject::Integer(2)}}), problem("OPM"));
}

TEST(InterpreterState, NeutralParametersAreNoProblem)
{
    EXPECT_EQ(LineUnder({{"Type", PdfObject::Name("ExtGState")},
                         {"CA", PdfObject::Real("1.0")},
                         {"ca", PdfObject::Integer(1)},
                         {"BM", PdfObject::Name("Normal")},
                         {"SMask", PdfObject::Name("None")},
                         {"AIS", PdfObject::Boolean(false)},
                         {"SA", PdfObject::Boolean(false)},
                         {"TK", PdfObject::Boolean(true)},
                         {"RI", PdfObject::Name("RelativeColorimetric")},
                         {"FL", PdfObject::Integer(1)},
                         {"TR", PdfObject::Name("Identity")},
                         {"TR2", PdfObject::Name("Default")},
                         {"HT", PdfObject::Name("Default")}}),
              stroked);
}

TEST(InterpreterState, ParametersWithoutAPlaceInTheModelAreTold)
{
    EXPECT_EQ(LineUnder({{"BG2", PdfObject::Name("Unresolved")}, {"SMask", PdfObject::Name("Unresolved")}}),
              stroked + " | operator gs: parameter BG2 cannot be read, byte 0"
                        " | operator gs: the soft mask of /G is left out: it is missing, byte 0");
}

TEST(InterpreterState, AnUnknownParameterIsNotNeutral)
{
    EXPECT_FALSE(IsNeutralParameter("AAPL:AA", PdfObject::Boolean(true)));
    EXPECT_FALSE(IsNeutralParameter("FL", PdfObject::Real("1.5")));
    EXPECT_FALSE(IsNeutralParameter("SA", PdfObject::Boolean(true)));
}

TEST(InterpreterState, MissingParametersAreTold)
{
    Reading reading;
    reading.Read("/No#20Such gs" + line);
    EXPECT_EQ(Tree(reading), stroked);
    EXPECT_THAT(reading.result.errors, ElementsAre("operator gs: resource /No Such: it is missing, byte 0"));
    EXPECT_TRUE(reading.result.hasUnmodelled);
}

TEST(InterpreterState, AResourceIsLookedUpOnce)
{
    Reading reading;
    reading.resources.states["G"] = PdfObject::Dictionary({{"LW", PdfObject::Integer(2)}});
    reading.Read("/G gs /G gs q /G gs Q /X gs /X gs");
    EXPECT_EQ(reading.resources.lookups, 2U);
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator gs: resource /X: it is missing, byte 22 and 1 more"));
}

TEST(InterpreterState, TheRenderingIntentAndFlatnessOfTheStartAreNoProblem)
{
    EXPECT_EQ(Tree("/RelativeColorimetric ri 0 i 1 i"), "");
}

TEST(InterpreterState, AFlatnessThatIsNoneIsTold)
{
    EXPECT_EQ(Tree("101 i"), " | operator i: a flatness outside of 0 to 100, byte 0");
}

TEST(InterpreterState, MatricesMultiplyFromTheInside)
{
    EXPECT_EQ(Tree("2 0 0 2 10 0 cm 1 0 0 1 1 0 cm" + line),
              "path @2,0,0,2,12000,0 {M 0 0 L 1000 0} stroke Gray 0");
}

TEST(InterpreterState, AMatrixBeyondAllNumbersIsLeftOut)
{
    const std::string huge = "1" + std::string(300, '0');
    EXPECT_EQ(Tree(huge + " 0 0 1 0 0 cm " + huge + " 0 0 1 0 0 cm n").substr(0, 51),
              " | operator cm: the matrix goes beyond all numbers,");
}

TEST(InterpreterState, SingularMatricesAreKept)
{
    EXPECT_EQ(Tree("0 0 0 0 0 0 cm" + line), "path @0,0,0,0,0,0 {M 0 0 L 1000 0} stroke Gray 0");
}

} // namespace
