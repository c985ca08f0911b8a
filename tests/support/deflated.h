#pragma once

#include <stdexcept>
#include <string>

#include <zlib.h>

namespace HarrowSupport::Testing
{

/// The bytes as the filter Flate has them, made by zlib, so that our own compressor has no hand in it.
inline std::string Deflated(const std::string& plain)
{
    uLongf size = compressBound(static_cast<uLong>(plain.size()));
    std::string encoded(size, '\0');
    if (compress(reinterpret_cast<Bytef*>(encoded.data()), &size,
                 reinterpret_cast<const Bytef*>(plain.data()), static_cast<uLong>(plain.size())) != Z_OK)
        throw std::runtime_error("zlib cannot compress the bytes of a test");
    encoded.resize(size);
    return encoded;
}

} // namespace HarrowSupport::Testing
