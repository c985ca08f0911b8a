#pragma once

#include "support/text_makers.h"

#include <functional>
#include <sstream>
#include <string>

#include <plexa/compound_builder.h>

/// Fonts that draw what a test of compared texts needs.
namespace HarrowSupport::Testing
{

/// A font whose outlines are those, by glyph, with nothing said of its program.
inline FontPointer FontWithOutlines(const std::function<Outline(const OrvFont::Character&)>& outline)
{
    FontPlan plan;
    plan.program = 0;
    plan.outline = outline;
    return MakeFont(plan);
}

inline Outline Bar(double width, Plexa::WindingRule rule = Plexa::WindingRule::NonZero)
{
    Plexa::CompoundBuilder builder;
    builder.AddRectangle(0.0, 0.0, width, 700.0);
    return builder.Finish(rule);
}

/// A font that draws bars of the glyphs' widths, some of them by the even-odd rule.
inline FontPointer FontWithEvenOdd(const std::string& glyphs)
{
    return FontWithOutlines([glyphs](const OrvFont::Character& character) {
        const bool isEvenOdd = glyphs.find(static_cast<char>(character.glyph)) != std::string::npos;
        return Bar(character.glyph, isEvenOdd ? Plexa::WindingRule::EvenOdd : Plexa::WindingRule::NonZero);
    });
}

/// As a report shows them.
inline std::string PrintOutlines(const OrvDoc::Text& text)
{
    std::ostringstream stream;
    stream << "[ ";
    for (const Outline& outline : text.OriginalCompounds())
        stream << outline << " ";
    stream << "]";
    return stream.str();
}

} // namespace HarrowSupport::Testing
