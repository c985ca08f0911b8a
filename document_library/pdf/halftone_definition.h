#pragma once

#include <string>

#include <orv_sys/pdf_object.h>

namespace OrvPdf
{

/// A key of our own beside `HT`: the name of the halftones (string), where it is another one than their
/// dictionary says.
inline constexpr const char* halftoneNameKey = "OrvHalftoneName";

/// Whether the value of `HT` defines halftones (ISO 32000-1, 10.5.5): a dictionary of type 1 or 5 or a stream
/// of type 6, 10 or 16. Its other entries are for the device to understand, and are not looked at.
bool IsHalftoneDefinition(const OrvSys::PdfObject& value);

/// The name that the definition says itself; empty if it says none.
std::string GetHalftoneName(const OrvSys::PdfObject& definition);

} // namespace OrvPdf
