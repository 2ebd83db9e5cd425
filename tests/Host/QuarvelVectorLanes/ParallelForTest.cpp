// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The parallel loop and the arena. What they say to the thread sanitizer is tested by racing/RacingTasks.cpp, and by
// all suites with loops, in which it must report nothing.
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include <stdexcept>
#include <vector>

TEST(ParallelFor, CallsTheWorkOnceForEveryNumber)
{
    const tbb::global_control threads(tbb::global_control::max_allowed_parallelism, 4);
    std::vector<int> calls(10'000, 0);
    VL_parallelForEach(10'000, [&](int i) { ++calls[static_cast<std::size_t>(i)]; });
    EXPECT_EQ(calls, std::vector<int>(10'000, 1));
}

TEST(ParallelFor, CallsNothingForAnEmptyRange)
{
    bool isCalled = false;
    VL_parallelFor(tbb::blocked_range<int>(3, 3), [&](const auto&) { isCalled = true; });
    VL_parallelForEach(0, [&](int) { isCalled = true; });
    EXPECT_FALSE(isCalled);
}

TEST(ParallelFor, PassesOnWhatATaskThrows)
{
    EXPECT_THROW(VL_parallelForEach(100,
                                    [](int i) {
                                        if (i == 57)
                                            throw std::runtime_error("57");
                                    }),
                 std::runtime_error);
}

TEST(ExecuteIn, ReturnsWhatTheWorkReturns)
{
    tbb::task_arena arena(1);
    EXPECT_EQ(VL_executeIn(arena, [] { return tbb::this_task_arena::max_concurrency(); }), 1);
}
