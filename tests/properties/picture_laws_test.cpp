// Every picture comes back from a file exactly as it was, to the last sample, which the comparison with its
// tolerances doesn't tell: it knows neither mattes nor the ranges of colour keys nor resolutions.

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/document_makers.h"
#include "support/error_texts.h"
#include "support/random_documents.h"
#include "support/random_pictures.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

constexpr std::uint32_t images = 1000;

void DescribeRange(std::ostream& text, const Range& range)
{
    text << "[" << range[0] << " " << range[1] << "]";
}

void DescribeBytes(std::ostream& text, const unsigned char* bytes, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        text << " " << static_cast<unsigned>(bytes[i]);
    }
}

/// Without its link, whose definition is made by writing. A soft mask's channel may have any range, as that
/// of its mapping counts.
std::string DescribePicture(const OrvImg::PictureData& picture, bool isSoftMask = false)
{
    std::ostringstream text;
    // More digits than a number that went through a file could lose.
    text.precision(12);
    const OrvImg::PictureSource& source = *picture.GetPictureSource();
    const BufferPointer buffer = source.GetPictureBuffer();
    text << source.GetColorSpace() << ", " << buffer->width << " x " << buffer->height << ", "
         << buffer->channels << " of " << buffer->bitsPerChannel << " bits, dpi " << source.GetXDpi() << " "
         << source.GetYDpi();
    for (const OrvImg::ChannelInfo& channel : picture.GetChannelInfos()) {
        text << ", " << channel.GetName() << " of type " << static_cast<unsigned>(channel.GetType()) << " ";
        DescribeRange(text, isSoftMask ? identity : channel.GetDecode());
    }
    if (const TablePointer table = source.GetColorTable()) {
        text << ", table ";
        DescribeRange(text, table->GetDecode());
        DescribeBytes(text, table->GetData().data(), table->GetData().size());
    }
    text << ", matte";
    for (const double component : picture.GetMatte()) {
        text << " " << component;
    }
    text << ", samples";
    for (std::size_t row = 0; row < buffer->height; ++row) {
        DescribeBytes(text, buffer->GetRowPtr(row), buffer->GetBytesPerRow());
    }
    return text.str();
}

std::string DescribePainted(const OrvImg::PaintedPicture& picture)
{
    const PicturePointer& mask = picture.GetMaskData(false);
    std::ostringstream text;
    text.precision(12);
    text << DescribePicture(*picture.GetPictureData(false)) << ", intent " << picture.GetRenderingIntent()
         << ", overprint " << picture.GetChannelMapping(false).overprint << ", mask "
         << picture.GetMaskKind(false);
    const bool isSoftMask = picture.GetMaskKind(false) == OrvImg::MaskKind::SoftMask;
    if (mask) {
        text << ", its own mask " << (mask == picture.GetPictureData(false)) << ", "
             << DescribePicture(*mask, isSoftMask);
    }
    if (isSoftMask) {
        text << ", channel " << picture.GetSoftMaskMapping(false).index << " ";
        DescribeRange(text, picture.GetSoftMaskMapping(false).decode);
    }
    for (const auto& range : picture.GetColorKey(false)) {
        text << ", key " << range[0] << " to " << range[1];
    }
    return text.str();
}

std::vector<std::string> DescribeImages(const OrvDoc::Content& content)
{
    std::vector<std::string> texts;
    for (const OrvDoc::ContentObject* object = content.GetChildren().first; object; object = object->next) {
        if (const auto* const image = dynamic_cast<const OrvDoc::Image*>(object)) {
            texts.push_back(DescribePainted(*image->GetPaintedPicture()));
        } else if (const auto* const mask = dynamic_cast<const OrvDoc::ImageMask*>(object)) {
            texts.push_back(DescribePicture(*mask->GetPictureData()));
        } else {
            texts.push_back("no picture");
        }
    }
    return texts;
}

TEST(PictureLaws, APictureComesBackFromAFileExactlyAsItWas)
{
    const TemporaryFolder folder;
    const auto document = NewDocument(1);
    OrvDoc::Content& content = ContentOf(*document);
    RandomPictures pictures(*document);
    for (std::uint32_t seed = FirstSeed(); seed < FirstSeed() + images; ++seed) {
        std::mt19937 random(seed);
        if (random() % 4 == 0) {
            Place(content, pictures.NextImageMask(random));
        } else {
            Place(content, pictures.NextImage(random));
        }
    }
    const std::vector<std::string> before = DescribeImages(content);

    const std::string file = folder.NameOf("pictures.pdf");
    document->Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    EXPECT_THAT(TextsOf(content.GetActiveErrors()), ::testing::IsEmpty());
    const auto saved = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    EXPECT_THAT(TextsOf(ContentOf(*saved).GetActiveErrors()), ::testing::IsEmpty());
    const std::vector<std::string> after = DescribeImages(ContentOf(*saved));

    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
        ASSERT_EQ(after[i], before[i]) << "run it by HARROW_SEED=" << FirstSeed() << ", picture " << i + 1;
    }
}

} // namespace
} // namespace HarrowSupport::Testing
