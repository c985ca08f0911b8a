// Trees that a program makes are bounded by memory alone: nothing that is done to them may need stack or more
// than linear time for their depth. Each test would end in a stack overflow, or run for minutes, if it did.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <vector>

#include <orv_doc/clone.h>
#include <orv_doc/dump.h>
#include <orv_doc/visitor.h>
#include <plexa/geometry.h>

#include "document_library/orv_doc/model_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;

constexpr std::size_t depth = 100'000;

class CountingVisitor : public VisitorBase
{
public:
    using VisitorBase::EndVisit;
    using VisitorBase::Visit;
    bool Visit(ContentObject&) override
    {
        ++visits;
        return true;
    }
    void EndVisit(ContentObject&) override { ++ends; }
    std::size_t visits = 0;
    std::size_t ends = 0;
};

class ConstCountingVisitor : public ConstVisitorBase
{
public:
    using ConstVisitorBase::EndVisit;
    using ConstVisitorBase::Visit;
    bool Visit(const ContentObject&) override
    {
        ++visits;
        return true;
    }
    void EndVisit(const ContentObject&) override { ++ends; }
    std::size_t visits = 0;
    std::size_t ends = 0;
};

class DeepNesting : public testing::Test
{
protected:
    /// The chain in the content, with a path at its bottom.
    Group& AddChain()
    {
        Group* innermost = nullptr;
        Group& root = Add(content, MakeChain(depth, &innermost));
        bottom = &Add(*innermost, MakePath());
        return root;
    }

    std::unique_ptr<Document> document = Document::CreateNew();
    PageContent& content = document->AddPage({0, 0, 1, 1}).GetContent();
    Path* bottom = nullptr;
};

TEST_F(DeepNesting, IsBuiltFromTheTopInAContentAndDestroyed)
{
    Group* group = &Add(content, MakeGroup());
    for (std::size_t level = 1; level < depth; ++level)
        group = &Add(*group, MakeGroup());
    EXPECT_EQ(group->GetContent(), &content);
    document.reset();
}

TEST_F(DeepNesting, IsBuiltFromTheBottomAndDestroyed)
{
    auto group = MakeGroup();
    Path& path = Add(*group, MakePath());
    for (std::size_t level = 1; level < depth; ++level) {
        auto above = MakeGroup();
        Add(*above, std::move(group));
        group = std::move(above);
    }
    group->SetTransformation(Scaling(2));
    EXPECT_EQ(GetAbsoluteTransformation(path), Scaling(2));
}

TEST_F(DeepNesting, IsExtractedFromTheTopAndFromTheBottom)
{
    const std::unique_ptr<ContentObject> root(AddChain().ExtractFromParent());
    EXPECT_EQ(bottom->GetContent(), nullptr);
    Group* group = static_cast<Group*>(root.get());
    std::vector<std::unique_ptr<ContentObject>> extracted;
    while (group->children.first != bottom) {
        group = static_cast<Group*>(group->children.first);
        extracted.emplace_back(group->ExtractFromParent());
    }
    EXPECT_EQ(extracted.size(), depth - 1);
}

TEST_F(DeepNesting, IsVisited)
{
    AddChain();
    CountingVisitor visitor;
    document->Accept(visitor);
    EXPECT_EQ(visitor.visits, depth + 1);
    EXPECT_EQ(visitor.ends, depth + 1);
    ConstCountingVisitor constVisitor;
    const_cast<const Document&>(*document).Accept(constVisitor);
    EXPECT_EQ(constVisitor.visits, depth + 1);
    EXPECT_EQ(constVisitor.ends, depth + 1);
}

TEST_F(DeepNesting, IsCloned)
{
    AddChain();
    CloneStrategy strategy(*document, CloneStrategy::CloneFlags::Full);
    CloneContent(content, content, strategy);
    ConstCountingVisitor visitor;
    content.GetChildren().last->Accept(visitor);
    EXPECT_EQ(visitor.visits, depth + 1);
}

TEST_F(DeepNesting, IsDumpedInLinesThatDoNotGrow)
{
    AddChain();
    std::ostringstream stream;
    Dump(content, stream, DumpOption::WithBelow, 0);
    const std::string text = stream.str();
    EXPECT_EQ(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')), depth + 2);
    EXPECT_LT(text.size(), depth * 300);
    EXPECT_NE(text.find("[100001] Path#"), std::string::npos);
}

TEST_F(DeepNesting, IsTransformedAndMoved)
{
    Group& root = AddChain();
    bottom->SetTransformation(Scaling(3));
    bottom->TransformedCompound(nullptr);
    root.SetTransformation(Scaling(2));
    EXPECT_EQ(GetAbsoluteTransformation(*bottom), Scaling(6));
    EXPECT_EQ(Plexa::GetBoundingBox(*bottom->TransformedCompound(nullptr)), Rectangle(0, 0, 6000, 12000));
    Group& other = Add(content, MakeGroup());
    other.SetTransformation(Scaling(2));
    other.AddOnTop(root.ExtractFromParent());
    EXPECT_EQ(Plexa::GetBoundingBox(*bottom->TransformedCompound(nullptr)), Rectangle(0, 0, 12000, 24000));
}

TEST_F(DeepNesting, IsMeasured)
{
    EXPECT_EQ(AddChain().GetBoundingBoxSelf(BoxKind::Outline, Scaling(2)), Rectangle(0, 0, 2000, 4000));
}

TEST_F(DeepNesting, IsToldOfAClippingObjectBesideIt)
{
    AddChain();
    Path& clip = Add(content, MakePath());
    const std::uint64_t before = content.GetRevision();
    clip.SetClippingObject(true);
    EXPECT_GT(content.GetRevision(), before);
}

TEST_F(DeepNesting, IsNotLookedThroughForAGroupThatIsAddedAtTheBottom)
{
    Group* innermost = nullptr;
    const auto root = MakeChain(depth, &innermost);
    for (std::size_t count = 0; count < depth; ++count)
        Add(*innermost, MakeGroup());
    EXPECT_THROW(innermost->AddOnTop(root.get()), std::invalid_argument);
}

} // namespace
