#include <orv_paint/whole_function.h>

#include <orv_paint/function_definition.h>

#include "orv_paint/definition_numbers.h"
#include "orv_paint/function_text.h"
#include "orv_paint/joined_function.h"
#include "orv_paint/zero_component.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace OrvPaint
{

using OrvSys::PdfObject;
using Pairs = std::vector<std::array<double, 2>>;

namespace
{

/// Where all the functions are defined.
Pairs GetCommonDomain(const std::vector<std::shared_ptr<const Function>>& functions)
{
    Pairs common = functions.front()->GetDomain();
    for (const auto& function : functions) {
        const Pairs& domain = function->GetDomain();
        if (domain.size() != common.size())
            throw std::invalid_argument("The functions of an array differ in their number of inputs.");
        for (std::size_t input = 0; input < common.size(); ++input) {
            common[input][0] = std::max(common[input][0], domain[input][0]);
            common[input][1] = std::min(common[input][1], domain[input][1]);
        }
    }
    return common;
}

} // namespace

std::shared_ptr<const WholeFunction> WholeFunction::Make(const PdfObject& definition)
{
    if (definition.IsArray())
        return MakeOfArray(definition);
    const auto type = definition.Find("FunctionType");
    if (!type.IsInteger() || (type.GetInteger() != 0 && type.GetInteger() != 4))
        throw std::invalid_argument("A function of type '" + type.Serialize().substr(0, 40) +
                                    "' is not kept whole.");
    if (!definition.IsStream())
        throw std::invalid_argument("A function of type " + type.Serialize() + " needs a stream.");
    auto domain = Detail::PairsAt(definition, "Domain");
    auto range = Detail::PairsAt(definition, "Range");
    if (domain.empty() || range.empty())
        throw std::invalid_argument("A function of type " + type.Serialize() + " needs Domain and Range.");
    return std::shared_ptr<const WholeFunction>(
        new WholeFunction(definition, std::move(domain), std::move(range), {}));
}

std::shared_ptr<const WholeFunction> WholeFunction::MakeOfArray(const PdfObject& definition)
{
    Parts functions;
    Pairs range;
    bool hasRange = false;
    for (const PdfObject& item : definition.GetItems()) {
        functions.push_back(MakeFunction(item));
        const Function& function = *functions.back();
        if (function.GetRange().size() != 1)
            throw std::invalid_argument("A function of an array has " +
                                        std::to_string(function.GetRange().size()) +
                                        " outputs instead of one.");
        range.push_back(function.GetRange().front());
        hasRange = hasRange || function.HasRange();
    }
    if (functions.empty())
        throw std::invalid_argument("An array of functions is empty.");
    if (Detail::JoinFunctions(functions))
        throw std::invalid_argument("An array of functions that are one is not kept whole.");
    auto domain = GetCommonDomain(functions);
    if (!hasRange)
        range.clear();
    return std::shared_ptr<const WholeFunction>(
        new WholeFunction(definition, std::move(domain), std::move(range), std::move(functions)));
}

std::size_t WholeFunction::GetDepthOf(const Parts& parts)
{
    std::size_t depth = 0;
    for (const auto& part : parts)
        depth = std::max(depth, part->GetDepth() + 1);
    return depth;
}

WholeFunction::WholeFunction(const PdfObject& givenDefinition, Pairs givenDomain, Pairs givenRange,
                             Parts givenParts)
    : Function(Type::Whole, std::move(givenDomain), givenRange,
               givenParts.empty() ? givenRange.size() : givenParts.size(), GetDepthOf(givenParts)),
      definition(givenDefinition),
      parts(std::move(givenParts))
{}

WholeFunction::~WholeFunction() = default;

void WholeFunction::Print(std::ostream& stream) const
{
    if (!parts.empty()) {
        stream << "Array(";
        const char* separator = "";
        for (const auto& part : parts) {
            stream << separator << *part;
            separator = ", ";
        }
        stream << ')';
        return;
    }
    stream << (definition.Find("FunctionType").GetInteger() == 0 ? "Sampled(" : "Calculator(");
    Detail::PrintFrame(stream, *this);
    stream << ", " << definition.GetRawBytes().size() << " bytes " << definition.GetDigestText() << ')';
}

bool WholeFunction::IsZero(std::size_t component) const
{
    if (component >= GetRange().size())
        return true;
    if (!parts.empty())
        return parts[component]->IsZero(0);
    return Detail::IsZeroInRange(*this, component, false);
}

} // namespace OrvPaint
