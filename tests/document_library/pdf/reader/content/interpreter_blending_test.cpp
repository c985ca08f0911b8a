#include <cmath>
#include <limits>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/transparency.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvBlend::BlendMode;
using OrvBlend::Transparency;
using OrvPdf::Testing::Reading;
using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::IsEmpty;

using TransparencyPointer = std::shared_ptr<const Transparency>;

const std::string line = " 0 0 m 1 0 l f ";

/// A reading with the states `/A`, `/B` and so on.
class Blending : public testing::Test
{
protected:
    void Define(const std::string& name, PdfObject::Entries parameters)
    {
        reading.resources.states[name] = PdfObject::Dictionary(std::move(parameters));
    }

    /// The transparencies of the objects at the top, in order.
    std::vector<TransparencyPointer> Read(const std::string& stream)
    {
        reading.Read(stream);
        std::vector<TransparencyPointer> result;
        for (auto* object = reading.content->GetChildren().first; object; object = object->next)
            result.push_back(dynamic_cast<OrvDoc::Blendable&>(*object).GetTransparency());
        return result;
    }

    /// The transparency of a line behind `gs` of the parameters.
    TransparencyPointer Under(PdfObject::Entries parameters)
    {
        Define("G", std::move(parameters));
        return Read("/G gs" + line).at(0);
    }

    Reading reading;
};

TEST_F(Blending, TheInitialStateGivesNoTransparency)
{
    EXPECT_EQ(Under({{"BM", PdfObject::Name("Normal")},
                     {"CA", PdfObject::Real("1.0")},
                     {"ca", PdfObject::Integer(1)},
                     {"AIS", PdfObject::Boolean(false)},
                     {"SMask", PdfObject::Name("None")}}),
              nullptr);
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(Blending, EachParameterSetsItsField)
{
    const auto given = Under({{"BM", PdfObject::Name("ColorBurn")},
                              {"CA", PdfObject::Real("0.25")},
                              {"ca", PdfObject::Real("0.5")},
                              {"AIS", PdfObject::Boolean(true)}});
    ASSERT_TRUE(given);
    EXPECT_EQ(given->blendMode, BlendMode::ColorBurn);
    EXPECT_EQ(given->strokeAlpha, 0.25F);
    EXPECT_EQ(given->fillAlpha, 0.5F);
    EXPECT_TRUE(given->alphaIsShape);
    EXPECT_FALSE(given->isolated);
    EXPECT_FALSE(given->knockout);
    EXPECT_THAT(reading.result.errors, IsEmpty());
    EXPECT_FALSE(reading.result.hasUnmodelled);
}

TEST_F(Blending, EveryStandardBlendModeIsKnown)
{
    for (auto mode = BlendMode::Multiply; mode <= BlendMode::Luminosity;
         mode = static_cast<BlendMode>(static_cast<unsigned>(mode) + 1)) {
        std::ostringstream name;
        name << mode;
        const auto given = Under({{"BM", PdfObject::Name(name.str())}});
        ASSERT_TRUE(given) << name.str();
        EXPECT_EQ(given->blendMode, mode);
    }
}

TEST_F(Blending, TheFirstKnownModeOfAnArrayCounts)
{
    const auto modes = [](const std::vector<std::string>& names) {
        PdfObject::Items items;
        for (const std::string& name : names)
            items.push_back(PdfObject::Name(name));
        return PdfObject::Array(items);
    };
    EXPECT_EQ(Under({{"BM", modes({"Sparkle", "Screen", "Multiply"})}})->blendMode, BlendMode::Screen);
    EXPECT_EQ(Under({{"BM", modes({"Normal", "Screen"})}}), nullptr);
    EXPECT_EQ(Under({{"BM", modes({"Compatible"})}}), nullptr);
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(Blending, AnUnknownModeCountsAsNormalAndIsTold)
{
    Define("A", {{"BM", PdfObject::Name("Screen")}});
    Define("B", {{"BM", PdfObject::Name("Sparkle")}});
    EXPECT_THAT(Read("/A gs /B gs" + line), ElementsAre(nullptr));
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator gs: an unknown blend mode counts as Normal (Sparkle), byte 6"));
    EXPECT_FALSE(reading.result.hasUnmodelled);
}

TEST_F(Blending, AlphasKeepTheNearestFloat)
{
    EXPECT_EQ(Under({{"ca", PdfObject::Real("0.1")}})->fillAlpha, 0.1F);
    const float belowOne = std::nextafter(1.0F, 0.0F);
    EXPECT_EQ(Under({{"ca", PdfObject::Real("0.99999994")}})->fillAlpha, belowOne);
    EXPECT_EQ(Under({{"CA", PdfObject::Integer(0)}})->strokeAlpha, 0.0F);
}

TEST_F(Blending, AlphasOutOfBoundsAreClampedAndTold)
{
    EXPECT_EQ(Under({{"ca", PdfObject::Real("-0.5")}})->fillAlpha, 0.0F);
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator gs: parameter ca lies outside of 0 to 1; the nearest of them counts, "
                            "byte 0"));
    EXPECT_EQ(Under({{"CA", PdfObject::Integer(2)}}), nullptr);
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator gs: parameter CA lies outside of 0 to 1; the nearest of them counts, "
                            "byte 0"));
}

TEST_F(Blending, MalformedParametersLeaveTheStateAsItIs)
{
    Define("A", {{"BM", PdfObject::Name("Screen")},
                 {"ca", PdfObject::Real("0.5")},
                 {"AIS", PdfObject::Boolean(true)}});
    Define("B",
           {{"BM", PdfObject::Integer(1)}, {"ca", PdfObject::Name("x")}, {"AIS", PdfObject::Integer(0)}});
    const auto given = Read("/A gs" + line + "/B gs" + line);
    EXPECT_EQ(given.at(0), given.at(1));
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator gs: parameter AIS is malformed and left out, byte 20",
                            "operator gs: parameter BM is malformed and left out, byte 20",
                            "operator gs: parameter ca is malformed and left out, byte 20"));
    EXPECT_EQ(Under({{"BM", PdfObject::Array({})}}), nullptr);
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator gs: parameter BM is malformed and left out, byte 0"));
}

TEST_F(Blending, EqualValuesAreOneObject)
{
    Define("A", {{"ca", PdfObject::Real("0.5")}});
    Define("B", {{"ca", PdfObject::Real("0.75")}});
    Define("C", {{"ca", PdfObject::Real("0.50")}});
    const auto given = Read("/A gs" + line + "/B gs" + line + "/C gs" + line + line);
    EXPECT_EQ(given.at(0), given.at(2));
    EXPECT_EQ(given.at(0), given.at(3));
    EXPECT_NE(given.at(0), given.at(1));
}

TEST_F(Blending, ItBelongsToTheStateThatIsSaved)
{
    Define("A", {{"ca", PdfObject::Real("0.5")}});
    Define("B", {{"BM", PdfObject::Name("Multiply")}});
    const auto given = Read("/A gs q /B gs" + line + "Q" + line);
    EXPECT_EQ(given.at(0)->blendMode, BlendMode::Multiply);
    EXPECT_EQ(given.at(0)->fillAlpha, 0.5F);
    EXPECT_EQ(given.at(1)->blendMode, BlendMode::Normal);
    EXPECT_EQ(given.at(1)->fillAlpha, 0.5F);
}

TEST_F(Blending, PathsWithoutPaintHaveItToo)
{
    Define("A", {{"ca", PdfObject::Real("0.5")}});
    EXPECT_THAT(Read("/A gs 0 0 m 1 0 l n").at(0), testing::NotNull());
}

TEST_F(Blending, AMarkedObjectHasTheFlagsOfItsMark)
{
    Define("A", {{"ca", PdfObject::Real("0.5")}});
    const auto given =
        Read("/OrvObject << /Isolated true >> BDC" + line + "EMC" + line +
             "/A gs /OrvObject << /Knockout true /Isolated false >> BDC" + line + "EMC" + line);
    EXPECT_EQ(*given.at(0), *Transparency::Factory().SetIsolated(true).Get());
    EXPECT_EQ(given.at(1), nullptr);
    EXPECT_EQ(*given.at(2), *Transparency::Factory().SetKnockout(true).SetFillAlpha(0.5F).Get());
    EXPECT_EQ(*given.at(3), *Transparency::Factory().SetFillAlpha(0.5F).Get());
}

TEST_F(Blending, AMarkedObjectCanHaveTheDefaultTransparency)
{
    EXPECT_THAT(Read("/OrvObject << /Blended true >> BDC" + line + "EMC" + line),
                ElementsAre(Transparency::Factory::GetDefault(), nullptr));
}

TEST_F(Blending, ASoftMaskIsToldAndTheRestRead)
{
    const auto given = Under({{"ca", PdfObject::Real("0.5")}, {"SMask", PdfObject::Name("Unresolved")}});
    EXPECT_EQ(given->fillAlpha, 0.5F);
    EXPECT_TRUE(reading.result.hasUnmodelled);
}

} // namespace
