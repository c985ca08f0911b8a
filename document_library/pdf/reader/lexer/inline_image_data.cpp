#include "pdf/reader/lexer/inline_image_data.h"

#include <algorithm>

#include "pdf/content_characters.h"
#include "pdf/reader/lexer/operator_id.h"

namespace OrvPdf
{

namespace
{

/// White space between the data and `EI` that is still taken for padding when the length is known.
constexpr std::size_t paddingBound = 16;

/// Bytes behind `EI` that must be printable. Of random bytes, one run in a million of this length is.
constexpr std::size_t lookAhead = 16;

/// Dimensions beyond this are wrong; the bound keeps the products below 2^64.
constexpr double largestDimension = 1 << 24;

std::optional<std::uint64_t> WholeNumber(const Operand* operand)
{
    if (operand == nullptr || !operand->IsNumber()) {
        return std::nullopt;
    }
    const double value = operand->AsNumber();
    if (!(value >= 0 && value <= largestDimension)) {
        return std::nullopt;
    }
    return static_cast<std::uint64_t>(value);
}

std::optional<std::uint64_t> Components(const Operand* space)
{
    if (space == nullptr) {
        return std::nullopt;
    }
    std::string_view name = space->Text();
    if (space->Kind() == OperandKind::Array && !space->Elements().empty()) {
        name = space->Elements()[0].Text();
        if (name != "Indexed" && name != "I") {
            return std::nullopt;
        }
    }
    if (name == "DeviceGray" || name == "G" || name == "Indexed" || name == "I") {
        return 1;
    }
    if (name == "DeviceRGB" || name == "RGB") {
        return 3;
    }
    if (name == "DeviceCMYK" || name == "CMYK") {
        return 4;
    }
    return std::nullopt;
}

/// The first filter's name, empty if the data is not filtered.
std::string_view FirstFilter(OperandRange entries)
{
    const Operand* filter = entries.FindValue("Filter", "F");
    if (filter != nullptr && filter->Kind() == OperandKind::Array) {
        return filter->Elements().empty() ? std::string_view() : filter->Elements()[0].Text();
    }
    return filter == nullptr ? std::string_view() : filter->Text();
}

} // namespace

std::optional<std::uint64_t> InlineImageLength(OperandRange entries)
{
    const Operand* const length = entries.FindValue("Length", "L");
    if (length != nullptr && length->IsNumber() && length->AsNumber() >= 0 && length->AsNumber() < 1e15) {
        return static_cast<std::uint64_t>(length->AsNumber());
    }
    if (!FirstFilter(entries).empty()) {
        return std::nullopt;
    }
    const auto width = WholeNumber(entries.FindValue("Width", "W"));
    const auto height = WholeNumber(entries.FindValue("Height", "H"));
    const Operand* const mask = entries.FindValue("ImageMask", "IM");
    const bool isMask = mask != nullptr && mask->AsBoolean();
    const auto components =
        isMask ? std::optional<std::uint64_t>(1) : Components(entries.FindValue("ColorSpace", "CS"));
    const auto bits =
        isMask ? std::optional<std::uint64_t>(1) : WholeNumber(entries.FindValue("BitsPerComponent", "BPC"));
    if (!width || !height || !components || !bits || *bits > 16) {
        return std::nullopt;
    }
    return (*width * *components * *bits + 7) / 8 * *height;
}

InlineImageEnd::InlineImageEnd(std::string_view bytes)
    : content(bytes), noPlausibleFrom(bytes.size()), noTildeFrom(bytes.size()), noGreaterFrom(bytes.size())
{}

InlineImageEnd::Range InlineImageEnd::Find(std::size_t afterOperator, OperandRange entries)
{
    Range range;
    range.dataBegin = afterOperator;
    const bool startsWhite = afterOperator < content.size() && IsWhite(content[afterOperator]);
    range.dataBegin += startsWhite ? 1 : 0;
    const bool startsWithLineEnd = startsWhite && content.compare(afterOperator, 2, "\r\n") == 0;

    if (const auto length = InlineImageLength(entries)) {
        for (std::size_t skipped = 0; skipped <= (startsWithLineEnd ? 1 : 0); ++skipped) {
            const std::size_t begin = range.dataBegin + skipped;
            if (*length <= content.size() - begin && EndsAt(begin + *length, range.end)) {
                range.dataBegin = begin;
                range.dataEnd = begin + *length;
                range.hasEnd = true;
                return range;
            }
        }
        range.lengthIsWrong = true;
    }
    range.dataBegin += startsWithLineEnd ? 1 : 0;

    std::size_t mark = 0;
    if (!Search(SearchBegin(range.dataBegin, entries), mark)) {
        range.dataEnd = range.end = content.size();
        return range;
    }
    range.hasEnd = true;
    range.end = mark + 2;
    range.dataEnd = mark > range.dataBegin && IsWhite(content[mark - 1]) ? mark - 1 : mark;
    return range;
}

bool InlineImageEnd::EndsAt(std::size_t dataEnd, std::size_t& end) const
{
    std::size_t at = dataEnd;
    while (at < content.size() && at - dataEnd < paddingBound && IsWhite(content[at])) {
        ++at;
    }
    if (content.compare(at, 2, "EI") != 0 || (at + 2 < content.size() && IsRegular(content[at + 2]))) {
        return false;
    }
    end = at + 2;
    return true;
}

std::size_t InlineImageEnd::SearchBegin(std::size_t dataBegin, OperandRange entries)
{
    const std::string_view filter = FirstFilter(entries);
    const bool isBase85 = filter == "ASCII85Decode" || filter == "A85";
    if (!isBase85 && filter != "ASCIIHexDecode" && filter != "AHx") {
        return dataBegin;
    }
    std::size_t& noneFrom = isBase85 ? noTildeFrom : noGreaterFrom;
    if (dataBegin >= noneFrom) {
        return dataBegin;
    }
    const std::size_t mark = isBase85 ? content.find("~>", dataBegin) : content.find('>', dataBegin);
    if (mark == std::string_view::npos) {
        noneFrom = dataBegin;
        return dataBegin;
    }
    return mark + (isBase85 ? 2 : 1);
}

bool InlineImageEnd::Search(std::size_t from, std::size_t& mark)
{
    bool hasWeak = false;
    std::size_t weak = 0;
    std::size_t at = from;
    while ((at = content.find("EI", at)) != std::string_view::npos) {
        bool isPlausible = false;
        if (IsMark(at, from, isPlausible)) {
            if (isPlausible || from >= noPlausibleFrom) {
                mark = at;
                return true;
            }
            if (!hasWeak) {
                hasWeak = true;
                weak = at;
            }
        }
        ++at;
    }
    noPlausibleFrom = std::min(noPlausibleFrom, from);
    mark = weak;
    return hasWeak;
}

bool InlineImageEnd::IsMark(std::size_t at, std::size_t from, bool& isPlausible) const
{
    const std::size_t behind = at + 2;
    const bool isLast = behind >= content.size();
    if (!isLast && !IsWhite(content[behind])) {
        return false;
    }
    const bool isSeparate = at == from || IsWhite(content[at - 1]);
    const std::string_view next = content.substr(behind, lookAhead);
    std::size_t start = 0;
    while (start < next.size() && IsWhite(next[start])) {
        ++start;
    }
    std::size_t stop = start;
    bool isPrintable = true;
    for (std::size_t i = 0; i < next.size(); ++i) {
        // Zero is white space, and rare in content but frequent in samples.
        isPrintable = isPrintable && (ClassOf(next[i]) & CharacterClass::unprintable) == 0 && next[i] != '\0';
        stop += i == stop && i >= start && IsRegular(next[i]) ? 1 : 0;
    }
    const std::string_view token = next.substr(start, stop - start);
    const bool isOperator = FindOperator(token) != OperatorId::Unknown;
    const bool beginsOperand =
        start < next.size() && ((ClassOf(next[start]) & CharacterClass::number) != 0 ||
                                std::string_view("/([<%").find(next[start]) != std::string_view::npos);
    const bool isKeyword = token == "true" || token == "false" || token == "null";
    const bool onlyWhite = start == next.size();
    isPlausible = isPrintable && (isOperator || onlyWhite || (isSeparate && (beginsOperand || isKeyword)));
    return isSeparate || isPlausible;
}

} // namespace OrvPdf
