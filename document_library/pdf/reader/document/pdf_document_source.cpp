#include "pdf/reader/document/pdf_document_source.h"

#include <stdexcept>
#include <string>
#include <utility>

#include <qpdf/QPDF.hh>

#include <orv_doc/document.h>
#include <orv_doc/errors.h>

#include "pdf/reader/document/layers_reader.h"
#include "pdf/reader/document/links_reader.h"
#include "pdf/reader/document/output_intent_reader.h"
#include "pdf/reader/document/page_source.h"
#include "pdf/reader/document/page_tree.h"
#include "pdf/reader/document/separation_reader.h"
#include "pdf/reader/file/file_reading.h"
#include "pdf/reader/resources/resource_guard.h"

namespace OrvPdf
{

namespace
{

// Runs a part of the reading; what it throws for what the file holds becomes an error about `part`.
template <typename Function>
void ReadPart(const char* part, ErrorList& errors, Function function)
{
    std::string problem;
    if (!GuardLookUp(problem, function))
        errors.Add(std::string(part) + " cannot be read: " + problem);
}

// A problem with the file's structure ends up here if nothing can be read past it.
std::string FindFatalProblem(QPDF& file)
{
    std::string problem;
    bool hasPages = false;
    if (!GuardLookUp(problem, [&] { hasPages = HasPages(file); }))
        return "the file is damaged beyond repair: " + problem;
    return hasPages ? std::string() : "the document has no pages: the catalogue's Pages is no dictionary";
}

} // namespace

PdfDocumentSource::PdfDocumentSource(std::shared_ptr<const SourceFile> givenFile)
    : file(std::move(givenFile)), resources(std::make_shared<DocumentResources>(file))
{
    const SourceFile::Access access(*file);
    const std::string problem = FindFatalProblem(access.GetQpdf());
    if (!problem.empty())
        throw std::runtime_error(file->GetPath().string() + ": " + problem);
}

void PdfDocumentSource::ReadStructure(OrvDoc::Document& document) const
{
    FileReading reading(*file, "the document");
    const SourceFile::Access access(*file);
    resources->SetDocument(document);
    ErrorList errors(file->GetOptions().limits.errors);
    errors.Add(file->GetOpeningProblems());
    QPDFObjectHandle catalogue = access.GetQpdf().getRoot();

    ReadPart("OutputIntents", errors,
             [&] { document.SetOutputIntent(ReadOutputIntent(catalogue, *file, errors)); });
    ReadPart("OCProperties", errors,
             [&] { ReadLayers(catalogue, *resources, document.GetLayers(), errors); });
    ReadPart("OrvLinks", errors, [&] {
        document.GetNormalizedPDFLinks() = ReadNormalizedLinks(catalogue, errors);
        document.SetInfoFlag(OrvDoc::DocumentInfoFlagKey::NormalizedPDFLinks,
                             !document.GetNormalizedPDFLinks().empty());
    });
    document.SetInfoFlag(OrvDoc::DocumentInfoFlagKey::Encrypted, file->IsEncrypted());
    document.SetInfoFlag(OrvDoc::DocumentInfoFlagKey::Repaired, file->WasRepaired());

    errors.Add(reading.TakeProblems());
    std::vector<std::string> texts = errors.Take();
    structureErrors = texts.size();
    for (std::string& text : texts)
        document.GetActiveErrors().Add(std::move(text), OrvDoc::Errors::Origin::Reading);
}

OrvDoc::Detail::PageTree PdfDocumentSource::ReadPageTree() const
{
    FileReading reading(*file, "the page tree");
    const SourceFile::Access access(*file);
    ErrorList errors(file->GetOptions().limits.errors, structureErrors);
    OrvDoc::Detail::PageTree tree;
    ReadPart("the page tree", errors, [&] {
        std::vector<PageEntry> entries = ReadPageEntries(access.GetQpdf(), file->GetOptions().limits, errors);
        tree.pages.reserve(entries.size());
        for (PageEntry& entry : entries) {
            const std::uint64_t index = tree.pages.size();
            tree.pages.push_back(std::make_unique<PdfPageSource>(file, resources, std::move(entry), index));
        }
    });
    if (tree.pages.empty())
        errors.Add("the page tree has no pages");
    errors.Add(reading.TakeProblems());
    tree.errors = errors.Take();
    return tree;
}

std::vector<OrvDoc::Separation::Entry> PdfDocumentSource::ReadSeparations() const
{
    const SourceFile::Access access(*file);
    if (knownSeparations)
        return *knownSeparations;
    // Problems of the page tree and of colour spaces are told when the pages and contents are read; those of
    // objects, which are parsed once, are late ones.
    ErrorList errors(0);
    std::vector<OrvDoc::Separation::Entry> separations;
    ReadPart("the separations", errors, [&] {
        std::vector<QPDFObjectHandle> pageResources;
        for (const PageEntry& entry : ReadPageEntries(access.GetQpdf(), file->GetOptions().limits, errors))
            pageResources.push_back(entry.entries.resources);
        separations = CollectSeparations(access.GetQpdf().getRoot(), pageResources, *resources);
    });
    knownSeparations = separations;
    return separations;
}

} // namespace OrvPdf
