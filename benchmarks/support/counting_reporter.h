#pragma once

#include <harrow_support/comparators.h>

#include <cstddef>
#include <string>

namespace Benchmarks
{

/// Counts reports and does nothing else.
class CountingReporter : public HarrowSupport::Comparators::Reporter
{
public:
    void Report(HarrowSupport::Comparators::ReportKind, const std::string&,
                const HarrowSupport::Comparators::LocationPath&,
                const HarrowSupport::Comparators::LocationPath&, const std::string&) override
    {
        ++count;
    }

    std::size_t count = 0;
};

/// All pictures and separations compared, every allowance made.
inline HarrowSupport::Comparators::Options AllOptions()
{
    HarrowSupport::Comparators::Options options{};
    options.looseImageLinks = true;
    options.compareImageData = true;
    options.compareSeparationInfo = true;
    options.softMaskAsChannel = true;
    options.expandIndexedImages = true;
    options.comparePatternContentReuse = true;
    return options;
}

} // namespace Benchmarks
