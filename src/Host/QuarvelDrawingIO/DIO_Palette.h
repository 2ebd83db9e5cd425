// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The palette of a drawing: plain paints, and the index that a shape has of its paint. Readers of drawings with
// thousands of paints keep a table of indices beside the palette.
#pragma once

#include "QuarvelDrawingIO/DIO_Drawing.h"

#include <algorithm>

/// A plain paint of a colour without its transparency.
inline DIO_Paint DIO_solidPaint(const QColor& colour)
{
    return {DIO_Paint::Kind::SOLID, QColor::fromRgb(colour.rgb()), colour.name()};
}

/// The index of a paint in a palette; a paint that is not in it yet is added at its end.
inline int DIO_paintIndex(std::vector<DIO_Paint>& palette, const DIO_Paint& paint)
{
    auto found = std::ranges::find(palette, paint);
    if (found == palette.end())
        found = palette.insert(found, paint);
    return static_cast<int>(found - palette.begin());
}
