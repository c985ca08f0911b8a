#include "pdf/fonts/to_unicode.h"

#include "pdf/fonts/cmap_library.h"

#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvPdf::ToUnicodeMap;

constexpr const char* twoBytes = "1 begincodespacerange <0000> <FFFF> endcodespacerange\n";

std::shared_ptr<const ToUnicodeMap> Parse(const std::string& file)
{
    return ToUnicodeMap::Parse(file);
}

TEST(ToUnicode, MapsSingleCodes)
{
    const auto map = Parse(std::string(twoBytes) + "2 beginbfchar <0003> <0020> <0024> <20AC> endbfchar");
    EXPECT_EQ(map->Find(0x0003, 2), u" ");
    EXPECT_EQ(map->Find(0x0024, 2), u"\u20AC");
    EXPECT_EQ(map->Find(0x0025, 2), u"");
}

TEST(ToUnicode, MapsRangesToFollowingCharacters)
{
    const auto map = Parse("1 beginbfrange <0041> <0043> <0061> endbfrange");
    EXPECT_EQ(map->Find(0x40, 2), u"");
    EXPECT_EQ(map->Find(0x41, 2), u"a");
    EXPECT_EQ(map->Find(0x43, 2), u"c");
    EXPECT_EQ(map->Find(0x44, 2), u"");
}

TEST(ToUnicode, MapsRangesToArrays)
{
    const auto map = Parse(
        "1 beginbfrange <0005> <0007> [<0041> <00660066> <D835DC00>] <0010> <0010> [<0042>] endbfrange");
    EXPECT_EQ(map->Find(5, 2), u"A");
    EXPECT_EQ(map->Find(6, 2), u"ff");
    EXPECT_EQ(map->Find(7, 2), u"\U0001D400");
    EXPECT_EQ(map->Find(0x10, 2), u"B");
}

TEST(ToUnicode, LeavesOutWhatAnArrayHasTooMuchOrTooLittle)
{
    const auto map =
        Parse("beginbfrange <0005> <0006> [<0041> <0042> <0043>] <0010> <0012> [<0044>] endbfrange");
    EXPECT_EQ(map->Find(6, 2), u"B");
    EXPECT_EQ(map->Find(7, 2), u"");
    EXPECT_EQ(map->Find(0x10, 2), u"D");
    EXPECT_EQ(map->Find(0x11, 2), u"");
}

TEST(ToUnicode, MapsToLigatures)
{
    const auto map =
        Parse("beginbfchar <01> <006600660069> endbfchar beginbfrange <02> <04> <00660069> endbfrange");
    EXPECT_EQ(map->Find(1, 1), u"ffi");
    EXPECT_EQ(map->Find(2, 1), u"fi");
    EXPECT_EQ(map->Find(4, 1), u"fk");
}

TEST(ToUnicode, MapsToSurrogatePairs)
{
    const auto map =
        Parse("beginbfchar <01> <D840DC0B> endbfchar beginbfrange <02> <05> <D835DFFE> endbfrange");
    EXPECT_EQ(map->Find(1, 1), u"\U0002000B");
    EXPECT_EQ(map->Find(2, 1), u"\U0001D7FE");
    EXPECT_EQ(map->Find(3, 1), u"\U0001D7FF");
    EXPECT_EQ(map->Find(4, 1), u"\U0001D800") << "the low half has come to its end";
}

TEST(ToUnicode, GoesOnFromThePlaneOfUnitsToThatOfPairs)
{
    EXPECT_EQ(Parse("beginbfrange <00> <0F> <FFFE> endbfrange")->Find(3, 1), u"\U00010001");
}

TEST(ToUnicode, GoesNotFromCharactersToHalvesOfPairs)
{
    const auto map =
        Parse("beginbfrange <00> <0F> <D7FE> endbfrange beginbfrange <10> <1F> <DBFFDFFE> endbfrange");
    EXPECT_EQ(map->Find(1, 1), u"\uD7FF");
    EXPECT_EQ(map->Find(2, 1), u"");
    EXPECT_EQ(map->Find(0x11, 1), u"\U0010FFFF");
    EXPECT_EQ(map->Find(0x12, 1), u"");
}

TEST(ToUnicode, TellsCodesOfOneByteFromCodesOfTwo)
{
    const auto map = Parse("beginbfchar <41> <0061> <0041> <0062> endbfchar");
    EXPECT_EQ(map->Find(0x41, 1), u"a");
    EXPECT_EQ(map->Find(0x41, 2), u"b");
}

TEST(ToUnicode, FindsCodesThatAreWrittenWithAnotherLength)
{
    const auto map = Parse("beginbfchar <41> <0061> <0042> <0062> endbfchar");
    EXPECT_EQ(map->Find(0x41, 2), u"a");
    EXPECT_EQ(map->Find(0x42, 1), u"b");
    EXPECT_EQ(map->Find(0x41, 0), u"");
    EXPECT_EQ(map->Find(0x41, 5), u"");
}

TEST(ToUnicode, LetsLaterEntriesWin)
{
    const auto map =
        Parse("beginbfrange <00> <FF> <0100> endbfrange beginbfchar <41> <0041> <41> <0042> endbfchar");
    EXPECT_EQ(map->Find(0x40, 1), u"\u0140");
    EXPECT_EQ(map->Find(0x41, 1), u"B");
    EXPECT_EQ(map->Find(0x42, 1), u"\u0142");
}

TEST(ToUnicode, ReadsGlyphNames)
{
    const auto map = Parse("beginbfchar <01> /Euro <02> /f_f <03> /nonsense <04> <0041> endbfchar");
    EXPECT_EQ(map->Find(1, 1), u"\u20AC");
    EXPECT_EQ(map->Find(2, 1), u"ff");
    EXPECT_EQ(map->Find(3, 1), u"");
    EXPECT_EQ(map->Find(4, 1), u"A");
}

TEST(ToUnicode, ReadsASingleByteAsACharacter)
{
    EXPECT_EQ(Parse("beginbfchar <01> <41> endbfchar")->Find(1, 1), u"A");
    EXPECT_EQ(Parse("beginbfchar <01> <E9> endbfchar")->Find(1, 1), u"\u00E9");
}

TEST(ToUnicode, HasNoTextForAnEmptyOne)
{
    const auto map = Parse("beginbfchar <01> <> <02> <0041> endbfchar");
    EXPECT_EQ(map->Find(1, 1), u"");
    EXPECT_EQ(map->Find(2, 1), u"A");
}

TEST(ToUnicode, KeepsAHalfOfAPairThatStandsAlone)
{
    EXPECT_EQ(Parse("beginbfchar <01> <D835> endbfchar")->Find(1, 1), std::u16string(1, 0xD835));
}

TEST(ToUnicode, TakesTextsFromAMapOfTheMachine)
{
    if (!OrvPdf::CMapLibrary::GetDefault().ReadFile("Adobe-Japan1-UCS2"))
        GTEST_SKIP() << "install poppler-data to run this test";
    const auto map = Parse("/Adobe-Japan1-UCS2 usecmap beginbfchar <0022> <0061> endbfchar");
    EXPECT_EQ(map->Find(1200, 2), u"\u4E00");
    EXPECT_EQ(map->Find(34, 2), u"a") << "and not A, since the file itself says more";
}

TEST(ToUnicode, TakesNothingFromAMapThatIsNotThere)
{
    EXPECT_EQ(Parse("/NoSuchMap usecmap beginbfchar <01> <0061> endbfchar")->Find(1, 1), u"a");
}

TEST(ToUnicode, ReadsOnBehindDamage)
{
    const auto map = Parse("beginbfchar <01> <0041> def <02> 5 <0000000003> <0043> <04> <0044> endbfchar\n"
                           "beginbfrange <10> <11> [<0045> 3 <0046>] <20> <21> <0047> endbfrange\n"
                           "beginbfrange <31> <30> <0048> <32> <33> <0049>");
    EXPECT_EQ(map->Find(1, 1), u"A");
    EXPECT_EQ(map->Find(3, 1), u"");
    EXPECT_EQ(map->Find(4, 1), u"D");
    EXPECT_EQ(map->Find(0x10, 1), u"E");
    EXPECT_EQ(map->Find(0x30, 1), u"");
    EXPECT_EQ(map->Find(0x33, 1), u"J");
}

TEST(ToUnicode, OfAnyOtherBytesHasNothing)
{
    EXPECT_EQ(Parse("")->Find(0, 1), u"");
    EXPECT_EQ(Parse("begincidrange <00> <FF> 0 endcidrange")->Find(0x41, 1), u"");
    EXPECT_EQ(Parse(std::string("\x00\xFF<<<(((beginbfchar", 20))->Find(0, 1), u"");
}

} // namespace
