#pragma once

#include <iosfwd>
#include <string>

#include <orv_sys/export.h>
#include <orv_sys/pdf_object.h>

namespace OrvDoc
{

/// The halftones of an object (ISO 32000-1, 10.5), kept whole.
class ORV_EXPORT HalftoneSet
{
public:
    /// The `HalftoneName` of the dictionary; empty if it has none.
    const std::string& GetName() const { return name; }

    // For makers of documents.

    HalftoneSet(std::string name, OrvSys::PdfObject definition);
    const OrvSys::PdfObject& GetDefinition() const { return definition; }

private:
    std::string name;
    OrvSys::PdfObject definition;
};

/// Same name and same definition.
ORV_EXPORT bool operator==(const HalftoneSet& left, const HalftoneSet& right);
/// The name in quotes and a digest of the definition.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const HalftoneSet& halftones);

} // namespace OrvDoc
