#include "orv_font/free_type_library.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include FT_MODULE_H
#include FT_SYSTEM_H

namespace OrvFont::Detail
{

namespace
{

/// Bytes of a block that is given room to grow.
constexpr std::size_t longList = 4096;

/// Stands before each block and keeps its size, which FreeType does not tell when it gives a block back.
struct alignas(std::max_align_t) BlockHeader
{
    std::size_t size = 0;
};

BlockHeader* HeaderOf(void* block)
{
    return static_cast<BlockHeader*>(block) - 1;
}

} // namespace

struct FreeTypeLibrary::Memory
{
    FT_MemoryRec_ record{};
    std::size_t bytesLeft = 0;

    explicit Memory(std::size_t limit) : bytesLeft(limit)
    {
        record.user = this;
        record.alloc = Allocate;
        record.free = Free;
        record.realloc = Reallocate;
    }

    static Memory& Of(FT_Memory given) { return *static_cast<Memory*>(given->user); }

    static void* Allocate(FT_Memory given, long size)
    {
        Memory& memory = Of(given);
        if (size <= 0 || static_cast<std::size_t>(size) > memory.bytesLeft)
            return nullptr;
        const auto wanted = static_cast<std::size_t>(size);
        auto* header = static_cast<BlockHeader*>(std::malloc(sizeof(BlockHeader) + wanted));
        if (!header)
            return nullptr;
        header->size = wanted;
        memory.bytesLeft -= wanted;
        return header + 1;
    }

    static void Free(FT_Memory given, void* block)
    {
        if (!block)
            return;
        BlockHeader* header = HeaderOf(block);
        Of(given).bytesLeft += header->size;
        std::free(header);
    }

    static void* Reallocate(FT_Memory given, long, long size, void* block)
    {
        if (!block)
            return Allocate(given, size);
        Memory& memory = Of(given);
        const std::size_t before = HeaderOf(block)->size;
        if (size <= 0 || static_cast<std::size_t>(size) > memory.bytesLeft + before)
            return nullptr;
        const auto needed = static_cast<std::size_t>(size);
        if (needed <= before && needed > before / 2)
            return block;
        // FreeType lets its lists grow by a few entries at a time: where each new block is another one, a
        // long list would be copied thousands of times. Small blocks get no room, since there are many of
        // them.
        const std::size_t room = needed > before && before >= longList ? needed / 2 : 0;
        const std::size_t wanted = std::min(needed + room, memory.bytesLeft + before);
        auto* header = static_cast<BlockHeader*>(std::realloc(HeaderOf(block), sizeof(BlockHeader) + wanted));
        if (!header)
            return nullptr;
        header->size = wanted;
        memory.bytesLeft += before;
        memory.bytesLeft -= wanted;
        return header + 1;
    }
};

FreeTypeLibrary::FreeTypeLibrary(std::size_t memoryLimit) : memory(std::make_unique<Memory>(memoryLimit))
{
    if (FT_New_Library(&memory->record, &library) != 0)
        throw std::runtime_error("FreeType can't be started with " + std::to_string(memoryLimit) +
                                 " bytes of memory.");
    FT_Add_Default_Modules(library);
    // No PDF has a font of these kinds, and nothing is drawn or fitted to pixels here: what is not there can
    // neither be attacked nor take memory.
    for (const char* name : {"bdf", "pcf", "winfonts", "pfr", "type42", "autofitter", "raster1", "smooth",
                             "svg", "sdf", "bsdf"}) {
        if (FT_Module module = FT_Get_Module(library, name))
            FT_Remove_Module(library, module);
    }
}

FreeTypeLibrary::~FreeTypeLibrary()
{
    FT_Done_Library(library);
}

} // namespace OrvFont::Detail
