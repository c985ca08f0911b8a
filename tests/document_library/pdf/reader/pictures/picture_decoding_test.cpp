#include "pdf/reader/pictures/picture_decoding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <orv_img/painted_picture.h>

#include "document_library/pdf/pictures/dct_files.h"
#include "document_library/pdf/pictures/fax_files.h"
#include "document_library/pdf/pictures/jpx_files.h"
#include "document_library/pdf/reader/picture_files.h"
#include "support/deflated.h"

namespace
{

using HarrowSupport::Testing::Deflated;
using OrvImg::MaskKind;
using ReaderTests::ImageObject;
using ReaderTests::PictureBench;
using ReaderTests::SamplesOf;
using ReaderTests::SourceOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string gray = "/BitsPerComponent 8 /ColorSpace /DeviceGray ";
const std::string rgb = "/BitsPerComponent 8 /ColorSpace /DeviceRGB ";

std::string Size(std::size_t width, std::size_t height)
{
    return "/Width " + std::to_string(width) + " /Height " + std::to_string(height) + " ";
}

std::string InHexadecimal(const std::string& bytes)
{
    std::string digits;
    for (const char byte : bytes) {
        digits += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
        digits += "0123456789ABCDEF"[static_cast<unsigned char>(byte) & 15];
    }
    return digits + ">";
}

/// One picture, and what reading and decoding it told.
struct Decoded
{
    explicit Decoded(const std::string& object, const OrvDoc::ReadOptions& options = {})
        : bench({object}, options), picture(bench.Read())
    {
        if (picture)
            samples = SamplesOf(*picture->GetData());
        warnings = bench.TakeLateTexts();
    }

    PictureBench bench;
    std::shared_ptr<OrvPdf::PictureResource> picture;
    std::vector<int> samples;
    std::vector<std::string> warnings;
};

TEST(PictureDecoding, DeflatedSamplesAreRead)
{
    const Decoded decoded(ImageObject(Deflated("abcd"), Size(2, 2) + gray + "/Filter /FlateDecode"));
    EXPECT_THAT(decoded.samples, ElementsAre('a', 'b', 'c', 'd'));
    EXPECT_THAT(decoded.warnings, IsEmpty());
}

TEST(PictureDecoding, FiltersAreUndoneInTheirOrder)
{
    const Decoded decoded(ImageObject(InHexadecimal(Deflated("abcd")),
                                      Size(2, 2) + gray + "/Filter [/ASCIIHexDecode /FlateDecode]"));
    EXPECT_THAT(decoded.samples, ElementsAre('a', 'b', 'c', 'd'));
}

TEST(PictureDecoding, APredictorOfRowsBeforeIsUndone)
{
    // Each row says by 2 that it is told by the differences from the row above it.
    const std::string rows = {2, 10, 20, 30, 2, 1, 1, 1};
    const Decoded decoded(ImageObject(
        Deflated(rows),
        Size(1, 2) + rgb + "/Filter /FlateDecode /DecodeParms << /Predictor 15 /Colors 3 /Columns 1 >>"));
    EXPECT_THAT(decoded.samples, ElementsAre(10, 20, 30, 11, 21, 31));
}

TEST(PictureDecoding, APredictorOfPixelsBeforeIsUndone)
{
    const std::string rows = {10, 20, 30, 1, 2, 3};
    const Decoded decoded(ImageObject(
        Deflated(rows),
        Size(2, 1) + rgb + "/Filter [/FlateDecode] /DecodeParms [<< /Predictor 2 /Colors 3 /Columns 2 >>]"));
    EXPECT_THAT(decoded.samples, ElementsAre(10, 20, 30, 11, 22, 33));
}

TEST(PictureDecoding, RunLengthsAreUndone)
{
    const Decoded decoded(ImageObject("\xFDz\x80", Size(2, 2) + gray + "/Filter /RunLengthDecode"));
    EXPECT_THAT(decoded.samples, ElementsAre('z', 'z', 'z', 'z'));
}

TEST(PictureDecoding, DamagedDeflatedDataGivesWhatCameBefore)
{
    std::string data = Deflated("abcdefgh");
    data.resize(data.size() - 6);
    const Decoded decoded(ImageObject(data, Size(8, 1) + gray + "/Filter /FlateDecode"));
    ASSERT_EQ(decoded.samples.size(), 8u);
    EXPECT_EQ(decoded.samples[0], 'a');
    EXPECT_THAT(decoded.warnings, ElementsAre(HasSubstr("flate data")));
}

TEST(PictureDecoding, DataBehindTheLastRowIsPassedOver)
{
    const Decoded decoded(ImageObject("abcd\n", Size(2, 2) + gray));
    EXPECT_THAT(decoded.samples, ElementsAre('a', 'b', 'c', 'd'));
    EXPECT_THAT(decoded.warnings, IsEmpty());
}

TEST(PictureDecoding, ARowThatIsCutOffKeepsItsBeginning)
{
    const Decoded decoded(ImageObject("abc", Size(2, 2) + gray));
    EXPECT_THAT(decoded.samples, ElementsAre('a', 'b', 'c', 0));
    EXPECT_THAT(decoded.warnings, ElementsAre(HasSubstr("ends after 3 bytes")));
}

TEST(PictureDecoding, TheLimitOfTheDocumentIsToldByItsName)
{
    OrvDoc::ReadOptions options;
    options.limits.documentBytes = 3;
    const Decoded decoded(ImageObject("abcd", Size(2, 2) + gray), options);
    EXPECT_THAT(decoded.samples, ElementsAre('a', 'b', 'c', 0));
    EXPECT_THAT(decoded.warnings, ElementsAre(HasSubstr("documentBytes")));
}

TEST(PictureDecoding, TheLimitOfTheDocumentItselfIsEnough)
{
    OrvDoc::ReadOptions options;
    options.limits.documentBytes = 4;
    const Decoded decoded(ImageObject("abcd", Size(2, 2) + gray), options);
    EXPECT_THAT(decoded.samples, ElementsAre('a', 'b', 'c', 'd'));
    EXPECT_THAT(decoded.warnings, IsEmpty());
}

std::string GrayDct(std::size_t size, int sample)
{
    DctFiles::Settings settings;
    settings.given = settings.stored = JCS_GRAYSCALE;
    return DctFiles::Encoded(DctFiles::Plain(size * size, {sample}), size, size, 1, settings);
}

TEST(PictureDecoding, JpegDataIsDecoded)
{
    const Decoded decoded(ImageObject(GrayDct(8, 77), Size(8, 8) + gray + "/Filter /DCTDecode"));
    ASSERT_EQ(decoded.samples.size(), 64u);
    EXPECT_THAT(decoded.samples, Each(77));
    EXPECT_THAT(decoded.warnings, IsEmpty());
}

TEST(PictureDecoding, JpegDataIsDecodedBehindOtherFilters)
{
    const Decoded decoded(ImageObject(InHexadecimal(GrayDct(8, 77)),
                                      Size(8, 8) + gray + "/Filter [/ASCIIHexDecode /DCTDecode]"));
    ASSERT_EQ(decoded.samples.size(), 64u);
    EXPECT_THAT(decoded.samples, Each(77));
}

TEST(PictureDecoding, JpegDataOfAnotherSizeIsCutToThatOfTheDictionaryAndTold)
{
    const Decoded decoded(ImageObject(GrayDct(8, 77), Size(4, 2) + gray + "/Filter /DCTDecode"));
    EXPECT_EQ(decoded.samples, std::vector<int>(8, 77));
    EXPECT_THAT(decoded.warnings, ElementsAre(HasSubstr("8 by 8 pixels instead of 4 by 2")));
}

TEST(PictureDecoding, JpegDataThatIsTooSmallIsFilledUpWithZeros)
{
    const Decoded decoded(ImageObject(GrayDct(8, 77), Size(9, 9) + gray + "/Filter /DCTDecode"));
    ASSERT_EQ(decoded.samples.size(), 81u);
    EXPECT_EQ(decoded.samples[7], 77);
    EXPECT_EQ(decoded.samples[8], 0);
    EXPECT_EQ(decoded.samples[9], 77);
    EXPECT_EQ(decoded.samples[72], 0);
}

TEST(PictureDecoding, JpegDataOfFewerChannelsIsTold)
{
    const Decoded decoded(ImageObject(GrayDct(8, 77), Size(8, 8) + rgb + "/Filter /DCTDecode"));
    ASSERT_EQ(decoded.samples.size(), 192u);
    EXPECT_EQ(decoded.samples[1], 0);
    EXPECT_THAT(decoded.warnings, ElementsAre(HasSubstr("1 channels of 8 bits instead of 3 of 8")));
}

TEST(PictureDecoding, JpegDataOfMoreChannelsIsTold)
{
    const std::string data = DctFiles::Encoded(DctFiles::Plain(64, {1, 2, 3}), 8, 8, 3, {});
    const Decoded decoded(ImageObject(data, Size(8, 8) + gray + "/Filter /DCTDecode"));
    EXPECT_EQ(decoded.samples.size(), 64u);
    EXPECT_THAT(decoded.warnings, ElementsAre(HasSubstr("3 channels of 8 bits instead of 1 of 8")));
}

TEST(PictureDecoding, JpegDataOfAnotherDepthCannotBeDecodedAndIsToldAtOnce)
{
    std::string data = GrayDct(8, 77);
    data[DctFiles::FindFrame(data) + 4] = 12;
    PictureBench bench({ImageObject(data, Size(8, 8) + gray + "/Filter /DCTDecode")});
    const auto picture = bench.Read();
    ASSERT_TRUE(picture);
    EXPECT_TRUE(SourceOf(*picture).IsUndecodable());
    EXPECT_THAT(bench.problem, HasSubstr("12 bits a component"));
}

TEST(PictureDecoding, JpegDataWithoutAPictureCannotBeDecoded)
{
    PictureBench bench({ImageObject("nothing", Size(8, 8) + gray + "/Filter /DCTDecode")});
    const auto picture = bench.Read();
    ASSERT_TRUE(picture);
    EXPECT_TRUE(SourceOf(*picture).IsUndecodable());
    EXPECT_THAT(bench.problem, HasSubstr("no picture in it"));
}

const FaxFiles::Rows rows = {"########........", "....####....####"};

TEST(PictureDecoding, FaxDataIsDecodedWithItsParameters)
{
    const std::string data = FaxFiles::Encoded(rows, COMPRESSION_CCITTFAX4);
    const std::string entries = Size(16, 2) +
                                "/BitsPerComponent 1 /ColorSpace /DeviceGray /Filter /CCITTFaxDecode "
                                "/DecodeParms << /K -1 /Columns 16 ";
    const Decoded white(ImageObject(data, entries + ">>"));
    const Decoded black(ImageObject(data, entries + "/BlackIs1 true >>"));
    ASSERT_EQ(white.samples.size(), 32u);
    ASSERT_EQ(black.samples.size(), 32u);
    for (std::size_t index = 0; index < 32; ++index) {
        EXPECT_EQ(white.samples[index], rows[index / 16][index % 16] == '#' ? 0 : 1) << index;
        EXPECT_EQ(black.samples[index], 1 - white.samples[index]) << index;
    }
    EXPECT_THAT(white.warnings, IsEmpty());
}

TEST(PictureDecoding, FaxDataOfOtherColumnsIsToldAndCut)
{
    const std::string data = FaxFiles::Encoded(rows, COMPRESSION_CCITTFAX4);
    const Decoded decoded(
        ImageObject(data, Size(8, 2) + "/BitsPerComponent 1 /ColorSpace /DeviceGray "
                                       "/Filter /CCITTFaxDecode /DecodeParms << /K -1 /Columns 16 >>"));
    EXPECT_THAT(decoded.samples, ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 0, 0, 0, 0));
    EXPECT_THAT(decoded.warnings, ElementsAre(HasSubstr("16 by 2 pixels instead of 8 by 2")));
}

JpxFiles::Component Plain(int sample, std::uint32_t precision = 8)
{
    JpxFiles::Component component;
    component.precision = precision;
    component.samples.assign(64, sample);
    return component;
}

TEST(PictureDecoding, Jpeg2000DataSaysItsColoursAndDepthItself)
{
    const std::string file = JpxFiles::File(JpxFiles::EnumeratedSpace(16),
                                            JpxFiles::Encoded(8, 8, {Plain(10), Plain(20), Plain(30)}));
    const Decoded decoded(ImageObject(file, Size(8, 8) + "/Filter /JPXDecode"));
    ASSERT_TRUE(decoded.picture) << decoded.bench.problem;
    ASSERT_EQ(decoded.samples.size(), 192u);
    EXPECT_EQ(decoded.samples[190], 20);
    EXPECT_TRUE(boost::get<OrvImg::DeviceRGB>(&SourceOf(*decoded.picture).GetColorSpace()));
    EXPECT_FALSE(SourceOf(*decoded.picture).GetNativeSpace());
}

TEST(PictureDecoding, TheColourSpaceOfTheDictionaryGoesBeforeThatOfJpeg2000Data)
{
    const std::string data = JpxFiles::Encoded(8, 8, {Plain(10), Plain(20), Plain(30)});
    const Decoded decoded(ImageObject(
        data, Size(8, 8) + "/Filter /JPXDecode /ColorSpace [/CalRGB << /WhitePoint [0.9 1 1.1] >>]"));
    ASSERT_TRUE(decoded.picture) << decoded.bench.problem;
    EXPECT_TRUE(boost::get<OrvImg::CalRGB>(&SourceOf(*decoded.picture).GetColorSpace()));
}

TEST(PictureDecoding, ADepthOfTheDictionaryDoesNotCountForJpeg2000Data)
{
    const Decoded decoded(ImageObject(JpxFiles::Encoded(8, 8, {Plain(10)}),
                                      Size(8, 8) + "/Filter /JPXDecode /BitsPerComponent 12"));
    ASSERT_TRUE(decoded.picture) << decoded.bench.problem;
    EXPECT_EQ(SourceOf(*decoded.picture).GetBitsPerChannel(), 8u);
}

TEST(PictureDecoding, SamplesOfFewBitsInJpeg2000DataKeepTheirNumbersAndDecodeToTheWholeRange)
{
    const Decoded decoded(
        ImageObject(JpxFiles::Encoded(8, 8, {Plain(4095, 12)}), Size(8, 8) + "/Filter /JPXDecode"));
    ASSERT_TRUE(decoded.picture) << decoded.bench.problem;
    EXPECT_EQ(SourceOf(*decoded.picture).GetBitsPerChannel(), 16u);
    EXPECT_EQ(decoded.samples[0], 4095);
    EXPECT_THAT(decoded.picture->GetData()->GetChannelInfos()[0].GetDecode(),
                ElementsAre(0.0, 65535.0 / 4095.0));
}

/// Grey with an opacity.
std::string WithOpacity()
{
    return JpxFiles::File(JpxFiles::EnumeratedSpace(17) +
                              JpxFiles::ChannelDefinitions({{0, 0, 1}, {1, 1, 0}}),
                          JpxFiles::Encoded(8, 8, {Plain(10), Plain(200)}));
}

TEST(PictureDecoding, AnOpacityInJpeg2000DataIsTheMaskWhereTheDictionaryAsksForIt)
{
    const Decoded decoded(ImageObject(WithOpacity(), Size(8, 8) + "/Filter /JPXDecode /SMaskInData 1"));
    ASSERT_TRUE(decoded.picture) << decoded.bench.problem;
    ASSERT_EQ(decoded.samples.size(), 128u);
    EXPECT_EQ(decoded.samples[0], 10);
    EXPECT_EQ(decoded.samples[1], 200);
    const auto painted = decoded.picture->Paint(false, OrvColor::RenderingIntent::Perceptual);
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::SoftMask);
    EXPECT_EQ(painted->GetMaskData(false), painted->GetPictureData(false));
    EXPECT_EQ(painted->GetSoftMaskMapping(false).index, 1u);
}

TEST(PictureDecoding, AnOpacityInJpeg2000DataThatNobodyAsksForIsLeftOut)
{
    const Decoded decoded(ImageObject(WithOpacity(), Size(8, 8) + "/Filter /JPXDecode"));
    ASSERT_TRUE(decoded.picture) << decoded.bench.problem;
    EXPECT_EQ(decoded.samples, std::vector<int>(64, 10));
    EXPECT_THAT(decoded.warnings, IsEmpty());
}

TEST(PictureDecoding, Jpeg2000DataWithoutAHeaderIsRefused)
{
    PictureBench bench({ImageObject("nothing", Size(8, 8) + "/Filter /JPXDecode")});
    EXPECT_FALSE(bench.Read());
    EXPECT_THAT(bench.problem, HasSubstr("no header that can be read"));
}

TEST(PictureDecoding, DataThatAsksForMoreSamplesThanTheLimitIsToldByIt)
{
    OrvDoc::ReadOptions options;
    options.limits.pictureSamples = 63;
    const Decoded decoded(ImageObject(GrayDct(8, 77), Size(1, 1) + gray + "/Filter /DCTDecode"), options);
    EXPECT_THAT(decoded.samples, ElementsAre(0));
    EXPECT_THAT(decoded.warnings, Contains(HasSubstr("limit pictureSamples: 63 reached")));
}

} // namespace
