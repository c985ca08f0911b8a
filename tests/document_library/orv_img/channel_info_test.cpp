#include <orv_img/channel_info.h>

#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvImg
{
namespace
{

using testing::ElementsAre;

TEST(ChannelInfoTest, KeepsWhatItIsMadeOf)
{
    const ChannelInfo channel("Varnish", ChannelInfo::ChannelType::Alpha, {0.25, 0.75});
    EXPECT_EQ(channel.GetName(), "Varnish");
    EXPECT_EQ(channel.GetType(), ChannelInfo::ChannelType::Alpha);
    EXPECT_THAT(channel.GetDecode(), ElementsAre(0.25, 0.75));
}

TEST(ChannelInfoTest, HasNoAlternateColorUntilOneIsSet)
{
    ChannelInfo channel("Varnish", ChannelInfo::ChannelType::Color, {0.0, 1.0});
    EXPECT_EQ(channel.GetRepresentation(), OrvColor::Representation());
    OrvColor::Representation representation;
    representation.SetCmyk({0.1f, 0.2f, 0.3f, 0.4f});
    channel.SetRepresentation(representation);
    EXPECT_EQ(channel.GetRepresentation(), representation);
}

TEST(ChannelInfoTest, TakesAnotherDecodeRange)
{
    ChannelInfo channel("Varnish", ChannelInfo::ChannelType::Color, {0.0, 1.0});
    channel.SetDecode({1.0, -2.0});
    EXPECT_THAT(channel.GetDecode(), ElementsAre(1.0, -2.0));
    EXPECT_EQ(channel.GetName(), "Varnish");
}

TEST(ChannelInfoTest, IsAValue)
{
    ChannelInfo channel("Varnish", ChannelInfo::ChannelType::Stencil, {1.0, 0.0});
    ChannelInfo copy = channel;
    copy.SetDecode({0.0, 1.0});
    EXPECT_THAT(channel.GetDecode(), ElementsAre(1.0, 0.0));
    const ChannelInfo moved = std::move(copy);
    EXPECT_EQ(moved.GetName(), "Varnish");
    EXPECT_EQ(moved.GetType(), ChannelInfo::ChannelType::Stencil);
    channel = moved;
    EXPECT_THAT(channel.GetDecode(), ElementsAre(0.0, 1.0));
}

} // namespace
} // namespace OrvImg
