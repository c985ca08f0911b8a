#pragma once

#include <algorithm>
#include <array>
#include <cmath>

#include "pdf/reader/content/group_recipe.h"

namespace OrvPdf
{

/// The six numbers of a matrix, to find what was made for it.
using MatrixKey = std::array<double, 6>;

inline MatrixKey MakeMatrixKey(const Matrix& matrix)
{
    return {matrix.a, matrix.b, matrix.c, matrix.d, matrix.x.value, matrix.y.value};
}

/// What is no number has no place in an order, and what is infinite places nothing.
inline bool IsFinite(const MatrixKey& key)
{
    return std::all_of(key.begin(), key.end(), [](double number) { return std::isfinite(number); });
}

} // namespace OrvPdf
