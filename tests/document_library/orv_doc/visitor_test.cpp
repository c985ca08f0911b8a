#include <orv_doc/visitor.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>

#include "document_library/orv_doc/model_makers.h"
#include "support/text_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;

/// Overrides the operations for one class alone.
template <typename Class>
class OnlyVisitor : public VisitorBase
{
public:
    using VisitorBase::EndVisit;
    using VisitorBase::Visit;
    bool Visit(Class&) override
    {
        ++visits;
        return true;
    }
    void EndVisit(Class&) override { ++ends; }

    int visits = 0;
    int ends = 0;
};

template <typename Class>
class OnlyConstVisitor : public ConstVisitorBase
{
public:
    using ConstVisitorBase::EndVisit;
    using ConstVisitorBase::Visit;
    bool Visit(const Class&) override
    {
        ++visits;
        return true;
    }
    void EndVisit(const Class&) override { ++ends; }

    int visits = 0;
    int ends = 0;
};

template <typename Class, typename Item>
void ExpectSeenIfDerived(Item& item)
{
    const int expected = std::is_base_of<Class, Item>::value ? 1 : 0;
    OnlyVisitor<Class> visitor;
    item.Accept(visitor);
    EXPECT_EQ(visitor.visits, expected);
    EXPECT_EQ(visitor.ends, expected);
    OnlyConstVisitor<Class> constVisitor;
    const_cast<const Item&>(item).Accept(constVisitor);
    EXPECT_EQ(constVisitor.visits, expected);
    EXPECT_EQ(constVisitor.ends, expected);
}

template <typename Class>
class VisitorDefaults : public testing::Test
{};

using VisitedClasses = testing::Types<TextGroup, Layer, Group, ImageMask, Text, Path, Strokable, Fillable,
                                      Image, Blendable, Clippable, Transformable, ContentObject>;
TYPED_TEST_SUITE(VisitorDefaults, VisitedClasses);

TYPED_TEST(VisitorDefaults, AnObjectIsSeenOnceByTheVisitorsOfItsClassAndOfItsBases)
{
    TextGroup textGroup;
    Layer layer(std::shared_ptr<LayerProperties>{});
    Group group(Group::Flags::Default);
    ImageMask imageMask(nullptr);
    Text text(std::vector<TextCharacter>(), HarrowSupport::Testing::MakeFont(), 12);
    Path path(MakeRectangle(0, 0, 1, 1));
    Image image(nullptr);
    ExpectSeenIfDerived<TypeParam>(textGroup);
    ExpectSeenIfDerived<TypeParam>(layer);
    ExpectSeenIfDerived<TypeParam>(group);
    ExpectSeenIfDerived<TypeParam>(imageMask);
    ExpectSeenIfDerived<TypeParam>(text);
    ExpectSeenIfDerived<TypeParam>(path);
    ExpectSeenIfDerived<TypeParam>(image);
}

TYPED_TEST(VisitorDefaults, AnObjectInAGroupIsSeenAsItsOwnClass)
{
    // Groups lead a visitor through groups below them in another way than by Accept.
    Group root(Group::Flags::Default);
    Add(root, std::make_unique<TextGroup>());
    Add(root, std::make_unique<Layer>(std::shared_ptr<LayerProperties>{}));
    Add(root, MakeGroup());
    Add(root, MakePath());
    int expected = 0;
    for (const bool isSeen :
         {std::is_base_of<TypeParam, TextGroup>::value, std::is_base_of<TypeParam, Layer>::value,
          std::is_base_of<TypeParam, Group>::value, std::is_base_of<TypeParam, Path>::value,
          std::is_base_of<TypeParam, Group>::value})
        expected += isSeen ? 1 : 0;
    OnlyVisitor<TypeParam> visitor;
    root.Accept(visitor);
    EXPECT_EQ(visitor.visits, expected);
    EXPECT_EQ(visitor.ends, expected);
    OnlyConstVisitor<TypeParam> constVisitor;
    const_cast<const Group&>(root).Accept(constVisitor);
    EXPECT_EQ(constVisitor.visits, expected);
    EXPECT_EQ(constVisitor.ends, expected);
}

TEST(Visitor, APageContentIsSeenAsAContent)
{
    const auto document = Document::CreateNew();
    Page& page = document->AddPage({0, 0, 1, 1});
    ExpectSeenIfDerived<PageContent>(page.GetContent());
    ExpectSeenIfDerived<Content>(page.GetContent());
    ExpectSeenIfDerived<Page>(page);
    ExpectSeenIfDerived<Document>(*document);
}

/// Writes down the walk, and goes into what has no name in `pruned`.
template <typename Base, template <typename> class Qualified>
class Recorder : public Base
{
public:
    using Base::EndVisit;
    using Base::Visit;

    bool Visit(typename Qualified<ContentObject>::type& object) override { return Begin(object.GetName()); }
    bool Visit(typename Qualified<Content>::type&) override { return Begin("content"); }
    bool Visit(typename Qualified<Page>::type& page) override { return Begin(PageName(page)); }
    bool Visit(typename Qualified<Document>::type&) override { return Begin("document"); }
    void EndVisit(typename Qualified<ContentObject>::type& object) override
    {
        walk += "/" + object.GetName() + " ";
    }
    void EndVisit(typename Qualified<Content>::type&) override { walk += "/content "; }
    void EndVisit(typename Qualified<Page>::type& page) override { walk += "/" + PageName(page) + " "; }
    void EndVisit(typename Qualified<Document>::type&) override { walk += "/document "; }

    std::string pruned;
    std::string walk;

private:
    static std::string PageName(const Page& page) { return "page" + std::to_string(page.GetPageIndex()); }

    bool Begin(const std::string& name)
    {
        walk += name + " ";
        return name != pruned;
    }
};

template <typename Class>
struct Mutable
{
    using type = Class;
};

template <typename Class>
struct Const
{
    using type = const Class;
};

using MutableRecorder = Recorder<VisitorBase, Mutable>;
using ConstRecorder = Recorder<ConstVisitorBase, Const>;

template <typename Object>
std::unique_ptr<Object> Named(std::unique_ptr<Object> object, const std::string& name)
{
    object->SetName(name);
    return object;
}

class VisitorWalk : public testing::Test
{
protected:
    VisitorWalk()
    {
        PageContent& content = document->AddPage({0, 0, 1, 1}).GetContent();
        document->AddPage({0, 0, 1, 1});
        Group& group = Add(content, Named(MakeGroup(), "group"));
        Add(group, Named(MakePath(), "path"));
        TextGroup& inner = Add(group, Named(std::make_unique<TextGroup>(), "inner"));
        Add(inner, Named(std::make_unique<Image>(nullptr), "image"));
        Add(content, Named(MakePath(), "last"));
    }

    std::string GetWalk(const std::string& pruned)
    {
        MutableRecorder recorder;
        recorder.pruned = pruned;
        document->Accept(recorder);
        ConstRecorder constRecorder;
        constRecorder.pruned = pruned;
        const_cast<const Document&>(*document).Accept(constRecorder);
        EXPECT_EQ(recorder.walk, constRecorder.walk);
        return recorder.walk;
    }

    std::unique_ptr<Document> document = Document::CreateNew();
};

TEST_F(VisitorWalk, GoesThroughPagesContentsAndObjectsInOrder)
{
    EXPECT_EQ(GetWalk(""),
              "document page0 content group path /path inner image /image /inner /group last /last /content "
              "/page0 page1 content /content /page1 /document ");
}

TEST_F(VisitorWalk, LeavesOutWhatIsBelowAGroupWhoseVisitReturnedFalse)
{
    EXPECT_EQ(GetWalk("group"),
              "document page0 content group /group last /last /content /page0 page1 content /content "
              "/page1 /document ");
}

TEST_F(VisitorWalk, LeavesOutWhatIsBelowAnInnerGroupWhoseVisitReturnedFalse)
{
    EXPECT_EQ(GetWalk("inner"),
              "document page0 content group path /path inner /inner /group last /last /content /page0 "
              "page1 content /content /page1 /document ");
}

TEST_F(VisitorWalk, LeavesOutWhatIsBelowAContentWhoseVisitReturnedFalse)
{
    EXPECT_EQ(GetWalk("content"),
              "document page0 content /content /page0 page1 content /content /page1 /document ");
}

TEST_F(VisitorWalk, LeavesOutWhatIsBelowAPageWhoseVisitReturnedFalse)
{
    EXPECT_EQ(GetWalk("page0"), "document page0 /page0 page1 content /content /page1 /document ");
}

TEST_F(VisitorWalk, LeavesOutWhatIsBelowADocumentWhoseVisitReturnedFalse)
{
    EXPECT_EQ(GetWalk("document"), "document /document ");
}

TEST_F(VisitorWalk, EndsALeafWhoseVisitReturnedFalse)
{
    EXPECT_EQ(GetWalk("path"), GetWalk(""));
}

TEST_F(VisitorWalk, BeginsAtAnyItem)
{
    MutableRecorder recorder;
    document->GetPagesBegin()->GetContent().GetChildren().first->Accept(recorder);
    EXPECT_EQ(recorder.walk, "group path /path inner image /image /inner /group ");
}

class AddingVisitor : public MutableRecorder
{
public:
    using MutableRecorder::Visit;
    bool Visit(Group& group) override
    {
        Add(group, Named(MakePath(), "new"));
        return MutableRecorder::Visit(group);
    }
};

TEST(ChangingVisitor, SeesTheChildrenThatItAddedToAGroupInItsVisit)
{
    const auto root = Named(MakeGroup(), "root");
    Add(*root, Named(MakeGroup(), "inner"));
    AddingVisitor visitor;
    root->Accept(visitor);
    EXPECT_EQ(visitor.walk, "root inner new /new /inner new /new /root ");
}

class DeletingVisitor : public VisitorBase
{
public:
    using VisitorBase::EndVisit;
    void EndVisit(ContentObject& object) override
    {
        ++ended;
        delete &object;
    }

    int ended = 0;
};

TEST(ChangingVisitor, MayDeleteEachObjectAtItsEnd)
{
    const auto document = Document::CreateNew();
    PageContent& content = document->AddPage({0, 0, 1, 1}).GetContent();
    for (int count = 0; count < 3; ++count) {
        Group& group = Add(content, MakeGroup());
        Add(group, MakePath());
        Add(Add(group, MakeGroup()), MakePath());
        Add(group, MakePath());
    }
    DeletingVisitor visitor;
    document->Accept(visitor);
    EXPECT_EQ(visitor.ended, 15);
    EXPECT_EQ(content.GetChildren().first, nullptr);
    EXPECT_EQ(content.GetChildren().last, nullptr);
}

class LaterExtractingVisitor : public VisitorBase
{
public:
    using VisitorBase::EndVisit;
    using VisitorBase::Visit;
    bool Visit(Path& path) override
    {
        if (before)
            extracted.emplace_back(before->ExtractFromParent());
        before = &path;
        return true;
    }

    ContentObject* before = nullptr;
    std::vector<std::unique_ptr<ContentObject>> extracted;
};

TEST(ChangingVisitor, MayTakeAnObjectOutAfterItsEnd)
{
    const auto root = MakeGroup();
    for (int count = 0; count < 4; ++count)
        Add(*root, MakePath());
    LaterExtractingVisitor visitor;
    root->Accept(visitor);
    EXPECT_EQ(visitor.extracted.size(), 3u);
    EXPECT_EQ(CountObjects(root->children), 1u);
}

class RenamingVisitor : public VisitorBase
{
public:
    using VisitorBase::Visit;
    bool Visit(ContentObject& object) override
    {
        object.SetName("seen");
        return true;
    }
};

TEST(ChangingVisitor, MayChangeWhatItVisits)
{
    const auto root = MakeGroup();
    Path& path = Add(*root, MakePath());
    RenamingVisitor visitor;
    root->Accept(visitor);
    EXPECT_EQ(root->GetName(), "seen");
    EXPECT_EQ(path.GetName(), "seen");
}

/// A class of somebody else, with a way of its own through a visitor.
class ForeignGroup : public Group
{
public:
    ForeignGroup() : Group(Flags::Default) {}
    void Accept(VisitorBase& visitor) override
    {
        ++accepted;
        Group::Accept(visitor);
    }
    using Group::Accept;

    int accepted = 0;
};

TEST(Visitor, ReachesAForeignGroupByItsOwnAccept)
{
    const auto root = MakeGroup();
    ForeignGroup& foreign = Add(*root, std::make_unique<ForeignGroup>());
    foreign.SetName("foreign");
    Add(foreign, Named(MakePath(), "path"));
    MutableRecorder recorder;
    root->SetName("root");
    root->Accept(recorder);
    EXPECT_EQ(foreign.accepted, 1);
    EXPECT_EQ(recorder.walk, "root foreign path /path /foreign /root ");
}

} // namespace
