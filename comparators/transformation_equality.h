#pragma once

#include <plexa/transformation.h>

namespace HarrowSupport::Comparators
{

/// Whether two numbers are at most five units in the last place apart. The bits are mapped to integers that
/// are ordered as the numbers are, with both zeros at 0; the difference of these is what counts, so two NaNs
/// of the same bits are equal.
bool NumbersNearlyEqual(double left, double right);

/// Whether all six numbers of two transformations are nearly equal. A transformation that was composed in
/// another order, or written to a file and read again, differs by a few units in the last place.
template <typename System>
bool TransformationsNearlyEqual(const Plexa::TransformationBase<System>& left,
                                const Plexa::TransformationBase<System>& right)
{
    return NumbersNearlyEqual(left.x.value, right.x.value) &&
           NumbersNearlyEqual(left.y.value, right.y.value) && NumbersNearlyEqual(left.a, right.a) &&
           NumbersNearlyEqual(left.b, right.b) && NumbersNearlyEqual(left.c, right.c) &&
           NumbersNearlyEqual(left.d, right.d);
}

} // namespace HarrowSupport::Comparators
