// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// ShapePainter: finds the cells of one grid that shapes cover. The layers of a drawing wear the same lines, each inside
// its own outline, so what belongs to shapes with a clip, their paths and the clips, is painted once and kept.
#pragma once

#include "QuarvelCelCore/CELVEC_PathCoverage.h"
#include "form/raster/CellMask.h"

#include <QImage>

#include <cstdint>
#include <map>
#include <span>
#include <vector>

class ShapePainter
{
public:
    explicit ShapePainter(const Grid& grid) : _grid(grid), _paths(grid.frame.topLeft(), grid.cellsPerUnit()) {}

    const Grid& grid() const { return _grid; }

    /// The cells that shapes cover together, as CellMask::of() finds them.
    CellMask mask(std::span<const DIO_Shape> shapes);

private:
    // How much of each cell of a box is covered, 0 to 255.
    struct Coverage
    {
        QRect box;
        std::vector<std::uint8_t> cells;

        std::span<std::uint8_t> row(const QRect& part, int y);
        std::span<const std::uint8_t> row(const QRect& part, int y) const;
    };
    struct Kept
    {
        QPainterPath path;
        Coverage coverage;
    };

    void add(const DIO_Shape& shape, const QRect& part, Coverage& together);
    Coverage ofShape(const DIO_Shape& shape, const QRect& part, const QPoint& origin);
    const Coverage& kept(const QPainterPath& path);
    static bool showsIn(const Coverage& coverage, const QRect& part, const Coverage& together);
    void paintPicture(const DIO_Shape& shape, const QPoint& origin, Coverage& coverage);

    Grid _grid;
    CELVEC_PathCoverage<float> _paths;
    QImage _canvas;                         // of the grid's size; only what is being painted is cleared
    std::multimap<std::size_t, Kept> _kept; // by what the path's elements hash to
    std::size_t _cellsKept = 0;
};
