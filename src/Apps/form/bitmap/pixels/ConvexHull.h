// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ConvexHull: the smallest convex area around a region's pixels. The part of the hull that a region does not fill tells
// how complete the region is; the part of another region that lies inside the hull tells which of the two hides the
// other.
#pragma once

#include <QPoint>

#include <vector>

/// A convex polygon with corners on pixels' corners, clockwise as seen (y down), no three in a line.
class ConvexHull
{
public:
    ConvexHull() = default;
    /// The hull of points in any order.
    explicit ConvexHull(std::vector<QPoint> points);

    /// The hull of two areas.
    static ConvexHull around(const ConvexHull& a, const ConvexHull& b);

    /// In pixels.
    double area() const;
    /// The largest distance between two corners.
    double span() const;
    int top() const { return _top; }
    int bottom() const { return _bottom; }
    /// The pixels [first, second) of a row whose centres lie inside the outline, not on it.
    std::pair<int, int> pixelsIn(int row) const;

private:
    std::vector<QPoint> _corners;
    int _top = 0;
    int _bottom = 0; // the row after the last
};
