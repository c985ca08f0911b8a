#include <orv_color/color_space.h>

#include "orv_color/color_space_state.h"

#include <stdexcept>
#include <utility>

namespace OrvColor
{

namespace
{

using OrvSys::PdfObject;

template <std::size_t Count>
PdfObject NumberArray(const std::array<double, Count>& numbers)
{
    PdfObject::Items items;
    for (const double number : numbers)
        items.push_back(PdfObject::Real(number));
    return PdfObject::Array(std::move(items));
}

PdfObject WhitePoint(const std::array<double, 3>& whitePoint)
{
    if (!(whitePoint[0] > 0.0) || whitePoint[1] != 1.0 || !(whitePoint[2] > 0.0))
        throw std::invalid_argument("A white point needs positive X and Z, and Y of 1.");
    return NumberArray(whitePoint);
}

ColorSpace::Pointer FromDictionary(const char* family, PdfObject::Entries entries)
{
    return ColorSpace::FromDefinition(
        PdfObject::Array({PdfObject::Name(family), PdfObject::Dictionary(std::move(entries))}));
}

const PdfObject& DefinitionOf(const ColorSpace::Pointer& space)
{
    if (!space)
        throw std::invalid_argument("A colour space needs another one as its alternate or base.");
    return space->GetDefinition();
}

const char* DeviceSpaceOf(const ICCProfile& profile)
{
    switch (profile.GetComponentCount()) {
    case 1:
        return "DeviceGray";
    case 3:
        return "DeviceRGB";
    case 4:
        return "DeviceCMYK";
    default:
        throw std::invalid_argument("A profile of " + std::to_string(profile.GetComponentCount()) +
                                    " components can't be a colour space.");
    }
}

} // namespace

ColorSpace::ColorSpace(std::unique_ptr<const State> givenState) : state(std::move(givenState)) {}

ColorSpace::~ColorSpace() = default;

ColorSpace::Pointer ColorSpace::CalGray(const std::array<double, 3>& whitePoint, double gamma)
{
    return FromDictionary("CalGray",
                          {{"WhitePoint", WhitePoint(whitePoint)}, {"Gamma", PdfObject::Real(gamma)}});
}

ColorSpace::Pointer ColorSpace::CalRGB(const std::array<double, 3>& whitePoint,
                                       const std::array<double, 3>& gamma,
                                       const std::array<double, 9>& matrix)
{
    return FromDictionary("CalRGB", {{"WhitePoint", WhitePoint(whitePoint)},
                                     {"Gamma", NumberArray(gamma)},
                                     {"Matrix", NumberArray(matrix)}});
}

ColorSpace::Pointer ColorSpace::Lab(const std::array<double, 3>& whitePoint,
                                    const std::array<double, 4>& range)
{
    return FromDictionary("Lab", {{"WhitePoint", WhitePoint(whitePoint)}, {"Range", NumberArray(range)}});
}

ColorSpace::Pointer ColorSpace::ICCBased(const std::shared_ptr<const ICCProfile>& profile)
{
    if (!profile)
        throw std::invalid_argument("The colour space ICCBased needs a profile.");
    const char* const deviceSpace = DeviceSpaceOf(*profile);
    PdfObject::Entries entries = {
        {"N", PdfObject::Integer(static_cast<std::int64_t>(profile->GetComponentCount()))}};
    // No device space has the components of L*a*b*; every other model has one to fall back on.
    if (profile->GetDataColorSpace() == "Lab ")
        entries["Range"] = NumberArray<6>({0, 100, -128, 127, -128, 127});
    else
        entries["Alternate"] = PdfObject::Name(deviceSpace);
    return FromDefinition(
        PdfObject::Array({PdfObject::Name("ICCBased"),
                          PdfObject::Stream(PdfObject::Dictionary(std::move(entries)), profile->GetData())}));
}

ColorSpace::Pointer ColorSpace::Separation(std::string name, const Pointer& alternate,
                                           const PdfObject& tintTransform)
{
    return FromDefinition(PdfObject::Array({PdfObject::Name("Separation"), PdfObject::Name(std::move(name)),
                                            DefinitionOf(alternate), tintTransform}));
}

ColorSpace::Pointer ColorSpace::DeviceN(const std::vector<std::string>& names, const Pointer& alternate,
                                        const PdfObject& tintTransform, const PdfObject& attributes)
{
    PdfObject::Items colorants;
    for (const std::string& name : names)
        colorants.push_back(PdfObject::Name(name));
    PdfObject::Items items = {PdfObject::Name("DeviceN"), PdfObject::Array(std::move(colorants)),
                              DefinitionOf(alternate), tintTransform};
    if (!attributes.IsNull())
        items.push_back(attributes);
    return FromDefinition(PdfObject::Array(std::move(items)));
}

ColorSpace::Pointer ColorSpace::Indexed(const Pointer& base, std::size_t highestIndex, std::string table)
{
    return FromDefinition(PdfObject::Array({PdfObject::Name("Indexed"), DefinitionOf(base),
                                            PdfObject::Integer(static_cast<std::int64_t>(highestIndex)),
                                            PdfObject::String(std::move(table))}));
}

ColorSpace::Pointer ColorSpace::Pattern(const Pointer& underlying)
{
    if (!underlying)
        return FromDefinition(PdfObject::Name("Pattern"));
    return FromDefinition(PdfObject::Array({PdfObject::Name("Pattern"), underlying->GetDefinition()}));
}

ColorSpace::Family ColorSpace::GetFamily() const
{
    return state->family;
}

const PdfObject& ColorSpace::GetDefinition() const
{
    return state->definition;
}

std::size_t ColorSpace::GetComponentCount() const
{
    return state->componentCount;
}

const std::vector<std::array<double, 2>>& ColorSpace::GetRanges() const
{
    return state->ranges;
}

const std::vector<float>& ColorSpace::GetInitialComponents() const
{
    return state->initialComponents;
}

bool ColorSpace::IsDeviceIndependent() const
{
    return state->family == Family::CalGray || state->family == Family::CalRGB ||
           state->family == Family::Lab || state->family == Family::ICCBased;
}

const std::vector<std::string>& ColorSpace::GetColorantNames() const
{
    return state->colorantNames;
}

const ColorSpace::Pointer& ColorSpace::GetBase() const
{
    return state->base;
}

bool operator==(const ColorSpace& left, const ColorSpace& right)
{
    return &left == &right || left.GetDefinition() == right.GetDefinition();
}

} // namespace OrvColor
