#include "corpus_run.h"

#include "temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iomanip>
#include <mutex>
#include <ostream>
#include <sstream>
#include <thread>

namespace HarrowSupport::Testing
{

namespace
{

using Row = std::vector<std::string>;

std::size_t CountLinesWithStart(const std::string& text, const std::string& start)
{
    std::size_t count = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        count += line.compare(0, start.size(), start) == 0 ? 1 : 0;
    return count;
}

std::size_t CountReportedOnPurpose(const std::string& text)
{
    // Functions of two masks are told apart by identity, and an image in an uncoloured pattern is always
    // told.
    return CountLinesWithStart(text, "1\tSoftMaskTransferFunction\t") +
           CountLinesWithStart(text, "1\tUncoloredPatternPaintHasImage\t");
}

RoundTripOutcome MakeRoundTrip(const std::string& file, std::vector<std::string> options,
                               const ProcessLimits& limits)
{
    // A process that is stopped leaves its temporary files behind; they go with this folder.
    const TemporaryFolder scratch;
    const std::string saved = scratch.NameOf("kept.pdf");
    std::vector<std::string> command{ExampleProgram("save_and_reopen"), "--keep", saved};
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(file);

    RoundTripOutcome outcome;
    outcome.process = RunProcess(command, limits, {"TMPDIR=" + scratch.GetPath().string()});
    outcome.activeErrors = CountLinesWithStart(outcome.process.output, "error\t");
    outcome.onPurpose = CountReportedOnPurpose(outcome.process.output);
    outcome.differences = CountLinesWithStart(outcome.process.output, "1\t") - outcome.onPurpose;
    outcome.isSaved = boost::filesystem::exists(saved);
    if (outcome.isSaved)
        outcome.check = RunProcess({"qpdf", "--check", saved}, limits);
    return outcome;
}

ProcessResult TryFirstPage(std::vector<std::string> arguments, const ProcessLimits& limits)
{
    const TemporaryFolder scratch;
    arguments.insert(arguments.begin(), ExampleProgram("round_trip"));
    return RunProcess(arguments, limits, {"TMPDIR=" + scratch.GetPath().string()});
}

CorpusOutcome RunOver(const std::string& folder, const std::string& file, const ProcessLimits& limits)
{
    const std::string fullName = folder + "/" + file;
    CorpusOutcome outcome;
    outcome.file = file;
    outcome.roundTrip = MakeRoundTrip(fullName, {}, limits);
    outcome.rewritten = MakeRoundTrip(fullName, {"--rewrite"}, limits);
    outcome.comparisonWithItself =
        RunProcess({ExampleProgram("compare_documents"), fullName, fullName}, limits);
    outcome.firstPage = TryFirstPage({fullName}, limits);
    outcome.firstPageWithoutFile = TryFirstPage({"--flush", fullName}, limits);
    return outcome;
}

std::string WithDecimals(double value, int decimals)
{
    std::ostringstream stream;
    stream << std::fixed << std::setprecision(decimals) << value;
    return stream.str();
}

std::string FirstLine(const std::string& text)
{
    return text.substr(0, text.find('\n'));
}

std::vector<Row> TableOf(const std::vector<CorpusOutcome>& outcomes)
{
    std::vector<Row> rows{{"file", "exit", "seconds", "peak MiB", "differences", "on purpose",
                           "active errors", "qpdf", "rewritten", "differences", "qpdf", "with itself",
                           "first page", "no file", "message"}};
    for (const CorpusOutcome& outcome : outcomes) {
        const RoundTripOutcome& trip = outcome.roundTrip;
        rows.push_back({outcome.file, Ending(trip.process), WithDecimals(trip.process.seconds, 2),
                        WithDecimals(trip.process.peakMebibytes, 0), std::to_string(trip.differences),
                        std::to_string(trip.onPurpose), std::to_string(trip.activeErrors), Verdict(trip),
                        Ending(outcome.rewritten.process), std::to_string(outcome.rewritten.differences),
                        Verdict(outcome.rewritten), Ending(outcome.comparisonWithItself),
                        Ending(outcome.firstPage), Ending(outcome.firstPageWithoutFile),
                        FirstLine(trip.process.errors)});
    }
    return rows;
}

} // namespace

std::string CorpusFolder()
{
    const char* folder = std::getenv("HARROW_CORPUS_DIR");
    return folder != nullptr ? folder : HARROW_CORPUS_FOLDER;
}

ProcessLimits CorpusLimits()
{
    ProcessLimits limits;
#if defined(__SANITIZE_ADDRESS__)
    limits.time = std::chrono::seconds(60);
#else
    limits.time = std::chrono::seconds(10);
    limits.addressSpace = std::uint64_t(1) << 30;
#endif
    return limits;
}

std::vector<std::string> ListCorpusFiles(const std::string& folder)
{
    std::vector<std::string> files;
    for (const auto& entry : boost::filesystem::recursive_directory_iterator(folder)) {
        if (boost::filesystem::is_regular_file(entry.path()) && entry.path().extension() == ".pdf")
            files.push_back(boost::filesystem::relative(entry.path(), folder).generic_string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string ExampleProgram(const std::string& name)
{
    return std::string(HARROW_EXAMPLES_FOLDER) + "/" + name;
}

void ForEachAtOnce(std::size_t count, const std::function<void(std::size_t)>& work)
{
    std::atomic<std::size_t> next{0};
    std::mutex failureMutex;
    std::exception_ptr failure;
    const auto workOn = [&] {
        try {
            for (std::size_t i = next++; i < count; i = next++)
                work(i);
        } catch (...) {
            const std::lock_guard<std::mutex> lock(failureMutex);
            failure = std::current_exception();
        }
    };
    std::vector<std::thread> workers(std::max(1u, std::thread::hardware_concurrency()));
    for (std::thread& worker : workers)
        worker = std::thread(workOn);
    for (std::thread& worker : workers)
        worker.join();
    if (failure)
        std::rethrow_exception(failure);
}

std::vector<CorpusOutcome> RunOverFolder(const std::string& folder, const ProcessLimits& limits)
{
    const std::vector<std::string> files = ListCorpusFiles(folder);
    std::vector<CorpusOutcome> outcomes(files.size());
    ForEachAtOnce(files.size(), [&](std::size_t i) { outcomes[i] = RunOver(folder, files[i], limits); });
    return outcomes;
}

bool IsEqual(const ProcessResult& result)
{
    return result.exitCode == 0 || (result.exitCode == 1 && CountLinesWithStart(result.output, "1\t") ==
                                                                CountReportedOnPurpose(result.output));
}

std::string Ending(const ProcessResult& result)
{
    if (result.timedOut)
        return "out of time";
    if (result.signal != 0)
        return "signal " + std::to_string(result.signal);
    return std::to_string(result.exitCode);
}

std::string Verdict(const RoundTripOutcome& outcome)
{
    if (!outcome.isSaved)
        return "-";
    switch (outcome.check.exitCode) {
    case 0:
        return "clean";
    case 2:
        return "errors";
    case 3:
        return "warnings";
    case 127:
        return "no qpdf";
    default:
        return Ending(outcome.check);
    }
}

void WriteTabbed(std::ostream& stream, const std::vector<std::vector<std::string>>& rows)
{
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            stream << (i == 0 ? "" : "\t") << row[i];
        stream << '\n';
    }
}

void WriteTable(std::ostream& stream, const std::vector<CorpusOutcome>& outcomes)
{
    WriteTabbed(stream, TableOf(outcomes));
}

void WriteAlignedTable(std::ostream& stream, const std::vector<CorpusOutcome>& outcomes)
{
    const std::vector<Row> rows = TableOf(outcomes);
    std::vector<std::size_t> widths(rows.front().size());
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (const Row& row : rows) {
        // Nothing stands behind the last column, so it needs no blanks.
        for (std::size_t i = 0; i + 1 < row.size(); ++i)
            stream << row[i] << std::string(widths[i] - row[i].size() + 2, ' ');
        stream << row.back() << '\n';
    }
}

std::map<std::string, std::string> ReadRemarks(const std::string& folder)
{
    std::map<std::string, std::string> remarks;
    std::ifstream manifest(folder + "/MANIFEST.tsv");
    for (std::string line; std::getline(manifest, line);)
        remarks[line.substr(0, line.find('\t'))] = line.substr(line.rfind('\t') + 1);
    remarks.erase("file");
    return remarks;
}

} // namespace HarrowSupport::Testing
