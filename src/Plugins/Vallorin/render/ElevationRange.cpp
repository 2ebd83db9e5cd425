// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One pass over R, in the channel's own type: that of 16-bit channels converts to float without rounding.
#include "render/ElevationRange.h"

#include <algorithm>

template<typename Pixel>
PositiveSpan findPositiveSpan(const CEL_PixmapOf<Pixel>& pixmap)
{
    PositiveSpan span;
    auto lowest = static_cast<decltype(Pixel::r)>(span.lowest);
    auto highest = static_cast<decltype(Pixel::r)>(span.highest);
    for (int y = pixmap.allocatedRect().y1; y < pixmap.allocatedRect().y2; ++y)
        for (const Pixel& pixel : pixmap.row(y)) {
            lowest = pixel.r > 0 && pixel.r < lowest ? pixel.r : lowest;
            highest = pixel.r > 0 && pixel.r > highest ? pixel.r : highest;
        }
    span.lowest = static_cast<float>(lowest);
    span.highest = static_cast<float>(highest);
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
