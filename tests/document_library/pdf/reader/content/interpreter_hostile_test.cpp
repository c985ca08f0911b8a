#include <cstdint>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

// What costs more than linear time or memory takes minutes or gigabytes on these streams.

namespace
{

using OrvPdf::Testing::Reading;
using OrvSys::PdfObject;
using testing::SizeIs;

std::string Repeat(const std::string& text, int count)
{
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

std::size_t CountObjects(const OrvDoc::Detail::List<OrvDoc::ContentObject>& objects)
{
    std::vector<const OrvDoc::Detail::List<OrvDoc::ContentObject>*> lists{&objects};
    std::size_t count = 0;
    while (!lists.empty()) {
        const auto* const list = lists.back();
        lists.pop_back();
        for (const OrvDoc::ContentObject* object = list->first; object; object = object->next) {
            ++count;
            if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object))
                lists.push_back(&group->children);
        }
    }
    return count;
}

TEST(InterpreterHostile, AMillionSavedStatesAreBounded)
{
    Reading reading;
    reading.Read(Repeat("q ", 1000000) + "0 0 m S");
    EXPECT_EQ(CountObjects(reading.content->GetChildren()), 1U);
    EXPECT_THAT(reading.result.errors, SizeIs(1));
}

TEST(InterpreterHostile, AHundredThousandMissingResourcesAreBounded)
{
    std::string stream;
    for (int i = 0; i < 100000; ++i)
        stream += "/n" + std::to_string(i) + " gs /n" + std::to_string(i) + " cs ";
    Reading reading;
    reading.Read(stream);
    EXPECT_THAT(reading.result.errors, SizeIs(reading.limits.errors + 1));
}

TEST(InterpreterHostile, DeepScopesThatEndCrosswiseTakeLinearTime)
{
    Reading reading;
    reading.Read(
        Repeat("q " + Repeat("/T BMC ", 4000) + Repeat("0 0 m W n ", 4000) + Repeat("EMC ", 4000) + "Q ", 3));
    EXPECT_EQ(CountObjects(reading.content->GetChildren()), 3U * (4000 + 2 * 4000));
}

TEST(InterpreterHostile, ScopesThatAreMadeAgainAndAgainAreBounded)
{
    Reading reading;
    // Each round ends the lowest of many scopes, so that the object behind it needs all the others anew.
    reading.Read(Repeat("/T BMC ", 3000) + Repeat("q 0 0 m W n ", 3000) + Repeat("EMC 0 0 m S ", 3000));
    EXPECT_LT(CountObjects(reading.content->GetChildren()), 250000U);
    EXPECT_THAT(reading.result.errors,
                testing::Contains(testing::HasSubstr("limit groupCopies: 100000 reached")));
    EXPECT_TRUE(reading.result.hasUnmodelled);
}

TEST(InterpreterHostile, ManyClipsDeepInsideTakeLinearTime)
{
    Reading reading;
    reading.Read(Repeat("/T BMC ", 5000) + Repeat("q 0 0 m W n Q ", 20000));
    EXPECT_EQ(CountObjects(reading.content->GetChildren()), 5000U + 40000U);
}

TEST(InterpreterHostile, LongDashesAreNotCopiedForEachStroke)
{
    Reading reading;
    reading.Read("[" + Repeat("1 ", 500000) + "] 0 d " + Repeat("1 w 2 w 0 0 m S ", 20000));
    EXPECT_EQ(CountObjects(reading.content->GetChildren()), 20000U);
}

TEST(InterpreterHostile, GroupMatricesThatEndInsideOfManyStatesAreBounded)
{
    const std::string group = "/OrvGroup <</Matrix [1 0 0 1 1 0]>> BDC 1 0 0 1 1 0 cm ";
    Reading reading;
    reading.Read(Repeat(group, 2000) + Repeat("q ", 5000) + Repeat("EMC ", 2000) +
                 Repeat(group + "EMC ", 20000) + "0 0 m S");
    EXPECT_THAT(reading.result.errors,
                testing::Contains(testing::HasSubstr("limit groupCorrections: 1000000 reached")));
}

TEST(InterpreterHostile, ManyDamagedOperatorsAreOnePart)
{
    Reading reading;
    reading.Read(Repeat("x ", 500000));
    EXPECT_THAT(reading.result.damaged, SizeIs(1));
    EXPECT_THAT(reading.result.errors, SizeIs(1));
}

TEST(InterpreterHostile, ManyOperandsInFrontOfAnOperatorTakeLinearTime)
{
    Reading reading;
    reading.Read(Repeat("[1] " + Repeat("1 ", 1000) + "0 0 m ", 500));
    EXPECT_THAT(reading.result.errors, testing::Not(testing::IsEmpty()));
}

// Streams of random operators with random operands: whatever comes, the reading ends without an exception and
// the parts that are damaged lie inside of the stream, in order and apart from one another.

std::string RandomStream(std::mt19937& random)
{
    static const char* const words[] = {"0 0 m ",
                                        "1 1 l ",
                                        "h ",
                                        "1 2 3 4 re ",
                                        "W ",
                                        "W* ",
                                        "n ",
                                        "S ",
                                        "f ",
                                        "B* ",
                                        "q ",
                                        "q ",
                                        "Q ",
                                        "Q ",
                                        "EMC ",
                                        "EMC ",
                                        "/T BMC ",
                                        "/OC /oc BDC ",
                                        "x ",
                                        ") ",
                                        "2 0 0 2 0 0 cm ",
                                        "0.5 g ",
                                        "1 0 0 RG ",
                                        "/X cs ",
                                        "3 w ",
                                        "[1 2] 0 d ",
                                        "/P MP ",
                                        "(a) Tj ",
                                        "<< ",
                                        "] ",
                                        "/OrvGroup <</Matrix [2 0 0 2 0 0] /OwnClips 1>> BDC ",
                                        "2 0 0 2 0 0 cm ",
                                        "/OrvGroup <</Name (n)>> BDC ",
                                        "/OrvObject <</Name (o) /EvenOdd true>> BDC ",
                                        "/OrvReset <</Matrix [2 0 0 2 0 0]>> DP ",
                                        "/OrvAttributes <</Matrix [2 0 0 2 0 0] /OwnClips 2>> DP ",
                                        "/OrvTextGroup <</Clip true>> BDC ",
                                        "BX ",
                                        "EX ",
                                        "BI /W 1 ID x EI ",
                                        "\x80\xFF ",
                                        "1e400 ",
                                        "5 "};
    std::string stream;
    for (int i = 0; i < 60; ++i)
        stream += words[random() % (sizeof words / sizeof *words)];
    return stream;
}

TEST(InterpreterHostile, AnyMixtureOfOperatorsIsRead)
{
    std::mt19937 random(20240701);
    for (int round = 0; round < 3000; ++round) {
        const std::string stream = RandomStream(random);
        SCOPED_TRACE(stream);
        Reading reading;
        reading.limits.contentNesting = 8;
        reading.AddLayer("oc", "L");
        ASSERT_NO_THROW(reading.Read(stream));
        std::size_t end = 0;
        for (const OrvPdf::ByteRange& range : reading.result.damaged) {
            ASSERT_TRUE(range.begin == 0 || range.begin > end);
            ASSERT_LT(range.begin, range.end);
            end = range.end;
        }
        ASSERT_LE(end, stream.size());
    }
}

TEST(InterpreterHostile, AnyBytesAreRead)
{
    std::mt19937 random(7);
    for (int round = 0; round < 1000; ++round) {
        std::string stream(200, ' ');
        for (char& byte : stream)
            byte = static_cast<char>(random());
        Reading reading;
        ASSERT_NO_THROW(reading.Read(stream));
    }
}

} // namespace
