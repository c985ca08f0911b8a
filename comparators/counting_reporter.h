#pragma once

#include <harrow_support/comparators.h>

#include <cstdint>
#include <string>

namespace HarrowSupport::Comparators
{

/// Hands all reports on and counts them, so that a comparison can tell whether a part of it was silent.
class CountingReporter : public Reporter
{
public:
    explicit CountingReporter(Reporter& target) : receiver(target) {}

    void Report(ReportKind kind, const std::string& label, const LocationPath& left,
                const LocationPath& right, const std::string& text) override
    {
        ++count;
        receiver.Report(kind, label, left, right, text);
    }

    std::uint64_t GetCount() const { return count; }

private:
    Reporter& receiver;
    std::uint64_t count = 0;
};

} // namespace HarrowSupport::Comparators
