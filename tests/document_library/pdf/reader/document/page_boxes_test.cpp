#include "pdf/reader/document/page_boxes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/page_box.h>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using testing::ElementsAre;
using testing::IsEmpty;

using Box = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

struct Result
{
    explicit Result(const std::string& pageEntries, const std::string& nodeEntries = "/MediaBox [0 0 1 1]")
    {
        const ReaderTests::OpenedFile file(
            PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [3 0 R] " + nodeEntries + " >>",
                     "<< /Type /Page " + pageEntries + " >>"}));
        OrvPdf::ErrorList errors(10);
        boxes = OrvPdf::ReadPageBoxes(OrvPdf::ReadPageEntries(file.GetQpdf(), {}, errors).at(0), problems);
    }

    const Box& Get(OrvDoc::PageBox box) const { return boxes[static_cast<std::size_t>(box)]; }

    OrvPdf::PageBoxes boxes;
    std::vector<std::string> problems;
};

TEST(PageBoxes, AreReadInTheirOrder)
{
    const Result result("/MediaBox [0 0 1 1] /CropBox [0 0 2 2] /BleedBox [0 0 3 3] /TrimBox [0 0 4 4]"
                        " /ArtBox [0 0 5 5]");
    for (std::size_t index = 0; index < 5; ++index)
        EXPECT_EQ(result.boxes[index].size.width.value, 1000.0 * static_cast<double>(index + 1));
    EXPECT_THAT(result.problems, IsEmpty());
}

TEST(PageBoxes, AreExactInMilliPoints)
{
    const Result result("/MediaBox [0.001 -12.345 595.276 841.89]");
    const Box& box = result.Get(OrvDoc::PageBox::Media);
    EXPECT_EQ(box.origin.x.value, 1.0);
    EXPECT_EQ(box.origin.y.value, -12345.0);
    EXPECT_EQ(box.size.width.value, 595275.0);
    EXPECT_EQ(box.size.height.value, 854235.0);
}

TEST(PageBoxes, MayNameAnyTwoOppositeCorners)
{
    EXPECT_EQ(Result("/CropBox [10 20 4 8]").Get(OrvDoc::PageBox::Crop), Box(4000, 8000, 6000, 12000));
}

TEST(PageBoxes, AreInherited)
{
    const Result result("", "/MediaBox [0 0 7 8] /CropBox [1 1 2 2]");
    EXPECT_EQ(result.Get(OrvDoc::PageBox::Media), Box(0, 0, 7000, 8000));
    EXPECT_EQ(result.Get(OrvDoc::PageBox::Crop), Box(1000, 1000, 1000, 1000));
}

TEST(PageBoxes, AreNotInheritedBeyondMediaAndCropBox)
{
    EXPECT_TRUE(Result("", "/MediaBox [0 0 1 1] /TrimBox [0 0 1 1]").Get(OrvDoc::PageBox::Trim).isInitial);
}

TEST(PageBoxes, StayInTheirInitialStateIfMissing)
{
    const Result result("");
    EXPECT_TRUE(result.Get(OrvDoc::PageBox::Crop).isInitial);
    EXPECT_TRUE(result.Get(OrvDoc::PageBox::Art).isInitial);
    EXPECT_THAT(result.problems, IsEmpty());
}

TEST(PageBoxes, TellThatTheMediaBoxIsMissing)
{
    const Result result("", "");
    EXPECT_TRUE(result.Get(OrvDoc::PageBox::Media).isInitial);
    EXPECT_THAT(result.problems, ElementsAre("MediaBox is missing"));
}

TEST(PageBoxes, TellWhatIsMalformed)
{
    const Result result("/CropBox [1 2 3] /BleedBox [0 0 /A 1] /TrimBox 5");
    EXPECT_TRUE(result.Get(OrvDoc::PageBox::Crop).isInitial);
    EXPECT_TRUE(result.Get(OrvDoc::PageBox::Bleed).isInitial);
    EXPECT_TRUE(result.Get(OrvDoc::PageBox::Trim).isInitial);
    EXPECT_THAT(result.problems,
                ElementsAre("CropBox has 3 entries and not four", "entry 3 of BleedBox is no number",
                            "TrimBox is no array of four numbers"));
}

} // namespace
