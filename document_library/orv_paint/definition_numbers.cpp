#include "orv_paint/definition_numbers.h"

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string>
#include <utility>

namespace OrvPaint::Detail
{

using OrvSys::PdfObject;

std::vector<double> NumbersAt(const PdfObject& definition, const char* key)
{
    const PdfObject array = definition.Find(key);
    std::vector<double> numbers;
    if (array.IsNull())
        return numbers;
    if (!array.IsArray())
        throw std::invalid_argument(std::string("A function has no array under ") + key + ".");
    for (const PdfObject& item : array.GetItems()) {
        if (!item.IsNumber())
            throw std::invalid_argument("A function has '" + item.Serialize().substr(0, 40) +
                                        "' for a number under " + key + ".");
        numbers.push_back(item.GetNumber());
    }
    return numbers;
}

std::vector<std::array<double, 2>> PairsAt(const PdfObject& definition, const char* key)
{
    const std::vector<double> numbers = NumbersAt(definition, key);
    if (numbers.size() % 2 != 0)
        throw std::invalid_argument(std::string("A function has an odd count of numbers under ") + key + ".");
    std::vector<std::array<double, 2>> pairs;
    for (std::size_t index = 0; index < numbers.size(); index += 2)
        pairs.push_back({numbers[index], numbers[index + 1]});
    return pairs;
}

PdfObject NumberArray(const std::vector<double>& numbers)
{
    PdfObject::Items items;
    for (const double number : numbers)
        items.push_back(PdfObject::Real(number));
    return PdfObject::Array(std::move(items));
}

PdfObject PairArray(const std::vector<std::array<double, 2>>& pairs)
{
    std::vector<double> numbers;
    for (const auto& pair : pairs)
        numbers.insert(numbers.end(), pair.begin(), pair.end());
    return NumberArray(numbers);
}

PdfObject ComponentArray(const std::vector<OrvColor::Component>& components)
{
    PdfObject::Items items;
    for (const float component : components) {
        if (!std::isfinite(component))
            throw std::invalid_argument("A function has a component that is not finite.");
        std::array<char, 128> buffer;
        const auto end =
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), component, std::chars_format::fixed)
                .ptr;
        items.push_back(PdfObject::Real(std::string(buffer.data(), end)));
    }
    return PdfObject::Array(std::move(items));
}

} // namespace OrvPaint::Detail
