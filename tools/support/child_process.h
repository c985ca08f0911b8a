#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// What a child process may use before it is stopped.
struct ProcessLimits
{
    std::chrono::milliseconds time = std::chrono::seconds(60);
    /// Bytes of address space; zero sets no limit. Not under the address sanitizer, which reserves terabytes.
    std::uint64_t addressSpace = 0;
};

/// How a child process ended, and what it wrote.
struct ProcessResult
{
    /// Exit code; 127 if the program could not be started. -1 if a signal ended the process.
    int exitCode = -1;
    /// The signal that ended the process; zero if it ended by itself. SIGKILL also stands for the time limit.
    int signal = 0;
    bool timedOut = false;
    std::string output;
    std::string errors;
    double seconds = 0.0;
    /// The largest resident memory; never below that of the program that started the child.
    double peakMebibytes = 0.0;
};

/// Runs a program to its end. Safe to call from several threads at once.
///
/// @param command      the program's file, or a name that PATH leads to, and its arguments
/// @param environment  entries `NAME=value` that are added to this process's environment or replace there
/// @param input        what the program can read on standard input
/// @throws std::system_error if no process can be made
ProcessResult RunProcess(const std::vector<std::string>& command, const ProcessLimits& limits = {},
                         const std::vector<std::string>& environment = {}, const std::string& input = {});

} // namespace HarrowSupport::Testing
