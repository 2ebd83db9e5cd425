// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finds the rectangles; the pixels are merged row by row.
#include "render/CoverageMerge.h"

#include "render/AccumulatorKernels.h"

template<typename Pixel>
void mergeCoverage(CEL_PixmapOf<Pixel>& accumulator, const CEL_PixmapOf<Pixel>& input)
{
    // An empty accumulator gets no more than the input's rectangle, so all of its pixels are written below.
    const bool wasEmpty = accumulator.allocatedRect().isEmpty();
    accumulator.reallocToFitAndClipToCanvas(input, !wasEmpty);
    const Math::Box2di common = accumulator.allocatedRect().getIntersection(input.allocatedRect());
    if (common.isEmpty())
        return;
    const auto width = static_cast<std::size_t>(common.width());
    const auto outX = static_cast<std::size_t>(common.x1 - accumulator.allocatedRect().x1);
    const auto inX = static_cast<std::size_t>(common.x1 - input.allocatedRect().x1);
    for (int y = common.y1; y < common.y2; ++y) {
        const std::span<const Pixel> row = input.row(y).subspan(inX, width);
        Pixel* const merged = accumulator.row(y).data() + outX;
        if (wasEmpty)
            VolumeRowKernels::placeLayers(row, merged);
        else
            VolumeRowKernels::mergeLayers(row, merged);
    }
}

template void mergeCoverage<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&, const CEL_PixmapAreaRGBA16&);
template void mergeCoverage<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&, const CEL_PixmapAreaRGBAFloat&);
