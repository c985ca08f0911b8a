#include "comparators/text_comparison.h"

#include "outlined_fonts.h"
#include "support/recording_reporter.h"
#include "support/text_makers.h"

#include <plexa/geometry.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

namespace HarrowSupport::Testing
{

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

using OrvDoc::Text;

void ExpectTextReports(const Text& left, const Text& right, const std::vector<ExpectedReport>& expected)
{
    ExpectReports<OrvDoc::ContentObject>(left, right, expected);
}

/// The labels of a comparison, the same both ways round.
std::vector<std::string> LabelsOf(const Text& left, const Text& right)
{
    const auto labels = [](const OrvDoc::ContentObject& one, const OrvDoc::ContentObject& other) {
        RecordingReporter reporter;
        Comparators::Compare(reporter, one, other, AllOptions());
        return reporter.Labels();
    };
    EXPECT_EQ(labels(right, left), labels(left, right)) << "right against left";
    return labels(left, right);
}

FontPlan Named(const std::string& name, const std::string& family, const std::string& style)
{
    FontPlan plan;
    plan.names = {name, family, style};
    return plan;
}

FontPointer FontWithBox(const Box& box)
{
    FontPlan plan;
    plan.box = box;
    return MakeFont(plan);
}

/// A font that draws the same bar for every character.
FontPointer FontOfBars(double width)
{
    return FontWithOutlines([width](const OrvFont::Character&) { return Bar(width); });
}

template <typename Value>
std::string Print(const Value& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

ExpectedReport ShapeDifference(const Text& left, const Text& right)
{
    return Difference("ObjectShape", PrintOutlines(left), PrintOutlines(right));
}

std::unique_ptr<Text> At(const CharacterPlace& place)
{
    return TextAt("A", {place});
}

} // namespace

TEST(TextFonts, ThatDifferInTheirNamesAloneAreToldByTheirNames)
{
    const auto text = TextOf("AB");
    ExpectTextReports(*text, *TextOf("AB", MakeFont(Named("Other", "Test", "Regular"))),
                      {Difference("FontName", "Test-Regular", "Other")});
    ExpectTextReports(*text, *TextOf("AB", MakeFont(Named("Test-Regular", "Other", "Regular"))),
                      {Difference("FontFamily", "Test", "Other")});
    ExpectTextReports(*text, *TextOf("AB", MakeFont(Named("Test-Regular", "Test", "Bold"))),
                      {Difference("FontStyle", "Regular", "Bold")});
}

TEST(TextFonts, ThatDifferInAllNamesAreToldInOrder)
{
    EXPECT_THAT(LabelsOf(*TextOf("A"), *TextOf("A", MakeFont(Named("a", "b", "c")))),
                ElementsAre("FontName", "FontFamily", "FontStyle"));
}

TEST(TextFonts, OfAnotherProgramWithTheSameOutlinesAreNoDifference)
{
    FontPlan other;
    other.program = 2;
    ExpectTextReports(*TextOf("AB"), *TextOf("AB", MakeFont(other)), {});
}

TEST(FontBoxes, HalfAPointApartAtOneEdgeMatch)
{
    const auto text = TextOf("A", FontWithBox({0.0, 0.0, 1000.0, 1000.0}));
    for (const Box& box :
         {Box(500.0, 0.0, 500.0, 1000.0), Box(-500.0, 0.0, 1500.0, 1000.0), Box(0.0, 500.0, 1000.0, 500.0),
          Box(0.0, -500.0, 1000.0, 1500.0), Box(0.0, 0.0, 1500.0, 1000.0), Box(0.0, 0.0, 500.0, 1000.0),
          Box(0.0, 0.0, 1000.0, 1500.0), Box(0.0, 0.0, 1000.0, 500.0)})
        ExpectTextReports(*text, *TextOf("A", FontWithBox(box)), {});
}

TEST(FontBoxes, MayDifferByHalfAPointAtEachEdge)
{
    ExpectTextReports(*TextOf("A", FontWithBox({0.0, 0.0, 1000.0, 1000.0})),
                      *TextOf("A", FontWithBox({-500.0, -500.0, 2000.0, 2000.0})), {});
}

TEST(FontBoxes, FurtherApartAtOneEdgeDiffer)
{
    const auto text = TextOf("A", FontWithBox({0.0, 0.0, 1000.0, 1000.0}));
    const double more = 500.1;
    const double less = 1000.0 - more;
    for (const Box& box :
         {Box(more, 0.0, less, 1000.0), Box(-more, 0.0, 1000.0 + more, 1000.0), Box(0.0, more, 1000.0, less),
          Box(0.0, -more, 1000.0, 1000.0 + more), Box(0.0, 0.0, 1000.0 + more, 1000.0),
          Box(0.0, 0.0, less, 1000.0), Box(0.0, 0.0, 1000.0, 1000.0 + more), Box(0.0, 0.0, 1000.0, less)})
        EXPECT_THAT(LabelsOf(*text, *TextOf("A", FontWithBox(box))), ElementsAre("FontBBox"));
}

TEST(FontBoxes, AreComparedUpToTheLastBit)
{
    // A thousandth of the smallest number above 500 may round to a half again; that of the next one does not.
    const double above = 500.0 * (1.0 + 2.0 * std::numeric_limits<double>::epsilon());
    EXPECT_THAT(LabelsOf(*TextOf("A", FontWithBox({0.0, 0.0, 0.0, 0.0})),
                         *TextOf("A", FontWithBox({0.0, above, 0.0, 0.0}))),
                ElementsAre("FontBBox"));
}

TEST(FontBoxes, ShowBothBoxes)
{
    ExpectTextReports(*TextOf("A", FontWithBox({0.0, -100.0, 1000.0, 900.0})),
                      *TextOf("A", FontWithBox({0.0, -100.0, 2000.0, 900.0})),
                      {Difference("FontBBox", "[ L: 0, T: 800, R: 1000, B: -100 (W: 1000, H 900) ]",
                                  "[ L: 0, T: 800, R: 2000, B: -100 (W: 2000, H 900) ]")});
}

TEST(FontBoxes, ThatWereNeverSetAreComparedByTheirNumbers)
{
    const Box set(0.0, 0.0, 0.0, 0.0);
    ExpectTextReports(*TextOf("A", FontWithBox(set)), *TextOf("A", FontWithBox(Box())), {});
}

TEST(FontBoxes, WithANumberThatIsNoneMatchNothing)
{
    const Box box(std::nan(""), 0.0, 1.0, 1.0);
    EXPECT_THAT(LabelsOf(*TextOf("A", FontWithBox(box)), *TextOf("A", FontWithBox(box))),
                ElementsAre("FontBBox"));
}

TEST(TextSizes, AreComparedExactly)
{
    const FontPointer font = MakeFont();
    ExpectTextReports(*TextOf("A", font, 12.0), *TextOf("A", font, std::nextafter(12.0, 13.0)),
                      {Difference("TextSize", "12", "12")});
}

TEST(TextSizes, OfTextsThatLookOtherwiseAreTheReason)
{
    // The outlines of the font are the same, so that they are not told.
    const FontPointer font = MakeFont();
    ExpectTextReports(*TextOf("A", font, 12.0), *TextOf("A", font, 24.0),
                      {Difference("TextSize", "12", "24")});
}

TEST(TextSpacings, AreComparedExactly)
{
    const auto text = TextOf("A");
    const auto spaced = TextOf("A");
    spaced->SetCharSpacing(std::nextafter(0.0, 1.0));
    EXPECT_THAT(LabelsOf(*text, *spaced), ElementsAre("TextCharacterSpacing"));
    spaced->SetCharSpacing(0.25);
    ExpectTextReports(*text, *spaced, {Difference("TextCharacterSpacing", "0", "0.25")});
    spaced->SetCharSpacing(0.0);
    spaced->SetWordSpacing(std::nextafter(0.0, -1.0));
    EXPECT_THAT(LabelsOf(*text, *spaced), ElementsAre("TextWordSpacing"));
    spaced->SetWordSpacing(-0.25);
    ExpectTextReports(*text, *spaced, {Difference("TextWordSpacing", "0", "-0.25")});
}

TEST(TextTransformations, AFewUnitsInTheLastPlaceApartMatch)
{
    const double unit = std::numeric_limits<double>::epsilon();
    const auto text = TextOf("A");
    const auto other = TextOf("A");
    other->SetTextTransformation(Matrix(1.0 + 5.0 * unit, 0.0, 0.0, 1.0, 0.0, 0.0));
    ExpectTextReports(*text, *other, {});
    other->SetTextTransformation(Matrix(1.0 + 6.0 * unit, 0.0, 0.0, 1.0, 0.0, 0.0));
    EXPECT_THAT(LabelsOf(*text, *other), ElementsAre("TextTransformation"));
}

TEST(TextTransformations, ShowBoth)
{
    const auto other = TextOf("A");
    other->SetTextTransformation(Matrix(1.0, 0.0, 0.0, 1.0, 5000.0, 7.5));
    ExpectTextReports(*TextOf("A"), *other,
                      {Difference("TextTransformation", "[A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0]",
                                  "[A: 1, B: 0, C: 0, D: 1, X: 5000, Y: 7.5]")});
}

TEST(CharacterPlaces, HalfAPointApartMatch)
{
    for (const CharacterPlace& place :
         {CharacterPlace(1, 0, 0, 1, 0.5, 0), CharacterPlace(1, 0, 0, 1, 0, 0.5),
          CharacterPlace(1, 0, 0, 1, -0.5, 0.5)})
        EXPECT_THAT(LabelsOf(*At({}), *At(place)), IsEmpty());
}

TEST(CharacterPlaces, FurtherApartDiffer)
{
    const double more = std::nextafter(0.5, 1.0);
    for (const CharacterPlace& place :
         {CharacterPlace(1, 0, 0, 1, more, 0), CharacterPlace(1, 0, 0, 1, 0, more),
          CharacterPlace(1, 0, 0, 1, -more, 0), CharacterPlace(1, 0, 0, 1, 0, -more)})
        EXPECT_THAT(LabelsOf(*At({}), *At(place)), ElementsAre("TextCharacterPositions"));
}

TEST(CharacterPlaces, WithAnyDifferenceInTheMatrixDiffer)
{
    const double least = std::nextafter(0.0, 1.0);
    const double above = std::nextafter(1.0, 2.0);
    for (const CharacterPlace& place :
         {CharacterPlace(above, 0, 0, 1, 0, 0), CharacterPlace(1, least, 0, 1, 0, 0),
          CharacterPlace(1, 0, least, 1, 0, 0), CharacterPlace(1, 0, 0, above, 0, 0)})
        EXPECT_THAT(LabelsOf(*At({}), *At(place)), ElementsAre("TextCharacterPositions"));
}

TEST(CharacterPlaces, AreToldOnceForTheWholeText)
{
    const CharacterPlace moved(1, 0, 0, 1, 10, 20);
    ExpectTextReports(
        *TextAt("AB", {{}, {}}), *TextAt("AB", {moved, moved}),
        {Difference("TextCharacterPositions",
                    "[ [A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0] [A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0] ]",
                    "[ [A: 1, B: 0, C: 0, D: 1, X: 10, Y: 20] "
                    "[A: 1, B: 0, C: 0, D: 1, X: 10, Y: 20] ]")});
}

TEST(CharacterPlaces, AreComparedToTheLast)
{
    EXPECT_THAT(LabelsOf(*TextAt("AB", {{}, {}}), *TextAt("AB", {{}, {1, 0, 0, 1, 0, 1}})),
                ElementsAre("TextCharacterPositions"));
}

TEST(CharacterPlaces, OfTheFontAndThoseThatWereSetAreTheSame)
{
    ExpectTextReports(*TextOf("AB"), *TextAt("AB", {{}, {1, 0, 0, 1, 6, 0}}), {});
}

TEST(CharacterPlaces, FollowTheSpacings)
{
    const auto wide = TextOf("AB");
    wide->SetCharSpacing(0.5);
    EXPECT_THAT(LabelsOf(*TextOf("AB"), *wide), ElementsAre("TextCharacterSpacing"));
    wide->SetCharSpacing(std::nextafter(0.5, 1.0) + 1e-12);
    EXPECT_THAT(LabelsOf(*TextOf("AB"), *wide),
                ElementsAre("TextCharacterSpacing", "TextCharacterPositions"));
}

TEST(CharacterPlaces, ThatAreNoNumbersMatchNothing)
{
    for (const CharacterPlace& place :
         {CharacterPlace(std::nan(""), 0, 0, 1, 0, 0), CharacterPlace(1, 0, 0, 1, std::nan(""), 0),
          CharacterPlace(1, 0, 0, 1, 0, std::numeric_limits<double>::infinity())})
        EXPECT_THAT(LabelsOf(*At(place), *At(place)), ElementsAre("TextCharacterPositions"));
}

TEST(TextsOfDifferentLength, AreToldByPlacesCharactersAndOutlines)
{
    const auto left = TextOf("AB");
    const auto right = TextOf("ABC");
    ExpectTextReports(
        *left, *right,
        {Difference("TextCharacterPositions",
                    "[ [A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0] [A: 1, B: 0, C: 0, D: 1, X: 6, Y: 0] ]",
                    "[ [A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0] [A: 1, B: 0, C: 0, D: 1, X: 6, Y: 0] "
                    "[A: 1, B: 0, C: 0, D: 1, X: 12, Y: 0] ]"),
         Difference("TextCharacters", Print(left->GetText()), Print(right->GetText())),
         ShapeDifference(*left, *right)});
}

TEST(TextOutlines, JustBelowThirtyMilliPointsApartMatch)
{
    // In their final position, twelve times as large as the font has them.
    ExpectTextReports(*TextOf("A", FontOfBars(100.0)), *TextOf("A", FontOfBars(102.4)), {});
    const auto left = TextOf("A", FontOfBars(100.0));
    const auto right = TextOf("A", FontOfBars(102.5));
    ExpectTextReports(*left, *right, {ShapeDifference(*left, *right)});
}

TEST(TextOutlines, AreComparedUnderTheTransformationsOfTheGroupsAround)
{
    const auto inAGroup = [](double width, double scale) {
        auto group = ImplicitGroup();
        group->SetTransformation(Matrix(scale, 0.0, 0.0, scale, 0.0, 0.0));
        return With(std::move(group), TextOf("A", FontOfBars(width)));
    };
    const auto labels = [&inAGroup](double width, double scale) {
        const auto left = inAGroup(100.0, scale);
        const auto right = inAGroup(width, scale);
        return LabelsOf(static_cast<const Text&>(*left->children.first),
                        static_cast<const Text&>(*right->children.first));
    };
    EXPECT_THAT(labels(103.0, 1.0), ElementsAre("ObjectShape"));
    EXPECT_THAT(labels(103.0, 0.5), IsEmpty());
    EXPECT_THAT(labels(102.0, 10.0), ElementsAre("ObjectShape"));
}

TEST(TextOutlines, OfTheSameProgramAreComparedWhereSizesMakeThemDiffer)
{
    // The places are set, so that the size moves nothing but the outlines themselves.
    const FontPointer font = MakeFont();
    const auto left = TextOf("A", font, 12.0);
    const auto right = TextOf("A", font, 12.001);
    left->SetCharacterTransformations({{}});
    right->SetCharacterTransformations({{}});
    EXPECT_THAT(LabelsOf(*left, *right), ElementsAre("TextSize"));
}

TEST(TextOutlines, ThatAreEqualHideDifferentCharacters)
{
    ExpectTextReports(*TextOf("AB", FontOfBars(100.0)), *TextOf("XY", FontOfBars(100.0)), {});
    // In one font as well.
    const FontPointer font = FontOfBars(100.0);
    ExpectTextReports(*TextOf("AB", font), *TextOf("BA", font), {});
}

TEST(TextOutlines, ThatDifferShowTheCharactersFirst)
{
    const FontPointer font = MakeFont();
    const auto left = TextOf("AB", font);
    const auto right = TextOf("Ab", font);
    ExpectTextReports(
        *left, *right,
        {Difference("TextCharacters", "[65:65, 66:66]", "[65:65, 98:98]"), ShapeDifference(*left, *right)});
}

TEST(TextOutlines, ThatDifferUnderTheSameCharactersAreToldAlone)
{
    const auto left = TextOf("AB", FontOfBars(100.0));
    const auto right = TextOf("AB", FontOfBars(200.0));
    ExpectTextReports(*left, *right, {ShapeDifference(*left, *right)});
}

TEST(TextOutlines, OfATextThatIsOnlyPlacedElsewhereAreNotTold)
{
    const auto moved = TextOf("AB");
    moved->SetTransformation(Matrix(1.0, 0.0, 0.0, 1.0, 5000.0, 0.0));
    EXPECT_THAT(LabelsOf(*TextOf("AB"), *moved), ElementsAre("ObjectAbsoluteTransformation"));
}

TEST(TextOutlines, ThatAreNotToldStillBringDifferentCharacters)
{
    // The outlines as the font has them are the same, only their places are not.
    const FontPointer font = FontOfBars(100.0);
    const auto moved = TextOf("BA", font);
    moved->SetTextTransformation(Matrix(1.0, 0.0, 0.0, 1.0, 5000.0, 0.0));
    EXPECT_THAT(LabelsOf(*TextOf("AB", font), *moved), ElementsAre("TextTransformation", "TextCharacters"));
}

TEST(TextOutlines, ThatComeAgainArePrintedAgain)
{
    const auto left = TextOf("ABA BA", FontOfBars(100.0));
    const auto right = TextOf("ABABAA", FontOfBars(103.0));
    ExpectTextReports(*left, *right,
                      {Difference("TextCharacters", Print(left->GetText()), Print(right->GetText())),
                       ShapeDifference(*left, *right)});
}

TEST(TextOutlines, AreNotKeptInTheirFinalPositionByAComparison)
{
    const OrvFont::Character character = Characters("A").front().character;
    const FontPointer font = FontOfBars(100.0);
    // At a size of 1 point the final outline is the font's own, so that its owners can be counted.
    const auto left = TextOf("A", font, 1.0);
    const auto right = TextOf("A", FontOfBars(100.5), 1.0);
    const long owners = font->GetOutline(character).use_count();
    ExpectTextReports(*left, *right, {});
    EXPECT_EQ(font->GetOutline(character).use_count(), owners);
    EXPECT_EQ(left->TransformedCompounds(nullptr).front(), font->GetOutline(character));
}

TEST(TextOutlines, OfTextsWithoutCharactersAreEqual)
{
    FontPlan other;
    other.program = 2;
    ExpectTextReports(*TextOf(""), *TextOf("", MakeFont(other)), {});
    EXPECT_THAT(LabelsOf(*TextOf(""), *TextOf("", MakeFont(), 13.0)), ElementsAre("TextSize"));
}

TEST(TextOutlines, OfSpacesAreEqual)
{
    ExpectTextReports(*TextOf("  ", FontOfBars(0.0)), *TextOf("  ", FontOfBars(0.0)), {});
    const auto left = TextOf(" A");
    const auto right = TextOf("A ");
    EXPECT_THAT(LabelsOf(*left, *right), ElementsAre("TextCharacters", "ObjectShape"));
}

TEST(TextOutlines, OfTheSameCodesInAnotherEncodingAreOthers)
{
    FontPlan shifted;
    shifted.glyphShift = 100;
    const auto left = ShownTextOf("AB");
    const auto right = ShownTextOf("AB", MakeFont(shifted));
    ExpectTextReports(
        *left, *right,
        {Difference("TextCharacters", "[65:65, 66:66]", "[65:165, 66:166]"), ShapeDifference(*left, *right)});
}

TEST(CharacterPlaces, OfAnAdvanceBeyondReachAreThoseOfNone)
{
    for (const double advance : {1e13, -1e13, std::nan(""), std::numeric_limits<double>::infinity()}) {
        FontPlan plan;
        plan.advance = [advance](const OrvFont::Character&) { return advance; };
        for (const auto& text : {TextOf("AB", MakeFont(plan)), ShownTextOf("AB", MakeFont(plan))}) {
            EXPECT_EQ(text->GetCharacterTransformations().back(), CharacterPlace());
            ExpectTextReports(*text, *ShownTextOf("AB", MakeFont(plan)), {});
        }
    }
}

TEST(TextWindingRules, OfTheSecondCharacterEndTheWalk)
{
    const auto left = TextOf("ABC", FontWithEvenOdd(""));
    const auto right = TextOf("ABC", FontWithEvenOdd("BC"));
    ExpectTextReports(
        *left, *right,
        {Difference("ObjectWindingRule", "NonZero", "EvenOdd"), ShapeDifference(*left, *right)});
}

TEST(TextWindingRules, AreNotReachedBehindADifferentOutline)
{
    const auto left = TextOf("ABC", FontWithEvenOdd(""));
    const auto right = TextOf("XBC", FontWithEvenOdd("BC"));
    EXPECT_THAT(LabelsOf(*left, *right), ElementsAre("TextCharacters", "ObjectShape"));
}

TEST(TextWindingRules, AreNotComparedInTextsOfDifferentLength)
{
    EXPECT_THAT(LabelsOf(*TextOf("A", FontWithEvenOdd("")), *TextOf("AB", FontWithEvenOdd("A"))),
                ElementsAre("TextCharacterPositions", "TextCharacters", "ObjectShape"));
}

TEST(TextComparison, TellsAllInOrderAfterThePaints)
{
    FontPlan plan = Named("a", "b", "c");
    plan.box = {0.0, 0.0, 5000.0, 5000.0};
    plan.program = 0;
    plan.outline = [](const OrvFont::Character& character) {
        return Bar(character.glyph, Plexa::WindingRule::EvenOdd);
    };
    const auto left = TextOf("AB");
    left->SetFillPaint(Flat(Tints({{"Black", 1.0f}})));
    const auto right = TextOf("Ab", MakeFont(plan), 13.0);
    right->SetCharSpacing(1.0);
    right->SetWordSpacing(2.0);
    right->SetTextTransformation(Matrix(2.0, 0.0, 0.0, 1.0, 0.0, 0.0));
    EXPECT_THAT(LabelsOf(*left, *right),
                ElementsAre("ObjectHasFill", "FontName", "FontFamily", "FontStyle", "FontBBox", "TextSize",
                            "TextCharacterSpacing", "TextWordSpacing", "TextTransformation",
                            "TextCharacterPositions", "ObjectWindingRule", "TextCharacters", "ObjectShape"));
}

} // namespace HarrowSupport::Testing
