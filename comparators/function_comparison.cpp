// Order of steps: the class; what all components have in common; then pair by pair the range and the outputs.
// Going by position instead of by pair would call two shadings different that hold their separations in
// another order.

#include "function_comparison.h"

#include "color_equality.h"

#include <orv_color/color_policies.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/function.h>
#include <orv_paint/stitching_function.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <set>
#include <tuple>

namespace HarrowSupport::Comparators
{

namespace
{

using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;
using Pairs = std::vector<ComponentPair>;

bool AreZero(const std::vector<FunctionPointer>& functions, std::size_t component)
{
    return std::all_of(functions.begin(), functions.end(),
                       [component](const FunctionPointer& function) { return function->IsZero(component); });
}

/// The range of a component; null for one that the function doesn't have.
const std::array<double, 2>* RangeOf(const OrvPaint::Function& function, std::size_t component)
{
    return component < function.GetRange().size() ? &function.GetRange()[component] : nullptr;
}

bool RangesEqual(const OrvPaint::Function& left, const OrvPaint::Function& right, const ComponentPair& pair)
{
    const std::array<double, 2>* leftRange = RangeOf(left, pair.first);
    const std::array<double, 2>* rightRange = RangeOf(right, pair.second);
    if (leftRange == nullptr || rightRange == nullptr)
        return leftRange == rightRange;
    return *leftRange == *rightRange;
}

/// The output of a component; zero for one that the function doesn't have.
OrvColor::Component OutputOf(const std::vector<OrvColor::Component>& outputs, std::size_t component)
{
    return component < outputs.size() ? outputs[component] : OrvColor::Component(0.0f);
}

/// Whether each pair satisfies the test for its case: a component on both sides, on the right one alone, on
/// the left one alone.
template <typename BothMatch, typename IsZero>
bool AllPairsMatch(const Pairs& pairs, const OrvPaint::Function& left, const OrvPaint::Function& right,
                   IsZero leftIsZero, IsZero rightIsZero, BothMatch bothMatch)
{
    return std::all_of(pairs.begin(), pairs.end(), [&](const ComponentPair& pair) {
        const bool onLeft = pair.first != OrvColor::Unmapped;
        const bool onRight = pair.second != OrvColor::Unmapped;
        if (onLeft && onRight)
            return RangesEqual(left, right, pair) && bothMatch(pair);
        if (onLeft)
            return leftIsZero(pair.first);
        return !onRight || rightIsZero(pair.second);
    });
}

/// Stitching functions inside others that were found equal, with the pair of components. Parts may be shared,
/// and a few dozen levels that hold the next one twice would otherwise never come to an end.
using EqualParts = std::set<std::tuple<const OrvPaint::Function*, const OrvPaint::Function*, ComponentPair>>;

bool CompareFunctionsKnowing(EqualParts& equalParts, const Pairs& pairs, const OrvPaint::Function& left,
                             const OrvPaint::Function& right);

bool CompareParts(EqualParts& equalParts, const ComponentPair& pair, const OrvPaint::Function& left,
                  const OrvPaint::Function& right)
{
    const bool holdsParts = left.GetType() == OrvPaint::Function::Type::Stitching;
    if (holdsParts && equalParts.count({&left, &right, pair}) != 0)
        return true;
    if (!CompareFunctionsKnowing(equalParts, Pairs(1, pair), left, right))
        return false;
    if (holdsParts)
        equalParts.emplace(&left, &right, pair);
    return true;
}

bool CompareStitching(EqualParts& equalParts, const Pairs& pairs, const OrvPaint::StitchingFunction& left,
                      const OrvPaint::StitchingFunction& right)
{
    if (left.GetDomain() != right.GetDomain() || left.GetBounds() != right.GetBounds() ||
        left.GetEncode() != right.GetEncode())
        return false;
    const auto zeroIn = [](const OrvPaint::StitchingFunction& function) {
        return [&function](std::size_t component) { return AreZero(function.GetFunctions(), component); };
    };
    return AllPairsMatch(pairs, left, right, zeroIn(left), zeroIn(right), [&](const ComponentPair& pair) {
        return std::equal(left.GetFunctions().begin(), left.GetFunctions().end(),
                          right.GetFunctions().begin(), right.GetFunctions().end(),
                          [&equalParts, &pair](const FunctionPointer& one, const FunctionPointer& other) {
                              return CompareParts(equalParts, pair, *one, *other);
                          });
    });
}

bool CompareExponential(const Pairs& pairs, const OrvPaint::ExponentialFunction& left,
                        const OrvPaint::ExponentialFunction& right)
{
    if (left.GetDomain() != right.GetDomain() || left.GetN() != right.GetN())
        return false;
    const auto zeroIn = [](const OrvPaint::ExponentialFunction& function) {
        return [&function](std::size_t component) { return function.IsZero(component); };
    };
    return AllPairsMatch(pairs, left, right, zeroIn(left), zeroIn(right), [&](const ComponentPair& pair) {
        return ComponentsMatch(OutputOf(left.GetC0(), pair.first), OutputOf(right.GetC0(), pair.second)) &&
               ComponentsMatch(OutputOf(left.GetC1(), pair.first), OutputOf(right.GetC1(), pair.second));
    });
}

bool CompareFunctionsKnowing(EqualParts& equalParts, const Pairs& pairs, const OrvPaint::Function& left,
                             const OrvPaint::Function& right)
{
    if (left.GetType() != right.GetType())
        return false;
    switch (left.GetType()) {
    case OrvPaint::Function::Type::Whole:
        return std::all_of(pairs.begin(), pairs.end(),
                           [](const ComponentPair& pair) { return pair.first == pair.second; }) &&
               left == right;
    case OrvPaint::Function::Type::Stitching:
        return CompareStitching(equalParts, pairs, static_cast<const OrvPaint::StitchingFunction&>(left),
                                static_cast<const OrvPaint::StitchingFunction&>(right));
    case OrvPaint::Function::Type::Exponential:
        return CompareExponential(pairs, static_cast<const OrvPaint::ExponentialFunction&>(left),
                                  static_cast<const OrvPaint::ExponentialFunction&>(right));
    }
    return true;
}

} // namespace

bool CompareFunctions(const Pairs& pairs, const OrvPaint::Function& left, const OrvPaint::Function& right)
{
    EqualParts equalParts;
    return CompareFunctionsKnowing(equalParts, pairs, left, right);
}

} // namespace HarrowSupport::Comparators
