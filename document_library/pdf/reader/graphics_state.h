#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <orv_color/color_space.h>
#include <orv_doc/stroke_properties.h>
#include <orv_paint/flat_paint.h>

#include "pdf/reader/group_recipe.h"

namespace OrvPdf
{

/// A colour as an operator gave it. Immutable, shared by the states that were saved under it.
struct Color
{
    OrvColor::ColorSpace::Pointer space;
    std::vector<float> components;
};

/// The current colour of filling or of stroking.
struct PaintSetting
{
    /// Null for a colour that the model has no place for: a pattern, or one in a space that can't be read.
    std::shared_ptr<const Color> color;
    /// `OP` or `op` of the graphics state (ISO 32000-1, 8.6.7).
    bool overprint = false;
    /// What the two and the overprint mode make; null until an object needs it.
    std::shared_ptr<const OrvPaint::FlatPaint> paint;
};

/// The part of the graphics state (ISO 32000-1, 8.4) that the model knows. Cheap to copy, for `q`.
struct GraphicsState
{
    /// From user space to the coordinates of the innermost group with a transformation of its own, or of the
    /// content.
    Matrix matrix;
    PaintSetting fill;
    PaintSetting stroke;
    /// Overprint mode 1 (`OPM`).
    bool nonzeroOverprint = false;
    /// Never null.
    std::shared_ptr<const OrvDoc::StrokeProperties> strokeProperties;
    /// What still is as it was where the form is painted whose content this is: bits of `Inherited`.
    std::uint32_t inherited = 0;
};

} // namespace OrvPdf
