#include <orv_img/picture_buffer.h>

#include <limits>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvImg
{
namespace
{

TEST(PictureBufferTest, HasTheShapeThatItWasMadeFor)
{
    const auto buffer = PictureBuffer::Factory(5, 3, 2, 4).GetResult();
    EXPECT_EQ(buffer->width, 5u);
    EXPECT_EQ(buffer->height, 3u);
    EXPECT_EQ(buffer->channels, 2u);
    EXPECT_EQ(buffer->bitsPerChannel, 4u);
}

TEST(PictureBufferTest, RowsFillWholeBytes)
{
    EXPECT_EQ(PictureBuffer::BytesOfRow(8, 1, 1), 1u);
    EXPECT_EQ(PictureBuffer::BytesOfRow(9, 1, 1), 2u);
    EXPECT_EQ(PictureBuffer::BytesOfRow(3, 3, 1), 2u);
    EXPECT_EQ(PictureBuffer::BytesOfRow(4, 1, 2), 1u);
    EXPECT_EQ(PictureBuffer::BytesOfRow(5, 1, 2), 2u);
    EXPECT_EQ(PictureBuffer::BytesOfRow(3, 1, 4), 2u);
    EXPECT_EQ(PictureBuffer::BytesOfRow(3, 4, 8), 12u);
    EXPECT_EQ(PictureBuffer::BytesOfRow(3, 4, 16), 24u);
    EXPECT_EQ(PictureBuffer::BytesOfRow(0, 4, 8), 0u);
}

TEST(PictureBufferTest, IsZeroAtFirst)
{
    const auto buffer = PictureBuffer::Factory(17, 2, 1, 1).GetResult();
    for (std::size_t byte = 0; byte < 6; ++byte)
        EXPECT_EQ(buffer->GetRowPtr(0)[byte], 0) << byte;
}

TEST(PictureBufferTest, KeepsWhatItsFactoryWrote)
{
    PictureBuffer::Factory factory(2, 2, 1, 8);
    EXPECT_EQ(factory.GetBytesPerRow(), 2u);
    factory.GetRowPtr(0)[1] = 7;
    factory.GetRowPtr(1)[0] = 9;
    const auto buffer = factory.GetResult();
    EXPECT_EQ(buffer->GetRowPtr(0)[0], 0);
    EXPECT_EQ(buffer->GetRowPtr(0)[1], 7);
    EXPECT_EQ(buffer->GetRowPtr(1)[0], 9);
    EXPECT_EQ(buffer->GetRowPtr(1), buffer->GetRowPtr(0) + buffer->GetBytesPerRow());
}

TEST(PictureBufferTest, ComesOutOfItsFactoryOnce)
{
    PictureBuffer::Factory factory(2, 2, 1, 8);
    EXPECT_NE(factory.GetResult(), nullptr);
    EXPECT_THROW(factory.GetResult(), std::logic_error);
    EXPECT_THROW(factory.GetBytesPerRow(), std::logic_error);
}

TEST(PictureBufferTest, RefusesOtherDepths)
{
    for (const std::size_t bits : {0, 3, 5, 7, 9, 12, 15, 17, 24, 32, 64}) {
        EXPECT_THROW(PictureBuffer::Factory(1, 1, 1, bits), std::invalid_argument) << bits;
        EXPECT_THROW(PictureBuffer::BytesOfRow(1, 1, bits), std::invalid_argument) << bits;
    }
}

TEST(PictureBufferTest, RefusesSizesThatNoMemoryHolds)
{
    constexpr std::size_t large = std::numeric_limits<std::size_t>::max() / 2;
    EXPECT_THROW(PictureBuffer::BytesOfRow(large, 3, 8), std::length_error);
    EXPECT_THROW(PictureBuffer::BytesOfRow(large, large, 8), std::length_error);
    EXPECT_THROW(PictureBuffer::BytesOfRow(large / 8, 1, 16), std::length_error);
    EXPECT_THROW(PictureBuffer::Factory(1 << 20, large, 1, 8), std::length_error);
}

TEST(PictureBufferTest, AdoptsRowsAsTheyStand)
{
    const auto rows = std::shared_ptr<unsigned char>(new unsigned char[6]{1, 2, 3, 4, 5, 6},
                                                     std::default_delete<unsigned char[]>());
    const auto buffer = PictureBuffer::Adopt(1, 2, 3, 8, rows);
    EXPECT_EQ(buffer->GetRowPtr(0), rows.get());
    EXPECT_EQ(buffer->GetRowPtr(1), rows.get() + 3);
    EXPECT_EQ(buffer->GetRowPtr(1)[2], 6);
    EXPECT_EQ(rows.use_count(), 2);
}

TEST(PictureBufferTest, AdoptsNoRowsOfAnotherDepth)
{
    EXPECT_THROW(PictureBuffer::Adopt(1, 1, 1, 3, nullptr), std::invalid_argument);
}

} // namespace
} // namespace OrvImg
