#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <boost/container/small_vector.hpp>

#include <orv_color/color_space.h>
#include <orv_paint/flat_paint.h>

namespace OrvPdf
{

class SeparationSpaces;

/// A colour as colour operators say it.
struct PaintColor
{
    using Components = boost::container::small_vector<float, 4>;

    static constexpr std::uint32_t gray = 0;
    static constexpr std::uint32_t rgb = 1;
    static constexpr std::uint32_t cmyk = 2;
    static constexpr std::uint32_t firstNamed = 3;
    /// Of a colour in force that nobody knows.
    static constexpr std::uint32_t unknown = ~std::uint32_t{0};
    /// The colour space `Pattern` by its name.
    static constexpr std::uint32_t patterns = unknown - 1;

    /// One of the spaces above, or `firstNamed` plus the index of a space in the resources.
    std::uint32_t space = gray;
    Components components = {0.0f};
    /// The index of a pattern in the resources plus one; 0 for a colour without one.
    std::uint32_t pattern = 0;
};

/// A flat paint as the graphics state says it.
struct PaintSettings
{
    PaintColor color;
    bool overprint = false;
    bool nonzeroOverprint = false;
    /// Of an uncoloured pattern: whether its colour is one of `DeviceCMYK`.
    bool isProcessPattern = false;

    /// Whether the overprint mode makes a difference (ISO 32000-1, 8.6.7).
    bool DependsOnMode() const { return overprint && (isProcessPattern || color.space == PaintColor::cmyk); }
};

/// The colour spaces of one content, and the colours of paints in them.
class PaintColors
{
public:
    explicit PaintColors(SeparationSpaces& separations) : separationSpaces(separations) {}

    /// The settings that paint with that paint: in the space that it was given in, otherwise in one that
    /// reads back as its list. Null if there is none, with the reason in the plural in `problem`. Good until
    /// the next call.
    const PaintSettings* Find(const OrvPaint::FlatPaint& paint, const char*& problem);

    /// The same colour of the process inks in a space where no overprint mode counts.
    PaintSettings WithoutMode(const PaintSettings& given);

    /// Makes a colour that of an uncoloured pattern: in the space of patterns with that colour's space below.
    void MoveToPatterns(PaintColor& color);

    /// The space of a colour that these settings have.
    OrvColor::ColorSpace::Pointer GetSpace(const PaintColor& color) const;

    /// The spaces of the resources.
    const std::vector<OrvColor::ColorSpace::Pointer>& GetSpaces() const { return spaces; }

private:
    bool SetNative(const OrvPaint::FlatPaint& paint, const char*& problem);
    bool SetList(const OrvPaint::FlatPaint& paint, const char*& problem);
    std::uint32_t GetSpaceNumber(const OrvColor::ColorSpace::Pointer& space);

    SeparationSpaces& separationSpaces;
    std::vector<OrvColor::ColorSpace::Pointer> spaces;
    /// With an underlying space each, by the number of that.
    std::unordered_map<std::uint32_t, OrvColor::ColorSpace::Pointer> patternSpaces;
    std::unordered_map<const OrvColor::ColorSpace*, std::uint32_t> numbers;
    std::unordered_multimap<std::uint64_t, std::uint32_t> numbersOfDigests;
    PaintSettings settings;
};

} // namespace OrvPdf
