#include "pdf/reader/file/stream_data.h"

#include <algorithm>
#include <array>
#include <utility>

#include "pdf/limit_text.h"
#include "pdf/reader/file/filter_stage.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/source_file.h"

namespace OrvPdf
{

namespace
{

// Real streams have at most three.
constexpr std::size_t MostFilters = 16;

constexpr std::array<std::pair<const char*, const char*>, 7> Abbreviations = {{{"AHx", "ASCIIHexDecode"},
                                                                               {"A85", "ASCII85Decode"},
                                                                               {"LZW", "LZWDecode"},
                                                                               {"Fl", "FlateDecode"},
                                                                               {"RL", "RunLengthDecode"},
                                                                               {"CCF", "CCITTFaxDecode"},
                                                                               {"DCT", "DCTDecode"}}};

void ReadParameter(QPDFObjectHandle parameters, const char* key, long long& value)
{
    QPDFObjectHandle number = GetEntry(parameters, key);
    if (number.isInteger())
        value = number.getIntValue();
}

void ReadParameter(QPDFObjectHandle parameters, const char* key, bool& value)
{
    QPDFObjectHandle boolean = GetEntry(parameters, key);
    if (boolean.isBool())
        value = boolean.getBoolValue();
}

void ReadFaxParameters(QPDFObjectHandle parameters, FaxParameters& fax)
{
    ReadParameter(parameters, "/K", fax.k);
    ReadParameter(parameters, "/EndOfLine", fax.endOfLine);
    ReadParameter(parameters, "/EncodedByteAlign", fax.encodedByteAlign);
    ReadParameter(parameters, "/Columns", fax.columns);
    ReadParameter(parameters, "/Rows", fax.rows);
    ReadParameter(parameters, "/EndOfBlock", fax.endOfBlock);
    ReadParameter(parameters, "/BlackIs1", fax.blackIs1);
    ReadParameter(parameters, "/DamagedRowsBeforeError", fax.damagedRowsBeforeError);
}

FilterStage ReadStage(QPDFObjectHandle name, QPDFObjectHandle parameters)
{
    FilterStage stage;
    stage.name = ExpandFilterName(GetNameText(name));
    if (!parameters.isDictionary())
        return stage;
    ReadFaxParameters(parameters, stage.fax);
    ReadParameter(parameters, "/ColorTransform", stage.colorTransform);
    ReadParameter(parameters, "/Predictor", stage.predictor);
    ReadParameter(parameters, "/Colors", stage.colors);
    ReadParameter(parameters, "/BitsPerComponent", stage.bitsPerComponent);
    ReadParameter(parameters, "/Columns", stage.columns);
    ReadParameter(parameters, "/EarlyChange", stage.earlyChange);
    return stage;
}

void AddProblem(std::string& text, const std::string& more)
{
    if (!more.empty())
        text += (text.empty() ? "" : "; ") + more;
}

} // namespace

std::string ExpandFilterName(const std::string& name)
{
    for (const auto& [abbreviation, full] : Abbreviations) {
        if (name == abbreviation)
            return full;
    }
    return name;
}

std::string ReadFilterStages(QPDFObjectHandle dictionary, std::vector<FilterStage>& stages)
{
    QPDFObjectHandle filters = dictionary.getKey("/Filter");
    QPDFObjectHandle parameters = dictionary.getKey("/DecodeParms");
    if (filters.isNull())
        return {};
    if (filters.isName()) {
        if (parameters.isArray() && parameters.getArrayNItems() > 0)
            parameters = parameters.getArrayItem(0);
        stages.push_back(ReadStage(filters, parameters));
        return {};
    }
    if (!filters.isArray())
        return "Filter is neither a name nor an array";
    const int count = filters.getArrayNItems();
    if (static_cast<std::size_t>(count) > MostFilters)
        return "Filter has " + std::to_string(count) + " entries, more than " + std::to_string(MostFilters);
    for (int index = 0; index < count; ++index) {
        QPDFObjectHandle own = QPDFObjectHandle::newNull();
        if (parameters.isArray() && index < parameters.getArrayNItems())
            own = parameters.getArrayItem(index);
        else if (parameters.isDictionary() && count == 1)
            own = parameters;
        stages.push_back(ReadStage(filters.getArrayItem(index), own));
        if (stages.back().name.empty())
            return "entry " + std::to_string(index + 1) + " of Filter is no name";
    }
    return {};
}

std::string_view EncodedStream::View() const
{
    return raw ? std::string_view(reinterpret_cast<const char*>(raw->getBuffer()), raw->getSize())
               : std::string_view();
}

EncodedStream FetchStream(QPDFObjectHandle stream)
{
    EncodedStream encoded;
    try {
        QPDFObjectHandle dictionary = stream.getDict();
        if (!dictionary.getKey("/F").isNull()) {
            encoded.problem = "the data lies in another file";
            return encoded;
        }
        encoded.problem = ReadFilterStages(dictionary, encoded.stages);
        if (encoded.problem.empty())
            encoded.raw = stream.getRawStreamData();
    } catch (const QPDFExc& problem) {
        encoded.problem = "the data cannot be read: " + DescribeProblem(problem);
    } catch (const std::exception& problem) {
        encoded.problem = std::string("the data cannot be read: ") + problem.what();
    }
    return encoded;
}

DecodedStream DecodeStream(const SourceFile& file, const EncodedStream& encoded, const ByteLimit& limit,
                           std::uint64_t expectedBytes)
{
    const std::uint64_t left = file.GetDecodedBytesLeft();
    const std::uint64_t largest = std::min(limit.bytes, left);
    const ByteLimit told =
        left < limit.bytes ? ByteLimit{left, "documentBytes", file.GetOptions().limits.documentBytes} : limit;

    DecodedStream decoded;
    if (!encoded.raw) {
        decoded.problem = encoded.problem;
        decoded.isDecoded = false;
        return decoded;
    }
    std::string_view input = encoded.View();
    bool reachedLimit = false;
    for (const FilterStage& stage : encoded.stages) {
        // What reaches one stage is what another made of the file's bytes.
        if (stage.name == "Crypt")
            continue;
        DecodingResult result;
        if (!CanDecode(stage)) {
            AddProblem(decoded.problem, "the filter " + stage.name + " gives no bytes that can be read here");
            decoded.isDecoded = false;
            decoded.bytes = DecodedBytes();
            return decoded;
        }
        result = ApplyFilter(stage, input, largest, expectedBytes);
        AddProblem(decoded.problem, result.problem);
        reachedLimit = reachedLimit || result.reachedLimit;
        decoded.bytes = std::move(result.bytes);
        file.CountDecodedBytes(decoded.bytes.GetSize());
        input = decoded.bytes.View();
    }
    if (input.data() != decoded.bytes.View().data()) {
        reachedLimit = input.size() > largest;
        decoded.bytes.Append(
            input.substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(input.size(), largest))));
        file.CountDecodedBytes(decoded.bytes.GetSize());
    }
    if (reachedLimit) {
        AddProblem(decoded.problem,
                   LimitText(told.name, told.value, "the decoded data is cut off at that many bytes"));
    }
    return decoded;
}

} // namespace OrvPdf
