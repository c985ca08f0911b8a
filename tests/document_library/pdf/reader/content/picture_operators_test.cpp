#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <orv_blend/transparency.h>
#include <orv_doc/group.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_img/painted_picture.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/pattern_paint.h>

#include "document_library/pdf/form_file.h"
#include "document_library/pdf/reader/picture_files.h"

namespace
{

using HarrowSupport::Testing::PdfStream;
using OrvColor::RenderingIntent;
using OrvDoc::Image;
using OrvDoc::ImageMask;
using OrvPdf::FilePicture;
using OrvPdf::Testing::ErrorsOf;
using OrvPdf::Testing::FormAt;
using OrvPdf::Testing::FormFile;
using OrvPdf::Testing::FormObject;
using OrvPdf::Testing::ObjectsOf;
using ReaderTests::ImageObject;
using ReaderTests::SamplesOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string gray = "/Width 2 /Height 1 /BitsPerComponent 8 /ColorSpace /DeviceGray ";
const std::string picture = ImageObject("ab", gray);
const std::string stencil = ImageObject("\x80", "/Width 2 /Height 1 /ImageMask true");

const Image& ImageAt(const OrvDoc::Content& content, std::size_t index = 0)
{
    return dynamic_cast<const Image&>(*ObjectsOf(content).at(index));
}

const ImageMask& StencilAt(const OrvDoc::Content& content, std::size_t index = 0)
{
    return dynamic_cast<const ImageMask&>(*ObjectsOf(content).at(index));
}

std::vector<int> SamplesAt(const OrvDoc::Content& content, std::size_t index = 0)
{
    return SamplesOf(*ImageAt(content, index).GetPaintedPicture()->GetPictureData(false));
}

const FilePicture& SourceAt(const OrvDoc::Content& content, std::size_t index = 0)
{
    return dynamic_cast<const FilePicture&>(
        *ImageAt(content, index).GetPaintedPicture()->GetPictureData(false)->GetPictureSource());
}

std::vector<float> ColorOf(const std::shared_ptr<const OrvPaint::Paint>& paint)
{
    const auto* const flat = dynamic_cast<const OrvPaint::FlatPaint*>(paint.get());
    return flat ? flat->GetNativeComponents() : std::vector<float>{};
}

class PictureOperators : public testing::Test
{
protected:
    void Read(const std::string& content, const std::vector<std::string>& objects = {},
              const std::string& resources = "")
    {
        file.Read({content}, objects, resources);
    }

    FormFile file;
};

TEST_F(PictureOperators, APictureIsAnImageOfTheUnitSquareUnderTheMatrix)
{
    Read("20 0 0 10 3 4 cm /F0 Do", {picture});
    const OrvDoc::Content& page = file.Page();
    ASSERT_THAT(ObjectsOf(page), SizeIs(1));
    EXPECT_EQ(ImageAt(page).GetTransformation(),
              (Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>(20, 0, 0, 10, 3000, 4000)));
    EXPECT_THAT(SamplesAt(page), ElementsAre('a', 'b'));
    EXPECT_THAT(ErrorsOf(page), IsEmpty());
}

TEST_F(PictureOperators, AStencilHasTheFillPaintInForce)
{
    Read("1 0 0 rg 0 1 0 RG /F0 Do", {stencil});
    EXPECT_THAT(ColorOf(StencilAt(file.Page()).GetFillPaint()), ElementsAre(1, 0, 0));
    EXPECT_THAT(SamplesOf(*StencilAt(file.Page()).GetPictureData()), ElementsAre(1, 0));
}

TEST_F(PictureOperators, AStencilMayBePaintedWithAPattern)
{
    Read("/Pattern cs /P scn /F0 Do",
         {stencil, PdfStream("0 0 1 1 re f", "/PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 2 2] "
                                             "/XStep 2 /YStep 2 /Resources << >>")},
         "/Pattern << /P 6 0 R >>");
    EXPECT_TRUE(dynamic_cast<const OrvPaint::PatternPaint*>(StencilAt(file.Page()).GetFillPaint().get()));
}

TEST_F(PictureOperators, OnePictureIsOnePaintedPictureWhereverItIsPainted)
{
    file.Read({"/F0 Do /F0 Do", "/F0 Do"}, {picture});
    EXPECT_EQ(ImageAt(file.Page(0), 0).GetPaintedPicture(), ImageAt(file.Page(0), 1).GetPaintedPicture());
    EXPECT_EQ(ImageAt(file.Page(0), 0).GetPaintedPicture(), ImageAt(file.Page(1)).GetPaintedPicture());
}

TEST_F(PictureOperators, AnOverprintOfFillingIsThatOfThePicture)
{
    Read("/F0 Do /O gs /F0 Do", {picture}, "/ExtGState << /O << /op true >> >>");
    EXPECT_FALSE(ImageAt(file.Page(), 0).GetPaintedPicture()->GetChannelMapping(false).overprint);
    EXPECT_TRUE(ImageAt(file.Page(), 1).GetPaintedPicture()->GetChannelMapping(false).overprint);
    EXPECT_EQ(ImageAt(file.Page(), 0).GetPaintedPicture()->GetPictureData(false),
              ImageAt(file.Page(), 1).GetPaintedPicture()->GetPictureData(false));
}

TEST_F(PictureOperators, TheIntentOfTheStateIsThatOfThePicture)
{
    Read("/Saturation ri /F0 Do", {picture});
    EXPECT_EQ(ImageAt(file.Page()).GetPaintedPicture()->GetRenderingIntent(), RenderingIntent::Saturation);
}

TEST_F(PictureOperators, TheIntentOfAParameterListIsThatOfThePicture)
{
    Read("/R gs /F0 Do", {picture}, "/ExtGState << /R << /RI /Perceptual >> >>");
    EXPECT_EQ(ImageAt(file.Page()).GetPaintedPicture()->GetRenderingIntent(), RenderingIntent::Perceptual);
}

TEST_F(PictureOperators, AnIntentEndsWithItsState)
{
    Read("q /Saturation ri Q /F0 Do", {picture});
    EXPECT_EQ(ImageAt(file.Page()).GetPaintedPicture()->GetRenderingIntent(),
              RenderingIntent::RelativeColorimetric);
}

TEST_F(PictureOperators, AFormIsReadForEachIntentThatItsPictureTakesOver)
{
    Read("/F0 Do /Saturation ri /F0 Do /F0 Do",
         {FormObject("/P Do", "", "/Resources << /XObject << /P 6 0 R >> >>"), picture});
    const auto first = FormAt(file.Page(), 0);
    const auto second = FormAt(file.Page(), 1);
    EXPECT_EQ(ImageAt(first->GetContent()).GetPaintedPicture()->GetRenderingIntent(),
              RenderingIntent::RelativeColorimetric);
    EXPECT_EQ(ImageAt(second->GetContent()).GetPaintedPicture()->GetRenderingIntent(),
              RenderingIntent::Saturation);
    EXPECT_EQ(second, FormAt(file.Page(), 2));
}

TEST_F(PictureOperators, AFormWithAStencilIsReadForEachColour)
{
    Read("1 0 0 rg /F0 Do 0 1 0 rg /F0 Do",
         {FormObject("/P Do", "", "/Resources << /XObject << /P 6 0 R >> >>"), stencil});
    EXPECT_THAT(ColorOf(StencilAt(FormAt(file.Page(), 0)->GetContent()).GetFillPaint()),
                ElementsAre(1, 0, 0));
    EXPECT_THAT(ColorOf(StencilAt(FormAt(file.Page(), 1)->GetContent()).GetFillPaint()),
                ElementsAre(0, 1, 0));
}

TEST_F(PictureOperators, AFormWithAPictureIsOneForAllColours)
{
    Read("1 0 0 rg /F0 Do 0 1 0 rg /F0 Do",
         {FormObject("/P Do", "", "/Resources << /XObject << /P 6 0 R >> >>"), picture});
    EXPECT_EQ(FormAt(file.Page(), 0), FormAt(file.Page(), 1));
}

TEST_F(PictureOperators, APictureHasTheTransparencyInForce)
{
    Read("/T gs /F0 Do", {picture}, "/ExtGState << /T << /ca 0.5 /BM /Multiply >> >>");
    const auto transparency = ImageAt(file.Page()).GetTransparency();
    ASSERT_TRUE(transparency);
    EXPECT_EQ(transparency->fillAlpha, 0.5F);
    EXPECT_EQ(transparency->blendMode, OrvBlend::BlendMode::Multiply);
}

TEST_F(PictureOperators, APictureHasTheHalftonesInForce)
{
    Read("/H gs /F0 Do", {picture},
         "/ExtGState << /H << /HT << /Type /Halftone /HalftoneType 1 /Frequency 60 /Angle 45 "
         "/SpotFunction /Round >> >> >>");
    EXPECT_TRUE(ImageAt(file.Page()).GetHalftoneSet());
}

TEST_F(PictureOperators, APictureOfALayerStandsInAGroupOfIt)
{
    const std::string bytes = HarrowSupport::Testing::PdfFileOfPages(
        {"/P Do"}, "/OCProperties << /OCGs [6 0 R] /D << >> >>", "/XObject << /P 5 0 R >>",
        {ImageObject("ab", gray + "/OC 6 0 R"), "<< /Type /OCG /Name (Photos) >>"});
    const auto document =
        OrvDoc::Document::Create(file.folder.Write("layer.pdf", bytes), OrvDoc::ReadOptions());
    const OrvDoc::Content& page = HarrowSupport::Testing::ContentOf(*document);
    const auto* const group = dynamic_cast<const OrvDoc::Group*>(ObjectsOf(page).at(0));
    ASSERT_TRUE(group);
    EXPECT_TRUE(dynamic_cast<const Image*>(group->children.first));
}

TEST_F(PictureOperators, APictureWithoutAWidthIsLeftOutAndTold)
{
    Read("/F0 Do", {ImageObject("ab", "/Height 1")});
    EXPECT_THAT(ObjectsOf(file.Page()), IsEmpty());
    EXPECT_THAT(ErrorsOf(file.Page()),
                ElementsAre(HasSubstr("operator Do: resource /F0: the picture needs a positive number under "
                                      "Width")));
}

TEST_F(PictureOperators, DamageOfSamplesIsNotToldWhenThePageIsRead)
{
    Read("/F0 Do", {ImageObject("a", gray)});
    EXPECT_THAT(ErrorsOf(file.Page()), IsEmpty());
    EXPECT_THAT(SamplesAt(file.Page()), ElementsAre('a', 0));
}

TEST_F(PictureOperators, ADefaultSpaceOfThePageCountsForItsPictures)
{
    Read("/F0 Do", {picture}, "/ColorSpace << /DefaultGray [/CalGray << /WhitePoint [0.9 1 1.1] >>] >>");
    EXPECT_TRUE(boost::get<OrvImg::CalGray>(&SourceAt(file.Page()).GetColorSpace()));
}

TEST_F(PictureOperators, APictureUnderADefaultSpaceCannotStandElsewhereAsItIs)
{
    Read("/F0 Do", {picture}, "/ColorSpace << /DefaultGray [/CalGray << /WhitePoint [0.9 1 1.1] >>] >>");
    std::string problem;
    const OrvSys::PdfObject copy = SourceAt(file.Page()).Convert(problem);
    EXPECT_TRUE(copy.Find("ColorSpace").GetItems().at(0).IsName("CalGray"));
}

TEST_F(PictureOperators, ATransparencyOfAPictureIsThatOfFilling)
{
    Read("/T gs /F0 Do", {picture}, "/ExtGState << /T << /CA 0.5 >> >>");
    EXPECT_EQ(ImageAt(file.Page()).GetTransparency()->fillAlpha, 1.0F);
}

TEST_F(PictureOperators, AnInlineImageIsRead)
{
    Read("q 2 0 0 1 0 0 cm BI /Width 2 /Height 1 /BitsPerComponent 8 /ColorSpace /DeviceGray ID ab EI Q");
    EXPECT_THAT(SamplesAt(file.Page()), ElementsAre('a', 'b'));
    EXPECT_THAT(ErrorsOf(file.Page()), IsEmpty());
}

TEST_F(PictureOperators, AbbreviationsOfAnInlineImageAreUnderstood)
{
    Read("BI /W 2 /H 1 /BPC 8 /CS /G /D [1 0] /I true /F /AHx ID 6162> EI");
    EXPECT_THAT(SamplesAt(file.Page()), ElementsAre('a', 'b'));
    EXPECT_THAT(
        ImageAt(file.Page()).GetPaintedPicture()->GetPictureData(false)->GetChannelInfos()[0].GetDecode(),
        ElementsAre(1.0, 0.0));
    EXPECT_THAT(ErrorsOf(file.Page()), IsEmpty());
}

TEST_F(PictureOperators, AbbreviatedSpacesOfInlineImagesAreUnderstood)
{
    Read("BI /W 1 /H 1 /BPC 8 /CS /RGB ID abc EI BI /W 1 /H 1 /BPC 8 /CS /CMYK ID abcd EI "
         "BI /W 1 /H 1 /BPC 8 /CS [/I /RGB 0 <0A0B0C>] ID \x01 EI");
    ASSERT_THAT(ObjectsOf(file.Page()), SizeIs(3));
    EXPECT_TRUE(boost::get<OrvImg::DeviceRGB>(&SourceAt(file.Page(), 0).GetColorSpace()));
    EXPECT_THAT(SourceAt(file.Page(), 1).GetChannelInfos(), SizeIs(4));
    ASSERT_TRUE(SourceAt(file.Page(), 2).GetColorTable());
    EXPECT_THAT(SourceAt(file.Page(), 2).GetColorTable()->GetData(), ElementsAre(10, 11, 12));
}

TEST_F(PictureOperators, ASpaceOfAnInlineImageMayBeAResource)
{
    Read("BI /W 1 /H 1 /BPC 8 /CS /Lab1 /F /AHx ID 010203> EI", {},
         "/ColorSpace << /Lab1 [/Lab << /WhitePoint [0.9 1 1.1] >>] >>");
    EXPECT_TRUE(boost::get<OrvImg::Lab>(&SourceAt(file.Page()).GetColorSpace()));
}

TEST_F(PictureOperators, AnInlineImageInAMissingSpaceIsLeftOutAndTold)
{
    Read("BI /W 1 /H 1 /BPC 8 /CS /Gone /F /AHx ID 01> EI");
    EXPECT_THAT(ObjectsOf(file.Page()), IsEmpty());
    EXPECT_THAT(ErrorsOf(file.Page()),
                testing::Contains(HasSubstr("operator BI: the inline image is left out")));
}

TEST_F(PictureOperators, AnInlineStencilHasTheFillPaintInForce)
{
    Read("0 0 1 rg BI /W 2 /H 1 /IM true ID \x40 EI");
    EXPECT_THAT(ColorOf(StencilAt(file.Page()).GetFillPaint()), ElementsAre(0, 0, 1));
    EXPECT_THAT(SamplesOf(*StencilAt(file.Page()).GetPictureData()), ElementsAre(0, 1));
}

TEST_F(PictureOperators, ACopyOfAnInlineImageIsAnImageXObjectWithFullNames)
{
    Read("BI /W 2 /H 1 /BPC 8 /CS /G /F [/AHx /RL] /DP [null null] ID 01616280> EI");
    std::string problem;
    const OrvSys::PdfObject copy = SourceAt(file.Page()).Convert(problem);
    ASSERT_TRUE(copy.IsStream());
    EXPECT_TRUE(copy.Find("Type").IsName("XObject"));
    EXPECT_TRUE(copy.Find("Subtype").IsName("Image"));
    EXPECT_TRUE(copy.Find("ColorSpace").IsName("DeviceGray"));
    EXPECT_TRUE(copy.Find("Filter").GetItems().at(0).IsName("ASCIIHexDecode"));
    EXPECT_TRUE(copy.Find("Filter").GetItems().at(1).IsName("RunLengthDecode"));
    EXPECT_EQ(copy.Find("Width").GetInteger(), 2);
    EXPECT_EQ(copy.GetRawBytes(), "01616280>");
    EXPECT_THAT(SamplesAt(file.Page()), ElementsAre('a', 'b'));
}

TEST_F(PictureOperators, AStencilInAnUncolouredPatternHasTheColourOfThePathsThere)
{
    Read("/U cs 0 1 0 /P scn 0 0 9 9 re f",
         {PdfStream("1 0 0 rg 0 0 1 1 re f BI /W 2 /H 1 /IM true ID \x40 EI",
                    "/PatternType 1 /PaintType 2 /TilingType 1 /BBox [0 0 2 2] /XStep 2 /YStep 2 "
                    "/Resources << >>")},
         "/Pattern << /P 5 0 R >> /ColorSpace << /U [/Pattern /DeviceRGB] >>");
    const auto pattern = std::dynamic_pointer_cast<const OrvPaint::PatternPaint>(
        OrvPdf::Testing::PathAt(file.Page()).GetFillPaint());
    ASSERT_TRUE(pattern);
    const OrvDoc::Content& cell = pattern->GetContent();
    EXPECT_EQ(StencilAt(cell, 1).GetFillPaint(), OrvPdf::Testing::PathAt(cell).GetFillPaint());
    EXPECT_THAT(ErrorsOf(file.Page()), IsEmpty());
}

TEST_F(PictureOperators, AStencilInAGlyphHasTheColourOfTheText)
{
    Read("1 0 0 rg BT /T 10 Tf (A) Tj ET", {PdfStream("1 0 0 0 1 1 d1 BI /W 2 /H 1 /IM true ID \x40 EI")},
         "/Font << /T << /Type /Font /Subtype /Type3 /FontBBox [0 0 1 1] /FontMatrix [1 0 0 1 0 0] "
         "/CharProcs << /a 5 0 R >> /Encoding << /Differences [65 /a] >> /FirstChar 65 /LastChar 65 "
         "/Widths [1] /Resources << >> >> >>");
    EXPECT_THAT(ErrorsOf(file.Page()), IsEmpty());
    const auto& text = dynamic_cast<const OrvDoc::Group&>(*ObjectsOf(file.Page()).at(0));
    const auto glyph = OrvPdf::Testing::FormOf(text.children.first);
    ASSERT_TRUE(glyph);
    EXPECT_THAT(ColorOf(StencilAt(glyph->GetContent()).GetFillPaint()), ElementsAre(1, 0, 0));
}

} // namespace
