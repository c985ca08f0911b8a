#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace OrvPdf
{

/// White space and digits (ISO 32000-1, 7.2.2).
constexpr std::string_view Blanks("\0\t\n\f\r ", 6);
constexpr std::string_view Digits = "0123456789";

/// Bytes of an entry that are looked at: an object stream's dictionary, an identifier or the like is smaller.
constexpr std::size_t LargestEntry = 4096;

/// Takes the blanks off that the text begins with.
void SkipBlanks(std::string_view& text);

/// Takes the blanks and the number that the text begins with; nothing is taken but blanks if it has more than
/// ten digits, or none.
std::optional<std::size_t> TakeFirstNumber(std::string_view& text);

/// What stands behind the last place where the dictionaries of the text have that key, up to that size;
/// empty if none has.
std::string_view FindLastEntry(std::string_view text, std::string_view key);

/// Where the file's header begins, from which its offsets count; 0 if it is not among the first 1024 bytes
/// (ISO 32000-1, Annex H.3, note 13).
std::size_t FindOrigin(std::string_view bytes);

} // namespace OrvPdf
