#include "pdf/reader/resources/object_numbers.h"

#include <stdexcept>
#include <string>

#include "pdf/number_text.h"

namespace OrvPdf
{

std::vector<double> ReadNumbers(const OrvSys::PdfObject& array, std::size_t count, int decimalShift)
{
    if (!array.IsArray() || array.GetItems().size() != count) {
        throw std::invalid_argument("it is no array of " + std::to_string(count) + " numbers");
    }
    std::vector<double> numbers;
    for (const OrvSys::PdfObject& item : array.GetItems()) {
        double number = 0.0;
        if (!item.IsNumber() || !ParseNumber(item.Serialize(), decimalShift, number)) {
            throw std::invalid_argument("'" + item.Serialize().substr(0, 40) + "' is no number");
        }
        numbers.push_back(number);
    }
    return numbers;
}

Matrix ReadMatrix(const OrvSys::PdfObject& array)
{
    if (array.IsNull()) {
        return Matrix();
    }
    constexpr std::size_t count = 6;
    const std::vector<double> plain = ReadNumbers(array, count, 0);
    const std::vector<double> lengths = ReadNumbers(array, count, 3);
    return Matrix(plain[0], plain[1], plain[2], plain[3], lengths[4], lengths[5]);
}

} // namespace OrvPdf
