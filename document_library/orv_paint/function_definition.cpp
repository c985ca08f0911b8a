#include <orv_paint/function_definition.h>

#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>
#include <orv_paint/whole_function.h>

#include "orv_paint/definition_numbers.h"
#include "orv_paint/joined_function.h"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvPaint
{

namespace
{

using OrvSys::PdfObject;

// A stitching function that was made with the ends of its domain among its bounds gets them back there.
constexpr const char* OuterBoundsKey = "OrvOuterBounds";

std::array<double, 2> SingleDomain(const PdfObject& definition)
{
    const auto domain = Detail::PairsAt(definition, "Domain");
    if (domain.size() != 1)
        throw std::invalid_argument("A function of type " + definition.Find("FunctionType").Serialize() +
                                    " needs one pair of numbers under Domain.");
    return domain.front();
}

std::vector<OrvColor::Component> ComponentsAt(const PdfObject& definition, const char* key, float byDefault)
{
    if (definition.Find(key).IsNull())
        return {byDefault};
    // A number that no float can hold is the largest one, so that it can be written again.
    constexpr double largest = std::numeric_limits<float>::max();
    std::vector<OrvColor::Component> components;
    for (const double number : Detail::NumbersAt(definition, key))
        components.push_back(static_cast<float>(std::clamp(number, -largest, largest)));
    return components;
}

std::shared_ptr<const Function> MakeExponential(const PdfObject& definition)
{
    const PdfObject exponent = definition.Find("N");
    if (!exponent.IsNumber())
        throw std::invalid_argument("An exponential function has '" + exponent.Serialize().substr(0, 40) +
                                    "' for a number under N.");
    return ExponentialFunction::Factory(ComponentsAt(definition, "C0", 0.0f),
                                        ComponentsAt(definition, "C1", 1.0f), exponent.GetNumber())
        .SetDomain(SingleDomain(definition))
        .SetRange(Detail::PairsAt(definition, "Range"))
        .Get();
}

std::shared_ptr<const Function> MakeStitching(const PdfObject& definition)
{
    const PdfObject parts = definition.Find("Functions");
    if (!parts.IsArray())
        throw std::invalid_argument("A stitching function has no array under Functions.");
    std::vector<std::shared_ptr<const Function>> functions;
    for (const PdfObject& part : parts.GetItems())
        functions.push_back(MakeFunction(part));
    const auto domain = SingleDomain(definition);
    auto bounds = Detail::NumbersAt(definition, "Bounds");
    const PdfObject outer = definition.Find(OuterBoundsKey);
    if (outer.IsBoolean() && outer.GetBoolean()) {
        bounds.insert(bounds.begin(), domain[0]);
        bounds.push_back(domain[1]);
    }
    return StitchingFunction::Factory(std::move(functions), std::move(bounds))
        .SetEncode(Detail::PairsAt(definition, "Encode"))
        .SetDomain(domain)
        .SetRange(Detail::PairsAt(definition, "Range"))
        .Get();
}

PdfObject::Entries Frame(const Function& function, std::int64_t type)
{
    PdfObject::Entries entries = {{"FunctionType", PdfObject::Integer(type)},
                                  {"Domain", Detail::PairArray(function.GetDomain())}};
    if (function.HasRange())
        entries["Range"] = Detail::PairArray(function.GetRange());
    return entries;
}

PdfObject Define(const ExponentialFunction& function)
{
    PdfObject::Entries entries = Frame(function, 2);
    entries["C0"] = Detail::ComponentArray(function.GetC0());
    entries["C1"] = Detail::ComponentArray(function.GetC1());
    entries["N"] = PdfObject::Real(function.GetN());
    return PdfObject::Dictionary(std::move(entries));
}

PdfObject Define(const StitchingFunction& function)
{
    PdfObject::Entries entries = Frame(function, 3);
    PdfObject::Items parts;
    for (const auto& part : function.GetFunctions())
        parts.push_back(GetFunctionDefinition(*part));
    entries["Functions"] = PdfObject::Array(std::move(parts));
    entries["Bounds"] = Detail::NumberArray(function.GetInnerBounds());
    entries["Encode"] = Detail::PairArray(function.GetEncode());
    if (function.HasOuterBounds())
        entries[OuterBoundsKey] = PdfObject::Boolean(true);
    return PdfObject::Dictionary(std::move(entries));
}

} // namespace

std::shared_ptr<const Function> MakeFunction(const PdfObject& definition)
{
    const PdfObject type = definition.Find("FunctionType");
    if (type.IsInteger() && type.GetInteger() == 2)
        return MakeExponential(definition);
    if (type.IsInteger() && type.GetInteger() == 3)
        return MakeStitching(definition);
    if (type.IsInteger() && (type.GetInteger() == 0 || type.GetInteger() == 4))
        return WholeFunction::Make(definition);
    throw std::invalid_argument("A function has the unknown type '" + type.Serialize().substr(0, 40) + "'.");
}

std::shared_ptr<const Function> MakeFunctionOfShading(const PdfObject& definition)
{
    if (!definition.IsArray())
        return MakeFunction(definition);
    std::vector<std::shared_ptr<const Function>> functions;
    for (const PdfObject& item : definition.GetItems())
        functions.push_back(MakeFunction(item));
    if (const auto joined = Detail::JoinFunctions(functions))
        return joined;
    return WholeFunction::Make(definition);
}

PdfObject GetFunctionDefinition(const Function& function)
{
    switch (function.GetType()) {
    case Function::Type::Exponential:
        return Define(static_cast<const ExponentialFunction&>(function));
    case Function::Type::Stitching:
        return Define(static_cast<const StitchingFunction&>(function));
    case Function::Type::Whole:
        break;
    }
    return static_cast<const WholeFunction&>(function).GetDefinition();
}

} // namespace OrvPaint
