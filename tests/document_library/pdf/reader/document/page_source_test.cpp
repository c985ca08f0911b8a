#include "pdf/reader/document/page_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include <orv_doc/document.h>
#include <orv_doc/errors.h>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using ReaderTests::ReadBytes;
using ReaderTests::TextsOf;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// A file with one page of the given entries; further objects are those from 4.
std::string OnePage(const std::string& entries, const std::vector<std::string>& more = {})
{
    std::vector<std::string> objects = {"<< /Type /Catalog /Pages 2 0 R >>",
                                        "<< /Kids [3 0 R] /MediaBox [0 0 100 100] >>",
                                        "<< /Type /Page " + entries + " >>"};
    objects.insert(objects.end(), more.begin(), more.end());
    return PdfFile(objects);
}

const OrvPdf::PdfPageSource& SourceOf(const OrvDoc::Page& page)
{
    return dynamic_cast<const OrvPdf::PdfPageSource&>(*page.GetSource());
}

struct Content
{
    explicit Content(const std::string& file, const OrvDoc::ReadOptions& options = {})
        : document(ReadBytes(file, options)), page(*document->GetPagesBegin())
    {
        data = SourceOf(page).ReadContent();
    }

    std::string Bytes() const { return std::string(data.bytes.View()); }

    std::unique_ptr<OrvDoc::Document> document;
    OrvDoc::Page& page;
    OrvPdf::PageContentData data;
};

TEST(PageSource, ReadsOneStream)
{
    const Content content(OnePage("/Contents 4 0 R", {PdfStream("0 0 m")}));
    EXPECT_EQ(content.Bytes(), "0 0 m");
    EXPECT_THAT(content.data.problems, IsEmpty());
}

TEST(PageSource, JoinsStreamsWithALineFeed)
{
    EXPECT_EQ(Content(OnePage("/Contents [4 0 R 5 0 R 4 0 R]", {PdfStream("q"), PdfStream("Q")})).Bytes(),
              "q\nQ\nq");
}

TEST(PageSource, ReadsAnArrayThatIsAnObjectOfItsOwn)
{
    EXPECT_EQ(Content(OnePage("/Contents 4 0 R", {"[5 0 R]", PdfStream("q Q")})).Bytes(), "q Q");
}

TEST(PageSource, HasNoContentWithoutStreams)
{
    const Content content(OnePage(""));
    EXPECT_EQ(content.Bytes(), "");
    EXPECT_THAT(content.data.problems, IsEmpty());
}

TEST(PageSource, TellsWhatIsNoStream)
{
    const Content content(OnePage("/Contents [4 0 R 9 0 R << >>]", {PdfStream("q")}));
    EXPECT_EQ(content.Bytes(), "q");
    EXPECT_THAT(content.data.problems, ElementsAre("entry 2 of Contents (object 9 0) is no stream",
                                                   "entry 3 of Contents (a direct dictionary) is no stream"));
}

TEST(PageSource, TellsWhichStreamIsDamagedAndReadsTheOthers)
{
    const Content content(
        OnePage("/Contents [4 0 R 5 0 R]", {PdfStream("xx", "/Filter /MagicDecode"), PdfStream("Q")}));
    EXPECT_EQ(content.Bytes(), "Q");
    EXPECT_THAT(content.data.problems,
                ElementsAre(AllOf(StartsWith("object 4 0: "), HasSubstr("MagicDecode"))));
}

TEST(PageSource, CountsAllStreamsAgainstTheLimitOfAContent)
{
    OrvDoc::ReadOptions options;
    options.limits.contentStreamBytes = 5;
    const Content content(OnePage("/Contents [4 0 R 5 0 R 4 0 R]", {PdfStream("abc"), PdfStream("def")}),
                          options);
    EXPECT_EQ(content.Bytes(), "abc\nde");
    EXPECT_THAT(
        content.data.problems,
        ElementsAre(AllOf(HasSubstr("object 5 0"), HasSubstr("limit contentStreamBytes: 5 reached")),
                    AllOf(HasSubstr("object 4 0"), HasSubstr("limit contentStreamBytes: 5 reached"))));
}

TEST(PageSource, PutsThePageInFrontOfItsErrors)
{
    const auto document =
        ReadBytes(PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [3 0 R 4 0 R] >>",
                           "<< /Type /Page /MediaBox [0 0 1 1] >>", "<< /Type /Page /Contents 7 >>"}));
    auto page = document->GetPagesBegin();
    EXPECT_THAT(TextsOf(page->GetContent().GetActiveErrors()), Not(Contains(HasSubstr("MediaBox"))));
    ++page;
    EXPECT_THAT(TextsOf(page->GetContent().GetActiveErrors()),
                AllOf(Contains("page 2: MediaBox is missing"),
                      Contains("page 2: Contents (a direct integer) is no stream")));
}

TEST(PageSource, TellsThatStreamsAreDamaged)
{
    const auto whole = ReadBytes(OnePage("/Contents 4 0 R", {PdfStream("q Q")}));
    whole->GetPagesBegin()->GetContent();
    EXPECT_FALSE(SourceOf(*whole->GetPagesBegin()).HasDamagedStreams());
    const auto damaged = ReadBytes(OnePage("/Contents 4 0 R", {PdfStream("q Q", "/Filter /MagicDecode")}));
    damaged->GetPagesBegin()->GetContent();
    EXPECT_TRUE(SourceOf(*damaged->GetPagesBegin()).HasDamagedStreams());
}

TEST(PageSource, NotesTheRevisionThatTheContentCameWith)
{
    const auto document = ReadBytes(OnePage("/Contents 4 0 R /Group << /S /Transparency /CS /DeviceRGB >>",
                                            {PdfStream("0 0 10 10 re f")}));
    OrvDoc::PageContent& content = document->GetPagesBegin()->GetContent();
    const OrvPdf::PdfPageSource& source = SourceOf(*document->GetPagesBegin());
    EXPECT_EQ(source.GetBaseRevision(), content.GetRevision());
    content.MarkChanged();
    EXPECT_NE(source.GetBaseRevision(), content.GetRevision());
}

TEST(PageSource, ReadsTheBlendSpaceOfATransparencyGroup)
{
    const auto document = ReadBytes(OnePage("/Group << /S /Transparency /CS /DeviceCMYK >>"));
    EXPECT_EQ(document->GetPagesBegin()->GetContent().GetBlendColorSpace().GetColorSpace(),
              OrvColor::ColorSpace::DeviceCMYK());
}

TEST(PageSource, HasNoBlendSpaceWithoutATransparencyGroup)
{
    for (const char* entries :
         {"", "/Group << /S /Other /CS /DeviceCMYK >>", "/Group << /S /Transparency >>"}) {
        const auto document = ReadBytes(OnePage(entries));
        EXPECT_FALSE(document->GetPagesBegin()->GetContent().GetBlendColorSpace().GetColorSpace()) << entries;
    }
}

TEST(PageSource, TellsABlendSpaceThatIsNone)
{
    const auto document = ReadBytes(OnePage("/Group << /S /Transparency /CS /Pattern >>"));
    OrvDoc::PageContent& content = document->GetPagesBegin()->GetContent();
    EXPECT_FALSE(content.GetBlendColorSpace().GetColorSpace());
    EXPECT_THAT(TextsOf(content.GetActiveErrors()), Contains(HasSubstr("page 1: Group: CS is left out")));
}

TEST(PageSource, GivesThePlaceOfThePageInItsFile)
{
    const auto document = ReadBytes(OnePage(""));
    const OrvPdf::PdfPageSource& source = SourceOf(*document->GetPagesBegin());
    const std::unique_ptr<QPDF> again = source.GetFile().OpenAgain();
    EXPECT_EQ(OrvPdf::FindPage(*again, source.GetLocator()).getObjectID(), 3);
}

} // namespace
