#include <harrow_support/content_generator.h>

#include "support/document_makers.h"

#include <orv_doc/layer.h>
#include <orv_doc/layer_configuration.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/layers.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// The objects of a list by their names, those of a group in brackets behind it: `a[b c[]] d`.
std::string TreeText(const OrvDoc::Detail::List<OrvDoc::ContentObject>& list)
{
    std::string text;
    for (const OrvDoc::ContentObject* object = list.first; object; object = object->next) {
        text += (text.empty() ? "" : " ") + object->GetName();
        if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object))
            text += "[" + TreeText(group->children) + "]";
    }
    return text;
}

/// A group that can be made to throw when something changes in a group below it: the object that is added
/// there has then been taken over already.
class ThrowingGroup : public OrvDoc::Group
{
public:
    ThrowingGroup() : Group(Flags::Default) {}

    bool isArmed = false;

protected:
    void ChildChangedSelf(OrvDoc::ContentObject&, WhatChangedFlags what) override
    {
        if (isArmed && what == WhatChangedFlags::Children)
            throw std::domain_error("armed");
    }
};

class ContentGeneratorTest : public ::testing::Test
{
protected:
    /// The whole tree.
    std::string Tree() const { return TreeText(content.GetChildren()); }

    std::vector<std::string> LayerNames() const
    {
        std::vector<std::string> names;
        for (const std::shared_ptr<OrvDoc::LayerProperties>& layer : document->GetLayers().GetAllLayers())
            names.push_back(layer->GetName());
        return names;
    }

    /// Opens a throwing group with the group "inner" in it.
    void BeginInsideThrowingGroup()
    {
        auto made = Named(std::make_unique<ThrowingGroup>(), "outer");
        outer = made.get();
        generator.BeginGroup(std::move(made)).BeginGroup(NamedGroup("inner"));
    }

    std::unique_ptr<OrvDoc::Document> document = NewDocument(2);
    OrvDoc::Content& content = ContentOf(*document);
    ContentGenerator generator{content};
    ThrowingGroup* outer = nullptr;
};

} // namespace

static_assert(!std::is_copy_assignable_v<ContentGenerator>);
static_assert(std::is_copy_constructible_v<ContentGenerator>);

TEST_F(ContentGeneratorTest, AddsStraightToTheContentAtFirst)
{
    generator.Add(Square("p"));
    EXPECT_EQ(Tree(), "p");
}

TEST_F(ContentGeneratorTest, AddsEachObjectOnTopOfTheOnesBefore)
{
    generator.Add(Square("p")).Add(Square("q")).Add(Square("r"));
    EXPECT_EQ(Tree(), "p q r");
}

TEST_F(ContentGeneratorTest, AddsOnTopOfWhatStandsInTheContentAlready)
{
    Place(content, Square("old"));
    generator.Add(Square("new"));
    EXPECT_EQ(Tree(), "old new");
}

TEST_F(ContentGeneratorTest, FillsAContentThatStandsOnNoPage)
{
    const auto form = NewContent(*document, OrvDoc::Content::Type::FormContent);
    ContentGenerator(*form).BeginGroup(NamedGroup("g")).Add(Square("p"));
    EXPECT_EQ(TreeText(form->GetChildren()), "g[p]");
    EXPECT_EQ(Tree(), "");
}

TEST_F(ContentGeneratorTest, FillsOnlyItsOwnPage)
{
    generator.Add(Square("p"));
    EXPECT_EQ(TreeText(ContentOf(*document, 1).GetChildren()), "");
}

TEST_F(ContentGeneratorTest, GoesOnBesideAGroupOnceItIsClosed)
{
    generator.BeginGroup(NamedGroup("g")).Add(Square("p")).EndGroup().Add(Square("q"));
    EXPECT_EQ(Tree(), "g[p] q");
}

TEST_F(ContentGeneratorTest, NestsGroupsInLayers)
{
    generator.BeginLayer("a").BeginGroup(NamedGroup("g")).Add(Square("p"));
    EXPECT_EQ(Tree(), "a[g[p]]");
}

TEST_F(ContentGeneratorTest, NestsLayersInGroups)
{
    generator.BeginGroup(NamedGroup("g")).BeginLayer("a").Add(Square("p"));
    EXPECT_EQ(Tree(), "g[a[p]]");
}

TEST_F(ContentGeneratorTest, ClosesOneContainerAtATime)
{
    generator.BeginLayer("a").BeginGroup(NamedGroup("g")).Add(Square("p"));
    generator.EndGroup().Add(Square("q")).EndLayer().Add(Square("r"));
    EXPECT_EQ(Tree(), "a[g[p] q] r");
}

TEST_F(ContentGeneratorTest, PutsAGroupIntoTheTreeBeforeItIsFilled)
{
    generator.BeginGroup(NamedGroup("g"));
    EXPECT_EQ(Tree(), "g[]");
}

TEST_F(ContentGeneratorTest, KeepsTheGroupObjectThatItIsGiven)
{
    auto group = NamedGroup("g");
    const OrvDoc::Group* const given = group.get();
    generator.BeginGroup(std::move(group));
    EXPECT_EQ(content.GetChildren().first, given);
}

TEST_F(ContentGeneratorTest, GoesOnInAGroupThatHasChildrenAlready)
{
    generator.BeginGroup(With(NamedGroup("g"), Square("p"))).Add(Square("q"));
    EXPECT_EQ(Tree(), "g[p q]");
}

TEST_F(ContentGeneratorTest, OpensTextGroupsLikeAnyGroup)
{
    generator.BeginGroup(Named(std::make_unique<OrvDoc::TextGroup>(), "t")).Add(Square("p"));
    EXPECT_EQ(Tree(), "t[p]");
}

TEST_F(ContentGeneratorTest, ClosesAGroupByEndLayerAsWell)
{
    generator.BeginGroup(NamedGroup("g")).Add(Square("p")).EndLayer().Add(Square("q"));
    EXPECT_EQ(Tree(), "g[p] q");
}

TEST_F(ContentGeneratorTest, ClosesALayerByEndGroupAsWell)
{
    generator.BeginLayer("a").Add(Square("p")).EndGroup().Add(Square("q"));
    EXPECT_EQ(Tree(), "a[p] q");
}

TEST_F(ContentGeneratorTest, ClosesWhateverIsInnermostUnderEitherName)
{
    generator.BeginLayer("a").BeginGroup(NamedGroup("g")).EndLayer().Add(Square("p")).EndGroup();
    generator.Add(Square("q"));
    EXPECT_EQ(Tree(), "a[g[] p] q");
}

TEST_F(ContentGeneratorTest, ReturnsItselfFromEachStep)
{
    EXPECT_EQ(&generator.Add(Square()), &generator);
    EXPECT_EQ(&generator.BeginGroup(ImplicitGroup()), &generator);
    EXPECT_EQ(&generator.BeginLayer("a"), &generator);
    EXPECT_EQ(&generator.EndLayer(), &generator);
    EXPECT_EQ(&generator.EndGroup(), &generator);
}

TEST_F(ContentGeneratorTest, EntersALayerWithTheDocument)
{
    generator.BeginLayer("a");
    EXPECT_THAT(LayerNames(), ElementsAre("a"));
    const auto& order = document->GetLayers().GetDefaultConfiguration().GetOrder();
    ASSERT_EQ(order.size(), 1u);
    EXPECT_EQ(order[0].layer, document->GetLayers().GetAllLayers()[0]);
}

TEST_F(ContentGeneratorTest, MakesALayerObjectOfTheLayerThatItEntered)
{
    generator.BeginLayer("a").EndLayer().BeginLayer("b");
    const auto* const layer = dynamic_cast<const OrvDoc::Layer*>(content.GetChildren().last);
    ASSERT_TRUE(layer);
    const auto* const properties =
        boost::get<std::shared_ptr<OrvDoc::LayerProperties>>(&layer->GetMembership());
    ASSERT_TRUE(properties);
    EXPECT_EQ(*properties, document->GetLayers().GetAllLayers().at(1));
}

TEST_F(ContentGeneratorTest, MakesTwoLayersForTwoCallsWithOneName)
{
    generator.BeginLayer("a").EndLayer().BeginLayer("a");
    EXPECT_THAT(LayerNames(), ElementsAre("a", "a"));
    EXPECT_NE(document->GetLayers().GetAllLayers()[0], document->GetLayers().GetAllLayers()[1]);
    EXPECT_EQ(Tree(), "a[] a[]");
}

TEST_F(ContentGeneratorTest, MakesANewLayerUnderTheNameOfOneThatTheDocumentHas)
{
    const auto known = document->GetLayers().AddLayer("a");
    generator.BeginLayer("a");
    EXPECT_THAT(LayerNames(), ElementsAre("a", "a"));
    known->SetName("renamed");
    EXPECT_EQ(Tree(), "a[]");
}

TEST_F(ContentGeneratorTest, TakesALayerNameThatIsNotTerminated)
{
    generator.BeginLayer(boost::string_view("Varnish and more", 7));
    EXPECT_THAT(LayerNames(), ElementsAre("Varnish"));
}

TEST_F(ContentGeneratorTest, TakesALayerNameWithAZeroByte)
{
    generator.BeginLayer(boost::string_view("a\0b", 3));
    EXPECT_THAT(LayerNames(), ElementsAre(std::string("a\0b", 3)));
}

TEST_F(ContentGeneratorTest, TakesAnEmptyLayerName)
{
    generator.BeginLayer(boost::string_view()).Add(Square("p"));
    EXPECT_THAT(LayerNames(), ElementsAre(""));
    EXPECT_EQ(Tree(), "[p]");
}

TEST_F(ContentGeneratorTest, CopiesAsACursorAtTheSamePlace)
{
    generator.BeginGroup(NamedGroup("g"));
    ContentGenerator copy(generator);
    copy.Add(Square("p"));
    generator.Add(Square("q"));
    EXPECT_EQ(Tree(), "g[p q]");
}

TEST_F(ContentGeneratorTest, KeepsTheCopyInTheGroupThatTheSourceCloses)
{
    generator.BeginGroup(NamedGroup("g"));
    ContentGenerator copy(generator);
    generator.EndGroup().Add(Square("beside"));
    copy.Add(Square("inside"));
    EXPECT_EQ(Tree(), "g[inside] beside");
}

TEST_F(ContentGeneratorTest, KeepsTheSourceInTheGroupThatTheCopyCloses)
{
    generator.BeginGroup(NamedGroup("g"));
    ContentGenerator copy(generator);
    copy.EndGroup().Add(Square("beside"));
    generator.Add(Square("inside"));
    EXPECT_EQ(Tree(), "g[inside] beside");
}

TEST_F(ContentGeneratorTest, KeepsTheSourceOutsideOfTheGroupThatTheCopyOpens)
{
    ContentGenerator copy(generator);
    copy.BeginGroup(NamedGroup("g"));
    generator.Add(Square("beside"));
    EXPECT_EQ(Tree(), "g[] beside");
}

TEST_F(ContentGeneratorTest, CopiesAllOpenContainersInOrder)
{
    generator.BeginGroup(NamedGroup("g")).BeginLayer("a").BeginGroup(NamedGroup("h"));
    ContentGenerator copy(generator);
    copy.EndGroup().Add(Square("p")).EndLayer().Add(Square("q")).EndGroup().Add(Square("r"));
    EXPECT_EQ(Tree(), "g[a[h[] p] q] r");
}

TEST_F(ContentGeneratorTest, LetsACopyOutliveItsSource)
{
    std::optional<ContentGenerator> source(content);
    source->BeginGroup(NamedGroup("g"));
    ContentGenerator copy(*source);
    source.reset();
    copy.Add(Square("p"));
    EXPECT_EQ(Tree(), "g[p]");
}

TEST_F(ContentGeneratorTest, LeavesTheTreeWhenItGoesWithContainersOpen)
{
    std::optional<ContentGenerator> passing(content);
    passing->BeginLayer("a").BeginGroup(NamedGroup("g")).Add(Square("p"));
    passing.reset();
    EXPECT_EQ(Tree(), "a[g[p]]");
    generator.Add(Square("q"));
    EXPECT_EQ(Tree(), "a[g[p]] q");
}

TEST_F(ContentGeneratorTest, NamesTheObjectThatWasAddedLast)
{
    generator.Add(Square("p")).Add(Square("q"));
    EXPECT_EQ(generator.Current().GetName(), "q");
}

TEST_F(ContentGeneratorTest, NamesTheObjectThatWasAddedLastInTheOpenGroup)
{
    generator.Add(Square("p")).BeginGroup(NamedGroup("g")).Add(Square("q")).Add(Square("r"));
    EXPECT_EQ(generator.Current().GetName(), "r");
}

TEST_F(ContentGeneratorTest, NamesTheGroupThatWasClosedLast)
{
    generator.BeginGroup(NamedGroup("g")).Add(Square("p")).EndGroup();
    EXPECT_EQ(generator.Current().GetName(), "g");
}

TEST_F(ContentGeneratorTest, NamesTheInnerGroupThatWasClosedLast)
{
    generator.BeginLayer("a").Add(Square("p")).BeginGroup(NamedGroup("g")).EndGroup();
    EXPECT_EQ(generator.Current().GetName(), "g");
    generator.EndLayer();
    EXPECT_EQ(generator.Current().GetName(), "a");
}

TEST_F(ContentGeneratorTest, NamesTheTopObjectWhoeverPutItThere)
{
    generator.Add(Square("p"));
    Place(content, Square("foreign"));
    EXPECT_EQ(generator.Current().GetName(), "foreign");
}

TEST_F(ContentGeneratorTest, LetsTheCurrentObjectBeChanged)
{
    generator.Add(Square("p")).Current().SetName("renamed");
    EXPECT_EQ(Tree(), "renamed");
}

TEST_F(ContentGeneratorTest, GivesTheDocumentOfItsContent)
{
    EXPECT_EQ(&generator.GetDocument(), document.get());
}

TEST_F(ContentGeneratorTest, HandsAnEmptyPointerToTheContent)
{
    EXPECT_THROW(generator.Add(nullptr), std::invalid_argument);
    EXPECT_EQ(Tree(), "");
}

TEST_F(ContentGeneratorTest, HandsAnEmptyPointerToTheOpenGroup)
{
    generator.BeginGroup(NamedGroup("g"));
    EXPECT_THROW(generator.Add(nullptr), std::invalid_argument);
    generator.Add(Square("p"));
    EXPECT_EQ(Tree(), "g[p]");
}

TEST_F(ContentGeneratorTest, OpensNothingForAnEmptyPointer)
{
    generator.BeginGroup(NamedGroup("g"));
    EXPECT_THROW(generator.BeginGroup(nullptr), std::invalid_argument);
    generator.Add(Square("p")).EndGroup().Add(Square("q"));
    EXPECT_EQ(Tree(), "g[p] q");
}

TEST_F(ContentGeneratorTest, DoesNotDestroyAnObjectThatTheContentRefuses)
{
    OrvDoc::Path& standing = Place(content, Square("p"));
    EXPECT_THROW(generator.Add(std::unique_ptr<OrvDoc::ContentObject>(&standing)), std::invalid_argument);
    ASSERT_EQ(content.GetChildren().first, &standing);
    EXPECT_EQ(Tree(), "p");
}

TEST_F(ContentGeneratorTest, DoesNotDestroyAnObjectThatTheOpenGroupRefuses)
{
    OrvDoc::Path& standing = Place(content, Square("p"));
    generator.BeginGroup(NamedGroup("g"));
    EXPECT_THROW(generator.Add(std::unique_ptr<OrvDoc::ContentObject>(&standing)), std::invalid_argument);
    ASSERT_EQ(content.GetChildren().first, &standing);
    EXPECT_EQ(Tree(), "p g[]");
}

TEST_F(ContentGeneratorTest, NeitherDestroysNorOpensAGroupThatIsRefused)
{
    OrvDoc::Group& standing = Place(content, With(NamedGroup("g"), Square("p")));
    EXPECT_THROW(generator.BeginGroup(std::unique_ptr<OrvDoc::Group>(&standing)), std::invalid_argument);
    ASSERT_EQ(content.GetChildren().first, &standing);
    generator.Add(Square("q"));
    EXPECT_EQ(Tree(), "g[p] q");
}

TEST_F(ContentGeneratorTest, LeavesToTheContainerWhatItTookBeforeItThrew)
{
    BeginInsideThrowingGroup();
    outer->isArmed = true;
    EXPECT_THROW(generator.Add(Square("p")), std::domain_error);
    EXPECT_EQ(Tree(), "outer[inner[p]]");
}

TEST_F(ContentGeneratorTest, DoesNotOpenAGroupWhoseContainerThrewAfterTakingIt)
{
    BeginInsideThrowingGroup();
    outer->isArmed = true;
    EXPECT_THROW(generator.BeginGroup(NamedGroup("g")), std::domain_error);
    outer->isArmed = false;
    generator.Add(Square("p")).EndGroup().Add(Square("q"));
    EXPECT_EQ(Tree(), "outer[inner[g[] p] q]");
}

TEST_F(ContentGeneratorTest, EntersALayerWithTheDocumentAlsoIfItsObjectCannotBePlaced)
{
    BeginInsideThrowingGroup();
    outer->isArmed = true;
    EXPECT_THAT(LayerNames(), IsEmpty());
    EXPECT_THROW(generator.BeginLayer("a"), std::domain_error);
    EXPECT_THAT(LayerNames(), ElementsAre("a"));
    outer->isArmed = false;
    generator.Add(Square("p"));
    EXPECT_EQ(Tree(), "outer[inner[a[] p]]");
}

} // namespace HarrowSupport::Testing
