#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace OrvPdf
{

/// Texts of active errors, up to a limit: a damaged file can have one for each of its objects. The last entry
/// then tells how many more there were.
class ErrorList
{
public:
    explicit ErrorList(std::uint64_t givenLimit) : limit(givenLimit) {}

    void Add(std::string text)
    {
        if (texts.size() < limit)
            texts.push_back(std::move(text));
        else
            ++omitted;
    }

    void Add(std::vector<std::string> more)
    {
        for (std::string& text : more)
            Add(std::move(text));
    }

    bool IsEmpty() const { return texts.empty() && omitted == 0; }

    /// The texts; the list is empty afterwards.
    std::vector<std::string> Take()
    {
        if (omitted > 0)
            texts.push_back(std::to_string(omitted) + " more errors beyond the limit of " +
                            std::to_string(limit));
        omitted = 0;
        return std::exchange(texts, {});
    }

private:
    std::uint64_t limit;
    std::uint64_t omitted = 0;
    std::vector<std::string> texts;
};

} // namespace OrvPdf
