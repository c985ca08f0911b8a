#include "pdf/reader/resources/shading_resource.h"

#include <cmath>
#include <cstring>
#include <stdexcept>
#include <string>

#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/function_definition.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/whole_shading_paint.h>

#include "pdf/number_text.h"
#include "pdf/reader/resources/object_numbers.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvSys::PdfObject;

enum ShadingType : std::int64_t
{
    FunctionBased = 1,
    Axial = 2,
    Radial = 3,
    FreeFormMesh = 4,
    LatticeMesh = 5,
    TensorMesh = 7
};

/// Runs what reads the value of a key; what it throws then names the key.
template <typename Read>
auto AtKey(const char* key, Read read)
{
    try {
        return read();
    } catch (const std::invalid_argument& failure) {
        throw std::invalid_argument(std::string(key) + ": " + failure.what());
    }
}

std::vector<double> NumbersAt(const PdfObject& definition, const char* key, std::size_t count,
                              int decimalShift)
{
    return AtKey(key, [&] { return ReadNumbers(definition.Find(key), count, decimalShift); });
}

std::vector<OrvColor::Component> ComponentsAt(const PdfObject& definition, const char* key, std::size_t count)
{
    NumbersAt(definition, key, count, 0);
    const PdfObject array = definition.Find(key);
    std::vector<OrvColor::Component> components;
    for (const PdfObject& item : array.GetItems()) {
        float component = 0.0F;
        ParseFloat(item.Serialize(), component);
        components.emplace_back(component);
    }
    return components;
}

bool ReadFlag(const PdfObject& flag)
{
    if (!flag.IsBoolean()) {
        throw std::invalid_argument("'" + flag.Serialize().substr(0, 40) + "' is neither true nor false");
    }
    return flag.GetBoolean();
}

Plexa::PointBase<Plexa::MilliPointCoordinateSystem> PointAt(const std::vector<double>& coordinates,
                                                            std::size_t index)
{
    return {coordinates[index], coordinates[index + 1]};
}

SeparationMapping MapSpace(const ColorSpace& space)
{
    if (space.GetFamily() == ColorSpace::Family::Indexed) {
        throw std::invalid_argument("ColorSpace: shadings of indexed colours are not modelled");
    }
    if (space.GetFamily() == ColorSpace::Family::Pattern) {
        throw std::invalid_argument("ColorSpace: a shading has no patterns for colours");
    }
    return OrvPaint::MakeSeparationMapping(space, false);
}

/// What a paint has no fields of its own for.
PdfObject StripDefinition(const PdfObject& definition)
{
    PdfObject::Entries entries = definition.GetEntries();
    for (const char* const key :
         {"ColorSpace", "Background", "BBox", "AntiAlias", ShadingKeys::mapping, ShadingKeys::background}) {
        entries.erase(key);
    }
    const PdfObject dictionary = PdfObject::Dictionary(std::move(entries));
    return definition.IsStream() ? PdfObject::Stream(dictionary, definition.GetRawBytes()) : dictionary;
}

} // namespace

ShadingResource::ShadingResource(const PdfObject& givenDefinition, ColorSpace::Pointer givenSpace)
    : definition(givenDefinition), space(std::move(givenSpace))
{
    const PdfObject typeObject = definition.Find("ShadingType");
    if (!typeObject.IsInteger() || typeObject.GetInteger() < FunctionBased ||
        typeObject.GetInteger() > TensorMesh) {
        throw std::invalid_argument("ShadingType: '" + typeObject.Serialize().substr(0, 40) +
                                    "' is no type of shading");
    }
    type = typeObject.GetInteger();
    ReadCommon();
    constexpr std::size_t axialCoordinates = 4;
    constexpr std::size_t radialCoordinates = 6;
    if (type == FunctionBased) {
        ReadFunction(2);
    } else if (type == Axial) {
        ReadGradient(axialCoordinates);
    } else if (type == Radial) {
        ReadGradient(radialCoordinates);
        if (coordinates[2] < 0.0 || coordinates[5] < 0.0) {
            throw std::invalid_argument("Coords: a radius is below zero");
        }
    } else {
        CheckMesh();
    }
    if (!function) {
        definition = StripDefinition(definition);
    }
}

void ShadingResource::ReadCommon()
{
    const PdfObject ownMapping = definition.Find(ShadingKeys::mapping);
    mapping = MapSpace(*space);
    if (!ownMapping.IsNull()) {
        mapping = ReadMapping(ownMapping);
    }
    const PdfObject ownBackground = definition.Find(ShadingKeys::background);
    if (ownBackground.IsArray()) {
        background = ComponentsAt(definition, ShadingKeys::background, ownBackground.GetItems().size());
    } else if (!definition.Find("Background").IsNull()) {
        background = ComponentsAt(definition, "Background", space->GetComponentCount());
    }
    if (!definition.Find("BBox").IsNull()) {
        using Point = Plexa::PointBase<Plexa::PdfCoordinateSystem>;
        const std::vector<double> corners = NumbersAt(definition, "BBox", 4, 0);
        boundingBox =
            Plexa::RectangleFromCorners(Point(corners[0], corners[1]), Point(corners[2], corners[3]));
        if (!std::isfinite(boundingBox.size.width.value) || !std::isfinite(boundingBox.size.height.value)) {
            throw std::invalid_argument("BBox: it is larger than all numbers");
        }
    }
    const PdfObject smooth = definition.Find("AntiAlias");
    antiAliased = !smooth.IsNull() && AtKey("AntiAlias", [&] { return ReadFlag(smooth); });
}

void ShadingResource::ReadGradient(std::size_t coordinateCount)
{
    coordinates = NumbersAt(definition, "Coords", coordinateCount, 3);
    if (!definition.Find("Domain").IsNull()) {
        const std::vector<double> range = NumbersAt(definition, "Domain", 2, 0);
        parameterRange = {range[0], range[1]};
    }
    const PdfObject extend = definition.Find("Extend");
    if (!extend.IsNull()) {
        AtKey("Extend", [&] {
            if (!extend.IsArray() || extend.GetItems().size() != 2) {
                throw std::invalid_argument("it is no array of two flags");
            }
            extends = {ReadFlag(extend.GetItems()[0]), ReadFlag(extend.GetItems()[1])};
        });
    }
    function = ReadFunction(1);
}

std::shared_ptr<const OrvPaint::Function> ShadingResource::ReadFunction(std::size_t inputs) const
{
    const PdfObject functions = definition.Find("Function");
    return AtKey("Function", [&] {
        if (functions.IsNull()) {
            throw std::invalid_argument("it is missing");
        }
        auto made = OrvPaint::MakeFunctionOfShading(functions);
        const std::size_t outputs = made->GetRange().size();
        if (made->GetDomain().size() != inputs || outputs != space->GetComponentCount()) {
            throw std::invalid_argument("it gives " + std::to_string(outputs) + " numbers for " +
                                        std::to_string(made->GetDomain().size()) + " instead of " +
                                        std::to_string(space->GetComponentCount()) + " for " +
                                        std::to_string(inputs));
        }
        return made;
    });
}

void ShadingResource::CheckMesh() const
{
    if (!definition.IsStream()) {
        throw std::invalid_argument("ShadingType: a mesh that is no stream");
    }
    const bool hasFunction = !definition.Find("Function").IsNull();
    if (hasFunction) {
        ReadFunction(1);
    }
    const auto requireCount = [this](const char* key) {
        const PdfObject count = definition.Find(key);
        if (!count.IsInteger() || count.GetInteger() < 1) {
            throw std::invalid_argument(std::string(key) + ": '" + count.Serialize().substr(0, 40) +
                                        "' is no count");
        }
    };
    requireCount("BitsPerCoordinate");
    requireCount("BitsPerComponent");
    requireCount(type == LatticeMesh ? "VerticesPerRow" : "BitsPerFlag");
    const std::size_t components = hasFunction ? 1 : space->GetComponentCount();
    NumbersAt(definition, "Decode", 4 + 2 * components, 0);
}

ShadingResource::Key ShadingResource::MakeKey(const ShadingUse& use)
{
    const Matrix& matrix = use.transformation;
    const double numbers[] = {matrix.a, matrix.b, matrix.c, matrix.d, matrix.x.value, matrix.y.value};
    Key key{};
    static_assert(sizeof numbers == sizeof(std::uint64_t) * 6,
                  "one number of the key for each of the matrix");
    std::memcpy(key.data(), numbers, sizeof numbers);
    key.back() =
        (use.paintsBackground ? 4U : 0U) + (use.overprint ? 2U : 0U) + (use.nonzeroOverprint ? 1U : 0U);
    return key;
}

std::shared_ptr<const OrvPaint::ShadingPaint> ShadingResource::GetPaint(const ShadingUse& use) const
{
    ShadingUse counted = use;
    // What says nothing must not make two paints of one.
    counted.nonzeroOverprint = use.overprint && use.nonzeroOverprint;
    counted.paintsBackground = use.paintsBackground && background;
    const std::lock_guard<std::mutex> lock(mutex);
    auto& paint = paints[MakeKey(counted)];
    if (!paint) {
        paint = MakePaint(counted);
    }
    return paint;
}

template <typename Factory>
void ShadingResource::SetCommon(Factory& factory, const ShadingUse& use) const
{
    factory.SetTransformation(use.transformation)
        .SetBoundingBox(boundingBox)
        .SetBackground(use.paintsBackground ? background : boost::none)
        .SetNativeSpace(space, use.nonzeroOverprint)
        .SetAntiAliased(antiAliased);
}

std::shared_ptr<const OrvPaint::ShadingPaint> ShadingResource::MakePaint(const ShadingUse& use) const
{
    SeparationMapping separations = mapping;
    separations.overprint = use.overprint;
    if (type == Axial) {
        OrvPaint::AxialShadingPaint::Factory factory(std::move(separations));
        SetCommon(factory, use);
        factory.SetFunction(function).SetExtends(extends).SetParameterRange(parameterRange);
        return factory.SetPoints({PointAt(coordinates, 0), PointAt(coordinates, 2)}).Get();
    }
    if (type == Radial) {
        OrvPaint::RadialShadingPaint::Factory factory(std::move(separations));
        SetCommon(factory, use);
        factory.SetFunction(function).SetExtends(extends).SetParameterRange(parameterRange);
        factory.SetCenters({PointAt(coordinates, 0), PointAt(coordinates, 3)});
        return factory.SetRadii({coordinates[2], coordinates[5]}).Get();
    }
    OrvPaint::WholeShadingPaint::Factory factory(std::move(separations), definition);
    SetCommon(factory, use);
    return factory.Get();
}

} // namespace OrvPdf
