// The operations of a document, its pages and its layers, with their exact signatures.

#include "document_interface/signature.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include <orv_doc/document.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_order_visitor.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/scratch_document.h>

namespace
{

using namespace InterfaceTests;
using namespace OrvDoc;

using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Pages = std::vector<std::unique_ptr<Page>>;
using LayerPointer = std::shared_ptr<LayerProperties>;

static_assert(Has<std::uint64_t (Document::*)() const>(&Document::GetNumberOfPages));
static_assert(Has<boost::iterators::indirect_iterator<Pages::const_iterator, const Page> (Document::*)()
                      const>(&Document::GetPagesBegin));
static_assert(Has<boost::iterators::indirect_iterator<Pages::iterator, Page> (Document::*)()>(
    &Document::GetPagesBegin));
static_assert(Has<boost::iterators::indirect_iterator<Pages::const_iterator, const Page> (Document::*)()
                      const>(&Document::GetPagesEnd));
static_assert(
    Has<const boost::optional<OrvColor::OutputIntent>& (Document::*)() const>(&Document::GetOutputIntent));
static_assert(Has<const std::vector<Separation::Entry>& (Document::*)() const>(&Document::GetSeparationInfo));
static_assert(Has<const Layers& (Document::*)() const>(&Document::GetLayers));
static_assert(Has<Layers& (Document::*)()>(&Document::GetLayers));
static_assert(Has<ResourceManager& (Document::*)() const>(&Document::GetResourceManager));

static_assert(Has<const Rectangle& (Page::*)(PageBox) const>(&Page::GetPageBox));
static_assert(Has<const PageContent& (Page::*)() const>(&Page::GetContent));
static_assert(Has<PageContent& (Page::*)()>(&Page::GetContent));
static_assert(Has<std::uint64_t (Page::*)() const>(&Page::GetPageIndex));
static_assert(Has<void (Page::*)(boost::optional<TransferFunctionSet>)>(&Page::SetTransferFunctionSet));

static_assert(Has<const std::vector<LayerPointer>& (Layers::*)() const>(&Layers::GetAllLayers));
static_assert(Has<const LayerConfiguration& (Layers::*)() const>(&Layers::GetDefaultConfiguration));
static_assert(Has<LayerPointer (Layers::*)(const std::string&)>(&Layers::AddLayer));

static_assert(Has<const Document& (LayerProperties::*)() const>(&LayerProperties::GetDocument));
static_assert(Has<const std::string& (LayerProperties::*)() const>(&LayerProperties::GetName));
static_assert(Has<const std::string& (LayerProperties::*)() const>(&LayerProperties::GetGroupName));
static_assert(Has<bool (LayerProperties::*)() const>(&LayerProperties::GetIsGroup));
static_assert(Has<const std::string& (LayerProperties::*)() const>(&LayerProperties::GetProcessingStepGroup));
static_assert(Has<const std::string& (LayerProperties::*)() const>(&LayerProperties::GetProcessingStepType));
static_assert(Has<std::ostream& (*)(std::ostream&, const LayerPointer&)>(&OrvDoc::operator<<));

static_assert(Has<void (LayerConfiguration::*)(LayerOrderVisitor&) const>(&LayerConfiguration::Accept));
static_assert(
    Has<bool (LayerConfiguration::*)(const LayerPointer&) const>(&LayerConfiguration::IsLayerPrinting));

static_assert(std::is_copy_constructible_v<Separation::Entry>);
static_assert(
    Has<bool (Separation::Entry::*)(const Separation::Entry&) const>(&Separation::Entry::operator==));
static_assert(Has<std::ostream& (*)(std::ostream&, const std::vector<Separation::Entry>&)>(
    &OrvDoc::Separation::operator<<));

static_assert(static_cast<int>(PageBox::Media) == 0);
static_assert(static_cast<int>(PageBox::Crop) == 1);
static_assert(static_cast<int>(PageBox::Bleed) == 2);
static_assert(static_cast<int>(PageBox::Trim) == 3);
static_assert(static_cast<int>(PageBox::Art) == 4);

TEST(DocumentOperations, PagesAreSteppedThroughByIteratorsThatCompareForIdentity)
{
    Document& document = GetScratchDocument();
    const Document& constant = document;
    std::uint64_t count = 0;
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        ++count;
    EXPECT_EQ(count, constant.GetNumberOfPages());
    EXPECT_EQ(&*document.GetPagesBegin(), &*constant.GetPagesBegin());
    EXPECT_NE(constant.GetPagesBegin(), constant.GetPagesEnd());
}

TEST(DocumentOperations, ABoxThatWasNeverSetIsInItsInitialState)
{
    EXPECT_TRUE(GetScratchDocument().GetPagesBegin()->GetPageBox(PageBox::Art).isInitial);
}

TEST(DocumentOperations, AScratchDocumentHasOneObjectWithAnEmptyFirstPage)
{
    EXPECT_EQ(&GetScratchDocument(), &GetScratchDocument());
    EXPECT_EQ(GetScratchDocument().GetPagesBegin()->GetContent().GetChildren().first, nullptr);
}

TEST(DocumentOperations, AnAddedLayerIsAmongAllLayersAndNamesItsObjects)
{
    Document& document = GetScratchDocument();
    const LayerPointer properties = document.GetLayers().AddLayer("Varnish");
    EXPECT_EQ(document.GetLayers().GetAllLayers().back(), properties);
    EXPECT_EQ(&properties->GetDocument(), &document);
    Layer layer{boost::variant<LayerPointer, LogicalLayerExpression>(properties)};
    EXPECT_EQ(layer.GetName(), "Varnish");
}

TEST(DocumentOperations, ALayerWalkEndsEachLayerThatItBegins)
{
    class Recorder : public LayerOrderVisitor
    {
    public:
        bool VisitLayer(const LayerPointer&) override
        {
            deepest = std::max(deepest, ++depth);
            return true;
        }
        void EndVisitLayer(const LayerPointer&) override { --depth; }

        int depth = 0;
        int deepest = 0;
    };
    Document& document = GetScratchDocument();
    document.GetLayers().AddLayer("Cutting");
    Recorder recorder;
    document.GetLayers().GetDefaultConfiguration().Accept(recorder);
    EXPECT_EQ(recorder.depth, 0);
    EXPECT_GE(recorder.deepest, 1);
}

TEST(DocumentOperations, ANullLayerCanBePrinted)
{
    std::ostringstream stream;
    stream << LayerPointer();
    EXPECT_FALSE(stream.str().empty());
}

} // namespace
