#pragma once

#include <string>
#include <vector>

#include "support/font_bytes.h"

namespace HarrowSupport::Testing
{

struct MadePoint
{
    int x = 0;
    int y = 0;
    bool isOnCurve = true;
};

/// A place where another glyph is drawn.
struct MadeComponent
{
    int glyph = 0;
    int x = 0;
    int y = 0;
};

struct MadeTrueTypeGlyph
{
    int advance = 0;
    std::vector<std::vector<MadePoint>> contours;
    /// If there are any, instead of the contours.
    std::vector<MadeComponent> components;
};

/// The tables that a TrueType program in a PDF needs and no others: no names, no character map. The first
/// glyph is `.notdef`.
FontTables MakeTrueTypeTables(const std::vector<MadeTrueTypeGlyph>& glyphs, int unitsPerEm = 1000);

std::string JoinTrueType(const FontTables& tables);

} // namespace HarrowSupport::Testing
