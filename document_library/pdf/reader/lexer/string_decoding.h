#pragma once

#include <string_view>

#include "pdf/reader/lexer/byte_arena.h"

namespace OrvPdf
{

/// The bytes that names and strings stand for. The results live in the arena, and are never longer than the
/// text; linear in it.

/// A name without its solidus, `#` with two hexadecimal digits replaced (ISO 32000-1, 7.3.5). A `#` without
/// them stands for itself, as it did in PDF 1.1.
std::string_view DecodeName(std::string_view text, ByteArena& arena);

/// What stands between the outer parentheses (7.3.4.2): escapes, octal codes of one to three digits without
/// the overflow, line ends as LF, none behind a backslash. A backslash before any other character counts for
/// nothing.
std::string_view DecodeLiteralString(std::string_view text, ByteArena& arena);

/// What stands between `<` and `>` (7.3.4.3); a missing last digit is 0. Other characters than digits and
/// white space are left out, and `isClean` is false.
std::string_view DecodeHexString(std::string_view text, ByteArena& arena, bool& isClean);

} // namespace OrvPdf
