// The trip of the first page, in this order: a copy of the content is put aside in the scratch document, the
// document goes through the write path, the new errors are gathered, and the copy is compared with what came
// back. The copy must be a clone: a comparison of the document with itself, or with parts that it shares,
// would not see what the write path changed in place.

#include <harrow_support/round_trip.h>

#include <map>
#include <utility>

#include <boost/filesystem/path.hpp>
#include <boost/optional.hpp>

#include <orv_doc/clone.h>
#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>
#include <orv_doc/pdf_links.h>
#include <orv_doc/scratch_document.h>
#include <orv_doc/separation.h>
#include <orv_doc/transfer_function_set.h>

#include "round_trip/new_errors.h"
#include "round_trip/round_trip_tester.h"
#include "round_trip/temporary_file.h"

namespace HarrowSupport
{

namespace
{

OrvDoc::Page& FirstPage(OrvDoc::Document& document)
{
    return *document.GetPagesBegin();
}

OrvDoc::Content& FirstContent(OrvDoc::Document& document)
{
    return FirstPage(document).GetContent();
}

/// What a document was before its trip.
struct StateBefore
{
    explicit StateBefore(OrvDoc::Document& document);

    OrvDoc::Content& scratchContent;
    std::vector<OrvDoc::Separation::Entry> separationInfo;
    ErrorList documentErrors;
    ErrorList contentErrors;
};

/// Copies the content of the first page to the scratch document, which does not go with the document.
OrvDoc::Content& CopyFirstContentAside(OrvDoc::Document& document)
{
    OrvDoc::Document& scratchDocument = OrvDoc::GetScratchDocument();
    OrvDoc::Content& scratchContent = FirstContent(scratchDocument);
    {
        OrvDoc::CloneStrategy strategy(scratchDocument, OrvDoc::CloneStrategy::CloneFlags::Full);
        OrvDoc::CloneContent(FirstContent(document), scratchContent, strategy);
    }
    scratchContent.SetBlendColorSpace(FirstContent(document).GetBlendColorSpace());
    FirstPage(scratchDocument).SetTransferFunctionSet(FirstContent(document).GetTransferFunctionSet());
    return scratchContent;
}

StateBefore::StateBefore(OrvDoc::Document& document)
    : scratchContent(CopyFirstContentAside(document)),
      separationInfo(document.GetSeparationInfo()),
      documentErrors(Sorted(document.GetActiveErrors().GetAllErrors())),
      contentErrors(Sorted(FirstContent(document).GetActiveErrors().GetAllErrors()))
{}

void TakeNewErrors(OrvDoc::Document& document, const StateBefore& before, RoundTripResult& result)
{
    result.documentErrors = NewErrors(document.GetActiveErrors().GetAllErrors(), before.documentErrors);
    result.contentErrors =
        NewErrors(FirstContent(document).GetActiveErrors().GetAllErrors(), before.contentErrors);
}

void ResolveLinks(OrvDoc::Document& document)
{
    if (document.GetInfoFlag(OrvDoc::DocumentInfoFlagKey::NormalizedPDFLinks))
        OrvDoc::ResolveNormalizedPDFLinks(document, std::map<std::string, boost::filesystem::path>());
}

void Empty(OrvDoc::Content& content)
{
    while (content.GetChildren().first)
        delete content.GetChildren().first->ExtractFromParent();
}

/// Compares what was with what came back. Only a comparison that comes to its end empties the scratch
/// content: what is left of one that threw can be looked at.
std::vector<Difference> CompareWithStateBefore(const StateBefore& before, OrvDoc::Document& document,
                                               const Comparators::Options& options)
{
    RoundTripTester tester;
    if (options.compareSeparationInfo)
        Comparators::Compare(tester, before.separationInfo, document.GetSeparationInfo(), options);
    Comparators::Compare(tester, before.scratchContent, FirstContent(document), options);
    Empty(before.scratchContent);
    return std::move(tester.differences);
}

} // namespace

RoundTripResult TestRoundTripStructure(std::unique_ptr<OrvDoc::Document>& document,
                                       const Comparators::Options& options)
{
    boost::filesystem::path path = MakeTemporaryPath("Harrow-RoundTripTester-%%%%-%%%%-%%%%-%%%%.pdf");
    const StateBefore before(*document);
    RoundTripResult result;
    document->Save(path, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    TakeNewErrors(*document, before, result);
    document.reset();
    document = OrvDoc::Document::Create(path, OrvDoc::ReadOptions());
    GiveFileToDocument(std::move(path), *document);
    ResolveLinks(*document);
    result.differences = CompareWithStateBefore(before, *document, options);
    return result;
}

RoundTripResult TestRoundTripStructure(OrvDoc::Document& document, const Comparators::Options& options)
{
    const StateBefore before(document);
    RoundTripResult result;
    document.Flush();
    ResolveLinks(document);
    TakeNewErrors(document, before, result);
    result.differences = CompareWithStateBefore(before, document, options);
    return result;
}

} // namespace HarrowSupport
