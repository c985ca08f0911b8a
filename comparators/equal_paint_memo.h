#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace OrvPaint
{
class Paint;
}

namespace HarrowSupport::Comparators
{

/// Remembers pairs of paints that were compared and found alike, so that a page of a thousand strokes in one
/// colour compares that colour once. Only pairs without any difference may enter: leaving their comparison
/// out is then unseen by the receiver of the reports.
///
/// A new pair takes the place of an older one that falls into the same slot. The paints are held, so that an
/// address cannot come to mean another paint.
class EqualPaintMemo
{
public:
    using PaintPointer = std::shared_ptr<const OrvPaint::Paint>;

    bool Knows(const PaintPointer& left, const PaintPointer& right) const
    {
        const Slot& slot = slots[Index(left.get(), right.get())];
        return slot.left == left && slot.right == right;
    }

    void Remember(const PaintPointer& left, const PaintPointer& right)
    {
        slots[Index(left.get(), right.get())] = {left, right};
    }

private:
    struct Slot
    {
        PaintPointer left;
        PaintPointer right;
    };

    static constexpr std::size_t slotCount = 64;

    static std::size_t Index(const void* left, const void* right)
    {
        // Heap addresses are multiples of 16, and paints made one after the other lie a few of these apart.
        const auto leftBits = reinterpret_cast<std::uintptr_t>(left) >> 4;
        const auto rightBits = reinterpret_cast<std::uintptr_t>(right) >> 4;
        const std::uintptr_t mixed = leftBits ^ (rightBits * 7);
        return (mixed ^ (mixed >> 6) ^ (mixed >> 12)) % slotCount;
    }

    std::array<Slot, slotCount> slots;
};

} // namespace HarrowSupport::Comparators
