#pragma once

#include <plexa/coordinate_systems.h>
#include <plexa/transformation.h>

namespace OrvPdf
{

using Matrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

bool IsFinite(const Matrix& matrix);

/// The inverse of a matrix that has one, each number rounded once: the inverse of a tenth is ten. Renderers
/// fit edges to pixels, so that an error of the last digit can move a line by a whole one.
Matrix GetRoundedInverse(const Matrix& matrix);

/// Whether all numbers are the same bit by bit: -0 is not 0.
bool AreIdentical(const Matrix& left, const Matrix& right);
bool AreIdentical(double left, double right);

} // namespace OrvPdf
