#include "pdf/writer/file/flate_compressor.h"

#include <new>

#include <libdeflate.h>

namespace OrvPdf
{

namespace
{

// Higher levels take twice the time for a few per cent of a content stream.
constexpr int level = 6;

} // namespace

void FlateCompressor::Release::operator()(libdeflate_compressor* given) const
{
    libdeflate_free_compressor(given);
}

FlateCompressor::FlateCompressor() : compressor(libdeflate_alloc_compressor(level))
{
    if (!compressor) {
        throw std::bad_alloc();
    }
}

std::string FlateCompressor::Compress(std::string_view data)
{
    std::string result(libdeflate_zlib_compress_bound(compressor.get(), data.size()), '\0');
    const std::size_t size =
        libdeflate_zlib_compress(compressor.get(), data.data(), data.size(), result.data(), result.size());
    result.resize(size);
    result.shrink_to_fit();
    return result;
}

} // namespace OrvPdf
