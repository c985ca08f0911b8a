#pragma once

#include "file_outcome.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace HarrowSupport::Corpus
{

/// What is wrong with a trip in a few words, "equal" if nothing is.
std::string Verdict(const FileOutcome& outcome, const TripOutcome& trip);

/// A line for each file, the worst first: no answer, then refused, different, not clean, of another look,
/// with active errors, slow. At most `rows` of them; a last line tells how many more there are.
void WriteTable(std::ostream& stream, const std::vector<FileOutcome>& outcomes, std::size_t rows);

/// How many files there are, what stands in them, which limits were reached, and each bar of both ways.
/// @return whether all bars are held
bool WriteBars(std::ostream& stream, const std::vector<FileOutcome>& outcomes);

} // namespace HarrowSupport::Corpus
