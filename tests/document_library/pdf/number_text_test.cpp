#include "pdf/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

constexpr std::uint64_t seed = 20240607;

double Number(std::string_view text, int shift = 0)
{
    double value = -12345.678;
    EXPECT_TRUE(OrvPdf::ParseNumber(text, shift, value)) << text;
    return value;
}

bool IsNumber(std::string_view text)
{
    double value = 0;
    return OrvPdf::ParseNumber(text, 0, value);
}

std::string Text(double value, int shift = 0)
{
    std::string out;
    OrvPdf::AppendNumber(out, value, shift);
    return out;
}

std::string FloatText(float value)
{
    std::string out;
    OrvPdf::AppendFloat(out, value);
    return out;
}

template <typename Bits, typename Real>
Bits BitsOf(Real value)
{
    static_assert(sizeof(Bits) == sizeof(Real), "bit by bit");
    Bits bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

std::uint64_t DoubleBits(double value)
{
    return BitsOf<std::uint64_t>(value);
}

double DoubleOf(std::uint64_t bits)
{
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

std::string RandomDigits(std::mt19937_64& random, std::size_t count)
{
    std::string digits;
    for (std::size_t i = 0; i < count; ++i) {
        digits.push_back(static_cast<char>('0' + random() % 10));
    }
    return digits;
}

TEST(ParseNumber, ReadsSignsDigitsAndPoint)
{
    EXPECT_EQ(Number("0"), 0.0);
    EXPECT_EQ(Number("42"), 42.0);
    EXPECT_EQ(Number("+17"), 17.0);
    EXPECT_EQ(Number("-98"), -98.0);
    EXPECT_EQ(Number("34.5"), 34.5);
    EXPECT_EQ(Number("-3.62"), -3.62);
    EXPECT_EQ(Number("+123.6"), 123.6);
    EXPECT_EQ(Number("4."), 4.0);
    EXPECT_EQ(Number("-.002"), -0.002);
    EXPECT_EQ(Number("+.5"), 0.5);
    EXPECT_EQ(Number("0000012"), 12.0);
}

TEST(ParseNumber, ToleratesOddSigns)
{
    EXPECT_EQ(Number("--5"), -5.0);
    EXPECT_EQ(Number("+-5"), -5.0);
    EXPECT_EQ(Number("++5"), 5.0);
    EXPECT_EQ(Number("5-3"), 53.0);
    EXPECT_EQ(Number("-5-3.2-1"), -53.21);
    EXPECT_EQ(Number("5-"), 5.0);
    EXPECT_EQ(Number("0.000000000000-5684342", 3), 5.684342e-10);
}

TEST(ParseNumber, TextWithoutDigitsIsPositiveZero)
{
    for (const char* text : {".", "-", "+", "-.", "--"}) {
        EXPECT_EQ(DoubleBits(Number(text)), DoubleBits(0.0)) << text;
    }
}

TEST(ParseNumber, KeepsNegativeZero)
{
    EXPECT_EQ(DoubleBits(Number("-0")), DoubleBits(-0.0));
    EXPECT_EQ(DoubleBits(Number("-0.000", 3)), DoubleBits(-0.0));
    EXPECT_EQ(DoubleBits(Number("--0")), DoubleBits(-0.0));
}

TEST(ParseNumber, RefusesWhatIsNoNumber)
{
    for (const char* text :
         {"", "e", "1e5", "1E5", "1e-5", "1.2.3", "..", "1 ", " 1", "5+3", "0x10", "inf", "nan", "1,5"}) {
        EXPECT_FALSE(IsNumber(text)) << text;
    }
    EXPECT_FALSE(IsNumber(std::string_view("1\0", 2)));
}

TEST(ParseNumber, LeavesTheValueAloneWhereItRefuses)
{
    double value = 7;
    EXPECT_FALSE(OrvPdf::ParseNumber("1e5", 3, value));
    EXPECT_EQ(value, 7);
}

TEST(ParseNumber, TellsIntegersByTheMissingPoint)
{
    OrvPdf::ParsedNumber number;
    ASSERT_TRUE(OrvPdf::ParseNumber("-12", 0, number));
    EXPECT_TRUE(number.isInteger);
    ASSERT_TRUE(OrvPdf::ParseNumber("12.", 0, number));
    EXPECT_FALSE(number.isInteger);
    ASSERT_TRUE(OrvPdf::ParseNumber("123456789012345678901234567890", 0, number));
    EXPECT_TRUE(number.isInteger);
}

TEST(ParseNumber, ShiftMovesThePointBeforeTheRounding)
{
    EXPECT_EQ(Number("12.345", 3), 12345.0);
    EXPECT_EQ(Number("0.1", 3), 100.0);
    EXPECT_EQ(Number("1.0005", 3), 1000.5);
    EXPECT_EQ(Number("123.45678", 3), 123456.78);
    // Rounding first and multiplying then gives another double.
    EXPECT_NE(Number("4.35") * 100, 435.0);
    EXPECT_EQ(Number("4.35", 2), 435.0);
    EXPECT_EQ(Number("12345", -3), 12.345);
}

TEST(ParseNumber, MatchesReferenceForLongDigitStrings)
{
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (int i = 0; i < 20000; ++i) {
        const std::string whole = RandomDigits(random, random() % 30);
        const std::string decimals = RandomDigits(random, 1 + random() % 40);
        const std::string text = (random() % 2 ? "-" : "") + whole + "." + decimals;
        const int shift = random() % 2 ? 3 : 0;
        const double expected = std::strtod((text + "e" + std::to_string(shift)).c_str(), nullptr);
        ASSERT_EQ(DoubleBits(Number(text, shift)), DoubleBits(expected)) << text << " shift " << shift;
    }
}

TEST(ParseNumber, MatchesReferenceAroundTheShortWay)
{
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t mantissa = (std::uint64_t{1} << 53) - 500 + random() % 1000;
        std::string text = std::to_string(mantissa) + std::string(random() % 9, '0');
        text.insert(random() % (text.size() + 1), ".");
        const double expected = std::strtod((text + "e3").c_str(), nullptr);
        ASSERT_EQ(DoubleBits(Number(text, 3)), DoubleBits(expected)) << text;
    }
    for (int decimals = 15; decimals < 30; ++decimals) {
        const std::string text = "0." + std::string(static_cast<std::size_t>(decimals), '0') + "123456789";
        ASSERT_EQ(Number(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

TEST(ParseNumber, RoundsTiesToEven)
{
    EXPECT_EQ(Number("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(Number("9007199254740995"), 9007199254740996.0);
    EXPECT_EQ(Number("9007199254740.993", 3), 9007199254740992.0);
    EXPECT_EQ(Number("9007199254740993.0000000000000000000000"), 9007199254740992.0);
}

TEST(ParseNumber, OneDigitFarBehindBreaksATie)
{
    const std::string zeros(5000, '0');
    EXPECT_EQ(Number("9007199254740993." + zeros), 9007199254740992.0);
    EXPECT_EQ(Number("9007199254740993." + zeros + "1"), 9007199254740994.0);
    EXPECT_EQ(Number("9007199254740992." + std::string(5000, '9')), 9007199254740992.0);
}

TEST(ParseNumber, HalfwayBetweenSmallestDoubles)
{
    // 2^-1075, the tie between zero and the smallest double, has 752 significant digits.
    // No double has its value, so its digits are those of 5^1075, behind 1075 decimal places.
    std::string digits = "1";
    int decimals = 0;
    for (int i = 0; i < 1075; ++i) {
        int carry = 0;
        for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
            const int product = (*digit - '0') * 5 + carry;
            *digit = static_cast<char>('0' + product % 10);
            carry = product / 10;
        }
        if (carry != 0) {
            digits.insert(digits.begin(), static_cast<char>('0' + carry));
        }
        ++decimals;
    }
    const std::string text =
        "0." + std::string(static_cast<std::size_t>(decimals) - digits.size(), '0') + digits;
    EXPECT_EQ(Number(text), 0.0);
    EXPECT_EQ(Number(text + "0000000000000000000001"), std::numeric_limits<double>::denorm_min());
}

TEST(ParseNumber, BeyondTheRangeIsTheLargestFinite)
{
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(Number("1" + std::string(400, '0')), largest);
    EXPECT_EQ(Number("-1" + std::string(400, '0')), -largest);
    EXPECT_EQ(Number("1" + std::string(307, '0'), 3), largest);
    EXPECT_EQ(Number("0." + std::string(2000, '0') + "1"), 0.0);
    EXPECT_EQ(Number("0." + std::string(400000, '0') + "1"), 0.0);
    EXPECT_EQ(DoubleBits(Number("-0." + std::string(400, '0') + "1")), DoubleBits(-0.0));
}

TEST(ParseNumber, ManyZerosOnBothSidesDoNotMatter)
{
    EXPECT_EQ(Number(std::string(100000, '0') + "12.5" + std::string(100000, '0'), 3), 12500.0);
}

TEST(ParseFloat, RoundsOnceAndNotByWayOfDouble)
{
    // Just above the tie between two floats, but its nearest double is the tie itself.
    const char* text = "1.00000005960464477540";
    float value = 0;
    ASSERT_TRUE(OrvPdf::ParseFloat(text, value));
    EXPECT_EQ(value, std::nextafter(1.0F, 2.0F));
    EXPECT_EQ(static_cast<float>(Number(text)), 1.0F);
}

TEST(ParseFloat, MatchesReference)
{
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (int i = 0; i < 20000; ++i) {
        const std::string text =
            RandomDigits(random, random() % 12) + "." + RandomDigits(random, 1 + random() % 25);
        float value = 0;
        ASSERT_TRUE(OrvPdf::ParseFloat(text, value));
        ASSERT_EQ(BitsOf<std::uint32_t>(value), BitsOf<std::uint32_t>(std::strtof(text.c_str(), nullptr)))
            << text;
    }
}

TEST(ParseFloat, BeyondTheRangeIsTheLargestFinite)
{
    float value = 0;
    ASSERT_TRUE(OrvPdf::ParseFloat("-1" + std::string(50, '0'), value));
    EXPECT_EQ(value, -std::numeric_limits<float>::max());
}

TEST(ParseFloat, RefusesExponents)
{
    float value = 7;
    EXPECT_FALSE(OrvPdf::ParseFloat("1e5", value));
    EXPECT_EQ(value, 7);
}

TEST(AppendNumber, WritesTheShortestText)
{
    EXPECT_EQ(Text(0.0), "0");
    EXPECT_EQ(Text(-0.0), "-0");
    EXPECT_EQ(Text(12.0), "12");
    EXPECT_EQ(Text(-12.5), "-12.5");
    EXPECT_EQ(Text(0.1), "0.1");
    EXPECT_EQ(Text(1e17), "1" + std::string(17, '0'));
    EXPECT_EQ(Text(1e22), "1" + std::string(22, '0') + ".0");
    EXPECT_EQ(Text(1e-10), "0.0000000001");
    EXPECT_EQ(Text(1.0 / 3), "0.3333333333333333");
    EXPECT_EQ(Text(5e-324), "0." + std::string(323, '0') + "5");
}

TEST(AppendNumber, ShiftMovesThePointBack)
{
    EXPECT_EQ(Text(12345.0, 3), "12.345");
    EXPECT_EQ(Text(1000.0, 3), "1");
    EXPECT_EQ(Text(612000.0, 3), "612");
    EXPECT_EQ(Text(1000000.0, 3), "1000");
    EXPECT_EQ(Text(1200.0, 3), "1.2");
    EXPECT_EQ(Text(100.0, 3), "0.1");
    EXPECT_EQ(Text(7.0, 3), "0.007");
    EXPECT_EQ(Text(-7.25, 3), "-0.00725");
    EXPECT_EQ(Text(-0.0, 3), "-0");
    EXPECT_EQ(Text(9007199254740991.0, 3), "9007199254740.991");
    EXPECT_EQ(Text(9007199254740992.0, 3), "9007199254740.992");
    EXPECT_EQ(Text(12.0, -2), "1200");
}

TEST(AppendNumber, AppendsBehindWhatIsThere)
{
    std::string out = "1 ";
    OrvPdf::AppendNumber(out, 2.5, 0);
    EXPECT_EQ(out, "1 2.5");
}

TEST(AppendNumber, RefusesInfinityAndNotANumber)
{
    std::string out = "x";
    EXPECT_THROW(OrvPdf::AppendNumber(out, std::numeric_limits<double>::infinity(), 0),
                 std::invalid_argument);
    EXPECT_THROW(OrvPdf::AppendNumber(out, -std::numeric_limits<double>::infinity(), 3),
                 std::invalid_argument);
    EXPECT_THROW(OrvPdf::AppendNumber(out, std::numeric_limits<double>::quiet_NaN(), 3),
                 std::invalid_argument);
    EXPECT_THROW(OrvPdf::AppendFloat(out, std::numeric_limits<float>::quiet_NaN()), std::invalid_argument);
    EXPECT_EQ(out, "x");
}

void ExpectBack(double value, int shift)
{
    const std::string text = Text(value, shift);
    ASSERT_EQ(DoubleBits(Number(text, shift)), DoubleBits(value)) << text << " shift " << shift;
    ASSERT_EQ(text.find_first_not_of("0123456789.-"), std::string::npos) << text;
    ASSERT_NE(text.back(), '.') << text;
    ASSERT_LT(text.size(), 350U) << text;
}

TEST(AppendNumber, EveryBitPatternComesBack)
{
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (int i = 0; i < 100000; ++i) {
        const double value = DoubleOf(random());
        if (!std::isfinite(value)) {
            continue;
        }
        ExpectBack(value, 0);
        ExpectBack(value, 3);
    }
}

TEST(AppendNumber, CoordinatesComeBack)
{
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (int i = 0; i < 100000; ++i) {
        const double whole = static_cast<double>(static_cast<std::int64_t>(random() % 20000000) - 10000000);
        ExpectBack(whole, 3);
        ExpectBack(whole / 1000, 3);
        ExpectBack(whole / 7, 3);
        ExpectBack(std::nextafter(whole, 1e9), 3);
    }
}

TEST(AppendNumber, BoundsOfTheRangeComeBack)
{
    using Limits = std::numeric_limits<double>;
    for (const double value : {Limits::max(), Limits::lowest(), Limits::min(), Limits::denorm_min(), -0.0,
                               std::nextafter(Limits::min(), 0.0), 9007199254740991.0, 9007199254740992.0,
                               9007199254740994.0, 4503599627370495.5}) {
        ExpectBack(value, 0);
        ExpectBack(value, 3);
    }
}

TEST(AppendNumber, NoTextWithADigitLessReadsBackTheSame)
{
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (int i = 0; i < 20000; ++i) {
        // Whole ones, ones with few decimals, and ones with parts of all sizes.
        const double whole = static_cast<double>(random() % 1000000000);
        const double values[] = {
            whole, whole / 1000, whole / 1000000, whole * 1000 / 999983,
            std::ldexp(static_cast<double>(random() >> 11), -static_cast<int>(random() % 53))};
        const double value = values[i % 5];
        if (value == 0) {
            continue;
        }
        std::string digits = Text(value, 3);
        digits.erase(std::remove(digits.begin(), digits.end(), '.'), digits.end());
        const std::size_t first = digits.find_first_not_of('0');
        const std::size_t last = digits.find_last_not_of('0');
        const int count = static_cast<int>(last - first + 1);
        if (count < 2) {
            continue;
        }
        char shorter[64];
        std::snprintf(shorter, sizeof shorter, "%.*e", count - 2, value);
        ASSERT_NE(std::strtod(shorter, nullptr), value) << shorter << " for " << digits;
    }
}

TEST(AppendFloat, WritesTheFewestDigitsOfAFloat)
{
    EXPECT_EQ(FloatText(0.1F), "0.1");
    EXPECT_EQ(FloatText(-0.0F), "-0");
    EXPECT_EQ(FloatText(16777216.0F), "16777216");
    EXPECT_EQ(FloatText(1.0F / 3), "0.33333334");
}

TEST(AppendFloat, EveryBitPatternComesBack)
{
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (int i = 0; i < 100000; ++i) {
        const std::uint32_t bits = static_cast<std::uint32_t>(random());
        float value;
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value)) {
            continue;
        }
        const std::string text = FloatText(value);
        float back = 0;
        ASSERT_TRUE(OrvPdf::ParseFloat(text, back)) << text;
        ASSERT_EQ(BitsOf<std::uint32_t>(back), bits) << text;
    }
}

} // namespace
