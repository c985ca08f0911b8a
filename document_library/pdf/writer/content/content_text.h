#pragma once

#include <string>
#include <string_view>

#include <plexa/coordinate_systems.h>
#include <plexa/transformation.h>

namespace OrvPdf
{

using Matrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

/// Pieces of the text of a content stream (ISO 32000-1, 7.8.2). All append; numbers must be finite.

/// A length of milli-points, in points.
void AppendLength(std::string& out, double milliPoints);

/// The six numbers of a matrix, blanks between them.
void AppendMatrix(std::string& out, const Matrix& matrix);

/// A name with its solidus; what may not stand in a name is written as `#xx`.
void AppendName(std::string& out, std::string_view name);

/// UTF-8 as a text string (ISO 32000-1, 7.9.2.2). Bytes that are no UTF-8 become U+FFFD.
void AppendTextString(std::string& out, std::string_view utf8);

/// The bytes of that text string: those of PDFDocEncoding where it is printable ASCII, otherwise UTF-16BE
/// with its mark.
std::string EncodeTextString(std::string_view utf8);

} // namespace OrvPdf
