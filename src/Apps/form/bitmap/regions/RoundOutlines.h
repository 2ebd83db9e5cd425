// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// RoundOutlines: which of a bitmap's regions are round, judged by the visible part of their outline. People see a disc
// where enough of a circle is visible, and expect its outline to go on as the circle does behind what hides it (the
// good continuation of M. Wertheimer, "Laws of organization in perceptual forms", 1923).
#pragma once

#include "form/bitmap/pixels/EllipseFit.h"
#include "form/bitmap/pixels/PixelPlane.h"

#include <map>

class RoundOutlines
{
public:
    /// @param labels the labels of regions, below count
    RoundOutlines(const PixelPlane<int>& labels, std::size_t count);

    /// The ellipse that a region's outline towards uncovered pixels, and towards the given neighbours, is a part of.
    /// std::nullopt if the region has another shape, or if too little of the outline is known.
    std::optional<Ellipse> of(int number, std::span<const int> neighbours = {}) const;

    /// The share of the seam of two regions that lies on the outline of one of them, 0 to 1.
    ///
    /// @param round the outline of one of the two
    double seamShare(int number, int other, const Ellipse& round) const;

private:
    struct Outline
    {
        std::vector<QPointF> clear; // the middles of edges towards uncovered pixels
        std::map<int, std::vector<QPointF>> seams;
    };

    const Outline& outline(int number) const { return _outlines[static_cast<std::size_t>(number)]; }

    std::vector<Outline> _outlines;
};
