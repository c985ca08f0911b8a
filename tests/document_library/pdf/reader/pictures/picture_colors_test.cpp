#include "pdf/reader/pictures/picture_colors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using OrvColor::ColorSpace;
using OrvImg::ChannelInfo;
using OrvPdf::PictureColors;
using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Reading
{
    PictureColors colors;
    std::vector<std::string> problems;
};

Reading Read(const ColorSpace::Pointer& space, const std::vector<double>& decode = {}, std::size_t bits = 8)
{
    Reading reading;
    reading.colors = OrvPdf::MakePictureColors(*space, decode, bits, reading.problems);
    return reading;
}

std::vector<std::string> NamesOf(const Reading& reading)
{
    std::vector<std::string> names;
    for (const ChannelInfo& channel : reading.colors.channels)
        names.push_back(channel.GetName());
    return names;
}

std::array<double, 2> DecodeOf(const Reading& reading, std::size_t channel = 0)
{
    return reading.colors.channels.at(channel).GetDecode();
}

PdfObject Tint(std::size_t inputs)
{
    PdfObject::Items domain;
    for (std::size_t index = 0; index < inputs; ++index) {
        domain.push_back(PdfObject::Integer(0));
        domain.push_back(PdfObject::Integer(1));
    }
    const PdfObject range = PdfObject::Array({PdfObject::Integer(0), PdfObject::Integer(1)});
    std::string program = "{";
    for (std::size_t index = 1; index < inputs; ++index)
        program += " pop";
    return PdfObject::Stream(PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)},
                                                    {"Domain", PdfObject::Array(std::move(domain))},
                                                    {"Range", range}}),
                             program + " 1 exch sub }");
}

/// A profile with no more than a header.
ColorSpace::Pointer Profiled(const std::string& dataSpace)
{
    std::string bytes(128, '\0');
    bytes.replace(16, 4, dataSpace);
    return ColorSpace::ICCBased(std::make_shared<const OrvColor::ICCProfile>(bytes));
}

TEST(PictureColors, DeviceSpacesHaveOneChannelForEachComponent)
{
    EXPECT_THAT(NamesOf(Read(ColorSpace::DeviceGray())), ElementsAre("Gray"));
    EXPECT_THAT(NamesOf(Read(ColorSpace::DeviceRGB())), ElementsAre("Red", "Green", "Blue"));
}

TEST(PictureColors, DeviceSpacesStayThemselves)
{
    const Reading gray = Read(ColorSpace::DeviceGray());
    const Reading rgb = Read(ColorSpace::DeviceRGB());
    EXPECT_TRUE(boost::get<OrvImg::DeviceGray>(&gray.colors.space));
    EXPECT_TRUE(boost::get<OrvImg::DeviceRGB>(&rgb.colors.space));
}

TEST(PictureColors, DeviceCmykIsTheFourProcessInks)
{
    const Reading reading = Read(ColorSpace::DeviceCMYK());
    EXPECT_THAT(NamesOf(reading), ElementsAre("Cyan", "Magenta", "Yellow", "Black"));
    EXPECT_TRUE(boost::get<OrvImg::DeviceN>(&reading.colors.space));
}

TEST(PictureColors, ASeparationIsOneChannelWithItsLook)
{
    const Reading reading = Read(ColorSpace::Separation("Gold", ColorSpace::DeviceGray(), Tint(1)));
    EXPECT_THAT(NamesOf(reading), ElementsAre("Gold"));
    const OrvColor::Representation& look = reading.colors.channels[0].GetRepresentation();
    EXPECT_EQ(look.GetKind(), OrvColor::Representation::Kind::Gray);
    EXPECT_TRUE(boost::get<OrvImg::DeviceN>(&reading.colors.space));
}

TEST(PictureColors, DeviceNHasItsChannelsInOrderAndNoneAmongThem)
{
    const Reading reading =
        Read(ColorSpace::DeviceN({"Gold", "None", "Black"}, ColorSpace::DeviceGray(), Tint(3)));
    EXPECT_THAT(NamesOf(reading), ElementsAre("Gold", "None", "Black"));
    EXPECT_EQ(reading.colors.samples, 3u);
}

TEST(PictureColors, CalibratedGrayKeepsItsNumbers)
{
    const Reading reading = Read(ColorSpace::CalGray({0.9, 1.0, 1.1}, 2.2));
    const auto* const space = boost::get<OrvImg::CalGray>(&reading.colors.space);
    ASSERT_TRUE(space);
    EXPECT_THAT(space->whitePoint, ElementsAre(0.9, 1.0, 1.1));
    EXPECT_EQ(space->gamma, 2.2);
}

TEST(PictureColors, CalibratedRgbKeepsItsNumbers)
{
    const Reading reading =
        Read(ColorSpace::CalRGB({0.9, 1.0, 1.1}, {1.5, 2.0, 2.5}, {1, 2, 3, 4, 5, 6, 7, 8, 9}));
    const auto* const space = boost::get<OrvImg::CalRGB>(&reading.colors.space);
    ASSERT_TRUE(space);
    EXPECT_THAT(space->gamma, ElementsAre(1.5, 2.0, 2.5));
    EXPECT_THAT(space->matrix, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST(PictureColors, LabDecodesToItsOwnRange)
{
    const Reading reading = Read(ColorSpace::Lab({0.9, 1.0, 1.1}, {-50, 50, -100, 100}));
    const auto* const space = boost::get<OrvImg::Lab>(&reading.colors.space);
    ASSERT_TRUE(space);
    EXPECT_THAT(space->range, ElementsAre(-50, 50, -100, 100));
    EXPECT_THAT(DecodeOf(reading, 0), ElementsAre(0.0, 1.0));
    EXPECT_THAT(DecodeOf(reading, 1), ElementsAre(0.0, 1.0));
}

TEST(PictureColors, ADecodeOfLabIsRelativeToTheRange)
{
    const Reading reading =
        Read(ColorSpace::Lab({0.9, 1.0, 1.1}, {-50, 50, -100, 100}), {0, 50, -50, 0, 0, 100});
    EXPECT_THAT(DecodeOf(reading, 0), ElementsAre(0.0, 0.5));
    EXPECT_THAT(DecodeOf(reading, 1), ElementsAre(0.0, 0.5));
    EXPECT_THAT(DecodeOf(reading, 2), ElementsAre(0.5, 1.0));
}

TEST(PictureColors, AProfileIsTheSpace)
{
    const Reading reading = Read(Profiled("RGB "));
    const auto* const profile =
        boost::get<std::shared_ptr<const OrvColor::ICCProfile>>(&reading.colors.space);
    ASSERT_TRUE(profile);
    EXPECT_EQ((*profile)->GetDataColorSpace(), "RGB ");
    EXPECT_THAT(NamesOf(reading), ElementsAre("Red", "Green", "Blue"));
}

TEST(PictureColors, ADecodeOfAProfileOfLabIsRelativeToTheWholeOfLab)
{
    const Reading reading = Read(Profiled("Lab "), {0, 100, -128, 127, 0, 127});
    EXPECT_THAT(DecodeOf(reading, 1), ElementsAre(0.0, 1.0));
    EXPECT_THAT(DecodeOf(reading, 2), ElementsAre(128.0 / 255.0, 1.0));
}

TEST(PictureColors, ADecodeTurnsSamplesRound)
{
    EXPECT_THAT(DecodeOf(Read(ColorSpace::DeviceGray(), {1, 0})), ElementsAre(1.0, 0.0));
}

TEST(PictureColors, EachChannelHasItsOwnDecode)
{
    const Reading reading = Read(ColorSpace::DeviceRGB(), {0, 1, 1, 0, 0.25, 0.75});
    EXPECT_THAT(DecodeOf(reading, 0), ElementsAre(0.0, 1.0));
    EXPECT_THAT(DecodeOf(reading, 1), ElementsAre(1.0, 0.0));
    EXPECT_THAT(DecodeOf(reading, 2), ElementsAre(0.25, 0.75));
}

TEST(PictureColors, ADecodeOfAnotherLengthIsLeftOutAndTold)
{
    for (const std::vector<double>& decode : {std::vector<double>{1}, std::vector<double>{1, 0, 1}}) {
        const Reading reading = Read(ColorSpace::DeviceGray(), decode);
        EXPECT_THAT(DecodeOf(reading), ElementsAre(0.0, 1.0)) << decode.size();
        EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("Decode has"))) << decode.size();
    }
}

TEST(PictureColors, AnIndexedPictureHasItsTableAndTheChannelsOfTheBase)
{
    const Reading reading =
        Read(ColorSpace::Indexed(ColorSpace::DeviceRGB(), 1, std::string("abcdef")), {}, 1);
    ASSERT_TRUE(reading.colors.table);
    EXPECT_EQ(reading.colors.table->GetEntryCount(), 2u);
    EXPECT_THAT(reading.colors.table->GetData(), ElementsAre('a', 'b', 'c', 'd', 'e', 'f'));
    EXPECT_EQ(reading.colors.samples, 1u);
    EXPECT_THAT(NamesOf(reading), ElementsAre("Red", "Green", "Blue"));
    EXPECT_TRUE(boost::get<OrvImg::DeviceRGB>(&reading.colors.space));
}

TEST(PictureColors, AnIndexedPictureMayHaveABaseOfSeparations)
{
    const auto gold = ColorSpace::Separation("Gold", ColorSpace::DeviceGray(), Tint(1));
    const Reading reading = Read(ColorSpace::Indexed(gold, 1, std::string("ab")));
    EXPECT_THAT(NamesOf(reading), ElementsAre("Gold"));
    EXPECT_EQ(reading.colors.table->GetChannelCount(), 1u);
}

TEST(PictureColors, AnIndexedPictureMayHaveABaseOfLab)
{
    const auto lab = ColorSpace::Lab({0.9, 1.0, 1.1}, {-50, 50, -100, 100});
    const Reading reading = Read(ColorSpace::Indexed(lab, 0, std::string("abc")));
    EXPECT_TRUE(boost::get<OrvImg::Lab>(&reading.colors.space));
    EXPECT_THAT(DecodeOf(reading, 1), ElementsAre(0.0, 1.0));
}

TEST(PictureColors, ADecodeOfAnIndexedPictureIsOneOfPositions)
{
    const auto space = ColorSpace::Indexed(ColorSpace::DeviceGray(), 15, std::string(16, 'x'));
    const Reading reading = Read(space, {15, 0}, 4);
    EXPECT_THAT(reading.colors.table->GetDecode(), ElementsAre(1.0, 0.0));
    EXPECT_THAT(DecodeOf(reading), ElementsAre(0.0, 1.0));
}

TEST(PictureColors, APictureInPatternsIsRefused)
{
    std::vector<std::string> problems;
    EXPECT_THROW(OrvPdf::MakePictureColors(*ColorSpace::Pattern(), {}, 8, problems), std::invalid_argument);
}

TEST(PictureColors, AStencilIsOneChannelOfItsOwnType)
{
    std::vector<std::string> problems;
    const PictureColors colors = OrvPdf::MakeStencilColors({1, 0}, problems);
    ASSERT_EQ(colors.channels.size(), 1u);
    EXPECT_EQ(colors.channels[0].GetType(), ChannelInfo::ChannelType::Stencil);
    EXPECT_EQ(colors.channels[0].GetName(), "None");
    EXPECT_THAT(colors.channels[0].GetDecode(), ElementsAre(1.0, 0.0));
    EXPECT_THAT(problems, IsEmpty());
}

} // namespace
