// Trees that a program makes are bounded by memory alone. Each test runs on a large stack and on a small one,
// and would end in an overflow of either if depth of a tree were depth of the stack.

#include "support/document_makers.h"
#include "support/limit_files.h"
#include "support/paint_makers.h"
#include "support/recording_reporter.h"
#include "support/small_stack.h"
#include "support/temporary_folder.h"

#include <harrow_support/round_trip.h>
#include <harrow_support/rpn_parser.h>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/clone.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/dump.h>
#include <orv_doc/errors.h>
#include <orv_doc/group.h>
#include <orv_doc/page.h>
#include <orv_doc/path.h>
#include <orv_doc/read_options.h>
#include <orv_doc/visitor.h>
#include <orv_doc/write_options.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>
#include <orv_sys/error.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::AnyOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::size_t groupDepth = 100'000;
constexpr std::size_t contentDepth = 20'000;

class CountingVisitor : public OrvDoc::ConstVisitorBase
{
public:
    using OrvDoc::ConstVisitorBase::Visit;
    bool Visit(const OrvDoc::ContentObject&) override
    {
        ++visits;
        return true;
    }
    std::size_t visits = 0;
};

class DeepTrees : public ::testing::TestWithParam<std::size_t>
{
protected:
    static void Run(const std::function<void()>& test) { CallWithStack(GetParam(), test); }

    static std::unique_ptr<OrvDoc::Document> Open(const TemporaryFolder& folder, OrvDoc::Document& document,
                                                  const OrvDoc::ReadOptions& options)
    {
        const std::string file = folder.NameOf("deep.pdf");
        document.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
        return OrvDoc::Document::Create(file, options);
    }

    static std::vector<std::string> TellErrors(OrvDoc::Document& document)
    {
        std::vector<std::string> texts;
        for (const auto& error : ContentOf(document).GetActiveErrors().GetAllErrors())
            texts.push_back(error->GetText());
        return texts;
    }
};

INSTANTIATE_TEST_SUITE_P(Stacks, DeepTrees, ::testing::Values(std::size_t{8} << 20, std::size_t{256} << 10),
                         [](const auto& stack) { return std::to_string(stack.param >> 10) + "KiB"; });

/// Named groups inside of one another, with a path in the innermost one.
std::unique_ptr<OrvDoc::Document> NewChain(const std::string& nameOfPath)
{
    auto document = NewDocument();
    OrvDoc::Group* group = &Place(ContentOf(*document), NamedGroup("group"));
    for (std::size_t level = 1; level < groupDepth; ++level)
        group = &Place(*group, NamedGroup("group"));
    Place(*group, Square(nameOfPath));
    return document;
}

std::unique_ptr<OrvDoc::Document> NewImplicitChain(const std::string& nameOfPath)
{
    auto document = NewDocument();
    OrvDoc::Group* group = &Place(ContentOf(*document), ImplicitGroup());
    for (std::size_t level = 1; level < groupDepth; ++level)
        group = &Place(*group, ImplicitGroup());
    Place(*group, Square(nameOfPath));
    return document;
}

TEST_P(DeepTrees, EqualGroupsAreCompared)
{
    Run([] { EXPECT_THAT(CompareLines(*NewChain("path"), *NewChain("path")), IsEmpty()); });
}

TEST_P(DeepTrees, GroupsThatDifferAtTheBottomAreComparedBothWaysRound)
{
    Run([] {
        const auto left = NewChain("left");
        const auto right = NewChain("right");
        EXPECT_THAT(CompareLines(*left, *right), ElementsAre("ObjectName: 'left' vs 'right'"));
        EXPECT_THAT(CompareLines(*right, *left), ElementsAre("ObjectName: 'right' vs 'left'"));
    });
}

TEST_P(DeepTrees, ImplicitGroupsThatDifferAtTheBottomAreCompared)
{
    Run([] {
        EXPECT_THAT(CompareLines(*NewImplicitChain("left"), *NewImplicitChain("right")),
                    ElementsAre("ObjectName: 'left' vs 'right'"));
    });
}

TEST_P(DeepTrees, GroupsAreClonedVisitedDumpedAndDestroyed)
{
    Run([] {
        auto document = NewChain("path");
        OrvDoc::Content& content = ContentOf(*document);
        OrvDoc::CloneStrategy strategy(*document, OrvDoc::CloneStrategy::CloneFlags::Full);
        OrvDoc::CloneContent(content, content, strategy);
        CountingVisitor visitor;
        content.Accept(visitor);
        EXPECT_EQ(visitor.visits, 2 * (groupDepth + 1));
        std::ostringstream dump;
        OrvDoc::Dump(content, dump, OrvDoc::DumpOption::WithBelow, 0);
        EXPECT_THAT(dump.str(), HasSubstr("path"));
        std::ostringstream line;
        OrvDoc::Dump(content, line, OrvDoc::DumpOption::ItemOnly, 0);
        EXPECT_EQ(line.str().find("path"), std::string::npos);
        document.reset();
    });
}

TEST_P(DeepTrees, TheBottomOfGroupsIsFoundByAnIndexPath)
{
    Run([] {
        const auto document = NewChain("path");
        std::string path = "1";
        for (std::size_t level = 0; level < groupDepth + 1; ++level)
            path += ".1";
        std::vector<std::string> found;
        ApplyOnIndexedObject(path, *document,
                             [&found](OrvDoc::ContentObject& object) { found.push_back(object.GetName()); });
        EXPECT_THAT(found, ElementsAre("path"));
    });
}

TEST_P(DeepTrees, SavedGroupsComeBackAsFarAsTheLimitAllowsAndAreTold)
{
    Run([] {
        const TemporaryFolder folder;
        const auto back = Open(folder, *NewChain("path"), OrvDoc::ReadOptions());
        EXPECT_THAT(TellErrors(*back), Contains(HasSubstr("limit contentNesting: 10000 reached")));
    });
}

TEST_P(DeepTrees, SavedGroupsComeBackWholeUnderALargerLimit)
{
    Run([] {
        const TemporaryFolder folder;
        OrvDoc::ReadOptions options;
        // The path has a name, which is a level of its own.
        options.limits.contentNesting = groupDepth + 1;
        const auto document = NewChain("path");
        const auto back = Open(folder, *document, options);
        EXPECT_THAT(TellErrors(*back), IsEmpty());
        EXPECT_THAT(CompareLines(*document, *back), IsEmpty());
    });
}

TEST_P(DeepTrees, GroupsMakeARoundTripInMemory)
{
    Run([] {
        const auto document = NewChain("path");
        EXPECT_THAT(TestRoundTripStructure(*document, AllOptions()).differences, IsEmpty());
    });
}

/// Forms, patterns and soft masks inside of one another in turn, with a path in the innermost one.
std::unique_ptr<OrvDoc::Document> NewTower(const std::string& nameOfPath)
{
    auto document = NewDocument();
    const Box box(0.0, 0.0, 10000.0, 10000.0);
    std::unique_ptr<OrvDoc::Path> path = Square(nameOfPath);
    for (std::size_t level = 0; level < contentDepth; ++level) {
        if (level % 3 == 0)
            path = Filled(FormOf(*document, std::move(path)).SetFormBBox(box).Get());
        else if (level % 3 == 1)
            path = Filled(
                PatternOf(*document, std::move(path)).SetCellClip(box).SetStep({9000.0, 9000.0}).Get());
        else
            path = Masked(MaskOf(*document, std::move(path)).SetBoundingBox(box).Get());
    }
    Fill(ContentOf(*document), std::move(path));
    return document;
}

TEST_P(DeepTrees, EqualContentsInsideOfOneAnotherAreCompared)
{
    Run([] { EXPECT_THAT(CompareLines(*NewTower("path"), *NewTower("path")), IsEmpty()); });
}

TEST_P(DeepTrees, ContentsThatDifferAtTheBottomAreComparedBothWaysRound)
{
    Run([] {
        const auto left = NewTower("left");
        const auto right = NewTower("right");
        EXPECT_THAT(CompareLines(*left, *right), ElementsAre("ObjectName: 'left' vs 'right'"));
        EXPECT_THAT(CompareLines(*right, *left), ElementsAre("ObjectName: 'right' vs 'left'"));
    });
}

TEST_P(DeepTrees, WhatAReporterThrowsLeavesContentsInsideOfOneAnother)
{
    struct Thrower : Comparators::Reporter
    {
        void Report(Comparators::ReportKind, const std::string& label, const Comparators::LocationPath&,
                    const Comparators::LocationPath&, const std::string&) override
        {
            throw std::runtime_error(label);
        }
    };
    Run([] {
        Thrower reporter;
        EXPECT_THROW(Comparators::Compare(reporter, *NewTower("left"), *NewTower("right"), AllOptions()),
                     std::runtime_error);
    });
}

TEST_P(DeepTrees, ContentsInsideOfOneAnotherAreClonedDumpedAndDestroyed)
{
    Run([] {
        auto document = NewTower("path");
        OrvDoc::Content& content = ContentOf(*document);
        OrvDoc::CloneStrategy strategy(*document, OrvDoc::CloneStrategy::CloneFlags::Full);
        OrvDoc::CloneContent(content, content, strategy);
        std::ostringstream dump;
        OrvDoc::Dump(content, dump, OrvDoc::DumpOption::WithBelow, 0);
        EXPECT_FALSE(dump.str().empty());
        document.reset();
    });
}

TEST_P(DeepTrees, SavedContentsInsideOfOneAnotherComeBackAsFarAsTheLimitAllowsAndAreTold)
{
    Run([] {
        const TemporaryFolder folder;
        const auto back = Open(folder, *NewTower("path"), OrvDoc::ReadOptions());
        // The smaller stack ends first.
        EXPECT_THAT(TellErrors(*back), Contains(AnyOf(HasSubstr("limit formNesting: 64 reached"),
                                                      HasSubstr("nested too deeply"))));
    });
}

TEST_P(DeepTrees, ContentsAsDeepAsTheLimitAreReadOrTold)
{
    Run([] {
        const TemporaryFolder folder;
        const auto document = OrvDoc::Document::Create(folder.Write("deep.pdf", LimitFiles::NestedForms(64)),
                                                       OrvDoc::ReadOptions());
        const std::vector<std::string> errors = TellErrors(*document);
        if (!errors.empty()) {
            EXPECT_THAT(errors, Contains(AnyOf(HasSubstr("the stack of the thread has no room"),
                                               HasSubstr("nested too deeply"))));
        }
    });
}

TEST_P(DeepTrees, ContentsInsideOfOneAnotherMakeARoundTripInMemory)
{
    Run([] {
        const auto document = NewTower("path");
        EXPECT_THAT(TestRoundTripStructure(*document, AllOptions()).differences, IsEmpty());
    });
}

} // namespace
} // namespace HarrowSupport::Testing
