// Fonts of files in the files that are saved: as the object that they are, or copied whole.

#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/clone.h>
#include <orv_doc/text_group.h>

#include "text_file.h"

namespace OrvPdf::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

const std::string mapping = "/CIDInit /ProcSet findresource begin 12 dict begin begincmap\n"
                            "1 begincodespacerange <00> <FF> endcodespacerange\n"
                            "1 beginbfchar <41> <03A9> endbfchar\nendcmap end end";

/// A font that is embedded, with a ToUnicode map in the next object and its program in the one behind that.
std::vector<std::string> EmbeddedFont(int number)
{
    const auto reference = [number](int offset) { return std::to_string(number + offset) + " 0 R"; };
    return {"<< /Type /Font /Subtype /TrueType /BaseFont /ABCDEF+Mine /FirstChar 65 /LastChar 66 "
            "/Widths [700 800] /Encoding /WinAnsiEncoding /ToUnicode " +
                reference(1) + " /FontDescriptor " + reference(2) + " /Private << /Kept true >> >>",
            HarrowSupport::Testing::PdfStream(mapping),
            "<< /Type /FontDescriptor /FontName /ABCDEF+Mine /Flags 32 /FontBBox [0 -200 1000 800] "
            "/ItalicAngle 0 /Ascent 800 /Descent -200 /CapHeight 700 /StemV 80 /FontFile2 " +
                reference(3) + " >>",
            HarrowSupport::Testing::PdfStream(
                HarrowSupport::Testing::FileBytes(
                    "/usr/share/fonts/truetype/liberation2/LiberationMono-Regular.ttf"),
                "/Length1 1")};
}

const std::string embedded = "/Font << /E 5 0 R >>";

OrvDoc::Text& FirstText(OrvDoc::Content& content)
{
    return dynamic_cast<OrvDoc::Text&>(
        *dynamic_cast<OrvDoc::TextGroup&>(*content.GetChildren().first).children.first);
}

class FileFontsWritten : public ::testing::Test
{
protected:
    /// All pages of a document, copied into one of their own.
    static std::unique_ptr<OrvDoc::Document> CopyOf(OrvDoc::Document& source, std::size_t pages)
    {
        auto copy = HarrowSupport::Testing::NewDocument(pages);
        OrvDoc::CloneStrategy strategy(*copy, OrvDoc::CloneStrategy::CloneFlags::Full);
        for (std::size_t page = 0; page < pages; ++page) {
            OrvDoc::CloneContent(HarrowSupport::Testing::ContentOf(source, page),
                                 HarrowSupport::Testing::ContentOf(*copy, page), strategy);
        }
        return copy;
    }

    void ExpectWholeFont(QPDFObjectHandle font)
    {
        EXPECT_EQ(font.getKey("/BaseFont").getName(), "/ABCDEF+Mine");
        EXPECT_TRUE(font.getKey("/Private").isDictionary());
        EXPECT_EQ(font.getKey("/Widths").getArrayNItems(), 2);
        const auto map = font.getKey("/ToUnicode").getStreamData();
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(map->getBuffer()), map->getSize()), mapping);
        const auto program = font.getKey("/FontDescriptor").getKey("/FontFile2").getStreamData();
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(program->getBuffer()), program->getSize()),
                  HarrowSupport::Testing::FileBytes(
                      "/usr/share/fonts/truetype/liberation2/LiberationMono-Regular.ttf"));
    }

    TextFile file;
};

TEST_F(FileFontsWritten, AFontOfTheSameFileStaysTheObjectThatItIs)
{
    file.Read({"BT /E 10 Tf (AB) Tj ET"}, embedded, EmbeddedFont(5));
    ASSERT_THAT(file.Errors(), IsEmpty());
    file.Page().MarkChanged();
    file.Save();
    const auto fonts = file.SavedFonts();
    ASSERT_THAT(fonts, SizeIs(1));
    EXPECT_THAT(file.Errors(), IsEmpty());
    ExpectWholeFont(fonts[0]);
}

TEST_F(FileFontsWritten, AFontOfManyPagesIsOneObject)
{
    file.Read({"BT /E 10 Tf (A) Tj ET", "BT /E 10 Tf (B) Tj ET", "BT /E 10 Tf (AB) Tj ET"},
              "/Font << /E 9 0 R >>", EmbeddedFont(9));
    for (std::size_t page = 0; page < 3; ++page)
        file.Page(page).MarkChanged();
    file.Save();
    std::set<int> numbers;
    for (int page = 0; page < 3; ++page) {
        const auto fonts = file.SavedFonts(page);
        ASSERT_THAT(fonts, SizeIs(1));
        numbers.insert(QPDFObjectHandle(fonts[0]).getObjectID());
    }
    EXPECT_THAT(numbers, SizeIs(1));
}

TEST_F(FileFontsWritten, AFontThatStandsInTheResourcesItselfIsWrittenWhole)
{
    const auto objects = EmbeddedFont(5);
    file.Read({"BT /E 10 Tf (AB) Tj ET"}, "/Font << /E " + objects[0] + " >>", objects);
    ASSERT_THAT(file.Errors(), IsEmpty());
    const auto before = file.Shown();
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
    const auto fonts = file.SavedFonts();
    ASSERT_THAT(fonts, SizeIs(1));
    ExpectWholeFont(fonts[0]);
}

TEST_F(FileFontsWritten, AFontInTheResourcesOfTwoPagesIsWrittenForBoth)
{
    const auto objects = EmbeddedFont(7);
    file.Read({"BT /E 10 Tf (A) Tj ET", "BT /E 10 Tf (B) Tj ET"}, "/Font << /E " + objects[0] + " >>",
              objects);
    const std::vector<std::vector<std::string>> before{file.Shown(0), file.Shown(1)};
    file.Page(0).MarkChanged();
    file.Page(1).MarkChanged();
    file.Reopen();
    EXPECT_EQ(file.Shown(0), before[0]);
    EXPECT_EQ(file.Shown(1), before[1]);
    ASSERT_THAT(file.SavedFonts(0), SizeIs(1));
    ASSERT_THAT(file.SavedFonts(1), SizeIs(1));
}

TEST_F(FileFontsWritten, AFontOfAnotherDocumentIsCopiedWhole)
{
    file.Read({"BT /E 10 Tf (AB) Tj ET"}, embedded, EmbeddedFont(5));
    const auto before = file.Shown();
    file.document = CopyOf(*file.document, 1);
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
    EXPECT_THAT(file.Errors(), IsEmpty());
    const auto fonts = file.SavedFonts();
    ASSERT_THAT(fonts, SizeIs(1));
    ExpectWholeFont(fonts[0]);
}

TEST_F(FileFontsWritten, AFontThatManyPagesOfAnotherDocumentShareIsCopiedOnce)
{
    file.Read({"BT /E 10 Tf (A) Tj ET", "BT /E 10 Tf (B) Tj ET"}, "/Font << /E 7 0 R >>", EmbeddedFont(7));
    file.document = CopyOf(*file.document, 2);
    file.Save();
    const auto first = file.SavedFonts(0);
    ASSERT_THAT(first, SizeIs(1));
    const int number = QPDFObjectHandle(first[0]).getObjectID();
    const auto second = file.SavedFonts(1);
    ASSERT_THAT(second, SizeIs(1));
    EXPECT_EQ(QPDFObjectHandle(second[0]).getObjectID(), number);
}

TEST_F(FileFontsWritten, FontsOfTwoDocumentsStandBesideEachOther)
{
    file.Read({"BT /E 10 Tf (A) Tj ET"}, embedded, EmbeddedFont(5));
    TextFile other;
    auto objects = EmbeddedFont(5);
    objects[0].replace(objects[0].find("[700 800]"), 9, "[100 200]");
    other.Read({"BT /E 10 Tf (B) Tj ET"}, embedded, objects);
    OrvDoc::CloneStrategy strategy(*file.document, OrvDoc::CloneStrategy::CloneFlags::Full);
    OrvDoc::CloneContent(other.Page(), file.Page(), strategy);
    other.document.reset();
    const auto before = file.Shown();
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
    std::vector<double> advances;
    for (const OrvDoc::ContentObject* object = file.Page().GetChildren().first; object;
         object = object->next) {
        const auto& group = dynamic_cast<const OrvDoc::TextGroup&>(*object);
        const auto& text = dynamic_cast<const OrvDoc::Text&>(*group.children.first);
        advances.push_back(text.GetFont()->GetAdvance(text.GetText()[0].character));
    }
    EXPECT_THAT(advances, ElementsAre(700.0, 200.0));
    const auto fonts = file.SavedFonts();
    ASSERT_THAT(fonts, SizeIs(2));
}

TEST_F(FileFontsWritten, AType3FontOfAnotherDocumentIsCopiedWithItsGlyphs)
{
    file.Read({"BT /T3 10 Tf (AA) Tj ET"}, "/Font << /T3 5 0 R >>",
              {"<< /Type /Font /Subtype /Type3 /FontBBox [0 0 1 1] /FontMatrix [1 0 0 1 0 0] /FirstChar 65 "
               "/LastChar 65 /Widths [1] /Encoding << /Differences [65 /A] >> /CharProcs << /A 6 0 R >> "
               "/Resources << >> >>",
               HarrowSupport::Testing::PdfStream("1 0 d0 1 0 0 rg 0 0 1 1 re f")});
    const auto before = file.Shown();
    ASSERT_THAT(before, SizeIs(2));
    file.document = CopyOf(*file.document, 1);
    file.Reopen();
    EXPECT_EQ(file.Shown(), before);
}

TEST_F(FileFontsWritten, AFontThatNobodyUsesAnyMoreIsNotAmongTheResources)
{
    file.Read({"BT /E 10 Tf (A) Tj ET BT /H 10 Tf (B) Tj ET"},
              "/Font << /E 5 0 R /H << /Type /Font /Subtype /Type1 /BaseFont /Courier >> >>",
              EmbeddedFont(5));
    delete file.Page().GetChildren().first;
    file.Reopen();
    ASSERT_THAT(file.Shown(), SizeIs(1));
    const auto fonts = file.SavedFonts();
    ASSERT_THAT(fonts, SizeIs(1));
    EXPECT_EQ(QPDFObjectHandle(fonts[0]).getKey("/BaseFont").getName(), "/Courier");
    const std::string bytes = HarrowSupport::Testing::FileBytes(file.Path());
    EXPECT_THAT(bytes, Not(HasSubstr("FontFile2"))) << "nothing leads to the program any more";
}

TEST_F(FileFontsWritten, ASecondSavingWritesTheSame)
{
    file.Read({"BT /E 10 Tf (A) Tj ET"}, embedded, EmbeddedFont(5));
    file.Page().MarkChanged();
    file.Save();
    const std::string first = HarrowSupport::Testing::FileBytes(file.Path());
    file.Save();
    EXPECT_TRUE(HarrowSupport::Testing::FileBytes(file.Path()) == first);
}

TEST_F(FileFontsWritten, ACharacterOfTheFontThatTheFileDidNotShowIsWrittenInIt)
{
    file.Read({"BT /E 10 Tf (A) Tj ET"}, embedded, EmbeddedFont(5));
    OrvDoc::Text& text = FirstText(file.Page());
    auto added = std::make_unique<OrvDoc::Text>(std::vector<OrvDoc::TextCharacter>{{{66, 66, 1}, 0, 0}},
                                                text.GetFont(), 20.0);
    dynamic_cast<OrvDoc::TextGroup&>(*file.Page().GetChildren().first).AddOnTop(added.release());
    file.Page().MarkChanged();
    file.Reopen();
    EXPECT_THAT(file.Shown(), ElementsAre(HasSubstr("(A)"), HasSubstr("20 (B)")));
    EXPECT_THAT(file.SavedFonts(), SizeIs(1));
}

} // namespace
} // namespace OrvPdf::Testing
