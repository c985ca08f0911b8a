#include "orv_font/program_extent.h"

#include <gtest/gtest.h>

#include "support/font_bytes.h"

namespace HarrowSupport::Testing
{
namespace
{

using OrvFont::Detail::FindProgramExtent;

TEST(ProgramExtent, BeginsBehindWhiteSpace)
{
    EXPECT_EQ(FindProgramExtent("\r\n \t\f%!PS "), "%!PS ");
    EXPECT_EQ(FindProgramExtent("  \n"), "");
    EXPECT_EQ(FindProgramExtent(""), "");
}

TEST(ProgramExtent, IsAllOfAWholeOpenTypeProgram)
{
    const std::string file = JoinTables("OTTO", {{"CFF ", "program"}, {"head", "h"}});
    EXPECT_EQ(FindProgramExtent(file), file);
}

TEST(ProgramExtent, IsTheCompactProgramInAWrappingWithoutItsHead)
{
    EXPECT_EQ(FindProgramExtent(JoinTables("OTTO", {{"CFF ", "program"}, {"cmap", "map"}})), "program");
}

TEST(ProgramExtent, IsAllOfAWrappingThatHasNoCompactProgram)
{
    const std::string file = JoinTables("OTTO", {{"cmap", "map"}});
    EXPECT_EQ(FindProgramExtent(file), file);
    const std::string other = JoinTables("true", {{"CFF ", "program"}, {"cmap", "map"}});
    EXPECT_EQ(FindProgramExtent(other), other);
}

TEST(ProgramExtent, EndsWithTheBytesWhateverTheWrappingSays)
{
    const std::string file = JoinTables("OTTO", {{"CFF ", "program!"}});
    ASSERT_EQ(file.size(), 36u);
    EXPECT_EQ(FindProgramExtent(file.substr(0, 32)), "prog");
    // The program would begin at the end, and a table is counted that is not there.
    EXPECT_EQ(FindProgramExtent(file.substr(0, 28)), file.substr(0, 28));
    EXPECT_EQ(FindProgramExtent(file.substr(0, 27)), file.substr(0, 27));
    EXPECT_EQ(FindProgramExtent("OTTO"), "OTTO");
}

} // namespace
} // namespace HarrowSupport::Testing
