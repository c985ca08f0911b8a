// Forms as the file says them: their properties, and how they lie in one another.

#include <set>

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/layer.h>
#include <orv_doc/layer_properties.h>

#include "document_library/pdf/form_file.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvPaint::FormPaint;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string square = "0 0 1 1 re f\n";

class FormReader : public ::testing::Test
{
protected:
    FormPointer ReadOne(const std::string& entries)
    {
        file.Read({"/F0 Do"}, {FormObject(square, entries)});
        return FormAt(file.Page());
    }

    static std::string Paints(const std::string& names, const std::string& dictionary)
    {
        return FormObject(names, "", "/Resources << /XObject << " + dictionary + " >> >>");
    }

    FormFile file;
};

TEST_F(FormReader, ReadsAllSixScopes)
{
    const char* const names[] = {"Unknown", "SingleUse", "Record", "File", "Stream", "Global"};
    for (std::uint32_t value = 0; value < 6; ++value)
        EXPECT_EQ(ReadOne("/GTS_Scope /" + std::string(names[value]))->GetScope(),
                  static_cast<FormPaint::Scope>(value));
    EXPECT_FALSE(ReadOne("")->GetScope());
}

TEST_F(FormReader, TellsAScopeThatThereIsNot)
{
    EXPECT_FALSE(ReadOne("/GTS_Scope /Galaxy")->GetScope());
    EXPECT_THAT(ErrorsOf(file.Page()),
                ElementsAre("page 1: form 5 0: GTS_Scope is left out: there is no scope /Galaxy"));
}

TEST_F(FormReader, ReadsTheUniqueIdAsTheBytesThatItHas)
{
    EXPECT_EQ(ReadOne("/GTS_XID <6100FF>")->GetUniqueID(), std::string("a\0\xFF", 3));
    EXPECT_EQ(ReadOne("/GTS_XID ()")->GetUniqueID(), std::string());
    EXPECT_FALSE(ReadOne("")->GetUniqueID());
}

TEST_F(FormReader, AFileNamedFromTheDocumentBecomesAbsolute)
{
    const auto reference = ReadOne("/Ref << /F (art/../b.pdf) /Page 3 >>")->GetExternalReference();
    ASSERT_TRUE(reference);
    EXPECT_EQ(reference->first, boost::filesystem::path(file.folder.NameOf("b.pdf")));
    EXPECT_EQ(reference->second, 3U);
}

TEST_F(FormReader, AnAbsoluteFileStays)
{
    const auto reference =
        ReadOne("/Ref << /F << /F (x) /UF (/a/b.pdf) >> /Page 0 >>")->GetExternalReference();
    ASSERT_TRUE(reference);
    EXPECT_EQ(reference->first, boost::filesystem::path("/a/b.pdf"));
}

TEST_F(FormReader, TellsAReferenceWithoutFileOrPage)
{
    EXPECT_FALSE(ReadOne("/Ref << /Page 0 >>")->GetExternalReference());
    EXPECT_THAT(ErrorsOf(file.Page()), ElementsAre(HasSubstr("Ref is left out: it names no file")));
    EXPECT_FALSE(ReadOne("/Ref << /F (a.pdf) /Page (iv) >>")->GetExternalReference());
    EXPECT_THAT(ErrorsOf(file.Page()), ElementsAre(HasSubstr("Ref is left out: its page is not told")));
}

TEST_F(FormReader, ALayerOfTheFormIsALayerAroundIt)
{
    const std::string bytes = HarrowSupport::Testing::PdfFileOfPages(
        {"/F0 Do"}, "/OCProperties << /OCGs [6 0 R] /D << /Order [6 0 R] >> >>", "/XObject << /F0 5 0 R >>",
        {FormObject(square, "/OC 6 0 R"), "<< /Type /OCG /Name (Cut) >>"});
    const auto document =
        OrvDoc::Document::Create(file.folder.Write("layer.pdf", bytes), OrvDoc::ReadOptions());
    const auto objects = ObjectsOf(HarrowSupport::Testing::ContentOf(*document));
    ASSERT_THAT(objects, SizeIs(1));
    const auto* const layer = dynamic_cast<const OrvDoc::Layer*>(objects[0]);
    ASSERT_TRUE(layer);
    EXPECT_TRUE(FormOf(layer->children.first));
}

TEST_F(FormReader, TellsALayerThatIsNone)
{
    ReadOne("/OC << /Type /OCG /Name (Loose) >>");
    EXPECT_THAT(ErrorsOf(file.Page()), ElementsAre(HasSubstr("form 5 0: OC is left out")));
}

TEST_F(FormReader, AFormThatPaintsItselfEndsWithAnError)
{
    file.Read({"/F0 Do"}, {Paints("1 0 0 rg /F0 Do " + square, "/F0 5 0 R")});
    EXPECT_THAT(ObjectsOf(FormAt(file.Page())->GetContent()), SizeIs(1));
    EXPECT_THAT(
        ErrorsOf(file.Page()),
        ElementsAre(
            "page 1: form 5 0: operator Do: form /F0 is left out: it is painted inside of itself, byte 9"));
}

TEST_F(FormReader, AFormThatPaintsItselfThroughAnotherEndsWithAnError)
{
    file.Read({"/F0 Do"}, {Paints("/In Do", "/In 6 0 R"), Paints("/Out Do " + square, "/Out 5 0 R")});
    const FormPointer inner = FormAt(FormAt(file.Page())->GetContent());
    ASSERT_TRUE(inner);
    EXPECT_THAT(ObjectsOf(inner->GetContent()), SizeIs(1));
    EXPECT_THAT(ErrorsOf(file.Page()),
                ElementsAre(HasSubstr("form 6 0: operator Do: form /Out is left out")));
}

TEST_F(FormReader, AFormThatPaintsItselfIsFoundUnderEveryStateAround)
{
    // The second time, what the first one became must not pass for another form.
    file.Read({"1 0 0 rg /F0 Do 0 1 0 rg /F0 Do"}, {Paints("0 0 2 2 re f 1 0 0 rg /F0 Do", "/F0 5 0 R")});
    for (const std::size_t index : {0U, 1U})
        EXPECT_THAT(ObjectsOf(FormAt(file.Page(), index)->GetContent()), SizeIs(1)) << index;
}

TEST_F(FormReader, EachFormOfAnExpandingTreeIsReadOnce)
{
    constexpr std::size_t depth = 40;
    std::vector<std::string> forms;
    for (std::size_t level = 0; level + 1 < depth; ++level) {
        const std::string next = std::to_string(FormFile::NumberOf(level + 1)) + " 0 R";
        forms.push_back(Paints("/A Do 1 0 0 1 5 5 cm /B Do", "/A " + next + " /B " + next));
    }
    forms.push_back(FormObject("nonsense " + square));
    file.Read({"/F0 Do"}, forms);
    std::set<const OrvDoc::Content*> contents;
    FormPointer form = FormAt(file.Page());
    while (form) {
        contents.insert(&form->GetContent());
        const FormPointer second = FormAt(form->GetContent(), 1);
        EXPECT_TRUE(!second || second == FormAt(form->GetContent(), 0));
        form = FormAt(form->GetContent(), 0);
    }
    EXPECT_EQ(contents.size(), depth);
    // Contents are numbered in order of creation: that of the page and one for each form.
    EXPECT_LE((*contents.rbegin())->GetID(), file.Page().GetID() + 2 * depth);
    EXPECT_THAT(ErrorsOf(file.Page()), ElementsAre(HasSubstr("form 44 0: operator nonsense")));
}

class FormNesting : public FormReader
{
protected:
    /// Forms in one another, and the errors that come with that limit.
    std::vector<std::string> ReadNested(std::size_t depth, std::uint32_t limit)
    {
        std::vector<std::string> forms;
        for (std::size_t level = 0; level + 1 < depth; ++level)
            forms.push_back(
                Paints("/In Do", "/In " + std::to_string(FormFile::NumberOf(level + 1)) + " 0 R"));
        forms.push_back(FormObject(square));
        OrvDoc::ReadOptions options;
        options.limits.formNesting = limit;
        file.Read({"/F0 Do"}, forms, "", options);
        return ErrorsOf(file.Page());
    }
};

TEST_F(FormNesting, AsDeepAsTheLimitIsRead)
{
    EXPECT_THAT(ReadNested(5, 5), IsEmpty());
}

TEST_F(FormNesting, OneLevelPastTheLimitIsLeftOutAndTold)
{
    EXPECT_THAT(ReadNested(6, 5),
                ElementsAre(HasSubstr("form /In is left out: limit formNesting: 5 reached")));
}

class FormsOfManyStates : public FormReader
{
protected:
    /// The errors of a page that paints one form, which takes its colour from around, in so many colours.
    std::vector<std::string> PaintInColors(std::size_t count, const std::string& form)
    {
        std::string page;
        for (std::size_t index = 0; index < count; ++index)
            page += "0." + std::to_string(10000 + index) + " g /F0 Do\n";
        file.Read({page}, {FormObject(form)});
        return ErrorsOf(file.Page());
    }
};

TEST_F(FormsOfManyStates, AThousandAreRead)
{
    EXPECT_THAT(PaintInColors(1000, square), IsEmpty());
    EXPECT_THAT(ObjectsOf(file.Page()), SizeIs(1000));
}

TEST_F(FormsOfManyStates, OneMoreIsLeftOutAndTold)
{
    EXPECT_THAT(PaintInColors(1001, square),
                ElementsAre(HasSubstr("depends on more than 1000 graphics states around it")));
    EXPECT_THAT(ObjectsOf(file.Page()), SizeIs(1000));
}

TEST_F(FormsOfManyStates, EightMebibytesAreReadAgain)
{
    EXPECT_THAT(PaintInColors(9, square + std::string((1 << 20) - square.size(), ' ')), IsEmpty());
    EXPECT_THAT(ObjectsOf(file.Page()), SizeIs(9));
}

TEST_F(FormsOfManyStates, MoreBytesAreLeftOutAndTold)
{
    EXPECT_THAT(PaintInColors(9, square + std::string((1 << 20) - square.size() + 1, ' ')),
                ElementsAre(HasSubstr("take more than 8388608 bytes")));
    EXPECT_THAT(ObjectsOf(file.Page()), SizeIs(8));
}

TEST_F(FormReader, AFormWithoutResourcesUsesThoseOfItsPage)
{
    file.Read({"/F0 Do"}, {FormObject("/S cs 0.5 scn " + square, "", "")},
              "/ColorSpace << /S [/Separation /Gold /DeviceCMYK << /FunctionType 2 /Domain [0 1] /N 1 "
              "/C0 [0 0 0 0] /C1 [0 0 1 0] >>] >>");
    EXPECT_THAT(ErrorsOf(file.Page()), IsEmpty());
    EXPECT_TRUE(PathAt(FormAt(file.Page())->GetContent()).GetFillPaint());
}

TEST_F(FormReader, ErrorsOfAFormAreToldOnceAtEachPageThatShowsIt)
{
    file.Read({"/F0 Do /F0 Do /F1 Do", "/F0 Do"}, {FormObject("nonsense"), Paints("/In Do", "/In 7 0 R")});
    const std::string place = "form 7 0: operator nonsense";
    EXPECT_THAT(ErrorsOf(file.Page(0)), ElementsAre(HasSubstr("page 1: " + place)));
    EXPECT_THAT(ErrorsOf(file.Page(1)), ElementsAre(HasSubstr("page 2: " + place)));
    EXPECT_THAT(ErrorsOf(FormAt(file.Page())->GetContent()), ElementsAre(HasSubstr(place)));
}

TEST_F(FormReader, ADamagedFormIsReadAsFarAsItGoes)
{
    file.Read({"/F0 Do 0 0 3 3 re f"}, {FormObject(square + "0 0 m 5 5", "/Filter /NoSuchFilter")});
    EXPECT_THAT(ObjectsOf(file.Page()), SizeIs(2));
    EXPECT_THAT(ErrorsOf(file.Page()), ElementsAre(HasSubstr("form 5 0: ")));
}

} // namespace
} // namespace OrvPdf::Testing
