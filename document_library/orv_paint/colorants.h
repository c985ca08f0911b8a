#pragma once

#include <orv_color/color_list.h>

namespace OrvPaint::Detail
{

/// The names and flags of a list, without its values.
template <typename Policy>
OrvColor::ColorList<OrvColor::ColorantPolicy> GetColorantsOf(const OrvColor::ColorList<Policy>& list)
{
    OrvColor::ColorList<OrvColor::ColorantPolicy> colorants;
    colorants.entries.reserve(list.entries.size());
    for (const auto& entry : list.entries)
        colorants.entries.push_back({{}, entry.name});
    colorants.overprint = list.overprint;
    colorants.all = list.all;
    return colorants;
}

} // namespace OrvPaint::Detail
