#include "comparators/soft_mask_comparison.h"

#include "support/paint_makers.h"
#include "support/recording_reporter.h"

#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

namespace HarrowSupport::Testing
{

using Comparators::SoftMaskTransformationsEqual;
using ::testing::ElementsAre;

namespace
{

std::string AddressOf(const FunctionPointer& function)
{
    std::ostringstream stream;
    stream << static_cast<const void*>(function.get());
    return stream.str();
}

std::unique_ptr<OrvDoc::Path> WithHalftone(const std::string& name)
{
    auto path = Square();
    path->SetHalftoneSet(std::make_shared<OrvDoc::HalftoneSet>(name, OrvSys::PdfObject()));
    return path;
}

class SoftMasks : public ::testing::Test
{
protected:
    OrvBlend::SoftMask::Factory Mask(const std::string& name = "mask") { return AMask(*document, name); }

    void ExpectMaskReports(const OrvBlend::SoftMask::Factory& left, const OrvBlend::SoftMask::Factory& right,
                           const std::vector<ExpectedReport>& expected)
    {
        ExpectReports<OrvDoc::ContentObject>(*Masked(left.Get()), *Masked(right.Get()), expected);
    }

    const std::unique_ptr<OrvDoc::Document> document = NewDocument();
};

void ExpectSame(const Matrix& left, const Matrix& right, bool same)
{
    EXPECT_EQ(SoftMaskTransformationsEqual(left, right), same);
    EXPECT_EQ(SoftMaskTransformationsEqual(right, left), same);
}

} // namespace

TEST_F(SoftMasks, EqualOnesGiveNoReport)
{
    ExpectMaskReports(Mask(), Mask(), {});
}

TEST_F(SoftMasks, OnOneSideIsADifference)
{
    const auto plain = Square();
    plain->SetTransparency(std::make_shared<const OrvBlend::Transparency>());
    ExpectReports<OrvDoc::ContentObject>(*Masked(Mask().Get()), *plain,
                                         {Difference("ObjectHasSoftMask", "1", "0")});
}

TEST_F(SoftMasks, AnotherTransformationIsADifference)
{
    ExpectMaskReports(Mask(), Mask().SetTransformation(Matrix(2.0, 0.0, 0.0, 1.0, 0.0, 0.0)),
                      {Difference("SoftMaskTransformation", "[A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0]",
                                  "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]")});
}

TEST_F(SoftMasks, AnotherBackdropIsADifference)
{
    ExpectMaskReports(Mask().SetBackdropColor(Tints({{"Black", 1.0f}})),
                      Mask().SetBackdropColor(Tints({{"Black", 0.5f}})),
                      {Difference("SoftMaskBackdropColor", "(Black @ 100%)", "(Black @ 50%)")});
}

TEST_F(SoftMasks, BackdropsAreColorsAndTheirOrderDoesNotCount)
{
    ExpectMaskReports(Mask().SetBackdropColor(Tints({{"a", 1.0f}, {"b", 0.5f}})),
                      Mask().SetBackdropColor(Tints({{"b", std::nextafter(0.5f, 1.0f)}, {"a", 1.0f}})), {});
}

TEST_F(SoftMasks, AlphaIsNotLuminosity)
{
    ExpectMaskReports(Mask().SetAlpha(true), Mask(), {Difference("SoftMaskAlpha", "1", "0")});
}

TEST_F(SoftMasks, FlagsAsTransferFunctionsGoByValue)
{
    ExpectMaskReports(Mask().SetTransferFunction(true), Mask().SetTransferFunction(true), {});
    ExpectMaskReports(Mask().SetTransferFunction(true), Mask().SetTransferFunction(false),
                      {Difference("SoftMaskTransferFunction", "1", "0")});
}

TEST_F(SoftMasks, TransferFunctionsGoByIdentity)
{
    const FunctionPointer one = Ramp({0.0f}, {1.0f});
    const FunctionPointer other = Ramp({0.0f}, {1.0f});
    ExpectMaskReports(Mask().SetTransferFunction(one), Mask().SetTransferFunction(one), {});
    ExpectMaskReports(Mask().SetTransferFunction(one), Mask().SetTransferFunction(other),
                      {Difference("SoftMaskTransferFunction", AddressOf(one), AddressOf(other))});
}

TEST_F(SoftMasks, AFlagIsNoTransferFunction)
{
    const FunctionPointer function = Ramp({0.0f}, {1.0f});
    ExpectMaskReports(Mask().SetTransferFunction(true), Mask().SetTransferFunction(function),
                      {Difference("SoftMaskTransferFunction", "1", AddressOf(function))});
}

TEST_F(SoftMasks, DifferencesOfTheDrawingComeFirstAndThoseOfTheMaskInTheirOrder)
{
    ExpectMaskReports(Mask("a"),
                      Mask("b")
                          .SetTransformation(Matrix(2.0, 0.0, 0.0, 1.0, 0.0, 0.0))
                          .SetBackdropColor(Tints({{"Black", 1.0f}}))
                          .SetAlpha(true)
                          .SetTransferFunction(true),
                      {Difference("ObjectName", "a", "b"),
                       Difference("SoftMaskTransformation", "[A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0]",
                                  "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]"),
                       Difference("SoftMaskBackdropColor", "(Empty)", "(Black @ 100%)"),
                       Difference("SoftMaskAlpha", "0", "1"),
                       Difference("SoftMaskTransferFunction", "0", "1")});
}

TEST_F(SoftMasks, ComeBehindTheOtherFieldsOfTheTransparency)
{
    auto left = Masked(Mask().SetAlpha(true).Get());
    auto right = Named(Masked(Mask().Get()), "n");
    right->SetTransparency(OrvBlend::Transparency::Factory()
                               .SetKnockout(true)
                               .SetSoftMask(right->GetTransparency()->softMask)
                               .Get());
    ExpectReports<OrvDoc::ContentObject>(*left, *right,
                                         {Difference("GroupIsKnockout", "0", "1"),
                                          Difference("SoftMaskAlpha", "1", "0"),
                                          Difference("ObjectName", "", "n")});
}

TEST_F(SoftMasks, AMismatchInTheDrawingEndsTheDrawingAlone)
{
    const auto other = NewDocument();
    Fill(ContentOf(*document), Masked(MaskOf(*document, Square("a"), Square("b")).Get()), Square("c"));
    Fill(ContentOf(*other), Masked(MaskOf(*other, UserGroup(), Square("x")).Get()), Square("d"));
    ExpectReports(
        *document, *other,
        {Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group"), Difference("ObjectName", "c", "d")});
}

TEST_F(SoftMasks, HalftonesInsideAreNotCompared)
{
    ExpectMaskReports(MaskOf(*document, WithHalftone("Round")), MaskOf(*document, WithHalftone("Line")), {});
}

TEST_F(SoftMasks, HalftonesOfImagesInsideAreNotCompared)
{
    const auto imageWithHalftone = [](const std::string& name) {
        auto image = std::make_unique<OrvDoc::Image>(nullptr);
        image->SetHalftoneSet(std::make_shared<OrvDoc::HalftoneSet>(name, OrvSys::PdfObject()));
        return image;
    };
    Comparators::Options withoutPictures = AllOptions();
    withoutPictures.compareImageData = false;
    ExpectReports<OrvDoc::ContentObject>(*Masked(MaskOf(*document, imageWithHalftone("Round")).Get()),
                                         *Masked(MaskOf(*document, imageWithHalftone("Line")).Get()), {},
                                         withoutPictures);
}

TEST_F(SoftMasks, HalftonesAtAnyDepthInsideAreNotCompared)
{
    const auto nested = [this](const std::string& halftone) {
        auto inForm = Filled(FormOf(*document, WithHalftone(halftone)).Get());
        auto inMask = Masked(MaskOf(*document, WithHalftone(halftone)).Get());
        return MaskOf(*document, With(UserGroup(), WithHalftone(halftone)), std::move(inForm),
                      std::move(inMask), WithHalftone(halftone));
    };
    ExpectMaskReports(nested("Round"), nested("Line"), {});
}

TEST_F(SoftMasks, HalftonesBehindAMaskAreComparedAgain)
{
    const auto masked = [this](const std::string& halftone) {
        auto path = WithHalftone(halftone);
        path->SetTransparency(OrvBlend::Transparency::Factory()
                                  .SetSoftMask(MaskOf(*document, WithHalftone(halftone)).Get())
                                  .Get());
        return path;
    };
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*masked("Round")),
                         *masked("Line"), AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("HalftoneSetName", "HalftoneSet"));
}

TEST_F(SoftMasks, AreComparedForEachObjectThatUsesThem)
{
    const auto other = NewDocument();
    const MaskPointer left = Mask("a").Get();
    const MaskPointer right = AMask(*other, "b").Get();
    Fill(ContentOf(*document), Masked(left), Masked(left));
    Fill(ContentOf(*other), Masked(right), Masked(right));
    ExpectReports(*document, *other,
                  {Difference("ObjectName", "a", "b"), Difference("ObjectName", "a", "b")});
}

TEST_F(SoftMasks, WithADifferenceOfTheirOwnAreToldForEachObject)
{
    const auto other = NewDocument();
    const MaskPointer left = Mask().SetAlpha(true).Get();
    const MaskPointer right = AMask(*other).Get();
    Fill(ContentOf(*document), Masked(left), Masked(left));
    Fill(ContentOf(*other), Masked(right), Masked(right));
    ExpectReports(*document, *other,
                  {Difference("SoftMaskAlpha", "1", "0"), Difference("SoftMaskAlpha", "1", "0")});
}

TEST_F(SoftMasks, WithAFormThatIsSharedInAnotherWayAreToldForEachObject)
{
    const auto other = NewDocument();
    const PaintPointer shared = AForm(*document).Get();
    const MaskPointer left = MaskOf(*document, Filled(shared)).Get();
    const MaskPointer right = MaskOf(*other, Filled(AForm(*other).Get())).Get();
    Fill(ContentOf(*document), Filled(shared), Masked(left), Masked(left));
    Fill(ContentOf(*other), Filled(AForm(*other).Get()), Masked(right), Masked(right));
    ExpectReports(*document, *other, {Difference("FormReuse", "1", "0"), Difference("FormReuse", "1", "0")});
}

TEST_F(SoftMasks, AreToldApartByBothSides)
{
    const auto other = NewDocument();
    const MaskPointer left = Mask("a").Get();
    const MaskPointer right = AMask(*other, "a").Get();
    Fill(ContentOf(*document), Masked(left), Masked(left), Masked(Mask("b").Get()));
    Fill(ContentOf(*other), Masked(right), Masked(AMask(*other, "b").Get()), Masked(right));
    ExpectReports(*document, *other,
                  {Difference("ObjectName", "a", "b"), Difference("ObjectName", "b", "a")});
}

TEST_F(SoftMasks, OneThatHoldsItselfEnds)
{
    const auto endless = [](OrvDoc::Document& owner, const std::string& name) {
        const MaskPointer mask = AMask(owner, name).Get();
        OrvDoc::Path& user = Place(mask->GetContent(), Masked(mask));
        Fill(ContentOf(owner), Masked(mask));
        return &user;
    };
    const auto other = NewDocument();
    OrvDoc::Path* const leftUser = endless(*document, "a");
    OrvDoc::Path* const rightUser = endless(*other, "b");
    ExpectReports(*document, *other, {Difference("ObjectName", "a", "b")});
    // The circle of owners has to be opened, or nothing frees it.
    leftUser->SetTransparency(nullptr);
    rightUser->SetTransparency(nullptr);
}

TEST_F(SoftMasks, OneThatIsUsedInAFormInsideItIsToldThereToo)
{
    const auto other = NewDocument();
    const auto round = [](OrvDoc::Document& owner, const std::string& name, bool isAlpha) {
        const auto form = AForm(owner).Get();
        const MaskPointer mask = MaskOf(owner, Square(name), Filled(form)).SetAlpha(isAlpha).Get();
        OrvDoc::Path& user = Place(form->GetContent(), Masked(mask));
        Fill(ContentOf(owner), Masked(mask));
        return &user;
    };
    OrvDoc::Path* const leftUser = round(*document, "a", true);
    OrvDoc::Path* const rightUser = round(*other, "b", false);
    ExpectReports(*document, *other,
                  {Difference("ObjectName", "a", "b"), Difference("ObjectName", "a", "b"),
                   Difference("SoftMaskAlpha", "1", "0"), Difference("SoftMaskAlpha", "1", "0")});
    leftUser->SetTransparency(nullptr);
    rightUser->SetTransparency(nullptr);
}

TEST(SoftMaskTransformations, MayDifferByTheirShareOfTheDeterminant)
{
    ExpectSame(Matrix(), Matrix(1.0, 1e-16, 0.0, 1.0, 0.0, 0.0), true);
    ExpectSame(Matrix(), Matrix(1.0, std::nextafter(1e-16, 1.0), 0.0, 1.0, 0.0, 0.0), false);
    ExpectSame(Matrix(), Matrix(1.0, 0.0, -1e-16, 1.0, 0.0, 0.0), true);
    ExpectSame(Matrix(), Matrix(1.0, 0.0, std::nextafter(-1e-16, -1.0), 1.0, 0.0, 0.0), false);
}

TEST(SoftMaskTransformations, OfLargeDeterminantsMayDifferByMore)
{
    const Matrix large(1000.0, 0.0, 0.0, 1000.0, 0.0, 0.0);
    const double tolerance = 1e-16 * 1e6;
    ExpectSame(large, Matrix(1000.0, tolerance, 0.0, 1000.0, 0.0, 0.0), true);
    ExpectSame(large, Matrix(1000.0, std::nextafter(tolerance, 1.0), 0.0, 1000.0, 0.0, 0.0), false);
    ExpectSame(large, Matrix(1000.0, 0.0, 0.0, 1000.0 - 1e-9, 0.0, 0.0), false);
    const Matrix huge(1e9, 0.0, 0.0, 1e9, 0.0, 0.0);
    ExpectSame(huge, Matrix(std::nextafter(1e9, 0.0), 0.0, 0.0, 1e9, 0.0, 0.0), true);
}

TEST(SoftMaskTransformations, OfNegativeDeterminantsGoByTheAbsoluteOne)
{
    const Matrix mirrored(-1.0, 0.0, 0.0, 1.0, 0.0, 0.0);
    ExpectSame(mirrored, Matrix(-1.0, 1e-16, 0.0, 1.0, 0.0, 0.0), true);
}

TEST(SoftMaskTransformations, OfASingularMatrixHaveToBeExactlyEqual)
{
    // By the larger determinant these would be equal: 1e-16 times 1e10 is more than 1e-7.
    const Matrix singular(1e17, 0.0, 0.0, 0.0, 0.0, 0.0);
    ExpectSame(singular, Matrix(1e17, 0.0, 0.0, 1e-7, 0.0, 0.0), false);
    ExpectSame(singular, singular, true);
    ExpectSame(singular, Matrix(1e17, 0.0, 0.0, 0.0, 20.0, 0.0), true);
    const Matrix sheared(1.0, 1.0, 1.0, 1.0, 0.0, 0.0);
    ExpectSame(sheared, sheared, true);
    ExpectSame(sheared, Matrix(1.0, 1.0, 1.0, std::nextafter(1.0, 0.0), 0.0, 0.0), false);
}

TEST(SoftMaskTransformations, MayBeMovedByLessThanTheToleranceOfCoordinates)
{
    const double below = std::nextafter(30.0, 0.0);
    ExpectSame(Matrix(), Matrix(1.0, 0.0, 0.0, 1.0, below, -below), true);
    ExpectSame(Matrix(), Matrix(1.0, 0.0, 0.0, 1.0, 30.0, 0.0), false);
    ExpectSame(Matrix(), Matrix(1.0, 0.0, 0.0, 1.0, 0.0, -30.0), false);
}

TEST(SoftMaskTransformations, ThatAreNoNumbersMatchNothing)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    const Matrix inMatrix(none, 0.0, 0.0, 1.0, 0.0, 0.0);
    const Matrix inTranslation(1.0, 0.0, 0.0, 1.0, 0.0, none);
    ExpectSame(inMatrix, inMatrix, false);
    ExpectSame(inTranslation, inTranslation, false);
    ExpectSame(inMatrix, Matrix(), false);
}

} // namespace HarrowSupport::Testing
