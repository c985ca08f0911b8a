#include <orv_img/color_space.h>

#include <limits>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_color/gen_color_profiles.h>

namespace OrvImg
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using Profile = std::shared_ptr<const OrvColor::ICCProfile>;

Profile ProfileOf(const std::string& dataSpace)
{
    std::string bytes(128, '\0');
    bytes.replace(16, 4, dataSpace);
    return std::make_shared<const OrvColor::ICCProfile>(bytes);
}

std::vector<std::string> NamesOf(const ColorSpace& space)
{
    std::vector<std::string> names;
    for (const ChannelInfo& channel : GetChannelInfosForColorSpace(space))
        names.push_back(channel.GetName());
    return names;
}

std::string TextOf(const ColorSpace& space)
{
    std::ostringstream stream;
    stream << space;
    return stream.str();
}

TEST(PictureColorSpaceTest, IsDeviceIndependentIfBasedOnCie)
{
    EXPECT_FALSE(IsDeviceIndependentColorSpace(DeviceN()));
    EXPECT_FALSE(IsDeviceIndependentColorSpace(DeviceGray()));
    EXPECT_FALSE(IsDeviceIndependentColorSpace(DeviceRGB()));
    EXPECT_TRUE(IsDeviceIndependentColorSpace(CalGray()));
    EXPECT_TRUE(IsDeviceIndependentColorSpace(CalRGB()));
    EXPECT_TRUE(IsDeviceIndependentColorSpace(Lab()));
    EXPECT_TRUE(IsDeviceIndependentColorSpace(ProfileOf("CMYK")));
}

TEST(PictureColorSpaceTest, ConvertsItsOwnChannels)
{
    EXPECT_EQ(NumSourceChannelsForColorConversion(DeviceN()), 0u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(DeviceGray()), 1u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(DeviceRGB()), 3u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(CalGray()), 1u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(CalRGB()), 3u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(Lab()), 3u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(ProfileOf("GRAY")), 1u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(ProfileOf("RGB ")), 3u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(ProfileOf("CMYK")), 4u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(ProfileOf("6CLR")), 6u);
    EXPECT_EQ(NumSourceChannelsForColorConversion(Profile()), 0u);
}

TEST(PictureColorSpaceTest, NamesItsChannels)
{
    EXPECT_THAT(NamesOf(DeviceN()), IsEmpty());
    EXPECT_THAT(NamesOf(DeviceGray()), ElementsAre("Gray"));
    EXPECT_THAT(NamesOf(DeviceRGB()), ElementsAre("Red", "Green", "Blue"));
    EXPECT_THAT(NamesOf(CalGray()), ElementsAre("Gray"));
    EXPECT_THAT(NamesOf(CalRGB()), ElementsAre("Red", "Green", "Blue"));
    EXPECT_THAT(NamesOf(Lab()), ElementsAre("L", "a", "b"));
    EXPECT_THAT(NamesOf(ProfileOf("GRAY")), ElementsAre("Gray"));
    EXPECT_THAT(NamesOf(ProfileOf("RGB ")), ElementsAre("Red", "Green", "Blue"));
    EXPECT_THAT(NamesOf(ProfileOf("Lab ")), ElementsAre("L", "a", "b"));
    EXPECT_THAT(NamesOf(ProfileOf("CMYK")), ElementsAre("Cyan", "Magenta", "Yellow", "Black"));
    EXPECT_THAT(NamesOf(ProfileOf("2CLR")), ElementsAre("Component 1", "Component 2"));
    EXPECT_THAT(NamesOf(Profile()), IsEmpty());
}

TEST(PictureColorSpaceTest, GivesItsChannelsTheWholeRange)
{
    for (const ChannelInfo& channel : GetChannelInfosForColorSpace(Lab())) {
        EXPECT_EQ(channel.GetType(), ChannelInfo::ChannelType::Color);
        EXPECT_THAT(channel.GetDecode(), ElementsAre(0.0, 1.0));
        EXPECT_EQ(channel.GetRepresentation(), OrvColor::Representation());
    }
}

TEST(PictureColorSpaceTest, PrintsItsFamily)
{
    EXPECT_EQ(TextOf(DeviceN()), "DeviceN");
    EXPECT_EQ(TextOf(DeviceGray()), "DeviceGray");
    EXPECT_EQ(TextOf(DeviceRGB()), "DeviceRGB");
}

TEST(PictureColorSpaceTest, PrintsWhatTellsCalibratedSpacesApart)
{
    EXPECT_EQ(TextOf(CalGray{{0.7, 1.0, 0.8}, {0.1, 0.2, 0.05}, 1.2}),
              "CalGray(0.7, 1, 0.8; 0.1, 0.2, 0.05; 1.2)");
    EXPECT_EQ(TextOf(CalRGB{{0.7, 1.0, 0.8}, {0.1, 0.2, 0.05}, {0.9, 1.0, 1.2}, {0, 1, 0, 0, 0, 1, 1, 0, 0}}),
              "CalRGB(0.7, 1, 0.8; 0.1, 0.2, 0.05; 0.9, 1, 1.2; 0, 1, 0, 0, 0, 1, 1, 0, 0)");
    EXPECT_EQ(TextOf(Lab{{0.7, 1.0, 0.8}, {0.1, 0.2, 0.05}, {-50, 127, -150, 100}}),
              "Lab(0.7, 1, 0.8; 0.1, 0.2, 0.05; -50, 127, -150, 100)");
}

TEST(PictureColorSpaceTest, PrintsTheDigestOfAProfile)
{
    EXPECT_THAT(TextOf(ProfileOf("CMYK")), MatchesRegex("ICCBased\\(.+\\)"));
    EXPECT_EQ(TextOf(ProfileOf("CMYK")), TextOf(ProfileOf("CMYK")));
    EXPECT_NE(TextOf(ProfileOf("CMYK")), TextOf(ProfileOf("RGB ")));
    EXPECT_EQ(TextOf(Profile()), "ICCBased(none)");
}

TEST(PictureColorSpaceTest, PrintsWhatIsNoNumber)
{
    CalGray space;
    space.gamma = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(TextOf(space), "CalGray(0.9505, 1, 1.089; 0, 0, 0; no number)");
}

} // namespace
} // namespace OrvImg
