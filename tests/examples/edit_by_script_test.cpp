#include "example_runs.h"
#include "support/approved_text.h"
#include "support/child_process.h"
#include "support/file_bytes.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <boost/filesystem/operations.hpp>

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

class EditByScript : public ::testing::Test
{
protected:
    /// Runs a script that comes from standard input.
    ProcessResult Edit(const std::string& file, const std::string& script,
                       const std::vector<std::string>& options = {})
    {
        std::vector<std::string> arguments = options;
        arguments.insert(arguments.end(), {file, "-", out});
        return RunExample("edit_by_script", arguments, {}, script);
    }

    std::string List(const std::string& file)
    {
        return RunExample("edit_by_script", {file, "-", folder.NameOf("unused.pdf")}, {}, "$list").output;
    }

    /// The list of a file of this content after a script.
    std::string ListAfter(const std::string& content, const std::string& script)
    {
        const ProcessResult result = Edit(folder.Write("in.pdf", PdfFileOfPages({content})), script);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        return List(out);
    }

    /// What a run of a script says that comes to nothing, which it has to. The script runs on a file with a
    /// path, and a group with another one.
    std::string Complaint(const std::string& script)
    {
        const std::string content = Triangle("10 10") + "/Inner BMC " + Triangle("20 10") + "EMC";
        const ProcessResult result = Edit(folder.Write("in.pdf", PdfFileOfPages({content})), script);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_FALSE(boost::filesystem::exists(out));
        return result.errors;
    }

    TemporaryFolder folder;
    std::string out = folder.NameOf("out.pdf");
};

TEST_F(EditByScript, BringsTheLeafletsTogetherButForTheTrimBox)
{
    const ProcessResult edit =
        RunExample("edit_by_script", {ExampleFile("leaflet-v1.pdf"), ExampleFile("edit_leaflet.txt"), out});
    ASSERT_EQ(edit.exitCode, 0) << edit.errors;
    EXPECT_EQ(edit.output, "");
    EXPECT_EQ(edit.errors, "");
    const ProcessResult comparison = RunExample("compare_documents", {out, ExampleFile("leaflet-v2.pdf")});
    EXPECT_TRUE(IsApproved(comparison.output, "tests/examples/approved/edited-leaflet.txt"));
}

TEST_F(EditByScript, ListsObjectsOfAllPagesByPathKindNameAndFill)
{
    const std::string spaces =
        "/ColorSpace << /S [/Separation /Gold /DeviceGray << /FunctionType 2 /N 1 /Domain [0 1] >>] "
        "/N [/Separation /None /DeviceGray << /FunctionType 2 /N 1 /Domain [0 1] >>] "
        "/A [/Separation /All /DeviceGray << /FunctionType 2 /N 1 /Domain [0 1] >>] >> "
        "/ExtGState << /O << /OP true >> >>";
    const std::string first = "0.5 0 0.25 0 k " + Triangle("10 10") + "/Outer BMC /S cs 0.75 scn " +
                              Triangle("10 10") + "/Inner BMC " + Triangle("10 10") + "EMC EMC 1 1 9 9 re S";
    const std::string second = "/A cs 1 scn " + Triangle("10 10") + "/N cs 1 scn " + Triangle("10 10") +
                               "/O gs /S cs 1 scn " + Triangle("10 10");
    const std::string file = folder.Write("in.pdf", PdfFileOfPages({first, second}, "", spaces));
    EXPECT_EQ(List(file), "1.1\tPath\t\tCyan 0.5, Magenta 0, Yellow 0.25, Black 0\n"
                          "1.2\tGroup\t\t-\n"
                          "1.2.1\tPath\t\tGold 0.75\n"
                          "1.2.2\tGroup\t\t-\n"
                          "1.2.2.1\tPath\t\tGold 0.75\n"
                          "1.3\tPath\t\t-\n"
                          "2.1\tPath\t\tAll 1\n"
                          "2.2\tPath\t\t(no ink)\n"
                          "2.3\tPath\t\tGold 1 overprint\n");
}

TEST_F(EditByScript, ListsWhatIsThereWhenTheCommandRuns)
{
    const std::string file = folder.Write("in.pdf", PdfFileOfPages({Triangle("10 10")}));
    EXPECT_EQ(Edit(file, "$list\n1.1\nFlag\n$set-name\n$list\n").output,
              "1.1\tPath\t\tBlack 1\n1.1\tPath\tFlag\tBlack 1\n");
}

TEST_F(EditByScript, NamesAnObject)
{
    EXPECT_EQ(ListAfter(Triangle("10 10"), "1.1\nflag of  Åland\n$set-name\n"),
              "1.1\tPath\tflag of  Åland\tBlack 1\n");
}

TEST_F(EditByScript, NamesAGroupAndNotWhatFollowsIt)
{
    // The walk that looks for the group calls for the triangle behind it as well.
    EXPECT_EQ(ListAfter(Triangle("10 10") + "/Inner BMC " + Triangle("20 10") + "EMC " + Triangle("30 10"),
                        "1.2\nFlag\n$set-name\n"),
              "1.1\tPath\t\tBlack 1\n1.2\tGroup\tFlag\t-\n1.2.1\tPath\t\tBlack 1\n1.3\tPath\t\tBlack 1\n");
}

TEST_F(EditByScript, FillsAnObjectInAGroup)
{
    EXPECT_EQ(ListAfter("/Inner BMC " + Triangle("10 10") + Triangle("20 10") + "EMC",
                        "1.1.2\nDeep Gold\n0.25\n$set-fill\n"),
              "1.1\tGroup\t\t-\n1.1.1\tPath\t\tBlack 1\n1.1.2\tPath\t\tDeep Gold 0.25\n");
}

TEST_F(EditByScript, TakesBothEndsOfTheTints)
{
    EXPECT_EQ(ListAfter(Triangle("10 10") + Triangle("20 10"),
                        "1.1\nGold\n0\n$set-fill\n1.2\nGold\n1\n$set-fill\n"),
              "1.1\tPath\t\tGold 0\n1.2\tPath\t\tGold 1\n");
}

/// The reports that two files differ by.
std::string DifferencesOf(const std::string& left, const std::string& right)
{
    return RunExample("compare_documents", {left, right}).output;
}

TEST_F(EditByScript, StrokesAnObjectAndLeavesItsFill)
{
    const std::string file = folder.Write("in.pdf", PdfFileOfPages({"10 10 50 50 re B"}));
    ASSERT_EQ(Edit(file, "1.1\nGold\n0.5\n$set-stroke\n").exitCode, 0);
    EXPECT_EQ(DifferencesOf(file, out),
              "1\tSeparationInfo\tdocument\tdocument\t'[]' vs '[Gold (none)]'\n"
              "1\tPaintColorSpace\tpage 1 object 1\tpage 1 object 1\t'(Black)' vs '(Gold)'\n"
              "1\tPaintColor\tpage 1 object 1\tpage 1 object 1\t'(Black @ 100%)' vs '(Gold @ 50%)'\n");
    EXPECT_EQ(List(out), "1.1\tPath\t\tBlack 1\n");
}

TEST_F(EditByScript, AddsASeparationToThoseOfTheDocumentOnce)
{
    const std::string file = folder.Write("in.pdf", PdfFileOfPages({Triangle("10 10") + Triangle("20 10")}));
    ASSERT_EQ(Edit(file, "1.1\nGold\n0.5\n$set-fill\n1.2\nGold\n0.5\n$set-fill\n").exitCode, 0);
    EXPECT_THAT(DifferencesOf(file, out),
                StartsWith("1\tSeparationInfo\tdocument\tdocument\t'[]' vs '[Gold (none)]'\n"));
}

TEST_F(EditByScript, MovesAnObjectByPoints)
{
    const std::string file = folder.Write("in.pdf", PdfFileOfPages({Triangle("10 10")}));
    ASSERT_EQ(Edit(file, "1.1\n1.5\n-2\n$move\n").exitCode, 0);
    EXPECT_EQ(DifferencesOf(file, out), "1\tObjectAbsoluteTransformation\tpage 1 object 1\tpage 1 object 1\t"
                                        "'[A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0]' vs "
                                        "'[A: 1, B: 0, C: 0, D: 1, X: 1500, Y: -2000]'\n");
}

TEST_F(EditByScript, MovesAnObjectByPointsWhateverItsOwnMatrix)
{
    const std::string file =
        folder.Write("in.pdf", PdfFileOfPages({"0 2 -2 0 60 3 cm " + Triangle("10 10")}));
    ASSERT_EQ(Edit(file, "1.1\n10\n1\n$move\n1.1\n10\n1\n$move\n").exitCode, 0);
    EXPECT_THAT(DifferencesOf(file, out), HasSubstr("X: 60000, Y: 3000]' vs '[A: 0, B: 2, C: -2, D: 0, X: "
                                                    "80000, Y: 5000]'"));
}

TEST_F(EditByScript, DeletesAPath)
{
    const std::string file = folder.Write("in.pdf", PdfFileOfPages({Triangle("10 10") + Triangle("20 10")}));
    ASSERT_EQ(Edit(file, "1.1\n$delete\n").exitCode, 0);
    const std::string other = folder.Write("other.pdf", PdfFileOfPages({Triangle("20 10")}));
    EXPECT_EQ(RunExample("compare_documents", {out, other}).exitCode, 0);
}

TEST_F(EditByScript, DeletesAGroupAndNotWhatFollowsIt)
{
    const std::string first = Triangle("10 10");
    const std::string last = Triangle("30 10");
    const std::string file =
        folder.Write("in.pdf", PdfFileOfPages({first + "/Inner BMC " + Triangle("20 10") + "EMC " + last}));
    ASSERT_EQ(Edit(file, "1.2\n$delete\n").exitCode, 0);
    const std::string other = folder.Write("other.pdf", PdfFileOfPages({first + last}));
    EXPECT_EQ(RunExample("compare_documents", {out, other}).exitCode, 0);
}

TEST_F(EditByScript, CountsAnewForEachCommand)
{
    const std::string file =
        folder.Write("in.pdf", PdfFileOfPages({Triangle("10 10") + Triangle("20 10") + Triangle("30 10")}));
    ASSERT_EQ(Edit(file, "1.1\n$delete\n1.1\n$delete\n").exitCode, 0);
    const std::string other = folder.Write("other.pdf", PdfFileOfPages({Triangle("30 10")}));
    EXPECT_EQ(RunExample("compare_documents", {out, other}).exitCode, 0);
}

TEST_F(EditByScript, TakesThePageFromTheFirstNumberAlone)
{
    const std::string file =
        folder.Write("in.pdf", PdfFileOfPages({Triangle("10 10"), Triangle("10 10"), Triangle("10 10")}));
    ASSERT_EQ(Edit(file, "2.1\nFlag\n$set-name\n").exitCode, 0);
    EXPECT_EQ(List(out), "1.1\tPath\t\tBlack 1\n2.1\tPath\tFlag\tBlack 1\n3.1\tPath\t\tBlack 1\n");
}

TEST_F(EditByScript, RejectsAPageThatIsNotThere)
{
    EXPECT_EQ(Complaint("2.1\n$delete\n"),
              "$delete 2.1: there is no page 2\nedit_by_script: the script stopped at line 2\n");
    EXPECT_THAT(Complaint("0.1\n$delete\n"), StartsWith("$delete 0.1: there is no page 0\n"));
    EXPECT_THAT(Complaint("-1.1\n$delete\n"), StartsWith("$delete -1.1: there is no page -1\n"));
}

TEST_F(EditByScript, RejectsAPathThatGoesOnBehindAPlainObject)
{
    EXPECT_THAT(Complaint("1.1.1\n$delete\n"), StartsWith("$delete 1.1.1: there is no such object\n"));
    EXPECT_THAT(Complaint("1.2.1.1\n$delete\n"), StartsWith("$delete 1.2.1.1: there is no such object\n"));
}

TEST_F(EditByScript, RejectsAPathThatLeadsNowhere)
{
    EXPECT_THAT(Complaint("1.3\n$delete\n"), StartsWith("$delete 1.3: there is no such object\n"));
    EXPECT_THAT(Complaint("1.2.2\n$delete\n"), StartsWith("$delete 1.2.2: there is no such object\n"));
    EXPECT_THAT(Complaint("1.0\n$delete\n"), StartsWith("$delete 1.0: there is no such object\n"));
}

TEST_F(EditByScript, RejectsAPathThatIsNone)
{
    EXPECT_THAT(Complaint("1.x\n$delete\n"), StartsWith("$delete 1.x: a path is made of numbers"));
    EXPECT_THAT(Complaint("x.1\n$delete\n"), StartsWith("$delete x.1: a path is made of numbers"));
    EXPECT_THAT(Complaint("\n$delete\n"), StartsWith("$delete : a path is made of numbers"));
    EXPECT_THAT(Complaint("1\n$delete\n"), StartsWith("$delete 1: invalid target\n"));
}

TEST_F(EditByScript, RejectsAFillOfAGroup)
{
    EXPECT_THAT(Complaint("1.2\nGold\n1\n$set-fill\n"), StartsWith("$set-fill 1.2: a Group has no fill\n"));
    EXPECT_THAT(Complaint("1.2\nGold\n1\n$set-stroke\n"),
                StartsWith("$set-stroke 1.2: a Group has no stroke\n"));
}

TEST_F(EditByScript, RejectsTintsOutsideOfZeroToOne)
{
    EXPECT_THAT(Complaint("1.1\nGold\n1.001\n$set-fill\n"),
                StartsWith("$set-fill 1.1: the tint 1.001 is not between 0 and 1\n"));
    EXPECT_THAT(Complaint("1.1\nGold\n-0.001\n$set-fill\n"),
                StartsWith("$set-fill 1.1: the tint -0.001 is not between 0 and 1\n"));
}

TEST_F(EditByScript, RejectsWhatIsNoNumber)
{
    EXPECT_THAT(Complaint("1.1\nGold\n0,5\n$set-fill\n"), StartsWith("$set-fill 1.1: '0,5' is no number\n"));
    EXPECT_THAT(Complaint("1.1\n\n2\n$move\n"), StartsWith("$move 1.1: '' is no number\n"));
    EXPECT_THAT(Complaint("1.1\n1\n2 pt\n$move\n"), StartsWith("$move 1.1: '2 pt' is no number\n"));
    EXPECT_THAT(Complaint("1.1\n1\nnan\n$move\n"), StartsWith("$move 1.1: 'nan' is no number\n"));
    EXPECT_THAT(Complaint("1.1\n1\n1e999\n$move\n"), StartsWith("$move 1.1: '1e999' is no number\n"));
}

TEST_F(EditByScript, RejectsACommandThatLacksAnOperand)
{
    EXPECT_THAT(Complaint("1.1\n$set-name\n"), StartsWith("$set-name: no operand\n"));
    EXPECT_THAT(Complaint("$delete\n"), StartsWith("$delete: no operand\n"));
}

TEST_F(EditByScript, TellsTheLineOfAnUnknownCommand)
{
    EXPECT_EQ(Complaint("# comment\n\n1.1\n$paint\n1.1\n$delete\n"),
              "unknown command\nedit_by_script: the script stopped at line 4\n");
}

TEST_F(EditByScript, TellsTheLineAlsoOfALastOneWithoutAnEnd)
{
    EXPECT_EQ(Complaint("1.1\n$paint"), "unknown command\nedit_by_script: the script stopped at line 2\n");
    EXPECT_EQ(Complaint("$paint"), "unknown command\nedit_by_script: the script stopped at line 1\n");
}

TEST_F(EditByScript, WritesNothingOfAScriptThatStops)
{
    EXPECT_THAT(Complaint("$list\n1.1\n$delete\n$list\n9.9\n$delete\n"), HasSubstr("there is no page 9\n"));
}

TEST_F(EditByScript, LeavesAFileWholeIfItsScriptStops)
{
    const std::string file = folder.Write("in.pdf", PdfFileOfPages({Triangle("10 10")}));
    const std::string before = FileBytes(file);
    const std::string script = folder.Write("script.txt", "1.1\n$delete\n$paint\n");
    EXPECT_EQ(RunExample("edit_by_script", {file, script, file}).exitCode, 2);
    EXPECT_EQ(FileBytes(file), before);
}

TEST_F(EditByScript, SavesToTheFileThatItReads)
{
    const std::string file = folder.Write("in.pdf", PdfFileOfPages({Triangle("10 10")}));
    const std::string script = folder.Write("script.txt", "1.1\nFlag\n$set-name\n");
    ASSERT_EQ(RunExample("edit_by_script", {file, script, file}).exitCode, 0);
    EXPECT_EQ(List(file), "1.1\tPath\tFlag\tBlack 1\n");
}

TEST_F(EditByScript, RefusesALossByAnEdit)
{
    const std::string file = folder.Write("in.pdf", FileWithUnmodelled(Triangle("10 10")));
    const ProcessResult result = Edit(file, "1.1\nFlag\n$set-name\n$list\n");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "error\tpage 1\tpage 1: the content was changed and is written without what was "
                             "not read of it\nedit_by_script: nothing is saved, since this would be lost; "
                             "--accept-loss saves all the same\n");
    EXPECT_FALSE(boost::filesystem::exists(out));
}

TEST_F(EditByScript, AcceptsALossIfAskedTo)
{
    const std::string file = folder.Write("in.pdf", FileWithUnmodelled(Triangle("10 10")));
    const ProcessResult result = Edit(file, "1.1\nFlag\n$set-name\n", {"--accept-loss"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.errors, AllOf(StartsWith("error\tpage 1\t"), EndsWith("was not read of it\n")));
    EXPECT_EQ(List(out), "1.1\tPath\tFlag\tBlack 1\n");
}

TEST_F(EditByScript, LosesNothingOfAPageThatItDoesNotChange)
{
    const std::string file =
        folder.Write("in.pdf", PdfFileOfPages({unmodelled + Triangle("10 10"), Triangle("10 10")}));
    const ProcessResult result = Edit(file, "2.1\nFlag\n$set-name\n$list\n");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
}

TEST_F(EditByScript, KeepsParametersThatTheModelHasNoPlaceFor)
{
    const std::string file =
        folder.Write("in.pdf", PdfFileOfPages({"/Adjusted gs " + Triangle("10 10")}, "",
                                              "/ExtGState << /Adjusted << /SA true >> >>"));
    const ProcessResult result = Edit(file, "1.1\nFlag\n$set-name\n");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    const ProcessResult objects = RunProcess({"qpdf", "--qdf", "--object-streams=disable", out, "-"});
    EXPECT_THAT(objects.output, HasSubstr("/SA true"));
}

TEST_F(EditByScript, TakesNothingForALossThatCannotBeWrittenAnyway)
{
    const std::string file =
        folder.Write("in.pdf", FileThatIsWrittenAnew("/Tag /Missing BDC " + Triangle("10 10") + "EMC"));
    const ProcessResult result = Edit(file, "1.1.1\nFlag\n$set-name\n");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
}

TEST_F(EditByScript, NamesAScriptThatIsMissing)
{
    const std::string missing = folder.NameOf("missing.txt");
    const ProcessResult result = RunExample("edit_by_script", {ExampleFile("leaflet-v1.pdf"), missing, out});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errors, "edit_by_script: " + missing + " can't be read\n");
    EXPECT_FALSE(boost::filesystem::exists(out));
}

TEST_F(EditByScript, NamesAFileThatIsMissing)
{
    const std::string missing = folder.NameOf("missing.pdf");
    const ProcessResult result = Edit(missing, "$list\n");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.errors, AllOf(StartsWith("edit_by_script: "), HasSubstr(missing)));
}

/// Needs qpdf, which writes the encrypted file.
class EditEncryptedByScript : public EditByScript
{
protected:
    void SetUp() override { WriteEncryptedLeaflet(encrypted); }

    std::string encrypted = folder.NameOf("encrypted.pdf");
};

TEST_F(EditEncryptedByScript, OpensAFileWithItsPassword)
{
    EXPECT_EQ(Edit(encrypted, "$list\n").exitCode, 2);
    EXPECT_EQ(Edit(encrypted, "$list\n", {"--password", "secret"}).exitCode, 0);
}

TEST_F(EditByScript, ExplainsItself)
{
    const ProcessResult result = RunExample("edit_by_script", {"--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(IsApproved(result.output, "tests/examples/approved/edit_by_script-help.txt"));
}

} // namespace
} // namespace HarrowSupport::Testing
