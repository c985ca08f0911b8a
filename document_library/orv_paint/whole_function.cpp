#include <orv_paint/whole_function.h>

#include "orv_paint/definition_numbers.h"
#include "orv_paint/function_text.h"

#include <stdexcept>
#include <utility>

namespace OrvPaint
{

std::shared_ptr<const WholeFunction> WholeFunction::Make(const OrvSys::PdfObject& definition)
{
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
        new WholeFunction(definition, std::move(domain), std::move(range)));
}

WholeFunction::WholeFunction(const OrvSys::PdfObject& givenDefinition,
                             std::vector<std::array<double, 2>> givenDomain,
                             std::vector<std::array<double, 2>> givenRange)
    : Function(Type::Whole, std::move(givenDomain), givenRange, givenRange.size(), 0),
      definition(givenDefinition)
{}

WholeFunction::~WholeFunction() = default;

void WholeFunction::Print(std::ostream& stream) const
{
    stream << (definition.Find("FunctionType").GetInteger() == 0 ? "Sampled(" : "Calculator(");
    Detail::PrintFrame(stream, *this);
    stream << ", " << definition.GetRawBytes().size() << " bytes " << definition.GetDigestText() << ')';
}

bool WholeFunction::IsZero(std::size_t component) const
{
    if (component >= GetRange().size())
        return true;
    return GetRange()[component][0] == 0.0 && GetRange()[component][1] == 0.0;
}

} // namespace OrvPaint
