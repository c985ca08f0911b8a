#include "image_catalogue/channels.h"

#include <array>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "image_catalogue/color_spaces.h"
#include "image_catalogue/decode_pair.h"

namespace HarrowSupport::GenerateImage
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Type = OrvImg::ChannelInfo::ChannelType;

constexpr std::uint32_t KindCount = 20;

ColorSpaceKind Kind(std::uint32_t number)
{
    return static_cast<ColorSpaceKind>(number);
}

std::vector<std::string> NamesOf(ColorSpaceKind kind, bool withAlpha = false)
{
    std::vector<std::string> names;
    for (const OrvImg::ChannelInfo& channel : MakeChannelInfos(kind, withAlpha))
        names.push_back(channel.GetName());
    return names;
}

std::vector<std::string> AlternatesOf(ColorSpaceKind kind)
{
    std::vector<std::string> texts;
    for (const OrvImg::ChannelInfo& channel : MakeChannelInfos(kind, true)) {
        std::ostringstream stream;
        stream << channel.GetRepresentation();
        texts.push_back(stream.str());
    }
    return texts;
}

TEST(ChannelsOfAKind, AreThoseOfTheLibraryForOtherSpacesThanDeviceN)
{
    for (std::uint32_t number = 0; number < 12; ++number) {
        std::vector<std::string> names;
        for (const OrvImg::ChannelInfo& channel :
             OrvImg::GetChannelInfosForColorSpace(MakeColorSpace(number)))
            names.push_back(channel.GetName());
        EXPECT_EQ(NamesOf(Kind(number)), names) << number;
    }
}

TEST(ChannelsOfAKind, AreSeparationsForDeviceN)
{
    EXPECT_THAT(NamesOf(ColorSpaceKind::DeviceN_CMYK), ElementsAre("Cyan", "Magenta", "Yellow", "Black"));
    EXPECT_THAT(NamesOf(ColorSpaceKind::DeviceN_MYC), ElementsAre("Magenta", "Yellow", "Cyan"));
    EXPECT_THAT(NamesOf(ColorSpaceKind::DeviceN_6Component),
                ElementsAre("Cyan", "Foo", "Bar", "Black", "PAN111", "PAN222"));
    EXPECT_THAT(NamesOf(ColorSpaceKind::DeviceN_Black), ElementsAre("Black"));
    EXPECT_THAT(NamesOf(ColorSpaceKind::DeviceN_Magenta), ElementsAre("Magenta"));
    EXPECT_THAT(NamesOf(ColorSpaceKind::DeviceN_1Spot), ElementsAre("PANTONE 450 M"));
    EXPECT_THAT(NamesOf(ColorSpaceKind::DeviceN_None), ElementsAre("Cyan", "None", "None", "PAN222"));
    EXPECT_THAT(NamesOf(ColorSpaceKind::DeviceN_All), ElementsAre("All"));
}

TEST(ChannelsOfAKind, HaveAlternateColorsForSomeSpots)
{
    EXPECT_THAT(AlternatesOf(ColorSpaceKind::DeviceN_6Component),
                ElementsAre("None", "Cmyk(0.1, 0.7, 0, 0.2)", "Cmyk(0.6, 0.1, 0.1, 0)", "None",
                            "Cmyk(0.8, 0.2, 0.6, 0.1)", "Cmyk(0.4, 0.7, 0.1, 0.2)", "None"));
    EXPECT_THAT(AlternatesOf(ColorSpaceKind::DeviceN_None),
                ElementsAre("None", "None", "None", "Cmyk(0.4, 0.7, 0.1, 0.2)", "None"));
}

TEST(ChannelsOfAKind, HaveNoAlternateColorsOtherwise)
{
    for (const std::uint32_t number : {12, 13, 15, 16, 17, 19})
        EXPECT_THAT(AlternatesOf(Kind(number)), ::testing::Each("None")) << number;
}

TEST(ChannelsOfAKind, AreColorsOverTheirWholeRange)
{
    for (std::uint32_t number = 0; number < KindCount; ++number) {
        for (const OrvImg::ChannelInfo& channel : MakeChannelInfos(Kind(number), false)) {
            EXPECT_EQ(channel.GetType(), Type::Color) << number;
            EXPECT_THAT(channel.GetDecode(), ElementsAre(0.0, 1.0)) << number;
        }
    }
}

TEST(ChannelsOfAKind, EndWithAnAlphaChannelWithoutANameIfAskedFor)
{
    for (std::uint32_t number = 0; number < KindCount; ++number) {
        const auto channels = MakeChannelInfos(Kind(number), true);
        ASSERT_EQ(channels.size(), MakeChannelInfos(Kind(number), false).size() + 1) << number;
        EXPECT_EQ(channels.back().GetName(), "") << number;
        EXPECT_EQ(channels.back().GetType(), Type::Alpha) << number;
        EXPECT_THAT(channels.back().GetDecode(), ElementsAre(0.0, 1.0)) << number;
    }
}

TEST(ChannelsOfAKind, AreNoneForAnUnknownKind)
{
    EXPECT_THAT(MakeChannelInfos(Kind(20), false), IsEmpty());
    EXPECT_THAT(MakeChannelInfos(Kind(20), true), IsEmpty());
}

TEST(ChannelCountOfAKind, IsThatOfTheChannels)
{
    for (std::uint32_t number = 0; number < KindCount; ++number)
        EXPECT_EQ(ChannelCount(Kind(number), false), MakeChannelInfos(Kind(number), false).size()) << number;
}

TEST(ChannelCountOfAKind, CountsAnAlphaChannelButForLab)
{
    for (std::uint32_t number = 0; number < KindCount; ++number) {
        const bool isLab = number == 6 || number == 7;
        EXPECT_EQ(ChannelCount(Kind(number), true), ChannelCount(Kind(number), false) + (isLab ? 0 : 1))
            << number;
    }
}

TEST(ChannelCountOfAKind, IsSixForAnUnknownKind)
{
    EXPECT_EQ(ChannelCount(Kind(20), false), 6u);
    EXPECT_EQ(ChannelCount(Kind(20), true), 7u);
}

TEST(DecodePairOfAKind, IsTheRange)
{
    EXPECT_THAT(GetDecodePair(DecodeKind::DecodeIdentity), ElementsAre(0.0, 1.0));
    EXPECT_THAT(GetDecodePair(DecodeKind::DecodeInvert), ElementsAre(1.0, 0.0));
    EXPECT_THAT(GetDecodePair(DecodeKind::DecodeWeird), ElementsAre(0.1, 0.6));
}

TEST(DecodePairOfAKind, IsZeroForAnUnknownKind)
{
    EXPECT_THAT(GetDecodePair(static_cast<DecodeKind>(3)), ElementsAre(0.0, 0.0));
}

} // namespace
} // namespace HarrowSupport::GenerateImage
