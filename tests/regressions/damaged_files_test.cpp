// Files of which damage or malice once made an answer go wrong. The comment above each test says what came
// then.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <harrow_support/comparators.h>

#include <orv_doc/document.h>
#include <orv_doc/page.h>
#include <orv_doc/page_content.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/child_process.h"
#include "support/pdf_text.h"
#include "support/recording_reporter.h"
#include "support/temporary_folder.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace HarrowSupport::Testing;
using testing::IsEmpty;

class DamagedFiles : public testing::Test
{
protected:
    /// Saves the file, with every page's content written anew if wanted, and compares it with what comes
    /// back.
    std::vector<std::string> SaveAndCompare(const std::string& bytes, bool rewrites)
    {
        const std::string file = folder.Write("in.pdf", bytes);
        const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
        for (auto page = document->GetPagesBegin(); rewrites && page != document->GetPagesEnd(); ++page)
            page->GetContent().MarkChanged();
        document->Save(saved, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        return CompareLines(*OrvDoc::Document::Create(file, OrvDoc::ReadOptions()),
                            *OrvDoc::Document::Create(saved, OrvDoc::ReadOptions()));
    }

    /// It comes back as it was, and what was written is a file that another program finds sound.
    void ExpectSound(const std::string& bytes)
    {
        for (const bool rewrites : {false, true}) {
            EXPECT_THAT(SaveAndCompare(bytes, rewrites), IsEmpty());
            const ProcessResult check = RunProcess({"qpdf", "--check", saved});
            if (check.exitCode == 127)
                GTEST_SKIP() << "qpdf is not installed";
            EXPECT_EQ(check.exitCode, 0) << check.output << check.errors;
        }
    }

private:
    TemporaryFolder folder;
    std::string saved = folder.NameOf("out.pdf");
};

std::string Replaced(std::string text, const std::string& what, const std::string& by)
{
    const std::size_t place = text.find(what);
    EXPECT_NE(place, std::string::npos) << what;
    return place == std::string::npos ? text : text.replace(place, what.size(), by);
}

std::string OnePage()
{
    return PdfFileOfPages({"0 0 m 9 9 l S"});
}

/// The trailer with further entries.
std::string WithTrailer(const std::string& entries, const std::vector<std::string>& objects = {})
{
    return Replaced(PdfFileOfPages({"0 0 m 9 9 l S"}, "", "", objects), "/Root 1 0 R",
                    "/Root 1 0 R " + entries);
}

// Was refused, since it has no %PDF header.
TEST_F(DamagedFiles, NeedNoHeader)
{
    const std::string bytes = OnePage();
    ExpectSound(bytes.substr(bytes.find("1 0 obj")));
}

// Was refused: the PDF library fails at the number.
TEST_F(DamagedFiles, MayHaveATableThatIsFarAway)
{
    ExpectSound(WithTrailer("/Prev 99999999999999999999"));
}

// Was refused, though nothing in it is encrypted.
TEST_F(DamagedFiles, MayNameAnEncryptionThatIsNone)
{
    ExpectSound(WithTrailer("/Encrypt 7"));
}

// Could be read but not saved: "integer out of range".
TEST_F(DamagedFiles, MayBeOfAVersionThatNeverWas)
{
    ExpectSound(Replaced(OnePage(), "%PDF-1.7", "%PDF-9999999999.99999999999"));
}

// Could be read but not saved: "operation for string attempted on object of type null".
TEST_F(DamagedFiles, MayHaveAnIdentifierThatIsNone)
{
    ExpectSound(WithTrailer("/ID [7 8]"));
    ExpectSound(WithTrailer("/ID []"));
}

// Was saved with a stream where readers look for a dictionary.
TEST_F(DamagedFiles, MayHaveInformationThatIsNoDictionary)
{
    ExpectSound(WithTrailer("/Info 4 0 R"));
}

// Came back with the first node's boxes on both pages.
TEST_F(DamagedFiles, MayReachAPageThroughTwoNodes)
{
    ExpectSound(
        PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Type /Pages /Kids [3 0 R 4 0 R] /Count 2 >>",
                 "<< /Type /Pages /Parent 2 0 R /Kids [5 0 R] /Count 1 /MediaBox [0 0 50 50] >>",
                 "<< /Type /Pages /Parent 2 0 R /Kids [5 0 R] /Count 1 /MediaBox [0 0 70 70] >>",
                 "<< /Type /Page /Parent 3 0 R >>"}));
}

// Could not be saved: the PDF library tried to decode the picture's data.
TEST_F(DamagedFiles, MayHaveInlineImagesWhoseDataCannotBeDecoded)
{
    ExpectSound(PdfFileOfPages({"BI /W 1 /H 1 /BPC 8 /CS /G /F [/A85 /Fl] ID zz~> EI\n"}));
}

// Was saved with a filter that has no name.
TEST_F(DamagedFiles, MayHaveFiltersWithoutAName)
{
    ExpectSound(PdfFileOfPages({"0 0 m 9 9 l S"}, "/X 5 0 R", "", {PdfStream("abc", "/Filter 7")}));
    ExpectSound(PdfFileOfPages({"0 0 m 9 9 l S"}, "/X 5 0 R", "", {PdfStream("abc", "/Filter [(a)]")}));
}

// Lost the pattern, which other readers paint as if it had no matrix.
TEST_F(DamagedFiles, MayHavePatternsWithAMatrixThatIsNone)
{
    for (const char* const matrix : {"[1 0 0 1]", "[1 0 /X 1 0 0]", "7"}) {
        const std::string entry = std::string("/Matrix ") + matrix;
        const std::string box =
            "/PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 9 9] /XStep 9 /YStep 9 ";
        ExpectSound(PdfFileOfPages(
            {"/Pattern cs /T scn 0 0 50 50 re f /S scn 50 50 50 50 re f"}, "",
            "/Pattern << /T 5 0 R /S << /PatternType 2 /Shading << /ShadingType 2 /ColorSpace /DeviceGray "
            "/Coords [0 0 9 9] /Function << /FunctionType 2 /N 1 /Domain [0 1] >> >> " +
                entry + " >> >>",
            {PdfStream("0 0 5 5 re f", box + entry)}));
    }
}

} // namespace
