// What other programs make of pictures that a program made: the file is sound, all pictures are listed, and
// renderers show the colours that the model means. A sample of the wrong polarity, or channels in another
// order, give another colour.

#include <orv_blend/transparency.h>
#include <orv_color/gen_color_profiles.h>
#include <orv_doc/content.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>
#include <orv_doc/write_options.h>

#include "support/child_process.h"
#include "support/document_makers.h"
#include "support/file_bytes.h"
#include "support/page_images.h"
#include "support/picture_makers.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <ostream>

namespace HarrowSupport::Testing
{
namespace
{

using OrvImg::MaskKind;

struct Rgb
{
    int red = 0;
    int green = 0;
    int blue = 0;
};

std::ostream& operator<<(std::ostream& stream, const Rgb& color)
{
    return stream << color.red << ' ' << color.green << ' ' << color.blue;
}

const Rgb white = {255, 255, 255};
const Rgb black = {0, 0, 0};
const Rgb red = {255, 0, 0};
const Rgb green = {0, 255, 0};
const Rgb blue = {0, 0, 255};
const Rgb gray = {128, 128, 128};

/// Renderers convert colours in ways of their own, but none takes one of these for another.
MATCHER_P2(IsNear, wanted, tolerance, "")
{
    return std::abs(arg.red - wanted.red) <= tolerance && std::abs(arg.green - wanted.green) <= tolerance &&
           std::abs(arg.blue - wanted.blue) <= tolerance;
}

/// A picture that stretches over the page of 100 by 100 points, and the colours that a row through the middle
/// of the page has, from the left, one for each pixel of the picture.
struct Case
{
    std::string name;
    std::function<std::unique_ptr<OrvDoc::ContentObject>(const OrvDoc::Document&)> make;
    std::vector<Rgb> colors;
    int tolerance = 3;
    /// A renderer without a colour engine takes other colours for those of images in Lab.
    bool needsColorEngine = false;
};

std::unique_ptr<OrvDoc::ContentObject> Whole(const PaintedPointer& picture)
{
    return ImageOf(picture, 100.0, 100.0);
}

Case Plain(const std::string& name, const MadePicture& made, const std::vector<Rgb>& colors,
           int tolerance = 3)
{
    return {name,
            [made](const OrvDoc::Document& document) {
                return Whole(Painted(document, MakePicture(document, made)));
            },
            colors, tolerance};
}

Case Masked(const std::string& name, const MadePicture& made, MaskKind kind, const MadePicture& mask,
            const std::array<double, 2>& decode, const std::vector<Rgb>& colors)
{
    return {name,
            [=](const OrvDoc::Document& document) {
                OrvImg::PaintedPicture::Factory factory(document, MakePicture(document, made), false);
                factory.SetMaskKind(kind)
                    .SetMaskData(MakePicture(document, mask))
                    .SetSoftMaskMapping({0, decode});
                return Whole(factory.Get());
            },
            colors};
}

MadePicture Inverted(MadePicture made)
{
    for (OrvImg::ChannelInfo& channel : made.channels)
        channel.SetDecode({channel.GetDecode()[1], channel.GetDecode()[0]});
    return made;
}

MadePicture OfBits(MadePicture made, std::size_t bits, std::size_t width, const std::string& bytes)
{
    made.bits = bits;
    made.width = width;
    made.bytes = bytes;
    return made;
}

MadePicture Indexed(std::size_t bits, const std::string& bytes, const std::array<double, 2>& decode)
{
    MadePicture made = OfBits(InSpace(OrvImg::DeviceRGB(), "abc"), bits, 2, bytes);
    const unsigned char colors[] = {255, 0, 0, 0, 255, 0};
    made.table = std::make_shared<OrvImg::ColorTable>(colors, 2, 3, 8, decode);
    return made;
}

MadePicture WithLooks(MadePicture made, std::size_t channel, const std::vector<float>& cmyk)
{
    OrvColor::Representation looks;
    looks.SetCmyk({cmyk[0], cmyk[1], cmyk[2], cmyk[3]});
    made.channels[channel].SetRepresentation(looks);
    return made;
}

const std::string redAndGreen("\xFF\0\0\0\xFF\0", 6);
const std::string zeroAndFull("\0\xFF", 2);

std::vector<Case> Cases()
{
    const auto& profiles = OrvColor::GenColorProfiles::Instance();
    const MadePicture rgb = InSpace(OrvImg::DeviceRGB(), redAndGreen);
    const MadePicture grays = InSpace(OrvImg::DeviceGray(), zeroAndFull);
    const auto lab = [](const char* samples) { return InSpace(OrvImg::Lab(), std::string(samples, 6)); };
    std::vector<Case> cases = {
        Plain("gray", grays, {black, white}),
        Plain("inverted gray", Inverted(grays), {white, black}),
        Plain("1 bit", OfBits(grays, 1, 2, "\x40"), {black, white}),
        Plain("2 bits", OfBits(grays, 2, 4, "\x1B"), {black, {85, 85, 85}, {170, 170, 170}, white}),
        Plain("4 bits", OfBits(grays, 4, 2, "\x0F"), {black, white}),
        Plain("16 bits", OfBits(grays, 16, 2, std::string("\0\0\x80\0", 4)), {black, gray}),
        Plain("RGB", rgb, {red, green}),
        Plain("inverted RGB", Inverted(rgb), {{0, 255, 255}, {255, 0, 255}}),
        Plain("all separations", OfSeparations({"All"}, zeroAndFull), {white, {20, 20, 20}}, 40),
        Plain("no separation", OfSeparations({"None"}, zeroAndFull), {white, white}),
        Plain("black ink", OfSeparations({"Black"}, zeroAndFull), {white, {20, 20, 20}}, 40),
        Plain("a spot", WithLooks(OfSeparations({"Gold"}, zeroAndFull), 0, {0, 0, 1, 0}),
              {white, {255, 240, 10}}, 30),
        Plain("CMYK",
              OfSeparations({"Cyan", "Magenta", "Yellow", "Black"}, std::string("\xFF\0\0\0\0\0\xFF\0", 8)),
              {{0, 174, 239}, {255, 242, 0}}, 85),
        Plain("inks in another order",
              OfSeparations({"Magenta", "Yellow", "Cyan"}, std::string("\xFF\0\0\0\xFF\0", 6)),
              {{236, 0, 140}, {255, 242, 0}}, 120),
        Plain("no ink between others",
              OfSeparations({"Yellow", "None", "Cyan"}, std::string("\xFF\xFF\0\0\xFF\0", 6)),
              {{255, 242, 0}, white}, 30),
        Plain("calibrated gray", InSpace(OrvImg::CalGray(), zeroAndFull), {black, white}, 15),
        Plain("Lab", lab("\xFF\x80\x80\0\x80\x80"), {white, black}, 10),
        Plain("inverted L", Inverted(lab("\0\x80\x80\xFF\x80\x80")), {white, black}, 10),
        Plain("profile of gray", InSpace(profiles.GetDefaultGrayProfile(true), zeroAndFull), {black, white},
              10),
        Plain("profile of RGB", InSpace(profiles.GetDefaultRgbProfile(true), redAndGreen), {red, green}, 40),
        Plain("table", Indexed(8, std::string("\0\1", 2), {0.0, 1.0}), {red, green}),
        Plain("table read from its end", Indexed(1, "\x40", {1.0, 0.0}), {green, red}),
        Masked("soft mask", InSpace(OrvImg::DeviceRGB(), std::string("\0\0\xFF", 3)), MaskKind::SoftMask,
               grays, {0.0, 1.0}, {white, blue}),
        Masked("inverted soft mask", InSpace(OrvImg::DeviceRGB(), std::string("\0\0\xFF", 3)),
               MaskKind::SoftMask, OfSeparations({"Black"}, zeroAndFull), {1.0, 0.0}, {blue, white}),
        Masked("stencil mask", InSpace(OrvImg::DeviceRGB(), std::string("\0\0\xFF", 3)),
               MaskKind::StencilMask, Stencil('\x0F'), {0.0, 1.0}, {blue, white}),
        Masked("inverted stencil mask", InSpace(OrvImg::DeviceRGB(), std::string("\0\0\xFF", 3)),
               MaskKind::StencilMask, Stencil('\x0F', {1.0, 0.0}), {0.0, 1.0}, {white, blue}),
    };
    for (Case& one : cases)
        one.needsColorEngine = one.name == "Lab" || one.name == "inverted L";
    MadePicture withAlpha = rgb;
    withAlpha.channels.push_back(AlphaChannel());
    withAlpha.bytes = std::string("\xFF\0\0\xFF\0\xFF\0\0", 8);
    cases.push_back({"own alpha",
                     [withAlpha](const OrvDoc::Document& document) {
                         const auto picture = MakePicture(document, withAlpha);
                         OrvImg::PaintedPicture::Factory factory(document, picture, false);
                         factory.SetMaskKind(MaskKind::SoftMask).SetMaskData(picture);
                         return Whole(factory.SetSoftMaskMapping(picture->GetDefaultSoftMaskMapping()).Get());
                     },
                     {red, white}});
    cases.push_back(
        {"colour key",
         [rgb](const OrvDoc::Document& document) {
             OrvImg::PaintedPicture::Factory factory(document, MakePicture(document, rgb), false);
             factory.SetMaskKind(MaskKind::ColorKey).SetColorKey({{{255, 255}}, {{0, 0}}, {{0, 0}}});
             return Whole(factory.Get());
         },
         {white, green}});
    const auto mask = [](const std::array<double, 2>& decode) {
        return [decode](const OrvDoc::Document& document) {
            auto object = std::make_unique<OrvDoc::ImageMask>(MakePicture(document, Stencil('\x0F', decode)));
            Color gold;
            gold.Add("Yellow", 1.0f);
            object->SetFillPaint(Flat(gold));
            object->SetTransformation({100.0, 0.0, 0.0, 100.0, 0.0, 0.0});
            return object;
        };
    };
    cases.push_back({"image mask", mask({0.0, 1.0}), {{255, 242, 0}, white}, 30});
    cases.push_back({"inverted image mask", mask({1.0, 0.0}), {white, {255, 242, 0}}, 30});
    return cases;
}

class WrittenPictures : public ::testing::Test
{
protected:
    WrittenPictures() : cases(Cases()), document(NewDocument(cases.size()))
    {
        for (std::size_t page = 0; page < cases.size(); ++page)
            Place(ContentOf(*document, page), Named(cases[page].make(*document), cases[page].name));
        document->Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    }

    void ExpectColors(std::size_t page, const PageImage& image)
    {
        const Case& wanted = cases[page];
        SCOPED_TRACE(wanted.name);
        ASSERT_EQ(image.width, 100u);
        ASSERT_EQ(image.height, 100u);
        for (std::size_t index = 0; index < wanted.colors.size(); ++index) {
            const std::size_t column = (2 * index + 1) * image.width / (2 * wanted.colors.size());
            const std::string pixel = image.samples.substr(3 * (50 * image.width + column), 3);
            const auto sample = [&](std::size_t channel) {
                return static_cast<int>(static_cast<unsigned char>(pixel[channel]));
            };
            EXPECT_THAT((Rgb{sample(0), sample(1), sample(2)}),
                        IsNear(wanted.colors[index], wanted.tolerance))
                << "pixel " << index;
        }
    }

    TemporaryFolder folder;
    std::string file = folder.NameOf("pictures.pdf");
    std::vector<Case> cases;
    std::unique_ptr<OrvDoc::Document> document;
};

TEST_F(WrittenPictures, AreAllWritten)
{
    for (std::size_t page = 0; page < cases.size(); ++page)
        EXPECT_THAT(ContentOf(*document, page).GetActiveErrors().GetAllErrors(), ::testing::IsEmpty())
            << cases[page].name;
}

TEST_F(WrittenPictures, AreSoundToQpdf)
{
    const ProcessResult run = RunProcess({"qpdf", "--check", file});
    if (run.exitCode == 127) {
        GTEST_SKIP() << "install qpdf to run this test";
    }
    EXPECT_EQ(run.exitCode, 0) << run.output << run.errors;
}

TEST_F(WrittenPictures, AreListedByPdfimages)
{
    const ProcessResult run = RunProcess({"pdfimages", "-list", file});
    if (run.exitCode == 127) {
        GTEST_SKIP() << "install poppler-utils to run this test";
    }
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, ::testing::HasSubstr("smask"));
    EXPECT_THAT(run.output, ::testing::HasSubstr("stencil"));
}

TEST_F(WrittenPictures, HaveTheirColoursInPdftoppm)
{
    if (!CanRenderPages()) {
        GTEST_SKIP() << "install poppler-utils to run this test";
    }
    const PageImages images = RenderPages(file);
    ASSERT_EQ(images.size(), cases.size());
    for (std::size_t page = 0; page < cases.size(); ++page)
        ExpectColors(page, images.at(page + 1));
}

TEST_F(WrittenPictures, HaveTheirColoursInMutool)
{
    const ProcessResult run = RunProcess(
        {"mutool", "draw", "-q", "-r", "72", "-c", "rgb", "-o", folder.NameOf("page%d.ppm"), file});
    if (run.exitCode == 127) {
        GTEST_SKIP() << "install mupdf-tools to run this test";
    }
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    const bool hasColorEngine = run.errors != "warning: ICC support is not available\n";
    EXPECT_TRUE(!hasColorEngine || run.errors.empty()) << run.errors;
    for (std::size_t page = 0; page < cases.size(); ++page) {
        if (cases[page].needsColorEngine && !hasColorEngine)
            continue;
        const std::string name = folder.NameOf("page" + std::to_string(page + 1) + ".ppm");
        ExpectColors(page, ReadPortablePixmap(FileBytes(name)));
    }
}

} // namespace
} // namespace HarrowSupport::Testing
