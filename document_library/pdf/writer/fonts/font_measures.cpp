#include "pdf/writer/fonts/font_measures.h"

#include <algorithm>

#include <hb-ot.h>

#include "pdf/writer/fonts/harfbuzz_face.h"

namespace OrvPdf
{

namespace
{

// Flags of a font descriptor (ISO 32000-1, table 123).
constexpr std::uint32_t flagFixedPitch = 1u << 0;
constexpr std::uint32_t flagSerif = 1u << 1;
constexpr std::uint32_t flagSymbolic = 1u << 2;
constexpr std::uint32_t flagScript = 1u << 3;
constexpr std::uint32_t flagItalic = 1u << 6;

/// Numbers of a table, the highest byte first; beyond its end they are zero.
class TableNumbers
{
public:
    TableNumbers(const HarfBuzzFace& face, hb_tag_t tag) : blob(GetTable(face, tag)), bytes(BytesOf(blob)) {}

    bool IsThere() const { return !bytes.empty(); }

    unsigned GetByte(std::size_t offset) const
    {
        return offset < bytes.size() ? static_cast<unsigned char>(bytes[offset]) : 0;
    }
    unsigned GetShort(std::size_t offset) const { return GetByte(offset) << 8 | GetByte(offset + 1); }
    /// A number of 32 bits, 16 of them behind the point.
    double GetFixed(std::size_t offset) const
    {
        const std::uint32_t bits = GetShort(offset) << 16 | GetShort(offset + 2);
        return static_cast<std::int32_t>(bits) / 65536.0;
    }

private:
    HarfBuzzBlob blob;
    std::string_view bytes;
};

const char* NameStretch(unsigned widthClass)
{
    static constexpr const char* names[] = {"UltraCondensed", "ExtraCondensed", "Condensed",
                                            "SemiCondensed",  "Normal",         "SemiExpanded",
                                            "Expanded",       "ExtraExpanded",  "UltraExpanded"};
    constexpr unsigned normal = 5;
    return names[(widthClass >= 1 && widthClass <= 9 ? widthClass : normal) - 1];
}

/// From the font's class, and where it has none from its Panose numbers, as the table OS/2 has them.
std::uint32_t ReadFamilyFlags(const TableNumbers& windows)
{
    constexpr unsigned scriptClass = 10;
    const unsigned familyClass = windows.GetByte(30);
    if (familyClass == scriptClass)
        return flagScript;
    if (familyClass != 0)
        return (familyClass <= 5 || familyClass == 7) ? flagSerif : 0;
    constexpr unsigned panoseText = 2;
    constexpr unsigned panoseScript = 3;
    if (windows.GetByte(32) == panoseScript)
        return flagScript;
    const unsigned serifStyle = windows.GetByte(33);
    return windows.GetByte(32) == panoseText && serifStyle >= 2 && serifStyle <= 10 ? flagSerif : 0;
}

double ReadMetric(const HarfBuzzFont& font, hb_ot_metrics_tag_t tag, double usual)
{
    hb_position_t position = 0;
    const bool isThere = hb_ot_metrics_get_position(font.get(), tag, &position);
    return isThere ? position * 1000.0 / hb_face_get_upem(hb_font_get_face(font.get())) : usual;
}

} // namespace

FontMeasures ReadFontMeasures(std::string_view program, unsigned faceIndex)
{
    const HarfBuzzFace face = OpenHarfBuzzFace(program, faceIndex);
    const HarfBuzzFont font(hb_font_create(face.get()));
    const TableNumbers windows(face, HB_TAG('O', 'S', '/', '2'));
    const TableNumbers post(face, HB_TAG('p', 'o', 's', 't'));

    FontMeasures measures;
    measures.ascent = ReadMetric(font, HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER, 800.0);
    measures.descent = ReadMetric(font, HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER, -200.0);
    measures.capHeight = ReadMetric(font, HB_OT_METRICS_TAG_CAP_HEIGHT, measures.ascent);
    measures.italicAngle = post.GetFixed(4);
    measures.flags = flagSymbolic | ReadFamilyFlags(windows);
    if (post.GetShort(12) != 0 || post.GetShort(14) != 0)
        measures.flags |= flagFixedPitch;
    constexpr unsigned selectedItalic = 1;
    if (measures.italicAngle != 0 || (windows.GetShort(62) & selectedItalic) != 0)
        measures.flags |= flagItalic;
    if (windows.IsThere()) {
        const int hundreds = (static_cast<int>(windows.GetShort(4)) + 50) / 100;
        measures.weight = 100 * std::clamp(hundreds, 1, 9);
        measures.stretch = NameStretch(windows.GetShort(6));
    }
    // From 32 of a thin font over 96 of a regular one to 218 of the heaviest: near to what designers draw.
    measures.stemWidth = 10.0 + 220.0 * (measures.weight - 50) / 900.0;
    return measures;
}

} // namespace OrvPdf
