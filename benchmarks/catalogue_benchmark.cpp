// The catalogue of pictures as one document, a picture to a page: made, saved, read again and compared whole.
// The peak of memory is that of a process of its own, which this program starts with itself.

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <boost/filesystem/operations.hpp>

#include <benchmark/benchmark.h>

#include <harrow_support/content_generator.h>
#include <harrow_support/generate_image.h>
#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>

#include "support/counting_reporter.h"
#include "support/generated_files.h"
#include "support/measure.h"

namespace
{

using namespace Benchmarks;
using namespace HarrowSupport;

constexpr char tripArgument[] = "--make-trip-and-tell-peak";

std::unique_ptr<OrvDoc::Document> MakeCatalogue()
{
    auto document = OrvDoc::Document::CreateNew();
    for (const GenerateImage::TestCase& testCase : GenerateImage::GetTestCases()) {
        ContentGenerator generator(document->AddPage({0.0, 0.0, 1000.0, 1000.0}).GetContent());
        if (testCase.isImageMask)
            generator.Add(GenerateImage::CreateImageMask(*document, testCase));
        else
            generator.Add(GenerateImage::CreateImage(*document, testCase));
    }
    return document;
}

struct TripSeconds
{
    double make = 0.0;
    double save = 0.0;
    double read = 0.0;
    double compare = 0.0;

    double Sum() const { return make + save + read + compare; }
};

TripSeconds MakeTrip(const boost::filesystem::path& file)
{
    TripSeconds seconds;
    std::unique_ptr<OrvDoc::Document> left;
    std::unique_ptr<OrvDoc::Document> right;
    CountingReporter reporter;
    seconds.make = Seconds([&] { left = MakeCatalogue(); });
    seconds.save =
        Seconds([&] { left->Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full)); });
    // Saving has tied the document to the file. What is compared with it stands on its own.
    left = MakeCatalogue();
    seconds.read = Seconds([&] {
        right = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
        benchmark::DoNotOptimize(LoadAllPages(*right));
    });
    seconds.compare = Seconds([&] { Comparators::Compare(reporter, *left, *right, AllOptions()); });
    if (reporter.count != 0)
        throw std::runtime_error("the catalogue came back with differences");
    return seconds;
}

void CatalogueThroughAFile(benchmark::State& state)
{
    const TemporaryFolder folder;
    for (auto _ : state) {
        const TripSeconds seconds = MakeTrip(folder.File("catalogue.pdf"));
        state.SetIterationTime(seconds.Sum());
        state.counters["make_s"] = seconds.make;
        state.counters["save_s"] = seconds.save;
        state.counters["read_s"] = seconds.read;
        state.counters["compare_s"] = seconds.compare;
    }
    state.counters["file_MiB"] =
        static_cast<double>(boost::filesystem::file_size(folder.File("catalogue.pdf"))) / (1024.0 * 1024.0);
    state.counters["peak_MiB"] = PeakMebibytesOfOwnRun({tripArgument, folder.File("again.pdf").string()},
                                                       folder.File("peak.txt").string());
}

BENCHMARK(CatalogueThroughAFile)->UseManualTime()->Iterations(1)->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4 && std::string(argv[1]) == tripArgument) {
        MakeTrip(argv[2]);
        TellPeak(argv[3]);
        return EXIT_SUCCESS;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
