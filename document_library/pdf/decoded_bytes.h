#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace OrvPdf
{

/// Bytes in memory that isn't cleared before it is written, unlike a string's: decoders fill it at once.
class DecodedBytes
{
public:
    DecodedBytes() = default;
    explicit DecodedBytes(std::size_t givenCapacity)
        : data(givenCapacity > 0 ? new char[givenCapacity] : nullptr), capacity(givenCapacity)
    {}
    DecodedBytes(DecodedBytes&& other) noexcept
        : data(std::move(other.data)),
          size(std::exchange(other.size, 0)),
          capacity(std::exchange(other.capacity, 0))
    {}
    DecodedBytes& operator=(DecodedBytes&& other) noexcept
    {
        data = std::move(other.data);
        size = std::exchange(other.size, 0);
        capacity = std::exchange(other.capacity, 0);
        return *this;
    }

    std::string_view View() const { return {data.get(), size}; }
    char* GetData() { return data.get(); }
    std::size_t GetSize() const { return size; }
    std::size_t GetCapacity() const { return capacity; }
    /// Tells how many bytes were written; at most the capacity.
    void SetSize(std::size_t value) { size = value; }

    /// Keeps the bytes and makes the capacity at least `wanted`.
    void Reserve(std::size_t wanted)
    {
        if (wanted <= capacity)
            return;
        DecodedBytes larger(wanted);
        if (size > 0)
            std::memcpy(larger.GetData(), data.get(), size);
        larger.SetSize(size);
        *this = std::move(larger);
    }

    /// Amortised constant time for a byte.
    void Append(std::string_view bytes)
    {
        if (bytes.empty())
            return;
        if (capacity - size < bytes.size())
            Reserve(capacity / 2 + size + bytes.size());
        std::memcpy(data.get() + size, bytes.data(), bytes.size());
        size += bytes.size();
    }

private:
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
    std::size_t capacity = 0;
};

} // namespace OrvPdf
