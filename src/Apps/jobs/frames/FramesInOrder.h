// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FramesInOrder: frames are made several at once, and handed on in the order of their list. For files that hold all
// frames: films and pages.
#pragma once

#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "jobs/frames/RenderFrames.h"
#include "jobs/limits/JobWorkers.h"

#include <algorithm>
#include <atomic>
#include <span>

/// Makes frames and hands them on.
///
/// @tparam Made what is made of a frame
/// @param atOnce  how many are made at the same time, each in its share of the job's threads
/// @param what    "a preview"; part of the message where memory runs out
/// @param make    makes a frame: UT_Result<Made>(int number); called on several threads at once
/// @param take    takes one: UT_Result<void>(Made&); called in the order of the list
/// @param watcher of it, progress and stop are used
/// @return the first error, or that watcher.stop said to stop
template<typename Made, typename Make, typename Take>
UT_Result<void> framesInOrder(std::span<const int> frames, int atOnce, const QString& what, const Make& make,
                              const Take& take, const RenderFramesWatcher& watcher)
{
    const auto step = static_cast<std::size_t>(std::max(1, atOnce));
    for (std::size_t first = 0; first < frames.size(); first += step) {
        const std::span<const int> numbers = frames.subspan(first, std::min(step, frames.size() - first));
        std::vector<UT_Result<Made>> made;
        for (std::size_t i = 0; i < numbers.size(); ++i)
            made.emplace_back(UT_stopped());
        std::atomic<std::size_t> next = 0;
        onWorkers(numbers.size(), [&](tbb::task_arena& share) {
            const std::size_t i = next++;
            VL_executeIn(share, [&] {
                made[i] = UT_withinMemory(QStringLiteral("%1 of frame %2").arg(what, QString::number(numbers[i])),
                                          QStringLiteral("choose fewer jobs"), [&] { return make(numbers[i]); });
            });
        });
        for (UT_Result<Made>& frame : made) {
            if (!frame)
                return frame.error();
            if (UT_Result<void> taken = take(*frame); !taken)
                return taken;
        }
        if (watcher.stop && watcher.stop())
            return UT_stopped();
        if (watcher.progress)
            watcher.progress(static_cast<double>(first + numbers.size()) / static_cast<double>(frames.size()));
    }
    return {};
}
