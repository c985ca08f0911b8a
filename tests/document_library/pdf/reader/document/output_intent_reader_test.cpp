#include "pdf/reader/document/output_intent_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string ProfileBytes()
{
    std::string bytes(128, '\0');
    bytes.replace(16, 4, "CMYK");
    return bytes;
}

struct Read
{
    explicit Read(const std::string& intents, const std::vector<std::string>& more = {})
    {
        std::vector<std::string> objects = {"<< /Type /Catalog /Pages 2 0 R " + intents + " >>",
                                            "<< /Kids [] >>"};
        objects.insert(objects.end(), more.begin(), more.end());
        const ReaderTests::OpenedFile file(PdfFile(objects));
        OrvPdf::ErrorList list(10);
        intent = OrvPdf::ReadOutputIntent(file.GetCatalogue(), *file.Get(), list);
        errors = list.Take();
    }

    boost::optional<OrvColor::OutputIntent> intent;
    std::vector<std::string> errors;
};

TEST(OutputIntentReader, ReadsEveryText)
{
    const Read read(
        "/OutputIntents [<< /S /GTS_PDFX /OutputCondition (Condition) /OutputConditionIdentifier (FOGRA39)"
        " /RegistryName (Registry) /Info <FEFF00E4> >>]");
    ASSERT_TRUE(read.intent);
    EXPECT_EQ(read.intent->GetSubtype(), "GTS_PDFX");
    EXPECT_EQ(read.intent->GetOutputCondition(), "Condition");
    EXPECT_EQ(read.intent->GetOutputConditionIdentifier(), "FOGRA39");
    EXPECT_EQ(read.intent->GetRegistryName(), "Registry");
    EXPECT_EQ(read.intent->GetInfo(), "\xc3\xa4");
    EXPECT_FALSE(read.intent->GetDestinationProfile());
    EXPECT_THAT(read.errors, IsEmpty());
}

TEST(OutputIntentReader, ReadsTheProfile)
{
    const Read read("/OutputIntents [<< /S /GTS_PDFX /DestOutputProfile 3 0 R >>]",
                    {PdfStream(ProfileBytes(), "/N 4")});
    ASSERT_TRUE(read.intent && read.intent->GetDestinationProfile());
    EXPECT_EQ(read.intent->GetDestinationProfile()->GetData(), ProfileBytes());
}

TEST(OutputIntentReader, PrefersTheOneForPrint)
{
    EXPECT_EQ(
        Read("/OutputIntents [<< /S /GTS_PDFA1 >> << /S /GTS_PDFX /Info (1) >> << /S /GTS_PDFX /Info (2) >>]")
            .intent->GetInfo(),
        "1");
}

TEST(OutputIntentReader, OtherwiseTakesTheFirst)
{
    EXPECT_EQ(Read("/OutputIntents [<< /S /GTS_PDFA1 >> << /S /ISO_PDFE1 >>]").intent->GetSubtype(),
              "GTS_PDFA1");
}

TEST(OutputIntentReader, FindsNoneWhereThereIsNone)
{
    EXPECT_FALSE(Read("").intent);
    EXPECT_FALSE(Read("/OutputIntents []").intent);
}

TEST(OutputIntentReader, TellsWhatIsMalformed)
{
    EXPECT_THAT(Read("/OutputIntents 7").errors, ElementsAre(HasSubstr("no array")));
    const Read entry("/OutputIntents [7 << /S /GTS_PDFX >>]");
    EXPECT_TRUE(entry.intent);
    EXPECT_THAT(entry.errors, ElementsAre(HasSubstr("a direct integer is no dictionary")));
}

TEST(OutputIntentReader, LeavesOutAProfileThatIsNone)
{
    const Read read("/OutputIntents [<< /S /GTS_PDFX /Info (x) /DestOutputProfile 3 0 R >>]",
                    {PdfStream("short")});
    ASSERT_TRUE(read.intent);
    EXPECT_EQ(read.intent->GetInfo(), "x");
    EXPECT_FALSE(read.intent->GetDestinationProfile());
    EXPECT_THAT(read.errors, ElementsAre(HasSubstr("DestOutputProfile (object 3 0)")));
    EXPECT_THAT(Read("/OutputIntents [<< /S /GTS_PDFX /DestOutputProfile 7 >>]").errors,
                ElementsAre(HasSubstr("no stream")));
}

} // namespace
