// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Blocks for pixels: which are kept, for how long, and who gets them.
#include "QuarvelBaseCore/UT_PixelMemory.h"
#include "QuarvelBaseCore/UT_PixelZeros.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;
#if defined(__linux__) && !defined(__SANITIZE_THREAD__)
constexpr bool kMovesPages = true;
#else
constexpr bool kMovesPages = false;
#endif

class PixelMemory : public testing::Test
{
protected:
    PixelMemory() { UT_PixelMemory::trim(); }
    ~PixelMemory() override { UT_PixelMemory::trim(); }
};

// The idle bytes after this many were given back; 0 in a build that keeps none.
std::size_t kept(std::size_t bytes)
{
    return std::min(bytes, UT_PixelMemory::kLargestIdle);
}

// Takes this many blocks of 64 megabytes and gives them back in the same order.
std::vector<void*> useAtOnce(std::size_t count)
{
    std::vector<void*> blocks(count);
    for (void*& block : blocks)
        block = UT_PixelMemory::take(64 * kMegabyte);
    for (void* const block : blocks)
        UT_PixelMemory::give(block, 64 * kMegabyte);
    return blocks;
}

} // namespace

TEST_F(PixelMemory, BlocksAreAligned)
{
    for (const std::size_t bytes : {std::size_t{1}, std::size_t{100}, kMegabyte}) {
        void* const block = UT_PixelMemory::take(bytes);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % UT_PixelMemory::kAlignment, 0U);
        UT_PixelMemory::give(block, bytes);
    }
}

TEST_F(PixelMemory, ALargeBlockIsKeptUntilItIsTakenAgain)
{
    void* const block = UT_PixelMemory::take(kMegabyte);
    UT_PixelMemory::give(block, kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(kMegabyte));
    void* const again = UT_PixelMemory::take(kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), 0U);
    UT_PixelMemory::give(again, kMegabyte);
}

TEST_F(PixelMemory, APictureOfNearlyTheSameSizeTakesTheBlock)
{
    // All sizes between 8 and 9 megabytes share one step.
    UT_PixelMemory::give(UT_PixelMemory::take(8 * kMegabyte + 1), 8 * kMegabyte + 1);
    void* const other = UT_PixelMemory::take(9 * kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), 0U);
    UT_PixelMemory::give(other, 9 * kMegabyte);
}

TEST_F(PixelMemory, APictureOfAnEighthOfTheSizeTakesTheBlockAndGivesAllOfItBack)
{
    UT_PixelMemory::give(UT_PixelMemory::take(8 * kMegabyte), 8 * kMegabyte);
    void* const smaller = UT_PixelMemory::take(kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), 0U);
    UT_PixelMemory::give(smaller, kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(8 * kMegabyte));
}

TEST_F(PixelMemory, TheSmallestBlockThatServesIsTaken)
{
    std::vector<void*> blocks;
    for (const std::size_t megabytes : {8, 6, 7})
        blocks.push_back(UT_PixelMemory::take(megabytes * kMegabyte));
    UT_PixelMemory::give(blocks[0], 8 * kMegabyte);
    UT_PixelMemory::give(blocks[1], 6 * kMegabyte);
    UT_PixelMemory::give(blocks[2], 7 * kMegabyte);
    void* const block = UT_PixelMemory::take(5 * kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(15 * kMegabyte));
    UT_PixelMemory::give(block, 5 * kMegabyte);
}

TEST_F(PixelMemory, AMuchSmallerPictureLeavesTheBlockToOthers)
{
    UT_PixelMemory::give(UT_PixelMemory::take(8 * kMegabyte), 8 * kMegabyte);
    void* const small = UT_PixelMemory::take(kMegabyte / 2);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(8 * kMegabyte));
    UT_PixelMemory::give(small, kMegabyte / 2);
}

TEST_F(PixelMemory, NewMemoryTakesThePlaceOfBlocksThatAreTooSmall)
{
    std::vector<void*> blocks;
    for (int i = 0; i < 3; ++i)
        blocks.push_back(UT_PixelMemory::take(4 * kMegabyte));
    for (void* const block : blocks)
        UT_PixelMemory::give(block, 4 * kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(12 * kMegabyte));
    void* const larger = UT_PixelMemory::take(8 * kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(4 * kMegabyte));
    UT_PixelMemory::give(larger, 8 * kMegabyte);
}

TEST_F(PixelMemory, ALargerBlockMayBeWrittenFromEndToEndWhateverItIsMadeOf)
{
    std::vector<std::pair<unsigned char*, std::size_t>> blocks;
    const auto take = [&](std::size_t bytes) {
        blocks.emplace_back(static_cast<unsigned char*>(UT_PixelMemory::take(bytes)), bytes);
        std::fill_n(blocks.back().first, bytes, static_cast<unsigned char>(blocks.size()));
    };
    const auto giveAll = [&] {
        for (const auto& [start, bytes] : blocks)
            UT_PixelMemory::give(start, bytes);
        blocks.clear();
    };
    for (const std::size_t megabytes : {3, 2, 4, 1})
        take(megabytes * kMegabyte);
    giveAll();
    // From 3, 2 and a part of 4, while another user takes what is left.
    take(7 * kMegabyte);
    take(kMegabyte);
    take(3 * kMegabyte);
    giveAll();
    // From blocks that were made of others already.
    take(10 * kMegabyte);
    take(2 * kMegabyte);
    for (std::size_t i = 0; i < blocks.size(); ++i)
        EXPECT_EQ(std::count(blocks[i].first, blocks[i].first + blocks[i].second, i + 1),
                  static_cast<std::ptrdiff_t>(blocks[i].second))
            << "block " << i << " is nobody else's";
    giveAll();
}

// Pages keep their bytes when they are moved; new ones hold zeros. A build that moves no pages frees the smaller
// blocks.
TEST_F(PixelMemory, ALargerBlockTakesOverThePagesOfSmallerOnes)
{
    std::vector<void*> blocks;
    for (int i = 0; i < 2; ++i) {
        blocks.push_back(UT_PixelMemory::take(4 * kMegabyte));
        std::memset(blocks.back(), 1, 4 * kMegabyte);
    }
    for (void* const block : blocks)
        UT_PixelMemory::give(block, 4 * kMegabyte);
    auto* const larger = static_cast<unsigned char*>(UT_PixelMemory::take(10 * kMegabyte));
    EXPECT_EQ(UT_PixelMemory::idleBytes(), 0U);
    if (UT_PixelMemory::kLargestIdle > 0 && kMovesPages) {
        const auto isNew = [](unsigned char byte) { return byte == 0; };
        EXPECT_TRUE(std::none_of(larger, larger + 8 * kMegabyte, isNew));
        EXPECT_TRUE(std::all_of(larger + 8 * kMegabyte, larger + 10 * kMegabyte, isNew));
    }
    UT_PixelMemory::give(larger, 10 * kMegabyte);
}

TEST_F(PixelMemory, WhatIsSaidToHoldZerosDoes)
{
    constexpr std::size_t kBytes = 16 * kMegabyte;
    for (const std::size_t used : {std::size_t{0}, kBytes / 4, kBytes}) {
        UT_PixelMemory::trim();
        if (used > 0) {
            void* const block = UT_PixelMemory::take(used);
            std::memset(block, 1, used);
            UT_PixelMemory::give(block, used);
        }
        auto* const bytes = static_cast<unsigned char*>(UT_PixelMemory::take(kBytes));
        const std::size_t from = UT_PixelMemory::zerosFrom(bytes, kBytes);
        EXPECT_TRUE(std::all_of(bytes + from, bytes + kBytes, [](unsigned char byte) { return byte == 0; })) << used;
        if (UT_PixelMemory::kLargestIdle > 0 && kMovesPages) {
            EXPECT_EQ(from, used) << "all but the pages that were used before";
        }
        UT_PixelMemory::give(bytes, kBytes);
    }
}

TEST_F(PixelMemory, SmallBlocksAreNotKept)
{
    UT_PixelMemory::give(UT_PixelMemory::take(1000), 1000);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), 0U);
}

TEST_F(PixelMemory, WhatIsKeptStaysBelowTheLimit)
{
    useAtOnce(9);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(512 * kMegabyte)) << "eight of the nine";
}

TEST_F(PixelMemory, WhatCameFirstIsKeptWhereNotAllFits)
{
    const std::vector<void*> blocks = useAtOnce(9);
    const std::vector<void*> again = useAtOnce(8);
    if (UT_PixelMemory::kLargestIdle > 0) {
        EXPECT_THAT(again, testing::UnorderedElementsAreArray(blocks.begin(), blocks.begin() + 8));
    }
}

TEST_F(PixelMemory, BlocksThatNobodyTakesForLongMakeRoom)
{
    const auto giveBack = [](std::size_t megabytes, int times) {
        for (int i = 0; i < times; ++i)
            UT_PixelMemory::give(UT_PixelMemory::take(megabytes * kMegabyte), megabytes * kMegabyte);
    };
    void* const first = UT_PixelMemory::take(256 * kMegabyte);
    giveBack(256, 1);
    UT_PixelMemory::give(first, 256 * kMegabyte);
    // More blocks find no room until over 200 others, the second large one among them, have come back after the first.
    giveBack(1, 199);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(512 * kMegabyte));
    giveBack(1, 1);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), kept(257 * kMegabyte));
}

TEST_F(PixelMemory, GivingNothingBackIsFine)
{
    UT_PixelMemory::give(nullptr, kMegabyte);
    EXPECT_EQ(UT_PixelMemory::idleBytes(), 0U);
}
