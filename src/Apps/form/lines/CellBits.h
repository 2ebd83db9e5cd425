// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// CellBits: marked cells of a grid, one bit for each, so that 64 of them are handled at a time.
#pragma once

#include "form/bitmap/pixels/ConnectedPixels.h"

#include <cstdint>
#include <span>
#include <vector>

class CellBits
{
public:
    using Word = std::uint64_t;

    /// A grid without marked cells.
    CellBits(int width, int height);

    int width() const { return _width; }
    int height() const { return _height; }

    /// Cell x of a row is bit x % 64 of word x / 64. What the bits behind the last cell are matters nowhere.
    std::span<Word> row(int y) { return std::span(_words).subspan(offset(y), _stride); }
    std::span<const Word> row(int y) const { return std::span(_words).subspan(offset(y), _stride); }

    /// Marks the cells of a run inside the grid.
    void mark(const PixelRun& run);
    /// Marks the cells of a row whose values are at least a limit from 1 to 128.
    ///
    /// @param values one for each cell of the row
    void markFrom(int y, std::span<const std::uint8_t> values, unsigned limit);

    /// The runs of marked cells, or of those that are not marked, row by row from left to right.
    std::vector<PixelRun> runs(bool ofMarked = true) const;

    /// Makes cells that another grid of the same size marks cells that are not marked.
    void remove(const CellBits& others);

    /// Marks the cells whose shortest paths to a marked one (PixelDistances.h) are at most so long.
    void grow(int longest);

private:
    std::size_t offset(int y) const { return static_cast<std::size_t>(y) * _stride; }

    int _width;
    int _height;
    std::size_t _stride; // words of a row
    std::vector<Word> _words;
};
