#include "pdf/reader/pictures/sample_cache.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{

using OrvImg::PictureBuffer;
using OrvPdf::SampleCache;

std::shared_ptr<const PictureBuffer> Buffer(std::size_t bytes)
{
    return PictureBuffer::Factory(bytes, 1, 1, 8).GetResult();
}

/// Keeps a buffer that nobody else holds.
std::weak_ptr<const PictureBuffer> KeepAlone(SampleCache& cache, std::size_t bytes)
{
    auto buffer = Buffer(bytes);
    const std::weak_ptr<const PictureBuffer> weak = buffer;
    cache.Keep(std::move(buffer));
    return weak;
}

TEST(SampleCache, KeepsWhatFits)
{
    SampleCache cache(20);
    const auto first = KeepAlone(cache, 10);
    const auto second = KeepAlone(cache, 10);
    EXPECT_FALSE(first.expired());
    EXPECT_FALSE(second.expired());
}

TEST(SampleCache, LetsTheOldestGoOneByteBeyondItsRoom)
{
    SampleCache cache(20);
    const auto first = KeepAlone(cache, 10);
    const auto second = KeepAlone(cache, 10);
    const auto third = KeepAlone(cache, 1);
    EXPECT_TRUE(first.expired());
    EXPECT_FALSE(second.expired());
    EXPECT_FALSE(third.expired());
}

TEST(SampleCache, LetsAsManyGoAsItTakes)
{
    SampleCache cache(20);
    const auto first = KeepAlone(cache, 10);
    const auto second = KeepAlone(cache, 10);
    const auto large = KeepAlone(cache, 20);
    EXPECT_TRUE(first.expired());
    EXPECT_TRUE(second.expired());
    EXPECT_FALSE(large.expired());
}

TEST(SampleCache, OneThatIsLargerThanAllRoomLeavesTheOthers)
{
    SampleCache cache(20);
    const auto first = KeepAlone(cache, 10);
    const auto large = KeepAlone(cache, 21);
    EXPECT_FALSE(first.expired());
    EXPECT_TRUE(large.expired());
}

TEST(SampleCache, WhatSomebodyElseHoldsOutlivesIt)
{
    SampleCache cache(10);
    const auto held = Buffer(10);
    cache.Keep(held);
    KeepAlone(cache, 10);
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace
