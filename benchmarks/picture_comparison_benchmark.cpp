// Comparing two pictures of 2048 by 2048 pixels: equal bytes against memcmp over them, and samples that have
// to be taken to numbers against a plain loop that does so sample by sample. Each picture has a buffer of its
// own, so that nothing but its samples tells that they are equal.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <harrow_support/comparators.h>
#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_img/buffered_picture_source.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>

#include "support/measure.h"

namespace
{

using namespace Benchmarks;
using namespace HarrowSupport;
using Buffer = std::shared_ptr<const OrvImg::PictureBuffer>;
using Range = std::array<double, 2>;

constexpr std::size_t side = 2048;
constexpr Range identity = {0.0, 1.0};
constexpr Range inverted = {1.0, 0.0};

class NoReporter : public Comparators::Reporter
{
public:
    void Report(Comparators::ReportKind, const std::string&, const Comparators::LocationPath&,
                const Comparators::LocationPath&, const std::string&) override
    {
        ++reports;
    }

    int reports = 0;
};

/// Samples that vary as those of a photograph do: slowly, with some noise.
unsigned SampleAt(std::size_t row, std::size_t index)
{
    const auto noise = static_cast<unsigned>((row * 2654435761u + index * 40503u) >> 7 & 0x7ff);
    return static_cast<unsigned>(row * 16 + index * 5 + noise) & 0xffff;
}

/// `shape` turns a sample of 16 bits into the one that is stored.
Buffer MakeBuffer(std::size_t channels, std::size_t bits, const std::function<unsigned(unsigned)>& shape,
                  bool isLastChanged = false)
{
    OrvImg::PictureBuffer::Factory factory(side, side, channels, bits);
    for (std::size_t row = 0; row < side; ++row) {
        unsigned char* bytes = factory.GetRowPtr(row);
        for (std::size_t i = 0; i < side * channels; ++i) {
            unsigned sample = shape(SampleAt(row, i));
            if (isLastChanged && row + 1 == side && i + 1 == side * channels)
                sample ^= 64;
            if (bits == 16)
                *bytes++ = static_cast<unsigned char>(sample >> 8);
            *bytes++ = static_cast<unsigned char>(sample);
        }
    }
    return factory.GetResult();
}

unsigned As8Bits(unsigned sample)
{
    return sample >> 8;
}

unsigned As16Bits(unsigned sample)
{
    return sample;
}

/// One side of a comparison.
struct Side
{
    Buffer buffer;
    Range range = identity;
    Buffer mask = nullptr;
};

std::shared_ptr<const OrvImg::PictureData> MakePicture(const OrvDoc::Document& document, const Buffer& buffer,
                                                       const OrvImg::ColorSpace& space, const Range& range)
{
    std::vector<OrvImg::ChannelInfo> channels;
    for (std::size_t i = 0; i < buffer->channels; ++i)
        channels.emplace_back("Spot " + std::to_string(i), OrvImg::ChannelInfo::ChannelType::Color, range);
    const auto source =
        std::make_shared<OrvImg::BufferedPictureSource>(buffer, space, channels, nullptr, 0.0, 0.0, nullptr);
    return OrvImg::PictureData::Factory(document, source).Get();
}

std::unique_ptr<OrvDoc::Image> MakeImage(const OrvDoc::Document& document, const Side& given)
{
    OrvImg::PaintedPicture::Factory factory(
        document, MakePicture(document, given.buffer, OrvImg::DeviceN(), given.range), false);
    if (given.mask) {
        OrvColor::ChannelMappingPolicy::Value mapping;
        mapping.index = 0;
        factory.SetMaskKind(OrvImg::MaskKind::SoftMask)
            .SetMaskData(MakePicture(document, given.mask, OrvImg::DeviceGray(), identity))
            .SetSoftMaskMapping(mapping);
    }
    return std::make_unique<OrvDoc::Image>(factory.Get());
}

unsigned ReadSample(const unsigned char* row, std::size_t index, std::size_t bits)
{
    switch (bits) {
    case 1:
        return row[index / 8] >> (7 - index % 8) & 1u;
    case 2:
        return row[index / 4] >> 2 * (3 - index % 4) & 3u;
    case 4:
        return row[index / 2] >> 4 * (1 - index % 2) & 15u;
    case 8:
        return row[index];
    case 16:
        return static_cast<unsigned>(row[2 * index]) << 8 | row[2 * index + 1];
    default:
        return 0;
    }
}

double NumberAt(const OrvImg::PictureBuffer& buffer, std::size_t row, std::size_t index, double highest,
                const Range& range)
{
    const double number = ReadSample(buffer.GetRowPtr(row), index, buffer.bitsPerChannel) / highest;
    return std::clamp(range[0] + (range[1] - range[0]) * number, 0.0, 1.0);
}

double Highest(const Buffer& buffer)
{
    return std::ldexp(1.0, static_cast<int>(buffer->bitsPerChannel)) - 1.0;
}

/// The loop that says what is equal, as one would write it down.
bool CompareByTheLoop(const Side& left, const Side& right)
{
    const OrvImg::PictureBuffer& leftBuffer = *left.buffer;
    const OrvImg::PictureBuffer& rightBuffer = *right.buffer;
    const double leftHighest = Highest(left.buffer);
    const double rightHighest = Highest(right.buffer);
    const double leftMaskHighest = left.mask ? Highest(left.mask) : 0.0;
    const double rightMaskHighest = right.mask ? Highest(right.mask) : 0.0;
    const double finest = std::max({leftHighest, rightHighest, leftMaskHighest, rightMaskHighest});
    const double tolerance = (left.mask ? 2.0 / finest : 1.0 / (2.0 * finest)) + 1e-07;
    for (std::size_t row = 0; row < leftBuffer.height; ++row) {
        for (std::size_t x = 0; x < leftBuffer.width; ++x) {
            for (std::size_t channel = 0; channel < leftBuffer.channels; ++channel) {
                double leftNumber =
                    NumberAt(leftBuffer, row, channel + x * leftBuffer.channels, leftHighest, left.range);
                double rightNumber =
                    NumberAt(rightBuffer, row, channel + x * rightBuffer.channels, rightHighest, right.range);
                if (left.mask) {
                    leftNumber *= NumberAt(*left.mask, row, x, leftMaskHighest, identity);
                    rightNumber *= NumberAt(*right.mask, row, x, rightMaskHighest, identity);
                }
                if (std::fabs(leftNumber - rightNumber) > tolerance)
                    return false;
            }
        }
    }
    return true;
}

bool CompareByMemory(const Side& left, const Side& right)
{
    return std::memcmp(left.buffer->GetRowPtr(0), right.buffer->GetRowPtr(0),
                       left.buffer->GetBytesPerRow() * left.buffer->height) == 0;
}

void RequireOutcome(bool outcome, bool expected)
{
    if (outcome != expected)
        throw std::runtime_error("the pictures were judged wrongly");
}

/// Measures a comparison of two images against a reference over the same buffers. `ratio` says how much
/// longer the comparison takes, `speedup` the reverse.
void Measure(benchmark::State& state, const Side& left, const Side& right, bool areEqual,
             bool (*reference)(const Side&, const Side&))
{
    const auto document = OrvDoc::Document::CreateNew();
    const std::unique_ptr<OrvDoc::Image> leftImage = MakeImage(*document, left);
    const std::unique_ptr<OrvDoc::Image> rightImage = MakeImage(*document, right);
    Comparators::Options options{};
    options.compareImageData = true;
    options.softMaskAsChannel = true;
    const auto compare = [&] {
        NoReporter reporter;
        Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*leftImage), *rightImage,
                             options);
        // Ranges that differ are part of the mapping, but do not make pictures differ.
        RequireOutcome(reporter.reports == 0, areEqual);
    };
    Pair best;
    for (auto _ : state)
        best = MeasureInTurn(15, compare, [&] { RequireOutcome(reference(left, right), areEqual); });
    const double samples = static_cast<double>(side * side * left.buffer->channels);
    state.counters["ns_per_sample"] = best.ours / samples * 1e9;
    state.counters["reference_ns"] = best.reference / samples * 1e9;
    state.counters["ratio"] = best.Ratio();
    state.counters["speedup"] = 1.0 / best.Ratio();
}

void EqualBytes(benchmark::State& state)
{
    Measure(state, {MakeBuffer(4, 8, As8Bits)}, {MakeBuffer(4, 8, As8Bits)}, true, CompareByMemory);
}

void BytesThatDifferAtTheEnd(benchmark::State& state)
{
    Measure(state, {MakeBuffer(4, 8, As8Bits)}, {MakeBuffer(4, 8, As8Bits, true)}, false, CompareByMemory);
}

/// Samples of 8 bits on the left and inverted ones on the right.
void Inverted(benchmark::State& state)
{
    const auto channels = static_cast<std::size_t>(state.range(0));
    const bool areEqual = state.range(1) != 0;
    const auto invert = [](unsigned sample) { return 255 - As8Bits(sample); };
    Measure(state, {MakeBuffer(channels, 8, As8Bits)}, {MakeBuffer(channels, 8, invert, !areEqual), inverted},
            areEqual, CompareByTheLoop);
}

void InvertedOf16Bits(benchmark::State& state)
{
    const auto channels = static_cast<std::size_t>(state.range(0));
    const bool areEqual = state.range(1) != 0;
    const auto invert = [](unsigned sample) { return 65535 - sample; };
    Measure(state, {MakeBuffer(channels, 16, As16Bits)},
            {MakeBuffer(channels, 16, invert, !areEqual), inverted}, areEqual, CompareByTheLoop);
}

void Of8And16Bits(benchmark::State& state)
{
    const bool areEqual = state.range(0) != 0;
    const auto widen = [](unsigned sample) { return As8Bits(sample) * 257; };
    Measure(state, {MakeBuffer(3, 8, As8Bits)}, {MakeBuffer(3, 16, widen, !areEqual)}, areEqual,
            CompareByTheLoop);
}

void Weighed(benchmark::State& state)
{
    const bool areEqual = state.range(0) != 0;
    Measure(state, {MakeBuffer(3, 8, As8Bits), identity, MakeBuffer(1, 8, As8Bits)},
            {MakeBuffer(3, 8, As8Bits, !areEqual), identity, MakeBuffer(1, 8, As8Bits)}, areEqual,
            CompareByTheLoop);
}

BENCHMARK(EqualBytes)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BytesThatDifferAtTheEnd)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Inverted)
    ->ArgNames({"channels", "equal"})
    ->Args({1, 1})
    ->Args({1, 0})
    ->Args({4, 1})
    ->Args({4, 0})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(InvertedOf16Bits)
    ->ArgNames({"channels", "equal"})
    ->Args({1, 1})
    ->Args({3, 1})
    ->Args({3, 0})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Of8And16Bits)->ArgName("equal")->Arg(1)->Arg(0)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(Weighed)->ArgName("equal")->Arg(1)->Arg(0)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
