#include <orv_doc/dump.h>

#include <gtest/gtest.h>

#include <iomanip>
#include <regex>
#include <sstream>

#include <orv_blend/transparency.h>
#include <orv_doc/errors.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/marked_content.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_img/buffered_picture_source.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_paint/whole_shading_paint.h>

#include "document_library/orv_doc/nested_makers.h"
#include "support/text_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;

/// The dump with each ID replaced by one mark, since IDs depend on what was made before.
std::string GetDump(const Visitable& item, DumpOption option = DumpOption::WithBelow,
                    std::uint64_t indent = 0)
{
    std::ostringstream stream;
    Dump(item, stream, option, indent);
    return std::regex_replace(stream.str(), std::regex("#[0-9]+"), "#N");
}

class Dumping : public testing::Test
{
protected:
    Dumping()
    {
        Group& group = Add(content, std::make_unique<Group>(Group::Flags::DefaultUserCreated));
        group.SetName("Lines");
        group.SetTransformation(Translation(1500, -0.25));
        Path& path = Add(group, MakePath());
        path.SetFillPaint(MakeBlack());
        path.SetStrokePaint(MakeBlack());
        path.SetClippingObject(true);
    }

    std::unique_ptr<Document> document = Document::CreateNew();
    Page& page = document->AddPage({0, 0, 595000, 842000});
    PageContent& content = page.GetContent();
};

TEST_F(Dumping, ShowsADocumentWithEverythingBelowIt)
{
    document->AddPage({0, 0, 100, 200.5}).SetPageBox(PageBox::Trim, {1, 2, 3, 4});
    document->GetLayers().AddLayer("Cutting");
    document->SetSeparationInfo({Separation::Entry("Gold", {}), Separation::Entry("Cut", {})});
    document->GetActiveErrors().Add("It is broken");
    EXPECT_EQ(
        GetDump(*document),
        "Document 2 pages, 1 layer, 2 separations, 1 error\n"
        "  Page 0 media box (0, 0, 595000, 842000)\n"
        "    PageContent#N\n"
        "      Group#N 1 child, user created, name \"Lines\", transformation (1, 0, 0, 1, 1500, -0.25)\n"
        "        Path#N non-zero, 3 segments, fill Flat(Black 1), stroke Flat(Black 1), width 1000, "
        "clipping\n"
        "  Page 1 media box (0, 0, 100, 200.5), trim box (1, 2, 3, 4)\n"
        "    PageContent#N\n");
}

TEST_F(Dumping, ShowsTheItemAloneIfAskedFor)
{
    EXPECT_EQ(GetDump(*document, DumpOption::ItemOnly), "Document 1 page\n");
    EXPECT_EQ(GetDump(page, DumpOption::ItemOnly), "Page 0 media box (0, 0, 595000, 842000)\n");
    EXPECT_EQ(GetDump(content, DumpOption::ItemOnly), "PageContent#N\n");
    EXPECT_EQ(GetDump(*content.GetChildren().first, DumpOption::ItemOnly),
              "Group#N 1 child, user created, name \"Lines\", transformation (1, 0, 0, 1, 1500, -0.25)\n");
}

TEST_F(Dumping, ShowsTheIDOfTheObject)
{
    std::ostringstream stream;
    Dump(*content.GetChildren().first, stream, DumpOption::ItemOnly, 0);
    EXPECT_EQ(stream.str().find("Group#" + std::to_string(content.GetChildren().first->GetID()) + " "), 0u);
}

TEST_F(Dumping, IsIndentedFurtherAsAskedFor)
{
    EXPECT_EQ(GetDump(content, DumpOption::ItemOnly, 3), "      PageContent#N\n");
    EXPECT_EQ(GetDump(content, DumpOption::ItemOnly, 50), std::string(100, ' ') + "PageContent#N\n");
    EXPECT_EQ(GetDump(content, DumpOption::ItemOnly, 51), std::string(100, ' ') + "[51] PageContent#N\n");
}

TEST_F(Dumping, LeavesTheStreamAsItWas)
{
    std::ostringstream stream;
    stream << std::hex << std::setprecision(2) << std::setfill('*') << std::setw(40);
    Dump(content, stream, DumpOption::ItemOnly, 0);
    EXPECT_EQ(stream.width(), 40);
    EXPECT_EQ(stream.precision(), 2);
    EXPECT_TRUE(stream.flags() & std::ios::hex);
    EXPECT_EQ(stream.str(), "PageContent#" + std::to_string(content.GetID()) + "\n");
}

TEST(DumpInfo, TellsKindAndPropertiesOfEachClass)
{
    const auto document = Document::CreateNew();
    const auto layer = document->GetLayers().AddLayer("Cutting");
    using Info = std::pair<std::string, std::string>;
    EXPECT_EQ(MakeGroup()->DumpInfo(), Info("Group", "0 children"));
    EXPECT_EQ(Layer(layer).DumpInfo(), Info("Layer", "\"Cutting\", 0 children"));
    EXPECT_EQ(
        Layer(LogicalLayerExpression(LogicalLayerExpression::Operation::Not, {LogicalLayerExpression(layer)}))
            .DumpInfo(),
        Info("Layer", "Not(\"Cutting\"), 0 children"));
    EXPECT_EQ(Image(nullptr).DumpInfo(), Info("Image", ""));
    EXPECT_EQ(ImageMask(nullptr).DumpInfo(), Info("ImageMask", ""));
    EXPECT_EQ(HarrowSupport::Testing::TextOf("A")->DumpInfo(),
              Info("Text", "1 character, font \"Test-Regular\", size 12"));
    TextGroup textGroup;
    textGroup.SetClippingObject(true);
    EXPECT_EQ(textGroup.DumpInfo(), Info("TextGroup", "0 children, clipping"));
}

TEST(DumpInfo, TellsThePictureOfAnImageAndItsMask)
{
    const auto document = Document::CreateNew();
    const auto makeData = [&](std::size_t width, std::size_t bits) {
        const OrvImg::ColorSpace space = OrvImg::DeviceGray();
        return OrvImg::PictureData::Factory(
                   *document, std::make_shared<OrvImg::BufferedPictureSource>(
                                  OrvImg::PictureBuffer::Factory(width, 2, 1, bits).GetResult(), space,
                                  OrvImg::GetChannelInfosForColorSpace(space), nullptr, 0.0, 0.0, nullptr))
            .Get();
    };
    OrvImg::PaintedPicture::Factory factory(*document, makeData(3, 8), false);
    factory.SetMaskKind(OrvImg::MaskKind::SoftMask).SetMaskData(makeData(5, 4));
    EXPECT_EQ(Image(factory.Get()).DumpInfo().second,
              "3 x 2 pixels, 8 bits, DeviceGray, mask SoftMask 5 x 2");
    EXPECT_EQ(ImageMask(makeData(4, 1)).DumpInfo().second, "4 x 2 pixels");
}

TEST(DumpInfo, TellsTransparencyAndMarkedContent)
{
    Group group(Group::Flags::Default);
    MarkedContent markedContent;
    markedContent.tag = "Span";
    group.SetMarkedContent(std::make_shared<MarkedContent>(markedContent));
    OrvBlend::Transparency::Factory factory;
    group.SetTransparency(
        factory.SetBlendMode(OrvBlend::BlendMode::Multiply).SetFillAlpha(0.5f).SetKnockout(true).Get());
    EXPECT_EQ(group.DumpInfo().second,
              "0 children, marked content \"Span\", transparency Multiply 0.5/1 knockout");
}

TEST(DumpInfo, TellsColoursAndOverprint)
{
    OrvColor::ColorList<OrvColor::ColorPolicy> color;
    color.Add("Gold", 0.1f);
    color.Add("Cut", 1.0f);
    color.overprint = true;
    const auto path = MakePath();
    path->SetFillPaint(OrvPaint::GetFlatPaint(color, nullptr));
    EXPECT_EQ(path->DumpInfo().second, "non-zero, 3 segments, fill Flat(Gold 0.1, Cut 1) overprint");
    OrvColor::ColorList<OrvColor::ColorPolicy> all;
    all.all = true;
    all.valueForAll = 0.5f;
    path->SetFillPaint(OrvPaint::GetFlatPaint(all, nullptr));
    EXPECT_EQ(path->DumpInfo().second, "non-zero, 3 segments, fill Flat(All 0.5)");
}

TEST(DumpInfo, TellsTheSeparationsOfAShading)
{
    OrvColor::ColorList<OrvColor::SeparationMappingPolicy> mapping;
    mapping.Add("Gold", 0);
    mapping.Add("Cut", 1);
    mapping.overprint = true;
    const auto path = MakePath();
    path->SetFillPaint(OrvPaint::WholeShadingPaint::Factory(mapping, OrvSys::PdfObject()).Get());
    EXPECT_EQ(path->DumpInfo().second, "non-zero, 3 segments, fill OtherShading(Gold, Cut) overprint");
    mapping = {{}, 0, false, true};
    path->SetFillPaint(OrvPaint::WholeShadingPaint::Factory(mapping, OrvSys::PdfObject()).Get());
    EXPECT_EQ(path->DumpInfo().second, "non-zero, 3 segments, fill OtherShading(All)");
}

TEST(DumpInfo, TellsTheContentOfPatternsAndForms)
{
    const auto document = Document::CreateNew();
    const auto path = MakePath();
    const ContentPointer form = MakeFormContent(*document);
    path->SetFillPaint(MakeForm(form));
    EXPECT_EQ(path->DumpInfo().second,
              "non-zero, 3 segments, fill Form(content #" + std::to_string(form->GetID()) + ")");
    const ContentPointer cell = MakeContent(*document, Content::Type::UncoloredPatternContent);
    const OrvColor::ColorList<OrvColor::ColorPolicy> gold{{{0.5f, "Gold"}}, 0.0f, false, false};
    path->SetFillPaint(OrvPaint::PatternPaint::Factory(cell).SetColor(gold).Get());
    EXPECT_EQ(path->DumpInfo().second, "non-zero, 3 segments, fill TilingPattern(Gold 0.5)(content #" +
                                           std::to_string(cell->GetID()) + ")");
}

TEST(DumpInfo, KeepsNamesInTheirLine)
{
    const auto path = MakePath();
    path->SetName("a\n\"b\"\\");
    EXPECT_EQ(path->DumpInfo().second, "non-zero, 3 segments, name \"a\\x0a\\\"b\\\"\\\\\"");
}

} // namespace
