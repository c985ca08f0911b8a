#pragma once

#include "location_index.h"

#include <harrow_support/comparators.h>

#include <cstdint>
#include <iosfwd>
#include <string>

namespace Examples
{

/// Writes each report of a comparison of two documents as a line,
///
///     <kind> <label> <place on the left> <place on the right> <text>
///
/// with a tab between one and the next. The kind is 1 for a difference and 0 for a tolerated variation; the
/// places are those of LocationIndex. The reporter holds no report: what it needs grows with the pages that
/// differ, not with the number of differences.
class LineReporter : public HarrowSupport::Comparators::Reporter
{
public:
    /// The stream and both documents must outlive the reporter.
    LineReporter(std::ostream& streamToWrite, const OrvDoc::Document& left, const OrvDoc::Document& right);

    void Report(HarrowSupport::Comparators::ReportKind kind, const std::string& label,
                const HarrowSupport::Comparators::LocationPath& left,
                const HarrowSupport::Comparators::LocationPath& right, const std::string& text) override;

    /// Reports so far, those of tolerated variations not counted.
    std::uint64_t GetDifferenceCount() const { return differenceCount; }

private:
    std::ostream& stream;
    LocationIndex leftIndex;
    LocationIndex rightIndex;
    std::uint64_t differenceCount = 0;
};

/// Options under which no difference is left out or made allowance for, and nothing is dumped.
HarrowSupport::Comparators::Options StrictestOptions();

/// A text as one field of a line: backslash, tab, newline and carriage return as `\\`, `\t`, `\n` and `\r`,
/// the other control characters of ASCII as `\x` with two hexadecimal digits, so that no file can send
/// commands to a terminal. Anything else stays.
std::string EscapeField(const std::string& text);

} // namespace Examples
