// What comparing equal texts costs.

#include "comparators/work_counters.h"
#include "outlined_fonts.h"
#include "support/recording_reporter.h"
#include "support/text_makers.h"

#include <orv_doc/text_likeness.h>

#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{
namespace
{

using OrvDoc::Text;

/// How many outlines a comparison makes. The texts stand in two fonts of one program.
template <typename Change>
int OutlinesMadeFor(Change change)
{
    FontPlan plan;
    const auto left = TextOf("Some words", MakeFont(plan));
    const auto right = TextOf("Some words", MakeFont(plan));
    change(*left, *right);
    CompareLines<OrvDoc::ContentObject>(*left, *right);
    return *plan.outlinesMade;
}

TEST(ComparingText, MakesNoOutlineForEqualTextsOfOneProgram)
{
    EXPECT_EQ(OutlinesMadeFor([](Text&, Text&) {}), 0);
    EXPECT_EQ(OutlinesMadeFor([](Text& left, Text& right) {
                  for (Text* text : {&left, &right}) {
                      std::vector<CharacterPlace> places(10, CharacterPlace(2, 0.5, 0, 1, 0, 0));
                      places[3].y = 7.0;
                      text->SetCharacterTransformations(std::move(places));
                      text->SetTextTransformation(Matrix(0.0, 1.0, -1.0, 0.0, 5000.0, 0.0));
                      text->SetTransformation(Matrix(3.0, 0.0, 0.0, 3.0, 0.0, 0.0));
                  }
              }),
              0);
}

TEST(ComparingText, MakesEachOutlineOnceForTextsThatStandElsewhere)
{
    // Eight letters and a space in each of the two fonts.
    EXPECT_EQ(OutlinesMadeFor([](Text&, Text& right) {
                  right.SetTextTransformation(Matrix(1.0, 0.0, 0.0, 1.0, 1.0, 0.0));
              }),
              2 * 9);
}

TEST(ComparingText, MakesEachOutlineOnceForTextsOfProgramsThatAreNotKnownToBeTheSame)
{
    FontPlan left;
    FontPlan right;
    right.program = 2;
    ExpectReports<OrvDoc::ContentObject>(*TextOf("Some words", MakeFont(left)),
                                         *TextOf("Some words", MakeFont(right)), {});
    EXPECT_EQ(*left.outlinesMade, 9);
    EXPECT_EQ(*right.outlinesMade, 9);
}

TEST(ComparingText, NeedsNoFinalOutlinesWhereTheFontsHaveTheSame)
{
    FontPlan other;
    other.program = 2;
    const auto left = TextOf("ABC");
    EXPECT_TRUE(OrvDoc::AreSurelyAlike(*left, *TextOf("ABC", MakeFont(other))));
    EXPECT_FALSE(OrvDoc::AreSurelyAlike(*left, *TextOf("ABD", MakeFont(other))));
    other.advance = [](const OrvFont::Character&) { return 501.0; };
    EXPECT_FALSE(OrvDoc::AreSurelyAlike(*left, *TextOf("ABC", MakeFont(other))));
}

TEST(ComparingText, BuildsNoTextForEqualOnes)
{
    const auto left = TextOf("Some words");
    const auto right = TextOf("Some words", FontWithOutlines(OutlineByGlyph));
    const auto before = Comparators::workCounters.textsBuilt;
    CompareLines<OrvDoc::ContentObject>(*left, *right);
    EXPECT_EQ(Comparators::workCounters.textsBuilt, before);
}

} // namespace
} // namespace HarrowSupport::Testing
