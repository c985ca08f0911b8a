// Contents that would take hours if a byte were looked at again and again.

#include "document_library/pdf/reader/lexer_test_support.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvPdf::LexerTests
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ContentLexer, LongHostileContentIsReadInLinearTime)
{
    constexpr std::size_t count = 1000000;
    for (const char* piece : {"(",
                              "<",
                              "[",
                              "<<",
                              "[<<",
                              "]",
                              ">>",
                              ")",
                              ">",
                              "/",
                              "{",
                              "%\n",
                              "-",
                              ".",
                              "1",
                              "1.",
                              "1e5",
                              "#",
                              "(\\",
                              "a",
                              "BI ",
                              "BI ID ",
                              "BI ID EI \x01",
                              "BI/L 9 ID EI \x01",
                              "BI/F/A85 ID EI \x01",
                              "BI/F/AHx ID EI \x01",
                              "BI/F/A85 ID ~",
                              "ID EI ",
                              "EI",
                              "E",
                              "1 ",
                              "[] ",
                              "[1 ",
                              "<</A ",
                              "<</A[",
                              "]>>",
                              "[>>",
                              "/#41",
                              "true ",
                              "[ S ",
                              "\x80 ",
                              "/A<<1 2 3>>"}) {
        SCOPED_TRACE(piece);
        const std::string content = Repeated(piece, count);
        ContentLexer lexer(content);
        ContentOperation operation;
        std::size_t last = 0;
        while (lexer.Next(operation)) {
            ASSERT_LT(last, operation.end);
            last = operation.end;
        }
        EXPECT_LE(lexer.Damages().size(), ContentLexerLimits().damages);
    }
}

TEST(ContentLexer, ImagesBeforeOneFarFalseEndAreReadInLinearTime)
{
    const std::string content = Repeated("BI ID EI \x01 ", 300000) + Repeated("BI/L 3 ID abcEIx ", 100000);
    ContentLexer lexer(content);
    ContentOperation operation;
    std::size_t images = 0;
    while (lexer.Next(operation)) {
        images += operation.id == OperatorId::BeginInlineImage ? 1 : 0;
    }
    EXPECT_EQ(images, 300001U);
}

TEST(ContentLexer, AnyBytesAreLexedWithinBounds)
{
    constexpr std::uint64_t seed = 77;
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::vector<std::string> pieces = {
        "(",    ")",       "<",  ">",   "<<",  ">>",   "[",    "]",
        "/",    "#4",      "\\", "\\1", "1",   "-",    ".",    "e",
        " ",    "\r",      "\n", "%",   "BI ", " ID ", " EI ", "/L 5 ",
        "/W 1", "/F/A85 ", "~>", "q",   "TJ",  "\x80", "true", "99999999999999999999"};
    std::mt19937_64 random(seed);
    ContentLexerLimits limits;
    limits.nesting = 3;
    limits.elements = 20;
    limits.stringBytes = 6;
    for (int i = 0; i < 20000; ++i) {
        std::string content;
        for (std::size_t length = random() % 40; length > 0; --length) {
            content +=
                random() % 8 ? pieces[random() % pieces.size()] : std::string(1, static_cast<char>(random()));
        }
        const Lexed lexed(content, limits);
        std::size_t last = 0;
        for (const auto& [begin, end] : lexed.ranges) {
            ASSERT_LE(last, begin) << content;
            ASSERT_LT(begin, end) << content;
            ASSERT_LE(end, content.size()) << content;
            last = end;
        }
    }
}

} // namespace
} // namespace OrvPdf::LexerTests
