// Whether the pictures that other tests compare tell what they are asked.

#include "support/page_images.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::Key;
using ::testing::UnorderedElementsAre;

PageImage Black(std::size_t width, std::size_t height)
{
    return {width, height, std::string(width * height * 3, '\0')};
}

double ShareWithOneSample(char sample, int tolerance)
{
    const PageImage left = Black(4, 2);
    PageImage right = left;
    right.samples[23] = sample;
    const double share = ShareOfDifferentPixels(left, right, tolerance);
    EXPECT_EQ(ShareOfDifferentPixels(right, left, tolerance), share);
    return share;
}

TEST(PageImages, SamplesDifferBeyondTheTolerance)
{
    EXPECT_EQ(ShareWithOneSample(8, 8), 0.0);
    EXPECT_EQ(ShareWithOneSample(9, 8), 0.125);
    EXPECT_EQ(ShareWithOneSample('\xff', 254), 0.125);
}

TEST(PageImages, PixelOfSeveralDifferentSamplesCountsOnce)
{
    PageImage left = Black(4, 2);
    left.samples.replace(3, 3, "\x40\x40\x40");
    EXPECT_EQ(ShareOfDifferentPixels(left, Black(4, 2), 8), 0.125);
}

TEST(PageImages, PicturesOfDifferentSizesDifferInEveryPixel)
{
    EXPECT_EQ(ShareOfDifferentPixels(Black(4, 2), Black(2, 4), 255), 1.0);
}

TEST(PageImages, DamagedPicturesAreRefused)
{
    EXPECT_EQ(ReadPortablePixmap("P6\n1 2\n255\nabcdef").samples, "abcdef");
    for (const char* const bytes :
         {"", "P5\n1 2\n255\nabcdef", "P6\n1 2\n255\nabcde", "P6\n1", "P6\n1 1\n65535\nabcdef"})
        EXPECT_THROW(ReadPortablePixmap(bytes), std::runtime_error) << bytes;
}

TEST(PageImages, PagesAreKnownByTheirNumbers)
{
    if (!CanRenderPages())
        GTEST_SKIP() << "install poppler-utils to run this test";
    const TemporaryFolder folder;
    const std::string file = folder.Write("pages.pdf", PdfFileOfPages({"", "1 0 0 rg 0 50 50 50 re f"}));
    EXPECT_EQ(CountPages(file), 2U);
    const PageImages images = RenderPages(file);
    ASSERT_THAT(images, UnorderedElementsAre(Key(1), Key(2)));
    EXPECT_EQ(images.at(2).width, 100U);
    EXPECT_EQ(images.at(2).height, 100U);
    // The square takes the upper left quarter, and rows begin at the top.
    EXPECT_EQ(images.at(2).samples.substr(0, 3), std::string("\xff\0\0", 3));
    EXPECT_EQ(ShareOfDifferentPixels(images.at(1), images.at(2), 8), 0.25);
}

TEST(PageImages, HugePagesAreScaledDown)
{
    if (!CanRenderPages())
        GTEST_SKIP() << "install poppler-utils to run this test";
    const TemporaryFolder folder;
    const std::string file = folder.Write("pages.pdf", PdfFileOfPages({""}));
    EXPECT_EQ(RenderPages(file, {}, {}, 100).at(1).width, 100U);
    EXPECT_EQ(RenderPages(file, {}, {}, 99).at(1).width, 99U);
}

TEST(PageImages, FileThatCannotBeReadHasNone)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("pages.pdf", "nothing");
    EXPECT_TRUE(RenderPages(file).empty());
    EXPECT_EQ(CountPages(file), 0U);
}

} // namespace
} // namespace HarrowSupport::Testing
