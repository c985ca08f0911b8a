#include "orv_color/tint_transform.h"

#include "orv_color/calculator.h"
#include "orv_color/calculator_program.h"
#include "orv_color/function_numbers.h"
#include "orv_color/sampled_function.h"
#include "orv_sys/stream_bytes.h"

#include <cmath>

namespace OrvColor::Detail
{

namespace
{

using OrvSys::PdfObject;
using Values = boost::optional<std::vector<double>>;

Values EvaluateExponential(const PdfObject& function, double input)
{
    const auto c0 =
        function.Find("C0").IsNull() ? std::vector<double>{0.0} : ReadNumbers(function.Find("C0"));
    const auto c1 =
        function.Find("C1").IsNull() ? std::vector<double>{1.0} : ReadNumbers(function.Find("C1"));
    const PdfObject exponent = function.Find("N");
    if (!c0 || !c1 || c0->size() != c1->size() || !exponent.IsNumber())
        return boost::none;
    const double power = std::pow(input, exponent.GetNumber());
    std::vector<double> values;
    for (std::size_t index = 0; index < c0->size(); ++index)
        values.push_back((*c0)[index] + power * ((*c1)[index] - (*c0)[index]));
    return values;
}

Values EvaluateStitching(const PdfObject& function, double input, const std::array<double, 2>& domain)
{
    const PdfObject parts = function.Find("Functions");
    const auto bounds = ReadNumbers(function.Find("Bounds"));
    const auto encode = ReadPairs(function.Find("Encode"));
    if (!parts.IsArray() || parts.GetItems().empty() || !bounds || !encode ||
        bounds->size() + 1 != parts.GetItems().size() || encode->size() != parts.GetItems().size())
        return boost::none;
    std::size_t part = 0;
    while (part < bounds->size() && !(input < (*bounds)[part]))
        ++part;
    const std::array<double, 2> share = {part == 0 ? domain[0] : (*bounds)[part - 1],
                                         part == bounds->size() ? domain[1] : (*bounds)[part]};
    return EvaluateFunction(parts.GetItems()[part], {Interpolate(input, share, (*encode)[part])});
}

Values EvaluateCalculator(const PdfObject& function, const std::vector<double>& inputs)
{
    const auto program = OrvSys::Detail::DecodeSmallStream(function, MaxCalculatorBytes);
    if (!program)
        return boost::none;
    return RunCalculator(*program, inputs);
}

Values EvaluateByType(const PdfObject& function, const std::vector<double>& inputs, const Pairs& domain,
                      const boost::optional<Pairs>& range)
{
    const PdfObject type = function.Find("FunctionType");
    if (!type.IsInteger())
        return boost::none;
    switch (type.GetInteger()) {
    case 0:
        return range ? EvaluateSamples(function, inputs, domain, *range) : boost::none;
    case 2:
        return inputs.size() == 1 ? EvaluateExponential(function, inputs[0]) : boost::none;
    case 3:
        return inputs.size() == 1 ? EvaluateStitching(function, inputs[0], domain[0]) : boost::none;
    case 4:
        return range ? EvaluateCalculator(function, inputs) : boost::none;
    default:
        return boost::none;
    }
}

} // namespace

Values EvaluateFunction(const PdfObject& function, std::vector<double> inputs)
{
    const auto domain = ReadPairs(function.Find("Domain"));
    if (!domain || domain->size() != inputs.size())
        return boost::none;
    for (std::size_t index = 0; index < inputs.size(); ++index)
        inputs[index] = ClampTo(inputs[index], (*domain)[index]);
    const auto range = ReadPairs(function.Find("Range"));
    auto values = EvaluateByType(function, inputs, *domain, range);
    if (!values || (range && range->size() != values->size()))
        return boost::none;
    for (std::size_t index = 0; index < values->size(); ++index) {
        double& value = (*values)[index];
        if (range)
            value = ClampTo(value, (*range)[index]);
        if (!std::isfinite(value))
            return boost::none;
    }
    return values;
}

} // namespace OrvColor::Detail
