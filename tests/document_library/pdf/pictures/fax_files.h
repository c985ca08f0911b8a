#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <tiffio.h>

/// Rows of characters, and what a TIFF writer encodes of them.
namespace FaxFiles
{

/// One text for each row, '#' for black.
using Rows = std::vector<std::string>;

namespace Detail
{

struct Memory
{
    std::string bytes;
    std::size_t place = 0;
};

inline tmsize_t Read(thandle_t handle, void* target, tmsize_t count)
{
    auto& memory = *static_cast<Memory*>(handle);
    const std::size_t left = memory.bytes.size() - std::min(memory.place, memory.bytes.size());
    const std::size_t taken = std::min(left, static_cast<std::size_t>(count));
    std::memcpy(target, memory.bytes.data() + memory.place, taken);
    memory.place += taken;
    return static_cast<tmsize_t>(taken);
}

inline tmsize_t Write(thandle_t handle, void* from, tmsize_t count)
{
    auto& memory = *static_cast<Memory*>(handle);
    const auto size = static_cast<std::size_t>(count);
    if (memory.bytes.size() < memory.place + size)
        memory.bytes.resize(memory.place + size);
    std::memcpy(memory.bytes.data() + memory.place, from, size);
    memory.place += size;
    return count;
}

inline toff_t Seek(thandle_t handle, toff_t offset, int whence)
{
    auto& memory = *static_cast<Memory*>(handle);
    const std::size_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? memory.place : memory.bytes.size();
    memory.place = base + static_cast<std::size_t>(offset);
    return memory.place;
}

inline int Close(thandle_t)
{
    return 0;
}

inline toff_t Size(thandle_t handle)
{
    return static_cast<Memory*>(handle)->bytes.size();
}

} // namespace Detail

/// Rows as packed bits, black as 0, the bits behind the last pixel as 0.
inline std::string Packed(const Rows& rows, bool blackIs1 = false)
{
    std::string packed;
    for (const std::string& row : rows) {
        std::string bytes((row.size() + 7) / 8, '\0');
        for (std::size_t x = 0; x < row.size(); ++x) {
            if ((row[x] == '#') == blackIs1)
                bytes[x / 8] = static_cast<char>(bytes[x / 8] | (0x80 >> x % 8));
        }
        packed += bytes;
    }
    return packed;
}

/// The data of one strip. `compression` is one of the TIFF library's; `options` are its Group 3 options.
inline std::string Encoded(const Rows& rows, std::uint16_t compression, std::uint32_t options = 0,
                           int mode = FAXMODE_CLASSIC)
{
    Detail::Memory memory;
    TIFF* tiff = TIFFClientOpen("fax", "w", &memory, Detail::Read, Detail::Write, Detail::Seek, Detail::Close,
                                Detail::Size, nullptr, nullptr);
    if (tiff == nullptr)
        throw std::runtime_error("no TIFF file could be made");
    const std::string packed = Packed(rows, true);
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(rows[0].size()));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(rows.size()));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, static_cast<std::uint32_t>(rows.size()));
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, compression);
    if (compression == COMPRESSION_CCITTFAX3) {
        TIFFSetField(tiff, TIFFTAG_GROUP3OPTIONS, options);
        TIFFSetField(tiff, TIFFTAG_FAXMODE, mode);
    }
    std::string copy = packed;
    TIFFWriteEncodedStrip(tiff, 0, copy.data(), static_cast<tmsize_t>(copy.size()));
    std::uint64_t* offsets = nullptr;
    std::uint64_t* counts = nullptr;
    TIFFWriteDirectory(tiff);
    TIFFSetDirectory(tiff, 0);
    TIFFGetField(tiff, TIFFTAG_STRIPOFFSETS, &offsets);
    TIFFGetField(tiff, TIFFTAG_STRIPBYTECOUNTS, &counts);
    const std::string strip =
        offsets != nullptr && counts != nullptr
            ? memory.bytes.substr(static_cast<std::size_t>(offsets[0]), static_cast<std::size_t>(counts[0]))
            : std::string();
    TIFFClose(tiff);
    if (strip.empty())
        throw std::runtime_error("the TIFF file has no strip");
    return strip;
}

/// Code words, written as zeros and ones with any blanks between them; the last byte is filled up with zeros.
inline std::string Bits(std::string_view digits)
{
    std::string bytes;
    std::size_t count = 0;
    for (const char digit : digits) {
        if (digit == ' ')
            continue;
        if (count % 8 == 0)
            bytes += '\0';
        if (digit == '1')
            bytes.back() = static_cast<char>(bytes.back() | (0x80 >> count % 8));
        ++count;
    }
    return bytes;
}

/// Rows without rule, but the same each time; black in runs of all lengths.
inline Rows Varied(std::size_t columns, std::size_t count)
{
    std::uint32_t state = 12345;
    const auto next = [&state](std::uint32_t below) {
        state = state * 1664525u + 1013904223u;
        return (state >> 8) % below;
    };
    Rows rows;
    for (std::size_t y = 0; y < count; ++y) {
        // Rows that are like the one above need the other kinds of code.
        std::string row = y % 3 == 0 ? std::string() : rows.back();
        if (row.empty()) {
            bool isBlack = next(2) == 1;
            while (row.size() < columns) {
                const std::uint32_t length = next(4) == 0 ? next(300) : next(12);
                row += std::string(length, isBlack ? '#' : '.');
                isBlack = !isBlack;
            }
            row.resize(columns);
        } else {
            for (std::size_t i = 0; i < 1 + columns / 40; ++i)
                row[next(static_cast<std::uint32_t>(columns))] = next(2) == 1 ? '#' : '.';
        }
        rows.push_back(row);
    }
    return rows;
}

} // namespace FaxFiles
