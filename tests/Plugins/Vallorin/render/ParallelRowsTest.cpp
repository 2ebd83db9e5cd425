// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which tasks run for the rows of a rectangle.
#include "render/ParallelRows.h"

#include <gmock/gmock.h>

#include <mutex>
#include <utility>
#include <vector>

namespace {

using testing::IsEmpty;

/// The ranges that tasks ran for, from the top.
std::vector<std::pair<int, int>> tasksFor(const Math::Box2di& rect)
{
    std::mutex guard;
    std::vector<std::pair<int, int>> ranges;
    forRowsInParallel(rect, [&](const tbb::blocked_range<int>& rows) {
        const std::lock_guard lock(guard);
        ranges.emplace_back(rows.begin(), rows.end());
    });
    std::ranges::sort(ranges);
    return ranges;
}

TEST(ParallelRows, NoTaskRunsForARectangleWithoutRows)
{
    EXPECT_THAT(tasksFor(Math::Box2di()), IsEmpty());
    EXPECT_THAT(tasksFor(Math::Box2di(0, 5, 10, 5)), IsEmpty());
    EXPECT_THAT(tasksFor(Math::Box2di(0, 5, 10, -3)), IsEmpty());
}

TEST(ParallelRows, EveryRowIsInOneTask)
{
    for (const Math::Box2di rect :
         {Math::Box2di(3, -7, 4, -6), Math::Box2di(0, 5, 10, 104), Math::Box2di(0, -900, 1, 1200)}) {
        int next = rect.y1;
        for (const auto& [begin, end] : tasksFor(rect)) {
            ASSERT_EQ(begin, next);
            ASSERT_GT(end, begin);
            next = end;
        }
        EXPECT_EQ(next, rect.y2);
    }
}

TEST(ParallelRows, ARangeOfAHundredRowsIsNotSplit)
{
    EXPECT_EQ(tasksFor(Math::Box2di(0, 0, 10, 100)).size(), 1U);
    for (const auto& [begin, end] : tasksFor(Math::Box2di(0, 0, 10, 2000)))
        EXPECT_GE(end - begin, 50) << "what is longer is halved";
}

} // namespace
