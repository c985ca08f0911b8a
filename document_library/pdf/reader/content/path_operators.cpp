#include <cmath>
#include <utility>

#include <orv_doc/path.h>
#include <plexa/geometry.h>

#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

namespace
{

using Point = Plexa::CompoundBuilder::Point;

Point ToPoint(const Arguments& arguments, std::size_t index)
{
    return {arguments[index].AsMilliPoints(), arguments[index + 1].AsMilliPoints()};
}

constexpr const char* noCurrentPoint = "there is no current point";

} // namespace

bool Interpreter::ExtendPath(const Arguments& arguments, std::size_t segments)
{
    if (pathSegments + segments > limits.pathSegments) {
        problems.Limit("pathSegments", limits.pathSegments, arguments.Place());
        return false;
    }
    pathSegments += segments;
    if (!pathPlaces.empty() && latestPathOperation + 1 == operationNumber) {
        pathPlaces.back().end = arguments.Place().end;
    } else {
        pathPlaces.push_back(arguments.Place());
    }
    latestPathOperation = operationNumber;
    return true;
}

void Interpreter::MoveTo(const Arguments& arguments)
{
    // A move counts as a segment, for a subpath takes memory also if nothing is drawn in it.
    if (ExtendPath(arguments, 1)) {
        path.MoveTo(ToPoint(arguments, 0));
    }
}

void Interpreter::LineTo(const Arguments& arguments)
{
    if (path.IsEmpty()) {
        problems.Damaged("l", noCurrentPoint, {}, arguments.Place());
    } else if (ExtendPath(arguments, 1)) {
        path.LineTo(ToPoint(arguments, 0));
    }
}

void Interpreter::CurveTo(const Arguments& arguments)
{
    if (path.IsEmpty()) {
        problems.Damaged("c", noCurrentPoint, {}, arguments.Place());
    } else if (ExtendPath(arguments, 1)) {
        path.CurveTo(ToPoint(arguments, 0), ToPoint(arguments, 2), ToPoint(arguments, 4));
    }
}

void Interpreter::CurveToFromCurrent(const Arguments& arguments)
{
    const auto current = path.GetCurrentPoint();
    if (!current) {
        problems.Damaged("v", noCurrentPoint, {}, arguments.Place());
    } else if (ExtendPath(arguments, 1)) {
        path.CurveTo(*current, ToPoint(arguments, 0), ToPoint(arguments, 2));
    }
}

void Interpreter::CurveToReplicateFinal(const Arguments& arguments)
{
    if (path.IsEmpty()) {
        problems.Damaged("y", noCurrentPoint, {}, arguments.Place());
    } else if (ExtendPath(arguments, 1)) {
        const Point end = ToPoint(arguments, 2);
        path.CurveTo(ToPoint(arguments, 0), end, end);
    }
}

void Interpreter::ClosePath(const Arguments& arguments)
{
    if (path.IsEmpty()) {
        problems.Damaged("h", "there is no path to close", {}, arguments.Place());
    } else if (ExtendPath(arguments, 0)) {
        path.Close();
    }
}

void Interpreter::Rectangle(const Arguments& arguments)
{
    constexpr std::size_t segments = 4;
    const double x = arguments[0].AsMilliPoints();
    const double y = arguments[1].AsMilliPoints();
    const double width = arguments[2].AsMilliPoints();
    const double height = arguments[3].AsMilliPoints();
    if (!std::isfinite(x + width) || !std::isfinite(y + height)) {
        problems.Damaged("re", "the corners are beyond all numbers", {}, arguments.Place());
    } else if (ExtendPath(arguments, segments)) {
        path.AddRectangle(x, y, width, height);
    }
}

void Interpreter::Stroke(const Arguments& arguments)
{
    PaintPath(arguments, false, boost::none, true);
}

void Interpreter::CloseStroke(const Arguments& arguments)
{
    PaintPath(arguments, true, boost::none, true);
}

void Interpreter::Fill(const Arguments& arguments)
{
    PaintPath(arguments, false, Plexa::WindingRule::NonZero, false);
}

void Interpreter::FillEvenOdd(const Arguments& arguments)
{
    PaintPath(arguments, false, Plexa::WindingRule::EvenOdd, false);
}

void Interpreter::FillStroke(const Arguments& arguments)
{
    PaintPath(arguments, false, Plexa::WindingRule::NonZero, true);
}

void Interpreter::FillStrokeEvenOdd(const Arguments& arguments)
{
    PaintPath(arguments, false, Plexa::WindingRule::EvenOdd, true);
}

void Interpreter::CloseFillStroke(const Arguments& arguments)
{
    PaintPath(arguments, true, Plexa::WindingRule::NonZero, true);
}

void Interpreter::CloseFillStrokeEvenOdd(const Arguments& arguments)
{
    PaintPath(arguments, true, Plexa::WindingRule::EvenOdd, true);
}

void Interpreter::EndPath(const Arguments& arguments)
{
    PaintPath(arguments, false, boost::none, false);
}

void Interpreter::Clip(const Arguments& arguments)
{
    ExtendPath(arguments, 0);
    pendingClip = Plexa::WindingRule::NonZero;
}

void Interpreter::ClipEvenOdd(const Arguments& arguments)
{
    ExtendPath(arguments, 0);
    pendingClip = Plexa::WindingRule::EvenOdd;
}

void Interpreter::PaintPath(const Arguments& arguments, bool close,
                            boost::optional<Plexa::WindingRule> fillRule, bool stroke)
{
    const auto clipRule = std::exchange(pendingClip, boost::none);
    pathPlaces.clear();
    pathSegments = 0;
    if (path.IsEmpty()) {
        if (clipRule) {
            problems.Odd(arguments.OperatorText(), "a clip without a path clips nothing", {},
                         arguments.Place());
        }
        return;
    }
    if (close) {
        path.Close();
    }
    if (clipRule && !fillRule && !stroke && objectAttributes && objectAttributes->hasOutline &&
        !objectAttributes->outline) {
        objectAttributes->outline = path.Finish(*clipRule);
        return;
    }
    ObjectAttributes attributes = TakeAttributes();
    const auto ruleByName = attributes.evenOdd ? Plexa::WindingRule::EvenOdd : Plexa::WindingRule::NonZero;
    if (clipRule && !fillRule && !stroke) {
        BeginClip(path.Finish(*clipRule), attributes.name, arguments.Place());
        return;
    }
    const auto compound = path.Finish(fillRule ? *fillRule : ruleByName);
    PlacePath(compound, fillRule.has_value(), stroke, attributes);
    if (clipRule) {
        // The operator paints first and clips then, so its object is not among those that are clipped.
        BeginClip(Plexa::WithWindingRule(compound, *clipRule), {}, arguments.Place());
    }
}

Interpreter::ObjectAttributes Interpreter::TakeAttributes()
{
    ObjectAttributes attributes;
    if (objectAttributes) {
        attributes = std::move(*objectAttributes);
        objectAttributes = boost::none;
    }
    return attributes;
}

void Interpreter::PlacePath(std::shared_ptr<const Plexa::Compound> compound, bool fill, bool stroke,
                            const ObjectAttributes& attributes)
{
    auto object = std::make_unique<OrvDoc::Path>(std::move(compound));
    if (!attributes.name.empty()) {
        object->SetName(attributes.name);
    }
    if (!Plexa::IsIdentity(state.matrix)) {
        object->SetTransformation(state.matrix);
    }
    if (fill) {
        MarkUsed(Inherited::fill);
        object->SetFillPaint(GetPaint(state.fill));
    }
    if (stroke) {
        MarkUsed(Inherited::stroke);
        object->SetStrokePaint(GetPaint(state.stroke));
        object->SetSharedStrokeProperties(state.strokeProperties);
    }
    const bool isPainted = fill || stroke;
    if (isPainted) {
        MarkUsed(Inherited::painting);
        NotePainting();
    }
    if (isPainted || attributes.halftones) {
        object->SetHalftoneSet(state.halftones);
    }
    foreignObjects.Add(object->GetID(), state.foreign);
    SetBlending(*object, attributes);
    ownClipsLeft = 0;
    EndRun();
    tree.Place(std::move(object));
}

void Interpreter::BeginClip(std::shared_ptr<const Plexa::Compound> compound, const std::string& name,
                            ByteRange place)
{
    Matrix transformation = state.matrix;
    if (!Plexa::Inverse(transformation)) {
        // Behind such a clip no other matrix could ever be written.
        compound = transformation * std::move(compound);
        transformation = Matrix();
    }
    GroupRecipe recipe;
    recipe.clip = std::move(compound);
    recipe.clipTransformation = transformation;
    recipe.clipName = name;
    OpenClip(std::move(recipe), place);
}

void Interpreter::OpenClip(GroupRecipe recipe, ByteRange place)
{
    EndRun();
    if (ownClipsLeft > 0 && tree.IsInnermost(ownClipsScope)) {
        --ownClipsLeft;
        tree.Place(MakeClip(recipe));
        return;
    }
    if (tree.GetDepth() >= limits.contentNesting) {
        problems.Limit("contentNesting", limits.contentNesting, place);
        return;
    }
    openClips.push_back(tree.Open(std::move(recipe)));
}

} // namespace OrvPdf
