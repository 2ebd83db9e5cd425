// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rows of bytes, 1 where there is something. The last five spread rows are kept.
#include "render/GeometryClip.h"

#include "render/ElevationKernels.h"

#include <algorithm>

NearGeometry::NearGeometry(const CEL_PixmapAreaZ& mask, const Math::Box2di& rect)
    : _mask(mask), _reach(mask.allocatedRect().isEmpty() ? Math::Box2di() : mask.allocatedRect().getEnlarged(kReach))
{
    _reach = _reach.getIntersection(rect);
    if (_reach.isEmpty())
        _reach = Math::Box2di();
    const auto width = static_cast<std::size_t>(_reach.width());
    _geometry.assign(width + 2 * kReach, 0);
    _near.assign(width, 0);
    for (auto& row : _spread)
        row.assign(width, 0);
    for (int y = _reach.y1 - kReach; y < _reach.y1 + kReach && !_reach.isEmpty(); ++y)
        spread(y);
}

std::span<const std::uint8_t> NearGeometry::nextRow(int y)
{
    spread(y + kReach);
    VolumeRowKernels::uniteMarks(
        {_spread[0].data(), _spread[1].data(), _spread[2].data(), _spread[3].data(), _spread[4].data()}, _near);
    return _near;
}

void NearGeometry::spread(int y)
{
    std::vector<std::uint8_t>& row = rowFor(y);
    const Math::Box2di& rect = _mask.allocatedRect();
    if (y < rect.y1 || y >= rect.y2) {
        std::ranges::fill(row, std::uint8_t{0});
        return;
    }
    const int first = std::max(rect.x1, _reach.x1 - kReach);
    const int end = std::min(rect.x2, _reach.x2 + kReach);
    const CEL_PixelFloat* const source = _mask.row(y).data() + (first - rect.x1);
    VolumeRowKernels::markPositive({&source->value, static_cast<std::size_t>(end - first)},
                                   _geometry.data() + (first - _reach.x1 + kReach));
    VolumeRowKernels::spreadMarks(_geometry.data(), row);
}

std::vector<std::uint8_t>& NearGeometry::rowFor(int y)
{
    constexpr int kCount = 2 * kReach + 1;
    return _spread[static_cast<std::size_t>(((y % kCount) + kCount) % kCount)];
}
