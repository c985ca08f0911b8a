// Fonts of a file that are named like a standard one and neither embedded nor given widths.

#include "pdf/reader/fonts/simple_font_reader.h"

#include <gmock/gmock.h>

#include "document_library/pdf/reader/font_files.h"

namespace
{

using namespace HarrowSupport::Testing;
using namespace ReaderTests;
using testing::ElementsAre;

std::vector<double> AdvancesOf(const std::string& name, const std::string& bytes,
                               const std::string& entries = "")
{
    FontFile file({"<< /Type /Font /Subtype /Type1 /BaseFont /" + name + " " + entries + " >>"});
    const auto font = file.Read();
    std::vector<double> advances;
    for (const OrvFont::Character& character : Decode(*font, bytes))
        advances.push_back(font->GetAdvance(character));
    return advances;
}

TEST(StandardFontOfAFile, AdvancesByTheStandardAndNotByWhatStandsIn)
{
    EXPECT_THAT(AdvancesOf("Helvetica", "A i"), ElementsAre(667.0, 278.0, 222.0));
    EXPECT_THAT(AdvancesOf("Times-BoldItalic", "A i"), ElementsAre(667.0, 250.0, 278.0));
    EXPECT_THAT(AdvancesOf("Courier", "A i"), ElementsAre(600.0, 600.0, 600.0));
    EXPECT_THAT(AdvancesOf("Symbol", "aS\xAB"), ElementsAre(631.0, 592.0, 1042.0));
    EXPECT_THAT(AdvancesOf("ZapfDingbats", "! 4"), ElementsAre(974.0, 278.0, 846.0));
}

TEST(StandardFontOfAFile, AdvancesByTheGlyphsThatItsEncodingNames)
{
    EXPECT_THAT(AdvancesOf("ZapfDingbats", "AB", "/Encoding << /Differences [65 /a82 /a163] >>"),
                ElementsAre(138.0, 1016.0));
    EXPECT_THAT(AdvancesOf("Times-Italic", "A", "/Encoding << /Differences [65 /plusminus] >>"),
                ElementsAre(675.0));
}

TEST(StandardFontOfAFile, AdvancesByItsWidthsIfItHasSome)
{
    EXPECT_THAT(AdvancesOf("Symbol", "a", "/FirstChar 97 /LastChar 97 /Widths [500.5]"), ElementsAre(500.5));
}

} // namespace
