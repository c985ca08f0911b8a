// Laws that hold for every document that can be made: it comes back from a file as it was, the same document
// gives the same bytes, and qpdf finds nothing wrong with them.

#include <harrow_support/comparators.h>

#include <orv_doc/clone.h>
#include <orv_doc/content.h>
#include <orv_doc/errors.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/document_laws.h"
#include "support/file_bytes.h"
#include "support/random_documents.h"
#include "support/recording_reporter.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>

namespace HarrowSupport::Testing
{
namespace
{

constexpr std::uint32_t documents = 300;

std::unique_ptr<OrvDoc::Document> Read(const boost::filesystem::path& file)
{
    return OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
}

void Write(OrvDoc::Document& document, const boost::filesystem::path& file)
{
    document.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
}

std::string AllErrors(OrvDoc::Document& document)
{
    std::string text;
    for (const auto& error : document.GetActiveErrors().GetAllErrors()) {
        text += "document: " + error->GetText() + "\n";
    }
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page) {
        for (const auto& error : page->GetContent().GetActiveErrors().GetAllErrors()) {
            text += "page " + std::to_string(page->GetPageIndex() + 1) + ": " + error->GetText() + "\n";
        }
    }
    return text;
}

// The bytes of a file but for its ID, which is made anew each time.
std::string BytesButForTheID(const std::string& file)
{
    static const std::regex id("/ID \\[<[0-9a-f]*><[0-9a-f]*>\\]");
    return std::regex_replace(FileBytes(file), id, "/ID []");
}

TEST(DocumentLaws, ADocumentComesBackFromAFileAsItWas)
{
    const TemporaryFolder folder;
    const auto file = folder.NameOf("document.pdf");
    ExpectLaw(
        [&file](const PlannedDocument& plan) {
            const auto document = MakeDocument(plan);
            Write(*document, file);
            const auto reopened = Read(file);
            return Lines(CompareLines<OrvDoc::Document>(*document, *reopened)) + AllErrors(*document) +
                   AllErrors(*reopened);
        },
        documents);
}

TEST(DocumentLaws, ASecondTripChangesNothingEither)
{
    const TemporaryFolder folder;
    ExpectLaw(
        [&folder](const PlannedDocument& plan) {
            Write(*MakeDocument(plan), folder.NameOf("first.pdf"));
            const auto first = Read(folder.NameOf("first.pdf"));
            Write(*first, folder.NameOf("second.pdf"));
            return Lines(CompareLines<OrvDoc::Document>(*first, *Read(folder.NameOf("second.pdf"))));
        },
        documents / 2);
}

TEST(DocumentLaws, TheSameDocumentGivesTheSameBytesButForTheID)
{
    const TemporaryFolder folder;
    ExpectLaw(
        [&folder](const PlannedDocument& plan) {
            const auto document = MakeDocument(plan);
            Write(*document, folder.NameOf("first.pdf"));
            Write(*document, folder.NameOf("second.pdf"));
            const auto same =
                BytesButForTheID(folder.NameOf("first.pdf")) == BytesButForTheID(folder.NameOf("second.pdf"));
            return std::string(same ? "" : "the bytes differ");
        },
        documents / 2);
}

TEST(DocumentLaws, QpdfFindsNothingWrong)
{
    const TemporaryFolder folder;
    const auto file = folder.NameOf("checked.pdf");
    ExpectLaw(
        [&file](const PlannedDocument& plan) {
            Write(*MakeDocument(plan), file);
            const int status = std::system(("qpdf --check '" + file + "' > /dev/null 2>&1").c_str());
            return status == 0 ? std::string() : "qpdf --check ends with status " + std::to_string(status);
        },
        documents / 5);
}

/// What a comparison finds between the contents of a document and their clones in another one.
std::string DifferencesOfClones(const PlannedDocument& plan)
{
    const auto document = MakeDocument(plan);
    const auto target = OrvDoc::Document::CreateNew();
    std::string text;
    for (auto page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page) {
        OrvDoc::Content& clone = target->AddPage(page->GetPageBox(OrvDoc::PageBox::Media)).GetContent();
        OrvDoc::CloneStrategy strategy(*target, OrvDoc::CloneStrategy::CloneFlags::Full);
        OrvDoc::CloneContent(page->GetContent(), clone, strategy);
        clone.SetBlendColorSpace(page->GetContent().GetBlendColorSpace());
        clone.SetTransferFunctionSet(page->GetContent().GetTransferFunctionSet());
        text += Lines(CompareLines<OrvDoc::Content>(page->GetContent(), clone));
    }
    return text;
}

TEST(DocumentLaws, AClonedContentComparesEqualToItsSource)
{
    ExpectLaw(DifferencesOfClones, documents);
}

TEST(DocumentLaws, DocumentsOfOnePlanCompareEqual)
{
    ExpectLaw(
        [](const PlannedDocument& plan) {
            return Lines(CompareLines<OrvDoc::Document>(*MakeDocument(plan), *MakeDocument(plan)));
        },
        documents);
}

} // namespace
} // namespace HarrowSupport::Testing
