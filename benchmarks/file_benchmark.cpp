// Reading, saving and opening files, each against a program of others that does the same work on the same
// file.

#include <benchmark/benchmark.h>

#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/generated_files.h"
#include "support/measure.h"

namespace
{

using namespace Benchmarks;

void Report(benchmark::State& state, const Pair& pair)
{
    for (auto _ : state) {
        state.SetIterationTime(pair.ours);
    }
    state.counters["reference_ms"] = pair.reference * 1e3;
    state.counters["ratio"] = pair.Ratio();
}

// Reading a drawing and interpreting all of it, against `mutool trace`.
void ReadDrawing(benchmark::State& state)
{
    const TemporaryFolder folder;
    const auto file = folder.File("drawing.pdf");
    WriteDrawing(file);
    Report(state, MeasureInTurn(
                      10,
                      [&file] {
                          const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
                          benchmark::DoNotOptimize(LoadAllPages(*document));
                      },
                      [&file] {
                          RunProgram({"mutool", "trace", file.string()});
                      }));
}

// Saving that drawing once it is read, against qpdf rewriting the file with streams compressed anew.
void SaveDrawing(benchmark::State& state)
{
    const TemporaryFolder folder;
    const auto file = folder.File("drawing.pdf");
    WriteDrawing(file);
    const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    LoadAllPages(*document);
    Report(state, MeasureInTurn(
                      10,
                      [&] {
                          document->Save(folder.File("ours.pdf"),
                                         OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
                      },
                      [&] {
                          RunProgram({"qpdf", "--recompress-flate", "--compression-level=6", file.string(),
                                      folder.File("theirs.pdf").string()});
                      }));
}

// Opening a file of ten thousand pages, against `qpdf --show-npages`. `touch` is what is then asked of it.
template <typename Touch>
void MeasureOpening(benchmark::State& state, const Touch& touch)
{
    const TemporaryFolder folder;
    const auto file = folder.File("pages.pdf");
    WriteManyPages(file, 10000);
    Report(state, MeasureInTurn(
                      10,
                      [&] {
                          const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
                          benchmark::DoNotOptimize(touch(*document));
                      },
                      [&] {
                          RunProgram({"qpdf", "--show-npages", file.string()});
                      }));
}

void OpenManyPages(benchmark::State& state)
{
    MeasureOpening(state, [](const OrvDoc::Document& document) { return &document; });
}

// Asking for the number of pages walks the page tree.
void OpenAndCountManyPages(benchmark::State& state)
{
    MeasureOpening(state, [](const OrvDoc::Document& document) { return document.GetNumberOfPages(); });
}

BENCHMARK(ReadDrawing)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveDrawing)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenManyPages)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenAndCountManyPages)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
