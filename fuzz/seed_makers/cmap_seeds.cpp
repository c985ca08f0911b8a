#include "seed_makers/seed_makers.h"

#include <cstdint>
#include <random>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::uint32_t seeds = 100;

/// Writes CMap files whose codes are of all lengths and lie close together, so that ranges overlap.
class RandomCMaps
{
public:
    explicit RandomCMaps(std::uint32_t seed) : random(seed) {}

    std::string Make()
    {
        std::string shown;
        for (unsigned count = 1 + random() % 20; count > 0; --count)
            shown += Digits(1, OneIn(2) ? 0x20 : 0x80, 0x30);
        std::string file;
        if (OneIn(4))
            file += "/Base usecmap\n";
        file += Codespace();
        for (unsigned count = random() % 6; count > 0; --count)
            file += Section();
        return shown + "\n" + file;
    }

private:
    bool OneIn(unsigned count) { return random() % count == 0; }

    /// Of so many bytes, each of them not far above the least one.
    std::string Digits(unsigned bytes, unsigned least, unsigned spread)
    {
        static constexpr char digits[] = "0123456789abcdef";
        std::string text;
        for (unsigned place = 0; place < bytes; ++place) {
            const unsigned byte = least + static_cast<unsigned>(random() % spread);
            text += digits[byte / 16 % 16];
            text += digits[byte % 16];
        }
        return text;
    }

    std::string Range(unsigned bytes)
    {
        const unsigned least = OneIn(2) ? 0x20 : 0x80;
        // But for the last byte both ends are often the same, as the standard wants it.
        const std::string head = Digits(bytes - 1, least, 0x20);
        const std::string otherHead = OneIn(3) ? Digits(bytes - 1, least + 0x10, 0x20) : head;
        return "<" + head + Digits(1, least, 0x18) + "> <" + otherHead + Digits(1, least + 0x18, 0x18) + "> ";
    }

    unsigned Length() { return OneIn(2) ? 1 : 1 + static_cast<unsigned>(random() % 4); }

    std::string Codespace()
    {
        std::string text = "begincodespacerange ";
        for (unsigned count = 1 + random() % 4; count > 0; --count)
            text += Range(Length());
        return text + "endcodespacerange\n";
    }

    std::string Section()
    {
        static constexpr const char* kinds[] = {"cid", "cid", "notdef", "bf"};
        const std::string kind = kinds[random() % 4];
        const bool isRange = OneIn(2);
        const std::string words = kind + (isRange ? "range" : "char");
        std::string text = "begin" + words + " ";
        for (unsigned count = 1 + random() % 5; count > 0; --count) {
            const unsigned bytes = Length();
            text += isRange ? Range(bytes) : "<" + Digits(bytes, OneIn(2) ? 0x20 : 0x80, 0x30) + "> ";
            if (kind != "bf")
                text += std::to_string(random() % (OneIn(5) ? 70000 : 400)) + " ";
            else
                text += OneIn(4) && isRange ? "[<0041> <00420043>] " : "<00" + Digits(1, 0x20, 0xD0) + "> ";
        }
        return text + "end" + words + "\n";
    }

    std::mt19937 random;
};

} // namespace

void MakeCMapSeeds(const SeedFolder& folder)
{
    for (std::uint32_t seed = 1; seed <= seeds; ++seed)
        folder.Add("random_" + std::to_string(seed), RandomCMaps(seed).Make());
}

} // namespace HarrowSupport::Fuzzing
