#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace HarrowSupport::Fuzzing
{

/// Runs a calculator function (ISO 32000-1, 7.10.5) word by word, procedures where they stand. Nothing for
/// one that is malformed, nested more than so many levels, or does what it must not. Knows no other limit of
/// time or size.
std::optional<std::vector<double>> RunPlainly(std::string_view program, const std::vector<double>& inputs,
                                              std::size_t mostLevels);

} // namespace HarrowSupport::Fuzzing
