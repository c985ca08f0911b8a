#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace OrvPdf
{

/// What can be wrong with the syntax of a content stream, and how the lexer goes on.
enum class DamageKind : std::uint8_t
{
    StrayDelimiter,      ///< `)`, `>`, `{` or `}`, or `]` or `>>` with nothing to close: left out
    UnclosedContainer,   ///< an array or dictionary that an operator, another closing mark or the end closes
    UnclosedString,      ///< a string that goes on to the end of the content: taken as far as it goes
    BadHexadecimalDigit, ///< in a hexadecimal string: left out
    MalformedNumber,     ///< signs in odd places, no digit, or an exponent; read as number_text.h says, the
                         ///< exponent honoured
    MissingSeparator,    ///< a number directly before another token: both are taken
    MalformedDictionary, ///< a key that is no name, or a key without value: elements are kept as they stand
    GarbageBytes,        ///< a token with bytes that no operator has: left out, the operands stay
    StrayToken,          ///< a word among the elements of a container or an inline image's entries: left out
    TooManyOperands,     ///< the oldest operands are left out, since operators take the last ones
    TooManyElements,     ///< the further elements of arrays and dictionaries are left out
    NestingTooDeep,      ///< an array or dictionary beyond the limit: null stands in its place
    StringTooLong,       ///< a string or name is cut off at the limit
    OperatorTooLong,     ///< left out with its operands
    OperandsWithoutOperator,   ///< at the end of the content or before `BI`: left out
    InlineImageWithoutData,    ///< `BI` without `ID`: left out with its entries; the operator met instead is
                               ///< delivered
    InlineImageWithoutEnd,     ///< no `EI`: the data goes on to the end of the content
    InlineImageLengthMismatch, ///< the length is not that of the data; the data ends at `EI`
    Count
};

/// One damage of a content stream. `excerpt` points into the content: the first bytes of the range.
struct LexerDamage
{
    DamageKind kind = DamageKind::StrayDelimiter;
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string_view excerpt;
};

/// What is wrong in a few words, in English, without the place.
std::string_view DamageText(DamageKind kind);

} // namespace OrvPdf
