#include <orv_blend/blend_mode.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include <boost/optional/optional_io.hpp>

namespace OrvBlend
{
namespace
{

std::string Print(std::uint32_t value)
{
    std::ostringstream stream;
    stream << static_cast<BlendMode>(value);
    return stream.str();
}

TEST(BlendModeTest, PrintsItsPdfName)
{
    std::string names;
    for (std::uint32_t value = 0; value < 16; ++value)
        names += Print(value) + ' ';
    EXPECT_EQ(names, "Normal Multiply Screen Overlay Darken Lighten ColorDodge ColorBurn HardLight SoftLight "
                     "Difference Exclusion Hue Saturation Color Luminosity ");
}

TEST(BlendModeTest, EnumeratorsPrintTheirOwnNames)
{
    EXPECT_EQ(Print(static_cast<std::uint32_t>(BlendMode::ColorBurn)), "ColorBurn");
    EXPECT_EQ(Print(static_cast<std::uint32_t>(BlendMode::Luminosity)), "Luminosity");
}

TEST(BlendModeTest, PrintsNothingForAnUnknownValue)
{
    EXPECT_EQ(Print(16), "");
}

TEST(BlendModeTest, IsFoundByItsName)
{
    for (std::uint32_t value = 0; value < 16; ++value)
        EXPECT_EQ(FindBlendMode(Print(value)), static_cast<BlendMode>(value));
}

TEST(BlendModeTest, TheOldNameCompatibleIsNormal)
{
    EXPECT_EQ(FindBlendMode("Compatible"), BlendMode::Normal);
}

TEST(BlendModeTest, UnknownNamesAreNotFound)
{
    EXPECT_EQ(FindBlendMode("normal"), boost::none);
    EXPECT_EQ(FindBlendMode(""), boost::none);
}

} // namespace
} // namespace OrvBlend
