#pragma once

#include <iosfwd>
#include <string>

#include <orv_sys/export.h>
#include <orv_sys/pdf_object.h>

namespace OrvImg
{

/// Where the picture stands that this one is a proxy of (ISO 32000-1, 14.11.7).
struct PictureLink
{
    std::string uri;

    // For makers of documents.

    /// The OPI dictionary as the file has it; null for a link that has no more than its URI.
    OrvSys::PdfObject definition;
};

/// All fields equal.
ORV_EXPORT bool operator==(const PictureLink& left, const PictureLink& right);
inline bool operator!=(const PictureLink& left, const PictureLink& right)
{
    return !(left == right);
}

/// The URI, and the digest of the definition if there is one.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const PictureLink& link);

} // namespace OrvImg
