#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace OrvPdf
{

/// Memory for decoded strings that stays in its place until Clear. After some operations no more is
/// allocated: Clear keeps the largest block, and each new block is at least twice the one before.
class ByteArena
{
public:
    /// `size` bytes, not initialised.
    char* Take(std::size_t size)
    {
        if (size > capacity - used) {
            AddBlock(size);
        }
        char* const taken = blocks.back().get() + used;
        used += size;
        return taken;
    }

    /// Gives back the end of what the last Take gave.
    void GiveBack(std::size_t size) { used -= size; }

    /// Ends the life of all bytes taken.
    void Clear()
    {
        used = 0;
        if (blocks.size() > 1) {
            blocks.front() = std::move(blocks.back());
            blocks.resize(1);
        }
    }

private:
    void AddBlock(std::size_t size)
    {
        capacity = std::max({size, capacity * 2, std::size_t{4096}});
        blocks.emplace_back(new char[capacity]);
        used = 0;
    }

    std::vector<std::unique_ptr<char[]>> blocks;
    std::size_t capacity = 0;
    std::size_t used = 0;
};

} // namespace OrvPdf
