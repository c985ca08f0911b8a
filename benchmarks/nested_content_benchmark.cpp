// Ten thousand objects that share ten forms of a thousand objects each, through a file: saving, reading and
// comparing, each against a page of twenty thousand plain objects. Whoever writes, reads or compares a form
// for each of its users takes five hundred times as long.

#include <algorithm>
#include <memory>
#include <stdexcept>

#include <benchmark/benchmark.h>

#include <harrow_support/comparators.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/counting_reporter.h"
#include "support/generated_files.h"
#include "support/measure.h"
#include "support/nested_documents.h"

namespace
{

using namespace Benchmarks;
using namespace HarrowSupport;

constexpr std::size_t users = 10000;
constexpr std::size_t forms = 10;
constexpr std::size_t objectsInAForm = 1000;
constexpr std::size_t allObjects = users + forms * objectsInAForm;

struct TripTimes
{
    double save = 1e300;
    double read = 1e300;
    double compare = 1e300;
};

/// Keeps the fastest save, reading and comparison so far.
void MeasureTrip(OrvDoc::Document& built, const boost::filesystem::path& file, TripTimes& best)
{
    const auto save = [&] { built.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full)); };
    best.save = std::min(best.save, Seconds(save));
    std::unique_ptr<OrvDoc::Document> left;
    std::unique_ptr<OrvDoc::Document> right;
    for (auto* const document : {&left, &right}) {
        std::size_t count = 0;
        best.read = std::min(best.read, Seconds([&] {
                                 *document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
                                 count = CountAllObjects(**document);
                             }));
        if (count != allObjects)
            throw std::runtime_error("objects were lost or doubled in the file");
    }
    CountingReporter reporter;
    best.compare =
        std::min(best.compare, Seconds([&] { Comparators::Compare(reporter, *left, *right, AllOptions()); }));
    if (reporter.count != 0)
        throw std::runtime_error("equal documents were reported as different");
}

void SharedFormsInAFile(benchmark::State& state)
{
    const TemporaryFolder folder;
    const auto shared = MakeFormDocument(users, forms, objectsInAForm);
    const auto plain = MakePlainDocument(allObjects);
    TripTimes ofShared;
    TripTimes ofPlain;
    for (auto _ : state) {
        for (int round = 0; round < 15; ++round) {
            MeasureTrip(*shared, folder.File("shared.pdf"), ofShared);
            MeasureTrip(*plain, folder.File("plain.pdf"), ofPlain);
        }
        state.SetIterationTime(ofShared.save + ofShared.read + ofShared.compare);
    }
    state.counters["save_ms"] = ofShared.save * 1e3;
    state.counters["read_ms"] = ofShared.read * 1e3;
    state.counters["compare_ms"] = ofShared.compare * 1e3;
    state.counters["save_ratio"] = ofShared.save / ofPlain.save;
    state.counters["read_ratio"] = ofShared.read / ofPlain.read;
    state.counters["compare_ratio"] = ofShared.compare / ofPlain.compare;
}

BENCHMARK(SharedFormsInAFile)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
