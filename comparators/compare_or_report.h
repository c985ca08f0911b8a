#pragma once

#include "color_equality.h"
#include "difference_scope.h"

#include <harrow_support/comparators.h>

#include <orv_color/color_list.h>

#include <string>

namespace HarrowSupport::Comparators
{

/// Compares two values that have no place in a content, and reports a difference at once, with empty paths.
/// Returns whether they are equal.
template <typename Value>
bool CompareOrReport(Reporter& reporter, const char* label, const Value& left, const Value& right)
{
    if (left == right)
        return true;
    TextStream text;
    text << "'";
    PrintValue(text, left);
    text << "' vs '";
    PrintValue(text, right);
    text << "'";
    reporter.Report(ReportKind::Difference, label, LocationPath(), LocationPath(), text.str());
    return false;
}

/// Compares two strings by length and bytes, and adds a difference to the scope. Returns whether they are
/// equal.
template <typename T>
bool CompareOrReport(DifferenceScope<T>& scope, const char* label, const std::string& left,
                     const std::string& right)
{
    if (left == right)
        return true;
    scope.AddValues(label, left, right);
    return false;
}

/// The same for two colours, which are equal by ColorListsEqual.
template <typename T>
bool CompareOrReport(DifferenceScope<T>& scope, const char* label,
                     const OrvColor::ColorList<OrvColor::ColorPolicy>& left,
                     const OrvColor::ColorList<OrvColor::ColorPolicy>& right)
{
    if (ColorListsEqual(left, right))
        return true;
    scope.AddValues(label, left, right);
    return false;
}

} // namespace HarrowSupport::Comparators
