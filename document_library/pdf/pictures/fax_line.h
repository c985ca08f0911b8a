#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "pdf/pictures/fax_bits.h"

namespace OrvPdf
{

/// One row of a fax: the places where its colour changes, beginning with the first black pixel. Rising, and
/// below the number of columns.
class FaxLine
{
public:
    explicit FaxLine(std::size_t givenColumns) : columns(givenColumns) {}

    /// Reads a row that is coded by itself (ITU-T T.4, 4.1). False if it is damaged; it then holds what
    /// stands before the damage, and is white behind it.
    bool ReadAlone(FaxBits& bits);

    /// Reads a row that is coded by what differs from the one above (ITU-T T.6, 2.2). False as above.
    bool ReadBelow(FaxBits& bits, const FaxLine& above);

    /// Blackens the runs of a row that is white, by clearing its bits if a black one is 0.
    void Paint(unsigned char* row, bool blackIs1) const;

    void Clear() { changes.clear(); }

private:
    /// Adds up the code words of one run. False if there is none.
    static bool ReadRun(FaxBits& bits, bool isBlack, std::uint64_t& run);

    /// Changes at the same place undo each other, so that a run of no pixels leaves no trace.
    void Change(std::uint64_t place)
    {
        if (!changes.empty() && changes.back() == place)
            changes.pop_back();
        else if (place < columns)
            changes.push_back(static_cast<std::size_t>(place));
    }

    /// Ends a black run where it is known to reach.
    bool Break(std::uint64_t place)
    {
        if (changes.size() % 2 != 0)
            Change(place);
        return false;
    }

    std::size_t columns;
    std::vector<std::size_t> changes;
};

} // namespace OrvPdf
