#include <orv_sys/uni16char.h>

#include <cstddef>
#include <string>
#include <vector>

#include <boost/utility/string_view.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using ::testing::Each;
using ::testing::ElementsAre;

constexpr wchar_t untouched = 0x7E57;

struct Conversion
{
    int result;
    // Everything in the target, also what stood there before.
    std::vector<wchar_t> target;
    std::vector<wchar_t> GetUnits() const
    {
        return {target.begin(), target.begin() + (result > 0 ? result : 0)};
    }
};

Conversion Convert(const std::string& source, std::size_t capacity)
{
    Conversion conversion{0, std::vector<wchar_t>(capacity + 1, untouched)};
    conversion.result = OrvSys::UTF8ToUni16Char(source.c_str(), conversion.target.data(), capacity);
    return conversion;
}

Conversion Convert(const std::string& source)
{
    return Convert(source, source.size() + 1);
}

TEST(UTF8ToUni16CharTest, ConvertsASCIIUnitByUnit)
{
    const Conversion conversion = Convert("Ab1");
    EXPECT_EQ(conversion.result, 3);
    EXPECT_THAT(conversion.GetUnits(), ElementsAre(L'A', L'b', L'1'));
}

TEST(UTF8ToUni16CharTest, ConvertsTheEndsOfEachLength)
{
    EXPECT_THAT(Convert("\x01\x7F").GetUnits(), ElementsAre(0x01, 0x7F));
    EXPECT_THAT(Convert("\xC2\x80\xDF\xBF").GetUnits(), ElementsAre(0x80, 0x7FF));
    EXPECT_THAT(Convert("\xE0\xA0\x80\xEF\xBF\xBF").GetUnits(), ElementsAre(0x800, 0xFFFF));
    EXPECT_THAT(Convert("\xED\x9F\xBF\xEE\x80\x80").GetUnits(), ElementsAre(0xD7FF, 0xE000));
}

TEST(UTF8ToUni16CharTest, MakesASurrogatePairBeyondFourDigits)
{
    EXPECT_THAT(Convert("\xF0\x90\x80\x80").GetUnits(), ElementsAre(0xD800, 0xDC00));
    EXPECT_THAT(Convert("\xF0\x9F\x98\x80").GetUnits(), ElementsAre(0xD83D, 0xDE00));
    EXPECT_THAT(Convert("\xF4\x8F\xBF\xBF").GetUnits(), ElementsAre(0xDBFF, 0xDFFF));
}

TEST(UTF8ToUni16CharTest, WritesAnEndMarkBehindTheUnitsAndNothingBehindThat)
{
    const Conversion conversion = Convert("ab", 5);
    EXPECT_THAT(conversion.target, ElementsAre(L'a', L'b', 0, untouched, untouched, untouched));
}

TEST(UTF8ToUni16CharTest, EmptyTextGivesZeroAndAnEndMark)
{
    const Conversion conversion = Convert("");
    EXPECT_EQ(conversion.result, 0);
    EXPECT_THAT(conversion.target, ElementsAre(0, untouched));
}

TEST(UTF8ToUni16CharTest, NullSourceCountsAsEmptyText)
{
    wchar_t target = untouched;
    EXPECT_EQ(OrvSys::UTF8ToUni16Char(nullptr, &target, 1), 0);
    EXPECT_EQ(target, 0);
}

TEST(UTF8ToUni16CharTest, NoCapacityNeedsNoTarget)
{
    EXPECT_EQ(OrvSys::UTF8ToUni16Char("", nullptr, 0), 0);
    EXPECT_EQ(OrvSys::UTF8ToUni16Char("a", nullptr, 0), -2);
}

TEST(UTF8ToUni16CharTest, UnitsAndEndMarkMayFillTheCapacity)
{
    EXPECT_EQ(Convert("\xF0\x9F\x98\x80z", 4).result, 3);
}

TEST(UTF8ToUni16CharTest, OneUnitTooFewConvertsNothing)
{
    const Conversion conversion = Convert("\xF0\x9F\x98\x80z", 3);
    EXPECT_EQ(conversion.result, -2);
    EXPECT_THAT(conversion.target, Each(untouched));
}

class BrokenUTF8Test : public ::testing::TestWithParam<const char*>
{};

TEST_P(BrokenUTF8Test, ConvertsNothing)
{
    const Conversion conversion = Convert(std::string("ok") + GetParam());
    EXPECT_EQ(conversion.result, -1);
    EXPECT_THAT(conversion.target, Each(untouched));
}

INSTANTIATE_TEST_SUITE_P(Bytes, BrokenUTF8Test,
                         ::testing::Values("\x80",             // no first byte
                                           "\xC3",             // cut off
                                           "\xE2\x82",         // cut off
                                           "\xF0\x9F\x98",     // cut off
                                           "\xC3z",            // broken off
                                           "\xC1\xBF",         // overlong
                                           "\xE0\x9F\xBF",     // overlong
                                           "\xF0\x8F\xBF\xBF", // overlong
                                           "\xED\xA0\x80",     // first surrogate
                                           "\xED\xBF\xBF",     // last surrogate
                                           "\xF4\x90\x80\x80", // beyond the last character
                                           "\xF5\x80\x80\x80", "\xFF"));

TEST(Uni16CharTraitsTest, MakeAViewOfUnits)
{
    using View = boost::basic_string_view<wchar_t, OrvSys::Core::uni16char_traits>;
    const std::wstring units = L"ab";
    EXPECT_EQ(View(units.data(), units.size()), View(L"ab"));
    EXPECT_LT(View(L"\xFFFE"), View(L"\xFFFF"));
}

} // namespace
