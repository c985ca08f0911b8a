#include <orv_color/color_space.h>

#include <orv_color/gen_color_profiles.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace OrvColor
{
namespace
{

using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::HasSubstr;
using Family = ColorSpace::Family;
using Range = std::array<double, 2>;

constexpr std::array<double, 3> D50 = {0.9642, 1.0, 0.8249};

PdfObject Name(const char* name)
{
    return PdfObject::Name(name);
}

PdfObject Int(std::int64_t value)
{
    return PdfObject::Integer(value);
}

PdfObject WhitePoint()
{
    return PdfObject::Array({PdfObject::Real(0.9642), Int(1), PdfObject::Real(0.8249)});
}

PdfObject Tint(std::size_t components)
{
    return PdfObject::Dictionary({{"FunctionType", Int(2)},
                                  {"Domain", PdfObject::Array({Int(0), Int(1)})},
                                  {"C0", PdfObject::Array(PdfObject::Items(components, Int(0)))},
                                  {"C1", PdfObject::Array(PdfObject::Items(components, Int(1)))},
                                  {"N", Int(1)}});
}

std::string Problem(const PdfObject& definition)
{
    try {
        ColorSpace::FromDefinition(definition);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "none";
}

TEST(ColorSpaceTest, DeviceSpacesComeFromTheirNames)
{
    EXPECT_EQ(ColorSpace::FromDefinition(Name("DeviceGray")), ColorSpace::DeviceGray());
    EXPECT_EQ(ColorSpace::FromDefinition(Name("DeviceRGB")), ColorSpace::DeviceRGB());
    EXPECT_EQ(ColorSpace::FromDefinition(Name("DeviceCMYK")), ColorSpace::DeviceCMYK());
}

TEST(ColorSpaceTest, DeviceSpacesComeFromAbbreviationsAndArraysOfOne)
{
    EXPECT_EQ(ColorSpace::FromDefinition(Name("G")), ColorSpace::DeviceGray());
    EXPECT_EQ(ColorSpace::FromDefinition(Name("RGB")), ColorSpace::DeviceRGB());
    EXPECT_EQ(ColorSpace::FromDefinition(PdfObject::Array({Name("CMYK")})), ColorSpace::DeviceCMYK());
    EXPECT_EQ(ColorSpace::DeviceCMYK()->GetDefinition(), Name("DeviceCMYK"));
}

TEST(ColorSpaceTest, DeviceSpacesHaveTheirInitialColours)
{
    EXPECT_THAT(ColorSpace::DeviceGray()->GetInitialComponents(), ElementsAre(0.0f));
    EXPECT_THAT(ColorSpace::DeviceRGB()->GetInitialComponents(), ElementsAre(0.0f, 0.0f, 0.0f));
    EXPECT_THAT(ColorSpace::DeviceCMYK()->GetInitialComponents(), ElementsAre(0.0f, 0.0f, 0.0f, 1.0f));
}

TEST(ColorSpaceTest, DeviceSpacesHaveUnitRanges)
{
    EXPECT_THAT(ColorSpace::DeviceRGB()->GetRanges(),
                ElementsAre(Range{0.0, 1.0}, Range{0.0, 1.0}, Range{0.0, 1.0}));
}

TEST(ColorSpaceTest, CalibratedSpacesKeepTheirDefinition)
{
    const PdfObject definition = PdfObject::Array(
        {Name("CalRGB"), PdfObject::Dictionary({{"WhitePoint", WhitePoint()}, {"Private", Int(7)}})});
    const auto space = ColorSpace::FromDefinition(definition);
    EXPECT_EQ(space->GetFamily(), Family::CalRGB);
    EXPECT_EQ(space->GetDefinition(), definition);
    EXPECT_EQ(space->GetComponentCount(), 3u);
}

TEST(ColorSpaceTest, LabHasItsRangeBehindThatOfLightness)
{
    const auto space = ColorSpace::Lab(D50, {-50, 60, 10, 80});
    EXPECT_THAT(space->GetRanges(), ElementsAre(Range{0, 100}, Range{-50, 60}, Range{10, 80}));
    EXPECT_THAT(space->GetInitialComponents(), ElementsAre(0.0f, 0.0f, 10.0f));
}

TEST(ColorSpaceTest, LabHasADefaultRange)
{
    const auto space = ColorSpace::FromDefinition(
        PdfObject::Array({Name("Lab"), PdfObject::Dictionary({{"WhitePoint", WhitePoint()}})}));
    EXPECT_THAT(space->GetRanges(), ElementsAre(Range{0, 100}, Range{-100, 100}, Range{-100, 100}));
}

TEST(ColorSpaceTest, ProfiledSpaceHasTheComponentsOfItsProfile)
{
    const auto& profiles = GenColorProfiles::Instance();
    EXPECT_EQ(ColorSpace::ICCBased(profiles.GetDefaultGrayProfile(true))->GetComponentCount(), 1u);
    EXPECT_EQ(ColorSpace::ICCBased(profiles.GetDefaultRgbProfile(true))->GetComponentCount(), 3u);
    EXPECT_EQ(ColorSpace::ICCBased(profiles.GetDefaultCmykProfile(true))->GetComponentCount(), 4u);
}

TEST(ColorSpaceTest, ProfiledLabHasTheRangesOfLab)
{
    const auto space = ColorSpace::ICCBased(GenColorProfiles::Instance().GetDefaultLabProfile(true));
    EXPECT_THAT(space->GetRanges(), ElementsAre(Range{0, 100}, Range{-128, 127}, Range{-128, 127}));
}

TEST(ColorSpaceTest, SeparationBeginsAtFullTint)
{
    const auto space = ColorSpace::Separation("Spot", ColorSpace::DeviceCMYK(), Tint(4));
    EXPECT_EQ(space->GetFamily(), Family::Separation);
    EXPECT_THAT(space->GetInitialComponents(), ElementsAre(1.0f));
    EXPECT_THAT(space->GetColorantNames(), ElementsAre("Spot"));
    EXPECT_EQ(space->GetBase(), ColorSpace::DeviceCMYK());
}

TEST(ColorSpaceTest, DeviceNHasOneComponentForEachName)
{
    const auto space = ColorSpace::DeviceN({"Spot", "None", "Cyan"}, ColorSpace::DeviceCMYK(), Tint(4));
    EXPECT_EQ(space->GetComponentCount(), 3u);
    EXPECT_THAT(space->GetInitialComponents(), ElementsAre(1.0f, 1.0f, 1.0f));
    EXPECT_THAT(space->GetColorantNames(), ElementsAre("Spot", "None", "Cyan"));
}

TEST(ColorSpaceTest, IndexedHasOneComponentUpToItsHighestIndex)
{
    const auto space = ColorSpace::Indexed(ColorSpace::DeviceRGB(), 3, std::string(12, 'x'));
    EXPECT_THAT(space->GetRanges(), ElementsAre(Range{0.0, 3.0}));
    EXPECT_EQ(space->GetBase(), ColorSpace::DeviceRGB());
}

TEST(ColorSpaceTest, AbbreviatedIndexedIsDefinedInFull)
{
    const auto space = ColorSpace::FromDefinition(
        PdfObject::Array({Name("I"), Name("RGB"), Int(0), PdfObject::String("abc")}));
    EXPECT_EQ(*space, *ColorSpace::Indexed(ColorSpace::DeviceRGB(), 0, "abc"));
}

TEST(ColorSpaceTest, PatternHasTheComponentsUnderIt)
{
    EXPECT_EQ(ColorSpace::Pattern()->GetComponentCount(), 0u);
    EXPECT_EQ(ColorSpace::Pattern(ColorSpace::DeviceRGB())->GetComponentCount(), 3u);
    EXPECT_EQ(ColorSpace::Pattern(ColorSpace::DeviceRGB())->GetBase(), ColorSpace::DeviceRGB());
}

TEST(ColorSpaceTest, ExactlyTheCieBasedSpacesAreDeviceIndependent)
{
    const auto profile = GenColorProfiles::Instance().GetDefaultRgbProfile(true);
    const auto calibrated = ColorSpace::CalRGB(D50);
    EXPECT_TRUE(ColorSpace::CalGray(D50)->IsDeviceIndependent());
    EXPECT_TRUE(calibrated->IsDeviceIndependent());
    EXPECT_TRUE(ColorSpace::Lab(D50)->IsDeviceIndependent());
    EXPECT_TRUE(ColorSpace::ICCBased(profile)->IsDeviceIndependent());
    EXPECT_FALSE(ColorSpace::DeviceGray()->IsDeviceIndependent());
    EXPECT_FALSE(ColorSpace::DeviceRGB()->IsDeviceIndependent());
    EXPECT_FALSE(ColorSpace::DeviceCMYK()->IsDeviceIndependent());
    EXPECT_FALSE(ColorSpace::Separation("S", calibrated, Tint(3))->IsDeviceIndependent());
    EXPECT_FALSE(ColorSpace::DeviceN({"S"}, calibrated, Tint(3))->IsDeviceIndependent());
    EXPECT_FALSE(ColorSpace::Indexed(calibrated, 0, "abc")->IsDeviceIndependent());
    EXPECT_FALSE(ColorSpace::Pattern(calibrated)->IsDeviceIndependent());
}

TEST(ColorSpaceTest, EqualityGoesByDefinition)
{
    EXPECT_EQ(*ColorSpace::CalGray(D50, 2.2), *ColorSpace::CalGray(D50, 2.2));
    EXPECT_NE(*ColorSpace::CalGray(D50, 2.2), *ColorSpace::CalGray(D50, 1.8));
    EXPECT_NE(*ColorSpace::DeviceGray(), *ColorSpace::DeviceRGB());
}

TEST(ColorSpaceTest, WhitePointsAreChecked)
{
    EXPECT_THROW(ColorSpace::CalGray({0.0, 1.0, 1.0}), std::invalid_argument);
    EXPECT_THROW(ColorSpace::CalRGB({1.0, 0.9, 1.0}), std::invalid_argument);
    EXPECT_THROW(ColorSpace::Lab({1.0, 1.0, -1.0}), std::invalid_argument);
}

TEST(ColorSpaceTest, MissingSpacesAndProfilesAreRefused)
{
    EXPECT_THROW(ColorSpace::ICCBased(nullptr), std::invalid_argument);
    EXPECT_THROW(ColorSpace::Separation("S", nullptr, Tint(1)), std::invalid_argument);
    EXPECT_THROW(ColorSpace::Indexed(nullptr, 0, "a"), std::invalid_argument);
}

TEST(ColorSpaceTest, MalformedDefinitionsSayWhatIsWrong)
{
    const PdfObject empty = PdfObject::Dictionary({});
    const auto array = [](PdfObject::Items items) { return PdfObject::Array(std::move(items)); };
    EXPECT_THAT(Problem(Int(3)), HasSubstr("begins with '3'"));
    EXPECT_THAT(Problem(array({})), HasSubstr("begins with 'null'"));
    EXPECT_THAT(Problem(Name("Devicegray")), HasSubstr("'Devicegray' is of no known family"));
    EXPECT_THAT(Problem(array({Name("CalGray")})), HasSubstr("CalGray needs a dictionary"));
    EXPECT_THAT(Problem(array({Name("Lab"), empty})), HasSubstr("Lab needs 3 numbers under WhitePoint"));
    EXPECT_THAT(Problem(array({Name("ICCBased"), empty})), HasSubstr("ICCBased needs a stream"));
    EXPECT_THAT(Problem(array({Name("ICCBased"), PdfObject::Stream(empty, "")})),
                HasSubstr("ICCBased needs 1, 3 or 4 under N, not 'null'"));
    EXPECT_THAT(Problem(array({Name("Separation"), Int(1), Name("DeviceGray"), Tint(1)})),
                HasSubstr("Separation has '1' for the name of a colorant"));
    EXPECT_THAT(Problem(array({Name("Separation"), Name("S"), Name("Pattern"), Tint(1)})),
                HasSubstr("Separation has an alternate or base that is Indexed or Pattern"));
    EXPECT_THAT(Problem(array({Name("Separation"), Name("S"), Name("DeviceGray")})),
                HasSubstr("Separation needs a function"));
    EXPECT_THAT(Problem(array({Name("DeviceN"), array({}), Name("DeviceGray"), Tint(1)})),
                HasSubstr("DeviceN needs 1 to 256 colorants, not 0"));
    EXPECT_THAT(Problem(array({Name("Indexed"), Name("DeviceGray"), Int(256), PdfObject::String("")})),
                HasSubstr("Indexed needs a highest index from 0 to 255, not '256'"));
    EXPECT_THAT(Problem(array({Name("Indexed"), Name("DeviceGray"), Int(255)})),
                HasSubstr("Indexed has no table that can be decoded"));
    EXPECT_THAT(Problem(array({Name("Pattern"), Name("Pattern")})), HasSubstr("Pattern space under it"));
}

TEST(ColorSpaceTest, RangesThatEndBelowTheirStartAreRefused)
{
    EXPECT_THROW(ColorSpace::Lab(D50, {10, -10, -100, 100}), std::invalid_argument);
}

TEST(ColorSpaceTest, DeviceNTakesAsManyColorantsAsTheBound)
{
    const std::vector<std::string> names(ColorSpace::MaxColorants, "S");
    EXPECT_NO_THROW(ColorSpace::DeviceN(names, ColorSpace::DeviceGray(), Tint(1)));
    std::vector<std::string> more = names;
    more.push_back("S");
    EXPECT_THROW(ColorSpace::DeviceN(more, ColorSpace::DeviceGray(), Tint(1)), std::invalid_argument);
}

} // namespace
} // namespace OrvColor
