#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include <orv_doc/image.h>
#include <orv_doc/text_group.h>

#include "document_library/orv_doc/model_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

std::vector<const ContentObject*> GetObjects(const Detail::List<ContentObject>& list)
{
    std::vector<const ContentObject*> objects;
    for (const ContentObject* object = list.first; object; object = object->next)
        objects.push_back(object);
    return objects;
}

class Container : public testing::Test
{
protected:
    std::unique_ptr<Document> document = Document::CreateNew();
    PageContent& content = document->AddPage({0, 0, 1, 1}).GetContent();
};

TEST_F(Container, IsEmptyAtFirst)
{
    EXPECT_EQ(content.GetChildren().first, nullptr);
    EXPECT_EQ(content.GetChildren().last, nullptr);
    EXPECT_EQ(MakeGroup()->children.first, nullptr);
}

TEST_F(Container, HoldsObjectsInTheOrderOfAdding)
{
    Path& first = Add(content, MakePath());
    Path& second = Add(content, MakePath());
    Path& third = Add(content, MakePath());
    EXPECT_THAT(GetObjects(content.GetChildren()), ElementsAre(&first, &second, &third));
    EXPECT_EQ(content.GetChildren().last, &third);
    EXPECT_EQ(third.next, nullptr);
    EXPECT_EQ(CountObjects(content.GetChildren()), 3u);
}

TEST_F(Container, TellsAnObjectAtTheTopItsContentAndNoGroup)
{
    Path& path = Add(content, MakePath());
    EXPECT_EQ(path.GetContent(), &content);
    EXPECT_EQ(path.GetParentGroup(), nullptr);
}

TEST_F(Container, TellsAnObjectInAGroupBoth)
{
    Group& group = Add(content, MakeGroup());
    Path& path = Add(group, MakePath());
    EXPECT_EQ(path.GetContent(), &content);
    EXPECT_EQ(path.GetParentGroup(), &group);
}

TEST_F(Container, TellsTheContentToAllThatComesWithAGroup)
{
    auto group = MakeGroup();
    TextGroup& inner = Add(*group, std::make_unique<TextGroup>());
    Image& image = Add(inner, std::make_unique<Image>(nullptr));
    EXPECT_EQ(image.GetContent(), nullptr);
    Add(content, std::move(group));
    EXPECT_EQ(inner.GetContent(), &content);
    EXPECT_EQ(image.GetContent(), &content);
}

TEST_F(Container, RefusesANullPointer)
{
    EXPECT_THAT([&] { content.AddOnTop(nullptr); },
                ThrowsMessage<std::invalid_argument>(HasSubstr("no object")));
    Group group(Group::Flags::Default);
    EXPECT_THAT([&] { group.AddOnTop(nullptr); },
                ThrowsMessage<std::invalid_argument>(HasSubstr("no object")));
}

TEST_F(Container, RefusesAnObjectThatStandsInAContent)
{
    Path& path = Add(content, MakePath());
    Group group(Group::Flags::Default);
    EXPECT_THROW(content.AddOnTop(&path), std::invalid_argument);
    EXPECT_THROW(group.AddOnTop(&path), std::invalid_argument);
    EXPECT_EQ(path.GetContent(), &content);
    EXPECT_EQ(CountObjects(content.GetChildren()), 1u);
    EXPECT_EQ(group.children.first, nullptr);
}

TEST_F(Container, RefusesAnObjectThatStandsInAGroupOutsideOfAnyContent)
{
    const auto group = MakeGroup();
    Path& path = Add(*group, MakePath());
    Group other(Group::Flags::Default);
    EXPECT_THROW(content.AddOnTop(&path), std::invalid_argument);
    EXPECT_THROW(other.AddOnTop(&path), std::invalid_argument);
    EXPECT_EQ(path.GetParentGroup(), group.get());
}

TEST_F(Container, RefusesAGroupInItself)
{
    const auto group = MakeGroup();
    EXPECT_THAT([&] { group->AddOnTop(group.get()); },
                ThrowsMessage<std::invalid_argument>(HasSubstr("itself")));
    EXPECT_EQ(group->children.first, nullptr);
}

TEST_F(Container, RefusesAGroupInAGroupThatItContains)
{
    Group* innermost = nullptr;
    const auto root = MakeChain(3, &innermost);
    EXPECT_THAT([&] { innermost->AddOnTop(root.get()); },
                ThrowsMessage<std::invalid_argument>(HasSubstr("contains")));
    EXPECT_EQ(innermost->children.first, nullptr);
}

TEST_F(Container, TakesAGroupThatContainsOthers)
{
    Group root(Group::Flags::Default);
    Group& chain = Add(root, MakeChain(3));
    EXPECT_EQ(chain.GetParentGroup(), &root);
}

TEST_F(Container, GivesOwnershipBackOnExtraction)
{
    Path& first = Add(content, MakePath());
    Path& middle = Add(content, MakePath());
    Path& last = Add(content, MakePath());
    const std::unique_ptr<ContentObject> extracted(middle.ExtractFromParent());
    EXPECT_EQ(extracted.get(), &middle);
    EXPECT_EQ(middle.next, nullptr);
    EXPECT_EQ(middle.previous, nullptr);
    EXPECT_THAT(GetObjects(content.GetChildren()), ElementsAre(&first, &last));
    EXPECT_EQ(CountObjects(content.GetChildren()), 2u);
}

TEST_F(Container, IsEmptyAfterEachFirstObjectWasExtracted)
{
    for (int count = 0; count < 3; ++count)
        Add(content, MakePath());
    while (ContentObject* const first = content.GetChildren().first)
        delete first->ExtractFromParent();
    EXPECT_EQ(content.GetChildren().last, nullptr);
}

TEST_F(Container, IsForgottenByAllThatIsExtracted)
{
    Group& group = Add(content, MakeGroup());
    Path& path = Add(Add(group, MakeGroup()), MakePath());
    const std::unique_ptr<ContentObject> extracted(group.ExtractFromParent());
    EXPECT_EQ(group.GetContent(), nullptr);
    EXPECT_EQ(path.GetContent(), nullptr);
    EXPECT_NE(path.GetParentGroup(), nullptr);
}

TEST_F(Container, IsForgottenByAnObjectThatIsExtractedFromAGroup)
{
    Group& group = Add(content, MakeGroup());
    Path& path = Add(group, MakePath());
    const std::unique_ptr<ContentObject> extracted(path.ExtractFromParent());
    EXPECT_EQ(path.GetContent(), nullptr);
    EXPECT_EQ(path.GetParentGroup(), nullptr);
    EXPECT_EQ(group.children.first, nullptr);
    EXPECT_EQ(group.children.last, nullptr);
}

TEST_F(Container, TakesAnExtractedObjectAgain)
{
    Group& group = Add(content, MakeGroup());
    Path& path = Add(content, MakePath());
    group.AddOnTop(path.ExtractFromParent());
    EXPECT_EQ(path.GetParentGroup(), &group);
    EXPECT_EQ(path.GetContent(), &content);
}

TEST_F(Container, ReturnsAnObjectOutsideOfAnyContainerAsItIs)
{
    const auto path = MakePath();
    EXPECT_EQ(path->ExtractFromParent(), path.get());
}

TEST_F(Container, IsLeftByAnObjectThatIsDeleted)
{
    Path& first = Add(content, MakePath());
    Group& group = Add(content, MakeGroup());
    Path& inGroup = Add(group, MakePath());
    delete &inGroup;
    EXPECT_EQ(group.children.first, nullptr);
    delete &group;
    EXPECT_THAT(GetObjects(content.GetChildren()), ElementsAre(&first));
    EXPECT_EQ(content.GetChildren().last, &first);
}

class CountingPath : public Path
{
public:
    explicit CountingPath(int& count) : Path(MakeRectangle(0, 0, 1, 1)), alive(count) { ++alive; }
    ~CountingPath() override { --alive; }

private:
    int& alive;
};

TEST_F(Container, DestroysEverythingBelowIt)
{
    int alive = 0;
    {
        Group group(Group::Flags::Default);
        Add(group, std::make_unique<CountingPath>(alive));
        Add(Add(group, MakeGroup()), std::make_unique<CountingPath>(alive));
        Add(Add(group, std::make_unique<TextGroup>()), std::make_unique<CountingPath>(alive));
        Add(group, std::make_unique<CountingPath>(alive));
        EXPECT_EQ(alive, 4);
    }
    EXPECT_EQ(alive, 0);
    Add(Add(content, MakeGroup()), std::make_unique<CountingPath>(alive));
    document.reset();
    EXPECT_EQ(alive, 0);
}

TEST_F(Container, CountsEveryChangeBelowIt)
{
    Group& group = Add(content, MakeGroup());
    Path& path = Add(group, MakePath());
    const auto expectCounted = [this](const char* what, const auto& change) {
        const std::uint64_t before = content.GetRevision();
        change();
        EXPECT_GT(content.GetRevision(), before) << what;
    };
    expectCounted("name", [&] { path.SetName("a"); });
    expectCounted("the same name", [&] { path.SetName("a"); });
    expectCounted("fill", [&] { path.SetFillPaint(nullptr); });
    expectCounted("stroke", [&] { path.SetStrokePaint(nullptr); });
    expectCounted("stroke properties", [&] { path.SetStrokeProperties({}); });
    expectCounted("halftones", [&] { path.SetHalftoneSet(nullptr); });
    expectCounted("transparency", [&] { path.SetTransparency(nullptr); });
    expectCounted("transformation", [&] { path.SetTransformation(Scaling(2)); });
    expectCounted("shape", [&] { path.SetDefiningCompound(MakeRectangle(0, 0, 1, 1)); });
    expectCounted("clipping", [&] { path.SetClippingObject(true); });
    expectCounted("flags", [&] { group.SetFlags(Group::Flags::UserCreated); });
    expectCounted("marked content", [&] { group.SetMarkedContent(nullptr); });
    expectCounted("adding", [&] { Add(group, MakePath()); });
    expectCounted("adding at the top", [&] { Add(content, MakePath()); });
    expectCounted("extraction", [&] { delete path.ExtractFromParent(); });
    expectCounted("extraction at the top", [&] { delete group.ExtractFromParent(); });
    expectCounted("deletion", [&] { delete content.GetChildren().first; });
    expectCounted("blend colour space", [&] { content.SetBlendColorSpace({}); });
    expectCounted("transfer functions", [&] { content.SetTransferFunctionSet(boost::none); });
}

class ListeningGroup : public Group
{
public:
    ListeningGroup() : Group(Flags::Default) {}

    std::vector<std::pair<const ContentObject*, WhatChangedFlags>> changes;

protected:
    void ChildChangedSelf(ContentObject& child, WhatChangedFlags what) override
    {
        changes.emplace_back(&child, what);
    }
};

TEST_F(Container, IsToldWhichChildChanged)
{
    ListeningGroup group;
    Path& path = Add(group, MakePath());
    Group& inner = Add(group, MakeGroup());
    path.SetName("a");
    Add(inner, MakePath());
    using What = ContentObject::WhatChangedFlags;
    EXPECT_THAT(group.changes,
                ElementsAre(std::make_pair(&path, What::Name), std::make_pair(&inner, What::Children)));
}

class ClipListeningPath : public Path
{
public:
    ClipListeningPath() : Path(MakeRectangle(0, 0, 1, 1)) {}
    int changes = 0;

protected:
    void ClippingObjectChangedSelf() override { ++changes; }
};

TEST_F(Container, TellsWhatStandsBesideAClippingObject)
{
    Path& clip = Add(content, MakePath());
    ClipListeningPath& beside = Add(content, std::make_unique<ClipListeningPath>());
    Group& group = Add(Add(content, MakeGroup()), MakeGroup());
    ClipListeningPath& below = Add(group, std::make_unique<ClipListeningPath>());
    clip.SetClippingObject(true);
    EXPECT_EQ(beside.changes, 1);
    EXPECT_EQ(below.changes, 1);
    Add(group, std::make_unique<TextGroup>()).SetClippingObject(true);
    EXPECT_EQ(beside.changes, 1) << "it clips in its own container only";
    EXPECT_EQ(below.changes, 2);
}

TEST(ObjectID, GrowsWithEachObjectAndContent)
{
    const auto document = Document::CreateNew();
    const auto first = MakePath();
    const auto second = MakeGroup();
    const std::uint64_t content = document->AddPage({0, 0, 1, 1}).GetContent().GetID();
    const auto third = MakePath();
    EXPECT_LT(0u, first->GetID());
    EXPECT_LT(first->GetID(), second->GetID());
    EXPECT_LT(second->GetID(), content);
    EXPECT_LT(content, third->GetID());
}

TEST(ObjectName, IsEmptyUntilItIsSet)
{
    const auto path = MakePath();
    EXPECT_EQ(path->GetName(), "");
    path->SetName("Line");
    EXPECT_EQ(path->GetName(), "Line");
    path->SetName("");
    EXPECT_EQ(path->GetName(), "");
}

TEST(ObjectSize, LeavesRoomForAShapeWithinAKibibyte)
{
    EXPECT_LE(sizeof(Path), 256u);
    EXPECT_LE(sizeof(Group), 256u);
}

} // namespace
