// What is read into the model and written anew looks as before, to a renderer that is not ours. Pages that
// hold something the model has no place for are left out, and counted. The table of outcomes goes to
// corpus-appearance.tsv in the build folder.

#include "support/corpus_appearance.h"
#include "support/corpus_run.h"
#include "support/page_images.h"

#include <boost/filesystem/operations.hpp>

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>

namespace HarrowSupport::Testing
{
namespace
{

TEST(CorpusAppearance, EveryPageWrittenAnewLooksAsBefore)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the renderers are the same under a sanitizer, and slow";
#endif
    if (!boost::filesystem::is_directory(CorpusFolder())) {
        GTEST_SKIP() << "there is no folder " << CorpusFolder()
                     << "; HARROW_CORPUS_DIR names another folder of PDF files";
    }
    if (!CanRenderPages())
        GTEST_SKIP() << "install poppler-utils to run this test";
    const std::vector<AppearanceOutcome> outcomes = CompareAppearances(CorpusFolder(), CorpusLimits());
    std::ofstream table(HARROW_EXAMPLES_FOLDER "/../corpus-appearance.tsv");
    WriteTable(table, outcomes);
    std::cout << Summary(outcomes) << "\n";

    // Of any other folder it may be true that every page has something that is not modelled.
    const bool isOwnCorpus = !ReadRemarks(CorpusFolder()).empty();
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

} // namespace
} // namespace HarrowSupport::Testing
