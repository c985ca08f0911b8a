#pragma once

#include <string>

namespace OrvDoc
{
class ContentObject;
}

namespace HarrowSupport::Comparators
{

/// The name of the object's dynamic class with its namespace, such as `OrvDoc::Path`.
std::string ObjectTypeName(const OrvDoc::ContentObject& object);

} // namespace HarrowSupport::Comparators
