#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <orv_font/font.h>

namespace Benchmarks
{

/// The fonts that pages of text are set in.
enum Style : std::size_t
{
    Roman,
    Italic,
    Bold,
    Heading,
    Typewriter,
    StyleCount,
};

/// A font for each style.
using StyleFonts = std::array<std::shared_ptr<const OrvFont::Font>, StyleCount>;

/// What one string of a `TJ` array shows, and the thousandths of the size that what follows is moved back by.
struct TextPiece
{
    std::string text;
    int adjustment;
};

/// What stands in one font on a line.
struct TextRun
{
    Style style;
    /// Points, from the start of the line.
    double x;
    std::vector<TextPiece> pieces;
};

struct TextLine
{
    double size;
    /// Points, on the page.
    double x;
    double y;
    std::vector<TextRun> runs;
};

/// The lines of one text object.
using Paragraph = std::vector<TextLine>;

/// Sets pages of about 3000 characters on A4, as a typesetting program does: justified lines, pairs of
/// letters kerned, blanks stretched, a few words of a line in italics, bold or typewriter. The words come by
/// chance, the same ones for the same seed.
class TextLayout
{
public:
    /// The fonts tell the advances.
    TextLayout(const StyleFonts& fonts, unsigned seed);

    std::vector<Paragraph> NextPage();

private:
    struct Word
    {
        Style style;
        std::string text;
    };

    Word NextWord();
    TextLine SetHeading(double y);
    TextLine SetLine(double y, bool isLast);
    /// Thousandths of the size.
    double WidthOf(const TextRun& run) const;

    std::array<std::array<double, 128>, StyleCount> advances;
    std::mt19937 random;
    Word waiting;
};

} // namespace Benchmarks
