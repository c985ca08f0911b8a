#pragma once

#include <cstddef>
#include <limits>
#include <string>

namespace OrvPdf
{

/// The parameters of text in the graphics state (ISO 32000-1, 9.3), lengths in points. What is not known is
/// no number.
struct TextParameters
{
    static constexpr std::size_t noFont = std::numeric_limits<std::size_t>::max();
    static constexpr int unknownMode = -1;

    /// The index of the font's name.
    std::size_t font = noFont;
    double size = 0.0;
    double characterSpacing = 0.0;
    double wordSpacing = 0.0;
    double scale = 1.0;
    double rise = 0.0;
    int mode = 0;

    static TextParameters Unknown();
};

/// Appends the operators that lead from one to the other.
void AppendTextParameters(std::string& out, const TextParameters& from, const TextParameters& to);

} // namespace OrvPdf
