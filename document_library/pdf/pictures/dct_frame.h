#pragma once

#include <cstddef>
#include <string_view>

#include "pdf/pictures/dct_decoder.h"

namespace OrvPdf
{

/// A frame header as it stands in the data (ITU-T T.81, B.2.2). A height of zero is told behind the first
/// scan.
struct DctFrame
{
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t channels = 0;
    std::size_t precision = 0;
    bool isFound = false;
};

/// The first frame header, which stands before the first scan.
DctFrame FindDctFrame(std::string_view data);

/// The data from the start of its image; nothing if there is none.
std::string_view SkipToImage(std::string_view data);

} // namespace OrvPdf
