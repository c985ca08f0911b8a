#include "pdf/fonts/cmap.h"

#include "pdf/fonts/range_cmap.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvFont::WritingMode;
using OrvPdf::CMap;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using namespace std::string_view_literals;

constexpr const char* twoBytes = "1 begincodespacerange <0000> <FFFF> endcodespacerange\n";
constexpr const char* oneByte = "1 begincodespacerange <00> <FF> endcodespacerange\n";

struct Parsed
{
    std::shared_ptr<const CMap> map;
    std::string problem;
};

Parsed Parse(const std::string& file, std::shared_ptr<const CMap> parent = nullptr)
{
    Parsed parsed;
    parsed.map = CMap::Parse(file, std::move(parent), parsed.problem);
    return parsed;
}

/// A file in which nothing is wrong.
std::shared_ptr<const CMap> ParseGood(const std::string& file, std::shared_ptr<const CMap> parent = nullptr)
{
    const Parsed parsed = Parse(file, std::move(parent));
    EXPECT_EQ(parsed.problem, "");
    return parsed.map;
}

std::vector<std::uint32_t> CidsOf(const CMap& map, std::string_view shown)
{
    std::vector<std::uint32_t> cids;
    while (!shown.empty())
        cids.push_back(map.Next(shown).cid);
    return cids;
}

TEST(CMap, IdentityTakesTwoBytesForACid)
{
    const auto map = CMap::GetIdentity(WritingMode::Horizontal);
    std::string_view shown = "\x12\x34\xFF\xFF"sv;
    const CMap::Code code = map->Next(shown);
    EXPECT_EQ(code.value, 0x1234u);
    EXPECT_EQ(code.bytes, 2u);
    EXPECT_EQ(code.cid, 0x1234u);
    EXPECT_EQ(shown, "\xFF\xFF"sv);
    EXPECT_THAT(CidsOf(*map, shown), ElementsAre(0xFFFF));
}

TEST(CMap, IdentityTellsItsName)
{
    const auto horizontal = CMap::GetIdentity(WritingMode::Horizontal);
    const auto vertical = CMap::GetIdentity(WritingMode::Vertical);
    EXPECT_EQ(horizontal->GetName(), "Identity-H");
    EXPECT_EQ(horizontal->GetWritingMode(), WritingMode::Horizontal);
    EXPECT_EQ(horizontal->GetRegistry(), "Adobe");
    EXPECT_EQ(horizontal->GetOrdering(), "Identity");
    EXPECT_EQ(vertical->GetName(), "Identity-V");
    EXPECT_EQ(vertical->GetWritingMode(), WritingMode::Vertical);
    EXPECT_THAT(CidsOf(*vertical, "\x12\x34"sv), ElementsAre(0x1234));
}

TEST(CMap, IdentityTakesASingleByteAtTheEnd)
{
    const auto map = CMap::GetIdentity(WritingMode::Horizontal);
    std::string_view shown = "\x12"sv;
    const CMap::Code code = map->Next(shown);
    EXPECT_EQ(code.bytes, 1u);
    EXPECT_EQ(code.cid, 0u);
    EXPECT_TRUE(shown.empty());
}

TEST(CMap, IsReadWithItsEntries)
{
    const auto map =
        ParseGood("%!PS-Adobe-3.0 Resource-CMap\n"
                  "/CIDInit /ProcSet findresource begin 12 dict begin begincmap\n"
                  "/CIDSystemInfo 3 dict dup begin /Registry (Maker) def /Ordering (Order) def\n"
                  "/Supplement 2 def end def /CMapName /Example-V def /CMapType 1 def\n"
                  "/WMode 1 def\n" +
                  std::string(twoBytes) + "endcmap CMapName currentdict /CMap defineresource pop end end");
    EXPECT_EQ(map->GetName(), "Example-V");
    EXPECT_EQ(map->GetRegistry(), "Maker");
    EXPECT_EQ(map->GetOrdering(), "Order");
    EXPECT_EQ(map->GetWritingMode(), WritingMode::Vertical);
}

TEST(CMap, IsReadWithItsSystemInfoAsADictionary)
{
    const auto map = ParseGood("/CIDSystemInfo <</Registry(Maker)/Ordering(Order)/Supplement 0>> def " +
                               std::string(twoBytes));
    EXPECT_EQ(map->GetRegistry(), "Maker");
    EXPECT_EQ(map->GetOrdering(), "Order");
    EXPECT_EQ(map->GetName(), "");
    EXPECT_EQ(map->GetWritingMode(), WritingMode::Horizontal);
}

TEST(CMap, MapsRangesAndSingleCodes)
{
    const auto map =
        ParseGood(std::string(twoBytes) + "2 begincidrange <0020> <007E> 1 <0100> <01FF> 1000 endcidrange\n"
                                          "1 begincidchar <0080> 500 endcidchar");
    EXPECT_THAT(CidsOf(*map, "\x00\x1F\x00\x20\x00\x7E\x00\x7F"sv), ElementsAre(0, 1, 95, 0));
    EXPECT_THAT(CidsOf(*map, "\x00\x80\x00\x81\x01\x00\x01\xFF\x02\x00"sv),
                ElementsAre(500, 0, 1000, 1255, 0));
}

TEST(CMap, TellsCodesOfDifferentLengthsApart)
{
    const auto map = ParseGood("begincodespacerange <00> <80> <8140> <9FFC> endcodespacerange\n"
                               "begincidchar <41> 1 <8141> 2 endcidchar");
    std::string_view shown = "\x41\x81\x41\x41"sv;
    EXPECT_EQ(map->Next(shown).bytes, 1u);
    const CMap::Code code = map->Next(shown);
    EXPECT_EQ(code.bytes, 2u);
    EXPECT_EQ(code.value, 0x8141u);
    EXPECT_EQ(code.cid, 2u);
    EXPECT_EQ(map->Next(shown).cid, 1u);
}

TEST(CMap, KeepsAShortCodeApartFromALongOneOfTheSameNumber)
{
    const auto map = ParseGood("begincodespacerange <41> <41> <0000> <00FF> endcodespacerange\n"
                               "begincidchar <41> 1 <0041> 2 endcidchar");
    EXPECT_THAT(CidsOf(*map, "\x41\x00\x41"sv), ElementsAre(1, 2));
}

TEST(CMap, TakesCodesOfOtherLengthsByTheirNumberWhereAllCodesHaveOne)
{
    const auto map = ParseGood(std::string(twoBytes) + "begincidrange <20> <7E> 1 endcidrange");
    EXPECT_THAT(CidsOf(*map, "\x00\x21"sv), ElementsAre(2));
    const auto narrow = ParseGood(std::string(oneByte) + "begincidrange <0020> <01FF> 1 endcidrange\n"
                                                         "begincidchar <0121> 7 <21> 9 endcidchar");
    EXPECT_THAT(CidsOf(*narrow, "\x21\x22\xFF"sv), ElementsAre(9, 3, 224));
}

TEST(CMap, GivesNotdefCidsToCodesWithoutACid)
{
    const auto map = ParseGood(std::string(oneByte) + "beginnotdefrange <00> <1F> 231 endnotdefrange\n"
                                                      "beginnotdefchar <7F> 5 endnotdefchar\n"
                                                      "begincidchar <0A> 7 endcidchar");
    EXPECT_THAT(CidsOf(*map, "\x00\x09\x0A\x0B\x1F\x20\x7F"sv), ElementsAre(231, 231, 7, 231, 231, 0, 5));
}

TEST(CMap, GivesCodesOutsideTheCodespaceNoCid)
{
    const auto map = ParseGood("begincodespacerange <20> <7F> <8000> <80FF> endcodespacerange\n"
                               "begincidrange <00> <FF> 1 <8000> <FFFF> 500 endcidrange\n"
                               "beginnotdefrange <00> <FF> 7 endnotdefrange");
    EXPECT_THAT(CidsOf(*map, "\x1F\x20\x81\x80"sv), ElementsAre(0, 33, 0, 0));
}

TEST(CMap, LetsLaterEntriesWin)
{
    const auto map = ParseGood(std::string(oneByte) + "begincidrange <00> <FF> 0 endcidrange\n"
                                                      "begincidchar <41> 1000 <41> 1001 endcidchar");
    EXPECT_THAT(CidsOf(*map, "\x40\x41\x42"sv), ElementsAre(0x40, 1001, 0x42));
}

TEST(CMap, AsksItsParentForWhatItLacks)
{
    const auto parent = ParseGood(std::string(oneByte) +
                                  "begincidrange <00> <7F> 100 endcidrange beginnotdefrange <80> <FF> 9 "
                                  "endnotdefrange /WMode 1 def /CMapName /Parent def");
    const auto map = ParseGood(
        "begincidchar <41> 1 <90> 2 endcidchar beginnotdefchar <42> 3 <91> 4 endnotdefchar", parent);
    EXPECT_THAT(CidsOf(*map, "\x40\x41\x42\x80\x90\x91"sv), ElementsAre(164, 1, 166, 9, 2, 4));
    EXPECT_EQ(map->GetName(), "");
    EXPECT_EQ(map->GetWritingMode(), WritingMode::Horizontal);
}

TEST(CMap, HasTheCodespaceOfItsParentToo)
{
    const auto parent = ParseGood("begincodespacerange <8000> <FFFF> endcodespacerange");
    const auto map = ParseGood(
        "begincodespacerange <00> <7F> endcodespacerange begincidchar <41> 1 <8041> 2 endcidchar", parent);
    EXPECT_THAT(CidsOf(*map, "\x41\x80\x41"sv), ElementsAre(1, 2));
}

TEST(CMap, TakesTheParentOfItsDictionaryBeforeThatOfItsFile)
{
    const auto parent = ParseGood(std::string(twoBytes) + "begincidchar <0001> 77 endcidchar");
    EXPECT_THAT(CidsOf(*ParseGood("/Identity-H usecmap", parent), "\x00\x01"sv), ElementsAre(77));
    EXPECT_THAT(CidsOf(*ParseGood("/Identity-H usecmap"), "\x00\x01"sv), ElementsAre(1));
}

TEST(CMap, TellsThatAParentIsUnknown)
{
    const Parsed parsed = Parse("/NoSuchMap usecmap " + std::string(twoBytes));
    EXPECT_THAT(parsed.problem, HasSubstr("unknown CMap"));
    EXPECT_THAT(CidsOf(*parsed.map, "\x00\x01"sv), ElementsAre(0));
}

TEST(CMap, NamesNoFileOutsideTheFoldersAsItsParent)
{
    EXPECT_THAT(Parse("/../../../../etc/passwd usecmap").problem, HasSubstr("unknown CMap"));
}

TEST(CMap, BoundsTheDepthOfParents)
{
    std::shared_ptr<const CMap> map = ParseGood(std::string(oneByte) + "begincidchar <00> 1 endcidchar");
    for (unsigned depth = 2; depth <= OrvPdf::RangeCMap::maximalDepth; ++depth)
        map = ParseGood("", map);
    EXPECT_THAT(CidsOf(*map, "\x00"sv), ElementsAre(1));
    const Parsed tooDeep = Parse(oneByte, map);
    EXPECT_THAT(tooDeep.problem, HasSubstr("too many CMaps"));
    EXPECT_THAT(CidsOf(*tooDeep.map, "\x00"sv), ElementsAre(0));
}

TEST(CMap, CutsRangesAtTheLargestCid)
{
    const Parsed parsed = Parse("begincodespacerange <00000000> <FFFFFFFF> endcodespacerange "
                                "begincidrange <00000000> <FFFFFFFF> 65530 endcidrange");
    EXPECT_THAT(parsed.problem, HasSubstr("beyond the largest CID"));
    EXPECT_THAT(CidsOf(*parsed.map, "\x00\x00\x00\x05\x00\x00\x00\x06\xFF\xFF\xFF\xFF"sv),
                ElementsAre(65535, 0, 0));
}

TEST(CMap, LeavesOutCidsThatAreNone)
{
    const Parsed parsed = Parse(std::string(oneByte) + "begincidchar <01> 65536 <02> -1 <03> 3 endcidchar");
    EXPECT_THAT(parsed.problem, HasSubstr("(and 1 more)"));
    EXPECT_THAT(CidsOf(*parsed.map, "\x01\x02\x03"sv), ElementsAre(0, 0, 3));
}

TEST(CMap, WithoutACodespaceTakesTheLengthOfItsCodes)
{
    const Parsed one = Parse("begincidrange <20> <7E> 1 endcidrange");
    EXPECT_THAT(one.problem, HasSubstr("no codespace range"));
    EXPECT_THAT(CidsOf(*one.map, "\x20\x21"sv), ElementsAre(1, 2));
    EXPECT_THAT(CidsOf(*Parse("begincidrange <000020> <00007E> 1 endcidrange").map, "\x00\x00\x20"sv),
                ElementsAre(1));
}

TEST(CMap, WithoutAnythingTakesTwoBytes)
{
    const Parsed parsed = Parse("");
    EXPECT_THAT(parsed.problem, HasSubstr("no codespace range"));
    EXPECT_THAT(CidsOf(*parsed.map, "\x00\x20\x00"sv), ElementsAre(0, 0));
}

TEST(CMap, ReadsOnBehindDamagedEntries)
{
    const char* const damages[] = {
        "<01> 5",                      // one end
        "/Name",                       // no code
        "<0102030405> <0102030405> 3", // too long
        "<> <> 3",                     // too short
        "<05> <04> 3",                 // the wrong way round
        "[ <01> ]",                    // an array
        "def pop",                     // words
    };
    for (const char* const damage : damages) {
        const Parsed parsed = Parse(std::string(oneByte) + "begincidrange <20> <2F> 1 " + damage +
                                    " <41> <42> 7 endcidrange begincidchar <50> 9 endcidchar");
        EXPECT_THAT(parsed.problem, HasSubstr("begincidrange")) << damage;
        EXPECT_THAT(CidsOf(*parsed.map, "\x20\x42\x50"sv), ElementsAre(1, 8, 9)) << damage;
    }
}

TEST(CMap, ReadsOnBehindARangeWithoutACid)
{
    const Parsed parsed = Parse(std::string(oneByte) +
                                "begincidrange <20> <2F> 1 <01> <02> <41> <42> 7 <50> <51> 9 endcidrange");
    EXPECT_THAT(parsed.problem, HasSubstr("a code without a CID"));
    EXPECT_THAT(CidsOf(*parsed.map, "\x20\x02\x50"sv), ElementsAre(1, 0, 9));
    EXPECT_THAT(CidsOf(*parsed.map, "\x41"sv), ElementsAre(7));
}

TEST(CMap, ReadsABlockThatHasNoEnd)
{
    const Parsed next =
        Parse(std::string(oneByte) + "begincidrange <20> <2F> 1 begincidchar <50> 9 endcidchar");
    EXPECT_THAT(next.problem, HasSubstr("begincidrange has no end"));
    EXPECT_THAT(CidsOf(*next.map, "\x21\x50"sv), ElementsAre(2, 9));
    const Parsed cut = Parse(std::string(oneByte) + "begincidrange <20> <2F> 1 <30> <3");
    EXPECT_THAT(cut.problem, HasSubstr("has"));
    EXPECT_THAT(CidsOf(*cut.map, "\x21\x30"sv), ElementsAre(2, 0));
}

TEST(CMap, TakesARangeWithEndsOfDifferentLengthsByTheLonger)
{
    const Parsed parsed = Parse("begincodespacerange <00> <FFFF> endcodespacerange "
                                "begincidrange <00> <FFFF> 0 endcidrange");
    EXPECT_THAT(parsed.problem, HasSubstr("different lengths"));
    EXPECT_THAT(CidsOf(*parsed.map, "\x12\x34"sv), ElementsAre(0x1234));
}

TEST(CMap, HasNoProblemWithWrongCounts)
{
    const auto map =
        ParseGood(std::string(oneByte) + "200 begincidchar <01> 5 endcidchar begincidchar <02> 6 endcidchar");
    EXPECT_THAT(CidsOf(*map, "\x01\x02"sv), ElementsAre(5, 6));
}

TEST(CMap, ClearsTheProblemOfAnEarlierFile)
{
    std::string problem = "old";
    CMap::Parse(twoBytes, nullptr, problem);
    EXPECT_EQ(problem, "");
}

} // namespace
