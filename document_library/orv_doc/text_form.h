#pragma once

#include <string>

#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvDoc::Detail
{

/// Texts for persons. Numbers are the shortest decimals that read back the same, in the classic locale.

void AppendNumber(std::string& text, double number);
/// With the fewest digits that tell a float from its neighbours.
void AppendNumber(std::string& text, float number);

/// In quotes; quotes, backslashes and control characters are escaped, so that the text stays in its line.
void AppendQuoted(std::string& text, const std::string& value);

/// Left and bottom edge, width and height: `(0, 0, 595000, 842000)`.
void AppendRectangle(std::string& text,
                     const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& rectangle);

/// The six numbers in brackets.
void AppendTransformation(std::string& text,
                          const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation);

/// "1 page", "2 pages".
void AppendCount(std::string& text, std::size_t count, const char* noun);

} // namespace OrvDoc::Detail
