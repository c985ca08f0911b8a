#include "orv_font/name_table.h"

#include <string>
#include <string_view>

#include "orv_font/font_names.h"
#include "orv_sys/utf8.h"

#include FT_SFNT_NAMES_H
#include FT_TRUETYPE_IDS_H

namespace OrvFont::Detail
{

namespace
{

constexpr int englishLanguage = 0x09; // the low ten bits of a Windows language, whatever the country
constexpr int languageMask = 0x3FF;

/// How much an entry is worth: 0 if it can't be read.
int RankOf(const FT_SfntName& entry)
{
    const bool isWindows = entry.platform_id == TT_PLATFORM_MICROSOFT;
    if (isWindows && entry.language_id == TT_MS_LANGID_ENGLISH_UNITED_STATES)
        return 5;
    if (isWindows && (entry.language_id & languageMask) == englishLanguage)
        return 4;
    if (entry.platform_id == TT_PLATFORM_APPLE_UNICODE)
        return 3;
    if (entry.platform_id == TT_PLATFORM_MACINTOSH && entry.encoding_id == TT_MAC_ID_ROMAN &&
        entry.language_id == TT_MAC_LANGID_ENGLISH)
        return 2;
    return isWindows ? 1 : 0;
}

void AppendUtf8(std::string& text, char32_t character)
{
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

/// Bytes of UTF-16, high ones first. Empty if they are none.
std::string TextOfUtf16(const unsigned char* bytes, std::size_t size)
{
    std::string text;
    const auto unitAt = [bytes](std::size_t index) -> char32_t {
        return (char32_t{bytes[index]} << 8) | bytes[index + 1];
    };
    for (std::size_t index = 0; index + 1 < size; index += 2) {
        char32_t character = unitAt(index);
        if (character >= 0xDC00 && character < 0xE000)
            return {};
        if (character >= 0xD800 && character < 0xDC00) {
            index += 2;
            const char32_t trailing = index + 1 < size ? unitAt(index) : 0;
            if (trailing < 0xDC00 || trailing >= 0xE000)
                return {};
            character = 0x10000 + ((character - 0xD800) << 10) + (trailing - 0xDC00);
        }
        if (character != 0)
            AppendUtf8(text, character);
    }
    return text;
}

/// Only what Mac Roman has in common with ASCII. Empty if there is more.
std::string TextOfMacRoman(const unsigned char* bytes, std::size_t size)
{
    std::string text;
    for (std::size_t index = 0; index < size; ++index) {
        if (bytes[index] >= 0x80)
            return {};
        if (bytes[index] != 0)
            text += static_cast<char>(bytes[index]);
    }
    return text;
}

std::string FindName(FT_Face face, int nameId)
{
    std::string found;
    int rank = 0;
    const FT_UInt count = FT_Get_Sfnt_Name_Count(face);
    for (FT_UInt index = 0; index < count; ++index) {
        FT_SfntName entry;
        if (FT_Get_Sfnt_Name(face, index, &entry) != 0 || entry.name_id != nameId || RankOf(entry) <= rank)
            continue;
        const std::string text = entry.platform_id == TT_PLATFORM_MACINTOSH
                                     ? TextOfMacRoman(entry.string, entry.string_len)
                                     : TextOfUtf16(entry.string, entry.string_len);
        if (!text.empty()) {
            found = text;
            rank = RankOf(entry);
        }
    }
    return found;
}

/// As UTF-8. The bytes of a program's own strings may be of any encoding; those that are no UTF-8 are most
/// likely of Latin letters.
std::string TextOrEmpty(const char* text)
{
    const std::string bytes = text ? text : "";
    std::string latin;
    bool isUtf8 = true;
    for (std::size_t index = 0; index < bytes.size();) {
        const std::size_t length =
            OrvSys::Detail::ReadUTF8Character(std::string_view(bytes).substr(index)).length;
        isUtf8 = isUtf8 && length != 0;
        index += isUtf8 ? length : 1;
    }
    for (const char byte : bytes)
        AppendUtf8(latin, static_cast<unsigned char>(byte));
    return isUtf8 ? bytes : latin;
}

} // namespace

Font::Names ReadNames(FT_Face face)
{
    Font::Names names;
    if (FT_IS_SFNT(face)) {
        names.name = FindName(face, TT_NAME_ID_PS_NAME);
        names.family = FindName(face, TT_NAME_ID_FONT_FAMILY);
        names.style = FindName(face, TT_NAME_ID_FONT_SUBFAMILY);
    }
    if (names.family.empty() && face->family_name) {
        names.family = TextOrEmpty(face->family_name);
        names.style = TextOrEmpty(face->style_name);
    }
    if (names.name.empty())
        names.name = TextOrEmpty(FT_Get_Postscript_Name(face));

    names.name = WithoutSubsetTag(names.name);
    names.family = WithoutSubsetTag(names.family);
    if (names.name.empty())
        return names;
    const Font::Names derived = NamesFromPostScriptName(names.name);
    // A style without a family would be that of a family that nobody named, and a family that is called like
    // the font was put there by a producer or by FreeType because there was none.
    if (names.family.empty() || (names.family == names.name && names.family != derived.family)) {
        names.family = derived.family;
        names.style = derived.style;
    } else if (names.style.empty()) {
        names.style = derived.style;
    }
    return names;
}

} // namespace OrvFont::Detail
