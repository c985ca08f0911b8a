// What other programs read of texts that a program made in the library's own fonts, and what the library
// itself reads of them.

#include <harrow_support/round_trip.h>
#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>
#include <orv_doc/page_content.h>
#include <orv_doc/resource_manager.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_doc/write_options.h>
#include <orv_font/font.h>
#include <orv_font/font_manager.h>

#include "support/child_process.h"
#include "support/document_makers.h"
#include "support/file_bytes.h"
#include "support/page_images.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct Sample
{
    const char* font;
    /// What its PostScript name in the file ends with.
    const char* programName;
    std::wstring text;
    std::string utf8;
};

void PrintTo(const Sample& sample, std::ostream* stream)
{
    *stream << sample.font;
}

std::unique_ptr<OrvDoc::TextGroup> MakeText(OrvDoc::Document& document, const Sample& sample)
{
    const auto font = document.GetResourceManager().GetFontManager().GetOrCreateFont(
        OrvFont::GetFontIDForFontName(sample.font), OrvFont::WritingMode::Horizontal);
    std::vector<OrvFont::Character> found;
    EXPECT_TRUE(font->Uni16StringToFontCharacters(
        OrvFont::Font::Uni16StringView(sample.text.data(), sample.text.size()), found));
    std::vector<OrvDoc::TextCharacter> characters;
    for (const OrvFont::Character& character : found)
        characters.push_back({character});
    auto text = std::make_unique<OrvDoc::Text>(characters, font, 8.0);
    text->SetFillPaint(Flat(Tints({{"Black", 1.0f}})));
    text->SetTextTransformation(Matrix(1.0, 0.0, 0.0, 1.0, 5000.0, 50000.0));
    return With(std::make_unique<OrvDoc::TextGroup>(), std::move(text));
}

/// The text on the first and on the third page of a document.
std::unique_ptr<OrvDoc::Document> MakeDocument(const Sample& sample)
{
    auto document = NewDocument(3);
    Place(ContentOf(*document, 0), MakeText(*document, sample));
    Place(ContentOf(*document, 2), MakeText(*document, sample));
    return document;
}

void Save(OrvDoc::Document& document, const std::string& file)
{
    document.Save(file, OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    EXPECT_THAT(document.GetActiveErrors().GetAllErrors(), IsEmpty());
    EXPECT_THAT(ContentOf(document).GetActiveErrors().GetAllErrors(), IsEmpty());
}

class WrittenTexts : public ::testing::TestWithParam<Sample>
{
protected:
    TemporaryFolder folder;
    std::string file = folder.NameOf("text.pdf");
};

TEST_P(WrittenTexts, AreSoundToQpdf)
{
    if (RunProcess({"qpdf", "--version"}).exitCode == 127)
        GTEST_SKIP() << "install qpdf to run this test";
    Save(*MakeDocument(GetParam()), file);
    const ProcessResult check = RunProcess({"qpdf", "--check", file});
    EXPECT_EQ(check.exitCode, 0) << check.output << check.errors;
}

TEST_P(WrittenTexts, AreReadByPdftotext)
{
    if (RunProcess({"pdftotext", "-v"}).exitCode == 127)
        GTEST_SKIP() << "install poppler-utils to run this test";
    Save(*MakeDocument(GetParam()), file);
    const ProcessResult run = RunProcess({"pdftotext", "-raw", file, "-"});
    EXPECT_EQ(run.errors, "");
    const std::string line = GetParam().utf8 + '\n';
    EXPECT_EQ(run.output, line + "\f\f" + line + "\f");
}

TEST_P(WrittenTexts, HaveOneEmbeddedFontOnAllPages)
{
    if (RunProcess({"pdffonts", "-v"}).exitCode == 127)
        GTEST_SKIP() << "install poppler-utils to run this test";
    Save(*MakeDocument(GetParam()), file);
    const ProcessResult run = RunProcess({"pdffonts", file});
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, HasSubstr(std::string("+") + GetParam().programName + ' '));
    EXPECT_THAT(run.output, HasSubstr("CID TrueType      Identity-H       yes yes yes"));
    EXPECT_EQ(std::count(run.output.begin(), run.output.end(), '\n'), 3) << "two lines are the heading";
}

TEST_P(WrittenTexts, ShowOnTheirPagesAlone)
{
    if (!CanRenderPages())
        GTEST_SKIP() << "install poppler-utils to run this test";
    Save(*MakeDocument(GetParam()), file);
    const PageImages pages = RenderPages(file);
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_GT(ShareOfDifferentPixels(pages.at(1), pages.at(2), 128), 0.0005);
    EXPECT_TRUE(pages.at(1) == pages.at(3));
}

TEST_P(WrittenTexts, AreWrittenTheSameEachTime)
{
    const auto document = MakeDocument(GetParam());
    Save(*document, file);
    Save(*MakeDocument(GetParam()), folder.NameOf("again.pdf"));
    Save(*document, folder.NameOf("once more.pdf"));
    EXPECT_TRUE(FileBytes(file) == FileBytes(folder.NameOf("again.pdf")));
    EXPECT_TRUE(FileBytes(file) == FileBytes(folder.NameOf("once more.pdf")));
}

TEST_P(WrittenTexts, ComeBackEqual)
{
    Comparators::Options options{};
    options.compareImageData = true;
    options.compareSeparationInfo = true;
    auto document = MakeDocument(GetParam());
    const auto result = TestRoundTripStructure(document, options);
    for (const auto& difference : result.differences)
        ADD_FAILURE() << difference.label << ": " << difference.message;
    // Once more: what was made is now what was read.
    const auto again = TestRoundTripStructure(document, options);
    for (const auto& difference : again.differences)
        ADD_FAILURE() << difference.label << ": " << difference.message;
}

INSTANTIATE_TEST_SUITE_P(Fonts, WrittenTexts,
                         ::testing::Values(Sample{"QuorleSerif", "LiberationSerif", L"Straße Ωμέγα Жёлтый ﬁﬂ",
                                                  "Straße Ωμέγα Жёлтый ﬁﬂ"},
                                           Sample{"Helvetica-BoldOblique", "LiberationSans-BoldItalic",
                                                  L"Straße Ω Ж", "Straße Ω Ж"},
                                           Sample{"Courier", "LiberationMono", L"Straße Ω Ж", "Straße Ω Ж"},
                                           Sample{"Symbol", "DejaVuSans", L"αβγ∑", "αβγ∑"},
                                           Sample{"ZapfDingbats", "DejaVuSans", L"✂✈", "✂✈"}));

} // namespace
} // namespace HarrowSupport::Testing
