#pragma once

#include "text_stream.h"
#include "value_printers.h"

#include <harrow_support/comparators.h>

#include <string>
#include <vector>

namespace HarrowSupport::Comparators
{

/// A difference that waits for its report.
struct PendingDifference
{
    std::string label;
    std::string text;
};

/// A compared pair with the differences found for it so far. It lives on the stack of the comparison of its
/// pair and is the only way by which the comparisons of properties report: they add to it, and the one that
/// made the scope flushes it once, when all below the pair is done.
///
/// T is OrvDoc::Page, OrvDoc::Content or OrvDoc::ContentObject. Making a scope allocates nothing.
template <typename T>
struct DifferenceScope
{
    DifferenceScope(const T& leftItem, const T& rightItem) : left(&leftItem), right(&rightItem) {}

    /// Adds a difference that stands for itself, without values.
    void AddDifference(const char* label) { differences.push_back({label, std::string()}); }

    /// Adds a difference with both values; how a value is written is told in value_printers.h.
    template <typename Value>
    void AddDifference(const char* label, const char* opening, const Value& leftValue, const char* separator,
                       const Value& rightValue, const char* closing)
    {
        TextStream text;
        text << opening;
        PrintValue(text, leftValue);
        text << separator;
        PrintValue(text, rightValue);
        text << closing;
        differences.push_back({label, text.str()});
    }

    /// Adds a difference in the one form in which values are shown: '<left>' vs '<right>'.
    template <typename Value>
    void AddValues(const char* label, const Value& leftValue, const Value& rightValue)
    {
        AddDifference(label, "'", leftValue, "' vs '", rightValue, "'");
    }

    /// Reports all pending differences in the order in which they were found.
    void Flush(Reporter& reporter) const
    {
        if (differences.empty())
            return;
        const LocationPath leftPath(1, LocationEntry(left));
        const LocationPath rightPath(1, LocationEntry(right));
        for (const PendingDifference& difference : differences)
            reporter.Report(ReportKind::Difference, difference.label, leftPath, rightPath, difference.text);
    }

    const T* left;
    const T* right;
    std::vector<PendingDifference> differences;
};

} // namespace HarrowSupport::Comparators
