#include <orv_doc/page.h>

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <thread>
#include <vector>

#include "document_library/orv_doc/model_makers.h"
#include "orv_doc/document_source.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;

/// A page of a file with one path, which counts how often it is interpreted.
class CountingSource : public Detail::PageSource
{
public:
    explicit CountingSource(int& count) : interpreted(count) {}

    std::array<Rectangle, 5> ReadBoxes() const override
    {
        return {Rectangle(0, 0, 100, 200), Rectangle(1, 2, 3, 4)};
    }
    void Interpret(PageContent& content) const override
    {
        ++interpreted;
        Add(content, MakePath());
    }

private:
    int& interpreted;
};

class PageOfAFile : public testing::Test
{
protected:
    int interpreted = 0;
    std::unique_ptr<Document> document = Document::CreateNew();
    Page page{*document, 7, std::make_unique<CountingSource>(interpreted)};
};

TEST_F(PageOfAFile, HasItsBoxesAtOnce)
{
    EXPECT_EQ(page.GetPageBox(PageBox::Media), Rectangle(0, 0, 100, 200));
    EXPECT_EQ(page.GetPageBox(PageBox::Crop), Rectangle(1, 2, 3, 4));
    EXPECT_TRUE(page.GetPageBox(PageBox::Bleed).isInitial);
    EXPECT_EQ(page.GetPageIndex(), 7u);
    EXPECT_EQ(interpreted, 0);
}

TEST_F(PageOfAFile, IsInterpretedWhenItsContentIsFirstAskedFor)
{
    EXPECT_FALSE(page.IsContentLoaded());
    EXPECT_EQ(CountObjects(page.GetContent().GetChildren()), 1u);
    EXPECT_TRUE(page.IsContentLoaded());
    EXPECT_EQ(&page.GetContent(), &const_cast<const Page&>(page).GetContent());
    EXPECT_EQ(interpreted, 1);
}

TEST_F(PageOfAFile, IsInterpretedOnceForAllThreads)
{
    std::vector<const PageContent*> seen(4);
    std::vector<std::thread> threads;
    for (const PageContent*& mine : seen)
        threads.emplace_back([this, &mine] { mine = &const_cast<const Page&>(page).GetContent(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(interpreted, 1);
    EXPECT_EQ(seen, std::vector<const PageContent*>(4, &page.GetContent()));
}

class FailingSource : public CountingSource
{
public:
    using CountingSource::CountingSource;
    void Interpret(PageContent& content) const override
    {
        CountingSource::Interpret(content);
        throw std::runtime_error("no memory");
    }
};

TEST_F(PageOfAFile, KeepsNoHalfContentOfAFailure)
{
    Page failing(*document, 0, std::make_unique<FailingSource>(interpreted));
    EXPECT_THROW(failing.GetContent(), std::runtime_error);
    EXPECT_FALSE(failing.IsContentLoaded());
    EXPECT_THROW(failing.GetContent(), std::runtime_error) << "it is tried again";
    EXPECT_EQ(interpreted, 2);
}

class NewPage : public testing::Test
{
protected:
    std::unique_ptr<Document> document = Document::CreateNew();
    Page& page = document->AddPage({0, 0, 100, 200});
};

TEST_F(NewPage, HasTheBoxThatItWasMadeWithAndNoOther)
{
    EXPECT_EQ(page.GetPageBox(PageBox::Media), Rectangle(0, 0, 100, 200));
    for (const PageBox box : {PageBox::Crop, PageBox::Bleed, PageBox::Trim, PageBox::Art})
        EXPECT_TRUE(page.GetPageBox(box).isInitial);
    EXPECT_EQ(page.GetSource(), nullptr);
}

TEST_F(NewPage, KeepsEachBoxForItself)
{
    double size = 1;
    for (const PageBox box : {PageBox::Media, PageBox::Crop, PageBox::Bleed, PageBox::Trim, PageBox::Art})
        page.SetPageBox(box, {0, 0, size++, 1});
    EXPECT_EQ(page.GetPageBox(PageBox::Media).size.width.value, 1);
    EXPECT_EQ(page.GetPageBox(PageBox::Crop).size.width.value, 2);
    EXPECT_EQ(page.GetPageBox(PageBox::Bleed).size.width.value, 3);
    EXPECT_EQ(page.GetPageBox(PageBox::Trim).size.width.value, 4);
    EXPECT_EQ(page.GetPageBox(PageBox::Art).size.width.value, 5);
}

TEST_F(NewPage, LosesABoxThatIsSetToTheInitialState)
{
    Rectangle leftover(1, 2, 3, 4);
    leftover.isInitial = true;
    page.SetPageBox(PageBox::Media, leftover);
    EXPECT_EQ(page.GetPageBox(PageBox::Media), Rectangle());
}

TEST_F(NewPage, HasNoBoxBeyondTheFive)
{
    EXPECT_THROW(page.GetPageBox(static_cast<PageBox>(5)), std::out_of_range);
}

TEST_F(NewPage, HasAnEmptyContent)
{
    const PageContent& content = page.GetContent();
    EXPECT_EQ(content.GetType(), Content::Type::PageContent);
    EXPECT_EQ(content.GetChildren().first, nullptr);
    EXPECT_EQ(content.GetBlendColorSpace(), BlendColorSpace());
    EXPECT_FALSE(content.GetTransferFunctionSet());
}

TEST_F(NewPage, GivesItsTransferFunctionsToItsContent)
{
    page.SetTransferFunctionSet(TransferFunctionSet(nullptr, {{"Cyan", nullptr}}));
    ASSERT_TRUE(page.GetContent().GetTransferFunctionSet());
    EXPECT_EQ(page.GetContent().GetTransferFunctionSet()->GetNamedTransferFunctions().front().first, "Cyan");
    page.SetTransferFunctionSet(boost::none);
    EXPECT_FALSE(page.GetContent().GetTransferFunctionSet());
}

} // namespace
