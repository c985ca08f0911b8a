#include "pdf/writer/fonts/font_embedding.h"

#include <stdexcept>

#include <qpdf/QPDF.hh>

#include <orv_font/font.h>

#include "orv_font/font_program.h"
#include "orv_font/program_font.h"
#include "pdf/fonts/to_unicode.h"
#include "pdf/marked_content_tags.h"
#include "pdf/writer/document/page_box_corners.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/fonts/font_measures.h"
#include "pdf/writer/fonts/glyph_texts.h"
#include "pdf/writer/fonts/glyph_widths.h"

namespace OrvPdf
{

namespace
{

using OrvFont::Detail::FontProgram;

/// How many bytes a code takes.
constexpr std::uint32_t codeBytes = 2;

/// CIDs choose the glyphs of such a program, so these have to be the glyph ids.
void RequirePlainCids(const FontProgram& program, const GlyphSet& glyphs)
{
    if (!program.IsCidKeyed())
        return;
    for (const std::uint32_t glyph : glyphs) {
        if (program.FindGlyphByCid(glyph) != glyph)
            throw std::runtime_error("the glyph " + std::to_string(glyph) + " has another CID");
    }
}

/// What the font is called in the file.
std::string GetFileName(const OrvFont::Font& font, bool isSubset, const GlyphSet& glyphs)
{
    const std::string& name = font.GetName();
    return isSubset && !name.empty() ? MakeSubsetTag(name, glyphs) + '+' + name : name;
}

QPDFObjectHandle MakeBoxArray(const OrvFont::Font::Rectangle& box)
{
    // All zeros say that nothing is known of it, as in a Type 3 font (ISO 32000-1, table 112).
    const BoxCorners corners = FindBoxCorners(box).value_or(BoxCorners{0.0, 0.0, 0.0, 0.0});
    std::vector<QPDFObjectHandle> numbers;
    for (const double number : {corners.left, corners.bottom, corners.right, corners.top})
        numbers.push_back(ObjectMaker::MakeNumber(number));
    return QPDFObjectHandle::newArray(numbers);
}

QPDFObjectHandle MakeDescriptor(const OrvFont::Font& font, const FontProgram& program,
                                const std::string& name)
{
    const FontMeasures measures = ReadFontMeasures(*program.GetBytes(), program.GetFace());
    QPDFObjectHandle descriptor = QPDFObjectHandle::newDictionary();
    descriptor.replaceKey("/Type", QPDFObjectHandle::newName("/FontDescriptor"));
    descriptor.replaceKey("/FontName", ObjectMaker::MakeName(name));
    if (!font.GetFamilyName().empty())
        descriptor.replaceKey("/FontFamily", ObjectMaker::MakeText(font.GetFamilyName()));
    if (!font.GetStyleName().empty())
        descriptor.replaceKey(Tags::fontStyleKey, ObjectMaker::MakeText(font.GetStyleName()));
    descriptor.replaceKey("/FontStretch", ObjectMaker::MakeName(measures.stretch));
    descriptor.replaceKey("/FontWeight", QPDFObjectHandle::newInteger(measures.weight));
    descriptor.replaceKey("/Flags", QPDFObjectHandle::newInteger(measures.flags));
    descriptor.replaceKey("/FontBBox", MakeBoxArray(font.GetFontBBox()));
    descriptor.replaceKey("/ItalicAngle", ObjectMaker::MakeNumber(measures.italicAngle));
    descriptor.replaceKey("/Ascent", ObjectMaker::MakeNumber(measures.ascent));
    descriptor.replaceKey("/Descent", ObjectMaker::MakeNumber(measures.descent));
    descriptor.replaceKey("/CapHeight", ObjectMaker::MakeNumber(measures.capHeight));
    descriptor.replaceKey("/StemV", ObjectMaker::MakeNumber(measures.stemWidth));
    return descriptor;
}

QPDFObjectHandle MakeProgramStream(const EmbeddedProgram& embedded, ObjectMaker& maker)
{
    QPDFObjectHandle stream = maker.MakeStream(embedded.bytes);
    const auto length = static_cast<long long>(embedded.bytes.size());
    if (embedded.subtype)
        stream.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName(embedded.subtype));
    else
        stream.getDict().replaceKey("/Length1", QPDFObjectHandle::newInteger(length));
    return stream;
}

QPDFObjectHandle MakeSystemInfo()
{
    QPDFObjectHandle info = QPDFObjectHandle::newDictionary();
    info.replaceKey("/Registry", QPDFObjectHandle::newString("Adobe"));
    info.replaceKey("/Ordering", QPDFObjectHandle::newString("Identity"));
    info.replaceKey("/Supplement", QPDFObjectHandle::newInteger(0));
    return info;
}

void SetAdvances(QPDFObjectHandle descendant, const OrvFont::Font& font, const FontProgram& program,
                 const GlyphSet& glyphs)
{
    const bool isVertical = font.GetWritingMode() == OrvFont::WritingMode::Vertical;
    GlyphWidths widths;
    VerticalWidths vertical;
    for (const std::uint32_t glyph : glyphs) {
        const double advance = font.GetAdvance({glyph, glyph});
        if (isVertical) {
            widths[glyph] = program.GetAdvance(glyph);
            vertical[glyph] = {advance, widths[glyph] / 2, OrvFont::Detail::ProgramFont::verticalOrigin};
        } else {
            widths[glyph] = advance;
        }
    }
    SetWidths(descendant, widths);
    if (isVertical)
        SetVerticalWidths(descendant, vertical, widths);
}

QPDFObjectHandle MakeDescendant(const OrvFont::Font& font, const FontProgram& program, const GlyphSet& glyphs,
                                const EmbeddedProgram& embedded, ObjectMaker& maker)
{
    QPDF& file = maker.GetFile();
    const std::string name = GetFileName(font, embedded.isSubset, glyphs);
    QPDFObjectHandle descriptor = MakeDescriptor(font, program, name);
    if (!embedded.bytes.empty())
        descriptor.replaceKey(embedded.key, MakeProgramStream(embedded, maker));

    QPDFObjectHandle descendant = QPDFObjectHandle::newDictionary();
    descendant.replaceKey("/Type", QPDFObjectHandle::newName("/Font"));
    descendant.replaceKey("/Subtype", QPDFObjectHandle::newName(embedded.fontSubtype));
    descendant.replaceKey("/BaseFont", ObjectMaker::MakeName(name));
    descendant.replaceKey("/CIDSystemInfo", MakeSystemInfo());
    descendant.replaceKey("/FontDescriptor", file.makeIndirectObject(descriptor));
    if (!embedded.bytes.empty() && !embedded.subtype)
        descendant.replaceKey("/CIDToGIDMap", QPDFObjectHandle::newName("/Identity"));
    SetAdvances(descendant, font, program, glyphs);
    return file.makeIndirectObject(descendant);
}

} // namespace

EmbeddedProgram MakeEmbeddedProgram(const FontProgram& program, const GlyphSet& glyphs)
{
    EmbeddedProgram embedded;
    if (program.GetFormat() == FontProgram::Format::Type1)
        throw std::runtime_error("a composite font cannot hold a Type 1 program");
    RequirePlainCids(program, glyphs);
    const std::string& bytes = *program.GetBytes();
    const bool isBare = !IsTableFont(bytes);
    embedded.bytes = isBare ? bytes : MakeFontSubset(bytes, program.GetFace(), glyphs);
    embedded.isSubset = !isBare;
    if (program.GetFormat() == FontProgram::Format::Cff) {
        embedded.key = "/FontFile3";
        embedded.subtype = isBare ? "/CIDFontType0C" : "/OpenType";
        embedded.fontSubtype = "/CIDFontType0";
        embedded.version = isBare ? embedded.version : "1.6";
    }
    return embedded;
}

EmbeddingOutcome WriteEmbeddedFont(QPDFObjectHandle dictionary, const OrvFont::Font& font,
                                   const FontProgram& program, GlyphSet glyphs, ObjectMaker& maker)
{
    std::string problem;
    EmbeddedProgram embedded;
    glyphs.erase(glyphs.lower_bound(program.GetGlyphCount()), glyphs.end());
    try {
        embedded = MakeEmbeddedProgram(program, glyphs);
    } catch (const std::runtime_error& error) {
        problem = error.what();
        embedded = EmbeddedProgram();
        embedded.isSubset = false;
    }
    QPDFObjectHandle descendant = MakeDescendant(font, program, glyphs, embedded, maker);
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/Font"));
    dictionary.replaceKey("/Subtype", QPDFObjectHandle::newName("/Type0"));
    dictionary.replaceKey("/BaseFont", descendant.getKey("/BaseFont"));
    const bool isVertical = font.GetWritingMode() == OrvFont::WritingMode::Vertical;
    dictionary.replaceKey("/Encoding", QPDFObjectHandle::newName(isVertical ? "/Identity-V" : "/Identity-H"));
    dictionary.replaceKey("/DescendantFonts", QPDFObjectHandle::newArray({descendant}));
    const GlyphTexts texts = ReadGlyphTexts(program, glyphs);
    if (!texts.empty())
        dictionary.replaceKey("/ToUnicode", maker.MakeStream(MakeToUnicode(texts, codeBytes)));
    return {problem, embedded.version};
}

} // namespace OrvPdf
