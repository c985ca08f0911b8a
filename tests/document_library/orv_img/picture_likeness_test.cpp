#include <orv_img/picture_likeness.h>

#include <string>

#include <gtest/gtest.h>

#include "document_library/orv_img/picture_makers.h"
#include "orv_img/stored_samples.h"

namespace OrvImg
{
namespace
{

/// A source that would have to decode its samples, which no comparison of what is stored may do.
class StoredSource : public PictureSource, public Detail::StoredSamples
{
public:
    StoredSource(std::string givenBytes, bool givenIsUndecodable)
        : bytes(std::move(givenBytes)), isUndecodable(givenIsUndecodable)
    {}

    std::shared_ptr<const PictureBuffer> GetPictureBuffer() const override
    {
        ADD_FAILURE() << "the samples were decoded";
        return OnePixel();
    }
    std::unique_ptr<PictureStream> GetPictureStream() const override { return nullptr; }
    PictureStream::Type GetStreamType() const override { return PictureStream::Type::Dct; }
    std::shared_ptr<const ColorTable> GetColorTable() const override { return nullptr; }
    const ColorSpace& GetColorSpace() const override { return space; }
    std::size_t GetWidth() const override { return 1; }
    std::size_t GetHeight() const override { return 1; }
    double GetXDpi() const override { return 0.0; }
    double GetYDpi() const override { return 0.0; }
    std::size_t GetBitsPerChannel() const override { return 8; }
    const std::vector<ChannelInfo>& GetChannelInfos() const override { return channels; }
    std::shared_ptr<const Plexa::Compound> GetClippingPath() const override { return nullptr; }

    bool IsUndecodable() const override { return isUndecodable; }
    bool IsStoredLike(const StoredSamples& other) const override
    {
        return bytes == dynamic_cast<const StoredSource&>(other).bytes;
    }

private:
    std::string bytes;
    bool isUndecodable;
    ColorSpace space;
    std::vector<ChannelInfo> channels;
};

std::shared_ptr<const PictureSource> Stored(const std::string& bytes)
{
    return std::make_shared<StoredSource>(bytes, false);
}

std::shared_ptr<const PictureSource> Undecodable(const std::string& bytes)
{
    return std::make_shared<StoredSource>(bytes, true);
}

std::shared_ptr<const PictureSource> Buffered(std::shared_ptr<const PictureBuffer> buffer)
{
    return std::make_shared<BufferedPictureSource>(std::move(buffer), DeviceGray(),
                                                   std::vector<ChannelInfo>{ColorChannel("Gray")}, nullptr,
                                                   72.0, 72.0, nullptr);
}

Likeness Compare(const std::shared_ptr<const PictureSource>& left,
                 const std::shared_ptr<const PictureSource>& right)
{
    const Likeness likeness = CompareStoredSamples(*left, *right);
    EXPECT_EQ(CompareStoredSamples(*right, *left), likeness);
    return likeness;
}

TEST(LikenessOfStoredSamples, IsSureForOneSource)
{
    const auto source = Undecodable("a");
    EXPECT_EQ(Compare(source, source), Likeness::Alike);
}

TEST(LikenessOfStoredSamples, IsSureForTheSameBytes)
{
    EXPECT_EQ(Compare(Stored("a"), Stored("a")), Likeness::Alike);
    EXPECT_EQ(Compare(Undecodable("a"), Undecodable("a")), Likeness::Alike);
}

TEST(LikenessOfStoredSamples, IsUnknownForOtherBytes)
{
    EXPECT_EQ(Compare(Stored("a"), Stored("b")), Likeness::Unknown);
}

TEST(LikenessOfStoredSamples, IsDifferenceIfOneCannotBeDecoded)
{
    EXPECT_EQ(Compare(Undecodable("a"), Stored("b")), Likeness::Different);
    EXPECT_EQ(Compare(Undecodable("a"), Undecodable("b")), Likeness::Different);
    EXPECT_EQ(Compare(Undecodable("a"), Buffered(OnePixel())), Likeness::Different);
}

TEST(LikenessOfStoredSamples, IsSureForOneBuffer)
{
    const auto buffer = OnePixel();
    EXPECT_EQ(Compare(Buffered(buffer), Buffered(buffer)), Likeness::Alike);
}

TEST(LikenessOfStoredSamples, IsUnknownForTwoBuffers)
{
    EXPECT_EQ(Compare(Buffered(OnePixel()), Buffered(OnePixel())), Likeness::Unknown);
    EXPECT_EQ(Compare(Buffered(OnePixel()), Stored("a")), Likeness::Unknown);
}

} // namespace
} // namespace OrvImg
