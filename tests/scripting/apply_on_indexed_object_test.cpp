#include <harrow_support/rpn_parser.h>

#include "support/document_makers.h"
#include "support/paint_makers.h"

#include <orv_doc/layer.h>
#include <orv_doc/layers.h>
#include <orv_doc/visitor.h>

#include <boost/lexical_cast.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

namespace
{

using Names = std::vector<std::string>;

/// The names of the objects that a path hits, in the order of the hits.
Names Hits(const std::string& path, OrvDoc::Visitable& root)
{
    Names names;
    ApplyOnIndexedObject(path, root,
                         [&](OrvDoc::ContentObject& object) { names.push_back(object.GetName()); });
    return names;
}

/// Fails the test if anything is visited.
class Untouchable : public OrvDoc::Visitable
{
public:
    void Accept(OrvDoc::ConstVisitorBase&) const override { ADD_FAILURE() << "The root has been visited."; }
    void Accept(OrvDoc::VisitorBase&) override { ADD_FAILURE() << "The root has been visited."; }
};

/// Keeps what the visitor answers to an object, of which it sees that one alone.
template <typename Object>
class AskingVisitable : public OrvDoc::Visitable
{
public:
    explicit AskingVisitable(Object& objectToVisit) : object(objectToVisit) {}

    void Accept(OrvDoc::ConstVisitorBase&) const override {}
    void Accept(OrvDoc::VisitorBase& visitor) override
    {
        answer = visitor.Visit(object);
        visitor.EndVisit(object);
    }

    bool answer = false;

private:
    Object& object;
};

/// Applies an action that must not be called for a path on a root that must not be visited.
void ApplyInVain(const std::string& path)
{
    Untouchable root;
    ApplyOnIndexedObject(path, root,
                         [](OrvDoc::ContentObject&) { ADD_FAILURE() << "The action was called."; });
}

constexpr const char* badPart = "bad lexical cast: source type value could not be interpreted as target";

class ApplyOnIndexedObjectTest : public ::testing::Test
{
protected:
    std::unique_ptr<OrvDoc::Layer> NewLayer(const std::string& name)
    {
        return std::make_unique<OrvDoc::Layer>(document->GetLayers().AddLayer(name));
    }

    /// Gives each page of the document the same objects: a plain one, a group of two, a plain one.
    void FillPagesWithAGroupInTheMiddle()
    {
        for (std::size_t page = 0; page < document->GetNumberOfPages(); ++page) {
            const std::string prefix = "page " + std::to_string(page + 1) + " ";
            Fill(ContentOf(*document, page), Square(prefix + "first"),
                 With(NamedGroup(prefix + "group"), Square(prefix + "inner"), Square(prefix + "other")),
                 Square(prefix + "third"));
        }
    }

    std::unique_ptr<OrvDoc::Document> document = NewDocument(3);
    OrvDoc::Content& content = ContentOf(*document);
};

/// Paths with a part that is no number.
class BadPath : public ::testing::TestWithParam<std::string>
{};

/// Paths of a single number.
class ShortPath : public ::testing::TestWithParam<std::string>
{};

} // namespace

TEST_P(BadPath, IsRefusedBeforeAnythingIsVisited)
{
    EXPECT_THAT([&] { ApplyInVain(GetParam()); }, ThrowsMessage<boost::bad_lexical_cast>(badPart));
}

INSTANTIATE_TEST_SUITE_P(Empty, BadPath, ::testing::Values("", ".", "1.", ".1", "1..2", "1.2."));
INSTANTIATE_TEST_SUITE_P(NoNumber, BadPath,
                         ::testing::Values("x", "x.1", "1.x", "1.2x", "1.x2", "1. 2", " 1.2", "1.2 ", "1.2\n",
                                           "1.-", "1.+", "1.--2", "1.+-2", "1.0x2", "1.1e1", "1,2",
                                           std::string("1.2\0", 4)));
INSTANTIATE_TEST_SUITE_P(OutOfRange, BadPath,
                         ::testing::Values("1.2147483648", "1.-2147483649", "2147483648.1", "1.4294967298",
                                           "1.18446744073709551618", "-2147483649.1"));
// The conversion comes ahead of the count of the parts.
INSTANTIATE_TEST_SUITE_P(OfOnePart, BadPath, ::testing::Values("2147483648", "five"));

TEST_P(ShortPath, IsRefusedBeforeAnythingIsVisited)
{
    EXPECT_THAT([&] { ApplyInVain(GetParam()); }, ThrowsMessage<std::runtime_error>("invalid target"));
}

INSTANTIATE_TEST_SUITE_P(Numbers, ShortPath,
                         ::testing::Values("1", "5", "0", "-1", "+1", "2147483647", "-2147483648"));

TEST_F(ApplyOnIndexedObjectTest, HitsTheChildOfThatPosition)
{
    Fill(content, Square("a"), Square("b"), Square("c"));
    EXPECT_THAT(Hits("1.1", *document), ElementsAre("a"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("b"));
    EXPECT_THAT(Hits("1.3", *document), ElementsAre("c"));
}

TEST_F(ApplyOnIndexedObjectTest, HandsOutTheObjectItself)
{
    Fill(content, Square("a"), Square("b"));
    const OrvDoc::ContentObject* hit = nullptr;
    ApplyOnIndexedObject("1.2", *document, [&](OrvDoc::ContentObject& object) { hit = &object; });
    EXPECT_EQ(hit, content.GetChildren().last);
}

TEST_F(ApplyOnIndexedObjectTest, LetsTheActionChangeTheObject)
{
    Fill(content, Square("a"), Square("b"));
    ApplyOnIndexedObject("1.2", *document, [](OrvDoc::ContentObject& object) { object.SetName("new"); });
    EXPECT_EQ(content.GetChildren().first->GetName(), "a");
    EXPECT_EQ(content.GetChildren().last->GetName(), "new");
}

TEST_F(ApplyOnIndexedObjectTest, HitsOnEachPageWhateverThePageComponent)
{
    Fill(ContentOf(*document, 0), Square("a"), Square("b"));
    Fill(ContentOf(*document, 1), Square("c"), Square("d"), Square("e"));
    Fill(ContentOf(*document, 2), Square("f"), Square("g"));
    for (const char* const path : {"1.2", "2.2", "99.2", "-7.2", "0.2", "2147483647.2", "-2147483648.2"})
        EXPECT_THAT(Hits(path, *document), ElementsAre("b", "d", "g")) << path;
}

TEST_F(ApplyOnIndexedObjectTest, PassesPagesThatAreTooShort)
{
    Fill(ContentOf(*document, 0), Square("a"));
    Fill(ContentOf(*document, 2), Square("b"), Square("c"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("c"));
}

TEST_F(ApplyOnIndexedObjectTest, TakesPlusSigns)
{
    Fill(content, Square("a"), Square("b"));
    EXPECT_THAT(Hits("+1.+2", *document), ElementsAre("b"));
}

TEST_F(ApplyOnIndexedObjectTest, TakesLeadingZeros)
{
    Fill(content, Square("a"), Square("b"));
    EXPECT_THAT(Hits("01.002", *document), ElementsAre("b"));
}

TEST_F(ApplyOnIndexedObjectTest, HitsNothingByZeroOrANegativeNumber)
{
    Fill(content, Square("a"), With(NamedGroup("g"), Square("b")), Square("c"));
    for (const char* const path :
         {"1.0", "1.-1", "1.-2", "1.2.0", "1.2.-1", "1.0.1", "1.-0", "1.-2147483648"})
        EXPECT_THAT(Hits(path, *document), IsEmpty()) << path;
}

TEST_F(ApplyOnIndexedObjectTest, HitsNothingBehindTheLastChild)
{
    Fill(content, Square("a"), With(NamedGroup("g"), Square("b"), Square("c"), Square("d")));
    for (const char* const path : {"1.3", "1.2147483647", "1.2.4", "1.2.5", "1.2.2147483647"})
        EXPECT_THAT(Hits(path, *document), IsEmpty()) << path;
}

TEST_F(ApplyOnIndexedObjectTest, HitsNothingInAnEmptyDocument)
{
    EXPECT_THAT(Hits("1.1", *document), IsEmpty());
}

TEST_F(ApplyOnIndexedObjectTest, HitsAPlainObjectWhereThePathGoesOn)
{
    Fill(content, Square("a"), Square("b"), Square("c"));
    EXPECT_THAT(Hits("1.3.1", *document), ElementsAre("c"));
    EXPECT_THAT(Hits("1.3.7.7.7", *document), ElementsAre("c"));
    EXPECT_THAT(Hits("1.3.-1", *document), ElementsAre("c"));
}

TEST_F(ApplyOnIndexedObjectTest, GoesIntoAGroupWhereThePathGoesOn)
{
    Fill(content, Square("a"), Square("b"), With(NamedGroup("g"), Square("c"), Square("d")));
    EXPECT_THAT(Hits("1.3.1", *document), ElementsAre("c"));
    EXPECT_THAT(Hits("1.3.2", *document), ElementsAre("d"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsEachLevelFromOne)
{
    Fill(content, With(NamedGroup("g"), Square("a"), Square("b")),
         With(NamedGroup("h"), Square("c"), With(NamedGroup("i"), Square("d"), Square("e")), Square("f")),
         Square("j"));
    EXPECT_THAT(Hits("1.2.1", *document), ElementsAre("c"));
    EXPECT_THAT(Hits("1.2.2.2", *document), ElementsAre("e"));
    EXPECT_THAT(Hits("1.2.3", *document), ElementsAre("f"));
    EXPECT_THAT(Hits("1.3", *document), ElementsAre("j"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsAGroupThatMissesAsOneChildWhateverIsInIt)
{
    Fill(content, With(NamedGroup("g"), Square("a"), Square("b"), Square("c")), Square("d"), Square("e"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("d"));
    EXPECT_THAT(Hits("1.3", *document), ElementsAre("e"));
    EXPECT_THAT(Hits("1.2.1", *document), ElementsAre("d"));
}

TEST_F(ApplyOnIndexedObjectTest, VisitsNoChildOfAGroupThatMisses)
{
    Fill(content, With(NamedGroup("g"), Square("a"), With(NamedGroup("h"), Square("b"))), Square("c"));
    EXPECT_THAT(Hits("1.3.1", *document), IsEmpty());
    EXPECT_THAT(Hits("1.3.2.1", *document), IsEmpty());
}

TEST_F(ApplyOnIndexedObjectTest, CountsAnEmptyGroupAsOneChild)
{
    Fill(content, NamedGroup("g"), Square("a"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("a"));
    EXPECT_THAT(Hits("1.1.1", *document), IsEmpty());
}

TEST_F(ApplyOnIndexedObjectTest, CountsALayerAsOneChild)
{
    Fill(content, With(NewLayer("layer"), Square("a"), Square("b")), Square("c"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("c"));
    EXPECT_THAT(Hits("1.1.2", *document), ElementsAre("b"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsATextGroupAsOneChild)
{
    Fill(content, With(Named(std::make_unique<OrvDoc::TextGroup>(), "text"), Square("a"), Square("b")),
         Square("c"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("c"));
    EXPECT_THAT(Hits("1.1.2", *document), ElementsAre("b"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsAClippingPathAsOneChild)
{
    Fill(content, Clip("clip"), Square("a"), With(NamedGroup("g"), Clip("inner clip"), Square("b")));
    EXPECT_THAT(Hits("1.1", *document), ElementsAre("clip"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("a"));
    EXPECT_THAT(Hits("1.3.1", *document), ElementsAre("inner clip"));
    EXPECT_THAT(Hits("1.3.2", *document), ElementsAre("b"));
}

TEST_F(ApplyOnIndexedObjectTest, FindsAWayThroughLayersTextGroupsAndGroups)
{
    Fill(content, Square("a"),
         With(NewLayer("layer"), Square("b"),
              With(Named(std::make_unique<OrvDoc::TextGroup>(), "text"),
                   With(UserGroup(), Square("c"), Square("d")))));
    EXPECT_THAT(Hits("1.2.2.1.2", *document), ElementsAre("d"));
}

TEST_F(ApplyOnIndexedObjectTest, FindsAWayThroughManyGroups)
{
    constexpr int depth = 1000;
    std::unique_ptr<OrvDoc::Group> group = With(NamedGroup("g"), Square("a"), Square("b"));
    std::string path = "1";
    for (int level = 1; level < depth; ++level) {
        group = With(NamedGroup("g"), Square("beside"), std::move(group));
        path += level == 1 ? ".1" : ".2";
    }
    Fill(content, std::move(group));
    EXPECT_THAT(Hits(path + ".2.2", *document), ElementsAre("b"));
    EXPECT_THAT(Hits(path + ".2.3", *document), IsEmpty());
}

TEST_F(ApplyOnIndexedObjectTest, CountsAFormAsAPlainObjectWithNothingInside)
{
    const PaintPointer form =
        FormOf(*document, Square("inside"), With(NamedGroup("g"), Square("deeper"))).Get();
    Fill(content, Named(Filled(form), "form"), Square("a"));
    EXPECT_THAT(Hits("1.1", *document), ElementsAre("form"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("a"));
    EXPECT_THAT(Hits("1.3", *document), IsEmpty());
    // Nothing is inside an object that is no group, so the path stops there as it does at any other.
    EXPECT_THAT(Hits("1.1.1", *document), ElementsAre("form"));
    EXPECT_THAT(Hits("1.1.2.1", *document), ElementsAre("form"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsAFormInsideAGroup)
{
    const PaintPointer form = FormOf(*document, Square("inside"), Square("more")).Get();
    Fill(content, With(NamedGroup("g"), Named(Filled(form), "form"), Square("a")), Square("b"));
    EXPECT_THAT(Hits("1.1.1", *document), ElementsAre("form"));
    EXPECT_THAT(Hits("1.1.2", *document), ElementsAre("a"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("b"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsNothingInsideOfPatterns)
{
    const PaintPointer pattern = PatternOf(*document, Square("inside"), Square("more")).Get();
    Fill(content, Named(Filled(pattern), "filled"), Named(Stroked(pattern), "stroked"), Square("a"));
    EXPECT_THAT(Hits("1.1.1", *document), ElementsAre("filled"));
    EXPECT_THAT(Hits("1.2.2", *document), ElementsAre("stroked"));
    EXPECT_THAT(Hits("1.3", *document), ElementsAre("a"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsNothingInsideOfSoftMasks)
{
    const MaskPointer mask = MaskOf(*document, Square("inside"), Square("more")).Get();
    auto group = With(NamedGroup("g"), Square("a"), Square("b"));
    group->SetTransparency(OrvBlend::Transparency::Factory().SetSoftMask(mask).Get());
    Fill(content, Named(Masked(mask), "masked"), std::move(group), Square("c"));
    EXPECT_THAT(Hits("1.1.1", *document), ElementsAre("masked"));
    EXPECT_THAT(Hits("1.2.1", *document), ElementsAre("a"));
    EXPECT_THAT(Hits("1.2.3", *document), IsEmpty());
    EXPECT_THAT(Hits("1.3", *document), ElementsAre("c"));
}

TEST_F(ApplyOnIndexedObjectTest, HitsAGroupAndNoneOfItsChildren)
{
    Fill(content, Square("a"), With(NamedGroup("g"), Square("b"), Square("c"), Square("d")));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("g"));
}

TEST_F(ApplyOnIndexedObjectTest, HitsALayer)
{
    Fill(content, Square("a"), With(NewLayer("layer"), Square("b"), Square("c")));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("layer"));
}

TEST_F(ApplyOnIndexedObjectTest, HitsATextGroup)
{
    Fill(content, Named(std::make_unique<OrvDoc::TextGroup>(), "text"));
    EXPECT_THAT(Hits("1.1", *document), ElementsAre("text"));
}

TEST_F(ApplyOnIndexedObjectTest, HitsAGroupInsideAGroup)
{
    Fill(content, With(NamedGroup("g"), Square("a"), With(NamedGroup("h"), Square("b"))));
    EXPECT_THAT(Hits("1.1.2", *document), ElementsAre("h"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsWhatFollowsAGroupThatWasHitOnTheLevelOfThePages)
{
    Fill(content, Square("a"), With(NamedGroup("g"), Square("b")), Square("c"), Square("d"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("g", "c"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsWhatFollowsAGroupThatWasHitFirstOnTheLevelOfThePages)
{
    // The level of the pages stands at one already, so nothing behind the group meets a one.
    Fill(content, NamedGroup("g"), Square("a"), Square("b"));
    EXPECT_THAT(Hits("1.1", *document), ElementsAre("g"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsWhatFollowsAGroupThatWasHitFurtherDown)
{
    Fill(content, NamedGroup("g"), Square("a"), NamedGroup("h"), Square("b"), Square("c"), Square("d"));
    EXPECT_THAT(Hits("1.3", *document), ElementsAre("h", "c"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsOnTheLevelAroundAnInnerGroupThatWasHit)
{
    // The outer group is the first child, which the count behind the hit goes on from.
    Fill(content, With(NamedGroup("g"), Square("a"), NamedGroup("hit"), Square("b"), Square("c")),
         Square("d"));
    EXPECT_THAT(Hits("1.1.2", *document), ElementsAre("hit", "b"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsOnTheLevelOfThePagesBehindTheGroupAroundAHit)
{
    // The group around takes the level of the page away at its end, and "c" then meets the first number of
    // the path, where it stops.
    Fill(content, Square("a"), With(NamedGroup("g"), Square("b"), Square("x"), NamedGroup("hit")),
         Square("c"));
    EXPECT_THAT(Hits("1.2.3", *document), ElementsAre("hit", "c"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsLaterPagesOnWhatTheEarlierOnesLeft)
{
    // Two pages have been counted when the group is hit, so the object behind it is the third of that level.
    Fill(ContentOf(*document, 1), Square("a"), Square("b"), NamedGroup("g"), Square("c"), Square("d"));
    EXPECT_THAT(Hits("1.3", *document), ElementsAre("g", "c"));
}

TEST_F(ApplyOnIndexedObjectTest, HitsTheGroupOfEachPage)
{
    FillPagesWithAGroupInTheMiddle();
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("page 1 group", "page 1 third", "page 2 group",
                                                    "page 2 third", "page 3 group", "page 3 third"));
}

TEST_F(ApplyOnIndexedObjectTest, HitsInsideTheGroupOfEachPage)
{
    FillPagesWithAGroupInTheMiddle();
    EXPECT_THAT(Hits("1.2.2", *document), ElementsAre("page 1 other", "page 2 other", "page 3 other"));
}

TEST_F(ApplyOnIndexedObjectTest, HitsSeveralGroupsBehindOneAnother)
{
    // Each hit takes a level away; when none is left, the next group begins one.
    Fill(content, Square("a"), NamedGroup("g"), NamedGroup("h"), NamedGroup("i"), NamedGroup("j"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("g", "h", "j"));
}

TEST_F(ApplyOnIndexedObjectTest, CountsAFreshPageFromOneAfterAllLevelsAreGone)
{
    Fill(content, Square("a"), NamedGroup("g"), NamedGroup("h"));
    Fill(ContentOf(*document, 1), Square("b"), Square("c"), Square("d"));
    EXPECT_THAT(Hits("1.2", *document), ElementsAre("g", "h", "c"));
}

TEST_F(ApplyOnIndexedObjectTest, TakesAPageForTheRoot)
{
    FillPagesWithAGroupInTheMiddle();
    EXPECT_THAT(Hits("1.1", PageOf(*document, 1)), ElementsAre("page 2 first"));
    EXPECT_THAT(Hits("1.2", PageOf(*document, 1)), ElementsAre("page 2 group", "page 2 third"));
}

TEST_F(ApplyOnIndexedObjectTest, TakesAContentForTheRoot)
{
    FillPagesWithAGroupInTheMiddle();
    OrvDoc::Content& second = ContentOf(*document, 1);
    EXPECT_THAT(Hits("1.1", second), ElementsAre("page 2 first"));
    EXPECT_THAT(Hits("1.2.2", second), ElementsAre("page 2 other"));
    // There is no level of pages around; what follows the group is counted from one.
    EXPECT_THAT(Hits("1.2", second), ElementsAre("page 2 group"));
}

TEST_F(ApplyOnIndexedObjectTest, TakesTheContentOfAFormForTheRoot)
{
    const ContentPointer inside = Drawing(*document, OrvDoc::Content::Type::FormContent, Square("a"),
                                          With(NamedGroup("g"), Square("b"), Square("c")));
    Fill(content, Filled(OrvPaint::FormPaint::Factory(inside).Get()));
    EXPECT_THAT(Hits("1.1", *inside), ElementsAre("a"));
    EXPECT_THAT(Hits("1.2.2", *inside), ElementsAre("c"));
}

TEST_F(ApplyOnIndexedObjectTest, TakesAGroupForTheRootWhichIsTheOnlyOneOfItsLevel)
{
    OrvDoc::Group& group = Place(content, With(NamedGroup("g"), Square("a"), Square("b")));
    EXPECT_THAT(Hits("1.1", group), ElementsAre("g"));
    EXPECT_THAT(Hits("1.1.2", group), ElementsAre("b"));
    EXPECT_THAT(Hits("1.2", group), IsEmpty());
}

TEST_F(ApplyOnIndexedObjectTest, TakesAPlainObjectForTheRoot)
{
    OrvDoc::Path& path = Place(content, Square("a"));
    EXPECT_THAT(Hits("1.1", path), ElementsAre("a"));
    EXPECT_THAT(Hits("1.2", path), IsEmpty());
}

TEST_F(ApplyOnIndexedObjectTest, AsksForWhatMayBeBelowAPlainObject)
{
    AskingVisitable<OrvDoc::ContentObject> root(Place(content, Square("a")));
    EXPECT_THAT(Hits("1.1", root), ElementsAre("a"));
    EXPECT_TRUE(root.answer);
    root.answer = false;
    EXPECT_THAT(Hits("1.2", root), IsEmpty());
    EXPECT_TRUE(root.answer);
}

TEST_F(ApplyOnIndexedObjectTest, AsksForWhatIsBelowAGroupOnTheWayAlone)
{
    AskingVisitable<OrvDoc::Group> root(Place(content, With(NamedGroup("g"), Square("a"))));
    EXPECT_THAT(Hits("1.1.1", root), IsEmpty());
    EXPECT_TRUE(root.answer);
    EXPECT_THAT(Hits("1.1", root), ElementsAre("g"));
    EXPECT_FALSE(root.answer);
    root.answer = true;
    EXPECT_THAT(Hits("1.2.1", root), IsEmpty());
    EXPECT_FALSE(root.answer);
}

TEST_F(ApplyOnIndexedObjectTest, CallsAnEmptyActionAtTheFirstHitOnly)
{
    Fill(content, Square("a"));
    EXPECT_NO_THROW(ApplyOnIndexedObject("1.2", *document, nullptr));
    EXPECT_THROW(ApplyOnIndexedObject("1.1", *document, nullptr), std::bad_function_call);
}

TEST_F(ApplyOnIndexedObjectTest, CallsAnEmptyActionOnAGroupToo)
{
    Fill(content, NamedGroup("g"));
    EXPECT_THROW(ApplyOnIndexedObject("1.1", *document, nullptr), std::bad_function_call);
}

TEST_F(ApplyOnIndexedObjectTest, RefusesABadPathAheadOfAnEmptyAction)
{
    Fill(content, Square("a"));
    EXPECT_THROW(ApplyOnIndexedObject("1", *document, nullptr), std::runtime_error);
    EXPECT_THROW(ApplyOnIndexedObject("1.", *document, nullptr), boost::bad_lexical_cast);
}

TEST_F(ApplyOnIndexedObjectTest, LetsPassWhatTheActionThrows)
{
    FillPagesWithAGroupInTheMiddle();
    int calls = 0;
    const auto fail = [&](OrvDoc::ContentObject&) {
        ++calls;
        throw std::domain_error("enough");
    };
    EXPECT_THAT([&] { ApplyOnIndexedObject("1.2", *document, fail); },
                ThrowsMessage<std::domain_error>("enough"));
    EXPECT_EQ(calls, 1);
}

TEST_F(ApplyOnIndexedObjectTest, LetsPassWhatIsNoStandardException)
{
    Fill(content, Square("a"));
    EXPECT_THROW(ApplyOnIndexedObject("1.1", *document, [](OrvDoc::ContentObject&) { throw 7; }), int);
}

TEST_F(ApplyOnIndexedObjectTest, CanBeCalledAgainAfterAnException)
{
    FillPagesWithAGroupInTheMiddle();
    EXPECT_THROW(ApplyOnIndexedObject("1.2.1", *document, [](OrvDoc::ContentObject&) { throw 7; }), int);
    EXPECT_THAT(Hits("1.2.1", *document), ElementsAre("page 1 inner", "page 2 inner", "page 3 inner"));
}

namespace
{

/// What a script with the command "apply", which pops a path and applies an action, prints to std::cerr.
std::string ErrorsOfScript(const std::string& script, OrvDoc::Visitable& root,
                           const std::function<void(OrvDoc::ContentObject&)>& action)
{
    std::istringstream stream(script);
    RPNParser parser(stream);
    parser.Register("apply", [&] { ApplyOnIndexedObject(parser.Pop(), root, action); });
    ::testing::internal::CaptureStderr();
    parser.Parse();
    return ::testing::internal::GetCapturedStderr();
}

} // namespace

TEST_F(ApplyOnIndexedObjectTest, RunsFromAScript)
{
    Fill(content, Square("a"), Square("b"));
    Names names;
    const auto note = [&](OrvDoc::ContentObject& object) { names.push_back(object.GetName()); };
    EXPECT_EQ(ErrorsOfScript("  1.2 \n$apply\n1.1\n$apply\n", *document, note), "");
    EXPECT_THAT(names, ElementsAre("b", "a"));
}

TEST_F(ApplyOnIndexedObjectTest, EndsAScriptAtABadPath)
{
    Fill(content, Square("a"));
    Names names;
    const auto note = [&](OrvDoc::ContentObject& object) { names.push_back(object.GetName()); };
    EXPECT_EQ(ErrorsOfScript("1\n$apply\n1.1\n$apply\n", *document, note), "invalid target\n");
    EXPECT_EQ(ErrorsOfScript("\n$apply\n1.1\n$apply\n", *document, note), std::string(badPart) + "\n");
    EXPECT_THAT(names, IsEmpty());
}

TEST_F(ApplyOnIndexedObjectTest, EndsAScriptAtAnEmptyAction)
{
    Fill(content, Square("a"));
    EXPECT_EQ(ErrorsOfScript("1.1\n$apply\n", *document, nullptr),
              std::string(std::bad_function_call().what()) + "\n");
}

} // namespace HarrowSupport::Testing
