// What a round trip of a large page costs beside its parts done one by one: saving, reading and comparing.
// The trip also copies the page and destroys the document and the copy.

#include <memory>
#include <stdexcept>

#include <benchmark/benchmark.h>

#include <harrow_support/round_trip.h>
#include <orv_doc/document.h>

#include "support/counting_reporter.h"
#include "support/generated_files.h"
#include "support/measure.h"

namespace
{

using namespace Benchmarks;
using namespace HarrowSupport;

double SaveReadAndCompare(const OrvDoc::Document& left, OrvDoc::Document& toSave,
                          const boost::filesystem::path& file)
{
    std::unique_ptr<OrvDoc::Document> right;
    CountingReporter reporter;
    const double save =
        Seconds([&] { toSave.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full)); });
    const double read = Seconds([&] {
        right = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
        benchmark::DoNotOptimize(LoadAllPages(*right));
    });
    const double compare = Seconds([&] {
        Comparators::Compare(reporter, left.GetSeparationInfo(), right->GetSeparationInfo(), AllOptions());
        Comparators::Compare(reporter, left.GetPagesBegin()->GetContent(),
                             right->GetPagesBegin()->GetContent(), AllOptions());
    });
    if (reporter.count != 0)
        throw std::runtime_error("equal documents were reported as different");
    return save + read + compare;
}

double MakeTrip(std::size_t objects)
{
    auto document = MakeVectorDocument(objects);
    RoundTripResult result;
    const double seconds = Seconds([&] { result = TestRoundTripStructure(document, AllOptions()); });
    if (!result.differences.empty())
        throw std::runtime_error("the round trip found differences");
    return seconds;
}

void RoundTripToItsParts(benchmark::State& state)
{
    const auto objects = static_cast<std::size_t>(state.range(0));
    const TemporaryFolder folder;
    const auto left = MakeVectorDocument(objects);
    Pair best;
    for (int round = 0; round < 7; ++round) {
        best.ours = std::min(best.ours, MakeTrip(objects));
        const auto toSave = MakeVectorDocument(objects);
        best.reference =
            std::min(best.reference, SaveReadAndCompare(*left, *toSave, folder.File("parts.pdf")));
    }
    for (auto _ : state)
        state.SetIterationTime(best.ours);
    state.counters["parts_ms"] = best.reference * 1e3;
    state.counters["ratio"] = best.Ratio();
}

BENCHMARK(RoundTripToItsParts)
    ->Arg(10000)
    ->Arg(100000)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

} // namespace
