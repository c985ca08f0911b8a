#include "corpus/bars.h"
#include "corpus/summary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using Corpus::Bar;
using Corpus::FileOutcome;
using Corpus::RaiseBars;
using Corpus::TripOutcome;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

/// A sound file of one page that holds all bars.
FileOutcome Good(const std::string& file = "good.pdf")
{
    FileOutcome outcome;
    outcome.file = file;
    outcome.check = "clean";
    for (TripOutcome* const trip : {&outcome.kept, &outcome.rewritten}) {
        trip->ending = "0";
        trip->check = "clean";
        trip->pages = 1;
        trip->look.shares = {{1, 0.0}};
        trip->look.pagesWithText = 1;
        trip->look.pictures = 1;
    }
    return outcome;
}

Bar FindBar(const std::vector<FileOutcome>& outcomes, const std::string& end)
{
    for (const Bar& bar : RaiseBars(outcomes, &FileOutcome::kept)) {
        if (bar.name.size() >= end.size() && bar.name.substr(bar.name.size() - end.size()) == end)
            return bar;
    }
    throw std::out_of_range("there is no bar " + end);
}

bool AreAllHeld(const std::vector<FileOutcome>& outcomes)
{
    const std::vector<Bar> bars = RaiseBars(outcomes, &FileOutcome::kept);
    return std::all_of(bars.begin(), bars.end(), [](const Bar& bar) { return bar.IsHeld(); });
}

TEST(Bars, AreHeldByAGoodFileAndByNone)
{
    EXPECT_TRUE(AreAllHeld({Good()}));
    EXPECT_TRUE(AreAllHeld({}));
}

TEST(Bars, AskForNinetyNineEqualFilesInAHundred)
{
    std::vector<FileOutcome> outcomes(100, Good());
    outcomes[0].kept.ending = "1";
    outcomes[0].kept.differences = 1;
    EXPECT_TRUE(FindBar(outcomes, "comes back equal").IsHeld());
    outcomes[1].kept = outcomes[0].kept;
    EXPECT_FALSE(FindBar(outcomes, "comes back equal").IsHeld());
}

TEST(Bars, AskForAnActiveErrorWhereAFileDiffers)
{
    FileOutcome different = Good();
    different.kept.ending = "1";
    different.kept.differences = 1;
    EXPECT_FALSE(FindBar({different}, "a difference has an active error").IsHeld());
    different.kept.activeErrors = 1;
    EXPECT_TRUE(FindBar({different}, "a difference has an active error").IsHeld());
}

TEST(Bars, AllowAHalfPercentOfThePixels)
{
    FileOutcome outcome = Good();
    outcome.kept.look.shares = {{1, 0.0}, {2, 0.005}};
    EXPECT_TRUE(FindBar({outcome}, "the same picture").IsHeld());
    outcome.kept.look.shares[2] = std::nextafter(0.005, 1.0);
    EXPECT_THAT(FindBar({outcome}, "the same picture").failures, ElementsAre("good.pdf"));
}

TEST(Bars, AskDamagedFilesForAnAnswerAlone)
{
    FileOutcome damaged = Good();
    damaged.check = "errors";
    damaged.kept = {};
    damaged.kept.ending = "2";
    damaged.kept.message = "try_document: damaged beyond repair";
    EXPECT_TRUE(AreAllHeld({damaged}));
    damaged.check = "clean";
    EXPECT_FALSE(FindBar({damaged}, "sound: opens").IsHeld());
}

TEST(Bars, AskDamagedFilesThatOpenToComeBackEqual)
{
    FileOutcome damaged = Good();
    damaged.check = "signal 11";
    damaged.kept.ending = "1";
    damaged.kept.differences = 1;
    EXPECT_FALSE(FindBar({damaged}, "opens: comes back equal").IsHeld());
}

TEST(Bars, AskEveryFileForAnAnswerAndACleanFolder)
{
    FileOutcome crashed = Good();
    crashed.kept.ending = "signal 11";
    EXPECT_FALSE(FindBar({crashed}, "leaves nothing behind").IsHeld());
    FileOutcome untidy = Good();
    untidy.kept.leftFiles = {"harrow-1234"};
    EXPECT_FALSE(FindBar({untidy}, "leaves nothing behind").IsHeld());
}

TEST(Bars, AskForNothingThatQpdfWarnsOf)
{
    FileOutcome outcome = Good();
    outcome.kept.check = "warnings";
    EXPECT_FALSE(FindBar({outcome}, "clean to qpdf").IsHeld());
    outcome.kept.check = "no qpdf";
    EXPECT_EQ(FindBar({outcome}, "clean to qpdf").files, 0U);
}

TEST(Table, HasTheWorstFilesFirst)
{
    FileOutcome crashed = Good("crashed.pdf");
    crashed.kept.ending = "signal 11";
    FileOutcome different = Good("different.pdf");
    different.rewritten.differences = 3;
    different.rewritten.labels = {{"ObjectShape", 3}};
    FileOutcome otherText = Good("text.pdf");
    otherText.kept.look.pagesOfOtherText = {1};
    std::ostringstream stream;
    Corpus::WriteTable(stream, {Good(), otherText, different, crashed}, 3);
    std::vector<std::string> lines;
    std::istringstream table(stream.str());
    for (std::string line; std::getline(table, line);)
        lines.push_back(line);
    EXPECT_THAT(lines,
                ElementsAre(StartsWith("file "), StartsWith("crashed.pdf"), StartsWith("different.pdf"),
                            StartsWith("text.pdf"), "and 1 file no worse"));
    EXPECT_THAT(lines[1], HasSubstr("no answer: signal 11"));
    EXPECT_THAT(lines[2], HasSubstr("3 differences, ObjectShape"));
    EXPECT_THAT(lines[3], HasSubstr("other text on 1 page"));
}

TEST(WrittenBars, TellWhetherAllAreHeldBothWays)
{
    std::ostringstream stream;
    EXPECT_TRUE(Corpus::WriteBars(stream, {Good()}));
    FileOutcome outcome = Good();
    outcome.rewritten.look.pagesOfOtherText = {1};
    EXPECT_FALSE(Corpus::WriteBars(stream, {outcome}));
    EXPECT_THAT(stream.str(), HasSubstr("FAILED"));
}

TEST(WrittenBars, CountObjectsAndLimits)
{
    FileOutcome outcome = Good();
    outcome.rewritten.objects = {{"Path", 2}};
    outcome.rewritten.limits = {{"operands", 1}};
    std::ostringstream stream;
    Corpus::WriteBars(stream, {outcome, outcome});
    EXPECT_THAT(stream.str(), HasSubstr("objects: Path 4\nlimits reached: operands 2\n"));
}

} // namespace
} // namespace HarrowSupport::Testing
