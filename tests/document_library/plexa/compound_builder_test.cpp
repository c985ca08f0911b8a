#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include <plexa/compound_builder.h>

namespace
{

using Plexa::CompoundBuilder;
using Plexa::WindingRule;
using Point = CompoundBuilder::Point;

std::string FinishAsText(CompoundBuilder& builder)
{
    std::ostringstream stream;
    stream << builder.Finish(WindingRule::NonZero);
    return stream.str();
}

TEST(PlexaCompoundBuilder, NothingDrawnIsAShapeWithoutSubpaths)
{
    CompoundBuilder builder;
    EXPECT_TRUE(builder.IsEmpty());
    const auto compound = builder.Finish(WindingRule::EvenOdd);
    EXPECT_TRUE(compound->GetSubpaths().empty());
    EXPECT_EQ(compound->GetWindingRule(), WindingRule::EvenOdd);
}

TEST(PlexaCompoundBuilder, LineAndCurveWithoutACurrentPointAreRefused)
{
    CompoundBuilder builder;
    EXPECT_FALSE(builder.LineTo({1, 2}));
    EXPECT_FALSE(builder.CurveTo({1, 2}, {3, 4}, {5, 6}));
    EXPECT_FALSE(builder.Close());
    EXPECT_FALSE(builder.GetCurrentPoint().has_value());
    EXPECT_TRUE(builder.IsEmpty());
    EXPECT_EQ(FinishAsText(builder), "NonZero { }");
}

TEST(PlexaCompoundBuilder, DrawingAfterAMoveIsAccepted)
{
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    EXPECT_TRUE(builder.LineTo({1, 2}));
    EXPECT_TRUE(builder.CurveTo({1, 2}, {3, 4}, {5, 6}));
    EXPECT_TRUE(builder.Close());
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 0 0 L 1 2 C 1 2 3 4 5 6 Z }");
}

TEST(PlexaCompoundBuilder, MoveAfterMoveReplacesTheFirst)
{
    CompoundBuilder builder;
    builder.MoveTo({1, 1});
    builder.MoveTo({2, 2});
    builder.LineTo({3, 3});
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 2 2 L 3 3 }");
}

TEST(PlexaCompoundBuilder, RectangleReplacesAMoveRightBeforeIt)
{
    CompoundBuilder builder;
    builder.MoveTo({1, 1});
    builder.AddRectangle(0, 0, 2, 3);
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 0 0 L 2 0 L 2 3 L 0 3 Z }");
}

TEST(PlexaCompoundBuilder, MoveAtTheEndStays)
{
    CompoundBuilder builder;
    builder.MoveTo({1, 1});
    builder.LineTo({2, 2});
    builder.MoveTo({3, 3});
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 1 1 L 2 2 M 3 3 }");
}

TEST(PlexaCompoundBuilder, MoveAfterAClosedMoveDoesNotReplaceIt)
{
    CompoundBuilder builder;
    builder.MoveTo({1, 1});
    builder.Close();
    builder.MoveTo({2, 2});
    builder.LineTo({3, 3});
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 1 1 Z M 2 2 L 3 3 }");
}

TEST(PlexaCompoundBuilder, LineAfterCloseBeginsASubpathAtTheStart)
{
    CompoundBuilder builder;
    builder.MoveTo({1, 1});
    builder.LineTo({5, 5});
    builder.Close();
    EXPECT_TRUE(builder.LineTo({7, 7}));
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 1 1 L 5 5 Z M 1 1 L 7 7 }");
}

TEST(PlexaCompoundBuilder, CurveAfterCloseBeginsASubpathAtTheStart)
{
    CompoundBuilder builder;
    builder.AddRectangle(1, 1, 2, 2);
    EXPECT_TRUE(builder.CurveTo({1, 2}, {3, 4}, {5, 6}));
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 1 1 L 3 1 L 3 3 L 1 3 Z M 1 1 C 1 2 3 4 5 6 }");
}

TEST(PlexaCompoundBuilder, ClosingTwiceIsClosingOnce)
{
    CompoundBuilder builder;
    builder.MoveTo({1, 1});
    builder.LineTo({2, 2});
    builder.Close();
    EXPECT_TRUE(builder.Close());
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 1 1 L 2 2 Z }");
}

TEST(PlexaCompoundBuilder, CurrentPointFollowsTheOperators)
{
    CompoundBuilder builder;
    builder.MoveTo({1, 1});
    EXPECT_EQ(builder.GetCurrentPoint(), Point(1, 1));
    builder.LineTo({2, 2});
    EXPECT_EQ(builder.GetCurrentPoint(), Point(2, 2));
    builder.CurveTo({3, 3}, {4, 4}, {5, 5});
    EXPECT_EQ(builder.GetCurrentPoint(), Point(5, 5));
    builder.Close();
    EXPECT_EQ(builder.GetCurrentPoint(), Point(1, 1));
    builder.AddRectangle(7, 8, 1, 1);
    EXPECT_EQ(builder.GetCurrentPoint(), Point(7, 8));
}

TEST(PlexaCompoundBuilder, RectangleMayExtendBackwards)
{
    CompoundBuilder builder;
    builder.AddRectangle(10, 20, -4, -5);
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 10 20 L 6 20 L 6 15 L 10 15 Z }");
}

TEST(PlexaCompoundBuilder, FinishStartsAfresh)
{
    CompoundBuilder builder;
    builder.AddRectangle(0, 0, 1, 1);
    const auto first = builder.Finish(WindingRule::NonZero);
    EXPECT_TRUE(builder.IsEmpty());
    EXPECT_EQ(builder.GetSegmentCount(), 0u);
    EXPECT_FALSE(builder.LineTo({9, 9}));
    builder.MoveTo({5, 5});
    EXPECT_EQ(FinishAsText(builder), "NonZero { M 5 5 }");
    EXPECT_EQ(first->GetSubpaths().size(), 1u);
}

TEST(PlexaCompoundBuilder, ClearDropsWhatWasDrawn)
{
    CompoundBuilder builder;
    builder.AddRectangle(0, 0, 1, 1);
    builder.MoveTo({5, 5});
    builder.Clear();
    EXPECT_TRUE(builder.IsEmpty());
    EXPECT_EQ(FinishAsText(builder), "NonZero { }");
}

TEST(PlexaCompoundBuilder, SegmentCountCountsWhatIsDrawn)
{
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    EXPECT_EQ(builder.GetSegmentCount(), 0u);
    builder.LineTo({1, 1});
    builder.CurveTo({1, 1}, {2, 2}, {3, 3});
    EXPECT_EQ(builder.GetSegmentCount(), 2u);
    builder.Close();
    builder.AddRectangle(0, 0, 1, 1);
    EXPECT_EQ(builder.GetSegmentCount(), 5u);
}

TEST(PlexaCompoundBuilder, FinishedShapesHaveNoSpareCapacity)
{
    CompoundBuilder builder;
    for (int i = 0; i < 100; ++i)
        builder.AddRectangle(i, 0, 1, 1);
    builder.Finish(WindingRule::NonZero);
    builder.MoveTo({0, 0});
    for (int i = 0; i < 5; ++i)
        builder.LineTo({static_cast<double>(i), 1});
    const auto compound = builder.Finish(WindingRule::NonZero);
    EXPECT_EQ(compound->GetSubpaths().capacity(), 1u);
    EXPECT_EQ(compound->GetSubpaths().front()->GetPoints().capacity(), 6u);
}

} // namespace
