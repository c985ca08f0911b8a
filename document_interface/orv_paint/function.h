#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <vector>

#include <orv_sys/export.h>

namespace OrvPaint
{

/// A function from numbers to numbers (ISO 32000-1, 7.10). Immutable; handed around as shared pointer to
/// const. GetType tells the class, and a static cast leads there.
class ORV_EXPORT Function
{
public:
    enum class Type : std::uint32_t
    {
        Whole = 0, ///< Compared by operator== alone: sampled functions and calculators.
        Stitching = 1,
        Exponential = 2
    };

    /// Functions of functions may not go deeper than this. Real files have one level.
    static constexpr std::size_t MaxDepth = 50;

    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    virtual ~Function();

    /// Writes the text form that operator<< gives.
    virtual void Print(std::ostream& stream) const = 0;

    /// Whether the function contributes nothing to that output component: the component is zero wherever the
    /// function is defined. True for a component that the function doesn't have; false where it can't be
    /// told.
    virtual bool IsZero(std::size_t component) const = 0;

    Type GetType() const { return type; }

    /// Low and high of each input.
    const std::vector<std::array<double, 2>>& GetDomain() const { return domain; }

    /// Low and high of each output component. Where a function states no range, minus and plus infinity.
    const std::vector<std::array<double, 2>>& GetRange() const { return range; }

    // For makers of documents.

    /// Whether the range was stated.
    bool HasRange() const { return hasRange; }

    /// 0 for a function that holds no others.
    std::size_t GetDepth() const { return depth; }

protected:
    /// An empty stated range stands for none.
    Function(Type givenType, std::vector<std::array<double, 2>> givenDomain,
             std::vector<std::array<double, 2>> statedRange, std::size_t outputCount, std::size_t givenDepth);

private:
    Type type;
    std::vector<std::array<double, 2>> domain;
    std::vector<std::array<double, 2>> range;
    bool hasRange;
    std::size_t depth;
};

/// Same class and same numbers; a function kept whole by its definition.
ORV_EXPORT bool operator==(const Function& left, const Function& right);
inline bool operator!=(const Function& left, const Function& right)
{
    return !(left == right);
}

/// One line: the class, its domain, its range if stated, and what the class adds.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const Function& function);

} // namespace OrvPaint
