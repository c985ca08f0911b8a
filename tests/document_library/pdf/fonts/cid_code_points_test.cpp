#include "pdf/fonts/cid_code_points.h"

#include "pdf/fonts/cmap.h"
#include "pdf/fonts/cmap_library.h"
#include "pdf/fonts/to_unicode.h"

#include "support/temporary_folder.h"

#include <cstdint>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvPdf::CMap;
using OrvPdf::CMapLibrary;
using OrvPdf::FindCodePointOfCid;
using OrvPdf::MakeCodePointsOfCids;
using ::testing::ElementsAre;

constexpr const char* fourBytes = "begincodespacerange <00000000> <0010FFFF> endcodespacerange ";

TEST(CidCodePoints, AreThoseOfTheMapToUnicode)
{
    const HarrowSupport::Testing::TemporaryFolder folder;
    folder.Write("Adobe-Japan1-UCS2", "beginbfchar <0000> <FFFD> <0001> <0041> <0003> <D840DC0B> endbfchar");
    CMapLibrary library({folder.GetPath().string()});
    EXPECT_THAT(MakeCodePointsOfCids("Japan1", library), ElementsAre(0, U'A', 0, U'\U0002000B'));
}

TEST(CidCodePoints, AreThoseThatMapsFromUnicodeLeadFrom)
{
    const HarrowSupport::Testing::TemporaryFolder folder;
    folder.Write("UniGB-UTF32-H",
                 std::string(fourBytes) + "begincidrange <00000041> <00000042> 1 endcidrange");
    folder.Write("UniGB-UTF32-V",
                 std::string(fourBytes) + "begincidchar <00002014> 4 <00000043> 2 endcidchar");
    CMapLibrary library({folder.GetPath().string()});
    EXPECT_THAT(MakeCodePointsOfCids("GB1", library), ElementsAre(0, U'A', U'B', 0, U'\u2014'));
}

TEST(CidCodePoints, AreThePlainestOnes)
{
    const HarrowSupport::Testing::TemporaryFolder folder;
    // A letter before a space that does not break, a character before a radical or a compatibility form,
    // anything before private use.
    folder.Write("Adobe-CNS1-UCS2",
                 "beginbfchar <0001> <00A0> <0002> <E001> <0003> <E002> <0004> <0303> endbfchar");
    folder.Write("UniCNS-UTF32-H", std::string(fourBytes) +
                                       "begincidchar <00000020> 1 <00002F00> 2 <00004E00> 2 <0000F900> 3 "
                                       "<000002DC> 4 <0002F800> 5 <00004E3D> 5 endcidchar");
    CMapLibrary library({folder.GetPath().string()});
    EXPECT_THAT(MakeCodePointsOfCids("CNS1", library),
                ElementsAre(0, U' ', U'\u4E00', U'\uF900', U'\u02DC', U'\u4E3D'));
}

TEST(CidCodePoints, OfTheMapToUnicodeWinAmongEquals)
{
    const HarrowSupport::Testing::TemporaryFolder folder;
    folder.Write("Adobe-KR-UCS2", "beginbfchar <0001> <2014> endbfchar");
    folder.Write("UniAKR-UTF32-H", std::string(fourBytes) + "begincidchar <00002010> 1 endcidchar");
    CMapLibrary library({folder.GetPath().string()});
    EXPECT_THAT(MakeCodePointsOfCids("KR", library), ElementsAre(0, U'\u2014'));
}

TEST(CidCodePoints, AreThoseWithoutTheSelectorOfAForm)
{
    const HarrowSupport::Testing::TemporaryFolder folder;
    folder.Write("Adobe-Korea1-UCS2", "beginbfchar <0001> <9022DB40DD00> <0002> <0030FE00> <0003> <00410042> "
                                      "<0004> <D840DC0B0041> endbfchar");
    CMapLibrary library({folder.GetPath().string()});
    EXPECT_THAT(MakeCodePointsOfCids("Korea1", library), ElementsAre(0, U'\u9022', U'0'));
}

TEST(CidCodePoints, AreNoneOfUnknownOrderings)
{
    CMapLibrary library({});
    EXPECT_THAT(MakeCodePointsOfCids("Identity", library), ElementsAre());
    EXPECT_THAT(MakeCodePointsOfCids("Japan1", library), ElementsAre());
    EXPECT_EQ(FindCodePointOfCid("Identity", 65), U'\0');
    EXPECT_EQ(FindCodePointOfCid("", 65), U'\0');
}

/// With what the package poppler-data brings.
class CidCodePointsOfTheMachine : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!CMap::FindPredefined("UniJIS-UTF32-H"))
            GTEST_SKIP() << "install poppler-data to run this test";
    }
};

TEST_F(CidCodePointsOfTheMachine, AreFoundForEachCollection)
{
    EXPECT_EQ(FindCodePointOfCid("Japan1", 1200), U'\u4E00');
    EXPECT_EQ(FindCodePointOfCid("Japan1", 34), U'A');
    EXPECT_EQ(FindCodePointOfCid("GB1", 34), U'A');
    EXPECT_EQ(FindCodePointOfCid("CNS1", 34), U'A');
    EXPECT_EQ(FindCodePointOfCid("Korea1", 34), U'A');
    EXPECT_EQ(FindCodePointOfCid("KR", 34), U'A');
    EXPECT_EQ(FindCodePointOfCid("Japan1", 13839), U'\U0002000B');
}

TEST_F(CidCodePointsOfTheMachine, AreZeroWhereNothingIsKnown)
{
    EXPECT_EQ(FindCodePointOfCid("Japan1", 0), U'\0');
    EXPECT_EQ(FindCodePointOfCid("Japan1", 65535), U'\0');
    EXPECT_EQ(FindCodePointOfCid("Japan1", 0xFFFFFFFF), U'\0');
}

TEST_F(CidCodePointsOfTheMachine, ComeBackFromTheMapFromUnicode)
{
    const auto map = CMap::FindPredefined("UniJIS-UTF32-H");
    for (char32_t codePoint = 0x4E00; codePoint < 0x9FA0; ++codePoint) {
        const std::string bytes = {0, 0, static_cast<char>(codePoint >> 8),
                                   static_cast<char>(codePoint & 0xFF)};
        std::string_view shown = bytes;
        const std::uint32_t cid = map->Next(shown).cid;
        if (cid == 0)
            continue;
        const char32_t back = FindCodePointOfCid("Japan1", cid);
        EXPECT_TRUE(back >= 0x3400 && back < 0xA000) << "U+" << std::hex << static_cast<unsigned>(codePoint)
                                                     << " came back as U+" << static_cast<unsigned>(back);
    }
}

} // namespace
