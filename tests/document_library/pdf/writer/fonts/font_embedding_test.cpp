#include "pdf/writer/fonts/font_embedding.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/QPDF.hh>

#include "document_library/pdf/writer/program_files.h"
#include "pdf/fonts/to_unicode.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{
namespace
{

using namespace Testing;
using HarrowSupport::Testing::MadeFont;
using OrvFont::WritingMode;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

std::string DataOf(QPDFObjectHandle stream)
{
    const auto bytes = stream.getStreamData();
    return {reinterpret_cast<const char*>(bytes->getBuffer()), bytes->getSize()};
}

/// A file that fonts are written to.
class FontEmbedding : public ::testing::Test
{
protected:
    FontEmbedding() { file.emptyPDF(); }

    EmbeddingOutcome Write(const std::shared_ptr<const FontProgram>& program, const GlyphSet& glyphs,
                           WritingMode mode = WritingMode::Horizontal)
    {
        return Write(*MakeProgramFont(program, mode), *program, glyphs);
    }

    EmbeddingOutcome Write(const OrvFont::Font& font, const FontProgram& program, const GlyphSet& glyphs)
    {
        dictionary = QPDFObjectHandle::newDictionary();
        const EmbeddingOutcome outcome = WriteEmbeddedFont(dictionary, font, program, glyphs, maker);
        descendant = dictionary.getKey("/DescendantFonts").getArrayItem(0);
        descriptor = descendant.getKey("/FontDescriptor");
        return outcome;
    }

    std::shared_ptr<const FontProgram> ReadBack()
    {
        const char* const key = descriptor.hasKey("/FontFile2") ? "/FontFile2" : "/FontFile3";
        return Opened(DataOf(descriptor.getKey(key)));
    }

    QPDF file;
    ObjectMaker maker{file, false};
    QPDFObjectHandle dictionary;
    QPDFObjectHandle descendant;
    QPDFObjectHandle descriptor;
};

TEST_F(FontEmbedding, MakesACompositeFontOfTheGlyphIds)
{
    EXPECT_EQ(Write(LoadSerif(), {36, 37}).problem, "");
    EXPECT_EQ(dictionary.getKey("/Type").getName(), "/Font");
    EXPECT_EQ(dictionary.getKey("/Subtype").getName(), "/Type0");
    EXPECT_EQ(dictionary.getKey("/Encoding").getName(), "/Identity-H");
    EXPECT_EQ(dictionary.getKey("/DescendantFonts").getArrayNItems(), 1);
    EXPECT_TRUE(descendant.isIndirect());
    EXPECT_EQ(descendant.getKey("/Subtype").getName(), "/CIDFontType2");
    EXPECT_EQ(descendant.getKey("/CIDToGIDMap").getName(), "/Identity");
    EXPECT_EQ(descendant.getKey("/CIDSystemInfo").unparse(),
              "<< /Ordering (Identity) /Registry (Adobe) /Supplement 0 >>");
    EXPECT_TRUE(descriptor.isIndirect());
}

TEST_F(FontEmbedding, NamesSayThatItIsASubset)
{
    Write(LoadSerif(), {36, 37});
    const std::string name = dictionary.getKey("/BaseFont").getName();
    EXPECT_EQ(name, '/' + MakeSubsetTag("LiberationSerif", {36, 37}) + "+LiberationSerif");
    EXPECT_EQ(descendant.getKey("/BaseFont").getName(), name);
    EXPECT_EQ(descriptor.getKey("/FontName").getName(), name);
    EXPECT_EQ(descriptor.getKey("/FontFamily").getUTF8Value(), "Liberation Serif");
}

TEST_F(FontEmbedding, ProgramIsTheSubset)
{
    const auto serif = LoadSerif();
    Write(serif, {36, 37});
    QPDFObjectHandle stream = descriptor.getKey("/FontFile2");
    EXPECT_EQ(DataOf(stream), MakeFontSubset(*serif->GetBytes(), 0, {36, 37}));
    EXPECT_EQ(stream.getDict().getKey("/Length1").getIntValue(),
              static_cast<long long>(DataOf(stream).size()));
    EXPECT_EQ(stream.getDict().getKey("/Filter").getName(), "/FlateDecode");
}

TEST_F(FontEmbedding, NamesAreReadBackFromTheProgram)
{
    Write(LoadSerif(), {36});
    EXPECT_EQ(ReadBack()->GetNames().family, "Liberation Serif");
    EXPECT_EQ(ReadBack()->GetNames().style, "Regular");
}

TEST_F(FontEmbedding, BoxIsThatOfTheFont)
{
    const auto serif = LoadSerif();
    const OrvFont::Font font({"Made", "", ""}, {-1.5, -200.25, 1000.0 / 3, 1100.0}, WritingMode::Horizontal,
                             std::make_unique<OrvFont::Detail::ProgramFont>(serif, WritingMode::Horizontal));
    Write(font, *serif, {36});
    EXPECT_EQ(descriptor.getKey("/FontBBox").unparse(), "[ -1.5 -200.25 331.8333333333333 899.75 ]");
    EXPECT_FALSE(descriptor.hasKey("/FontFamily"));
}

TEST_F(FontEmbedding, MeasuresAreThoseOfTheProgram)
{
    Write(Opened(MakeCompactOpenType(ThreeLetters())), {1});
    EXPECT_EQ(descriptor.getKey("/Ascent").unparse(), "800");
    EXPECT_EQ(descriptor.getKey("/Descent").unparse(), "-200");
    EXPECT_EQ(descriptor.getKey("/CapHeight").unparse(), "700");
    EXPECT_EQ(descriptor.getKey("/ItalicAngle").unparse(), "0");
    EXPECT_EQ(descriptor.getKey("/FontWeight").unparse(), "400");
    EXPECT_EQ(descriptor.getKey("/FontStretch").unparse(), "/Normal");
    EXPECT_TRUE(descriptor.getKey("/StemV").isNumber());
    EXPECT_TRUE(descriptor.getKey("/Flags").isInteger());
}

TEST_F(FontEmbedding, AdvancesAreThoseOfTheUsedGlyphs)
{
    Write(Opened(MakeCompactOpenType(ThreeLetters())), {1, 2, 3});
    EXPECT_EQ(descendant.getKey("/DW").unparse(), "600");
    EXPECT_EQ(descendant.getKey("/W").unparse(), "[ 2 [ 650 700 ] ]");
}

TEST_F(FontEmbedding, TextComesFromTheCodePoints)
{
    Write(Opened(MakeCompactOpenType(ThreeLetters())), {1, 3, 4});
    const auto map = ToUnicodeMap::Parse(DataOf(dictionary.getKey("/ToUnicode")));
    EXPECT_EQ(map->Find(1, 2), u"A");
    EXPECT_EQ(map->Find(2, 2), u"");
    EXPECT_EQ(map->Find(3, 2), u"C");
    EXPECT_EQ(map->Find(4, 2), u"");
}

TEST_F(FontEmbedding, FontWithoutCodePointsHasNoText)
{
    Write(Opened(MakeCompactOpenType(ThreeLetters())), {4});
    EXPECT_FALSE(dictionary.hasKey("/ToUnicode"));
}

TEST_F(FontEmbedding, CompactOutlinesAreOpenType)
{
    EXPECT_EQ(Write(Opened(MakeCompactOpenType(ThreeLetters())), {1}).version, "1.6");
    EXPECT_EQ(descendant.getKey("/Subtype").getName(), "/CIDFontType0");
    EXPECT_FALSE(descendant.hasKey("/CIDToGIDMap"));
    EXPECT_FALSE(descriptor.hasKey("/FontFile2"));
    EXPECT_EQ(descriptor.getKey("/FontFile3").getDict().getKey("/Subtype").getName(), "/OpenType");
    EXPECT_EQ(ReadBack()->GetNames().family, "Made");
}

TEST_F(FontEmbedding, BareCompactOutlinesAreEmbeddedWhole)
{
    const std::string bare = MakeBareCompactFont(ThreeLetters());
    const EmbeddingOutcome outcome = Write(Opened(bare), {1});
    EXPECT_EQ(outcome.problem, "");
    EXPECT_EQ(outcome.version, "1.5");
    EXPECT_EQ(descriptor.getKey("/FontFile3").getDict().getKey("/Subtype").getName(), "/CIDFontType0C");
    EXPECT_EQ(DataOf(descriptor.getKey("/FontFile3")), bare);
    EXPECT_EQ(descriptor.getKey("/FontName").getName(), "/Made-Regular");
}

TEST_F(FontEmbedding, CidKeyedOutlinesAreEmbeddedIfTheirCidsAreGlyphIds)
{
    MadeFont font = ThreeLetters();
    font.cids = {0, 1, 2, 3, 40};
    const auto program = Opened(MakeCompactOpenType(font));
    ASSERT_TRUE(program->IsCidKeyed());
    EXPECT_EQ(Write(program, {1, 3}).problem, "");
    EXPECT_EQ(descendant.getKey("/Subtype").getName(), "/CIDFontType0");
    EXPECT_EQ(ReadBack()->FindGlyphByCid(3), 3U);
    EXPECT_TRUE(IsSameGlyph(*program, *ReadBack(), 3));
    EXPECT_EQ(Write(program, {1, 4}).problem, "the glyph 4 has another CID");
}

TEST_F(FontEmbedding, ProgramThatCannotBeEmbeddedIsLeftOut)
{
    const auto program = Opened(MakeType1(HarrowSupport::Testing::MakeSampleType1()));
    EXPECT_THAT(Write(program, {1, 2}).problem, HasSubstr("Type 1"));
    EXPECT_EQ(dictionary.getKey("/BaseFont").getName(), "/MadeType-Bold");
    EXPECT_FALSE(descriptor.hasKey("/FontFile"));
    EXPECT_FALSE(descriptor.hasKey("/FontFile2"));
    EXPECT_FALSE(descriptor.hasKey("/FontFile3"));
    EXPECT_FALSE(descendant.hasKey("/CIDToGIDMap"));
    EXPECT_EQ(descendant.getKey("/DW").unparse(), "600");
    EXPECT_EQ(descendant.getKey("/W").unparse(), "[ 2 [ 722 ] ]");
}

TEST_F(FontEmbedding, VerticalFontHasTheMeasuresOfBothDirections)
{
    const auto made = Opened(MakeCompactOpenType(ThreeLetters()));
    Write(made, {1, 2}, WritingMode::Vertical);
    EXPECT_EQ(dictionary.getKey("/Encoding").getName(), "/Identity-V");
    EXPECT_EQ(descendant.getKey("/DW").unparse(), "600");
    EXPECT_EQ(descendant.getKey("/W").unparse(), "[ 2 [ 650 ] ]");
    EXPECT_EQ(descendant.getKey("/DW2").unparse(), "[ 880 -1000 ]");
    EXPECT_FALSE(descendant.hasKey("/W2"));
}

TEST_F(FontEmbedding, CodesThatAreNoGlyphsAreLeftOut)
{
    EXPECT_EQ(Write(Opened(MakeCompactOpenType(ThreeLetters())), {1, 5, 70000}).problem, "");
    EXPECT_EQ(descendant.getKey("/DW").unparse(), "600");
    EXPECT_FALSE(descendant.hasKey("/W"));
}

TEST_F(FontEmbedding, SameArgumentsGiveTheSameObjects)
{
    const auto serif = LoadSerif();
    Write(serif, {36, 37, 1000});
    const std::string first = dictionary.getKey("/BaseFont").unparse() + descendant.getKey("/W").unparse() +
                              DataOf(descriptor.getKey("/FontFile2")) +
                              DataOf(dictionary.getKey("/ToUnicode"));
    Write(LoadSerif(), {1000, 37, 36});
    const std::string second = dictionary.getKey("/BaseFont").unparse() + descendant.getKey("/W").unparse() +
                               DataOf(descriptor.getKey("/FontFile2")) +
                               DataOf(dictionary.getKey("/ToUnicode"));
    EXPECT_TRUE(first == second);
}

} // namespace
} // namespace OrvPdf
