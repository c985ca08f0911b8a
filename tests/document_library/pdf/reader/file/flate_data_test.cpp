#include "pdf/reader/file/flate_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/deflated.h"

namespace
{

using HarrowSupport::Testing::Deflated;
using OrvPdf::DecodingResult;
using OrvPdf::Inflate;
using testing::HasSubstr;

/// Text that does not shrink to nothing.
std::string Varied(std::size_t size)
{
    std::string text;
    unsigned state = 1;
    while (text.size() < size) {
        state = state * 1664525u + 1013904223u;
        text += static_cast<char>('a' + (state >> 28));
    }
    return text;
}

TEST(Inflate, GivesBackWhatWasDeflated)
{
    const std::string plain = Varied(100000);
    const DecodingResult result = Inflate(Deflated(plain), 1000000);
    EXPECT_EQ(result.bytes.View(), plain);
    EXPECT_EQ(result.problem, "");
    EXPECT_FALSE(result.reachedLimit);
}

TEST(Inflate, GivesBackWhatIsAThousandTimesAsLong)
{
    const std::string plain(5000000, 'x');
    EXPECT_EQ(Inflate(Deflated(plain), 10000000).bytes.View(), plain);
}

TEST(Inflate, GivesAllThatLiesExactlyWithinTheLimit)
{
    const std::string plain = Varied(5000);
    const DecodingResult result = Inflate(Deflated(plain), 5000);
    EXPECT_EQ(result.bytes.View(), plain);
    EXPECT_FALSE(result.reachedLimit);
}

TEST(Inflate, IsCutOffAtTheLimit)
{
    const std::string plain = Varied(5000);
    const DecodingResult result = Inflate(Deflated(plain), 4999);
    EXPECT_EQ(result.bytes.View(), plain.substr(0, 4999));
    EXPECT_TRUE(result.reachedLimit);
}

TEST(Inflate, TakesNoMoreMemoryThanTheLimit)
{
    const DecodingResult result = Inflate(Deflated(std::string(5000000, 'x')), 20000);
    EXPECT_EQ(result.bytes.GetSize(), 20000u);
    EXPECT_EQ(result.bytes.GetCapacity(), 20000u);
}

TEST(Inflate, GivesWhatCanBeReadOfDataThatEndsEarly)
{
    const std::string plain = Varied(100000);
    const std::string encoded = Deflated(plain);
    const DecodingResult result = Inflate(encoded.substr(0, encoded.size() / 2), 1000000);
    EXPECT_GT(result.bytes.GetSize(), 30000u);
    EXPECT_EQ(result.bytes.View(), plain.substr(0, result.bytes.GetSize()));
    EXPECT_THAT(result.problem, HasSubstr("ends early"));
}

TEST(Inflate, GivesWhatStandsBeforeADamage)
{
    const std::string plain = Varied(400000);
    std::string encoded = Deflated(plain);
    for (std::size_t place = encoded.size() / 2; place < encoded.size() / 2 + 1000; ++place)
        encoded[place] = '\xff';
    const DecodingResult result = Inflate(encoded, 1000000);
    EXPECT_GT(result.bytes.GetSize(), 100000u);
    EXPECT_EQ(result.bytes.View().substr(0, 100000), plain.substr(0, 100000));
    EXPECT_THAT(result.problem, HasSubstr("damaged"));
}

TEST(Inflate, TellsAWrongChecksumAndGivesAllBytes)
{
    std::string encoded = Deflated("some text");
    encoded.back() = static_cast<char>(encoded.back() ^ 1);
    const DecodingResult result = Inflate(encoded, 1000);
    EXPECT_EQ(result.bytes.View(), "some text");
    EXPECT_THAT(result.problem, HasSubstr("incorrect data check"));
}

TEST(Inflate, DoesNotLookAtWhatFollows)
{
    const DecodingResult result = Inflate(Deflated("some text") + "\r\nmore", 1000);
    EXPECT_EQ(result.bytes.View(), "some text");
    EXPECT_EQ(result.problem, "");
}

TEST(Inflate, TellsThatThereIsNoData)
{
    EXPECT_THAT(Inflate("", 1000).problem, HasSubstr("empty"));
}

TEST(Inflate, TellsThatDataIsOfAnotherKind)
{
    const DecodingResult result = Inflate("0 0 m 10 10 l S", 1000);
    EXPECT_EQ(result.bytes.View(), "");
    EXPECT_THAT(result.problem, HasSubstr("damaged"));
}

} // namespace
