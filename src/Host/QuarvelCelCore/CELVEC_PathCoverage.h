// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CELVEC_PathCoverage: how much of each cell of a grid a path covers. The areas are exact for loops that do not cross
// each other within a cell; curves are replaced by lines that lie within a twentieth of a cell. The time follows from
// the cells that the outline passes. A painter's is a multiple of it for small pictures, since it is made for large
// ones, and for outlines of which very many lines cross each row.
#pragma once

#include "QuarvelCelCore/QuarvelCelCoreExport.h"

#include <QPainterPath>
#include <QRect>

#include <cstdint>
#include <span>
#include <vector>

/// @tparam Step what the areas are summed up in: float, or double where what a cell shows may not depend on the box
/// that it is found in. Not for several threads.
template<typename Step>
class QUARVELCELCORE_EXPORT CELVEC_PathCoverage
{
public:
    /// @param origin       of the grid, in the path's units
    /// @param cellsPerUnit of the path, along x and y
    CELVEC_PathCoverage(const QPointF& origin, const QPointF& cellsPerUnit);

    /// Finds what a path covers, by its fill rule.
    ///
    /// @param box     cells of the grid
    /// @param covered one number for every cell of the box, row by row: 0 to 255, rounded
    void find(const QPainterPath& path, const QRect& box, std::span<std::uint8_t> covered);

private:
    struct Point
    {
        double x;
        double y;
    };

    Point inBox(const QPainterPath::Element& element) const;
    void addLoops(const QPainterPath& path);
    void addCurve(const Point& from, const Point& one, const Point& two, const Point& to);
    void addLine(const Point& from, const Point& to);
    void addWithinRow(std::size_t row, double from, double to, double height);

    Point _cellsPerUnit;
    Point _origin; // of the grid, in the path's units
    QRect _box;
    std::size_t _stride = 0;
    // What each cell adds to the area left of the loops, in units of a cell. The sums along a row are the areas.
    std::vector<Step> _steps;
};

extern template class CELVEC_PathCoverage<float>;
extern template class CELVEC_PathCoverage<double>;
