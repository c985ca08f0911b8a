#include "pdf/reader/fonts/composite_font_reader.h"

#include <string>
#include <utility>

#include "pdf/fonts/composite_font.h"
#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

using OrvFont::WritingMode;

std::string ReadOrdering(QPDFObjectHandle glyphs, const CMap& map)
{
    QPDFObjectHandle ordering = GetEntry(GetEntry(glyphs, "/CIDSystemInfo"), "/Ordering");
    const std::string own = ordering.isString() ? ordering.getStringValue() : GetNameText(ordering);
    // Some producers state no collection for the font but use one's CMap.
    return own.empty() || own == "Identity" ? map.GetOrdering() : own;
}

WritingMode ReadWritingMode(QPDFObjectHandle encoding, const CMap& map)
{
    QPDFObjectHandle mode = GetEntry(encoding, "/WMode");
    if (!mode.isInteger())
        return map.GetWritingMode();
    return mode.getIntValue() == 1 ? WritingMode::Vertical : WritingMode::Horizontal;
}

void ReadDefaultVerticalMetrics(QPDFObjectHandle array, CompositeFont::Parts& made, FontProblems& problems)
{
    if (array.isNull())
        return;
    double origin = 0.0;
    double advance = 0.0;
    if (array.isArray() && array.getArrayNItems() == 2 && ReadNumber(array.getArrayItem(0), origin) &&
        ReadNumber(array.getArrayItem(1), advance)) {
        made.verticalOrigin = origin;
        made.verticalAdvance = advance;
    } else {
        problems.Add("DW2 is no array of two numbers");
    }
}

std::unique_ptr<const FontStream> ReadGlyphIds(const FontParts& parts, FontProblems& problems)
{
    QPDFObjectHandle map = GetEntry(parts.glyphs, "/CIDToGIDMap");
    if (!map.isNull() && !map.isStream() && GetNameText(map) != "Identity")
        problems.Add("CIDToGIDMap is neither Identity nor a stream");
    return MakeFontStream(parts.file, map, "the font " + problems.GetFont() + ": its CIDToGIDMap");
}

} // namespace

QPDFObjectHandle FindDescendant(QPDFObjectHandle dictionary)
{
    QPDFObjectHandle descendants = GetEntry(dictionary, "/DescendantFonts");
    if (descendants.isArray() && descendants.getArrayNItems() > 0)
        descendants = descendants.getArrayItem(0);
    const std::string subtype = GetNameText(GetEntry(descendants, "/Subtype"));
    const bool isCidFont = subtype == "CIDFontType0" || subtype == "CIDFontType2";
    return isCidFont && descendants.isDictionary() ? descendants : QPDFObjectHandle::newNull();
}

std::shared_ptr<const OrvFont::Font> ReadCompositeFont(const FontParts& parts, FontProblems& problems)
{
    QPDFObjectHandle encoding = GetEntry(parts.dictionary, "/Encoding");
    CompositeFont::Parts made;
    made.origin = MakeFontOrigin(parts);
    made.program = MakeDrawingProgram(parts, problems);
    made.encoding = ReadCMap(parts.file, encoding, problems);
    made.mode = ReadWritingMode(encoding, *made.encoding);
    made.ordering = ReadOrdering(parts.glyphs, *made.encoding);
    made.widths.SetRest({ReadNumberAt(parts.glyphs, "/DW", 1000.0, problems)});
    ReadCidWidths(GetEntry(parts.glyphs, "/W"), made.widths, problems);
    ReadDefaultVerticalMetrics(GetEntry(parts.glyphs, "/DW2"), made, problems);
    ReadCidVerticalMetrics(GetEntry(parts.glyphs, "/W2"), made.verticalMetrics, problems);
    if (GetNameText(GetEntry(parts.glyphs, "/Subtype")) == "CIDFontType2")
        made.glyphIds = ReadGlyphIds(parts, problems);
    made.toUnicode = MakeFontStream(parts.file, GetEntry(parts.dictionary, "/ToUnicode"));
    auto names = ReadFontNames(parts, *made.program);
    const auto box = ReadFontBox(parts, *made.program, problems);
    const WritingMode mode = made.mode;
    return std::make_shared<const OrvFont::Font>(std::move(names), box, mode,
                                                 std::make_unique<const CompositeFont>(std::move(made)));
}

} // namespace OrvPdf
