// What a path that shows a form, or is stroked with one, has beyond what a file can say. Each is told by a
// text, and nothing else of the path goes with it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/halftone_set.h>
#include <orv_paint/form_paint.h>

#include "document_library/pdf/writer/writer_test_support.h"
#include "support/paint_makers.h"

namespace OrvPdf::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class ContentWriterForms : public ::testing::Test
{
protected:
    ContentWriterForms() : form(AForm(*document).Get()), path(Filled(form)) {}

    /// The problems that writing the path met; what was written goes to `bytes`.
    std::vector<std::string> Write()
    {
        WrittenContent written = WriteObjects(std::move(path));
        bytes = written.bytes;
        return written.problems.GetTexts("page 1");
    }

    std::unique_ptr<OrvDoc::Document> document = NewDocument();
    PaintPointer form;
    std::unique_ptr<OrvDoc::Path> path;
    std::string bytes;
};

TEST_F(ContentWriterForms, HaveNoProblemsOfThemselves)
{
    EXPECT_THAT(Write(), IsEmpty());
    EXPECT_THAT(bytes, HasSubstr("/fm0 Do"));
}

TEST_F(ContentWriterForms, TellAStrokeAndKeepTheForm)
{
    path->SetStrokePaint(Ink(0.5F));
    EXPECT_THAT(Write(), ElementsAre(HasSubstr("strokes of paths that are filled with a form are left out")));
    EXPECT_THAT(bytes, HasSubstr("/fm0 Do"));
}

TEST_F(ContentWriterForms, TellHalftonesAndKeepTheForm)
{
    path->SetHalftoneSet(std::make_shared<OrvDoc::HalftoneSet>("screen", OrvSys::PdfObject::Name("Default")));
    EXPECT_THAT(Write(),
                ElementsAre(HasSubstr("halftones of paths that are filled with a form are left out")));
    EXPECT_THAT(bytes, HasSubstr("/fm0 Do"));
}

TEST_F(ContentWriterForms, TellAStrokeWithAFormAndKeepTheFill)
{
    path->SetFillPaint(Ink(0.5F));
    path->SetStrokePaint(form);
    EXPECT_THAT(Write(), ElementsAre(HasSubstr("strokes with a form cannot be written")));
    EXPECT_THAT(bytes, HasSubstr("\nf\n"));
    EXPECT_THAT(bytes, Not(HasSubstr("Do")));
}

} // namespace
} // namespace OrvPdf::Testing
