#include <vantry/uri.h>

#include <random>
#include <stdexcept>
#include <string>
#include <utility>

#include <boost/filesystem/path.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vantry/uri_exception.h>

namespace
{

using boost::filesystem::path;
using boost::network::uri::uri;
using ::testing::HasSubstr;
using Vantry::GetDisplayPath;
using Vantry::ToURI;
using Vantry::ToUTF8String;

TEST(ToURITest, AbsolutePathIsAFileURI)
{
    EXPECT_EQ(ToURI("/in/a.pdf").string(), "file:///in/a.pdf");
    EXPECT_EQ(ToURI("/").string(), "file:///");
}

TEST(ToURITest, RelativePathIsARelativeReference)
{
    EXPECT_EQ(ToURI("in/a.pdf").string(), "in/a.pdf");
    EXPECT_EQ(ToURI("../a.pdf").string(), "../a.pdf");
    EXPECT_EQ(ToURI(".").string(), ".");
}

TEST(ToURITest, DelimitersAndBlanksAreEncoded)
{
    EXPECT_EQ(ToURI("/a b#c?d%e\\f\"g").string(), "file:///a%20b%23c%3Fd%25e%5Cf%22g");
    EXPECT_EQ(ToURI("/%20").string(), "file:///%2520");
}

TEST(ToURITest, SegmentCharactersStayPlain)
{
    const std::string plain = "/-._~!$&'()*+,;=:@aZ09";
    EXPECT_EQ(ToURI(plain).string(), "file://" + plain);
}

TEST(ToURITest, NonASCIINamesAreEncodedByTheirUTF8Bytes)
{
    EXPECT_EQ(ToURI("/\xC3\xA4/\xF0\x9F\x98\x80").string(), "file:///%C3%A4/%F0%9F%98%80");
}

TEST(ToURITest, BytesThatAreNotUTF8AreEncodedOneByOne)
{
    EXPECT_EQ(ToURI("/a\xFF\xC3.pdf").string(), "file:///a%FF%C3.pdf");
}

TEST(ToURITest, DriveLetterStartsAnAbsolutePath)
{
    EXPECT_EQ(ToURI("C:/in/a b.pdf").string(), "file:///C:/in/a%20b.pdf");
    EXPECT_EQ(ToURI("C:").string(), "file:///C:");
}

TEST(ToURITest, ColonWithoutADriveIsEncodedInARelativePath)
{
    EXPECT_EQ(ToURI("a:b.pdf").string(), "a%3Ab.pdf");
    EXPECT_EQ(ToURI("C:a.pdf").string(), "C%3Aa.pdf");
    EXPECT_EQ(ToURI("in/a:b.pdf").string(), "in/a:b.pdf");
}

TEST(ToURITest, FolderThatLooksLikeADriveIsNone)
{
    EXPECT_EQ(ToURI("/C:/a.pdf").string(), "file:///C%3A/a.pdf");
}

TEST(ToURITest, NetworkPathHasAHost)
{
    EXPECT_EQ(ToURI("//host/share/a.pdf").string(), "file://host/share/a.pdf");
    EXPECT_EQ(ToURI("//ho st:1/share").string(), "file://ho%20st%3A1/share");
    EXPECT_EQ(ToURI("//host").string(), "file://host");
}

TEST(ToURITest, EmptyPathThrows)
{
    EXPECT_THROW(ToURI(path()), Vantry::URIException);
}

TEST(ToURITest, ZeroByteThrowsAndTheTextNamesThePath)
{
    try {
        ToURI(path(std::string("/in/a\0b", 7)));
        FAIL() << "a zero byte went through";
    } catch (const Vantry::URIException& error) {
        EXPECT_THAT(error.what(), HasSubstr("'/in/a%00b'"));
        EXPECT_THAT(error.what(), HasSubstr("zero byte"));
    }
}

TEST(URIExceptionTest, IsCaughtAsARuntimeError)
{
    EXPECT_THROW(ToURI(path()), std::runtime_error);
}

TEST(GetDisplayPathTest, FileURIReadsAsAPath)
{
    EXPECT_EQ(GetDisplayPath(uri("file:///in/a%20b%23%C3%A4.pdf")), "/in/a b#\xC3\xA4.pdf");
    EXPECT_EQ(GetDisplayPath(uri("FILE:///in/a.pdf")), "/in/a.pdf");
    EXPECT_EQ(GetDisplayPath(uri("file:/in/a.pdf")), "/in/a.pdf");
}

TEST(GetDisplayPathTest, DriveAndHostReadAsInAPath)
{
    EXPECT_EQ(GetDisplayPath(uri("file:///C:/a.pdf")), "C:/a.pdf");
    EXPECT_EQ(GetDisplayPath(uri("file://host/share/a.pdf")), "//host/share/a.pdf");
    EXPECT_EQ(GetDisplayPath(uri("file://host/C:/a.pdf")), "//host/C:/a.pdf");
    EXPECT_EQ(GetDisplayPath(uri("file:xC:/a.pdf")), "xC:/a.pdf");
}

TEST(GetDisplayPathTest, RelativeReferenceReadsAsARelativePath)
{
    EXPECT_EQ(GetDisplayPath(uri("../a%20b.pdf")), "../a b.pdf");
}

TEST(GetDisplayPathTest, QueryAndFragmentAreShown)
{
    EXPECT_EQ(GetDisplayPath(uri("file:///a.pdf?x%20y#page=2")), "/a.pdf?x y#page=2");
}

TEST(GetDisplayPathTest, EncodedSeparatorAndZeroByteStayEncodedInAFile)
{
    EXPECT_EQ(GetDisplayPath(uri("file:///a%2Fb%00c%2f")), "/a%2Fb%00c%2F");
}

TEST(GetDisplayPathTest, BytesThatAreNotUTF8StayEncoded)
{
    EXPECT_EQ(GetDisplayPath(uri("file:///a%FF%c3%A4%C3")), "/a%FF\xC3\xA4%C3");
    EXPECT_EQ(GetDisplayPath(uri("http://h/%FFz")), "http://h/%FFz");
}

TEST(GetDisplayPathTest, OtherURIIsDecodedWhereItsMeaningStaysClear)
{
    EXPECT_EQ(GetDisplayPath(uri("http://h/%C3%A4%20%7Ea")), "http://h/\xC3\xA4 ~a");
    EXPECT_EQ(GetDisplayPath(uri("http://h/a%2Fb%3Fc%23d%25e%26f%0A")), "http://h/a%2Fb%3Fc%23d%25e%26f%0A");
    EXPECT_EQ(GetDisplayPath(uri("mailto:ann@example.org")), "mailto:ann@example.org");
}

TEST(GetDisplayPathTest, TextThatIsNoURIIsGivenBack)
{
    EXPECT_EQ(GetDisplayPath(uri("C:\\in\\a%20b.pdf")), "C:\\in\\a%20b.pdf");
    EXPECT_EQ(GetDisplayPath(uri("a\xFF b")), "a%FF b");
    EXPECT_EQ(GetDisplayPath(uri()), "");
}

TEST(ToUTF8StringTest, GivesThePathsText)
{
    EXPECT_EQ(ToUTF8String("../in/\xC3\xA4%20.pdf"), "../in/\xC3\xA4%20.pdf");
    EXPECT_EQ(ToUTF8String(path()), "");
}

TEST(ToUTF8StringTest, ShowsBytesThatAreNotUTF8EncodedSoThatNamesStayApart)
{
    EXPECT_EQ(ToUTF8String("a\xFE"), "a%FE");
    EXPECT_EQ(ToUTF8String("a\xFF"), "a%FF");
}

TEST(URIRoundTripTest, DisplayOfAPathsURIIsThePath)
{
    const std::string alphabet = "/\\:.CaZ %#?@[]\n~+\xC3\xA4\xFF\x80\xF0\x9F";
    for (unsigned seed = 0; seed < 20000; ++seed) {
        std::mt19937 random(seed);
        std::string text(1 + random() % 8, '\0');
        for (char& character : text)
            character = alphabet[random() % alphabet.size()];
        const uri value = ToURI(text);
        ASSERT_TRUE(value.is_valid()) << "seed " << seed << ": " << value;
        ASSERT_EQ(GetDisplayPath(value), ToUTF8String(text)) << "seed " << seed << ": " << value;
    }
}

} // namespace
