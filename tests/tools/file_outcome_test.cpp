#include "corpus/file_outcome.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{
namespace
{

using Corpus::FileOutcome;
using Corpus::ReadTrial;
using Corpus::ToJsonLine;
using Corpus::TripOutcome;
using nlohmann::json;

TripOutcome Trip(const std::string& ending, const std::string& message = {})
{
    TripOutcome trip;
    trip.ending = ending;
    trip.message = message;
    return trip;
}

TEST(TripOutcome, IsAnAnswerWithAnOutcomeOrAReason)
{
    EXPECT_TRUE(Trip("0").IsAnswer());
    EXPECT_TRUE(Trip("1").IsAnswer());
    EXPECT_TRUE(Trip("2", "try_document: a.pdf: no PDF file").IsAnswer());
}

TEST(TripOutcome, IsNoAnswerWithoutEither)
{
    EXPECT_FALSE(Trip("2").IsAnswer());
    EXPECT_FALSE(Trip("2", "std::bad_alloc").IsAnswer());
    EXPECT_FALSE(Trip("signal 11").IsAnswer());
    EXPECT_FALSE(Trip("out of time").IsAnswer());
    EXPECT_FALSE(Trip("127", "the program can't be started").IsAnswer());
}

TEST(FileOutcome, IsOneLineOfJson)
{
    FileOutcome outcome;
    outcome.file = "folder/a\nb.pdf";
    outcome.bytes = 12;
    outcome.check = "warnings";
    outcome.kept = Trip("0");
    outcome.kept.look.shares = {{1, 0.25}, {2, 0.5}};
    outcome.rewritten = Trip("signal 6");
    outcome.rewritten.limits = {{"formNesting", 2}};
    const std::string line = ToJsonLine(outcome);
    EXPECT_EQ(line.find('\n'), std::string::npos);
    const json read = json::parse(line);
    EXPECT_EQ(read["file"], outcome.file);
    EXPECT_EQ(read["bytes"], 12);
    EXPECT_EQ(read["sound"], true);
    EXPECT_EQ(read["kept"]["opened"], true);
    EXPECT_EQ(read["kept"]["look"]["pages_compared"], 2);
    EXPECT_EQ(read["kept"]["look"]["worst_share"], 0.5);
    EXPECT_EQ(read["rewritten"]["opened"], false);
    EXPECT_EQ(read["rewritten"]["ending"], "signal 6");
    EXPECT_EQ(read["rewritten"]["limits"]["formNesting"], 2);
}

TEST(FileOutcome, IsJsonWhateverBytesANameHas)
{
    FileOutcome outcome;
    outcome.file = "a\xFF.pdf";
    EXPECT_NO_THROW(json::parse(ToJsonLine(outcome)));
}

TEST(ReadTrial, TakesOverEachField)
{
    TripOutcome trip;
    ReadTrial(R"({"pages":3,"objects":{"Path":4},"active_errors":5,"error_texts":["page 1: odd"],)"
              R"("limits":{"operands":6},"incomplete_pages":[2],"differences":7,"on_purpose":8,)"
              R"("labels":{"ObjectShape":7},"difference_texts":["1\tObjectShape"],"peak_mebibytes":9.5})",
              trip);
    EXPECT_EQ(trip.pages, 3U);
    EXPECT_EQ(trip.objects.at("Path"), 4U);
    EXPECT_EQ(trip.activeErrors, 5U);
    EXPECT_EQ(trip.errorTexts.at(0), "page 1: odd");
    EXPECT_EQ(trip.limits.at("operands"), 6U);
    EXPECT_EQ(trip.incompletePages.count(2), 1U);
    EXPECT_EQ(trip.differences, 7U);
    EXPECT_EQ(trip.onPurpose, 8U);
    EXPECT_EQ(trip.labels.at("ObjectShape"), 7U);
    EXPECT_EQ(trip.differenceTexts.size(), 1U);
    EXPECT_EQ(trip.peakMebibytes, 9.5);
}

TEST(ReadTrial, RefusesWhatIsNoTrial)
{
    TripOutcome trip;
    EXPECT_THROW(ReadTrial("", trip), json::exception);
    EXPECT_THROW(ReadTrial("{}", trip), json::exception);
}

} // namespace
} // namespace HarrowSupport::Testing
