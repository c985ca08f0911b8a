#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <orv_sys/export.h>

namespace OrvColor
{

/// The bytes of an ICC profile. Immutable; handed around as shared pointer to const.
class ORV_EXPORT ICCProfile
{
public:
    // For makers of documents.

    /// Takes the decoded bytes. Throws std::invalid_argument if they are shorter than a profile's header of
    /// 128 bytes or if the header names a data colour space that the ICC doesn't list. Nothing else is
    /// checked.
    explicit ICCProfile(std::string bytes);

    const std::string& GetData() const { return data; }

    /// Number of components of the data colour space, from the signature at byte 16 of the header: 1 to 15.
    std::size_t GetComponentCount() const { return componentCount; }

    /// The signature itself: four characters, such as "RGB ", "CMYK", "GRAY" or "Lab ".
    std::string GetDataColorSpace() const { return data.substr(16, 4); }

    /// 64-bit digest of the bytes, the same on every machine.
    std::uint64_t GetDigest() const { return digest; }

private:
    std::string data;
    std::size_t componentCount;
    std::uint64_t digest;
};

/// Same profile data, byte by byte.
ORV_EXPORT bool operator==(const ICCProfile& left, const ICCProfile& right);
inline bool operator!=(const ICCProfile& left, const ICCProfile& right)
{
    return !(left == right);
}

} // namespace OrvColor
