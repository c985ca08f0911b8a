#pragma once

#include <cstdint>
#include <iosfwd>

namespace OrvDoc
{
class Document;
}

namespace Examples
{

/// Writes the errors in force of a document and then those of the content of each page, each as a line
///
///     error <place> <text>
///
/// with a tab between one and the next; the place is `document` or `page 2`. Makes the contents of all pages.
///
/// @return the number of lines
std::uint64_t WriteActiveErrors(std::ostream& stream, OrvDoc::Document& document);

} // namespace Examples
