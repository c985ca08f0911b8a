#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Benchmarks
{

/// Seconds that one call takes.
template <typename Work>
double Seconds(Work&& work)
{
    const auto begin = std::chrono::steady_clock::now();
    std::forward<Work>(work)();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

/// The fastest run of two pieces of work, in seconds.
struct Pair
{
    double ours = 1e300;
    double reference = 1e300;

    double Ratio() const { return ours / reference; }
};

/// Runs both in turn, so that a machine whose speed changes meanwhile slows both, and keeps the fastest run
/// of each: what disturbs a run only makes it longer.
template <typename Ours, typename Reference>
Pair MeasureInTurn(int rounds, Ours&& ours, Reference&& reference)
{
    Pair result;
    for (int round = 0; round < rounds; ++round) {
        result.ours = std::min(result.ours, Seconds(ours));
        result.reference = std::min(result.reference, Seconds(reference));
    }
    return result;
}

/// Runs a program to its end with its output thrown away. Throws `std::runtime_error` if it can't be started
/// or doesn't end with one of these exit codes.
void RunProgram(const std::vector<std::string>& arguments, const std::vector<int>& goodCodes = {0});

/// Bytes of the process that are in memory now, after free blocks have been given back.
std::size_t ResidentBytes();

/// Runs this program once more with these arguments and behind them the name of a file, into which that run
/// puts its peak of memory through TellPeak. Throws as RunProgram does, and if the file tells nothing.
double PeakMebibytesOfOwnRun(std::vector<std::string> arguments, const std::string& answerFile);

/// Writes the most memory that the process had so far.
void TellPeak(const std::string& answerFile);

} // namespace Benchmarks
