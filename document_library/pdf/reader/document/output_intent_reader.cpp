#include "pdf/reader/document/output_intent_reader.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "pdf/reader/file/qpdf_text.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/file/stream_data.h"

namespace OrvPdf
{

namespace
{

std::shared_ptr<const OrvColor::ICCProfile> ReadProfile(QPDFObjectHandle stream, const SourceFile& file,
                                                        ErrorList& errors)
{
    if (stream.isNull())
        return nullptr;
    const std::string name = "OutputIntents: DestOutputProfile (" + DescribeObject(stream) + "): ";
    if (!stream.isStream()) {
        errors.Add(name + "it is no stream");
        return nullptr;
    }
    const std::uint64_t limit = file.GetOptions().limits.resourceBytes;
    const DecodedStream decoded = DecodeStream(file, FetchStream(stream), {limit, "resourceBytes", limit});
    if (!decoded.problem.empty())
        errors.Add(name + decoded.problem);
    try {
        return std::make_shared<const OrvColor::ICCProfile>(std::string(decoded.bytes.View()));
    } catch (const std::invalid_argument& problem) {
        errors.Add(name + problem.what());
        return nullptr;
    }
}

} // namespace

boost::optional<OrvColor::OutputIntent> ReadOutputIntent(QPDFObjectHandle catalogue, const SourceFile& file,
                                                         ErrorList& errors)
{
    QPDFObjectHandle intents = GetEntry(catalogue, "/OutputIntents");
    if (intents.isNull())
        return boost::none;
    if (!intents.isArray()) {
        errors.Add("the catalogue's OutputIntents is no array");
        return boost::none;
    }
    QPDFObjectHandle chosen = QPDFObjectHandle::newNull();
    for (QPDFObjectHandle intent : intents.getArrayAsVector()) {
        if (!intent.isDictionary()) {
            errors.Add("OutputIntents: " + DescribeObject(intent) + " is no dictionary");
            continue;
        }
        const bool isForPrint = intent.getKey("/S").isNameAndEquals("/GTS_PDFX");
        if (chosen.isNull() || isForPrint)
            chosen = intent;
        if (isForPrint)
            break;
    }
    if (chosen.isNull())
        return boost::none;

    OrvColor::OutputIntent read;
    read.SetSubtype(GetNameText(chosen.getKey("/S")))
        .SetOutputCondition(GetTextString(chosen.getKey("/OutputCondition")))
        .SetOutputConditionIdentifier(GetTextString(chosen.getKey("/OutputConditionIdentifier")))
        .SetRegistryName(GetTextString(chosen.getKey("/RegistryName")))
        .SetInfo(GetTextString(chosen.getKey("/Info")))
        .SetDestinationProfile(ReadProfile(chosen.getKey("/DestOutputProfile"), file, errors));
    return read;
}

} // namespace OrvPdf
