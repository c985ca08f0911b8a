// What other programs make of fonts that are embedded: they find nothing wrong, read the text back, and draw
// the glyphs where and as the model has them.

#include "pdf/writer/fonts/font_embedding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include <plexa/compound.h>

#include "document_library/pdf/writer/program_files.h"
#include "pdf/writer/content/content_text.h"
#include "pdf/writer/content/path_operators.h"
#include "pdf/writer/file/object_maker.h"
#include "support/child_process.h"
#include "support/page_images.h"
#include "support/temporary_folder.h"

namespace OrvPdf
{
namespace
{

using namespace Testing;
using namespace HarrowSupport::Testing;
using OrvFont::Character;
using OrvFont::Font;
using OrvFont::WritingMode;
using ::testing::HasSubstr;
using ::testing::Not;

bool CanRun(const std::string& program)
{
    return RunProcess({program, "-v"}).exitCode != 127;
}

constexpr double size = 30.0;

/// One font, and a text in it.
class ShownFont
{
public:
    ShownFont(std::shared_ptr<const FontProgram> givenProgram, const std::u32string& text,
              WritingMode givenMode = WritingMode::Horizontal)
        : program(std::move(givenProgram)),
          font(MakeProgramFont(program, givenMode)),
          isVertical(givenMode == WritingMode::Vertical)
    {
        for (const char32_t codePoint : text) {
            Character character;
            EXPECT_TRUE(font->GetSource().FindCharacter(codePoint, character))
                << "U+" << static_cast<unsigned>(codePoint);
            characters.push_back(character);
        }
    }

    /// A file with the text on its first page, the outlines of the glyphs as paths in the same places on the
    /// second, and nothing on the third.
    void WriteTo(const std::string& name) const
    {
        QPDF file;
        file.emptyPDF();
        ObjectMaker maker(file, false);
        QPDFObjectHandle dictionary = file.makeIndirectObject(QPDFObjectHandle::newDictionary());
        GlyphSet glyphs;
        for (const Character& character : characters)
            glyphs.insert(character.glyph);
        EXPECT_EQ(WriteEmbeddedFont(dictionary, *font, *program, glyphs, maker).problem, "");
        for (const std::string& content : {MakeText(), MakeOutlines(), std::string()}) {
            QPDFObjectHandle page = QPDFObjectHandle::parse("<< /Type /Page /Resources << /Font << >> >> >>");
            page.replaceKey("/MediaBox",
                            QPDFObjectHandle::parse(isVertical ? "[ 0 0 100 500 ]" : "[ 0 0 500 100 ]"));
            page.getKey("/Resources").getKey("/Font").replaceKey("/f0", dictionary);
            page.replaceKey("/Contents", maker.MakeStream(content));
            file.addPage(file.makeIndirectObject(page), false);
        }
        QPDFWriter writer(file, name.c_str());
        writer.setMinimumPDFVersion("1.6");
        writer.setDecodeLevel(qpdf_dl_none);
        writer.write();
    }

private:
    std::string MakeText() const
    {
        std::string codes;
        for (const Character& character : characters) {
            codes.push_back(static_cast<char>(character.code >> 8));
            codes.push_back(static_cast<char>(character.code));
        }
        return "BT /f0 " + NumberText(size) + " Tf " + NumberText(GetStartX()) + ' ' +
               NumberText(GetStartY()) + " Td " + QPDFObjectHandle::newString(codes).unparseBinary() +
               " Tj ET";
    }

    std::string MakeOutlines() const
    {
        std::string content;
        double x = GetStartX();
        double y = GetStartY();
        for (const Character& character : characters) {
            // A path is written in points, but the outline counts in thousandths of the size.
            content += "q ";
            AppendMatrix(content, {size, 0.0, 0.0, size, x * 1000, y * 1000});
            content += " cm\n";
            if (const auto outline = font->GetSource().MakeOutline(character))
                AppendPath(content, *outline);
            content += "f Q\n";
            (isVertical ? y : x) += font->GetAdvance(character) * size / 1000;
        }
        return content;
    }

    double GetStartX() const { return isVertical ? 50.0 : 20.0; }
    double GetStartY() const { return isVertical ? 480.0 : 60.0; }

    static std::string NumberText(double number) { return ObjectMaker::MakeNumber(number).unparse(); }

    std::shared_ptr<const FontProgram> program;
    std::shared_ptr<const Font> font;
    bool isVertical;
    std::vector<Character> characters;
};

struct Sample
{
    const char* name;
    std::function<std::shared_ptr<const FontProgram>()> load;
    std::u32string text;
    std::string utf8;
    WritingMode mode = WritingMode::Horizontal;
    bool isSubset = true;
};

void PrintTo(const Sample& sample, std::ostream* stream)
{
    *stream << sample.name;
}

class EmbeddedFonts : public ::testing::TestWithParam<Sample>
{
protected:
    EmbeddedFonts() { ShownFont(GetParam().load(), GetParam().text, GetParam().mode).WriteTo(file); }

    TemporaryFolder folder;
    std::string file = folder.NameOf("shown.pdf");
};

TEST_P(EmbeddedFonts, AreSoundToQpdf)
{
    if (!CanRun("qpdf"))
        GTEST_SKIP() << "install qpdf to run this test";
    const ProcessResult check = RunProcess({"qpdf", "--check", file});
    EXPECT_EQ(check.exitCode, 0) << check.output << check.errors;
}

TEST_P(EmbeddedFonts, GiveTheirTextToPdftotext)
{
    if (!CanRun("pdftotext"))
        GTEST_SKIP() << "install poppler-utils to run this test";
    const ProcessResult run = RunProcess({"pdftotext", "-l", "1", "-raw", file, "-"});
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.output, GetParam().utf8 + "\n\f");
}

TEST_P(EmbeddedFonts, AreEmbeddedToPdffonts)
{
    if (!CanRun("pdffonts"))
        GTEST_SKIP() << "install poppler-utils to run this test";
    const ProcessResult run = RunProcess({"pdffonts", file});
    EXPECT_EQ(run.errors, "");
    const std::string encoding = GetParam().mode == WritingMode::Vertical ? "Identity-V" : "Identity-H";
    EXPECT_THAT(run.output,
                HasSubstr(' ' + encoding + "       yes " + (GetParam().isSubset ? "yes" : "no ") + " yes "));
}

TEST_P(EmbeddedFonts, LookLikeTheirOutlinesToPdftoppm)
{
    if (!CanRenderPages())
        GTEST_SKIP() << "install poppler-utils to run this test";
    const PageImages pages = RenderPages(file);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_GT(ShareOfDifferentPixels(pages.at(1), pages.at(3), 128), 0.01);
    // It draws glyphs at quarters of a pixel only; a wrong width moves all that follows.
    EXPECT_LT(ShareOfDifferentPixels(pages.at(1), pages.at(2), 128), 0.01);
}

TEST_P(EmbeddedFonts, LookLikeTheirOutlinesToMutool)
{
    if (!CanRun("mutool"))
        GTEST_SKIP() << "install mupdf-tools to run this test";
    PageImages pages;
    for (const std::size_t page : {1U, 2U, 3U}) {
        const std::string picture = folder.NameOf("page" + std::to_string(page) + ".ppm");
        const ProcessResult run =
            RunProcess({"mutool", "draw", "-q", "-c", "rgb", "-o", picture, file, std::to_string(page)});
        EXPECT_EQ(run.exitCode, 0) << run.errors;
        EXPECT_THAT(run.errors, Not(HasSubstr("error")));
        EXPECT_THAT(run.errors, Not(HasSubstr("font")));
        pages[page] = ReadPortablePixmap(FileBytes(picture));
    }
    EXPECT_GT(ShareOfDifferentPixels(pages.at(1), pages.at(3), 128), 0.01);
    EXPECT_LT(ShareOfDifferentPixels(pages.at(1), pages.at(2), 128), 0.001);
}

std::shared_ptr<const FontProgram> LoadSans()
{
    return FontProgram::Load("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
}

std::shared_ptr<const FontProgram> MadeOpenType()
{
    return Opened(MakeCompactOpenType(ThreeLetters()));
}

/// With the names of its glyphs, which are all that it says of its text.
std::shared_ptr<const FontProgram> MadeBareProgram()
{
    MadeFont font = ThreeLetters();
    font.glyphs[1].name = "A";
    font.glyphs[2].name = "B";
    font.glyphs[3].name = "C";
    return Opened(MakeBareCompactFont(font));
}

INSTANTIATE_TEST_SUITE_P(
    Programs, EmbeddedFonts,
    ::testing::Values(Sample{"serif", LoadSerif, U"Straße Ωμέγα Жёлтый ﬁﬂ", "Straße Ωμέγα Жёлтый ﬁﬂ"},
                      Sample{"sans", LoadSans, U"Tür Αθήνα 𝔸 ∑", "Tür Αθήνα 𝔸 ∑"},
                      Sample{"compact", MadeOpenType, U"CABBAC", "CABBAC"},
                      Sample{"bare", MadeBareProgram, U"CABBAC", "CABBAC", WritingMode::Horizontal, false},
                      Sample{"vertical", LoadSerif, U"AΩЖiWQ", "A\nΩ\nЖ\ni\nW\nQ", WritingMode::Vertical}));

} // namespace
} // namespace OrvPdf
