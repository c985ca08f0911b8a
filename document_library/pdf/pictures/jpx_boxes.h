#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <orv_color/icc_profile.h>

#include "pdf/pictures/jpx_decoder.h"

namespace OrvPdf
{

/// What the boxes of a JP2 file say (ISO/IEC 15444-1, annex I), beside the codestream.
struct JpxBoxes
{
    /// A table that the samples of a component are places in.
    struct Palette
    {
        struct Column
        {
            std::size_t precision = 0;
            bool isSigned = false;
        };
        std::vector<Column> columns;
        /// Numbers as they are given, one entry behind the other. Whole entries only.
        std::vector<std::uint64_t> numbers;

        std::size_t CountEntries() const { return columns.empty() ? 0 : numbers.size() / columns.size(); }
    };

    struct Mapping
    {
        std::size_t component = 0;
        bool usesPalette = false;
        std::size_t column = 0;
    };

    struct Definition
    {
        std::size_t channel = 0;
        std::uint32_t type = 0;
        std::uint32_t association = 0;
    };

    /// The codestream up to the end of its box; empty if there is none.
    std::string_view codestream;
    JpxHeader::Space space = JpxHeader::Space::None;
    /// Enumerated as sYCC, which has to be made sRGB.
    bool isYcc = false;
    std::shared_ptr<const OrvColor::ICCProfile> profile;
    Palette palette;
    std::vector<Mapping> mappings;
    std::vector<Definition> definitions;
};

/// Reads a file or a bare codestream; where the boxes are damaged, the codestream is looked for. Linear in
/// the data.
JpxBoxes ReadJpxBoxes(std::string_view data);

} // namespace OrvPdf
