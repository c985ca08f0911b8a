#pragma once

#include <memory>
#include <string>
#include <string_view>

struct libdeflate_compressor;

namespace OrvPdf
{

/// Compresses data for the filter `FlateDecode` (ISO 32000-1, 7.4.4). One object serves any number of
/// streams, one after the other. Equal data give equal bytes.
class FlateCompressor
{
public:
    FlateCompressor();

    /// Throws `std::bad_alloc` alone.
    std::string Compress(std::string_view data);

private:
    struct Release
    {
        void operator()(libdeflate_compressor* compressor) const;
    };

    std::unique_ptr<libdeflate_compressor, Release> compressor;
};

} // namespace OrvPdf
