#include "comparators/work_counters.h"

#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{

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
            after.paintsCompared - before.paintsCompared};
}

std::unique_ptr<OrvDoc::Document> Strokes(int count, float tint)
{
    auto document = NewDocument();
    const PaintPointer paint = Flat(Tints({{"Cyan", tint}}));
    for (int i = 0; i < count; ++i)
        Fill(ContentOf(*document), With(NamedGroup("g"), Stroked(paint)));
    return document;
}

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

} // namespace HarrowSupport::Testing
