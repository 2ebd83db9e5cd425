// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares the parts with those that spread from pixel to pixel.
#include "form/bitmap/pixels/ConnectedPixels.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace {

void spread(const PixelPlane<char>& marked, PixelPlane<int>& labels, int x, int y, int label)
{
    if (!marked.contains(x, y) || !marked.at(x, y) || labels.at(x, y) != kNoLabel)
        return;
    labels.at(x, y) = label;
    for (int i = 0; i < 9; ++i)
        spread(marked, labels, x - 1 + i % 3, y - 1 + i / 3, label);
}

} // namespace

RC_GTEST_PROP(ConnectedPixels, areThoseThatShareEdgesOrCorners, ())
{
    PixelPlane<char> marked(*rc::gen::inRange(1, 16), *rc::gen::inRange(1, 16), 0);
    const int sparse = *rc::gen::inRange(1, 5);
    for (int i = 0; i < marked.count(); ++i)
        marked[i] = *rc::gen::inRange(0, 5) >= sparse ? 1 : 0;

    PixelPlane<int> expected(marked.width(), marked.height(), kNoLabel);
    std::vector<int> pixels;
    for (int i = 0; i < marked.count(); ++i)
        if (marked[i] && expected[i] == kNoLabel) {
            spread(marked, expected, i % marked.width(), i / marked.width(), static_cast<int>(pixels.size()));
            pixels.push_back(0);
        }
    for (int i = 0; i < marked.count(); ++i)
        if (marked[i])
            ++pixels[static_cast<std::size_t>(expected[i])];

    const ConnectedParts parts = connectedPartsOf(marked);
    RC_ASSERT(parts.pixels == pixels);
    for (int i = 0; i < marked.count(); ++i)
        RC_ASSERT(parts.labels[i] == expected[i]);
}
