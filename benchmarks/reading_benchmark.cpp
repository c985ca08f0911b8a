// Opening real files and interpreting all of their pages, with the contents of forms, patterns and soft
// masks, against `mutool trace` on the same files, in sum. The files are those of three folders of the
// corpus, that HARROW_CORPUS_DIR or the configuration of the build names. The reference is a process for each
// file; what it takes to start one is told beside, measured on a file with one empty page.

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <boost/filesystem/operations.hpp>

#include <orv_doc/document.h>
#include <orv_doc/read_options.h>

#include "support/generated_files.h"
#include "support/measure.h"
#include "support/nested_documents.h"

namespace
{

using namespace Benchmarks;

constexpr int rounds = 15;

boost::filesystem::path CorpusFolder()
{
    const char* const folder = std::getenv("HARROW_CORPUS_DIR");
    return folder != nullptr ? folder : HARROW_CORPUS_FOLDER;
}

std::vector<boost::filesystem::path> FindFiles(const std::string& folder)
{
    std::vector<boost::filesystem::path> files;
    boost::system::error_code missing;
    for (const auto& entry : boost::filesystem::directory_iterator(CorpusFolder() / folder, missing)) {
        if (entry.path().extension() == ".pdf")
            files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

void ReadWithAll(const boost::filesystem::path& file)
{
    const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    benchmark::DoNotOptimize(CountAllObjects(*document));
}

/// A file that mutool finds fault with ends with one.
void Trace(const boost::filesystem::path& file)
{
    RunProgram({"mutool", "trace", file.string()}, {0, 1});
}

double SecondsOfAStart()
{
    const TemporaryFolder folder;
    WriteManyPages(folder.File("tiny.pdf"), 1);
    double best = 1e300;
    for (int round = 0; round < 3 * rounds; ++round)
        best = std::min(best, Seconds([&] { Trace(folder.File("tiny.pdf")); }));
    return best;
}

void ReadFolders(benchmark::State& state, const std::vector<std::string>& folders)
{
    std::vector<boost::filesystem::path> files;
    for (const std::string& folder : folders) {
        const auto found = FindFiles(folder);
        files.insert(files.end(), found.begin(), found.end());
    }
    if (files.empty()) {
        state.SkipWithError(
            ("there are no files in " + CorpusFolder().string() + "; HARROW_CORPUS_DIR names another folder")
                .c_str());
        return;
    }
    // The fastest run of each file: a sum over all files is seldom undisturbed as a whole.
    Pair sum{0.0, 0.0};
    for (auto _ : state) {
        for (const auto& file : files) {
            const Pair pair = MeasureInTurn(
                rounds, [&] { ReadWithAll(file); }, [&] { Trace(file); });
            sum.ours += pair.ours;
            sum.reference += pair.reference;
        }
        state.SetIterationTime(sum.ours);
    }
    const double starts = SecondsOfAStart() * static_cast<double>(files.size());
    state.counters["files"] = static_cast<double>(files.size());
    state.counters["mutool_ms"] = sum.reference * 1e3;
    state.counters["ratio"] = sum.Ratio();
    state.counters["starts_ms"] = starts * 1e3;
    state.counters["ratio_without_starts"] = sum.ours / (sum.reference - starts);
}

void Measure(const char* name, const std::vector<std::string>& folders)
{
    benchmark::RegisterBenchmark(name, [folders](benchmark::State& state) { ReadFolders(state, folders); })
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

const bool areRegistered = [] {
    Measure("ReadShadings", {"shading"});
    Measure("ReadPatternsAndForms", {"pattern-form"});
    Measure("ReadTransparency", {"transparency"});
    Measure("ReadAllThree", {"shading", "pattern-form", "transparency"});
    return true;
}();

} // namespace
