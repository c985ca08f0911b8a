#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace OrvSys::Detail
{

/// FNV-1a of 64 bits: the same on every machine and in every run. It tells values apart and names them; it is
/// no proof of equality, as a file may be made to collide.
class Digest
{
public:
    void Add(unsigned char byte) { value = (value ^ byte) * 0x100000001b3u; }

    void Add(std::string_view bytes)
    {
        for (const char byte : bytes)
            Add(static_cast<unsigned char>(byte));
    }

    /// Eight bytes, lowest first.
    void AddNumber(std::uint64_t number)
    {
        for (int shift = 0; shift < 64; shift += 8)
            Add(static_cast<unsigned char>(number >> shift));
    }

    std::uint64_t Get() const { return value; }

private:
    std::uint64_t value = 0xcbf29ce484222325u;
};

/// 16 lower-case hexadecimal digits.
std::string DigestText(std::uint64_t digest);

} // namespace OrvSys::Detail
