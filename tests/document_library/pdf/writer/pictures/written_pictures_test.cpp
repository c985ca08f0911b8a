// Image XObjects of pictures that a program made: their dictionaries, samples and masks, and which of them
// are one object.

#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/QPDF.hh>

#include <orv_color/gen_color_profiles.h>
#include <orv_doc/errors.h>
#include <plexa/geometry.h>

#include "document_library/pdf/writer/writer_test_support.h"
#include "support/error_texts.h"
#include "support/picture_makers.h"
#include "support/temporary_folder.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvImg::MaskKind;
using OrvImg::PaintedPicture;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class WrittenPictures : public ::testing::Test
{
protected:
    PicturePointer Make(const MadePicture& made) { return MakePicture(*document, made); }

    PaintedPointer Masked(const PicturePointer& picture, MaskKind kind, const PicturePointer& mask,
                          const OrvColor::ChannelMappingPolicy::Value& mapping = {0, {0.0, 1.0}})
    {
        return PaintedPicture::Factory(*document, picture, false)
            .SetMaskKind(kind)
            .SetMaskData(mask)
            .SetSoftMaskMapping(mapping)
            .Get();
    }

    void Add(const PaintedPointer& picture) { Fill(ContentOf(*document), ImageOf(picture)); }
    void Add(const MadePicture& made) { Add(Painted(*document, Make(made))); }

    void Save()
    {
        document->Save(folder.NameOf("out.pdf"), OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        saved = std::make_unique<QPDF>();
        saved->processFile(folder.NameOf("out.pdf").c_str());
    }

    QPDFObjectHandle SavedPage() { return saved->getAllPages().at(0); }

    /// The picture of that number on the page.
    QPDFObjectHandle Saved(int number = 0)
    {
        return SavedPage().getKey("/Resources").getKey("/XObject").getKey("/im" + std::to_string(number));
    }

    /// That of the only picture.
    QPDFObjectHandle SavedDictionary(const MadePicture& made)
    {
        Add(made);
        Save();
        EXPECT_TRUE(Saved().isStream());
        return Saved().isStream() ? Saved().getDict() : QPDFObjectHandle::newDictionary();
    }

    static std::string DataOf(QPDFObjectHandle stream)
    {
        const auto buffer = stream.getStreamData();
        return std::string(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
    }

    static std::string TextOf(QPDFObjectHandle dictionary, const char* key)
    {
        return dictionary.getKey(key).unparseResolved();
    }

    std::string SavedContent() { return DataOf(SavedPage().getKey("/Contents")); }

    int CountPictures()
    {
        int count = 0;
        for (QPDFObjectHandle object : saved->getAllObjects()) {
            const bool isPicture =
                object.isStream() && object.getDict().getKey("/Subtype").isNameAndEquals("/Image");
            count += isPicture ? 1 : 0;
        }
        return count;
    }

    std::vector<std::string> Problems() { return TextsOf(ContentOf(*document).GetActiveErrors()); }

    /// Saves, and expects that nothing is painted for that reason.
    void ExpectRefused(const std::string& reason)
    {
        Save();
        EXPECT_THAT(Problems(), ElementsAre(HasSubstr(reason)));
        EXPECT_EQ(CountPictures(), 0);
        EXPECT_FALSE(SavedPage().hasKey("/Contents"));
    }

    TemporaryFolder folder;
    std::unique_ptr<OrvDoc::Document> document = NewDocument(1);
    std::unique_ptr<QPDF> saved;
};

TEST_F(WrittenPictures, APictureHasNoEntriesButThoseThatSaySomething)
{
    QPDFObjectHandle dictionary = SavedDictionary(InSpace(OrvImg::DeviceRGB(), "\x01\x02\x03\x04\x05\x06"));
    EXPECT_THAT(dictionary.getKeys(), ElementsAre("/BitsPerComponent", "/ColorSpace", "/Filter", "/Height",
                                                  "/Intent", "/Length", "/Subtype", "/Type", "/Width"));
    EXPECT_EQ(TextOf(dictionary, "/ColorSpace"), "/DeviceRGB");
    EXPECT_EQ(TextOf(dictionary, "/Width"), "2");
    EXPECT_EQ(TextOf(dictionary, "/Height"), "1");
    EXPECT_EQ(TextOf(dictionary, "/BitsPerComponent"), "8");
    EXPECT_EQ(TextOf(dictionary, "/Intent"), "/RelativeColorimetric");
    EXPECT_EQ(DataOf(Saved()), "\x01\x02\x03\x04\x05\x06");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(WrittenPictures, AnImageIsPaintedUnderItsMatrix)
{
    Fill(ContentOf(*document),
         ImageOf(Painted(*document, Make(InSpace(OrvImg::DeviceGray(), "a"))), 30.0, 20.0));
    Save();
    EXPECT_EQ(SavedContent(), "q\n30 0 0 20 0 0 cm\n/im0 Do\nQ\n");
}

TEST_F(WrittenPictures, ANamedImageKeepsItsName)
{
    Fill(ContentOf(*document),
         Named(ImageOf(Painted(*document, Make(InSpace(OrvImg::DeviceGray(), "a")))), "it"));
    Save();
    EXPECT_THAT(SavedContent(), HasSubstr("/OrvObject <</Name (it)>> BDC\n/im0 Do\nEMC\n"));
}

TEST_F(WrittenPictures, SamplesOfAllDepthsStandAsTheyAre)
{
    const std::map<std::size_t, std::string> rows = {
        {1, "\xA0"}, {2, "\x1B"}, {4, "\x12\x30"}, {16, "abcdefgh"}};
    for (const auto& [bits, bytes] : rows) {
        MadePicture made = InSpace(OrvImg::DeviceGray(), "");
        made.width = bits == 4 ? 3 : 4;
        made.bits = bits;
        made.bytes = bytes;
        Add(made);
    }
    Save();
    int number = 0;
    for (const auto& [bits, bytes] : rows) {
        EXPECT_EQ(TextOf(Saved(number).getDict(), "/BitsPerComponent"), std::to_string(bits));
        EXPECT_EQ(DataOf(Saved(number)), bytes);
        ++number;
    }
}

TEST_F(WrittenPictures, PicturesOfSixteenBitsNeedAFileOfVersion15)
{
    MadePicture made = InSpace(OrvImg::DeviceGray(), "a");
    made.bits = 16;
    made.bytes = "ab";
    Add(made);
    Save();
    EXPECT_EQ(saved->getPDFVersion(), "1.5");
}

TEST_F(WrittenPictures, TheFourProcessInksInTheirOrderAreDeviceCmyk)
{
    EXPECT_EQ(
        TextOf(SavedDictionary(OfSeparations({"Cyan", "Magenta", "Yellow", "Black"}, "abcd")), "/ColorSpace"),
        "/DeviceCMYK");
}

TEST_F(WrittenPictures, ProcessInksInAnotherOrderAreDeviceN)
{
    QPDFObjectHandle space =
        SavedDictionary(OfSeparations({"Magenta", "Yellow", "Cyan"}, "abc")).getKey("/ColorSpace");
    EXPECT_EQ(space.getArrayItem(0).getName(), "/DeviceN");
    EXPECT_EQ(space.getArrayItem(1).unparse(), "[ /Magenta /Yellow /Cyan ]");
}

TEST_F(WrittenPictures, OneChannelIsASeparation)
{
    for (const char* const name : {"Gold", "All", "None"})
        Add(OfSeparations({name}, "a"));
    Save();
    EXPECT_EQ(Saved(0).getDict().getKey("/ColorSpace").getArrayItem(1).getName(), "/Gold");
    EXPECT_EQ(Saved(1).getDict().getKey("/ColorSpace").getArrayItem(1).getName(), "/All");
    EXPECT_EQ(Saved(2).getDict().getKey("/ColorSpace").getArrayItem(1).getName(), "/None");
}

TEST_F(WrittenPictures, AChannelLooksAsItsRepresentationSays)
{
    MadePicture made = OfSeparations({"Gold"}, "a");
    OrvColor::Representation looks;
    looks.SetCmyk({0.0f, 0.25f, 0.75f, 0.125f});
    made.channels[0].SetRepresentation(looks);
    QPDFObjectHandle tint = SavedDictionary(made).getKey("/ColorSpace").getArrayItem(3);
    EXPECT_EQ(tint.getKey("/C1").unparse(), "[ 0 0.25 0.75 0.125 ]");
}

TEST_F(WrittenPictures, SeveralChannelsLookAsTheirRepresentationsSay)
{
    MadePicture made = OfSeparations({"Cyan", "None", "None", "Gold"}, "abcd");
    OrvColor::Representation looks;
    looks.SetCmyk({0.0f, 0.25f, 0.75f, 0.125f});
    made.channels[3].SetRepresentation(looks);
    QPDFObjectHandle space = SavedDictionary(made).getKey("/ColorSpace");
    EXPECT_EQ(space.getArrayItem(1).unparse(), "[ /Cyan /None /None /Gold ]");
    EXPECT_THAT(DataOf(space.getArrayItem(3)), HasSubstr("0.25 mul add"));
}

TEST_F(WrittenPictures, CalibratedSpacesHaveAllTheirNumbers)
{
    OrvImg::CalRGB space;
    space.whitePoint = {0.7, 1.0, 0.8};
    space.blackPoint = {0.1, 0.2, 0.05};
    space.gamma = {0.9, 1.0, 1.0 / 3.0};
    space.matrix = {0, 1, 0, 0, 0, 1, 1, 0, 0};
    QPDFObjectHandle entries = SavedDictionary(InSpace(space, "abc")).getKey("/ColorSpace").getArrayItem(1);
    EXPECT_EQ(TextOf(entries, "/WhitePoint"), "[ 0.7 1 0.8 ]");
    EXPECT_EQ(TextOf(entries, "/BlackPoint"), "[ 0.1 0.2 0.05 ]");
    EXPECT_EQ(TextOf(entries, "/Gamma"), "[ 0.9 1 0.3333333333333333 ]");
    EXPECT_EQ(TextOf(entries, "/Matrix"), "[ 0 1 0 0 0 1 1 0 0 ]");
}

TEST_F(WrittenPictures, CalibratedGrayHasAllItsNumbers)
{
    OrvImg::CalGray space;
    space.whitePoint = {0.7, 1.0, 0.8};
    space.blackPoint = {0.1, 0.2, 0.05};
    space.gamma = 1.2;
    QPDFObjectHandle entries = SavedDictionary(InSpace(space, "a")).getKey("/ColorSpace").getArrayItem(1);
    EXPECT_EQ(TextOf(entries, "/BlackPoint"), "[ 0.1 0.2 0.05 ]");
    EXPECT_EQ(TextOf(entries, "/Gamma"), "1.2");
}

TEST_F(WrittenPictures, DecodeRangesOfLabAreThoseOfItsComponents)
{
    OrvImg::Lab space;
    space.range = {-50, 127, -150, 100};
    MadePicture made = InSpace(space, "abc");
    for (OrvImg::ChannelInfo& channel : made.channels)
        channel.SetDecode({1.0, 0.0});
    QPDFObjectHandle dictionary = SavedDictionary(made);
    EXPECT_EQ(TextOf(dictionary, "/Decode"), "[ 100 0 127 -50 100 -150 ]");
    EXPECT_EQ(TextOf(dictionary.getKey("/ColorSpace").getArrayItem(1), "/Range"), "[ -50 127 -150 100 ]");
}

TEST_F(WrittenPictures, DecodeRangesOfAProfileOfLabAreThoseOfItsComponents)
{
    MadePicture made = InSpace(OrvColor::GenColorProfiles::Instance().GetDefaultLabProfile(true), "abc");
    made.channels[1].SetDecode({0.0, 0.6});
    QPDFObjectHandle dictionary = SavedDictionary(made);
    EXPECT_EQ(TextOf(dictionary, "/Decode"), "[ 0 100 -128 25 -128 127 ]");
    QPDFObjectHandle profile = dictionary.getKey("/ColorSpace").getArrayItem(1).getDict();
    EXPECT_EQ(TextOf(profile, "/Range"), "[ 0 100 -128 127 -128 127 ]");
    EXPECT_EQ(TextOf(profile, "/N"), "3");
}

TEST_F(WrittenPictures, EqualProfilesAreOneStream)
{
    const auto& profiles = OrvColor::GenColorProfiles::Instance();
    Add(InSpace(profiles.GetDefaultCmykProfile(true), "abcd"));
    Add(InSpace(profiles.GetDefaultCmykProfile(true), "efgh"));
    Save();
    const auto profile = [&](int number) {
        return Saved(number).getDict().getKey("/ColorSpace").getArrayItem(1).getObjGen();
    };
    EXPECT_EQ(profile(0), profile(1));
    EXPECT_EQ(CountPictures(), 2);
}

TEST_F(WrittenPictures, ADecodeRangeOfGrayIsThatOfTheChannelAndNotOfItsInk)
{
    MadePicture made = InSpace(OrvImg::DeviceGray(), "a");
    made.channels[0].SetDecode({0.1, 0.6});
    EXPECT_EQ(TextOf(SavedDictionary(made), "/Decode"), "[ 0.1 0.6 ]");
}

TEST_F(WrittenPictures, ATableIsAnIndexedSpace)
{
    MadePicture made = InSpace(OrvImg::DeviceRGB(), "abc");
    const unsigned char colors[] = {1, 2, 3, 4, 5, 6};
    made.table = std::make_shared<OrvImg::ColorTable>(colors, 2, 3, 8, std::array<double, 2>{0.1, 0.6});
    made.width = 3;
    QPDFObjectHandle dictionary = SavedDictionary(made);
    EXPECT_EQ(dictionary.getKey("/ColorSpace").getArrayItem(0).getName(), "/Indexed");
    EXPECT_EQ(dictionary.getKey("/ColorSpace").getArrayItem(1).getName(), "/DeviceRGB");
    EXPECT_EQ(dictionary.getKey("/ColorSpace").getArrayItem(2).unparse(), "1");
    EXPECT_EQ(dictionary.getKey("/ColorSpace").getArrayItem(3).getStringValue(), "\1\2\3\4\5\6");
    EXPECT_EQ(TextOf(dictionary, "/Decode"), "[ 25.5 153 ]");
    EXPECT_EQ(DataOf(Saved()), "abc");
}

TEST_F(WrittenPictures, ATableWithoutADecodeRangeNeedsNone)
{
    MadePicture made = InSpace(OrvImg::DeviceGray(), "a");
    const unsigned char colors[256] = {};
    made.table = std::make_shared<OrvImg::ColorTable>(colors, 256, 1, 8, std::array<double, 2>{0.0, 1.0});
    EXPECT_FALSE(SavedDictionary(made).hasKey("/Decode"));
}

TEST_F(WrittenPictures, ATableOfMoreThan256EntriesIsRefused)
{
    MadePicture made = InSpace(OrvImg::DeviceGray(), "a");
    const unsigned char colors[257] = {};
    made.table = std::make_shared<OrvImg::ColorTable>(colors, 257, 1, 8, std::array<double, 2>{0.0, 1.0});
    Add(made);
    ExpectRefused("256 entries");
}

TEST_F(WrittenPictures, ASoftMaskIsAGrayPictureWithTheDecodeRangeOfItsMapping)
{
    const auto mask = Make(OfSeparations({"Black"}, "xy"));
    Add(Masked(Make(InSpace(OrvImg::DeviceRGB(), "abc")), MaskKind::SoftMask, mask, {0, {0.1, 0.6}}));
    Save();
    QPDFObjectHandle soft = Saved().getDict().getKey("/SMask");
    EXPECT_EQ(TextOf(soft.getDict(), "/ColorSpace"), "/DeviceGray");
    EXPECT_EQ(TextOf(soft.getDict(), "/Decode"), "[ 0.1 0.6 ]");
    EXPECT_EQ(DataOf(soft), "xy");
}

TEST_F(WrittenPictures, AMatteStandsInTheSoftMask)
{
    const MadePicture made = InSpace(OrvImg::DeviceGray(), "x");
    const auto source = Make(made)->GetPictureSource();
    const auto mask = OrvImg::PictureData::Factory(*document, source).SetMatte({0.5, 0.25, 1.0}).Get();
    Add(Masked(Make(InSpace(OrvImg::DeviceRGB(), "abc")), MaskKind::SoftMask, mask));
    Save();
    EXPECT_EQ(TextOf(Saved().getDict().getKey("/SMask").getDict(), "/Matte"), "[ 0.5 0.25 1 ]");
}

TEST_F(WrittenPictures, AMaskOfTwoPicturesIsOneObject)
{
    const auto mask = Make(InSpace(OrvImg::DeviceGray(), "x"));
    Add(Masked(Make(InSpace(OrvImg::DeviceRGB(), "abc")), MaskKind::SoftMask, mask));
    Add(Masked(Make(InSpace(OrvImg::DeviceRGB(), "def")), MaskKind::SoftMask, mask));
    Save();
    EXPECT_EQ(CountPictures(), 3);
}

TEST_F(WrittenPictures, ThePicturesOwnAlphaIsItsSoftMaskAndAnExtraChannel)
{
    MadePicture made = OfSeparations({"Gold", "Silver"}, "");
    made.channels.push_back(AlphaChannel());
    made.bytes = "abxcdy";
    made.width = 2;
    const auto picture = Make(made);
    Add(Masked(picture, MaskKind::SoftMask, picture, picture->GetDefaultSoftMaskMapping()));
    Save();
    QPDFObjectHandle dictionary = Saved().getDict();
    EXPECT_EQ(DataOf(Saved()), "abcd");
    EXPECT_EQ(DataOf(dictionary.getKey("/SMask")), "xy");
    QPDFObjectHandle channel = dictionary.getKey("/OrvChannels").getArrayItem(0);
    EXPECT_EQ(TextOf(channel, "/Type"), "1");
    EXPECT_EQ(channel.getKey("/Picture").getObjGen(), dictionary.getKey("/SMask").getObjGen());
    EXPECT_EQ(CountPictures(), 2);
}

TEST_F(WrittenPictures, ExtraChannelsStandBehindThoseOfTheColourSpace)
{
    MadePicture made = InSpace(OrvImg::CalGray(), "ab");
    made.width = 1;
    made.channels.push_back(ColorChannel("Varnish", {1.0, 0.0}));
    QPDFObjectHandle dictionary = SavedDictionary(made);
    EXPECT_EQ(DataOf(Saved()), "a");
    QPDFObjectHandle channel = dictionary.getKey("/OrvChannels").getArrayItem(0);
    EXPECT_EQ(channel.getKey("/Name").getStringValue(), "Varnish");
    EXPECT_EQ(DataOf(channel.getKey("/Picture")), "b");
    EXPECT_EQ(TextOf(channel.getKey("/Picture").getDict(), "/Decode"), "[ 1 0 ]");
    EXPECT_FALSE(dictionary.hasKey("/SMask"));
}

TEST_F(WrittenPictures, ChannelsOfLessThanAByteAreTakenApart)
{
    MadePicture made = OfSeparations({"Gold"}, "");
    made.channels.push_back(AlphaChannel());
    made.bits = 2;
    made.width = 3;
    made.bytes = "\x1B\x40"; // 0 1, 2 3, 1 0
    Add(made);
    Save();
    EXPECT_EQ(DataOf(Saved()), "\x24");
    EXPECT_EQ(DataOf(Saved().getDict().getKey("/OrvChannels").getArrayItem(0).getKey("/Picture")), "\x70");
}

TEST_F(WrittenPictures, AStencilMaskIsAnImageMask)
{
    Add(Masked(Make(InSpace(OrvImg::DeviceRGB(), "abc")), MaskKind::StencilMask,
               Make(Stencil('\x55', {1.0, 0.0}))));
    Save();
    QPDFObjectHandle mask = Saved().getDict().getKey("/Mask");
    EXPECT_EQ(TextOf(mask.getDict(), "/ImageMask"), "true");
    EXPECT_EQ(TextOf(mask.getDict(), "/Decode"), "[ 1 0 ]");
    EXPECT_FALSE(mask.getDict().hasKey("/ColorSpace"));
    EXPECT_EQ(DataOf(mask), "\x55");
}

TEST_F(WrittenPictures, AColourKeyIsAnArray)
{
    Add(PaintedPicture::Factory(*document, Make(InSpace(OrvImg::DeviceRGB(), "abc")), false)
            .SetMaskKind(MaskKind::ColorKey)
            .SetColorKey({{{1, 2}}, {{3, 3}}, {{0, 255}}})
            .Get());
    Save();
    EXPECT_EQ(TextOf(Saved().getDict(), "/Mask"), "[ 1 2 3 3 0 255 ]");
}

TEST_F(WrittenPictures, AnImageMaskIsPaintedWithItsFill)
{
    auto mask = std::make_unique<OrvDoc::ImageMask>(Make(Stencil('\x55')));
    mask->SetFillPaint(Flat(Tints({{"Cyan", 1.0f}, {"Magenta", 0.0f}, {"Yellow", 0.0f}, {"Black", 0.0f}})));
    Fill(ContentOf(*document), std::move(mask));
    Save();
    EXPECT_EQ(SavedContent(), "1 0 0 0 k\n/im0 Do\n");
    EXPECT_EQ(TextOf(Saved().getDict(), "/ImageMask"), "true");
    EXPECT_FALSE(Saved().getDict().hasKey("/Decode"));
}

TEST_F(WrittenPictures, AnImageMaskWithoutAPaintLeavesNoInk)
{
    Fill(ContentOf(*document), std::make_unique<OrvDoc::ImageMask>(Make(Stencil('\x55'))));
    Save();
    EXPECT_EQ(SavedContent(), "/cs0 cs\n1 scn\n/OrvObject <</Empty true>> BDC\n/im0 Do\nEMC\n");
    EXPECT_EQ(SavedPage().getKey("/Resources").getKey("/ColorSpace").getKey("/cs0").getArrayItem(1).getName(),
              "/None");
    EXPECT_THAT(Problems(), IsEmpty());
}

TEST_F(WrittenPictures, TheIntentIsThatOfThePaintedPicture)
{
    Add(PaintedPicture::Factory(*document, Make(InSpace(OrvImg::DeviceGray(), "a")), false)
            .SetRenderingIntent(OrvColor::RenderingIntent::Saturation)
            .Get());
    Save();
    EXPECT_EQ(TextOf(Saved().getDict(), "/Intent"), "/Saturation");
}

TEST_F(WrittenPictures, TheOverprintOfAPictureIsThatOfFills)
{
    Add(PaintedPicture::Factory(*document, Make(InSpace(OrvImg::DeviceGray(), "a")), true).Get());
    Save();
    QPDFObjectHandle state = SavedPage().getKey("/Resources").getKey("/ExtGState").getKey("/gs0");
    EXPECT_EQ(TextOf(state, "/op"), "true");
    EXPECT_EQ(TextOf(state, "/OP"), "false");
}

TEST_F(WrittenPictures, TheResolutionIsKept)
{
    MadePicture made = InSpace(OrvImg::DeviceGray(), "a");
    made.dpi = 300.0;
    EXPECT_EQ(TextOf(SavedDictionary(made), "/OrvDpi"), "[ 300 300 ]");
}

TEST_F(WrittenPictures, ALinkIsAProxyOfVersion2)
{
    const auto source = Make(InSpace(OrvImg::DeviceGray(), "a"))->GetPictureSource();
    OrvImg::PictureLink link;
    link.uri = "file:///original.tif";
    Add(Painted(*document, OrvImg::PictureData::Factory(*document, source).SetLink(link).Get()));
    Save();
    EXPECT_EQ(Saved().getDict().getKey("/OPI").getKey("/2.0").getKey("/F").getKey("/F").getStringValue(),
              "file:///original.tif");
}

TEST_F(WrittenPictures, APaintedPictureIsOneObjectOnAllPages)
{
    document->AddPage({0.0, 0.0, 100000.0, 100000.0});
    const auto picture = Painted(*document, Make(InSpace(OrvImg::DeviceGray(), "a")));
    Fill(ContentOf(*document, 0), ImageOf(picture), ImageOf(picture));
    Fill(ContentOf(*document, 1), ImageOf(picture));
    Save();
    EXPECT_EQ(CountPictures(), 1);
}

TEST_F(WrittenPictures, EqualPicturesAreOneObject)
{
    Add(InSpace(OrvImg::DeviceGray(), "ab"));
    Add(InSpace(OrvImg::DeviceGray(), "ab"));
    Save();
    EXPECT_EQ(CountPictures(), 1);
}

TEST_F(WrittenPictures, SeveralSeparationsTellWhatEachOfThemLooksLike)
{
    QPDFObjectHandle space = SavedDictionary(OfSeparations({"Gold", "Cyan"}, "ab")).getKey("/ColorSpace");
    QPDFObjectHandle colorants = space.getArrayItem(4).getKey("/Colorants");
    EXPECT_THAT(colorants.getKeys(), ElementsAre("/Cyan", "/Gold"));
    EXPECT_EQ(colorants.getKey("/Cyan").getArrayItem(0).getName(), "/Separation");
    EXPECT_EQ(colorants.getKey("/Cyan").getArrayItem(3).getKey("/C1").unparse(), "[ 1 0 0 0 ]");
}

TEST_F(WrittenPictures, AMappingOfItsOwnNamesTheChannels)
{
    const auto picture = Make(OfSeparations({"Gold", "Silver", "Copper"}, "abc"));
    PaintedPicture::ChannelMapping mapping;
    mapping.Add("Red", {2, {1.0, 0.0}});
    mapping.Add("Gold", {0, {0.0, 1.0}});
    Add(PaintedPicture::Factory(*document, picture, false).SetChannelMapping(mapping).Get());
    Save();
    EXPECT_EQ(Saved().getDict().getKey("/ColorSpace").getArrayItem(1).unparse(), "[ /Gold /None /Red ]");
    EXPECT_EQ(TextOf(Saved().getDict(), "/Decode"), "[ 0 1 0 1 1 0 ]");
    EXPECT_EQ(DataOf(Saved()), "abc");
}

TEST_F(WrittenPictures, AMappingOfOneChannelToTwoSeparationsIsRefused)
{
    PaintedPicture::ChannelMapping mapping;
    mapping.Add("Red", {0, {0.0, 1.0}});
    mapping.Add("Gold", {0, {0.0, 1.0}});
    Add(PaintedPicture::Factory(*document, Make(OfSeparations({"Gold"}, "a")), false)
            .SetChannelMapping(mapping)
            .Get());
    ExpectRefused("separations that no colour space can say");
}

TEST_F(WrittenPictures, AClippingPathOfAPictureIsRefused)
{
    MadePicture made = InSpace(OrvImg::DeviceGray(), "a");
    made.clippingPath =
        std::shared_ptr<const Plexa::Compound>(Plexa::GetRectangleCompound({0.0, 0.0, 500.0, 500.0}));
    Add(made);
    ExpectRefused("clipping path");
}

TEST_F(WrittenPictures, AStencilOfMoreThanABitIsRefused)
{
    MadePicture made = Stencil('\x55');
    made.bits = 8;
    made.width = 1;
    Add(Masked(Make(InSpace(OrvImg::DeviceGray(), "a")), MaskKind::StencilMask, Make(made)));
    ExpectRefused("more than one bit");
}

TEST_F(WrittenPictures, AStencilWithAWeirdDecodeRangeIsRefused)
{
    Add(Masked(Make(InSpace(OrvImg::DeviceGray(), "a")), MaskKind::StencilMask,
               Make(Stencil('\x55', {0.1, 0.6}))));
    ExpectRefused("decode range");
}

TEST_F(WrittenPictures, ASoftMaskWithATableIsRefused)
{
    MadePicture mask = InSpace(OrvImg::DeviceGray(), "a");
    const unsigned char colors[] = {0, 255};
    mask.table = std::make_shared<OrvImg::ColorTable>(colors, 2, 1, 8, std::array<double, 2>{0.0, 1.0});
    Add(Masked(Make(InSpace(OrvImg::DeviceGray(), "a")), MaskKind::SoftMask, Make(mask)));
    ExpectRefused("soft mask");
}

TEST_F(WrittenPictures, ASoftMaskTakesItsChannelOutOfAPictureOfSeveral)
{
    const auto mask = Make(OfSeparations({"Gold", "Silver"}, "axby"));
    Add(Masked(Make(InSpace(OrvImg::DeviceGray(), "ab")), MaskKind::SoftMask, mask, {1, {0.0, 1.0}}));
    Save();
    EXPECT_EQ(DataOf(Saved().getDict().getKey("/SMask")), "xy");
    EXPECT_THAT(Problems(), ElementsAre(HasSubstr("no opacity")));
}

} // namespace
} // namespace OrvPdf::Testing
