// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A loop over files, on several threads where there are many. Most scenes have few files, for which threads are not
// worth their start.
#pragma once

#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <cstddef>

/// Calls work(i) for the numbers 0 to count - 1.
template<typename Work>
void SIO_forEach(std::size_t count, const Work& work)
{
    constexpr std::size_t kFew = 16;
    if (count >= kFew) {
        VL_parallelForEach(static_cast<int>(count), [&work](int i) { work(static_cast<std::size_t>(i)); });
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        work(i);
}
