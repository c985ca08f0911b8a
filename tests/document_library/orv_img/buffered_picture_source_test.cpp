#include <orv_img/buffered_picture_source.h>

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <plexa/geometry.h>

#include "document_library/orv_img/picture_makers.h"

namespace OrvImg
{
namespace
{

TEST(BufferedPictureSourceTest, GivesWhatItIsMadeOf)
{
    const std::shared_ptr<const PictureBuffer> buffer = PictureBuffer::Factory(3, 2, 1, 4).GetResult();
    const unsigned char colors[] = {0, 255};
    const auto table = std::make_shared<const ColorTable>(colors, 2, 1, 8, std::array<double, 2>{0.0, 1.0});
    const std::shared_ptr<const Plexa::Compound> path =
        Plexa::GetRectangleCompound({0.0, 0.0, 1000.0, 1000.0});
    const BufferedPictureSource source(buffer, CalGray(), {ColorChannel("Gray")}, table, 300.0, 150.0, path);
    EXPECT_EQ(source.GetPictureBuffer(), buffer);
    EXPECT_EQ(source.GetColorSpace().which(), 3);
    EXPECT_EQ(source.GetChannelInfos().at(0).GetName(), "Gray");
    EXPECT_EQ(source.GetColorTable(), table);
    EXPECT_EQ(source.GetXDpi(), 300.0);
    EXPECT_EQ(source.GetYDpi(), 150.0);
    EXPECT_EQ(source.GetClippingPath(), path);
    EXPECT_EQ(source.GetWidth(), 3u);
    EXPECT_EQ(source.GetHeight(), 2u);
    EXPECT_EQ(source.GetBitsPerChannel(), 4u);
}

TEST(BufferedPictureSourceTest, NeedsABuffer)
{
    EXPECT_THROW(BufferedPictureSource(nullptr, DeviceGray(), {}, nullptr, 72.0, 72.0, nullptr),
                 std::invalid_argument);
}

TEST(BufferedPictureSourceTest, StreamsItsRowsOneBehindTheOther)
{
    PictureBuffer::Factory factory(9, 2, 1, 1);
    factory.GetRowPtr(0)[0] = 'a';
    factory.GetRowPtr(0)[1] = 'b';
    factory.GetRowPtr(1)[0] = 'c';
    factory.GetRowPtr(1)[1] = 'd';
    const BufferedPictureSource source(factory.GetResult(), DeviceGray(), {ColorChannel("Gray")}, nullptr,
                                       72.0, 72.0, nullptr);
    EXPECT_EQ(source.GetStreamType(), PictureStream::Type::Samples);
    const auto stream = source.GetPictureStream();
    EXPECT_EQ(stream->GetType(), PictureStream::Type::Samples);
    EXPECT_EQ(stream->GetBytes(), "abcd");
}

} // namespace
} // namespace OrvImg
