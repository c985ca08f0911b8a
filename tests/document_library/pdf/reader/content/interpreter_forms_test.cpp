// What a form XObject becomes where it is painted, and which parameters around make another form of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/transparency.h>
#include <orv_color/color_space.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/layer.h>

#include "document_library/pdf/form_file.h"
#include "document_library/pdf/reader/interpreter_test_support.h"

namespace OrvPdf::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const std::string square = "0 0 1 1 re f\n";

class InterpreterForms : public ::testing::Test
{
protected:
    /// How many forms a page has that paints F0 under both of two states.
    std::size_t CountForms(const std::string& form, const std::string& first, const std::string& second,
                           const std::string& resources = "", const std::string& entries = "")
    {
        file.Read({"q " + first + " /F0 Do Q q " + second + " /F0 Do Q"}, {FormObject(form, entries)},
                  resources);
        const auto left = FormAt(file.Page(), 0);
        const auto right = FormAt(file.Page(), 1);
        EXPECT_TRUE(left && right);
        return left == right ? 1 : 2;
    }

    FormFile file;
};

TEST_F(InterpreterForms, AFormIsAPathWithTheOutlineOfItsBox)
{
    file.Read({"1 0 0 1 7 8 cm /F0 Do"}, {FormObject(square, "/Matrix [2 0 0 2 1 1]")});
    const OrvDoc::Path& path = PathAt(file.Page());
    EXPECT_EQ(ShapeText(*path.DefiningCompound()), "{M 1000 1000 L 21000 1000 L 21000 21000 L 1000 21000 Z}");
    EXPECT_EQ(path.GetTransformation(), HarrowSupport::Testing::Matrix(1, 0, 0, 1, 7000.0, 8000.0));
    EXPECT_FALSE(path.GetTransparency());
    EXPECT_FALSE(path.GetStrokePaint());
}

TEST_F(InterpreterForms, TheFormHasMatrixBoxAndContent)
{
    file.Read({"/F0 Do"}, {FormObject(square + square, "/Matrix [0 2 -3 0 1.5 1]")});
    const FormPointer form = FormAt(file.Page());
    ASSERT_TRUE(form);
    EXPECT_EQ(form->GetFormTransformation(), HarrowSupport::Testing::Matrix(0, 2, -3, 0, 1500.0, 1000.0));
    EXPECT_EQ(form->GetFormBBox(), HarrowSupport::Testing::Box(0.0, 0.0, 10000.0, 10000.0));
    EXPECT_EQ(form->GetContent().GetType(), OrvDoc::Content::Type::FormContent);
    EXPECT_THAT(ObjectsOf(form->GetContent()), SizeIs(2));
    EXPECT_THAT(ErrorsOf(file.Page()), IsEmpty());
}

TEST_F(InterpreterForms, ATransparencyGroupTakesTheBlendingInForce)
{
    file.Read({"/G gs /F0 Do"}, {FormObject(square, "/Group << /S /Transparency /I true >>")},
              "/ExtGState << /G << /BM /Multiply /ca 0.5 /CA 0.25 /AIS true >> >>");
    const auto& transparency = PathAt(file.Page()).GetTransparency();
    ASSERT_TRUE(transparency);
    EXPECT_EQ(transparency->blendMode, OrvBlend::BlendMode::Multiply);
    EXPECT_EQ(transparency->fillAlpha, 0.5F);
    EXPECT_EQ(transparency->strokeAlpha, 0.25F);
    EXPECT_TRUE(transparency->alphaIsShape);
    EXPECT_TRUE(transparency->isolated);
    EXPECT_FALSE(transparency->knockout);
    EXPECT_FALSE(PathAt(FormAt(file.Page())->GetContent()).GetTransparency());
}

TEST_F(InterpreterForms, KnockoutIsToldFromIsolated)
{
    file.Read({"/F0 Do"}, {FormObject(square, "/Group << /S /Transparency /K true >>")});
    EXPECT_FALSE(PathAt(file.Page()).GetTransparency()->isolated);
    EXPECT_TRUE(PathAt(file.Page()).GetTransparency()->knockout);
}

TEST_F(InterpreterForms, AGroupOfAnotherKindIsNone)
{
    file.Read({"/F0 Do"}, {FormObject(square, "/Group << /S /Other /I true >>")});
    EXPECT_FALSE(PathAt(file.Page()).GetTransparency());
}

TEST_F(InterpreterForms, TheObjectsOfAFormThatIsNoGroupTakeTheBlendingInForce)
{
    file.Read({"/G gs /F0 Do"}, {FormObject(square)}, "/ExtGState << /G << /ca 0.5 >> >>");
    EXPECT_FALSE(PathAt(file.Page()).GetTransparency());
    EXPECT_EQ(PathAt(FormAt(file.Page())->GetContent()).GetTransparency()->fillAlpha, 0.5F);
}

TEST_F(InterpreterForms, TheColourSpaceOfTheGroupIsTheBlendSpaceOfTheContent)
{
    file.Read({"/F0 Do"}, {FormObject(square, "/Group << /S /Transparency /CS /DeviceCMYK >>")});
    EXPECT_EQ(FormAt(file.Page())->GetContent().GetBlendColorSpace().GetColorSpace(),
              OrvColor::ColorSpace::DeviceCMYK());
    EXPECT_FALSE(file.Page().GetBlendColorSpace().GetColorSpace());
}

TEST_F(InterpreterForms, OneObjectOnTwoPagesIsOneForm)
{
    file.Read({"/F0 Do", "1 0 0 1 5 5 cm /F0 Do /F0 Do"}, {FormObject("1 0 0 rg " + square)});
    ASSERT_TRUE(FormAt(file.Page(0)));
    EXPECT_EQ(FormAt(file.Page(0)), FormAt(file.Page(1)));
    EXPECT_EQ(FormAt(file.Page(1), 1), FormAt(file.Page(1)));
}

TEST_F(InterpreterForms, TwoEqualObjectsAreTwoForms)
{
    file.Read({"/F0 Do /F1 Do"}, {FormObject(square), FormObject(square)});
    EXPECT_NE(FormAt(file.Page(), 0), FormAt(file.Page(), 1));
}

TEST_F(InterpreterForms, AColourFromAroundMakesAnotherForm)
{
    EXPECT_EQ(CountForms(square, "1 0 0 rg", "0 1 0 rg"), 2U);
    EXPECT_EQ(PaintText(PathAt(FormAt(file.Page(), 0)->GetContent()).GetFillPaint()), "RGB 1 0 0");
    EXPECT_EQ(PaintText(PathAt(FormAt(file.Page(), 1)->GetContent()).GetFillPaint()), "RGB 0 1 0");
}

TEST_F(InterpreterForms, TheSameColourFromAroundMakesNoOther)
{
    EXPECT_EQ(CountForms(square, "1 0 0 rg", "0.5 g 1 0 0 rg"), 1U);
}

TEST_F(InterpreterForms, AColourThatTheFormSetsItselfMakesNoOther)
{
    EXPECT_EQ(CountForms("0 g " + square, "1 0 0 rg", "0 1 0 rg"), 1U);
}

TEST_F(InterpreterForms, AColourThatOnlyStrokesWouldUseMakesNoOther)
{
    EXPECT_EQ(CountForms(square, "1 0 0 RG 5 w 1 J 2 j 7 M [3] 0 d", ""), 1U);
}

TEST_F(InterpreterForms, AColourThatIsRestoredInsideStillCounts)
{
    EXPECT_EQ(CountForms("q 0 g " + square + " Q " + square, "1 0 0 rg", "0 1 0 rg"), 2U);
}

TEST_F(InterpreterForms, StrokePropertiesFromAroundMakeAnotherForm)
{
    const std::string line = "0 0 m 5 5 l S\n";
    for (const char* const parameter : {"5 w", "1 J", "2 j", "7 M", "[3] 0 d", "1 0 0 RG"})
        EXPECT_EQ(CountForms(line, parameter, ""), 2U) << parameter;
    EXPECT_EQ(CountForms("5 w " + line, "7 w", ""), 1U);
}

TEST_F(InterpreterForms, OverprintFromAroundMakesAnotherForm)
{
    const std::string states = "/ExtGState << /G << /OP true >> /M << /OPM 1 >> /O << /op false /OPM 0 >> >>";
    EXPECT_EQ(CountForms(square, "/G gs", "", states), 2U);
    EXPECT_EQ(CountForms("/O gs " + square, "/G gs", "", states,
                         "/Resources << /ExtGState << /O << /op false /OPM 0 >> >> >>"),
              1U);
    EXPECT_EQ(CountForms(square, "/M gs", "", states), 2U);
}

TEST_F(InterpreterForms, AnAlphaFromAroundMakesAnotherFormUnlessItIsAGroup)
{
    const std::string states = "/ExtGState << /G << /ca 0.5 >> >>";
    EXPECT_EQ(CountForms(square, "/G gs", "", states), 2U);
    EXPECT_EQ(CountForms(square, "/G gs", "", states, "/Group << /S /Transparency >>"), 1U);
}

TEST_F(InterpreterForms, HalftonesFromAroundMakeAnotherForm)
{
    const std::string states = "/ExtGState << /G << /HT << /HalftoneType 1 /Frequency 60 /Angle 45 "
                               "/SpotFunction /Round >> >> >>";
    EXPECT_EQ(CountForms(square, "/G gs", "", states), 2U);
    EXPECT_TRUE(PathAt(FormAt(file.Page(), 0)->GetContent()).GetHalftoneSet());
    EXPECT_FALSE(PathAt(FormAt(file.Page(), 1)->GetContent()).GetHalftoneSet());
}

TEST_F(InterpreterForms, WhatAnInnerFormDependsOnTheOuterOneDependsOnToo)
{
    file.Read({"q 1 0 0 rg /F0 Do Q q 0 1 0 rg /F0 Do Q"},
              {FormObject("/In Do", "", "/Resources << /XObject << /In 6 0 R >> >>"), FormObject(square)});
    EXPECT_NE(FormAt(file.Page(), 0), FormAt(file.Page(), 1));
    EXPECT_EQ(PaintText(PathAt(FormAt(FormAt(file.Page(), 1)->GetContent())->GetContent()).GetFillPaint()),
              "RGB 0 1 0");
}

TEST_F(InterpreterForms, TextThatSetsWhatItNeedsMakesNoOtherForm)
{
    EXPECT_EQ(CountForms("BT /T 9 Tf 0 g 0 Tc (x) Tj ET " + square, "1 0 0 rg 3 w", "5 Tc"), 1U);
}

TEST_F(InterpreterForms, TextUnderEachParameterFromAroundMakesAnotherForm)
{
    for (const char* const parameter : {"5 Tc", "5 Tw", "5 Tz", "5 Ts", "1 Tr", "1 0 0 rg"})
        EXPECT_EQ(CountForms("BT /T 9 Tf (x) Tj ET", parameter, ""), 2U) << parameter;
    EXPECT_EQ(CountForms("BT /T 9 Tf (x) Tj ET", "5 TL", ""), 1U);
    EXPECT_EQ(CountForms("BT /T 9 Tf (x) ' ET", "5 TL", ""), 2U);
}

TEST_F(InterpreterForms, ATransferFunctionFromAroundIsNoneOfAFormThatPaintsNothing)
{
    file.Read({"/G gs /F0 Do"}, {FormObject("0 0 1 1 re n")},
              "/ExtGState << /G << /TR << /FunctionType 2 /Domain [0 1] /N 2 >> >> >>");
    EXPECT_FALSE(FormAt(file.Page())->GetContent().GetTransferFunctionSet());
    EXPECT_TRUE(file.Page().GetTransferFunctionSet());
}

TEST_F(InterpreterForms, TheClipAroundAFormIsAClip)
{
    file.Read({"q 0 0 5 5 re W n /F0 Do Q /F0 Do"}, {FormObject(square)});
    const auto objects = ObjectsOf(file.Page());
    ASSERT_THAT(objects, SizeIs(2));
    const auto* const group = dynamic_cast<const OrvDoc::Group*>(objects[0]);
    ASSERT_TRUE(group);
    EXPECT_TRUE(group->children.first->IsClippingObject());
    EXPECT_EQ(FormOf(group->children.first->next), FormOf(objects[1]));
}

} // namespace
} // namespace OrvPdf::Testing
