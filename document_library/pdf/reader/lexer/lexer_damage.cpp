#include "pdf/reader/lexer/lexer_damage.h"

namespace OrvPdf
{

std::string_view DamageText(DamageKind kind)
{
    static constexpr std::string_view texts[] = {"delimiter that closes nothing",
                                                 "array or dictionary without end",
                                                 "string without end",
                                                 "character in a hexadecimal string that is no digit",
                                                 "malformed number",
                                                 "no separator behind a number",
                                                 "dictionary whose elements are not pairs of name and value",
                                                 "bytes that are no operator",
                                                 "word that is no operand",
                                                 "too many operands",
                                                 "too many elements of arrays and dictionaries",
                                                 "arrays or dictionaries nested too deep",
                                                 "string or name too long",
                                                 "operator too long",
                                                 "operands without operator",
                                                 "inline image without data",
                                                 "inline image without end",
                                                 "inline image whose length does not match its data"};
    static_assert(sizeof texts / sizeof *texts == static_cast<std::size_t>(DamageKind::Count),
                  "each kind has its text");
    return texts[static_cast<std::size_t>(kind)];
}

} // namespace OrvPdf
