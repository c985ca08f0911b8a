#include "image_catalogue/picture_data.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/document.h>
#include <orv_img/picture_source.h>

#include "image_catalogue/catalogue_cases.h"

namespace HarrowSupport::GenerateImage
{
namespace
{

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::SizeIs;
using Type = OrvImg::ChannelInfo::ChannelType;

class PictureOfACase : public ::testing::Test
{
protected:
    std::shared_ptr<const OrvImg::PictureSource> SourceOf(const std::string& name, bool flat = false)
    {
        return MakePictureData(*document, CaseNamed(name), flat)->GetPictureSource();
    }

    std::vector<std::array<double, 2>> DecodesOf(const std::string& name)
    {
        const auto source = SourceOf(name);
        std::vector<std::array<double, 2>> decodes;
        for (const OrvImg::ChannelInfo& channel : source->GetChannelInfos())
            decodes.push_back(channel.GetDecode());
        return decodes;
    }

    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
};

TEST_F(PictureOfACase, Has300DotsPerInchAndNoClippingPath)
{
    for (const std::size_t position : {0, 300, 600, 1150, 1300, 1375}) {
        const auto picture = MakePictureData(*document, GetTestCases()[position], false)->GetPictureSource();
        EXPECT_EQ(picture->GetXDpi(), 300.0);
        EXPECT_EQ(picture->GetYDpi(), 300.0);
        EXPECT_EQ(picture->GetClippingPath(), nullptr);
    }
}

TEST_F(PictureOfACase, HasTheDecodeRangeInItsChannels)
{
    EXPECT_THAT(DecodesOf("Image-DeviceRGB-DecodeIdentity-bps8"), Each(ElementsAre(0.0, 1.0)));
    EXPECT_THAT(DecodesOf("Image-DeviceRGB-DecodeInvert-bps8"), Each(ElementsAre(1.0, 0.0)));
    EXPECT_THAT(DecodesOf("Image-DeviceRGB-DecodeWeird-bps8"), Each(ElementsAre(0.1, 0.6)));
    EXPECT_THAT(DecodesOf("Image-DeviceRGB-DecodeWeird-bps8"), SizeIs(3));
}

TEST_F(PictureOfACase, DiffersUnderTheWeirdRangeInItsChannelsAlone)
{
    const auto weird = SourceOf("Image-DeviceN_MYC-DecodeWeird-bps4");
    const auto plain = SourceOf("Image-DeviceN_MYC-DecodeIdentity-bps4");
    for (std::size_t row = 0; row < 9; ++row)
        EXPECT_EQ(BytesOf(*weird->GetPictureBuffer(), row), BytesOf(*plain->GetPictureBuffer(), row));
    EXPECT_NE(weird->GetChannelInfos()[0].GetDecode(), plain->GetChannelInfos()[0].GetDecode());
}

TEST_F(PictureOfACase, LeavesTheDecodeRangeToTheTableIfIndexed)
{
    const auto source = SourceOf("Image-DeviceRGB-Indexed-DecodeWeird-bps8");
    EXPECT_THAT(DecodesOf("Image-DeviceRGB-Indexed-DecodeWeird-bps8"),
                ElementsAre(ElementsAre(0.0, 1.0), ElementsAre(0.0, 1.0), ElementsAre(0.0, 1.0)));
    ASSERT_NE(source->GetColorTable(), nullptr);
    EXPECT_THAT(source->GetColorTable()->GetDecode(), ElementsAre(0.1, 0.6));
}

TEST_F(PictureOfACase, HasItsOwnAlphaChannelLast)
{
    const auto source = SourceOf("Image-DeviceRGB-DecodeInvert-bps2-SoftMaskViaTB(DecodeWeird)");
    ASSERT_THAT(source->GetChannelInfos(), SizeIs(4));
    EXPECT_EQ(source->GetChannelInfos()[3].GetName(), "");
    EXPECT_EQ(source->GetChannelInfos()[3].GetType(), Type::Alpha);
    EXPECT_EQ(source->GetHeight(), 12u);
    // That of the picture, not that of the mask.
    EXPECT_THAT(source->GetChannelInfos()[3].GetDecode(), ElementsAre(1.0, 0.0));
}

TEST_F(PictureOfACase, IsAStencilForAnImageMask)
{
    const auto source = SourceOf("ImageMask-DecodeInvert-bps1");
    ASSERT_THAT(source->GetChannelInfos(), SizeIs(1));
    EXPECT_EQ(source->GetChannelInfos()[0].GetName(), "None");
    EXPECT_EQ(source->GetChannelInfos()[0].GetType(), Type::Stencil);
    EXPECT_THAT(source->GetChannelInfos()[0].GetDecode(), ElementsAre(1.0, 0.0));
    EXPECT_EQ(source->GetColorSpace().which(), 0);
}

TEST_F(PictureOfACase, HasTheColorSpaceOfItsKind)
{
    EXPECT_EQ(SourceOf("Image-DeviceN_All-DecodeInvert-bps1")->GetColorSpace().which(), 0);
    EXPECT_EQ(SourceOf("Image-DeviceGray-DecodeInvert-bps1")->GetColorSpace().which(), 1);
    EXPECT_EQ(boost::get<OrvImg::Lab>(SourceOf("Image-Lab_Weird-Indexed-DecodeInvert-bps1")->GetColorSpace())
                  .range[0],
              -50.0);
}

TEST_F(PictureOfACase, IsFlatIfAskedFor)
{
    const std::string name = "Image-DeviceGray-DecodeIdentity-bps8-SoftMask(bps1-DecodeIdentity)";
    EXPECT_EQ(SourceOf(name, true)->GetHeight(), 2u);
    EXPECT_EQ(SourceOf(name, false)->GetHeight(), 3u);
}

TEST_F(PictureOfACase, HasAsManyChannelInfosAsItsBufferOrItsTable)
{
    for (const TestCase& testCase : GetTestCases()) {
        if (testCase.bitsPerComponent == 16)
            continue;
        const auto source = MakePictureData(*document, testCase, false)->GetPictureSource();
        const auto table = source->GetColorTable();
        EXPECT_EQ(source->GetChannelInfos().size(),
                  table ? table->GetChannelCount() : source->GetPictureBuffer()->channels)
            << testCase;
        EXPECT_EQ(table != nullptr, testCase.isIndexed == true) << testCase;
    }
}

} // namespace
} // namespace HarrowSupport::GenerateImage
