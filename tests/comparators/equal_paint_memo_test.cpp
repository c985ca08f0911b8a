#include "comparators/equal_paint_memo.h"

#include "support/document_makers.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace HarrowSupport::Testing
{

using Comparators::EqualPaintMemo;

namespace
{

/// So many that some pairs of one paint with each of the others must fall into the same slot.
std::vector<PaintPointer> MorePaintsThanSlots()
{
    std::vector<PaintPointer> paints;
    for (int i = 0; i < 100; ++i)
        paints.push_back(Flat(Tints({})));
    return paints;
}

} // namespace

TEST(EqualPaintMemo, KnowsNothingAtFirst)
{
    const auto memo = std::make_unique<EqualPaintMemo>();
    EXPECT_FALSE(memo->Knows(Flat(Tints({})), Flat(Tints({}))));
}

TEST(EqualPaintMemo, KnowsThePairThatItWasToldLast)
{
    const auto memo = std::make_unique<EqualPaintMemo>();
    const PaintPointer one = Flat(Tints({}));
    for (const PaintPointer& other : MorePaintsThanSlots()) {
        memo->Remember(one, other);
        EXPECT_TRUE(memo->Knows(one, other));
    }
}

TEST(EqualPaintMemo, TellsPairsOfOneSlotApart)
{
    const std::vector<PaintPointer> paints = MorePaintsThanSlots();
    const PaintPointer one = Flat(Tints({}));
    for (std::size_t told = 0; told < paints.size(); ++told) {
        const auto memo = std::make_unique<EqualPaintMemo>();
        memo->Remember(one, paints[told]);
        memo->Remember(paints[told], one);
        for (std::size_t asked = 0; asked < paints.size(); ++asked) {
            if (asked == told)
                continue;
            EXPECT_FALSE(memo->Knows(one, paints[asked])) << told << ", " << asked;
            EXPECT_FALSE(memo->Knows(paints[asked], one)) << told << ", " << asked;
        }
    }
}

TEST(EqualPaintMemo, TellsLeftFromRight)
{
    for (const PaintPointer& left : MorePaintsThanSlots()) {
        const auto memo = std::make_unique<EqualPaintMemo>();
        const PaintPointer right = Flat(Tints({}));
        memo->Remember(left, right);
        EXPECT_FALSE(memo->Knows(right, left));
    }
}

TEST(EqualPaintMemo, HoldsItsPaintsSoThatNoOtherTakesTheirAddress)
{
    const auto memo = std::make_unique<EqualPaintMemo>();
    PaintPointer left = Flat(Tints({}));
    PaintPointer right = Flat(Tints({}));
    memo->Remember(left, right);
    const std::weak_ptr<const OrvPaint::Paint> watchedLeft = left;
    const std::weak_ptr<const OrvPaint::Paint> watchedRight = right;
    left.reset();
    right.reset();
    EXPECT_FALSE(watchedLeft.expired());
    EXPECT_FALSE(watchedRight.expired());
}

} // namespace HarrowSupport::Testing
