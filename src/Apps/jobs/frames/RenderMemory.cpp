// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Divides the budget by the memory of a frame.
#include "jobs/frames/RenderMemory.h"

#include "jobs/shown/ShownMemory.h"

#include <algorithm>

namespace {

QString gigabytes(double bytes)
{
    return QString::number(bytes / (1024.0 * 1024.0 * 1024.0), 'f', 2) + QStringLiteral("G");
}

} // namespace

UT_Result<int> framesAtOnce(int wanted, const RD_RenderParameters& parameters, double needed, double budget)
{
    if (needed > budget) {
        const auto [width, height] = sizeThatFits(parameters.resolution, needed, budget);
        return UT_Error{QStringLiteral("a frame of %1 x %2 pixels needs about %3 of memory and %4 are allowed; "
                                       "%5 x %6 pixels fit, or allow more with --memory")
                            .arg(parameters.resolution.first)
                            .arg(parameters.resolution.second)
                            .arg(gigabytes(needed), gigabytes(budget))
                            .arg(width)
                            .arg(height),
                        UT_ErrorKind::NO_MEMORY};
    }
    return std::clamp(static_cast<int>(std::min(budget / needed, 1e6)), 1, std::max(1, wanted));
}
