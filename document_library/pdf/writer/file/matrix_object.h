#pragma once

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/matrix_numbers.h"

namespace OrvPdf
{

/// The array of the six numbers of a matrix (ISO 32000-1, 8.3.4), from which the same matrix is read.
QPDFObjectHandle MakeMatrixObject(const Matrix& matrix);

} // namespace OrvPdf
