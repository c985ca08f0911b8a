// Tiling patterns of documents that a program made, through a file: every number as it was, and what shared a
// cell or an object shares it again.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_color/color_space.h>
#include <orv_doc/content.h>
#include <orv_paint/pattern_paint.h>

#include "document_library/pdf/writer/written_states.h"
#include "support/paint_makers.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvColor::ColorSpace;
using OrvDoc::Content;
using OrvPaint::PatternPaint;
using PatternPointer = std::shared_ptr<const PatternPaint>;

std::shared_ptr<Content> Cell(OrvDoc::Document& document, Content::Type type)
{
    auto cell = std::make_shared<Content>(document, type);
    Fill(*cell, Line());
    return cell;
}

PatternPaint::Factory Pattern(std::shared_ptr<Content> cell)
{
    return PatternPaint::Factory(std::move(cell)).SetCellClip({0.0, 0.0, 1000.0, 1000.0}).SetStep({7.0, 7.0});
}

/// A page of lines with these fills, through a file.
struct PatternsFromFile
{
    explicit PatternsFromFile(OrvDoc::Document& before, const std::vector<PaintPointer>& paints)
    {
        for (const PaintPointer& paint : paints)
            Fill(ContentOf(before), FilledLine(paint));
        document = Reopened(before);
        for (const auto* object = std::as_const(ContentOf(*document)).GetChildren().first; object;
             object = object->next) {
            const auto& path = dynamic_cast<const OrvDoc::Path&>(*object);
            patterns.push_back(std::dynamic_pointer_cast<const PatternPaint>(path.GetFillPaint()));
        }
    }

    std::unique_ptr<OrvDoc::Document> document;
    std::vector<PatternPointer> patterns;
};

TEST(ContentWriterTilings, KeepsEveryNumber)
{
    const auto document = NewDocument(1);
    const HarrowSupport::Testing::Matrix matrix(0.1, 1.0 / 3.0, -2.0 / 7.0, 1e-9, 1.0 / 7.0, -1e9);
    const auto paint = Pattern(Cell(*document, Content::Type::ColoredPatternContent))
                           .SetTransformation(matrix)
                           .SetCellClip({-0.5, 1.25, 100.5, 2.75})
                           .SetStep({-1000.0 / 3.0, 0.1})
                           .SetTilingType(PatternPaint::TilingType::FasterTiling)
                           .Get();
    const PatternsFromFile back(*document, {paint});
    ASSERT_TRUE(back.patterns[0]);
    EXPECT_EQ(back.patterns[0]->GetTransformation(), matrix);
    EXPECT_EQ(back.patterns[0]->GetCellClip(), paint->GetCellClip());
    EXPECT_EQ(back.patterns[0]->GetStep(), paint->GetStep());
    EXPECT_EQ(back.patterns[0]->GetTilingType(), PatternPaint::TilingType::FasterTiling);
}

TEST(ContentWriterTilings, KeepsOnePaintOneObject)
{
    const auto document = NewDocument(1);
    const auto paint = Pattern(Cell(*document, Content::Type::ColoredPatternContent)).Get();
    const auto other = Pattern(Cell(*document, Content::Type::ColoredPatternContent)).Get();
    const PatternsFromFile back(*document, {paint, other, paint});
    EXPECT_EQ(back.patterns[0], back.patterns[2]);
    EXPECT_NE(back.patterns[0]->GetSharedContent(), back.patterns[1]->GetSharedContent());
}

TEST(ContentWriterTilings, KeepsOneCellOfPatternsThatDiffer)
{
    const auto document = NewDocument(1);
    const auto cell = Cell(*document, Content::Type::ColoredPatternContent);
    const auto paint = Pattern(cell).Get();
    const auto stepped = PatternPaint::Factory(*paint).SetStep({8.0, 8.0}).Get();
    const auto equal = PatternPaint::Factory(*paint).Get();
    const PatternsFromFile back(*document, {paint, stepped, equal});
    EXPECT_NE(back.patterns[0], back.patterns[2]);
    EXPECT_EQ(back.patterns[0]->GetSharedContent(), back.patterns[1]->GetSharedContent());
    EXPECT_EQ(back.patterns[0]->GetSharedContent(), back.patterns[2]->GetSharedContent());
    EXPECT_EQ(back.patterns[1]->GetStep().width.value, 8.0);
}

TEST(ContentWriterTilings, KeepsTheColorsOfUncoloredPatternsInLists)
{
    const auto document = NewDocument(1);
    const auto cell = Cell(*document, Content::Type::UncoloredPatternContent);
    std::vector<PaintPointer> paints;
    const std::vector<HarrowSupport::Testing::Color> colors{
        Tints({{"Spot", 0.3f}}),
        Tints({{"Cyan", 0.1f}, {"Magenta", 0.2f}, {"Yellow", 0.3f}, {"Black", 1.0f}}, true),
        AllSeparations(0.5f), Tints({})};
    for (const auto& color : colors)
        paints.push_back(Pattern(cell).SetColor(color).Get());
    const PatternsFromFile back(*document, paints);
    for (std::size_t index = 0; index < colors.size(); ++index) {
        ASSERT_TRUE(back.patterns[index]) << index;
        EXPECT_EQ(*back.patterns[index]->GetColor(), colors[index]) << index;
        EXPECT_EQ(back.patterns[index]->GetSharedContent(), back.patterns[0]->GetSharedContent()) << index;
    }
}

TEST(ContentWriterTilings, KeepsAnUncoloredColorInItsSpace)
{
    const auto document = NewDocument(1);
    const auto cell = Cell(*document, Content::Type::UncoloredPatternContent);
    const auto color = std::dynamic_pointer_cast<const OrvPaint::FlatPaint>(
        Native(ColorSpace::CalGray({0.9, 1.0, 1.1}), {0.3f}));
    const PatternsFromFile back(*document, {Pattern(cell).SetColor(color).Get()});
    EXPECT_EQ(*back.patterns[0]->GetNativeColor()->GetNativeSpace(), *color->GetNativeSpace());
    EXPECT_EQ(back.patterns[0]->GetNativeColor()->GetNativeComponents(), color->GetNativeComponents());
}

// There is one overprint mode for fill and stroke, and the colours of both may depend on it.
TEST(ContentWriterTilings, KeepsTheOverprintModesOfAPatternAndAStroke)
{
    const auto document = NewDocument(1);
    const auto nonzero = std::dynamic_pointer_cast<const OrvPaint::FlatPaint>(
        Native(ColorSpace::DeviceCMYK(), {0.0f, 0.5f, 0.0f, 0.0f}, true, true));
    const auto ordinary = Native(ColorSpace::DeviceCMYK(), {0.0f, 0.25f, 0.0f, 0.0f}, true, false);
    auto path =
        FilledLine(Pattern(Cell(*document, Content::Type::UncoloredPatternContent)).SetColor(nonzero).Get());
    path->SetStrokePaint(ordinary);
    Fill(ContentOf(*document), std::move(path));
    const auto back = Reopened(*document);
    const auto& read = dynamic_cast<const OrvDoc::Path&>(*ContentOf(*back).GetChildren().first);
    EXPECT_EQ(*dynamic_cast<const PatternPaint&>(*read.GetFillPaint()).GetColor(), nonzero->GetColor());
    EXPECT_EQ(dynamic_cast<const OrvPaint::FlatPaint&>(*read.GetStrokePaint()).GetColor().entries.size(), 4u);
}

} // namespace
} // namespace OrvPdf::Testing
