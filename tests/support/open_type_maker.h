#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// A rectangle as a glyph, in units of 1000 to the em.
struct MadeGlyph
{
    /// None if zero.
    char16_t codePoint = 0;
    int width = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
    /// Written with hints, and with half a unit added to the right edge.
    bool isHinted = false;
    /// `g` and its number if empty.
    std::string name = {};
    std::vector<char16_t> otherCodePoints = {};
};

struct MadeFont
{
    std::string postScriptName = "Made-Regular";
    /// No record if empty, as for the style.
    std::string family = "Made";
    std::string style = "Regular";
    /// The first is `.notdef`.
    std::vector<MadeGlyph> glyphs;
    /// One for each glyph, ascending, if the outlines are CID-keyed.
    std::vector<int> cids;
};

/// An OpenType font file with outlines in the Compact Font Format.
std::string MakeCompactOpenType(const MadeFont& font);

/// The outlines alone, without names, code points and tables around them.
std::string MakeBareCompactFont(const MadeFont& font);

} // namespace HarrowSupport::Testing
