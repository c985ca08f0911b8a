#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace OrvPdf
{

/// `Count` numbers for each CID: those of the arrays `W` and `W2` (ISO 32000-1, 9.7.4.3). Ranges stay ranges,
/// so that it takes no more memory than the array, whatever CIDs it names. Where several entries name one CID
/// the last one counts.
template <std::size_t Count>
class CidNumbers
{
public:
    using Numbers = std::array<double, Count>;

    explicit CidNumbers(const Numbers& givenRest) : rest(givenRest) {}

    /// Of all CIDs that no entry names.
    void SetRest(const Numbers& value) { rest = value; }
    const Numbers& GetRest() const { return rest; }

    /// The same numbers for all CIDs from `first` to `last`, both included. Nothing if they stand the wrong
    /// way round.
    void AddRange(std::uint32_t first, std::uint32_t last, const Numbers& value);
    /// Numbers for a CID and those behind it.
    void AddList(std::uint32_t first, const std::vector<Numbers>& list);
    /// To be called behind the last entry, before `Find`. O(n log n).
    void Finish();

    /// O(log n).
    const Numbers& Find(std::uint32_t cid) const;

    template <std::size_t Other>
    friend bool operator==(const CidNumbers<Other>& left, const CidNumbers<Other>& right);

private:
    /// CIDs that follow one another: each with the same numbers, or each with its own.
    struct Run
    {
        std::uint32_t first;
        std::uint32_t last;
        std::uint32_t index; // Of the numbers of `first`.
        bool isRange;

        friend bool operator==(const Run& left, const Run& right)
        {
            return left.first == right.first && left.last == right.last && left.index == right.index &&
                   left.isRange == right.isRange;
        }
    };

    static Run Cut(const Run& run, std::uint32_t first, std::uint32_t last);

    Numbers rest;
    std::vector<Numbers> numbers;
    /// In order and without overlaps once finished.
    std::vector<Run> runs;
};

template <std::size_t Count>
bool operator==(const CidNumbers<Count>& left, const CidNumbers<Count>& right)
{
    return left.rest == right.rest && left.runs == right.runs && left.numbers == right.numbers;
}

/// Horizontal widths in thousandths of the size.
using CidWidths = CidNumbers<1>;

/// For vertical writing, in thousandths of the size: the advance, upwards, and the place of the vertical
/// origin as seen from the horizontal one, x and y.
using CidVerticalMetrics = CidNumbers<3>;

} // namespace OrvPdf
