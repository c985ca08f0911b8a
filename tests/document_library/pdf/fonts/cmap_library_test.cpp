#include "pdf/fonts/cmap_library.h"

#include "pdf/fonts/range_cmap.h"

#include "support/temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using HarrowSupport::Testing::TemporaryFolder;
using OrvFont::WritingMode;
using OrvPdf::CMap;
using OrvPdf::CMapLibrary;
using ::testing::ElementsAre;
using namespace std::string_view_literals;

std::string FileOf(const std::string& name, unsigned cid, const std::string& more = "")
{
    return "/CMapName /" + name + " def begincodespacerange <00> <FF> endcodespacerange begincidchar <41> " +
           std::to_string(cid) + " endcidchar " + more;
}

std::uint32_t CidOfA(CMapLibrary& library, const std::string& name)
{
    const auto map = library.Find(name);
    if (!map)
        return 0xFFFFFFFF;
    std::string_view shown = "A";
    return map->Next(shown).cid;
}

std::vector<std::uint32_t> CidsOf(const std::string& name, std::string_view shown)
{
    const auto map = CMap::FindPredefined(name);
    std::vector<std::uint32_t> cids;
    while (map && !shown.empty())
        cids.push_back(map->Next(shown).cid);
    return cids;
}

TEST(CMapLibrary, FindsFilesInFoldersAndInFoldersInThese)
{
    const TemporaryFolder folder;
    boost::filesystem::create_directory(folder.GetPath() / "Collection");
    folder.Write("Plain-H", FileOf("Plain-H", 1));
    folder.Write("Collection/Inner-H", FileOf("Inner-H", 2));
    CMapLibrary library({folder.GetPath().string()});
    EXPECT_EQ(CidOfA(library, "Plain-H"), 1u);
    EXPECT_EQ(CidOfA(library, "Inner-H"), 2u);
    EXPECT_EQ(library.Find("Collection"), nullptr);
    EXPECT_EQ(library.Find("Collection/Inner-H"), nullptr);
    EXPECT_EQ(library.Find(""), nullptr);
    EXPECT_EQ(library.Find(".."), nullptr);
}

TEST(CMapLibrary, TakesTheFileOfTheEarlierFolder)
{
    const TemporaryFolder first;
    const TemporaryFolder second;
    first.Write("A-H", FileOf("A-H", 1));
    second.Write("A-H", FileOf("A-H", 2));
    second.Write("B-H", FileOf("B-H", 3));
    CMapLibrary library({first.GetPath().string(), second.GetPath().string()});
    EXPECT_EQ(CidOfA(library, "A-H"), 1u);
    EXPECT_EQ(CidOfA(library, "B-H"), 3u);
}

TEST(CMapLibrary, HasNothingFromFoldersThatAreNotThere)
{
    CMapLibrary library({"/no/such/folder"});
    EXPECT_EQ(library.Find("H"), nullptr);
    EXPECT_EQ(library.ReadFile("H"), std::nullopt);
}

TEST(CMapLibrary, SplitsAPathAtItsColons)
{
    EXPECT_THAT(CMapLibrary::SplitPath("/a:/b c::/d:"), ElementsAre("/a", "/b c", "/d"));
    EXPECT_THAT(CMapLibrary::SplitPath(""), ElementsAre());
}

TEST(CMapLibrary, ReadsAFileOnce)
{
    const TemporaryFolder folder;
    folder.Write("A-H", FileOf("A-H", 1));
    CMapLibrary library({folder.GetPath().string()});
    const auto map = library.Find("A-H");
    folder.Write("A-H", FileOf("A-H", 2));
    EXPECT_EQ(library.Find("A-H"), map);
    EXPECT_EQ(CidOfA(library, "A-H"), 1u);
}

TEST(CMapLibrary, FindsTheParentsOfItsFiles)
{
    const TemporaryFolder folder;
    folder.Write("A-H", FileOf("A-H", 5));
    folder.Write("A-V", "/A-H usecmap /CMapName /A-V def /WMode 1 def");
    CMapLibrary library({folder.GetPath().string()});
    EXPECT_EQ(CidOfA(library, "A-V"), 5u);
    EXPECT_EQ(library.Find("A-V")->GetWritingMode(), WritingMode::Vertical);
}

TEST(CMapLibrary, ReadsFilesThatLeadToThemselves)
{
    const TemporaryFolder folder;
    folder.Write("Self", FileOf("Self", 7, "/Self usecmap"));
    folder.Write("One", FileOf("One", 8, "/Two usecmap"));
    folder.Write("Two", FileOf("Two", 9, "/One usecmap"));
    CMapLibrary library({folder.GetPath().string()});
    EXPECT_EQ(CidOfA(library, "Self"), 7u);
    EXPECT_EQ(CidOfA(library, "One"), 8u);
    EXPECT_EQ(CidOfA(library, "Two"), 9u);
}

TEST(CMapLibrary, GivesAllThreadsTheSameMap)
{
    const TemporaryFolder folder;
    folder.Write("A-H", FileOf("A-H", 5));
    CMapLibrary library({folder.GetPath().string()});
    std::vector<std::shared_ptr<const CMap>> found(8);
    std::vector<std::thread> threads;
    for (auto& map : found)
        threads.emplace_back([&library, &map] { map = library.Find("A-H"); });
    for (std::thread& thread : threads)
        thread.join();
    ASSERT_NE(found[0], nullptr);
    for (const auto& map : found)
        EXPECT_EQ(map, found[0]);
}

/// What the package poppler-data brings.
class PredefinedCMaps : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!CMap::FindPredefined("UniJIS-UTF16-H"))
            GTEST_SKIP() << "install poppler-data to run this test";
    }
};

TEST_F(PredefinedCMaps, HaveTheirNamesAndCollections)
{
    const auto map = CMap::FindPredefined("90ms-RKSJ-V");
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->GetName(), "90ms-RKSJ-V");
    EXPECT_EQ(map->GetRegistry(), "Adobe");
    EXPECT_EQ(map->GetOrdering(), "Japan1");
    EXPECT_EQ(map->GetWritingMode(), WritingMode::Vertical);
    EXPECT_EQ(CMap::FindPredefined("90ms-RKSJ-H")->GetWritingMode(), WritingMode::Horizontal);
}

TEST_F(PredefinedCMaps, MixCodesOfOneAndTwoBytes)
{
    // A control character, a Latin letter, a kanji of two bytes, a half-width kana, a letter again.
    EXPECT_THAT(CidsOf("90ms-RKSJ-H", "\x01\x41\x88\x9F\xB1\x42"sv), ElementsAre(231, 264, 1125, 343, 265));
}

TEST_F(PredefinedCMaps, ForDownwardsWritingDifferWhereTheyHaveTo)
{
    EXPECT_THAT(CidsOf("UniJIS-UTF16-H", "\x20\x10\x4E\x00"sv), ElementsAre(662, 1200));
    EXPECT_THAT(CidsOf("UniJIS-UTF16-V", "\x20\x10\x4E\x00"sv), ElementsAre(7893, 1200));
}

TEST_F(PredefinedCMaps, TakeSurrogatePairsAsCodesOfFourBytes)
{
    const auto map = CMap::FindPredefined("UniJIS-UTF16-H");
    std::string_view shown = "\xD8\x40\xDC\x0B\x4E\x00"sv;
    const CMap::Code code = map->Next(shown);
    EXPECT_EQ(code.bytes, 4u);
    EXPECT_EQ(code.value, 0xD840DC0Bu);
    EXPECT_NE(code.cid, 0u);
    EXPECT_EQ(map->Next(shown).cid, 1200u);
}

TEST_F(PredefinedCMaps, OfUtf8TakeOneToFourBytes)
{
    EXPECT_THAT(CidsOf("UniJIS-UTF8-H", "\x41\xC2\xA7\xE4\xB8\x80\xF0\xA0\x80\x8B"sv),
                CidsOf("UniJIS-UTF32-H", "\0\0\0\x41\0\0\0\xA7\0\0\x4E\0\0\x02\0\x0B"sv));
    EXPECT_EQ(CidsOf("UniJIS-UTF8-H", "\x41\xC2\xA7\xE4\xB8\x80\xF0\xA0\x80\x8B"sv).size(), 4u);
}

TEST_F(PredefinedCMaps, OfGB18030TakeFourBytesWhereTheSecondSaysSo)
{
    const auto map = CMap::FindPredefined("GBK2K-H");
    ASSERT_NE(map, nullptr);
    std::string_view shown = "\x81\x30\x81\x30\x81\x40\x41"sv;
    EXPECT_EQ(map->Next(shown).bytes, 4u);
    EXPECT_EQ(map->Next(shown).bytes, 2u);
    EXPECT_EQ(map->Next(shown).bytes, 1u);
}

TEST_F(PredefinedCMaps, OfIdentityAreMadeWithoutAFile)
{
    EXPECT_EQ(CMap::FindPredefined("Identity-H"), CMap::GetIdentity(WritingMode::Horizontal));
    EXPECT_EQ(CMap::FindPredefined("Identity-V"), CMap::GetIdentity(WritingMode::Vertical));
}

TEST_F(PredefinedCMaps, AreAllThatTheStandardNames)
{
    // ISO 32000-1, table 118.
    for (const char* const name : {"GB-EUC-H",
                                   "GB-EUC-V",
                                   "GBpc-EUC-H",
                                   "GBpc-EUC-V",
                                   "GBK-EUC-H",
                                   "GBK-EUC-V",
                                   "GBKp-EUC-H",
                                   "GBKp-EUC-V",
                                   "GBK2K-H",
                                   "GBK2K-V",
                                   "UniGB-UCS2-H",
                                   "UniGB-UCS2-V",
                                   "UniGB-UTF16-H",
                                   "UniGB-UTF16-V",
                                   "B5pc-H",
                                   "B5pc-V",
                                   "HKscs-B5-H",
                                   "HKscs-B5-V",
                                   "ETen-B5-H",
                                   "ETen-B5-V",
                                   "ETenms-B5-H",
                                   "ETenms-B5-V",
                                   "CNS-EUC-H",
                                   "CNS-EUC-V",
                                   "UniCNS-UCS2-H",
                                   "UniCNS-UCS2-V",
                                   "UniCNS-UTF16-H",
                                   "UniCNS-UTF16-V",
                                   "83pv-RKSJ-H",
                                   "90ms-RKSJ-H",
                                   "90ms-RKSJ-V",
                                   "90msp-RKSJ-H",
                                   "90msp-RKSJ-V",
                                   "90pv-RKSJ-H",
                                   "Add-RKSJ-H",
                                   "Add-RKSJ-V",
                                   "EUC-H",
                                   "EUC-V",
                                   "Ext-RKSJ-H",
                                   "Ext-RKSJ-V",
                                   "H",
                                   "V",
                                   "UniJIS-UCS2-H",
                                   "UniJIS-UCS2-V",
                                   "UniJIS-UCS2-HW-H",
                                   "UniJIS-UCS2-HW-V",
                                   "UniJIS-UTF16-H",
                                   "UniJIS-UTF16-V",
                                   "KSC-EUC-H",
                                   "KSC-EUC-V",
                                   "KSCms-UHC-H",
                                   "KSCms-UHC-V",
                                   "KSCms-UHC-HW-H",
                                   "KSCms-UHC-HW-V",
                                   "KSCpc-EUC-H",
                                   "UniKS-UCS2-H",
                                   "UniKS-UCS2-V",
                                   "UniKS-UTF16-H",
                                   "UniKS-UTF16-V"}) {
        const auto map = CMap::FindPredefined(name);
        ASSERT_NE(map, nullptr) << name;
        EXPECT_EQ(map->GetName(), name);
        const bool isVertical = std::string_view(name).back() == 'V';
        EXPECT_EQ(map->GetWritingMode(), isVertical ? WritingMode::Vertical : WritingMode::Horizontal)
            << name;
        EXPECT_EQ(map->GetRegistry(), "Adobe") << name;
    }
}

TEST_F(PredefinedCMaps, HaveNoProblems)
{
    for (const char* const name :
         {"UniJIS-UTF16-H", "UniJIS-UTF16-V", "90ms-RKSJ-H", "GBK2K-H", "UniCNS-UTF8-H"}) {
        const auto file = CMapLibrary::GetDefault().ReadFile(name);
        ASSERT_TRUE(file) << name;
        std::string problem;
        CMap::Parse(*file, nullptr, problem);
        EXPECT_EQ(problem, "") << name;
    }
}

TEST_F(PredefinedCMaps, KeepRangesAsRanges)
{
    const auto file = CMapLibrary::GetDefault().ReadFile("Identity-H");
    ASSERT_TRUE(file);
    std::string problem;
    const auto map = CMap::Parse(*file, nullptr, problem);
    const auto* const ranges = dynamic_cast<const OrvPdf::RangeCMap*>(map.get());
    ASSERT_NE(ranges, nullptr);
    EXPECT_EQ(ranges->GetCids(2).GetAll().size(), 1u);
}

} // namespace
