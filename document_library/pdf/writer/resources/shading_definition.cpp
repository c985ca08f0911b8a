#include "pdf/writer/resources/shading_definition.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/function_definition.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/whole_shading_paint.h>

#include "pdf/number_text.h"
#include "pdf/shading_mapping.h"
#include "pdf/writer/content/separation_spaces.h"
#include "pdf/writer/document/page_box_corners.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvPaint::AxialShadingPaint;
using OrvPaint::Paint;
using OrvPaint::RadialShadingPaint;
using OrvPaint::ShadingPaint;
using OrvPaint::WholeShadingPaint;
using OrvSys::PdfObject;

/// Why a shading has no definition.
struct Refusal
{
    const char* problem;
};

constexpr int pointsToMilliPoints = 3;

PdfObject NumberArray(std::initializer_list<double> numbers, int decimalShift)
{
    PdfObject::Items items;
    for (const double number : numbers) {
        std::string text;
        AppendNumber(text, number, decimalShift);
        items.push_back(PdfObject::Real(std::move(text)));
    }
    return PdfObject::Array(std::move(items));
}

PdfObject ComponentArray(const std::vector<OrvColor::Component>& components)
{
    PdfObject::Items items;
    for (const float component : components) {
        std::string text;
        AppendFloat(text, component);
        items.push_back(PdfObject::Real(std::move(text)));
    }
    return PdfObject::Array(std::move(items));
}

/// The numbers of a colour of a shading that was made for a list of separations.
std::size_t CountComponents(const ShadingPaint& paint)
{
    if (paint.GetType() == Paint::Type::AxialShading) {
        return static_cast<const AxialShadingPaint&>(paint).GetFunction()->GetRange().size();
    }
    if (paint.GetType() == Paint::Type::RadialShading) {
        return static_cast<const RadialShadingPaint&>(paint).GetFunction()->GetRange().size();
    }
    const PdfObject& definition = static_cast<const WholeShadingPaint&>(paint).GetDefinition();
    const PdfObject function = definition.Find("Function");
    if (!function.IsNull()) {
        return OrvPaint::MakeFunctionOfShading(function)->GetRange().size();
    }
    // The ranges of the two coordinates stand before those of the components.
    const PdfObject decode = definition.Find("Decode");
    return decode.IsArray() && decode.GetItems().size() > 4 ? decode.GetItems().size() / 2 - 2 : 0;
}

ColorSpace::Pointer MakeListSpace(const SeparationMapping& mapping, std::size_t count,
                                  SeparationSpaces& separations)
{
    if (mapping.all) {
        if (count != 1 || mapping.valueForAll != 0) {
            throw Refusal{"shadings of all separations with more than one component cannot be written"};
        }
        return SeparationSpaces::MakeAll();
    }
    std::vector<std::string> names(count);
    for (const SeparationMapping::Entry& entry : mapping.entries) {
        const bool isKnown = std::find(names.begin(), names.end(), entry.name) != names.end();
        if (entry.value < count && names[entry.value].empty() && !isKnown) {
            names[entry.value] = entry.name;
        }
    }
    static const std::vector<std::string> process = {"Cyan", "Magenta", "Yellow", "Black"};
    return names == process ? ColorSpace::DeviceCMYK() : separations.GetWithBlanks(names);
}

ColorSpace::Pointer FindSpace(const ShadingPaint& paint, SeparationSpaces& separations)
{
    const ColorSpace::Pointer& native = paint.GetNativeSpace();
    if (native) {
        const bool isFit = native->GetFamily() != ColorSpace::Family::Pattern &&
                           native->GetFamily() != ColorSpace::Family::Indexed;
        if (!isFit || CountComponents(paint) != native->GetComponentCount()) {
            throw Refusal{"shadings whose numbers do not fit their colour space cannot be written"};
        }
        return native;
    }
    for (const SeparationMapping::Entry& entry : paint.GetSeparationMapping().entries) {
        if (entry.name.empty()) {
            throw Refusal{"shadings of separations that no colour space can name cannot be written"};
        }
    }
    const std::size_t count = CountComponents(paint);
    if (count == 0) {
        throw Refusal{"shadings without any component cannot be written"};
    }
    try {
        return MakeListSpace(paint.GetSeparationMapping(), count, separations);
    } catch (const std::invalid_argument&) {
        throw Refusal{"shadings of separations that no colour space can name cannot be written"};
    }
}

void AddBackground(const std::vector<OrvColor::Component>& background, std::size_t count,
                   PdfObject::Entries& entries)
{
    if (background.size() != count) {
        entries[ShadingKeys::background] = ComponentArray(background);
    }
    std::vector<OrvColor::Component> standard = background;
    standard.resize(count, 0.0f);
    entries["Background"] = ComponentArray(standard);
}

void AddBoundingBox(const Plexa::RectangleBase<Plexa::PdfCoordinateSystem>& box, PdfObject::Entries& entries)
{
    if (box.isInitial) {
        return;
    }
    // The search for the far corners knows no unit.
    const auto corners =
        FindBoxCorners({box.origin.x.value, box.origin.y.value, box.size.width.value, box.size.height.value});
    if (!corners) {
        throw Refusal{"shadings with a bounding box of negative or infinite extents cannot be written"};
    }
    entries["BBox"] = NumberArray({corners->left, corners->bottom, corners->right, corners->top}, 0);
}

template <typename Gradient>
void AddGradient(const Gradient& paint, PdfObject::Entries& entries)
{
    const auto& [isBefore, isBehind] = paint.GetExtends();
    entries["Extend"] = PdfObject::Array({PdfObject::Boolean(isBefore), PdfObject::Boolean(isBehind)});
    entries["Domain"] = NumberArray({paint.GetParameterRange()[0], paint.GetParameterRange()[1]}, 0);
    entries["Function"] = OrvPaint::GetFunctionDefinition(*paint.GetFunction());
}

PdfObject::Entries DefineByType(const ShadingPaint& paint)
{
    PdfObject::Entries entries;
    if (paint.GetType() == Paint::Type::AxialShading) {
        const auto& axial = static_cast<const AxialShadingPaint&>(paint);
        const auto& [start, end] = axial.GetPoints();
        entries["ShadingType"] = PdfObject::Integer(2);
        entries["Coords"] =
            NumberArray({start.x.value, start.y.value, end.x.value, end.y.value}, pointsToMilliPoints);
        AddGradient(axial, entries);
    } else if (paint.GetType() == Paint::Type::RadialShading) {
        const auto& radial = static_cast<const RadialShadingPaint&>(paint);
        const auto& [first, second] = radial.GetCenters();
        const auto& [firstRadius, secondRadius] = radial.GetRadii();
        if (firstRadius.value < 0.0 || secondRadius.value < 0.0) {
            throw Refusal{"shadings with a radius below zero cannot be written"};
        }
        entries["ShadingType"] = PdfObject::Integer(3);
        entries["Coords"] = NumberArray({first.x.value, first.y.value, firstRadius.value, second.x.value,
                                         second.y.value, secondRadius.value},
                                        pointsToMilliPoints);
        AddGradient(radial, entries);
    } else {
        entries = static_cast<const WholeShadingPaint&>(paint).GetDefinition().GetEntries();
    }
    return entries;
}

ShadingDefinition Define(const ShadingPaint& paint, SeparationSpaces& separations)
{
    ShadingDefinition result;
    result.space = FindSpace(paint, separations);
    PdfObject::Entries entries = DefineByType(paint);
    entries["ColorSpace"] = result.space->GetDefinition();
    const SeparationMapping& mapping = paint.GetSeparationMapping();
    if (OrvPaint::MakeSeparationMapping(*result.space, mapping.overprint) != mapping) {
        entries[ShadingKeys::mapping] = DefineMapping(mapping);
    }
    if (paint.GetBackground()) {
        AddBackground(*paint.GetBackground(), result.space->GetComponentCount(), entries);
    }
    AddBoundingBox(paint.GetBoundingBox(), entries);
    if (paint.IsAntiAliased()) {
        entries["AntiAlias"] = PdfObject::Boolean(true);
    }
    result.dictionary = PdfObject::Dictionary(std::move(entries));
    return result;
}

} // namespace

boost::optional<ShadingDefinition> DefineShading(const ShadingPaint& paint, SeparationSpaces& separations,
                                                 const char*& problem)
{
    try {
        return Define(paint, separations);
    } catch (const Refusal& refusal) {
        problem = refusal.problem;
    } catch (const std::invalid_argument&) {
        problem = "shadings with numbers that are not finite cannot be written";
    } catch (const std::length_error&) {
        problem = "shadings that are nested too deeply or too large cannot be written";
    }
    return boost::none;
}

} // namespace OrvPdf
