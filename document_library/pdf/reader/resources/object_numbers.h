#pragma once

#include <cstddef>
#include <vector>

#include <orv_sys/pdf_object.h>

#include "pdf/reader/content/group_recipe.h"

namespace OrvPdf
{

/// The numbers of an array, shifted by that many decimal places as `ParseNumber` does it. Throws
/// `std::invalid_argument` that tells what is wrong unless it is an array of `count` numbers.
std::vector<double> ReadNumbers(const OrvSys::PdfObject& array, std::size_t count, int decimalShift);

/// The matrix of an array of six numbers; the identity for null. Throws as `ReadNumbers` does.
Matrix ReadMatrix(const OrvSys::PdfObject& array);

} // namespace OrvPdf
