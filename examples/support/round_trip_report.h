#pragma once

#include "run_program.h"

#include <harrow_support/round_trip.h>

#include <cstdint>
#include <iosfwd>
#include <string>

namespace Examples
{

/// Writes the outcomes of round trips as lines, with tabs between the fields,
///
///     <file> difference <label> <message>
///     <file> document error <text>
///     <file> content error <text>
///
/// and counts them.
class RoundTripReport
{
public:
    /// The stream must outlive the report.
    explicit RoundTripReport(std::ostream& streamToWrite) : stream(streamToWrite) {}

    void AddResult(const std::string& file, const HarrowSupport::RoundTripResult& result);
    /// A file whose round trip did not come to its end; writes no line.
    void AddFailure();

    /// Writes the counts as the last line and returns the answer: trouble if a file failed, otherwise whether
    /// there are differences. Errors alone make none.
    ExitCode Finish();

private:
    std::ostream& stream;
    std::uint64_t files = 0;
    std::uint64_t differences = 0;
    std::uint64_t documentErrors = 0;
    std::uint64_t contentErrors = 0;
    std::uint64_t failedFiles = 0;
};

} // namespace Examples
