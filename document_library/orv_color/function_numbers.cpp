#include "orv_color/function_numbers.h"

namespace OrvColor::Detail
{

boost::optional<std::vector<double>> ReadNumbers(const OrvSys::PdfObject& array)
{
    if (!array.IsArray())
        return boost::none;
    std::vector<double> numbers;
    for (const auto& item : array.GetItems()) {
        if (!item.IsNumber())
            return boost::none;
        numbers.push_back(item.GetNumber());
    }
    return numbers;
}

boost::optional<Pairs> ReadPairs(const OrvSys::PdfObject& array)
{
    const auto numbers = ReadNumbers(array);
    if (!numbers || numbers->size() % 2 != 0)
        return boost::none;
    Pairs pairs;
    for (std::size_t index = 0; index < numbers->size(); index += 2)
        pairs.push_back({(*numbers)[index], (*numbers)[index + 1]});
    return pairs;
}

double ClampTo(double number, const std::array<double, 2>& range)
{
    if (!(number > range[0]))
        return range[0];
    return number > range[1] ? range[1] : number;
}

double Interpolate(double number, const std::array<double, 2>& from, const std::array<double, 2>& to)
{
    if (!(from[1] != from[0]))
        return to[0];
    return to[0] + (number - from[0]) * (to[1] - to[0]) / (from[1] - from[0]);
}

} // namespace OrvColor::Detail
