#include "example_runs.h"
#include "support/approved_text.h"
#include "support/child_process.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class CompareDocuments : public ::testing::Test
{
protected:
    ProcessResult Run(const std::vector<std::string>& arguments)
    {
        return RunExample("compare_documents", arguments);
    }

    /// Compares two files of these bytes.
    ProcessResult Compare(const std::string& left, const std::string& right)
    {
        return Run({folder.Write("left.pdf", left), folder.Write("right.pdf", right)});
    }

    TemporaryFolder folder;
};

void ExpectTrouble(const ProcessResult& result)
{
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, AllOf(StartsWith("compare_documents: "), EndsWith("\n")));
}

TEST_F(CompareDocuments, NamesTheDifferencesOfTheLeaflets)
{
    const ProcessResult result = Run({ExampleFile("leaflet-v1.pdf"), ExampleFile("leaflet-v2.pdf")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(IsApproved(result.output, "tests/examples/approved/leaflets.txt"));
}

TEST_F(CompareDocuments, NamesTheDifferencesOfTheLeafletsTheOtherWayRound)
{
    const ProcessResult result = Run({ExampleFile("leaflet-v2.pdf"), ExampleFile("leaflet-v1.pdf")});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(IsApproved(result.output, "tests/examples/approved/leaflets-swapped.txt"));
}

TEST_F(CompareDocuments, WritesNothingForAFileAndItself)
{
    const ProcessResult result = Run({ExampleFile("leaflet-v1.pdf"), ExampleFile("leaflet-v1.pdf")});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
}

TEST_F(CompareDocuments, PlacesADifferenceOfTheWholeDocumentInTheDocument)
{
    const std::string page = Triangle("10 10");
    const ProcessResult result = Compare(PdfFileOfPages({page}), PdfFileOfPages({page, page}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "1\tPageCount\tdocument\tdocument\t'1' vs '2'\n");
}

TEST_F(CompareDocuments, CountsPagesAndObjectsFromOne)
{
    const std::string same = Triangle("10 10");
    const ProcessResult result =
        Compare(PdfFileOfPages({same, same + same}), PdfFileOfPages({same, same + "0.5 g " + same}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, StartsWith("1\tPaintColor\tpage 2 object 2\tpage 2 object 2\t'"));
}

TEST_F(CompareDocuments, NamesAnObjectInGroupsByThePositionsOnTheWayToIt)
{
    const std::string same = Triangle("10 10");
    const std::string open = same + "/Outer BMC " + same + same + "/Inner BMC ";
    const std::string close = same + "EMC EMC\n";
    const ProcessResult result =
        Compare(PdfFileOfPages({open + close}), PdfFileOfPages({open + "0.5 g " + close}));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, StartsWith("1\tPaintColor\tpage 1 object 2.3.1\tpage 1 object 2.3.1\t'"));
}

TEST_F(CompareDocuments, WritesAHyphenWhereAnObjectIsNot)
{
    const std::string same = Triangle("10 10");
    EXPECT_EQ(Compare(PdfFileOfPages({same + same}), PdfFileOfPages({same})).output,
              "1\tObjectRemoved\tpage 1 object 2\t-\tOrvDoc::Path\n");
    EXPECT_EQ(Compare(PdfFileOfPages({same}), PdfFileOfPages({same + same})).output,
              "1\tObjectAdded\t-\tpage 1 object 2\tOrvDoc::Path\n");
}

/// A document with two layers in the given order.
std::string FileWithLayers(const std::string& firstName, const std::string& order)
{
    return PdfFileOfPages({""}, "/OCProperties << /OCGs [5 0 R 6 0 R] /D << /Order [" + order + "] >> >>", "",
                          {"<< /Type /OCG /Name (" + firstName + ") >>", "<< /Type /OCG /Name (Text) >>"});
}

TEST_F(CompareDocuments, TellsLayersInReverseButCountsThemEqual)
{
    const ProcessResult result =
        Compare(FileWithLayers("Picture", "5 0 R 6 0 R"), FileWithLayers("Picture", "6 0 R 5 0 R"));
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output, StartsWith("0\tLayerConfigurationReverse\tdocument\tdocument\t"));
}

TEST_F(CompareDocuments, KeepsAReportOfSeveralLinesOnOne)
{
    const std::string order = "5 0 R 6 0 R";
    const ProcessResult result = Compare(FileWithLayers("Image", order), FileWithLayers("Picture", order));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.output, AllOf(HasSubstr(R"(\n'\nversus\n'\n)"), EndsWith("\n")));
    EXPECT_EQ(result.output.find('\n'), result.output.size() - 1);
}

TEST_F(CompareDocuments, NamesAFileThatIsMissing)
{
    const ProcessResult result = Run({ExampleFile("leaflet-v1.pdf"), folder.NameOf("missing.pdf")});
    ExpectTrouble(result);
    EXPECT_THAT(result.errors, HasSubstr(folder.NameOf("missing.pdf")));
}

TEST_F(CompareDocuments, NamesAFileThatIsNoPdf)
{
    const std::string text = folder.Write("letter.pdf", "Dear reader,\n");
    const ProcessResult result = Run({text, ExampleFile("leaflet-v1.pdf")});
    ExpectTrouble(result);
    EXPECT_THAT(result.errors, HasSubstr(text));
}

TEST_F(CompareDocuments, NeedsTwoFiles)
{
    const ProcessResult result = Run({ExampleFile("leaflet-v1.pdf")});
    ExpectTrouble(result);
    EXPECT_THAT(result.errors, HasSubstr("no RIGHT is given"));
}

TEST_F(CompareDocuments, TakesNoThirdFile)
{
    const ProcessResult result = Run({"left.pdf", "right.pdf", "third.pdf"});
    ExpectTrouble(result);
    EXPECT_THAT(result.errors, HasSubstr("an argument too many: 'third.pdf'"));
}

TEST_F(CompareDocuments, RejectsAnUnknownOption)
{
    const ProcessResult result = Run({"--quiet", "left.pdf", "right.pdf"});
    ExpectTrouble(result);
    EXPECT_THAT(result.errors, HasSubstr("there is no option '--quiet'"));
}

TEST_F(CompareDocuments, RejectsAnOptionWithoutItsValue)
{
    const ProcessResult result = Run({"left.pdf", "right.pdf", "--password-left"});
    ExpectTrouble(result);
    EXPECT_THAT(result.errors, HasSubstr("the option '--password-left' needs a value"));
}

TEST_F(CompareDocuments, TakesWhatFollowsTwoHyphensAsFiles)
{
    const ProcessResult result = Run({"--", "--left.pdf", ExampleFile("leaflet-v1.pdf")});
    ExpectTrouble(result);
    EXPECT_THAT(result.errors, HasSubstr("--left.pdf"));
    EXPECT_THAT(result.errors, ::testing::Not(HasSubstr("there is no option")));
}

TEST_F(CompareDocuments, ExplainsItself)
{
    const ProcessResult result = Run({"--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(IsApproved(result.output, "tests/examples/approved/compare_documents-help.txt"));
}

TEST_F(CompareDocuments, SaysThatStandardOutputCannotBeWritten)
{
    const std::string command = "exec '" HARROW_EXAMPLES_FOLDER "/compare_documents' '" +
                                ExampleFile("leaflet-v1.pdf") + "' '" + ExampleFile("leaflet-v2.pdf") +
                                "' >/dev/full";
    const ProcessResult result = RunProcess({"sh", "-c", command});
    ExpectTrouble(result);
}

/// Needs qpdf, which writes the encrypted file.
class CompareEncryptedDocuments : public CompareDocuments
{
protected:
    void SetUp() override { WriteEncryptedLeaflet(encrypted); }

    std::string encrypted = folder.NameOf("encrypted.pdf");
};

TEST_F(CompareEncryptedDocuments, OpenWithTheirPasswords)
{
    const std::string plain = ExampleFile("leaflet-v1.pdf");
    EXPECT_EQ(Run({"--password-left", "secret", encrypted, plain}).exitCode, 0);
    EXPECT_EQ(Run({"--password-right", "secret", plain, encrypted}).exitCode, 0);
}

TEST_F(CompareEncryptedDocuments, NeedThePasswordOfTheirSide)
{
    const ProcessResult result =
        Run({"--password-right", "secret", encrypted, ExampleFile("leaflet-v1.pdf")});
    ExpectTrouble(result);
    EXPECT_THAT(result.errors, AllOf(HasSubstr(encrypted), HasSubstr("password")));
}

} // namespace
} // namespace HarrowSupport::Testing
