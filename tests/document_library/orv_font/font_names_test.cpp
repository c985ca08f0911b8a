#include "orv_font/font_names.h"

#include <gtest/gtest.h>

namespace OrvFont::Detail
{
namespace
{

std::string Split(const std::string& name)
{
    const Font::Names names = NamesFromPostScriptName(name);
    return names.name + '|' + names.family + '|' + names.style;
}

TEST(FontNames, LoseTheTagOfASubsetAndNothingElse)
{
    EXPECT_EQ(WithoutSubsetTag("ABCDEF+Foo"), "Foo");
    EXPECT_EQ(WithoutSubsetTag("ABCDEF+ABCDEF+Foo"), "ABCDEF+Foo");
    for (const char* name :
         {"Foo", "ABCDE+Foo", "ABCDEFG+Foo", "ABCDEf+Foo", "ABCDE1+Foo", "ABCDEF+", "ABCDEF", ""})
        EXPECT_EQ(WithoutSubsetTag(name), name);
}

TEST(FontNames, HaveTheStyleBehindADashOrComma)
{
    EXPECT_EQ(Split("Foo-BoldItalic"), "Foo-BoldItalic|Foo|Bold Italic");
    EXPECT_EQ(Split("Foo,Bold"), "Foo,Bold|Foo|Bold");
    EXPECT_EQ(Split("ABCDEF+Foo-Italic"), "Foo-Italic|Foo|Italic");
    EXPECT_EQ(Split("TimesNewRomanPS-BoldMT"), "TimesNewRomanPS-BoldMT|TimesNewRomanPS|Bold MT");
}

TEST(FontNames, WithoutAStyleAreRegular)
{
    EXPECT_EQ(Split("Foo"), "Foo|Foo|Regular");
    EXPECT_EQ(Split("Foo-"), "Foo-|Foo|Regular");
    EXPECT_EQ(Split("-Foo"), "-Foo|-Foo|Regular");
}

} // namespace
} // namespace OrvFont::Detail
