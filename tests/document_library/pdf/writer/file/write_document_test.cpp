#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include <orv_doc/errors.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/layers.h>
#include <orv_sys/error.h>

#include "document_library/pdf/writer/writer_test_support.h"
#include "support/error_texts.h"
#include "support/file_bytes.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvDoc::Document;
using OrvDoc::LayerConfiguration;
using OrvDoc::PageBox;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const OrvDoc::WriteOptions full(OrvDoc::WriteOptions::Flavour::Full);

/// Documents to files and back, in a folder of the test.
class WriteDocument : public ::testing::Test
{
protected:
    std::unique_ptr<Document> ReadFile(const std::string& bytes)
    {
        return Document::Create(folder.Write("in.pdf", bytes), OrvDoc::ReadOptions());
    }

    void Save(Document& document) { document.Save(Name(), full); }
    std::unique_ptr<Document> Reopen() { return Document::Create(Name(), OrvDoc::ReadOptions()); }

    std::unique_ptr<Document> SaveAndRead(Document& document)
    {
        Save(document);
        return Reopen();
    }

    /// The objects of the saved file.
    QPDF& Objects()
    {
        objects = std::make_unique<QPDF>();
        objects->processFile(Name().c_str());
        return *objects;
    }

    QPDFObjectHandle Catalogue() { return Objects().getRoot(); }
    QPDFObjectHandle SavedPage(int index = 0)
    {
        return Catalogue().getKey("/Pages").getKey("/Kids").getArrayItem(index);
    }

    std::string SavedContent(int index = 0)
    {
        const auto buffer = SavedPage(index).getKey("/Contents").getStreamData();
        return std::string(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
    }

    std::string Name() const { return folder.NameOf("out.pdf"); }

    std::string Bytes() const { return HarrowSupport::Testing::FileBytes(Name()); }

    TemporaryFolder folder;

private:
    std::unique_ptr<QPDF> objects;
};

TEST_F(WriteDocument, WritesADocumentThatAProgramMade)
{
    const auto document = NewDocument(3);
    Fill(ContentOf(*document), Line());
    Save(*document);
    EXPECT_EQ(Catalogue().getKey("/Pages").getKey("/Count").getIntValue(), 3);
    EXPECT_EQ(SavedContent(), "0 0 m\n1 0 l\nn\n");
}

TEST_F(WriteDocument, GivesTheSameBytesForTheSameDocument)
{
    const auto document = ReadFile(PdfFileOfPages({"1 0 0 rg 0 0 9 9 re f"}));
    Save(*document);
    const std::string first = Bytes();
    Save(*document);
    EXPECT_EQ(Bytes(), first);
}

TEST_F(WriteDocument, GivesTheSameBytesWhoeverLookedAtAPage)
{
    const std::string file = PdfFileOfPages({"0 0 9 9 re f", "0 0 8 8 re f"});
    Save(*ReadFile(file));
    const std::string first = Bytes();
    const auto document = ReadFile(file);
    ContentOf(*document, 1);
    Save(*document);
    EXPECT_EQ(Bytes(), first);
}

TEST_F(WriteDocument, MayReplaceTheFileThatTheDocumentCameFrom)
{
    const auto document = ReadFile(PdfFileOfPages({"0 0 9 9 re f"}));
    document->Save(document->GetFilePath(), full);
    EXPECT_EQ(Document::Create(document->GetFilePath(), OrvDoc::ReadOptions())->GetNumberOfPages(), 1u);
}

TEST_F(WriteDocument, WritesBoxesInPointsAndLeavesOutThoseNeverSet)
{
    const auto document = NewDocument(1);
    PageOf(*document).SetPageBox(PageBox::Trim, Box(1500.0, 2000.0, 3000.5, 4000.0));
    Save(*document);
    EXPECT_EQ(SavedPage().getKey("/TrimBox").unparse(), "[ 1.5 2 4.5005 6 ]");
    EXPECT_FALSE(SavedPage().hasKey("/CropBox"));
}

TEST_F(WriteDocument, KeepsTheTextOfABoxThatNobodyChanged)
{
    const auto document =
        ReadFile(PdfFile({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Count 1/Kids[3 0 R]>>",
                          "<</Type/Page/Parent 2 0 R/MediaBox[100 0.500 0 200]>>"}));
    Save(*document);
    EXPECT_EQ(SavedPage().getKey("/MediaBox").unparse(), "[ 100 0.500 0 200 ]");
}

TEST_F(WriteDocument, RemovesABoxThatWasTakenAway)
{
    const auto document = NewDocument(1);
    PageOf(*document).SetPageBox(PageBox::Crop, Box(0.0, 0.0, 1000.0, 1000.0));
    const auto reopened = SaveAndRead(*document);
    PageOf(*reopened).SetPageBox(PageBox::Crop, Box());
    Save(*reopened);
    EXPECT_FALSE(SavedPage().hasKey("/CropBox"));
}

TEST_F(WriteDocument, TellsABoxThatNoFileHolds)
{
    const auto document = NewDocument(1);
    PageOf(*document).SetPageBox(PageBox::Crop, Box(0.0, 0.0, -1.0, 1000.0));
    Save(*document);
    EXPECT_FALSE(SavedPage().hasKey("/CropBox"));
    EXPECT_THAT(TextsOf(ContentOf(*document).GetActiveErrors()),
                ElementsAre(HasSubstr("page 1: CropBox is left out")));
}

TEST_F(WriteDocument, TellsEachPageWhatItInheritedAndKeepsWhatTheRootHasBeside)
{
    const auto document =
        ReadFile(PdfFile({"<</Type/Catalog/Pages 2 0 R>>",
                          "<</Type/Pages/Count 1/Kids[3 0 R]/MediaBox[0 0 50 50]/Rotate 90/Private(kept)>>",
                          "<</Type/Pages/Parent 2 0 R/Count 1/Kids[4 0 R]/CropBox[0 0 40 40]>>",
                          "<</Type/Page/Parent 3 0 R>>"}));
    Save(*document);
    QPDFObjectHandle root = Catalogue().getKey("/Pages");
    EXPECT_EQ(root.getKeys(), (std::set<std::string>{"/Type", "/Count", "/Kids", "/Private"}));
    QPDFObjectHandle page = root.getKey("/Kids").getArrayItem(0);
    EXPECT_EQ(page.getKey("/MediaBox").unparse(), "[ 0 0 50 50 ]");
    EXPECT_EQ(page.getKey("/CropBox").unparse(), "[ 0 0 40 40 ]");
    EXPECT_EQ(page.getKey("/Rotate").getIntValue(), 90);
    EXPECT_EQ(page.getKey("/Parent").getObjGen(), root.getObjGen());
}

TEST_F(WriteDocument, MakesTwoPagesOfOneThatIsListedTwice)
{
    const auto document = ReadFile(PdfFile({"<</Type/Catalog/Pages 2 0 R>>",
                                            "<</Type/Pages/Count 2/Kids[3 0 R 3 0 R]/MediaBox[0 0 50 50]>>",
                                            "<</Type/Page/Parent 2 0 R>>"}));
    PageOf(*document, 1).SetPageBox(PageBox::Art, Box(0.0, 0.0, 1000.0, 1000.0));
    Save(*document);
    EXPECT_FALSE(SavedPage(0).hasKey("/ArtBox"));
    EXPECT_TRUE(SavedPage(1).hasKey("/ArtBox"));
}

TEST_F(WriteDocument, WritesPagesThatWereAddedAndLeavesOutRemovedOnes)
{
    const auto document = ReadFile(PdfFileOfPages({"0 0 1 1 re f", "0 0 2 2 re f"}));
    document->RemovePage(0);
    Fill(document->InsertPage(0, Box(0.0, 0.0, 7000.0, 7000.0)).GetContent(), Line());
    Save(*document);
    EXPECT_EQ(Catalogue().getKey("/Pages").getKey("/Count").getIntValue(), 2);
    EXPECT_EQ(SavedContent(), "0 0 m\n1 0 l\nn\n");
    EXPECT_EQ(SavedPage(0).getKey("/MediaBox").unparse(), "[ 0 0 7 7 ]");
}

TEST_F(WriteDocument, KeepsTheBytesAndResourcesOfPagesThatNobodyChanged)
{
    const std::string content = "BT /F 9 Tf 5 0 Td (a) Tj 0 5 Td (b) Tj ET %";
    const auto document = ReadFile(
        PdfFileOfPages({content, content}, "", "/Font<</F<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>>>"));
    Fill(ContentOf(*document, 1), Line());
    PageOf(*document, 0).SetPageBox(PageBox::Crop, Box(0.0, 0.0, 1000.0, 1000.0));
    Save(*document);
    EXPECT_EQ(SavedContent(0), content);
    EXPECT_TRUE(SavedPage(0).getKey("/Resources").getKey("/Font").hasKey("/F"));
    EXPECT_TRUE(SavedPage(0).hasKey("/CropBox"));
    EXPECT_THAT(SavedContent(1), ::testing::EndsWith("0 0 m\n1 0 l\nn\n"));
}

TEST_F(WriteDocument, WritesAPageAnewThatSharesAPatternWithAChangedOne)
{
    const std::string content = "/Pattern cs /P scn 0 0 9 9 re f";
    const auto document = ReadFile(
        PdfFileOfPages({content, content}, "", "/Pattern<</P 7 0 R>>",
                       {PdfStream("0 0 1 1 re f", "/PatternType 1/PaintType 1/TilingType 1/BBox[0 0 2 2]"
                                                  "/XStep 2/YStep 2/Resources<<>>")}));
    Fill(ContentOf(*document, 1), Line());
    const auto reopened = SaveAndRead(*document);
    const auto paint = [&](std::size_t page) {
        return static_cast<const OrvDoc::Path*>(ContentOf(*reopened, page).GetChildren().first)
            ->GetFillPaint();
    };
    ASSERT_TRUE(paint(0));
    EXPECT_EQ(paint(0), paint(1));
}

constexpr const char* unmodelled = "0 0 1 1 re f\n/Fm0 Do\n% a comment";

TEST_F(WriteDocument, KeepsAContentThatItCannotModelAsItStands)
{
    const auto document = ReadFile(PdfFileOfPages({unmodelled}));
    Save(*document);
    EXPECT_EQ(SavedContent(), unmodelled);
}

TEST_F(WriteDocument, KeepsSuchAContentWithoutItsDamage)
{
    const auto document = ReadFile(PdfFileOfPages({"/Fm0 Do 0 0 1 1 re ) f"}));
    Save(*document);
    EXPECT_THAT(SavedContent(), ::testing::Not(HasSubstr(")")));
    EXPECT_THAT(SavedContent(), HasSubstr("/Fm0 Do"));
}

TEST_F(WriteDocument, TellsWhatIsLostOfAContentThatWasChanged)
{
    const auto document = ReadFile(PdfFileOfPages({unmodelled}));
    Fill(ContentOf(*document), Line());
    Save(*document);
    EXPECT_EQ(SavedContent(), "0 0 1 1 re\nf\n0 0 m\n1 0 l\nn\n");
    EXPECT_THAT(TextsOf(ContentOf(*document).GetActiveErrors()),
                ::testing::Contains(HasSubstr("the content was changed")));
}

TEST_F(WriteDocument, ReplacesTheResourcesThatItSaysAnewAndKeepsTheOthers)
{
    const auto document =
        ReadFile(PdfFileOfPages({"/A cs 0.5 sc 0 0 1 1 re f"}, "",
                                "/ColorSpace<</A[/CalGray<</WhitePoint[0.9 1 0.9]>>]/DefaultRGB "
                                "/DeviceRGB>>/Font<</F 9 0 R>>/ProcSet[/PDF]/ExtGState<</G<</LW 1>>>>"));
    ContentOf(*document).MarkChanged();
    Save(*document);
    QPDFObjectHandle resources = SavedPage().getKey("/Resources");
    EXPECT_EQ(resources.getKey("/ColorSpace").getKeys(), std::set<std::string>{"/cs0"});
    EXPECT_FALSE(resources.hasKey("/ExtGState"));
    EXPECT_FALSE(resources.hasKey("/Font"));
    EXPECT_TRUE(resources.hasKey("/ProcSet"));
}

TEST_F(WriteDocument, GivesItsFormerResourcesToAppearancesThatHaveNone)
{
    const std::string page = "<</Type/Page/Parent 2 0 R/MediaBox[0 0 9 9]/Contents 4 0 R"
                             "/Resources<</Font<</F 9 0 R>>>>/Annots[5 0 R 6 0 R]>>";
    const auto document = ReadFile(
        PdfFile({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R]/Count 1>>", page,
                 PdfStream("0 0 1 1 re f"), "<</Type/Annot/Subtype/Stamp/Rect[0 0 9 9]/AP<</N 7 0 R>>>>",
                 "<</Type/Annot/Subtype/Widget/Rect[0 0 9 9]/AP<</N<</On 8 0 R>>>>>>",
                 PdfStream("BT /F 9 Tf (a) Tj ET", "/Subtype/Form/BBox[0 0 9 9]"),
                 PdfStream("", "/Subtype/Form/BBox[0 0 9 9]/Resources<<>>"),
                 "<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>"}));
    ContentOf(*document).MarkChanged();
    Save(*document);
    QPDFObjectHandle annotations = SavedPage().getKey("/Annots");
    QPDFObjectHandle without = annotations.getArrayItem(0).getKey("/AP").getKey("/N").getDict();
    EXPECT_TRUE(without.getKey("/Resources").getKey("/Font").hasKey("/F"));
    QPDFObjectHandle with = annotations.getArrayItem(1).getKey("/AP").getKey("/N").getKey("/On").getDict();
    EXPECT_TRUE(with.getKey("/Resources").getKeys().empty());
    EXPECT_FALSE(SavedPage().getKey("/Resources").hasKey("/Font"));
}

TEST_F(WriteDocument, KeepsWhatHasNoPlaceInTheModel)
{
    const auto document =
        ReadFile(PdfFileOfPages({"0 0 1 1 re f"}, "/Outlines<</Type/Outlines/Private(x)>>/Lang(de)"));
    Save(*document);
    EXPECT_EQ(Catalogue().getKey("/Outlines").getKey("/Private").getUTF8Value(), "x");
    EXPECT_EQ(Catalogue().getKey("/Lang").getUTF8Value(), "de");
}

TEST_F(WriteDocument, WritesLayersWithTheirTree)
{
    const auto document = NewDocument(1);
    OrvDoc::Layers& layers = document->GetLayers();
    const auto first = layers.AddUnorderedLayer("Ärger");
    const auto second = layers.AddUnorderedLayer("Two");
    second->SetProcessingStep("Structural", "Cutting");
    LayerConfiguration& configuration = layers.GetDefaultConfiguration();
    configuration.SetOrder({{layers.CreateGroup("Group"), {{first, {{second, {}}}}}}});
    configuration.SetLayerVisible(first, false);
    configuration.SetLayerPrintState(second, LayerConfiguration::PrintState::NotPrinting);

    const auto reopened = SaveAndRead(*document);
    ASSERT_EQ(reopened->GetLayers().GetAllLayers().size(), 2u);
    const auto& one = reopened->GetLayers().GetAllLayers()[0];
    const auto& two = reopened->GetLayers().GetAllLayers()[1];
    EXPECT_EQ(one->GetName(), "Ärger");
    EXPECT_EQ(two->GetProcessingStepGroup(), "Structural");
    EXPECT_EQ(two->GetProcessingStepType(), "Cutting");
    const LayerConfiguration& read = reopened->GetLayers().GetDefaultConfiguration();
    ASSERT_EQ(read.GetOrder().size(), 1u);
    EXPECT_TRUE(read.GetOrder()[0].layer->GetIsGroup());
    EXPECT_EQ(read.GetOrder()[0].children.at(0).children.at(0).layer, two);
    EXPECT_FALSE(read.IsLayerVisible(one));
    EXPECT_EQ(read.GetLayerPrintState(two), LayerConfiguration::PrintState::NotPrinting);
    EXPECT_EQ(read.GetLayerPrintState(one), LayerConfiguration::PrintState::AsSeen);
}

constexpr const char* layersOfAFile =
    "/OCProperties<</OCGs[5 0 R 6 0 R]/Configs[]/D<</Name(n)/BaseState/OFF/ON[5 0 R]/Order[[5 0 R][6 0 "
    "R]]/Locked[6 0 R]"
    "/AS[<</Event/View/Category[/View]/OCGs[5 0 R]>>]>>>>";

std::string FileWithLayers()
{
    return PdfFileOfPages({""}, layersOfAFile, "",
                          {"<</Type/OCG/Name(One)/Intent/View>>", "<</Type/OCG/Name(Two)>>"});
}

TEST_F(WriteDocument, LeavesLayersAsTheyStandIfNobodyChangedThem)
{
    Save(*ReadFile(FileWithLayers()));
    QPDFObjectHandle configuration = Catalogue().getKey("/OCProperties").getKey("/D");
    EXPECT_EQ(configuration.getKeys(),
              (std::set<std::string>{"/Name", "/BaseState", "/ON", "/Order", "/Locked", "/AS"}));
    EXPECT_TRUE(configuration.getKey("/Order").getArrayItem(0).isArray());
}

TEST_F(WriteDocument, ShowsANewLayerBesideOnesThatAreHiddenByDefault)
{
    const auto document = ReadFile(FileWithLayers());
    document->GetLayers().AddLayer("Three");
    const auto reopened = SaveAndRead(*document);
    const auto& layers = reopened->GetLayers().GetAllLayers();
    const LayerConfiguration& configuration = reopened->GetLayers().GetDefaultConfiguration();
    ASSERT_EQ(layers.size(), 3u);
    EXPECT_TRUE(configuration.IsLayerVisible(layers[0]));
    EXPECT_FALSE(configuration.IsLayerVisible(layers[1]));
    EXPECT_TRUE(configuration.IsLayerVisible(layers[2]));
}

TEST_F(WriteDocument, KeepsOtherUsagesWhenAPrintStateIsSet)
{
    const auto document = ReadFile(FileWithLayers());
    const auto layer = document->GetLayers().GetAllLayers()[1];
    document->GetLayers().GetDefaultConfiguration().SetLayerPrintState(
        layer, LayerConfiguration::PrintState::Printing);
    Save(*document);
    QPDFObjectHandle usages = Catalogue().getKey("/OCProperties").getKey("/D").getKey("/AS");
    ASSERT_EQ(usages.getArrayNItems(), 2);
    EXPECT_TRUE(usages.getArrayItem(0).getKey("/Event").isNameAndEquals("/View"));
    EXPECT_TRUE(usages.getArrayItem(1).getKey("/Event").isNameAndEquals("/Print"));
}

TEST_F(WriteDocument, NamesNoLayersForContentThatDependsOnNone)
{
    const auto document = NewDocument(1);
    const OrvDoc::LogicalLayerExpression always(OrvDoc::LogicalLayerExpression::Operation::AnyOn, {});
    Fill(ContentOf(*document), With(std::make_unique<OrvDoc::Layer>(always), FilledLine(Ink(0.5f))));
    const auto reopened = SaveAndRead(*document);
    QPDFObjectHandle lists = SavedPage().getKey("/Resources").getKey("/Properties");
    EXPECT_EQ(lists.getKey("/oc0").getKeys(), std::set<std::string>{"/Type"});
    const auto* const read = dynamic_cast<const OrvDoc::Layer*>(ContentOf(*reopened).GetChildren().first);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(boost::get<OrvDoc::LogicalLayerExpression>(read->GetMembership()), always);
}

TEST_F(WriteDocument, SaysSimpleExpressionsAsPoliciesToo)
{
    using OrvDoc::LogicalLayerExpression;
    using Operation = LogicalLayerExpression::Operation;
    const auto document = NewDocument(1);
    const LogicalLayerExpression one(document->GetLayers().AddLayer("One"));
    const LogicalLayerExpression two(document->GetLayers().AddLayer("Two"));
    const LogicalLayerExpression both(Operation::And, {one, two});
    const LogicalLayerExpression either(Operation::Or, {one, two});
    const std::pair<LogicalLayerExpression, const char*> cases[] = {
        {both, "/AllOn"},
        {either, "/AnyOn"},
        {LogicalLayerExpression(Operation::Not, {both}), "/AnyOff"},
        {LogicalLayerExpression(Operation::Not, {either}), "/AllOff"},
        {LogicalLayerExpression(Operation::Not, {one}), "/AllOff"},
        {LogicalLayerExpression(Operation::Or, {both, one}), ""},
    };
    for (const auto& [expression, policy] : cases) {
        Fill(ContentOf(*document), With(std::make_unique<OrvDoc::Layer>(expression), FilledLine(Ink(0.5f))));
    }
    const auto reopened = SaveAndRead(*document);
    QPDFObjectHandle lists = SavedPage().getKey("/Resources").getKey("/Properties");
    const auto* object = ContentOf(*reopened).GetChildren().first;
    for (std::size_t i = 0; i < std::size(cases); ++i, object = object->next) {
        QPDFObjectHandle dictionary = lists.getKey("/oc" + std::to_string(i));
        QPDFObjectHandle policy = dictionary.getKey("/P");
        EXPECT_EQ(policy.isName() ? policy.getName() : "", cases[i].second);
        EXPECT_EQ(dictionary.hasKey("/OCGs"), policy.isName());
        const auto* const read = dynamic_cast<const OrvDoc::Layer*>(object);
        ASSERT_NE(read, nullptr);
        const auto& membership = boost::get<LogicalLayerExpression>(read->GetMembership());
        EXPECT_EQ(membership.GetOperation(), cases[i].first.GetOperation());
        EXPECT_EQ(membership.GetOperands().size(), cases[i].first.GetOperands().size());
    }
}

TEST_F(WriteDocument, PutsAnOutputIntentInThePlaceOfTheOneThatWasRead)
{
    const std::string intents =
        "/OutputIntents[<</Type/OutputIntent/S/GTS_PDFA1/Info(a)>><</Type/OutputIntent/S/"
        "GTS_PDFX/Info(x)>>]";
    const auto document = ReadFile(PdfFileOfPages({""}, intents));
    document->SetOutputIntent(OrvColor::OutputIntent().SetOutputConditionIdentifier("FOGRA39"));
    Save(*document);
    QPDFObjectHandle written = Catalogue().getKey("/OutputIntents");
    ASSERT_EQ(written.getArrayNItems(), 2);
    EXPECT_EQ(written.getArrayItem(1).getKey("/Info").getUTF8Value(), "a");
    EXPECT_EQ(Reopen()->GetOutputIntent()->GetOutputConditionIdentifier(), "FOGRA39");
}

TEST_F(WriteDocument, TakesAnOutputIntentAway)
{
    const auto document = ReadFile(PdfFileOfPages({""}, "/OutputIntents[<</S/GTS_PDFX/Info(x)>>]"));
    document->SetOutputIntent(boost::none);
    Save(*document);
    EXPECT_FALSE(Catalogue().hasKey("/OutputIntents"));
}

TEST_F(WriteDocument, ListsTheSeparationsThatWereSetAndNoOthers)
{
    const auto document = NewDocument(1);
    Fill(ContentOf(*document), FilledLine(Ink(0.5f)));
    OrvColor::Representation gold;
    gold.SetCmyk({0.0f, 0.25f, 1.0f, 0.0f});
    document->SetSeparationInfo({{"Gold", gold}, {"A # name", OrvColor::Representation()}});
    const auto reopened = SaveAndRead(*document);
    EXPECT_EQ(reopened->GetSeparationInfo(), document->GetSeparationInfo());
    EXPECT_FALSE(reopened->GetSeparationInfo().empty());
}

TEST_F(WriteDocument, PointsResolvedLinksAtTheirFiles)
{
    const auto document = ReadFile(PdfFileOfPages({""}, "/OrvLinks<</a 5 0 R/b 6 0 R>>", "",
                                                  {"<</Type/Filespec>>", "<</Type/Filespec>>"}));
    EXPECT_THAT(OrvDoc::ResolveNormalizedPDFLinks(*document, {{"a", "sub/ä.pdf"}}), ElementsAre("b"));
    const auto reopened = SaveAndRead(*document);
    ASSERT_EQ(reopened->GetNormalizedPDFLinks().size(), 1u);
    EXPECT_EQ(reopened->GetNormalizedPDFLinks()[0].key, "b");
    EXPECT_EQ(Catalogue().getKey("/OrvLinks").getKeys(), std::set<std::string>{"/b"});
}

TEST_F(WriteDocument, WritesTheBlendColorSpaceOfAPage)
{
    const auto document = NewDocument(1);
    ContentOf(*document).SetBlendColorSpace(OrvDoc::BlendColorSpace(OrvColor::ColorSpace::DeviceCMYK()));
    const auto reopened = SaveAndRead(*document);
    EXPECT_EQ(ContentOf(*reopened).GetBlendColorSpace(), ContentOf(*document).GetBlendColorSpace());
    EXPECT_TRUE(SavedPage().getKey("/Group").getKey("/S").isNameAndEquals("/Transparency"));
}

TEST_F(WriteDocument, LeavesAGroupWithoutColorSpaceWhereItIs)
{
    const auto document = ReadFile(
        PdfFile({"<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Count 1/Kids[3 0 R]/MediaBox[0 0 50 50]>>",
                 "<</Type/Page/Parent 2 0 R/Group<</S/Transparency/I true>>>>"}));
    Fill(ContentOf(*document), Line());
    Save(*document);
    EXPECT_TRUE(SavedPage().getKey("/Group").getKey("/I").getBoolValue());
}

TEST_F(WriteDocument, ReplacesADamagedStreamByWhatCanBeReadOfIt)
{
    const auto document = ReadFile(PdfFileOfPages(
        {""}, "/Private 5 0 R", "", {"<</Filter/ASCIIHexDecode/Length 10>>\nstream\n414243 zz>\nendstream"}));
    Save(*document);
    const auto buffer = Catalogue().getKey("/Private").getStreamData();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(buffer->getBuffer()), 3), "ABC");
    EXPECT_THAT(TextsOf(document->GetActiveErrors()), ElementsAre(HasSubstr("object 5 0: a damaged stream")));
}

TEST_F(WriteDocument, TakesALineFeedFromBeforeAPicture)
{
    const std::string picture = "\xFF\xD8\n\xFF\xD9";
    const auto document = ReadFile(PdfFileOfPages(
        {""}, "/Private 5 0 R/Other 6 0 R", "",
        {PdfStream("\n" + picture, "/Filter[/DCTDecode]"), PdfStream("\nno picture", "/Filter/DCTDecode")}));
    Save(*document);
    const auto written = Catalogue().getKey("/Private").getRawStreamData();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(written->getBuffer()), written->getSize()), picture);
    EXPECT_EQ(Catalogue().getKey("/Other").getRawStreamData()->getSize(), 11u);
    EXPECT_THAT(TextsOf(document->GetActiveErrors()),
                ElementsAre(HasSubstr("object 5 0: white space before the picture")));
}

TEST_F(WriteDocument, KeepsSoundStreamsAsTheyAre)
{
    Save(*ReadFile(PdfFileOfPages({""}, "/Private 5 0 R/Metadata 6 0 R", "",
                                  {"<</Filter/ASCIIHexDecode/Length 7>>\nstream\n414243>\nendstream",
                                   PdfStream("<xml/>", "/Type/Metadata/Subtype/XML")})));
    EXPECT_TRUE(
        Catalogue().getKey("/Private").getDict().getKey("/Filter").isNameAndEquals("/ASCIIHexDecode"));
    EXPECT_FALSE(Catalogue().getKey("/Metadata").getDict().hasKey("/Filter"));
}

TEST_F(WriteDocument, KeepsTheKeyOfAnEncryptedFileThatDoesNotSayItsLength)
{
    const std::string plain = PdfFileOfPages({"0 0 9 9 re f"});
    QPDF source;
    source.processMemoryFile("plain", plain.data(), plain.size());
    QPDFWriter writer(source);
    writer.setOutputMemory();
    writer.setR3EncryptionParametersInsecure("", "owner", true, true, true, true, true, true, qpdf_r3p_full);
    writer.write();
    const std::unique_ptr<Buffer> buffer(writer.getBuffer());
    std::string bytes(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
    bytes.replace(bytes.find("/Length 128"), 11, "/Wength 128");
    const auto document = ReadFile(bytes);
    EXPECT_EQ(SaveAndRead(*document)->GetNumberOfPages(), 1u);
    EXPECT_EQ(SavedContent(), "0 0 9 9 re f");
}

TEST_F(WriteDocument, WritesADamagedPageAnewOfWhichAllIsModelled)
{
    const auto document = ReadFile(PdfFileOfPages({"0 0 9 9 re ) f"}));
    Save(*document);
    EXPECT_EQ(SavedContent(), "0 0 9 9 re\nf\n");
}

TEST_F(WriteDocument, KeepsNumberSignsInNames)
{
    Save(*ReadFile(PdfFileOfPages({""}, "/A#23B#20C[/D#2341]")));
    EXPECT_EQ(Catalogue().getKey("/A#B C").getArrayItem(0).getName(), "/D#41");
}

TEST_F(WriteDocument, WritesNumberSignsThatBeginNoEscapeAsOnesThatDo)
{
    Save(*ReadFile(
        PdfFileOfPages({"/P /#List BDC EMC"}, "/A#<</B#/C#x>>", "/Properties <</#List <</D#/E#>>>>")));
    EXPECT_THAT(Objects().getWarnings(), IsEmpty());
    EXPECT_EQ(Catalogue().getKey("/A#").getKey("/B#").getName(), "/C#x");
    EXPECT_THAT(Objects().getWarnings(), IsEmpty());
}

TEST_F(WriteDocument, FailsWithTheNameOfTheFileWhereNoNumberIsLeftForAnObject)
{
    const auto document = ReadFile(PdfFileOfPages({"0 0 5 5 re f"}, "/Private 2147483647 0 R"));
    try {
        Save(*document);
        FAIL() << "the file was written";
    } catch (const std::runtime_error& problem) {
        EXPECT_THAT(problem.what(), HasSubstr(Name() + ": cannot be written: "));
    }
}

TEST_F(WriteDocument, KeepsErrorsThatStayInForceTheSameObjects)
{
    const auto document = NewDocument(1);
    Fill(ContentOf(*document), std::make_unique<OrvDoc::Path>(std::make_shared<const Plexa::Compound>()));
    document->Flush();
    const auto before = ContentOf(*document).GetActiveErrors().GetAllErrors();
    ASSERT_EQ(before.size(), 1u);
    Save(*document);
    EXPECT_EQ(ContentOf(*document).GetActiveErrors().GetAllErrors(), before);
    while (OrvDoc::ContentObject* const object = ContentOf(*document).GetChildren().first) {
        delete object->ExtractFromParent();
    }
    document->Flush();
    EXPECT_THAT(ContentOf(*document).GetActiveErrors().GetAllErrors(), IsEmpty());
}

TEST_F(WriteDocument, FailsWithTheNameOfTheFileAndLeavesTheErrorsAlone)
{
    const auto document = NewDocument(1);
    Fill(ContentOf(*document), std::make_unique<OrvDoc::Path>(std::make_shared<const Plexa::Compound>()));
    const std::string file = folder.NameOf("missing/out.pdf");
    try {
        document->Save(file, full);
        FAIL() << "a file was written into a folder that is not there";
    } catch (const std::runtime_error& error) {
        EXPECT_THAT(error.what(), ::testing::StartsWith(file + ": "));
    }
    EXPECT_THAT(ContentOf(*document).GetActiveErrors().GetAllErrors(), IsEmpty());
}

} // namespace
} // namespace OrvPdf::Testing
