#include "pdf/writer/document/output_intent_writer.h"

#include <vector>

#include <qpdf/QPDF.hh>

#include "pdf/reader/document/output_intent_reader.h"
#include "pdf/reader/document/pdf_document_source.h"
#include "pdf/reader/file/qpdf_text.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

using OrvColor::OutputIntent;

boost::optional<OutputIntent> ReadFresh(const PdfDocumentSource& source)
{
    // What is wrong with it was told when the document was opened.
    ErrorList errors(0);
    const SourceFile::Access access(source.GetFile());
    try {
        return ReadOutputIntent(access.GetQpdf().getRoot(), source.GetFile(), errors);
    } catch (const QPDFExc&) {
        return boost::none;
    }
}

/// The place of the intent that a reader takes; the number of entries if there is none.
std::size_t FindChosen(const std::vector<QPDFObjectHandle>& intents)
{
    std::size_t chosen = intents.size();
    for (std::size_t index = 0; index < intents.size(); ++index) {
        QPDFObjectHandle intent = intents[index];
        const bool isForPrint = GetEntry(intent, "/S").isNameAndEquals("/GTS_PDFX");
        if (intent.isDictionary() && (chosen == intents.size() || isForPrint)) {
            chosen = index;
        }
        if (isForPrint) {
            break;
        }
    }
    return chosen;
}

QPDFObjectHandle MakeProfile(const OrvColor::ICCProfile& profile, ObjectMaker& maker)
{
    QPDFObjectHandle stream = maker.MakeStream(profile.GetData());
    stream.getDict().replaceKey(
        "/N", QPDFObjectHandle::newInteger(static_cast<long long>(profile.GetComponentCount())));
    return stream;
}

QPDFObjectHandle MakeIntent(const OutputIntent& intent, ObjectMaker& maker)
{
    QPDFObjectHandle dictionary = QPDFObjectHandle::newDictionary();
    dictionary.replaceKey("/Type", QPDFObjectHandle::newName("/OutputIntent"));
    dictionary.replaceKey("/S", ObjectMaker::MakeName(intent.GetSubtype()));
    const auto addText = [&dictionary](const char* key, const std::string& text) {
        if (!text.empty()) {
            dictionary.replaceKey(key, ObjectMaker::MakeText(text));
        }
    };
    addText("/OutputCondition", intent.GetOutputCondition());
    addText("/OutputConditionIdentifier", intent.GetOutputConditionIdentifier());
    addText("/RegistryName", intent.GetRegistryName());
    addText("/Info", intent.GetInfo());
    if (intent.GetDestinationProfile()) {
        dictionary.replaceKey("/DestOutputProfile", MakeProfile(*intent.GetDestinationProfile(), maker));
    }
    return maker.GetFile().makeIndirectObject(dictionary);
}

} // namespace

void WriteOutputIntent(const boost::optional<OutputIntent>& intent, const PdfDocumentSource* source,
                       QPDFObjectHandle catalogue, ObjectMaker& maker)
{
    if (intent == (source ? ReadFresh(*source) : boost::none)) {
        return;
    }
    std::vector<QPDFObjectHandle> intents;
    if (catalogue.getKey("/OutputIntents").isArray()) {
        intents = catalogue.getKey("/OutputIntents").getArrayAsVector();
    }
    const std::size_t chosen = FindChosen(intents);
    if (chosen < intents.size()) {
        intents.erase(intents.begin() + static_cast<std::ptrdiff_t>(chosen));
    }
    if (intent) {
        // In front of the others, of which one may be read instead otherwise.
        intents.insert(intents.begin(), MakeIntent(*intent, maker));
    }
    if (intents.empty()) {
        catalogue.removeKey("/OutputIntents");
    } else {
        catalogue.replaceKey("/OutputIntents", QPDFObjectHandle::newArray(intents));
    }
}

} // namespace OrvPdf
