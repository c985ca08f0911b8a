#include "pdf/reader/document/pdf_document_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/layer_properties.h>

#include "document_library/pdf/reader/late_texts.h"
#include "document_library/pdf/reader/opened_file.h"
#include "pdf/reader/document/open_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using OrvDoc::DocumentInfoFlagKey;
using ReaderTests::ReadBytes;
using ReaderTests::TextsOf;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using testing::ThrowsMessage;
using testing::UnorderedElementsAre;

TEST(PdfDocumentSource, ReadsTheStructureOfAFile)
{
    const auto document =
        ReadBytes(PdfFileOfPages({"", ""},
                                 "/OutputIntents [<< /S /GTS_PDFX /Info (x) >>]"
                                 " /OCProperties << /OCGs [7 0 R] /D << /Order [7 0 R] >> >>",
                                 "", {"<< /Type /OCG /Name (layer) >>"}));
    EXPECT_EQ(document->GetNumberOfPages(), 2u);
    ASSERT_TRUE(document->GetOutputIntent());
    EXPECT_EQ(document->GetOutputIntent()->GetInfo(), "x");
    ASSERT_EQ(document->GetLayers().GetAllLayers().size(), 1u);
    EXPECT_EQ(document->GetLayers().GetAllLayers()[0]->GetName(), "layer");
    EXPECT_THAT(TextsOf(document->GetActiveErrors()), IsEmpty());
}

TEST(PdfDocumentSource, FlagsWhatTheFileIs)
{
    const auto document = ReadBytes(PdfFileOfPages({""}));
    EXPECT_FALSE(document->GetInfoFlag(DocumentInfoFlagKey::Repaired));
    EXPECT_FALSE(document->GetInfoFlag(DocumentInfoFlagKey::Encrypted));
    EXPECT_FALSE(document->GetInfoFlag(DocumentInfoFlagKey::NormalizedPDFLinks));
}

TEST(PdfDocumentSource, TellsAndFlagsARepair)
{
    std::string bytes = PdfFileOfPages({""});
    bytes.replace(bytes.find("startxref\n") + 10, 1, "9");
    const auto document = ReadBytes(bytes);
    EXPECT_TRUE(document->GetInfoFlag(DocumentInfoFlagKey::Repaired));
    EXPECT_THAT(TextsOf(document->GetActiveErrors()), Contains(HasSubstr("reconstruct")));
    EXPECT_EQ(document->GetNumberOfPages(), 1u);
}

TEST(PdfDocumentSource, ReadsNormalizedLinks)
{
    const auto document =
        ReadBytes(PdfFileOfPages({""}, "/OrvLinks << /second 5 0 R /first 6 0 R /bad (x) >>", "",
                                 {"<< /Type /Filespec >>", "<< /Type /Filespec >>"}));
    EXPECT_TRUE(document->GetInfoFlag(DocumentInfoFlagKey::NormalizedPDFLinks));
    ASSERT_EQ(document->GetNormalizedPDFLinks().size(), 2u);
    EXPECT_EQ(document->GetNormalizedPDFLinks()[0].key, "first");
    EXPECT_EQ(document->GetNormalizedPDFLinks()[0].sourceObject, 6);
    EXPECT_EQ(document->GetNormalizedPDFLinks()[1].key, "second");
    EXPECT_THAT(TextsOf(document->GetActiveErrors()), ElementsAre(HasSubstr("OrvLinks: bad")));
}

TEST(PdfDocumentSource, RefusesAFileWithoutPages)
{
    EXPECT_THAT([] { ReadBytes(PdfFile({"<< /Type /Catalog >>"})); },
                ThrowsMessage<std::runtime_error>(AllOf(HasSubstr("file.pdf: "), HasSubstr("no pages"))));
}

TEST(PdfDocumentSource, RefusesAFileWithoutACatalogue)
{
    EXPECT_THAT([] { ReadBytes(PdfFile({"7"})); },
                ThrowsMessage<std::runtime_error>(
                    AllOf(HasSubstr("file.pdf: "), HasSubstr("damaged beyond repair"))));
}

TEST(PdfDocumentSource, TellsProblemsOfThePageTree)
{
    const auto document = ReadBytes(PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [2 0 R] >>"}));
    EXPECT_EQ(document->GetNumberOfPages(), 0u);
    EXPECT_THAT(TextsOf(document->GetActiveErrors()),
                ElementsAre(HasSubstr("object 2 0"), HasSubstr("the page tree has no pages")));
}

TEST(PdfDocumentSource, BoundsTheNumberOfErrors)
{
    OrvDoc::ReadOptions options;
    options.limits.errors = 2;
    const auto document =
        ReadBytes(PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [1 2 3 4 5] >>"}), options);
    EXPECT_EQ(document->GetNumberOfPages(), 0u);
    EXPECT_THAT(TextsOf(document->GetActiveErrors()),
                ElementsAre(HasSubstr("entry 1"), HasSubstr("entry 2"),
                            HasSubstr("limit errors: 2 reached, 4 more problems")));
}

TEST(PdfDocumentSource, BoundsTheNumberOfErrorsOfStructureAndPageTreeTogether)
{
    OrvDoc::ReadOptions options;
    options.limits.errors = 2;
    const auto document = ReadBytes(
        PdfFile({"<< /Type /Catalog /Pages 2 0 R /OCProperties 7 >>", "<< /Kids [1 2 3 4 5] >>"}), options);
    EXPECT_EQ(document->GetNumberOfPages(), 0u);
    EXPECT_THAT(TextsOf(document->GetActiveErrors()),
                UnorderedElementsAre(HasSubstr("OCProperties"), HasSubstr("entry 1"),
                                     HasSubstr("limit errors: 2 reached, 5 more problems")));
}

TEST(PdfDocumentSource, ReadsSeparationsOfInheritedResources)
{
    const auto document = ReadBytes(PdfFileOfPages(
        {""}, "",
        "/ColorSpace << /A [/Separation /Gold /DeviceGray << /FunctionType 2 /Domain [0 1] /N 1 >>] >>"));
    ASSERT_EQ(document->GetSeparationInfo().size(), 1u);
    EXPECT_EQ(document->GetSeparationInfo()[0].GetName(), "Gold");
}

TEST(PdfDocumentSource, LooksAtNoPageWhenItIsOpened)
{
    // A page whose object is damaged goes unnoticed until somebody asks for the pages.
    const ReaderTests::OpenedFile file(
        PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [3 0 R] >>", "<< /Type ) >>"}));
    const OrvPdf::PdfDocumentSource source(file.Get());
    source.ReadStructure(*OrvDoc::Document::CreateNew());
    EXPECT_THAT(ReaderTests::TakeLateTexts(*file.Get()), IsEmpty());
    EXPECT_THAT(source.ReadPageTree().errors, Contains(HasSubstr("object 3 0")));
}

TEST(PdfDocumentSource, AnswersToEveryPrefixOfAFile)
{
    const std::string bytes = PdfFileOfPages({"0 0 m", "1 1 l"}, "/OCProperties << /OCGs [7 0 R] >>", "",
                                             {"<< /Type /OCG /Name (a) >>"});
    const TemporaryFolder folder;
    int opened = 0;
    for (std::size_t length = 0; length < bytes.size(); length += 7) {
        const std::string name = folder.Write("file.pdf", bytes.substr(0, length));
        try {
            const auto source = OrvPdf::OpenFile(name, {});
            source->ReadPageTree();
            ++opened;
        } catch (const std::runtime_error& problem) {
            EXPECT_THAT(problem.what(), StartsWith(name + ": "));
        }
    }
    EXPECT_GT(opened, 0);
}

} // namespace
