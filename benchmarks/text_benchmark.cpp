// Pages of text: reading and interpreting them, comparing two files, saving pages written anew, each against
// a program of others on the same file, which does the same or less; and what outlines cost, which nothing of
// that makes. The peak of memory is that of a process of its own, which this program starts with itself.

#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <unordered_set>

#include <unistd.h>

#include <benchmark/benchmark.h>

#include <boost/filesystem/operations.hpp>

#include <harrow_support/comparators.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/counting_reporter.h"
#include "support/generated_files.h"
#include "support/measure.h"
#include "support/nested_documents.h"
#include "support/text_documents.h"

namespace
{

using namespace Benchmarks;
using namespace HarrowSupport;
using File = boost::filesystem::path;

constexpr std::size_t readPages = 120;
constexpr std::size_t comparedPages = 300;
constexpr char comparisonArgument[] = "--compare-and-tell-peak";

std::unique_ptr<OrvDoc::Document> Open(const File& file)
{
    return OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
}

void Save(OrvDoc::Document& document, const File& file)
{
    document.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
}

void Report(benchmark::State& state, const Pair& pair)
{
    for (auto _ : state)
        state.SetIterationTime(pair.ours);
    state.counters["reference_ms"] = pair.reference * 1e3;
    state.counters["ratio"] = pair.Ratio();
}

std::size_t CompareFiles(const File& left, const File& right)
{
    const auto leftDocument = Open(left);
    const auto rightDocument = Open(right);
    CountingReporter reporter;
    Comparators::Compare(reporter, *leftDocument, *rightDocument, AllOptions());
    return reporter.count;
}

double PeakMebibytesOfComparing(const File& left, const File& right, const File& answer)
{
    return PeakMebibytesOfOwnRun({comparisonArgument, left.string(), right.string()}, answer.string());
}

bool IsInstalled(const std::string& program)
{
    try {
        RunProgram({"sh", "-c", "command -v " + program});
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

using FileMaker = std::function<void(const File&, std::size_t pages)>;

void WriteOurText(const File& file, std::size_t pages)
{
    Save(*MakeTextDocument(pages), file);
}

// Reading and interpreting all pages, against `mutool trace`.
void ReadText(benchmark::State& state, const FileMaker& write)
{
    const TemporaryFolder folder;
    const File file = folder.File("text.pdf");
    write(file, readPages);
    std::size_t objects = 0;
    Report(state, MeasureInTurn(
                      10, [&] { objects = CountAllObjects(*Open(file)); },
                      [&] {
                          RunProgram({"mutool", "trace", file.string()});
                      }));
    state.counters["objects"] = static_cast<double>(objects);
    state.counters["file_KiB"] = static_cast<double>(boost::filesystem::file_size(file)) / 1024.0;
}

// Reading and comparing two files that say the same, against `comparepdf -ct`, which looks at the words only.
// Without that program our own figures are told alone.
void CompareEqualTexts(benchmark::State& state, const FileMaker& write)
{
    const TemporaryFolder folder;
    const File left = folder.File("left.pdf");
    const File right = folder.File("right.pdf");
    write(left, comparedPages);
    boost::filesystem::copy_file(left, right);
    const double peak = PeakMebibytesOfComparing(left, right, folder.File("peak.txt"));
    const bool hasReference = IsInstalled("comparepdf");
    const auto compare = [&] {
        if (CompareFiles(left, right) != 0)
            throw std::runtime_error("equal texts were reported as different");
    };
    const Pair pair = MeasureInTurn(6, compare, [&] {
        if (hasReference)
            RunProgram({"comparepdf", "-ct", left.string(), right.string()});
    });
    for (auto _ : state)
        state.SetIterationTime(pair.ours);
    if (hasReference) {
        state.counters["reference_ms"] = pair.reference * 1e3;
        state.counters["ratio"] = pair.Ratio();
    } else {
        state.SetLabel("no ratio: comparepdf is not installed");
    }
    state.counters["peak_MiB"] = peak;
}

// Saving a file that was read, every content written anew, against qpdf compressing its streams again.
void SaveChangedTexts(benchmark::State& state, const FileMaker& write)
{
    const TemporaryFolder folder;
    const File file = folder.File("text.pdf");
    write(file, readPages);
    const auto document = Open(file);
    benchmark::DoNotOptimize(LoadAllPages(*document));
    for (auto page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page)
        page->GetContent().MarkChanged();
    Report(state, MeasureInTurn(
                      10, [&] { Save(*document, folder.File("ours.pdf")); },
                      [&] {
                          RunProgram({"qpdf", "--recompress-flate", "--compression-level=6", file.string(),
                                      folder.File("theirs.pdf").string()});
                      }));
    state.counters["ours_KiB"] =
        static_cast<double>(boost::filesystem::file_size(folder.File("ours.pdf"))) / 1024.0;
    state.counters["theirs_KiB"] =
        static_cast<double>(boost::filesystem::file_size(folder.File("theirs.pdf"))) / 1024.0;
}

// All glyphs of a font once, against asking for them again.
void MakeAllOutlines(benchmark::State& state)
{
    std::size_t outlines = 0;
    Pair best;
    for (int round = 0; round < 20; ++round) {
        const auto document = OrvDoc::Document::CreateNew();
        const auto font = FindFonts(*document, UsualFonts())[Roman];
        std::vector<OrvFont::Character> characters;
        std::unordered_set<std::uint32_t> glyphs;
        for (wchar_t unit = 32; unit < 0xD800; ++unit) {
            std::vector<OrvFont::Character> found;
            if (font->Uni16StringToFontCharacters({&unit, 1}, found) &&
                glyphs.insert(found.front().glyph).second)
                characters.push_back(found.front());
        }
        const auto askForAll = [&] {
            for (const OrvFont::Character& character : characters)
                benchmark::DoNotOptimize(font->GetOutline(character));
        };
        outlines = characters.size();
        best.ours = std::min(best.ours, Seconds(askForAll));
        best.reference = std::min(best.reference, Seconds(askForAll));
    }
    for (auto _ : state)
        state.SetIterationTime(best.ours);
    state.counters["outlines"] = static_cast<double>(outlines);
    state.counters["microseconds_each"] = best.ours * 1e6 / static_cast<double>(outlines);
    state.counters["nanoseconds_again"] = best.reference * 1e9 / static_cast<double>(outlines);
}

// Two files that were read, compared for the first time and so with all outlines that are needed still to be
// made, against two equal ones.
void CompareOtherFonts(benchmark::State& state, const StyleNames& names, const std::string& lastWords)
{
    const TemporaryFolder folder;
    const File left = folder.File("left.pdf");
    const File right = folder.File("right.pdf");
    WriteOurText(left, readPages);
    Save(*MakeTextDocument(readPages, names, lastWords), right);
    std::size_t reports = 0;
    const auto compareFirst = [](const File& leftFile, const File& rightFile, std::size_t& count) {
        const auto leftDocument = Open(leftFile);
        const auto rightDocument = Open(rightFile);
        LoadAllPages(*leftDocument);
        LoadAllPages(*rightDocument);
        CountingReporter reporter;
        const double seconds =
            Seconds([&] { Comparators::Compare(reporter, *leftDocument, *rightDocument, AllOptions()); });
        count = reporter.count;
        return seconds;
    };
    Pair best;
    for (int round = 0; round < 5; ++round) {
        std::size_t none = 0;
        best.ours = std::min(best.ours, compareFirst(left, right, reports));
        best.reference = std::min(best.reference, compareFirst(left, left, none));
        if (none != 0)
            throw std::runtime_error("equal texts were reported as different");
    }
    Report(state, best);
    state.counters["reports"] = static_cast<double>(reports);
    state.counters["microseconds_a_page"] = best.ours * 1e6 / static_cast<double>(readPages);
    state.counters["peak_MiB"] = PeakMebibytesOfComparing(left, right, folder.File("peak.txt"));
}

void Measure(const char* name, const std::function<void(benchmark::State&)>& measure)
{
    benchmark::RegisterBenchmark(name, measure)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
}

/// For files of our own writing, and for those of Ghostscript if that is installed.
void MeasureBoth(const std::string& name, void (*measure)(benchmark::State&, const FileMaker&))
{
    Measure(name.c_str(), [measure](benchmark::State& state) { measure(state, WriteOurText); });
    Measure((name + "OfGhostscript").c_str(), [measure](benchmark::State& state) {
        if (IsInstalled("gs"))
            measure(state, WriteTextByGhostscript);
        else
            state.SkipWithError("Ghostscript is not installed");
    });
}

void RegisterAll()
{
    MeasureBoth("ReadText", ReadText);
    MeasureBoth("CompareEqualTexts", CompareEqualTexts);
    MeasureBoth("SaveChangedTexts", SaveChangedTexts);
    Measure("MakeAllOutlines", MakeAllOutlines);
    Measure("CompareOtherSubsets",
            [](benchmark::State& state) { CompareOtherFonts(state, UsualFonts(), "$@Q#"); });
    Measure("CompareOtherFonts", [](benchmark::State& state) {
        CompareOtherFonts(
            state, {"Helvetica", "Helvetica-Oblique", "Helvetica-Bold", "Times-Bold", "Courier-Bold"}, "End");
    });
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 5 && std::string(argv[1]) == comparisonArgument) {
        CompareFiles(argv[2], argv[3]);
        TellPeak(argv[4]);
        return EXIT_SUCCESS;
    }
    RegisterAll();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
