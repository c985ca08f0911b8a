#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include <boost/optional.hpp>

#include "pdf/fonts/encodings.h"

namespace OrvPdf
{

/// Which glyphs the codes of a simple font name (ISO 32000-1, 9.6.6.1).
struct SimpleEncoding
{
    /// None: that of the font program.
    boost::optional<BaseEncoding> base;
    /// Glyph names by code, which stand before those of the base.
    std::map<std::uint8_t, std::string> differences;
    /// Whether `Encoding` is there, in a form that can be read.
    bool isGiven = false;
    /// Whether its value is the name of an encoding and no dictionary.
    bool isName = false;

    /// Empty where the program's own encoding counts, and where the base has no glyph.
    std::string_view FindName(std::uint8_t code) const
    {
        const auto found = differences.find(code);
        if (found != differences.end())
            return found->second;
        return base ? GetGlyphName(*base, code) : std::string_view();
    }

    friend bool operator==(const SimpleEncoding& left, const SimpleEncoding& right)
    {
        return left.isGiven == right.isGiven && left.isName == right.isName && left.base == right.base &&
               left.differences == right.differences;
    }
};

} // namespace OrvPdf
