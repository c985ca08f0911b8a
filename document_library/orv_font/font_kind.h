#pragma once

#include <string>

namespace OrvFont::Detail
{

/// What a font descriptor tells of a font that is not there (ISO 32000-1, 9.8).
struct FontHints
{
    bool isSerif = false;
    bool isFixedPitch = false;
    bool isItalic = false;
    bool isBold = false;
    /// From 100 to 900, where 400 is regular and 700 bold; 0 if nobody knows.
    int weight = 0;
};

/// What the library's fonts are told apart by.
struct FontKind
{
    enum class Design
    {
        Sans,
        Serif,
        FixedPitch,
        // These have no bold or italic form.
        Symbols,
        Dingbats,
    };

    Design design = Design::Sans;
    bool isBold = false;
    bool isItalic = false;
};

inline bool operator==(const FontKind& left, const FontKind& right)
{
    return left.design == right.design && left.isBold == right.isBold && left.isItalic == right.isItalic;
}

/// The kind that a font's name means. A known name, such as those of the standard 14 fonts and their aliases
/// (ISO 32000-1, 9.6.2.2), decides the design; then the words in it, such as `Sans` and `Mono`; then the
/// hints. Bold and italic are what either says. Case, spaces, and a subset's tag count for nothing.
FontKind FindFontKind(const std::string& name, const FontHints& hints = {});

} // namespace OrvFont::Detail
