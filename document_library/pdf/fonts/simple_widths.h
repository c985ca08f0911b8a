#pragma once

#include <cstdint>
#include <vector>

namespace OrvPdf
{

/// The widths of a simple font (ISO 32000-1, 9.6.2.1), in thousandths of the size.
struct SimpleWidths
{
    /// The code of the first width.
    std::uint32_t first = 0;
    std::vector<double> widths;
    /// Of all other codes.
    double missing = 0.0;
    /// Whether the dictionary has widths at all. Otherwise those of the program count.
    bool isGiven = false;

    double Find(std::uint32_t code) const
    {
        const std::uint32_t index = code - first;
        return code >= first && index < widths.size() ? widths[index] : missing;
    }

    friend bool operator==(const SimpleWidths& left, const SimpleWidths& right)
    {
        return left.isGiven == right.isGiven && left.first == right.first && left.missing == right.missing &&
               left.widths == right.widths;
    }
};

} // namespace OrvPdf
