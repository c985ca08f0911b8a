#include <orv_doc/document.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include <orv_doc/errors.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/properties.h>
#include <orv_doc/scratch_document.h>

#include "document_library/orv_doc/model_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;

std::vector<double> GetWidths(const Document& document)
{
    std::vector<double> widths;
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        widths.push_back(page->GetPageBox(PageBox::Media).size.width.value);
    return widths;
}

std::vector<std::uint64_t> GetIndices(const Document& document)
{
    std::vector<std::uint64_t> indices;
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        indices.push_back(page->GetPageIndex());
    return indices;
}

using Widths = std::vector<double>;
using Indices = std::vector<std::uint64_t>;

class DocumentPages : public testing::Test
{
protected:
    DocumentPages()
    {
        for (const double width : {10.0, 20.0, 30.0})
            document->AddPage({0, 0, width, 1});
    }

    std::unique_ptr<Document> document = Document::CreateNew();
};

TEST(NewDocument, HasNothing)
{
    const auto document = Document::CreateNew();
    EXPECT_EQ(document->GetNumberOfPages(), 0u);
    EXPECT_TRUE(document->GetPagesBegin() == document->GetPagesEnd());
    EXPECT_FALSE(document->GetOutputIntent());
    EXPECT_TRUE(document->GetSeparationInfo().empty());
    EXPECT_TRUE(document->GetActiveErrors().GetAllErrors().empty());
    EXPECT_TRUE(document->GetFilePath().empty());
    EXPECT_EQ(document->GetSource(), nullptr);
    EXPECT_FALSE(document->GetInfoFlag(DocumentInfoFlagKey::NormalizedPDFLinks));
}

TEST_F(DocumentPages, AreAddedAtTheEnd)
{
    EXPECT_EQ(document->GetNumberOfPages(), 3u);
    EXPECT_EQ(GetWidths(*document), (Widths{10, 20, 30}));
    EXPECT_EQ(GetIndices(*document), (Indices{0, 1, 2}));
}

TEST_F(DocumentPages, AreInsertedBeforeTheOneOfAnIndex)
{
    EXPECT_EQ(document->InsertPage(1, {0, 0, 15, 1}).GetPageIndex(), 1u);
    document->InsertPage(4, {0, 0, 40, 1});
    EXPECT_EQ(GetWidths(*document), (Widths{10, 15, 20, 30, 40}));
    EXPECT_EQ(GetIndices(*document), (Indices{0, 1, 2, 3, 4}));
}

TEST_F(DocumentPages, AreNotInsertedPastTheEnd)
{
    EXPECT_THROW(document->InsertPage(4, {}), std::out_of_range);
    EXPECT_EQ(document->GetNumberOfPages(), 3u);
}

TEST_F(DocumentPages, AreNumberedAnewAfterARemoval)
{
    document->RemovePage(0);
    EXPECT_EQ(GetWidths(*document), (Widths{20, 30}));
    EXPECT_EQ(GetIndices(*document), (Indices{0, 1}));
    EXPECT_THROW(document->RemovePage(2), std::out_of_range);
}

TEST_F(DocumentPages, CanBeChangedThroughAnIterator)
{
    document->GetPagesBegin()->SetPageBox(PageBox::Trim, {1, 2, 3, 4});
    EXPECT_EQ(document->GetPagesBegin()->GetPageBox(PageBox::Trim), Rectangle(1, 2, 3, 4));
    int count = 0;
    for (Document::PageIterator page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page)
        ++count;
    EXPECT_EQ(count, 3);
}

TEST_F(DocumentPages, KnowTheirDocument)
{
    EXPECT_EQ(&document->GetPagesBegin()->GetDocument(), document.get());
    EXPECT_EQ(&document->GetPagesBegin()->GetContent().GetDocument(), document.get());
    EXPECT_EQ(&document->GetPagesBegin()->GetContent().GetPage(), &*document->GetPagesBegin());
}

TEST(DocumentProperties, DieWithTheDocumentWhileItsPartsAreAlive)
{
    struct Watcher
    {
        std::shared_ptr<LayerProperties> layer;
        std::string* name;
        ~Watcher()
        {
            if (name)
                *name = layer->GetName();
        }
    };
    std::string name;
    {
        const auto document = Document::CreateNew();
        auto watcher = std::make_shared<Watcher>();
        watcher->layer = document->GetLayers().AddLayer("Cutting");
        watcher->name = &name;
        document->GetProperties().Set("watcher", std::move(watcher));
    }
    EXPECT_EQ(name, "Cutting");
}

TEST(DocumentSeparations, AreThoseThatWereSet)
{
    const auto document = Document::CreateNew();
    EXPECT_TRUE(document->GetSeparationInfo().empty());
    document->SetSeparationInfo({Separation::Entry("Gold", {})});
    ASSERT_EQ(document->GetSeparationInfo().size(), 1u);
    EXPECT_EQ(document->GetSeparationInfo().front().GetName(), "Gold");
    document->SetSeparationInfo({});
    EXPECT_TRUE(document->GetSeparationInfo().empty());
}

TEST(DocumentInfoFlags, AreIndependent)
{
    const auto document = Document::CreateNew();
    document->SetInfoFlag(DocumentInfoFlagKey::Repaired, true);
    document->SetInfoFlag(DocumentInfoFlagKey::NormalizedPDFLinks, true);
    EXPECT_TRUE(document->GetInfoFlag(DocumentInfoFlagKey::Repaired));
    EXPECT_FALSE(document->GetInfoFlag(DocumentInfoFlagKey::Encrypted));
    document->SetInfoFlag(DocumentInfoFlagKey::Repaired, false);
    EXPECT_FALSE(document->GetInfoFlag(DocumentInfoFlagKey::Repaired));
    EXPECT_TRUE(document->GetInfoFlag(DocumentInfoFlagKey::NormalizedPDFLinks));
    EXPECT_TRUE(document->GetInfoFlag(static_cast<DocumentInfoFlagKey>(2)));
}

TEST(DocumentOutputIntent, IsTheOneThatWasSet)
{
    const auto document = Document::CreateNew();
    OrvColor::OutputIntent intent;
    intent.SetOutputConditionIdentifier("FOGRA39");
    document->SetOutputIntent(intent);
    ASSERT_TRUE(document->GetOutputIntent());
    EXPECT_EQ(document->GetOutputIntent()->GetOutputConditionIdentifier(), "FOGRA39");
    document->SetOutputIntent(boost::none);
    EXPECT_FALSE(document->GetOutputIntent());
}

TEST(ScratchDocument, IsOneDocumentWithAnEmptyPage)
{
    Document& scratch = GetScratchDocument();
    EXPECT_EQ(&GetScratchDocument(), &scratch);
    ASSERT_EQ(scratch.GetNumberOfPages(), 1u);
    EXPECT_EQ(scratch.GetPagesBegin()->GetContent().GetChildren().first, nullptr);
    EXPECT_EQ(scratch.GetPagesBegin()->GetPageBox(PageBox::Media), Rectangle(0, 0, 595000, 842000));
}

TEST(ScratchDocument, IsEmptyAgainAfterAUserTookItsObjectsOut)
{
    PageContent& content = GetScratchDocument().GetPagesBegin()->GetContent();
    Add(content, MakePath());
    Add(Add(content, MakeGroup()), MakePath());
    while (ContentObject* const first = content.GetChildren().first)
        delete first->ExtractFromParent();
    EXPECT_EQ(GetScratchDocument().GetPagesBegin()->GetContent().GetChildren().first, nullptr);
}

class PDFLinks : public testing::Test
{
protected:
    PDFLinks()
    {
        document->SetInfoFlag(DocumentInfoFlagKey::NormalizedPDFLinks, true);
        document->GetNormalizedPDFLinks() = {{"cover", 5, {}}, {"inside", 6, {}}};
    }

    bool IsFlagged() const { return document->GetInfoFlag(DocumentInfoFlagKey::NormalizedPDFLinks); }

    std::unique_ptr<Document> document = Document::CreateNew();
};

using Keys = std::vector<std::string>;

TEST_F(PDFLinks, StayUnresolvedWithAnEmptyMap)
{
    EXPECT_EQ(ResolveNormalizedPDFLinks(*document, {}), (Keys{"cover", "inside"}));
    EXPECT_TRUE(IsFlagged());
}

TEST_F(PDFLinks, AreResolvedByTheirKeys)
{
    EXPECT_EQ(
        ResolveNormalizedPDFLinks(*document, {{"inside", "/tmp/inside.pdf"}, {"other", "/tmp/other.pdf"}}),
        (Keys{"cover"}));
    EXPECT_EQ(document->GetNormalizedPDFLinks()[1].file, "/tmp/inside.pdf");
    EXPECT_TRUE(document->GetNormalizedPDFLinks()[0].file.empty());
    EXPECT_TRUE(IsFlagged());
}

TEST_F(PDFLinks, CanBeResolvedInSteps)
{
    ResolveNormalizedPDFLinks(*document, {{"inside", "/tmp/inside.pdf"}});
    EXPECT_TRUE(ResolveNormalizedPDFLinks(*document, {{"cover", "/tmp/cover.pdf"}}).empty());
    EXPECT_FALSE(IsFlagged());
    EXPECT_EQ(document->GetNormalizedPDFLinks()[1].file, "/tmp/inside.pdf");
}

TEST_F(PDFLinks, AreNotResolvedByAnEmptyPath)
{
    EXPECT_EQ(ResolveNormalizedPDFLinks(*document, {{"cover", ""}, {"inside", "a.pdf"}}), (Keys{"cover"}));
}

TEST_F(PDFLinks, ThatDoNotExistNeedNothing)
{
    document->GetNormalizedPDFLinks().clear();
    EXPECT_TRUE(ResolveNormalizedPDFLinks(*document, {}).empty());
    EXPECT_FALSE(IsFlagged());
}

} // namespace
