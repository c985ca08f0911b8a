#include "orv_sys/stream_bytes.h"

#include <gtest/gtest.h>

#include <vector>

#include <boost/optional/optional_io.hpp>

#include "support/deflated.h"

namespace OrvSys::Detail
{
namespace
{

using HarrowSupport::Testing::Deflated;

PdfObject MakeStream(PdfObject::Entries entries, std::string bytes)
{
    return PdfObject::Stream(PdfObject::Dictionary(std::move(entries)), std::move(bytes));
}

const PdfObject Flate = PdfObject::Name("FlateDecode");

TEST(DecodeSmallStreamTest, GivesUnfilteredBytesAsTheyAre)
{
    EXPECT_EQ(DecodeSmallStream(MakeStream({}, "abc")), std::string("abc"));
    EXPECT_EQ(DecodeSmallStream(MakeStream({{"Filter", PdfObject::Array({})}}, "abc")), std::string("abc"));
}

TEST(DecodeSmallStreamTest, Inflates)
{
    const std::string bytes(100'000, 'x');
    EXPECT_EQ(DecodeSmallStream(MakeStream({{"Filter", Flate}}, Deflated(bytes))), bytes);
    EXPECT_EQ(DecodeSmallStream(MakeStream({{"Filter", PdfObject::Array({Flate})}}, Deflated(bytes))), bytes);
}

TEST(DecodeSmallStreamTest, RefusesPredictorsAndOtherFilters)
{
    const PdfObject parameters = PdfObject::Dictionary({{"Predictor", PdfObject::Integer(12)}});
    EXPECT_FALSE(
        DecodeSmallStream(MakeStream({{"Filter", Flate}, {"DecodeParms", parameters}}, Deflated("a"))));
    EXPECT_FALSE(DecodeSmallStream(MakeStream({{"Filter", PdfObject::Name("LZWDecode")}}, "a")));
    EXPECT_FALSE(
        DecodeSmallStream(MakeStream({{"Filter", PdfObject::Array({Flate, Flate})}}, Deflated("a"))));
}

TEST(DecodeSmallStreamTest, RefusesDamagedBytes)
{
    std::string bytes = Deflated(std::string(1000, 'x') + "some other text");
    bytes.resize(bytes.size() / 2);
    EXPECT_FALSE(DecodeSmallStream(MakeStream({{"Filter", Flate}}, bytes)));
    EXPECT_FALSE(DecodeSmallStream(MakeStream({{"Filter", Flate}}, "no such thing")));
}

TEST(DecodeSmallStreamTest, RefusesMoreBytesThanAsked)
{
    const PdfObject packed = MakeStream({{"Filter", Flate}}, Deflated(std::string(1000, 'x')));
    EXPECT_TRUE(DecodeSmallStream(packed, 1000));
    EXPECT_FALSE(DecodeSmallStream(packed, 999));
    EXPECT_TRUE(DecodeSmallStream(MakeStream({}, "abc"), 3));
    EXPECT_FALSE(DecodeSmallStream(MakeStream({}, "abc"), 2));
}

TEST(DecodeSmallStreamTest, RefusesWhatIsNoStream)
{
    EXPECT_FALSE(DecodeSmallStream(PdfObject::String("abc")));
}

} // namespace
} // namespace OrvSys::Detail
