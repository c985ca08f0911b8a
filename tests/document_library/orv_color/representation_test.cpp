#include <orv_color/representation.h>

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace OrvColor
{
namespace
{

std::string Print(const Representation& representation)
{
    std::ostringstream stream;
    stream << representation;
    return stream.str();
}

TEST(RepresentationTest, BeginsWithoutAColour)
{
    EXPECT_EQ(Representation().GetKind(), Representation::Kind::None);
    EXPECT_TRUE(Representation().GetComponents().empty());
    EXPECT_EQ(Print(Representation()), "None");
}

TEST(RepresentationTest, HoldsCmyk)
{
    Representation representation;
    representation.SetCmyk({0.0f, 0.5f, 1.0f, 0.25f});
    EXPECT_EQ(representation.GetKind(), Representation::Kind::Cmyk);
    EXPECT_EQ(Print(representation), "Cmyk(0, 0.5, 1, 0.25)");
}

TEST(RepresentationTest, HoldsOtherKinds)
{
    Representation representation;
    representation.SetGray({0.5f});
    EXPECT_EQ(Print(representation), "Gray(0.5)");
    representation.SetRgb({1.0f, 0.5f, 0.0f});
    EXPECT_EQ(Print(representation), "Rgb(1, 0.5, 0)");
    representation.SetLab({50.0f, -20.0f, 30.0f});
    EXPECT_EQ(Print(representation), "Lab(50, -20, 30)");
}

TEST(RepresentationTest, RefusesAWrongNumberOfComponentsAndKeepsWhatItHad)
{
    Representation representation;
    representation.SetGray({0.5f});
    EXPECT_THROW(representation.SetCmyk({1.0f, 1.0f, 1.0f}), std::invalid_argument);
    EXPECT_THROW(representation.SetRgb({1.0f, 1.0f, 1.0f, 1.0f}), std::invalid_argument);
    EXPECT_THROW(representation.SetLab({}), std::invalid_argument);
    EXPECT_EQ(Print(representation), "Gray(0.5)");
}

TEST(RepresentationTest, KindAndComponentsCountForEquality)
{
    Representation rgb;
    rgb.SetRgb({1.0f, 0.0f, 0.0f});
    Representation lab;
    lab.SetLab({1.0f, 0.0f, 0.0f});
    Representation otherRgb;
    otherRgb.SetRgb({1.0f, 0.0f, 0.5f});
    EXPECT_EQ(rgb, Representation(rgb));
    EXPECT_NE(rgb, lab);
    EXPECT_NE(rgb, otherRgb);
    EXPECT_NE(rgb, Representation());
}

} // namespace
} // namespace OrvColor
