// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Connected pixels: sets of pixels that can be joined, and the connected parts of the marked pixels of a plane.
#pragma once

#include "form/bitmap/pixels/PixelPlane.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <vector>

/// Disjoint sets of pixels, or of runs of them. Each pixel starts as a set of its own; a set is identified by its first
/// pixel.
class PixelSets
{
public:
    explicit PixelSets(int count) : _parents(static_cast<std::size_t>(count))
    {
        std::iota(_parents.begin(), _parents.end(), 0);
    }
    int find(int pixel)
    {
        while (parent(pixel) != pixel)
            pixel = parent(pixel) = parent(parent(pixel));
        return pixel;
    }
    void join(int a, int b)
    {
        a = find(a);
        b = find(b);
        parent(std::max(a, b)) = std::min(a, b);
    }

private:
    int& parent(int pixel) { return _parents[static_cast<std::size_t>(pixel)]; }

    std::vector<int> _parents;
};

/// Pixels beside each other in a row; none of them is at `to`.
struct PixelRun
{
    int row;
    int from;
    int to;
};

/// The connected parts that runs make up; runs that share an edge or a corner are connected.
struct ConnectedRuns
{
    std::vector<int> parts;  ///< index of each run's part; parts are numbered by their first run
    std::vector<int> pixels; ///< how many pixels each part has
};

/// @param runs row by row, in each row from left to right, with other pixels between them
ConnectedRuns connectedPartsOf(std::span<const PixelRun> runs);

/// The connected parts of the marked pixels; pixels that share an edge or a corner are connected.
struct ConnectedParts
{
    PixelPlane<int> labels;  ///< index of the part; kNoLabel outside
    std::vector<int> pixels; ///< how many pixels each part has
};

/// @param marked 1 for the marked pixels, 0 for the others
ConnectedParts connectedPartsOf(const PixelPlane<char>& marked);
