#include "comparators/form_comparison.h"

#include "comparators/comparison_context.h"
#include "comparators/external_reference_comparison.h"
#include "paint_reports.h"
#include "support/paint_makers.h"
#include "support/recording_reporter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace
{

using Factory = OrvPaint::FormPaint::Factory;
using Scope = OrvPaint::FormPaint::Scope;
using Reference = Comparators::ExternalReference;

const ExpectedReport metWithAnotherRight = Difference("FormReuse", "1", "0");
const ExpectedReport metWithAnotherLeft = Difference("FormReuse", "0", "1");

Reference PageOfFile(const std::string& file, std::size_t page)
{
    return std::make_pair(boost::filesystem::path(file), page);
}

class Forms : public ::testing::Test
{
protected:
    Factory Left(const std::string& name = "form") { return AForm(*left, name); }
    Factory Right(const std::string& name = "form") { return AForm(*right, name); }

    /// A path on each page, filled with these.
    void Use(const PaintPointer& leftPaint, const PaintPointer& rightPaint)
    {
        Fill(ContentOf(*left), Filled(leftPaint));
        Fill(ContentOf(*right), Filled(rightPaint));
    }

    /// The same with forms of that scope and these unique IDs.
    void UseIds(Scope scope, const std::string& leftId, const std::string& rightId)
    {
        Use(Left().SetScope(scope).SetUniqueID(leftId).Get(),
            Right().SetScope(scope).SetUniqueID(rightId).Get());
    }

    void Expect(const std::vector<ExpectedReport>& expected) { ExpectReports(*left, *right, expected); }

    static void ExpectPaintReports(const Factory& leftFactory, const Factory& rightFactory,
                                   const std::vector<ExpectedReport>& expected)
    {
        Testing::ExpectPaintReports(leftFactory.Get(), rightFactory.Get(), expected);
    }

    const std::unique_ptr<OrvDoc::Document> left = NewDocument();
    const std::unique_ptr<OrvDoc::Document> right = NewDocument();
};

/// A form of a square and a path that is filled with the form itself.
struct EndlessForm
{
    EndlessForm(OrvDoc::Document& document, const std::string& name)
        : paint(AForm(document, name).Get()), user(Place(paint->GetContent(), Filled(paint)))
    {}
    // The circle of owners has to be opened, or nothing frees it.
    ~EndlessForm() { user.SetFillPaint(nullptr); }
    EndlessForm(const EndlessForm&) = delete;
    EndlessForm& operator=(const EndlessForm&) = delete;

    const std::shared_ptr<const OrvPaint::FormPaint> paint;
    OrvDoc::Path& user;
};

} // namespace

TEST_F(Forms, EqualOnesGiveNoReport)
{
    ExpectPaintReports(Left(), Right(), {});
}

TEST_F(Forms, TransformationsMayDifferByFiveUnitsInTheLastPlace)
{
    double five = 2.0;
    for (int i = 0; i < 5; ++i)
        five = std::nextafter(five, 3.0);
    const Matrix two(2.0, 0.0, 0.0, 1.0, 0.0, 0.0);
    ExpectPaintReports(Left().SetFormTransformation(two),
                       Right().SetFormTransformation(Matrix(five, 0.0, 0.0, 1.0, 0.0, 0.0)), {});
    ExpectPaintReports(
        Left().SetFormTransformation(two),
        Right().SetFormTransformation(Matrix(std::nextafter(five, 3.0), 0.0, 0.0, 1.0, 0.0, 0.0)),
        {Difference("FormTransformation", "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]",
                    "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]")});
}

TEST_F(Forms, BoxesAreExact)
{
    const double more = std::nextafter(10000.0, 20000.0);
    const double some = std::nextafter(0.0, 1.0);
    for (const Box& box : {Box(some, 0.0, 10000.0, 10000.0), Box(0.0, some, 10000.0, 10000.0),
                           Box(0.0, 0.0, more, 10000.0), Box(0.0, 0.0, 10000.0, more)}) {
        RecordingReporter reporter;
        Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*Filled(Left().Get())),
                             *Filled(Right().SetFormBBox(box).Get()), AllOptions());
        EXPECT_THAT(reporter.Labels(), ElementsAre("FormBoundingBox"));
    }
    ExpectPaintReports(Left().SetFormBBox(Box()), Right().SetFormBBox(Box(0.0, 0.0, 0.0, 0.0)),
                       {Difference("FormBoundingBox", "[ <initial/default state> ]",
                                   "[ L: 0, T: 0, R: 0, B: 0 (W: 0, H 0) ]")});
}

TEST_F(Forms, AnExternalReferenceOnOneSideIsADifference)
{
    ExpectPaintReports(Left().SetExternalReference(PageOfFile("a.pdf", 3)), Right(),
                       {Difference("FormExternalReference", "Page 3 @ a.pdf", "NoExternalReference")});
}

TEST_F(Forms, EqualExternalReferencesAreEqual)
{
    ExpectPaintReports(Left().SetExternalReference(PageOfFile("a.pdf", 3)),
                       Right().SetExternalReference(PageOfFile("a.pdf", 3)), {});
}

TEST_F(Forms, ExternalReferencesOfDocumentsWithoutFileDifferByPage)
{
    ExpectPaintReports(Left().SetExternalReference(PageOfFile("a.pdf", 3)),
                       Right().SetExternalReference(PageOfFile("a.pdf", 4)),
                       {Difference("FormExternalReference", "Page 3 @ a.pdf", "Page 4 @ a.pdf")});
}

TEST_F(Forms, AnotherScopeIsADifference)
{
    ExpectPaintReports(Left().SetScope(Scope::File), Right().SetScope(Scope::File), {});
    ExpectPaintReports(Left().SetScope(Scope::File), Right().SetScope(Scope::Global),
                       {Difference("FormScope", " File", " Global")});
}

TEST_F(Forms, AScopeOnOneSideIsADifferenceAndLeavesTheIdsOut)
{
    ExpectPaintReports(Left().SetScope(Scope::Global).SetUniqueID(std::string("a")),
                       Right().SetUniqueID(std::string("b")), {Difference("FormScope", " Global", "--")});
}

TEST_F(Forms, IdsWithoutAnyScopeAreNotCompared)
{
    ExpectPaintReports(Left().SetUniqueID(std::string("a")), Right().SetUniqueID(std::string("b")), {});
}

TEST_F(Forms, AnIdOnOneSideIsNotCompared)
{
    ExpectPaintReports(Left().SetScope(Scope::Global).SetUniqueID(std::string("a")),
                       Right().SetScope(Scope::Global), {});
}

TEST_F(Forms, GlobalIdsAreComparedLiterally)
{
    ExpectPaintReports(Left().SetScope(Scope::Global).SetUniqueID(std::string("a")),
                       Right().SetScope(Scope::Global).SetUniqueID(std::string("b")),
                       {Difference("FormUniqueID", "a", "b")});
}

TEST_F(Forms, GlobalIdsNeedNotPairUp)
{
    UseIds(Scope::Global, "a", "x");
    UseIds(Scope::Global, "a", "y");
    Expect({Difference("FormUniqueID", "a", "x"), Difference("FormUniqueID", "a", "y")});
}

TEST_F(Forms, TheScopeOnTheLeftDecidesHowIdsAreCompared)
{
    Use(Left().SetScope(Scope::Global).SetUniqueID(std::string("a")).Get(),
        Right().SetScope(Scope::File).SetUniqueID(std::string("b")).Get());
    EXPECT_THAT(CompareLines(*left, *right),
                ElementsAre("FormScope: ' Global' vs ' File'", "FormUniqueID: 'a' vs 'b'"));
    EXPECT_THAT(CompareLines(*right, *left), ElementsAre("FormScope: ' File' vs ' Global'"));
}

TEST_F(Forms, NarrowIdsNeedNotBeAlike)
{
    for (const Scope scope : {Scope::Unknown, Scope::SingleUse, Scope::Record, Scope::File, Scope::Stream})
        UseIds(scope, "a", "x");
    UseIds(Scope::File, "b", "y");
    Expect({});
}

TEST_F(Forms, NarrowIdsHaveToPairUp)
{
    UseIds(Scope::File, "a", "x");
    UseIds(Scope::File, "b", "y");
    UseIds(Scope::File, "a", "y");
    EXPECT_THAT(CompareLines(*left, *right),
                ElementsAre("FormUniqueIDReuse: '1' vs '0'", "FormUniqueIDReuse: '0' vs '1'"));
}

TEST_F(Forms, ANewRightIdForAKnownLeftOneIsADifference)
{
    UseIds(Scope::File, "a", "x");
    UseIds(Scope::File, "a", "y");
    EXPECT_THAT(CompareLines(*left, *right), ElementsAre("FormUniqueIDReuse: '1' vs '0'"));
}

TEST_F(Forms, ANewLeftIdForAKnownRightOneIsADifference)
{
    UseIds(Scope::File, "a", "x");
    UseIds(Scope::File, "b", "x");
    EXPECT_THAT(CompareLines(*left, *right), ElementsAre("FormUniqueIDReuse: '0' vs '1'"));
}

TEST_F(Forms, AnIdKeepsItsFirstPartner)
{
    UseIds(Scope::File, "a", "x");
    UseIds(Scope::File, "a", "y");
    UseIds(Scope::File, "a", "y"); // still another one than x
    UseIds(Scope::File, "a", "x"); // as at first
    UseIds(Scope::File, "b", "y"); // y never became the partner of a
    EXPECT_THAT(CompareLines(*left, *right),
                ElementsAre("FormUniqueIDReuse: '1' vs '0'", "FormUniqueIDReuse: '1' vs '0'"));
}

TEST_F(Forms, TheLowestLeftIdOfARightOneDecides)
{
    UseIds(Scope::File, "b", "x");
    UseIds(Scope::File, "a", "x"); // told, and joins the map
    UseIds(Scope::File, "a", "x"); // a is the lowest of those that have x
    UseIds(Scope::File, "b", "x"); // and b is not any more
    UseIds(Scope::File, "b", "x");
    EXPECT_THAT(CompareLines(*left, *right),
                ElementsAre("FormUniqueIDReuse: '0' vs '1'", "FormUniqueIDReuse: '0' vs '1'",
                            "FormUniqueIDReuse: '0' vs '1'"));
}

TEST_F(Forms, IdsOfAFormAreMetBeforeThoseOfTheFormsInIt)
{
    const auto nested = [](OrvDoc::Document& document, const std::string& name, const std::string& outerId,
                           const std::string& innerId) {
        const PaintPointer inner = AForm(document).SetScope(Scope::File).SetUniqueID(innerId).Get();
        return Named(Filled(FormOf(document, Filled(inner)).SetScope(Scope::File).SetUniqueID(outerId).Get()),
                     name);
    };
    Fill(ContentOf(*left), nested(*left, "a", "id", "id"));
    Fill(ContentOf(*right), nested(*right, "b", "x", "y"));
    // The difference stands with the object inside, which is reported before the one that holds it.
    EXPECT_THAT(CompareLines(*left, *right),
                ElementsAre("FormUniqueIDReuse: '1' vs '0'", "ObjectName: 'a' vs 'b'"));
}

TEST_F(Forms, AnIdOfAnotherScopeJoinsNoMap)
{
    UseIds(Scope::Global, "a", "a");
    UseIds(Scope::File, "a", "x");
    UseIds(Scope::File, "b", "a");
    Expect({});
}

TEST_F(Forms, IdsOfAllNarrowScopesArePairedTogether)
{
    UseIds(Scope::Record, "a", "x");
    UseIds(Scope::Stream, "a", "y");
    EXPECT_THAT(CompareLines(*left, *right), ElementsAre("FormUniqueIDReuse: '1' vs '0'"));
}

TEST_F(Forms, TheMapHoldsTheFirstRightIdOfEachLeftOne)
{
    RecordingReporter reporter;
    Comparators::ComparisonContext context(reporter, AllOptions());
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    for (const auto& [leftId, rightId] : {std::pair("b", "x"), std::pair("a", "x"), std::pair("b", "y")}) {
        Comparators::CompareForm(context, Left().SetScope(Scope::File).SetUniqueID(std::string(leftId)).Get(),
                                 Right().SetScope(Scope::File).SetUniqueID(std::string(rightId)).Get(),
                                 scope);
    }
    EXPECT_THAT(context.formUniqueIds, ElementsAre(Pair("a", "x"), Pair("b", "x")));
}

TEST_F(Forms, DifferencesOfTheObjectsComeFirstAndThoseOfTheFormInTheirOrder)
{
    RecordingReporter reporter;
    Use(Left("a").SetScope(Scope::Global).SetUniqueID(std::string("a")).Get(),
        Right("b")
            .SetFormTransformation(Matrix(2.0, 0.0, 0.0, 1.0, 0.0, 0.0))
            .SetFormBBox(Box())
            .SetExternalReference(PageOfFile("a.pdf", 0))
            .SetScope(Scope::File)
            .SetUniqueID(std::string("b"))
            .Get());
    Comparators::Compare(reporter, *left, *right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectName", "FormTransformation", "FormBoundingBox",
                                               "FormExternalReference", "FormScope", "FormUniqueID"));
}

TEST_F(Forms, AMismatchInAFormEndsTheFormAlone)
{
    Use(FormOf(*left, Square("a"), Square("b")).Get(), FormOf(*right, UserGroup(), Square("x")).Get());
    Fill(ContentOf(*left), Square("c"));
    Fill(ContentOf(*right), Square("d"));
    Expect({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group"), Difference("ObjectName", "c", "d")});
}

TEST_F(Forms, APairOfManyObjectsIsComparedAtTheFirst)
{
    const PaintPointer leftPaint = Left("a").Get();
    const PaintPointer rightPaint = Right("b").SetFormBBox(Box()).Get();
    for (int i = 0; i < 10; ++i)
        Use(leftPaint, rightPaint);
    Expect({Difference("ObjectName", "a", "b"),
            Difference("FormBoundingBox", "[ L: 0, T: 10000, R: 10000, B: 0 (W: 10000, H 10000) ]",
                       "[ <initial/default state> ]")});
}

TEST_F(Forms, OneWithAnotherPartnerIsADifferenceAndComparedInFull)
{
    const PaintPointer shared = Left("a").Get();
    Use(shared, Right("a").Get());
    Use(shared, Right("b").Get());
    Expect({Difference("ObjectName", "a", "b"), metWithAnotherRight});
}

TEST_F(Forms, ARightOneWithAnotherPartnerIsTheMirror)
{
    const PaintPointer shared = Right("a").Get();
    Use(Left("a").Get(), shared);
    Use(Left("b").Get(), shared);
    Expect({Difference("ObjectName", "b", "a"), metWithAnotherLeft});
}

TEST_F(Forms, TheOldestMeetingDecidesEachTime)
{
    const PaintPointer a = Left().Get();
    const PaintPointer b = Left().Get();
    const PaintPointer x = Right().Get();
    const PaintPointer y = Right().Get();
    Use(a, x);
    Use(b, y);
    Use(a, y);
    Use(a, y);
    Use(b, x);
    Use(b, y);
    Expect({metWithAnotherRight, metWithAnotherRight, metWithAnotherLeft});
}

TEST_F(Forms, FormsArePatternsToNoOne)
{
    // The lists are kept apart: a cell and a form may have been met in any order.
    const PaintPointer leftForm = Left().Get();
    const PaintPointer rightForm = Right().Get();
    Use(leftForm, rightForm);
    Use(APattern(*left).Get(), APattern(*right).Get());
    Use(leftForm, rightForm);
    Expect({});
}

TEST_F(Forms, OneThatHoldsItselfEnds)
{
    const EndlessForm leftForm(*left, "a");
    const EndlessForm rightForm(*right, "b");
    Use(leftForm.paint, rightForm.paint);
    Expect({Difference("ObjectName", "a", "b")});
}

TEST_F(Forms, OneThatHoldsItselfEndsAlsoWithAnotherPartner)
{
    const EndlessForm leftForm(*left, "a");
    const EndlessForm rightForm(*right, "b");
    Use(leftForm.paint, Right("a").Get());
    Use(leftForm.paint, rightForm.paint);
    // Its first partner holds one object only. Inside the second one it meets that again, which is told
    // again.
    EXPECT_THAT(CompareLines(*left, *right),
                ElementsAre("ObjectRemoved: OrvDoc::Path", "ObjectName: 'a' vs 'b'", "FormReuse: '1' vs '0'",
                            "FormReuse: '1' vs '0'"));
    EXPECT_THAT(CompareLines(*right, *left),
                ElementsAre("ObjectAdded: OrvDoc::Path", "ObjectName: 'b' vs 'a'", "FormReuse: '0' vs '1'",
                            "FormReuse: '0' vs '1'"));
}

TEST_F(Forms, ARoundIsOverOnlyWithTheSamePair)
{
    const EndlessForm endless(*left, "a");
    const auto first = Right("a").Get();
    const auto second = Right("b").Get();
    OrvDoc::Path& user = Place(first->GetContent(), Filled(second));
    Place(second->GetContent(), Filled(first));
    // All are met with others, so that nothing is met for the first time on the way round.
    Use(endless.paint, Right("a").Get());
    Use(Left("a").Get(), first);
    Use(Left("b").Get(), second);
    Use(endless.paint, first);
    EXPECT_THAT(CompareLines(*left, *right),
                ElementsAre("ObjectRemoved: OrvDoc::Path", "ObjectAdded: OrvDoc::Path",
                            "ObjectAdded: OrvDoc::Path", "ObjectName: 'a' vs 'b'", "FormReuse: '1' vs '0'",
                            "FormReuse: '1' vs '0'", "FormReuse: '1' vs '0'"));
    user.SetFillPaint(nullptr);
}

TEST_F(Forms, NestDeeply)
{
    const auto nested = [](OrvDoc::Document& document, const std::string& name) {
        PaintPointer paint = AForm(document, name).Get();
        for (int depth = 0; depth < 64; ++depth)
            paint = FormOf(document, Filled(paint)).Get();
        return paint;
    };
    Use(nested(*left, "a"), nested(*right, "b"));
    Expect({Difference("ObjectName", "a", "b")});
}

TEST_F(Forms, ThatHoldTheNextTwiceCostTheirNumber)
{
    const auto expanding = [](OrvDoc::Document& document, const std::string& name) {
        PaintPointer paint = AForm(document, name).Get();
        for (int depth = 0; depth < 40; ++depth)
            paint = FormOf(document, Filled(paint), Filled(paint)).Get();
        return paint;
    };
    Use(expanding(*left, "a"), expanding(*right, "b"));
    Expect({Difference("ObjectName", "a", "b")});
}

} // namespace HarrowSupport::Testing
