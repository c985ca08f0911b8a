#include "pdf/reader/file/filter_stage.h"

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>

#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>

#include "pdf/reader/file/predictor.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/run_length_data.h"

namespace OrvPdf
{

namespace
{

constexpr std::array<const char*, 5> ByteFilters = {"ASCIIHexDecode", "ASCII85Decode", "LZWDecode",
                                                    "FlateDecode", "RunLengthDecode"};

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
    if (stage.name != "LZWDecode")
        return QPDFObjectHandle::newNull();
    QPDFObjectHandle parameters = QPDFObjectHandle::newDictionary();
    parameters.replaceKey("/EarlyChange", QPDFObjectHandle::newInteger(stage.earlyChange == 0 ? 0 : 1));
    return parameters;
}

DecodingResult DecodeWithQpdf(const FilterStage& stage, std::string_view encoded, std::uint64_t byteLimit)
{
    DecodingResult result;
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
        stream.replaceStreamData(buffer, QPDFObjectHandle::newName("/" + stage.name), MakeParameters(stage));
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

/// Leaves the predictor alone.
DecodingResult Decode(const FilterStage& stage, std::string_view encoded, std::uint64_t byteLimit,
                      std::uint64_t expectedBytes)
{
    if (stage.name == "FlateDecode")
        return Inflate(encoded, byteLimit, expectedBytes);
    if (stage.name == "RunLengthDecode")
        return DecodeRunLengths(encoded, byteLimit);
    if (IsText(stage) && encoded.find('\0') != std::string_view::npos)
        return DecodeWithQpdf(stage, WithBlanksForZeros(encoded), byteLimit);
    return DecodeWithQpdf(stage, encoded, byteLimit);
}

} // namespace

bool CanDecode(const FilterStage& stage)
{
    return std::find(ByteFilters.begin(), ByteFilters.end(), stage.name) != ByteFilters.end();
}

DecodingResult ApplyFilter(const FilterStage& stage, std::string_view encoded, std::uint64_t byteLimit,
                           std::uint64_t expectedBytes)
{
    if (!HasPredictor(stage))
        return Decode(stage, encoded, byteLimit, expectedBytes);
    if (!IsReasonablePredictor(stage)) {
        DecodingResult refused;
        refused.problem = "the parameters of " + stage.name + " are out of range: Predictor " +
                          std::to_string(stage.predictor) + ", Columns " + std::to_string(stage.columns) +
                          ", Colors " + std::to_string(stage.colors) + ", BitsPerComponent " +
                          std::to_string(stage.bitsPerComponent);
        return refused;
    }
    const std::uint64_t expected = expectedBytes > 0 ? CountPredictedBytes(stage, expectedBytes) : 0;
    DecodingResult result = Decode(stage, encoded, CountPredictedBytes(stage, byteLimit), expected);
    UndoPredictor(stage, result, byteLimit);
    return result;
}

} // namespace OrvPdf
