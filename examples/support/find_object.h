#pragma once

#include <string>

namespace OrvDoc
{
class ContentObject;
class Document;
} // namespace OrvDoc

namespace Examples
{

/// The object that an index path names, such as "2.3.1": the first child of the third object of the second
/// page, all counted from one. Linear in the objects of the page.
///
/// @throws std::runtime_error with the reason if there is no such page or object, or if this is no path
OrvDoc::ContentObject& FindObject(OrvDoc::Document& document, const std::string& path);

} // namespace Examples
