#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace OrvPdf
{

/// Collects what can't be written: one line for each kind of problem, with a count and the first object that
/// has it, so that a long list of objects does not make a long list of errors. The lines come in order of the
/// first occurrence, so that the same model gives the same list.
class WritingProblems
{
public:
    /// `kind` is a sentence in the plural without a full stop: "images are not written yet".
    void Add(const std::string& kind, std::uint64_t objectId);

    /// A problem that no object has.
    void Add(const std::string& text);

    bool IsEmpty() const { return kinds.empty(); }

    /// "page 2: images are not written yet: 3, the first is object 17". `place` may be empty.
    std::vector<std::string> GetTexts(const std::string& place) const;

private:
    struct Kind
    {
        std::string text;
        std::uint64_t count = 0;
        std::uint64_t firstObject = 0;
    };

    std::vector<Kind> kinds;
    std::map<std::string, std::size_t> indices;
};

} // namespace OrvPdf
