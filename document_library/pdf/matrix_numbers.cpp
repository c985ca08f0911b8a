#include "pdf/matrix_numbers.h"

#include <cmath>
#include <cstring>

namespace OrvPdf
{

bool IsFinite(const Matrix& matrix)
{
    return std::isfinite(matrix.a) && std::isfinite(matrix.b) && std::isfinite(matrix.c) &&
           std::isfinite(matrix.d) && std::isfinite(matrix.x.value) && std::isfinite(matrix.y.value);
}

Matrix GetRoundedInverse(const Matrix& matrix)
{
    const long double a = matrix.a;
    const long double b = matrix.b;
    const long double c = matrix.c;
    const long double d = matrix.d;
    const long double x = matrix.x.value;
    const long double y = matrix.y.value;
    const long double determinant = a * d - b * c;
    const auto divide = [determinant](long double dividend) {
        // No zero with a sign, which would only be harder to read.
        return static_cast<double>(dividend / determinant) + 0.0;
    };
    return Matrix(divide(d), divide(-b), divide(-c), divide(a), divide(c * y - d * x), divide(b * x - a * y));
}

bool AreIdentical(const Matrix& left, const Matrix& right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

bool AreIdentical(double left, double right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

} // namespace OrvPdf
