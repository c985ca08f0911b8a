// Paints, functions, transparencies and soft masks, with their exact fields, signatures and places in the
// tables of virtual operations.

#include "document_interface/signature.h"

#include <array>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/soft_mask.h>
#include <orv_blend/transparency.h>
#include <orv_doc/content.h>
#include <orv_doc/scratch_document.h>
#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/form_paint.h>
#include <orv_paint/pattern_paint.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/stitching_function.h>
#include <orv_paint/whole_function.h>
#include <orv_paint/whole_shading_paint.h>
#include <orv_sys/pdf_object.h>

namespace
{

using namespace InterfaceTests;
using namespace OrvPaint;
using OrvBlend::SoftMask;
using OrvBlend::Transparency;
using OrvColor::Component;
using OrvDoc::Content;

using Color = OrvColor::ColorList<OrvColor::ColorPolicy>;
using Colorants = OrvColor::ColorList<OrvColor::ColorantPolicy>;
using Mapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;
using Coordinate = Plexa::CoordinateBase<Plexa::MilliPointCoordinateSystem>;
using Dimension = Plexa::DimensionBase<Plexa::MilliPointCoordinateSystem>;
using Point = Plexa::PointBase<Plexa::MilliPointCoordinateSystem>;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using PdfRectangle = Plexa::RectangleBase<Plexa::PdfCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;
using FunctionPointer = std::shared_ptr<const Function>;
using FlatPointer = std::shared_ptr<const FlatPaint>;
using Pairs = std::vector<std::array<double, 2>>;
using Points = std::pair<Point, Point>;
using Flags = std::pair<bool, bool>;

// The class tree. A paint and a function become their class by a static cast.
static_assert(std::is_base_of_v<Paint, FlatPaint> && !std::is_base_of_v<ShadingPaint, FlatPaint>);
static_assert(std::is_base_of_v<Paint, ShadingPaint>);
static_assert(std::is_base_of_v<ShadingPaint, AxialShadingPaint>);
static_assert(std::is_base_of_v<ShadingPaint, RadialShadingPaint>);
static_assert(std::is_base_of_v<Paint, PatternPaint> && !std::is_base_of_v<ShadingPaint, PatternPaint>);
static_assert(std::is_base_of_v<Paint, FormPaint> && !std::is_base_of_v<ShadingPaint, FormPaint>);
static_assert(std::is_base_of_v<Function, ExponentialFunction>);
static_assert(std::is_base_of_v<Function, StitchingFunction>);
static_assert(std::is_abstract_v<Paint> && std::has_virtual_destructor_v<Paint>);
static_assert(std::is_abstract_v<Function> && std::has_virtual_destructor_v<Function>);

// Once made they stay as they are: no object of them is ever assigned to.
static_assert(!std::is_assignable_v<Paint&, const Paint&> &&
              !std::is_assignable_v<Function&, const Function&>);
static_assert(!std::is_assignable_v<SoftMask&, const SoftMask&>);

// The enumerations.
static_assert(sizeof(Paint::Type) == 4 && sizeof(Function::Type) == 4);
static_assert(sizeof(FormPaint::Scope) == 4 && sizeof(OrvBlend::BlendMode) == 4);
static_assert(static_cast<int>(Paint::Type::Flat) == 1);
static_assert(static_cast<int>(Paint::Type::AxialShading) == 2);
static_assert(static_cast<int>(Paint::Type::RadialShading) == 3);
static_assert(static_cast<int>(Paint::Type::OtherShading) == 4);
static_assert(static_cast<int>(Paint::Type::TilingPattern) == 5);
static_assert(static_cast<int>(Paint::Type::Form) == 6);
static_assert(static_cast<int>(Function::Type::Whole) == 0);
static_assert(static_cast<int>(Function::Type::Stitching) == 1);
static_assert(static_cast<int>(Function::Type::Exponential) == 2);
static_assert(static_cast<int>(FormPaint::Scope::Global) == 5);

// Paints.
static_assert(Has<Paint::Type (Paint::*)() const>(&Paint::GetType));
static_assert(Has<Colorants (Paint::*)() const>(&Paint::GetColorants));
static_assert(Has<const Color& (FlatPaint::*)() const>(&FlatPaint::GetColor));
static_assert(std::is_constructible_v<FlatPaint::Factory, Color, const OrvDoc::Document*>);
static_assert(std::is_constructible_v<FlatPaint::Factory, Color, std::nullptr_t>);
static_assert(std::is_invocable_r_v<FlatPointer, decltype(&FlatPaint::Factory::Get), FlatPaint::Factory&>);
static_assert(Has<FlatPointer (*)(Color, const OrvDoc::Document*)>(&GetFlatPaint));

static_assert(Has<const Transformation& (ShadingPaint::*)() const>(&ShadingPaint::GetTransformation));
static_assert(Has<const PdfRectangle& (ShadingPaint::*)() const>(&ShadingPaint::GetBoundingBox));
static_assert(Has<const Mapping& (ShadingPaint::*)() const>(&ShadingPaint::GetSeparationMapping));
static_assert(Has<const boost::optional<std::vector<Component>>& (ShadingPaint::*)() const>(
    &ShadingPaint::GetBackground));

/// What axial and radial shadings have in common.
template <typename Shading>
constexpr bool HasShadingOperations()
{
    using Factory = typename Shading::Factory;
    return Has<const Flags& (Shading::*)() const>(&Shading::GetExtends) &&
           Has<const FunctionPointer& (Shading::*)() const>(&Shading::GetFunction) &&
           Has<Factory& (Factory::*)(const FunctionPointer&)>(&Factory::SetFunction) &&
           Has<Factory& (Factory::*)(const Transformation&)>(&Factory::SetTransformation) &&
           Has<Factory& (Factory::*)(const Flags&)>(&Factory::SetExtends) &&
           std::is_constructible_v<Factory, Mapping> &&
           std::is_base_of_v<ShadingPaint::Factory<Shading>, Factory> &&
           std::is_same_v<OwnerOf<decltype(&Factory::SetTransformation)>, ShadingPaint::Factory<Shading>> &&
           std::is_invocable_r_v<std::shared_ptr<const Shading>, decltype(&Factory::Get), Factory&>;
}
static_assert(HasShadingOperations<AxialShadingPaint>());
static_assert(HasShadingOperations<RadialShadingPaint>());

using Axial = AxialShadingPaint;
static_assert(Has<const Points& (Axial::*)() const>(&Axial::GetPoints));
static_assert(Has<Axial::Factory& (Axial::Factory::*)(const Points&)>(&Axial::Factory::SetPoints));
using Radial = RadialShadingPaint;
using Radii = std::pair<Coordinate, Coordinate>;
static_assert(Has<const Points& (Radial::*)() const>(&Radial::GetCenters));
static_assert(Has<const Radii& (Radial::*)() const>(&Radial::GetRadii));
static_assert(Has<Radial::Factory& (Radial::Factory::*)(const Points&)>(&Radial::Factory::SetCenters));
static_assert(Has<Radial::Factory& (Radial::Factory::*)(const Radii&)>(&Radial::Factory::SetRadii));

static_assert(Has<const Transformation& (PatternPaint::*)() const>(&PatternPaint::GetTransformation));
static_assert(Has<const boost::optional<Color>& (PatternPaint::*)() const>(&PatternPaint::GetColor));
static_assert(Has<const Rectangle& (PatternPaint::*)() const>(&PatternPaint::GetCellClip));
static_assert(Has<const Dimension& (PatternPaint::*)() const>(&PatternPaint::GetStep));
static_assert(Has<Content& (PatternPaint::*)() const>(&PatternPaint::GetContent));

using ExternalReference = boost::optional<std::pair<boost::filesystem::path, std::size_t>>;
static_assert(Has<const Transformation& (FormPaint::*)() const>(&FormPaint::GetFormTransformation));
static_assert(Has<const Rectangle& (FormPaint::*)() const>(&FormPaint::GetFormBBox));
static_assert(Has<const ExternalReference& (FormPaint::*)() const>(&FormPaint::GetExternalReference));
static_assert(Has<boost::optional<FormPaint::Scope> (FormPaint::*)() const>(&FormPaint::GetScope));
static_assert(Has<const boost::optional<std::string>& (FormPaint::*)() const>(&FormPaint::GetUniqueID));
static_assert(Has<Content& (FormPaint::*)() const>(&FormPaint::GetContent));

// Functions.
static_assert(Has<Function::Type (Function::*)() const>(&Function::GetType));
static_assert(Has<const Pairs& (Function::*)() const>(&Function::GetDomain));
static_assert(Has<const Pairs& (Function::*)() const>(&Function::GetRange));
static_assert(Has<bool (Function::*)(std::size_t) const>(&Function::IsZero));

using Exponential = ExponentialFunction;
static_assert(Has<const std::vector<Component>& (Exponential::*)() const>(&Exponential::GetC0));
static_assert(Has<const std::vector<Component>& (Exponential::*)() const>(&Exponential::GetC1));
static_assert(Has<double (Exponential::*)() const>(&Exponential::GetN));
static_assert(
    std::is_constructible_v<Exponential::Factory, std::vector<Component>, std::vector<Component>, double>);
static_assert(Has<Exponential::Factory& (Exponential::Factory::*)(const std::array<double, 2>&)>(
    &Exponential::Factory::SetDomain));
static_assert(std::is_invocable_r_v<std::shared_ptr<const Exponential>, decltype(&Exponential::Factory::Get),
                                    Exponential::Factory&>);

using Stitching = StitchingFunction;
static_assert(Has<const std::vector<FunctionPointer>& (Stitching::*)() const>(&Stitching::GetFunctions));
static_assert(Has<const std::vector<double>& (Stitching::*)() const>(&Stitching::GetBounds));
static_assert(Has<const Pairs& (Stitching::*)() const>(&Stitching::GetEncode));
static_assert(std::is_constructible_v<Stitching::Factory, std::vector<FunctionPointer>, std::vector<double>>);
static_assert(Has<Stitching::Factory& (Stitching::Factory::*)(Pairs)>(&Stitching::Factory::SetEncode));
static_assert(std::is_invocable_r_v<std::shared_ptr<const Stitching>, decltype(&Stitching::Factory::Get),
                                    Stitching::Factory&>);

static_assert(Has<double (*)(double)>(&MidpointToExponent));
static_assert(Has<bool (*)(const Function&, const Function&)>(&OrvPaint::operator==));
static_assert(Has<std::ostream& (*)(std::ostream&, const Function&)>(&OrvPaint::operator<<));
static_assert(Has<std::ostream& (*)(std::ostream&, Paint::Type)>(&OrvPaint::operator<<));
static_assert(Has<std::ostream& (*)(std::ostream&, FormPaint::Scope)>(&OrvPaint::operator<<));

// Transparencies and soft masks.
static_assert(!std::is_polymorphic_v<Transparency>, "nothing stands in front of the fields");
static_assert(std::is_same_v<decltype(Transparency::blendMode), OrvBlend::BlendMode>);
static_assert(std::is_same_v<decltype(Transparency::fillAlpha), Component>);
static_assert(std::is_same_v<decltype(Transparency::strokeAlpha), Component>);
static_assert(std::is_same_v<decltype(Transparency::isolated), bool>);
static_assert(std::is_same_v<decltype(Transparency::knockout), bool>);
static_assert(std::is_same_v<decltype(Transparency::alphaIsShape), bool>);
static_assert(std::is_same_v<decltype(Transparency::softMask), std::shared_ptr<const SoftMask>>);
static_assert(Has<const std::shared_ptr<const Transparency>& (*)()>(&Transparency::Factory::GetDefault));
static_assert(Has<std::ostream& (*)(std::ostream&, OrvBlend::BlendMode)>(&OrvBlend::operator<<));

static_assert(Has<const Transformation& (SoftMask::*)() const>(&SoftMask::GetTransformation));
static_assert(Has<const Color& (SoftMask::*)() const>(&SoftMask::GetBackdropColor));
static_assert(Has<bool (SoftMask::*)() const>(&SoftMask::IsAlpha));
static_assert(
    Has<const boost::variant<bool, FunctionPointer>& (SoftMask::*)() const>(&SoftMask::GetTransferFunction));
static_assert(Has<Content& (SoftMask::*)() const>(&SoftMask::GetContent));

TEST(PaintOperations, APaintHasItsColorantsBehindItsDestructor)
{
    EXPECT_EQ(GetSlots(&Paint::GetColorants), CountFrom(2, 1));
}

TEST(PaintOperations, AFunctionHasOneOperationBetweenItsDestructorAndIsZero)
{
    EXPECT_EQ(GetSlots(&Function::Print, &Function::IsZero), CountFrom(2, 2));
}

/// A class with one virtual operation more, which takes the next place of the table.
template <typename Class>
struct Extended : Class
{
    virtual void Next() = 0;
};

template <typename... Classes>
std::vector<std::size_t> GetNextSlots()
{
    return GetSlots(&Extended<Classes>::Next...);
}

TEST(PaintOperations, NoPaintHasAVirtualOperationBehindItsColorants)
{
    EXPECT_THAT((GetNextSlots<Paint, FlatPaint, ShadingPaint, Axial, Radial, PatternPaint, FormPaint>()),
                testing::Each(3));
}

TEST(PaintOperations, NoFunctionHasAVirtualOperationBehindIsZero)
{
    EXPECT_THAT((GetNextSlots<Function, Exponential, Stitching>()), testing::Each(4));
}

TEST(PaintOperations, ATransparencyHasItsFieldsInOrder)
{
    const Transparency fields;
    const std::vector<const void*> places = {&fields.blendMode, &fields.fillAlpha, &fields.strokeAlpha,
                                             &fields.isolated,  &fields.knockout,  &fields.alphaIsShape,
                                             &fields.softMask};
    EXPECT_THAT(places, testing::WhenSortedBy(std::less<const void*>(), testing::ElementsAreArray(places)));
}

FunctionPointer MakeFunction()
{
    return Exponential::Factory({0.0f}, {1.0f}, 1.0).Get();
}

std::shared_ptr<Content> MakeContent(Content::Type type)
{
    return std::make_shared<Content>(OrvDoc::GetScratchDocument(), type);
}

Mapping MapInk()
{
    Mapping mapping;
    mapping.Add("Gold", 0);
    return mapping;
}

/// A sampled function of one input and one output.
FunctionPointer MakeSampledFunction()
{
    using OrvSys::PdfObject;
    const PdfObject unit = PdfObject::Array({PdfObject::Integer(0), PdfObject::Integer(1)});
    return WholeFunction::Make(PdfObject::Stream(
        PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(0)}, {"Domain", unit}, {"Range", unit}}),
        "samples"));
}

/// The position of an object's own class in the list, or the length of the list.
template <typename... Classes, typename Base>
std::size_t FindClass(const Base& object)
{
    std::size_t position = 0;
    (void)(... || (typeid(object) == typeid(Classes) || (++position, false)));
    return position;
}

TEST(PaintOperations, TheTypeOfAPaintLeadsToItsClass)
{
    const std::vector<std::shared_ptr<const Paint>> paints = {
        GetFlatPaint({}, nullptr),
        Axial::Factory({}).SetFunction(MakeFunction()).Get(),
        Radial::Factory({}).SetFunction(MakeFunction()).Get(),
        WholeShadingPaint::Factory({}, OrvSys::PdfObject()).Get(),
        PatternPaint::Factory(MakeContent(Content::Type::ColoredPatternContent)).Get(),
        FormPaint::Factory(MakeContent(Content::Type::FormContent)).Get()};
    std::vector<int> types;
    std::vector<std::size_t> classes;
    for (const auto& paint : paints) {
        types.push_back(static_cast<int>(paint->GetType()));
        classes.push_back(
            FindClass<FlatPaint, Axial, Radial, WholeShadingPaint, PatternPaint, FormPaint>(*paint));
    }
    EXPECT_THAT(types, testing::ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(classes, testing::ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST(PaintOperations, TheTypeOfAFunctionLeadsToItsClass)
{
    const FunctionPointer exponential = MakeFunction();
    const std::vector<FunctionPointer> functions = {MakeSampledFunction(),
                                                    Stitching::Factory({exponential}, {}).Get(), exponential};
    std::vector<int> types;
    std::vector<std::size_t> classes;
    for (const auto& function : functions) {
        types.push_back(static_cast<int>(function->GetType()));
        classes.push_back(FindClass<WholeFunction, Stitching, Exponential>(*function));
    }
    EXPECT_THAT(types, testing::ElementsAre(0, 1, 2));
    EXPECT_THAT(classes, testing::ElementsAre(0, 1, 2));
}

TEST(PaintOperations, AnotherShadingIsAShading)
{
    const std::shared_ptr<const Paint> paint =
        WholeShadingPaint::Factory(MapInk(), OrvSys::PdfObject()).Get();
    EXPECT_EQ(static_cast<const ShadingPaint&>(*paint).GetSeparationMapping(), MapInk());
    EXPECT_EQ(paint->GetColorants().entries.size(), 1u);
}

// What a program hands over is moved into the factory and not copied.

TEST(PaintOperations, FactoriesOfPaintsTakeTheirListsByValue)
{
    Color color{{{1.0f, "Gold"}}, 0.0f, false, false};
    Color sameColor = color;
    Mapping axialMapping = MapInk();
    Mapping radialMapping = MapInk();
    const FlatPaint::Factory flat(std::move(color), nullptr);
    const FlatPointer paint = GetFlatPaint(std::move(sameColor), nullptr);
    const Axial::Factory axial(std::move(axialMapping));
    const Radial::Factory radial(std::move(radialMapping));
    // NOLINTBEGIN(bugprone-use-after-move): that nothing is left in them is what is tested.
    EXPECT_TRUE(color.entries.empty());
    EXPECT_TRUE(sameColor.entries.empty());
    EXPECT_TRUE(axialMapping.entries.empty());
    EXPECT_TRUE(radialMapping.entries.empty());
    // NOLINTEND(bugprone-use-after-move)
}

TEST(PaintOperations, FactoriesOfFunctionsTakeTheirListsByValue)
{
    std::vector<Component> start = {0.0f};
    std::vector<Component> end = {1.0f};
    const Exponential::Factory exponential(std::move(start), std::move(end), 1.0);
    std::vector<FunctionPointer> parts = {exponential.Get()};
    std::vector<double> bounds = {0.0, 1.0};
    Pairs encode = {{0.0, 0.5}};
    Stitching::Factory stitching(std::move(parts), std::move(bounds));
    stitching.SetEncode(std::move(encode));
    // NOLINTBEGIN(bugprone-use-after-move): that nothing is left in them is what is tested.
    EXPECT_TRUE(start.empty());
    EXPECT_TRUE(end.empty());
    EXPECT_TRUE(parts.empty());
    EXPECT_TRUE(bounds.empty());
    EXPECT_TRUE(encode.empty());
    // NOLINTEND(bugprone-use-after-move)
}

TEST(PaintOperations, TheLibrarysComparisonTellsFunctionsKeptWholeApart)
{
    const FunctionPointer sampled = MakeSampledFunction();
    EXPECT_TRUE(*sampled == *MakeSampledFunction());
    EXPECT_FALSE(*sampled == *MakeFunction());
}

TEST(PaintOperations, AShadingIsCastToItsBase)
{
    const std::shared_ptr<const Paint> paint = Axial::Factory({}).SetFunction(MakeFunction()).Get();
    EXPECT_NE(dynamic_cast<const ShadingPaint*>(paint.get()), nullptr);
    EXPECT_EQ(dynamic_cast<const Radial*>(paint.get()), nullptr);
}

TEST(PaintOperations, AFormKnowsTheDocumentOfItsContent)
{
    const auto form = FormPaint::Factory(MakeContent(Content::Type::FormContent)).Get();
    EXPECT_EQ(&form->GetContent().GetDocument(), &OrvDoc::GetScratchDocument());
}

TEST(PaintOperations, TheDefaultTransparencyIsOneObject)
{
    EXPECT_NE(Transparency::Factory::GetDefault(), nullptr);
    EXPECT_EQ(&Transparency::Factory::GetDefault(), &Transparency::Factory::GetDefault());
}

} // namespace
