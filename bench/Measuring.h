// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The parts of the groups of benchmarks: a case is one timed piece of work, a figure compares two. Cases of a group run
// interleaved, so that a machine that slows down slows all of them.
#pragma once

#include <benchmark/benchmark.h>

#include <tbb/task_arena.h>

#include <chrono>
#include <functional>
#include <limits>
#include <string>
#include <vector>

/// One timed piece of work. Its name is words with slashes between them.
struct Case
{
    std::string name;
    std::function<void(benchmark::State&)> run;
};

/// A ratio of two times, and its goal.
struct Figure
{
    static constexpr double kNoGoal = std::numeric_limits<double>::quiet_NaN();

    std::string name;        ///< the name in the table
    std::string numerator;   ///< the name of a case
    std::string denominator; ///< the name of a case; empty: the numerator's time alone is shown
    double goal = kNoGoal;
    bool atLeast = false; ///< the goal is a lower bound
    std::string kind;     ///< figures of one kind share one line in the summary of the goals
};

/// Cases that share pictures, which are made when the first of them runs and freed with the group.
struct Group
{
    std::vector<Case> cases;
    std::vector<Figure> figures;
};

/// Times work; each run follows a preparation that is not timed. Both, and everything that they start, run in an arena
/// of this many threads.
template<typename Prepare, typename Work>
void timeEach(benchmark::State& state, int threads, const Prepare& prepare, const Work& work)
{
    using Clock = std::chrono::steady_clock;
    tbb::task_arena arena(threads);
    for ([[maybe_unused]] auto _ : state)
        arena.execute([&] {
            prepare();
            const Clock::time_point start = Clock::now();
            work();
            benchmark::ClobberMemory();
            state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
        });
}

/// The same on one thread, without a preparation.
template<typename Work>
void timeEach(benchmark::State& state, const Work& work)
{
    timeEach(
        state, 1, [] {}, work);
}
