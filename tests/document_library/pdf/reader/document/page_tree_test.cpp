#include "pdf/reader/document/page_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "document_library/pdf/reader/opened_file.h"
#include "pdf/reader/file/qpdf_text.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using ReaderTests::OpenedFile;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The pages of a file whose objects from the second on are given; the second is the root of the tree.
class Tree
{
public:
    explicit Tree(std::vector<std::string> objects, const OrvDoc::ReadOptions::Limits& limits = {},
                  const std::string& catalogue = "<< /Type /Catalog /Pages 2 0 R >>")
        : file(Join(catalogue, std::move(objects))), list(1000)
    {
        pages = OrvPdf::ReadPageEntries(file.GetQpdf(), limits, list);
        errors = list.Take();
    }

    /// Object numbers of the pages.
    std::vector<int> Numbers() const
    {
        std::vector<int> numbers;
        for (const OrvPdf::PageEntry& page : pages)
            numbers.push_back(page.locator.objectNumber);
        return numbers;
    }

    OpenedFile file;
    OrvPdf::ErrorList list;
    std::vector<OrvPdf::PageEntry> pages;
    std::vector<std::string> errors;

private:
    static std::string Join(const std::string& catalogue, std::vector<std::string> objects)
    {
        objects.insert(objects.begin(), catalogue);
        return PdfFile(objects);
    }
};

const std::string Page = "<< /Type /Page >>";

TEST(PageTree, ListsPagesOfNestedNodesInOrder)
{
    const Tree tree({"<< /Type /Pages /Kids [3 0 R 4 0 R] >>", "<< /Type /Pages /Kids [5 0 R 6 0 R] >>", Page,
                     Page, Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(5, 6, 4));
    EXPECT_THAT(tree.errors, IsEmpty());
}

TEST(PageTree, TellsInnerNodesByTheirKids)
{
    const Tree tree(
        {"<< /Kids [3 0 R 4 0 R] >>", "<< /Type /Page /Kids [5 0 R] >>", "<< /Contents 5 0 R >>", Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(5, 4));
    EXPECT_THAT(tree.errors, IsEmpty());
}

TEST(PageTree, TakesANodeOfAnotherTypeForAPageAndSaysSo)
{
    const Tree tree({"<< /Kids [3 0 R] >>", "<< /Type /Pagina >>"});
    EXPECT_THAT(tree.Numbers(), ElementsAre(3));
    EXPECT_THAT(tree.errors, ElementsAre(AllOf(HasSubstr("object 3 0"), HasSubstr("Pagina"))));
}

TEST(PageTree, LeavesOutAnInnerNodeWithoutKids)
{
    const Tree tree({"<< /Kids [3 0 R 4 0 R] >>", "<< /Type /Pages >>", Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(4));
    EXPECT_THAT(tree.errors, ElementsAre(AllOf(HasSubstr("object 3 0"), HasSubstr("Kids"))));
}

TEST(PageTree, IgnoresACountThatLies)
{
    const Tree tree({"<< /Type /Pages /Count 9999999999 /Kids [3 0 R] >>", Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(3));
}

TEST(PageTree, LeavesOutANodeThatIsItsOwnDescendant)
{
    const Tree tree({"<< /Kids [3 0 R 4 0 R] >>", "<< /Kids [2 0 R 4 0 R] >>", Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(4, 4));
    EXPECT_THAT(tree.errors, ElementsAre(AllOf(HasSubstr("object 2 0"), HasSubstr("reaches again"))));
}

TEST(PageTree, LeavesOutANodeThatIsListedTwice)
{
    const Tree tree({"<< /Kids [3 0 R 3 0 R] >>", "<< /Kids [4 0 R] >>", Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(4));
    EXPECT_THAT(tree.errors, ElementsAre(HasSubstr("object 3 0")));
}

TEST(PageTree, CountsAPageThatIsListedTwiceAsTwo)
{
    const Tree tree({"<< /Kids [3 0 R 3 0 R] >>", Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(3, 3));
    EXPECT_THAT(tree.errors, IsEmpty());
}

TEST(PageTree, TellsWhichEntryOfKidsIsNoDictionary)
{
    const Tree tree({"<< /Kids [null 9 0 R 7 3 0 R] >>", Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(3));
    EXPECT_THAT(tree.errors, ElementsAre(AllOf(HasSubstr("object 2 0: entry 1 of Kids"), HasSubstr("null")),
                                         AllOf(HasSubstr("entry 2"), HasSubstr("null")),
                                         AllOf(HasSubstr("entry 3"), HasSubstr("no dictionary"))));
}

TEST(PageTree, FindsDirectPagesAgainInASecondOpening)
{
    const Tree tree(
        {"<< /Kids [<< /Type /Page /Rotate 90 >> << /Kids [3 0 R << /Type /Page /Rotate 180 >>] >>] >>",
         Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(0, 3, 0));
    const std::unique_ptr<QPDF> again = tree.file.Get()->OpenAgain();
    EXPECT_EQ(OrvPdf::FindPage(*again, tree.pages[0].locator).getKey("/Rotate").getIntValue(), 90);
    EXPECT_EQ(OrvPdf::FindPage(*again, tree.pages[1].locator).getObjectID(), 3);
    EXPECT_EQ(OrvPdf::FindPage(*again, tree.pages[2].locator).getKey("/Rotate").getIntValue(), 180);
}

TEST(PageTree, FindsNothingAtAPlaceThatIsNone)
{
    const OpenedFile file(PdfFileOfPages({""}));
    OrvPdf::PageLocator locator;
    locator.kidPath = {0, 1};
    EXPECT_TRUE(OrvPdf::FindPage(file.GetQpdf(), locator).isNull());
    locator.objectNumber = 99;
    EXPECT_TRUE(OrvPdf::FindPage(file.GetQpdf(), locator).isNull());
}

TEST(PageTree, GivesPagesWhatTheyInherit)
{
    const Tree tree({"<< /Kids [3 0 R] /MediaBox [0 0 1 1] /CropBox [0 0 2 2] /Rotate 90 >>",
                     "<< /Kids [4 0 R 5 0 R] /CropBox [0 0 3 3] /Resources << /A 1 >> >>", Page,
                     "<< /Type /Page /MediaBox [0 0 4 4] /Resources << /B 1 >> >>"});
    ASSERT_EQ(tree.pages.size(), 2u);
    OrvPdf::InheritedEntries first = tree.pages[0].entries;
    EXPECT_EQ(first.mediaBox.unparse(), "[ 0 0 1 1 ]");
    EXPECT_EQ(first.cropBox.unparse(), "[ 0 0 3 3 ]");
    EXPECT_TRUE(first.resources.hasKey("/A"));
    EXPECT_EQ(first.rotate.getIntValue(), 90);
    OrvPdf::InheritedEntries second = tree.pages[1].entries;
    EXPECT_EQ(second.mediaBox.unparse(), "[ 0 0 4 4 ]");
    EXPECT_TRUE(second.resources.hasKey("/B"));
    EXPECT_FALSE(second.resources.hasKey("/A"));
}

TEST(PageTree, DoesNotInheritFromASibling)
{
    const Tree tree({"<< /Kids [3 0 R 5 0 R] >>", "<< /Kids [4 0 R] /Rotate 90 >>", Page, Page});
    ASSERT_EQ(tree.pages.size(), 2u);
    EXPECT_TRUE(QPDFObjectHandle(tree.pages[1].entries.rotate).isNull());
}

TEST(PageTree, StopsAtTheLimitOfPages)
{
    OrvDoc::ReadOptions::Limits limits;
    limits.pages = 2;
    const Tree tree({"<< /Kids [3 0 R 3 0 R 3 0 R 3 0 R] >>", Page}, limits);
    EXPECT_THAT(tree.Numbers(), ElementsAre(3, 3));
    EXPECT_THAT(tree.errors, ElementsAre(HasSubstr("limit pages: 2 reached")));
}

TEST(PageTree, ReadsAsManyPagesAsTheLimitSays)
{
    OrvDoc::ReadOptions::Limits limits;
    limits.pages = 2;
    const Tree tree({"<< /Kids [3 0 R 3 0 R] >>", Page}, limits);
    EXPECT_THAT(tree.Numbers(), ElementsAre(3, 3));
    EXPECT_THAT(tree.errors, IsEmpty());
}

TEST(PageTree, LeavesOutLevelsBeyondTheLimit)
{
    OrvDoc::ReadOptions::Limits limits;
    limits.pageTreeNesting = 2;
    const Tree tree(
        {"<< /Kids [3 0 R 5 0 R] >>", "<< /Kids [4 0 R 6 0 R] >>", "<< /Kids [5 0 R] >>", Page, Page},
        limits);
    EXPECT_THAT(tree.Numbers(), ElementsAre(6, 5));
    EXPECT_THAT(tree.errors,
                ElementsAre(AllOf(HasSubstr("object 4 0"), HasSubstr("limit pageTreeNesting: 2 reached"))));
}

TEST(PageTree, TakesARootThatIsAPageForTheOnlyPage)
{
    const Tree tree({Page});
    EXPECT_THAT(tree.Numbers(), ElementsAre(2));
}

TEST(PageTree, TakesPageObjectsInOrderIfTheRootIsMissing)
{
    const Tree tree({Page, "<< /Type /Font >>", Page}, {}, "<< /Type /Catalog >>");
    EXPECT_THAT(tree.Numbers(), ElementsAre(2, 4));
    EXPECT_THAT(tree.errors, ElementsAre(HasSubstr("catalogue's Pages")));
}

TEST(PageTree, HasPagesWithARootOrWithPageObjects)
{
    EXPECT_TRUE(OrvPdf::HasPages(OpenedFile(PdfFileOfPages({""})).GetQpdf()));
    EXPECT_TRUE(OrvPdf::HasPages(OpenedFile(PdfFile({"<< /Type /Catalog >>", Page})).GetQpdf()));
    EXPECT_FALSE(OrvPdf::HasPages(OpenedFile(PdfFile({"<< /Type /Catalog /Pages 7 >>"})).GetQpdf()));
}

} // namespace
