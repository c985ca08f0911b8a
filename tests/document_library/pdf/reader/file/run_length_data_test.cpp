#include "pdf/reader/file/run_length_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace
{

using testing::HasSubstr;

struct Decoded
{
    explicit Decoded(const std::string& encoded, std::uint64_t limit = 1000)
    {
        const OrvPdf::DecodingResult result = OrvPdf::DecodeRunLengths(encoded, limit);
        bytes = result.bytes.View();
        problem = result.problem;
        reachedLimit = result.reachedLimit;
    }

    std::string bytes;
    std::string problem;
    bool reachedLimit;
};

TEST(RunLengthData, IsCopiedAndRepeated)
{
    EXPECT_EQ(Decoded("\x02"
                      "abc\xfdx\x80")
                  .bytes,
              "abcxxxx");
}

TEST(RunLengthData, HasRunsOfTwoUpToAHundredAndTwentyEight)
{
    EXPECT_EQ(Decoded("\xffx").bytes, "xx");
    EXPECT_EQ(Decoded("\x81x").bytes, std::string(128, 'x'));
}

TEST(RunLengthData, EndsAtItsMarkWhateverFollows)
{
    const Decoded decoded(std::string("\x00"
                                      "a\x80\n",
                                      4));
    EXPECT_EQ(decoded.bytes, "a");
    EXPECT_EQ(decoded.problem, "");
}

TEST(RunLengthData, NeedsNoMark)
{
    const Decoded decoded("\xfdx");
    EXPECT_EQ(decoded.bytes, "xxxx");
    EXPECT_EQ(decoded.problem, "");
}

TEST(RunLengthData, TellsWhereItEndsEarly)
{
    const Decoded copied("\x05"
                         "abc");
    EXPECT_EQ(copied.bytes, "abc");
    EXPECT_THAT(copied.problem, HasSubstr("ends early"));
    const Decoded repeated("\xfd");
    EXPECT_EQ(repeated.bytes, "");
    EXPECT_THAT(repeated.problem, HasSubstr("ends early"));
}

TEST(RunLengthData, IsCutOffAtTheLimit)
{
    const Decoded beyond("\xfdx", 3);
    EXPECT_EQ(beyond.bytes, "xxx");
    EXPECT_TRUE(beyond.reachedLimit);
    const Decoded within("\xfdx\x80", 4);
    EXPECT_EQ(within.bytes, "xxxx");
    EXPECT_FALSE(within.reachedLimit);
}

} // namespace
