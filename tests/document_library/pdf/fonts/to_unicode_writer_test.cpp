#include "pdf/fonts/to_unicode.h"

#include "support/child_process.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <random>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using HarrowSupport::Testing::RunProcess;
using OrvPdf::MakeToUnicode;
using OrvPdf::ToUnicodeMap;
using ::testing::HasSubstr;
using ::testing::Not;

using Texts = std::map<std::uint32_t, std::u16string>;

constexpr std::uint64_t seed = 20240612;

std::size_t Count(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

void ExpectAllBack(const Texts& texts, std::uint32_t codeBytes)
{
    const auto map = ToUnicodeMap::Parse(MakeToUnicode(texts, codeBytes));
    for (const auto& [code, text] : texts)
        EXPECT_EQ(map->Find(code, codeBytes), text) << "code " << code;
}

TEST(MakeToUnicode, WritesAWholeCMap)
{
    EXPECT_EQ(MakeToUnicode({{3, u" "}, {0x24, u"ffi"}, {0x41, u"a"}, {0x42, u"b"}}, 2),
              "/CIDInit /ProcSet findresource begin\n"
              "12 dict begin\n"
              "begincmap\n"
              "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
              "/CMapName /Adobe-Identity-UCS def\n"
              "/CMapType 2 def\n"
              "1 begincodespacerange\n"
              "<0000><FFFF>\n"
              "endcodespacerange\n"
              "2 beginbfchar\n"
              "<0003><0020>\n"
              "<0024><006600660069>\n"
              "endbfchar\n"
              "1 beginbfrange\n"
              "<0041><0042><0061>\n"
              "endbfrange\n"
              "endcmap\n"
              "CMapName currentdict /CMap defineresource pop\n"
              "end\n"
              "end\n");
}

TEST(MakeToUnicode, WritesNoBlockWithoutEntries)
{
    const std::string file = MakeToUnicode({}, 2);
    EXPECT_THAT(file, Not(HasSubstr("beginbf")));
    EXPECT_THAT(file, HasSubstr("begincodespacerange"));
}

TEST(MakeToUnicode, WritesCodesWithTheirBytes)
{
    EXPECT_THAT(MakeToUnicode({{0x41, u"a"}}, 1),
                HasSubstr("<00><FF>\nendcodespacerange\n1 beginbfchar\n<41><0061>\n"));
    EXPECT_THAT(MakeToUnicode({{0x41, u"a"}}, 4), HasSubstr("<00000041><0061>\n"));
}

TEST(MakeToUnicode, LeavesOutWhatCannotBeWritten)
{
    const std::string file = MakeToUnicode({{0x41, u""}, {0x100, u"b"}, {0xFF, u"c"}}, 1);
    EXPECT_THAT(file, HasSubstr("1 beginbfchar\n<FF><0063>\nendbfchar"));
}

TEST(MakeToUnicode, EndsARangeWithTheLastByteOfTheCode)
{
    const std::string file = MakeToUnicode({{0xFE, u"a"}, {0xFF, u"b"}, {0x100, u"c"}, {0x101, u"d"}}, 2);
    EXPECT_THAT(file, HasSubstr("2 beginbfrange\n<00FE><00FF><0061>\n<0100><0101><0063>\nendbfrange"));
}

TEST(MakeToUnicode, EndsARangeWithTheLastByteOfTheText)
{
    const std::string file =
        MakeToUnicode({{1, u"\u00FE"}, {2, u"\u00FF"}, {3, u"\u0100"}, {4, u"\u0101"}}, 2);
    EXPECT_THAT(file, HasSubstr("2 beginbfrange\n<0001><0002><00FE>\n<0003><0004><0100>\nendbfrange"));
}

TEST(MakeToUnicode, WritesRangesOfTextsThatDifferInTheirLastCharacter)
{
    const std::string file = MakeToUnicode({{1, u"fi"}, {2, u"fj"}, {3, u"gk"}}, 1);
    EXPECT_THAT(file, HasSubstr("<01><02><00660069>"));
    EXPECT_THAT(file, HasSubstr("1 beginbfchar\n<03><0067006B>"));
}

TEST(MakeToUnicode, HasAtMostAHundredEntriesInABlock)
{
    Texts texts;
    for (std::uint32_t i = 0; i < 201; ++i)
        texts[i * 2] = std::u16string(1, static_cast<char16_t>(0x4E00 + i));
    const std::string file = MakeToUnicode(texts, 2);
    EXPECT_EQ(Count(file, "100 beginbfchar\n"), 2u);
    EXPECT_EQ(Count(file, "\n1 beginbfchar\n"), 1u);
    EXPECT_EQ(Count(file, "endbfchar"), 3u);
    ExpectAllBack(texts, 2);
}

TEST(MakeToUnicode, IsReadBack)
{
    ExpectAllBack({{0, u"A"}, {1, u"ffi"}, {2, u"\U0001D400"}, {3, u"\U0001D401"}, {255, u"\uFFFF"}}, 1);
    ExpectAllBack({{0, u"A"}, {0xFFFF, u"B"}, {0x1234, u"\uD7FF"}, {0x1235, u"\uE000"}}, 2);
    ExpectAllBack({{0xFFFFFFFE, u"A"}, {0xFFFFFFFF, u"B"}, {0, u"C"}}, 4);
}

TEST(MakeToUnicode, IsReadBackForAnyTexts)
{
    std::mt19937_64 random(seed);
    for (int round = 0; round < 200; ++round) {
        Texts texts;
        for (std::uint32_t code = random() % 300; code < 600; code += random() % 8 == 0 ? random() % 20 : 1) {
            std::u16string text;
            // Few different characters, and those near the ends of a byte, make many near misses of ranges.
            for (std::size_t units = 1 + random() % 2; units != 0; --units)
                text += static_cast<char16_t>(0xFC + (code + random() % 2) % 8);
            texts[code] = text;
        }
        SCOPED_TRACE("round " + std::to_string(round) + " of seed " + std::to_string(seed));
        ExpectAllBack(texts, 2);
    }
}

TEST(MakeToUnicode, IsReadByPdftotext)
{
    if (RunProcess({"pdftotext", "-v"}).exitCode == 127)
        GTEST_SKIP() << "install poppler-utils to run this test";
    // Codes that say nothing themselves: an encoding with names that no program knows.
    const Texts texts = {{1, u"x"}, {2, u"y"}, {3, u"z"}, {5, u"ffi"}, {7, u"\u20AC"}, {9, u"\U0001D400"}};
    const HarrowSupport::Testing::TemporaryFolder folder;
    const std::string file = folder.Write(
        "text.pdf", HarrowSupport::Testing::PdfFileOfPages(
                        {"BT /F1 10 Tf 10 50 Td <010203050709> Tj ET"}, "", "/Font << /F1 5 0 R >>",
                        {"<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica /ToUnicode 6 0 R /Encoding << "
                         "/Type /Encoding "
                         "/Differences [1 /q1 /q2 /q3 /q4 /q5 /q6 /q7 /q8 /q9] >> >>",
                         HarrowSupport::Testing::PdfStream(MakeToUnicode(texts, 1))}));
    const auto run = RunProcess({"pdftotext", "-enc", "UTF-8", file, "-"});
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(run.output.substr(0, run.output.find('\n')), "xyzffi\u20AC\U0001D400");
}

} // namespace
