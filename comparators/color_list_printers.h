#pragma once

#include <orv_color/color_list.h>

#include <ostream>

/// Text of colour lists in differences. The four share one shape: "(All ...)" for a list that stands for all
/// separations, otherwise the entries as "(name, name)", or "(Empty)", and " Overprint" behind any of these
/// if that flag is set. Behind a name stands what the policy adds to it.
namespace HarrowSupport::Comparators
{

/// The names alone.
void PrintValue(std::ostream& stream, const OrvColor::ColorList<OrvColor::ColorantPolicy>& colorants);

/// Tints in whole percent, halves rounded away from zero.
void PrintValue(std::ostream& stream, const OrvColor::ColorList<OrvColor::ColorPolicy>& color);

/// Indices, "UNMAPPED" for none.
void PrintValue(std::ostream& stream, const OrvColor::ColorList<OrvColor::SeparationMappingPolicy>& mapping);

/// Indices, "UNMAPPED" for none, and a decode range that is not (0, 1) as " [low high]".
void PrintValue(std::ostream& stream, const OrvColor::ColorList<OrvColor::ChannelMappingPolicy>& mapping);

} // namespace HarrowSupport::Comparators
