#include <vantry/uri.h>

#include <random>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <uriparser/Uri.h>
#include <vantry/uri_exception.h>

namespace
{

using boost::network::uri::uri;
using ::testing::HasSubstr;
using Vantry::MakeRelativeURI;
using Vantry::ToURI;

// The place of a file as seen from a document, both told as paths.
std::string Way(const std::string& file, const std::string& document)
{
    return MakeRelativeURI(ToURI(file), ToURI(document)).string();
}

std::string URIWay(const std::string& target, const std::string& base)
{
    return MakeRelativeURI(uri(target), uri(base)).string();
}

TEST(MakeRelativeURITest, FileInTheSameFolderIsItsName)
{
    EXPECT_EQ(Way("/in/b.pdf", "/in/a.pdf"), "b.pdf");
}

TEST(MakeRelativeURITest, FileBelowIsThePathDown)
{
    EXPECT_EQ(Way("/in/x/y/b.pdf", "/in/a.pdf"), "x/y/b.pdf");
}

TEST(MakeRelativeURITest, FileElsewhereGoesUpFirst)
{
    EXPECT_EQ(Way("/b.pdf", "/in/x/a.pdf"), "../../b.pdf");
    EXPECT_EQ(Way("/in/y/b.pdf", "/in/x/a.pdf"), "../y/b.pdf");
    EXPECT_EQ(Way("/y/b.pdf", "/x/a.pdf"), "../y/b.pdf");
}

TEST(MakeRelativeURITest, DocumentItselfIsItsName)
{
    EXPECT_EQ(Way("/in/a.pdf", "/in/a.pdf"), "a.pdf");
}

TEST(MakeRelativeURITest, FolderNameIsNotAPrefixOfALongerOne)
{
    EXPECT_EQ(Way("/input/b.pdf", "/in/a.pdf"), "../input/b.pdf");
}

TEST(MakeRelativeURITest, FolderOfTheDocumentIsADot)
{
    EXPECT_EQ(Way("/in/", "/in/a.pdf"), "./");
    EXPECT_EQ(Way("/in/.", "/in/a.pdf"), "./");
    EXPECT_EQ(Way("/in", "/in/a.pdf"), "../in");
    EXPECT_EQ(Way("/in/x/..", "/in/a.pdf"), "./");
}

TEST(MakeRelativeURITest, DotSegmentsAreResolvedOnBothSides)
{
    EXPECT_EQ(Way("/in/./x/../b.pdf", "/out/../in/./a.pdf"), "b.pdf");
}

TEST(MakeRelativeURITest, WayUpEndsAtTheRoot)
{
    EXPECT_EQ(Way("/../../in/b.pdf", "/in/a.pdf"), "b.pdf");
    EXPECT_EQ(Way("../../../../b.pdf", "/in/a.pdf"), "../b.pdf");
}

TEST(MakeRelativeURITest, RepeatedSeparatorsOfAFileCountOnce)
{
    EXPECT_EQ(Way("/in//x///b.pdf", "/in/a.pdf"), "x/b.pdf");
}

TEST(MakeRelativeURITest, RelativePathIsMeantFromTheDocument)
{
    EXPECT_EQ(Way("x/b.pdf", "/in/a.pdf"), "x/b.pdf");
    EXPECT_EQ(Way("./x/../b.pdf", "/in/a.pdf"), "b.pdf");
    EXPECT_EQ(Way("../in/b.pdf", "/in/a.pdf"), "b.pdf");
    EXPECT_EQ(Way("../out/b.pdf", "/in/a.pdf"), "../out/b.pdf");
}

TEST(MakeRelativeURITest, RelativePathAndAbsolutePathToOnePlaceGiveOneText)
{
    EXPECT_EQ(Way("links/b c.pdf", "/in/a.pdf"), Way("/in/links/b c.pdf", "/in/a.pdf"));
}

TEST(MakeRelativeURITest, SameLayoutInTwoPlacesGivesOneText)
{
    EXPECT_EQ(Way("/home/ann/job/links/b.pdf", "/home/ann/job/a.pdf"),
              Way("/tmp/copy/links/b.pdf", "/tmp/copy/a.pdf"));
}

TEST(MakeRelativeURITest, RelativePathInARelativeDocumentIsKnown)
{
    EXPECT_EQ(Way("b.pdf", "in/a.pdf"), "b.pdf");
    EXPECT_EQ(Way("../in/b.pdf", "in/a.pdf"), "b.pdf");
    EXPECT_EQ(Way("../../b.pdf", "in/a.pdf"), "../../b.pdf");
    EXPECT_EQ(Way("../../b.pdf", "../../in/a.pdf"), "../../b.pdf");
}

TEST(MakeRelativeURITest, AbsolutePathInARelativeDocumentThrows)
{
    try {
        Way("/in/b.pdf", "in/a.pdf");
        FAIL() << "nobody knows where the document is";
    } catch (const Vantry::URIException& error) {
        EXPECT_THAT(error.what(), HasSubstr("in/a.pdf"));
        EXPECT_THAT(error.what(), HasSubstr("file:///in/b.pdf"));
        EXPECT_THAT(error.what(), HasSubstr("relative"));
    }
}

TEST(MakeRelativeURITest, OneDriveHasOneRoot)
{
    EXPECT_EQ(Way("C:/x/b.pdf", "C:/in/a.pdf"), "../x/b.pdf");
    EXPECT_EQ(Way("c:/x/b.pdf", "C:/in/a.pdf"), "../x/b.pdf");
    EXPECT_EQ(Way("../../../b.pdf", "C:/in/a.pdf"), "../b.pdf");
}

TEST(MakeRelativeURITest, AnotherDriveIsToldWhole)
{
    EXPECT_EQ(Way("D:/x/../b.pdf", "C:/in/a.pdf"), "file:///D:/b.pdf");
    EXPECT_EQ(Way("d:/b.pdf", "/in/a.pdf"), "file:///D:/b.pdf");
    EXPECT_EQ(Way("/in/b.pdf", "C:/in/a.pdf"), "file:///in/b.pdf");
}

TEST(MakeRelativeURITest, FolderThatLooksLikeADriveStaysOne)
{
    EXPECT_EQ(Way("/C:/b.pdf", "C:/a.pdf"), "file:///C%3A/b.pdf");
    EXPECT_EQ(Way("/C:/b.pdf", "/a.pdf"), "C%3A/b.pdf");
    EXPECT_EQ(Way("/C:/b.pdf", "/in/a.pdf"), "../C%3A/b.pdf");
}

TEST(MakeRelativeURITest, OneHostHasOneRoot)
{
    EXPECT_EQ(Way("//host/share/b.pdf", "//host/share/in/a.pdf"), "../b.pdf");
    EXPECT_EQ(Way("//HOST/share/b.pdf", "//host/share/a.pdf"), "b.pdf");
}

TEST(MakeRelativeURITest, AnotherHostIsToldWhole)
{
    EXPECT_EQ(Way("//Other/share/b.pdf", "//host/share/a.pdf"), "file://other/share/b.pdf");
    EXPECT_EQ(Way("//host/share/b.pdf", "/share/a.pdf"), "file://host/share/b.pdf");
}

TEST(MakeRelativeURITest, LocalhostIsThisMachine)
{
    EXPECT_EQ(URIWay("file://localhost/in/b.pdf", "file:///in/a.pdf"), "b.pdf");
    EXPECT_EQ(URIWay("file:/in/b.pdf", "file:///in/a.pdf"), "b.pdf");
}

TEST(MakeRelativeURITest, HostMayBeSpeltInThePath)
{
    EXPECT_EQ(URIWay("file:////host/share/b.pdf", "file://host/share/a.pdf"), "b.pdf");
    EXPECT_EQ(URIWay("file:////localhost/in/b.pdf", "file:///in/a.pdf"), "b.pdf");
    EXPECT_EQ(URIWay("file:////a:b@c/d", "file:///in/a.pdf"), "file://a%3Ab%40c/d");
}

TEST(MakeRelativeURITest, LetterCaseOfNamesCounts)
{
    EXPECT_EQ(Way("/In/b.pdf", "/in/a.pdf"), "../In/b.pdf");
}

TEST(MakeRelativeURITest, EncodingIsBroughtToOneSpelling)
{
    EXPECT_EQ(URIWay("file:///%69n/b%2c%c3%a4.pdf", "file:///in/a.pdf"), "b,%C3%A4.pdf");
}

TEST(MakeRelativeURITest, EncodedDotsAreDotSegments)
{
    EXPECT_EQ(URIWay("file:///in/x/%2E%2e/b.pdf", "file:///in/a.pdf"), "b.pdf");
}

TEST(MakeRelativeURITest, EncodedSeparatorIsPartOfAName)
{
    EXPECT_EQ(URIWay("file:///in%2fx/b.pdf", "file:///in/a.pdf"), "../in%2Fx/b.pdf");
}

TEST(MakeRelativeURITest, ColonInTheFirstNameIsEncoded)
{
    EXPECT_EQ(Way("/in/a:b.pdf", "/in/a.pdf"), "a%3Ab.pdf");
    EXPECT_EQ(Way("a:b.pdf", "/in/a.pdf"), "a%3Ab.pdf");
    EXPECT_EQ(Way("/in/x/a:b.pdf", "/in/a.pdf"), "x/a:b.pdf");
}

TEST(MakeRelativeURITest, QueryAndFragmentOfTheTargetAreKept)
{
    EXPECT_EQ(URIWay("file:///in/b.pdf?q#page=2", "file:///in/a.pdf?r#s"), "b.pdf?q#page=2");
    EXPECT_EQ(URIWay("#page=2", "file:///in/a.pdf"), "a.pdf#page=2");
}

TEST(MakeRelativeURITest, AnotherSchemeIsToldWhole)
{
    EXPECT_EQ(URIWay("HTTP://Example.org/x/../b%7e.pdf", "file:///in/a.pdf"), "http://example.org/b~.pdf");
    EXPECT_EQ(URIWay("mailto:Ann@example.org", "file:///in/a.pdf"), "mailto:Ann@example.org");
}

TEST(MakeRelativeURITest, WebAddressesOfOneSiteAreRelative)
{
    EXPECT_EQ(URIWay("http://h/x/b.pdf", "http://H/in/a.pdf"), "../x/b.pdf");
    EXPECT_EQ(URIWay("http://h:81/x/b.pdf", "http://h:80/in/a.pdf"), "http://h:81/x/b.pdf");
    EXPECT_EQ(URIWay("http://h", "http://h/a.pdf"), "./");
}

TEST(MakeRelativeURITest, ReservedCharactersKeepTheirSpellingOutsideOfFiles)
{
    EXPECT_EQ(URIWay("http://h/in/b%2c.pdf", "http://h/in/a.pdf"), "b%2C.pdf");
}

TEST(MakeRelativeURITest, EmptySegmentsCountOutsideOfFiles)
{
    EXPECT_EQ(URIWay("http://h/in//b.pdf", "http://h/in/a.pdf"), ".//b.pdf");
    EXPECT_EQ(URIWay("s:/.//b.pdf", "http://h/a.pdf"), "s:/.//b.pdf");
}

TEST(MakeRelativeURITest, ReferenceFromTheRootOrWithAHostTakesWhatItLacksFromTheBase)
{
    EXPECT_EQ(URIWay("/x/b.pdf", "file:///in/a.pdf"), "../x/b.pdf");
    EXPECT_EQ(URIWay("//other/x/b.pdf", "file:///in/a.pdf"), "file://other/x/b.pdf");
}

TEST(MakeRelativeURITest, TextThatIsNoURIThrowsAndIsNamed)
{
    EXPECT_THROW(URIWay("a b", "file:///in/a.pdf"), Vantry::URIException);
    EXPECT_THROW(URIWay("", "file:///in/a.pdf"), Vantry::URIException);
    EXPECT_THROW(URIWay("a.pdf", "mailto:ann@example.org"), Vantry::URIException);
    try {
        URIWay("a.pdf", "file:///in/a b.pdf");
        FAIL() << "a blank went through";
    } catch (const Vantry::URIException& error) {
        EXPECT_THAT(error.what(), HasSubstr("file:///in/a b.pdf"));
    }
}

// Resolves a reference by the parser's own rule.
std::string Resolve(const std::string& reference, const std::string& base)
{
    UriUriA parsedReference;
    UriUriA parsedBase;
    UriUriA resolved;
    EXPECT_EQ(uriParseSingleUriA(&parsedReference, reference.c_str(), nullptr), URI_SUCCESS) << reference;
    EXPECT_EQ(uriParseSingleUriA(&parsedBase, base.c_str(), nullptr), URI_SUCCESS) << base;
    EXPECT_EQ(uriAddBaseUriA(&resolved, &parsedReference, &parsedBase), URI_SUCCESS);
    std::string text(reference.size() + base.size() + 16, '\0');
    int written = 0;
    EXPECT_EQ(uriToStringA(&text[0], &resolved, static_cast<int>(text.size()), &written), URI_SUCCESS);
    text.resize(static_cast<std::size_t>(written) - 1);
    uriFreeUriMembersA(&resolved);
    uriFreeUriMembersA(&parsedBase);
    uriFreeUriMembersA(&parsedReference);
    return text;
}

std::string MakePath(std::mt19937& random)
{
    const char* const names[] = {"a", "b", "c:", "d e", "%41"};
    std::string text;
    for (unsigned segments = 1 + random() % 5; segments > 0; --segments)
        text += std::string("/") + names[random() % 5];
    return text;
}

TEST(MakeRelativeURITest, ResultResolvesBackToTheTarget)
{
    for (unsigned seed = 0; seed < 5000; ++seed) {
        std::mt19937 random(seed);
        const uri target = ToURI(MakePath(random));
        const uri base = ToURI(MakePath(random));
        const uri relative = MakeRelativeURI(target, base);
        ASSERT_TRUE(is_relative(relative)) << "seed " << seed << ": " << relative;
        const std::string resolved = Resolve(relative.string(), base.string());
        // The colon is spelt in two ways, so both are shown as paths.
        ASSERT_EQ(Vantry::GetDisplayPath(uri(resolved)), Vantry::GetDisplayPath(target))
            << "seed " << seed << ": " << relative << " in " << base;
    }
}

TEST(MakeRelativeURITest, ResultIsItsOwnResult)
{
    for (unsigned seed = 0; seed < 5000; ++seed) {
        std::mt19937 random(seed);
        const uri target = ToURI(MakePath(random));
        const uri base = ToURI(MakePath(random));
        const uri once = MakeRelativeURI(target, base);
        ASSERT_EQ(MakeRelativeURI(once, base), once) << "seed " << seed << ": " << target << " in " << base;
    }
}

} // namespace
