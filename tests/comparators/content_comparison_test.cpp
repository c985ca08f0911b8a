#include "comparators/content_comparison.h"

#include "comparators/comparison_context.h"
#include "foreign_objects.h"
#include "support/paint_makers.h"
#include "support/recording_reporter.h"
#include "support/text_makers.h"

#include <orv_blend/transparency.h>
#include <orv_doc/dump.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/layer.h>
#include <orv_doc/text.h>
#include <orv_doc/visitor.h>
#include <orv_paint/exponential_function.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// Two documents of one page each, whose contents are compared.
class ContentPair : public ::testing::Test
{
protected:
    OrvDoc::Content& Left() { return ContentOf(*leftDocument); }
    OrvDoc::Content& Right() { return ContentOf(*rightDocument); }

    void ExpectContentReports(const std::vector<ExpectedReport>& expected,
                              const Comparators::Options& options = AllOptions())
    {
        ExpectReports<OrvDoc::Content>(Left(), Right(), expected, options);
    }

    /// What the walk itself returns.
    bool WalkCompletes()
    {
        RecordingReporter reporter;
        Comparators::ComparisonContext context(reporter, AllOptions());
        const bool completes = Comparators::CompareContents(context, Left(), Right());
        Comparators::ComparisonContext mirroredContext(reporter, AllOptions());
        EXPECT_EQ(Comparators::CompareContents(mirroredContext, Right(), Left()), completes)
            << "right against left";
        return completes;
    }

    std::unique_ptr<OrvDoc::Document> leftDocument = NewDocument();
    std::unique_ptr<OrvDoc::Document> rightDocument = NewDocument();
};

/// What is written to the log stream while it lives.
class LogCapture
{
public:
    LogCapture() : previous(std::clog.rdbuf(stream.rdbuf())) {}
    ~LogCapture() { std::clog.rdbuf(previous); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    std::string Text() const { return stream.str(); }

private:
    std::ostringstream stream;
    std::streambuf* previous;
};

std::string DumpOf(const OrvDoc::ContentObject& object)
{
    std::ostringstream stream;
    OrvDoc::Dump(object, stream, static_cast<OrvDoc::DumpOption>(1024), 0);
    return stream.str();
}

Comparators::Options Dumping()
{
    Comparators::Options options = AllOptions();
    options.dumpLevel = 7;
    return options;
}

/// Ends a walk without a report, and can be seen in a dump.
class VisibleUnknownObject : public UnknownObject
{
public:
    using UnknownObject::Accept;
    void Accept(OrvDoc::ConstVisitorBase& visitor) const override
    {
        visitor.Visit(static_cast<const OrvDoc::ContentObject&>(*this));
    }
};

std::unique_ptr<OrvDoc::Group> Translucent(std::unique_ptr<OrvDoc::Group> group)
{
    group->SetTransparency(OrvBlend::Transparency::Factory().Get());
    return group;
}

} // namespace

TEST_F(ContentPair, EmptyContentsAreEqual)
{
    ExpectContentReports({});
    EXPECT_TRUE(WalkCompletes());
}

TEST_F(ContentPair, APathEqualsThePathInAnImplicitGroup)
{
    Fill(Left(), Square("a"));
    Fill(Right(), With(ImplicitGroup(), With(ImplicitGroup(), Square("a"))));
    ExpectContentReports({});
}

TEST_F(ContentPair, APathAgainstTheSameInANamedGroupIsAMismatchOfClasses)
{
    Fill(Left(), Square("a"));
    Fill(Right(), With(NamedGroup("g"), Square("a")));
    ExpectContentReports({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group")});
    EXPECT_FALSE(WalkCompletes());
}

TEST_F(ContentPair, APathAgainstTheSameInAUserGroupIsAMismatchOfClasses)
{
    Fill(Left(), Square("a"));
    Fill(Right(), With(UserGroup(), Square("a")));
    ExpectContentReports({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group")});
    EXPECT_FALSE(WalkCompletes());
}

TEST_F(ContentPair, APathAgainstTheSameInAGroupWithTransparencyIsAMismatchOfClasses)
{
    Fill(Left(), Square("a"));
    Fill(Right(), With(Translucent(ImplicitGroup()), Square("a")));
    ExpectContentReports({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group")});
    EXPECT_FALSE(WalkCompletes());
}

TEST_F(ContentPair, APathAgainstTheSameInATextGroupIsAMismatchOfClasses)
{
    Fill(Left(), Square("a"));
    Fill(Right(), With(std::make_unique<OrvDoc::TextGroup>(), Square("a")));
    ExpectContentReports({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::TextGroup")});
    EXPECT_FALSE(WalkCompletes());
}

TEST_F(ContentPair, GroupsOnBothSidesMatch)
{
    Fill(Left(), With(NamedGroup("g"), Square("a")), With(UserGroup(), Square("b")));
    Fill(Right(), With(NamedGroup("g"), Square("a")), With(UserGroup(), Square("b")));
    ExpectContentReports({});
    EXPECT_TRUE(WalkCompletes());
}

TEST_F(ContentPair, OnlyTheFirstObjectThatIsMissingIsReported)
{
    Fill(Left(), Square("A"), Named(std::make_unique<OrvDoc::TextGroup>(), "B"), Square("C"));
    Fill(Right(), Square("A"));
    ExpectContentReports({Removed("OrvDoc::TextGroup")});
    EXPECT_TRUE(WalkCompletes());
}

TEST_F(ContentPair, OnlyTheFirstObjectThatWasAddedIsReported)
{
    Fill(Left(), Square("A"));
    Fill(Right(), Square("A"), Named(std::make_unique<OrvDoc::TextGroup>(), "B"), Square("C"));
    ExpectContentReports({Added("OrvDoc::TextGroup")});
    EXPECT_TRUE(WalkCompletes());
}

TEST_F(ContentPair, ASurplusObjectHasANullOnTheOtherSide)
{
    Fill(Left(), Square("A"));
    const auto* none = static_cast<const OrvDoc::ContentObject*>(nullptr);
    RecordingReporter removed;
    Comparators::Compare(removed, static_cast<const OrvDoc::Content&>(Left()), Right(), AllOptions());
    ASSERT_EQ(removed.GetReports().size(), 1u);
    EXPECT_EQ(removed.GetReports().front().kind, Comparators::ReportKind::Difference);
    EXPECT_EQ(
        removed.GetReports().front().left,
        Comparators::LocationPath{static_cast<const OrvDoc::ContentObject*>(Left().GetChildren().first)});
    EXPECT_EQ(removed.GetReports().front().right, Comparators::LocationPath{none});
    RecordingReporter added;
    Comparators::Compare(added, static_cast<const OrvDoc::Content&>(Right()), Left(), AllOptions());
    ASSERT_EQ(added.GetReports().size(), 1u);
    EXPECT_EQ(added.GetReports().front().left, Comparators::LocationPath{none});
    EXPECT_EQ(
        added.GetReports().front().right,
        Comparators::LocationPath{static_cast<const OrvDoc::ContentObject*>(Left().GetChildren().first)});
}

TEST_F(ContentPair, AMismatchOfClassesEndsTheWalk)
{
    Fill(Left(), Square("path"), Named(std::make_unique<OrvDoc::TextGroup>(), "text"), Square("last"));
    Fill(Right(), Named(std::make_unique<OrvDoc::TextGroup>(), "text"), Square("path"), Square("LAST"));
    ExpectContentReports({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::TextGroup")});
    EXPECT_FALSE(WalkCompletes());
}

TEST_F(ContentPair, APathAndATextInTheOtherOrderAreNotMatchedUp)
{
    const auto text = [](const std::string& name) { return Named(TextOf(""), name); };
    Fill(Left(), Square("path"), text("text"));
    Fill(Right(), text("text"), Square("path"));
    ExpectContentReports({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Text")});
    EXPECT_FALSE(WalkCompletes());
}

TEST_F(ContentPair, AMismatchInsideAGroupEndsTheWalkAboveItToo)
{
    Fill(Left(), With(NamedGroup("g"), Square("a")), Square("after"));
    Fill(Right(), With(NamedGroup("G"), ImplicitGroup(), UserGroup()), Square("AFTER"));
    ExpectContentReports(
        {Difference("ObjectName", "g", "G"), Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group")});
    EXPECT_FALSE(WalkCompletes());
}

TEST_F(ContentPair, ASurplusObjectInsideAGroupEndsThatListAlone)
{
    Fill(Left(), With(NamedGroup("g"), Square("a"), Square("b"), Square("c")), Square("after"));
    Fill(Right(), With(NamedGroup("g"), Square("a")), Square("AFTER"));
    ExpectContentReports({Removed("OrvDoc::Path"), Difference("ObjectName", "after", "AFTER")});
    EXPECT_TRUE(WalkCompletes());
}

TEST_F(ContentPair, AGroupIsReportedBeforeItsChildrenAndTheseBeforeTheNextObject)
{
    Fill(Left(), With(NamedGroup("1"), With(NamedGroup("2"), Square("3")), Square("4")), Square("5"));
    Fill(Right(), With(NamedGroup("a"), With(NamedGroup("b"), Square("c")), Square("d")), Square("e"));
    ExpectContentReports({Difference("ObjectName", "1", "a"), Difference("ObjectName", "2", "b"),
                          Difference("ObjectName", "3", "c"), Difference("ObjectName", "4", "d"),
                          Difference("ObjectName", "5", "e")});
}

TEST_F(ContentPair, WhereAClippingPathStandsInItsListDoesNotCount)
{
    Fill(Left(), Clip("clip"), Square("a"));
    Fill(Right(), Square("a"), Clip("clip"));
    ExpectContentReports({});
}

TEST_F(ContentPair, ClippingObjectsArePairedFromTheLastOne)
{
    Fill(Left(), Clip("c1"), Clip("c2"));
    Fill(Right(), Clip("C1"), Clip("C2"));
    ExpectContentReports({Difference("ObjectName", "c2", "C2"), Difference("ObjectName", "c1", "C1")});
}

TEST_F(ContentPair, ChildrenOfAClippingTextGroupAreCompared)
{
    const auto clipping = [](const std::string& childName) {
        auto group = With(std::make_unique<OrvDoc::TextGroup>(), Square(childName));
        group->SetClippingObject(true);
        return group;
    };
    Fill(Left(), clipping("a"), Square("first"));
    Fill(Right(), clipping("b"), Square("FIRST"));
    ExpectContentReports({Difference("ObjectName", "first", "FIRST"), Difference("ObjectName", "a", "b")});
}

TEST_F(ContentPair, UserCreatedIsComparedForUnnamedGroups)
{
    Fill(Left(), With(Translucent(UserGroup()), Square("a")));
    Fill(Right(), With(Translucent(ImplicitGroup()), Square("a")));
    ExpectContentReports({Difference("GroupIsUserCreated", "1", "0")});
}

TEST_F(ContentPair, UserCreatedIsNotComparedForNamedGroups)
{
    Fill(Left(), Named(UserGroup(), "g"));
    Fill(Right(), NamedGroup("g"));
    ExpectContentReports({});
}

TEST_F(ContentPair, UserCreatedIsNotComparedIfOneGroupHasAName)
{
    Fill(Left(), Named(UserGroup(), "g"), Square());
    Fill(Right(), Translucent(ImplicitGroup()), Square());
    ExpectContentReports({Difference("ObjectHasTransparency", "0", "1"), Difference("ObjectName", "g", "")});
}

TEST_F(ContentPair, UserCreatedComesLastAmongTheReportsOfAGroup)
{
    auto left = Translucent(UserGroup());
    left->SetTransparency(OrvBlend::Transparency::Factory().SetKnockout(true).Get());
    Fill(Left(), With(std::move(left), Square("a")));
    Fill(Right(), With(Translucent(ImplicitGroup()), Square("b")));
    ExpectContentReports({Difference("GroupIsKnockout", "1", "0"), Difference("GroupIsUserCreated", "1", "0"),
                          Difference("ObjectName", "a", "b")});
}

TEST_F(ContentPair, LayersAreWalkedAsGroups)
{
    const auto layer = [](OrvDoc::Document& document) {
        return std::make_unique<OrvDoc::Layer>(document.GetLayers().AddLayer("cut"));
    };
    Fill(Left(), With(layer(*leftDocument), Square("a")));
    Fill(Right(), With(layer(*rightDocument), Square("b")));
    ExpectContentReports({Difference("ObjectName", "a", "b")});
}

TEST_F(ContentPair, GroupsNestedAHundredThousandTimesAreCompared)
{
    // Linked by hand, since the depth is what the walk has to bear and not the groups.
    constexpr std::size_t depth = 100000;
    const auto chain = [](const std::string& lastName) {
        std::vector<std::unique_ptr<OrvDoc::Group>> groups;
        for (std::size_t i = 0; i < depth; ++i)
            groups.push_back(NamedGroup(i + 1 < depth ? "g" : lastName));
        for (std::size_t i = 0; i + 1 < depth; ++i)
            groups[i]->children.first = groups[i]->children.last = groups[i + 1].get();
        return groups;
    };
    const auto left = chain("a");
    const auto right = chain("b");
    RecordingReporter reporter;
    Comparators::ComparisonContext context(reporter, AllOptions());
    EXPECT_TRUE(Comparators::CompareChildLists(context, left.front()->children, right.front()->children));
    EXPECT_THAT(reporter.Lines(), ElementsAre("ObjectName: 'a' vs 'b'"));
    for (std::size_t i = 0; i < depth; ++i) {
        left[i]->children.first = left[i]->children.last = nullptr;
        right[i]->children.first = right[i]->children.last = nullptr;
    }
}

TEST_F(ContentPair, HeaderDifferencesComeAfterTheObjects)
{
    const auto pattern = NewContent(*leftDocument, OrvDoc::Content::Type::ColoredPatternContent);
    Fill(*pattern, Square("a"));
    Fill(Right(), Square("b"));
    ExpectReports<OrvDoc::Content>(*pattern, Right(),
                                   {Difference("ObjectName", "a", "b"),
                                    Difference("ContentType", "ColoredPatternContent", "PageContent")});
}

TEST_F(ContentPair, HeaderDifferencesAreReportedAtTheContents)
{
    const auto form = NewContent(*leftDocument, OrvDoc::Content::Type::FormContent);
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::Content&>(*form), Right(), AllOptions());
    ASSERT_EQ(reporter.GetReports().size(), 1u);
    EXPECT_EQ(reporter.GetReports().front().left,
              Comparators::LocationPath{static_cast<const OrvDoc::Content*>(form.get())});
    EXPECT_EQ(reporter.GetReports().front().right,
              Comparators::LocationPath{static_cast<const OrvDoc::Content*>(&Right())});
}

TEST_F(ContentPair, HeaderDifferencesAreReportedWhenTheWalkEndsEarlyToo)
{
    const auto form = NewContent(*leftDocument, OrvDoc::Content::Type::FormContent);
    Fill(*form, Square("a"));
    Fill(Right(), NamedGroup("g"));
    ExpectReports<OrvDoc::Content>(*form, Right(),
                                   {Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group"),
                                    Difference("ContentType", "FormContent", "PageContent")});
}

TEST_F(ContentPair, TransferFunctionsOnOneSideAreADifference)
{
    const OrvDoc::TransferFunctionSet functions(nullptr, {});
    PageOf(*leftDocument).SetTransferFunctionSet(functions);
    ExpectContentReports({Difference("ContentTransferFunctions", "TransferFunctionSet(Default:)",
                                     "TransferFunctionSet(none)")});
    PageOf(*rightDocument).SetTransferFunctionSet(functions);
    ExpectContentReports({});
}

TEST_F(ContentPair, HalftonesAreNotComparedInsideASoftMask)
{
    const auto withHalftone = [](const std::string& name) {
        auto path = Square();
        path->SetHalftoneSet(std::make_shared<OrvDoc::HalftoneSet>(name, OrvSys::PdfObject()));
        return path;
    };
    Fill(Left(), With(NamedGroup("g"), withHalftone("one")));
    Fill(Right(), With(NamedGroup("g"), withHalftone("other")));
    RecordingReporter outside;
    Comparators::ComparisonContext context(outside, AllOptions());
    Comparators::CompareContents(context, Left(), Right());
    EXPECT_THAT(outside.Labels(), ElementsAre("HalftoneSetName", "HalftoneSet"));

    RecordingReporter inside;
    Comparators::ComparisonContext maskContext(inside, AllOptions());
    maskContext.softMaskDepth = 2;
    Comparators::CompareContents(maskContext, Left(), Right());
    EXPECT_THAT(inside.Labels(), IsEmpty());
}

TEST_F(ContentPair, NothingIsDumpedAtLevelZero)
{
    Fill(Left(), Square("a"), Square("b"));
    Fill(Right(), NamedGroup("g"));
    const LogCapture log;
    ExpectContentReports({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group")});
    EXPECT_EQ(log.Text(), "");
}

TEST_F(ContentPair, BothObjectsOfAMismatchAreDumpedLeftFirst)
{
    Fill(Left(), Square("a"));
    Fill(Right(), NamedGroup("g"));
    const std::string leftDump = DumpOf(*Left().GetChildren().first);
    const std::string rightDump = DumpOf(*Right().GetChildren().first);
    ASSERT_NE(leftDump, "");
    const LogCapture log;
    CompareLines<OrvDoc::Content>(Left(), Right(), Dumping());
    EXPECT_EQ(log.Text(), leftDump + rightDump);
}

TEST_F(ContentPair, TheOneSurplusObjectIsDumped)
{
    Fill(Left(), Square("a"), Square("b"));
    const std::string dump = DumpOf(*Left().GetChildren().first);
    {
        const LogCapture log;
        CompareLines<OrvDoc::Content>(Left(), Right(), Dumping());
        EXPECT_EQ(log.Text(), dump);
    }
    const LogCapture log;
    CompareLines<OrvDoc::Content>(Right(), Left(), Dumping());
    EXPECT_EQ(log.Text(), dump);
}

TEST_F(ContentPair, AMismatchInsideGroupsIsDumpedOnce)
{
    Fill(Left(), With(NamedGroup("g"), With(NamedGroup("h"), Square("a"))));
    Fill(Right(), With(NamedGroup("g"), With(NamedGroup("h"), NamedGroup("i"))));
    const auto innermost = [](OrvDoc::Content& content) -> const OrvDoc::ContentObject& {
        const auto& outer = static_cast<const OrvDoc::Group&>(*content.GetChildren().first);
        return *static_cast<const OrvDoc::Group&>(*outer.children.first).children.first;
    };
    const std::string expected = DumpOf(innermost(Left())) + DumpOf(innermost(Right()));
    const LogCapture log;
    CompareLines<OrvDoc::Content>(Left(), Right(), Dumping());
    EXPECT_EQ(log.Text(), expected);
}

TEST_F(ContentPair, ADumpInASoftMaskIsMadeForEachObjectThatUsesIt)
{
    const MaskPointer left = MaskOf(*leftDocument, std::make_unique<VisibleUnknownObject>()).Get();
    const MaskPointer right = MaskOf(*rightDocument, std::make_unique<VisibleUnknownObject>()).Get();
    Fill(Left(), Masked(left), Masked(left));
    Fill(Right(), Masked(right), Masked(right));
    const std::string once =
        DumpOf(*left->GetContent().GetChildren().first) + DumpOf(*right->GetContent().GetChildren().first);
    ASSERT_NE(once, "");
    const LogCapture log;
    EXPECT_THAT(CompareLines<OrvDoc::Content>(Left(), Right(), Dumping()), IsEmpty());
    EXPECT_EQ(log.Text(), once + once);
}

TEST_F(ContentPair, OtherDifferencesAreNotDumped)
{
    Fill(Left(), Square("a"));
    Fill(Right(), Square("b"));
    const LogCapture log;
    CompareLines<OrvDoc::Content>(Left(), Right(), Dumping());
    EXPECT_EQ(log.Text(), "");
}

} // namespace HarrowSupport::Testing
