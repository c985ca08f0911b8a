// Inline images: one operation each, whose data ends where it plausibly does.

#include "document_library/pdf/reader/lexer_test_support.h"

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvPdf::LexerTests
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ContentLexer, InlineImageIsOneOperation)
{
    const Lexed lexed("q BI /W 2 /H 2 /BPC 8 /CS /G ID abcd\nEI Q");
    EXPECT_THAT(lexed.operations, ElementsAre("q", "/W 2 /H 2 /BPC 8 /CS /G BI{abcd}", "Q"));
    EXPECT_EQ(lexed.ranges[1], std::pair(std::size_t{2}, std::size_t{39}));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, SizeOfSamplesPassesOverFalseEnds)
{
    const std::string data = " EI Q EI S ";
    ASSERT_EQ(data.size(), 11U);
    const std::string tail = " ID " + data + "\nEI S";
    for (const std::string entries :
         {"/W 11 /H 1 /BPC 8 /CS /DeviceGray", "/Width 11/Height 1/BitsPerComponent 8/ColorSpace/G",
          "/W 88 /H 1 /IM true", "/W 8 /H 11 /ImageMask true /BPC 1",
          "/W 11 /H 1 /BPC 8 /CS [/I /RGB 1 <000000ffffff>]", "/L 11 /F /Fl", "/Length 11 /Filter [/DCT]",
          "/W 11 /H 1 /BPC 8 /CS /G /F []", "/W 22 /H 1 /BPC 4 /CS /G", "/W 3 /H 11 /BPC 2 /CS /G",
          "/W 1 /H 11 /BPC 2 /CS /CMYK"}) {
        const Lexed lexed("BI " + entries + tail);
        ASSERT_EQ(lexed.operations.size(), 2U) << entries;
        EXPECT_THAT(lexed.operations[0], testing::HasSubstr("{" + data + "}")) << entries;
        EXPECT_THAT(lexed.kinds, IsEmpty()) << entries;
    }
}

TEST(ContentLexer, RgbSamplesHaveThreeComponents)
{
    EXPECT_THAT(Lexed("BI /W 2 /H 1 /BPC 8 /CS /RGB ID a EI Q\nEI S").operations,
                ElementsAre("/W 2 /H 1 /BPC 8 /CS /RGB BI{a EI Q}", "S"));
}

TEST(ContentLexer, WrongLengthIsReportedAndTheEndSearched)
{
    const Lexed lexed("BI /W 5 /H 1 /BPC 8 /CS /G ID abc EI Q");
    EXPECT_THAT(lexed.operations, ElementsAre("/W 5 /H 1 /BPC 8 /CS /G BI{abc}", "Q"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::InlineImageLengthMismatch));
}

TEST(ContentLexer, LengthFarBeyondTheContentIsWrong)
{
    const Lexed lexed("BI /L 99999999999 ID abc EI Q");
    EXPECT_THAT(lexed.operations, ElementsAre("/L 99999999999 BI{abc}", "Q"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::InlineImageLengthMismatch));
}

TEST(ContentLexer, FilteredDataEndsWhereContentPlausiblyGoesOn)
{
    const std::string data = "x EI \x01\x02 EI \xFF\xFE EI 9\x03 EIEI EIx y";
    const Lexed lexed("BI /F /Fl ID " + data + "\nEI\nQ 1 0 0 1 0 0 cm");
    EXPECT_THAT(lexed.operations, ElementsAre("/F /Fl BI{" + data + "}", "Q", "1 0 0 1 0 0 cm"));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, EndDirectlyBehindTheDataIsFound)
{
    const Lexed lexed("BI /F /DCT ID \xFF\xD8\xFF\xD9"
                      "EI Q");
    EXPECT_THAT(lexed.operations, ElementsAre("/F /DCT BI{\xFF\xD8\xFF\xD9}", "Q"));
}

TEST(ContentLexer, EndWithImplausibleContentBehindItIsTakenWhereThereIsNoBetter)
{
    const Lexed lexed("BI /F /Fl ID abc EI \x80\x81 S");
    EXPECT_THAT(lexed.operations, ElementsAre("/F /Fl BI{abc}", "S"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::GarbageBytes));
}

TEST(ContentLexer, TextFiltersEndWithTheirMark)
{
    EXPECT_THAT(Lexed("BI /F [/A85 /Fl] ID ab EI Q~> EI Q").operations,
                ElementsAre("/F [/A85 /Fl] BI{ab EI Q~>}", "Q"));
    EXPECT_THAT(Lexed("BI /F /AHx ID 41 EI Q>EI Q").operations, ElementsAre("/F /AHx BI{41 EI Q>}", "Q"));
    EXPECT_THAT(Lexed("BI /F /A85 ID abc EI Q").operations, ElementsAre("/F /A85 BI{abc}", "Q"));
}

TEST(ContentLexer, CarriageReturnWithLineFeedSeparatesTheData)
{
    EXPECT_THAT(Lexed("BI /F /Fl ID\r\nabc\r\nEI Q").operations, ElementsAre("/F /Fl BI{abc\r}", "Q"));
    EXPECT_THAT(Lexed("BI /L 3 ID\r\nabc\r\nEI Q").operations, ElementsAre("/L 3 BI{abc}", "Q"));
    EXPECT_THAT(Lexed("BI /L 4 ID\r\nabc\r\nEI Q").operations, ElementsAre("/L 4 BI{\nabc}", "Q"));
}

TEST(ContentLexer, InlineImageMayBeEmpty)
{
    EXPECT_THAT(Lexed("BI ID EI Q").operations, ElementsAre("BI{}", "Q"));
    EXPECT_THAT(Lexed("BI ID EI").operations, ElementsAre("BI{}"));
}

TEST(ContentLexer, InlineImageWithoutEndGoesToTheEnd)
{
    const Lexed lexed("BI /F /Fl ID abc EIx Q");
    EXPECT_THAT(lexed.operations, ElementsAre("/F /Fl BI{abc EIx Q}"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::InlineImageWithoutEnd));
    for (const char* text : {"BI ID", "BI ID ", "BI ID\r", "BI ID E", "BI /L 0 ID"}) {
        EXPECT_THAT(Lexed(text).kinds, testing::Contains(DamageKind::InlineImageWithoutEnd)) << text;
    }
}

TEST(ContentLexer, InlineImageWithoutDataIsLeftOut)
{
    const Lexed lexed("BI /W 1 Q BI /W 2 BI /F /Fl ID x EI S BI /W 3");
    EXPECT_THAT(lexed.operations, ElementsAre("Q", "/F /Fl BI{x}", "S"));
    EXPECT_THAT(lexed.kinds,
                ElementsAre(DamageKind::InlineImageWithoutData, DamageKind::InlineImageWithoutData,
                            DamageKind::InlineImageWithoutData));
}

TEST(ContentLexer, OperandsBeforeInlineImageAreLeftOut)
{
    const Lexed lexed("1 2 BI /F /Fl ID x EI");
    EXPECT_THAT(lexed.operations, ElementsAre("/F /Fl BI{x}"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::OperandsWithoutOperator));
}

TEST(ContentLexer, LoneDataAndEndMarksAreOrdinaryOperators)
{
    EXPECT_THAT(Lexed("ID EI S").operations, ElementsAre("ID", "EI", "S"));
}

} // namespace
} // namespace OrvPdf::LexerTests
