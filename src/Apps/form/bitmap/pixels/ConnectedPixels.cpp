// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Parts are numbered by their first pixel.
#include "form/bitmap/pixels/ConnectedPixels.h"

ConnectedParts connectedPartsOf(const PixelPlane<char>& marked)
{
    const int width = marked.width();
    PixelSets sets(marked.count());
    for (int y = 0; y < marked.height(); ++y)
        for (int x = 0; x < width; ++x) {
            const int i = y * width + x;
            if (!marked[i])
                continue;
            if (x > 0 && marked[i - 1])
                sets.join(i, i - 1);
            for (int nx = std::max(0, x - 1); y > 0 && nx < std::min(width, x + 2); ++nx)
                if (marked.at(nx, y - 1))
                    sets.join(i, i - x - width + nx);
        }
    ConnectedParts parts{PixelPlane<int>(width, marked.height(), kNoLabel), {}};
    for (int i = 0; i < marked.count(); ++i) {
        if (!marked[i])
            continue;
        const int first = sets.find(i);
        if (first == i) {
            parts.labels[i] = static_cast<int>(parts.pixels.size());
            parts.pixels.push_back(0);
        } else
            parts.labels[i] = parts.labels[first];
        ++parts.pixels[static_cast<std::size_t>(parts.labels[i])];
    }
    return parts;
}
