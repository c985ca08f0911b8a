#pragma once

#include <iosfwd>

namespace OrvDoc
{
class Document;
}

namespace Examples
{

/// Writes a line for each object of a document, in the order of a walk through the tree,
///
///     <path> <kind> <name> <fill>
///
/// with a tab between one and the next. The path is the one that `HarrowSupport::ApplyOnIndexedObject` takes,
/// with the number of the page in front: `2.3.1` is the first child of the third object of the second page.
/// The kind is the class, such as `Path`. The fill is the list of separations with their tints, such as
/// `Cyan 0.5, Gold 1`; `(no ink)` for an empty one; the type of a paint that is not flat; a hyphen if there
/// is none. Makes the contents of all pages.
void WriteObjectList(std::ostream& stream, const OrvDoc::Document& document);

} // namespace Examples
