#include <orv_paint/stitching_function.h>

#include "orv_paint/function_text.h"
#include "orv_paint/zero_component.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvPaint
{

namespace
{

void CheckParts(const std::vector<std::shared_ptr<const Function>>& functions)
{
    if (functions.empty())
        throw std::invalid_argument("A stitching function needs at least one part.");
    for (const auto& function : functions) {
        if (!function)
            throw std::invalid_argument("A part of a stitching function is null.");
        if (function->GetDomain().size() != 1)
            throw std::invalid_argument("A part of a stitching function has " +
                                        std::to_string(function->GetDomain().size()) +
                                        " inputs instead of one.");
        if (function->GetRange().size() != functions.front()->GetRange().size())
            throw std::invalid_argument(
                "The parts of a stitching function differ in their number of outputs.");
    }
}

} // namespace

StitchingFunction::StitchingFunction(const Factory& factory)
    : Function(Type::Stitching, {factory.GetEffectiveDomain()}, factory.range,
               factory.functions.front()->GetRange().size(), factory.GetPartsDepth() + 1),
      functions(factory.functions),
      bounds(factory.bounds),
      encode(factory.encode)
{
    if (encode.empty())
        encode.assign(functions.size(), {0.0, 1.0});
}

StitchingFunction::~StitchingFunction() = default;

void StitchingFunction::Print(std::ostream& stream) const
{
    stream << "Stitching(";
    Detail::PrintFrame(stream, *this);
    stream << ", Bounds [";
    const char* separator = "";
    for (const double bound : bounds) {
        stream << separator << bound;
        separator = " ";
    }
    stream << "], Encode ";
    Detail::PrintPairs(stream, encode);
    for (const auto& function : functions)
        stream << ", " << *function;
    stream << ')';
}

bool StitchingFunction::IsZero(std::size_t component) const
{
    if (component >= GetRange().size())
        return true;
    const bool areZero = std::all_of(functions.begin(), functions.end(), [component](const auto& function) {
        return function->IsZero(component);
    });
    return Detail::IsZeroInRange(*this, component, areZero);
}

std::vector<double> StitchingFunction::GetInnerBounds() const
{
    if (HasOuterBounds())
        return std::vector<double>(bounds.begin() + 1, bounds.end() - 1);
    return bounds;
}

StitchingFunction::Factory::Factory(std::vector<std::shared_ptr<const Function>> givenFunctions,
                                    std::vector<double> givenBounds)
    : functions(std::move(givenFunctions)), bounds(std::move(givenBounds))
{}

StitchingFunction::Factory&
StitchingFunction::Factory::SetEncode(std::vector<std::array<double, 2>> newEncode)
{
    encode = std::move(newEncode);
    return *this;
}

StitchingFunction::Factory& StitchingFunction::Factory::SetDomain(const std::array<double, 2>& newDomain)
{
    domain = newDomain;
    return *this;
}

StitchingFunction::Factory& StitchingFunction::Factory::SetRange(std::vector<std::array<double, 2>> newRange)
{
    range = std::move(newRange);
    return *this;
}

std::array<double, 2> StitchingFunction::Factory::GetEffectiveDomain() const
{
    if (bounds.size() > functions.size())
        return {bounds.front(), bounds.back()};
    return domain;
}

std::size_t StitchingFunction::Factory::GetPartsDepth() const
{
    std::size_t depth = 0;
    for (const auto& function : functions)
        depth = std::max(depth, function->GetDepth());
    return depth;
}

std::shared_ptr<const StitchingFunction> StitchingFunction::Factory::Get() const
{
    CheckParts(functions);
    if (bounds.size() + 1 != functions.size() && bounds.size() != functions.size() + 1)
        throw std::invalid_argument("A stitching function of " + std::to_string(functions.size()) +
                                    " parts has " + std::to_string(bounds.size()) + " bounds.");
    if (!encode.empty() && encode.size() != functions.size())
        throw std::invalid_argument("A stitching function of " + std::to_string(functions.size()) +
                                    " parts encodes " + std::to_string(encode.size()) + ".");
    return std::shared_ptr<const StitchingFunction>(new StitchingFunction(*this));
}

} // namespace OrvPaint
