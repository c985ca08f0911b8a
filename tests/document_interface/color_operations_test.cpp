// The colour values of the document library, with their exact fields and signatures.

#include "document_interface/signature.h"

#include <array>
#include <cstring>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_color/color_functions.h>
#include <orv_color/color_list.h>
#include <orv_color/gen_color_profiles.h>
#include <orv_color/icc_profile.h>
#include <orv_color/output_intent.h>
#include <orv_color/rendering_intent.h>
#include <orv_color/representation.h>

namespace
{

using namespace InterfaceTests;
using namespace OrvColor;
using testing::ElementsAre;

using Colors = ColorList<ColorPolicy>;
using SeparationMapping = ColorList<SeparationMappingPolicy>;
using ChannelMapping = ColorList<ChannelMappingPolicy>;
using ProfilePointer = std::shared_ptr<const ICCProfile>;

static_assert(sizeof(Component) == sizeof(float));
static_assert(std::is_trivially_copyable_v<Component>);

static_assert(std::is_same_v<ColorPolicy::Value, float>);
static_assert(std::is_same_v<SeparationMappingPolicy::Value, std::size_t>);
static_assert(std::is_class_v<ChannelMappingPolicy::Value>);
static_assert(std::is_same_v<decltype(ChannelMappingPolicy::Value::index), std::size_t>);
static_assert(std::is_same_v<decltype(ChannelMappingPolicy::Value::decode), std::array<double, 2>>);

static_assert(std::is_same_v<decltype(Colors::entries), std::vector<Colors::Entry>>);
static_assert(std::is_same_v<decltype(Colors::Entry::value), float>);
static_assert(std::is_same_v<decltype(Colors::Entry::name), std::string>);
static_assert(std::is_same_v<decltype(Colors::valueForAll), float>);
static_assert(std::is_same_v<decltype(SeparationMapping::valueForAll), std::size_t>);
static_assert(std::is_same_v<decltype(ChannelMapping::valueForAll), ChannelMappingPolicy::Value>);
static_assert(std::is_same_v<decltype(Colors::overprint), bool>);
static_assert(std::is_same_v<decltype(Colors::all), bool>);
static_assert(std::is_copy_constructible_v<Colors> && std::is_nothrow_move_constructible_v<Colors>);
static_assert(std::is_copy_constructible_v<ColorList<ColorantPolicy>>);

static_assert(Has<std::vector<Component> (*)(const Colors&, const SeparationMapping&)>(&GetComponents));
static_assert(
    Has<std::array<double, 2> (*)(const std::array<double, 2>&, const std::array<double, 2>&)>(&Concatenate));
static_assert(Has<bool (*)(const ICCProfile&, const ICCProfile&)>(&OrvColor::operator==));
static_assert(Has<bool (*)(const OutputIntent&, const OutputIntent&)>(&OrvColor::operator==));
static_assert(Has<std::ostream& (*)(std::ostream&, Component)>(&OrvColor::operator<<));
static_assert(Has<std::ostream& (*)(std::ostream&, const std::vector<Component>&)>(&OrvColor::operator<<));
static_assert(Has<std::ostream& (*)(std::ostream&, const OutputIntent&)>(&OrvColor::operator<<));
static_assert(Has<std::ostream& (*)(std::ostream&, RenderingIntent)>(&OrvColor::operator<<));

static_assert(sizeof(RenderingIntent) == 4, "an enumeration of 32 bits");
static_assert(std::is_default_constructible_v<Representation>);
static_assert(Has<void (Representation::*)(std::vector<Component>)>(&Representation::SetCmyk));

static_assert(Has<GenColorProfiles& (*)()>(&GenColorProfiles::Instance));
static_assert(std::is_invocable_r_v<ProfilePointer, decltype(&GenColorProfiles::GetDefaultGrayProfile),
                                    GenColorProfiles&, bool>);
static_assert(std::is_invocable_r_v<ProfilePointer, decltype(&GenColorProfiles::GetDefaultRgbProfile),
                                    GenColorProfiles&, bool>);
static_assert(std::is_invocable_r_v<ProfilePointer, decltype(&GenColorProfiles::GetDefaultLabProfile),
                                    GenColorProfiles&, bool>);
static_assert(std::is_invocable_r_v<ProfilePointer, decltype(&GenColorProfiles::GetDefaultCmykProfile),
                                    GenColorProfiles&, bool>);

TEST(ColorOperations, ComponentsCanBeReadAsAnArrayOfFloats)
{
    const float numbers[] = {0.0f, 0.25f, 0.5f, 1.0f};
    const std::vector<Component> components(numbers, numbers + 4);
    EXPECT_EQ(std::memcmp(components.data(), numbers, sizeof numbers), 0);
}

TEST(ColorOperations, AColorListHasItsFieldsInOrder)
{
    Colors colors;
    EXPECT_LT(static_cast<void*>(&colors.entries), static_cast<void*>(&colors.valueForAll));
    EXPECT_LT(static_cast<void*>(&colors.valueForAll), static_cast<void*>(&colors.overprint));
    EXPECT_LT(static_cast<void*>(&colors.overprint), static_cast<void*>(&colors.all));
    Colors::Entry entry;
    EXPECT_LT(static_cast<void*>(&entry.value), static_cast<void*>(&entry.name));
}

TEST(ColorOperations, AChannelOfAPictureHasItsIndexBeforeItsDecodeRange)
{
    ChannelMappingPolicy::Value value;
    EXPECT_LT(static_cast<void*>(&value.index), static_cast<void*>(&value.decode));
}

TEST(ColorOperations, EntriesStandInTheOrderOfTheirInsertion)
{
    Colors colors;
    colors.Add("Varnish", 1.0f);
    colors.Add("Black", 0.5f);
    ASSERT_EQ(colors.entries.size(), 2u);
    EXPECT_EQ(colors.entries[0].name, "Varnish");
    EXPECT_EQ(colors.entries[1].name, "Black");
    EXPECT_EQ(colors.entries[1].value, 0.5f);
}

TEST(ColorOperations, AListOfAllSeparationsRefusesAnEntry)
{
    Colors colors;
    colors.all = true;
    try {
        colors.Add("Black", 1.0f);
        FAIL() << "the entry was taken";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "Can't add a separation when the \"All\" flag is enabled.");
    }
    EXPECT_TRUE(colors.entries.empty());
}

TEST(ColorOperations, ComponentsOfAColorStandAtTheIndicesOfTheMapping)
{
    Colors colors;
    colors.Add("Black", 0.5f);
    colors.Add("Varnish", 1.0f);
    SeparationMapping mapping;
    mapping.Add("Varnish", 0);
    mapping.Add("Cutting", 1);
    mapping.Add("Black", 2);
    EXPECT_THAT(GetComponents(colors, mapping), ElementsAre(1.0f, 0.0f, 0.5f));
}

TEST(ColorOperations, AnUnmappedSeparationHasNoComponent)
{
    Colors colors;
    colors.Add("Black", 0.5f);
    SeparationMapping mapping;
    mapping.Add("Black", ~std::size_t{0});
    EXPECT_TRUE(GetComponents(colors, mapping).empty());
}

TEST(ColorOperations, ConcatenationAppliesTheFirstRangeAndThenTheSecond)
{
    EXPECT_THAT(Concatenate({0.0, 0.5}, {1.0, 3.0}), ElementsAre(1.0, 2.0));
}

TEST(ColorOperations, ThereIsOneSourceOfBuiltInProfiles)
{
    GenColorProfiles& profiles = GenColorProfiles::Instance();
    EXPECT_EQ(&profiles, &GenColorProfiles::Instance());
    const ProfilePointer gray = profiles.GetDefaultGrayProfile(true);
    const ProfilePointer rgb = profiles.GetDefaultRgbProfile(true);
    ASSERT_NE(gray, nullptr);
    ASSERT_NE(rgb, nullptr);
    EXPECT_TRUE(*gray == *profiles.GetDefaultGrayProfile(true));
    EXPECT_FALSE(*gray == *rgb);
}

} // namespace
