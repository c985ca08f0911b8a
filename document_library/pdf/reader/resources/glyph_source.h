#pragma once

#include <memory>

#include <orv_blend/transparency.h>
#include <orv_doc/halftone_set.h>
#include <orv_font/font.h>
#include <orv_paint/flat_paint.h>

#include "pdf/reader/resources/nested_source.h"

namespace OrvPdf
{

/// Where the content of a glyph of a Type 3 font comes from, for who writes it as text again.
class GlyphSource : public NestedSource
{
public:
    bool IsGlyph() const override { return true; }

    std::shared_ptr<const OrvFont::Font> font;
    OrvFont::Character character;
    /// Whether showing the character under what follows paints the content.
    bool canBeShown = false;
    /// Null if the content does not depend on it.
    std::shared_ptr<const OrvPaint::FlatPaint> fill;
    OrvBlend::Transparency blending;
    std::shared_ptr<OrvDoc::HalftoneSet> halftones;
    /// Whether it paints with the transfer functions of the content around.
    bool usesTransferFunctions = false;
    /// Parameters of text that the content may take over, and that make no difference to where one character
    /// stands.
    double characterSpacing = 0.0;
    double wordSpacing = 0.0;
    int textMode = 0;
};

} // namespace OrvPdf
