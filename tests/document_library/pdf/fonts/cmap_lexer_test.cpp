#include "pdf/fonts/cmap_lexer.h"

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvPdf::CMapLexer;
using OrvPdf::CMapToken;
using ::testing::ElementsAre;

std::vector<std::string> Tokens(std::string_view bytes)
{
    std::vector<std::string> tokens;
    CMapLexer lexer(bytes);
    for (;;) {
        const CMapToken token = lexer.Next();
        switch (token.kind) {
        case CMapToken::Kind::End:
            return tokens;
        case CMapToken::Kind::Number:
            tokens.push_back("number " + std::to_string(token.number));
            break;
        case CMapToken::Kind::Name:
            tokens.push_back("/" + std::string(token.text));
            break;
        case CMapToken::Kind::String:
            tokens.push_back("string " + std::string(token.text));
            break;
        case CMapToken::Kind::ArrayBegin:
        case CMapToken::Kind::ArrayEnd:
            tokens.push_back("array " + std::string(token.text));
            break;
        case CMapToken::Kind::Word:
            tokens.emplace_back(token.text);
            break;
        }
    }
}

TEST(CMapLexer, SplitsADefinition)
{
    EXPECT_THAT(Tokens("/WMode 1 def\n/CMapName/X-H def"),
                ElementsAre("/WMode", "number 1", "def", "/CMapName", "/X-H", "def"));
}

TEST(CMapLexer, SplitsEntriesWithoutBlanks)
{
    EXPECT_THAT(Tokens("<41><42>7<43>[<44>]"), ElementsAre("string A", "string B", "number 7", "string C",
                                                           "array [", "string D", "array ]"));
}

TEST(CMapLexer, LeavesOutComments)
{
    EXPECT_THAT(Tokens("%!PS <41>\r1 % 2\n3 %"), ElementsAre("number 1", "number 3"));
}

TEST(CMapLexer, ReadsHexStringsOverBlanksAndOddDigits)
{
    EXPECT_THAT(Tokens("<4 1\n4 2> <4> <> <4x1>"),
                ElementsAre("string AB", "string @", "string ", "string A"));
}

TEST(CMapLexer, ReadsStringsWithParenthesesAndEscapes)
{
    EXPECT_THAT(Tokens("(a(b)c) (\\)\\101\\1012\\n\\q) (x\\\ny)"),
                ElementsAre("string a(b)c", "string )AA2\nq", "string xy"));
}

TEST(CMapLexer, ReadsNumbers)
{
    EXPECT_THAT(Tokens("-5 +7 1.9 1x 16#FF 99999999999999999999"),
                ElementsAre("number -5", "number 7", "number 1", "1x", "16#FF", "99999999999999999999"));
}

TEST(CMapLexer, TellsDictionariesFromStrings)
{
    EXPECT_THAT(Tokens("<</A<41>>>"), ElementsAre("<", "/A", "string A", ">"));
}

TEST(CMapLexer, EndsWithWhateverStandsOpen)
{
    EXPECT_THAT(Tokens("<41"), ElementsAre("string A"));
    EXPECT_THAT(Tokens("(ab\\"), ElementsAre("string ab"));
    EXPECT_THAT(Tokens("((a)"), ElementsAre("string (a)"));
    EXPECT_THAT(Tokens("/"), ElementsAre("/"));
    EXPECT_THAT(Tokens(")>}"), ElementsAre(")", ">", "}"));
    EXPECT_THAT(Tokens(""), ElementsAre());
}

} // namespace
