#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "pdf/reader/content/content_interpreter.h"

namespace OrvPdf
{

/// Bytes of a file for a message: what isn't printable is written as in a name of PDF syntax, and what is
/// very long is cut off.
std::string Readable(std::string_view bytes);

/// What an interpreter could not do, gathered so that a stream with a million problems of one kind has one
/// entry.
class ProblemLog
{
public:
    /// The most entries that are kept; what goes beyond is counted.
    explicit ProblemLog(std::uint64_t maximumEntries) : maximum(maximumEntries) {}

    /// A valid operation that the model has no place for. `detail` tells cases of one reason apart, such as
    /// the name of a resource; it may be empty.
    void Unmodelled(std::string_view operatorText, std::string_view reason, std::string_view detail,
                    ByteRange place);
    /// Bytes that no reader can make sense of; they are left out.
    void Damaged(std::string_view operatorText, std::string_view reason, std::string_view detail,
                 ByteRange place);
    /// Something odd that was read nonetheless.
    void Odd(std::string_view operatorText, std::string_view reason, std::string_view detail,
             ByteRange place);
    /// A limit that leaves out a part of the content. The content counts as unmodelled, for what was left out
    /// is still in the file.
    void Limit(const char* name, std::uint64_t value, ByteRange place);
    /// Something that the model has no place for, told elsewhere.
    void MarkUnmodelled() { hasUnmodelled = true; }
    /// Problems that somebody else has counted and not kept.
    void CountDropped(std::uint64_t count) { dropped += count; }

    /// Tells where the latest operation ended, damaged or not. Damages that directly follow one another are
    /// one.
    void EndOperation(std::size_t end) { operationEnd = end; }

    /// The entries as texts, in order of their first occurrence, and what they mean for the content as a
    /// whole. Sorts and joins the damaged ranges.
    Interpretation Finish();

private:
    struct Entry
    {
        std::string text;
        std::uint64_t count;
        std::size_t first;
    };

    void Record(std::string_view operatorText, std::string_view reason, std::string_view detail,
                ByteRange place);

    std::uint64_t maximum;
    std::size_t operationEnd = 0;
    std::uint64_t dropped = 0;
    bool hasUnmodelled = false;
    std::string key; // kept for its memory
    std::unordered_map<std::string, std::size_t> indices;
    std::vector<Entry> entries;
    std::vector<ByteRange> damaged;
};

} // namespace OrvPdf
