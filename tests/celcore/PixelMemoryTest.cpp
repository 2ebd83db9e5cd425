// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Blocks for pixels: what is kept, for how long, and who gets it.
#include "QuarvelCelCore/CEL_PixelMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

class PixelMemory : public testing::Test
{
protected:
    PixelMemory() { CEL_PixelMemory::trim(); }
    ~PixelMemory() override { CEL_PixelMemory::trim(); }
};

// What is idle when so much was given back, in a build that keeps anything at all.
std::size_t kept(std::size_t bytes)
{
    return std::min(bytes, CEL_PixelMemory::kLargestIdle);
}

} // namespace

TEST_F(PixelMemory, BlocksAreAligned)
{
    for (const std::size_t bytes : {std::size_t{1}, std::size_t{100}, kMegabyte}) {
        void* const block = CEL_PixelMemory::take(bytes);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % CEL_PixelMemory::kAlignment, 0U);
        CEL_PixelMemory::give(block, bytes);
    }
}

TEST_F(PixelMemory, ALargeBlockIsKeptUntilItIsTakenAgain)
{
    void* const block = CEL_PixelMemory::take(kMegabyte);
    CEL_PixelMemory::give(block, kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), kept(kMegabyte));
    void* const again = CEL_PixelMemory::take(kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), 0U);
    CEL_PixelMemory::give(again, kMegabyte);
}

TEST_F(PixelMemory, APictureOfNearlyTheSameSizeTakesTheBlock)
{
    // Between 8 and 9 megabytes all sizes share one step.
    CEL_PixelMemory::give(CEL_PixelMemory::take(8 * kMegabyte + 1), 8 * kMegabyte + 1);
    void* const other = CEL_PixelMemory::take(9 * kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), 0U);
    CEL_PixelMemory::give(other, 9 * kMegabyte);
}

TEST_F(PixelMemory, APictureOfMoreThanHalfTheSizeTakesTheBlockAndGivesAllOfItBack)
{
    CEL_PixelMemory::give(CEL_PixelMemory::take(8 * kMegabyte), 8 * kMegabyte);
    void* const smaller = CEL_PixelMemory::take(5 * kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), 0U);
    CEL_PixelMemory::give(smaller, 5 * kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), kept(8 * kMegabyte));
}

TEST_F(PixelMemory, TheSmallestBlockThatServesIsTaken)
{
    std::vector<void*> blocks;
    for (const std::size_t megabytes : {8, 6, 7})
        blocks.push_back(CEL_PixelMemory::take(megabytes * kMegabyte));
    CEL_PixelMemory::give(blocks[0], 8 * kMegabyte);
    CEL_PixelMemory::give(blocks[1], 6 * kMegabyte);
    CEL_PixelMemory::give(blocks[2], 7 * kMegabyte);
    void* const block = CEL_PixelMemory::take(5 * kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), kept(15 * kMegabyte));
    CEL_PixelMemory::give(block, 5 * kMegabyte);
}

TEST_F(PixelMemory, AMuchSmallerPictureLeavesTheBlockToOthers)
{
    CEL_PixelMemory::give(CEL_PixelMemory::take(8 * kMegabyte), 8 * kMegabyte);
    void* const small = CEL_PixelMemory::take(2 * kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), kept(8 * kMegabyte));
    CEL_PixelMemory::give(small, 2 * kMegabyte);
}

TEST_F(PixelMemory, SmallBlocksAreNotKept)
{
    CEL_PixelMemory::give(CEL_PixelMemory::take(1000), 1000);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), 0U);
}

TEST_F(PixelMemory, WhatIsKeptStaysBelowTheLimit)
{
    std::vector<void*> blocks(5);
    for (void*& block : blocks)
        block = CEL_PixelMemory::take(64 * kMegabyte);
    for (void* const block : blocks)
        CEL_PixelMemory::give(block, 64 * kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), kept(256 * kMegabyte)) << "four of the five";
}

TEST_F(PixelMemory, GivingNothingBackIsFine)
{
    CEL_PixelMemory::give(nullptr, kMegabyte);
    EXPECT_EQ(CEL_PixelMemory::idleBytes(), 0U);
}
