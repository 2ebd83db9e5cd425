// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// JobWorkers: several things at once, such as drawings or frames, each within its share of the job's threads, so that
// doing many at once does not multiply the number of threads.
#pragma once

#include "QuarvelCelCore/CELVEC_PainterThread.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "jobs/limits/JobLimits.h"

#include <algorithm>
#include <thread>
#include <vector>

/// How many workers a number of things takes: at least 1.
///
/// @param atOnce the largest number of things to do at the same time
inline std::size_t workersFor(std::size_t things, int atOnce)
{
    return std::clamp<std::size_t>(things, 1, static_cast<std::size_t>(std::max(1, atOnce)));
}

/// Runs work on several threads, of which one is the calling thread, and waits for all. Drawings are painted on these
/// threads.
///
/// @param workers at least 1
/// @param work    void(tbb::task_arena& share); called once on each thread. Parallel loops belong into the share
///                (VL_executeIn). Must not throw.
template<typename Work>
void onWorkers(std::size_t workers, const Work& work)
{
    const int threads = std::max(1, jobLimits().threads / static_cast<int>(workers));
    const auto workInShare = [&] {
        CELVEC_workOnPainterThread([&] {
            tbb::task_arena share(threads);
            work(share);
        });
    };
    std::vector<std::jthread> others;
    for (std::size_t i = 1; i < workers; ++i)
        others.emplace_back(workInShare);
    workInShare();
}
