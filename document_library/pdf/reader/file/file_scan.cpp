#include "pdf/reader/file/file_scan.h"

#include <algorithm>

namespace OrvPdf
{

namespace
{

constexpr std::size_t HeaderRange = 1024;
constexpr std::size_t MostDigits = 10;

} // namespace

void SkipBlanks(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
}

std::optional<std::size_t> TakeFirstNumber(std::string_view& text)
{
    SkipBlanks(text);
    const std::size_t length = std::min(text.find_first_not_of(Digits), text.size());
    if (length == 0 || length > MostDigits) {
        return std::nullopt;
    }
    std::size_t number = 0;
    for (const char digit : text.substr(0, length)) {
        number = number * 10 + static_cast<std::size_t>(digit - '0');
    }
    text.remove_prefix(length);
    return number;
}

std::string_view FindLastEntry(std::string_view text, std::string_view key)
{
    for (std::size_t place = text.rfind(key); place != std::string_view::npos;
         place = place == 0 ? std::string_view::npos : text.rfind(key, place - 1)) {
        const std::string_view rest = text.substr(place + key.size());
        // The name may go on, as that of another key.
        if (!rest.empty() && (Blanks.find(rest[0]) != std::string_view::npos ||
                              std::string_view("/[<(").find(rest[0]) != std::string_view::npos)) {
            return rest.substr(0, LargestEntry);
        }
    }
    return {};
}

std::size_t FindOrigin(std::string_view bytes)
{
    const std::size_t header = bytes.substr(0, HeaderRange).find("%PDF-");
    return header == std::string_view::npos ? 0 : header;
}

} // namespace OrvPdf
