#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <orv_blend/transparency.h>
#include <orv_color/color_space.h>
#include <orv_color/rendering_intent.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/stroke_properties.h>
#include <orv_font/font.h>
#include <orv_paint/paint.h>

#include "pdf/reader/content/content_resources.h"
#include "pdf/reader/content/foreign_parameters.h"
#include "pdf/reader/content/group_recipe.h"
#include "pdf/reader/content/transfer_functions_in_force.h"

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
    /// Null for a pattern, and for a colour that the model has no place for, such as one in a space that
    /// can't be read.
    std::shared_ptr<const Color> color;
    /// The space of patterns that is current; null for other spaces.
    OrvColor::ColorSpace::Pointer patternSpace;
    /// The colour that an uncoloured pattern is painted in; null for none.
    std::shared_ptr<const Color> patternColor;
    /// The current pattern; null for none.
    std::shared_ptr<const ContentResources::Pattern> pattern;
    /// `OP` or `op` of the graphics state (ISO 32000-1, 8.6.7).
    bool overprint = false;
    /// What the two and the overprint mode make; null until an object needs it.
    std::shared_ptr<const OrvPaint::Paint> paint;
};

/// How objects join what is below them.
struct BlendSetting
{
    /// As parameters set it. Isolated and knockout belong to objects and are never set here.
    OrvBlend::Transparency value;
    /// The same as objects have it; null until one needs it.
    std::shared_ptr<const OrvBlend::Transparency> transparency;
};

/// The parameters of text (ISO 32000-1, 9.3), lengths in points.
struct TextSetting
{
    /// Null until one is set.
    std::shared_ptr<const OrvFont::Font> font;
    double size = 0.0;
    double characterSpacing = 0.0;
    double wordSpacing = 0.0;
    /// One hundredth of the operand of `Tz`.
    double scale = 1.0;
    double leading = 0.0;
    double rise = 0.0;
    /// 0 to 7.
    int mode = 0;
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
    /// Of pictures.
    OrvColor::RenderingIntent intent = OrvColor::RenderingIntent::RelativeColorimetric;
    BlendSetting blending;
    /// Null for those of the device.
    std::shared_ptr<OrvDoc::HalftoneSet> halftones;
    TransferSetting transfer;
    /// What the content itself has set.
    ForeignParameters foreign;
    /// Never null.
    std::shared_ptr<const OrvDoc::StrokeProperties> strokeProperties;
    /// What still is as it was where the form is painted whose content this is: bits of `Inherited`.
    std::uint32_t inherited = 0;
    TextSetting text;
};

} // namespace OrvPdf
