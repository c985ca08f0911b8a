#include "trial/document_trial.h"

#include "support/document_makers.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <orv_doc/document.h>
#include <orv_doc/write_options.h>

#include <boost/filesystem/operations.hpp>

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{
namespace
{

using Corpus::LimitOf;
using Corpus::TryDocument;
using nlohmann::json;
using ::testing::HasSubstr;

class DocumentTrial : public ::testing::Test
{
protected:
    json Try(const std::string& file, bool rewrites = false)
    {
        return TryDocument({file, folder.NameOf("saved.pdf"), "", rewrites});
    }

    TemporaryFolder folder;
};

TEST_F(DocumentTrial, CountsTheObjectsOfEachClassOnAllPages)
{
    const auto document = NewDocument(2);
    auto group = NamedGroup("outer");
    Place(*group, Square("inner"));
    Fill(ContentOf(*document, 0), std::move(group), Square("first"));
    Fill(ContentOf(*document, 1), Square("second"));
    const std::string file = folder.NameOf("made.pdf");
    document->Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));

    const json outcome = Try(file);
    EXPECT_EQ(outcome["pages"], 2);
    EXPECT_EQ(outcome["objects"], (json{{"Group", 1}, {"Path", 3}}));
    EXPECT_EQ(outcome["differences"], 0);
    EXPECT_EQ(outcome["active_errors"], 0);
    EXPECT_GT(outcome["peak_mebibytes"], 1.0);
}

TEST_F(DocumentTrial, KeepsWhatWasSavedAndLeavesTheFile)
{
    const std::string file = folder.Write("plain.pdf", PdfFileOfPages({"0 0 10 10 re f\n"}));
    const auto before = boost::filesystem::last_write_time(file);
    Try(file);
    EXPECT_TRUE(boost::filesystem::exists(folder.NameOf("saved.pdf")));
    EXPECT_EQ(boost::filesystem::last_write_time(file), before);
}

TEST_F(DocumentTrial, NamesThePagesThatAreIncompleteWhenTheyAreWrittenAnew)
{
    const std::string file =
        folder.Write("odd.pdf", PdfFileOfPages({"0 0 10 10 re f\n", "BX 1 wobble EX 0 0 10 10 re f\n"}));
    const json kept = Try(file);
    const json rewritten = Try(file, true);
    EXPECT_EQ(kept["incomplete_pages"], json::array());
    EXPECT_EQ(rewritten["incomplete_pages"], json::array({2}));
    EXPECT_THAT(rewritten["error_texts"].dump(), HasSubstr("page 2: "));
}

TEST_F(DocumentTrial, CountsTheLimitsThatWereReached)
{
    std::string operands;
    for (int i = 0; i < 2000; ++i)
        operands += "1 ";
    const std::string file = folder.Write("many.pdf", PdfFileOfPages({operands + "sc 0 0 10 10 re f\n"}));
    EXPECT_EQ(Try(file)["limits"], (json{{"operands", 1}}));
}

TEST_F(DocumentTrial, RefusesAFileThatIsNoPdfFile)
{
    const std::string file = folder.Write("text.pdf", "a text");
    EXPECT_THROW(Try(file), std::runtime_error);
}

TEST(LimitOf, IsTheNameInFrontOfItsValue)
{
    EXPECT_EQ(LimitOf("limit formNesting: 64 reached, the rest is left out"), "formNesting");
    EXPECT_EQ(LimitOf("object 3 0: the decoded data goes beyond the limit streamBytes of 12 bytes"),
              "streamBytes");
}

TEST(LimitOf, IsEmptyForOtherTexts)
{
    EXPECT_EQ(LimitOf("a miter limit that is not positive"), "");
    EXPECT_EQ(LimitOf("the unlimit formNesting: 64"), "");
    EXPECT_EQ(LimitOf(""), "");
}

} // namespace
} // namespace HarrowSupport::Testing
