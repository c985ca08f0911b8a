// Any bytes as a font. The input is a line with a letter and the hexadecimal digits of a shown string, and
// behind it a font program, or a line with a font dictionary and the program that it has:
//
//     p 00010002        a program; v for one that is written vertically
//     d 4142            a dictionary
//     << /Type /Font /Subtype /TrueType /FontDescriptor << /FontFile2 << /Stream /Rest >> >> >>
//
// A dictionary that has a string under `Stream` is a stream of its bytes, and the name `Rest` there stands
// for all that is behind the line.
//
// Laws:
// - a program can be used or is refused with a reason; numbers that it gives are finite;
// - whatever is searched is a glyph that is there, and the name of a glyph leads to one of that name;
// - glyphs that are not there have neither outline nor advance, and each is drawn alike every time;
// - a subset is a program, the same each time, and draws its glyphs as the whole one where both know them;
// - names, box and advances of an embedded font are read back as they are;
// - the codes of a dictionary's font take all bytes of a string, one to four each;
// - a font that is written into another file and read again shows the same string in the same way.

#include "fuzz_target.h"
#include "library_support/plain_filters.h"
#include "library_support/small_file.h"
#include "library_support/written_object.h"

#include <orv_font/font.h>
#include <plexa/compound.h>

#include "orv_font/font_program.h"
#include "orv_font/program_font.h"
#include "pdf/fonts/file_font.h"
#include "pdf/fonts/only_code_point.h"
#include "pdf/reader/file/file_reading.h"
#include "pdf/reader/fonts/font_reader.h"
#include "pdf/writer/file/object_maker.h"
#include "pdf/writer/fonts/file_font_objects.h"
#include "pdf/writer/fonts/font_embedding.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

using OrvFont::Character;
using OrvFont::Font;
using OrvFont::Detail::FontProgram;
using FontPointer = std::shared_ptr<const Font>;
using ProgramPointer = std::shared_ptr<const FontProgram>;
using Outline = std::shared_ptr<const Plexa::Compound>;

/// More would only take time.
constexpr std::size_t mostShownBytes = 64;
constexpr std::uint32_t mostGlyphs = 40;

bool AreEqual(const Outline& left, const Outline& right)
{
    return left && right ? *left == *right : !left && !right;
}

void RequireFinite(const Outline& outline)
{
    if (!outline)
        return;
    for (const auto& subpath : outline->GetSubpaths()) {
        for (const auto& point : subpath->GetPoints())
            Require(std::isfinite(point.x.value) && std::isfinite(point.y.value), "a point is finite");
    }
}

void RequireFinite(const Font::Rectangle& box)
{
    Require(std::isfinite(box.origin.x.value) && std::isfinite(box.origin.y.value) &&
                std::isfinite(box.size.width.value) && std::isfinite(box.size.height.value),
            "a box is finite");
}

/// Null for bytes that are refused.
ProgramPointer OpenProgram(std::string_view bytes)
{
    try {
        return std::make_shared<const FontProgram>(std::make_shared<const std::string>(bytes));
    } catch (const std::runtime_error& error) {
        Require(error.what()[0] != '\0', "a program is refused with a reason");
    }
    return nullptr;
}

void RequireGlyph(const FontProgram& program, std::uint32_t glyph)
{
    const Outline outline = program.MakeOutline(glyph, {});
    RequireFinite(outline);
    Require(AreEqual(outline, program.MakeOutline(glyph, {})), "a glyph is drawn alike every time");
    Require(std::isfinite(program.GetAdvance(glyph)), "an advance is finite");
    Require(std::isfinite(program.GetVerticalAdvance(glyph)), "a vertical advance is finite");
    const std::string name = program.GetGlyphName(glyph);
    if (name.empty())
        return;
    const std::uint32_t named = program.FindGlyphByName(name);
    Require(named <= glyph, "the first glyph of a name counts");
    Require(program.GetGlyphName(named) == name, "the name of a glyph leads to one of that name");
}

void RequireSearches(const FontProgram& program, std::uint32_t code)
{
    const std::uint32_t count = program.GetGlyphCount();
    Require(program.FindGlyphByCodePoint(code) < count, "a code point has a glyph that is there");
    Require(program.FindGlyphByCid(code) < count, "a CID has a glyph that is there");
    Require(program.FindGlyphByBuiltInCode(static_cast<std::uint8_t>(code)) < count,
            "a code has a glyph that is there");
    for (const unsigned platform : {0u, 1u, 3u}) {
        for (const unsigned encoding : {0u, 1u, 3u, 10u})
            Require(program.FindGlyphByCode(platform, encoding, code) < count,
                    "a character map has glyphs that are there");
    }
}

void RequireSubset(const FontProgram& program, const OrvPdf::GlyphSet& glyphs)
{
    OrvPdf::EmbeddedProgram embedded;
    try {
        embedded = OrvPdf::MakeEmbeddedProgram(program, glyphs);
    } catch (const std::runtime_error& error) {
        Require(error.what()[0] != '\0', "a program is not embedded for a reason");
        return;
    }
    Require(OrvPdf::MakeEmbeddedProgram(program, glyphs).bytes == embedded.bytes,
            "a subset is the same each time");
    const ProgramPointer subset = OpenProgram(embedded.bytes);
    if (!subset)
        return;
    for (const std::uint32_t glyph : glyphs) {
        const Outline whole = program.MakeOutline(glyph, {});
        const Outline part = subset->MakeOutline(glyph, {});
        Require(!whole || !part || *whole == *part, "a subset draws its glyphs as the whole program");
    }
}

/// What the dictionary of an object is read as; its problems are dropped.
FontPointer ReadFont(QPDFObjectHandle dictionary)
{
    const auto& file = GetSmallFile();
    const OrvPdf::SourceFile::Access access(*file);
    std::vector<std::string> problems;
    FontPointer font = OrvPdf::FontReader(file).Read(dictionary, problems);
    Require(font || !problems.empty(), "what is no font is told");
    for (const std::string& problem : problems)
        Require(!problem.empty(), "a problem has a text");
    return font;
}

void RequireEqualFrames(const Font& left, const Font& right)
{
    Require(left.GetName() == right.GetName(), "a font keeps its name");
    Require(left.GetFamilyName() == right.GetFamilyName(), "a font keeps its family");
    Require(left.GetStyleName() == right.GetStyleName(), "a font keeps its style");
    Require(left.GetFontBBox() == right.GetFontBBox(), "a font keeps its box");
    Require(left.GetWritingMode() == right.GetWritingMode(), "a font keeps its writing mode");
}

void RequireEmbedding(const ProgramPointer& program, const OrvPdf::GlyphSet& glyphs,
                      OrvFont::WritingMode mode)
{
    const FontPointer font = OrvFont::Detail::MakeProgramFont(program, mode);
    const auto file = MakeEmptyFile();
    OrvPdf::ObjectMaker maker(*file, false);
    QPDFObjectHandle dictionary = file->makeIndirectObject(QPDFObjectHandle::newDictionary());
    OrvPdf::WriteEmbeddedFont(dictionary, *font, *program, glyphs, maker);
    const FontPointer read = ReadFont(dictionary);
    Require(read != nullptr, "an embedded font is one");
    // What a font without a name is called may be in a table that only the subset has in order.
    if (!font->GetName().empty())
        RequireEqualFrames(*font, *read);
    for (const std::uint32_t glyph : glyphs) {
        const Character character{glyph, glyph, 2};
        Require(glyph >= program->GetGlyphCount() ||
                    font->GetAdvance(character) == read->GetAdvance(character),
                "advances of an embedded font are read back");
    }
}

OrvPdf::GlyphSet ReadGlyphs(std::string_view shown)
{
    OrvPdf::GlyphSet glyphs;
    for (std::size_t at = 0; at + 1 < shown.size(); at += 2)
        glyphs.insert(static_cast<unsigned char>(shown[at]) << 8 | static_cast<unsigned char>(shown[at + 1]));
    return glyphs;
}

void RequireProgram(std::string_view bytes, std::string_view shown, OrvFont::WritingMode mode)
{
    const ProgramPointer program = OpenProgram(bytes);
    if (!program)
        return;
    const std::uint32_t count = program->GetGlyphCount();
    Require(count > 0, "a program has glyphs");
    RequireFinite(program->GetBox());
    Require(!program->MakeOutline(count, {}), "a glyph that is not there has no outline");
    Require(program->GetAdvance(count) == 0.0, "a glyph that is not there has no advance");
    Require(program->IsSameAs(*OpenProgram(bytes)), "a program is the same as one of the same bytes");
    OrvPdf::GlyphSet glyphs = ReadGlyphs(shown);
    for (const std::uint32_t code : glyphs)
        RequireSearches(*program, code);
    for (std::uint32_t glyph = 0; glyph < std::min(count, mostGlyphs); ++glyph)
        RequireGlyph(*program, glyph);
    RequireEmbedding(program, glyphs, mode);
    glyphs.erase(glyphs.lower_bound(count), glyphs.end());
    RequireSubset(*program, glyphs);
}

std::vector<Character> DecodeWhole(const OrvPdf::FileFont& font, std::string_view shown)
{
    std::vector<Character> characters;
    font.Decode(shown, characters);
    std::size_t taken = 0;
    for (const Character& character : characters) {
        Require(character.codeBytes >= 1 && character.codeBytes <= 4, "a code has one byte to four");
        taken += character.codeBytes;
    }
    Require(taken == shown.size(), "codes take all bytes of a string");
    return characters;
}

/// Simple fonts alone go through their codes in no time.
void RequireSearch(const Font& font, const OrvPdf::FileFont& source, const Character& character)
{
    const char32_t codePoint = OrvPdf::GetOnlyCodePoint(source.GetText(character));
    Character found;
    if (character.codeBytes != 1 || codePoint == 0 || !font.GetSource().FindCharacter(codePoint, found))
        return;
    Require(OrvPdf::GetOnlyCodePoint(source.GetText(found)) == codePoint,
            "a code point has a character that shows it");
}

void RequireSameCharacter(const Font& left, const Font& right, const Character& character)
{
    const Outline outline = left.GetOutline(character);
    Require(outline != nullptr, "a character has a shape");
    RequireFinite(outline);
    Require(std::isfinite(left.GetAdvance(character)), "an advance is finite");
    Require(left.GetAdvance(character) == right.GetAdvance(character), "a font keeps its advances");
    Require(AreEqual(outline, right.GetOutline(character)), "a font keeps its outlines");
    Require(OrvPdf::GetFileFont(left)->GetText(character) == OrvPdf::GetFileFont(right)->GetText(character),
            "a font keeps its texts");
}

void RequireDictionary(const std::string& text, std::string_view rest, std::string_view shown)
{
    const WrittenObject written(text, rest);
    const FontPointer font = ReadFont(written.Get());
    if (!font)
        return;
    const OrvPdf::FileFont* const source = OrvPdf::GetFileFont(*font);
    Require(source != nullptr, "the font of a dictionary is one of a file");
    RequireFinite(font->GetFontBBox());
    const std::vector<Character> characters = DecodeWhole(*source, shown);

    const auto file = MakeEmptyFile();
    OrvPdf::ObjectMaker maker(*file, false);
    std::string problem;
    QPDFObjectHandle object = OrvPdf::MakeFileFontObject(*source, nullptr, maker, problem);
    if (object.isNull()) {
        Require(!problem.empty(), "a font that is not written is told");
        return;
    }
    const FontPointer again = ReadFont(object);
    Require(again != nullptr, "a font that is written is one");
    RequireEqualFrames(*font, *again);
    const OrvPdf::FileFont* const sourceAgain = OrvPdf::GetFileFont(*again);
    Require(DecodeWhole(*sourceAgain, shown) == characters, "a font keeps its codes");
    for (const Character& character : characters) {
        RequireSameCharacter(*font, *again, character);
        RequireSearch(*font, *source, character);
    }
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace HarrowSupport::Fuzzing;

    // The file stays open; what is found wrong in this run must not stay in it.
    OrvPdf::FileReading reading(*GetSmallFile(), "a font");
    const std::string bytes(data, data + size);
    const std::string_view input = bytes;
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string_view line = input.substr(0, end);
    const std::string_view rest = input.substr(std::min(end + 1, input.size()));
    const std::string shown =
        DecodeHexadecimal(line.substr(std::min<std::size_t>(1, line.size()))).bytes.substr(0, mostShownBytes);
    const char kind = line.empty() ? 'p' : line[0];
    if (kind == 'd') {
        const std::size_t dictionaryEnd = std::min(rest.find('\n'), rest.size());
        RequireDictionary(std::string(rest.substr(0, dictionaryEnd)),
                          rest.substr(std::min(dictionaryEnd + 1, rest.size())), shown);
    } else {
        RequireProgram(rest, shown,
                       kind == 'v' ? OrvFont::WritingMode::Vertical : OrvFont::WritingMode::Horizontal);
    }
    reading.TakeProblems();
    return 0;
}
