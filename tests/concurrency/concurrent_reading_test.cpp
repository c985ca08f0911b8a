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

#include "support/pdf_text.h"
#include "support/recording_reporter.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <iterator>
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

// Pages that show the same forms, which hold one another, and of which one takes its colour from the page.
std::unique_ptr<OrvDoc::Document> ReadPagesThatShareForms(const TemporaryFolder& folder,
                                                          std::size_t pageCount)
{
    std::vector<std::string> pages;
    for (std::size_t page = 0; page < pageCount; ++page) {
        pages.push_back("/Outer Do " + std::string(page % 3, ' ') + "0.5 g /Inner Do");
    }
    const std::size_t number = 3 + 2 * pageCount;
    const std::string inner = "/Inner " + std::to_string(number + 1) + " 0 R";
    const std::string form = "/Type /XObject /Subtype /Form /BBox [0 0 9 9] /Resources << /XObject << ";
    return OrvDoc::Document::Create(
        folder.Write("shared.pdf",
                     PdfFileOfPages(pages, "",
                                    "/XObject << /Outer " + std::to_string(number) + " 0 R " + inner + " >>",
                                    {PdfStream("0 1 0 rg /Inner Do nonsense", form + inner + " >> >>"),
                                     PdfStream("0 0 5 5 re f", form + ">> >>")})),
        OrvDoc::ReadOptions());
}

TEST(ConcurrentReading, ThreadsThatReadPagesWithTheSameFormsSeeTheSameForms)
{
    constexpr std::size_t pageCount = 40;
    const TemporaryFolder folder;
    const std::unique_ptr<OrvDoc::Document> document = ReadPagesThatShareForms(folder, pageCount);
    std::atomic<std::size_t> nextStart{0};
    const auto forms = RunTogether([&] {
        // Each thread begins elsewhere, so that they meet in the forms and not on the pages.
        const std::size_t start = nextStart++ * pageCount / threadCount;
        std::vector<std::vector<const OrvPaint::Paint*>> found(pageCount);
        for (std::size_t i = 0; i < pageCount; ++i) {
            const std::size_t index = (start + i) % pageCount;
            const OrvDoc::Document& constDocument = *document;
            auto page = constDocument.GetPagesBegin();
            std::advance(page, static_cast<std::ptrdiff_t>(index));
            const auto& children = page->GetContent().GetChildren();
            for (const OrvDoc::ContentObject* object = children.first; object; object = object->next) {
                found[index].push_back(dynamic_cast<const OrvDoc::Path&>(*object).GetFillPaint().get());
            }
        }
        return found;
    });
    ExpectAllEqual(forms);
    EXPECT_EQ(forms.front().front().size(), 2U);
    EXPECT_NE(forms.front().front()[0], forms.front().front()[1]);
    ExpectAllEqual(forms.front());
}

} // namespace
} // namespace HarrowSupport::Testing
