// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// StrokeRelief: the cross-section of strokes that bend a surface. A stroke of half width r gets a bump of the height
// r (1 - (x / r)^2)^2 at the distance x from its middle: it begins and ends without an edge, and where the stroke is
// wider it is wider and higher in proportion.
//
// Only the strokes' coverage is known, so r has to be found. The membrane u over the strokes, the solution of
// -laplace u = 2 with u = 0 at their outlines, is r^2 - x^2 across a long stroke, and u + |grad u|^2 / 4 is r^2 there,
// everywhere across it (the torsion problem of elastic beams; L. E. Payne, "Bounds for the maximum stress in the Saint
// Venant torsion problem", 1968). Both change smoothly at ends, bends and crossings. The membrane is relaxed from
// coarse to fine grids (cascadic multigrid: F. Bornemann, P. Deuflhard, "The cascadic multigrid method for elliptic
// problems", Numerische Mathematik 75, 1996).
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <algorithm>
#include <vector>

/// Heights in a rectangle of pixels, in pixels; 0 outside it. Single precision; the same for any number of threads.
class StrokeRelief
{
public:
    /// No strokes.
    StrokeRelief() = default;
    /// @param strokes colours with coverage (RGBA, 16 bits or float)
    /// @param window  the rectangle to look at; strokes that leave it go on beyond its border
    StrokeRelief(const CEL_PixmapArea& strokes, const Math::Box2di& window);

    /// The rectangle outside which all heights are 0.
    const Math::Box2di& rect() const { return _rect; }
    /// The height at the pixel of the rectangle that is nearest to a place, 0 or higher. There must be strokes.
    float nearHeight(int x, int y) const
    {
        const auto column = static_cast<std::size_t>(std::clamp(x, _rect.x1, _rect.x2 - 1) - _rect.x1);
        const auto row = static_cast<std::size_t>(std::clamp(y, _rect.y1, _rect.y2 - 1) - _rect.y1);
        return _heights[row * static_cast<std::size_t>(_rect.width()) + column];
    }

private:
    Math::Box2di _rect{0, 0, 0, 0};
    std::vector<float> _heights;
};
