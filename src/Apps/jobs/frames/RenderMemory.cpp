// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Divides the budget by the memory of a frame.
#include "jobs/frames/RenderMemory.h"

#include "jobs/shown/ShownMemory.h"

#include <algorithm>

UT_Result<int> framesAtOnce(int wanted, const RD_RenderParameters& parameters, double needed, double budget)
{
    if (needed > budget)
        return tooLarge(QStringLiteral("a frame"), parameters.resolution, needed, budget);
    return std::clamp(static_cast<int>(std::min(budget / needed, 1e6)), 1, std::max(1, wanted));
}
