// Shading patterns as colours, and the operator that paints a shading everywhere.

#include <orv_blend/transparency.h>
#include <orv_paint/axial_shading_paint.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"
#include "pdf/reader/resources/shading_resource.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvColor::ColorSpace;
using OrvPaint::ShadingPaint;
using OrvSys::PdfObject;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string fill = " 0 0 m f";
const std::string stroke = " 0 0 m S";

PdfObject Integers(const std::vector<int>& numbers)
{
    PdfObject::Items items;
    for (const int number : numbers)
        items.push_back(PdfObject::Integer(number));
    return PdfObject::Array(items);
}

/// An axial shading of grays with a background.
std::shared_ptr<const ShadingResource> Shading()
{
    const PdfObject function = PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(2)},
                                                      {"Domain", Integers({0, 1})},
                                                      {"N", PdfObject::Integer(1)}});
    return std::make_shared<const ShadingResource>(
        PdfObject::Dictionary({{"ShadingType", PdfObject::Integer(2)},
                               {"Coords", Integers({0, 0, 1, 0})},
                               {"Background", Integers({1})},
                               {"Function", function}}),
        ColorSpace::DeviceGray());
}

/// Resources with the shading /S, the pattern /P of it, and /Q of another one, which is moved.
struct PatternReading : Reading
{
    PatternReading()
    {
        const auto shading = Shading();
        resources.shadings["S"] = shading;
        resources.patterns["P"] = Pattern(shading, {});
        resources.patterns["Q"] = Pattern(Shading(), Matrix(1, 0, 0, 1, 7000, 8000));
        resources.states["Over"] = PdfObject::Dictionary({{"OP", PdfObject::Boolean(true)},
                                                          {"op", PdfObject::Boolean(false)},
                                                          {"OPM", PdfObject::Integer(1)}});
        resources.states["over"] =
            PdfObject::Dictionary({{"op", PdfObject::Boolean(true)}, {"OPM", PdfObject::Integer(1)}});
    }

    static std::shared_ptr<const ContentResources::Pattern>
    Pattern(std::shared_ptr<const ShadingResource> shading, const Matrix& matrix)
    {
        ContentResources::Pattern pattern;
        pattern.shading = std::move(shading);
        pattern.matrix = matrix;
        return std::make_shared<const ContentResources::Pattern>(pattern);
    }

    /// The object of that index, which must be a path on the content itself.
    const OrvDoc::Path& PathAt(std::size_t index) const
    {
        const OrvDoc::ContentObject* object = std::as_const(*content).GetChildren().first;
        for (; index > 0; --index)
            object = object->next;
        return dynamic_cast<const OrvDoc::Path&>(*object);
    }

    const ShadingPaint& FillAt(std::size_t index) const
    {
        return dynamic_cast<const ShadingPaint&>(*PathAt(index).GetFillPaint());
    }
};

TEST(InterpreterPatterns, AShadingPatternFillsWithItsMatrix)
{
    PatternReading reading;
    reading.Read("2 0 0 2 5 5 cm /Pattern cs /Q scn" + fill);
    EXPECT_THAT(reading.result.errors, IsEmpty());
    EXPECT_FALSE(reading.result.hasUnmodelled);
    EXPECT_EQ(reading.FillAt(0).GetTransformation(), Matrix(1, 0, 0, 1, 7000, 8000));
    EXPECT_TRUE(reading.FillAt(0).GetBackground().has_value());
}

TEST(InterpreterPatterns, FillingAndStrokingHavePatternsOfTheirOwn)
{
    PatternReading reading;
    reading.Read("/Pattern cs /Pattern CS /P scn /Q SCN 0 0 m B");
    EXPECT_TRUE(Plexa::IsIdentity(reading.FillAt(0).GetTransformation()));
    EXPECT_EQ(dynamic_cast<const ShadingPaint&>(*reading.PathAt(0).GetStrokePaint()).GetTransformation(),
              Matrix(1, 0, 0, 1, 7000, 8000));
}

TEST(InterpreterPatterns, OnePatternIsOnePaint)
{
    PatternReading reading;
    reading.Read("/Pattern cs /P scn" + fill + " q 2 0 0 2 0 0 cm" + fill + " Q 0 g" + fill +
                 " /Pattern cs /P scn" + fill);
    EXPECT_EQ(reading.PathAt(0).GetFillPaint(), reading.PathAt(1).GetFillPaint());
    EXPECT_EQ(reading.PathAt(0).GetFillPaint(), reading.PathAt(3).GetFillPaint());
}

TEST(InterpreterPatterns, AColorTakesThePlaceOfAPattern)
{
    for (const char* const color : {"0.5 g", "/DeviceGray cs 0.5 sc", "/DeviceGray cs 0.5 scn"}) {
        PatternReading reading;
        reading.Read("/Pattern cs /P scn " + std::string(color) + fill);
        EXPECT_EQ(Tree(reading), "path {M 0 0} fill Gray 0.5") << color;
    }
}

TEST(InterpreterPatterns, ARestoredStateHasItsPatternAgain)
{
    PatternReading reading;
    reading.Read("/Pattern cs /Q scn q 0 g" + fill + " Q" + fill);
    EXPECT_EQ(reading.FillAt(1).GetTransformation(), Matrix(1, 0, 0, 1, 7000, 8000));
}

TEST(InterpreterPatterns, TheSpaceOfPatternsHasNoColorAtFirst)
{
    PatternReading reading;
    reading.Read("/Pattern cs /P scn /Pattern cs" + fill);
    EXPECT_EQ(Tree(reading), "path {M 0 0}");
}

TEST(InterpreterPatterns, APatternInAnotherSpaceIsTold)
{
    PatternReading reading;
    reading.Read("/P scn" + fill);
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator scn: a pattern while the colour space is not Pattern (P), byte 0"));
    EXPECT_TRUE(reading.result.hasUnmodelled);
}

TEST(InterpreterPatterns, NumbersInFrontOfAShadingPatternAreTold)
{
    PatternReading reading;
    reading.Read("/Pattern cs 0.5 /P scn" + fill);
    EXPECT_TRUE(reading.PathAt(0).GetFillPaint());
    EXPECT_FALSE(reading.result.hasUnmodelled);
    EXPECT_THAT(
        reading.result.errors,
        ElementsAre("operator scn: numbers in front of a pattern that has colours of its own (P), byte 12"));
}

TEST(InterpreterPatterns, AProblemOfAPatternIsToldAndThePatternUsed)
{
    PatternReading reading;
    reading.resources.warnings["P"] = "a reason";
    reading.Read("/Pattern cs /P scn" + fill);
    EXPECT_THAT(reading.result.errors, ElementsAre("operator scn: pattern /P: a reason, byte 12"));
    EXPECT_TRUE(reading.result.hasUnmodelled);
    EXPECT_TRUE(reading.PathAt(0).GetFillPaint());
}

TEST(InterpreterPatterns, TheOverprintInForceIsThatOfThePaint)
{
    PatternReading reading;
    reading.Read("/Pattern cs /P scn" + fill + " /over gs" + fill + " /Over gs" + fill);
    EXPECT_FALSE(reading.FillAt(0).GetSeparationMapping().overprint);
    EXPECT_TRUE(reading.FillAt(1).GetSeparationMapping().overprint);
    EXPECT_TRUE(reading.FillAt(1).IsNonzeroOverprint());
    // The mode says nothing without overprint, so it makes no other paint.
    EXPECT_EQ(reading.PathAt(2).GetFillPaint(), reading.PathAt(0).GetFillPaint());
}

TEST(InterpreterPatterns, StrokingHasAnOverprintOfItsOwn)
{
    PatternReading reading;
    reading.Read("/Pattern CS /P SCN /Over gs" + stroke);
    EXPECT_TRUE(dynamic_cast<const ShadingPaint&>(*reading.PathAt(0).GetStrokePaint())
                    .GetSeparationMapping()
                    .overprint);
}

TEST(InterpreterShadings, TheOperatorFillsTheBoxInTheMatrixInForce)
{
    PatternReading reading;
    reading.Read("2 0 0 3 5 6 cm /S sh");
    EXPECT_THAT(reading.result.errors, IsEmpty());
    EXPECT_FALSE(reading.result.hasUnmodelled);
    EXPECT_TRUE(Plexa::IsIdentity(reading.PathAt(0).GetTransformation()));
    EXPECT_EQ(ShapeText(*reading.PathAt(0).DefiningCompound()),
              "{M 0 0 L 100000 0 L 100000 50000 L 0 50000 Z}");
    EXPECT_EQ(reading.FillAt(0).GetTransformation(), Matrix(2, 0, 0, 3, 5000, 6000));
}

TEST(InterpreterShadings, TheOperatorPaintsNoBackground)
{
    PatternReading reading;
    reading.Read("/S sh /Pattern cs /P scn" + fill);
    EXPECT_FALSE(reading.FillAt(0).GetBackground().has_value());
    EXPECT_TRUE(reading.FillAt(1).GetBackground().has_value());
}

TEST(InterpreterShadings, TheOperatorTakesTheOverprintOfFilling)
{
    PatternReading reading;
    reading.Read("/S sh /over gs /S sh");
    EXPECT_FALSE(reading.FillAt(0).GetSeparationMapping().overprint);
    EXPECT_TRUE(reading.FillAt(1).GetSeparationMapping().overprint);
}

TEST(InterpreterShadings, TheOperatorPaintsInsideOfTheClip)
{
    PatternReading reading;
    reading.Read("q 1 1 2 2 re W n /S sh Q");
    EXPECT_EQ(Tree(reading), "group[path clip {M 1000 1000 L 3000 1000 L 3000 3000 L 1000 3000 Z}; "
                             "path {M 0 0 L 100000 0 L 100000 50000 L 0 50000 Z} fill ?]");
}

TEST(InterpreterShadings, InAGroupWithATransformationTheOutlineIsBroughtIntoTheGroup)
{
    PatternReading reading;
    reading.Read("/OrvGroup <</Matrix [2 0 0 2 10 0]>> BDC q 2 0 0 2 10 0 cm 1 0 0 1 1 0 cm /S sh Q EMC");
    const auto* const group = dynamic_cast<const OrvDoc::Group*>(
        static_cast<const OrvDoc::ContentObject*>(std::as_const(*reading.content).GetChildren().first));
    ASSERT_TRUE(group);
    ASSERT_EQ(group->GetTransformation(), Matrix(2, 0, 0, 2, 10000, 0));
    const auto& path = dynamic_cast<const OrvDoc::Path&>(*group->children.first);
    EXPECT_EQ(ShapeText(*path.DefiningCompound()), "{M -5000 0 L 45000 0 L 45000 25000 L -5000 25000 Z}");
    EXPECT_EQ(dynamic_cast<const ShadingPaint&>(*path.GetFillPaint()).GetTransformation(),
              Matrix(2, 0, 0, 2, 12000, 0));
}

TEST(InterpreterShadings, TheOperatorPaintsWithTheBlendingInForce)
{
    PatternReading reading;
    reading.resources.states["Half"] = PdfObject::Dictionary({{"ca", PdfObject::Real(0.5)}});
    reading.Read("/Half gs /S sh");
    ASSERT_TRUE(reading.PathAt(0).GetTransparency());
    EXPECT_EQ(reading.PathAt(0).GetTransparency()->fillAlpha, 0.5f);
}

TEST(InterpreterShadings, WithoutABoxTheOperatorIsTold)
{
    PatternReading reading;
    reading.box = {};
    reading.Read("/S sh");
    EXPECT_EQ(Tree(reading), "");
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator sh: the content has no box that could be filled (S), byte 0"));
    EXPECT_TRUE(reading.result.hasUnmodelled);
}

TEST(InterpreterShadings, AShadingIsLookedUpOnce)
{
    PatternReading reading;
    reading.Read("/S sh /S sh /S sh");
    EXPECT_EQ(reading.resources.lookups, 1u);
    EXPECT_EQ(reading.PathAt(0).GetFillPaint(), reading.PathAt(2).GetFillPaint());
}

} // namespace
} // namespace OrvPdf::Testing
