#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "pdf/limit_text.h"

namespace OrvPdf
{

/// Texts of active errors, up to a limit: a damaged file can have one for each of its objects. The last entry
/// then tells how many more there were.
///
/// `alreadyKept` counts those that others hold and that the limit is for as well.
class ErrorList
{
public:
    explicit ErrorList(std::uint64_t givenLimit, std::uint64_t alreadyKept = 0)
        : limit(givenLimit), room(alreadyKept < givenLimit ? givenLimit - alreadyKept : 0)
    {}

    void Add(std::string text)
    {
        if (texts.size() < room)
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
            texts.push_back(
                LimitText("errors", limit, std::to_string(omitted) + " more problems are not listed"));
        omitted = 0;
        return std::exchange(texts, {});
    }

private:
    std::uint64_t limit;
    std::uint64_t room;
    std::uint64_t omitted = 0;
    std::vector<std::string> texts;
};

} // namespace OrvPdf
