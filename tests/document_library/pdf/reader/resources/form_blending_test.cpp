#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/transparency.h>
#include <orv_doc/document.h>
#include <orv_doc/path.h>
#include <orv_paint/form_paint.h>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using OrvBlend::BlendMode;
using OrvBlend::Transparency;

/// A page that paints a form of one square in a graphics state with its own blending.
std::unique_ptr<OrvDoc::Document> ReadFormUnderBlending(const std::string& formEntries)
{
    return ReaderTests::ReadBytes(PdfFileOfPages(
        {"/Blended gs /Form Do"}, "",
        "/XObject << /Form 5 0 R >> /ExtGState << /Blended << /ca 0.25 /CA 0.75 /BM /Darken /AIS true >> >>",
        {PdfStream("0 0 60 40 re f", "/Type /XObject /Subtype /Form /BBox [0 0 100 60] " + formEntries)}));
}

const OrvDoc::Path& FirstPath(const OrvDoc::Content& content)
{
    return dynamic_cast<const OrvDoc::Path&>(*content.GetChildren().first);
}

const OrvDoc::Path& FormOf(const OrvDoc::Document& document)
{
    return FirstPath(document.GetPagesBegin()->GetContent());
}

const OrvDoc::Path& SquareOf(const OrvDoc::Document& document)
{
    const auto& paint = dynamic_cast<const OrvPaint::FormPaint&>(*FormOf(document).GetFillPaint());
    return FirstPath(paint.GetContent());
}

Transparency::Factory Blended()
{
    return Transparency::Factory()
        .SetFillAlpha(0.25F)
        .SetStrokeAlpha(0.75F)
        .SetBlendMode(BlendMode::Darken)
        .SetAlphaIsShape(true);
}

TEST(FormBlending, GroupIsBlendedAsAWhole)
{
    const auto document = ReadFormUnderBlending("/Group << /S /Transparency /K true >>");
    EXPECT_EQ(*FormOf(*document).GetTransparency(), *Blended().SetKnockout(true).Get());
    EXPECT_FALSE(SquareOf(*document).GetTransparency());
}

TEST(FormBlending, ObjectsOfAFormThatIsNoGroupAreBlendedOneByOne)
{
    const auto document = ReadFormUnderBlending("");
    EXPECT_FALSE(FormOf(*document).GetTransparency());
    ASSERT_TRUE(SquareOf(*document).GetTransparency());
    EXPECT_EQ(*SquareOf(*document).GetTransparency(), *Blended().Get());
}

} // namespace
