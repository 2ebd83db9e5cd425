// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts a row of the plane to a row of shares and one of depths.
#include "render/ElevationSurface.h"

#include <algorithm>

namespace {

constexpr double kDeepest = 1e38;

} // namespace

BevelSurface::BevelSurface(const ElevationPlane& plane, const Math::Box2di& rect, const ElevationProfile& profile,
                           double rise)
    : _plane(plane), _rect(rect), _profile(profile), _rise(std::clamp(rise, -kDeepest, kDeepest))
{}

ColumnSpan BevelSurface::row(int y, float* share, float* depth) const
{
    const Math::Box2di& whole = _plane.values->allocatedRect();
    const ColumnSpan stored = _plane.elevated[static_cast<std::size_t>(y - whole.y1)];
    const ColumnSpan kept = stored.intersectedWith({_rect.x1 - whole.x1, _rect.x2 - whole.x1});
    if (kept.isEmpty())
        return {};
    const CEL_PixelFloat* const values = _plane.values->row(y).data() + kept.first;
    const ColumnSpan columns = kept.movedBy(whole.x1 - _rect.x1);
    _profile.elevate({&values->value, static_cast<std::size_t>(columns.width())}, _rise, share + columns.first,
                     depth + columns.first);
    return columns;
}
