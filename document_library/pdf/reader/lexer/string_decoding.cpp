#include "pdf/reader/lexer/string_decoding.h"

#include <cstddef>

#include "pdf/content_characters.h"

namespace OrvPdf
{

namespace
{

std::string_view Finish(ByteArena& arena, const char* begin, const char* end, std::size_t taken)
{
    const std::size_t length = static_cast<std::size_t>(end - begin);
    arena.GiveBack(taken - length);
    return {begin, length};
}

bool IsOctal(std::string_view text, std::size_t at)
{
    return at < text.size() && text[at] >= '0' && text[at] <= '7';
}

/// The length of the line end at `at`, 0 if there is none.
std::size_t LineEnd(std::string_view text, std::size_t at)
{
    if (at < text.size() && text[at] == '\r') {
        return at + 1 < text.size() && text[at + 1] == '\n' ? 2 : 1;
    }
    return at < text.size() && text[at] == '\n' ? 1 : 0;
}

/// Decodes what stands at `at`, directly behind a backslash, and moves `at` behind it.
char* DecodeEscape(std::string_view text, std::size_t& at, char* out)
{
    if (at == text.size()) {
        return out;
    }
    if (const std::size_t length = LineEnd(text, at)) {
        at += length;
        return out;
    }
    if (IsOctal(text, at)) {
        unsigned code = 0;
        for (int digits = 0; digits < 3 && IsOctal(text, at); ++digits) {
            code = code * 8 + static_cast<unsigned>(text[at++] - '0');
        }
        *out++ = static_cast<char>(code & 0xFF);
        return out;
    }
    const char c = text[at++];
    switch (c) {
    case 'n':
        *out++ = '\n';
        break;
    case 'r':
        *out++ = '\r';
        break;
    case 't':
        *out++ = '\t';
        break;
    case 'b':
        *out++ = '\b';
        break;
    case 'f':
        *out++ = '\f';
        break;
    default:
        *out++ = c;
        break;
    }
    return out;
}

} // namespace

std::string_view DecodeName(std::string_view text, ByteArena& arena)
{
    char* const begin = arena.Take(text.size());
    char* out = begin;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isEscape = text[at] == '#' && at + 2 < text.size() && HexValue(text[at + 1]) >= 0 &&
                              HexValue(text[at + 2]) >= 0;
        *out++ =
            isEscape ? static_cast<char>(HexValue(text[at + 1]) * 16 + HexValue(text[at + 2])) : text[at];
        at += isEscape ? 2 : 0;
    }
    return Finish(arena, begin, out, text.size());
}

std::string_view DecodeLiteralString(std::string_view text, ByteArena& arena)
{
    char* const begin = arena.Take(text.size());
    char* out = begin;
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == '\\') {
            out = DecodeEscape(text, ++at, out);
        } else if (text[at] == '\r') {
            at += LineEnd(text, at);
            *out++ = '\n';
        } else {
            *out++ = text[at++];
        }
    }
    return Finish(arena, begin, out, text.size());
}

std::string_view DecodeHexString(std::string_view text, ByteArena& arena, bool& isClean)
{
    const std::size_t longest = text.size() / 2 + 1;
    char* const begin = arena.Take(longest);
    char* out = begin;
    int high = -1;
    for (const char c : text) {
        const int value = HexValue(c);
        if (value < 0) {
            isClean = isClean && IsWhite(c);
        } else if (high < 0) {
            high = value;
        } else {
            *out++ = static_cast<char>(high * 16 + value);
            high = -1;
        }
    }
    if (high >= 0) {
        *out++ = static_cast<char>(high * 16);
    }
    return Finish(arena, begin, out, longest);
}

} // namespace OrvPdf
