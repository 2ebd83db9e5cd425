// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Small pixmaps written out in tests.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <gtest/gtest.h>

/// A pixmap whose canvas and allocated rectangle are (0, 0) to (width, height), every pixel the same.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> filled(int width, int height, const Pixel& pixel)
{
    const Math::Box2di rect(0, 0, width, height);
    auto pixmap = UT_makeShared<CEL_PixmapOf<Pixel>>(Math::Size2di{width, height}, rect);
    pixmap->realloc(rect, true);
    for (int y = 0; y < height; ++y)
        for (Pixel& p : pixmap->row(y))
            p = pixel;
    return pixmap;
}

/// The same depth everywhere.
inline UT_SharedPtr<CEL_PixmapAreaZ> filledDepth(int width, int height, float depth)
{
    const Math::Box2di rect(0, 0, width, height);
    auto pixmap = UT_makeShared<CEL_PixmapAreaZ>(Math::Size2di{width, height}, rect);
    pixmap->realloc(rect, true);
    for (int y = 0; y < height; ++y)
        for (CEL_PixelFloat& p : pixmap->row(y))
            p.value = depth;
    return pixmap;
}

using Pixel16 = CEL_PixelRGBA16;
using PixelFloat = CEL_PixelRGBAFloat;
