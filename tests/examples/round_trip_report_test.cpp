#include "support/round_trip_report.h"

#include <orv_sys/error.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

namespace Examples
{
namespace
{

std::shared_ptr<OrvSys::Core::Error> Error(const std::string& text)
{
    return std::make_shared<OrvSys::Core::Error>(text);
}

class RoundTripReportTest : public ::testing::Test
{
protected:
    HarrowSupport::RoundTripResult Differing()
    {
        HarrowSupport::RoundTripResult result;
        result.differences = {{"PaintColor", "one"}};
        return result;
    }

    std::ostringstream output;
    RoundTripReport report{output};
};

TEST_F(RoundTripReportTest, WritesTheListsInOrderBehindTheFile)
{
    HarrowSupport::RoundTripResult result;
    result.differences = {{"PaintColor", "one"}, {"Name", "two"}};
    result.documentErrors = {Error("three"), Error("four"), Error("five")};
    result.contentErrors = {Error("six"), Error("seven"), Error("eight"), Error("nine")};
    report.AddResult("a.pdf", result);
    EXPECT_EQ(report.Finish(), ExitCode::Different);
    EXPECT_EQ(output.str(), "a.pdf\tdifference\tPaintColor\tone\n"
                            "a.pdf\tdifference\tName\ttwo\n"
                            "a.pdf\tdocument error\tthree\n"
                            "a.pdf\tdocument error\tfour\n"
                            "a.pdf\tdocument error\tfive\n"
                            "a.pdf\tcontent error\tsix\n"
                            "a.pdf\tcontent error\tseven\n"
                            "a.pdf\tcontent error\teight\n"
                            "a.pdf\tcontent error\tnine\n"
                            "1 file, 2 differences, 3 new errors of documents, 4 new errors of contents\n");
}

TEST_F(RoundTripReportTest, EscapesWhatWouldBreakALine)
{
    HarrowSupport::RoundTripResult result;
    result.differences = {{"Name", "'\t' vs '\n'"}};
    result.documentErrors = {Error("\x1B[2J")};
    result.contentErrors = {Error("a\rb")};
    report.AddResult("a\tb.pdf", result);
    EXPECT_EQ(output.str(), "a\\tb.pdf\tdifference\tName\t'\\t' vs '\\n'\n"
                            "a\\tb.pdf\tdocument error\t\\x1B[2J\n"
                            "a\\tb.pdf\tcontent error\ta\\rb\n");
}

TEST_F(RoundTripReportTest, AddsTheCountsOfAllFiles)
{
    report.AddResult("a.pdf", Differing());
    report.AddResult("b.pdf", {});
    report.AddResult("c.pdf", Differing());
    output.str("");
    report.Finish();
    EXPECT_EQ(output.str(), "3 files, 2 differences, 0 new errors of documents, 0 new errors of contents\n");
}

TEST_F(RoundTripReportTest, CountsOneOfEachInTheSingular)
{
    HarrowSupport::RoundTripResult result = Differing();
    result.documentErrors = {Error("one")};
    result.contentErrors = {Error("one")};
    report.AddResult("a.pdf", result);
    output.str("");
    report.Finish();
    EXPECT_EQ(output.str(), "1 file, 1 difference, 1 new error of documents, 1 new error of contents\n");
}

TEST_F(RoundTripReportTest, CountsAFileThatFailedAmongTheFiles)
{
    report.AddFailure();
    report.AddResult("b.pdf", {});
    report.AddFailure();
    report.Finish();
    EXPECT_EQ(
        output.str(),
        "3 files, 0 differences, 0 new errors of documents, 0 new errors of contents, 2 files failed\n");
}

TEST_F(RoundTripReportTest, MakesNoDifferenceOfErrors)
{
    HarrowSupport::RoundTripResult result;
    result.contentErrors = {Error("one")};
    report.AddResult("a.pdf", result);
    EXPECT_EQ(report.Finish(), ExitCode::Equal);
}

TEST_F(RoundTripReportTest, HoldsAFailureForMoreThanADifference)
{
    report.AddFailure();
    report.AddResult("b.pdf", Differing());
    EXPECT_EQ(report.Finish(), ExitCode::Trouble);
}

} // namespace
} // namespace Examples
