// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From which size on the pixels of a picture are seen as squares.
#pragma once

#include "studio/preview/RenderedFrame.h"
#include "studio/preview/ViewTransform.h"

/// Whether a view shows the squares of a frame's pixels instead of smoothing them. The pixels of a quick picture are
/// nobody's.
inline bool showsPixels(const ViewTransform& transform, const RenderedFrame& frame)
{
    constexpr double kSmoothUpTo = 2.0;
    return frame.isFull() && transform.zoom >= kSmoothUpTo;
}
