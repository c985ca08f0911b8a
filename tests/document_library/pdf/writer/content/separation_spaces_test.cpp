#include "pdf/writer/content/separation_spaces.h"

#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "orv_color/tint_transform.h"

namespace OrvPdf
{
namespace
{

using OrvColor::ColorSpace;
using OrvColor::Representation;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

using Entries = std::vector<OrvDoc::Separation::Entry>;

Representation Cmyk(float cyan, float magenta, float yellow, float black)
{
    Representation looks;
    looks.SetCmyk({cyan, magenta, yellow, black});
    return looks;
}

/// What the tint transform of a space gives for tints.
std::vector<double> Looks(const ColorSpace& space, std::vector<double> tints)
{
    const auto values =
        OrvColor::Detail::EvaluateFunction(space.GetDefinition().GetItems().at(3), std::move(tints));
    return values ? *values : std::vector<double>();
}

TEST(SeparationSpaces, ShowsAKnownSeparationInItsColor)
{
    const Entries entries = {{"Gold", Cmyk(0.0f, 0.25f, 1.0f, 0.0f)}};
    SeparationSpaces spaces(entries);
    EXPECT_THAT(Looks(*spaces.Get({"Gold"}), {0.5}), ElementsAre(0.0, 0.125, 0.5, 0.0));
}

TEST(SeparationSpaces, ShowsAnUnknownSeparationInBlack)
{
    SeparationSpaces spaces({});
    EXPECT_THAT(Looks(*spaces.Get({"Gold"}), {0.5}), ElementsAre(0.0, 0.0, 0.0, 0.5));
}

TEST(SeparationSpaces, ShowsAProcessInkAsItself)
{
    SeparationSpaces spaces({});
    EXPECT_THAT(Looks(*spaces.Get({"Magenta"}), {0.5}), ElementsAre(0.0, 0.5, 0.0, 0.0));
}

TEST(SeparationSpaces, KeepsTheFamilyOfAnAlternateColor)
{
    Representation rgb;
    rgb.SetRgb({1.0f, 0.5f, 0.0f});
    Representation gray;
    gray.SetGray({0.5f});
    Representation lab;
    lab.SetLab({50.0f, 20.0f, -20.0f});
    const Entries entries = {{"Rgb", rgb}, {"Gray", gray}, {"Lab", lab}};
    SeparationSpaces spaces(entries);
    for (const auto& entry : entries) {
        const auto alternates = spaces.Get({entry.GetName()})->GetAlternates();
        ASSERT_EQ(alternates.size(), 1u);
        EXPECT_EQ(alternates[0].representation, entry.GetAlternate()) << entry.GetName();
    }
}

TEST(SeparationSpaces, AddsUpTheColorsOfSeveralSeparations)
{
    const Entries entries = {{"Gold", Cmyk(0.0f, 0.25f, 1.0f, 0.0f)}};
    SeparationSpaces spaces(entries);
    const auto space = spaces.Get({"Gold", "Cyan", "Other"});
    EXPECT_EQ(space->GetFamily(), ColorSpace::Family::DeviceN);
    EXPECT_THAT(Looks(*space, {0.5, 0.25, 0.75}),
                ElementsAreArray({DoubleNear(0.25, 1e-9), DoubleNear(0.125, 1e-9), DoubleNear(0.5, 1e-9),
                                  DoubleNear(0.75, 1e-9)}));
}

TEST(SeparationSpaces, CutsSumsOffAtFullInk)
{
    SeparationSpaces spaces({});
    EXPECT_THAT(Looks(*spaces.Get({"A", "B"}), {0.75, 0.75}), ElementsAre(0.0, 0.0, 0.0, 1.0));
}

TEST(SeparationSpaces, TakesTheSpaceOfTheFile)
{
    const auto space = SeparationSpaces({}).Get({"Gold"});
    Entries entries = {{"Gold", Cmyk(1.0f, 0.0f, 0.0f, 0.0f)}};
    entries[0].SetColorSpace(space);
    EXPECT_EQ(SeparationSpaces(entries).Get({"Gold"}), space);
}

TEST(SeparationSpaces, GivesTheSameSpaceForTheSameNames)
{
    SeparationSpaces spaces({});
    EXPECT_EQ(spaces.Get({"A", "B"}), spaces.Get({"A", "B"}));
    EXPECT_NE(spaces.Get({"A", "B"}), spaces.Get({"B", "A"}));
}

TEST(SeparationSpaces, RefusesNamesThatMeanSomethingElse)
{
    SeparationSpaces spaces({});
    for (const std::string name : {"All", "None", ""}) {
        EXPECT_THROW(spaces.Get({name}), std::invalid_argument);
        EXPECT_THROW(spaces.Get({"A", name}), std::invalid_argument);
    }
    EXPECT_THROW(spaces.Get({std::string("a\0b", 3)}), std::invalid_argument);
}

TEST(SeparationSpaces, ABlankComponentIsNoInkAndLooksLikeNone)
{
    SeparationSpaces spaces({});
    const auto space = spaces.GetWithBlanks({"Magenta", "", "Cyan"});
    EXPECT_THAT(space->GetColorantNames(), ElementsAre("Magenta", "None", "Cyan"));
    EXPECT_THAT(Looks(*space, {0.25, 1.0, 0.5}), ElementsAre(0.5, 0.25, 0.0, 0.0));
}

TEST(SeparationSpaces, NothingButABlankComponentIsTheSeparationNone)
{
    SeparationSpaces spaces({});
    EXPECT_THAT(spaces.GetWithBlanks({""})->GetColorantNames(), ElementsAre("None"));
}

TEST(SeparationSpaces, ABlankComponentHasNoNameOfItsOwn)
{
    SeparationSpaces spaces({});
    EXPECT_THROW(spaces.GetWithBlanks({"None", ""}), std::invalid_argument);
    EXPECT_EQ(*spaces.GetWithBlanks({"Gold", "Cyan"}), *spaces.Get({"Gold", "Cyan"}));
}

} // namespace
} // namespace OrvPdf
