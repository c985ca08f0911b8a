#include "pdf/writer/content/used_fonts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/writer/program_files.h"

namespace OrvPdf
{
namespace
{

using namespace Testing;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::shared_ptr<const OrvFont::Font> MadeFontOf()
{
    return MakeProgramFont(Opened(MakeCompactOpenType(ThreeLetters())), OrvFont::WritingMode::Horizontal);
}

TEST(UsedFonts, EachHasOnePlaceInOrderOfFirstUse)
{
    std::vector<UsedFont> list;
    UsedFonts fonts(list);
    const auto one = MadeFontOf();
    const auto other = MadeFontOf();
    EXPECT_EQ(fonts.Add(one), 0U);
    EXPECT_EQ(fonts.Add(other), 1U);
    EXPECT_EQ(fonts.Add(one), 0U);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0].font, one);
    EXPECT_EQ(list[1].font, other);
}

TEST(UsedFonts, CodesAreThoseOfTheirFont)
{
    std::vector<UsedFont> list;
    UsedFonts fonts(list);
    fonts.Add(MadeFontOf());
    fonts.Add(MadeFontOf());
    fonts.AddCode(1, 3);
    fonts.AddCode(1, 1);
    fonts.AddCode(1, 3);
    EXPECT_THAT(list[0].codes, IsEmpty());
    EXPECT_THAT(list[1].codes, ElementsAre(false, true, false, true));
}

TEST(UsedFonts, CodesOfTwoBytesAreNotedAndNoLongerOnes)
{
    std::vector<UsedFont> list;
    UsedFonts fonts(list);
    fonts.Add(MadeFontOf());
    fonts.AddCode(0, 0xFFFFFFFF);
    fonts.AddCode(0, 0x10000);
    EXPECT_THAT(list[0].codes, IsEmpty());
    fonts.AddCode(0, 0xFFFF);
    ASSERT_EQ(list[0].codes.size(), 0x10000U);
    EXPECT_TRUE(list[0].codes.back());
}

} // namespace
} // namespace OrvPdf
