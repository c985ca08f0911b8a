#include "orv_font/library_fonts.h"

#include <cstdlib>
#include <stdexcept>

#include <gmock/gmock.h>

#include "support/temporary_folder.h"
#include "support/type1_maker.h"

namespace HarrowSupport::Testing
{
namespace
{

using namespace OrvFont::Detail;
using ::testing::AllOf;
using ::testing::HasSubstr;

/// Folders of fonts for the time of a test.
class FontPath
{
public:
    explicit FontPath(const std::string& folders) { setenv("ORV_FONT_PATH", folders.c_str(), 1); }
    ~FontPath() { unsetenv("ORV_FONT_PATH"); }
    FontPath(const FontPath&) = delete;
    FontPath& operator=(const FontPath&) = delete;
};

std::string ProblemOf(const std::string& name)
{
    try {
        ReplacementFor(name);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

TEST(LibraryFonts, ReplaceTheStandardFonts)
{
    EXPECT_EQ(ReplacementFor("QuorleSerif").name, "LiberationSerif");
    EXPECT_EQ(ReplacementFor("Helvetica").name, "LiberationSans");
    EXPECT_EQ(ReplacementFor("Helvetica-Bold").name, "LiberationSans-Bold");
    EXPECT_EQ(ReplacementFor("Helvetica-Oblique").name, "LiberationSans-Italic");
    EXPECT_EQ(ReplacementFor("Helvetica-BoldOblique").name, "LiberationSans-BoldItalic");
    EXPECT_EQ(ReplacementFor("Times-Roman").name, "LiberationSerif");
    EXPECT_EQ(ReplacementFor("Times-Bold").name, "LiberationSerif-Bold");
    EXPECT_EQ(ReplacementFor("Times-Italic").name, "LiberationSerif-Italic");
    EXPECT_EQ(ReplacementFor("Times-BoldItalic").name, "LiberationSerif-BoldItalic");
    EXPECT_EQ(ReplacementFor("Courier").name, "LiberationMono");
    EXPECT_EQ(ReplacementFor("Courier-Bold").name, "LiberationMono-Bold");
    EXPECT_EQ(ReplacementFor("Courier-Oblique").name, "LiberationMono-Italic");
    EXPECT_EQ(ReplacementFor("Courier-BoldOblique").name, "LiberationMono-BoldItalic");
    EXPECT_EQ(ReplacementFor("Symbol").name, "DejaVuSans");
    EXPECT_EQ(ReplacementFor("ZapfDingbats").name, "DejaVuSans");
}

TEST(LibraryFonts, HaveTheAdvancesOfTheStandardFonts)
{
    const auto advanceOf = [](const std::string& name, char32_t codePoint) {
        const auto program = ReplacementFor(name).program;
        return program->GetAdvance(program->FindGlyphByCodePoint(codePoint));
    };
    EXPECT_NEAR(advanceOf("Helvetica", 'A'), 667.0, 0.5);
    EXPECT_NEAR(advanceOf("Helvetica-Bold", 'A'), 722.0, 0.5);
    EXPECT_NEAR(advanceOf("Helvetica", 'i'), 222.0, 0.5);
    EXPECT_NEAR(advanceOf("Times-Roman", 'A'), 722.0, 0.5);
    EXPECT_NEAR(advanceOf("Times-Italic", 'A'), 611.0, 0.5);
    EXPECT_NEAR(advanceOf("Times-BoldItalic", 'A'), 667.0, 0.5);
    EXPECT_NEAR(advanceOf("Courier", 'A'), 600.0, 0.5);
    EXPECT_NEAR(advanceOf("Courier-BoldOblique", 'i'), 600.0, 0.5);
}

TEST(LibraryFonts, HaveTheCharactersOfTheSymbolicFonts)
{
    const auto program = ReplacementFor("ZapfDingbats").program;
    for (const char32_t codePoint : {0x2701, 0x2713, 0x27BE, 0x03B1, 0x2211, 0x2663})
        EXPECT_NE(program->FindGlyphByCodePoint(codePoint), 0u) << static_cast<unsigned>(codePoint);
}

TEST(LibraryFonts, FollowTheHintsForAnUnknownName)
{
    FontHints hints;
    hints.isSerif = true;
    hints.weight = 700;
    EXPECT_EQ(ReplacementFor("Unheard").name, "LiberationSans");
    EXPECT_EQ(ReplacementFor("Unheard", hints).name, "LiberationSerif-Bold");
}

TEST(LibraryFonts, AreLoadedOnce)
{
    EXPECT_EQ(ReplacementFor("Helvetica").program, ReplacementFor("ArialMT").program);
    EXPECT_NE(ReplacementFor("Helvetica").program, ReplacementFor("Helvetica-Bold").program);
}

TEST(LibraryFonts, ThatAreMissingAreNamedWithTheirPackage)
{
    const FontPath path("/nowhere:/nowhere/else");
    EXPECT_THAT(ProblemOf("Times-Bold"),
                AllOf(HasSubstr("LiberationSerif-Bold.ttf"), HasSubstr("/nowhere/else"),
                      HasSubstr("fonts-liberation2"), HasSubstr("ORV_FONT_PATH")));
    EXPECT_THAT(ProblemOf("Symbol"), AllOf(HasSubstr("DejaVuSans.ttf"), HasSubstr("fonts-dejavu-core")));
}

TEST(LibraryFonts, ComeFromTheFirstFolderThatHasThem)
{
    const auto usual = ReplacementFor("Times-Bold").program;
    const TemporaryFolder folder;
    MadeType1Font made;
    made.glyphs = {{".notdef", 500, 0, 0, 0, 0}};
    folder.Write("LiberationSerif-Bold.ttf", MakeType1(made));
    {
        const FontPath path(":/nowhere::" + folder.GetPath().string() +
                            ":/usr/share/fonts/truetype/liberation2");
        EXPECT_EQ(ReplacementFor("Times-Bold").name, made.postScriptName);
        EXPECT_EQ(ReplacementFor("Times-Italic").name, "LiberationSerif-Italic");
    }
    EXPECT_EQ(ReplacementFor("Times-Bold").program, usual);
}

TEST(LibraryFonts, ComeFromTheUsualFoldersIfTheVariableIsEmpty)
{
    const FontPath path("");
    EXPECT_EQ(ReplacementFor("Times-Bold").name, "LiberationSerif-Bold");
}

TEST(LibraryFonts, ThatCanNotBeReadAreNamedEachTime)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("DejaVuSans.ttf", "no font");
    const FontPath path(folder.GetPath().string());
    EXPECT_THAT(ProblemOf("Symbol"), HasSubstr(file));
    EXPECT_THAT(ProblemOf("Symbol"), HasSubstr(file));
}

} // namespace
} // namespace HarrowSupport::Testing
