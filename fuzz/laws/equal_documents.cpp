#include "laws/equal_documents.h"

#include "fuzz_target.h"
#include "support/recording_reporter.h"

#include <harrow_support/comparators.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::size_t maximalShown = 5;

class StrictReporter : public Comparators::Reporter
{
public:
    explicit StrictReporter(std::vector<std::string> toleratedLabels) : tolerated(std::move(toleratedLabels))
    {
        tolerated.emplace_back("SoftMaskTransferFunction");
        tolerated.emplace_back("UncoloredPatternPaintHasImage");
    }

    void Report(Comparators::ReportKind, const std::string& label, const Comparators::LocationPath&,
                const Comparators::LocationPath&, const std::string& text) override
    {
        if (std::find(tolerated.begin(), tolerated.end(), label) == tolerated.end())
            reports.push_back(label + ": " + text);
    }

    const std::vector<std::string>& GetReports() const { return reports; }

private:
    std::vector<std::string> tolerated;
    std::vector<std::string> reports;
};

} // namespace

void RequireEqual(const OrvDoc::Document& left, const OrvDoc::Document& right, const char* law,
                  const std::vector<std::string>& tolerated)
{
    StrictReporter reporter(tolerated);
    Comparators::Compare(reporter, left, right, Testing::AllOptions());
    const std::vector<std::string>& reports = reporter.GetReports();
    for (std::size_t i = 0; i < reports.size() && i < maximalShown; ++i)
        std::cerr << reports[i] << "\n";
    Require(reports.empty(), law);
}

} // namespace HarrowSupport::Fuzzing
