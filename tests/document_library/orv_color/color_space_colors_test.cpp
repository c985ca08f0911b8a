#include <orv_color/color_space.h>

#include <orv_color/gen_color_profiles.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/deflated.h"

namespace OrvColor
{
namespace
{

using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using Entry = ColorList<ColorPolicy>::Entry;

constexpr std::array<double, 3> D50 = {0.9642, 1.0, 0.8249};

std::vector<Entry> Tints(const ColorSpace::Pointer& space, const std::vector<float>& components)
{
    return space->ToColorList(components, false, false).entries;
}

PdfObject AnyFunction()
{
    return PdfObject::Dictionary({});
}

TEST(ToColorListTest, CmykIsTheFourProcessInks)
{
    EXPECT_THAT(Tints(ColorSpace::DeviceCMYK(), {0.1f, 0.2f, 0.3f, 0.4f}),
                ElementsAre(Entry{0.1f, "Cyan"}, Entry{0.2f, "Magenta"}, Entry{0.3f, "Yellow"},
                            Entry{0.4f, "Black"}));
}

TEST(ToColorListTest, GrayIsBlackAtOneMinusTheGray)
{
    EXPECT_THAT(Tints(ColorSpace::DeviceGray(), {0.25f}), ElementsAre(Entry{0.75f, "Black"}));
}

TEST(ToColorListTest, OverprintFlagIsCarried)
{
    EXPECT_TRUE(ColorSpace::DeviceGray()->ToColorList({0.0f}, true, false).overprint);
    EXPECT_FALSE(ColorSpace::DeviceGray()->ToColorList({0.0f}, false, true).overprint);
}

TEST(ToColorListTest, OverprintModeOneLeavesZeroTintsOfCmykOut)
{
    const auto list = ColorSpace::DeviceCMYK()->ToColorList({0.0f, 0.5f, 0.0f, 0.0f}, true, true);
    EXPECT_THAT(list.entries, ElementsAre(Entry{0.5f, "Magenta"}));
}

TEST(ToColorListTest, OverprintModeOneNeedsOverprint)
{
    EXPECT_EQ(ColorSpace::DeviceCMYK()->ToColorList({0, 0.5f, 0, 0}, false, true).entries.size(), 4u);
    EXPECT_EQ(ColorSpace::DeviceCMYK()->ToColorList({0, 0.5f, 0, 0}, true, false).entries.size(), 4u);
}

TEST(ToColorListTest, OverprintModeOneKeepsTheSmallestTint)
{
    const float smallest = std::numeric_limits<float>::denorm_min();
    EXPECT_THAT(ColorSpace::DeviceCMYK()->ToColorList({0, 0, 0, smallest}, true, true).entries,
                ElementsAre(Entry{smallest, "Black"}));
}

TEST(ToColorListTest, OverprintModeOneTouchesNoOtherSpace)
{
    const auto space = ColorSpace::DeviceN({"A", "B"}, ColorSpace::DeviceCMYK(), AnyFunction());
    EXPECT_EQ(space->ToColorList({0.0f, 1.0f}, true, true).entries.size(), 2u);
    const auto indexed = ColorSpace::Indexed(ColorSpace::DeviceCMYK(), 0, std::string(4, '\0'));
    EXPECT_EQ(indexed->ToColorList({0.0f}, true, true).entries.size(), 4u);
}

TEST(ToColorListTest, SeparationIsItsName)
{
    const auto space = ColorSpace::Separation("Spot", ColorSpace::DeviceCMYK(), AnyFunction());
    EXPECT_THAT(Tints(space, {0.3f}), ElementsAre(Entry{0.3f, "Spot"}));
}

TEST(ToColorListTest, SeparationAllSetsTheAllFlag)
{
    const auto space = ColorSpace::Separation("All", ColorSpace::DeviceCMYK(), AnyFunction());
    const auto list = space->ToColorList({0.3f}, true, false);
    EXPECT_EQ(list, (ColorList<ColorPolicy>{{}, 0.3f, true, true}));
}

TEST(ToColorListTest, SeparationNoneIsEmpty)
{
    const auto space = ColorSpace::Separation("None", ColorSpace::DeviceCMYK(), AnyFunction());
    EXPECT_EQ(space->ToColorList({1.0f}, false, false), ColorList<ColorPolicy>());
}

TEST(ToColorListTest, DeviceNIsItsNamesWithoutNone)
{
    const auto space = ColorSpace::DeviceN({"A", "None", "B"}, ColorSpace::DeviceCMYK(), AnyFunction());
    EXPECT_THAT(Tints(space, {0.1f, 0.2f, 0.0f}), ElementsAre(Entry{0.1f, "A"}, Entry{0.0f, "B"}));
}

TEST(ToColorListTest, RgbIsNamedForTheSpace)
{
    EXPECT_THAT(Tints(ColorSpace::DeviceRGB(), {0.1f, 0.2f, 0.3f}),
                ElementsAre(Entry{0.1f, "DeviceRGB Red"}, Entry{0.2f, "DeviceRGB Green"},
                            Entry{0.3f, "DeviceRGB Blue"}));
}

TEST(ToColorListTest, CieBasedColorantsCarryADigest)
{
    const auto gray = Tints(ColorSpace::CalGray(D50), {0.5f});
    EXPECT_THAT(gray[0].name, MatchesRegex(R"(CalGray\([0-9a-f]+\) Gray)"));
    const auto lab = Tints(ColorSpace::Lab(D50), {50.0f, 0.0f, 0.0f});
    EXPECT_THAT(lab[0].name, MatchesRegex(R"(Lab\([0-9a-f]+\) L)"));
    EXPECT_THAT(lab[2].name, MatchesRegex(R"(Lab\([0-9a-f]+\) b)"));
}

TEST(ToColorListTest, TwoSpacesShareNoColorant)
{
    EXPECT_NE(Tints(ColorSpace::CalRGB(D50), {0, 0, 0})[0].name,
              Tints(ColorSpace::CalRGB(D50, {2.2, 2.2, 2.2}), {0, 0, 0})[0].name);
    EXPECT_EQ(Tints(ColorSpace::CalRGB(D50), {0, 0, 0})[0].name,
              Tints(ColorSpace::CalRGB(D50), {0, 0, 0})[0].name);
}

TEST(ToColorListTest, LabIsScaledByItsRanges)
{
    const auto entries = Tints(ColorSpace::Lab(D50, {-100, 100, -50, 150}), {25.0f, 0.0f, 100.0f});
    EXPECT_EQ(entries[0].value, 0.25f);
    EXPECT_EQ(entries[1].value, 0.5f);
    EXPECT_EQ(entries[2].value, 0.75f);
}

TEST(ToColorListTest, ProfiledColorantsAreNamedForTheModel)
{
    const auto& profiles = GenColorProfiles::Instance();
    const auto name = [](const std::shared_ptr<const ICCProfile>& profile, std::size_t index) {
        return Tints(ColorSpace::ICCBased(profile), {0, 0, 0, 0})[index].name;
    };
    EXPECT_THAT(name(profiles.GetDefaultGrayProfile(true), 0), MatchesRegex(R"(ICCBased\([0-9a-f]+\) Gray)"));
    EXPECT_THAT(name(profiles.GetDefaultRgbProfile(true), 2), MatchesRegex(R"(ICCBased\([0-9a-f]+\) Blue)"));
    EXPECT_THAT(name(profiles.GetDefaultCmykProfile(true), 0), MatchesRegex(R"(ICCBased\([0-9a-f]+\) Cyan)"));
    EXPECT_THAT(name(profiles.GetDefaultLabProfile(true), 1), MatchesRegex(R"(ICCBased\([0-9a-f]+\) a)"));
}

TEST(ToColorListTest, ProfiledColorantsDontDependOnTheFilter)
{
    const auto profile = GenColorProfiles::Instance().GetDefaultRgbProfile(true);
    const PdfObject stream = PdfObject::Stream(
        PdfObject::Dictionary({{"N", PdfObject::Integer(3)}, {"Filter", PdfObject::Name("FlateDecode")}}),
        HarrowSupport::Testing::Deflated(profile->GetData()));
    const auto space = ColorSpace::FromDefinition(PdfObject::Array({PdfObject::Name("ICCBased"), stream}));
    EXPECT_EQ(Tints(space, {0, 0, 0}), Tints(ColorSpace::ICCBased(profile), {0, 0, 0}));
}

TEST(ToColorListTest, IndexedGivesTheColourOfItsTable)
{
    const std::string table("\x00\x00\x00\xFF\x00\x33", 6);
    const auto space = ColorSpace::Indexed(ColorSpace::DeviceRGB(), 1, table);
    EXPECT_EQ(Tints(space, {1.0f}), Tints(ColorSpace::DeviceRGB(), {1.0f, 0.0f, 0.2f}));
}

TEST(ToColorListTest, IndexedRoundsAndClampsItsIndex)
{
    const auto space = ColorSpace::Indexed(ColorSpace::DeviceGray(), 2, std::string("\x00\x33\xFF", 3));
    EXPECT_EQ(Tints(space, {0.6f}), Tints(ColorSpace::DeviceGray(), {0.2f}));
    EXPECT_EQ(Tints(space, {7.0f}), Tints(ColorSpace::DeviceGray(), {1.0f}));
    EXPECT_EQ(Tints(space, {-7.0f}), Tints(ColorSpace::DeviceGray(), {0.0f}));
}

TEST(ToColorListTest, IndexedTakesMissingBytesAsZero)
{
    const auto space = ColorSpace::Indexed(ColorSpace::DeviceGray(), 200, "\xFF");
    EXPECT_EQ(Tints(space, {200.0f}), Tints(ColorSpace::DeviceGray(), {0.0f}));
}

TEST(ToColorListTest, IndexedTableIsSpreadOverTheRangesOfItsBase)
{
    const auto space = ColorSpace::Indexed(ColorSpace::Lab(D50), 0, std::string("\xFF\x00\xFF", 3));
    EXPECT_EQ(Tints(space, {0.0f}), Tints(ColorSpace::Lab(D50), {100.0f, -100.0f, 100.0f}));
}

TEST(ToColorListTest, PatternGivesTheColourUnderIt)
{
    EXPECT_EQ(Tints(ColorSpace::Pattern(ColorSpace::DeviceGray()), {0.5f}),
              Tints(ColorSpace::DeviceGray(), {0.5f}));
    EXPECT_THAT(Tints(ColorSpace::Pattern(), {}), IsEmpty());
}

TEST(ToColorListTest, ComponentsAreClampedToTheirRange)
{
    EXPECT_EQ(Tints(ColorSpace::DeviceRGB(), {-0.5f, 1.5f, std::numeric_limits<float>::quiet_NaN()}),
              Tints(ColorSpace::DeviceRGB(), {0.0f, 1.0f, 0.0f}));
    EXPECT_EQ(Tints(ColorSpace::DeviceGray(), {7.0f}), Tints(ColorSpace::DeviceGray(), {1.0f}));
}

TEST(ToColorListTest, MissingComponentsAreInitialAndSurplusOnesIgnored)
{
    EXPECT_EQ(Tints(ColorSpace::DeviceCMYK(), {0.5f}), Tints(ColorSpace::DeviceCMYK(), {0.5f, 0, 0, 1.0f}));
    EXPECT_EQ(Tints(ColorSpace::DeviceGray(), {0.5f, 0.1f}), Tints(ColorSpace::DeviceGray(), {0.5f}));
}

} // namespace
} // namespace OrvColor
