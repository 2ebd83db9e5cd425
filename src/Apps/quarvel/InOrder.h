// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// InOrder: things are made several at once, and taken one after the other in the order of their numbers, so that what a
// program says does not depend on which of them was ready first.
#pragma once

#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "jobs/limits/JobWorkers.h"

#include <atomic>
#include <map>
#include <mutex>

/// Makes and takes the things with the numbers 0 to count - 1. None of the functions may throw.
///
/// @tparam Made what is made; it can be moved
/// @param atOnce how many are made at the same time, each in its share of the job's threads
/// @param make   Made(std::size_t number); called on several threads at once
/// @param take   bool(std::size_t number, Made&); one call at a time; false: nothing more is begun or taken
template<typename Made, typename Make, typename Take>
void inOrder(std::size_t count, int atOnce, const Make& make, const Take& take)
{
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> goesOn = true;
    std::mutex mutex;
    std::map<std::size_t, Made>
        ready; // what waits for things with smaller numbers; protected by the mutex, as taken is
    std::size_t taken = 0;

    const auto handIn = [&](std::size_t number, Made made) {
        const std::scoped_lock lock(mutex);
        ready.emplace(number, std::move(made));
        for (auto first = ready.find(taken); goesOn && first != ready.end(); first = ready.find(++taken)) {
            goesOn = take(taken, first->second);
            ready.erase(first);
        }
    };
    onWorkers(workersFor(count, atOnce), [&](tbb::task_arena& share) {
        for (std::size_t i = next++; i < count && goesOn; i = next++)
            handIn(i, VL_executeIn(share, [&] { return make(i); }));
    });
}
