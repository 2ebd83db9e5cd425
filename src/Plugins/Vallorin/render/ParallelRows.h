// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Work on the rows of a rectangle in parallel: the only place where the module runs on several threads.
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <tbb/partitioner.h>
#include <tbb/task_group.h>

/// Calls work(tbb::blocked_range<int>) for ranges that together are the rectangle's rows, from any thread and in any
/// order; no task runs for a rectangle without rows.
template<typename Work>
void forRowsInParallel(const Math::Box2di& rect, const Work& work)
{
    constexpr int kGrain = 100;
    if (rect.y1 >= rect.y2)
        return;
    tbb::task_group_context context;
    VL_parallelFor(tbb::blocked_range<int>(rect.y1, rect.y2, kGrain), work, tbb::auto_partitioner(), context);
}
