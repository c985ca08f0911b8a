#pragma once

#include <memory>
#include <string>
#include <vector>

#include <boost/utility/string_view.hpp>

#include <orv_font/character.h>
#include <orv_font/writing_mode.h>
#include <orv_sys/export.h>
#include <orv_sys/uni16char.h>
#include <plexa/coordinate_systems.h>
#include <plexa/point.h>
#include <plexa/rectangle.h>

namespace Plexa
{
class Compound;
}

namespace OrvFont
{

namespace Detail
{
class FontSource;
class OutlineCache;
} // namespace Detail

/// A font: the names, the measures and the outlines of its characters. Immutable, shared, and safe to read
/// from several threads.
///
/// Its lengths are those of text that is one point high. A thousandth of that, the unit in which PDF measures
/// glyphs (ISO 32000-1, 9.2.4), is a milli-point.
class ORV_EXPORT Font
{
public:
    using Uni16StringView = boost::basic_string_view<wchar_t, OrvSys::Core::uni16char_traits>;
    using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
    using Point = Plexa::PointBase<Plexa::MilliPointCoordinateSystem>;

    ~Font();
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    /// The PostScript name, without the tag of a subset (ISO 32000-1, 9.6.4).
    const std::string& GetName() const { return names.name; }
    const std::string& GetFamilyName() const { return names.family; }
    const std::string& GetStyleName() const { return names.style; }
    /// What encloses all outlines, as the font states it.
    Rectangle GetFontBBox() const { return box; }

    /// Fills `characters` with those for a text in UTF-16 units; a surrogate pair is one character. Returns
    /// false if the text is no UTF-16 or the font lacks one of its characters, which is then left out; all
    /// others are there.
    bool Uni16StringToFontCharacters(Uni16StringView text, std::vector<Character>& characters) const;

    // For makers of documents.

    struct Names
    {
        std::string name;
        std::string family;
        std::string style;
    };

    Font(Names givenNames, const Rectangle& givenBox, WritingMode givenMode,
         std::unique_ptr<const Detail::FontSource> givenSource);

    /// How far from the origin an outline may go, in milli-points. One that goes further, or to a coordinate
    /// that is no number, counts as none.
    static constexpr double outlineReach = 1e12;

    WritingMode GetWritingMode() const { return mode; }

    /// The outline of a character, without one an empty shape; never null. Made when it is first asked for
    /// and kept. Horizontally the origin is where the character stands; vertically it is the origin of
    /// vertical writing, so that both are placed alike.
    std::shared_ptr<const Plexa::Compound> GetOutline(const Character& character) const;

    /// From a character's origin to the one behind it, in milli-points: to the right if the font is written
    /// horizontally, upwards if vertically, which makes it negative as a rule.
    /// One that goes beyond `outlineReach`, or is no number, counts as 0.
    double GetAdvance(const Character& character) const;

    /// What knows the font's outlines and codes.
    const Detail::FontSource& GetSource() const { return *source; }

private:
    Names names;
    Rectangle box;
    WritingMode mode;
    std::unique_ptr<const Detail::FontSource> source;
    std::unique_ptr<Detail::OutlineCache> outlines;
};

/// Whether each character has the same outline and the same advance in both, seen without making an outline:
/// they are one font, or of the same program with the same glyphs and widths. False says nothing.
ORV_EXPORT bool HaveSameOutlines(const Font& left, const Font& right);

} // namespace OrvFont
