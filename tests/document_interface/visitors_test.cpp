// The visitors: the order of their operations, and what their defaults lead to.

#include "document_interface/signature.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/document.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_order_visitor.h>
#include <orv_doc/path.h>
#include <orv_doc/scratch_document.h>
#include <orv_doc/text_group.h>
#include <orv_doc/visitor.h>
#include <plexa/geometry.h>

namespace
{

using namespace InterfaceTests;
using namespace OrvDoc;
using testing::ElementsAre;

template <typename... Classes>
std::vector<std::size_t> GetVisitSlots()
{
    return GetSlots(static_cast<bool (VisitorBase::*)(Classes&)>(&VisitorBase::Visit)...,
                    static_cast<void (VisitorBase::*)(Classes&)>(&VisitorBase::EndVisit)...);
}

template <typename... Classes>
std::vector<std::size_t> GetConstVisitSlots()
{
    return GetSlots(static_cast<bool (ConstVisitorBase::*)(const Classes&)>(&ConstVisitorBase::Visit)...,
                    static_cast<void (ConstVisitorBase::*)(const Classes&)>(&ConstVisitorBase::EndVisit)...);
}

TEST(Visitors, HaveTheirSeventeenVisitsAndThenTheEndsInOrder)
{
    EXPECT_EQ(
        (GetVisitSlots<TextGroup, Layer, Group, ImageMask, Text, Path, Strokable, Fillable, Image, Blendable,
                       Clippable, Transformable, ContentObject, PageContent, Content, Page, Document>()),
        CountFrom(2, 34));
}

TEST(Visitors, AreTheSameForConstantObjects)
{
    EXPECT_EQ((GetConstVisitSlots<TextGroup, Layer, Group, ImageMask, Text, Path, Strokable, Fillable, Image,
                                  Blendable, Clippable, Transformable, ContentObject, PageContent, Content,
                                  Page, Document>()),
              CountFrom(2, 34));
}

TEST(Visitors, OfTheLayerOrderHaveTheirOperationsInOrder)
{
    EXPECT_EQ(GetSlots(&LayerOrderVisitor::VisitLayer, &LayerOrderVisitor::EndVisitLayer), CountFrom(2, 2));
}

static_assert(std::is_default_constructible_v<VisitorBase>);
static_assert(std::is_default_constructible_v<ConstVisitorBase>);
static_assert(std::has_virtual_destructor_v<VisitorBase>);
static_assert(std::has_virtual_destructor_v<ConstVisitorBase>);
static_assert(std::is_abstract_v<LayerOrderVisitor>);
static_assert(std::has_virtual_destructor_v<LayerOrderVisitor>);
static_assert(Has<bool (LayerOrderVisitor::*)(const std::shared_ptr<LayerProperties>&)>(
    &LayerOrderVisitor::VisitLayer));

/// Writes down the classes that a visitor with one overridden pair sees.
template <typename Seen>
class Recorder : public VisitorBase
{
public:
    using VisitorBase::EndVisit;
    using VisitorBase::Visit;

    explicit Recorder(bool goOn) : result(goOn) {}

    bool Visit(Seen& object) override
    {
        seen.push_back(object.GetName());
        return result;
    }
    void EndVisit(Seen& object) override { seen.push_back("end of " + object.GetName()); }

    std::vector<std::string> seen;

private:
    bool result;
};

/// A text group with a path in it, inside a plain group.
std::unique_ptr<Group> MakeTree()
{
    auto group = std::make_unique<Group>(Group::Flags{0x1FF});
    auto* const textGroup = new TextGroup;
    auto* const path = new Path(Plexa::GetRectangleCompound({0.0, 0.0, 1000.0, 1000.0}));
    group->SetName("group");
    textGroup->SetName("text group");
    path->SetName("path");
    group->AddOnTop(textGroup);
    textGroup->AddOnTop(path);
    return group;
}

TEST(Visitors, OfContentObjectsSeeEveryObjectOnce)
{
    Recorder<ContentObject> recorder(true);
    MakeTree()->Accept(recorder);
    EXPECT_THAT(recorder.seen, ElementsAre("group", "text group", "path", "end of path", "end of text group",
                                           "end of group"));
}

TEST(Visitors, OfGroupsSeeTextGroupsToo)
{
    Recorder<Group> recorder(true);
    MakeTree()->Accept(recorder);
    EXPECT_THAT(recorder.seen, ElementsAre("group", "text group", "end of text group", "end of group"));
}

TEST(Visitors, ThatRefuseAGroupDoNotSeeItsChildrenButItsEnd)
{
    Recorder<ContentObject> recorder(false);
    MakeTree()->Accept(recorder);
    EXPECT_THAT(recorder.seen, ElementsAre("group", "end of group"));
}

TEST(Visitors, ReachTheObjectsOfADocument)
{
    Document& document = GetScratchDocument();
    Content& content = document.GetPagesBegin()->GetContent();
    content.AddOnTop(MakeTree().release());
    Recorder<Path> recorder(true);
    document.Accept(recorder);
    EXPECT_THAT(recorder.seen, ElementsAre("path", "end of path"));
    // The scratch document has to be left as empty as it was.
    const std::unique_ptr<ContentObject> tree(content.GetChildren().first->ExtractFromParent());
}

} // namespace
