#pragma once

#include <harrow_support/comparators.h>

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// One call of Report, kept.
struct RecordedReport
{
    Comparators::ReportKind kind;
    std::string label;
    Comparators::LocationPath left;
    Comparators::LocationPath right;
    std::string text;
};

/// Keeps all reports in the order in which they came.
class RecordingReporter : public Comparators::Reporter
{
public:
    void Report(Comparators::ReportKind kind, const std::string& label, const Comparators::LocationPath& left,
                const Comparators::LocationPath& right, const std::string& text) override;

    const std::vector<RecordedReport>& GetReports() const { return reports; }

    /// The reports as `<label>: <text>`, or the label alone if there is no text, with "(tolerated) " in front
    /// of a report that is no difference.
    std::vector<std::string> Lines() const;

    /// The labels alone.
    std::vector<std::string> Labels() const;

private:
    std::vector<RecordedReport> reports;
};

/// All options set but the loose comparison of links and the dumps: nothing is left out.
Comparators::Options AllOptions();

/// The lines of one comparison.
template <typename Item>
std::vector<std::string> CompareLines(const Item& left, const Item& right,
                                      const Comparators::Options& options = AllOptions())
{
    RecordingReporter reporter;
    Comparators::Compare(reporter, left, right, options);
    return reporter.Lines();
}

/// A report that a test expects, with what it turns into when the sides are swapped.
struct ExpectedReport
{
    std::string line;
    std::string mirroredLine;
};

/// A difference without values.
ExpectedReport Difference(const std::string& label);
/// A difference of two values.
ExpectedReport Difference(const std::string& label, const std::string& left, const std::string& right);
/// An object that only the left side has, by the name of its class; "ObjectAdded" from the other side.
ExpectedReport Removed(const std::string& className);
/// The mirror of Removed.
ExpectedReport Added(const std::string& className);

/// Fails unless exactly these reports came, in this order, and their mirrored ones with the sides swapped.
void ExpectLines(const std::vector<std::string>& lines, const std::vector<std::string>& mirroredLines,
                 const std::vector<ExpectedReport>& expected);

/// Compares both ways round and fails unless exactly these reports come, in this order.
template <typename Item>
void ExpectReports(const Item& left, const Item& right, const std::vector<ExpectedReport>& expected,
                   const Comparators::Options& options = AllOptions())
{
    ExpectLines(CompareLines(left, right, options), CompareLines(right, left, options), expected);
}

} // namespace HarrowSupport::Testing
