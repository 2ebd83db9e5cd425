// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PageFrame: the frame of the picture that a drawing is fitted into. If the picture has another shape than the drawing,
// it is wider or higher, and the drawing ends inside it at two sides: what the drawing's border cuts there must not
// continue, because the picture would show it.
#pragma once

#include <QRectF>

#include <algorithm>

/// The picture's frame around a drawing's, in the drawing's units.
///
/// @param aspect the picture's width over its height; 0 for that of the drawing
inline QRectF pageAround(const QRectF& frame, double aspect)
{
    // Sizes in whole pixels change the shape by less than this.
    constexpr double kSameShape = 0.01;
    if (frame.isEmpty() || aspect <= 0.0)
        return frame;
    const double wider = std::max(0.0, aspect * frame.height() - frame.width()) / 2.0;
    const double higher = std::max(0.0, frame.width() / aspect - frame.height()) / 2.0;
    if (std::max(wider, higher) < kSameShape * std::max(frame.width(), frame.height()))
        return frame;
    return frame.adjusted(-wider, -higher, wider, higher);
}
