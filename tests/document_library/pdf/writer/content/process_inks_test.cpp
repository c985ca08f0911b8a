#include "pdf/writer/content/process_inks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

namespace OrvPdf
{
namespace
{

using OrvColor::Representation;
using testing::ElementsAre;
using testing::Pointwise;

MATCHER(IsWithinAPerMille, "")
{
    return std::abs(std::get<0>(arg) - std::get<1>(arg)) <= 0.001f;
}

Representation Looks(void (Representation::*set)(std::vector<OrvColor::Component>),
                     std::vector<OrvColor::Component> components)
{
    Representation looks;
    (looks.*set)(std::move(components));
    return looks;
}

TEST(ProcessInks, OfInksAreTheseThemselves)
{
    EXPECT_THAT(ToProcessInks(Looks(&Representation::SetCmyk, {0.25f, 0.5f, 0.75f, 1.0f})),
                ElementsAre(0.25f, 0.5f, 0.75f, 1.0f));
}

TEST(ProcessInks, OfGreyAreBlack)
{
    EXPECT_THAT(ToProcessInks(Looks(&Representation::SetGray, {0.25f})),
                ElementsAre(0.0f, 0.0f, 0.0f, 0.75f));
}

TEST(ProcessInks, OfWhiteLightAreNone)
{
    EXPECT_THAT(ToProcessInks(Looks(&Representation::SetRgb, {1.0f, 1.0f, 1.0f})),
                ElementsAre(0.0f, 0.0f, 0.0f, 0.0f));
}

TEST(ProcessInks, OfTheSameWhiteInLabAreNone)
{
    EXPECT_THAT(ToProcessInks(Looks(&Representation::SetLab, {100.0f, 0.0f, 0.0f})),
                Pointwise(IsWithinAPerMille(), {0.0f, 0.0f, 0.0f, 0.0f}));
}

TEST(ProcessInks, OfNothingAreBlack)
{
    EXPECT_THAT(ToProcessInks(Representation()), ElementsAre(0.0f, 0.0f, 0.0f, 1.0f));
}

TEST(ProcessInks, AreGuessedByTheirNames)
{
    EXPECT_THAT(GuessProcessInks("Magenta"), ElementsAre(0.0f, 1.0f, 0.0f, 0.0f));
    EXPECT_THAT(GuessProcessInks("Black"), ElementsAre(0.0f, 0.0f, 0.0f, 1.0f));
}

TEST(ProcessInks, OfUnknownNamesAreBlack)
{
    EXPECT_THAT(GuessProcessInks("Leaflet Gold"), ElementsAre(0.0f, 0.0f, 0.0f, 1.0f));
}

} // namespace
} // namespace OrvPdf
