#include "pdf/reader/lexer/operator_id.h"

#include <array>
#include <cstddef>

namespace OrvPdf
{

namespace
{

/// In the order of OperatorId.
constexpr std::string_view texts[] = {
    "?",  "b",  "B",  "b*", "B*", "BDC", "BI",  "BMC", "BT", "BX", "c",  "cm", "CS", "cs", "d",
    "d0", "d1", "Do", "DP", "EI", "EMC", "ET",  "EX",  "f",  "F",  "f*", "G",  "g",  "gs", "h",
    "i",  "ID", "j",  "J",  "K",  "k",   "l",   "m",   "M",  "MP", "n",  "q",  "Q",  "re", "RG",
    "rg", "ri", "s",  "S",  "sc", "SC",  "scn", "SCN", "sh", "T*", "Tc", "Td", "TD", "Tf", "Tj",
    "TJ", "TL", "Tm", "Tr", "Ts", "Tw",  "Tz",  "v",   "w",  "W",  "W*", "y",  "'",  "\""};
constexpr std::size_t textCount = sizeof texts / sizeof *texts;
static_assert(textCount == static_cast<std::size_t>(OperatorId::NextLineShowTextWithSpacing) + 1,
              "each operator has its text");

/// No operator is longer.
constexpr std::size_t longest = 3;

constexpr std::uint32_t Pack(std::string_view text)
{
    std::uint32_t packed = 0;
    for (const char c : text) {
        packed = packed << 8 | static_cast<unsigned char>(c);
    }
    return packed;
}

constexpr std::size_t slotCount = 256;

constexpr std::size_t FirstSlot(std::uint32_t packed)
{
    return (packed * UINT32_C(0x9E3779B1)) >> 24;
}

struct Slot
{
    std::uint32_t packed = 0;
    OperatorId id = OperatorId::Unknown;
};

/// Open addressing; less than a third of the slots is taken, so nearly every search ends at its first.
constexpr std::array<Slot, slotCount> MakeSlots()
{
    std::array<Slot, slotCount> slots{};
    for (std::size_t i = 1; i < textCount; ++i) {
        const std::uint32_t packed = Pack(texts[i]);
        std::size_t slot = FirstSlot(packed);
        while (slots[slot].packed != 0) {
            slot = (slot + 1) % slotCount;
        }
        slots[slot].packed = packed;
        slots[slot].id = static_cast<OperatorId>(i);
    }
    return slots;
}

constexpr std::array<Slot, slotCount> slots = MakeSlots();

} // namespace

OperatorId FindOperator(std::string_view text)
{
    if (text.empty() || text.size() > longest) {
        return OperatorId::Unknown;
    }
    const std::uint32_t packed = Pack(text);
    // A text of zero bytes would pack to the mark of a free slot, whose operator is Unknown as it should be.
    for (std::size_t slot = FirstSlot(packed);; slot = (slot + 1) % slotCount) {
        if (slots[slot].packed == packed) {
            // Leading zero bytes pack like a shorter text.
            return text.front() == '\0' ? OperatorId::Unknown : slots[slot].id;
        }
        if (slots[slot].packed == 0) {
            return OperatorId::Unknown;
        }
    }
}

std::string_view OperatorText(OperatorId id)
{
    return texts[static_cast<std::size_t>(id)];
}

} // namespace OrvPdf
