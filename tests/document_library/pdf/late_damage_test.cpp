// Damage that nobody can see before samples or font programs are decoded: it is an error of the document,
// told once, from the call on that came upon it.

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/text.h>

#include "support/damaged_pictures.h"
#include "support/error_texts.h"
#include "support/file_bytes.h"
#include "support/picture_makers.h"
#include "support/temporary_folder.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const OrvDoc::Text* FirstText(const OrvDoc::Detail::List<OrvDoc::ContentObject>& objects)
{
    for (const OrvDoc::ContentObject* object = objects.first; object; object = object->next) {
        if (const auto* const text = dynamic_cast<const OrvDoc::Text*>(object))
            return text;
        const auto* const group = dynamic_cast<const OrvDoc::Group*>(object);
        if (const OrvDoc::Text* const text = group ? FirstText(group->children) : nullptr)
            return text;
    }
    return nullptr;
}

/// The same picture for another separation: no encoded data of a file say that, so it is written anew.
PaintedPointer ForGold(const PaintedPointer& picture, const OrvDoc::Document& document)
{
    OrvImg::PaintedPicture::ChannelMapping mapping;
    mapping.Add("Gold", {0, {0.0, 1.0}});
    return OrvImg::PaintedPicture::Factory(document, picture->GetPictureData(false), false)
        .SetChannelMapping(mapping)
        .Get();
}

class LateDamage : public ::testing::Test
{
protected:
    void Read(const std::string& bytes, const OrvDoc::ReadOptions& options = {})
    {
        document = OrvDoc::Document::Create(folder.Write("in.pdf", bytes), options);
    }

    std::vector<std::string> Errors() { return TextsOf(document->GetActiveErrors()); }
    std::vector<std::string> PageErrors(std::size_t page = 0)
    {
        return TextsOf(ContentOf(*document, page).GetActiveErrors());
    }

    /// Decodes a picture of the first page.
    void Decode(std::size_t index = 0) { PicturesOf(ContentOf(*document)).at(index)->GetPictureBuffer(); }

    PaintedPointer FirstPicture()
    {
        return dynamic_cast<const OrvDoc::Image&>(*ContentOf(*document).GetChildren().last)
            .GetPaintedPicture();
    }

    TemporaryFolder folder;
    std::unique_ptr<OrvDoc::Document> document;
};

TEST_F(LateDamage, IsNotKnownBeforeSomebodyLooks)
{
    Read(FileOfDamagedPictures(1));
    EXPECT_THAT(PageErrors(), IsEmpty());
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(LateDamage, IsAnErrorOfTheDocumentAtOnce)
{
    Read(FileOfDamagedPictures(1));
    Decode();
    EXPECT_THAT(Errors(), ElementsAre(DamageOf(FirstDamagedObject())));
    EXPECT_THAT(PageErrors(), IsEmpty());
}

TEST_F(LateDamage, IsSeenInAListThatSomebodyHolds)
{
    Read(FileOfDamagedPictures(1));
    const OrvDoc::Errors& errors = document->GetActiveErrors();
    Decode();
    EXPECT_THAT(TextsOf(errors), ElementsAre(DamageOf(FirstDamagedObject())));
}

TEST_F(LateDamage, IsNotToldWithThePageThatIsReadNext)
{
    Read(FileOfDamagedPictures(1, 2));
    Decode();
    EXPECT_THAT(PageErrors(1), IsEmpty());
    EXPECT_THAT(Errors(), ElementsAre(DamageOf(FirstDamagedObject(2))));
}

TEST_F(LateDamage, IsToldOnce)
{
    Read(FileOfDamagedPictures(2));
    Decode(1);
    Decode(0);
    Decode(1);
    EXPECT_THAT(Errors(), ElementsAre(DamageOf(FirstDamagedObject() + 1), DamageOf(FirstDamagedObject())));
}

TEST_F(LateDamage, StaysTheSameObjectWhileMoreIsFoundAndTheDocumentIsWritten)
{
    Read(FileOfDamagedPictures(2));
    Decode(0);
    const auto first = document->GetActiveErrors().GetAllErrors().at(0);
    Decode(1);
    document->Flush();
    EXPECT_EQ(document->GetActiveErrors().GetAllErrors().at(0), first);
}

TEST_F(LateDamage, IsFoundAnewInADocumentThatIsReadAgain)
{
    Read(FileOfDamagedPictures(1));
    Decode();
    document->Save(folder.NameOf("out.pdf"), OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    Read(FileBytes(folder.NameOf("out.pdf")));
    EXPECT_THAT(Errors(), IsEmpty());
    Decode();
    EXPECT_THAT(Errors(),
                ElementsAre(AllOf(StartsWith("the picture in object "), HasSubstr("its data ends"))));
}

TEST_F(LateDamage, MayBeFoundWhenTheDocumentIsGone)
{
    Read(FileOfDamagedPictures(1));
    const auto picture = PicturesOf(ContentOf(*document)).at(0);
    document.reset();
    EXPECT_EQ(picture->GetPictureBuffer()->width, 2u);
}

TEST_F(LateDamage, IsCountedAgainstTheLimitOfErrors)
{
    OrvDoc::ReadOptions options;
    options.limits.errors = 2;
    Read(FileOfDamagedPictures(4), options);
    for (std::size_t index = 0; index < 4; ++index)
        Decode(index);
    EXPECT_THAT(Errors(), ElementsAre(DamageOf(FirstDamagedObject()), DamageOf(FirstDamagedObject() + 1),
                                      "limit errors: 2 reached, more problems were found after reading"));
}

TEST_F(LateDamage, OfInlineImagesNamesThePage)
{
    const std::string image = "BI /W 2 /H 1 /BPC 8 /CS /G /F /AHx ID 07> EI\n";
    Read(PdfFileOfPages({"0 0 1 1 re f", image + image}));
    for (const auto& picture : PicturesOf(ContentOf(*document, 1)))
        picture->GetPictureBuffer();
    EXPECT_THAT(
        Errors(),
        ElementsAre("the picture in inline image 1 of page 2: its data ends after 1 bytes of samples",
                    "the picture in inline image 2 of page 2: its data ends after 1 bytes of samples"));
}

TEST_F(LateDamage, OfAFontNamesTheFont)
{
    Read(PdfFileOfPages(
        {"BT /F 10 Tf (A) Tj ET", ""}, "", "/Font << /F 7 0 R >>",
        {"<< /Type /Font /Subtype /Type1 /BaseFont /Made /FirstChar 65 /LastChar 65 /Widths [600] "
         "/Encoding /WinAnsiEncoding /FontDescriptor 8 0 R >>",
         "<< /Type /FontDescriptor /FontName /Made /Flags 4 /FontBBox [0 0 1 1] /FontFamily (Made) "
         "/FontFile 9 0 R >>",
         PdfStream("this is no program")}));
    const OrvDoc::Text* const text = FirstText(ContentOf(*document).GetChildren());
    ASSERT_NE(text, nullptr);
    EXPECT_THAT(PageErrors(), IsEmpty());
    text->OriginalCompounds();
    EXPECT_THAT(Errors(), ElementsAre(HasSubstr("the font Made is damaged")));
    EXPECT_THAT(PageErrors(1), IsEmpty());
}

TEST_F(LateDamage, FoundByWritingIsToldByIt)
{
    Read(FileOfDamagedPictures(1));
    Fill(ContentOf(*document), ImageOf(ForGold(FirstPicture(), *document)));
    document->Flush();
    EXPECT_THAT(Errors(), ElementsAre(DamageOf(FirstDamagedObject())));
}

TEST_F(LateDamage, OfAPictureOfAFileThatIsGoneIsToldWhereItIsWritten)
{
    Read(FileOfDamagedPictures(1));
    const PaintedPointer picture = FirstPicture();
    document = NewDocument(1);
    Fill(ContentOf(*document), ImageOf(ForGold(picture, *document)));
    document->Flush();
    EXPECT_THAT(Errors(), ElementsAre("the picture in object 5 0 of " + folder.NameOf("in.pdf") +
                                      ": its data ends after 1 bytes of samples"));
    const auto before = document->GetActiveErrors().GetAllErrors();
    document->Flush();
    EXPECT_EQ(document->GetActiveErrors().GetAllErrors(), before);
}

} // namespace
} // namespace HarrowSupport::Testing
