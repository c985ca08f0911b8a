#pragma once

#include <iosfwd>
#include <memory>
#include <vector>

#include <orv_sys/export.h>

#include <plexa/subpath.h>
#include <plexa/winding_rule.h>

namespace Plexa
{

/// An immutable shape: subpaths in drawing order and the rule by which they enclose points. Shared as
/// `std::shared_ptr<const Compound>`; any number of threads may read one.
class ORV_EXPORT Compound
{
public:
    /// None of the pointers is null.
    const std::vector<std::shared_ptr<const Subpath>>& GetSubpaths() const { return subpaths; }

    WindingRule GetWindingRule() const { return windingRule; }

    // For makers of documents.

    /// A shape without subpaths.
    Compound() = default;

    /// No pointer may be null. `CompoundBuilder` is the comfortable way.
    Compound(std::vector<std::shared_ptr<const Subpath>> allSubpaths, WindingRule rule);

private:
    std::vector<std::shared_ptr<const Subpath>> subpaths;
    WindingRule windingRule = WindingRule::NonZero;
};

/// The shape as text in milli-points, such as `NonZero { M 0 0 L 10 0 C 10 5 5 10 0 10 Z }`: a move, a line,
/// a curve, and `Z` for a subpath that was closed; `E` stands for a subpath without a start point. A winding
/// rule that has no name is printed as its number, a null pointer as `(no shape)`.
///
/// Numbers are the shortest decimals that read back the same, with a point whatever the locale, and
/// independent of the stream's precision: shapes that differ print differently. The stream's state is
/// left alone but for its width, which applies to the text as a whole.
///
/// Declared beside the class, since without it a stream would take the pointer and print an address.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const std::shared_ptr<const Compound>& compound);

// For makers of documents.

/// Exact equality of the rule and of all subpaths by position; shared subpaths are not walked, so a shape
/// with a NaN equals another one only if they share the subpath that has it.
ORV_EXPORT bool operator==(const Compound& left, const Compound& right);
ORV_EXPORT bool operator!=(const Compound& left, const Compound& right);

/// The same shape under another rule. Shares all subpaths with the given one, and is the given one itself
/// if it has that rule already. Null for null.
ORV_EXPORT std::shared_ptr<const Compound> WithWindingRule(std::shared_ptr<const Compound> compound,
                                                           WindingRule rule);

} // namespace Plexa
