#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>
#include <orv_paint/flat_paint.h>

#include "image_catalogue/catalogue_cases.h"

namespace HarrowSupport::GenerateImage
{
namespace
{

using OrvImg::MaskKind;
using ::testing::ElementsAre;
using ::testing::SizeIs;

class ObjectOfACase : public ::testing::Test
{
protected:
    std::shared_ptr<const OrvImg::PaintedPicture> PaintedOf(const std::string& name)
    {
        return CreateImage(*document, CaseNamed(name))->GetPaintedPicture();
    }

    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
};

TEST_F(ObjectOfACase, AsksForSaturation)
{
    for (const char* const name : {"Image-DeviceGray-DecodeIdentity-bps1",
                                   "Image-DeviceN_All-DecodeWeird-bps8-SoftMaskViaTB(DecodeWeird)",
                                   "Image-DeviceGray-DecodeIdentity-bps1-SoftMask(bps1-DecodeIdentity)"})
        EXPECT_EQ(static_cast<std::uint32_t>(PaintedOf(name)->GetRenderingIntent()), 2u) << name;
}

TEST_F(ObjectOfACase, IsPlainWithoutAMask)
{
    const auto painted = PaintedOf("Image-DeviceRGB-DecodeIdentity-bps8");
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::None);
    EXPECT_EQ(painted->GetMaskData(false), nullptr);
    EXPECT_EQ(painted->GetPictureData(false)->GetHeight(), 9u);
}

TEST_F(ObjectOfACase, IsPlainWithoutAMaskKind)
{
    TestCase testCase = CaseNamed("Image-DeviceRGB-DecodeIdentity-bps8");
    testCase.maskKind = boost::none;
    const auto painted = CreateImage(*document, testCase)->GetPaintedPicture();
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::None);
    EXPECT_EQ(painted->GetPictureData(false)->GetHeight(), 9u);
}

TEST_F(ObjectOfACase, HasTheDefaultMappingWithoutOverprint)
{
    const auto painted = PaintedOf("Image-DeviceN_MYC-DecodeInvert-bps8");
    EXPECT_EQ(painted->GetChannelMapping(false),
              painted->GetPictureData(false)->GetDefaultChannelMapping(false));
    EXPECT_FALSE(painted->GetChannelMapping(false).overprint);
}

TEST_F(ObjectOfACase, HasFlatRowsUnderAMaskOfItsOwnPicture)
{
    const auto rowsOf = [this](const std::string& name) {
        const auto buffer = PaintedOf(name)->GetPictureData(false)->GetPictureSource()->GetPictureBuffer();
        std::vector<int> rows;
        for (std::size_t row = 0; row < buffer->height; ++row)
            rows.push_back(buffer->GetRowPtr(row)[0]);
        return rows;
    };
    EXPECT_THAT(rowsOf("Image-DeviceGray-DecodeIdentity-bps8-SoftMask(bps1-DecodeIdentity)"),
                ElementsAre(127, 255));
    EXPECT_THAT(rowsOf("Image-DeviceGray-DecodeInvert-bps8-SoftMask(bps1-DecodeIdentity)"),
                ElementsAre(128, 0));
    EXPECT_THAT(rowsOf("Image-DeviceN_All-DecodeIdentity-bps1-MaskedImage(bps1-DecodeInvert)"),
                ElementsAre(127, 255));
}

TEST_F(ObjectOfACase, HasASoftMaskOfBlackAsWideAsItsDepth)
{
    const auto painted = PaintedOf("Image-DeviceGray-DecodeIdentity-bps1-SoftMask(bps16-DecodeInvert)");
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::SoftMask);
    const auto& mask = painted->GetMaskData(false);
    ASSERT_NE(mask, nullptr);
    EXPECT_EQ(mask->GetWidth(), 65536u);
    EXPECT_EQ(mask->GetHeight(), 3u);
    EXPECT_EQ(mask->GetPictureSource()->GetColorSpace().which(), 0);
    ASSERT_THAT(mask->GetChannelInfos(), SizeIs(1));
    EXPECT_EQ(mask->GetChannelInfos()[0].GetName(), "Black");
    EXPECT_EQ(mask->GetPictureSource()->GetBitsPerChannel(), 16u);
}

TEST_F(ObjectOfACase, MapsASoftMaskByItsOnlyChannel)
{
    const auto painted = PaintedOf("Image-DeviceRGB-DecodeIdentity-bps8-SoftMask(bps8-DecodeWeird)");
    EXPECT_EQ(painted->GetSoftMaskMapping(false).index, 0u);
    EXPECT_THAT(painted->GetSoftMaskMapping(false).decode, ElementsAre(0.1, 0.6));
}

TEST_F(ObjectOfACase, HasARampInItsSoftMask)
{
    const auto samplesOf = [this](const std::string& mask) {
        const auto painted = PaintedOf("Image-DeviceRGB-DecodeIdentity-bps8" + mask);
        return SamplesOf(*painted->GetMaskData(false)->GetPictureSource()->GetPictureBuffer(), 2, 0);
    };
    EXPECT_EQ(samplesOf("-SoftMask(bps4-DecodeIdentity)"), Rising(16));
    EXPECT_EQ(samplesOf("-SoftMask(bps4-DecodeInvert)"), Falling(16));
}

TEST_F(ObjectOfACase, IsItsOwnMaskWithAnAlphaChannel)
{
    const auto painted = PaintedOf("Image-DeviceRGB-DecodeWeird-bps8-SoftMaskViaTB(DecodeIdentity)");
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::SoftMask);
    EXPECT_EQ(painted->GetMaskData(false), painted->GetPictureData(false));
    EXPECT_EQ(painted->GetSoftMaskMapping(false).index, 3u);
    EXPECT_THAT(painted->GetSoftMaskMapping(false).decode, ElementsAre(0.1, 0.6));
    EXPECT_EQ(painted->GetPictureData(false)->GetHeight(), 12u);
}

TEST_F(ObjectOfACase, HasAStencilOfOneBit)
{
    const auto painted = PaintedOf("Image-DeviceGray-DecodeIdentity-bps8-MaskedImage(bps1-DecodeInvert)");
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::StencilMask);
    const auto& mask = painted->GetMaskData(false);
    ASSERT_NE(mask, nullptr);
    EXPECT_EQ(mask->GetWidth(), 2u);
    EXPECT_EQ(mask->GetHeight(), 3u);
    ASSERT_THAT(mask->GetChannelInfos(), SizeIs(1));
    EXPECT_EQ(mask->GetChannelInfos()[0].GetName(), "None");
    EXPECT_EQ(mask->GetChannelInfos()[0].GetType(), OrvImg::ChannelInfo::ChannelType::Stencil);
    EXPECT_THAT(mask->GetChannelInfos()[0].GetDecode(), ElementsAre(1.0, 0.0));
    EXPECT_EQ(SamplesOf(*mask->GetPictureSource()->GetPictureBuffer(), 0, 0), Falling(2));
}

TEST_F(ObjectOfACase, IsFilledWithBlackIfAnImageMask)
{
    const auto mask = CreateImageMask(*document, CaseNamed("ImageMask-DecodeInvert-bps1"));
    const auto paint = std::dynamic_pointer_cast<const OrvPaint::FlatPaint>(mask->GetFillPaint());
    ASSERT_NE(paint, nullptr);
    const OrvColor::ColorList<OrvColor::ColorPolicy> black{{{1.0f, "Black"}}, 0.0f, false, false};
    EXPECT_EQ(paint->GetColor(), black);
    EXPECT_EQ(mask->GetPictureData()->GetChannelInfos()[0].GetType(),
              OrvImg::ChannelInfo::ChannelType::Stencil);
}

TEST_F(ObjectOfACase, StandsNowhereAndHasNoName)
{
    const auto image = CreateImage(*document, GetTestCases()[0]);
    EXPECT_EQ(image->GetName(), "");
    EXPECT_EQ(image->GetContent(), nullptr);
}

TEST_F(ObjectOfACase, SharesNothingWithAnEarlierOne)
{
    const TestCase& testCase = CaseNamed("Image-DeviceRGB-DecodeIdentity-bps8-SoftMask(bps8-DecodeWeird)");
    const auto first = CreateImage(*document, testCase)->GetPaintedPicture();
    const auto second = CreateImage(*document, testCase)->GetPaintedPicture();
    EXPECT_NE(first, second);
    EXPECT_NE(first->GetPictureData(false), second->GetPictureData(false));
    EXPECT_NE(first->GetMaskData(false), second->GetMaskData(false));
}

TEST_F(ObjectOfACase, PassesOnThatADepthIsRefused)
{
    TestCase testCase = CaseNamed("Image-DeviceGray-DecodeIdentity-bps1");
    testCase.bitsPerComponent = 3;
    EXPECT_THROW(CreateImage(*document, testCase), std::invalid_argument);
}

} // namespace
} // namespace HarrowSupport::GenerateImage
