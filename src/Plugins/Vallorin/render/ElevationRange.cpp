// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One pass over R.
#include "render/ElevationRange.h"

#include <algorithm>

template<typename Pixel>
PositiveSpan findPositiveSpan(const CEL_PixmapOf<Pixel>& pixmap)
{
    PositiveSpan span;
    for (int y = pixmap.allocatedRect().y1; y < pixmap.allocatedRect().y2; ++y)
        for (const Pixel& pixel : pixmap.row(y)) {
            const auto value = static_cast<float>(pixel.r);
            span.lowest = value > 0.0F ? std::min(span.lowest, value) : span.lowest;
            span.highest = value > 0.0F ? std::max(span.highest, value) : span.highest;
        }
    return span;
}

std::pair<float, float> elevationRange(const PositiveSpan& span)
{
    if (span.lowest == span.highest)
        return {span.lowest, 1.0F};
    return {span.lowest, 1.0F / (span.highest - span.lowest)};
}

template PositiveSpan findPositiveSpan<CEL_PixelRGBA16>(const CEL_PixmapAreaRGBA16&);
template PositiveSpan findPositiveSpan<CEL_PixelRGBAFloat>(const CEL_PixmapAreaRGBAFloat&);
