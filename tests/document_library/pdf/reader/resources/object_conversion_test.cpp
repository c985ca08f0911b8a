#include "pdf/reader/resources/object_conversion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "document_library/pdf/reader/opened_file.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using OrvSys::PdfObject;
using testing::HasSubstr;

/// The value of the third object; those behind it have the numbers from 4.
struct Converted
{
    explicit Converted(std::vector<std::string> objects, const OrvDoc::ReadOptions& options = {})
    {
        objects.insert(objects.begin(), {"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>"});
        const ReaderTests::OpenedFile file(PdfFile(objects), options);
        OrvPdf::ObjectConverter converter(*file.Get());
        value = converter.Convert(file.GetObject(3), problem);
    }

    PdfObject value;
    std::string problem;
};

TEST(ObjectConversion, KeepsEachKind)
{
    const Converted converted({"[null true -7 1.50 (a\\)b) /Na#20me << /Key [1] >>]"});
    EXPECT_EQ(converted.value.Serialize(),
              PdfObject::Array({PdfObject::Null(), PdfObject::Boolean(true), PdfObject::Integer(-7),
                                PdfObject::Real("1.50"), PdfObject::String("a)b"), PdfObject::Name("Na me"),
                                PdfObject::Dictionary({{"Key", PdfObject::Array({PdfObject::Integer(1)})}})})
                  .Serialize());
    EXPECT_EQ(converted.problem, "");
}

TEST(ObjectConversion, ResolvesReferences)
{
    const Converted converted({"[4 0 R << /A 4 0 R >> 9 0 R]", "(text)"});
    EXPECT_EQ(converted.value, PdfObject::Array({PdfObject::String("text"),
                                                 PdfObject::Dictionary({{"A", PdfObject::String("text")}}),
                                                 PdfObject::Null()}));
}

TEST(ObjectConversion, DecodesStreams)
{
    const Converted converted({PdfStream("6162>", "/Filter /ASCIIHexDecode /Other 1")});
    EXPECT_EQ(converted.value,
              PdfObject::Stream(PdfObject::Dictionary({{"Other", PdfObject::Integer(1)}}), "ab"));
}

TEST(ObjectConversion, KeepsStreamsThatItCannotDecode)
{
    const Converted converted({PdfStream("xyz", "/Filter /DCTDecode")});
    EXPECT_EQ(converted.value,
              PdfObject::Stream(PdfObject::Dictionary({{"Filter", PdfObject::Name("DCTDecode")}}), "xyz"));
}

TEST(ObjectConversion, TellsAnObjectThatRefersToItself)
{
    const Converted converted({"[1 4 0 R]", "<< /Back 3 0 R >>"});
    EXPECT_TRUE(converted.value.IsNull());
    EXPECT_THAT(converted.problem, HasSubstr("object 3 0 refers to itself"));
}

TEST(ObjectConversion, TellsAnObjectThatIsNestedTooDeeply)
{
    OrvDoc::ReadOptions options;
    options.limits.objectNesting = 3;
    EXPECT_EQ(Converted({"[[[]]]"}, options).problem, "");
    EXPECT_THAT(Converted({"[[[[]]]]"}, options).problem, HasSubstr("limit objectNesting: 3 reached"));
}

TEST(ObjectConversion, TellsWhatGrowsWithoutEndThroughReferences)
{
    // Each object holds the next one ten times: ten to the power of 20 in all.
    std::vector<std::string> objects;
    for (int number = 4; number < 24; ++number) {
        std::string array = "[";
        for (int copy = 0; copy < 10; ++copy)
            array += std::to_string(number) + " 0 R ";
        objects.push_back(array + "]");
    }
    objects.push_back("1");
    const Converted converted(objects);
    EXPECT_TRUE(converted.value.IsNull());
    EXPECT_THAT(converted.problem, HasSubstr("parts"));
}

TEST(ObjectConversion, TellsAnObjectWithTooManyParts)
{
    std::string array = "[";
    for (int index = 0; index < 250001; ++index)
        array += "1 ";
    EXPECT_THAT(Converted({array + "]"}).problem, HasSubstr("more than 250000 parts"));
}

} // namespace
