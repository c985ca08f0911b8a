#include "pdf/reader/trailer_repair.h"

#include <algorithm>
#include <cstddef>

namespace OrvPdf
{

namespace
{

constexpr std::string_view Blanks("\0\t\n\f\r ", 6);
constexpr std::string_view Digits = "0123456789";
// Catalogues are small, unless they hold destinations or forms directly.
constexpr std::size_t LargestCatalogue = 1 << 20;

// Takes the last number off the text, and the blanks behind it; empty if it does not end in one.
std::string_view TakeNumber(std::string_view& text)
{
    const std::size_t end = text.find_last_not_of(Blanks) + 1;
    const std::size_t begin = text.substr(0, end).find_last_not_of(Digits) + 1;
    const std::string_view number = text.substr(begin, end - begin);
    text = text.substr(0, begin);
    return number;
}

// The reference to the object that is open at the end of the text; empty if none is.
std::string FindOpenObject(std::string_view text)
{
    const std::size_t keyword = text.rfind("obj");
    if (keyword == std::string_view::npos || (keyword >= 3 && text.substr(keyword - 3, 3) == "end"))
        return {};
    text = text.substr(0, keyword);
    const std::string_view generation = TakeNumber(text);
    const std::string_view number = TakeNumber(text);
    if (generation.empty() || number.empty())
        return {};
    return std::string(number) + " " + std::string(generation) + " R";
}

} // namespace

std::string MakeTrailer(std::string_view bytes)
{
    constexpr std::string_view mark = "/Catalog";
    if (bytes.find("/Encrypt") != std::string_view::npos)
        return {};
    for (std::size_t place = bytes.rfind(mark); place != std::string_view::npos && place > 0;
         place = bytes.rfind(mark, place - 1)) {
        const std::size_t begin = place - std::min(place, LargestCatalogue);
        const std::string reference = FindOpenObject(bytes.substr(begin, place - begin));
        if (!reference.empty())
            return "\ntrailer\n<< /Root " + reference + " >>\n";
    }
    return {};
}

} // namespace OrvPdf
