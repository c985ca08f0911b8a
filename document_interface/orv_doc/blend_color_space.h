#pragma once

#include <iosfwd>
#include <memory>

#include <orv_sys/export.h>

namespace OrvColor
{
class ColorSpace;
}

namespace OrvDoc
{

/// The colour space in which the objects of a content are blended (ISO 32000-1, 11.6.6): none of its own, or
/// a device or CIE-based space. A value; copies share the space.
class ORV_EXPORT BlendColorSpace
{
public:
    /// The content has none of its own and blends in that of what it is painted on.
    BlendColorSpace() = default;

    // For makers of documents.

    /// A null pointer stands for none. Throws `std::invalid_argument` for a space in which nothing can be
    /// blended: a pattern, an indexed, a `Separation` or a `DeviceN` space, or `Lab`.
    explicit BlendColorSpace(std::shared_ptr<const OrvColor::ColorSpace> space);
    /// Null for none.
    const std::shared_ptr<const OrvColor::ColorSpace>& GetColorSpace() const { return space; }

private:
    std::shared_ptr<const OrvColor::ColorSpace> space;
};

/// Both none, or spaces of the same definition.
ORV_EXPORT bool operator==(const BlendColorSpace& left, const BlendColorSpace& right);
ORV_EXPORT bool operator!=(const BlendColorSpace& left, const BlendColorSpace& right);
/// `None` or the name of the space's family, with a digest of its definition if it has parameters.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const BlendColorSpace& space);

} // namespace OrvDoc
