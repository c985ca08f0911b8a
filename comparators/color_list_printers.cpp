#include "color_list_printers.h"

#include <cmath>
#include <cstddef>

namespace HarrowSupport::Comparators
{

namespace
{

void PrintIndex(std::ostream& stream, std::size_t index)
{
    if (index == OrvColor::Unmapped)
        stream << "UNMAPPED";
    else
        stream << index;
}

/// What an entry, or the form for all separations, shows of its value.
void PrintListValue(std::ostream& stream, float tint)
{
    stream << " @ " << std::llround(tint * 100.0f) << "%";
}

void PrintListValue(std::ostream& stream, std::size_t index)
{
    stream << " @ ";
    PrintIndex(stream, index);
}

void PrintListValue(std::ostream& stream, const OrvColor::ChannelMappingPolicy::Value& channel)
{
    stream << " @ ";
    PrintIndex(stream, channel.index);
    if (channel.decode[0] != 0.0 || channel.decode[1] != 1.0)
        stream << " [" << channel.decode[0] << " " << channel.decode[1] << "]";
}

void PrintListValue(std::ostream&, const OrvColor::ColorantPolicy::Value&) {}

template <typename Policy>
void PrintList(std::ostream& stream, const OrvColor::ColorList<Policy>& list)
{
    if (list.all) {
        stream << "(All";
        PrintListValue(stream, list.valueForAll);
        stream << ")";
    } else if (!list.entries.empty()) {
        const char* separator = "(";
        for (const auto& entry : list.entries) {
            stream << separator << entry.name;
            PrintListValue(stream, entry.value);
            separator = ", ";
        }
        stream << ")";
    } else
        stream << "(Empty)";
    if (list.overprint)
        stream << " Overprint";
}

} // namespace

void PrintValue(std::ostream& stream, const OrvColor::ColorList<OrvColor::ColorantPolicy>& colorants)
{
    PrintList(stream, colorants);
}

void PrintValue(std::ostream& stream, const OrvColor::ColorList<OrvColor::ColorPolicy>& color)
{
    PrintList(stream, color);
}

void PrintValue(std::ostream& stream, const OrvColor::ColorList<OrvColor::SeparationMappingPolicy>& mapping)
{
    PrintList(stream, mapping);
}

void PrintValue(std::ostream& stream, const OrvColor::ColorList<OrvColor::ChannelMappingPolicy>& mapping)
{
    PrintList(stream, mapping);
}

} // namespace HarrowSupport::Comparators
