// Soft masks in the graphics state: where they are set, how long they are in force, and what they move with.

#include "pdf/reader/content/interpreter.h"

#include <gmock/gmock.h>

#include "document_library/pdf/reader/nested_files.h"

namespace ReaderTests
{
namespace
{

using HarrowSupport::Testing::PdfStream;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string square = "0 0 10 10 re f\n";

/// A page with the mask 5, whose form is the object 6 with a matrix, and a form, the object 7.
std::unique_ptr<OrvDoc::Document> ReadPageOf(const std::string& content, const std::string& formEntries = "")
{
    return ReadPages(
        {content}, "/ExtGState << /G << /SMask 5 0 R >> /N << /SMask /None >> >> /XObject << /F 7 0 R >>",
        {"<< /S /Alpha /G 6 0 R >>",
         PdfStream("0 0 5 5 re f",
                   "/Subtype /Form /BBox [0 0 50 50] /Matrix [1 0 0 1 3 4] /Group << /S /Transparency >>"),
         PdfStream(square, "/Subtype /Form /BBox [0 0 10 10] /Matrix [1 0 0 1 100 0] " + formEntries)});
}

/// The same without an error.
std::unique_ptr<OrvDoc::Document> PageOf(const std::string& content, const std::string& formEntries = "")
{
    auto document = ReadPageOf(content, formEntries);
    EXPECT_THAT(ErrorsOfPage(*document), IsEmpty());
    return document;
}

MilliPointMatrix TransformationOf(const OrvDoc::Path& path)
{
    const auto mask = MaskOf(path);
    EXPECT_TRUE(mask);
    return mask ? mask->GetTransformation() : MilliPointMatrix();
}

TEST(InterpreterMasks, MovesAMaskByTheMatrixOfItsFormAndTheOneInForceWhenItIsSet)
{
    const auto plain = PageOf("/G gs " + square);
    EXPECT_EQ(TransformationOf(PathOfPage(*plain)), MilliPointMatrix(1.0, 0.0, 0.0, 1.0, 3000.0, 4000.0));
    const auto scaled = PageOf("2 0 0 2 10 0 cm /G gs " + square);
    EXPECT_EQ(TransformationOf(PathOfPage(*scaled)), MilliPointMatrix(2.0, 0.0, 0.0, 2.0, 16000.0, 8000.0));
}

TEST(InterpreterMasks, LeavesAMaskWhereItWasSet)
{
    const auto document = PageOf("/G gs 2 0 0 2 10 0 cm " + square);
    EXPECT_EQ(TransformationOf(PathOfPage(*document)), MilliPointMatrix(1.0, 0.0, 0.0, 1.0, 3000.0, 4000.0));
}

TEST(InterpreterMasks, CountsGroupsWithATransformationOfTheirOwn)
{
    const auto document =
        PageOf("/OrvGroup <</Matrix [2 0 0 2 10 0]>> BDC q 2 0 0 2 10 0 cm /G gs " + square + "Q EMC");
    EXPECT_TRUE(dynamic_cast<const OrvDoc::Group*>(ContentOfPage(*document).GetChildren().first));
    EXPECT_EQ(TransformationOf(PathOfPage(*document)), MilliPointMatrix(2.0, 0.0, 0.0, 2.0, 16000.0, 8000.0));
}

TEST(InterpreterMasks, EndsAMaskWithNoneAndWithItsLevel)
{
    const auto document = PageOf("q /G gs " + square + "Q " + square + "/G gs /N gs " + square);
    EXPECT_TRUE(MaskOf(PathOfPage(*document, 0)));
    EXPECT_FALSE(MaskOf(PathOfPage(*document, 1)));
    EXPECT_FALSE(MaskOf(PathOfPage(*document, 2)));
}

TEST(InterpreterMasks, GivesTheMaskToAGroupAsAWhole)
{
    const auto document = PageOf("/G gs /F Do", "/Group << /S /Transparency >>");
    EXPECT_TRUE(MaskOf(PathOfPage(*document)));
    EXPECT_FALSE(MaskOf(PathOf(FormContentOf(PathOfPage(*document)))));
}

TEST(InterpreterMasks, GivesTheMaskToEachObjectOfAFormThatIsNoGroup)
{
    const auto document = PageOf("/G gs 1 0 0 1 0 7 cm /F Do");
    EXPECT_FALSE(MaskOf(PathOfPage(*document)));
    // The form has moved by 100 and 7, so the mask stands back by as much.
    EXPECT_EQ(TransformationOf(PathOf(FormContentOf(PathOfPage(*document)))),
              MilliPointMatrix(1.0, 0.0, 0.0, 1.0, -97000.0, -3000.0));
}

TEST(InterpreterMasks, ComesBackEquallyThroughAFormThatIsNoGroup)
{
    const auto document = PageOf("/G gs 1 0 0 1 0 7 cm /F Do");
    ContentOfPage(*document).MarkChanged();
    const auto back = SavedAndRead(*document);
    EXPECT_EQ(TransformationOf(PathOf(FormContentOf(PathOfPage(*back)))),
              MilliPointMatrix(1.0, 0.0, 0.0, 1.0, -97000.0, -3000.0));
}

class MasksUnderManyMatrices : public ::testing::Test
{
protected:
    static std::unique_ptr<OrvDoc::Document> Under(std::size_t count)
    {
        std::string content;
        for (std::size_t index = 0; index < count; ++index)
            content += "1 0 0 1 1 0 cm /G gs " + square;
        return ReadPageOf(content);
    }
};

TEST_F(MasksUnderManyMatrices, TenThousandAreMade)
{
    const auto document = Under(10000);
    EXPECT_TRUE(MaskOf(PathOfPage(*document, 9999)));
    EXPECT_THAT(ErrorsOfPage(*document), IsEmpty());
}

TEST_F(MasksUnderManyMatrices, OneMoreIsLeftOutAndTold)
{
    const auto document = Under(10001);
    EXPECT_TRUE(MaskOf(PathOfPage(*document, 9999)));
    EXPECT_FALSE(MaskOf(PathOfPage(*document, 10000)));
    EXPECT_THAT(ErrorsOfPage(*document), ElementsAre(HasSubstr("set under more than 10000 matrices")));
}

} // namespace
} // namespace ReaderTests
