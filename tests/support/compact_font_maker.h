#pragma once

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// A rectangle as a glyph, in units of 1000 to the em.
struct MadeCompactGlyph
{
    /// Of a name-keyed program.
    std::string name;
    /// Of a CID-keyed one; these have to ascend.
    int cid = 0;
    int width = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
};

struct MadeCompactFont
{
    std::string postScriptName = "MadeCompact-Bold";
    bool isCidKeyed = false;
    /// The first is `.notdef`, or CID 0.
    std::vector<MadeCompactGlyph> glyphs;
    /// The code of each glyph but the first, from this one upwards, in the program's own encoding.
    int firstCode = 65;
};

/// A bare program in the Compact Font Format.
std::string MakeCompactFont(const MadeCompactFont& font);

/// The instructions that draw the glyph (Type 2 charstring).
std::string MakeCompactOutline(const MadeCompactGlyph& glyph);

/// The same with charstrings and subroutines that stand as they are given.
std::string MakeCompactFont(const MadeCompactFont& font, const std::vector<std::string>& charStrings,
                            const std::vector<std::string>& subroutines);

} // namespace HarrowSupport::Testing
