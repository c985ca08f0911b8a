#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace OrvPdf
{

/// Glyph ids of a font program, in order.
using GlyphSet = std::set<std::uint32_t>;

/// The part of a font program that draws the given glyphs, with those that they are composed of and glyph 0.
///
/// Glyph ids stay, so that what counts glyphs (codes, widths) needs no translation; the others below the last
/// one are empty. Outlines are those of the whole program, number by number: only instructions that fit them
/// to pixels are left out. The names come whole, byte by byte, so that family and style are read back. What
/// sets or reorders text is left out, since a PDF file names glyphs. A program with axes of variation becomes
/// its default instance. Equal arguments give equal bytes.
///
/// `program` is a file of TrueType or OpenType, or a collection of which `face`, counted from zero, is taken.
/// The time grows with the size of the program's tables and with the glyphs.
///
/// @throws std::runtime_error that says why if the bytes are no such program, there is no such face or
///         glyph, the outlines are of a kind that PDF cannot embed, or HarfBuzz refuses
std::string MakeFontSubset(std::string_view program, unsigned face, const GlyphSet& glyphs);

/// Whether the bytes are a file of tables, as TrueType and OpenType have it, or a collection of such.
bool IsTableFont(std::string_view program);

/// Six capital letters that tell subsets of one font apart (ISO 32000-1, 9.6.4): the same ones for the same
/// name and glyphs.
std::string MakeSubsetTag(std::string_view fontName, const GlyphSet& glyphs);

} // namespace OrvPdf
