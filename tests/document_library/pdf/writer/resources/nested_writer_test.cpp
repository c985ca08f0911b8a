// Forms of a document in its file: what stays the object that it is, what is written anew, and what the pages
// look like that are kept.

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_color/color_space.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/pattern_paint.h>

#include "document_library/pdf/form_file.h"
#include "document_library/pdf/writer/writer_test_support.h"

namespace OrvPdf::Testing
{
namespace
{

using OrvPaint::FormPaint;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

const std::string square = "0 0 1 1 re f\n";
const std::string spaces = "/ColorSpace << /S [/Separation /Gold /DeviceCMYK << /FunctionType 2 "
                           "/Domain [0 1] /N 1 /C0 [0 0 0 0] /C1 [0 0 1 0] >>] >>";
/// A stencil that the model has no place for, as it has no width.
const std::string stencil = "BI /H 5 /BPC 1 /IM true ID unmodelled EI\n";

/// Of the first object.
std::vector<float> ComponentsOf(const OrvDoc::Content& content)
{
    const auto paint = std::dynamic_pointer_cast<const OrvPaint::FlatPaint>(PathAt(content).GetFillPaint());
    return paint && paint->GetNativeSpace()->GetFamily() == OrvColor::ColorSpace::Family::Separation
               ? paint->GetNativeComponents()
               : std::vector<float>();
}

class NestedWriter : public ::testing::Test
{
protected:
    /// Adds a square to the content of a form, as a program does.
    static void Change(const FormPaint& form)
    {
        Fill(form.GetContent(), Rectangle(0.0, 0.0, 7000.0, 7000.0));
    }

    FormFile file;
};

TEST_F(NestedWriter, AFormThatNobodyChangedStaysTheObjectThatItIs)
{
    file.Read({"/F0 Do", "/F0 Do"}, {FormObject("1 0 0 rg " + square, "/PieceInfo << /Mine << >> >>")});
    const auto reopened = file.Reopen();
    const auto forms = file.SavedForms();
    ASSERT_THAT(forms, SizeIs(1));
    EXPECT_EQ(DataOf(forms[0]), "1 0 0 rg " + square);
    EXPECT_TRUE(QPDFObjectHandle(forms[0]).getDict().hasKey("/PieceInfo"));
    EXPECT_EQ(FormAt(ContentOf(*reopened, 0)), FormAt(ContentOf(*reopened, 1)));
}

TEST_F(NestedWriter, AFormThatCountsOnTheInitialStateFindsItWhereItIsPainted)
{
    // The objects between leave another state behind; the form stays and is painted as before.
    file.Read({"/F0 Do q 1 0 0 rg 0 0 1 RG 5 w 1 J " + square + "0 0 m 1 1 l S Q /F0 Do"},
              {FormObject(square + "0 0 m 5 5 l S")});
    const auto reopened = file.Reopen();
    ASSERT_THAT(file.SavedForms(), SizeIs(1));
    EXPECT_EQ(DataOf(file.SavedForms()[0]), square + "0 0 m 5 5 l S");
    EXPECT_EQ(FormAt(ContentOf(*reopened), 0), FormAt(ContentOf(*reopened), 3));
    const OrvDoc::Path& line = PathAt(FormAt(ContentOf(*reopened), 3)->GetContent(), 1);
    EXPECT_EQ(line.GetStrokeProperties().width, 1000.0);
    EXPECT_EQ(line.GetStrokeProperties().cap, OrvDoc::LineCap::Butt);
}

TEST_F(NestedWriter, AFormThatTakesAColourFromAroundIsWrittenWithIt)
{
    file.Read({"1 0 0 rg /F0 Do"}, {FormObject(square)});
    file.Reopen();
    ASSERT_THAT(file.SavedForms(), SizeIs(1));
    EXPECT_THAT(DataOf(file.SavedForms()[0]), HasSubstr("1 0 0 rg"));
}

TEST_F(NestedWriter, AFormThatIsWrittenAnewKeepsWhatHasNoPlaceInTheModel)
{
    file.Read(
        {"1 0 0 rg /F0 Do 0 1 0 rg /F0 Do"},
        {FormObject(square, "/PieceInfo << /Mine << >> >> /OPI << >> /Filter [] /OrvBase [1 0 0 1 5 5]")});
    file.Reopen();
    ASSERT_THAT(file.SavedForms(), SizeIs(2));
    for (QPDFObjectHandle form : file.SavedForms()) {
        EXPECT_TRUE(form.getDict().hasKey("/PieceInfo"));
        EXPECT_TRUE(form.getDict().hasKey("/OPI"));
        EXPECT_FALSE(form.getDict().hasKey("/OrvBase"));
        EXPECT_THAT(DataOf(form), HasSubstr(" rg"));
    }
}

TEST_F(NestedWriter, AChangedFormIsWrittenInThePlaceOfTheOldOne)
{
    file.Read({"/F0 Do", "/F0 Do"}, {FormObject("1 0 0 rg " + square, "/PieceInfo << /Mine << >> >>")});
    Change(*FormAt(file.Page()));
    const auto reopened = file.Reopen();
    const auto forms = file.SavedForms();
    ASSERT_THAT(forms, SizeIs(1));
    EXPECT_TRUE(QPDFObjectHandle(forms[0]).getDict().hasKey("/PieceInfo"));
    EXPECT_THAT(ObjectsOf(FormAt(ContentOf(*reopened, 1))->GetContent()), SizeIs(2));
}

TEST_F(NestedWriter, AFormWithOtherPropertiesIsAnotherObject)
{
    file.Read({"/F0 Do /F0 Do"}, {FormObject("1 0 0 rg " + square)});
    const FormPointer changed =
        FormPaint::Factory(*FormAt(file.Page())).SetScope(FormPaint::Scope::File).Get();
    static_cast<OrvDoc::Path*>(file.Page().GetChildren().first)->SetFillPaint(changed);
    const auto reopened = file.Reopen();
    EXPECT_THAT(file.SavedForms(), SizeIs(2));
    EXPECT_EQ(FormAt(ContentOf(*reopened), 0)->GetScope(), FormPaint::Scope::File);
    EXPECT_FALSE(FormAt(ContentOf(*reopened), 1)->GetScope());
}

TEST_F(NestedWriter, AFormOfAPageThatIsKeptIsChangedInItsPlace)
{
    file.Read({stencil + "/F0 Do"}, {FormObject("1 0 0 rg " + square)});
    Change(*FormAt(file.Page()));
    const auto reopened = file.Reopen();
    EXPECT_THAT(ObjectsOf(FormAt(ContentOf(*reopened))->GetContent()), SizeIs(2));
    EXPECT_THAT(ErrorsOf(ContentOf(*reopened)), Not(IsEmpty())) << "the picture of the page is gone";
}

TEST_F(NestedWriter, AFormInsideOfOneThatIsKeptIsChangedInItsPlace)
{
    file.Read({stencil + "/F0 Do"}, {FormObject("/In Do", "", "/Resources << /XObject << /In 6 0 R >> >>"),
                                     FormObject("1 0 0 rg " + square)});
    Change(*FormAt(FormAt(file.Page())->GetContent()));
    const auto reopened = file.Reopen();
    EXPECT_THAT(ObjectsOf(FormAt(FormAt(ContentOf(*reopened))->GetContent())->GetContent()), SizeIs(2));
}

TEST_F(NestedWriter, WhatHoldsAChangedFormWithoutAPlaceOfItsOwnIsWrittenAnew)
{
    // The inner form has the colour of the outer one, so its stream in the file is not all of it.
    file.Read({"/F0 Do"}, {FormObject("1 0 0 rg /In Do", "", "/Resources << /XObject << /In 6 0 R >> >>"),
                           FormObject(square)});
    Change(*FormAt(FormAt(file.Page())->GetContent()));
    const auto reopened = file.Reopen();
    const OrvDoc::Content& inner = FormAt(FormAt(ContentOf(*reopened))->GetContent())->GetContent();
    EXPECT_THAT(ObjectsOf(inner), SizeIs(2));
}

TEST_F(NestedWriter, APageWithAChangedFormWithoutAPlaceOfItsOwnIsWrittenAnewAndTold)
{
    file.Read({stencil + "1 0 0 rg /F0 Do"}, {FormObject(square)});
    Change(*FormAt(file.Page()));
    const auto reopened = file.Reopen();
    EXPECT_THAT(ObjectsOf(FormAt(ContentOf(*reopened))->GetContent()), SizeIs(2));
    EXPECT_THAT(ErrorsOf(file.Page()), ::testing::Contains(HasSubstr("written without what was not read")));
}

TEST_F(NestedWriter, APictureInAFormStaysWhetherThePageIsChangedOrNot)
{
    for (const bool isChanged : {false, true}) {
        file.Read({"/F0 Do " + square}, {FormObject("0 g " + stencil)});
        if (isChanged)
            Fill(file.Page(), Square());
        const auto reopened = file.Reopen();
        EXPECT_THAT(ObjectsOf(ContentOf(*reopened)), SizeIs(isChanged ? 3 : 2));
        ASSERT_THAT(file.SavedForms(), SizeIs(1));
        EXPECT_THAT(DataOf(file.SavedForms()[0]), HasSubstr("unmodelled"));
    }
}

TEST_F(NestedWriter, AStencilThatTakesItsColourFromAroundKeepsThePage)
{
    file.Read({"1 0 0 rg /F0 Do"}, {FormObject(stencil)});
    file.Reopen();
    const auto forms = file.SavedForms();
    ASSERT_THAT(forms, SizeIs(1));
    EXPECT_THAT(DataOf(forms[0]), HasSubstr("unmodelled"));
}

TEST_F(NestedWriter, APictureInAFormWithALayerKeepsThePage)
{
    const std::string bytes = HarrowSupport::Testing::PdfFileOfPages(
        {"/F0 Do"}, "/OCProperties << /OCGs [6 0 R] /D << >> >>", "/XObject << /F0 5 0 R >>",
        {FormObject("0 g " + stencil, "/OC 6 0 R"), "<< /Type /OCG /Name (Cut) >>"});
    file.document = OrvDoc::Document::Create(file.folder.Write("layer.pdf", bytes), OrvDoc::ReadOptions());
    file.Reopen();
    ASSERT_THAT(file.SavedForms(), SizeIs(1));
    EXPECT_THAT(DataOf(file.SavedForms()[0]), HasSubstr("unmodelled"));
}

TEST_F(NestedWriter, APageWithUnmodelledContentStaysWhateverItsFormsPaintWith)
{
    const std::string pattern = "/Pattern << /P 6 0 R >>";
    file.Read({stencil + "1 0 0 rg /F0 Do"},
              {FormObject(square + "/Pattern cs /P scn " + square, "", "/Resources << " + pattern + " >>"),
               HarrowSupport::Testing::PdfStream("0 0 1 1 re f", "/PatternType 1 /PaintType 1 /TilingType 1 "
                                                                 "/BBox [0 0 2 2] /XStep 2 /YStep 2 "
                                                                 "/Resources << >>")});
    const std::vector<std::string> errors = ErrorsOf(file.Page());
    ASSERT_THAT(errors, Each(HasSubstr("the inline image is left out")));
    ASSERT_THAT(errors, SizeIs(1));
    const auto reopened = file.Reopen();
    EXPECT_EQ(ErrorsOf(file.Page()), errors);
    EXPECT_EQ(ErrorsOf(ContentOf(*reopened)), errors);
}

TEST_F(NestedWriter, AFormThatUsesTheResourcesOfItsPageGetsItsOwn)
{
    file.Read({"/F0 Do"}, {FormObject("/S cs 0.5 scn " + square, "", "")}, spaces);
    const auto reopened = file.Reopen();
    EXPECT_THAT(ErrorsOf(ContentOf(*reopened)), IsEmpty());
    ASSERT_THAT(file.SavedForms(), SizeIs(1));
    EXPECT_TRUE(file.SavedForms()[0].getDict().getKey("/Resources").hasKey("/ColorSpace"));
}

TEST_F(NestedWriter, APatternThatUsesTheResourcesOfItsPageKeepsItsColors)
{
    file.Read({"/Pattern cs /P scn " + square},
              {HarrowSupport::Testing::PdfStream("/S cs 0.5 scn " + square,
                                                 "/PatternType 1 /PaintType 1 /TilingType 1 /BBox [0 0 2 2] "
                                                 "/XStep 2 /YStep 2")},
              "/Pattern << /P 5 0 R >> " + spaces);
    const auto color = [](const OrvDoc::Content& page) {
        const auto& pattern = dynamic_cast<const OrvPaint::PatternPaint&>(*PathAt(page).GetFillPaint());
        return ComponentsOf(pattern.GetContent());
    };
    ASSERT_THAT(color(file.Page()), ElementsAre(0.5f));
    const auto reopened = file.Reopen();
    EXPECT_THAT(ErrorsOf(ContentOf(*reopened)), IsEmpty());
    EXPECT_THAT(color(ContentOf(*reopened)), ElementsAre(0.5f));
}

TEST_F(NestedWriter, AMaskThatUsesTheResourcesOfItsPageKeepsItsColors)
{
    file.Read({"/A gs " + square},
              {FormObject("/S cs 0.5 scn " + square, "/Group << /S /Transparency /CS /DeviceRGB >>", "")},
              "/ExtGState << /A << /SMask << /S /Luminosity /G 5 0 R >> >> >> " + spaces);
    const auto color = [](const OrvDoc::Content& page) {
        return ComponentsOf(PathAt(page).GetTransparency()->softMask->GetContent());
    };
    ASSERT_THAT(color(file.Page()), ElementsAre(0.5f));
    const auto reopened = file.Reopen();
    EXPECT_THAT(ErrorsOf(ContentOf(*reopened)), IsEmpty());
    EXPECT_THAT(color(ContentOf(*reopened)), ElementsAre(0.5f));
}

TEST_F(NestedWriter, AFormThatDependsOnItsColourIsSharedByAKeptFormAndThePage)
{
    file.Read(
        {"1 0 0 rg /F1 Do /F0 Do"},
        {FormObject("1 0 0 rg /In Do", "", "/Resources << /XObject << /In 6 0 R >> >>"), FormObject(square)});
    ASSERT_EQ(FormAt(file.Page(), 0), FormAt(FormAt(file.Page(), 1)->GetContent()));
    const auto reopened = file.Reopen();
    EXPECT_EQ(FormAt(ContentOf(*reopened), 0), FormAt(FormAt(ContentOf(*reopened), 1)->GetContent()));
}

TEST_F(NestedWriter, APatternIsSharedByAFormOfTheFileAndThePage)
{
    const std::string pattern = "/Pattern << /P 6 0 R >>";
    const std::string paints = "/Pattern cs /P scn " + square;
    file.Read({paints + "/F0 Do"},
              {FormObject(paints, "", "/Resources << " + pattern + " >>"),
               HarrowSupport::Testing::PdfStream("0 0 1 1 re f", "/PatternType 1 /PaintType 1 /TilingType 1 "
                                                                 "/BBox [0 0 2 2] /XStep 2 /YStep 2 "
                                                                 "/Resources << >>")},
              pattern);
    ASSERT_TRUE(PathAt(file.Page()).GetFillPaint());
    ASSERT_EQ(PathAt(file.Page()).GetFillPaint(),
              PathAt(FormAt(file.Page(), 1)->GetContent()).GetFillPaint());
    const auto reopened = file.Reopen();
    EXPECT_EQ(PathAt(ContentOf(*reopened)).GetFillPaint(),
              PathAt(FormAt(ContentOf(*reopened), 1)->GetContent()).GetFillPaint());
}

class NestedReferences : public NestedWriter
{
protected:
    /// The file that the form names when the document is saved into a folder of its own.
    std::string NameAfterMove(const std::string& page, const std::string& content)
    {
        file.Read({page}, {FormObject(content, "/Ref << /F (art/b.pdf) /Page 1 /ID [(x) (y)] >>")});
        boost::filesystem::create_directory(file.folder.GetPath() / "sub");
        const auto reopened = file.Reopen("sub/out.pdf");
        const auto reference = FormAt(ContentOf(*reopened))->GetExternalReference();
        EXPECT_EQ(reference->first, boost::filesystem::path(file.folder.NameOf("art/b.pdf")));
        QPDFObjectHandle entry = file.SavedForms("sub/out.pdf")[0].getDict().getKey("/Ref");
        EXPECT_TRUE(entry.hasKey("/ID"));
        return entry.getKey("/F").getUTF8Value();
    }
};

TEST_F(NestedReferences, OfAKeptFormIsNamedFromTheNewFolder)
{
    EXPECT_EQ(NameAfterMove("/F0 Do", "1 0 0 rg " + square), "../art/b.pdf");
}

TEST_F(NestedReferences, OfAFormOnAKeptPageIsNamedFromTheNewFolder)
{
    EXPECT_EQ(NameAfterMove(stencil + "/F0 Do", "1 0 0 rg " + square), "../art/b.pdf");
    EXPECT_EQ(NameAfterMove(stencil + "1 0 0 rg /F0 Do", square), "../art/b.pdf");
}

TEST_F(NestedReferences, StaysAsItStandsInTheSameFolder)
{
    file.Read({"/F0 Do"}, {FormObject("1 0 0 rg " + square, "/Ref << /F << /UF (b.pdf) >> /Page 1 >>")});
    file.Reopen();
    EXPECT_TRUE(file.SavedForms()[0].getDict().getKey("/Ref").getKey("/F").isDictionary());
}

class OneFormAsSeveral : public NestedWriter
{
protected:
    /// Shows the form of the page once more, as a group.
    void ShowAsGroup(bool isIsolated)
    {
        auto path = std::make_unique<OrvDoc::Path>(PathAt(file.Page()).DefiningCompound());
        path->SetFillPaint(FormAt(file.Page()));
        path->SetTransparency(
            OrvBlend::Transparency::Factory().SetFillAlpha(0.5F).SetIsolated(isIsolated).Get());
        Fill(file.Page(), std::move(path));
    }
};

TEST_F(OneFormAsSeveral, IsOneFormAgainAfterEachTrip)
{
    file.Read({"/F0 Do"}, {FormObject("1 0 0 rg " + square)});
    ShowAsGroup(false);
    ShowAsGroup(true);
    for (const char* const name : {"one.pdf", "two.pdf", "three.pdf"}) {
        file.document = file.Reopen(name);
        EXPECT_THAT(file.SavedForms(name), SizeIs(3));
        const FormPointer form = FormAt(file.Page(), 0);
        EXPECT_TRUE(form);
        EXPECT_EQ(FormAt(file.Page(), 1), form);
        EXPECT_EQ(FormAt(file.Page(), 2), form);
        EXPECT_FALSE(PathAt(file.Page(), 0).GetTransparency());
        EXPECT_EQ(PathAt(file.Page(), 1).GetTransparency()->fillAlpha, 0.5F);
        EXPECT_FALSE(PathAt(file.Page(), 1).GetTransparency()->isolated);
        EXPECT_TRUE(PathAt(file.Page(), 2).GetTransparency()->isolated);
        EXPECT_FALSE(PathAt(form->GetContent()).GetTransparency());
    }
}

TEST_F(NestedWriter, FormsTenThousandDeepAreWrittenAndReadUpToTheLimit)
{
    constexpr int depth = 10000;
    auto document = NewDocument(1);
    FormPointer form;
    for (int level = 0; level < depth; ++level) {
        auto content = std::make_shared<OrvDoc::Content>(*document, OrvDoc::Content::Type::FormContent);
        auto path = Square();
        if (form)
            path->SetFillPaint(form);
        Fill(*content, std::move(path));
        form = FormPaint::Factory(std::move(content)).SetFormBBox({0.0, 0.0, 9000.0, 9000.0}).Get();
    }
    auto top = Square();
    top->SetFillPaint(form);
    Fill(ContentOf(*document), std::move(top));
    file.document = std::move(document);
    const auto reopened = file.Reopen();
    EXPECT_THAT(ErrorsOf(ContentOf(*reopened)), ElementsAre(HasSubstr("limit formNesting: 64 reached")));
    std::size_t read = 0;
    for (FormPointer next = FormAt(ContentOf(*reopened)); next; next = FormAt(next->GetContent()))
        ++read;
    EXPECT_EQ(read, 64U);
}

// Only its first use is read as the group that the object says it is.
TEST_F(NestedWriter, AGroupThatIsShownASecondTimeComesBackAsAGroupAndAForm)
{
    file.Read({"/F0 Do /F0 Do"}, {FormObject("/OrvGroup BMC " + square + "EMC",
                                             "/Group << /S /Transparency >> /OrvGroup true")});
    const auto kindsOf = [](const OrvDoc::Content& content) {
        std::vector<std::string> kinds;
        for (const OrvDoc::ContentObject* const object : ObjectsOf(content))
            kinds.push_back(FormOf(object)                               ? "form"
                            : dynamic_cast<const OrvDoc::Group*>(object) ? "group"
                                                                         : "");
        return kinds;
    };
    ASSERT_THAT(kindsOf(file.Page()), ElementsAre("group", "form"));
    const auto reopened = file.Reopen();
    EXPECT_THAT(kindsOf(HarrowSupport::Testing::ContentOf(*reopened, 0)), ElementsAre("group", "form"));
}

TEST_F(NestedWriter, AGroupKeepsTheTransferFunctionsOfItsPage)
{
    file.Read({"/G gs " + square}, {},
              "/ExtGState << /G << /TR << /FunctionType 2 /Domain [0 1] /N 2 >> >> >>");
    auto group = With(ImplicitGroup(), Filled(Flat(Tints({{"Black", 0.5F}}))));
    group->SetTransparency(OrvBlend::Transparency::Factory().SetFillAlpha(0.5F).Get());
    Fill(file.Page(), std::move(group));
    const auto reopened = file.Reopen();
    EXPECT_TRUE(ContentOf(*reopened).GetTransferFunctionSet());
    EXPECT_THAT(ErrorsOf(ContentOf(*reopened)), IsEmpty());
    ASSERT_THAT(file.SavedForms(), SizeIs(1));
    for (auto& [name, state] :
         file.SavedForms()[0].getDict().getKey("/Resources").getKey("/ExtGState").getDictAsMap())
        EXPECT_FALSE(QPDFObjectHandle(state).hasKey("/TR2")) << name;
}

} // namespace
} // namespace OrvPdf::Testing
