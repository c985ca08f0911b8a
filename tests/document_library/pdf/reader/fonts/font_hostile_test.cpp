// Font dictionaries put together at random, of values that belong elsewhere: each gives a font or a problem.

#include "pdf/reader/fonts/font_reader.h"

#include <array>
#include <cmath>
#include <random>

#include <gmock/gmock.h>

#include "document_library/pdf/reader/font_files.h"
#include "support/made_programs.h"

namespace
{

using namespace HarrowSupport::Testing;
using namespace ReaderTests;

constexpr int dictionaryCount = 12;

/// Values of every type, and references to the objects of the file: dictionaries, and the streams behind
/// them.
std::string RandomValue(std::mt19937& random)
{
    static const std::vector<std::string> values = {"null",
                                                    "true",
                                                    "-1",
                                                    "0",
                                                    "65",
                                                    "255",
                                                    "256",
                                                    "2147483648",
                                                    "9999999999",
                                                    "0.5",
                                                    "-1e5",
                                                    "(text)",
                                                    "()",
                                                    "<FEFF>",
                                                    "/Identity",
                                                    "/Identity-V",
                                                    "/WinAnsiEncoding",
                                                    "/90ms-RKSJ-V",
                                                    "/Unheard",
                                                    "/A",
                                                    "[]",
                                                    "[1 2 3]",
                                                    "[0 0 1000 1000]",
                                                    "[0.001 0 0 0.001 0 0]",
                                                    "[/A 65 /B 300 /C -4 /D]",
                                                    "[1 [500 /x] 7 9 300]",
                                                    "[1 [-500 1 2] 7 4294967295 -300 4 5]",
                                                    "[9 1 3]",
                                                    "<< >>",
                                                    "<< /Differences [65 /A /.notdef /g7] >>",
                                                    "<< /A 15 0 R /Ordering (Japan1) /Registry 4 >>"};
    const std::size_t index = random() % (values.size() + 20);
    if (index < values.size())
        return values[index];
    return std::to_string(3 + random() % (dictionaryCount + 5)) + " 0 R";
}

std::string RandomDictionary(std::mt19937& random)
{
    static constexpr std::array<const char*, 27> keys = {"BaseFont",
                                                         "FontDescriptor",
                                                         "FirstChar",
                                                         "LastChar",
                                                         "Widths",
                                                         "Encoding",
                                                         "ToUnicode",
                                                         "W",
                                                         "DW",
                                                         "W2",
                                                         "DW2",
                                                         "CIDToGIDMap",
                                                         "CIDSystemInfo",
                                                         "FontMatrix",
                                                         "FontBBox",
                                                         "CharProcs",
                                                         "Resources",
                                                         "FontFile",
                                                         "FontFile2",
                                                         "FontFile3",
                                                         "Flags",
                                                         "MissingWidth",
                                                         "FontName",
                                                         "FontFamily",
                                                         "FontWeight",
                                                         "UseCMap",
                                                         "WMode"};
    static const std::vector<std::string> subtypes = {
        "/Type0", "/Type0",        "/Type1",        "/MMType1",      "/TrueType", "/Type3",
        "12",     "/CIDFontType0", "/CIDFontType2", "/CIDFontType2", "/Page"};
    std::string text = "<< /Subtype " + subtypes[random() % subtypes.size()];
    for (const char* const key : keys) {
        if (random() % 2 == 0)
            text += std::string(" /") + key + " " + RandomValue(random);
    }
    if (random() % 2 == 0)
        text += " /DescendantFonts [" + std::to_string(3 + random() % dictionaryCount) + " 0 R]";
    return text + " >>";
}

std::vector<std::string> RandomObjects(std::mt19937& random)
{
    std::vector<std::string> objects;
    for (int index = 0; index < dictionaryCount; ++index)
        objects.push_back(RandomDictionary(random));
    std::string cut = MakeCompactFont(MakeSampleCompactFont());
    cut.resize(random() % cut.size());
    for (const std::string& data :
         {MakeType1(MakeSampleType1()), JoinTrueType(MakeSampleTrueTypeTables()), cut,
          std::string(
              "1 begincodespacerange <00> <FFFF> endcodespacerange 1 begincidrange <00> <FF> 4294967290"),
          std::string("\0\3\0\2\0\1\xFF", 7)})
        objects.push_back(PdfStream(data, "/UseCMap " + RandomValue(random)));
    return objects;
}

TEST(FontsOfHostileFiles, AreFontsWithFiniteMeasuresOrProblems)
{
    std::size_t fontCount = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        FontFile file(RandomObjects(random));
        for (int number = 3; number < 3 + dictionaryCount; ++number) {
            const auto font = file.Read(number);
            if (!font) {
                EXPECT_FALSE(file.problems.empty());
                continue;
            }
            ++fontCount;
            std::string bytes(64, ' ');
            for (char& byte : bytes)
                byte = static_cast<char>(random());
            const auto characters = Decode(*font, bytes);
            EXPECT_LE(characters.size(), bytes.size());
            EXPECT_FALSE(characters.empty());
            for (const OrvFont::Character& character : characters) {
                ASSERT_TRUE(std::isfinite(font->GetAdvance(character)));
                ASSERT_TRUE(font->GetOutline(character));
                OrvPdf::GetFileFont(*font)->GetText(character);
            }
            EXPECT_EQ(file.Read(number), font);
        }
    }
    EXPECT_GT(fontCount, 500U) << "the dictionaries are too odd to try anything";
}

TEST(FontsOfHostileFiles, HaveArraysOfAnyLength)
{
    std::string numbers;
    for (int count = 0; count < 1'000'000; ++count)
        numbers += "1 ";
    const std::string array = "[" + numbers + "]";
    FontFile file(
        {"<< /Subtype /Type1 /BaseFont /Courier /FirstChar 0 /LastChar 999999 /Widths 5 0 R /Encoding << "
         "/Differences 5 0 R >> /FontDescriptor << /FontBBox 5 0 R >> >>",
         "<< /Subtype /Type0 /Encoding 5 0 R /DescendantFonts [<< /Subtype /CIDFontType2 /BaseFont /A /W 5 "
         "0 R /W2 5 0 R /DW2 5 0 R >>] >>",
         array});
    const auto simple = file.Read(3);
    ASSERT_TRUE(simple);
    EXPECT_EQ(AdvanceOf(*simple, "A"), 1.0);
    EXPECT_LT(file.problems.size(), 5U);
    const auto composite = file.Read(4);
    ASSERT_TRUE(composite);
    EXPECT_EQ(AdvanceOf(*composite, std::string("\0\1", 2)), 1.0);
    EXPECT_LT(file.problems.size(), 8U);
}

} // namespace
