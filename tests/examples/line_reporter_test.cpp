#include "support/line_reporter.h"

#include "support/document_makers.h"

#include <orv_doc/page.h>

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

namespace HarrowSupport::Testing
{
namespace
{

using Comparators::LocationEntry;
using Comparators::LocationPath;
using Comparators::ReportKind;
using Examples::EscapeField;

TEST(EscapeField, LeavesPlainTextAlone)
{
    EXPECT_EQ(EscapeField("'Grün' vs 'gelb'"), "'Grün' vs 'gelb'");
}

TEST(EscapeField, WritesABackslashTwice)
{
    EXPECT_EQ(EscapeField("a\\nb"), "a\\\\nb");
}

TEST(EscapeField, NamesTabAndEndsOfLines)
{
    EXPECT_EQ(EscapeField("a\tb\nc\rd"), "a\\tb\\nc\\rd");
}

TEST(EscapeField, WritesOtherControlCharactersAsTwoDigits)
{
    EXPECT_EQ(EscapeField(std::string("\0", 1)), "\\x00");
    EXPECT_EQ(EscapeField("\x1F\x20"), "\\x1F ");
    EXPECT_EQ(EscapeField("\x7E\x7F"), "~\\x7F");
}

class LineReporter : public ::testing::Test
{
protected:
    std::unique_ptr<OrvDoc::Document> left = NewDocument(2);
    std::unique_ptr<OrvDoc::Document> right = NewDocument(2);
    std::ostringstream stream;
    Examples::LineReporter reporter{stream, *left, *right};
};

TEST_F(LineReporter, SeparatesTheFieldsByTabs)
{
    const OrvDoc::Page* leftPage = &PageOf(*left, 0);
    const OrvDoc::Page* rightPage = &PageOf(*right, 1);
    reporter.Report(ReportKind::Difference, "Label", LocationPath(1, LocationEntry(leftPage)),
                    LocationPath(1, LocationEntry(rightPage)), "'a\tb' vs 'c'");
    EXPECT_EQ(stream.str(), "1\tLabel\tpage 1\tpage 2\t'a\\tb' vs 'c'\n");
}

TEST_F(LineReporter, KeepsTheFieldOfAnEmptyText)
{
    reporter.Report(ReportKind::Difference, "Label", {}, {}, "");
    EXPECT_EQ(stream.str(), "1\tLabel\tdocument\tdocument\t\n");
}

TEST_F(LineReporter, CountsDifferences)
{
    reporter.Report(ReportKind::Difference, "Label", {}, {}, "");
    reporter.Report(ReportKind::Difference, "Label", {}, {}, "");
    EXPECT_EQ(reporter.GetDifferenceCount(), 2u);
}

TEST_F(LineReporter, DoesNotCountToleratedVariations)
{
    reporter.Report(ReportKind::ToleratedVariation, "Label", {}, {}, "");
    EXPECT_EQ(reporter.GetDifferenceCount(), 0u);
    EXPECT_EQ(stream.str(), "0\tLabel\tdocument\tdocument\t\n");
}

} // namespace
} // namespace HarrowSupport::Testing
