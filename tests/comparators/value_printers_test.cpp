#include "comparators/value_printers.h"

#include "comparators/compare_or_report.h"
#include "comparators/difference_scope.h"
#include "comparators/text_stream.h"
#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <orv_blend/blend_mode.h>
#include <orv_paint/exponential_function.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <stdexcept>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;

namespace
{

using PdfMatrix = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;
using ChannelMapping = OrvColor::ColorList<OrvColor::ChannelMappingPolicy>;
using SeparationMapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;
using Colorants = OrvColor::ColorList<OrvColor::ColorantPolicy>;

template <typename Value>
std::string Text(const Value& value)
{
    Comparators::TextStream stream;
    Comparators::PrintValue(stream, value);
    return stream.str();
}

OrvColor::ChannelMappingPolicy::Value Channel(std::size_t index, double low = 0.0, double high = 1.0)
{
    OrvColor::ChannelMappingPolicy::Value value;
    value.index = index;
    value.decode = {low, high};
    return value;
}

/// Writes a comma for the point and groups digits, as some countries do.
class CommaFacet : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
    std::string do_truename() const override { return "wahr"; }
};

/// A global locale of another country while it lives.
class ForeignGlobalLocale
{
public:
    ForeignGlobalLocale() : previous(std::locale::global(std::locale(std::locale::classic(), new CommaFacet)))
    {}
    ~ForeignGlobalLocale() { std::locale::global(previous); }
    ForeignGlobalLocale(const ForeignGlobalLocale&) = delete;
    ForeignGlobalLocale& operator=(const ForeignGlobalLocale&) = delete;

private:
    std::locale previous;
};

/// A value whose stream operator throws.
struct Unprintable
{};

std::ostream& operator<<(std::ostream&, const Unprintable&)
{
    throw std::runtime_error("cannot be printed");
}

} // namespace

TEST(PrintValue, FlagsAreDigits)
{
    EXPECT_EQ(Text(true), "1");
    EXPECT_EQ(Text(false), "0");
}

TEST(PrintValue, StringsAreTheirCharacters)
{
    EXPECT_EQ(Text(std::string("it's")), "it's");
}

TEST(PrintValue, NumbersHaveSixSignificantDigits)
{
    EXPECT_EQ(Text(1234567.0), "1.23457e+06");
    EXPECT_EQ(Text(1234567.4), "1.23457e+06");
    EXPECT_EQ(Text(0.1), "0.1");
}

TEST(PrintValue, CountsArePlain)
{
    EXPECT_EQ(Text(std::uint64_t{18446744073709551615u}), "18446744073709551615");
}

TEST(PrintValue, ACoordinateIsItsNumber)
{
    EXPECT_EQ(Text(Plexa::CoordinateBase<Plexa::PdfCoordinateSystem>(0.5)), "0.5");
}

TEST(PrintValue, PairsStandInBrackets)
{
    EXPECT_EQ(Text(std::pair<bool, bool>(true, false)), "(1, 0)");
    using Coordinate = Plexa::CoordinateBase<MilliPoints>;
    EXPECT_EQ(Text(std::pair<Coordinate, Coordinate>(1.5, 2.0)), "(1.5, 2)");
}

TEST(PrintValue, PairsOfPointsNameTheirCoordinates)
{
    EXPECT_EQ(Text(std::pair<Point, Point>(Point(1.0, 2.0), Point(3.0, 4.5))),
              "([X: 1, Y: 2], [X: 3, Y: 4.5])");
}

TEST(PrintValue, DimensionsNameWidthAndHeight)
{
    EXPECT_EQ(Text(Plexa::DimensionBase<MilliPoints>(1.0, 2.5)), "[W: 1, H: 2.5]");
}

TEST(PrintValue, RectanglesShowTheirEdgesAndHaveNoColonBehindTheHeight)
{
    EXPECT_EQ(Text(Box(1.0, 2.0, 10.0, 20.0)), "[ L: 1, T: 22, R: 11, B: 2 (W: 10, H 20) ]");
    EXPECT_EQ(Text(Plexa::RectangleBase<Plexa::PdfCoordinateSystem>(0.5, 0.0, 1.0, 1.0)),
              "[ L: 0.5, T: 1, R: 1.5, B: 0 (W: 1, H 1) ]");
}

TEST(PrintValue, ARectangleInItsInitialStateHasNoNumbers)
{
    Box box(1.0, 2.0, 3.0, 4.0);
    box.isInitial = true;
    EXPECT_EQ(Text(box), "[ <initial/default state> ]");
}

TEST(PrintValue, TransformationsNameTheirNumbers)
{
    EXPECT_EQ(Text(Matrix(1.0, 0.5, -0.5, 2.0, 1000.0, 2000.5)),
              "[A: 1, B: 0.5, C: -0.5, D: 2, X: 1000, Y: 2000.5]");
}

TEST(PrintValue, TransformationListsHaveABlankBehindEach)
{
    const PdfMatrix identity;
    EXPECT_EQ(Text(std::vector<PdfMatrix>{identity, identity}),
              "[ [A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0] [A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0] ]");
}

TEST(PrintValue, AnEmptyTransformationListHasNothingBetweenItsBrackets)
{
    EXPECT_EQ(Text(std::vector<PdfMatrix>()), "[ ]");
}

TEST(PrintValue, WindingRulesAreWordsAndOthersNothing)
{
    EXPECT_EQ(Text(Plexa::WindingRule::EvenOdd), "EvenOdd");
    EXPECT_EQ(Text(Plexa::WindingRule::NonZero), "NonZero");
    EXPECT_EQ(Text(static_cast<Plexa::WindingRule>(2)), "");
}

TEST(PrintValue, ContentTypesAreWordsAndOthersNothing)
{
    using Type = OrvDoc::Content::Type;
    EXPECT_EQ(Text(static_cast<Type>(0)), "PageContent");
    EXPECT_EQ(Text(static_cast<Type>(1)), "FormContent");
    EXPECT_EQ(Text(static_cast<Type>(2)), "ColoredPatternContent");
    EXPECT_EQ(Text(static_cast<Type>(3)), "UncoloredPatternContent");
    EXPECT_EQ(Text(static_cast<Type>(4)), "SoftMaskContent");
    EXPECT_EQ(Text(static_cast<Type>(5)), "");
}

TEST(PrintValue, OptionalsHaveABlankInFrontOrAreDashes)
{
    EXPECT_EQ(Text(boost::optional<int>(5)), " 5");
    EXPECT_EQ(Text(boost::optional<int>()), "--");
}

TEST(PrintValue, AnOptionalWritesNothingOnAFailedStream)
{
    Comparators::TextStream stream;
    stream.setstate(std::ios::failbit);
    Comparators::PrintValue(stream, boost::optional<int>());
    stream.clear();
    EXPECT_EQ(stream.str(), "");
}

TEST(PrintValue, TransferFunctionsShowTheDefaultAndTheNamedOnes)
{
    using Functions = boost::optional<OrvDoc::TransferFunctionSet>;
    EXPECT_EQ(Text(Functions()), "TransferFunctionSet(none)");
    const std::shared_ptr<const OrvPaint::Function> gamma =
        OrvPaint::ExponentialFunction::Factory({0.0f}, {1.0f}, 2.0).Get();
    const std::shared_ptr<const OrvPaint::Function> inverse =
        OrvPaint::ExponentialFunction::Factory({1.0f}, {0.0f}, 1.0).Get();
    EXPECT_EQ(Text(Functions(OrvDoc::TransferFunctionSet(gamma, {{"Cyan", inverse}, {"Spot", gamma}}))),
              "TransferFunctionSet(Default:" + Text(*gamma) + ", Cyan:" + Text(*inverse) +
                  ", Spot:" + Text(*gamma) + ")");
}

TEST(PrintValue, ATransferFunctionThatIsMissingIsAnEmptySpot)
{
    EXPECT_EQ(Text(boost::optional<OrvDoc::TransferFunctionSet>(OrvDoc::TransferFunctionSet(nullptr, {}))),
              "TransferFunctionSet(Default:)");
}

TEST(PrintValue, AFunctionOfASoftMaskIsItsAddress)
{
    using Function = boost::variant<bool, std::shared_ptr<const OrvPaint::Function>>;
    EXPECT_EQ(Text(Function(true)), "1");
    EXPECT_EQ(Text(Function(false)), "0");
    const std::shared_ptr<const OrvPaint::Function> function =
        OrvPaint::ExponentialFunction::Factory({0.0f}, {1.0f}, 2.0).Get();
    std::ostringstream address;
    address << function.get();
    EXPECT_EQ(Text(Function(function)), address.str());
}

TEST(PrintValue, ExternalReferencesShowPageAndPath)
{
    using Reference = boost::optional<std::pair<boost::filesystem::path, std::size_t>>;
    EXPECT_EQ(Text(Reference()), "NoExternalReference");
    EXPECT_EQ(Text(Reference(std::make_pair(boost::filesystem::path("in/b\xc3\xa4r.pdf"), std::size_t{3}))),
              "Page 3 @ in/b\xc3\xa4r.pdf");
}

TEST(PrintValue, BlendModesAreThoseOfTheLibrary)
{
    EXPECT_EQ(Text(OrvBlend::BlendMode::Multiply), "Multiply");
}

TEST(PrintColors, TintsArePercent)
{
    EXPECT_EQ(Text(Tints({{"Cyan", 1.0f}, {"Spot", 0.5f}})), "(Cyan @ 100%, Spot @ 50%)");
}

TEST(PrintColors, HalvesOfAPercentAreRoundedAwayFromZero)
{
    EXPECT_EQ(Text(Tints({{"a", 0.125f}})), "(a @ 13%)");
    EXPECT_EQ(Text(Tints({{"a", -0.125f}})), "(a @ -13%)");
    EXPECT_EQ(Text(Tints({{"a", 0.994f}})), "(a @ 99%)");
    EXPECT_EQ(Text(Tints({{"a", 0.005f}})), "(a @ 1%)");
}

TEST(PrintColors, AnEmptyListSaysSo)
{
    EXPECT_EQ(Text(Tints({})), "(Empty)");
}

TEST(PrintColors, OverprintStandsBehindEveryForm)
{
    EXPECT_EQ(Text(Tints({}, true)), "(Empty) Overprint");
    EXPECT_EQ(Text(Tints({{"a", 0.5f}}, true)), "(a @ 50%) Overprint");
    EXPECT_EQ(Text(AllSeparations(0.5f, true)), "(All @ 50%) Overprint");
}

TEST(PrintColors, TheAllFormHidesEntries)
{
    Color color = Tints({{"a", 0.5f}});
    color.all = true;
    color.valueForAll = 0.25f;
    EXPECT_EQ(Text(color), "(All @ 25%)");
}

TEST(PrintColors, ColorantsAreNamesAlone)
{
    Colorants colorants;
    EXPECT_EQ(Text(colorants), "(Empty)");
    colorants.Add("Cyan");
    colorants.Add("Spot");
    EXPECT_EQ(Text(colorants), "(Cyan, Spot)");
    colorants.all = true;
    colorants.overprint = true;
    EXPECT_EQ(Text(colorants), "(All) Overprint");
}

TEST(PrintColors, SeparationMappingsShowIndices)
{
    SeparationMapping mapping;
    mapping.Add("Cyan", 0);
    mapping.Add("Spot", OrvColor::Unmapped);
    EXPECT_EQ(Text(mapping), "(Cyan @ 0, Spot @ UNMAPPED)");
    mapping.all = true;
    mapping.valueForAll = 7;
    EXPECT_EQ(Text(mapping), "(All @ 7)");
    mapping.valueForAll = OrvColor::Unmapped;
    EXPECT_EQ(Text(mapping), "(All @ UNMAPPED)");
}

TEST(PrintColors, ChannelMappingsShowADecodeRangeThatIsNotTheWholeOne)
{
    ChannelMapping mapping;
    mapping.Add("whole", Channel(2));
    mapping.Add("inverse", Channel(3, 1.0, 0.0));
    mapping.Add("part", Channel(4, 0.0, 0.5));
    EXPECT_EQ(Text(mapping), "(whole @ 2, inverse @ 3 [1 0], part @ 4 [0 0.5])");
}

TEST(PrintColors, AnUnmappedChannelShowsItsDecodeRangeByTheSameRule)
{
    ChannelMapping mapping;
    mapping.Add("whole", Channel(OrvColor::Unmapped));
    mapping.Add("part", Channel(OrvColor::Unmapped, 0.25, 1.0));
    EXPECT_EQ(Text(mapping), "(whole @ UNMAPPED, part @ UNMAPPED [0.25 1])");
}

TEST(PrintColors, ADecodeRangeOfAllChannelsIsShownToo)
{
    ChannelMapping mapping;
    mapping.all = true;
    mapping.valueForAll = Channel(1, 0.5, 1.0);
    EXPECT_EQ(Text(mapping), "(All @ 1 [0.5 1])");
}

TEST(DifferenceScope, TextIsQuotedOnBothSidesEvenIfEmpty)
{
    const auto left = Square();
    const auto right = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*left, *right);
    scope.AddDifference("Label", "'", std::string(), "' vs '", std::string("b"), "'");
    scope.AddDifference("Bare");
    ASSERT_EQ(scope.differences.size(), 2u);
    EXPECT_EQ(scope.differences[0].text, "'' vs 'b'");
    EXPECT_EQ(scope.differences[1].label, "Bare");
    EXPECT_EQ(scope.differences[1].text, "");
}

TEST(DifferenceScope, FlushKeepsWhatItReports)
{
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    scope.AddDifference("One");
    scope.AddDifference("Two");
    RecordingReporter reporter;
    scope.Flush(reporter);
    EXPECT_THAT(reporter.Labels(), ElementsAre("One", "Two"));
    EXPECT_EQ(scope.differences.size(), 2u);
}

TEST(DifferenceScope, AnExceptionOfAStreamOperatorPassesAndLeavesTheScopeAsItWas)
{
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    EXPECT_THROW(scope.AddValues("Label", Unprintable(), Unprintable()), std::runtime_error);
    EXPECT_TRUE(scope.differences.empty());
}

TEST(CompareOrReport, StringsAreComparedByLengthAndBytes)
{
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    EXPECT_TRUE(Comparators::CompareOrReport(scope, "L", std::string("a\0b", 3), std::string("a\0b", 3)));
    EXPECT_FALSE(Comparators::CompareOrReport(scope, "L", std::string("a"), std::string("a\0", 2)));
    EXPECT_EQ(scope.differences.size(), 1u);
}

TEST(CompareOrReport, ColorsAreComparedByTheirRule)
{
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    EXPECT_TRUE(Comparators::CompareOrReport(scope, "L", Tints({{"a", 0.5f}, {"b", 1.0f}}),
                                             Tints({{"b", 1.0f}, {"a", 0.5f}})));
    EXPECT_FALSE(Comparators::CompareOrReport(scope, "L", Tints({{"a", 0.5f}}), Tints({{"b", 0.5f}})));
    ASSERT_EQ(scope.differences.size(), 1u);
    EXPECT_EQ(scope.differences.front().text, "'(a @ 50%)' vs '(b @ 50%)'");
}

TEST(Locale, TheGlobalOneChangesNoText)
{
    const auto left = NewDocument();
    const auto right = NewDocument();
    PageOf(*left).SetPageBox(OrvDoc::PageBox::Media, Box(0.5, 0.0, 12345.5, 1.0));
    const std::vector<std::string> expected = CompareLines(*left, *right);
    const std::vector<std::string> expectedCounts = CompareLines(*NewDocument(1234), *right);
    const ForeignGlobalLocale foreign;
    EXPECT_EQ(CompareLines(*left, *right), expected);
    EXPECT_THAT(expectedCounts, ElementsAre("PageCount: '1234' vs '1'"));
    EXPECT_EQ(CompareLines(*NewDocument(1234), *right), expectedCounts);
    EXPECT_EQ(Text(1234.5), "1234.5");
}

} // namespace HarrowSupport::Testing
