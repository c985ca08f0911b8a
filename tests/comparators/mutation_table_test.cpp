// One property of a document is changed, and the comparison tells just that one. The table is the account of
// it: label, mutation, result.

#include "foreign_objects.h"

#include "support/paint_scene.h"
#include "support/recording_reporter.h"
#include "support/text_makers.h"

#include <orv_doc/blend_color_space.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>
#include <orv_doc/transfer_function_set.h>
#include <plexa/compound.h>
#include <plexa/geometry.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace
{

using OrvColor::Unmapped;
using PatternFactory = OrvPaint::PatternPaint::Factory;
using PdfBox = Plexa::RectangleBase<Plexa::PdfCoordinateSystem>;
using Scope = OrvPaint::FormPaint::Scope;
using ContentType = OrvDoc::Content::Type;
using Background = std::vector<OrvColor::Component>;

/// One row of the table.
struct Mutation
{
    std::string label;
    std::string change;
    std::function<void(Scene&)> apply;
    /// All labels that come, in their order; the label alone if empty.
    std::vector<std::string> result = {};
    /// Why there are more than one, or others.
    std::string reason = "";
    /// The object, where another one has the same label.
    std::string object = "";

    std::string GetName() const { return label + object; }
};

void PrintTo(const Mutation& mutation, std::ostream* stream)
{
    *stream << mutation.GetName() << ": " << mutation.change;
}

void SetHalftone(Scene& scene, const std::string& name, int definition)
{
    scene.path->SetHalftoneSet(
        std::make_shared<OrvDoc::HalftoneSet>(name, OrvSys::PdfObject::Integer(definition)));
}

void SetEvenOdd(OrvDoc::Path& path)
{
    path.SetDefiningCompound(std::make_shared<const Plexa::Compound>(path.DefiningCompound()->GetSubpaths(),
                                                                     Plexa::WindingRule::EvenOdd));
}

/// Makes the cell of the pattern an uncoloured one, in a colour without separations.
void Uncolor(Scene& scene)
{
    const auto old = scene.pattern.Get();
    scene.pattern =
        PatternFactory(Drawing(*scene.document, ContentType::UncoloredPatternContent, Square("cell")))
            .SetCellClip(old->GetCellClip())
            .SetStep(old->GetStep())
            .SetColor(Color());
}

const Matrix twice(2.0, 0.0, 0.0, 1.0, 0.0, 0.0);
const Box otherBox(0.0, 0.0, 20000.0, 30000.0);

std::vector<Mutation> ContentMutations()
{
    return {
        {"ContentType",
         "the cell of a pattern is an uncoloured one",
         Uncolor,
         {"ContentType", "PatternPaintIsUncolored"},
         "an uncoloured cell needs a colour"},
        {"ContentBlendColorSpace", "a form blends in DeviceRGB",
         [](Scene& scene) {
             scene.stage->SetBlendColorSpace(OrvDoc::BlendColorSpace(OrvColor::ColorSpace::DeviceRGB()));
         }},
        {"ContentTransferFunctions", "a form has a transfer function",
         [](Scene& scene) {
             scene.stage->SetTransferFunctionSet(OrvDoc::TransferFunctionSet(Ramp({0.0f}, {1.0f}), {}));
         }},
        {"ObjectAdded", "one more path", [](Scene& scene) { scene.extra = Square("extra"); }},
        {"ObjectRemoved", "one path fewer", [](Scene& scene) { scene.last.reset(); }},
        {"GroupIsUserCreated", "the flag of a group",
         [](Scene& scene) { scene.group->SetFlags(OrvDoc::Group::Flags::DefaultUserCreated); }},
        {"ObjectType", "a group in the place of a path",
         [](Scene& scene) { scene.last = Named(UserGroup(), "last"); }},
        {"ObjectHasFill", "a path without fill", [](Scene& scene) { scene.path->SetFillPaint(nullptr); }},
        {"ObjectHasStroke", "a path without stroke",
         [](Scene& scene) { scene.path->SetStrokePaint(nullptr); }},
    };
}

std::vector<Mutation> ObjectMutations()
{
    using OrvBlend::BlendMode;
    return {
        {"ObjectHasTransparency", "a path without transparency",
         [](Scene& scene) { scene.isBlended = false; }},
        {"ObjectBlendMode", "Multiply",
         [](Scene& scene) { scene.transparency.blendMode = BlendMode::Multiply; }},
        {"ObjectFillAlpha", "half the alpha", [](Scene& scene) { scene.transparency.fillAlpha = 0.5f; }},
        {"ObjectStrokeAlpha", "half the alpha", [](Scene& scene) { scene.transparency.strokeAlpha = 0.5f; }},
        {"ObjectAlphaIsShape", "the flag", [](Scene& scene) { scene.transparency.alphaIsShape = true; }},
        {"GroupIsIsolated", "the flag", [](Scene& scene) { scene.transparency.isolated = true; }},
        {"GroupIsKnockout", "the flag", [](Scene& scene) { scene.transparency.knockout = true; }},
        {"ObjectHasSoftMask", "a path without soft mask", [](Scene& scene) { scene.isMasked = false; }},
        {"SoftMaskTransformation", "twice as wide",
         [](Scene& scene) { scene.mask.SetTransformation(twice); }},
        {"SoftMaskBackdropColor", "half the tint",
         [](Scene& scene) {
             scene.mask.SetBackdropColor(Tints({{"Black", 0.5f}}));
         }},
        {"SoftMaskAlpha", "alpha for luminosity", [](Scene& scene) { scene.mask.SetAlpha(true); }},
        {"SoftMaskTransferFunction", "the identity is stated",
         [](Scene& scene) { scene.mask.SetTransferFunction(true); }},
        {"ObjectIsClipping", "a path clips", [](Scene& scene) { scene.clip->SetClippingObject(true); }},
        {"ObjectAbsoluteTransformation", "a path elsewhere",
         [](Scene& scene) { scene.path->SetTransformation(Matrix(1.0, 0.0, 0.0, 1.0, 500.0, 0.0)); }},
        {"ObjectName", "another name", [](Scene& scene) { scene.path->SetName("other"); }},
        {"HalftoneSetName",
         "another name",
         [](Scene& scene) { SetHalftone(scene, "Line", 1); },
         {"HalftoneSetName", "HalftoneSet"},
         "the name is part of the set"},
        {"HalftoneSet", "another definition", [](Scene& scene) { SetHalftone(scene, "Round", 2); }},
        {"ObjectHalftoneSet", "a path without halftones",
         [](Scene& scene) { scene.path->SetHalftoneSet(nullptr); }},
        {"ObjectWindingRule", "even-odd", [](Scene& scene) { SetEvenOdd(*scene.path); }},
        {"ObjectShape", "a larger square",
         [](Scene& scene) {
             scene.path->SetDefiningCompound(Rectangle(1000.0, 1000.0, 6000.0, 6000.0)->DefiningCompound());
         }},
    };
}

std::vector<Mutation> ShadingMutations()
{
    const auto axialOf = [](Mapping mapping) {
        return AxialShadingOf(std::move(mapping), Ramp({0.0f, 0.5f}, {1.0f, 0.25f}))
            .SetBackground(Background{0.25f, 0.75f});
    };
    const auto registrationOf = [](Mapping mapping) {
        return AxialShadingOf(std::move(mapping), Ramp({0.0f}, {1.0f}));
    };
    const std::string namesToo = "the separations of a paint are told as well";
    return {
        {"PaintTransformation", "twice as wide", [](Scene& scene) { scene.axial.SetTransformation(twice); }},
        {"ShadingPaintBoundingBox", "a box",
         [](Scene& scene) { scene.axial.SetBoundingBox(PdfBox(0.0, 0.0, 5.0, 5.0)); }},
        {"ShadingPaintBackgroundDefined", "no background",
         [](Scene& scene) { scene.axial.SetBackground(boost::none); }},
        {"ShadingPaintBackground", "another tint",
         [](Scene& scene) {
             scene.axial.SetBackground(Background{0.25f, 0.5f});
         }},
        {"AxialShadingPaintPoints", "a longer axis",
         [](Scene& scene) {
             scene.axial.SetPoints({Point(0.0, 0.0), Point(11000.0, 0.0)});
         }},
        {"RadialShadingPaintCenters", "another centre",
         [](Scene& scene) {
             scene.radial.SetCenters({Point(5000.0, 5000.0), Point(5100.0, 5000.0)});
         }},
        {"RadialShadingPaintRadii", "a larger circle",
         [](Scene& scene) {
             scene.radial.SetRadii({0.0, 4010.0});
         }},
        {"ShadingPaintExtends", "goes on behind its end",
         [](Scene& scene) {
             scene.axial.SetExtends({false, true});
         }},
        {"ShadingPaintFunction", "another exponent",
         [](Scene& scene) {
             scene.axial.SetFunction(Ramp({0.0f, 0.5f}, {1.0f, 0.25f}, 2.0));
         }},
        {"ImageChannelsMapped", "a separation that no component stands for",
         [axialOf](Scene& scene) {
             scene.axial = axialOf(Components({{"Cyan", 0}, {"Spot", Unmapped}}));
         }},
        {"ImageChannelMapping", "no component stands for all separations",
         [registrationOf](Scene& scene) { scene.registration = registrationOf(ComponentForAll(Unmapped)); }},
        {"ImageOverprint",
         "overprints",
         [axialOf](Scene& scene) {
             scene.axial = axialOf(Components({{"Cyan", 0}, {"Spot", 1}}, true));
         },
         {"PaintColorSpace", "ImageOverprint"},
         namesToo},
        {"ImageRegistrationColorSpace",
         "one separation for all",
         [registrationOf](Scene& scene) {
             scene.registration = registrationOf(Components({{"Spot", 0}}));
         },
         {"PaintColorSpace", "ImageRegistrationColorSpace"},
         namesToo},
    };
}

std::vector<Mutation> PaintMutations()
{
    return {
        {"PaintType", "a shading for a colour",
         [](Scene& scene) { scene.path->SetFillPaint(AnAxialShading().Get()); }},
        {"PaintColorSpace",
         "another separation",
         [](Scene& scene) {
             scene.path->SetFillPaint(Flat(Tints({{"Spot", 0.5f}})));
         },
         {"PaintColorSpace", "PaintColor"},
         "colours of two separations differ too"},
        {"PaintColor", "another tint",
         [](Scene& scene) {
             scene.uncolored.SetColor(Tints({{"Spot", 0.5f}}));
         }},
        {"PatternPaintReuse", "two equal patterns for one",
         [](Scene& scene) { scene.patternIsShared = false; }},
        {"PatternPaintIsUncolored",
         "a pattern has a colour",
         Uncolor,
         {"ContentType", "PatternPaintIsUncolored"},
         "only an uncoloured cell may have a colour"},
        {"PatternPaintBoundingBox", "a larger clip",
         [](Scene& scene) { scene.pattern.SetCellClip(otherBox); }},
        {"PatternPaintStep", "a wider step",
         [](Scene& scene) {
             scene.pattern.SetStep({8001.0, 9000.0});
         }},
        {"PatternPaintContentReuse", "two equal cells for one",
         [](Scene& scene) {
             scene.secondOfCell.SetContent(
                 Drawing(*scene.document, ContentType::ColoredPatternContent, Square("cell of two")));
         }},
        {"FormReuse", "two equal forms for one", [](Scene& scene) { scene.formIsShared = false; }},
        {"FormTransformation", "twice as wide",
         [](Scene& scene) { scene.form.SetFormTransformation(twice); }},
        {"FormBoundingBox", "a larger box", [](Scene& scene) { scene.form.SetFormBBox(otherBox); }},
        {"FormExternalReference", "another page",
         [](Scene& scene) {
             scene.form.SetExternalReference(
                 std::make_pair(boost::filesystem::path("parts.pdf"), std::size_t{2}));
         }},
        {"FormScope", "a scope fewer", [](Scene& scene) { scene.form.SetScope(boost::none); }},
        {"FormUniqueID", "another ID", [](Scene& scene) { scene.form.SetUniqueID(std::string("other")); }},
        {"FormUniqueIDReuse", "two IDs for one",
         [](Scene& scene) { scene.secondOfId.SetUniqueID(std::string("another id")); }},
    };
}

FontPlan FontNamed(const std::string& name, const std::string& family, const std::string& style)
{
    FontPlan plan;
    plan.names = {name, family, style};
    return plan;
}

/// Gives the text another font.
void SetFont(Scene& scene, const FontPlan& plan)
{
    scene.text = TextOf("AB", MakeFont(plan));
}

/// A font of another program that draws rectangles.
FontPlan FontOfRectangles(double width, Plexa::WindingRule rule)
{
    FontPlan plan;
    plan.program = 2;
    plan.outline = [width, rule](const OrvFont::Character&) {
        return Plexa::WithWindingRule(Plexa::GetRectangleCompound({0.0, 0.0, width, 700.0}), rule);
    };
    return plan;
}

std::vector<Mutation> TextMutations()
{
    return {
        {"FontName", "another name",
         [](Scene& scene) { SetFont(scene, FontNamed("Other", "Test", "Regular")); }},
        {"FontFamily", "another family",
         [](Scene& scene) { SetFont(scene, FontNamed("Test-Regular", "Other", "Regular")); }},
        {"FontStyle", "another style",
         [](Scene& scene) { SetFont(scene, FontNamed("Test-Regular", "Test", "Bold")); }},
        {"FontBBox", "a larger box",
         [](Scene& scene) {
             FontPlan plan;
             plan.box = otherBox;
             SetFont(scene, plan);
         }},
        {"TextSize", "a point more", [](Scene& scene) { scene.text = TextOf("AB", MakeFont(), 13.0); }},
        {"TextCharacterSpacing", "half a point", [](Scene& scene) { scene.text->SetCharSpacing(0.5); }},
        {"TextWordSpacing", "half a point", [](Scene& scene) { scene.text->SetWordSpacing(0.5); }},
        {"TextTransformation", "twice as wide",
         [](Scene& scene) { scene.text->SetTextTransformation(twice); }},
        {"TextCharacterPositions", "the second character a point further",
         [](Scene& scene) {
             scene.text->SetCharacterTransformations({{}, {1, 0, 0, 1, 7, 0}});
         }},
        {"TextCharacters",
         "another letter",
         [](Scene& scene) { scene.text = TextOf("AZ"); },
         {"TextCharacters", "ObjectShape"},
         "characters are only looked at where outlines differ"},
        {"ObjectWindingRule",
         "a font of another program, by the even-odd rule",
         [](Scene& scene) { SetFont(scene, FontOfRectangles(65.0, Plexa::WindingRule::EvenOdd)); },
         {"ObjectWindingRule", "ObjectShape"},
         "an outline is printed with its rule",
         "OfText"},
        {"ObjectShape",
         "a font of another program, with other outlines",
         [](Scene& scene) { SetFont(scene, FontOfRectangles(500.0, Plexa::WindingRule::NonZero)); },
         {},
         "",
         "OfText"},
    };
}

void ChangeLast(Samples& samples)
{
    samples.back() ^= 1;
}

/// The pictures of the scene, of which each difference is told for the image as well.
std::vector<Mutation> PictureMutations()
{
    const std::string imageToo = "the image is told as well";
    return {
        {"DecodedImageData",
         "another sample",
         [](Scene& scene) { ChangeLast(scene.stencilled.samples); },
         {"DecodedImageData", "Image"},
         imageToo},
        {"Image", "another range of a separation beside a calibrated colour",
         [](Scene& scene) {
             scene.independent.channels.back().SetDecode({0.0, 0.5});
         }},
        {"IndexedImageData",
         "a table of other colours",
         [](Scene& scene) {
             scene.indexed.table = MakeTable(2, {11, 20, 30, 40, 50, 60, 70, 80});
         },
         {"IndexedImageData", "Image"},
         imageToo},
        {"ImageColorTableSize",
         "a table of one separation",
         [](Scene& scene) {
             scene.indexed.table = MakeTable(1, {10, 30, 50, 70});
             scene.indexed.channels.pop_back();
         },
         {"ImageColorTableSize", "Image"},
         imageToo},
        {"ImageWidth",
         "four pixels in one row",
         [](Scene& scene) {
             scene.stencilled.width = 4;
             scene.stencilled.height = 1;
         },
         {"ImageWidth", "Image"},
         imageToo},
        {"ImageHeight",
         "a row fewer",
         [](Scene& scene) {
             scene.stencilled.height = 1;
             scene.stencilled.samples.resize(4);
         },
         {"ImageHeight", "Image"},
         imageToo},
        {"ImageLink", "a proxy",
         [](Scene& scene) {
             scene.picture.link = OrvImg::PictureLink{"a.tif", {}};
         }},
        {"ImageDeviceIndependentColorSpace",
         "red, green and blue of a device, mapped as those of a calibrated space",
         [](Scene& scene) {
             scene.independent.mapping = MakePicture(scene.independent)->GetDefaultChannelMapping(false);
             scene.independent.space = OrvImg::DeviceRGB();
         },
         {"ImageDeviceIndependentColorSpace", "Image"},
         imageToo},
        {"ImageColorSpace", "another gamma",
         [](Scene& scene) {
             OrvImg::CalRGB space;
             space.gamma = {2.0, 2.0, 2.0};
             scene.independent.space = space;
         }},
        {"ImageChannelInfoColorChannelCount",
         "calibrated gray",
         [](Scene& scene) { scene.independent = PlanIn(OrvImg::CalGray(), {ColorChannel("Spot")}); },
         {"ImageColorSpace", "ImageChannelInfoColorChannelCount", "Image"},
         "another number of channels is another space"},
        {"ImageMaskKind",
         "a colour key",
         [](Scene& scene) { scene.stencilled.maskKind = OrvImg::MaskKind::ColorKey; },
         {"ImageMaskKind", "Image"},
         imageToo},
        {"DecodedSoftMaskData",
         "another sample of a mask",
         [](Scene& scene) {
             scene.picture.mask = MakePicture(MaskPlan({255, 128, 65, 255}));
         },
         {"DecodedImageData", "DecodedSoftMaskData", "Image"},
         "a soft mask is compared as a picture"},
        {"DecodedImageMaskData",
         "another sample of a mask",
         [](Scene& scene) {
             scene.stencilled.mask = MakePicture(StencilPlan(2, 2, {1, 0, 0, 0}));
         },
         {"DecodedImageMaskData", "Image"},
         imageToo},
        {"DecodedImageMaskData",
         "another sample",
         [](Scene& scene) { ChangeLast(scene.stencil.samples); },
         {},
         "",
         "OfImageMask"},
        {"ObjectRenderingIntent",
         "Saturation",
         [](Scene& scene) { scene.independent.intent = OrvColor::RenderingIntent::Saturation; },
         {"ObjectRenderingIntent", "Image"},
         imageToo},
        {"ImageOverprint",
         "overprints",
         [](Scene& scene) { scene.picture.overprint = true; },
         {},
         "",
         "OfImage"},
        {"ImageChannelsMapped",
         "another separation",
         [](Scene& scene) { scene.picture.channels.back() = ColorChannel("Gold"); },
         {"ImageChannelsMapped", "Image"},
         imageToo,
         "OfImage"},
        {"ImageChannelMapping",
         "all separations by no channel",
         [](Scene& scene) { scene.picture.mapping = PlaceForAll(ChannelAt(Unmapped)); },
         {"ImageChannelMapping", "Image"},
         imageToo,
         "OfImage"},
        {"ImageRegistrationColorSpace",
         "all separations by one channel",
         [](Scene& scene) { scene.indexed.mapping = PlaceForAll(ChannelAt(0)); },
         {},
         "",
         "OfImage"},
    };
}

std::vector<Mutation> Table()
{
    std::vector<Mutation> table;
    for (const std::vector<Mutation>& part : {ContentMutations(), ObjectMutations(), ShadingMutations(),
                                              PaintMutations(), TextMutations(), PictureMutations()})
        table.insert(table.end(), part.begin(), part.end());
    return table;
}

std::vector<std::string> Labels(Scene& left, Scene& right)
{
    RecordingReporter reporter;
    Comparators::Compare(reporter, left.Assemble(), right.Assemble(), AllOptions());
    return reporter.Labels();
}

/// What the labels become if left and right are swapped.
std::vector<std::string> Mirrored(std::vector<std::string> labels)
{
    for (std::string& label : labels) {
        if (label == "ObjectAdded")
            label = "ObjectRemoved";
        else if (label == "ObjectRemoved")
            label = "ObjectAdded";
    }
    return labels;
}

class OneChange : public ::testing::TestWithParam<Mutation>
{
protected:
    static std::vector<std::string> Expected()
    {
        return GetParam().result.empty() ? std::vector<std::string>{GetParam().label} : GetParam().result;
    }

    /// The scene with the change of the row.
    static void Change(Scene& scene) { GetParam().apply(scene); }
};

} // namespace

TEST_P(OneChange, IsToldAndNothingElse)
{
    Scene original;
    Scene changed;
    Change(changed);
    EXPECT_THAT(Labels(original, changed), ElementsAreArray(Expected())) << GetParam().reason;
}

TEST_P(OneChange, IsToldFromTheOtherSide)
{
    Scene original;
    Scene changed;
    Change(changed);
    EXPECT_THAT(Labels(changed, original), ElementsAreArray(Mirrored(Expected()))) << GetParam().reason;
}

TEST_P(OneChange, OnBothSidesIsNone)
{
    Scene one;
    Scene other;
    Change(one);
    Change(other);
    EXPECT_THAT(Labels(one, other), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, OneChange, ::testing::ValuesIn(Table()),
                         [](const ::testing::TestParamInfo<Mutation>& row) { return row.param.GetName(); });

TEST(NoChange, IsToldAsNothing)
{
    Scene one;
    Scene other;
    EXPECT_THAT(Labels(one, other), IsEmpty());
}

// Two labels come even of equal sides, so that no change of one side brings them about.

TEST(NoChange, OfAnImageInAnUncoloredPatternIsToldAllTheSame)
{
    const auto addImage = [](Scene& scene) {
        Place(scene.uncolored.Get()->GetContent(), std::make_unique<OrvDoc::Image>(nullptr));
    };
    Comparators::Options withoutPictures = AllOptions();
    withoutPictures.compareImageData = false;
    Scene one;
    Scene other;
    addImage(one);
    addImage(other);
    EXPECT_THAT(CompareLines<OrvDoc::Document>(one.Assemble(), other.Assemble(), withoutPictures),
                ElementsAreArray({"UncoloredPatternPaintHasImage"}));
}

TEST(NoChange, OfAnObjectOfNoKnownKindIsToldAllTheSame)
{
    Scene one;
    Scene other;
    one.last = std::make_unique<UnknownStrokable>();
    other.last = std::make_unique<UnknownStrokable>();
    EXPECT_THAT(Labels(one, other), ElementsAreArray({"UnknownObjectType"}));
}

// Three labels come under other options alone.

TEST(Change, OfALinkIsToldLooselyIfThatIsAskedFor)
{
    const auto labels = [](const std::string& uri) {
        Scene one;
        Scene other;
        one.picture.link = OrvImg::PictureLink{"a.tif", {}};
        if (!uri.empty())
            other.picture.link = OrvImg::PictureLink{uri, {}};
        Comparators::Options options = AllOptions();
        options.looseImageLinks = true;
        RecordingReporter reporter;
        Comparators::Compare(reporter, one.Assemble(), other.Assemble(), options);
        return reporter.Labels();
    };
    EXPECT_THAT(labels(""), ElementsAreArray({"ImageLinkPresence"}));
    EXPECT_THAT(labels("b.tif"), ElementsAreArray({"ImageLinkURI"}));
}

TEST(Change, OfAnIndexedPictureToItsExpansionIsToldUnlessItIsExpanded)
{
    Scene one;
    Scene other;
    other.indexed.table = nullptr;
    other.indexed.samples = PicturePlan().samples;
    OrvDoc::Document& left = one.Assemble();
    OrvDoc::Document& right = other.Assemble();
    Comparators::Options options = AllOptions();
    EXPECT_THAT(CompareLines<OrvDoc::Document>(left, right, options), IsEmpty());
    options.expandIndexedImages = false;
    EXPECT_THAT(CompareLines<OrvDoc::Document>(left, right, options),
                ElementsAreArray({"ImageIsIndexed: '1' vs '0'", "Image"}));
}

TEST(MutationTable, HasEachLabelOnce)
{
    const std::vector<std::string> told = {"ContentType",
                                           "ContentBlendColorSpace",
                                           "ContentTransferFunctions",
                                           "ObjectAdded",
                                           "ObjectRemoved",
                                           "GroupIsUserCreated",
                                           "ObjectType",
                                           "ObjectHasFill",
                                           "ObjectHasStroke",
                                           "ObjectHasTransparency",
                                           "ObjectBlendMode",
                                           "ObjectFillAlpha",
                                           "ObjectStrokeAlpha",
                                           "ObjectAlphaIsShape",
                                           "GroupIsIsolated",
                                           "GroupIsKnockout",
                                           "ObjectHasSoftMask",
                                           "SoftMaskTransformation",
                                           "SoftMaskBackdropColor",
                                           "SoftMaskAlpha",
                                           "SoftMaskTransferFunction",
                                           "ObjectIsClipping",
                                           "ObjectAbsoluteTransformation",
                                           "ObjectName",
                                           "HalftoneSetName",
                                           "HalftoneSet",
                                           "ObjectHalftoneSet",
                                           "ObjectWindingRule",
                                           "ObjectShape",
                                           "PaintType",
                                           "PaintColorSpace",
                                           "PaintColor",
                                           "PaintTransformation",
                                           "ShadingPaintBoundingBox",
                                           "ShadingPaintBackgroundDefined",
                                           "ShadingPaintBackground",
                                           "AxialShadingPaintPoints",
                                           "RadialShadingPaintCenters",
                                           "RadialShadingPaintRadii",
                                           "ShadingPaintExtends",
                                           "ShadingPaintFunction",
                                           "PatternPaintReuse",
                                           "PatternPaintIsUncolored",
                                           "PatternPaintBoundingBox",
                                           "PatternPaintStep",
                                           "PatternPaintContentReuse",
                                           "FormReuse",
                                           "FormTransformation",
                                           "FormBoundingBox",
                                           "FormExternalReference",
                                           "FormScope",
                                           "FormUniqueID",
                                           "FormUniqueIDReuse",
                                           "ImageChannelMapping",
                                           "ImageOverprint",
                                           "ImageRegistrationColorSpace",
                                           "ImageChannelsMapped",
                                           "FontName",
                                           "FontFamily",
                                           "FontStyle",
                                           "FontBBox",
                                           "TextSize",
                                           "TextCharacterSpacing",
                                           "TextWordSpacing",
                                           "TextTransformation",
                                           "TextCharacterPositions",
                                           "TextCharacters",
                                           "ObjectWindingRuleOfText",
                                           "ObjectShapeOfText",
                                           "DecodedImageData",
                                           "Image",
                                           "IndexedImageData",
                                           "ImageColorTableSize",
                                           "ImageWidth",
                                           "ImageHeight",
                                           "ImageLink",
                                           "ImageDeviceIndependentColorSpace",
                                           "ImageColorSpace",
                                           "ImageChannelInfoColorChannelCount",
                                           "ImageMaskKind",
                                           "DecodedSoftMaskData",
                                           "DecodedImageMaskData",
                                           "DecodedImageMaskDataOfImageMask",
                                           "ObjectRenderingIntent",
                                           "ImageOverprintOfImage",
                                           "ImageChannelsMappedOfImage",
                                           "ImageChannelMappingOfImage",
                                           "ImageRegistrationColorSpaceOfImage"};
    std::vector<std::string> rows;
    for (const Mutation& mutation : Table())
        rows.push_back(mutation.GetName());
    EXPECT_THAT(rows, ::testing::UnorderedElementsAreArray(told));
}

TEST(MutationTable, GivesAReasonForEachOtherResult)
{
    for (const Mutation& mutation : Table())
        EXPECT_EQ(mutation.result.empty(), mutation.reason.empty()) << mutation.label;
}

} // namespace HarrowSupport::Testing
