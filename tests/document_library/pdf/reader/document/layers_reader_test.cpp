#include "pdf/reader/document/layers_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include <orv_doc/document.h>
#include <orv_doc/layer_properties.h>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using OrvDoc::LayerConfiguration;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The layers of a file with the given configuration; the layers are the objects from 3.
struct Read
{
    Read(const std::string& configuration, const std::vector<std::string>& layerObjects,
         const std::vector<std::string>& more = {}, const OrvDoc::ReadOptions& options = {})
        : Read("<< /OCGs [" + References(layerObjects.size()) + "] /D << " + configuration + " >> >>",
               layerObjects, more, options, 0)
    {}

    /// With the whole of the properties.
    Read(const std::string& properties, const std::vector<std::string>& layerObjects,
         const std::vector<std::string>& more, const OrvDoc::ReadOptions& options, int)
    {
        std::vector<std::string> objects = {
            "<< /Type /Catalog /Pages 2 0 R /OCProperties " + properties + " >>", "<< /Kids [] >>"};
        objects.insert(objects.end(), layerObjects.begin(), layerObjects.end());
        objects.insert(objects.end(), more.begin(), more.end());
        const ReaderTests::OpenedFile file(PdfFile(objects), options);
        OrvPdf::DocumentResources resources(file.Get());
        OrvPdf::ErrorList list(100);
        OrvPdf::ReadLayers(file.GetCatalogue(), resources, Layers(), list);
        errors = list.Take();
    }

    OrvDoc::Layers& Layers() { return document->GetLayers(); }
    const std::shared_ptr<OrvDoc::LayerProperties>& Layer(std::size_t index)
    {
        return Layers().GetAllLayers().at(index);
    }
    LayerConfiguration& Configuration() { return Layers().GetDefaultConfiguration(); }

    std::string Order() { return OrderOf(Configuration().GetOrder()); }
    std::vector<bool> Visible()
    {
        std::vector<bool> visible;
        for (const auto& layer : Layers().GetAllLayers())
            visible.push_back(Configuration().IsLayerVisible(layer));
        return visible;
    }

    static std::string OrderOf(const std::vector<LayerConfiguration::Node>& nodes)
    {
        std::string text;
        for (const LayerConfiguration::Node& node : nodes) {
            text += (text.empty() ? "" : " ") + node.layer->GetName() + (node.layer->GetIsGroup() ? ":" : "");
            if (!node.children.empty())
                text += "(" + OrderOf(node.children) + ")";
        }
        return text;
    }

    static std::string References(std::size_t count)
    {
        std::string text;
        for (std::size_t index = 0; index < count; ++index)
            text += std::to_string(3 + index) + " 0 R ";
        return text;
    }

    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    std::vector<std::string> errors;
};

const std::vector<std::string> ThreeLayers = {"<< /Type /OCG /Name (a) >>", "<< /Type /OCG /Name (b) >>",
                                              "<< /Type /OCG /Name (c) >>"};

TEST(LayersReader, ReadsLayersInOrderWithTheirObjectNumbers)
{
    Read read("", ThreeLayers);
    ASSERT_EQ(read.Layers().GetAllLayers().size(), 3u);
    EXPECT_EQ(read.Layer(0)->GetName(), "a");
    EXPECT_EQ(read.Layer(2)->GetName(), "c");
    EXPECT_EQ(read.Layer(2)->GetSourceObject(), 5);
    EXPECT_THAT(read.errors, IsEmpty());
}

TEST(LayersReader, ReadsNamesInBothEncodings)
{
    Read read("", {"<< /Name (\xe4) >>", "<< /Name <FEFF20AC> >>"});
    EXPECT_EQ(read.Layer(0)->GetName(), "\xc3\xa4");
    EXPECT_EQ(read.Layer(1)->GetName(), "\xe2\x82\xac");
}

TEST(LayersReader, TellsALayerWithoutAName)
{
    Read read("", {"<< /Type /OCG >>"});
    EXPECT_EQ(read.Layers().GetAllLayers().size(), 1u);
    EXPECT_THAT(read.errors, ElementsAre(HasSubstr("object 3 0: a layer has no Name")));
}

TEST(LayersReader, ShowsSublayersBehindTheirLayer)
{
    EXPECT_EQ(Read("/Order [3 0 R [4 0 R] 5 0 R]", ThreeLayers).Order(), "a(b) c");
    EXPECT_EQ(Read("/Order [3 0 R [4 0 R [5 0 R]]]", ThreeLayers).Order(), "a(b(c))");
}

TEST(LayersReader, MakesGroupsOfLabelledArrays)
{
    Read read("/Order [3 0 R [(Label) 4 0 R [5 0 R]]]", ThreeLayers);
    EXPECT_EQ(read.Order(), "a Label:(b(c))");
    EXPECT_EQ(read.Layer(1)->GetGroupName(), "Label");
    EXPECT_EQ(read.Layers().GetAllLayers().size(), 3u);
}

TEST(LayersReader, TakesAnUnlabelledArrayThatFollowsNoLayerForPartOfItsLevel)
{
    EXPECT_EQ(Read("/Order [[3 0 R 4 0 R] 5 0 R]", ThreeLayers).Order(), "a b c");
}

TEST(LayersReader, ShowsNoLayersThatTheOrderLeavesOut)
{
    EXPECT_EQ(Read("/Order [4 0 R]", ThreeLayers).Order(), "b");
    EXPECT_EQ(Read("", ThreeLayers).Order(), "");
}

TEST(LayersReader, TellsWhatIsNoLayerInTheOrder)
{
    Read read("/Order [3 0 R 9 0 R (late label) 4 0 R]", ThreeLayers);
    EXPECT_EQ(read.Order(), "a b");
    EXPECT_THAT(read.errors,
                ElementsAre(HasSubstr("Order: object 9 0 is no layer"), HasSubstr("a direct string")));
}

TEST(LayersReader, LeavesOutAnOrderThatLiesWithinItself)
{
    Read read("/Order 6 0 R", ThreeLayers, {"[3 0 R 6 0 R 4 0 R]"});
    EXPECT_EQ(read.Order(), "a b");
    EXPECT_THAT(read.errors, ElementsAre(HasSubstr("object 6 0 lies within itself")));
}

TEST(LayersReader, AReferenceToAnotherGenerationIsNoneToTheLayer)
{
    Read read("/Order [3 0 R 4 1 R]", ThreeLayers);
    EXPECT_EQ(read.Order(), "a");
    EXPECT_THAT(read.errors, ElementsAre(HasSubstr("no layer of the document")));
}

TEST(LayersReader, LeavesOutLevelsOfTheOrderBeyondTheLimit)
{
    OrvDoc::ReadOptions options;
    options.limits.layerOrderNesting = 2;
    Read read("/Order [3 0 R [4 0 R [5 0 R]]]", ThreeLayers, {}, options);
    EXPECT_EQ(read.Order(), "a(b)");
    EXPECT_THAT(read.errors, ElementsAre(HasSubstr("limit layerOrderNesting: 2 reached")));
}

TEST(LayersReader, SeesAllLayersUnlessTheyAreOff)
{
    EXPECT_THAT(Read("", ThreeLayers).Visible(), ElementsAre(true, true, true));
    EXPECT_THAT(Read("/OFF [4 0 R]", ThreeLayers).Visible(), ElementsAre(true, false, true));
    EXPECT_THAT(Read("/BaseState /ON /OFF [4 0 R]", ThreeLayers).Visible(), ElementsAre(true, false, true));
}

TEST(LayersReader, SeesOnlyLayersThatAreOnIfTheBaseStateIsOff)
{
    EXPECT_THAT(Read("/BaseState /OFF /ON [3 0 R 5 0 R]", ThreeLayers).Visible(),
                ElementsAre(true, false, true));
}

TEST(LayersReader, TellsAnUnknownBaseState)
{
    Read read("/BaseState /Unchanged", ThreeLayers);
    EXPECT_THAT(read.Visible(), ElementsAre(true, true, true));
    EXPECT_THAT(read.errors, ElementsAre(HasSubstr("BaseState")));
}

TEST(LayersReader, ReadsWhatPrints)
{
    const std::string usage = "/AS [<< /Event /Print /Category [/Print] /OCGs [3 0 R 4 0 R 5 0 R] >>]";
    Read read(usage, {"<< /Name (a) /Usage << /Print << /PrintState /ON >> >> >>",
                      "<< /Name (b) /Usage << /Print << /PrintState /OFF >> >> >>", "<< /Name (c) >>"});
    EXPECT_EQ(read.Configuration().GetLayerPrintState(read.Layer(0)),
              LayerConfiguration::PrintState::Printing);
    EXPECT_EQ(read.Configuration().GetLayerPrintState(read.Layer(1)),
              LayerConfiguration::PrintState::NotPrinting);
    EXPECT_EQ(read.Configuration().GetLayerPrintState(read.Layer(2)), LayerConfiguration::PrintState::AsSeen);
}

TEST(LayersReader, ReadsWhatPrintsOnlyWhereTheConfigurationAsksForIt)
{
    const std::vector<std::string> layer = {"<< /Name (a) /Usage << /Print << /PrintState /OFF >> >> >>"};
    for (const char* usage : {"", "/AS [<< /Event /View /Category [/Print] /OCGs [3 0 R] >>]",
                              "/AS [<< /Event /Print /Category [/Zoom] /OCGs [3 0 R] >>]",
                              "/AS [<< /Event /Print /Category [/Print] /OCGs [] >>]"}) {
        Read read(usage, layer);
        EXPECT_EQ(read.Configuration().GetLayerPrintState(read.Layer(0)),
                  LayerConfiguration::PrintState::AsSeen)
            << usage;
        EXPECT_THAT(read.errors, IsEmpty());
    }
}

TEST(LayersReader, ReadsProcessingSteps)
{
    Read read(
        "",
        {"<< /Name (a) /GTS_Metadata << /GTS_ProcStepsGroup /Structural /GTS_ProcStepsType /Cutting >> >>",
         "<< /Name (b) >>"});
    EXPECT_EQ(read.Layer(0)->GetProcessingStepGroup(), "Structural");
    EXPECT_EQ(read.Layer(0)->GetProcessingStepType(), "Cutting");
    EXPECT_EQ(read.Layer(1)->GetProcessingStepGroup(), "");
}

TEST(LayersReader, TellsMalformedParts)
{
    Read read(
        "<< /OCGs [3 0 R 3 0 R << /Name (direct) >> null] /D << /ON 3 0 R /OFF [7] /AS [1] /Order 5 >> >>",
        {"<< /Name (a) /GTS_Metadata 1 >>"}, {}, {}, 0);
    EXPECT_EQ(read.Layers().GetAllLayers().size(), 1u);
    EXPECT_THAT(read.errors,
                ElementsAre(HasSubstr("object 3 0: GTS_Metadata"), HasSubstr("object 3 0 is listed twice"),
                            HasSubstr("a direct dictionary is no layer"),
                            HasSubstr("a direct null is no layer"), HasSubstr("ON is no array"),
                            HasSubstr("OFF: a direct integer"),
                            HasSubstr("AS: a direct integer has no Event"), HasSubstr("Order is no array")));
}

TEST(LayersReader, TellsPropertiesThatAreNone)
{
    EXPECT_THAT(Read("7", {}, {}, {}, 0).errors, ElementsAre(HasSubstr("OCProperties is no dictionary")));
    EXPECT_THAT(Read("<< >>", {}, {}, {}, 0).errors,
                ElementsAre(HasSubstr("OCGs is no array"), HasSubstr("D is no dictionary")));
}

} // namespace
