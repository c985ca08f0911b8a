#include <orv_img/painted_picture.h>

#include <sstream>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/orv_img/picture_makers.h"

namespace OrvImg
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using Value = OrvColor::ChannelMappingPolicy::Value;

std::shared_ptr<const PictureData> GrayPicture()
{
    return MakePicture(DeviceGray(), {ColorChannel("Gray")});
}

TEST(PaintedPictureTest, ShowsAPictureAsItIsAtFirst)
{
    const auto picture = GrayPicture();
    const auto painted = PaintedPicture::Factory(AnyDocument(), picture, false).Get();
    for (const bool argument : {false, true}) {
        EXPECT_EQ(painted->GetPictureData(argument), picture);
        EXPECT_EQ(painted->GetChannelMapping(argument), picture->GetDefaultChannelMapping(false));
        EXPECT_EQ(painted->GetMaskKind(argument), MaskKind::None);
        EXPECT_EQ(painted->GetMaskData(argument), nullptr);
        EXPECT_THAT(painted->GetColorKey(argument), IsEmpty());
    }
    EXPECT_EQ(painted->GetRenderingIntent(), OrvColor::RenderingIntent::RelativeColorimetric);
}

TEST(PaintedPictureTest, TakesTheOverprintFlagOfItsMapping)
{
    EXPECT_TRUE(PaintedPicture::Factory(AnyDocument(), GrayPicture(), true)
                    .Get()
                    ->GetChannelMapping(false)
                    .overprint);
}

TEST(PaintedPictureTest, NeedsAPicture)
{
    EXPECT_THROW(PaintedPicture::Factory(AnyDocument(), nullptr, false), std::invalid_argument);
}

TEST(PaintedPictureTest, KeepsWhatIsSet)
{
    const auto mask = GrayPicture();
    PaintedPicture::ChannelMapping mapping;
    mapping.Add("Spot", Value{0, {0.0, 1.0}});
    const auto painted = PaintedPicture::Factory(AnyDocument(), GrayPicture(), false)
                             .SetMaskKind(MaskKind::SoftMask)
                             .SetMaskData(mask)
                             .SetSoftMaskMapping(Value{0, {1.0, 0.0}})
                             .SetRenderingIntent(OrvColor::RenderingIntent::Saturation)
                             .SetChannelMapping(mapping)
                             .SetColorKey({{{1, 2}}})
                             .Get();
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::SoftMask);
    EXPECT_EQ(painted->GetMaskData(false), mask);
    EXPECT_EQ(painted->GetSoftMaskMapping(false), (Value{0, {1.0, 0.0}}));
    EXPECT_EQ(painted->GetRenderingIntent(), OrvColor::RenderingIntent::Saturation);
    EXPECT_EQ(painted->GetChannelMapping(false), mapping);
    EXPECT_THAT(painted->GetColorKey(false), ElementsAre(ElementsAre(1, 2)));
}

TEST(PaintedPictureTest, IsTheSameEachTimeAndThenFinished)
{
    PaintedPicture::Factory factory(AnyDocument(), GrayPicture(), false);
    const auto painted = factory.Get();
    EXPECT_EQ(factory.Get(), painted);
    EXPECT_THROW(factory.SetMaskKind(MaskKind::ColorKey), std::logic_error);
    EXPECT_THROW(factory.SetMaskData(GrayPicture()), std::logic_error);
    EXPECT_THROW(factory.SetSoftMaskMapping(Value()), std::logic_error);
    EXPECT_THROW(factory.SetRenderingIntent(OrvColor::RenderingIntent::Perceptual), std::logic_error);
    EXPECT_THROW(factory.SetChannelMapping({}), std::logic_error);
    EXPECT_THROW(factory.SetColorKey({}), std::logic_error);
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::None);
}

TEST(PaintedPictureTest, NeedsAPictureForItsMask)
{
    for (const MaskKind kind : {MaskKind::SoftMask, MaskKind::StencilMask}) {
        PaintedPicture::Factory factory(AnyDocument(), GrayPicture(), false);
        factory.SetMaskKind(kind);
        EXPECT_THROW(factory.Get(), std::logic_error);
        factory.SetMaskData(GrayPicture());
        EXPECT_NE(factory.Get(), nullptr);
    }
}

TEST(PaintedPictureTest, NeedsNoPictureForAColorKey)
{
    EXPECT_NE(
        PaintedPicture::Factory(AnyDocument(), GrayPicture(), false).SetMaskKind(MaskKind::ColorKey).Get(),
        nullptr);
}

TEST(MaskKindTest, PrintsItsNameOrItsNumber)
{
    std::ostringstream stream;
    for (std::uint32_t value = 0; value <= 4; ++value)
        stream << static_cast<MaskKind>(value) << ' ';
    EXPECT_EQ(stream.str(), "None SoftMask StencilMask ColorKey 4 ");
}

} // namespace
} // namespace OrvImg
