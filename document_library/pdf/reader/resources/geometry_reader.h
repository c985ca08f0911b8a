#pragma once

#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <plexa/coordinate_systems.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvPdf
{

/// The rectangle in an array of four numbers, in points in the file (ISO 32000-1, 7.9.5). In its initial
/// state if there is none; what is malformed is told in `problems` under that key. Needs an access to the
/// file.
Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> ReadRectangle(QPDFObjectHandle array, const char* key,
                                                                      std::vector<std::string>& problems);

/// The matrix in an array of six numbers (8.3.4). The identity if there is none; what is malformed is told.
Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>
ReadMatrix(QPDFObjectHandle array, const char* key, std::vector<std::string>& problems);

} // namespace OrvPdf
