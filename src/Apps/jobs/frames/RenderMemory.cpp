// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A budget divided by what a frame takes.
#include "jobs/frames/RenderMemory.h"

#include <algorithm>

namespace {

constexpr double kPixmaps = 10.0;
// Five floats: three of the normal, elevation, coverage.
constexpr double kPictureBytes = 20.0;

QString gigabytes(double bytes)
{
    return QString::number(bytes / (1024.0 * 1024.0 * 1024.0), 'f', 2) + QStringLiteral("G");
}

} // namespace

double frameBytes(const RD_RenderParameters& parameters)
{
    const double pixel =
        parameters.celFormat() == CEL_FORMAT_RGBA16 ? sizeof(CEL_PixelRGBA16) : sizeof(CEL_PixelRGBAFloat);
    const auto [width, height] = parameters.resolution;
    return static_cast<double>(width) * height * (kPixmaps * pixel + kPictureBytes);
}

UT_Result<int> framesAtOnce(int wanted, const RD_RenderParameters& parameters, double budget)
{
    const double needed = frameBytes(parameters);
    if (needed > budget)
        return UT_Error{
            QStringLiteral("a frame of %1 x %2 pixels needs about %3 of memory and %4 are allowed; choose a smaller "
                           "--resolution or a larger --memory")
                .arg(parameters.resolution.first)
                .arg(parameters.resolution.second)
                .arg(gigabytes(needed), gigabytes(budget))};
    return std::clamp(static_cast<int>(std::min(budget / needed, 1e6)), 1, std::max(1, wanted));
}
