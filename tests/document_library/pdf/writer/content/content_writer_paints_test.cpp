#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/writer/writer_test_support.h"
#include "pdf/number_text.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvColor::ColorSpace;
using ::testing::ElementsAre;

constexpr const char* line = "0 0 m\n1 0 l\n";

/// The operators in front of a filled path.
std::string Said(const WrittenContent& content)
{
    return content.bytes.substr(0, content.bytes.find(line));
}

WrittenContent FillWith(PaintPointer paint)
{
    return WriteObjects(FilledLine(std::move(paint)));
}

const ColorSpace& SpaceOf(const WrittenContent& content)
{
    return *content.colorSpaces.at(0);
}

ExtGState Overprint(bool stroke, bool fill, bool nonzero)
{
    ExtGState state;
    state.stroke = stroke;
    state.fill = fill;
    state.nonzero = nonzero;
    return state;
}

TEST(ContentWriterPaints, SaysDeviceColorsByTheirOperators)
{
    EXPECT_EQ(Said(FillWith(Native(ColorSpace::DeviceGray(), {0.5f}))), "0.5 g\n");
    EXPECT_EQ(Said(FillWith(Native(ColorSpace::DeviceRGB(), {0.1f, 0.2f, 0.3f}))), "0.1 0.2 0.3 rg\n");
    EXPECT_EQ(Said(FillWith(Native(ColorSpace::DeviceCMYK(), {0.0f, 0.25f, 0.5f, 1.0f}))),
              "0 0.25 0.5 1 k\n");
    EXPECT_EQ(WriteObjects(StrokedLine(Native(ColorSpace::DeviceGray(), {0.5f}))).bytes,
              std::string("0.5 G\n") + line + "S\n");
}

TEST(ContentWriterPaints, SaysOtherSpacesByResource)
{
    const auto lab = ColorSpace::Lab({0.9642, 1.0, 0.8249});
    const WrittenContent written = FillWith(Native(lab, {50.0f, -10.0f, 20.5f}));
    EXPECT_EQ(Said(written), "/cs0 cs\n50 -10 20.5 scn\n");
    EXPECT_EQ(SpaceOf(written), *lab);
}

TEST(ContentWriterPaints, NamesEqualSpacesOnce)
{
    const auto first = ColorSpace::CalGray({0.9642, 1.0, 0.8249});
    const auto second = ColorSpace::CalGray({0.9642, 1.0, 0.8249});
    ASSERT_NE(first, second);
    const WrittenContent written =
        WriteObjects(FilledLine(Native(first, {0.25f})), FilledLine(Native(second, {0.75f})));
    EXPECT_EQ(written.bytes, std::string("/cs0 cs\n0.25 scn\n") + line + "f\n0.75 scn\n" + line + "f\n");
    EXPECT_EQ(written.colorSpaces.size(), 1u);
}

TEST(ContentWriterPaints, TakesTheProcessInksInTheirOrderForDeviceCMYK)
{
    const auto list = Tints({{"Cyan", 0.1f}, {"Magenta", 0.0f}, {"Yellow", 0.0f}, {"Black", 1.0f}});
    EXPECT_EQ(Said(FillWith(Flat(list))), "0.1 0 0 1 k\n");
}

TEST(ContentWriterPaints, TakesTheProcessInksInAnotherOrderForDeviceN)
{
    const auto list = Tints({{"Black", 1.0f}, {"Cyan", 0.1f}, {"Magenta", 0.0f}, {"Yellow", 0.0f}});
    const WrittenContent written = FillWith(Flat(list));
    EXPECT_EQ(Said(written), "/cs0 cs\n1 0.1 0 0 scn\n");
    EXPECT_EQ(SpaceOf(written).GetFamily(), ColorSpace::Family::DeviceN);
}

TEST(ContentWriterPaints, TakesOneNameForASeparation)
{
    const WrittenContent written = FillWith(Flat(Tints({{"Black", 0.5f}})));
    EXPECT_EQ(Said(written), "/cs0 cs\n0.5 scn\n");
    EXPECT_EQ(SpaceOf(written).GetFamily(), ColorSpace::Family::Separation);
    EXPECT_THAT(SpaceOf(written).GetColorantNames(), ElementsAre("Black"));
}

TEST(ContentWriterPaints, TakesTheAllFlagForTheSeparationAll)
{
    const WrittenContent written = FillWith(Flat(AllSeparations(0.5f)));
    EXPECT_EQ(Said(written), "/cs0 cs\n0.5 scn\n");
    EXPECT_THAT(SpaceOf(written).GetColorantNames(), ElementsAre("All"));
}

TEST(ContentWriterPaints, TakesAnEmptyListForTheSeparationNone)
{
    const WrittenContent written = FillWith(Flat(Color()));
    EXPECT_THAT(SpaceOf(written).GetColorantNames(), ElementsAre("None"));
}

TEST(ContentWriterPaints, EachListReadsBackBitByBit)
{
    const std::vector<Color> lists = {
        Tints({{"Black", 0.1f}}),
        Tints({{"A", 0.3f}, {"B", 1.0f / 3.0f}}, true),
        Tints({{"Cyan", 0.1f}, {"Black", 1.0f}}),
        Tints({{"Cyan", 0.0f}, {"Magenta", 0.7f}, {"Yellow", 1.0f}, {"Black", 0.0f}}, true),
        AllSeparations(0.3f),
        Color()};
    for (const Color& list : lists) {
        const WrittenContent written = FillWith(Flat(list));
        const auto space = written.colorSpaces.empty() ? ColorSpace::DeviceCMYK() : written.colorSpaces[0];
        std::vector<float> components;
        for (const auto& entry : list.entries) {
            components.push_back(entry.value);
        }
        if (list.all) {
            components.push_back(list.valueForAll);
        }
        EXPECT_EQ(space->ToColorList(components, list.overprint, false), list);
    }
}

TEST(ContentWriterPaints, RefusesListsThatNoSpaceCanName)
{
    Color both = AllSeparations(0.5f);
    both.entries.push_back({0.5f, "Spot"});
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    for (const Color& list :
         {Tints({{"All", 0.5f}}), Tints({{"None", 0.5f}}), Tints({{"A", 1.0f}, {"All", 0.5f}}),
          Tints({{"", 0.5f}}), Tints({{"A", 1.5f}}), Tints({{"A", notANumber}}), both}) {
        const WrittenContent written = FillWith(Flat(list));
        EXPECT_EQ(written.bytes, std::string(line) + "n\n");
        EXPECT_FALSE(written.problems.IsEmpty());
    }
}

TEST(ContentWriterPaints, SaysOverprintOfEachSideByItself)
{
    const auto ink = [](bool overprint) { return Flat(Tints({{"Spot", 1.0f}}, overprint)); };
    const WrittenContent written =
        WriteObjects(FilledLine(ink(true)), StrokedLine(ink(true)), FilledLine(ink(false)));
    EXPECT_EQ(written.bytes, std::string("/cs0 cs\n1 scn\n/gs0 gs\n") + line +
                                 "f\n/cs0 CS\n1 SCN\n/gs1 gs\n" + line + "S\n/gs2 gs\n" + line + "f\n");
    EXPECT_THAT(written.graphicsStates,
                ElementsAre(Overprint(false, true, false), Overprint(true, true, false),
                            Overprint(true, false, false)));
}

TEST(ContentWriterPaints, SaysTheOverprintModeWithOverprint)
{
    const WrittenContent written =
        FillWith(Native(ColorSpace::DeviceCMYK(), {0.0f, 0.0f, 0.0f, 1.0f}, true, true));
    EXPECT_THAT(written.graphicsStates, ElementsAre(Overprint(false, true, true)));
}

TEST(ContentWriterPaints, LeavesTheOverprintModeAloneWithoutOverprint)
{
    const WrittenContent written =
        FillWith(Native(ColorSpace::DeviceCMYK(), {0.0f, 0.0f, 0.0f, 1.0f}, false, true));
    EXPECT_TRUE(written.graphicsStates.empty());
}

TEST(ContentWriterPaints, SaysTwoOverprintModesOfOnePathByTwoSpaces)
{
    auto path = Line();
    path->SetFillPaint(Native(ColorSpace::DeviceCMYK(), {0.0f, 0.5f, 0.0f, 1.0f}, true, false));
    path->SetStrokePaint(Native(ColorSpace::DeviceCMYK(), {0.0f, 0.25f, 0.0f, 1.0f}, true, true));
    const WrittenContent written = WriteObjects(std::move(path));
    EXPECT_EQ(Said(written), "/cs0 cs\n0 0.5 0 1 scn\n0 0.25 0 1 K\n/gs0 gs\n");
    EXPECT_THAT(SpaceOf(written).GetColorantNames(), ElementsAre("Cyan", "Magenta", "Yellow", "Black"));
    EXPECT_THAT(written.graphicsStates, ElementsAre(Overprint(true, true, true)));
}

} // namespace
} // namespace OrvPdf::Testing
