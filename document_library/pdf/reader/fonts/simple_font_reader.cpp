#include "pdf/reader/fonts/simple_font_reader.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "orv_font/font_names.h"
#include "pdf/fonts/simple_font.h"
#include "pdf/reader/content/problem_log.h"
#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

constexpr long long codeCount = 256;

boost::optional<BaseEncoding> FindEncoding(const std::string& name)
{
    static constexpr std::array<std::pair<const char*, BaseEncoding>, 4> encodings = {
        {{"StandardEncoding", BaseEncoding::Standard},
         {"MacRomanEncoding", BaseEncoding::MacRoman},
         {"WinAnsiEncoding", BaseEncoding::WinAnsi},
         {"MacExpertEncoding", BaseEncoding::MacExpert}}};
    for (const auto& [known, encoding] : encodings) {
        if (name == known)
            return encoding;
    }
    return boost::none;
}

void ReadDifferences(QPDFObjectHandle array, SimpleEncoding& encoding, FontProblems& problems)
{
    if (array.isNull())
        return;
    if (!array.isArray()) {
        problems.Add("Encoding: Differences is no array");
        return;
    }
    long long code = -1;
    std::size_t odd = 0;
    for (QPDFObjectHandle item : array.getArrayAsVector()) {
        if (item.isInteger()) {
            code = std::clamp<long long>(item.getIntValue(), -1, codeCount);
        } else if (item.isName() && code >= 0 && code < codeCount) {
            encoding.differences[static_cast<std::uint8_t>(code)] = GetNameText(item);
            ++code;
        } else {
            ++odd;
        }
    }
    if (odd > 0) {
        problems.Add("Encoding: " + std::to_string(odd) +
                     " entries of Differences are no glyph names for codes below 256 and are left out");
    }
}

bool IsNamed(const FontParts& parts, const char* name)
{
    return OrvFont::Detail::WithoutSubsetTag(parts.baseFont) == name;
}

bool IsStandardFont(const FontParts& parts)
{
    static constexpr std::array<const char*, 14> names = {
        "Courier",     "Courier-Bold",   "Courier-Oblique",   "Courier-BoldOblique",
        "Helvetica",   "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique",
        "Times-Roman", "Times-Bold",     "Times-Italic",      "Times-BoldItalic",
        "Symbol",      "ZapfDingbats"};
    return std::any_of(names.begin(), names.end(), [&](const char* name) { return IsNamed(parts, name); });
}

/// What the codes mean where the dictionary does not say it (ISO 32000-1, 9.6.6.1, table 114).
void AddImplicitBase(const FontParts& parts, bool isEmbedded, SimpleEncoding& encoding)
{
    if (isEmbedded)
        return;
    // Their glyphs have no names in the Latin encodings.
    if (IsNamed(parts, "Symbol"))
        encoding.base = BaseEncoding::Symbol;
    else if (IsNamed(parts, "ZapfDingbats"))
        encoding.base = BaseEncoding::ZapfDingbats;
    // The map of a TrueType program that is not there was most likely that of Windows.
    else if (!encoding.base)
        encoding.base = !encoding.isGiven && GetNameText(GetEntry(parts.dictionary, "/Subtype")) == "TrueType"
                            ? BaseEncoding::WinAnsi
                            : BaseEncoding::Standard;
}

} // namespace

SimpleEncoding ReadSimpleEncoding(QPDFObjectHandle encoding, FontProblems& problems)
{
    SimpleEncoding read;
    if (encoding.isNull())
        return read;
    const bool isDictionary = encoding.isDictionary();
    QPDFObjectHandle base = isDictionary ? GetEntry(encoding, "/BaseEncoding") : encoding;
    if (!base.isNull()) {
        read.base = FindEncoding(GetNameText(base));
        if (!read.base) {
            problems.Add("Encoding: " + (base.isName()
                                             ? "there is no encoding " + Readable(GetNameText(base))
                                             : std::string("it is neither a name nor a dictionary")));
        }
    }
    read.isGiven = isDictionary || read.base;
    read.isName = !isDictionary && read.base;
    if (isDictionary)
        ReadDifferences(GetEntry(encoding, "/Differences"), read, problems);
    return read;
}

SimpleWidths ReadSimpleWidths(const FontParts& parts, FontProblems& problems)
{
    SimpleWidths read;
    read.missing = ReadNumberAt(parts.descriptor, "/MissingWidth", 0.0, problems);
    QPDFObjectHandle widths = GetEntry(parts.dictionary, "/Widths");
    if (!widths.isArray()) {
        const bool isType3 = GetNameText(GetEntry(parts.dictionary, "/Subtype")) == "Type3";
        if (!widths.isNull() || isType3 || !IsStandardFont(parts)) {
            problems.Add(std::string(widths.isNull() ? "Widths is missing" : "Widths is no array") +
                         (isType3 ? "" : "; those of the program count"));
        }
        return read;
    }
    QPDFObjectHandle first = GetEntry(parts.dictionary, "/FirstChar");
    if (!first.isInteger() || first.getIntValue() < 0 || first.getIntValue() >= codeCount) {
        problems.Add("FirstChar is no code; Widths is left out");
        return read;
    }
    read.isGiven = true;
    read.first = static_cast<std::uint32_t>(first.getIntValue());
    const auto items = static_cast<long long>(widths.getArrayNItems());
    const long long count = std::min(items, codeCount - first.getIntValue());
    std::size_t odd = 0;
    for (int index = 0; index < count; ++index) {
        double width = read.missing;
        odd += ReadNumber(widths.getArrayItem(index), width) ? 0 : 1;
        read.widths.push_back(width);
    }
    if (odd > 0)
        problems.Add(std::to_string(odd) + " entries of Widths are no numbers");
    QPDFObjectHandle last = GetEntry(parts.dictionary, "/LastChar");
    if (last.isInteger() && last.getIntValue() < codeCount &&
        last.getIntValue() - first.getIntValue() >= items) {
        problems.Add("Widths has " + std::to_string(items) + " entries and not " +
                     std::to_string(last.getIntValue() - first.getIntValue() + 1) +
                     "; MissingWidth counts for the others");
    }
    return read;
}

std::shared_ptr<const OrvFont::Font> ReadSimpleFont(const FontParts& parts, FontProblems& problems)
{
    SimpleFont::Parts made;
    made.origin = MakeFontOrigin(parts);
    made.program = MakeDrawingProgram(parts, problems);
    made.rules.encoding = ReadSimpleEncoding(GetEntry(parts.dictionary, "/Encoding"), problems);
    AddImplicitBase(parts, made.program->IsEmbedded(), made.rules.encoding);
    made.rules.isSymbolic =
        (parts.flags & FontFlag::Symbolic) != 0 && (parts.flags & FontFlag::Nonsymbolic) == 0;
    made.rules.isDingbats = IsNamed(parts, "ZapfDingbats");
    made.widths = ReadSimpleWidths(parts, problems);
    made.toUnicode = MakeFontStream(parts.file, GetEntry(parts.dictionary, "/ToUnicode"));
    auto names = ReadFontNames(parts, *made.program);
    const auto box = ReadFontBox(parts, *made.program, problems);
    return std::make_shared<const OrvFont::Font>(std::move(names), box, OrvFont::WritingMode::Horizontal,
                                                 std::make_unique<const SimpleFont>(std::move(made)));
}

} // namespace OrvPdf
