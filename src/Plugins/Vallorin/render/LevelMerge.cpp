// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the rectangles; the pixels are merged row by row.
#include "render/LevelMerge.h"

#include "render/LevelKernels.h"

#include <vector>

template<typename Pixel>
void mergeLevel(CEL_PixmapOf<Pixel>& target, const CEL_PixmapOf<Pixel>& source,
                typename CEL_PixelTraits<Pixel>::Channel level, bool scaleByCoverage)
{
    const VolumeRowKernels::LevelOf<Pixel> how{level, scaleByCoverage};
    const Math::Box2di& rect = target.allocatedRect();
    const Math::Box2di common = rect.getIntersection(source.allocatedRect());
    for (int y = rect.y1; y < rect.y2; ++y) {
        const std::span<Pixel> row = target.row(y);
        if (common.isEmpty() || y < common.y1 || y >= common.y2) {
            VolumeRowKernels::setLevel(row, how);
            continue;
        }
        const auto first = static_cast<std::size_t>(common.x1 - rect.x1);
        const auto width = static_cast<std::size_t>(common.width());
        const Pixel* const greys = source.row(y).data() + (common.x1 - source.allocatedRect().x1);
        VolumeRowKernels::setLevel(row.first(first), how);
        VolumeRowKernels::setLevelAndGreys(row.subspan(first, width), greys, how);
        VolumeRowKernels::setLevel(row.subspan(first + width), how);
    }
}

template<typename Pixel>
void placeLevel(const CELVEC_AlphaPlane& alpha, typename CEL_PixelTraits<Pixel>::Channel level, bool scaleByCoverage,
                CEL_PixmapOf<Pixel>& target)
{
    using Channel = typename CEL_PixelTraits<Pixel>::Channel;
    const VolumeRowKernels::LevelOf<Pixel> how{level, scaleByCoverage};
    const Math::Box2di& rect = alpha.rect();
    target.realloc(rect, false);
    std::vector<Channel> coverage(static_cast<std::size_t>(rect.width()));
    std::vector<Channel> white(coverage.size());
    for (int y = rect.y1; y < rect.y2; ++y) {
        alpha.readOwn(y, coverage);
        alpha.readWhite(y, white);
        VolumeRowKernels::placeLevelAndWhite(coverage.data(), white.data(), how, target.row(y));
    }
}

template void mergeLevel<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&, const CEL_PixmapAreaRGBA16&, std::int16_t, bool);
template void mergeLevel<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&, const CEL_PixmapAreaRGBAFloat&, float, bool);
template void placeLevel<CEL_PixelRGBA16>(const CELVEC_AlphaPlane&, std::int16_t, bool, CEL_PixmapAreaRGBA16&);
template void placeLevel<CEL_PixelRGBAFloat>(const CELVEC_AlphaPlane&, float, bool, CEL_PixmapAreaRGBAFloat&);
