#include <harrow_support/comparators.h>

#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <orv_doc/image.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

OrvDoc::Separation::Entry Separation(const std::string& name)
{
    return OrvDoc::Separation::Entry(name, OrvColor::Representation());
}

std::string PrintSeparations(const std::vector<OrvDoc::Separation::Entry>& entries)
{
    std::ostringstream stream;
    stream << entries;
    return stream.str();
}

} // namespace

TEST(Compare, DocumentWithItselfGivesNoReport)
{
    const auto document = NewDocument(2);
    document->GetLayers().AddLayer("cut");
    document->SetSeparationInfo({Separation("Spot")});
    document->SetOutputIntent(OrvColor::OutputIntent());
    Fill(ContentOf(*document, 1), Filled(Flat(Tints({{"Spot", 0.5f}}))), With(NamedGroup("g"), Square("a")),
         With(ImplicitGroup(), Clip("c"), Square("b")));
    ExpectReports(*document, *document, {});
}

TEST(Compare, ObjectsOfDifferentClassesGiveTheirTypesAlone)
{
    const auto path = Square("path");
    const OrvDoc::TextGroup group;
    ExpectReports<OrvDoc::ContentObject>(*path, group,
                                         {Difference("ObjectType", "OrvDoc::Path", "OrvDoc::TextGroup")});
}

TEST(Compare, ObjectsAreComparedByTheirProperties)
{
    ExpectReports<OrvDoc::ContentObject>(*Square("a"), *Square("b"), {Difference("ObjectName", "a", "b")});
}

TEST(Compare, GroupsAsObjectsAreComparedWithoutTheirChildren)
{
    const auto left = With(NamedGroup("g"), Square("a"), Square("b"));
    const auto right = With(NamedGroup("g"), ImplicitGroup());
    ExpectReports<OrvDoc::ContentObject>(*left, *right, {});
}

TEST(Compare, SeparationsAreComparedWhateverTheOptionSays)
{
    const std::vector<OrvDoc::Separation::Entry> left = {Separation("Spot")};
    const std::vector<OrvDoc::Separation::Entry> right;
    const Comparators::Options noOptions{};
    ExpectReports(left, right,
                  {Difference("SeparationInfo", PrintSeparations(left), PrintSeparations(right))}, noOptions);
}

TEST(Compare, EqualSeparationsGiveNoReport)
{
    const std::vector<OrvDoc::Separation::Entry> entries = {Separation("Spot"), Separation("Varnish")};
    ExpectReports(entries, entries, {});
}

TEST(Compare, SeparationsAreReportedWithEmptyPaths)
{
    RecordingReporter reporter;
    Comparators::Compare(reporter, std::vector<OrvDoc::Separation::Entry>{Separation("Spot")}, {},
                         AllOptions());
    ASSERT_EQ(reporter.GetReports().size(), 1u);
    EXPECT_THAT(reporter.GetReports().front().left, IsEmpty());
    EXPECT_THAT(reporter.GetReports().front().right, IsEmpty());
}

TEST(Compare, ContentsAreComparedWithTheirObjects)
{
    const auto left = NewDocument();
    const auto right = NewDocument();
    Fill(ContentOf(*left), With(NamedGroup("g"), Square("a")));
    Fill(ContentOf(*right), With(NamedGroup("g"), Square("b")));
    ExpectReports<OrvDoc::Content>(ContentOf(*left), ContentOf(*right), {Difference("ObjectName", "a", "b")});
}

TEST(Compare, AnObjectIsReportedAtItsOwnPlace)
{
    const auto left = Square("a");
    const auto right = Square("b");
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*left), *right, AllOptions());
    ASSERT_EQ(reporter.GetReports().size(), 1u);
    const RecordedReport& report = reporter.GetReports().front();
    EXPECT_EQ(report.kind, Comparators::ReportKind::Difference);
    EXPECT_EQ(report.left, Comparators::LocationPath{static_cast<const OrvDoc::ContentObject*>(left.get())});
    EXPECT_EQ(report.right,
              Comparators::LocationPath{static_cast<const OrvDoc::ContentObject*>(right.get())});
}

TEST(Compare, TwoCallsShareNoMemory)
{
    const auto left = Square("a");
    const auto right = Square("b");
    RecordingReporter reporter;
    for (int i = 0; i < 2; ++i)
        Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*left), *right,
                             AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectName", "ObjectName"));
}

TEST(Reporter, ThrowingFromReportEndsTheComparison)
{
    class ThrowingReporter : public RecordingReporter
    {
    public:
        void Report(Comparators::ReportKind kind, const std::string& label,
                    const Comparators::LocationPath& left, const Comparators::LocationPath& right,
                    const std::string& text) override
        {
            RecordingReporter::Report(kind, label, left, right, text);
            if (GetReports().size() == 2)
                throw std::runtime_error("enough");
        }
    };
    const auto left = NewDocument();
    const auto right = NewDocument();
    Fill(ContentOf(*left), Square("a"), Square("b"), Square("c"));
    Fill(ContentOf(*right), Square("A"), Square("B"), Square("C"));
    ThrowingReporter reporter;
    EXPECT_THROW(Comparators::Compare(reporter, *left, *right, AllOptions()), std::runtime_error);
    EXPECT_THAT(reporter.Lines(), ElementsAre("ObjectName: 'a' vs 'A'", "ObjectName: 'b' vs 'B'"));
}

TEST(Options, AreCopiedWhenAComparisonBegins)
{
    class OptionsChanger : public RecordingReporter
    {
    public:
        explicit OptionsChanger(Comparators::Options& given) : options(given) {}
        void Report(Comparators::ReportKind kind, const std::string& label,
                    const Comparators::LocationPath& left, const Comparators::LocationPath& right,
                    const std::string& text) override
        {
            RecordingReporter::Report(kind, label, left, right, text);
            options.compareSeparationInfo = false;
        }

    private:
        Comparators::Options& options;
    };
    const auto left = NewDocument();
    left->SetOutputIntent(OrvColor::OutputIntent());
    left->SetSeparationInfo({Separation("Spot")});
    Comparators::Options options = AllOptions();
    OptionsChanger reporter(options);
    Comparators::Compare(reporter, *left, *NewDocument(), options);
    EXPECT_THAT(reporter.Labels(), ElementsAre("OutputIntent", "SeparationInfo"));
}

TEST(Reporter, CopiesOfADerivedClassShareNothing)
{
    RecordingReporter original;
    original.Report(Comparators::ReportKind::Difference, "first", {}, {}, "");
    RecordingReporter copy(original);
    copy.Report(Comparators::ReportKind::Difference, "second", {}, {}, "");
    EXPECT_THAT(original.Labels(), ElementsAre("first"));
    EXPECT_THAT(copy.Labels(), ElementsAre("first", "second"));
}

TEST(Reporter, AssignmentOfTheBaseDoesNothing)
{
    RecordingReporter one;
    one.Report(Comparators::ReportKind::Difference, "first", {}, {}, "");
    RecordingReporter other;
    Comparators::Reporter& base = other;
    Comparators::Reporter& result = base.operator=(static_cast<const Comparators::Reporter&>(one));
    EXPECT_EQ(&result, &base);
    EXPECT_THAT(other.Labels(), IsEmpty());
}

TEST(Reporter, HoldsNothingButItsVirtualOperations)
{
    EXPECT_EQ(sizeof(Comparators::Reporter), sizeof(void*));
    EXPECT_TRUE(std::has_virtual_destructor<Comparators::Reporter>::value);
}

TEST(ReportKind, HasTheAgreedNumbers)
{
    EXPECT_EQ(static_cast<int>(Comparators::ReportKind::ToleratedVariation), 0);
    EXPECT_EQ(static_cast<int>(Comparators::ReportKind::Difference), 1);
    EXPECT_EQ(sizeof(Comparators::ReportKind), 4u);
}

TEST(LocationEntry, NumbersItsAlternativesPageContentObject)
{
    using Comparators::LocationEntry;
    EXPECT_EQ(LocationEntry(static_cast<const OrvDoc::Page*>(nullptr)).which(), 0);
    EXPECT_EQ(LocationEntry(static_cast<const OrvDoc::Content*>(nullptr)).which(), 1);
    EXPECT_EQ(LocationEntry(static_cast<const OrvDoc::ContentObject*>(nullptr)).which(), 2);
}

TEST(Options, IsAPlainRecordWithoutDefaults)
{
    EXPECT_TRUE(std::is_trivial<Comparators::Options>::value);
    EXPECT_TRUE(std::is_standard_layout<Comparators::Options>::value);
}

} // namespace HarrowSupport::Testing
