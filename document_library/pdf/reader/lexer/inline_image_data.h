#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "pdf/reader/lexer/content_operand.h"

namespace OrvPdf
{

/// Bytes of an inline image's data that follow from its dictionary alone: its length in bytes where it is
/// given (ISO 32000-2, 8.9.7), otherwise, for samples without a filter, the size by dimensions, bits and
/// components. Nothing where the colour space is a name of the resources, or where what is needed is missing
/// or wrong.
std::optional<std::uint64_t> InlineImageLength(OperandRange entries);

/// Where the data of inline images ends in one content stream. Remembers what is not to come, so that the
/// calls for one content, in order of position, take time linear in the content altogether, whatever it
/// holds.
class InlineImageEnd
{
public:
    struct Range
    {
        std::size_t dataBegin = 0;
        std::size_t dataEnd = 0;

        /// Behind `EI`; the end of the content if there is none.
        std::size_t end = 0;
        bool hasEnd = false;

        /// The length that the dictionary gives does not lead to `EI`; the data ends where EI was found
        /// instead.
        bool lengthIsWrong = false;
    };

    explicit InlineImageEnd(std::string_view content = {});

    /// `afterOperator` is the offset behind `ID`. One white space separates it from the data, or CR with LF.
    /// In order:
    /// 1. the length, if `EI` follows there;
    /// 2. for ASCII filters (the first filter counts) the search begins behind the filter's end mark;
    /// 3. the first `EI` between white space that more content plausibly follows; also without the white
    /// space in
    ///    front if a known operator or the end of the content follows;
    /// 4. the first `EI` between white space at all;
    /// 5. the end of the content.
    Range Find(std::size_t afterOperator, OperandRange entries);

private:
    bool EndsAt(std::size_t dataEnd, std::size_t& end) const;
    std::size_t SearchBegin(std::size_t dataBegin, OperandRange entries);
    bool Search(std::size_t from, std::size_t& mark);
    bool IsMark(std::size_t at, std::size_t from, bool& isPlausible) const;

    std::string_view content;

    // No mark of that sort stands at or behind these offsets.
    std::size_t noPlausibleFrom;
    std::size_t noTildeFrom;
    std::size_t noGreaterFrom;
};

} // namespace OrvPdf
