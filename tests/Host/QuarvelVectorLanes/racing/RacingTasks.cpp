// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Two tasks of a loop that write one variable without any order: a race, which the thread sanitizer must report. Each
// waits until the other has begun, so that they certainly run on two threads.
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <tbb/global_control.h>
#include <tbb/partitioner.h>

#include <atomic>
#include <thread>

namespace {

void inTwoTasks(int& value, std::atomic<int>& begun)
{
    // Relaxed, because stronger operations would put the two writes in order.
    begun.fetch_add(1, std::memory_order_relaxed);
    while (begun.load(std::memory_order_relaxed) < 2)
        std::this_thread::yield();
    ++value;
}

} // namespace

int main()
{
    const tbb::global_control twoThreads(tbb::global_control::max_allowed_parallelism, 2);
    tbb::task_arena arena(2);
    int value = 0;
    std::atomic<int> begun = 0;
    VL_executeIn(arena, [&] {
        VL_parallelFor(
            tbb::blocked_range<int>(0, 2, 1), [&](const tbb::blocked_range<int>&) { inTwoTasks(value, begun); },
            tbb::simple_partitioner());
    });
    return value == 0 ? 1 : 0;
}
