#include "pdf/reader/file/length_mending.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

using OrvPdf::MendLengths;
using OrvPdf::ObjectPlace;

/// With fewer streams of a wrong length, none is mended.
constexpr int manyObjects = 8000;

/// Objects, numbered from one, and behind them many streams.
class ManyStreams
{
public:
    ManyStreams(const std::vector<std::string>& objects, const std::string& length)
    {
        for (const std::string& object : objects) {
            Add(object);
        }
        while (places.size() < manyObjects) {
            Add("<< /Length " + length + " >>\nstream\nabc\nendstream");
        }
    }

    std::size_t Mend() { return MendLengths(places, bytes.data(), bytes.size()); }

    std::string Object(std::size_t index) const
    {
        return bytes.substr(places[index].begin, places[index].end - places[index].begin);
    }

    std::string Last() const { return Object(places.size() - 1); }

private:
    void Add(const std::string& object)
    {
        const auto number = static_cast<int>(places.size() + 1);
        const std::size_t begin = bytes.size();
        bytes.append(std::to_string(number)).append(" 0 obj\n").append(object).append("\nendobj\n");
        places.push_back({QPDFObjGen(number, 0), begin, bytes.size()});
    }

    std::string bytes;
    std::vector<ObjectPlace> places;
};

std::string ObjectOne(const std::string& text)
{
    return "1 0 obj\n" + text + "\nendobj\n";
}

/// What becomes of an object among many that have to be mended.
std::string Mended(const std::string& object, const std::string& second = "null")
{
    ManyStreams streams({object, second}, "77");
    EXPECT_GE(streams.Mend(), manyObjects - 2);
    return streams.Object(0);
}

void ExpectUnchanged(const std::string& object, const std::string& second = "null")
{
    EXPECT_EQ(Mended(object, second), ObjectOne(object));
}

TEST(LengthMending, WritesTheRightLengthIntoTheRoomOfTheWrongOne)
{
    ManyStreams streams({}, "77");
    EXPECT_EQ(streams.Mend(), manyObjects);
    EXPECT_EQ(streams.Last(), "8000 0 obj\n<< /Length 3  >>\nstream\nabc\nendstream\nendobj\n");
}

TEST(LengthMending, LeavesAFewWrongLengthsToThePdfLibrary)
{
    ManyStreams streams({"<< /Length 77 >>\nstream\nabc\nendstream"}, "3");
    EXPECT_EQ(streams.Mend(), 0u);
    EXPECT_EQ(streams.Object(0), ObjectOne("<< /Length 77 >>\nstream\nabc\nendstream"));
}

TEST(LengthMending, KeepsLengthsThatAreRight)
{
    ExpectUnchanged("<< /Length 3 >>\nstream\nabc\nendstream");
    ExpectUnchanged("<< /Length 3 >>\nstream\r\nabcendstream");
    // The keyword is part of the data.
    ExpectUnchanged("<< /Length 15 >>\nstream\nabc endstream d\nendstream");
}

TEST(LengthMending, FollowsReferencesToNumbers)
{
    ExpectUnchanged("<< /Length 2 0 R >>\nstream\nabc\nendstream", "3");
    EXPECT_EQ(Mended("<< /Length 2 0 R >>\nstream\nabc\nendstream", "77"),
              ObjectOne("<< /Length 3     >>\nstream\nabc\nendstream"));
}

TEST(LengthMending, ReplacesReferencesToWhatIsNoNumber)
{
    EXPECT_EQ(
        Mended("<< /Length 2 0 R >>\nstream\nabc\nendstream", "<< /Length 3 >>\nstream\nabc\nendstream"),
        ObjectOne("<< /Length 3     >>\nstream\nabc\nendstream"));
}

TEST(LengthMending, KeepsReferencesToWhatMayBeInAnObjectStream)
{
    ExpectUnchanged("<< /Length 99999 0 R >>\nstream\nabc\nendstream");
}

TEST(LengthMending, KeepsLengthsWithoutRoomForTheRightOne)
{
    ExpectUnchanged("<< /Length 1>>\nstream\n0123456789\nendstream");
}

TEST(LengthMending, LeavesTheEndOfTheLineBeforeTheKeywordOut)
{
    EXPECT_EQ(Mended("<< /Length 77/A/B >>\nstream\nab\r\nendstream"),
              ObjectOne("<< /Length 2 /A/B >>\nstream\nab\r\nendstream"));
    EXPECT_EQ(Mended("<< /Length 77>>\nstream\nab\n\nendstream"),
              ObjectOne("<< /Length 3 >>\nstream\nab\n\nendstream"));
}

TEST(LengthMending, TakesDataWithoutKeywordUpToTheEndOfTheObject)
{
    EXPECT_EQ(Mended("<< /Length 77>>\nstream\nabcd"), ObjectOne("<< /Length 4 >>\nstream\nabcd"));
}

TEST(LengthMending, KeepsWhatHasNoLengthOrSeveral)
{
    ExpectUnchanged("<< >>\nstream\nabc\nendstream");
    ExpectUnchanged("<< /Length1 77 >>\nstream\nabc\nendstream");
    ExpectUnchanged("<< /Length 77 /Length 78 >>\nstream\nabc\nendstream");
    ExpectUnchanged("<< /Length 77 >>");
    ExpectUnchanged("(a stream) /Length 77");
}

} // namespace
