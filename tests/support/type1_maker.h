#pragma once

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// A triangle as a glyph: from (left, bottom) along the base line to (right, bottom) and up to (left, top).
struct MadeType1Glyph
{
    std::string name;
    int width = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
};

struct MadeType1Font
{
    std::string postScriptName = "MadeType-Bold";
    std::string fullName = "Made Type Bold";
    std::string familyName = "Made Type";
    std::string weight = "Bold";
    std::string matrix = "0.001 0 0 0.001 0 0";
    /// The first is `.notdef`.
    std::vector<MadeType1Glyph> glyphs;
    /// The code of each glyph but the first, from this one upwards, in the program's own encoding.
    int firstCode = 65;
};

/// A Type 1 program as it stands in a PDF: text, encrypted bytes, and zeros.
std::string MakeType1(const MadeType1Font& font);

/// The same as a file for Windows, in segments (PFB).
std::string MakeSegmentedType1(const MadeType1Font& font);

} // namespace HarrowSupport::Testing
