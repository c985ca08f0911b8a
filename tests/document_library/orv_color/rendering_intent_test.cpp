#include <orv_color/rendering_intent.h>

#include <gtest/gtest.h>

#include <sstream>

#include <boost/optional/optional_io.hpp>

namespace OrvColor
{
namespace
{

std::string Print(std::uint32_t value)
{
    std::ostringstream stream;
    stream << static_cast<RenderingIntent>(value);
    return stream.str();
}

TEST(RenderingIntentTest, PrintsItsPdfName)
{
    EXPECT_EQ(Print(0), "AbsoluteColorimetric");
    EXPECT_EQ(Print(1), "RelativeColorimetric");
    EXPECT_EQ(Print(2), "Saturation");
    EXPECT_EQ(Print(3), "Perceptual");
}

TEST(RenderingIntentTest, PrintsNothingForAnUnknownValue)
{
    EXPECT_EQ(Print(4), "");
}

TEST(RenderingIntentTest, IsFoundByItsName)
{
    EXPECT_EQ(FindRenderingIntent("Perceptual"), RenderingIntent::Perceptual);
    EXPECT_EQ(FindRenderingIntent("perceptual"), boost::none);
}

TEST(RenderingIntentTest, Has32Bits)
{
    EXPECT_EQ(sizeof(RenderingIntent), 4u);
}

} // namespace
} // namespace OrvColor
