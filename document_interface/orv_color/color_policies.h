#pragma once

#include <array>
#include <cstddef>

namespace OrvColor
{

/// The index, all bits set, of what no component or channel stands for.
inline constexpr std::size_t Unmapped = ~std::size_t{0};

/// A list of separations with tints: a colour.
struct ColorPolicy
{
    using Value = float; ///< Tint, 0 for no ink to 1 for full ink.

    static constexpr Value Default() { return 0.0f; }
};

/// Which component of a shading's function stands for which separation.
struct SeparationMappingPolicy
{
    using Value = std::size_t; ///< Index of the component, or Unmapped.

    static constexpr Value Default() { return Unmapped; }
};

/// Which channel of a picture stands for which separation, and how its samples are decoded.
struct ChannelMappingPolicy
{
    class Value
    {
    public:
        std::size_t index = Unmapped;              ///< Position of the sample in a pixel, or Unmapped.
        std::array<double, 2> decode = {0.0, 1.0}; ///< Where the samples 0 and 1 lie: low and high.

        friend bool operator==(const Value& left, const Value& right)
        {
            return left.index == right.index && left.decode == right.decode;
        }
        friend bool operator!=(const Value& left, const Value& right) { return !(left == right); }
    };

    static constexpr Value Default() { return Value(); }
};

/// Names alone: the separations that a paint uses.
struct ColorantPolicy
{
    struct Value
    {
        friend constexpr bool operator==(Value, Value) { return true; }
        friend constexpr bool operator!=(Value, Value) { return false; }
    };

    static constexpr Value Default() { return Value(); }
};

} // namespace OrvColor
