#include "pdf/writer/content/process_inks.h"

#include <cmath>

#include "orv_color/ink_model.h"

namespace OrvPdf
{

namespace
{

using OrvColor::Representation;

ProcessInks FromLight(const OrvColor::Detail::Light& light)
{
    const OrvColor::Detail::Tints tints = OrvColor::Detail::SeparateLight(light);
    ProcessInks inks;
    for (std::size_t ink = 0; ink < inks.size(); ++ink) {
        // Whole per mille are more than a stand-in for an ink is exact to.
        inks[ink] = static_cast<float>(std::round(tints[ink] * 1000) / 1000);
    }
    return inks;
}

double ToLinear(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

OrvColor::Detail::Light LabToLight(const std::vector<OrvColor::Component>& lab)
{
    const auto inverse = [](double value) {
        return value > 6.0 / 29.0 ? value * value * value : (value - 4.0 / 29.0) * 108.0 / 841.0;
    };
    const double middle = (lab[0] + 16.0) / 116.0;
    const double x = whitePointD50[0] * inverse(middle + lab[1] / 500.0);
    const double y = inverse(middle);
    const double z = whitePointD50[2] * inverse(middle - lab[2] / 200.0);
    // XYZ under D50 to the primaries of sRGB, adapted by Bradford's method.
    return {3.1338561 * x - 1.6168667 * y - 0.4906146 * z, -0.9787684 * x + 1.9161415 * y + 0.0334540 * z,
            0.0719453 * x - 0.2289914 * y + 1.4052427 * z};
}

} // namespace

ProcessInks ToProcessInks(const Representation& representation)
{
    const std::vector<OrvColor::Component>& from = representation.GetComponents();
    switch (representation.GetKind()) {
    case Representation::Kind::Gray:
        return {0, 0, 0, 1.0f - from[0]};
    case Representation::Kind::Rgb:
        return FromLight({ToLinear(from[0]), ToLinear(from[1]), ToLinear(from[2])});
    case Representation::Kind::Cmyk:
        return {from[0], from[1], from[2], from[3]};
    case Representation::Kind::Lab:
        return FromLight(LabToLight(from));
    case Representation::Kind::None:
        break;
    }
    return {0, 0, 0, 1};
}

ProcessInks GuessProcessInks(const std::string& name)
{
    static const std::array<const char*, 3> names = {"Cyan", "Magenta", "Yellow"};
    ProcessInks inks = {0, 0, 0, 1};
    for (std::size_t ink = 0; ink < names.size(); ++ink) {
        if (name == names[ink]) {
            inks[3] = 0;
            inks[ink] = 1;
        }
    }
    return inks;
}

} // namespace OrvPdf
