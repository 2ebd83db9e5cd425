// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A row of the plane becomes a row of shares and one of depths.
#include "render/ElevationSurface.h"

#include <algorithm>

namespace {

constexpr double kDeepest = 1e38;

} // namespace

BevelSurface::BevelSurface(const ElevationPlane& plane, const ElevationProfile& profile, double rise)
    : _plane(plane), _profile(profile), _rise(std::clamp(rise, -kDeepest, kDeepest))
{}

ColumnSpan BevelSurface::row(int y, float* share, float* depth) const
{
    const ColumnSpan columns = _plane.elevated[static_cast<std::size_t>(y - rect().y1)];
    if (columns.isEmpty())
        return columns;
    const auto width = static_cast<std::size_t>(columns.width());
    const CEL_PixelFloat* const values = _plane.values->row(y).data() + columns.first;
    _profile.elevate({&values->value, width}, _rise, share + columns.first, depth + columns.first);
    return columns;
}
