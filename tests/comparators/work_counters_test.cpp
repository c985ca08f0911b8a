#include "comparators/work_counters.h"

#include "support/paint_makers.h"
#include "support/paint_scene.h"
#include "support/recording_reporter.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace HarrowSupport::Testing
{

using ::testing::Each;
using ::testing::ElementsAre;

namespace
{

/// What a comparison of two documents costs.
Comparators::WorkCounters WorkOf(const OrvDoc::Document& left, const OrvDoc::Document& right)
{
    const Comparators::WorkCounters before = Comparators::workCounters;
    RecordingReporter reporter;
    Comparators::Compare(reporter, left, right, AllOptions());
    const Comparators::WorkCounters& after = Comparators::workCounters;
    return {after.pairsCompared - before.pairsCompared, after.textsBuilt - before.textsBuilt,
            after.paintsCompared - before.paintsCompared, after.samplesDecoded - before.samplesDecoded};
}

std::unique_ptr<OrvDoc::Document> Strokes(int count, float tint)
{
    auto document = NewDocument();
    const PaintPointer paint = Flat(Tints({{"Cyan", tint}}));
    for (int i = 0; i < count; ++i)
        Fill(ContentOf(*document), With(NamedGroup("g"), Stroked(paint)));
    return document;
}

/// Thirty squares.
ContentPointer DrawingOfSquares(OrvDoc::Document& document, OrvDoc::Content::Type type)
{
    ContentPointer content = NewContent(document, type);
    for (int i = 0; i < 30; ++i)
        Place(*content, Square());
    return content;
}

PaintPointer AFormOfSquares(OrvDoc::Document& document)
{
    return OrvPaint::FormPaint::Factory(DrawingOfSquares(document, OrvDoc::Content::Type::FormContent)).Get();
}

PaintPointer APatternOfSquares(OrvDoc::Document& document)
{
    return OrvPaint::PatternPaint::Factory(
               DrawingOfSquares(document, OrvDoc::Content::Type::ColoredPatternContent))
        .Get();
}

/// Objects that share one paint.
template <typename MakePaint>
std::unique_ptr<OrvDoc::Document> UsersOf(MakePaint makePaint, int count)
{
    auto document = NewDocument();
    const PaintPointer paint = makePaint(*document);
    for (int i = 0; i < count; ++i)
        Fill(ContentOf(*document), Filled(paint));
    return document;
}

std::unique_ptr<OrvDoc::Document> PatternsOfOneCell(int count)
{
    auto document = NewDocument();
    const OrvPaint::PatternPaint::Factory factory(
        DrawingOfSquares(*document, OrvDoc::Content::Type::ColoredPatternContent));
    for (int i = 0; i < count; ++i)
        Fill(ContentOf(*document), Filled(factory.Get()));
    return document;
}

/// Documents that were read from files.
class PagesOfFiles : public ::testing::Test
{
protected:
    /// A page with one path for each of the paints.
    std::unique_ptr<OrvDoc::Document> Read(const std::vector<PaintPointer>& paints)
    {
        const auto document = NewDocument(paints.size());
        for (std::size_t i = 0; i < paints.size(); ++i)
            Fill(ContentOf(*document, i), Filled(paints[i]));
        return Reread(*document);
    }

    std::unique_ptr<OrvDoc::Document> Reread(OrvDoc::Document& document)
    {
        const std::string file = folder.NameOf(std::to_string(++fileCount) + ".pdf");
        document.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        return OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    }

    /// For each page, whether its content has been interpreted.
    static std::vector<bool> Interpreted(const OrvDoc::Document& document)
    {
        std::vector<bool> result;
        for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
            result.push_back(page->IsContentLoaded());
        return result;
    }

    const PaintPointer paint = Flat(Tints({{"Cyan", 0.5f}}));

private:
    TemporaryFolder folder;
    int fileCount = 0;
};

} // namespace

TEST(Work, EqualDocumentsBuildNoText)
{
    EXPECT_EQ(WorkOf(*Strokes(100, 0.5f), *Strokes(100, 0.5f)).textsBuilt, 0u);
}

TEST(Work, EachPairIsComparedOnce)
{
    EXPECT_EQ(WorkOf(*Strokes(100, 0.5f), *Strokes(100, 0.5f)).pairsCompared, 200u);
}

TEST(Work, ASharedPaintIsLookedIntoOnce)
{
    EXPECT_EQ(WorkOf(*Strokes(100, 0.5f), *Strokes(100, 0.5f)).paintsCompared, 1u);
}

TEST(Work, EachDifferenceBuildsOneText)
{
    EXPECT_EQ(WorkOf(*Strokes(100, 0.5f), *Strokes(100, 1.0f)).textsBuilt, 100u);
}

TEST(Work, NoPairIsComparedBehindAnotherPageCount)
{
    EXPECT_EQ(WorkOf(*Strokes(100, 0.5f), *NewDocument(2)).pairsCompared, 0u);
}

TEST(Work, NoPairIsComparedBehindAMismatchOfClasses)
{
    const auto left = NewDocument(2);
    const auto right = NewDocument(2);
    Fill(ContentOf(*left), Square("same"), Square("path"), Square("after"));
    Fill(ContentOf(*right), Square("same"), UserGroup(), Square("after"));
    Fill(ContentOf(*left, 1), Square());
    Fill(ContentOf(*right, 1), Square());
    EXPECT_EQ(WorkOf(*left, *right).pairsCompared, 2u);
}

TEST(Work, NoPairIsComparedBehindTheEndOfAList)
{
    const auto left = NewDocument();
    const auto right = NewDocument();
    Fill(ContentOf(*left), Square("same"), Square("b"), Square("c"));
    Fill(ContentOf(*right), Square("same"));
    EXPECT_EQ(WorkOf(*left, *right).pairsCompared, 1u);
}

TEST(Work, ASharedFormIsWalkedOnce)
{
    EXPECT_EQ(WorkOf(*UsersOf(AFormOfSquares, 100), *UsersOf(AFormOfSquares, 100)).pairsCompared, 100u + 30u);
}

TEST(Work, ASharedPatternIsWalkedOnce)
{
    EXPECT_EQ(WorkOf(*UsersOf(APatternOfSquares, 100), *UsersOf(APatternOfSquares, 100)).pairsCompared,
              100u + 30u);
}

TEST(Work, ACellOfManyPatternsIsWalkedOnce)
{
    EXPECT_EQ(WorkOf(*PatternsOfOneCell(100), *PatternsOfOneCell(100)).pairsCompared, 100u + 30u);
}

TEST(Work, ASharedSoftMaskIsWalkedOnce)
{
    const auto masked = [] {
        auto document = NewDocument();
        const MaskPointer mask =
            OrvBlend::SoftMask::Factory(DrawingOfSquares(*document, OrvDoc::Content::Type::SoftMaskContent))
                .Get();
        for (int i = 0; i < 100; ++i)
            Fill(ContentOf(*document), Masked(mask));
        return document;
    };
    EXPECT_EQ(WorkOf(*masked(), *masked()).pairsCompared, 100u + 30u);
}

TEST(Work, FormsThatAreSharedInAnotherWayAreWalkedForEachNewPartner)
{
    const auto left = UsersOf(AFormOfSquares, 3);
    const auto right = NewDocument();
    for (int i = 0; i < 3; ++i)
        Fill(ContentOf(*right), Filled(AFormOfSquares(*right)));
    const Comparators::WorkCounters work = WorkOf(*left, *right);
    EXPECT_EQ(work.pairsCompared, 3u + 3u * 30u);
    EXPECT_EQ(work.textsBuilt, 2u);
}

TEST(Work, FormsThatHoldTheNextTwiceCostTheirNumber)
{
    const auto expanding = [](int depth) {
        auto document = NewDocument();
        PaintPointer paint = AFormOfSquares(*document);
        for (int i = 0; i < depth; ++i)
            paint = FormOf(*document, Filled(paint), Filled(paint)).Get();
        Fill(ContentOf(*document), Filled(paint));
        return document;
    };
    EXPECT_EQ(WorkOf(*expanding(40), *expanding(40)).pairsCompared, 1u + 2u * 40u + 30u);
}

TEST(Work, EqualPaintsOfEveryKindBuildNoText)
{
    const auto one = std::make_unique<Scene>();
    const auto other = std::make_unique<Scene>();
    EXPECT_EQ(WorkOf(one->Assemble(), other->Assemble()).textsBuilt, 0u);
}

TEST_F(PagesOfFiles, AreNotInterpretedByOpeningAndCounting)
{
    const auto document = Read({paint, paint, paint});
    EXPECT_EQ(document->GetNumberOfPages(), 3u);
    EXPECT_FALSE(PageOf(*document).GetPageBox(OrvDoc::PageBox::Media).isInitial);
    EXPECT_THAT(Interpreted(*document), ElementsAre(false, false, false));
}

TEST_F(PagesOfFiles, AreNotInterpretedBehindAnotherPageCount)
{
    const auto left = Read({paint, paint, paint});
    const auto right = Read({paint, paint});
    ExpectReports(*left, *right, {Difference("PageCount", "3", "2")});
    EXPECT_THAT(Interpreted(*left), Each(false));
    EXPECT_THAT(Interpreted(*right), Each(false));
}

TEST_F(PagesOfFiles, AreInterpretedByAComparisonOfAllPages)
{
    const auto left = Read({paint, paint});
    const auto right = Read({paint, paint});
    ExpectReports(*left, *right, {});
    EXPECT_THAT(Interpreted(*left), Each(true));
    EXPECT_THAT(Interpreted(*right), Each(true));
}

TEST_F(PagesOfFiles, AreNotInterpretedBehindAMismatchOfClasses)
{
    const auto other = NewDocument(3);
    Fill(ContentOf(*other), With(Named(UserGroup(), "g"), Square()));
    const auto left = Read({paint, paint, paint});
    const auto right = Reread(*other);
    ExpectReports(*left, *right, {Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group")});
    EXPECT_THAT(Interpreted(*left), ElementsAre(true, false, false));
    EXPECT_THAT(Interpreted(*right), ElementsAre(true, false, false));
}

TEST_F(PagesOfFiles, AreNotInterpretedByAComparisonOfThePageBefore)
{
    const auto left = Read({paint, paint});
    const auto right = Read({paint, paint});
    ExpectReports<OrvDoc::Content>(ContentOf(*left), ContentOf(*right), {});
    EXPECT_THAT(Interpreted(*left), ElementsAre(true, false));
    EXPECT_THAT(Interpreted(*right), ElementsAre(true, false));
}

TEST_F(PagesOfFiles, AreInterpretedOneAfterTheOther)
{
    // Each page is asked for in its turn: a receiver that ends the comparison spares the rest.
    class FirstReportEnds : public RecordingReporter
    {
    public:
        void Report(Comparators::ReportKind, const std::string&, const Comparators::LocationPath&,
                    const Comparators::LocationPath&, const std::string&) override
        {
            throw std::runtime_error("enough");
        }
    };
    const auto left = Read({paint, paint, paint});
    const auto right = Read({paint, Flat(Tints({{"Cyan", 1.0f}})), paint});
    FirstReportEnds reporter;
    EXPECT_THROW(Comparators::Compare(reporter, *left, *right, AllOptions()), std::runtime_error);
    EXPECT_THAT(Interpreted(*left), ElementsAre(true, true, false));
    EXPECT_THAT(Interpreted(*right), ElementsAre(true, true, false));
}

} // namespace HarrowSupport::Testing
