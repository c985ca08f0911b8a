#include "pdf/reader/file/object_places.h"

#include <gtest/gtest.h>

#include <string>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using HarrowSupport::Testing::PdfFile;
using OrvPdf::FindMisplacedObject;
using OrvPdf::ListObjectPlaces;
using OrvPdf::ObjectPlace;

const std::string file = PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>", "7"});

std::vector<ObjectPlace> PlacesOf(const std::string& bytes)
{
    const ReaderTests::OpenedFile opened(bytes);
    return ListObjectPlaces(opened.GetQpdf(), bytes);
}

TEST(ObjectPlaces, GoUpToTheNextObject)
{
    const std::vector<ObjectPlace> places = PlacesOf(file);
    ASSERT_EQ(places.size(), 3u);
    EXPECT_EQ(places[1].object, QPDFObjGen(2, 0));
    EXPECT_EQ(places[1].begin, file.find("2 0 obj"));
    EXPECT_EQ(places[1].end, file.find("3 0 obj"));
    EXPECT_EQ(places[2].end, file.size());
}

TEST(ObjectPlaces, AreInTheBytesAlsoIfTheHeaderIsNotAtTheirBeginning)
{
    EXPECT_EQ(PlacesOf("junk\n" + file)[0].begin, file.find("1 0 obj") + 5);
}

TEST(ObjectPlaces, HaveTheirObjects)
{
    EXPECT_FALSE(FindMisplacedObject(PlacesOf(file), file));
}

TEST(ObjectPlaces, MayHaveBlanksAndCommentsBeforeTheirObjects)
{
    const std::string bytes = "\n %x\n7 2 obj";
    EXPECT_FALSE(FindMisplacedObject({{QPDFObjGen(7, 2), 0, bytes.size()}}, bytes));
    EXPECT_FALSE(FindMisplacedObject({{QPDFObjGen(7, 2), 5, bytes.size()}}, bytes));
}

TEST(ObjectPlaces, TellWhereSomethingElseStands)
{
    for (const char* const bytes :
         {"", "7", "7 2", "7 2 x", "6 2 obj", "7 0 obj", "obj", "77777777777 2 obj"}) {
        EXPECT_TRUE(FindMisplacedObject({{QPDFObjGen(7, 2), 0, 0}}, bytes)) << bytes;
    }
}

TEST(ObjectPlaces, AreKeptByATableThatHasAllObjectsThatAreThere)
{
    const std::string bytes = "1 0 obj 2 0 obj";
    const std::vector<ObjectPlace> both = {{QPDFObjGen(1, 0), 0, 8}, {QPDFObjGen(2, 0), 8, 15}};
    const std::vector<ObjectPlace> second = {{QPDFObjGen(2, 0), 8, 15}};
    EXPECT_TRUE(OrvPdf::KeepsObjects(both, both, bytes));
    EXPECT_TRUE(OrvPdf::KeepsObjects(second, both, bytes));
    EXPECT_FALSE(OrvPdf::KeepsObjects(both, second, bytes));
    const std::vector<ObjectPlace> wrong = {{QPDFObjGen(7, 0), 0, 8}, {QPDFObjGen(2, 0), 8, 15}};
    EXPECT_TRUE(OrvPdf::KeepsObjects(wrong, second, bytes));
}

} // namespace
