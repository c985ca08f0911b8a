#include "support/document_laws.h"

#include <gtest/gtest.h>

#include <exception>

namespace HarrowSupport::Testing
{

void ExpectLaw(const Law& law, std::uint32_t count)
{
    const auto guarded = [&law](const PlannedDocument& plan) {
        try {
            return law(plan);
        } catch (const std::exception& error) {
            return std::string("exception: ") + error.what();
        }
    };
    for (std::uint32_t seed = FirstSeed(); seed < FirstSeed() + count; ++seed) {
        const PlannedDocument plan = PlanDocument(seed);
        if (guarded(plan).empty()) {
            continue;
        }
        const PlannedDocument smallest =
            Shrink(plan, [&guarded](const PlannedDocument& smaller) { return !guarded(smaller).empty(); });
        FAIL() << "HARROW_SEED=" << seed << " (the first of a run over " << count << ")\n"
               << guarded(smallest) << "\n"
               << Describe(smallest);
    }
}

std::string Lines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\n";
    }
    return text;
}

} // namespace HarrowSupport::Testing
