#include "support/random_shadings.h"

#include "support/random_objects.h"

#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/function_definition.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/stitching_function.h>
#include <orv_paint/whole_shading_paint.h>

#include <algorithm>
#include <sstream>
#include <tuple>
#include <utility>
#include <vector>

namespace HarrowSupport::Testing
{

namespace
{

using OrvColor::ColorSpace;
using OrvPaint::ExponentialFunction;
using OrvPaint::Function;
using OrvPaint::StitchingFunction;
using OrvSys::PdfObject;
using Mapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;
using Random = std::mt19937;

PdfObject UnitPairs(std::size_t count)
{
    PdfObject::Items items;
    for (std::size_t i = 0; i < count; ++i) {
        items.push_back(PdfObject::Integer(0));
        items.push_back(PdfObject::Integer(1));
    }
    return PdfObject::Array(std::move(items));
}

std::string RandomBytes(Random& random, std::size_t count)
{
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) {
        bytes += static_cast<char>(random() % 256);
    }
    return bytes;
}

double RandomFraction(Random& random)
{
    return static_cast<double>(random() % 1000 + 1) / 1009.0;
}

std::vector<OrvColor::Component> RandomComponents(Random& random, std::size_t count)
{
    std::vector<OrvColor::Component> components;
    for (std::size_t i = 0; i < count; ++i) {
        components.push_back(RandomTint(random));
    }
    return components;
}

std::shared_ptr<const Function> RandomExponential(Random& random, std::size_t outputs)
{
    static const std::vector<double> exponents = {1.0, 2.0, 0.5, 1.0 / 3.0};
    auto start = RandomComponents(random, outputs);
    ExponentialFunction::Factory factory(std::move(start), RandomComponents(random, outputs),
                                         exponents[random() % exponents.size()]);
    if (random() % 4 == 0) {
        factory.SetDomain({RandomFraction(random), 1.0 + RandomFraction(random)});
    }
    if (random() % 4 == 0) {
        factory.SetRange(std::vector<std::array<double, 2>>(outputs, {0.0, RandomFraction(random)}));
    }
    return factory.Get();
}

std::shared_ptr<const Function> RandomCalculator(Random& random, std::size_t inputs, std::size_t outputs)
{
    std::string program = "{";
    for (std::size_t i = 0; i < inputs; ++i) {
        program += " pop";
    }
    for (std::size_t i = 0; i < outputs; ++i) {
        program += " 0." + std::to_string(random() % 10);
    }
    return OrvPaint::MakeFunction(
        PdfObject::Stream(PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)},
                                                 {"Domain", UnitPairs(inputs)},
                                                 {"Range", UnitPairs(outputs)}}),
                          program + " }"));
}

std::shared_ptr<const Function> RandomSampled(Random& random, std::size_t inputs, std::size_t outputs)
{
    const std::size_t samples = 2;
    std::size_t bytes = outputs;
    PdfObject::Items sizes;
    for (std::size_t i = 0; i < inputs; ++i) {
        sizes.push_back(PdfObject::Integer(static_cast<std::int64_t>(samples)));
        bytes *= samples;
    }
    return OrvPaint::MakeFunction(
        PdfObject::Stream(PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(0)},
                                                 {"Domain", UnitPairs(inputs)},
                                                 {"Range", UnitPairs(outputs)},
                                                 {"Size", PdfObject::Array(std::move(sizes))},
                                                 {"BitsPerSample", PdfObject::Integer(8)}}),
                          RandomBytes(random, bytes)));
}

std::shared_ptr<const Function> RandomStitching(Random& random, std::size_t outputs)
{
    const std::size_t count = 1 + random() % 3;
    std::vector<std::shared_ptr<const Function>> parts;
    std::vector<double> bounds;
    std::vector<std::array<double, 2>> encode;
    for (std::size_t part = 0; part < count; ++part) {
        parts.push_back(random() % 4 == 0 ? RandomStitching(random, outputs)
                                          : RandomExponential(random, outputs));
        encode.push_back(random() % 2 == 0 ? std::array<double, 2>{0.0, 1.0}
                                           : std::array<double, 2>{1.0, 0.0});
        if (part > 0) {
            bounds.push_back(static_cast<double>(part) / static_cast<double>(count));
        }
    }
    const bool hasOuterBounds = random() % 3 == 0;
    if (hasOuterBounds) {
        bounds.insert(bounds.begin(), 0.0);
        bounds.push_back(1.0);
    }
    return StitchingFunction::Factory(std::move(parts), std::move(bounds)).SetEncode(std::move(encode)).Get();
}

std::shared_ptr<const Function> RandomArray(Random& random, std::size_t inputs, std::size_t outputs)
{
    PdfObject::Items functions;
    for (std::size_t output = 0; output < outputs; ++output) {
        functions.push_back(OrvPaint::GetFunctionDefinition(*RandomFunction(random, inputs, 1)));
    }
    return OrvPaint::MakeFunctionOfShading(PdfObject::Array(std::move(functions)));
}

/// A list with a place for each of some components, and the number of these.
std::pair<Mapping, std::size_t> RandomList(Random& random)
{
    static const std::vector<std::vector<std::pair<const char*, std::size_t>>> lists = {
        {{"Cyan", 0}, {"Magenta", 1}, {"Yellow", 2}, {"Black", 3}},
        {{"Gold", 0}},
        {{"Cyan", 0}, {"Gold", 1}},
        {{"Gold", 1}, {"Cyan", 0}},
        {{"Magenta", 1}, {"Cyan", 0}, {"Yellow", 2}, {"Black", 3}},
        {{"Gold", 2}, {"Silver", 0}},
        {{"Gold", 0}, {"Silver", 0}},
        {{"Gold", 0}, {"Gold", 1}},
        {{"Gold", 0}, {"Silver", OrvColor::SeparationMappingPolicy::Default()}},
        {{"Gold", 1}, {"Silver", 7}},
        {{"A name (with) <odd> bytes \xC3\xA9 #/%", 0}, {"Black", 1}},
        {}};
    Mapping mapping;
    std::size_t components = 1;
    for (const auto& [name, index] : lists[random() % lists.size()]) {
        mapping.Add(name, index);
        components = index < 4 ? std::max(components, index + 1) : components;
    }
    if (random() % 8 == 0) {
        mapping = {};
        mapping.all = true;
        mapping.valueForAll = 0;
        components = 1;
    }
    mapping.overprint = random() % 3 == 0;
    return {mapping, components};
}

PdfObject RandomWholeDefinition(Random& random, std::size_t components)
{
    const std::int64_t types[] = {1, 4, 5, 6, 7};
    const std::int64_t type = types[random() % 5];
    PdfObject::Entries entries = {{"ShadingType", PdfObject::Integer(type)}};
    if (type == 1) {
        entries["Function"] = OrvPaint::GetFunctionDefinition(*RandomFunction(random, 2, components));
        if (random() % 2 == 0) {
            entries["Matrix"] = PdfObject::Array(
                {PdfObject::Integer(2), PdfObject::Integer(0), PdfObject::Integer(0), PdfObject::Real(2.5),
                 PdfObject::Integer(0), PdfObject::Real(RandomFraction(random))});
        }
        return PdfObject::Dictionary(std::move(entries));
    }
    const bool hasFunction = random() % 2 == 0;
    if (hasFunction) {
        entries["Function"] = OrvPaint::GetFunctionDefinition(*RandomFunction(random, 1, components));
    }
    entries["BitsPerCoordinate"] = PdfObject::Integer(8);
    entries["BitsPerComponent"] = PdfObject::Integer(8);
    entries[type == 5 ? "VerticesPerRow" : "BitsPerFlag"] = PdfObject::Integer(type == 5 ? 2 : 8);
    entries["Decode"] = UnitPairs(2 + (hasFunction ? 1 : components));
    return PdfObject::Stream(PdfObject::Dictionary(std::move(entries)), RandomBytes(random, random() % 100));
}

/// Where the colours come from.
struct Colors
{
    Mapping mapping;
    ColorSpace::Pointer space;
    std::size_t components = 0;
    bool nonzeroOverprint = false;
};

template <typename Factory>
void SetRandomCommon(Factory& factory, Random& random, const Colors& colors)
{
    factory.SetTransformation(RandomMatrix(random)).SetAntiAliased(random() % 4 == 0);
    if (colors.space) {
        factory.SetNativeSpace(colors.space, colors.nonzeroOverprint);
    }
    if (random() % 3 == 0) {
        factory.SetBackground(RandomComponents(random, random() % 8 == 0 ? 9 : colors.components));
    }
    if (random() % 3 == 0) {
        // Eighths, so that the far corner is as exact as the extent.
        const auto eighths = [&random](std::size_t most) {
            return static_cast<double>(random() % most) / 8.0;
        };
        const double x = eighths(1000) - 50.0;
        const double y = eighths(1000) - 50.0;
        const double width = eighths(1000);
        factory.SetBoundingBox({x, y, width, eighths(1000)});
    }
}

Plexa::PointBase<Plexa::MilliPointCoordinateSystem> RandomPlace(Random& random)
{
    const double x = RandomCoordinate(random);
    return {x, RandomCoordinate(random)};
}

template <typename Factory>
void SetRandomGradient(Factory& factory, Random& random, const Colors& colors)
{
    SetRandomCommon(factory, random, colors);
    factory.SetFunction(RandomFunction(random, 1, colors.components));
    const bool goesOnBefore = random() % 2 == 0;
    factory.SetExtends({goesOnBefore, random() % 2 == 0});
    if (random() % 4 == 0) {
        factory.SetParameterRange({RandomFraction(random), RandomFraction(random)});
    }
}

} // namespace

std::shared_ptr<const Function> RandomFunction(Random& random, std::size_t inputs, std::size_t outputs)
{
    switch (random() % (inputs == 1 ? 6 : 3)) {
    case 0:
        return RandomSampled(random, inputs, outputs);
    case 1:
        return RandomCalculator(random, inputs, outputs);
    case 2:
        return outputs > 1 ? RandomArray(random, inputs, outputs) : RandomSampled(random, inputs, outputs);
    case 3:
        return RandomStitching(random, outputs);
    default:
        return RandomExponential(random, outputs);
    }
}

std::shared_ptr<const OrvPaint::ShadingPaint> RandomShading(Random& random)
{
    Colors colors;
    if (random() % 2 == 0) {
        std::tie(colors.mapping, colors.components) = RandomList(random);
    } else {
        colors.space = RandomSpace(random);
        colors.components = colors.space->GetComponentCount();
        colors.mapping = OrvPaint::MakeSeparationMapping(*colors.space, random() % 3 == 0);
        colors.nonzeroOverprint = colors.mapping.overprint && random() % 2 == 0;
    }
    switch (random() % 3) {
    case 0: {
        OrvPaint::AxialShadingPaint::Factory factory(colors.mapping);
        SetRandomGradient(factory, random, colors);
        const auto start = RandomPlace(random);
        return factory.SetPoints({start, RandomPlace(random)}).Get();
    }
    case 1: {
        OrvPaint::RadialShadingPaint::Factory factory(colors.mapping);
        SetRandomGradient(factory, random, colors);
        const auto start = RandomPlace(random);
        factory.SetCenters({start, RandomPlace(random)});
        return factory.SetRadii({static_cast<double>(random() % 100000) / 7.0, 1000.0}).Get();
    }
    default: {
        OrvPaint::WholeShadingPaint::Factory factory(colors.mapping,
                                                     RandomWholeDefinition(random, colors.components));
        SetRandomCommon(factory, random, colors);
        return factory.Get();
    }
    }
}

std::string DescribeShading(const OrvPaint::ShadingPaint& shading)
{
    std::ostringstream text;
    text << std::hexfloat << shading.GetType();
    const auto& matrix = shading.GetTransformation();
    text << " matrix";
    for (const double number : {matrix.a, matrix.b, matrix.c, matrix.d, matrix.x.value, matrix.y.value}) {
        // Both zeros are the same place.
        text << ' ' << number + 0.0;
    }
    const auto& box = shading.GetBoundingBox();
    if (!box.isInitial) {
        text << " box " << box.origin.x.value << ' ' << box.origin.y.value << ' ' << box.size.width.value
             << ' ' << box.size.height.value;
    }
    const Mapping& mapping = shading.GetSeparationMapping();
    text << " mapping " << mapping.overprint << mapping.all << ' ' << mapping.valueForAll;
    for (const auto& entry : mapping.entries) {
        text << " (" << entry.name << ") " << entry.value;
    }
    if (shading.GetBackground()) {
        text << " background " << *shading.GetBackground();
    }
    text << (shading.IsNonzeroOverprint() ? " nonzero" : "") << (shading.IsAntiAliased() ? " smooth" : "");
    const auto addGradient = [&text](const auto& gradient) {
        text << " extends " << gradient.GetExtends().first << gradient.GetExtends().second << " range "
             << gradient.GetParameterRange()[0] << ' ' << gradient.GetParameterRange()[1] << " function "
             << *gradient.GetFunction();
    };
    const auto addPlaces = [&text](const auto& places) {
        for (const auto& place : {places.first, places.second}) {
            text << " at " << place.x.value + 0.0 << ' ' << place.y.value + 0.0;
        }
    };
    if (shading.GetType() == OrvPaint::Paint::Type::AxialShading) {
        const auto& axial = static_cast<const OrvPaint::AxialShadingPaint&>(shading);
        addPlaces(axial.GetPoints());
        addGradient(axial);
    } else if (shading.GetType() == OrvPaint::Paint::Type::RadialShading) {
        const auto& radial = static_cast<const OrvPaint::RadialShadingPaint&>(shading);
        addPlaces(radial.GetCenters());
        text << " radii " << radial.GetRadii().first.value << ' ' << radial.GetRadii().second.value;
        addGradient(radial);
    } else {
        text << ' '
             << static_cast<const OrvPaint::WholeShadingPaint&>(shading).GetDefinition().GetDigestText();
    }
    return text.str();
}

} // namespace HarrowSupport::Testing
