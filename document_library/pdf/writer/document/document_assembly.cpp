#include "pdf/writer/document/document_assembly.h"

#include <algorithm>
#include <iterator>

#include <qpdf/QPDF.hh>

#include <orv_doc/document.h>
#include <orv_doc/page_content.h>

#include "pdf/reader/document/pdf_document_source.h"
#include "pdf/writer/content/separation_spaces.h"
#include "pdf/writer/document/layer_objects.h"
#include "pdf/writer/document/layers_writer.h"
#include "pdf/writer/document/links_writer.h"
#include "pdf/writer/document/output_intent_writer.h"
#include "pdf/writer/document/page_tree_writer.h"
#include "pdf/writer/document/page_writer.h"
#include "pdf/writer/document/separation_info_writer.h"
#include "pdf/writer/file/name_escapes.h"
#include "pdf/writer/file/object_walk.h"
#include "pdf/writer/file/source_streams.h"
#include "pdf/writer/file/trailer_mending.h"
#include "pdf/writer/fonts/fonts_writer.h"
#include "pdf/writer/pictures/pictures_writer.h"
#include "pdf/writer/resources/nested_writer.h"
#include "pdf/writer/resources/resources_writer.h"

namespace OrvPdf
{

namespace
{

std::unique_ptr<QPDF> OpenTarget(const PdfDocumentSource* source)
{
    if (source) {
        return source->GetFile().OpenAgain();
    }
    auto file = std::make_unique<QPDF>();
    file->setSuppressWarnings(true);
    file->emptyPDF();
    return file;
}

/// The separations that the pages of the file name, whether the document lists them or not.
std::vector<std::string> FindNamedSeparations(const ResourcesWriter& resources,
                                              const PdfDocumentSource* source)
{
    std::vector<std::string> names = resources.GetNamedSeparations();
    if (source) {
        for (const OrvDoc::Separation::Entry& entry : source->ReadSeparations()) {
            names.push_back(entry.GetName());
        }
    }
    return names;
}

/// Whether the data were encoded elsewhere, as those of inline images: what is made here has one filter.
bool HasForeignFilter(QPDFObjectHandle stream)
{
    QPDFObjectHandle filter = stream.getDict().getKey("/Filter");
    return !filter.isNull() && !filter.isNameAndEquals("/FlateDecode");
}

/// What all objects need that are written, whoever made them.
void FinishObjects(DocumentAssembly& assembly, ObjectMaker& maker, const PdfDocumentSource* source)
{
    const bool escapesNames = LosesNumberSigns();
    std::vector<QPDFObjectHandle> streams;
    VisitObjects(*assembly.file, [&](QPDFObjectHandle& object) {
        if (escapesNames) {
            EscapeNumberSigns(object);
        }
        if (object.isStream() && (maker.IsSourceObject(object) || HasForeignFilter(object))) {
            streams.push_back(object);
        }
    });
    if (source) {
        for (std::string& text : CheckSourceStreams(std::move(streams), maker, source->GetFile())) {
            assembly.errors.push_back(std::move(text));
        }
    }
}

} // namespace

DocumentAssembly AssembleDocument(const OrvDoc::Document& document, const boost::filesystem::path& folder)
{
    const auto* const source = dynamic_cast<const PdfDocumentSource*>(document.GetSource().get());
    DocumentAssembly assembly;
    assembly.file = OpenTarget(source);
    QPDFObjectHandle catalogue = assembly.file->getRoot();
    std::vector<std::string> trailerErrors = MendTrailer(assembly.file->getTrailer());
    ObjectMaker maker(*assembly.file, source != nullptr);
    LayerObjects layers(maker, catalogue, document.GetLayers());
    SeparationSpaces separations(document.GetSeparationInfo());

    const std::vector<PageEntry> pages = FindPageObjects(document, source, maker);
    NestedWriter nested(document, maker, separations, folder);
    FontsWriter fonts(maker, source ? &source->GetFile() : nullptr);
    PicturesWriter pictures(document, maker, separations, source ? &source->GetFile() : nullptr);
    ResourcesWriter resources(maker, layers, nested, fonts, pictures);
    PageWriter pageWriter(maker, separations, resources, nested);
    auto entry = pages.begin();
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page, ++entry) {
        assembly.contentErrors.push_back(pageWriter.Write(*page, *entry));
    }
    WritePageTree(pages, catalogue, maker);
    WriteLayers(document, source, catalogue, layers);
    WriteOutputIntent(document.GetOutputIntent(), source, catalogue, maker);
    WriteSeparationInfo(document.GetSeparationInfo(), FindNamedSeparations(resources, source), catalogue,
                        maker);
    WriteResolvedLinks(document.GetNormalizedPDFLinks(), catalogue);
    assembly.errors = layers.GetProblems().GetTexts({});
    for (const std::string& text : pictures.GetProblems()) {
        assembly.errors.push_back(text);
    }
    for (std::string& text : fonts.WriteAll()) {
        assembly.errors.push_back(std::move(text));
    }
    std::move(trailerErrors.begin(), trailerErrors.end(), std::back_inserter(assembly.errors));
    FinishObjects(assembly, maker, source);
    // Layers came with 1.5, and so did object streams; transparency came with 1.4; all else that is
    // written is older, but for fonts.
    assembly.version = std::max({fonts.GetVersion(), pictures.GetVersion(),
                                 std::string(layers.GetAllGroups().empty() ? "1.4" : "1.5")});
    return assembly;
}

} // namespace OrvPdf
