#include "pdf/reader/filter_stage.h"

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>

#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>

#include "pdf/reader/qpdf_text.h"
#include "pdf/reader/run_length_data.h"

namespace OrvPdf
{

namespace
{

constexpr std::array<const char*, 5> ByteFilters = {"ASCIIHexDecode", "ASCII85Decode", "LZWDecode",
                                                    "FlateDecode", "RunLengthDecode"};

// A row of four million pixels in four channels of 16 bits; two of them are held.
constexpr long long LargestRow = 32 << 20;

struct LimitReached : std::runtime_error
{
    LimitReached() : std::runtime_error("limit reached") {}
};

/// Takes bytes up to a limit and stops the decoder there.
class CappedSink : public Pipeline
{
public:
    CappedSink(DecodedBytes& target, std::uint64_t limit)
        : Pipeline("decoded", nullptr), bytes(target), left(limit)
    {}

    void write(unsigned char const* data, size_t length) override
    {
        const std::size_t taken = static_cast<std::size_t>(std::min<std::uint64_t>(length, left));
        bytes.Append({reinterpret_cast<const char*>(data), taken});
        left -= taken;
        if (taken < length)
            throw LimitReached();
    }

    void finish() override {}

private:
    DecodedBytes& bytes;
    std::uint64_t left;
};

/// The parameters of other filters say nothing, whatever stands in them.
bool HasPredictor(const FilterStage& stage)
{
    return stage.predictor > 1 && (stage.name == "FlateDecode" || stage.name == "LZWDecode");
}

bool IsReasonable(const FilterStage& stage)
{
    if (!HasPredictor(stage))
        return true;
    // Data that no decoder is made for would come out as it stands in the file.
    const bool isKnown = stage.predictor == 2 || (stage.predictor >= 10 && stage.predictor <= 15);
    const auto isBetween = [](long long value, long long largest) { return value >= 1 && value <= largest; };
    if (!isKnown || !isBetween(stage.columns, LargestRow) || !isBetween(stage.colors, LargestRow) ||
        !isBetween(stage.bitsPerComponent, 32))
        return false;
    // Each factor is small enough for the product of all three to fit.
    return stage.columns * stage.colors <= LargestRow &&
           stage.columns * stage.colors * stage.bitsPerComponent / 8 <= LargestRow;
}

bool IsText(const FilterStage& stage)
{
    return stage.name == "ASCIIHexDecode" || stage.name == "ASCII85Decode";
}

/// A zero is white space (ISO 32000-1, 7.2.2), but none that the decoders of text know.
std::string WithBlanksForZeros(std::string_view encoded)
{
    std::string text(encoded);
    std::replace(text.begin(), text.end(), '\0', ' ');
    return text;
}

QPDFObjectHandle MakeParameters(const FilterStage& stage)
{
    QPDFObjectHandle parameters = QPDFObjectHandle::newDictionary();
    const auto set = [&parameters](const char* key, long long value) {
        parameters.replaceKey(key, QPDFObjectHandle::newInteger(value));
    };
    if (stage.name == "LZWDecode")
        set("/EarlyChange", stage.earlyChange == 0 ? 0 : 1);
    if (HasPredictor(stage)) {
        set("/Predictor", stage.predictor);
        set("/Columns", stage.columns);
        set("/Colors", stage.colors);
        set("/BitsPerComponent", stage.bitsPerComponent);
    }
    return parameters;
}

} // namespace

bool CanDecode(const FilterStage& stage)
{
    return std::find(ByteFilters.begin(), ByteFilters.end(), stage.name) != ByteFilters.end();
}

DecodingResult ApplyFilter(const FilterStage& stage, std::string_view encoded, std::uint64_t byteLimit)
{
    DecodingResult result;
    if (!IsReasonable(stage)) {
        result.problem = "the parameters of " + stage.name + " are out of range: Predictor " +
                         std::to_string(stage.predictor) + ", Columns " + std::to_string(stage.columns) +
                         ", Colors " + std::to_string(stage.colors) + ", BitsPerComponent " +
                         std::to_string(stage.bitsPerComponent);
        return result;
    }
    if (stage.name == "RunLengthDecode")
        return DecodeRunLengths(encoded, byteLimit);
    std::string text;
    if (IsText(stage) && encoded.find('\0') != std::string_view::npos) {
        text = WithBlanksForZeros(encoded);
        encoded = text;
    }
    // The decoders are at hand only through a stream with a filter. It lives in a file of its own, since
    // nothing may be added to the one that is read.
    QPDF workshop;
    workshop.setSuppressWarnings(true);
    workshop.emptyPDF();
    CappedSink sink(result.bytes, byteLimit);
    try {
        QPDFObjectHandle stream = workshop.newStream();
        auto buffer = std::make_shared<Buffer>(
            reinterpret_cast<unsigned char*>(const_cast<char*>(encoded.data())), encoded.size());
        const bool hasParameters = HasPredictor(stage) || stage.name == "LZWDecode";
        stream.replaceStreamData(buffer, QPDFObjectHandle::newName("/" + stage.name),
                                 hasParameters ? MakeParameters(stage) : QPDFObjectHandle::newNull());
        bool isFiltered = false;
        if (!stream.pipeStreamData(&sink, &isFiltered, 0, qpdf_dl_specialized, false, false) || !isFiltered) {
            if (!isFiltered)
                result.bytes = DecodedBytes();
            result.problem = "the data cannot be decoded with " + stage.name;
        }
    } catch (const LimitReached&) {
        result.reachedLimit = true;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const QPDFExc& problem) {
        result.problem = "the data of " + stage.name + " is damaged: " + problem.getMessageDetail();
    } catch (const std::exception& problem) {
        result.problem = "the data of " + stage.name + " is damaged: " + problem.what();
    }
    for (const QPDFExc& warning : workshop.getWarnings()) {
        if (result.problem.empty())
            result.problem = "the data of " + stage.name + " is damaged: " + warning.getMessageDetail();
    }
    return result;
}

} // namespace OrvPdf
