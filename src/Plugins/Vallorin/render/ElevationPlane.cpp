// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One pass, row by row; rows and columns outside the clip's reach are skipped.
#include "render/ElevationPlane.h"

#include "render/ElevationKernels.h"
#include "render/GeometryClip.h"
#include "render/PixelTraits.h"

#include <algorithm>

namespace {

using VolumeRowKernels::Rounding;

std::span<float> valuesOf(CEL_PixmapAreaZ& plane, int y)
{
    static_assert(sizeof(CEL_PixelFloat) == sizeof(float));
    const std::span<CEL_PixelFloat> row = plane.row(y);
    return {&row.data()->value, row.size()};
}

// The columns from the first to the last positive value among the given ones.
ColumnSpan positiveColumns(std::span<const float> values, ColumnSpan among)
{
    // Tests a few values at a time, without a branch for each.
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

// @param geometry null: nothing is clipped
ElevationPlane roundAndClipRows(const UT_SharedPtr<CEL_PixmapAreaZ>& plane, Rounding rounding, NearGeometry* geometry)
{
    const Math::Box2di rect = plane->allocatedRect();
    ElevationPlane result{plane, geometry ? geometry->reach() : rect, {}, {}};
    const Math::Box2di& inside = result.inside;
    const ColumnSpan columns{inside.x1 - rect.x1, inside.x2 - rect.x1};
    result.elevated.resize(static_cast<std::size_t>(rect.height()));
    for (int y = inside.y1; y < inside.y2; ++y) {
        const std::span<float> values = valuesOf(*plane, y);
        const auto some =
            values.subspan(static_cast<std::size_t>(columns.first), static_cast<std::size_t>(columns.width()));
        VolumeRowKernels::roundAndClip(some, rounding, geometry ? geometry->nextRow(y).data() : nullptr, result.span);
        result.elevated[static_cast<std::size_t>(y - rect.y1)] = positiveColumns(values, columns);
    }
    return result;
}

template<typename Pixel>
constexpr Rounding kRounding = VolumeTraits<Pixel>::kIsWhole ? Rounding::TO_16_BITS : Rounding::NONE;

} // namespace

template<typename Pixel>
ElevationPlane roundAndClip(const UT_SharedPtr<CEL_PixmapAreaZ>& blurred, const CEL_PixmapAreaZ* geometry)
{
    if (!geometry)
        return roundAndClipRows(blurred, kRounding<Pixel>, nullptr);
    NearGeometry near(*geometry, blurred->allocatedRect());
    return roundAndClipRows(blurred, kRounding<Pixel>, &near);
}

ElevationPlane measure(const UT_SharedPtr<CEL_PixmapAreaZ>& values)
{
    return roundAndClipRows(values, Rounding::NONE, nullptr);
}

template ElevationPlane roundAndClip<CEL_PixelRGBA16>(const UT_SharedPtr<CEL_PixmapAreaZ>&, const CEL_PixmapAreaZ*);
template ElevationPlane roundAndClip<CEL_PixelRGBAFloat>(const UT_SharedPtr<CEL_PixmapAreaZ>&, const CEL_PixmapAreaZ*);
