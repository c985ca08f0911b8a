#include "pdf/reader/resources/geometry_reader.h"

#include "pdf/number_text.h"
#include "pdf/reader/file/qpdf_text.h"

namespace OrvPdf
{

namespace
{

constexpr int pointToMilliPoint = 3;

/// Reads as many numbers as the array has to have, each with its decimal exponent raised.
bool ReadNumbers(QPDFObjectHandle array, const char* key, const std::vector<int>& exponents,
                 std::vector<double>& numbers, std::vector<std::string>& problems)
{
    const std::string count = exponents.size() == 4 ? "four" : "six";
    if (!array.isArray()) {
        problems.push_back(std::string(key) + " is no array of " + count + " numbers");
        return false;
    }
    if (static_cast<std::size_t>(array.getArrayNItems()) != exponents.size()) {
        problems.push_back(std::string(key) + " has " + std::to_string(array.getArrayNItems()) +
                           " entries and not " + count);
        return false;
    }
    numbers.resize(exponents.size());
    for (std::size_t index = 0; index < exponents.size(); ++index) {
        std::string text;
        if (!GetNumberText(array.getArrayItem(static_cast<int>(index)), text) ||
            !ParseNumber(text, exponents[index], numbers[index])) {
            problems.push_back("entry " + std::to_string(index + 1) + " of " + key + " is no number");
            return false;
        }
    }
    return true;
}

bool IsAbsent(QPDFObjectHandle object)
{
    return !object.isInitialized() || object.isNull();
}

} // namespace

Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> ReadRectangle(QPDFObjectHandle array, const char* key,
                                                                      std::vector<std::string>& problems)
{
    std::vector<double> numbers;
    if (IsAbsent(array) ||
        !ReadNumbers(array, key, std::vector<int>(4, pointToMilliPoint), numbers, problems)) {
        return {};
    }
    return Plexa::RectangleFromCorners<Plexa::MilliPointCoordinateSystem>({numbers[0], numbers[1]},
                                                                          {numbers[2], numbers[3]});
}

Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>
ReadMatrix(QPDFObjectHandle array, const char* key, std::vector<std::string>& problems)
{
    std::vector<double> numbers;
    if (IsAbsent(array) ||
        !ReadNumbers(array, key, {0, 0, 0, 0, pointToMilliPoint, pointToMilliPoint}, numbers, problems)) {
        return {};
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]};
}

} // namespace OrvPdf
