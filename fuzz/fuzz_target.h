#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

/// What each fuzz target defines: takes any bytes, and ends the program where a law is broken. Called many
/// times in one process, so that it leaves nothing behind. Always returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace HarrowSupport::Fuzzing
{

/// Ends the program, which the fuzzer takes for a finding, unless the law holds. The text says what the law
/// is.
inline void Require(bool holds, const char* law)
{
    if (holds)
        return;
    std::cerr << "Broken law: " << law << std::endl;
    std::abort();
}

} // namespace HarrowSupport::Fuzzing
