#include "pdf/reader/file/stream_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "document_library/pdf/reader/opened_file.h"
#include "support/deflated.h"
#include "support/pdf_text.h"

namespace
{

using namespace HarrowSupport::Testing;
using testing::AllOf;
using testing::HasSubstr;

struct Result
{
    Result(const std::string& data, const std::string& entries, std::uint64_t limit = 1000000,
           const OrvDoc::ReadOptions& options = {})
    {
        const ReaderTests::OpenedFile file(
            PdfFile({"<< /Type /Catalog /Pages 2 0 R >>", "<< /Kids [] >>", PdfStream(data, entries)}),
            options);
        OrvPdf::DecodedStream decoded = OrvPdf::DecodeStream(
            *file.Get(), OrvPdf::FetchStream(file.GetObject(3)), {limit, "streamBytes", limit});
        bytes = decoded.bytes.View();
        problem = decoded.problem;
        isDecoded = decoded.isDecoded;
        left = file.Get()->GetDecodedBytesLeft();
    }

    std::string bytes;
    std::string problem;
    bool isDecoded;
    std::uint64_t left;
};

TEST(StreamData, IsTakenAsItIsWithoutAFilter)
{
    const Result result("0 0 m", "");
    EXPECT_EQ(result.bytes, "0 0 m");
    EXPECT_EQ(result.problem, "");
    EXPECT_TRUE(result.isDecoded);
}

TEST(StreamData, IsInflated)
{
    EXPECT_EQ(Result(Deflated("0 0 m"), "/Filter /FlateDecode").bytes, "0 0 m");
    EXPECT_EQ(Result(Deflated("0 0 m"), "/Filter [/Fl]").bytes, "0 0 m");
}

TEST(StreamData, IsDecodedByEachFilterInOrder)
{
    EXPECT_EQ(Result("3020 30206D>", "/Filter /ASCIIHexDecode").bytes, "0 0 m");
    EXPECT_EQ(Result("87cURD]i~>", "/Filter /ASCII85Decode").bytes, "Hello ");
    EXPECT_EQ(Result(std::string("\x02"
                                 "abc\xfdx\x80",
                                 7),
                     "/Filter /RunLengthDecode")
                  .bytes,
              "abcxxxx");
    EXPECT_EQ(Result("33303230>", "/Filter [/AHx /ASCIIHexDecode]").bytes, "0 ");
}

TEST(StreamData, IsDecodedWithThePredictorOfItsOwnFilter)
{
    // Two rows of three bytes, the second as differences to the first.
    const std::string rows = {0, 1, 2, 3, 2, 1, 1, 1};
    const std::string parameters = "<< /Predictor 12 /Columns 3 >>";
    const std::string expected = {1, 2, 3, 2, 3, 4};
    EXPECT_EQ(Result(Deflated(rows), "/Filter /FlateDecode /DecodeParms " + parameters).bytes, expected);
    EXPECT_EQ(Result(Deflated(rows), "/Filter [/FlateDecode] /DecodeParms [" + parameters + "]").bytes,
              expected);
}

TEST(StreamData, RefusesAPredictorWithUnreasonableRows)
{
    for (const char* parameters :
         {"/Columns 1 /Colors 536870913", "/Columns 9223372036854775807", "/Columns 0", "/Columns -3",
          "/BitsPerComponent 64", "/Columns 33554432 /Colors 2"}) {
        const Result result(Deflated("abc"),
                            std::string("/Filter /FlateDecode /DecodeParms << /Predictor 2 ") + parameters +
                                " >>");
        EXPECT_EQ(result.bytes, "") << parameters;
        EXPECT_THAT(result.problem, HasSubstr("out of range")) << parameters;
    }
}

TEST(StreamData, RefusesAPredictorThatIsNone)
{
    // Also where the limit is reached before the end of the encoded bytes.
    for (const char* predictor : {"3", "9", "16", "185"}) {
        const std::string entries =
            std::string("/Filter /FlateDecode /DecodeParms << /Predictor ") + predictor + " >>";
        for (const std::uint64_t limit : {2, 1000}) {
            const Result result(Deflated("abc"), entries, limit);
            EXPECT_EQ(result.bytes, "") << predictor;
            EXPECT_THAT(result.problem, HasSubstr(std::string("Predictor ") + predictor));
        }
    }
}

TEST(StreamData, HasNoPredictorUnderFiltersThatKnowNone)
{
    for (const char* predictor : {"7", "12"}) {
        const Result result("4142>", std::string("/Filter /ASCIIHexDecode /DecodeParms << /Predictor ") +
                                         predictor + " /Columns 0 >>");
        EXPECT_EQ(result.bytes, "AB") << predictor;
        EXPECT_EQ(result.problem, "") << predictor;
    }
}

TEST(StreamData, TakesZerosForWhiteSpaceInText)
{
    const Result hexadecimal(std::string("41\0"
                                         "42>",
                                         6),
                             "/Filter /ASCIIHexDecode");
    EXPECT_EQ(hexadecimal.bytes, "AB");
    EXPECT_EQ(hexadecimal.problem, "");
    const Result base85(std::string("87cU\0RD]i~>", 11), "/Filter /ASCII85Decode");
    EXPECT_EQ(base85.bytes, "Hello ");
    EXPECT_EQ(base85.problem, "");
}

TEST(StreamData, TakesAnyEarlyChangeButZeroForOne)
{
    const std::string encoded = "\x80\x0b\x60\x50\x22\x0c\x0c\x85\x01";
    const Result usual(encoded, "/Filter /LZWDecode");
    const Result odd(encoded, "/Filter /LZWDecode /DecodeParms << /EarlyChange 7 >>");
    EXPECT_EQ(usual.bytes, "-----A---B");
    EXPECT_EQ(odd.bytes, usual.bytes);
    EXPECT_EQ(odd.problem, "");
}

TEST(StreamData, TellsALimitByNameAndCutsOff)
{
    const Result result(Deflated("0123456789"), "/Filter /FlateDecode", 9);
    EXPECT_EQ(result.bytes, "012345678");
    EXPECT_THAT(result.problem, HasSubstr("limit streamBytes: 9 reached"));
    EXPECT_EQ(Result(Deflated("0123456789"), "/Filter /FlateDecode", 10).problem, "");
}

TEST(StreamData, IsCutOffAtTheLimitWithoutAFilterToo)
{
    const Result result("0123456789", "", 9);
    EXPECT_EQ(result.bytes, "012345678");
    EXPECT_THAT(result.problem, HasSubstr("limit streamBytes: 9 reached"));
    EXPECT_EQ(Result("0123456789", "", 10).problem, "");
}

TEST(StreamData, IsCutOffAtTheLimitByEveryFilter)
{
    const Result result("30313233343536373839>", "/Filter /ASCIIHexDecode", 9);
    EXPECT_EQ(result.bytes, "012345678");
    EXPECT_THAT(result.problem, HasSubstr("limit streamBytes: 9 reached"));
}

TEST(StreamData, IsCutOffBetweenFilters)
{
    // Blanks without end that the second filter makes nothing of.
    const Result result(Deflated(std::string(100000, ' ') + "41>"), "/Filter [/FlateDecode /ASCIIHexDecode]",
                        1000);
    EXPECT_EQ(result.bytes, "");
    EXPECT_THAT(result.problem, HasSubstr("limit streamBytes: 1000 reached"));
}

TEST(StreamData, IsCutOffWhereTheDocumentHasNoBytesLeft)
{
    OrvDoc::ReadOptions options;
    options.limits.documentBytes = 7;
    const Result result(Deflated("0123456789"), "/Filter /FlateDecode", 1000, options);
    EXPECT_EQ(result.bytes, "0123456");
    EXPECT_THAT(result.problem, HasSubstr("limit documentBytes: 7 reached"));
    EXPECT_EQ(result.left, 0u);
}

TEST(StreamData, TellsDamageUnderAPredictor)
{
    std::string encoded = Deflated(std::string(100, '\0'));
    encoded.back() = static_cast<char>(encoded.back() + 1);
    for (const char* predictor : {"1", "2", "12"}) {
        const Result result(encoded,
                            std::string("/Filter /FlateDecode /DecodeParms << /Columns 4 /Predictor ") +
                                predictor + " >>");
        EXPECT_THAT(result.problem, HasSubstr("incorrect data check")) << predictor;
    }
}

TEST(StreamData, GivesRowsUnderAPredictorUpToTheDamage)
{
    std::string rows;
    for (int i = 0; i < 3000; ++i)
        rows += {0, static_cast<char>(i * i), static_cast<char>(i / 7)};
    const std::string encoded = Deflated(rows);
    const Result whole(encoded, "/Filter /FlateDecode /DecodeParms << /Columns 2 /Predictor 12 >>");
    const Result cut(encoded.substr(0, encoded.size() / 2),
                     "/Filter /FlateDecode /DecodeParms << /Columns 2 /Predictor 12 >>");
    EXPECT_GT(cut.bytes.size(), whole.bytes.size() / 4);
    EXPECT_EQ(cut.bytes, whole.bytes.substr(0, cut.bytes.size()));
    EXPECT_THAT(cut.problem, HasSubstr("ends early"));
}

TEST(StreamData, GivesWhatCameOutOfBrokenData)
{
    const std::string encoded = Deflated(std::string(1000, 'x') + "end");
    const Result result(encoded.substr(0, encoded.size() - 8), "/Filter /FlateDecode");
    EXPECT_THAT(result.bytes, testing::StartsWith("xxxx"));
    EXPECT_THAT(result.problem, HasSubstr("ends early"));
    EXPECT_TRUE(result.isDecoded);
}

TEST(StreamData, TellsBrokenDataOfOtherFilters)
{
    EXPECT_THAT(Result("30xx", "/Filter /ASCIIHexDecode").problem,
                AllOf(HasSubstr("ASCIIHexDecode"), HasSubstr("damaged")));
    EXPECT_THAT(Result("\xff\xff\xff\xff", "/Filter /LZWDecode").problem,
                AllOf(HasSubstr("LZWDecode"), HasSubstr("damaged")));
}

TEST(StreamData, IsNotDecodedByFiltersOfPictures)
{
    const Result result("abc", "/Filter /DCTDecode");
    EXPECT_FALSE(result.isDecoded);
    EXPECT_EQ(result.bytes, "");
    EXPECT_THAT(result.problem, HasSubstr("DCTDecode"));
}

TEST(StreamData, TellsAnUnknownFilter)
{
    const Result result("abc", "/Filter /MagicDecode");
    EXPECT_FALSE(result.isDecoded);
    EXPECT_THAT(result.problem, HasSubstr("MagicDecode"));
}

TEST(StreamData, TellsAMalformedFilter)
{
    EXPECT_THAT(Result("abc", "/Filter 7").problem, HasSubstr("neither a name nor an array"));
    EXPECT_THAT(Result("abc", "/Filter [7]").problem, HasSubstr("entry 1 of Filter is no name"));
}

TEST(StreamData, RefusesAChainOfFiltersWithoutEnd)
{
    std::string filters;
    for (int index = 0; index < 17; ++index)
        filters += "/AHx ";
    EXPECT_THAT(Result("30>", "/Filter [" + filters + "]").problem, HasSubstr("17 entries"));
}

TEST(StreamData, IsNotFetchedFromAnotherFile)
{
    EXPECT_THAT(Result("abc", "/F (other.bin)").problem, HasSubstr("another file"));
}

} // namespace
