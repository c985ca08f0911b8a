// Ten thousand objects that share ten forms of a thousand objects each compare in the time of ten thousand
// plus ten thousand plain objects: each form once. And ten thousand patterns of their own, each met with one
// partner: what a pattern costs as their number grows.

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include <benchmark/benchmark.h>

#include <harrow_support/comparators.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_paint/pattern_paint.h>

#include "support/measure.h"
#include "support/nested_documents.h"

namespace
{

using namespace Benchmarks;
using namespace HarrowSupport;
using Documents = std::pair<std::unique_ptr<OrvDoc::Document>, std::unique_ptr<OrvDoc::Document>>;

/// A receiver of nothing: equal documents are compared.
class NoReporter : public Comparators::Reporter
{
public:
    void Report(Comparators::ReportKind, const std::string& label, const Comparators::LocationPath&,
                const Comparators::LocationPath&, const std::string&) override
    {
        throw std::runtime_error("equal documents were reported as different: " + label);
    }
};

std::unique_ptr<OrvDoc::Document> MakePatternDocument(std::size_t patterns)
{
    auto document = MakeEmptyPage();
    std::vector<PaintPointer> paints;
    for (std::size_t i = 0; i < patterns; ++i) {
        paints.push_back(OrvPaint::PatternPaint::Factory(
                             MakeSquares(*document, OrvDoc::Content::Type::ColoredPatternContent, 1))
                             .Get());
    }
    AddSquares(ContentOf(*document), patterns, paints);
    return document;
}

void CompareOnce(const Documents& documents)
{
    NoReporter reporter;
    Comparators::Options options{};
    options.compareImageData = true;
    options.compareSeparationInfo = true;
    options.comparePatternContentReuse = true;
    Comparators::Compare(reporter, *documents.first, *documents.second, options);
}

void SharedForms(benchmark::State& state)
{
    const std::size_t users = 10000;
    const Documents shared(MakeFormDocument(users, 10, 1000), MakeFormDocument(users, 10, 1000));
    const Documents plain(MakePlainDocument(2 * users), MakePlainDocument(2 * users));
    Pair best;
    for (auto _ : state)
        best = MeasureInTurn(
            50, [&] { CompareOnce(shared); }, [&] { CompareOnce(plain); });
    state.counters["shared_us"] = best.ours * 1e6;
    state.counters["plain_us"] = best.reference * 1e6;
    state.counters["ratio"] = best.Ratio();
}

double SecondsOfAPattern(std::size_t patterns)
{
    const Documents documents(MakePatternDocument(patterns), MakePatternDocument(patterns));
    const std::size_t rounds = std::max<std::size_t>(3, 200000 / patterns);
    double best = 1e300;
    for (std::size_t round = 0; round < rounds; ++round)
        best = std::min(best, Seconds([&] { CompareOnce(documents); }));
    return best / static_cast<double>(patterns);
}

void DistinctPatterns(benchmark::State& state)
{
    const auto patterns = static_cast<std::size_t>(state.range(0));
    double seconds = 0.0;
    for (auto _ : state)
        seconds = SecondsOfAPattern(patterns);
    state.counters["pattern_ns"] = seconds * 1e9;
    state.counters["growth"] = seconds / SecondsOfAPattern(1000);
}

BENCHMARK(SharedForms)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(DistinctPatterns)->Arg(1000)->Arg(10000)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
