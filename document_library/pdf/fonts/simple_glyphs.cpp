#include "pdf/fonts/simple_glyphs.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "pdf/fonts/glyph_names.h"

namespace OrvPdf
{

namespace
{

using OrvFont::Detail::FontProgram;

enum Platform : unsigned
{
    Unicode = 0,
    Macintosh = 1,
    Microsoft = 3
};

enum MicrosoftEncoding : unsigned
{
    MicrosoftSymbol = 0,
    MicrosoftUnicode = 1,
    MicrosoftFullUnicode = 10
};

constexpr unsigned macintoshRoman = 0;

/// The codes of the Macintosh's own encoding by glyph name: `MacRomanEncoding` with what table 115 of
/// ISO 32000-1 adds for TrueType programs.
const std::map<std::string_view, std::uint8_t>& GetMacintoshCodes()
{
    static const auto codes = [] {
        std::map<std::string_view, std::uint8_t> made = {
            {"notequal", 173},    {"infinity", 176},  {"lessequal", 178}, {"greaterequal", 179},
            {"partialdiff", 182}, {"summation", 183}, {"product", 184},   {"pi", 185},
            {"integral", 186},    {"Omega", 189},     {"radical", 195},   {"approxequal", 197},
            {"Delta", 198},       {"lozenge", 215},   {"Euro", 219},      {"apple", 240}};
        // From the front: a blank is found at 32 and not where it does not break.
        for (unsigned code = 0; code < 256; ++code) {
            const std::string_view name =
                GetGlyphName(BaseEncoding::MacRoman, static_cast<std::uint8_t>(code));
            if (!name.empty())
                made.emplace(name, static_cast<std::uint8_t>(code));
        }
        return made;
    }();
    return codes;
}

char32_t GetCodePointOfName(std::string_view name, bool isDingbat)
{
    const std::u32string text = GetTextOfGlyphName(name, isDingbat);
    return text.size() == 1 ? text.front() : 0;
}

std::uint32_t FindByCodePoint(const FontProgram& program, char32_t codePoint)
{
    const std::uint32_t glyph = program.FindGlyphByCode(Microsoft, MicrosoftUnicode, codePoint);
    return glyph != 0 ? glyph : program.FindGlyphByCodePoint(codePoint);
}

std::uint32_t FindByMeaning(const FontProgram& program, std::string_view name, bool isDingbat)
{
    const char32_t codePoint = GetCodePointOfName(name, isDingbat);
    if (codePoint == 0)
        return 0;
    if (const std::uint32_t glyph = FindByCodePoint(program, codePoint))
        return glyph;
    // Pairs of one shape: programs often have but one of them.
    static const std::map<char32_t, char32_t> twins = {
        {0x00A0, 0x0020}, {0x00AD, 0x002D}, {0x2126, 0x03A9}, {0x03A9, 0x2126}, {0x2206, 0x0394},
        {0x0394, 0x2206}, {0x00B5, 0x03BC}, {0x03BC, 0x00B5}, {0x2215, 0x2044}, {0x2219, 0x00B7}};
    const auto twin = twins.find(codePoint);
    return twin == twins.end() ? 0 : FindByCodePoint(program, twin->second);
}

std::uint32_t FindInNamedProgram(const FontProgram& program, const SimpleGlyphRules& rules, std::uint8_t code)
{
    const std::string_view name = rules.encoding.FindName(code);
    if (name.empty())
        return rules.encoding.base ? 0 : program.FindGlyphByBuiltInCode(code);
    if (const std::uint32_t glyph = program.FindGlyphByName(std::string(name)))
        return glyph;
    return name == ".notdef" ? 0 : FindByMeaning(program, name, rules.isDingbats);
}

std::uint32_t FindByTrueTypeName(const FontProgram& program, const SimpleGlyphRules& rules, std::uint8_t code)
{
    std::string_view name = rules.encoding.FindName(code);
    // A dictionary without a base, and where the base has nothing: as the standard encoding has it.
    if (name.empty())
        name = GetGlyphName(BaseEncoding::Standard, code);
    if (name.empty() || name == ".notdef")
        return 0;
    std::uint32_t glyph = 0;
    const bool isUnicode = program.HasCharacterMap(Microsoft, MicrosoftUnicode) ||
                           program.HasCharacterMap(Microsoft, MicrosoftFullUnicode);
    if (isUnicode)
        glyph = FindByMeaning(program, name, rules.isDingbats);
    if (glyph == 0 && program.HasCharacterMap(Macintosh, macintoshRoman)) {
        const auto found = GetMacintoshCodes().find(name);
        if (found != GetMacintoshCodes().end())
            glyph = program.FindGlyphByCode(Macintosh, macintoshRoman, found->second);
    }
    if (glyph == 0)
        glyph = program.FindGlyphByName(std::string(name));
    return glyph != 0 || isUnicode ? glyph : FindByMeaning(program, name, rules.isDingbats);
}

std::uint32_t FindByTrueTypeCode(const FontProgram& program, std::uint8_t code)
{
    if (program.HasCharacterMap(Microsoft, MicrosoftSymbol)) {
        for (const std::uint32_t range : {0xF000U, 0x0000U, 0xF100U, 0xF200U}) {
            const std::uint32_t glyph = program.FindGlyphByCode(Microsoft, MicrosoftSymbol, range + code);
            if (glyph != 0)
                return glyph;
        }
    }
    if (program.HasCharacterMap(Macintosh, macintoshRoman)) {
        const std::uint32_t glyph = program.FindGlyphByCode(Macintosh, macintoshRoman, code);
        if (glyph != 0)
            return glyph;
    }
    return program.FindGlyphByBuiltInCode(code);
}

bool HasAnyCharacterMap(const FontProgram& program)
{
    constexpr unsigned mostEncodings = 11;
    for (const unsigned platform : {Unicode, Macintosh, Microsoft}) {
        for (unsigned encoding = 0; encoding < mostEncodings; ++encoding) {
            if (program.HasCharacterMap(platform, encoding))
                return true;
        }
    }
    return false;
}

bool GoesByNames(const SimpleGlyphRules& rules)
{
    const SimpleEncoding& encoding = rules.encoding;
    const bool isLatinName = encoding.isName && (encoding.base == BaseEncoding::MacRoman ||
                                                 encoding.base == BaseEncoding::WinAnsi);
    return encoding.isGiven && (isLatinName || !rules.isSymbolic);
}

std::uint32_t FindInTrueTypeProgram(const FontProgram& program, const SimpleGlyphRules& rules,
                                    std::uint8_t code)
{
    const bool goesByNames = GoesByNames(rules);
    std::uint32_t glyph =
        goesByNames ? FindByTrueTypeName(program, rules, code) : FindByTrueTypeCode(program, code);
    if (glyph == 0 && goesByNames && rules.encoding.FindName(code) != ".notdef")
        glyph = FindByTrueTypeCode(program, code);
    if (glyph == 0 && !goesByNames)
        glyph = FindByTrueTypeName(program, rules, code);
    // Subsets without any map: the codes are the glyphs.
    if (glyph == 0 && code < program.GetGlyphCount() && !HasAnyCharacterMap(program))
        glyph = code;
    return glyph;
}

} // namespace

std::uint32_t FindEmbeddedGlyph(const FontProgram& program, const SimpleGlyphRules& rules, std::uint8_t code)
{
    return program.GetFormat() == FontProgram::Format::TrueType ? FindInTrueTypeProgram(program, rules, code)
                                                                : FindInNamedProgram(program, rules, code);
}

std::uint32_t FindReplacementGlyph(const FontProgram& program, const SimpleGlyphRules& rules,
                                   std::uint8_t code)
{
    std::string_view name = rules.encoding.FindName(code);
    // The encoding of the font's own program, which cannot be read.
    if (name.empty() && !rules.encoding.base)
        name = GetGlyphName(BaseEncoding::Standard, code);
    if (name.empty() || name == ".notdef")
        return 0;
    const std::uint32_t glyph = FindByMeaning(program, name, rules.isDingbats);
    return glyph != 0 ? glyph : program.FindGlyphByName(std::string(name));
}

} // namespace OrvPdf
