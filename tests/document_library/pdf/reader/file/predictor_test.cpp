#include "pdf/reader/file/predictor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace
{

using OrvPdf::FilterStage;
using testing::HasSubstr;

FilterStage Stage(long long predictor, long long columns, long long colors = 1, long long bits = 8)
{
    FilterStage stage;
    stage.name = "FlateDecode";
    stage.predictor = predictor;
    stage.columns = columns;
    stage.colors = colors;
    stage.bitsPerComponent = bits;
    return stage;
}

struct Undone
{
    Undone(const FilterStage& stage, const std::string& rows, std::uint64_t limit = 1000)
    {
        OrvPdf::DecodingResult result;
        result.bytes.Append(rows);
        OrvPdf::UndoPredictor(stage, result, limit);
        bytes = result.bytes.View();
        problem = result.problem;
        reachedLimit = result.reachedLimit;
    }

    std::string bytes;
    std::string problem;
    bool reachedLimit;
};

std::string Bytes(std::initializer_list<int> numbers)
{
    std::string bytes;
    for (const int number : numbers)
        bytes += static_cast<char>(number);
    return bytes;
}

TEST(Predictor, OfPngAddsWhatTheKindOfEachRowSays)
{
    EXPECT_EQ(Undone(Stage(15, 3), Bytes({0, 1, 2, 3})).bytes, Bytes({1, 2, 3}));
    EXPECT_EQ(Undone(Stage(15, 3), Bytes({1, 1, 2, 3})).bytes, Bytes({1, 3, 6}));
    EXPECT_EQ(Undone(Stage(15, 3), Bytes({0, 9, 8, 7, 2, 1, 1, 1})).bytes, Bytes({9, 8, 7, 10, 9, 8}));
    EXPECT_EQ(Undone(Stage(15, 3), Bytes({0, 9, 8, 7, 3, 1, 1, 1})).bytes, Bytes({9, 8, 7, 5, 7, 8}));
    EXPECT_EQ(Undone(Stage(15, 3), Bytes({0, 9, 1, 7, 4, 1, 1, 1})).bytes, Bytes({9, 1, 7, 10, 2, 8}));
}

TEST(Predictor, OfPngReachesBackByWholePixels)
{
    EXPECT_EQ(Undone(Stage(12, 2, 3), Bytes({1, 1, 2, 3, 1, 1, 1})).bytes, Bytes({1, 2, 3, 2, 3, 4}));
    EXPECT_EQ(Undone(Stage(12, 2, 1, 16), Bytes({1, 1, 2, 1, 1})).bytes, Bytes({1, 2, 2, 3}));
    EXPECT_EQ(Undone(Stage(12, 16, 1, 1), Bytes({1, 1, 2})).bytes, Bytes({1, 3}));
}

TEST(Predictor, OfPngTellsAKindThatIsNone)
{
    const Undone undone(Stage(12, 2), Bytes({9, 1, 2, 2, 1, 1}));
    EXPECT_EQ(undone.bytes, Bytes({1, 2, 2, 3}));
    EXPECT_THAT(undone.problem, HasSubstr("unknown kind 9"));
}

TEST(Predictor, GivesWhatThereIsOfALastRow)
{
    EXPECT_EQ(Undone(Stage(12, 4), Bytes({0, 1, 2, 3, 4, 2, 1, 1})).bytes, Bytes({1, 2, 3, 4, 2, 3}));
    EXPECT_EQ(Undone(Stage(12, 4), Bytes({0, 1, 2, 3, 4, 2})).bytes, Bytes({1, 2, 3, 4}));
    EXPECT_EQ(Undone(Stage(2, 4), Bytes({1, 1, 1, 1, 5, 1})).bytes, Bytes({1, 2, 3, 4, 5, 6}));
}

TEST(Predictor, OfTiffAddsThePixelOnTheLeft)
{
    EXPECT_EQ(Undone(Stage(2, 2, 3), Bytes({1, 2, 3, 1, 1, 255})).bytes, Bytes({1, 2, 3, 2, 3, 2}));
    EXPECT_EQ(Undone(Stage(2, 2, 1, 16), Bytes({0, 255, 0, 2})).bytes, Bytes({0, 255, 1, 1}));
}

TEST(Predictor, OfTiffKeepsToTheDepthOfSamples)
{
    EXPECT_EQ(Undone(Stage(2, 4, 1, 4), Bytes({0x1F, 0x21})).bytes, Bytes({0x10, 0x23}));
    EXPECT_EQ(Undone(Stage(2, 8, 1, 1), Bytes({0xFF})).bytes, Bytes({0xAA}));
    // The last four bits are none of a sample.
    EXPECT_EQ(Undone(Stage(2, 3, 1, 4), Bytes({0x11, 0x1F})).bytes, Bytes({0x12, 0x3F}));
}

TEST(Predictor, IsCutOffAtTheLimit)
{
    const Undone beyond(Stage(12, 2), Bytes({0, 1, 2, 0, 3, 4}), 3);
    EXPECT_EQ(beyond.bytes, Bytes({1, 2, 3}));
    EXPECT_TRUE(beyond.reachedLimit);
    EXPECT_FALSE(Undone(Stage(12, 2), Bytes({0, 1, 2, 0, 3, 4}), 4).reachedLimit);
}

TEST(Predictor, OfPngNeedsAByteMoreForEachRow)
{
    EXPECT_EQ(OrvPdf::CountPredictedBytes(Stage(12, 2), 4), 7u);
    EXPECT_EQ(OrvPdf::CountPredictedBytes(Stage(12, 2), 5), 8u);
    EXPECT_EQ(OrvPdf::CountPredictedBytes(Stage(2, 2), 5), 5u);
    EXPECT_EQ(OrvPdf::CountPredictedBytes(Stage(12, 2), UINT64_MAX), UINT64_MAX);
}

} // namespace
