#include "pdf/reader/fonts/font_reader.h"

#include <utility>

#include "orv_font/font_names.h"
#include "pdf/reader/content/problem_log.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/fonts/composite_font_reader.h"
#include "pdf/reader/fonts/font_parts.h"
#include "pdf/reader/fonts/simple_font_reader.h"
#include "pdf/reader/fonts/type3_font.h"
#include "pdf/reader/resources/resource_guard.h"

namespace OrvPdf
{

namespace
{

using FontPointer = std::shared_ptr<const OrvFont::Font>;

enum class Kind
{
    None,
    Simple,
    Composite,
    Type3
};

/// By `Subtype`, or where that says nothing by what only one kind has.
Kind FindKind(QPDFObjectHandle dictionary)
{
    const std::string subtype = GetNameText(GetEntry(dictionary, "/Subtype"));
    if (subtype == "Type0")
        return Kind::Composite;
    if (subtype == "Type3")
        return Kind::Type3;
    if (subtype == "Type1" || subtype == "MMType1" || subtype == "TrueType")
        return Kind::Simple;
    if (!GetEntry(dictionary, "/DescendantFonts").isNull())
        return Kind::Composite;
    if (!GetEntry(dictionary, "/CharProcs").isNull())
        return Kind::Type3;
    return GetEntry(dictionary, "/BaseFont").isName() ? Kind::Simple : Kind::None;
}

bool HasKnownSubtype(QPDFObjectHandle dictionary)
{
    const std::string subtype = GetNameText(GetEntry(dictionary, "/Subtype"));
    return subtype == "Type0" || subtype == "Type1" || subtype == "MMType1" || subtype == "TrueType" ||
           subtype == "Type3";
}

/// How messages call the font.
std::string NameForMessages(const FontParts& parts)
{
    std::string name = OrvFont::Detail::WithoutSubsetTag(parts.baseFont);
    if (name.empty())
        name = GetNameText(GetEntry(parts.dictionary, "/Name"));
    return name.empty() ? "of " + DescribeObject(parts.dictionary) : Readable(name);
}

FontPointer ReadKind(Kind kind, const FontParts& parts, FontProblems& problems)
{
    switch (kind) {
    case Kind::Simple:
        return ReadSimpleFont(parts, problems);
    case Kind::Composite:
        return ReadCompositeFont(parts, problems);
    case Kind::Type3:
        return ReadType3Font(parts, problems);
    case Kind::None:
        break;
    }
    return nullptr;
}

} // namespace

FontReader::FontReader(std::shared_ptr<const SourceFile> givenFile) : file(std::move(givenFile)) {}

FontReader::~FontReader() = default;

FontPointer FontReader::Read(QPDFObjectHandle dictionary, std::vector<std::string>& problems)
{
    FontPointer font;
    std::string problem;
    GuardLookUp(problem, [&] {
        if (!dictionary.isInitialized() || !dictionary.isDictionary()) {
            problem = "it is no font dictionary";
            return;
        }
        FontPointer& known =
            dictionary.isIndirect() ? fonts[dictionary.getObjGen()] : directFonts[dictionary.unparse()];
        if (!known)
            known = Make(dictionary, problems);
        font = known;
    });
    if (!problem.empty())
        problems.push_back(problem);
    return font;
}

FontPointer FontReader::Make(QPDFObjectHandle dictionary, std::vector<std::string>& problems)
{
    const Kind kind = FindKind(dictionary);
    QPDFObjectHandle glyphs = kind == Kind::Composite ? FindDescendant(dictionary) : dictionary;
    if (kind == Kind::None || glyphs.isNull()) {
        problems.emplace_back(kind == Kind::None ? "Subtype: it is no kind of font"
                                                 : "DescendantFonts has no CIDFont");
        return nullptr;
    }
    const FontParts parts = GatherFontParts(file, dictionary, glyphs);
    FontProblems found(NameForMessages(parts), problems);
    if (!HasKnownSubtype(dictionary))
        found.Add("Subtype is missing or no kind of font; it is read as what its other entries make it");
    if (parts.baseFont.empty() && kind != Kind::Type3)
        found.Add("BaseFont is missing");
    return ReadKind(kind, parts, found);
}

} // namespace OrvPdf
