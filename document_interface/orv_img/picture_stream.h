#pragma once

#include <cstdint>
#include <string_view>

#include <orv_sys/export.h>

namespace OrvImg
{

/// The samples of a picture as they are stored, under filters that are made for pictures but under no others.
class ORV_EXPORT PictureStream
{
public:
    enum class Type : std::uint32_t
    {
        Samples, ///< Packed rows, as PictureBuffer has them.
        Dct,     ///< A JPEG file.
        Jpx,     ///< A JPEG 2000 file.
        Fax,     ///< CCITT Group 3 or 4.
        Jbig2    ///< The embedded organisation of JBIG2.
    };

    virtual ~PictureStream();

    virtual Type GetType() const = 0;

    /// Good as long as the stream.
    virtual std::string_view GetBytes() const = 0;
};

} // namespace OrvImg
