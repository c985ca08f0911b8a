#pragma once

#include <boost/optional.hpp>

#include <plexa/coordinate_systems.h>
#include <plexa/transformation.h>

namespace OrvPdf
{

using TextMatrix = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

/// Where a line of a text starts, from the text's own matrix; in points, as `OrvDoc::ShownText` has it.
struct TextLine
{
    double a = 1.0;
    double b = 0.0;
    double c = 0.0;
    double d = 1.0;
    double x = 0.0;
    double y = 0.0;
};

/// Whether two matrices differ in their translations at most.
bool HaveSameAxes(const TextMatrix& left, const TextMatrix& right);

/// What leads from a line to a text, of which both matrices are given (ISO 32000-1, 9.4.2). Where both have
/// the same axes the result has exactly the identity's. None if the text's matrix has no inverse, or the
/// result would be beyond all numbers.
boost::optional<TextLine> FindTextLine(const TextMatrix& line, const TextMatrix& text);

/// The matrix with its origin moved, in points and in its own axes. None if that is beyond all numbers.
boost::optional<TextMatrix> MoveInAxes(const TextMatrix& matrix, double x, double y);

/// The matrix of a line in a text of that matrix.
TextMatrix GetLineMatrix(const TextLine& line, const TextMatrix& text);

} // namespace OrvPdf
