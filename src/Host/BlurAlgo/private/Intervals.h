// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Intervals of columns and rows, and which of them a halving or a doubling reads and makes.
//
// Coordinates: sample k of a halved axis lies on sample 2 k of the axis it was made from, for every integer k, so all
// levels share the picture's origin. A plane stores the samples of its rectangle; outside it, samples are zero
// (halving, filter) or unused (doubling).
#pragma once

#include "QuarvelBaseCore/Math_Box2di.h"

namespace BlurAlgo {

/// Columns or rows lo .. hi - 1.
struct Interval
{
    int lo = 0;
    int hi = 0;

    int size() const { return hi - lo; }
    bool contains(int v) const { return v >= lo && v < hi; }
};

inline Interval columnsOf(const Math::Box2di& box)
{
    return {box.x1, box.x2};
}
inline Interval rowsOf(const Math::Box2di& box)
{
    return {box.y1, box.y2};
}

inline Math::Box2di boxOf(Interval x, Interval y)
{
    return {x.lo, y.lo, x.hi, y.hi};
}

/// Half of v, rounded down or up, for any sign.
inline int floorHalf(int v)
{
    return v >> 1;
}
inline int ceilHalf(int v)
{
    return (v + 1) >> 1;
}

/// The interval, extended to even bounds.
inline Interval alignedToEven(Interval samples)
{
    return {2 * floorHalf(samples.lo), 2 * ceilHalf(samples.hi)};
}

/// The samples of a halved axis that can be non-zero when the axis is zero outside the interval.
Interval halvedSupport(Interval samples, int reach);
/// The samples of a halved axis from which doubling makes those of the interval.
Interval neededByDoubling(Interval samples, int reach);
/// The samples of a doubled axis that can be non-zero when the axis is zero outside the interval.
Interval doubledSupport(Interval samples, int reach);

} // namespace BlurAlgo
