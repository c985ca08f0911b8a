#include "pdf/writer/fonts/fonts_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <qpdf/QPDF.hh>

#include "document_library/pdf/writer/program_files.h"
#include "orv_font/font_source.h"
#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{
namespace
{

using namespace Testing;
using OrvFont::Font;
using OrvFont::WritingMode;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::shared_ptr<const Font> MadeFontOf(const std::string& style = "Regular",
                                       WritingMode mode = WritingMode::Horizontal)
{
    HarrowSupport::Testing::MadeFont font = ThreeLetters();
    font.style = style;
    return MakeProgramFont(Opened(MakeCompactOpenType(font)), mode);
}

UsedFont Used(const std::shared_ptr<const Font>& font, const std::vector<std::uint32_t>& codes)
{
    std::vector<UsedFont> list;
    UsedFonts fonts(list);
    for (const std::uint32_t code : codes)
        fonts.AddCode(fonts.Add(font), code);
    return list.front();
}

std::string WidthsOf(QPDFObjectHandle font)
{
    QPDFObjectHandle descendant = font.getKey("/DescendantFonts").getArrayItem(0);
    return descendant.getKey("/DW").unparse() + ' ' + descendant.getKey("/W").unparse();
}

/// Nobody knows what draws its characters.
class StrangeSource : public OrvFont::Detail::FontSource
{
public:
    std::shared_ptr<const Plexa::Compound> MakeOutline(const OrvFont::Character&) const override
    {
        return {};
    }
    double GetAdvance(const OrvFont::Character&) const override { return 0.0; }
    bool FindCharacter(char32_t, OrvFont::Character&) const override { return false; }
};

class FontsWriterTest : public ::testing::Test
{
protected:
    FontsWriterTest() { file.emptyPDF(); }

    QPDF file;
    ObjectMaker maker{file, false};
    FontsWriter writer{maker};
};

TEST_F(FontsWriterTest, MakesOneObjectOfAFontOfAllContents)
{
    const auto font = MadeFontOf();
    const QPDFObjectHandle first = writer.GetFont(Used(font, {1}));
    EXPECT_TRUE(first.isIndirect());
    EXPECT_EQ(first.getObjGen(), writer.GetFont(Used(font, {2})).getObjGen());
}

TEST_F(FontsWriterTest, FillsInTheGlyphsOfAllContents)
{
    const auto font = MadeFontOf();
    QPDFObjectHandle object = writer.GetFont(Used(font, {3}));
    writer.GetFont(Used(font, {1}));
    EXPECT_EQ(object.unparseResolved(), "<< >>");
    EXPECT_THAT(writer.WriteAll(), IsEmpty());
    EXPECT_EQ(WidthsOf(object), "600 [ 3 [ 700 ] ]");
}

TEST_F(FontsWriterTest, KeepsTheGlyphsOfFontsApart)
{
    const QPDFObjectHandle one = writer.GetFont(Used(MadeFontOf("Regular"), {1}));
    const QPDFObjectHandle other = writer.GetFont(Used(MadeFontOf("Bold"), {2}));
    EXPECT_NE(one.getObjGen(), other.getObjGen());
    writer.WriteAll();
    EXPECT_EQ(WidthsOf(one), "600 null");
    EXPECT_EQ(WidthsOf(other), "650 null");
}

TEST_F(FontsWriterTest, FontsThatAreTheSameShareTheirObject)
{
    QPDFObjectHandle object = writer.GetFont(Used(MadeFontOf(), {1}));
    EXPECT_EQ(object.getObjGen(), writer.GetFont(Used(MadeFontOf(), {2})).getObjGen());
    writer.WriteAll();
    EXPECT_EQ(WidthsOf(object), "600 [ 2 [ 650 ] ]");
}

TEST_F(FontsWriterTest, FontsOfOneProgramWithOtherNamesOrDirectionsDoNot)
{
    const auto program = Opened(MakeCompactOpenType(ThreeLetters()));
    const auto horizontal = MakeProgramFont(program, WritingMode::Horizontal);
    const auto renamed = std::make_shared<Font>(
        Font::Names{"Other", "Other", "Regular"}, program->GetBox(), WritingMode::Horizontal,
        std::make_unique<OrvFont::Detail::ProgramFont>(program, WritingMode::Horizontal));
    QPDFObjectHandle object = writer.GetFont(Used(horizontal, {1}));
    const auto vertical = MakeProgramFont(program, WritingMode::Vertical);
    EXPECT_NE(object.getObjGen(), writer.GetFont(Used(vertical, {1})).getObjGen());
    EXPECT_NE(object.getObjGen(), writer.GetFont(Used(renamed, {1})).getObjGen());
}

TEST_F(FontsWriterTest, ObjectsComeInOrderOfFirstUse)
{
    const auto one = MadeFontOf("Regular");
    const auto other = MadeFontOf("Bold");
    const int first = writer.GetFont(Used(one, {1})).getObjectID();
    const int second = writer.GetFont(Used(other, {1})).getObjectID();
    writer.GetFont(Used(one, {2}));
    EXPECT_EQ(second, first + 1);
}

TEST_F(FontsWriterTest, VersionIsThatOfWhatWasWritten)
{
    FontsWriter ofNone(maker);
    ofNone.WriteAll();
    EXPECT_EQ(ofNone.GetVersion(), "1.4");
    FontsWriter ofTrueType(maker);
    ofTrueType.GetFont(Used(MakeProgramFont(LoadSerif(), WritingMode::Horizontal), {36}));
    ofTrueType.WriteAll();
    EXPECT_EQ(ofTrueType.GetVersion(), "1.5");
    writer.GetFont(Used(MadeFontOf(), {1}));
    writer.GetFont(Used(MakeProgramFont(LoadSerif(), WritingMode::Horizontal), {36}));
    writer.WriteAll();
    EXPECT_EQ(writer.GetVersion(), "1.6");
}

TEST_F(FontsWriterTest, FontThatCannotBeWrittenIsToldOnce)
{
    const auto strange = std::make_shared<Font>(Font::Names{"Strange", "", ""}, Font::Rectangle(),
                                                WritingMode::Horizontal, std::make_unique<StrangeSource>());
    EXPECT_TRUE(writer.GetFont(Used(strange, {1})).isNull());
    EXPECT_TRUE(writer.GetFont(Used(strange, {1})).isNull());
    EXPECT_THAT(writer.WriteAll(), ElementsAre(HasSubstr("the font 'Strange' cannot be written")));
}

} // namespace
} // namespace OrvPdf
