#include "pdf/reader/content/problem_log.h"

#include <algorithm>

#include "pdf/limit_text.h"

namespace OrvPdf
{

namespace
{

void JoinRanges(std::vector<ByteRange>& ranges)
{
    std::sort(ranges.begin(), ranges.end(),
              [](const ByteRange& left, const ByteRange& right) { return left.begin < right.begin; });
    std::size_t kept = 0;
    for (const ByteRange& range : ranges) {
        if (kept > 0 && range.begin <= ranges[kept - 1].end) {
            ranges[kept - 1].end = std::max(ranges[kept - 1].end, range.end);
        } else {
            ranges[kept++] = range;
        }
    }
    ranges.resize(kept);
}

void AppendReadable(std::string& text, std::string_view bytes)
{
    constexpr std::size_t longest = 127;
    constexpr char digits[] = "0123456789ABCDEF";
    for (const char byte : bytes.substr(0, longest)) {
        const auto value = static_cast<unsigned char>(byte);
        if (value >= 0x20 && value < 0x7F) {
            text += byte;
        } else {
            text.append({'#', digits[value >> 4], digits[value & 15]});
        }
    }
    text.append(bytes.size() > longest ? "..." : "");
}

} // namespace

std::string Readable(std::string_view bytes)
{
    std::string text;
    AppendReadable(text, bytes);
    return text;
}

void ProblemLog::Unmodelled(std::string_view operatorText, std::string_view reason, std::string_view detail,
                            ByteRange place)
{
    hasUnmodelled = true;
    Record(operatorText, reason, detail, place);
}

void ProblemLog::Damaged(std::string_view operatorText, std::string_view reason, std::string_view detail,
                         ByteRange place)
{
    // Between the end of the latest operation and this one there is nothing but white space.
    const bool follows = !damaged.empty() && place.begin >= damaged.back().begin &&
                         (place.begin <= damaged.back().end || damaged.back().end >= operationEnd);
    if (follows) {
        damaged.back().end = std::max(damaged.back().end, place.end);
    } else {
        damaged.push_back(place);
    }
    Record(operatorText, reason, detail, place);
}

void ProblemLog::Odd(std::string_view operatorText, std::string_view reason, std::string_view detail,
                     ByteRange place)
{
    Record(operatorText, reason, detail, place);
}

void ProblemLog::Limit(const char* name, std::uint64_t value, ByteRange place)
{
    hasUnmodelled = true;
    Record({}, LimitText(name, value, "the rest is left out"), {}, place);
}

void ProblemLog::Record(std::string_view operatorText, std::string_view reason, std::string_view detail,
                        ByteRange place)
{
    key.clear();
    if (!operatorText.empty()) {
        key.append("operator ");
        AppendReadable(key, operatorText);
        key.append(": ");
    }
    key.append(reason);
    if (!detail.empty()) {
        key.append(" (");
        AppendReadable(key, detail);
        key.append(")");
    }
    const auto found = indices.find(key);
    if (found != indices.end()) {
        Entry& entry = entries[found->second];
        ++entry.count;
        entry.first = std::min(entry.first, place.begin);
        return;
    }
    if (entries.size() >= maximum) {
        ++dropped;
        return;
    }
    indices.emplace(key, entries.size());
    entries.push_back({key, 1, place.begin});
}

Interpretation ProblemLog::Finish()
{
    Interpretation result;
    result.hasUnmodelled = hasUnmodelled;
    JoinRanges(damaged);
    result.damaged = std::move(damaged);
    result.errors.reserve(entries.size() + 1);
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& left, const Entry& right) { return left.first < right.first; });
    for (Entry& entry : entries) {
        entry.text.append(", byte ").append(std::to_string(entry.first));
        if (entry.count > 1) {
            entry.text.append(" and ").append(std::to_string(entry.count - 1)).append(" more");
        }
        result.errors.push_back(std::move(entry.text));
    }
    if (dropped > 0) {
        result.errors.push_back(
            LimitText("errors", maximum, std::to_string(dropped) + " more problems are not listed"));
    }
    return result;
}

} // namespace OrvPdf
