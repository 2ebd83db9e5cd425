// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AT_BezierSegment: a curve from a Bezier key to the next key. It is evaluated in two steps: bisection finds the
// parameter t at which the curve reaches the frame (the horizontal polynomial never decreases, because its inner points
// are clamped to the segment), then the vertical polynomial gives the value there.
#pragma once

#include "QuarvelSceneCore/attributes/AT_Curve.h"

#include <algorithm>
#include <array>

/// Points of the control polygon, from a key to the next: x as a share of the segment's length, y in units of the
/// value.
struct AT_BezierSegment
{
    std::array<double, 4> x;
    std::array<double, 4> y;

    static AT_BezierSegment between(const AT_Curve::Key& a, const AT_Curve::Key& b)
    {
        const double length = b.frame - a.frame;
        return {{0.0, std::clamp(a.out.frame / length, 0.0, 1.0), std::clamp(1.0 + b.in.frame / length, 0.0, 1.0), 1.0},
                {a.value, a.value + a.out.value, b.value + b.in.value, b.value}};
    }

    /// The polynomial with these four points at t.
    static double polynomial(const std::array<double, 4>& p, double t)
    {
        const double s = 1.0 - t;
        return s * s * s * p[0] + 3.0 * s * s * t * p[1] + 3.0 * s * t * t * p[2] + t * t * t * p[3];
    }

    /// The parameter at which the curve reaches a share of the length.
    double parameterAt(double share) const
    {
        constexpr int kBisections = 54; // one for each bit of a double's fraction, and a little more
        double low = 0.0;
        double high = 1.0;
        for (int i = 0; i < kBisections; ++i) {
            const double middle = 0.5 * (low + high);
            (polynomial(x, middle) < share ? low : high) = middle;
        }
        return 0.5 * (low + high);
    }

    double valueAt(double share) const { return polynomial(y, parameterAt(share)); }
};
