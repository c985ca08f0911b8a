#include <orv_img/picture_data.h>

#include <sstream>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/orv_img/picture_makers.h"

namespace OrvImg
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

/// Each separation with the number of its channel and the decode range.
std::vector<std::string> MappingOf(const PictureData& picture)
{
    std::vector<std::string> texts;
    for (const auto& entry : picture.GetDefaultChannelMapping(false).entries) {
        std::ostringstream stream;
        stream << entry.name << ": " << entry.value.index << ' ' << entry.value.decode[0] << ' '
               << entry.value.decode[1];
        texts.push_back(stream.str());
    }
    return texts;
}

std::vector<std::string> MappingOf(const ColorSpace& space, std::vector<ChannelInfo> channels)
{
    return MappingOf(*MakePicture(space, std::move(channels)));
}

const ColorSpace Profile = std::make_shared<const OrvColor::ICCProfile>([] {
    std::string bytes(128, '\0');
    bytes.replace(16, 4, "CMYK");
    return bytes;
}());

TEST(PictureDataTest, HasTheSizeOfItsSource)
{
    const auto source = std::make_shared<BufferedPictureSource>(
        PictureBuffer::Factory(3, 2, 1, 8).GetResult(), DeviceGray(),
        std::vector<ChannelInfo>{ColorChannel("Gray")}, nullptr, 300.0, 150.0, nullptr);
    const auto picture = PictureData::Factory(AnyDocument(), source).Get();
    EXPECT_EQ(picture->GetWidth(), 3u);
    EXPECT_EQ(picture->GetHeight(), 2u);
    EXPECT_EQ(picture->GetPictureSource(), source);
    EXPECT_EQ(picture->GetChannelInfos().size(), 1u);
}

TEST(PictureDataTest, NeedsASource)
{
    EXPECT_THROW(PictureData::Factory(AnyDocument(), nullptr), std::invalid_argument);
}

TEST(PictureDataTest, HasNoLinkAndNoMatteUntilTheyAreSet)
{
    const auto picture = MakePicture(DeviceGray(), {ColorChannel("Gray")});
    EXPECT_FALSE(picture->GetLink().has_value());
    EXPECT_THAT(picture->GetMatte(), IsEmpty());
}

TEST(PictureDataTest, KeepsItsLinkAndItsMatte)
{
    PictureData::Factory factory(AnyDocument(), MakeSource(DeviceGray(), {ColorChannel("Gray")}));
    const auto picture = factory.SetLink({"file:///a.tif", {}}).SetMatte({0.5}).Get();
    ASSERT_TRUE(picture->GetLink().has_value());
    EXPECT_EQ(picture->GetLink()->uri, "file:///a.tif");
    EXPECT_THAT(picture->GetMatte(), ElementsAre(0.5));
}

TEST(PictureDataTest, IsTheSameEachTimeAndThenFinished)
{
    PictureData::Factory factory(AnyDocument(), MakeSource(DeviceGray(), {ColorChannel("Gray")}));
    const auto picture = factory.Get();
    EXPECT_EQ(factory.Get(), picture);
    EXPECT_THROW(factory.SetLink({"file:///a.tif", {}}), std::logic_error);
    EXPECT_THROW(factory.SetMatte({0.5}), std::logic_error);
    EXPECT_FALSE(picture->GetLink().has_value());
}

TEST(DefaultChannelMapping, TakesSeparationsByName)
{
    EXPECT_THAT(MappingOf(DeviceN(), {ColorChannel("Spot", {1.0, 0.0}), ColorChannel("Cyan", {0.25, 0.5})}),
                ElementsAre("Spot: 0 1 0", "Cyan: 1 0.25 0.5"));
}

TEST(DefaultChannelMapping, LeavesOutNoneButCountsItsPlace)
{
    EXPECT_THAT(MappingOf(DeviceN(), {ColorChannel("Cyan"), ColorChannel("None"), ColorChannel("None"),
                                      ColorChannel("Spot")}),
                ElementsAre("Cyan: 0 0 1", "Spot: 3 0 1"));
}

TEST(DefaultChannelMapping, LeavesOutAlphaAndStencilChannels)
{
    EXPECT_THAT(MappingOf(DeviceN(), {ColorChannel("Cyan"), AlphaChannel()}), ElementsAre("Cyan: 0 0 1"));
    EXPECT_THAT(MappingOf(DeviceN(), {ChannelInfo("None", ChannelInfo::ChannelType::Stencil, {0.0, 1.0})}),
                IsEmpty());
    EXPECT_THAT(MappingOf(DeviceN(), {ChannelInfo("Cyan", ChannelInfo::ChannelType::Stencil, {0.0, 1.0})}),
                IsEmpty());
}

TEST(DefaultChannelMapping, SetsTheAllFlagForALoneChannelOfAllSeparations)
{
    for (const bool withAlpha : {false, true}) {
        std::vector<ChannelInfo> channels = {ColorChannel("All", {1.0, 0.0})};
        if (withAlpha)
            channels.push_back(AlphaChannel());
        const auto mapping = MakePicture(DeviceN(), channels)->GetDefaultChannelMapping(false);
        EXPECT_TRUE(mapping.all);
        EXPECT_EQ(mapping.valueForAll.index, 0u);
        EXPECT_THAT(mapping.valueForAll.decode, ElementsAre(1.0, 0.0));
        EXPECT_THAT(mapping.entries, IsEmpty());
    }
}

TEST(DefaultChannelMapping, TakesAllForANameBesideOthers)
{
    const auto picture = MakePicture(DeviceN(), {ColorChannel("All"), ColorChannel("Cyan")});
    EXPECT_FALSE(picture->GetDefaultChannelMapping(false).all);
    EXPECT_THAT(MappingOf(*picture), ElementsAre("All: 0 0 1", "Cyan: 1 0 1"));
}

TEST(DefaultChannelMapping, TurnsGrayRoundToBlack)
{
    EXPECT_THAT(MappingOf(DeviceGray(), {ColorChannel("Gray")}), ElementsAre("Black: 0 1 0"));
    EXPECT_THAT(MappingOf(DeviceGray(), {ColorChannel("Gray", {0.25, 0.75})}),
                ElementsAre("Black: 0 0.75 0.25"));
}

TEST(DefaultChannelMapping, NamesTheColorsOfTheDevice)
{
    EXPECT_THAT(MappingOf(DeviceRGB(), {ColorChannel("Red"), ColorChannel("Green", {1.0, 0.0}),
                                        ColorChannel("Blue"), AlphaChannel()}),
                ElementsAre("DeviceRGB Red: 0 0 1", "DeviceRGB Green: 1 1 0", "DeviceRGB Blue: 2 0 1"));
}

TEST(DefaultChannelMapping, AddsExtraColorsBehindThoseOfTheDevice)
{
    EXPECT_THAT(MappingOf(DeviceGray(), {ColorChannel("Gray"), AlphaChannel(), ColorChannel("Spot")}),
                ElementsAre("Black: 0 1 0", "Spot: 2 0 1"));
    EXPECT_THAT(MappingOf(DeviceRGB(), {ColorChannel("Red"), ColorChannel("Green"), ColorChannel("Blue"),
                                        ColorChannel("Spot", {1.0, 0.0})}),
                ElementsAre("DeviceRGB Red: 0 0 1", "DeviceRGB Green: 1 0 1", "DeviceRGB Blue: 2 0 1",
                            "Spot: 3 1 0"));
}

TEST(DefaultChannelMapping, IsTheFourProcessInksForDeviceIndependentSpaces)
{
    const auto inks = ElementsAre("Cyan: 0 0 1", "Magenta: 1 0 1", "Yellow: 2 0 1", "Black: 3 0 1");
    EXPECT_THAT(MappingOf(CalGray(), {ColorChannel("Gray", {1.0, 0.0})}), inks);
    EXPECT_THAT(MappingOf(CalRGB(), GetChannelInfosForColorSpace(CalRGB())), inks);
    EXPECT_THAT(MappingOf(Lab(), GetChannelInfosForColorSpace(Lab())), inks);
    EXPECT_THAT(MappingOf(Profile, GetChannelInfosForColorSpace(Profile)), inks);
}

TEST(DefaultChannelMapping, CountsExtraColorsOfDeviceIndependentSpacesFromFour)
{
    EXPECT_THAT(MappingOf(CalGray(), {ColorChannel("Gray"), ColorChannel("Spot", {0.5, 1.0}), AlphaChannel(),
                                      ColorChannel("Gold")}),
                ElementsAre("Cyan: 0 0 1", "Magenta: 1 0 1", "Yellow: 2 0 1", "Black: 3 0 1", "Spot: 4 0.5 1",
                            "Gold: 6 0 1"));
}

TEST(DefaultChannelMapping, CarriesTheOverprintFlag)
{
    const auto picture = MakePicture(DeviceGray(), {ColorChannel("Gray")});
    EXPECT_FALSE(picture->GetDefaultChannelMapping(false).overprint);
    EXPECT_TRUE(picture->GetDefaultChannelMapping(true).overprint);
}

TEST(DefaultSoftMaskMapping, IsTheAlphaChannel)
{
    const auto value = MakePicture(DeviceRGB(), {ColorChannel("Red"), ColorChannel("Green"),
                                                 ColorChannel("Blue"), AlphaChannel({0.25, 0.5})})
                           ->GetDefaultSoftMaskMapping();
    EXPECT_EQ(value.index, 3u);
    EXPECT_THAT(value.decode, ElementsAre(0.25, 0.5));
}

TEST(DefaultSoftMaskMapping, IsTheFirstOfTwoAlphaChannels)
{
    const auto value =
        MakePicture(DeviceN(), {ColorChannel("Cyan"), AlphaChannel({1.0, 0.0}), AlphaChannel()})
            ->GetDefaultSoftMaskMapping();
    EXPECT_EQ(value.index, 1u);
    EXPECT_THAT(value.decode, ElementsAre(1.0, 0.0));
}

TEST(DefaultSoftMaskMapping, CountsFromFourInDeviceIndependentSpaces)
{
    const auto indexIn = [](const ColorSpace& space) {
        std::vector<ChannelInfo> channels = GetChannelInfosForColorSpace(space);
        channels.push_back(AlphaChannel());
        return MakePicture(space, channels)->GetDefaultSoftMaskMapping().index;
    };
    EXPECT_EQ(indexIn(CalGray()), 4u);
    EXPECT_EQ(indexIn(CalRGB()), 4u);
    EXPECT_EQ(indexIn(Lab()), 4u);
    EXPECT_EQ(indexIn(Profile), 4u);
    EXPECT_EQ(indexIn(DeviceGray()), 1u);
    EXPECT_EQ(MakePicture(CalGray(), {ColorChannel("Gray"), ColorChannel("Spot"), AlphaChannel()})
                  ->GetDefaultSoftMaskMapping()
                  .index,
              5u);
}

TEST(DefaultSoftMaskMapping, IsUnmappedWithoutAnAlphaChannel)
{
    EXPECT_EQ(MakePicture(DeviceGray(), {ColorChannel("Gray")})->GetDefaultSoftMaskMapping().index,
              OrvColor::Unmapped);
}

} // namespace
} // namespace OrvImg
