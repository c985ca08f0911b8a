#include <orv_sys/error.h>

#include <memory>
#include <sstream>
#include <type_traits>

#include <gtest/gtest.h>

namespace
{

using OrvSys::Core::Error;

TEST(ErrorTest, KeepsItsText)
{
    EXPECT_EQ(Error("page 3: no font").GetText(), "page 3: no font");
}

TEST(ErrorTest, JoinsWhereWhatAndWhyWithColons)
{
    EXPECT_EQ(Error("picture left out", "page 3", "unknown colour space").GetText(),
              "page 3: picture left out: unknown colour space");
}

TEST(ErrorTest, LeavesOutAnEmptyPartTogetherWithItsColon)
{
    EXPECT_EQ(Error("picture left out", "", "unknown colour space").GetText(),
              "picture left out: unknown colour space");
    EXPECT_EQ(Error("picture left out", "page 3", "").GetText(), "page 3: picture left out");
    EXPECT_EQ(Error("", "", "").GetText(), "");
}

TEST(ErrorTest, CannotBeCopiedSinceItsAddressTellsItApart)
{
    EXPECT_FALSE(std::is_copy_constructible<Error>::value);
    EXPECT_FALSE(std::is_copy_assignable<Error>::value);
    EXPECT_FALSE(std::is_move_constructible<Error>::value);
}

TEST(ErrorTest, StreamsItsText)
{
    std::ostringstream stream;
    stream << *std::make_shared<Error>("page 3: no font");
    EXPECT_EQ(stream.str(), "page 3: no font");
}

} // namespace
