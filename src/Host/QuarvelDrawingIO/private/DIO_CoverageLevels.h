// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_CoverageLevels: how much of what is painted a mask lets through, place by place: a function that is constant on
// areas, such as what plain shapes of different opacities make up.
//
// It is kept by its levels: the areas where it has at least a value, from the lowest value above 0 to the highest, so
// that each area lies within the one before. Painted one over the other, such areas have no seams where they meet
// (areas side by side would: two halves of a pixel cover three quarters of it).
#pragma once

#include "QuarvelDrawingIO/DIO_PathSets.h"

#include <QPainterPath>
#include <QRectF>

#include <optional>
#include <span>
#include <vector>

class DIO_CoverageLevels
{
public:
    /// Where the coverage is at least a value.
    struct Level
    {
        QPainterPath area;
        double value = 0.0; ///< above 0, up to 1
    };

    /// The same coverage everywhere.
    ///
    /// @param page what "everywhere" is; other places are never asked for
    /// @param work what may be worked out for all of the drawing; outlives this object
    DIO_CoverageLevels(const QRectF& page, double value, DIO_PathWork& work);

    /// Within an area (or, when inverted, outside it), changes each value v to scale * v + offset, limited to 0..1.
    void change(const QPainterPath& area, bool inverted, double scale, double offset);

    /// Paints a value over an area (or outside it) with an opacity.
    void paint(const QPainterPath& area, bool inverted, double opacity, double value)
    {
        change(area, inverted, 1.0 - opacity, opacity * value);
    }

    /// An area that is painted.
    struct Painted
    {
        QPainterPath area;
        double opacity;
        double value;
    };

    /// Paints areas one over the other.
    void paint(std::span<const Painted> areas);

    /// Paints opaque areas where nothing is let through yet. Each lies within the one before and has a higher value, so
    /// that they are the levels themselves.
    void paintNested(std::span<const Painted> areas);

    /// Makes each value v to 1 - v.
    void invert() { change(_page, false, -1.0, 1.0); }

    /// The levels in ascending order of their values; none where nothing is let through.
    std::span<const Level> levels() const { return _levels; }

    /// How many changes were too detailed to be computed. The coverage ignores them.
    int skipped() const { return _skipped; }

private:
    struct Change
    {
        const QPainterPath& area;
        bool inverted;
        double scale;
        double offset;
    };

    std::optional<QPainterPath> atLeastAfter(double value, const Change& change) const;
    const QPainterPath& atLeast(double value) const;

    QPainterPath _page;
    std::vector<Level> _levels;
    DIO_PathWork& _work;
    int _skipped = 0;
};
