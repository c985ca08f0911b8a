// Any bytes as the data of a stream. The input is a line that names the filters, and the data behind it:
//
//     f12,3,8,5 a       flate with Predictor, Colors, BitsPerComponent and Columns, and base 85 behind it
//     l1,1,8,1,0        LZW with the same and EarlyChange
//     r h c             run lengths, hexadecimal, Crypt
//     << /Filter /Fl >> the dictionary of the stream, in PDF syntax
//
// Laws, where `plain` is a second decoder that stands in library_support/plain_filters.cpp:
// - no filter gives more bytes than the limit, and one that would tells so;
// - a lower limit gives a beginning of what a higher one gives, but for the sample that is cut;
// - sound data is decoded as by the plain decoder, without a problem; flate data as by zlib;
// - less data gives a beginning of what all of it gives, but for the row or group that is cut;
// - a chain gives what its filters give one after the other;
// - any bytes come back from what an encoder makes of them, without a problem;
// - what a function or profile is decoded to is what a stream is decoded to.

#include "fuzz_target.h"
#include "library_support/plain_filters.h"
#include "library_support/small_file.h"

#include "orv_sys/stream_bytes.h"
#include "pdf/reader/file/filter_stage.h"
#include "pdf/reader/file/flate_data.h"
#include "pdf/reader/file/predictor.h"
#include "pdf/reader/file/stream_data.h"
#include "pdf/writer/file/flate_compressor.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <zlib.h>

namespace HarrowSupport::Fuzzing
{

namespace
{

using OrvPdf::DecodingResult;
using OrvPdf::FilterStage;

/// Small, so that no input takes long.
constexpr std::uint64_t byteLimit = std::uint64_t{1} << 16;
constexpr std::uint64_t lowLimit = 100;

FilterStage ReadStage(const std::string& word)
{
    constexpr std::string_view letters = "flrahc";
    constexpr const char* names[] = {"FlateDecode",   "LZWDecode",      "RunLengthDecode",
                                     "ASCII85Decode", "ASCIIHexDecode", "Crypt"};
    FilterStage stage;
    const std::size_t letter = letters.find(word[0]);
    stage.name = letter == std::string_view::npos ? word : names[letter];
    std::istringstream numbers(word.substr(1));
    char comma = ',';
    for (long long* number :
         {&stage.predictor, &stage.colors, &stage.bitsPerComponent, &stage.columns, &stage.earlyChange}) {
        long long given = 0;
        if (comma != ',' || !(numbers >> given))
            break;
        *number = given;
        if (!(numbers >> comma))
            break;
    }
    return stage;
}

std::vector<FilterStage> ReadStages(const std::string& line)
{
    std::vector<FilterStage> stages;
    std::istringstream words(line);
    constexpr std::size_t mostStages = 4;
    for (std::string word; stages.size() < mostStages && words >> word;)
        stages.push_back(ReadStage(word));
    return stages;
}

/// Whether the parameters are those that ISO 32000-1, 7.4.4.4 allows, and rows are small.
bool IsKnownPredictor(const FilterStage& stage)
{
    const long long bits = stage.bitsPerComponent;
    const bool isKind = stage.predictor == 2 || (stage.predictor >= 10 && stage.predictor <= 15);
    const bool isDepth = bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16;
    constexpr long long mostPixels = 1000;
    return isKind && isDepth && stage.colors >= 1 && stage.colors <= 32 && stage.columns >= 1 &&
           stage.columns <= mostPixels;
}

/// As far as zlib goes, byte by byte; whether it comes to the end is whether the data is sound.
PlainData InflateWithZlib(std::string_view encoded)
{
    PlainData plain;
    z_stream stream = {};
    Require(inflateInit(&stream) == Z_OK, "zlib can be started");
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(encoded.data()));
    stream.avail_in = static_cast<uInt>(encoded.size());
    int state = Z_OK;
    while (state == Z_OK && plain.bytes.size() <= byteLimit) {
        char byte = 0;
        stream.next_out = reinterpret_cast<Bytef*>(&byte);
        stream.avail_out = 1;
        state = inflate(&stream, Z_NO_FLUSH);
        if (stream.avail_out == 0)
            plain.bytes += byte;
    }
    inflateEnd(&stream);
    plain.isSound = state == Z_STREAM_END;
    return plain;
}

/// Nothing for what no plain decoder knows.
std::optional<PlainData> DecodePlainly(const FilterStage& stage, std::string_view data)
{
    PlainData plain;
    if (stage.name == "ASCIIHexDecode")
        return DecodeHexadecimal(data);
    if (stage.name == "ASCII85Decode")
        return DecodeBase85(data);
    if (stage.name == "RunLengthDecode")
        return DecodeRunLengths(data);
    if (stage.name == "FlateDecode")
        plain = InflateWithZlib(data);
    else if (stage.name == "LZWDecode" && (stage.earlyChange == 0 || stage.earlyChange == 1))
        plain = DecodeLzw(data, stage.earlyChange == 1);
    else
        return std::nullopt;
    if (!OrvPdf::HasPredictor(stage))
        return plain;
    if (!IsKnownPredictor(stage))
        return std::nullopt;
    PlainData undone = UndoPredictor(plain.bytes, stage);
    undone.isSound = undone.isSound && plain.isSound;
    return undone;
}

/// What may be other bytes, or more of them, where data is cut.
std::size_t CountCutBytes(const FilterStage& stage)
{
    return OrvPdf::HasPredictor(stage) ? GetRowBytes(stage) : 4;
}

/// How many bytes at the limit may belong to a sample whose lower bits are beyond it, so that its difference
/// to the one on its left cannot be undone.
std::size_t CountBytesOfCutSample(const FilterStage& stage)
{
    const long long bits = stage.bitsPerComponent;
    const bool endsWithByte = bits == 1 || bits == 2 || bits == 4 || bits == 8;
    return OrvPdf::HasPredictor(stage) && !endsWithByte ? static_cast<std::size_t>(bits / 8 + 1) : 0;
}

bool BeginsWith(std::string_view bytes, std::string_view beginning)
{
    return bytes.substr(0, beginning.size()) == beginning;
}

void RequireLimit(const FilterStage& stage, std::string_view data, const DecodingResult& decoded)
{
    Require(decoded.bytes.GetSize() <= byteLimit, "no filter gives more bytes than the limit");
    Require(!decoded.reachedLimit || decoded.bytes.GetSize() == byteLimit,
            "what reaches the limit goes up to it");
    const DecodingResult part = OrvPdf::ApplyFilter(stage, data, lowLimit);
    Require(part.bytes.GetSize() <= lowLimit, "no filter gives more bytes than a low limit");
    const std::size_t cut = part.reachedLimit ? CountBytesOfCutSample(stage) : 0;
    const std::size_t sound = part.bytes.GetSize() - std::min(part.bytes.GetSize(), cut);
    Require(BeginsWith(decoded.bytes.View(), part.bytes.View().substr(0, sound)),
            "a lower limit gives a beginning");
    // Damage that stands right at the limit may not be seen from before it.
    const bool isDamagedThere = decoded.bytes.GetSize() == lowLimit && !decoded.problem.empty();
    Require(isDamagedThere || part.reachedLimit == (decoded.bytes.GetSize() > lowLimit),
            "a limit that is reached is told");
}

void RequirePlainBytes(const FilterStage& stage, std::string_view data, const DecodingResult& decoded)
{
    const std::optional<PlainData> plain = DecodePlainly(stage, data);
    if (!plain || decoded.reachedLimit)
        return;
    const std::string_view bytes = decoded.bytes.View();
    if (plain->isSound) {
        Require(decoded.problem.empty(), "sound data has no problem");
        Require(bytes == plain->bytes, "sound data is decoded as by the plain decoder");
    } else if (stage.name == "FlateDecode" && !OrvPdf::HasPredictor(stage)) {
        Require(BeginsWith(bytes, plain->bytes), "no less comes out of damaged data than zlib gives");
    }
}

void RequireCutData(const FilterStage& stage, std::string_view data, const DecodingResult& decoded)
{
    const DecodingResult part = OrvPdf::ApplyFilter(stage, data.substr(0, data.size() / 2), byteLimit);
    const std::size_t common = std::min(part.bytes.GetSize(), decoded.bytes.GetSize());
    const std::size_t sound = common - std::min(common, CountCutBytes(stage));
    Require(BeginsWith(decoded.bytes.View(), part.bytes.View().substr(0, sound)),
            "less data gives a beginning of what all of it gives");
}

void RequireStage(const FilterStage& stage, std::string_view data)
{
    const DecodingResult decoded = OrvPdf::ApplyFilter(stage, data, byteLimit);
    const bool isOutOfRange =
        OrvPdf::HasPredictor(stage) && decoded.problem.find("out of range") != std::string::npos;
    if (isOutOfRange) {
        Require(decoded.bytes.GetSize() == 0, "nothing comes of parameters that are out of range");
        return;
    }
    Require(stage.name != "FlateDecode" || !decoded.problem.empty() || decoded.reachedLimit ||
                OrvPdf::Inflate(data, 2 * byteLimit).problem.empty(),
            "damage is told whatever the predictor");
    RequireLimit(stage, data, decoded);
    RequirePlainBytes(stage, data, decoded);
    RequireCutData(stage, data, decoded);
}

std::string Encode(const FilterStage& stage, std::string_view plain)
{
    if (stage.name == "ASCIIHexDecode")
        return EncodeHexadecimal(plain);
    if (stage.name == "ASCII85Decode")
        return EncodeBase85(plain);
    if (stage.name == "RunLengthDecode")
        return EncodeRunLengths(plain);
    const std::string rows = OrvPdf::HasPredictor(stage) ? ApplyPredictor(plain, stage) : std::string(plain);
    if (stage.name == "FlateDecode")
        return OrvPdf::HasPredictor(stage) ? EncodeFlate(rows) : OrvPdf::FlateCompressor().Compress(rows);
    // Long and short tables.
    const std::size_t clearInterval = plain.size() % 2 == 0 ? 10000 : plain.size() % 300 + 1;
    return EncodeLzw(rows, stage.earlyChange == 1, clearInterval);
}

void RequireRoundTrip(const FilterStage& stage, std::string_view plain)
{
    if (!OrvPdf::CanDecode(stage) || (OrvPdf::HasPredictor(stage) && !IsKnownPredictor(stage)) ||
        (stage.name == "LZWDecode" && stage.earlyChange != 0 && stage.earlyChange != 1))
        return;
    // The last row would come back filled up.
    if (OrvPdf::HasPredictor(stage))
        plain = plain.substr(0, plain.size() / GetRowBytes(stage) * GetRowBytes(stage));
    const DecodingResult decoded = OrvPdf::ApplyFilter(stage, Encode(stage, plain), byteLimit);
    Require(decoded.problem.empty(), "what an encoder makes has no problem");
    Require(decoded.bytes.View() == plain, "bytes come back from what an encoder makes of them");
}

/// What is expected saves attempts and decides nothing.
void RequireExpectation(std::string_view data)
{
    const DecodingResult decoded = OrvPdf::Inflate(data, byteLimit);
    for (const std::uint64_t expected : {std::uint64_t{1}, lowLimit, 2 * byteLimit}) {
        const DecodingResult again = OrvPdf::Inflate(data, byteLimit, expected);
        Require(again.bytes.View() == decoded.bytes.View() && again.problem == decoded.problem &&
                    again.reachedLimit == decoded.reachedLimit,
                "it does not matter how many bytes are expected");
    }
}

/// What one filter after the other gives; nothing from the first on that gives no bytes.
std::string DecodeEach(const OrvPdf::EncodedStream& encoded)
{
    std::string bytes(encoded.View());
    for (const FilterStage& stage : encoded.stages) {
        if (stage.name == "Crypt")
            continue;
        if (!OrvPdf::CanDecode(stage))
            return {};
        bytes = OrvPdf::ApplyFilter(stage, bytes, byteLimit).bytes.View();
    }
    return bytes.substr(0, byteLimit);
}

void RequireChain(const OrvPdf::EncodedStream& encoded)
{
    const OrvPdf::SourceFile& file = *GetSmallFile();
    const std::uint64_t before = file.GetDecodedBytesLeft();
    const OrvPdf::DecodedStream decoded =
        OrvPdf::DecodeStream(file, encoded, {byteLimit, "streamBytes", byteLimit});
    const std::uint64_t counted = before - file.GetDecodedBytesLeft();
    Require(decoded.bytes.GetSize() <= byteLimit, "no chain gives more bytes than the limit");
    Require(counted >= decoded.bytes.GetSize(), "decoded bytes are counted");
    Require(counted <= std::max<std::size_t>(1, encoded.stages.size()) * byteLimit,
            "no filter of a chain gives more bytes than the limit");
    Require(decoded.isDecoded || !decoded.problem.empty(), "what is not decoded is told");
    Require(decoded.isDecoded || decoded.bytes.GetSize() == 0, "nothing comes of what is not decoded");
    Require(!encoded.raw || decoded.bytes.View() == DecodeEach(encoded),
            "a chain gives what its filters give one after the other");
}

/// The small decoder of functions and profiles knows no filter but flate.
void RequireSmallStream(std::string_view data)
{
    using OrvSys::PdfObject;
    const PdfObject stream = PdfObject::Stream(
        PdfObject::Dictionary({{"Filter", PdfObject::Name("FlateDecode")}}), std::string(data));
    const auto small = OrvSys::Detail::DecodeSmallStream(stream, byteLimit);
    const DecodingResult decoded = OrvPdf::Inflate(data, byteLimit);
    Require(!small || *small == decoded.bytes.View(), "small streams are decoded like others");
    Require(small || !decoded.problem.empty() || decoded.reachedLimit || !InflateWithZlib(data).isSound,
            "what is sound is decoded as a small stream");
}

void RequireDictionary(const std::string& line, std::string_view data)
{
    QPDF workshop;
    workshop.setSuppressWarnings(true);
    workshop.emptyPDF();
    QPDFObjectHandle dictionary;
    try {
        dictionary = QPDFObjectHandle::parse(&workshop, line, "the dictionary");
    } catch (const std::exception&) {
        return;
    }
    if (!dictionary.isDictionary())
        return;
    QPDFObjectHandle stream = QPDFObjectHandle::newStream(&workshop, std::string(data));
    stream.replaceDict(dictionary);
    const OrvPdf::EncodedStream encoded = OrvPdf::FetchStream(stream);
    Require(encoded.raw || !encoded.problem.empty(), "what cannot be fetched is told");
    RequireChain(encoded);
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace HarrowSupport::Fuzzing;

    const std::string input(data, data + size);
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string line = input.substr(0, end);
    const std::string_view rest = std::string_view(input).substr(std::min(end + 1, input.size()));
    if (line.compare(0, 2, "<<") == 0) {
        RequireDictionary(line, rest);
        return 0;
    }
    OrvPdf::EncodedStream encoded;
    encoded.stages = ReadStages(line);
    encoded.raw = std::make_shared<Buffer>(rest.size());
    std::copy(rest.begin(), rest.end(), encoded.raw->getBuffer());
    RequireChain(encoded);
    if (encoded.stages.empty() || !OrvPdf::CanDecode(encoded.stages[0]))
        return 0;
    const OrvPdf::FilterStage& first = encoded.stages[0];
    RequireStage(first, rest);
    RequireRoundTrip(first, rest);
    if (first.name == "FlateDecode") {
        RequireSmallStream(rest);
        RequireExpectation(rest);
    }
    return 0;
}
