#pragma once

#include <array>
#include <cstdint>

namespace OrvPdf
{

/// What a byte of a content stream can begin or be, ISO 32000-1, 7.2.2. Bits, so that one look-up answers.
namespace CharacterClass
{
constexpr std::uint8_t white = 1;
constexpr std::uint8_t delimiter = 2;

/// Digits, signs and the point.
constexpr std::uint8_t number = 4;

/// Regular characters by the standard that no operator contains: control characters and bytes beyond ASCII.
constexpr std::uint8_t unprintable = 8;

/// What a scan of a literal string has to look at: both parentheses, the backslash, the carriage return.
constexpr std::uint8_t inString = 16;

constexpr std::array<std::uint8_t, 256> MakeTable()
{
    std::array<std::uint8_t, 256> table{};
    for (int c = 0; c < 256; ++c) {
        table[c] = c < 0x21 || c > 0x7E ? unprintable : 0;
    }
    for (const int c : {0, 9, 10, 12, 13, 32}) {
        table[c] = white;
    }
    for (const char c : {'(', ')', '<', '>', '[', ']', '{', '}', '/', '%'}) {
        table[static_cast<unsigned char>(c)] = delimiter;
    }
    for (const char c : {'0', '1', '2', '3', '4', '5', '6', '7', '8', '9', '+', '-', '.'}) {
        table[static_cast<unsigned char>(c)] = number;
    }
    for (const char c : {'(', ')', '\\', '\r'}) {
        table[static_cast<unsigned char>(c)] |= inString;
    }
    return table;
}

constexpr std::array<std::uint8_t, 256> table = MakeTable();
} // namespace CharacterClass

inline std::uint8_t ClassOf(char c)
{
    return CharacterClass::table[static_cast<unsigned char>(c)];
}

inline bool IsWhite(char c)
{
    return (ClassOf(c) & CharacterClass::white) != 0;
}

/// Neither white space nor a delimiter: goes on with a name, a number or an operator.
inline bool IsRegular(char c)
{
    return (ClassOf(c) & (CharacterClass::white | CharacterClass::delimiter)) == 0;
}

/// The value of a hexadecimal digit, -1 for any other character.
inline int HexValue(char c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

} // namespace OrvPdf
