#pragma once

#include <cstddef>
#include <memory>

#include <ft2build.h>
#include FT_FREETYPE_H

namespace OrvFont::Detail
{

/// An instance of FreeType for one font program, with the readers of PDF's outline fonts alone: TrueType,
/// OpenType, CFF and Type 1 (ISO 32000-1, 9.9). Threads must take turns, but two instances share nothing.
class FreeTypeLibrary
{
public:
    /// `memoryLimit` in bytes, for all that the instance holds at a time: a program beyond it is refused.
    /// @throws std::runtime_error
    explicit FreeTypeLibrary(std::size_t memoryLimit);
    ~FreeTypeLibrary();
    FreeTypeLibrary(const FreeTypeLibrary&) = delete;
    FreeTypeLibrary& operator=(const FreeTypeLibrary&) = delete;

    FT_Library Get() const { return library; }

private:
    struct Memory;

    std::unique_ptr<Memory> memory;
    FT_Library library = nullptr;
};

} // namespace OrvFont::Detail
