#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace OrvPdf
{

/// The codes `low` to `high`, of which the first has the value `first` and each further one a value higher by
/// one. What a value is, and what `group` means, is up to the user.
struct CodeRange
{
    std::uint32_t low = 0;
    std::uint32_t high = 0;
    std::uint32_t first = 0;
    std::uint32_t group = 0;

    /// Of a code in the range.
    std::uint32_t ValueOf(std::uint32_t code) const { return first + (code - low); }
};

/// Ranges of codes of one length, searched in logarithmic time. Never expanded to single codes.
class CodeRanges
{
public:
    void Add(const CodeRange& range) { ranges.push_back(range); }
    /// To be called once, after the last Add: sorts, lets a range that was added later win over one before
    /// it, and joins neighbours that go on alike. There are at most twice as many ranges afterwards.
    void Finish();

    /// Null if no range has the code.
    const CodeRange* Find(std::uint32_t code) const
    {
        // Most maps of fonts in files have one range.
        if (ranges.size() == 1)
            return code >= ranges[0].low && code <= ranges[0].high ? ranges.data() : nullptr;
        const auto behind =
            std::upper_bound(ranges.begin(), ranges.end(), code,
                             [](std::uint32_t left, const CodeRange& right) { return left < right.low; });
        if (behind == ranges.begin())
            return nullptr;
        const CodeRange& range = *(behind - 1);
        return code <= range.high ? &range : nullptr;
    }

    bool IsEmpty() const { return ranges.empty(); }
    /// Sorted and without overlaps after Finish.
    const std::vector<CodeRange>& GetAll() const { return ranges; }

private:
    std::vector<CodeRange> ranges;
};

} // namespace OrvPdf
