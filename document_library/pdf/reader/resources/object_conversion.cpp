#include "pdf/reader/resources/object_conversion.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "pdf/limit_text.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/file/stream_data.h"
#include "pdf/reader/resources/definition_limits.h"
#include "pdf/reader/resources/resource_guard.h"

namespace OrvPdf
{

namespace
{

// A DeviceN space with a large calculator function has some thousand parts.
constexpr std::size_t MostNodes = 250'000;
// Real documents define some hundred resources; hostile ones define one large object under many names.
constexpr std::uint64_t MostNodesOfDocument = 20'000'000;
constexpr std::uint64_t LargestKeptStreams = std::uint64_t{64} << 20;

struct ConversionFailure : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

} // namespace

OrvSys::PdfObject ObjectConverter::Convert(QPDFObjectHandle object, std::string& problem)
{
    Run run;
    OrvSys::PdfObject converted;
    GuardLookUp(problem, [&] { converted = ConvertNode(object, run); });
    return converted;
}

OrvSys::PdfObject ObjectConverter::ConvertNode(QPDFObjectHandle object, Run& run)
{
    if (!object.isInitialized())
        return {};
    if (++run.nodes > MostNodes)
        throw ConversionFailure("the object has more than " + std::to_string(MostNodes) + " parts");
    if (++allNodes > MostNodesOfDocument)
        throw ConversionFailure("the document's resources have more than " +
                                std::to_string(MostNodesOfDocument) + " parts");
    if (!object.isIndirect())
        return ConvertValue(object, run);

    const QPDFObjGen number = object.getObjGen();
    for (const Finished* known : {&run.finished, &streams}) {
        const auto found = known->find(number);
        if (found != known->end())
            return found->second;
    }
    if (!run.open.insert(number).second)
        throw ConversionFailure(DescribeObject(object) + " refers to itself");
    OrvSys::PdfObject converted = ConvertValue(object, run);
    run.open.erase(number);
    run.finished.emplace(number, converted);
    if (converted.IsStream()) {
        streamBytes += converted.GetRawBytes().size();
        if (streamBytes <= LargestKeptStreams)
            streams.emplace(number, converted);
    }
    return converted;
}

OrvSys::PdfObject ObjectConverter::ConvertValue(QPDFObjectHandle object, Run& run)
{
    using OrvSys::PdfObject;
    if (object.isBool())
        return PdfObject::Boolean(object.getBoolValue());
    if (object.isInteger())
        return PdfObject::Integer(object.getIntValue());
    if (object.isReal())
        return PdfObject::Real(object.getRealValue());
    if (object.isString())
        return PdfObject::String(object.getStringValue());
    if (object.isName())
        return PdfObject::Name(WithoutSlash(object.getName()));
    if (!object.isArray() && !object.isDictionary() && !object.isStream())
        return {};

    // The maker of values refuses depth as well, but only on the way back.
    const std::size_t deepest =
        std::min<std::size_t>(PdfObject::MaxDepth, file.GetOptions().limits.objectNesting);
    if (run.depth >= deepest)
        throw ConversionFailure(LimitText("objectNesting", deepest));
    const std::string limit = FindDefinitionLimit(object, run.functions, file.GetOptions().limits);
    if (!limit.empty())
        throw ConversionFailure(limit);
    const bool isFunction = IsFunction(object);
    ++run.depth;
    run.functions += isFunction ? 1 : 0;
    const PdfObject converted = ConvertContainer(object, run);
    run.functions -= isFunction ? 1 : 0;
    --run.depth;
    return converted;
}

OrvSys::PdfObject ObjectConverter::ConvertContainer(QPDFObjectHandle object, Run& run)
{
    if (!object.isArray())
        return object.isStream() ? ConvertStream(object, run) : ConvertDictionary(object, run);
    OrvSys::PdfObject::Items items;
    for (QPDFObjectHandle item : object.getArrayAsVector())
        items.push_back(ConvertNode(item, run));
    return OrvSys::PdfObject::Array(std::move(items));
}

OrvSys::PdfObject ObjectConverter::ConvertDictionary(QPDFObjectHandle dictionary, Run& run)
{
    OrvSys::PdfObject::Entries entries;
    for (const auto& [key, value] : dictionary.getDictAsMap())
        entries.emplace(WithoutSlash(key), ConvertNode(value, run));
    return OrvSys::PdfObject::Dictionary(std::move(entries));
}

OrvSys::PdfObject ObjectConverter::ConvertStream(QPDFObjectHandle stream, Run& run)
{
    const std::uint64_t largest = file.GetOptions().limits.resourceBytes;
    const EncodedStream encoded = FetchStream(stream);
    if (!encoded.raw)
        throw ConversionFailure(DescribeObject(stream) + ": " + encoded.problem);
    const DecodedStream decoded = DecodeStream(file, encoded, {largest, "resourceBytes", largest});
    if (decoded.isDecoded && !decoded.problem.empty())
        file.Tell(DescribeObject(stream) + ": " + decoded.problem);
    if (decoded.isDecoded && GetEntry(stream, "/FunctionType").isInteger() &&
        GetEntry(stream, "/FunctionType").getIntValue() == 4) {
        const std::string limit = FindCalculatorLimit(decoded.bytes.View(), file.GetOptions().limits);
        if (!limit.empty())
            throw ConversionFailure(limit);
    }

    OrvSys::PdfObject::Entries entries;
    for (const auto& [key, value] : stream.getDict().getDictAsMap()) {
        const bool isEncoding = key == "/Filter" || key == "/DecodeParms" || key == "/DL";
        if (key != "/Length" && !(decoded.isDecoded && isEncoding))
            entries.emplace(WithoutSlash(key), ConvertNode(value, run));
    }
    return OrvSys::PdfObject::Stream(OrvSys::PdfObject::Dictionary(std::move(entries)),
                                     std::string(decoded.isDecoded ? decoded.bytes.View() : encoded.View()));
}

} // namespace OrvPdf
