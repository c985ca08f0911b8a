#include "pdf/reader/trailer_repair.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include <orv_doc/document.h>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using OrvPdf::MakeTrailer;

TEST(TrailerRepair, RefersToTheLastCatalogue)
{
    EXPECT_EQ(
        MakeTrailer("1 0 obj << /Type /Catalog >> endobj 12 3 obj\n<< /Pages 4 0 R /Type/Catalog >> endobj"),
        "\ntrailer\n<< /Root 12 3 R >>\n");
}

TEST(TrailerRepair, PassesOverWhatIsNoObject)
{
    EXPECT_EQ(MakeTrailer("1 0 obj << /Type /Catalog >> endobj /Catalog"), "\ntrailer\n<< /Root 1 0 R >>\n");
    EXPECT_EQ(MakeTrailer("1 0 obj << /Type /Catalog >> endobj x obj /Catalog"),
              "\ntrailer\n<< /Root 1 0 R >>\n");
}

TEST(TrailerRepair, MakesNoneWithoutACatalogue)
{
    EXPECT_EQ(MakeTrailer(""), "");
    EXPECT_EQ(MakeTrailer("/Catalog"), "");
    EXPECT_EQ(MakeTrailer("1 0 obj << /Type /Page >> endobj"), "");
}

TEST(TrailerRepair, MakesNoneForAnEncryptedFile)
{
    EXPECT_EQ(MakeTrailer("1 0 obj << /Type /Catalog >> endobj << /Encrypt 2 0 R >>"), "");
}

TEST(TrailerRepair, LetsAFileWithoutATrailerBeRead)
{
    const std::string bytes = HarrowSupport::Testing::PdfFileOfPages({"", ""});
    const auto document = ReaderTests::ReadBytes(bytes.substr(0, bytes.rfind("xref\n0")));
    EXPECT_EQ(document->GetNumberOfPages(), 2u);
    EXPECT_TRUE(document->GetInfoFlag(OrvDoc::DocumentInfoFlagKey::Repaired));
    EXPECT_THAT(ReaderTests::TextsOf(document->GetActiveErrors()),
                testing::Contains(testing::HasSubstr("a trailer made for it")));
}

} // namespace
