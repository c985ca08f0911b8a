#pragma once

#include <cstdint>
#include <memory>

#include <boost/optional.hpp>

#include <orv_color/color_list.h>
#include <orv_paint/paint.h>
#include <orv_sys/export.h>
#include <plexa/coordinate_systems.h>
#include <plexa/dimension.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvDoc
{
class Content;
}

namespace OrvPaint
{

class FlatPaint;

/// A cell that is repeated side by side (ISO 32000-1, 8.7.3). Several paints may share one cell.
class ORV_EXPORT PatternPaint : public Paint
{
public:
    class Factory;

    ~PatternPaint() override;

    /// Of an uncoloured pattern the names and flags of its colour. A coloured pattern has its colours in the
    /// objects of its cell: no names.
    OrvColor::ColorList<OrvColor::ColorantPolicy> GetColorants() const override;

    /// From the cell's coordinates to those of the content in which an object is painted with it, groups with
    /// a transformation of their own left out of account.
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& GetTransformation() const
    {
        return fields.transformation;
    }

    /// The colour of an uncoloured pattern; absent for a coloured one.
    const boost::optional<OrvColor::ColorList<OrvColor::ColorPolicy>>& GetColor() const
    {
        return fields.color;
    }

    /// What is seen of the cell, in the cell's coordinates.
    const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& GetCellClip() const
    {
        return fields.cellClip;
    }

    /// From one cell to the next. Either may be negative.
    const Plexa::DimensionBase<Plexa::MilliPointCoordinateSystem>& GetStep() const { return fields.step; }

    /// The cell, of the type ColoredPatternContent or UncoloredPatternContent. It needs its document for as
    /// long as it is used.
    OrvDoc::Content& GetContent() const { return *fields.content; }

    // For makers of documents.

    /// How the steps may be brought to whole pixels (ISO 32000-1, table 75).
    enum class TilingType : std::uint32_t
    {
        ConstantSpacing = 1,
        NoDistortion = 2,
        FasterTiling = 3
    };

    TilingType GetTilingType() const { return fields.tilingType; }
    const std::shared_ptr<OrvDoc::Content>& GetSharedContent() const { return fields.content; }
    /// The colour of an uncoloured pattern as a file gave it; null if it was given as a list.
    const std::shared_ptr<const FlatPaint>& GetNativeColor() const { return fields.nativeColor; }

private:
    struct Fields
    {
        std::shared_ptr<OrvDoc::Content> content;
        Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> transformation;
        boost::optional<OrvColor::ColorList<OrvColor::ColorPolicy>> color;
        std::shared_ptr<const FlatPaint> nativeColor;
        Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> cellClip;
        Plexa::DimensionBase<Plexa::MilliPointCoordinateSystem> step;
        TilingType tilingType = TilingType::ConstantSpacing;
    };

    explicit PatternPaint(Fields givenFields);

    Fields fields;
};

// For makers of documents.

class ORV_EXPORT PatternPaint::Factory
{
public:
    /// The cell must be of the type ColoredPatternContent or UncoloredPatternContent; throws
    /// std::invalid_argument otherwise and for null.
    explicit Factory(std::shared_ptr<OrvDoc::Content> content);
    /// With all fields of a paint, for one that differs in some of them.
    explicit Factory(const PatternPaint& paint);
    ~Factory();

    Factory&
    SetTransformation(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation);
    Factory& SetCellClip(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& cellClip);
    Factory& SetStep(const Plexa::DimensionBase<Plexa::MilliPointCoordinateSystem>& step);
    /// The colour of an uncoloured pattern.
    Factory& SetColor(OrvColor::ColorList<OrvColor::ColorPolicy> color);
    /// The same from a paint, whose colour and native space count; null for none.
    Factory& SetColor(const std::shared_ptr<const FlatPaint>& paint);
    Factory& SetTilingType(TilingType tilingType);
    /// Another cell with the same fields.
    Factory& SetContent(std::shared_ptr<OrvDoc::Content> content);

    /// Throws std::invalid_argument if a pattern with an uncoloured cell has no colour, or one with a
    /// coloured cell has one.
    std::shared_ptr<const PatternPaint> Get() const;

private:
    Fields fields;
};

} // namespace OrvPaint
