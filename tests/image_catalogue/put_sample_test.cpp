#include "image_catalogue/put_sample.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace HarrowSupport::GenerateImage
{
namespace
{

using ::testing::ElementsAre;

std::vector<std::uint8_t> Put(std::vector<std::uint8_t> row, std::size_t bits, std::size_t index,
                              std::uint64_t value)
{
    PutSample(row.data(), bits, index, value);
    return row;
}

TEST(PutSampleTest, PacksFromTheHighestBit)
{
    EXPECT_THAT(Put({0, 0, 0, 0}, 1, 0, 1), ElementsAre(0x80, 0, 0, 0));
    EXPECT_THAT(Put({0, 0, 0, 0}, 1, 15, 1), ElementsAre(0, 0x01, 0, 0));
    EXPECT_THAT(Put({0, 0, 0, 0}, 2, 0, 3), ElementsAre(0xC0, 0, 0, 0));
    EXPECT_THAT(Put({0, 0, 0, 0}, 2, 6, 2), ElementsAre(0, 0x08, 0, 0));
    EXPECT_THAT(Put({0, 0, 0, 0}, 4, 0, 0xA), ElementsAre(0xA0, 0, 0, 0));
    EXPECT_THAT(Put({0, 0, 0, 0}, 4, 3, 0xB), ElementsAre(0, 0x0B, 0, 0));
    EXPECT_THAT(Put({0, 0, 0, 0}, 8, 2, 0xCD), ElementsAre(0, 0, 0xCD, 0));
}

TEST(PutSampleTest, HasTheHighByteOf16BitsFirst)
{
    EXPECT_THAT(Put({0, 0, 0, 0}, 16, 1, 0x1234), ElementsAre(0, 0, 0x12, 0x34));
}

TEST(PutSampleTest, LeavesTheOtherSamplesOfAByte)
{
    EXPECT_THAT(Put({0xFF, 0xFF}, 1, 2, 0), ElementsAre(0xDF, 0xFF));
    EXPECT_THAT(Put({0xFF, 0xFF}, 2, 1, 1), ElementsAre(0xDF, 0xFF));
    EXPECT_THAT(Put({0xFF, 0xFF}, 4, 1, 5), ElementsAre(0xF5, 0xFF));
    EXPECT_THAT(Put({0x5A, 0xA5}, 8, 0, 0), ElementsAre(0x00, 0xA5));
}

TEST(PutSampleTest, CutsTheValueToItsDepth)
{
    EXPECT_THAT(Put({0, 0}, 1, 3, 0xFE), ElementsAre(0, 0));
    EXPECT_THAT(Put({0, 0}, 1, 3, 0xFF), ElementsAre(0x10, 0));
    EXPECT_THAT(Put({0, 0}, 2, 1, 0x17), ElementsAre(0x30, 0));
    EXPECT_THAT(Put({0, 0}, 4, 1, 0xFF), ElementsAre(0x0F, 0));
    EXPECT_THAT(Put({0, 0}, 8, 1, 0x1FF), ElementsAre(0, 0xFF));
    EXPECT_THAT(Put({0, 0, 0}, 16, 0, 0x56789A), ElementsAre(0x78, 0x9A, 0));
}

TEST(PutSampleTest, WritesNothingForAnotherDepth)
{
    for (const std::size_t bits : {0, 3, 5, 6, 7, 12, 24, 32})
        EXPECT_THAT(Put({0x11, 0x22, 0x33, 0x44}, bits, 0, ~std::uint64_t{0}),
                    ElementsAre(0x11, 0x22, 0x33, 0x44))
            << bits;
}

} // namespace
} // namespace HarrowSupport::GenerateImage
