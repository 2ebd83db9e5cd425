// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// EllipseFit: the ellipse that comes nearest to points, such as those of the visible part of an outline. It tells how
// the outline of a round body continues where something hides it.
#pragma once

#include <QPointF>

#include <array>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/// An ellipse.
class Ellipse
{
public:
    /// Fits an ellipse to points. std::nullopt if they do not lie along one: too few, along a line, along a hyperbola.
    ///
    /// Least squares of the algebraic distance with the sum of the squares' coefficients fixed to 1, in double
    /// precision. This constraint is linear and does not change when the points are moved, turned or scaled
    /// (F. Bookstein, "Fitting conic sections to scattered data", 1979, discusses such constraints).
    static std::optional<Ellipse> through(std::span<const QPointF> points);

    const QPointF& centre() const { return _centre; }
    double longRadius() const { return _longRadius; }
    double shortRadius() const { return _shortRadius; }
    double area() const;
    /// How far a point lies from the outline, to the first order: exact near it. Negative inside.
    double distance(const QPointF& point) const;
    /// The direction of a point from the centre, in degrees from 0 to 360, after the ellipse was scaled to a circle.
    double angleOf(const QPointF& point) const;
    /// The pixels [first, second) of a row whose centres lie inside the ellipse grown by a margin on all sides.
    std::pair<int, int> pixelsIn(int row, double margin) const;

private:
    QPointF _centre;
    double _longRadius = 0.0;
    double _shortRadius = 0.0;
    QPointF _axis{1.0, 0.0}; // the direction of the long axis, of length 1
};
