// The programs that the README shows are those that are built and run here, so that they cannot go stale.

#include "example_runs.h"
#include "support/file_bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::HasSubstr;

std::string SourceFile(const std::string& name)
{
    return std::string(HARROW_SOURCE_FOLDER) + "/" + name;
}

TEST(Readme, ShowsTheFirstRoundTripAsItIs)
{
    EXPECT_THAT(FileBytes(SourceFile("README.md")),
                HasSubstr("```cpp\n" + FileBytes(SourceFile("examples/first_round_trip.cpp")) + "```\n"));
}

TEST(Readme, ShowsAFirstRoundTripThatFindsNothing)
{
    const ProcessResult result = RunExample("first_round_trip", {});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "0 differences\n");
    EXPECT_EQ(result.errors, "");
}

} // namespace
} // namespace HarrowSupport::Testing
