// Any number of threads may ask a picture for its samples. Run under the thread sanitizer as well.

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/page.h>
#include <orv_doc/page_content.h>
#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>

#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace
{

using HarrowSupport::Testing::PdfFileOfPages;
using HarrowSupport::Testing::PdfStream;

constexpr std::size_t Size = 64;

/// A page that shows one picture of 64 by 64 grey pixels, in hexadecimal digits.
std::string FileWithPicture()
{
    std::string digits;
    for (std::size_t sample = 0; sample < Size * Size; ++sample) {
        digits += "0123456789ABCDEF"[sample / 16 % 16];
        digits += "0123456789ABCDEF"[sample % 16];
    }
    return PdfFileOfPages({"/P Do", "/P Do"}, "", "/XObject <</P 7 0 R>>",
                          {PdfStream(digits + '>', "/Type /XObject /Subtype /Image /Width 64 /Height 64 "
                                                   "/BitsPerComponent 8 /ColorSpace /DeviceGray "
                                                   "/Filter /ASCIIHexDecode")});
}

/// The source of the picture on each of the two pages.
std::vector<std::shared_ptr<const OrvImg::PictureSource>> GetPictures(const OrvDoc::Document& document)
{
    std::vector<std::shared_ptr<const OrvImg::PictureSource>> sources;
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page) {
        const OrvDoc::ContentObject* const object = page->GetContent().GetChildren().first;
        const auto& image = dynamic_cast<const OrvDoc::Image&>(*object);
        sources.push_back(image.GetPaintedPicture()->GetPictureData(false)->GetPictureSource());
    }
    return sources;
}

class SharedPictures : public testing::Test
{
protected:
    HarrowSupport::Testing::TemporaryFolder folder;
    std::unique_ptr<OrvDoc::Document> document =
        OrvDoc::Document::Create(folder.Write("picture.pdf", FileWithPicture()), OrvDoc::ReadOptions());
};

TEST_F(SharedPictures, GiveOneBufferToAllThreadsThatAskAtOnce)
{
    const auto source = GetPictures(*document).front();
    std::vector<std::shared_ptr<const OrvImg::PictureBuffer>> buffers(4);
    std::vector<std::thread> threads;
    for (auto& buffer : buffers)
        threads.emplace_back([&buffer, &source] { buffer = source->GetPictureBuffer(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& buffer : buffers)
        EXPECT_EQ(buffer, buffers.front());
    EXPECT_EQ(buffers.front()->GetRowPtr(3)[63], 255);
}

TEST_F(SharedPictures, AreOneForThePagesThatThreadsReadAtOnce)
{
    std::vector<std::vector<std::shared_ptr<const OrvImg::PictureSource>>> found(4);
    std::vector<std::thread> threads;
    for (auto& sources : found)
        threads.emplace_back([&sources, this] { sources = GetPictures(*document); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& sources : found) {
        ASSERT_EQ(sources.size(), 2u);
        EXPECT_EQ(sources[0], found[0][0]);
        EXPECT_EQ(sources[1], found[0][0]);
    }
}

} // namespace
