#pragma once

#include "support/child_process.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// The folder of real files: that of HARROW_CORPUS_DIR in the environment, or else the one that the build was
/// configured with. It need not be there.
std::string CorpusFolder();

/// What a program may use for one file. Ten seconds and a gibibyte are far more than any file of the corpus
/// needs that is not out for harm.
ProcessLimits CorpusLimits();

/// All files `*.pdf` below a folder, sorted; relative to it, with forward slashes.
/// @throws boost::filesystem::filesystem_error
std::vector<std::string> ListCorpusFiles(const std::string& folder);

/// Calls `work` for each number below `count`, several at once. A call that throws ends the others of its
/// thread; the last exception leaves this function.
void ForEachAtOnce(std::size_t count, const std::function<void(std::size_t)>& work);

/// The file of an example program.
std::string ExampleProgram(const std::string& name);

/// The rows with tabs between the columns.
void WriteTabbed(std::ostream& stream, const std::vector<std::vector<std::string>>& rows);

/// A run of save_and_reopen.
struct RoundTripOutcome
{
    ProcessResult process;
    /// `qpdf --check` on what was saved.
    ProcessResult check;
    /// Whether there was a saved file to check.
    bool isSaved = false;
    /// Lines of the output.
    std::size_t activeErrors = 0;
    std::size_t differences = 0;
    /// Reports that come on purpose even from equal sides; not among the differences.
    std::size_t onPurpose = 0;
};

/// What became of one file.
struct CorpusOutcome
{
    /// Relative to the folder, with forward slashes.
    std::string file;
    /// `save_and_reopen FILE`.
    RoundTripOutcome roundTrip;
    /// `save_and_reopen --rewrite FILE`.
    RoundTripOutcome rewritten;
    /// `compare_documents FILE FILE`.
    ProcessResult comparisonWithItself;
    /// `round_trip FILE`.
    ProcessResult firstPage;
    /// `round_trip --flush FILE`.
    ProcessResult firstPageWithoutFile;
};

/// Runs over all files `*.pdf` below a folder, each program in a process of its own within the limits,
/// several files at once. The result is sorted by file name.
/// @throws what RunProcess and the file system throw
std::vector<CorpusOutcome> RunOverFolder(const std::string& folder, const ProcessLimits& limits);

/// Whether a program that compares found nothing different but what is reported on purpose.
bool IsEqual(const ProcessResult& result);

/// How a process ended in a word or two: "0", "signal 11", "out of time".
std::string Ending(const ProcessResult& result);

/// What qpdf says: "clean", "warnings", "errors", "signal 11" or the like, "-" if nothing was saved, "no
/// qpdf" if it is not installed.
std::string Verdict(const RoundTripOutcome& outcome);

/// A line for each file with tabs between the columns, below a line with the columns' names.
void WriteTable(std::ostream& stream, const std::vector<CorpusOutcome>& outcomes);

/// The same with the columns made straight by blanks.
void WriteAlignedTable(std::ostream& stream, const std::vector<CorpusOutcome>& outcomes);

/// The column `remark` of the folder's MANIFEST.tsv by file; empty if the folder has none.
std::map<std::string, std::string> ReadRemarks(const std::string& folder);

} // namespace HarrowSupport::Testing
