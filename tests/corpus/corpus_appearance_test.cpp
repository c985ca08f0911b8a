// What is read into the model and written anew looks as before, to a renderer that is not ours. Pages that
// hold something the model has no place for are left out, and counted. The table of outcomes goes to
// corpus-appearance.tsv in the build folder.

#include "support/corpus_appearance.h"
#include "support/corpus_run.h"
#include "support/page_images.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>

namespace HarrowSupport::Testing
{
namespace
{

/// Renders once for all tests of the suite.
class CorpusAppearance : public ::testing::Test
{
protected:
    static void TearDownTestSuite() { outcomes.clear(); }

    void SetUp() override
    {
        const std::string reason = WhyNotRendered();
        if (!reason.empty())
            GTEST_SKIP() << reason;
        // Of any other folder it may be true that every page has something that is not modelled.
        isOwnCorpus = !ReadRemarks(CorpusFolder()).empty();
        if (!outcomes.empty())
            return;
        outcomes = CompareAppearances(CorpusFolder(), CorpusLimits());
        std::ofstream table(HARROW_EXAMPLES_FOLDER "/../corpus-appearance.tsv");
        WriteTable(table, outcomes);
        std::cout << Summary(outcomes) << "\n";
    }

    static std::vector<AppearanceOutcome> outcomes;
    bool isOwnCorpus = false;
};

std::vector<AppearanceOutcome> CorpusAppearance::outcomes;

TEST_F(CorpusAppearance, EveryPageWrittenAnewLooksAsBefore)
{
    std::size_t comparedPages = 0;
    for (const AppearanceOutcome& outcome : outcomes) {
        comparedPages += outcome.shares.size();
        for (const auto& page : outcome.shares) {
            EXPECT_LE(page.second, shareTolerance)
                << outcome.file << ", page " << page.first
                << ": render it and what save_and_reopen --rewrite --keep makes of it by pdftoppm -r 72";
        }
    }
    EXPECT_TRUE(comparedPages > 0 || !isOwnCorpus) << "not a single page was compared";
}

/// Every program mends a damaged page tree in its own way, so that they find other pages.
bool IsSound(const AppearanceOutcome& outcome)
{
    return outcome.file.compare(0, 8, "damaged/") != 0;
}

TEST_F(CorpusAppearance, EveryPageOfASoundFileWrittenAnewHasItsText)
{
    std::size_t pagesWithText = 0;
    for (const AppearanceOutcome& outcome : outcomes) {
        if (!IsSound(outcome))
            continue;
        pagesWithText += outcome.pagesWithText;
        for (const std::size_t page : outcome.pagesOfOtherText) {
            ADD_FAILURE() << outcome.file << ", page " << page
                          << ": read it and what save_and_reopen --rewrite --keep makes of it by pdftotext "
                             "-layout";
        }
    }
    EXPECT_TRUE(pagesWithText > 0 || !isOwnCorpus) << "not a single page with text was compared";
}

TEST_F(CorpusAppearance, NoPictureOfASoundFileLosesABitOfDepthOrAChannel)
{
    std::size_t pictures = 0;
    for (const AppearanceOutcome& outcome : outcomes) {
        if (!IsSound(outcome))
            continue;
        pictures += outcome.pictures;
        for (const std::size_t page : outcome.pagesOfOtherPictures) {
            ADD_FAILURE() << outcome.file << ", page " << page
                          << ": list it and what save_and_reopen --rewrite --keep makes of it by pdfimages "
                             "-list";
        }
    }
    EXPECT_TRUE(pictures > 0 || !isOwnCorpus) << "not a single picture was compared";
}

} // namespace
} // namespace HarrowSupport::Testing
