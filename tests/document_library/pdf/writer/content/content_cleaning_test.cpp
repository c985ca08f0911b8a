#include "pdf/writer/content/content_cleaning.h"

#include <gtest/gtest.h>

namespace OrvPdf
{
namespace
{

std::string Clean(std::string_view bytes, const std::vector<ByteRange>& damaged = {})
{
    return CleanContent(bytes, damaged).value_or("as it was");
}

TEST(ContentCleaning, LeavesSoundContentAlone)
{
    EXPECT_EQ(Clean("q % a comment\n1 0 0 1 0 0 cm\n/P <</MCID 0>> BDC (a\\)b) Tj EMC Q"), "as it was");
    EXPECT_EQ(Clean(""), "as it was");
}

TEST(ContentCleaning, CutsDamagedRanges)
{
    EXPECT_EQ(Clean("q XX Q", {{2, 4}}), "q \n Q");
}

TEST(ContentCleaning, KeepsWhatStandsAroundACutApart)
{
    EXPECT_EQ(Clean("0 g(0 G", {{3, 4}}), "0 g\n0 G");
}

TEST(ContentCleaning, CutsRangesInAnyOrderThatOverlapOrReachBeyondTheEnd)
{
    EXPECT_EQ(Clean("q abcd Q ef", {{9, 99}, {2, 5}, {4, 6}}), "q \n\n Q \n");
}

TEST(ContentCleaning, PutsAnOddDictionaryInForm)
{
    EXPECT_EQ(Clean("q /P <</MCID 0 (no key) /Lang>> BDC EMC Q"), "q\n/P <</MCID 0 >> BDC\nEMC\nQ\n");
}

TEST(ContentCleaning, PutsOddNumbersInForm)
{
    EXPECT_EQ(Clean("--5 w"), "-5 w\n");
}

TEST(ContentCleaning, KeepsInlineImages)
{
    EXPECT_EQ(Clean("--5 w BI /W 1 /H 1 /BPC 8 /CS /G ID \x7F EI Q"),
              "-5 w\nBI /W 1 /H 1 /BPC 8 /CS /G ID \x7F EI\nQ\n");
}

} // namespace
} // namespace OrvPdf
