// Documents of ten thousand, a hundred thousand and a million paths: what building, saving, reading and
// comparing them costs an object, in time and memory, and whether that stays flat.

#include <map>

#include <benchmark/benchmark.h>

#include <harrow_support/comparators.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/counting_reporter.h"
#include "support/generated_files.h"
#include "support/measure.h"

namespace
{

using namespace Benchmarks;
using namespace HarrowSupport;

struct Costs
{
    double build = 0;
    double save = 0;
    double read = 0;
    double compare = 0;
    double bytes = 0;
};

// Seconds and bytes an object. The smaller documents are measured more often, since their times are short.
Costs MeasureDocument(std::size_t objects)
{
    const TemporaryFolder folder;
    const auto file = folder.File("vector.pdf");
    Costs best{1e300, 1e300, 1e300, 1e300, 0.0};
    const std::size_t rounds = objects <= 10000 ? 20 : objects <= 100000 ? 5 : 2;
    for (std::size_t round = 0; round < rounds; ++round) {
        std::unique_ptr<OrvDoc::Document> built;
        const std::size_t before = ResidentBytes();
        best.build = std::min(best.build, Seconds([&] { built = MakeVectorDocument(objects); }));
        const std::size_t after = ResidentBytes();
        best.bytes = std::max(best.bytes, static_cast<double>(after > before ? after - before : 0));
        best.save = std::min(best.save, Seconds([&] {
                                 built->Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
                             }));
        built.reset();

        std::unique_ptr<OrvDoc::Document> left;
        std::unique_ptr<OrvDoc::Document> right;
        const auto read = [&file](std::unique_ptr<OrvDoc::Document>& document) {
            document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
            benchmark::DoNotOptimize(LoadAllPages(*document));
        };
        best.read = std::min(best.read, Seconds([&] { read(left); }));
        best.read = std::min(best.read, Seconds([&] { read(right); }));
        CountingReporter reporter;
        for (int repetition = 0; repetition < 5; ++repetition) {
            best.compare = std::min(
                best.compare, Seconds([&] { Comparators::Compare(reporter, *left, *right, AllOptions()); }));
        }
        if (reporter.count != 0) {
            throw std::runtime_error("equal documents were reported as different");
        }
    }
    const auto count = static_cast<double>(objects);
    return {best.build / count, best.save / count, best.read / count, best.compare / count,
            best.bytes / count};
}

const Costs& CostsOf(std::size_t objects)
{
    static std::map<std::size_t, Costs> known;
    const auto found = known.find(objects);
    return found != known.end() ? found->second
                                : known.emplace(objects, MeasureDocument(objects)).first->second;
}

void PerObject(benchmark::State& state)
{
    const auto objects = static_cast<std::size_t>(state.range(0));
    const Costs& costs = CostsOf(objects);
    for (auto _ : state) {
        state.SetIterationTime((costs.build + costs.save + costs.read + costs.compare) *
                               static_cast<double>(objects));
    }
    state.counters["build_ns"] = costs.build * 1e9;
    state.counters["save_ns"] = costs.save * 1e9;
    state.counters["read_ns"] = costs.read * 1e9;
    state.counters["compare_ns"] = costs.compare * 1e9;
    state.counters["bytes"] = costs.bytes;
    state.counters["compare_to_read"] = costs.compare / costs.read;
    const Costs& smallest = CostsOf(10000);
    state.counters["build_growth"] = costs.build / smallest.build;
    state.counters["save_growth"] = costs.save / smallest.save;
    state.counters["read_growth"] = costs.read / smallest.read;
    state.counters["compare_growth"] = costs.compare / smallest.compare;
}

BENCHMARK(PerObject)->Arg(10000)->Arg(100000)->Arg(1000000)->UseManualTime()->Iterations(1)->Unit(
    benchmark::kMillisecond);

} // namespace
