#include "pdf/writer/content/paint_color.h"

#include <cmath>
#include <stdexcept>

#include "pdf/writer/content/separation_spaces.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using List = OrvColor::ColorList<OrvColor::ColorPolicy>;

bool IsProcessList(const List& list)
{
    return list.entries.size() == 4 && list.entries[0].name == "Cyan" && list.entries[1].name == "Magenta" &&
           list.entries[2].name == "Yellow" && list.entries[3].name == "Black";
}

bool AreTints(const PaintColor::Components& components)
{
    for (const float tint : components) {
        if (!(tint >= 0.0f && tint <= 1.0f)) {
            return false;
        }
    }
    return true;
}

} // namespace

const PaintSettings* PaintColors::Find(const OrvPaint::FlatPaint& paint, const char*& problem)
{
    settings.overprint = paint.GetColor().overprint;
    settings.nonzeroOverprint = paint.IsNonzeroOverprint();
    const bool isSaid = paint.GetNativeSpace() ? SetNative(paint, problem) : SetList(paint, problem);
    return isSaid ? &settings : nullptr;
}

bool PaintColors::SetNative(const OrvPaint::FlatPaint& paint, const char*& problem)
{
    ColorSpace::Pointer space = paint.GetNativeSpace();
    if (space->GetFamily() == ColorSpace::Family::Pattern) {
        // A colour without its pattern is one of the space below.
        space = space->GetBase();
    }
    if (!space) {
        problem = "flat paints in a colour space of patterns cannot be written";
        return false;
    }
    PaintColor& color = settings.color;
    color.space = GetSpaceNumber(space);
    const std::vector<float>& given = paint.GetNativeComponents();
    const std::vector<float>& initial = space->GetInitialComponents();
    const std::size_t count = space->GetComponentCount();
    color.components.clear();
    for (std::size_t index = 0; index < count; ++index) {
        const float component = index < given.size()     ? given[index]
                                : index < initial.size() ? initial[index]
                                                         : 0.0f;
        if (!std::isfinite(component)) {
            problem = "colours with components that are no numbers cannot be written";
            return false;
        }
        color.components.push_back(component);
    }
    return true;
}

bool PaintColors::SetList(const OrvPaint::FlatPaint& paint, const char*& problem)
{
    const List& list = paint.GetColor();
    PaintColor& color = settings.color;
    color.components.clear();
    for (const List::Entry& entry : list.entries) {
        color.components.push_back(entry.value);
    }
    if (list.all) {
        color.components.push_back(list.valueForAll);
    }
    if (!AreTints(color.components)) {
        problem = "tints outside of 0 to 1 cannot be written";
        return false;
    }
    if (list.all && !list.entries.empty()) {
        problem = "colours of all separations that name separations too cannot be written";
        return false;
    }
    try {
        if (list.all) {
            color.space = GetSpaceNumber(SeparationSpaces::MakeAll());
        } else if (list.entries.empty()) {
            color.components.push_back(1.0f);
            color.space = GetSpaceNumber(SeparationSpaces::MakeNone());
        } else if (IsProcessList(list)) {
            color.space = PaintColor::cmyk;
        } else {
            std::vector<std::string> names;
            for (const List::Entry& entry : list.entries) {
                names.push_back(entry.name);
            }
            color.space = GetSpaceNumber(separationSpaces.Get(names));
        }
    } catch (const std::invalid_argument&) {
        problem = "colours of separations that no colour space can name cannot be written";
        return false;
    } catch (const std::length_error&) {
        problem = "colours of more separations than a colour space can name cannot be written";
        return false;
    }
    return true;
}

PaintSettings PaintColors::WithoutMode(const PaintSettings& given)
{
    PaintSettings changed = given;
    changed.color.space = GetSpaceNumber(separationSpaces.Get({"Cyan", "Magenta", "Yellow", "Black"}));
    if (given.isProcessPattern) {
        MoveToPatterns(changed.color);
        changed.isProcessPattern = false;
    }
    return changed;
}

void PaintColors::MoveToPatterns(PaintColor& color)
{
    ColorSpace::Pointer& space = patternSpaces[color.space];
    if (!space) {
        space = ColorSpace::Pattern(GetSpace(color));
    }
    color.space = GetSpaceNumber(space);
}

ColorSpace::Pointer PaintColors::GetSpace(const PaintColor& color) const
{
    switch (color.space) {
    case PaintColor::gray:
        return ColorSpace::DeviceGray();
    case PaintColor::rgb:
        return ColorSpace::DeviceRGB();
    case PaintColor::cmyk:
        return ColorSpace::DeviceCMYK();
    default:
        return spaces[color.space - PaintColor::firstNamed];
    }
}

std::uint32_t PaintColors::GetSpaceNumber(const ColorSpace::Pointer& space)
{
    switch (space->GetFamily()) {
    case ColorSpace::Family::DeviceGray:
        return PaintColor::gray;
    case ColorSpace::Family::DeviceRGB:
        return PaintColor::rgb;
    case ColorSpace::Family::DeviceCMYK:
        return PaintColor::cmyk;
    default:
        break;
    }
    const auto known = numbers.find(space.get());
    if (known != numbers.end()) {
        return known->second;
    }
    const std::uint64_t digest = space->GetDefinition().GetDigest();
    const auto [begin, end] = numbersOfDigests.equal_range(digest);
    for (auto candidate = begin; candidate != end; ++candidate) {
        if (spaces[candidate->second - PaintColor::firstNamed]->GetDefinition() == space->GetDefinition()) {
            // Not remembered by its address: only the spaces in the list are sure to live on.
            return candidate->second;
        }
    }
    const auto number = static_cast<std::uint32_t>(spaces.size()) + PaintColor::firstNamed;
    spaces.push_back(space);
    numbers.emplace(space.get(), number);
    numbersOfDigests.emplace(digest, number);
    return number;
}

} // namespace OrvPdf
