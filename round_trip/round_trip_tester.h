#pragma once

#include <harrow_support/comparators.h>
#include <harrow_support/round_trip.h>

#include <string>
#include <vector>

namespace HarrowSupport
{

/// Keeps what a comparison reports as differences of a round trip: in order, and with the place of each in
/// front of its text.
class RoundTripTester : public Comparators::Reporter
{
public:
    ~RoundTripTester() override;

    /// Keeps a report of any kind, a tolerated variation too, with the place that stands last in each path:
    ///
    /// | places | what is kept |
    /// |---|---|
    /// | none on a side, or of different kinds | the text alone |
    /// | both known | "Left object OID12 differs with Right object OID40: " and the text |
    /// | one of them null | "Left object OID12: " or "Right object OID40: " and the text |
    /// | both null | nothing |
    void Report(Comparators::ReportKind kind, const std::string& label, const Comparators::LocationPath& left,
                const Comparators::LocationPath& right, const std::string& text) override;

    std::vector<Difference> differences;
};

} // namespace HarrowSupport
