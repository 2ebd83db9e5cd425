// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One pass, row by row; where the clip leaves nothing, rows are cleared without a look at them.
#include "render/ElevationPlane.h"

#include "render/ElevationKernels.h"
#include "render/GeometryClip.h"

#include <algorithm>
#include <optional>

namespace {

using VolumeRowKernels::Rounding;

std::span<float> valuesOf(CEL_PixmapAreaZ& plane, int y)
{
    static_assert(sizeof(CEL_PixelFloat) == sizeof(float));
    const std::span<CEL_PixelFloat> row = plane.row(y);
    return {&row.data()->value, row.size()};
}

// The columns from the first to the last positive value among some.
ColumnSpan positiveColumns(std::span<const float> values, ColumnSpan among)
{
    // In steps of a few values, without a jump for each.
    constexpr int kStep = 16;
    const auto hasPositive = [&](int from) {
        float highest = 0.0F;
        for (int i = from; i < from + kStep; ++i)
            highest = std::max(highest, values[static_cast<std::size_t>(i)]);
        return highest > 0.0F;
    };
    const auto isPositive = [&](int i) { return values[static_cast<std::size_t>(i)] > 0.0F; };
    while (among.width() >= kStep && !hasPositive(among.first))
        among.first += kStep;
    while (!among.isEmpty() && !isPositive(among.first))
        ++among.first;
    while (among.width() >= kStep && !hasPositive(among.end - kStep))
        among.end -= kStep;
    while (!among.isEmpty() && !isPositive(among.end - 1))
        --among.end;
    return among.isEmpty() ? ColumnSpan{} : among;
}

ElevationPlane settleRows(const UT_SharedPtr<CEL_PixmapAreaZ>& plane, Rounding rounding)
{
    ElevationPlane result{plane, {}, {}};
    const Math::Box2di rect = plane->allocatedRect();
    result.elevated.reserve(static_cast<std::size_t>(rect.height()));
    for (int y = rect.y1; y < rect.y2; ++y) {
        const std::span<float> values = valuesOf(*plane, y);
        VolumeRowKernels::settle(values, rounding, nullptr, result.span);
        result.elevated.push_back(positiveColumns(values, {0, rect.width()}));
    }
    return result;
}

ElevationPlane settleRowsNear(const UT_SharedPtr<CEL_PixmapAreaZ>& plane, Rounding rounding, NearGeometry geometry)
{
    ElevationPlane result{plane, {}, {}};
    const Math::Box2di rect = plane->allocatedRect();
    const Math::Box2di reach = geometry.reach();
    const ColumnSpan columns{reach.x1 - rect.x1, reach.x2 - rect.x1};
    result.elevated.resize(static_cast<std::size_t>(rect.height()));
    for (int y = rect.y1; y < rect.y2; ++y) {
        const std::span<float> values = valuesOf(*plane, y);
        if (columns.isEmpty() || y < reach.y1 || y >= reach.y2) {
            std::ranges::fill(values, 0.0F);
            continue;
        }
        const auto first = static_cast<std::size_t>(columns.first);
        const auto end = static_cast<std::size_t>(columns.end);
        std::ranges::fill(values.first(first), 0.0F);
        std::ranges::fill(values.subspan(end), 0.0F);
        VolumeRowKernels::settle(values.subspan(first, end - first), rounding, geometry.nextRow(y).data(), result.span);
        result.elevated[static_cast<std::size_t>(y - rect.y1)] = positiveColumns(values, columns);
    }
    return result;
}

template<typename Pixel>
constexpr Rounding kRounding = Rounding::NONE;
template<>
constexpr Rounding kRounding<CEL_PixelRGBA16> = Rounding::TO_16_BITS;

} // namespace

template<typename Pixel>
ElevationPlane settle(const UT_SharedPtr<CEL_PixmapAreaZ>& blurred, const CEL_PixmapAreaZ* geometry)
{
    if (!geometry)
        return settleRows(blurred, kRounding<Pixel>);
    return settleRowsNear(blurred, kRounding<Pixel>, NearGeometry(*geometry, blurred->allocatedRect()));
}

ElevationPlane measure(const UT_SharedPtr<CEL_PixmapAreaZ>& values)
{
    return settleRows(values, Rounding::NONE);
}

template ElevationPlane settle<CEL_PixelRGBA16>(const UT_SharedPtr<CEL_PixmapAreaZ>&, const CEL_PixmapAreaZ*);
template ElevationPlane settle<CEL_PixelRGBAFloat>(const UT_SharedPtr<CEL_PixmapAreaZ>&, const CEL_PixmapAreaZ*);
