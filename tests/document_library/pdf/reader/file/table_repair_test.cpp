#include "pdf/reader/file/table_repair.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include <orv_doc/document.h>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using OrvPdf::MakeTable;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

constexpr const char* catalogue = "1 0 obj << /Type /Catalog /Pages 2 0 R >> endobj\n";
constexpr const char* pages = "2 0 obj << /Type /Pages /Kids [3 0 R] /Count 1 >> endobj\n";
constexpr const char* page = "3 0 obj << /Type /Page /Parent 2 0 R /MediaBox [0 0 9 9] >> endobj\n";

TEST(TableRepair, ListsEachObjectWithItsPlace)
{
    EXPECT_EQ(MakeTable("%PDF-1.4\n1 0 obj << /Type /Catalog >> endobj 3 2 obj 7 endobj"),
              "\nxref\n0 1\n0000000000 65535 f \n1 1\n0000000009 00000 n \n3 1\n0000000045 00002 n \n"
              "trailer\n<< /Size 4 /Root 1 0 R >>\nstartxref\n62\n%%EOF\n");
}

TEST(TableRepair, CountsPlacesFromTheHeader)
{
    const std::string file = "%PDF-1.4\n1 0 obj << /Type /Catalog >> endobj";
    EXPECT_EQ(MakeTable("junk" + file), MakeTable(file));
}

TEST(TableRepair, TakesTheLastOfSeveralObjectsOfANumber)
{
    EXPECT_THAT(MakeTable("%PDF-1.4\n2 0 obj 7 endobj 1 0 obj << /Type /Catalog >> endobj\n2 0 obj 8 endobj"),
                HasSubstr("\n0000000062 00000 n \ntrailer"));
}

TEST(TableRepair, RefersToTheLastCatalogue)
{
    EXPECT_THAT(
        MakeTable("%PDF-1.4\n1 0 obj << /Type /Catalog >> endobj 12 3 obj\n<< /Type/Catalog >> endobj"),
        HasSubstr("/Root 12 3 R"));
}

TEST(TableRepair, PassesOverWhatIsNoObject)
{
    const std::string bytes = "%PDF-1.4\n1 0 obj << /Type /Catalog >> endobj ";
    for (const char* const more : {"/Catalog", "x obj /Catalog", "123456789012 0 obj /Catalog"}) {
        EXPECT_THAT(MakeTable(bytes + more), HasSubstr("/Size 2 /Root 1 0 R")) << more;
    }
}

TEST(TableRepair, MakesNoneWithoutACatalogue)
{
    EXPECT_EQ(MakeTable(""), "");
    EXPECT_EQ(MakeTable("/Catalog"), "");
    EXPECT_EQ(MakeTable("1 0 obj << /Type /Page >> endobj"), "");
}

TEST(TableRepair, WritesTheObjectsOfAnObjectStreamOnTheirOwn)
{
    const std::string table = MakeTable("%PDF-1.5\n5 0 obj << /Type /ObjStm /N 2 /First 9 >>\nstream\n"
                                        "1 0 7 21 << /Type /Catalog >> [3]\nendstream endobj");
    EXPECT_THAT(table, HasSubstr("\n1 0 obj\n<< /Type /Catalog >> \nendobj\n"));
    EXPECT_THAT(table, HasSubstr("\n7 0 obj\n[3]\n\nendobj\n"));
    EXPECT_THAT(table, HasSubstr("/Root 1 0 R"));
}

TEST(TableRepair, LeavesOutWhatAnObjectStreamHasNoPlaceFor)
{
    const std::string table =
        MakeTable("%PDF-1.5\n5 0 obj << /Type /ObjStm /N 2147483647 /First 10 >>\nstream\n"
                  "1 0 7 999 << /Type /Catalog >>\nendstream endobj");
    EXPECT_THAT(table, HasSubstr("\n1 0 obj\n"));
    EXPECT_THAT(table, Not(HasSubstr("\n7 0 obj\n")));
}

TEST(TableRepair, KeepsTheEntriesThatDecryptAFile)
{
    const std::string bytes = "%PDF-1.4\n1 0 obj << /Type /Catalog >> endobj 2 0 obj << /V 1 >> endobj\n";
    EXPECT_THAT(MakeTable(bytes + "<< /Encrypt 2 0 R /ID [<41> <42>] >>"),
                HasSubstr("/Root 1 0 R /Encrypt 2 0 R /ID [<41> <42>] >>"));
    EXPECT_THAT(MakeTable(bytes + "<< /Encrypt 1 3 R >>"), HasSubstr("/Encrypt 1 3 R"));
}

TEST(TableRepair, TakesAFileForPlainWhoseEncryptionDictionaryIsLost)
{
    EXPECT_THAT(
        MakeTable("%PDF-1.4\n1 0 obj << /Type /Catalog >> endobj << /Encrypt 2 0 R /EncryptX 1 0 R >>"),
        HasSubstr("/Root 1 0 R >>"));
}

TEST(TableRepair, LetsAFileWithoutATrailerBeRead)
{
    const std::string bytes = HarrowSupport::Testing::PdfFileOfPages({"", ""});
    const auto document = ReaderTests::ReadBytes(bytes.substr(0, bytes.rfind("xref\n0")));
    EXPECT_EQ(document->GetNumberOfPages(), 2u);
    EXPECT_TRUE(document->GetInfoFlag(OrvDoc::DocumentInfoFlagKey::Repaired));
    EXPECT_THAT(ReaderTests::TextsOf(document->GetActiveErrors()),
                Contains(HasSubstr("a cross-reference table made for it")));
}

TEST(TableRepair, LetsAFileBeReadWhoseObjectsAreInAnObjectStream)
{
    const std::string first = "<< /Type /Catalog /Pages 2 0 R >>";
    const std::string heads = "1 0 2 " + std::to_string(first.size()) + " ";
    const std::string data = heads + first + "<< /Type /Pages /Kids [3 0 R] >>";
    const std::string entries = "/Type /ObjStm /N 2 /First " + std::to_string(heads.size());
    const auto document = ReaderTests::ReadBytes(
        "%PDF-1.5\n5 0 obj\n" + HarrowSupport::Testing::PdfStream(data, entries) + "\nendobj\n" + page);
    EXPECT_EQ(document->GetNumberOfPages(), 1u);
}

TEST(TableRepair, LetsAFileBeReadThatHasAnObjectWithAHugeNumber)
{
    const auto document = ReaderTests::ReadBytes(std::string("%PDF-1.4\n") + catalogue + pages + page +
                                                 "\n9223372036854775807 0 obj\n7\nendobj\n");
    EXPECT_EQ(document->GetNumberOfPages(), 1u);
}

TEST(TableRepair, LetsAFileBeReadWhoseEncryptionIsLost)
{
    const auto document =
        ReaderTests::ReadBytes(std::string("%PDF-1.4\n") + catalogue + pages + page +
                               "trailer\n<< /Root 1 0 R /Encrypt 9 0 R /ID [<41> <41>] >>\n");
    EXPECT_EQ(document->GetNumberOfPages(), 1u);
}

} // namespace
