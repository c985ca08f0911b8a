#pragma once

#include <cstdint>
#include <iosfwd>

#include <orv_color/color_list.h>
#include <orv_sys/export.h>

namespace OrvPaint
{

/// What an object is filled or stroked with. Paints are immutable and handed around as shared pointers to
/// const. GetType tells the class, and a static cast leads there.
class ORV_EXPORT Paint
{
public:
    enum class Type : std::uint32_t
    {
        Flat = 1,
        AxialShading = 2,
        RadialShading = 3,
        OtherShading = 4,
        TilingPattern = 5,
        Form = 6
    };

    Paint(const Paint&) = delete;
    Paint& operator=(const Paint&) = delete;
    virtual ~Paint();

    /// The separations that the paint uses: names, overprint flag, all flag.
    virtual OrvColor::ColorList<OrvColor::ColorantPolicy> GetColorants() const = 0;

    Type GetType() const { return type; }

protected:
    explicit Paint(Type givenType) : type(givenType) {}

private:
    Type type;
};

/// The enumerator's name; nothing for a value that has none.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, Paint::Type type);

} // namespace OrvPaint
