// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What is made several at once is taken in order, once each, and a refusal ends it.
#include "InOrder.h"

#include <gtest/gtest.h>

#include <barrier>
#include <numeric>
#include <semaphore>

namespace {

constexpr std::size_t kCount = 200;

std::vector<std::size_t> takenOf(int atOnce)
{
    std::vector<std::size_t> taken;
    inOrder<std::size_t>(
        kCount, atOnce, [](std::size_t i) { return 3 * i; },
        [&](std::size_t i, std::size_t made) {
            EXPECT_EQ(made, 3 * i);
            taken.push_back(i);
            return true;
        });
    return taken;
}

TEST(InOrder, TakesEachThingOnceInTheOrderOfTheNumbers)
{
    std::vector<std::size_t> all(kCount);
    std::iota(all.begin(), all.end(), 0U);
    for (const int atOnce : {1, 2, 7, 1000})
        EXPECT_EQ(takenOf(atOnce), all) << atOnce;
}

TEST(InOrder, MakesAsManyAtOnceAsItIsTold)
{
    // None of the three is ready before all have begun.
    std::barrier begun(3);
    int taken = 0;
    inOrder<int>(
        3, 3,
        [&](std::size_t) {
            begun.arrive_and_wait();
            return 1;
        },
        [&](std::size_t, int one) {
            taken += one;
            return true;
        });
    EXPECT_EQ(taken, 3);
}

TEST(InOrder, WaitsForWhatComesBefore)
{
    // The first thing is ready only when the last one was made by another thread.
    std::binary_semaphore lastIsMade(0);
    std::vector<std::size_t> taken;
    inOrder<int>(
        5, 2,
        [&](std::size_t i) {
            if (i == 0)
                lastIsMade.acquire();
            if (i == 4)
                lastIsMade.release();
            return 0;
        },
        [&](std::size_t i, int) {
            taken.push_back(i);
            return true;
        });
    EXPECT_EQ(taken, (std::vector<std::size_t>{0, 1, 2, 3, 4}));
}

TEST(InOrder, EndsAfterARefusal)
{
    for (const int atOnce : {1, 4}) {
        std::atomic<std::size_t> made = 0;
        std::vector<std::size_t> taken;
        inOrder<int>(
            100'000, atOnce, [&](std::size_t) { return static_cast<int>(++made); },
            [&](std::size_t i, int) {
                taken.push_back(i);
                return i < 2;
            });
        EXPECT_EQ(taken, (std::vector<std::size_t>{0, 1, 2}));
    }
}

TEST(InOrder, DoesNothingForNothing)
{
    EXPECT_NO_FATAL_FAILURE(inOrder<int>(
        0, 2,
        [](std::size_t) {
            ADD_FAILURE();
            return 0;
        },
        [](std::size_t, int) { return true; }));
}

} // namespace
