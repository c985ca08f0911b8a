#include <orv_sys/pdf_object.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace OrvSys
{
namespace
{

PdfObject Nest(std::size_t levels)
{
    PdfObject object = PdfObject::Integer(1);
    for (std::size_t level = 0; level < levels; ++level)
        object = PdfObject::Array({object});
    return object;
}

TEST(PdfObjectTest, IsNullWhenDefaultMade)
{
    EXPECT_TRUE(PdfObject().IsNull());
    EXPECT_EQ(PdfObject().Serialize(), "null");
}

TEST(PdfObjectTest, RealKeepsItsText)
{
    const PdfObject real = PdfObject::Real(std::string("-.50"));
    EXPECT_EQ(real.GetText(), "-.50");
    EXPECT_EQ(real.GetNumber(), -0.5);
    EXPECT_EQ(real.Serialize(), "-.50");
}

TEST(PdfObjectTest, RealOfADoubleIsTheShortestDecimalWithoutAnExponent)
{
    EXPECT_EQ(PdfObject::Real(0.1).GetText(), "0.1");
    EXPECT_EQ(PdfObject::Real(1e-7).GetText(), "0.0000001");
    EXPECT_EQ(PdfObject::Real(1e22).GetText(), "10000000000000000000000");
    EXPECT_EQ(PdfObject::Real(std::numeric_limits<double>::denorm_min()).GetNumber(),
              std::numeric_limits<double>::denorm_min());
}

TEST(PdfObjectTest, RealRefusesWhatIsNoDecimal)
{
    for (const char* text : {"", ".", "-", "1e5", "1.2.3", "--1", "nan", " 1", "1-"})
        EXPECT_THROW(PdfObject::Real(std::string(text)), std::invalid_argument) << text;
}

TEST(PdfObjectTest, RealRefusesWhatIsNotFinite)
{
    EXPECT_THROW(PdfObject::Real(std::numeric_limits<double>::infinity()), std::invalid_argument);
    EXPECT_THROW(PdfObject::Real(std::numeric_limits<double>::quiet_NaN()), std::invalid_argument);
}

TEST(PdfObjectTest, RealBeyondTheRangeOfDoubleIsTheLargestFiniteOne)
{
    EXPECT_EQ(PdfObject::Real("-1" + std::string(400, '0') + ".0").GetNumber(),
              std::numeric_limits<double>::lowest());
    EXPECT_EQ(PdfObject::Real("0." + std::string(400, '0') + "1").GetNumber(), 0.0);
}

TEST(PdfObjectTest, NumbersOfOneValueAreEqualWhateverTheirText)
{
    const PdfObject one = PdfObject::Integer(1);
    for (const char* text : {"1", "1.0", "+1.", "001.00"}) {
        EXPECT_EQ(PdfObject::Real(std::string(text)), one) << text;
        EXPECT_EQ(PdfObject::Real(std::string(text)).GetDigest(), one.GetDigest()) << text;
    }
    EXPECT_EQ(PdfObject::Real(std::string("-0.0")), PdfObject::Integer(0));
    EXPECT_NE(PdfObject::Real(std::string("1.5")), one);
    EXPECT_NE(PdfObject::Real(std::string("100")), one);
}

TEST(PdfObjectTest, KindsOfTheSameTextDiffer)
{
    EXPECT_NE(PdfObject::Name("A"), PdfObject::String("A"));
    EXPECT_NE(PdfObject::Boolean(true), PdfObject::Integer(1));
    EXPECT_NE(PdfObject(), PdfObject::Boolean(false));
    EXPECT_NE(PdfObject::Array({}), PdfObject::Dictionary({}));
}

TEST(PdfObjectTest, EqualityGoesToTheBottom)
{
    const auto make = [](const char* text) {
        return PdfObject::Array({PdfObject::Dictionary({{"K", PdfObject::String(text)}})});
    };
    EXPECT_EQ(make("a"), make("a"));
    EXPECT_NE(make("a"), make("b"));
}

TEST(PdfObjectTest, ItemsInAnotherOrderDiffer)
{
    const PdfObject one = PdfObject::Integer(1);
    const PdfObject two = PdfObject::Integer(2);
    EXPECT_NE(PdfObject::Array({one, two}), PdfObject::Array({two, one}));
}

TEST(PdfObjectTest, DigestIsTheSameInEveryRun)
{
    // FNV-1a of "z" and of "NRed", as another implementation computes it.
    EXPECT_EQ(PdfObject().GetDigestText(), "af63f74c86021a6d");
    EXPECT_EQ(PdfObject::Name("Red").GetDigestText(), "695d94c5b2ee13f0");
}

TEST(PdfObjectTest, NullEntriesAreLeftOut)
{
    const PdfObject dictionary = PdfObject::Dictionary({{"A", PdfObject()}, {"B", PdfObject::Integer(1)}});
    EXPECT_EQ(dictionary.GetEntries().size(), 1u);
    EXPECT_EQ(dictionary, PdfObject::Dictionary({{"B", PdfObject::Integer(1)}}));
}

TEST(PdfObjectTest, FindGivesNullForAMissingKeyAndForOtherKinds)
{
    const PdfObject dictionary = PdfObject::Dictionary({{"B", PdfObject::Integer(1)}});
    EXPECT_EQ(dictionary.Find("B"), PdfObject::Integer(1));
    EXPECT_TRUE(dictionary.Find("C").IsNull());
    EXPECT_TRUE(PdfObject().Find("B").IsNull());
    EXPECT_TRUE(PdfObject::Name("B").Find("B").IsNull());
}

TEST(PdfObjectTest, StreamHasItsDictionaryWithoutLength)
{
    const PdfObject stream = PdfObject::Stream(
        PdfObject::Dictionary({{"Length", PdfObject::Integer(7)}, {"N", PdfObject::Integer(3)}}), "abc");
    EXPECT_EQ(stream.GetDictionary(), PdfObject::Dictionary({{"N", PdfObject::Integer(3)}}));
    EXPECT_EQ(stream.Find("N"), PdfObject::Integer(3));
    EXPECT_EQ(stream.GetRawBytes(), "abc");
    EXPECT_EQ(stream.Serialize(), "<</Length 3 /N 3>>\nstream\nabc\nendstream");
}

TEST(PdfObjectTest, StreamsDifferByTheirBytes)
{
    const PdfObject dictionary = PdfObject::Dictionary({});
    EXPECT_EQ(PdfObject::Stream(dictionary, "a"), PdfObject::Stream(dictionary, "a"));
    EXPECT_NE(PdfObject::Stream(dictionary, "a"), PdfObject::Stream(dictionary, "b"));
    EXPECT_NE(PdfObject::Stream(dictionary, ""), dictionary);
}

TEST(PdfObjectTest, StreamOfAnotherKindIsRefused)
{
    EXPECT_THROW(PdfObject::Stream(PdfObject::Array({}), ""), std::invalid_argument);
}

TEST(PdfObjectTest, ContainsStreamLooksBelow)
{
    const PdfObject stream = PdfObject::Stream(PdfObject::Dictionary({}), "");
    EXPECT_TRUE(PdfObject::Array({PdfObject::Dictionary({{"F", stream}})}).ContainsStream());
    EXPECT_FALSE(Nest(3).ContainsStream());
    EXPECT_FALSE(PdfObject().ContainsStream());
}

TEST(PdfObjectTest, NamesAreWrittenWithEscapes)
{
    EXPECT_EQ(PdfObject::Name("A#b c/(\xC3\xA4").Serialize(), "/A#23b#20c#2F#28#C3#A4");
    EXPECT_EQ(PdfObject::Name("").Serialize(), "/");
}

TEST(PdfObjectTest, PrintableStringsAreWrittenAsLiterals)
{
    EXPECT_EQ(PdfObject::String("a (b) \\").Serialize(), "(a \\(b\\) \\\\)");
    EXPECT_EQ(PdfObject::String("line one\rtwo").Serialize(), "(line one\\015two)");
    EXPECT_EQ(PdfObject::String("").Serialize(), "()");
}

TEST(PdfObjectTest, BinaryStringsAreWrittenInHexadecimal)
{
    EXPECT_EQ(PdfObject::String(std::string("\x00\xFF\x80", 3)).Serialize(), "<00FF80>");
}

TEST(PdfObjectTest, CompoundsAreWrittenInTheOrderOfTheirKeys)
{
    const PdfObject object = PdfObject::Dictionary(
        {{"Z", PdfObject::Array({PdfObject::Integer(-1), PdfObject(), PdfObject::Boolean(true)})},
         {"A", PdfObject::Dictionary({})}});
    EXPECT_EQ(object.Serialize(), "<</A <<>> /Z [-1 null true]>>");
}

TEST(PdfObjectTest, AHundredLevelsAreAllowedAndOneMoreIsNot)
{
    EXPECT_EQ(Nest(PdfObject::MaxDepth), Nest(PdfObject::MaxDepth));
    EXPECT_THROW(Nest(PdfObject::MaxDepth + 1), std::length_error);
}

TEST(PdfObjectTest, DictionariesAndStreamsCountAsLevels)
{
    const PdfObject deep = Nest(PdfObject::MaxDepth);
    EXPECT_THROW(PdfObject::Dictionary({{"A", deep}}), std::length_error);
    EXPECT_NO_THROW(PdfObject::Stream(PdfObject::Dictionary({{"A", Nest(PdfObject::MaxDepth - 1)}}), ""));
}

TEST(PdfObjectTest, SharedPartsCountEachTimeSoThatNoWalkExplodes)
{
    PdfObject object = PdfObject::Integer(1);
    EXPECT_THROW(
        {
            for (int level = 0; level < 60; ++level)
                object = PdfObject::Array({object, object});
        },
        std::length_error);
    // Two to the power of n leaves and as many arrays, less one, stay below four million for n of 20.
    EXPECT_EQ(object.GetItems().size(), 2u);
}

TEST(PdfObjectTest, ReadingAsAnotherKindIsALogicError)
{
    EXPECT_THROW(PdfObject::Name("A").GetInteger(), std::logic_error);
    EXPECT_THROW(PdfObject::Integer(1).GetText(), std::logic_error);
    EXPECT_THROW(PdfObject().GetItems(), std::logic_error);
    EXPECT_THROW(PdfObject::Array({}).GetEntries(), std::logic_error);
    EXPECT_THROW(PdfObject::Boolean(true).GetNumber(), std::logic_error);
    EXPECT_THROW(PdfObject::Integer(1).GetBoolean(), std::logic_error);
    EXPECT_THROW(PdfObject::Dictionary({}).GetRawBytes(), std::logic_error);
}

} // namespace
} // namespace OrvSys
