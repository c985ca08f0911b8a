#pragma once

#include <memory>
#include <string>

namespace OrvPdf
{

/// A stream of a font that is decoded when it is asked for: its program, a map of its codes. Safe to use from
/// several threads.
class FontStream
{
public:
    virtual ~FontStream() = default;

    /// The decoded bytes, anew at each call. What is wrong with the stream is told in `problem`; the bytes
    /// are then as much as came out. Throws `std::bad_alloc` alone.
    virtual std::string Read(std::string& problem) const = 0;
};

/// Where a problem goes that is found after the font was read.
class LateProblems
{
public:
    virtual ~LateProblems() = default;
    virtual void Tell(const std::string& problem) const = 0;
};

} // namespace OrvPdf
