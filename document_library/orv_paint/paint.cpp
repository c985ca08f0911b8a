#include <orv_paint/paint.h>

#include <ostream>

namespace OrvPaint
{

Paint::~Paint() = default;

std::ostream& operator<<(std::ostream& stream, Paint::Type type)
{
    switch (type) {
    case Paint::Type::Flat:
        return stream << "Flat";
    case Paint::Type::AxialShading:
        return stream << "AxialShading";
    case Paint::Type::RadialShading:
        return stream << "RadialShading";
    case Paint::Type::OtherShading:
        return stream << "OtherShading";
    case Paint::Type::TilingPattern:
        return stream << "TilingPattern";
    case Paint::Type::Form:
        return stream << "Form";
    }
    return stream;
}

} // namespace OrvPaint
