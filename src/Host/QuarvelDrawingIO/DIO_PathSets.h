// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Unions, intersections and differences of areas. Qt's path operations are exact enough for clips but slow on detailed
// paths, so rectangles, which most clips are, and areas that do not meet are combined without them. Very
// detailed areas are not combined at all; the functions then return no result.
#pragma once

#include "QuarvelDrawingIO/QuarvelDrawingIOExport.h"

#include <QPainterPath>

#include <optional>
#include <vector>

/// How much may still be worked out with the areas of one drawing. Whoever combines many areas passes the same one to
/// every operation; when it is used up, operations that take work count as too detailed. Not for several threads.
class QUARVELDRAWINGIO_EXPORT DIO_PathWork
{
public:
    /// All of it takes a few seconds. The most detailed of 359 drawings with masks or opacities needs less.
    static constexpr int kMost = 3'000'000;

    /// @param units an operation takes as many as its paths have elements, and more for each of many elements
    explicit DIO_PathWork(int units = kMost) : _left(units) {}

    /// Takes some of it; false when less is left.
    bool take(int units)
    {
        if (units > _left)
            return false;
        _left -= units;
        return true;
    }

private:
    int _left;
};

/// Whether a path is one rectangle with sides along the axes.
QUARVELDRAWINGIO_EXPORT bool DIO_isRectangle(const QPainterPath& path);

/// The area of a rectangle.
QUARVELDRAWINGIO_EXPORT QPainterPath DIO_rectangle(const QRectF& rect);

/// What lies in either area, in both, or in the first but not in the second. Nothing when they are too detailed.
///
/// @param work what may still be worked out; without it, each operation by itself has a limit alone
QUARVELDRAWINGIO_EXPORT std::optional<QPainterPath> DIO_united(const QPainterPath& a, const QPainterPath& b,
                                                               DIO_PathWork* work = nullptr);
/// What lies in any of several areas. Where they are too detailed, they stay side by side in one path, which is filled
/// by the winding rule; where such parts overlap and run around in different ways, they may cancel each other.
QUARVELDRAWINGIO_EXPORT QPainterPath DIO_united(std::vector<QPainterPath> areas, DIO_PathWork* work = nullptr);
QUARVELDRAWINGIO_EXPORT std::optional<QPainterPath> DIO_intersected(const QPainterPath& a, const QPainterPath& b,
                                                                    DIO_PathWork* work = nullptr);
QUARVELDRAWINGIO_EXPORT std::optional<QPainterPath> DIO_subtracted(const QPainterPath& a, const QPainterPath& b,
                                                                   DIO_PathWork* work = nullptr);
