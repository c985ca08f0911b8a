#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <orv_font/font.h>

namespace OrvFont::Detail
{

/// An outline font program: TrueType, OpenType, CFF or Type 1 (ISO 32000-1, 9.9), read by FreeType.
/// Immutable, safe to use from several threads. Glyphs are named by their index in the program; 0, the one
/// for what is missing, also stands for "none" in a search. Lengths are in thousandths of the em.
class FontProgram
{
public:
    enum class Format
    {
        Type1,
        Cff, ///< Also OpenType with such outlines.
        TrueType,
    };

    /// `face` counts from zero in a collection.
    /// @throws std::runtime_error that says why if the bytes are no font program that can be used
    explicit FontProgram(std::shared_ptr<const std::string> bytes, unsigned face = 0);
    ~FontProgram();
    FontProgram(const FontProgram&) = delete;
    FontProgram& operator=(const FontProgram&) = delete;

    /// @throws std::runtime_error with the path if the file cannot be read or is no font program
    static std::shared_ptr<const FontProgram> Load(const std::string& path, unsigned face = 0);

    const std::shared_ptr<const std::string>& GetBytes() const;
    unsigned GetFace() const;
    Format GetFormat() const;
    /// Whether glyphs are found by CID: a CID-keyed CFF program (ISO 32000-1, 9.7.4.2).
    bool IsCidKeyed() const;
    std::uint32_t GetGlyphCount() const;
    /// What the program says about itself; empty where it says nothing and nothing can be derived.
    const Font::Names& GetNames() const;
    /// In milli-points at a size of one point.
    Font::Rectangle GetBox() const;

    /// With `origin`, in thousandths of the em, moved to (0, 0). Null for a glyph without contours and for
    /// one that is damaged or not there.
    std::shared_ptr<const Plexa::Compound> MakeOutline(std::uint32_t glyph, const Font::Point& origin) const;
    /// Zero for a glyph that is not there.
    double GetAdvance(std::uint32_t glyph) const;
    /// Downwards writing: the advance, negative as a rule, of the program's vertical metrics, else minus the
    /// em.
    double GetVerticalAdvance(std::uint32_t glyph) const;

    std::uint32_t FindGlyphByName(const std::string& name) const;
    std::uint32_t FindGlyphByCodePoint(char32_t codePoint) const;
    bool HasCharacterMap(unsigned platform, unsigned encoding) const;
    /// In the character map of that platform and encoding (ISO 32000-1, 9.6.6.4).
    std::uint32_t FindGlyphByCode(unsigned platform, unsigned encoding, std::uint32_t code) const;
    /// In the program's own encoding, which Type 1 and CFF have; of a TrueType program that has but one
    /// character map, in that.
    std::uint32_t FindGlyphByBuiltInCode(std::uint8_t code) const;
    /// The glyph itself if the program is not CID-keyed.
    std::uint32_t FindGlyphByCid(std::uint32_t cid) const;
    /// Empty if the program does not name its glyphs.
    std::string GetGlyphName(std::uint32_t glyph) const;

    /// Whether both are made of the same bytes.
    bool IsSameAs(const FontProgram& other) const;

private:
    struct Face;

    std::unique_ptr<Face> face;
};

} // namespace OrvFont::Detail
