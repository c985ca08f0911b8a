#include "support/random_objects.h"

#include "support/random_shadings.h"
#include "support/random_states.h"

#include <orv_color/gen_color_profiles.h>
#include <orv_doc/layer.h>
#include <orv_doc/marked_content.h>
#include <orv_doc/path.h>
#include <orv_doc/text_group.h>

#include <plexa/compound_builder.h>

#include <cmath>

namespace HarrowSupport::Testing
{

namespace
{

using OrvColor::ColorSpace;
using OrvSys::PdfObject;
using Matrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;
using Random = std::mt19937;

Plexa::CompoundBuilder::Point RandomPoint(Random& random)
{
    const double x = RandomCoordinate(random);
    return {x, RandomCoordinate(random)};
}

std::shared_ptr<const Plexa::Compound> RandomCompound(Random& random)
{
    Plexa::CompoundBuilder builder;
    const std::size_t subpaths = 1 + random() % 3;
    for (std::size_t subpath = 0; subpath < subpaths; ++subpath) {
        if (random() % 3 == 0) {
            const double x = RandomCoordinate(random);
            const double y = RandomCoordinate(random);
            builder.AddRectangle(x, y, RandomCoordinate(random), RandomCoordinate(random));
            continue;
        }
        builder.MoveTo(RandomPoint(random));
        const std::size_t segments = 1 + random() % 4;
        for (std::size_t segment = 0; segment < segments; ++segment) {
            const auto first = random() % 4 == 0 ? *builder.GetCurrentPoint() : RandomPoint(random);
            const auto end = RandomPoint(random);
            const auto second = random() % 4 == 0 ? end : RandomPoint(random);
            random() % 2 == 0 ? builder.LineTo(end) : builder.CurveTo(first, second, end);
        }
        if (random() % 2 == 0) {
            builder.Close();
        }
    }
    return builder.Finish(random() % 2 == 0 ? Plexa::WindingRule::NonZero : Plexa::WindingRule::EvenOdd);
}

OrvDoc::StrokeProperties RandomStroke(Random& random)
{
    OrvDoc::StrokeProperties stroke;
    stroke.width = std::fabs(RandomCoordinate(random));
    stroke.cap = static_cast<OrvDoc::LineCap>(random() % 3);
    stroke.join = static_cast<OrvDoc::LineJoin>(random() % 3);
    stroke.miterLimit = 1.0 + static_cast<double>(random() % 1000) / 7.0;
    for (std::size_t i = random() % 4; i > 0; --i) {
        stroke.dashArray.push_back(1.0 + static_cast<double>(random() % 10000) / 3.0);
    }
    stroke.dashPhase = static_cast<double>(random() % 5000);
    return stroke;
}

PdfObject TintFunction(std::size_t inputs)
{
    PdfObject::Items domain;
    for (std::size_t i = 0; i < inputs; ++i) {
        domain.push_back(PdfObject::Integer(0));
        domain.push_back(PdfObject::Integer(1));
    }
    const PdfObject zero = PdfObject::Integer(0);
    const PdfObject one = PdfObject::Integer(1);
    std::string program = "{";
    for (std::size_t i = 0; i < inputs; ++i) {
        program += " pop";
    }
    return PdfObject::Stream(
        PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)},
                               {"Domain", PdfObject::Array(std::move(domain))},
                               {"Range", PdfObject::Array({zero, one, zero, one, zero, one, zero, one})}}),
        program + " 0 0.5 1 0 }");
}

std::shared_ptr<const OrvPaint::FlatPaint> RandomListPaint(Random& random)
{
    OrvColor::ColorList<OrvColor::ColorPolicy> list;
    static const std::vector<std::vector<std::string>> names = {
        {"Cyan", "Magenta", "Yellow", "Black"},
        {"Black"},
        {"Ink 0"},
        {"Ink 1", "Cyan"},
        {"Black", "Yellow", "Magenta", "Cyan"},
        {"A name (with) <odd> bytes \xC3\xA9 #/%"},
        {"DeviceRGB Red", "DeviceRGB Green", "DeviceRGB Blue"},
        {}};
    for (const std::string& name : names[random() % names.size()]) {
        list.Add(name, RandomTint(random));
    }
    if (random() % 8 == 0) {
        list = {};
        list.all = true;
        list.valueForAll = RandomTint(random);
    }
    list.overprint = random() % 3 == 0;
    return OrvPaint::GetFlatPaint(std::move(list), nullptr);
}

std::unique_ptr<OrvDoc::Path> RandomPath(Random& random)
{
    auto path = std::make_unique<OrvDoc::Path>(RandomCompound(random));
    path->SetTransformation(RandomMatrix(random));
    if (random() % 8 == 0) {
        path->SetName(RandomName(random));
    }
    return path;
}

void SetRandomGroupParts(OrvDoc::Group& group, Random& random)
{
    if (random() % 3 == 0) {
        group.SetTransformation(RandomMatrix(random));
    }
    if (random() % 2 == 0) {
        SetRandomBlending(group, random);
    }
}

OrvDoc::LogicalLayerExpression
RandomExpression(Random& random, const std::vector<std::shared_ptr<OrvDoc::LayerProperties>>& layers,
                 int depth)
{
    using Expression = OrvDoc::LogicalLayerExpression;
    const Expression leaf(layers[random() % layers.size()]);
    switch (depth < 3 ? random() % 6 : 5) {
    case 0:
        return Expression(Expression::Operation::And, {RandomExpression(random, layers, depth + 1),
                                                       RandomExpression(random, layers, depth + 1)});
    case 1:
        return Expression(Expression::Operation::Or, {RandomExpression(random, layers, depth + 1), leaf});
    case 2:
        return Expression(Expression::Operation::Not, {RandomExpression(random, layers, depth + 1)});
    default:
        return depth == 0
                   ? Expression(static_cast<Expression::Operation>(
                                    static_cast<std::uint32_t>(Expression::Operation::AllOn) + random() % 4),
                                {leaf})
                   : leaf;
    }
}

std::unique_ptr<OrvDoc::Group>
RandomLayer(Random& random, const std::vector<std::shared_ptr<OrvDoc::LayerProperties>>& layers)
{
    if (layers.empty()) {
        return std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags::DefaultUserCreated);
    }
    if (random() % 3 == 0) {
        return std::make_unique<OrvDoc::Layer>(
            OrvDoc::Layer::Membership(RandomExpression(random, layers, 0)));
    }
    return std::make_unique<OrvDoc::Layer>(OrvDoc::Layer::Membership(layers[random() % layers.size()]));
}

std::shared_ptr<const OrvDoc::MarkedContent> RandomMark(Random& random, bool isPoint)
{
    OrvDoc::MarkedContent mark;
    mark.tag = random() % 2 == 0 ? "Span" : "Artifact";
    mark.isPoint = isPoint;
    if (random() % 2 == 0) {
        mark.properties =
            PdfObject::Dictionary({{"MCID", PdfObject::Integer(static_cast<std::int64_t>(random() % 100))},
                                   {"ActualText", PdfObject::String(RandomName(random))}});
    }
    return std::make_shared<const OrvDoc::MarkedContent>(std::move(mark));
}

} // namespace

std::string RandomName(Random& random)
{
    static const std::vector<std::string> names = {"Background",
                                                   "a (b) \\c",
                                                   "Gr\xC3\xBC\xC3\x9F"
                                                   "e",
                                                   "\xE6\x97\xA5\xE6\x9C\xAC",
                                                   "x",
                                                   "line\nbreak\r\t",
                                                   std::string("zero\0byte", 9)};
    return names[random() % names.size()];
}

OrvColor::Component RandomTint(Random& random)
{
    switch (random() % 4) {
    case 0:
        return 0.0F;
    case 1:
        return 1.0F;
    default:
        return static_cast<float>(random() % 10000) / 9973.0F > 1.0F
                   ? 0.3F
                   : static_cast<float>(random() % 9973) / 9973.0F;
    }
}

double RandomCoordinate(Random& random)
{
    const auto whole = static_cast<double>(static_cast<int>(random() % 2000001) - 1000000);
    switch (random() % 8) {
    case 0:
        return 0.0;
    case 1:
        return whole / 7.0;
    case 2:
        return std::ldexp(whole, -static_cast<int>(random() % 60));
    case 3:
        return whole * 1e6;
    default:
        return whole;
    }
}

Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> RandomMatrix(Random& random)
{
    const auto number = [&random] {
        return static_cast<double>(static_cast<int>(random() % 4001) - 2000) / 997.0;
    };
    switch (random() % 6) {
    case 0:
        return Matrix(0.1, 0.0, 0.0, 0.1, 0.0, 0.0);
    case 1:
        return Matrix(1.0, 0.0, 0.0, 1.0, RandomCoordinate(random), RandomCoordinate(random));
    case 2:
        return Matrix(number(), number(), number(), number(), RandomCoordinate(random),
                      RandomCoordinate(random));
    default:
        return Matrix();
    }
}

Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> RandomBox(Random& random)
{
    const double x = random() % 2 == 0 ? 0.0 : RandomCoordinate(random) / 1e3;
    const double y = random() % 2 == 0 ? 0.0 : RandomCoordinate(random) / 1e3;
    const double width = 1000.0 + static_cast<double>(random() % 1000000) / (random() % 2 == 0 ? 1.0 : 3.0);
    return {x, y, width, 1000.0 + static_cast<double>(random() % 1000000)};
}

OrvDoc::BlendColorSpace RandomBlendColorSpace(Random& random)
{
    switch (random() % 4) {
    case 0:
        return OrvDoc::BlendColorSpace(ColorSpace::DeviceCMYK());
    case 1:
        return OrvDoc::BlendColorSpace(
            ColorSpace::ICCBased(OrvColor::GenColorProfiles::Instance().GetDefaultRgbProfile(true)));
    default:
        return OrvDoc::BlendColorSpace();
    }
}

ColorSpace::Pointer RandomSpace(Random& random)
{
    const OrvColor::GenColorProfiles& profiles = OrvColor::GenColorProfiles::Instance();
    switch (random() % 10) {
    case 0:
        return ColorSpace::DeviceGray();
    case 1:
        return ColorSpace::DeviceRGB();
    case 2:
        return ColorSpace::DeviceCMYK();
    case 3:
        return ColorSpace::CalGray({0.9505, 1.0, 1.089}, 2.2);
    case 4:
        return ColorSpace::CalRGB({0.9505, 1.0, 1.089});
    case 5:
        return ColorSpace::Lab({0.9642, 1.0, 0.8249});
    case 6:
        return ColorSpace::ICCBased(random() % 2 == 0 ? profiles.GetDefaultRgbProfile(true)
                                                      : profiles.GetDefaultCmykProfile(true));
    case 7:
        return ColorSpace::Separation("Varnish", ColorSpace::DeviceCMYK(), TintFunction(1));
    case 8:
        return ColorSpace::Separation(random() % 2 == 0 ? "All" : "None", ColorSpace::DeviceCMYK(),
                                      TintFunction(1));
    default:
        return ColorSpace::DeviceN({"Cyan", "Gold", "None"}, ColorSpace::DeviceCMYK(), TintFunction(3));
    }
}

std::shared_ptr<const OrvPaint::FlatPaint> RandomPaint(Random& random)
{
    if (random() % 2 == 0) {
        return RandomListPaint(random);
    }
    const ColorSpace::Pointer space = RandomSpace(random);
    std::vector<float> components;
    for (const auto& range : space->GetRanges()) {
        const double share = static_cast<float>(RandomTint(random));
        components.push_back(static_cast<float>(range[0] + share * (range[1] - range[0])));
    }
    const bool overprint = random() % 3 == 0;
    return OrvPaint::FlatPaint::Factory(space, std::move(components), overprint,
                                        overprint && random() % 2 == 0)
        .Get();
}

std::shared_ptr<const OrvPaint::Paint> RandomPaintOfAnyKind(Random& random)
{
    if (random() % 4 != 0) {
        return RandomPaint(random);
    }
    // Some are equal, as they are in files.
    Random few(random() % 8);
    return random() % 3 == 0 ? RandomShading(few) : RandomShading(random);
}

void SetRandomPainting(OrvDoc::Strokable& object, Random& random)
{
    if (random() % 3 != 0) {
        object.SetFillPaint(RandomPaintOfAnyKind(random));
    }
    if (random() % 3 == 0) {
        object.SetStrokePaint(RandomPaintOfAnyKind(random));
        object.SetStrokeProperties(RandomStroke(random));
    }
    SetRandomBlending(object, random);
    SetRandomHalftones(object, random);
}

bool CanHaveChildren(PlannedKind kind)
{
    return kind != PlannedKind::Path && kind != PlannedKind::ClippingPath &&
           kind != PlannedKind::MarkedPoint && kind != PlannedKind::Text && kind != PlannedKind::Picture;
}

std::unique_ptr<OrvDoc::Group> MakeGroup(PlannedKind kind, Random& random,
                                         const std::vector<std::shared_ptr<OrvDoc::LayerProperties>>& layers)
{
    std::unique_ptr<OrvDoc::Group> group;
    if (kind == PlannedKind::TextGroup) {
        group = std::make_unique<OrvDoc::TextGroup>();
    } else if (kind == PlannedKind::Layer) {
        group = RandomLayer(random, layers);
    } else {
        group = std::make_unique<OrvDoc::Group>(kind == PlannedKind::UserGroup
                                                    ? OrvDoc::Group::Flags::DefaultUserCreated
                                                    : OrvDoc::Group::Flags::Default);
    }
    SetRandomGroupParts(*group, random);
    if (kind == PlannedKind::NamedGroup) {
        group->SetName(RandomName(random));
    }
    if (kind == PlannedKind::MarkedContent) {
        group->SetMarkedContent(RandomMark(random, false));
    }
    return group;
}

std::unique_ptr<OrvDoc::ContentObject> MakeLeaf(PlannedKind kind, Random& random)
{
    if (kind == PlannedKind::ClippingPath) {
        auto path = RandomPath(random);
        path->SetClippingObject(true);
        return path;
    }
    if (kind == PlannedKind::MarkedPoint) {
        auto point = std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags::Default);
        point->SetMarkedContent(RandomMark(random, true));
        return point;
    }
    auto path = RandomPath(random);
    SetRandomPainting(*path, random);
    return path;
}

} // namespace HarrowSupport::Testing
