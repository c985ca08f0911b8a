#include <cmath>
#include <iomanip>
#include <limits>
#include <locale>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <plexa/compound_builder.h>

namespace
{

using Plexa::Compound;
using Plexa::CompoundBuilder;
using Plexa::WindingRule;

std::string Print(const std::shared_ptr<const Compound>& compound)
{
    std::ostringstream stream;
    stream << compound;
    return stream.str();
}

std::shared_ptr<const Compound> MakePoint(double x)
{
    CompoundBuilder builder;
    builder.MoveTo({x, 0.5});
    return builder.Finish(WindingRule::NonZero);
}

class CommaPunctuation : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(PlexaCompoundText, NamesMovesLinesCurvesAndCloses)
{
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    builder.LineTo({10, 0});
    builder.CurveTo({10, 5}, {5, 10.25}, {-0.5, 10});
    builder.Close();
    builder.MoveTo({1, 2});
    builder.LineTo({3, 4});
    EXPECT_EQ(Print(builder.Finish(WindingRule::NonZero)),
              "NonZero { M 0 0 L 10 0 C 10 5 5 10.25 -0.5 10 Z M 1 2 L 3 4 }");
}

TEST(PlexaCompoundText, NamesTheRule)
{
    CompoundBuilder builder;
    EXPECT_EQ(Print(builder.Finish(WindingRule::EvenOdd)), "EvenOdd { }");
    EXPECT_EQ(Print(builder.Finish(WindingRule::NonZero)), "NonZero { }");
    EXPECT_EQ(Print(builder.Finish(static_cast<WindingRule>(7))), "7 { }");
}

TEST(PlexaCompoundText, NullPointerIsNoShape)
{
    EXPECT_EQ(Print(nullptr), "(no shape)");
}

TEST(PlexaCompoundText, EmptySubpathShows)
{
    const auto compound = std::make_shared<const Compound>(
        std::vector<std::shared_ptr<const Plexa::Subpath>>{std::make_shared<const Plexa::Subpath>()},
        WindingRule::NonZero);
    EXPECT_EQ(Print(compound), "NonZero { E }");
}

TEST(PlexaCompoundText, NeighbouringNumbersPrintDifferently)
{
    EXPECT_NE(Print(MakePoint(1234567.0)), Print(MakePoint(std::nextafter(1234567.0, 0.0))));
    EXPECT_NE(Print(MakePoint(0.0)), Print(MakePoint(-0.0)));
}

TEST(PlexaCompoundText, NumbersAreTheShortestThatReadBackTheSame)
{
    EXPECT_EQ(Print(MakePoint(0.1)), "NonZero { M 0.1 0.5 }");
    EXPECT_EQ(Print(MakePoint(1e300)), "NonZero { M 1e+300 0.5 }");
    EXPECT_EQ(Print(MakePoint(-std::numeric_limits<double>::min())),
              "NonZero { M -2.2250738585072014e-308 0.5 }");
}

TEST(PlexaCompoundText, NumbersThatAreNotFiniteHaveText)
{
    EXPECT_EQ(Print(MakePoint(std::numeric_limits<double>::infinity())), "NonZero { M inf 0.5 }");
    EXPECT_EQ(Print(MakePoint(std::numeric_limits<double>::quiet_NaN())), "NonZero { M nan 0.5 }");
}

TEST(PlexaCompoundText, StateOfTheStreamPlaysNoPart)
{
    std::ostringstream stream;
    stream.imbue(std::locale(std::locale::classic(), new CommaPunctuation));
    stream << std::fixed << std::setprecision(1) << std::showpos;
    stream << MakePoint(123456.789);
    EXPECT_EQ(stream.str(), "NonZero { M 123456.789 0.5 }");
}

TEST(PlexaCompoundText, StateOfTheStreamIsLeftAlone)
{
    std::ostringstream stream;
    stream << std::setprecision(3);
    const auto flags = stream.flags();
    stream << MakePoint(0.123456);
    EXPECT_EQ(stream.precision(), 3);
    EXPECT_EQ(stream.flags(), flags);
}

TEST(PlexaCompoundText, OpenAndClosedWithTheSamePointsPrintDifferently)
{
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    const std::string open = Print(builder.Finish(WindingRule::NonZero));
    builder.MoveTo({0, 0});
    builder.Close();
    EXPECT_EQ(open, "NonZero { M 0 0 }");
    EXPECT_EQ(Print(builder.Finish(WindingRule::NonZero)), "NonZero { M 0 0 Z }");
}

} // namespace
