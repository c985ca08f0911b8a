#include "pdf/reader/pictures/picture_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <orv_img/painted_picture.h>

#include "document_library/pdf/reader/picture_files.h"

namespace
{

using OrvColor::RenderingIntent;
using OrvImg::ChannelInfo;
using OrvImg::MaskKind;
using OrvImg::PaintedPicture;
using OrvPdf::PictureResource;
using ReaderTests::ImageObject;
using ReaderTests::PictureBench;
using ReaderTests::SamplesOf;
using ReaderTests::SourceOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string gray = "/Width 2 /Height 1 /BitsPerComponent 8 /ColorSpace /DeviceGray ";

std::shared_ptr<const PaintedPicture> Painted(PictureResource& picture)
{
    return picture.Paint(false, RenderingIntent::RelativeColorimetric);
}

/// Two grey pixels with these entries besides; further objects have the numbers from 4.
class GrayPicture : public PictureBench
{
public:
    explicit GrayPicture(const std::string& entries, std::vector<std::string> others = {})
        : PictureBench(WithFirst(ImageObject("ab", gray + entries), std::move(others)))
    {
        picture = Read();
    }

    std::shared_ptr<PictureResource> picture;

private:
    static std::vector<std::string> WithFirst(const std::string& object, std::vector<std::string> others)
    {
        others.insert(others.begin(), object);
        return others;
    }
};

TEST(PictureReader, SamplesOfEveryDepthAreRead)
{
    struct Case
    {
        int bits;
        std::string data;
        std::vector<int> samples;
    };
    const std::vector<Case> cases = {{1, "\x80", {1, 0}},
                                     {2, "\xD0", {3, 1}},
                                     {4, "\xA5", {10, 5}},
                                     {8, "\xFE\x01", {254, 1}},
                                     {16, std::string("\x01\x02\xFF\x00", 4), {258, 65280}}};
    for (const Case& one : cases) {
        PictureBench bench({ImageObject(one.data, "/Width 2 /Height 1 /ColorSpace /DeviceGray "
                                                  "/BitsPerComponent " +
                                                      std::to_string(one.bits))});
        const auto picture = bench.Read();
        ASSERT_TRUE(picture) << one.bits << bench.problem;
        EXPECT_EQ(SamplesOf(*picture->GetData()), one.samples) << one.bits;
        EXPECT_EQ(picture->GetData()->GetPictureSource()->GetBitsPerChannel(),
                  static_cast<std::size_t>(one.bits));
    }
}

TEST(PictureReader, RowsBeginAtABytesStart)
{
    PictureBench bench({ImageObject("\xA0\x60", "/Width 3 /Height 2 /BitsPerComponent 1 "
                                                "/ColorSpace /DeviceGray")});
    EXPECT_THAT(SamplesOf(*bench.Read()->GetData()), ElementsAre(1, 0, 1, 0, 1, 1));
}

TEST(PictureReader, ADepthThatThereIsNotIsRefusedWithItsNumber)
{
    PictureBench bench({ImageObject("ab", "/Width 2 /Height 1 /BitsPerComponent 3 /ColorSpace /DeviceGray")});
    EXPECT_FALSE(bench.Read());
    EXPECT_THAT(bench.problem, HasSubstr("3 bits a component"));
}

TEST(PictureReader, APictureWithoutADepthIsRefused)
{
    PictureBench bench({ImageObject("ab", "/Width 2 /Height 1 /ColorSpace /DeviceGray")});
    EXPECT_FALSE(bench.Read());
    EXPECT_THAT(bench.problem, HasSubstr("no BitsPerComponent"));
}

TEST(PictureReader, APictureInAnUnknownSpaceIsRefused)
{
    PictureBench bench({ImageObject("ab", "/Width 2 /Height 1 /BitsPerComponent 8 /ColorSpace /Fancy")});
    EXPECT_FALSE(bench.Read());
    EXPECT_THAT(bench.problem, HasSubstr("no colour space"));
}

TEST(PictureReader, AnIndexedPictureKeepsItsPositions)
{
    PictureBench bench(
        {ImageObject("\x1B", "/Width 4 /Height 1 /BitsPerComponent 2 "
                             "/ColorSpace [/Indexed /DeviceRGB 3 <000000010203040506070809>]")});
    const auto picture = bench.Read();
    EXPECT_THAT(SamplesOf(*picture->GetData()), ElementsAre(0, 1, 2, 3));
    const auto table = SourceOf(*picture).GetColorTable();
    ASSERT_TRUE(table);
    unsigned char color[3] = {};
    table->GetColor(2, 2, color);
    EXPECT_THAT(color, ElementsAre(4, 5, 6));
}

TEST(PictureReader, AColorTableThatIsTooShortIsFilledUpAndTold)
{
    PictureBench bench({ImageObject("\x01", "/Width 1 /Height 1 /BitsPerComponent 8 "
                                            "/ColorSpace [/Indexed /DeviceGray 3 <0A0B>]")});
    const auto picture = bench.Read();
    ASSERT_TRUE(picture) << bench.problem;
    EXPECT_THAT(SourceOf(*picture).GetColorTable()->GetData(), ElementsAre(10, 11, 0, 0));
    EXPECT_THAT(bench.problem, HasSubstr("table"));
}

TEST(PictureReader, TheSameObjectGivesTheSamePicture)
{
    GrayPicture bench("");
    EXPECT_EQ(bench.Read(), bench.picture);
}

TEST(PictureReader, ThePaintedPictureIsTheSameForTheSameState)
{
    GrayPicture bench("");
    EXPECT_EQ(Painted(*bench.picture), Painted(*bench.picture));
    EXPECT_NE(bench.picture->Paint(true, RenderingIntent::RelativeColorimetric), Painted(*bench.picture));
    EXPECT_NE(bench.picture->Paint(false, RenderingIntent::Saturation), Painted(*bench.picture));
}

TEST(PictureReader, TheOverprintOfTheStateIsThatOfTheMapping)
{
    GrayPicture bench("");
    EXPECT_TRUE(bench.picture->Paint(true, RenderingIntent::Perceptual)->GetChannelMapping(false).overprint);
    EXPECT_FALSE(Painted(*bench.picture)->GetChannelMapping(false).overprint);
}

TEST(PictureReader, AnIntentOfItsOwnCountsBeforeThatOfTheState)
{
    GrayPicture bench("/Intent /Saturation");
    EXPECT_EQ(bench.picture->Paint(false, RenderingIntent::Perceptual)->GetRenderingIntent(),
              RenderingIntent::Saturation);
}

TEST(PictureReader, TheIntentOfTheStateCountsOtherwise)
{
    GrayPicture bench("");
    EXPECT_EQ(bench.picture->Paint(false, RenderingIntent::Perceptual)->GetRenderingIntent(),
              RenderingIntent::Perceptual);
}

TEST(PictureReader, AStencilIsOneBitDeepWhateverIsSaid)
{
    PictureBench bench({ImageObject("\x40", "/Width 2 /Height 1 /ImageMask true /Decode [1 0]")});
    const auto picture = bench.Read();
    ASSERT_TRUE(picture) << bench.problem;
    EXPECT_TRUE(picture->IsStencil());
    EXPECT_THAT(SamplesOf(*picture->GetData()), ElementsAre(0, 1));
    const ChannelInfo channel = picture->GetData()->GetChannelInfos().at(0);
    EXPECT_EQ(channel.GetType(), ChannelInfo::ChannelType::Stencil);
    EXPECT_THAT(channel.GetDecode(), ElementsAre(1.0, 0.0));
}

TEST(PictureReader, AMaskInAStreamIsAStencil)
{
    GrayPicture bench("/Mask 4 0 R", {ImageObject("\x80", "/Width 2 /Height 1 /ImageMask true "
                                                          "/BitsPerComponent 1")});
    const auto painted = Painted(*bench.picture);
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::StencilMask);
    ASSERT_TRUE(painted->GetMaskData(false));
    EXPECT_THAT(SamplesOf(*painted->GetMaskData(false)), ElementsAre(1, 0));
}

TEST(PictureReader, AMaskInAnArrayIsAColorKey)
{
    GrayPicture bench("/Mask [97 98]");
    const auto painted = Painted(*bench.picture);
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::ColorKey);
    ASSERT_THAT(painted->GetColorKey(false), SizeIs(1));
    EXPECT_THAT(painted->GetColorKey(false)[0], ElementsAre(97u, 98u));
    EXPECT_FALSE(painted->GetMaskData(false));
}

TEST(PictureReader, AColorKeyOfTooManyRangesIsItsFirstOnesAndTold)
{
    GrayPicture bench("/Mask [97 98 0 0]");
    const auto painted = Painted(*bench.picture);
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::ColorKey);
    ASSERT_THAT(painted->GetColorKey(false), SizeIs(1));
    EXPECT_THAT(painted->GetColorKey(false)[0], ElementsAre(97u, 98u));
    EXPECT_THAT(bench.problem, HasSubstr("Mask has 2 ranges instead of 1"));
}

TEST(PictureReader, AColorKeyOfTooFewRangesIsLeftOutAndTold)
{
    PictureBench bench({ImageObject("abc", "/Width 1 /Height 1 /BitsPerComponent 8 /ColorSpace /DeviceRGB "
                                           "/Mask [97 98]")});
    const auto painted = Painted(*bench.Read());
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::None);
    EXPECT_THAT(painted->GetColorKey(false), IsEmpty());
    EXPECT_THAT(bench.problem, HasSubstr("Mask has 1 ranges instead of 3"));
}

const std::string softEntries =
    "/Width 1 /Height 1 /BitsPerComponent 8 /ColorSpace /DeviceGray /Decode [1 0] ";

TEST(PictureReader, ASoftMaskIsAPictureWithItsDecode)
{
    GrayPicture bench("/SMask 4 0 R", {ImageObject("\x7F", softEntries)});
    const auto painted = Painted(*bench.picture);
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::SoftMask);
    EXPECT_THAT(SamplesOf(*painted->GetMaskData(false)), ElementsAre(127));
    EXPECT_EQ(painted->GetSoftMaskMapping(false).index, 0u);
    EXPECT_THAT(painted->GetSoftMaskMapping(false).decode, ElementsAre(1.0, 0.0));
}

TEST(PictureReader, ASoftMaskGoesBeforeAnother)
{
    GrayPicture bench("/Mask [0 1] /SMask 4 0 R", {ImageObject("\x7F", softEntries)});
    EXPECT_EQ(Painted(*bench.picture)->GetMaskKind(false), MaskKind::SoftMask);
}

TEST(PictureReader, AMatteIsThatOfTheMask)
{
    GrayPicture bench("/SMask 4 0 R", {ImageObject("\x7F", softEntries + "/Matte [0.25]")});
    const auto painted = Painted(*bench.picture);
    EXPECT_THAT(painted->GetMaskData(false)->GetMatte(), ElementsAre(0.25));
    EXPECT_THAT(painted->GetPictureData(false)->GetMatte(), IsEmpty());
}

TEST(PictureReader, PicturesThatNameOneMaskShareIt)
{
    PictureBench bench({ImageObject("ab", gray + "/SMask 5 0 R"), ImageObject("cd", gray + "/SMask 5 0 R"),
                        ImageObject("\x7F", softEntries)});
    EXPECT_EQ(Painted(*bench.Read(0))->GetMaskData(false), Painted(*bench.Read(1))->GetMaskData(false));
}

TEST(PictureReader, AMaskThatCannotBeReadIsLeftOutAndTold)
{
    GrayPicture bench("/SMask 4 0 R", {ImageObject("\x7F", "/Height 1")});
    ASSERT_TRUE(bench.picture);
    EXPECT_EQ(Painted(*bench.picture)->GetMaskKind(false), MaskKind::None);
    EXPECT_THAT(bench.problem, HasSubstr("SMask: the picture needs a positive number under Width"));
}

TEST(PictureReader, APictureThatIsItsOwnSoftMaskByItsNumberEnds)
{
    GrayPicture bench("/SMask 3 0 R");
    ASSERT_TRUE(bench.picture);
    EXPECT_EQ(Painted(*bench.picture)->GetMaskKind(false), MaskKind::SoftMask);
}

const std::string channelEntries = "/Width 2 /Height 1 /BitsPerComponent 8 /ColorSpace /DeviceGray ";

TEST(PictureReader, ExtraChannelsStandBehindThoseOfTheSpace)
{
    GrayPicture bench("/OrvChannels [<< /Name (Varnish) /Picture 4 0 R >>]",
                      {ImageObject("yz", channelEntries + "/Decode [1 0]")});
    ASSERT_TRUE(bench.picture) << bench.problem;
    EXPECT_THAT(SamplesOf(*bench.picture->GetData()), ElementsAre('a', 'y', 'b', 'z'));
    const auto channels = bench.picture->GetData()->GetChannelInfos();
    ASSERT_THAT(channels, SizeIs(2));
    EXPECT_EQ(channels[1].GetName(), "Varnish");
    EXPECT_EQ(channels[1].GetType(), ChannelInfo::ChannelType::Color);
    EXPECT_THAT(channels[1].GetDecode(), ElementsAre(1.0, 0.0));
}

TEST(PictureReader, ExtraChannelsOfFewBitsAreJoinedBitByBit)
{
    const std::string bits = "/Width 3 /Height 2 /BitsPerComponent 1 /ColorSpace /DeviceGray ";
    PictureBench bench({ImageObject("\xA0\x40", bits + "/OrvChannels [<< /Picture 4 0 R >>]"),
                        ImageObject("\xE0\x20", bits)});
    EXPECT_THAT(SamplesOf(*bench.Read()->GetData()), ElementsAre(1, 1, 0, 1, 1, 1, 0, 0, 1, 0, 0, 1));
}

TEST(PictureReader, AnAlphaChannelThatIsTheSoftMaskMakesAPictureItsOwnMask)
{
    GrayPicture bench("/SMask 4 0 R /OrvChannels [<< /Type 1 /Picture 4 0 R >>]",
                      {ImageObject("yz", channelEntries)});
    const auto painted = Painted(*bench.picture);
    EXPECT_EQ(painted->GetMaskKind(false), MaskKind::SoftMask);
    EXPECT_EQ(painted->GetMaskData(false), painted->GetPictureData(false));
    EXPECT_EQ(painted->GetSoftMaskMapping(false).index, 1u);
}

TEST(PictureReader, AnExtraChannelOfAnotherSizeIsLeftOutAndTold)
{
    GrayPicture bench("/OrvChannels [<< /Picture 4 0 R >>]", {ImageObject("x", softEntries)});
    EXPECT_THAT(SamplesOf(*bench.picture->GetData()), ElementsAre('a', 'b'));
    EXPECT_THAT(bench.problem, HasSubstr("does not fit"));
}

TEST(PictureReader, ALinkIsThatOfTheDictionary)
{
    GrayPicture bench("/OPI << /1.3 4 0 R >>", {"<< /F (fine.tif) >>"});
    const auto& link = bench.picture->GetData()->GetLink();
    ASSERT_TRUE(link);
    EXPECT_EQ(link->uri, "fine.tif");
}

TEST(PictureReader, AResolutionIsThatOfTheDictionary)
{
    GrayPicture bench("/OrvDpi [300 150]");
    EXPECT_EQ(SourceOf(*bench.picture).GetXDpi(), 300.0);
    EXPECT_EQ(SourceOf(*bench.picture).GetYDpi(), 150.0);
}

OrvDoc::ReadOptions WithSamples(std::uint64_t samples)
{
    OrvDoc::ReadOptions options;
    options.limits.pictureSamples = samples;
    return options;
}

TEST(PictureReader, APictureOfAsManySamplesAsTheLimitIsRead)
{
    PictureBench bench({ImageObject("ab", gray)}, WithSamples(2));
    EXPECT_TRUE(bench.Read());
}

TEST(PictureReader, APictureOfOneSampleBeyondTheLimitIsRefusedByItsName)
{
    PictureBench bench({ImageObject("ab", gray)}, WithSamples(1));
    EXPECT_FALSE(bench.Read());
    EXPECT_THAT(bench.problem, HasSubstr("limit pictureSamples: 1 reached"));
}

TEST(PictureReader, EachChannelCountsForTheLimitOfSamples)
{
    const std::vector<std::string> objects = {
        ImageObject("abcdef", "/Width 2 /Height 1 /BitsPerComponent 8 /ColorSpace /DeviceRGB")};
    EXPECT_TRUE(PictureBench(objects, WithSamples(6)).Read());
    EXPECT_FALSE(PictureBench(objects, WithSamples(5)).Read());
}

TEST(PictureReader, APictureOfMoreBytesThanTheLimitIsRefusedByItsName)
{
    OrvDoc::ReadOptions options;
    options.limits.streamBytes = 2;
    PictureBench fitting({ImageObject("ab", gray)}, options);
    EXPECT_TRUE(fitting.Read());
    options.limits.streamBytes = 1;
    PictureBench bench({ImageObject("ab", gray)}, options);
    EXPECT_FALSE(bench.Read());
    EXPECT_THAT(bench.problem, HasSubstr("limit streamBytes: 1 reached"));
}

TEST(PictureReader, AnEnormousPictureOfLittleDataTakesNoMemory)
{
    PictureBench bench({ImageObject("ab", "/Width 2000000000 /Height 2000000000 /BitsPerComponent 16 "
                                          "/ColorSpace /DeviceCMYK")});
    EXPECT_FALSE(bench.Read());
    EXPECT_THAT(bench.problem, HasSubstr("pictureSamples"));
}

TEST(PictureReader, APictureWithoutADecoderIsReadAndTold)
{
    PictureBench bench({ImageObject("ab", "/Width 2 /Height 1 /BitsPerComponent 1 /ColorSpace /DeviceGray "
                                          "/Filter /JBIG2Decode")});
    const auto picture = bench.Read();
    ASSERT_TRUE(picture);
    EXPECT_THAT(bench.problem, HasSubstr("JBIG2Decode"));
    EXPECT_TRUE(SourceOf(*picture).IsUndecodable());
    EXPECT_THAT(SamplesOf(*picture->GetData()), ElementsAre(0, 0));
}

TEST(PictureReader, AFilterBehindThatOfAPictureCannotBeUndone)
{
    PictureBench bench({ImageObject("ab", gray + "/Filter [/DCTDecode /FlateDecode]")});
    const auto picture = bench.Read();
    ASSERT_TRUE(picture);
    EXPECT_THAT(bench.problem, HasSubstr("followed by others"));
    EXPECT_TRUE(SourceOf(*picture).IsUndecodable());
}

} // namespace
