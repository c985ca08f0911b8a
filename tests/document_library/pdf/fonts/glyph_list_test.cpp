#include "pdf/fonts/glyph_list.h"

#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvPdf::GlyphList;

std::vector<std::string> NamesOf(const GlyphList& list)
{
    std::vector<std::string> names;
    list.Visit([&names](const GlyphList::Entry& entry) { names.emplace_back(entry.name); });
    return names;
}

std::vector<char32_t> CodePointsOf(const GlyphList::Entry& entry)
{
    std::vector<char32_t> codePoints;
    for (std::string_view rest = entry.codePoints; !rest.empty();)
        codePoints.push_back(OrvPdf::TakeCodePoint(rest));
    return codePoints;
}

TEST(GlyphList, HasAllNamesOfAdobesList)
{
    EXPECT_EQ(NamesOf(GlyphList::GetAdobe()).size(), 4281u);
}

TEST(GlyphList, HasAllDingbats)
{
    EXPECT_EQ(NamesOf(GlyphList::GetDingbats()).size(), 201u);
}

TEST(GlyphList, IsSortedByTheBytesOfItsNames)
{
    for (const GlyphList& list : {GlyphList::GetAdobe(), GlyphList::GetDingbats()}) {
        const auto names = NamesOf(list);
        for (std::size_t i = 1; i < names.size(); ++i)
            EXPECT_LT(names[i - 1], names[i]);
    }
}

TEST(GlyphList, FindsEachOfItsNames)
{
    for (const GlyphList& list : {GlyphList::GetAdobe(), GlyphList::GetDingbats()}) {
        list.Visit([&list](const GlyphList::Entry& entry) {
            const auto found = list.Find(entry.name);
            ASSERT_TRUE(found) << entry.name;
            EXPECT_EQ(found->name, entry.name);
            EXPECT_EQ(found->codePoints.data(), entry.codePoints.data());
            EXPECT_EQ(found->isForNewFonts, entry.isForNewFonts);
        });
    }
}

TEST(GlyphList, FindsNoNameThatIsNear)
{
    const GlyphList list = GlyphList::GetAdobe();
    list.Visit([&list](const GlyphList::Entry& entry) {
        EXPECT_FALSE(list.Find(std::string(entry.name) + "!")) << entry.name;
    });
    EXPECT_FALSE(list.Find(""));
    EXPECT_FALSE(list.Find("!"));
    EXPECT_FALSE(list.Find("~"));
    EXPECT_FALSE(list.Find("A:41"));
    EXPECT_FALSE(list.Find("A:41 AE:C6"));
}

TEST(GlyphList, FindsInListsOfEachSmallSize)
{
    EXPECT_FALSE(GlyphList("").Find("a"));
    EXPECT_TRUE(GlyphList("b=1").Find("b"));
    EXPECT_FALSE(GlyphList("b=1").Find("a"));
    EXPECT_FALSE(GlyphList("b=1").Find("c"));
    for (const char* const name : {"b", "d"})
        EXPECT_TRUE(GlyphList("b=1 d=2").Find(name)) << name;
    for (const char* const name : {"a", "c", "e"})
        EXPECT_FALSE(GlyphList("b=1 d=2").Find(name)) << name;
}

TEST(GlyphList, HasOnlyScalarValues)
{
    std::size_t sequences = 0;
    GlyphList::GetAdobe().Visit([&sequences](const GlyphList::Entry& entry) {
        const auto codePoints = CodePointsOf(entry);
        ASSERT_FALSE(codePoints.empty()) << entry.name;
        sequences += codePoints.size() > 1 ? 1 : 0;
        for (const char32_t codePoint : codePoints) {
            EXPECT_TRUE(codePoint < 0xD800 || codePoint > 0xDFFF) << entry.name;
            EXPECT_LE(codePoint, 0xFFFFu) << entry.name;
        }
    });
    EXPECT_EQ(sequences, 81u);
}

TEST(GlyphList, MarksOneNameForACodePointAtMost)
{
    std::vector<bool> isMarked(0x10000);
    std::size_t count = 0;
    GlyphList::GetAdobe().Visit([&](const GlyphList::Entry& entry) {
        if (!entry.isForNewFonts)
            return;
        ++count;
        const char32_t codePoint = CodePointsOf(entry).front();
        EXPECT_FALSE(isMarked[codePoint]) << entry.name;
        isMarked[codePoint] = true;
    });
    EXPECT_EQ(count, 586u);
}

} // namespace
