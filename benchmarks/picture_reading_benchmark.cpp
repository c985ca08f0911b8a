// Decoding a picture of 2048 by 2048 pixels that a file has under FlateDecode against libdeflate on the same
// bytes, and comparing two such pictures against decoding each once.

#include "support/generated_files.h"
#include "support/measure.h"

#include <harrow_support/comparators.h>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/page.h>
#include <orv_doc/read_options.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_buffer.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>

#include <benchmark/benchmark.h>

#include <boost/filesystem/fstream.hpp>

#include <libdeflate.h>

#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using namespace Benchmarks;
using HarrowSupport::Comparators::LocationPath;
using HarrowSupport::Comparators::ReportKind;

constexpr std::size_t side = 2048;

/// Samples that vary as those of a drawing (`noise` 1: none) or a photograph do.
std::string MakeRows(std::size_t channels, unsigned noise)
{
    std::string rows(side * side * channels, '\0');
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::size_t row = i / (side * channels);
        const std::size_t column = i / channels % side;
        const auto grain = static_cast<unsigned>(row * 2654435761u + i * 40503u) >> 9;
        rows[i] = static_cast<char>(row / 16 + column / 8 + i % channels * 40 + grain % noise);
    }
    return rows;
}

std::string Compress(const std::string& bytes, int level)
{
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
        libdeflate_alloc_compressor(level), libdeflate_free_compressor);
    if (!compressor)
        throw std::bad_alloc();
    std::string compressed(libdeflate_zlib_compress_bound(compressor.get(), bytes.size()), '\0');
    compressed.resize(libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(),
                                               compressed.data(), compressed.size()));
    return compressed;
}

/// A file of one page with one image that has these bytes.
void WritePicture(const boost::filesystem::path& file, const std::string& encoded, std::size_t channels)
{
    const std::string content = "595 0 0 842 0 0 cm /Im Do";
    const char* const space = channels == 1 ? "DeviceGray" : (channels == 3 ? "DeviceRGB" : "DeviceCMYK");
    const std::vector<std::string> objects = {
        "<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R /Resources << /XObject << /Im "
        "5 0 R >> >> >>",
        "<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "\nendstream",
        "<< /Type /XObject /Subtype /Image /Width " + std::to_string(side) + " /Height " +
            std::to_string(side) + " /BitsPerComponent 8 /ColorSpace /" + space +
            " /Filter /FlateDecode /Length " + std::to_string(encoded.size()) + " >>\nstream\n" + encoded +
            "\nendstream"};
    std::string text = "%PDF-1.7\n";
    std::string table = "xref\n0 6\n0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const std::string offset = std::to_string(text.size());
        table += std::string(10 - offset.size(), '0') + offset + " 00000 n \n";
        text += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::string start = std::to_string(text.size());
    boost::filesystem::ofstream stream(file, std::ios::binary);
    stream << text << table << "trailer\n<< /Size 6 /Root 1 0 R >>\nstartxref\n" << start << "\n%%EOF\n";
    if (!stream.flush())
        throw std::runtime_error("the file of the picture can't be written");
}

/// The file as it is before anybody has asked for samples.
struct OpenedPicture
{
    explicit OpenedPicture(const boost::filesystem::path& file)
        : document(OrvDoc::Document::Create(file.string(), OrvDoc::ReadOptions()))
    {
        const auto* const image =
            dynamic_cast<const OrvDoc::Image*>(document->GetPagesBegin()->GetContent().GetChildren().first);
        if (!image)
            throw std::runtime_error("the page has no image");
        source = image->GetPaintedPicture()->GetPictureData(false)->GetPictureSource();
    }

    std::unique_ptr<OrvDoc::Document> document;
    std::shared_ptr<const OrvImg::PictureSource> source;
};

void RequireSize(std::size_t size, std::size_t expected)
{
    if (size != expected)
        throw std::runtime_error("the picture was decoded wrongly");
}

/// The reference inflates into new memory, as a decoder has to that gives its samples away. `speed` is that
/// of libdeflate divided into ours: 1 is as fast.
void Inflating(benchmark::State& state)
{
    const auto channels = static_cast<std::size_t>(state.range(0));
    const std::string rows = MakeRows(channels, static_cast<unsigned>(state.range(1)));
    const std::string encoded = Compress(rows, 6);
    const TemporaryFolder folder;
    WritePicture(folder.File("picture.pdf"), encoded, channels);
    const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    if (!decompressor)
        throw std::bad_alloc();

    Pair best;
    for (auto _ : state) {
        for (int round = 0; round < 15; ++round) {
            const OpenedPicture picture(folder.File("picture.pdf"));
            std::shared_ptr<const OrvImg::PictureBuffer> buffer;
            std::unique_ptr<char[]> plain;
            std::size_t size = 0;
            const Pair once = MeasureInTurn(
                1, [&] { buffer = picture.source->GetPictureBuffer(); },
                [&] {
                    plain.reset(new char[rows.size()]);
                    libdeflate_zlib_decompress(decompressor.get(), encoded.data(), encoded.size(),
                                               plain.get(), rows.size(), &size);
                });
            RequireSize(size, rows.size());
            RequireSize(buffer->GetBytesPerRow() * buffer->height, rows.size());
            RequireSize(std::memcmp(buffer->GetRowPtr(0), rows.data(), rows.size()) == 0 ? 1 : 0, 1);
            best.ours = std::min(best.ours, once.ours);
            best.reference = std::min(best.reference, once.reference);
        }
    }
    const double megabytes = static_cast<double>(rows.size()) / 1e6;
    state.counters["MB_per_s"] = megabytes / best.ours;
    state.counters["libdeflate_MB_per_s"] = megabytes / best.reference;
    state.counters["speed"] = 1.0 / best.Ratio();
}

class CountingReporter : public HarrowSupport::Comparators::Reporter
{
public:
    void Report(ReportKind, const std::string&, const LocationPath&, const LocationPath&,
                const std::string&) override
    {
        ++reports;
    }

    int reports = 0;
};

/// Two files whose equal samples are stored as other bytes. Were one decoded twice, `ratio` would be 1.5 or
/// more.
void ComparingOnce(benchmark::State& state)
{
    const std::string rows = MakeRows(3, 16);
    const TemporaryFolder folder;
    WritePicture(folder.File("left.pdf"), Compress(rows, 6), 3);
    WritePicture(folder.File("right.pdf"), Compress(rows, 1), 3);
    HarrowSupport::Comparators::Options options{};
    options.compareImageData = true;

    Pair best;
    for (auto _ : state) {
        for (int round = 0; round < 15; ++round) {
            const OpenedPicture left(folder.File("left.pdf"));
            const OpenedPicture right(folder.File("right.pdf"));
            const OpenedPicture sameLeft(folder.File("left.pdf"));
            const OpenedPicture sameRight(folder.File("right.pdf"));
            CountingReporter reporter;
            const Pair once = MeasureInTurn(
                1,
                [&] {
                    HarrowSupport::Comparators::Compare(reporter, *left.document, *right.document, options);
                },
                [&] {
                    const auto one = sameLeft.source->GetPictureBuffer();
                    const auto other = sameRight.source->GetPictureBuffer();
                    RequireSize(std::memcmp(one->GetRowPtr(0), other->GetRowPtr(0), rows.size()) == 0, 1);
                });
            RequireSize(static_cast<std::size_t>(reporter.reports), 0);
            best.ours = std::min(best.ours, once.ours);
            best.reference = std::min(best.reference, once.reference);
        }
    }
    state.counters["ms"] = best.ours * 1e3;
    state.counters["reference_ms"] = best.reference * 1e3;
    state.counters["ratio"] = best.Ratio();
}

BENCHMARK(Inflating)
    ->ArgNames({"channels", "noise"})
    ->Args({1, 1})
    ->Args({3, 1})
    ->Args({3, 16})
    ->Args({4, 16})
    ->Args({3, 256})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ComparingOnce)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
