#pragma once

#include "file_outcome.h"

#include "support/child_process.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace HarrowSupport::Corpus
{

/// How far a channel may be off, of 255, before its pixel counts as different: enough for other rounding of a
/// colour, less than the eye notices.
constexpr int channelTolerance = 8;

/// What `qpdf --check` says of a file, in the words of TripOutcome::check.
/// @throws what RunProcess throws
std::string CheckByQpdf(const std::string& file, const Testing::ProcessLimits& limits);

/// Which of pdftoppm, pdftotext, pdfimages, pdfinfo and qpdf are not installed.
std::vector<std::string> ListMissingWitnesses();

/// A file that is to look as the original does.
struct Copy
{
    std::string file;
    /// Pages that are left out.
    std::set<std::size_t> incompletePages;
    LookOutcome* outcome = nullptr;
};

/// Renders the original and its copies with pdftoppm, a pixel to the point, reads their texts with
/// `pdftotext -layout` and lists their pictures with pdfimages. The pages are rendered some at a time, so
/// that files of many pages fit on the disk. What the programs find nothing of in the original is not
/// compared.
/// @throws what RunProcess, RenderPages and the file system throw
void CompareLooks(const std::string& original, const std::vector<Copy>& copies,
                  const Testing::ProcessLimits& limits);

} // namespace HarrowSupport::Corpus
