#include "pdf/pictures/jpx_channels.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace OrvPdf
{

namespace
{

constexpr std::uint32_t colorType = 0;
constexpr std::uint32_t opacityType = 1;
constexpr std::uint32_t premultipliedType = 2;
constexpr std::uint32_t wholePicture = 0;
constexpr std::uint32_t nothing = 65535;

std::vector<JpxChannel> ListUnsorted(const JpxBoxes& boxes, const JpxSize& size)
{
    std::vector<JpxChannel> channels;
    const bool hasPalette = boxes.palette.CountEntries() > 0 && !boxes.mappings.empty();
    if (hasPalette) {
        for (const JpxBoxes::Mapping& mapping : boxes.mappings) {
            if (mapping.component >= size.components.size() ||
                (mapping.usesPalette && mapping.column >= boxes.palette.columns.size()))
                continue;
            JpxChannel channel;
            channel.component = mapping.component;
            channel.usesPalette = mapping.usesPalette;
            channel.column = mapping.column;
            channel.precision = mapping.usesPalette ? boxes.palette.columns[mapping.column].precision
                                                    : size.components[mapping.component].precision;
            channels.push_back(channel);
        }
    }
    for (std::size_t i = 0; !hasPalette && i < size.components.size(); ++i) {
        JpxChannel channel;
        channel.component = i;
        channel.precision = size.components[i].precision;
        channels.push_back(channel);
    }
    return channels;
}

/// Colours by number, then what is neither, then opacities.
std::uint32_t GetPlace(const JpxBoxes::Definition& definition)
{
    constexpr std::uint32_t behindColors = 65536;
    constexpr std::uint32_t last = 65537;
    if (definition.type == opacityType || definition.type == premultipliedType)
        return last;
    const bool isColor = definition.type == colorType && definition.association != wholePicture &&
                         definition.association != nothing;
    return isColor ? definition.association : behindColors;
}

} // namespace

std::vector<JpxChannel> ListJpxChannels(const JpxBoxes& boxes, const JpxSize& size)
{
    const std::vector<JpxChannel> unsorted = ListUnsorted(boxes, size);
    std::vector<std::pair<std::uint32_t, JpxChannel>> placed;
    for (const JpxChannel& channel : unsorted)
        placed.emplace_back(static_cast<std::uint32_t>(placed.size() + 1), channel);
    for (const JpxBoxes::Definition& definition : boxes.definitions) {
        if (definition.channel >= placed.size())
            continue;
        auto& [place, channel] = placed[definition.channel];
        place = GetPlace(definition);
        channel.isPremultiplied = definition.type == premultipliedType;
        channel.isAlpha = channel.isPremultiplied || definition.type == opacityType;
    }
    std::stable_sort(placed.begin(), placed.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<JpxChannel> channels;
    for (const auto& entry : placed)
        channels.push_back(entry.second);
    return channels;
}

} // namespace OrvPdf
