// All ways that spare work when texts are compared, against the plain rule.

#include "comparators/path_comparison.h"
#include "comparators/transformation_equality.h"
#include "outlined_fonts.h"
#include "support/recording_reporter.h"
#include "support/text_makers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace HarrowSupport::Testing
{
namespace
{

using OrvDoc::Text;

bool PlainlySamePlaces(const std::vector<CharacterPlace>& left, const std::vector<CharacterPlace>& right)
{
    if (left.size() != right.size())
        return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        const CharacterPlace& one = left[i];
        const CharacterPlace& other = right[i];
        if (one.a != other.a || one.b != other.b || one.c != other.c || one.d != other.d)
            return false;
        if (!(0.5 >= std::fabs(one.x.value - other.x.value)) ||
            !(0.5 >= std::fabs(one.y.value - other.y.value)))
            return false;
    }
    return true;
}

/// Labels of the shape, by the outlines in their final position.
void AddShapeLabels(const Text& left, const Text& right, std::vector<std::string>& labels)
{
    const std::vector<Outline>& leftOutlines = left.TransformedCompounds(nullptr);
    const std::vector<Outline>& rightOutlines = right.TransformedCompounds(nullptr);
    bool isAccepted = leftOutlines.size() == rightOutlines.size();
    for (std::size_t i = 0; isAccepted && i < leftOutlines.size(); ++i) {
        if (leftOutlines[i]->GetWindingRule() != rightOutlines[i]->GetWindingRule()) {
            labels.emplace_back("ObjectWindingRule");
            isAccepted = false;
        } else {
            isAccepted = Comparators::CompareCompounds(*leftOutlines[i], *rightOutlines[i]);
        }
    }
    if (isAccepted)
        return;
    if (left.GetText() != right.GetText())
        labels.emplace_back("TextCharacters");
    if (PrintOutlines(left) != PrintOutlines(right))
        labels.emplace_back("ObjectShape");
}

std::vector<std::string> PlainlyCompared(const Text& left, const Text& right)
{
    std::vector<std::string> labels;
    if (left.GetSize() != right.GetSize())
        labels.emplace_back("TextSize");
    if (left.GetCharSpacing() != right.GetCharSpacing())
        labels.emplace_back("TextCharacterSpacing");
    if (!Comparators::TransformationsNearlyEqual(left.GetTextTransformation(), right.GetTextTransformation()))
        labels.emplace_back("TextTransformation");
    if (!PlainlySamePlaces(left.GetCharacterTransformations(), right.GetCharacterTransformations()))
        labels.emplace_back("TextCharacterPositions");
    AddShapeLabels(left, right, labels);
    return labels;
}

/// The letters A, B and C with steps between them.
std::unique_ptr<Text> Stepping(const FontPointer& font, const std::function<void(OrvDoc::ShownText&)>& step)
{
    OrvDoc::ShownText shown;
    shown.AppendCodes("A");
    step(shown);
    shown.AppendCodes("BC");
    return std::make_unique<Text>(font, 12.0, std::move(shown));
}

void AddSteppingTexts(const FontPointer& font, std::vector<std::unique_ptr<Text>>& texts)
{
    using OrvDoc::ShownText;
    texts.push_back(ShownTextOf("ABC", font));
    for (const double number : {0.0, 20.0, 1e308, std::nan("")}) {
        texts.push_back(Stepping(font, [&](ShownText& shown) { shown.AddAdjustment(number); }));
        texts.push_back(Stepping(font, [&](ShownText& shown) { shown.AddMove(6.0, number); }));
        texts.push_back(Stepping(font, [&](ShownText& shown) { shown.AddScale(number); }));
        texts.push_back(Stepping(font, [&](ShownText& shown) { shown.AddTurn(number, 0, 0, 1, 6, 0); }));
    }
}

/// Texts that are alike in all ways in which texts can be.
std::vector<std::unique_ptr<Text>> PeculiarTexts()
{
    const double quiet = std::nan("");
    const double infinity = std::numeric_limits<double>::infinity();
    FontPlan plan;
    FontPlan shifted;
    shifted.glyphShift = 100;
    FontPlan unlikely;
    unlikely.program = 2;
    unlikely.outline = [quiet](const OrvFont::Character& character) {
        return Bar(character.glyph == 'A' ? 1e300 : character.glyph == 'B' ? quiet : 1e12);
    };
    const std::vector<FontPointer> fonts = {MakeFont(plan),
                                            MakeFont(plan),
                                            MakeFont(unlikely),
                                            MakeFont(unlikely),
                                            FontWithOutlines(OutlineByGlyph),
                                            FontWithEvenOdd("B"),
                                            MakeFont(shifted)};
    const std::vector<Matrix> matrices = {
        Matrix(1.0, 0.0, 0.0, 1.0, 1.0, 0.0), Matrix(1e200, 0.0, 0.0, 1e200, 0.0, 0.0),
        Matrix(1e160, 0.0, 0.0, 1.0, -0.0, 0.0), Matrix(quiet, 0.0, 0.0, 1.0, 0.0, 0.0)};
    std::vector<std::unique_ptr<Text>> texts;
    for (const FontPointer& font : fonts) {
        for (const char* bytes : {"", "A", "ABC", "CBA"})
            texts.push_back(TextOf(bytes, font));
        for (const double size : {0.0, -0.0, 1e60, 1e308, quiet, infinity})
            texts.push_back(TextOf("ABC", font, size));
        for (const Matrix& matrix : matrices) {
            texts.push_back(TextOf("ABC", font));
            texts.back()->SetTextTransformation(matrix);
            texts.push_back(TextOf("ABC", font));
            texts.back()->SetTransformation(matrix);
        }
        for (const double number : {0.0, -0.0, 0.5, std::nextafter(0.5, 1.0), 1e60, 1e305, quiet, infinity}) {
            texts.push_back(TextAt(
                "ABC", {{}, CharacterPlace(1, 0, 0, 1, 6, number), CharacterPlace(1, 0, 0, 1, 12, 0)}, font));
            texts.push_back(TextAt(
                "ABC", {{}, CharacterPlace(1, number, 0, 1, 6, 0), CharacterPlace(1, 0, 0, 1, 12, 0)}, font));
        }
        texts.push_back(TextOf("ABC", font));
        texts.back()->SetCharSpacing(0.25);
        AddSteppingTexts(font, texts);
    }
    auto characters = Characters("ABC");
    characters[1].source = 7;
    texts.push_back(std::make_unique<Text>(characters, fonts.front(), 12.0));
    return texts;
}

TEST(ComparingText, ReportsWhatThePlainRuleSays)
{
    const auto texts = PeculiarTexts();
    std::size_t reported = 0;
    for (const auto& left : texts) {
        for (const auto& right : texts) {
            RecordingReporter reporter;
            Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*left), *right,
                                 AllOptions());
            std::vector<std::string> labels = reporter.Labels();
            if (!labels.empty() && labels.front() == "ObjectAbsoluteTransformation")
                labels.erase(labels.begin());
            ASSERT_EQ(labels, PlainlyCompared(*left, *right))
                << left->DumpInfo().second << " against " << right->DumpInfo().second;
            reported += labels.size();
        }
    }
    EXPECT_GT(reported, 0u);
}

} // namespace
} // namespace HarrowSupport::Testing
