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
            // What the neighbours that were visited before share an edge with is joined to them already.
            if (y > 0 && marked[i - width]) {
                sets.join(i, i - width);
                continue;
            }
            if (x > 0 && marked[i - 1])
                sets.join(i, i - 1);
            else if (x > 0 && y > 0 && marked[i - width - 1])
                sets.join(i, i - width - 1);
            if (y > 0 && x + 1 < width && marked[i - width + 1])
                sets.join(i, i - width + 1);
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
