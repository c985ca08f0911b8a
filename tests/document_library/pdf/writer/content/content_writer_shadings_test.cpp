// Shadings as patterns in a content stream, and as definitions.

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/whole_shading_paint.h>

#include "document_library/pdf/writer/writer_test_support.h"
#include "pdf/shading_mapping.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvColor::ColorSpace;
using OrvPaint::AxialShadingPaint;
using OrvPaint::ShadingPaint;
using OrvSys::PdfObject;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

using ShadingPointer = std::shared_ptr<const ShadingPaint>;

constexpr const char* line = "0 0 m\n1 0 l\n";
constexpr std::size_t none = OrvColor::SeparationMappingPolicy::Default();

SeparationMapping Mapping(const std::vector<std::pair<const char*, std::size_t>>& entries)
{
    SeparationMapping mapping;
    for (const auto& [name, index] : entries)
        mapping.Add(name, index);
    return mapping;
}

std::shared_ptr<const OrvPaint::Function> Ramp(std::size_t components)
{
    return OrvPaint::ExponentialFunction::Factory(std::vector<OrvColor::Component>(components, 0.0f),
                                                  std::vector<OrvColor::Component>(components, 1.0f), 1.0)
        .Get();
}

AxialShadingPaint::Factory Axial(const SeparationMapping& mapping, std::size_t components)
{
    AxialShadingPaint::Factory factory(mapping);
    factory.SetFunction(Ramp(components)).SetPoints({{0.0, 0.0}, {1500.0, 1.0}});
    return factory;
}

ShadingPointer Gray(bool overprint = false)
{
    const auto space = ColorSpace::DeviceGray();
    return Axial(OrvPaint::MakeSeparationMapping(*space, overprint), 1).SetNativeSpace(space, false).Get();
}

WrittenContent FillWith(PaintPointer paint)
{
    return WriteObjects(FilledLine(std::move(paint)));
}

/// The definition of the only pattern.
PdfObject DefinitionOf(ShadingPointer paint)
{
    const WrittenContent written = FillWith(std::move(paint));
    EXPECT_EQ(written.patterns.size(), 1u);
    return written.patterns.empty() ? PdfObject() : written.patterns[0].shading->dictionary;
}

/// The colour space and the private mapping, if there is one, of a shading for a list.
std::string SpaceAndMapping(const SeparationMapping& mapping, std::size_t components)
{
    const PdfObject definition = DefinitionOf(Axial(mapping, components).Get());
    const PdfObject space = definition.Find("ColorSpace");
    std::string text = space.IsName() ? space.GetText()
                                      : space.GetItems()[0].GetText() + " " + space.GetItems()[1].Serialize();
    const PdfObject own = definition.Find(ShadingKeys::mapping);
    return text + (own.IsNull() ? "" : " " + own.Serialize());
}

/// What is told about a fill that can't be written.
std::string ProblemOf(PaintPointer paint)
{
    const auto texts = FillWith(std::move(paint)).problems.GetTexts({});
    return texts.empty() ? "" : texts[0];
}

TEST(ContentWriterShadings, SaysAShadingAsAPattern)
{
    EXPECT_EQ(FillWith(Gray()).bytes, std::string("/Pattern cs\n/p0 scn\n") + line + "f\n");
    EXPECT_EQ(WriteObjects(StrokedLine(Gray())).bytes, std::string("/Pattern CS\n/p0 SCN\n") + line + "S\n");
}

TEST(ContentWriterShadings, SaysAPaintOnceAndAnotherOneAnew)
{
    const auto first = Gray();
    const auto second = Gray();
    const WrittenContent written =
        WriteObjects(FilledLine(first), FilledLine(first), FilledLine(second), FilledLine(first));
    const std::string fill = std::string(line) + "f\n";
    EXPECT_EQ(written.bytes,
              "/Pattern cs\n/p0 scn\n" + fill + fill + "/p1 scn\n" + fill + "/p0 scn\n" + fill);
    ASSERT_EQ(written.patterns.size(), 2u);
    EXPECT_EQ(written.patterns[0].paint, first);
    EXPECT_EQ(written.patterns[1].paint, second);
}

TEST(ContentWriterShadings, GoesFromAPatternToColorsAndBack)
{
    const auto shading = Gray();
    const std::string fill = std::string(line) + "f\n";
    EXPECT_EQ(WriteObjects(FilledLine(shading), FilledLine(Native(ColorSpace::DeviceGray(), {0.0f})),
                           FilledLine(shading))
                  .bytes,
              "/Pattern cs\n/p0 scn\n" + fill + "0 g\n" + fill + "/Pattern cs\n/p0 scn\n" + fill);
}

TEST(ContentWriterShadings, FillAndStrokeMayHaveTheSamePattern)
{
    const auto shading = Gray();
    auto path = FilledLine(shading);
    path->SetStrokePaint(shading);
    EXPECT_EQ(WriteObjects(std::move(path)).bytes,
              std::string("/Pattern cs\n/p0 scn\n/Pattern CS\n/p0 SCN\n") + line + "B\n");
}

TEST(ContentWriterShadings, SetsTheOverprintOfItsMapping)
{
    const WrittenContent written = FillWith(Gray(true));
    EXPECT_THAT(written.bytes, HasSubstr("/gs0 gs\n"));
    ASSERT_EQ(written.graphicsStates.size(), 1u);
    EXPECT_TRUE(written.graphicsStates[0].fill);
    EXPECT_FALSE(written.graphicsStates[0].stroke);
}

TEST(ContentWriterShadings, DefinesAnAxialShading)
{
    auto factory = Axial(Mapping({{"Gold", 0}}), 1);
    factory.SetExtends({true, false}).SetParameterRange({0.25, 2.0}).SetAntiAliased(true);
    const PdfObject definition = DefinitionOf(factory.SetBoundingBox({1.0, 2.0, 3.5, 4.0}).Get());
    EXPECT_EQ(definition.Find("ShadingType").GetInteger(), 2);
    EXPECT_EQ(definition.Find("Coords").Serialize(), "[0 0 1.5 0.001]");
    EXPECT_EQ(definition.Find("Extend").Serialize(), "[true false]");
    EXPECT_EQ(definition.Find("Domain").Serialize(), "[0.25 2]");
    EXPECT_EQ(definition.Find("BBox").Serialize(), "[1 2 4.5 6]");
    EXPECT_EQ(definition.Find("AntiAlias").Serialize(), "true");
    EXPECT_TRUE(definition.Find("Background").IsNull());
}

TEST(ContentWriterShadings, DefinesARadialShading)
{
    OrvPaint::RadialShadingPaint::Factory factory(Mapping({{"Gold", 0}}));
    factory.SetFunction(Ramp(1)).SetCenters({{1000.0, 2000.0}, {4000.0, 5000.0}}).SetRadii({3.0, 6000.0});
    const PdfObject definition = DefinitionOf(factory.Get());
    EXPECT_EQ(definition.Find("ShadingType").GetInteger(), 3);
    EXPECT_EQ(definition.Find("Coords").Serialize(), "[1 2 0.003 4 5 6]");
}

TEST(ContentWriterShadings, KeepsTheNativeSpace)
{
    const auto lab = ColorSpace::Lab({0.9642, 1.0, 0.8249});
    const PdfObject definition =
        DefinitionOf(Axial(OrvPaint::MakeSeparationMapping(*lab, false), 3).SetNativeSpace(lab, false).Get());
    EXPECT_EQ(definition.Find("ColorSpace"), lab->GetDefinition());
    EXPECT_TRUE(definition.Find(ShadingKeys::mapping).IsNull());
}

TEST(ContentWriterShadings, TakesASpaceWhoseComponentsFollowTheIndices)
{
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Gold", 0}}), 1), "Separation /Gold");
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Gold", 0}, {"Cyan", 1}}), 2), "DeviceN [/Gold /Cyan]");
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Cyan", 0}, {"Magenta", 1}, {"Yellow", 2}, {"Black", 3}}), 4),
              "DeviceCMYK");
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Black", 0}, {"Magenta", 1}, {"Yellow", 2}, {"Cyan", 3}}), 4),
              "DeviceN [/Black /Magenta /Yellow /Cyan]");
    SeparationMapping all;
    all.all = true;
    all.valueForAll = 0;
    EXPECT_EQ(SpaceAndMapping(all, 1), "Separation /All");
}

TEST(ContentWriterShadings, SaysWithAPrivateKeyWhatTheSpaceCannot)
{
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Gold", 1}, {"Cyan", 0}}), 2),
              "DeviceN [/Cyan /Gold] <</All false /Entries [(Gold) 1 (Cyan) 0] /ForAll -1>>");
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Gold", 0}, {"Cyan", 0}}), 1),
              "Separation /Gold <</All false /Entries [(Gold) 0 (Cyan) 0] /ForAll -1>>");
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Gold", 0}, {"Gold", 1}}), 2),
              "DeviceN [/Gold /None] <</All false /Entries [(Gold) 0 (Gold) 1] /ForAll -1>>");
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Gold", 0}, {"Cyan", none}, {"Black", 5}}), 1),
              "Separation /Gold <</All false /Entries [(Gold) 0 (Cyan) -1 (Black) 5] /ForAll -1>>");
}

TEST(ContentWriterShadings, AnIndexWithoutASeparationNeedsNoPrivateKey)
{
    EXPECT_EQ(SpaceAndMapping(Mapping({{"Gold", 0}, {"Cyan", 2}}), 3), "DeviceN [/Gold /None /Cyan]");
    EXPECT_EQ(SpaceAndMapping(Mapping({}), 1), "Separation /None");
}

TEST(ContentWriterShadings, SaysABackgroundOfAnotherLengthWithAPrivateKey)
{
    auto factory = Axial(Mapping({{"Gold", 0}, {"Cyan", 1}}), 2);
    factory.SetBackground(std::vector<OrvColor::Component>{0.5f, 1.0f});
    EXPECT_EQ(DefinitionOf(factory.Get()).Find("Background").Serialize(), "[0.5 1]");
    EXPECT_TRUE(DefinitionOf(factory.Get()).Find(ShadingKeys::background).IsNull());
    factory.SetBackground(std::vector<OrvColor::Component>{0.5f});
    EXPECT_EQ(DefinitionOf(factory.Get()).Find("Background").Serialize(), "[0.5 0]");
    EXPECT_EQ(DefinitionOf(factory.Get()).Find(ShadingKeys::background).Serialize(), "[0.5]");
}

TEST(ContentWriterShadings, TellsWhatCannotBeWritten)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const SeparationMapping gold = Mapping({{"Gold", 0}});
    EXPECT_THAT(ProblemOf(Axial(gold, 1).SetPoints({{0.0, infinite}, {0.0, 0.0}}).Get()),
                HasSubstr("shadings with numbers that are not finite"));
    EXPECT_THAT(ProblemOf(Axial(gold, 1).SetTransformation({1, 0, 0, infinite, 0.0, 0.0}).Get()),
                HasSubstr("infinite numbers in their matrix"));
    EXPECT_THAT(ProblemOf(Axial(gold, 1).SetBoundingBox({0.0, 0.0, -1.0, 1.0}).Get()),
                HasSubstr("bounding box of negative or infinite extents"));
    EXPECT_THAT(ProblemOf(Axial(gold, 1).SetNativeSpace(ColorSpace::DeviceRGB(), false).Get()),
                HasSubstr("do not fit their colour space"));
    EXPECT_THAT(ProblemOf(Axial(gold, 0).Get()), HasSubstr("without any component"));
    EXPECT_THAT(ProblemOf(Axial(gold, 300).Get()), HasSubstr("separations that no colour space can name"));
    for (const char* const name : {"", "All", "None"}) {
        EXPECT_THAT(ProblemOf(Axial(Mapping({{name, 0}}), 1).Get()),
                    HasSubstr("separations that no colour space can name"));
    }
    SeparationMapping all;
    all.all = true;
    all.valueForAll = 1;
    EXPECT_THAT(ProblemOf(Axial(all, 2).Get()), HasSubstr("all separations with more than one component"));
    OrvPaint::RadialShadingPaint::Factory radial(gold);
    EXPECT_THAT(ProblemOf(radial.SetFunction(Ramp(1)).SetRadii({1.0, -1.0}).Get()),
                HasSubstr("a radius below zero"));
}

TEST(ContentWriterShadings, WhatCannotBeWrittenLeavesThePathWithoutAPaint)
{
    const WrittenContent written = FillWith(Axial(Mapping({{"All", 0}}), 1).Get());
    EXPECT_EQ(written.bytes, std::string(line) + "n\n");
    EXPECT_TRUE(written.patterns.empty());
}

} // namespace
} // namespace OrvPdf::Testing
