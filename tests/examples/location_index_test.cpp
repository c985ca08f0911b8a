#include "support/location_index.h"

#include "support/document_makers.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/page.h>
#include <orv_doc/read_options.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>

namespace HarrowSupport::Testing
{
namespace
{

using Comparators::LocationEntry;
using Comparators::LocationPath;

std::string Place(const OrvDoc::Document& document, const LocationEntry& entry)
{
    return Examples::LocationIndex(document).Describe(LocationPath(1, entry));
}

TEST(LocationIndex, CallsAnEmptyPathTheDocument)
{
    const auto document = NewDocument();
    EXPECT_EQ(Examples::LocationIndex(*document).Describe(LocationPath()), "document");
}

TEST(LocationIndex, CountsPagesFromOne)
{
    const auto document = NewDocument(2);
    const OrvDoc::Page* page = &PageOf(*document, 1);
    EXPECT_EQ(Place(*document, page), "page 2");
}

TEST(LocationIndex, CallsTheContentOfAPageByItsPage)
{
    const auto document = NewDocument(2);
    const OrvDoc::Content* content = &ContentOf(*document, 1);
    EXPECT_EQ(Place(*document, content), "page 2");
}

TEST(LocationIndex, CountsObjectsFromOne)
{
    const auto document = NewDocument();
    Fill(ContentOf(*document), Square(), Square());
    const OrvDoc::ContentObject* object = ContentOf(*document).GetChildren().last;
    EXPECT_EQ(Place(*document, object), "page 1 object 2");
}

TEST(LocationIndex, CountsImplicitGroupsToo)
{
    const auto document = NewDocument();
    Fill(ContentOf(*document), Square(),
         With(ImplicitGroup(), Square(), With(NamedGroup("inner"), Square())));
    const OrvDoc::ContentObject* outer = ContentOf(*document).GetChildren().last;
    const OrvDoc::ContentObject* inner = static_cast<const OrvDoc::Group*>(outer)->children.last;
    const OrvDoc::ContentObject* object = static_cast<const OrvDoc::Group*>(inner)->children.first;
    EXPECT_EQ(Place(*document, inner), "page 1 object 2.2");
    EXPECT_EQ(Place(*document, object), "page 1 object 2.2.1");
}

TEST(LocationIndex, WritesAHyphenForAnObjectThatIsNot)
{
    const auto document = NewDocument();
    EXPECT_EQ(Place(*document, static_cast<const OrvDoc::ContentObject*>(nullptr)), "-");
}

TEST(LocationIndex, CallsAContentWithoutPageByItsRole)
{
    const auto document = NewDocument();
    const auto form = NewContent(*document, OrvDoc::Content::Type::FormContent);
    Fill(*form, Square());
    EXPECT_EQ(Place(*document, static_cast<const OrvDoc::Content*>(form.get())), "form");
    const OrvDoc::ContentObject* object = form->GetChildren().first;
    EXPECT_EQ(Place(*document, object), "form object 1");
}

TEST(LocationIndex, KnowsItsWayInGroupsOfAnyDepth)
{
    constexpr std::size_t depth = 50000;
    const auto document = NewDocument();
    OrvDoc::Group* group = &Testing::Place(ContentOf(*document), ImplicitGroup());
    for (std::size_t i = 1; i < depth; ++i)
        group = &Testing::Place(*group, ImplicitGroup());
    const OrvDoc::ContentObject* object = &Testing::Place(*group, Square());
    const std::string words = Place(*document, object);
    EXPECT_THAT(words, ::testing::StartsWith("page 1 object 1.1.1"));
    EXPECT_EQ(words.size(), std::string("page 1 object 1").size() + depth * std::string(".1").size());
}

TEST(LocationIndex, AsksForNoPageBehindTheOneInQuestion)
{
    const TemporaryFolder folder;
    const std::string content = "10 10 50 50 re f";
    const auto document =
        OrvDoc::Document::Create(folder.Write("pages.pdf", PdfFileOfPages({content, content, content})), {});
    const OrvDoc::ContentObject* object = ContentOf(*document, 1).GetChildren().first;
    EXPECT_EQ(Place(*document, object), "page 2 object 1");
    EXPECT_FALSE(PageOf(*document, 2).IsContentLoaded());
}

} // namespace
} // namespace HarrowSupport::Testing
