#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

namespace OrvDoc
{
class Document;
}

namespace OrvSys::Core
{
class Error;
}

namespace Examples
{

/// An error in force and what it is about.
struct PlacedError
{
    /// `document`, or `page 2` for the content of that page.
    std::string place;
    std::shared_ptr<OrvSys::Core::Error> error;
};

/// The errors in force of a document and then those of the content of each page. Makes the contents of all
/// pages.
std::vector<PlacedError> ListActiveErrors(OrvDoc::Document& document);

/// The errors that have come up between two lists of a document, in the order of the second one. An error
/// that stays in force is the same object in both. The cost is the product of the lists' lengths.
std::vector<PlacedError> FindNewErrors(const std::vector<PlacedError>& before,
                                       const std::vector<PlacedError>& after);

/// Writes each error as a line
///
///     error <place> <text>
///
/// with a tab between one and the next.
void WriteErrors(std::ostream& stream, const std::vector<PlacedError>& errors);

} // namespace Examples
