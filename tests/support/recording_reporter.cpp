#include "recording_reporter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{

void RecordingReporter::Report(Comparators::ReportKind kind, const std::string& label,
                               const Comparators::LocationPath& left, const Comparators::LocationPath& right,
                               const std::string& text)
{
    reports.push_back({kind, label, left, right, text});
}

std::vector<std::string> RecordingReporter::Lines() const
{
    std::vector<std::string> lines;
    for (const RecordedReport& report : reports) {
        std::string line = report.kind == Comparators::ReportKind::Difference ? "" : "(tolerated) ";
        line += report.label;
        if (!report.text.empty())
            line += ": " + report.text;
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> RecordingReporter::Labels() const
{
    std::vector<std::string> labels;
    for (const RecordedReport& report : reports)
        labels.push_back(report.label);
    return labels;
}

Comparators::Options AllOptions()
{
    Comparators::Options options{};
    options.compareImageData = true;
    options.compareSeparationInfo = true;
    options.softMaskAsChannel = true;
    options.expandIndexedImages = true;
    options.comparePatternContentReuse = true;
    return options;
}

ExpectedReport Difference(const std::string& label)
{
    return {label, label};
}

ExpectedReport Difference(const std::string& label, const std::string& left, const std::string& right)
{
    return {label + ": '" + left + "' vs '" + right + "'", label + ": '" + right + "' vs '" + left + "'"};
}

ExpectedReport Removed(const std::string& className)
{
    return {"ObjectRemoved: " + className, "ObjectAdded: " + className};
}

ExpectedReport Added(const std::string& className)
{
    return {"ObjectAdded: " + className, "ObjectRemoved: " + className};
}

void ExpectLines(const std::vector<std::string>& lines, const std::vector<std::string>& mirroredLines,
                 const std::vector<ExpectedReport>& expected)
{
    std::vector<std::string> expectedLines;
    std::vector<std::string> expectedMirroredLines;
    for (const ExpectedReport& report : expected) {
        expectedLines.push_back(report.line);
        expectedMirroredLines.push_back(report.mirroredLine);
    }
    EXPECT_THAT(lines, ::testing::ElementsAreArray(expectedLines)) << "left against right";
    EXPECT_THAT(mirroredLines, ::testing::ElementsAreArray(expectedMirroredLines)) << "right against left";
}

} // namespace HarrowSupport::Testing
