// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// VL_parallelFor and VL_executeIn: TBB's parallel loop and arena in a form that the thread sanitizer understands. The
// sanitizer does not see how TBB's library hands tasks from thread to thread, so without help it either reports every
// loop or, with the library suppressed, misses every race inside one. VL_TaskOrder says to it what such a loop
// guarantees: all that was done before the loop comes before each of its tasks, and all tasks come before what is done
// after the loop. Two tasks are in no order. In builds without the thread sanitizer nothing is left of it.
//
// Whoever uses this header links TBB.
#pragma once

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <utility>

#if defined(__SANITIZE_THREAD__)
#define VL_SEEN_BY_THREAD_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define VL_SEEN_BY_THREAD_SANITIZER 1
#endif
#endif

#if defined(VL_SEEN_BY_THREAD_SANITIZER)
#include <sanitizer/tsan_interface.h>
#endif

/// The order of tasks that are begun after its making, and have ended before its destruction.
class VL_TaskOrder
{
public:
    VL_TaskOrder() { release(_begin); }
    ~VL_TaskOrder() { acquire(_end); }
    VL_TaskOrder(const VL_TaskOrder&) = delete;
    VL_TaskOrder& operator=(const VL_TaskOrder&) = delete;

    /// Lives for as long as a task runs, on the task's thread.
    class Task
    {
    public:
        explicit Task(VL_TaskOrder& order) : _order(order) { acquire(order._begin); }
        ~Task() { release(_order._end); }
        Task(const Task&) = delete;
        Task& operator=(const Task&) = delete;

    private:
        VL_TaskOrder& _order;
    };

private:
#if defined(VL_SEEN_BY_THREAD_SANITIZER)
    static void acquire(char& point)
    {
        __tsan_acquire(&point);
    }
    static void release(char& point)
    {
        __tsan_release(&point);
    }
#else
    static void acquire(char&) {}
    static void release(char&) {}
#endif

    char _begin = 0;
    char _end = 0;
};

/// Calls work(part) for parts that together are the range, on any thread and in any order.
///
/// @param range   as TBB's loops take it, for example a tbb::blocked_range<int> of rows
/// @param more    a partitioner, a context or both, as for tbb::parallel_for
/// @throws        what a task throws; the others then end early
template<typename Range, typename Work, typename... More>
void VL_parallelFor(const Range& range, const Work& work, More&&... more)
{
    VL_TaskOrder order;
    tbb::parallel_for(
        range,
        [&order, &work](const Range& part) {
            const VL_TaskOrder::Task task(order);
            work(part);
        },
        std::forward<More>(more)...);
}

/// The same for the numbers 0 to count - 1: calls work(number) for each.
template<typename Work>
void VL_parallelForEach(int count, const Work& work)
{
    VL_parallelFor(tbb::blocked_range<int>(0, count), [&work](const tbb::blocked_range<int>& part) {
        for (int i = part.begin(); i < part.end(); ++i)
            work(i);
    });
}

/// Calls work() in an arena, which limits the threads of the loops in it. @return what work() returns
template<typename Work>
auto VL_executeIn(tbb::task_arena& arena, const Work& work)
{
    // Where the arena has no free place for the calling thread, another one does the work.
    VL_TaskOrder order;
    return arena.execute([&order, &work] {
        const VL_TaskOrder::Task task(order);
        return work();
    });
}
