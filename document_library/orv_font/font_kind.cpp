#include "orv_font/font_kind.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "orv_font/font_names.h"

namespace OrvFont::Detail
{

namespace
{

using Design = FontKind::Design;

constexpr int leastBoldWeight = 600;

struct KnownDesign
{
    std::string_view text;
    Design design;
};

/// How known names begin. The first that fits counts.
constexpr KnownDesign knownBeginnings[] = {
    {"courier", Design::FixedPitch},
    {"liberationmono", Design::FixedPitch},
    {"nimbusmono", Design::FixedPitch},
    {"dejavusansmono", Design::FixedPitch},
    {"symbol", Design::Symbols},
    {"zapfdingbats", Design::Dingbats},
    {"itczapfdingbats", Design::Dingbats},
    {"dingbats", Design::Dingbats},
    {"wingdings", Design::Dingbats},
    {"webdings", Design::Dingbats},
    // What stands in for the two symbolic fonts, so that its name leads to it too.
    {"dejavusans", Design::Symbols},
    {"helvetica", Design::Sans},
    {"arial", Design::Sans},
    {"liberationsans", Design::Sans},
    {"nimbussans", Design::Sans},
    {"verdana", Design::Sans},
    {"tahoma", Design::Sans},
    {"calibri", Design::Sans},
    {"segoe", Design::Sans},
    {"trebuchet", Design::Sans},
    {"univers", Design::Sans},
    {"frutiger", Design::Sans},
    {"futura", Design::Sans},
    {"myriad", Design::Sans},
    {"roboto", Design::Sans},
    {"quorleserif", Design::Serif},
    {"times", Design::Serif},
    {"liberationserif", Design::Serif},
    {"nimbusroman", Design::Serif},
    {"dejavuserif", Design::Serif},
    {"georgia", Design::Serif},
    {"garamond", Design::Serif},
    {"adobegaramond", Design::Serif},
    {"palatino", Design::Serif},
    {"bookantiqua", Design::Serif},
    {"bookman", Design::Serif},
    {"newcentury", Design::Serif},
    {"centuryschool", Design::Serif},
    {"cambria", Design::Serif},
    {"minion", Design::Serif},
    {"baskerville", Design::Serif},
    {"caslon", Design::Serif},
    {"bodoni", Design::Serif},
};

/// Words in names that are not known. The first that fits counts.
constexpr KnownDesign tellingWords[] = {
    {"courier", Design::FixedPitch}, {"typewriter", Design::FixedPitch},
    {"consol", Design::FixedPitch},  {"sansmono", Design::FixedPitch},
    {"sans", Design::Sans},          {"gothic", Design::Sans},
    {"grotesk", Design::Sans},       {"grotesque", Design::Sans},
    {"serif", Design::Serif},        {"mincho", Design::Serif},
    {"antiqua", Design::Serif},
};

/// The letters and digits of ASCII, letters as small ones.
std::string Squeeze(const std::string& name)
{
    std::string squeezed;
    for (const char letter : name) {
        if (letter >= 'A' && letter <= 'Z')
            squeezed += static_cast<char>(letter - 'A' + 'a');
        else if ((letter >= 'a' && letter <= 'z') || (letter >= '0' && letter <= '9'))
            squeezed += letter;
    }
    return squeezed;
}

bool Has(std::string_view text, std::string_view word)
{
    return text.find(word) != std::string_view::npos;
}

bool HasOneOf(std::string_view text, std::initializer_list<std::string_view> words)
{
    return std::any_of(words.begin(), words.end(), [text](std::string_view word) { return Has(text, word); });
}

bool EndsWithOneOf(std::string_view text, std::initializer_list<std::string_view> words)
{
    return std::any_of(words.begin(), words.end(), [text](std::string_view word) {
        return text.size() >= word.size() && text.substr(text.size() - word.size()) == word;
    });
}

/// `mono`, but not in `monotype`.
bool HasMono(std::string_view text)
{
    constexpr std::string_view mono = "mono";
    constexpr std::string_view maker = "monotype";
    for (std::size_t at = text.find(mono); at != std::string_view::npos; at = text.find(mono, at + 1)) {
        if (text.substr(at, maker.size()) != maker)
            return true;
    }
    return false;
}

Design FindDesign(std::string_view name, const FontHints& hints)
{
    for (const KnownDesign& known : knownBeginnings) {
        if (name.substr(0, known.text.size()) == known.text)
            return known.design;
    }
    if (HasMono(name))
        return Design::FixedPitch;
    for (const KnownDesign& known : tellingWords) {
        if (Has(name, known.text))
            return known.design;
    }
    if (hints.isFixedPitch)
        return Design::FixedPitch;
    return hints.isSerif ? Design::Serif : Design::Sans;
}

} // namespace

FontKind FindFontKind(const std::string& name, const FontHints& hints)
{
    const std::string plainName = WithoutSubsetTag(name);
    const std::string whole = Squeeze(plainName);
    FontKind kind;
    kind.design = FindDesign(whole, hints);
    if (kind.design == Design::Symbols || kind.design == Design::Dingbats)
        return kind;
    // Short forms are words of the style alone: a family may end so by chance.
    const std::size_t separator = plainName.find_last_of("-,");
    const std::string style =
        separator == std::string::npos ? std::string() : Squeeze(plainName.substr(separator + 1));
    kind.isBold = hints.isBold || hints.weight >= leastBoldWeight ||
                  HasOneOf(whole, {"bold", "black", "heavy"}) || HasOneOf(style, {"demi", "bd", "blk"});
    kind.isItalic = hints.isItalic || HasOneOf(whole, {"italic", "oblique", "slanted", "kursiv"}) ||
                    EndsWithOneOf(style, {"it", "ital", "obl"});
    return kind;
}

} // namespace OrvFont::Detail
