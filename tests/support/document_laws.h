#pragma once

#include "support/random_documents.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// What a law finds wrong with the document of a plan; empty if it holds.
using Law = std::function<std::string(const PlannedDocument&)>;

/// Runs a law over so many random documents. An exception is a failure of the law. A failure shows the
/// smallest document found, its seed and what is wrong with it.
void ExpectLaw(const Law& law, std::uint32_t count);

/// Joins what is wrong to the text that a law answers with.
std::string Lines(const std::vector<std::string>& lines);

} // namespace HarrowSupport::Testing
