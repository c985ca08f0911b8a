#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/QPDF.hh>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>

#include "support/pdf_text.h"
#include "support/temporary_folder.h"
#include "document_library/pdf/writer/writer_test_support.h"

namespace OrvPdf::Testing
{
namespace
{

using ::testing::IsEmpty;

/// Saves files whose page is written anew, with two sets of foreign parameters in its resources.
class ForeignParametersAreWritten : public ::testing::Test
{
protected:
    /// What becomes of a content.
    std::string Rewrite(const std::string& content)
    {
        const auto document = OrvDoc::Document::Create(
            folder.Write("in.pdf",
                         PdfFileOfPages({content}, "",
                                        "/ExtGState<</A<</SM 0.5>>/B<</SA true/LW 2>>>>"
                                        "/Font<</F<</Type/Font/Subtype/Type1/BaseFont/Courier>>>>")),
            OrvDoc::ReadOptions());
        ContentOf(*document).MarkChanged();
        document->Save(folder.NameOf("out.pdf"), OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        saved = std::make_unique<QPDF>();
        saved->processFile(folder.NameOf("out.pdf").c_str());
        page = saved->getRoot().getKey("/Pages").getKey("/Kids").getArrayItem(0);
        const auto buffer = page.getKey("/Contents").getStreamData();
        return std::string(reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize());
    }

    std::string State(const std::string& name)
    {
        return page.getKey("/Resources").getKey("/ExtGState").getKey(name).unparseResolved();
    }

    TemporaryFolder folder;
    std::unique_ptr<QPDF> saved;
    QPDFObjectHandle page;
};

TEST_F(ForeignParametersAreWritten, InALevelOfTheirOwn)
{
    EXPECT_EQ(Rewrite("q /A gs 0 0 1 1 re f Q 0 0 2 2 re f"),
              "q\n/fp0 gs\n0 0 1 1 re\nf\nQ\n0 0 2 2 re\nf\n");
    EXPECT_EQ(State("/fp0"), "<< /SM 0.5 >>");
}

TEST_F(ForeignParametersAreWritten, OnceForObjectsInARow)
{
    EXPECT_EQ(Rewrite("/A gs 0 0 1 1 re f 0 0 2 2 re f"), "q\n/fp0 gs\n0 0 1 1 re\nf\n0 0 2 2 re\nf\nQ\n");
}

TEST_F(ForeignParametersAreWritten, WithoutWhatTheModelKnows)
{
    EXPECT_EQ(Rewrite("/B gs 0 0 1 1 re f"), "q\n/fp0 gs\n0 0 1 1 re\nf\nQ\n");
    EXPECT_EQ(State("/fp0"), "<< /SA true >>");
}

TEST_F(ForeignParametersAreWritten, InsideOfClipsAndMarks)
{
    EXPECT_EQ(Rewrite("/A gs 0 0 1 1 re f q 0 0 9 9 re W n 0 0 2 2 re f Q"),
              "q\n/fp0 gs\n0 0 1 1 re\nf\nQ\n"
              "q\n0 0 9 9 re\nW n\nq\n/fp0 gs\n0 0 2 2 re\nf\nQ\nQ\n");
    EXPECT_EQ(Rewrite("/A gs /Span BMC 0 0 1 1 re f EMC"), "/Span BMC\nq\n/fp0 gs\n0 0 1 1 re\nf\nQ\nEMC\n");
}

TEST_F(ForeignParametersAreWritten, AroundTheMatrixOfAnObject)
{
    EXPECT_EQ(Rewrite("/A gs 2 0 0 2 0 0 cm 0 0 1 1 re f"),
              "q\n/fp0 gs\nq\n2 0 0 2 0 0 cm\n0 0 1 1 re\nf\nQ\nQ\n");
}

TEST_F(ForeignParametersAreWritten, AroundATextObject)
{
    EXPECT_EQ(Rewrite("/A gs BT /F 9 Tf (a) Tj ET"),
              "q\n/fp0 gs\nBT\n/f0 9 Tf\n1 0 0 1 0 0 Tm\n(a) Tj\nET\nQ\n");
}

// No level can begin inside of a text object: its texts become one each.
TEST_F(ForeignParametersAreWritten, BetweenTheTextsOfATextObject)
{
    const std::string content = Rewrite("BT /F 9 Tf (a) Tj /A gs (b) Tj ET");
    EXPECT_NE(content.find("q\n/fp0 gs\nBT\n"), std::string::npos) << content;
    EXPECT_LT(content.find("(a) Tj"), content.find("/fp0 gs"));
}

TEST_F(ForeignParametersAreWritten, AndAreNoError)
{
    const auto document = OrvDoc::Document::Create(
        folder.Write("in.pdf", PdfFileOfPages({"/A gs /Perceptual ri 50 i 0 0 1 1 re f"}, "",
                                              "/ExtGState<</A<</SM 0.5/Private/Name>>>>")),
        OrvDoc::ReadOptions());
    ContentOf(*document).MarkChanged();
    document->Flush();
    EXPECT_THAT(ContentOf(*document).GetActiveErrors().GetAllErrors(), IsEmpty());
}

} // namespace
} // namespace OrvPdf::Testing
