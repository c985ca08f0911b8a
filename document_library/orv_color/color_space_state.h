#pragma once

#include <orv_color/color_space.h>

namespace OrvColor
{

/// What a colour space knows of itself. Filled by the reader of definitions, then never changed.
struct ColorSpace::State
{
    Family family = Family::DeviceGray;
    OrvSys::PdfObject definition;
    std::size_t componentCount = 0;
    std::vector<std::array<double, 2>> ranges;
    std::vector<float> initialComponents;
    std::vector<std::string> colorantNames;  // Separation and DeviceN.
    std::vector<std::string> componentNames; // Names of the entries that a colour gives, one a component.
    Pointer base;
    OrvSys::PdfObject tintTransform;
    OrvSys::PdfObject attributes; // DeviceN.
    std::string table;            // Indexed: componentCount of the base for each index.
    bool labComponents = false;   // L, a and b by CIE, in a Lab space or under a profile of such data.
};

} // namespace OrvColor
