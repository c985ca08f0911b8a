// Any number of threads may read one document. Run under the thread sanitizer as well.

#include <harrow_support/comparators.h>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/dump.h>
#include <orv_doc/errors.h>
#include <orv_doc/path.h>
#include <orv_doc/read_options.h>
#include <orv_doc/visitor.h>

#include <plexa/compound.h>

#include "support/recording_reporter.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

constexpr std::size_t threadCount = 4;

std::unique_ptr<OrvDoc::Document> ReadLeaflet()
{
    return OrvDoc::Document::Create(HARROW_SOURCE_FOLDER "/examples/data/leaflet-v1.pdf",
                                    OrvDoc::ReadOptions());
}

// Runs the work on as many threads at once as the test has, and gives their results.
template <typename Work>
auto RunTogether(const Work& work)
{
    std::vector<decltype(work())> results(threadCount);
    std::vector<std::thread> threads;
    for (auto& result : results) {
        threads.emplace_back([&work, &result] { result = work(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return results;
}

template <typename Value>
void ExpectAllEqual(const std::vector<Value>& values)
{
    for (const Value& value : values) {
        EXPECT_EQ(value, values.front());
    }
}

class ShapeCounter : public OrvDoc::ConstVisitorBase
{
public:
    using OrvDoc::ConstVisitorBase::Visit;

    bool Visit(const OrvDoc::Path& path) override
    {
        count += path.TransformedCompound(nullptr)->GetSubpaths().size();
        return true;
    }

    std::size_t count = 0;
};

TEST(ConcurrentReading, ThreadsThatAskForAllContentsAtOnceSeeTheSameTrees)
{
    const std::unique_ptr<const OrvDoc::Document> document = ReadLeaflet();
    const auto dumps = RunTogether([&document] {
        std::ostringstream text;
        OrvDoc::Dump(*document, text, OrvDoc::DumpOption::WithBelow, 0);
        return text.str();
    });
    EXPECT_GT(dumps.front().size(), 1000U);
    ExpectAllEqual(dumps);
}

TEST(ConcurrentReading, ThreadsThatAskForTransformedShapesAtOnceSeeTheSameShapes)
{
    const std::unique_ptr<const OrvDoc::Document> document = ReadLeaflet();
    const auto counts = RunTogether([&document] {
        ShapeCounter counter;
        document->Accept(counter);
        return counter.count;
    });
    EXPECT_GT(counts.front(), 50U);
    ExpectAllEqual(counts);
}

TEST(ConcurrentReading, ThreadsThatAskForSeparationsAtOnceSeeTheSameList)
{
    const std::unique_ptr<const OrvDoc::Document> document = ReadLeaflet();
    const auto counts = RunTogether([&document] { return document->GetSeparationInfo().size(); });
    EXPECT_GT(counts.front(), 0U);
    ExpectAllEqual(counts);
}

TEST(ConcurrentReading, ComparisonsOfOnePairOnSeveralThreadsReportTheSame)
{
    const std::unique_ptr<const OrvDoc::Document> left = ReadLeaflet();
    const auto right =
        OrvDoc::Document::Create(HARROW_SOURCE_FOLDER "/examples/data/leaflet-v2.pdf", OrvDoc::ReadOptions());
    const OrvDoc::Document& constRight = *right;
    const auto reports = RunTogether([&] { return CompareLines(*left, constRight); });
    EXPECT_FALSE(reports.front().empty());
    ExpectAllEqual(reports);
}

} // namespace
} // namespace HarrowSupport::Testing
