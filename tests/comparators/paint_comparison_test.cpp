#include "comparators/paint_comparison.h"

#include "comparators/comparison_context.h"
#include "paint_reports.h"
#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <orv_paint/paint.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// A paint of any kind, in one separation.
class BarePaint : public OrvPaint::Paint
{
public:
    explicit BarePaint(Type givenType, const std::string& separation = "Spot") : Paint(givenType)
    {
        colorants.entries.emplace_back();
        colorants.entries.back().name = separation;
    }
    OrvColor::ColorList<OrvColor::ColorantPolicy> GetColorants() const override { return colorants; }

private:
    OrvColor::ColorList<OrvColor::ColorantPolicy> colorants;
};

std::string Print(OrvPaint::Paint::Type type)
{
    std::ostringstream stream;
    stream << type;
    return stream.str();
}

} // namespace

TEST(ComparePaint, EqualColorsAreEqual)
{
    ExpectPaintReports(Flat(Tints({{"Cyan", 0.5f}})), Flat(Tints({{"Cyan", 0.5f}})), {});
}

TEST(ComparePaint, AnotherTintIsADifferenceOfColorAlone)
{
    ExpectPaintReports(Flat(Tints({{"Cyan", 0.5f}})), Flat(Tints({{"Cyan", 0.25f}})),
                       {Difference("PaintColor", "(Cyan @ 50%)", "(Cyan @ 25%)")});
}

TEST(ComparePaint, AnotherNameIsADifferenceOfSpaceAndColor)
{
    ExpectPaintReports(Flat(Tints({{"Cyan", 0.5f}})), Flat(Tints({{"Spot", 0.5f}})),
                       {Difference("PaintColorSpace", "(Cyan)", "(Spot)"),
                        Difference("PaintColor", "(Cyan @ 50%)", "(Spot @ 50%)")});
}

TEST(ComparePaint, TheOrderOfSeparationsDoesNotCount)
{
    ExpectPaintReports(Flat(Tints({{"Cyan", 0.5f}, {"Spot", 1.0f}})),
                       Flat(Tints({{"Spot", 1.0f}, {"Cyan", 0.5f}})), {});
}

TEST(ComparePaint, OverprintCounts)
{
    ExpectPaintReports(Flat(Tints({{"Cyan", 0.5f}}, true)), Flat(Tints({{"Cyan", 0.5f}})),
                       {Difference("PaintColorSpace", "(Cyan) Overprint", "(Cyan)"),
                        Difference("PaintColor", "(Cyan @ 50%) Overprint", "(Cyan @ 50%)")});
}

TEST(ComparePaint, RegistrationColorIsNoNamedColor)
{
    ExpectPaintReports(Flat(AllSeparations(0.5f)), Flat(Tints({{"All", 0.5f}})),
                       {Difference("PaintColorSpace", "(All)", "(All)"),
                        Difference("PaintColor", "(All @ 50%)", "(All @ 50%)")});
}

TEST(ComparePaint, TintsOfRegistrationColorAreCompared)
{
    ExpectPaintReports(Flat(AllSeparations(0.5f)), Flat(AllSeparations(1.0f)),
                       {Difference("PaintColor", "(All @ 50%)", "(All @ 100%)")});
}

TEST(ComparePaint, OverprintOfRegistrationColorCounts)
{
    ExpectPaintReports(Flat(AllSeparations(0.5f, true)), Flat(AllSeparations(0.5f)),
                       {Difference("PaintColorSpace", "(All) Overprint", "(All)"),
                        Difference("PaintColor", "(All @ 50%) Overprint", "(All @ 50%)")});
}

TEST(ComparePaint, NamesBesideRegistrationColorDoNotCount)
{
    Color named = AllSeparations(0.5f);
    named.entries = Tints({{"Cyan", 0.5f}}).entries;
    ExpectPaintReports(Flat(named), Flat(AllSeparations(0.5f)), {});
}

TEST(ComparePaint, TheNumberOfSeparationsCounts)
{
    ExpectPaintReports(Flat(Tints({{"a", 0.5f}, {"b", 0.5f}})), Flat(Tints({{"a", 0.5f}})),
                       {Difference("PaintColorSpace", "(a, b)", "(a)"),
                        Difference("PaintColor", "(a @ 50%, b @ 50%)", "(a @ 50%)")});
}

TEST(ComparePaint, OfAnotherKindHasNothingElseToCompare)
{
    using Type = OrvPaint::Paint::Type;
    ExpectPaintReports(Flat(Tints({{"Cyan", 0.5f}})), std::make_shared<BarePaint>(Type::AxialShading),
                       {Difference("PaintType", Print(Type::Flat), Print(Type::AxialShading))});
}

TEST(ComparePaint, AKindWithoutANumberOfItsOwnIsNotCompared)
{
    for (const std::uint32_t number : {0u, 7u, 9u}) {
        const auto kind = static_cast<OrvPaint::Paint::Type>(number);
        ExpectPaintReports(std::make_shared<BarePaint>(kind, "a"), std::make_shared<BarePaint>(kind, "b"),
                           {});
    }
}

TEST(ComparePaint, ANameThatOccursTwiceIsFoundTwice)
{
    ExpectPaintReports(Flat(Tints({{"a", 1.0f}, {"a", 1.0f}})), Flat(Tints({{"a", 1.0f}, {"a", 1.0f}})), {});
    // From the left every name is found on the right; from the right one is not.
    const auto twice = Filled(Flat(Tints({{"a", 1.0f}, {"a", 1.0f}})));
    const auto both = Filled(Flat(Tints({{"a", 1.0f}, {"b", 1.0f}})));
    EXPECT_THAT(CompareLines<OrvDoc::ContentObject>(*twice, *both), IsEmpty());
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*both), *twice, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("PaintColorSpace", "PaintColor"));
}

TEST(ComparePaint, SharedPaintsWithADifferenceAreReportedForEachObject)
{
    const PaintPointer left = Flat(Tints({{"Cyan", 0.5f}}));
    const PaintPointer right = Flat(Tints({{"Cyan", 0.25f}}));
    const auto leftDocument = NewDocument();
    const auto rightDocument = NewDocument();
    Fill(ContentOf(*leftDocument), Filled(left), Filled(left), Stroked(left));
    Fill(ContentOf(*rightDocument), Filled(right), Filled(right), Stroked(right));
    RecordingReporter reporter;
    Comparators::Compare(reporter, *leftDocument, *rightDocument, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("PaintColor", "PaintColor", "PaintColor"));
}

TEST(ComparePaint, APaintThatIsNoNumberDiffersFromItselfEachTime)
{
    const PaintPointer paint = Flat(Tints({{"Cyan", std::nanf("")}}));
    const auto document = NewDocument();
    Fill(ContentOf(*document), Filled(paint), Filled(paint));
    RecordingReporter reporter;
    Comparators::Compare(reporter, *document, *document, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("PaintColor", "PaintColor"));
}

TEST(ComparePaint, ManyPaintsInTurnAreToldApart)
{
    // More pairs than the memory of equal ones holds, met in turn, with one pair that differs among them.
    std::vector<PaintPointer> left;
    std::vector<PaintPointer> right;
    for (int i = 0; i < 100; ++i) {
        left.push_back(Flat(Tints({{"Cyan", 0.001f * static_cast<float>(i)}})));
        right.push_back(Flat(Tints({{"Cyan", i == 57 ? 1.0f : 0.001f * static_cast<float>(i)}})));
    }
    const auto leftDocument = NewDocument();
    const auto rightDocument = NewDocument();
    for (int round = 0; round < 3; ++round) {
        for (std::size_t i = 0; i < left.size(); ++i) {
            Fill(ContentOf(*leftDocument), Filled(left[i]));
            Fill(ContentOf(*rightDocument), Filled(right[i]));
        }
    }
    RecordingReporter reporter;
    Comparators::Compare(reporter, *leftDocument, *rightDocument, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("PaintColor", "PaintColor", "PaintColor"));
}

TEST(ComparePaint, PairsMetBeforeAreJudgedAsAtTheirFirstMeeting)
{
    // More pairs than the memory of equal ones has room for, with paints that are equal to one another in
    // part.
    const float step = 0.75e-5f;
    const std::vector<PaintPointer> paints = {Flat(Tints({{"a", 0.5f}})),
                                              Flat(Tints({{"a", 0.5f}})),
                                              Flat(Tints({{"a", 0.5f + step}})),
                                              Flat(Tints({{"a", 0.5f + 2.0f * step}})),
                                              Flat(Tints({{"a", 0.5f}}, true)),
                                              Flat(Tints({{"a", std::nanf("")}})),
                                              Flat(Tints({{"a", 0.0f}})),
                                              Flat(Tints({{"a", -0.0f}})),
                                              Flat(Tints({{"a", 0.5f}, {"a", 0.5f}})),
                                              Flat(Tints({{"a", 0.5f}, {"b", 0.5f}})),
                                              Flat(AllSeparations(0.5f)),
                                              Flat(Tints({}))};
    RecordingReporter reporter;
    Comparators::ComparisonContext context(reporter, AllOptions());
    const auto object = Square();
    const auto labels = [&object](Comparators::ComparisonContext& chosen, const PaintPointer& left,
                                  const PaintPointer& right) {
        Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
        Comparators::ComparePaint(chosen, left, right, scope);
        std::vector<std::string> found;
        for (const Comparators::PendingDifference& difference : scope.differences)
            found.push_back(difference.label);
        return found;
    };
    for (int round = 0; round < 3; ++round) {
        for (std::size_t left = 0; left < paints.size(); ++left) {
            for (std::size_t right = 0; right < paints.size(); ++right) {
                Comparators::ComparisonContext fresh(reporter, AllOptions());
                EXPECT_EQ(labels(context, paints[left], paints[right]),
                          labels(fresh, paints[left], paints[right]))
                    << left << " against " << right << " in round " << round;
            }
        }
    }
}

TEST(ComparePaint, ColorsCloseToAThirdAreNotCloseToEachOther)
{
    const PaintPointer low = Flat(Tints({{"a", 0.0f}}));
    const PaintPointer middle = Flat(Tints({{"a", 0.75e-5f}}));
    const PaintPointer high = Flat(Tints({{"a", 1.5e-5f}}));
    const auto left = NewDocument();
    const auto right = NewDocument();
    Fill(ContentOf(*left), Filled(low), Filled(middle), Filled(low));
    Fill(ContentOf(*right), Filled(middle), Filled(high), Filled(high));
    ExpectReports(*left, *right, {Difference("PaintColor", "(a @ 0%)", "(a @ 0%)")});
}

} // namespace HarrowSupport::Testing
