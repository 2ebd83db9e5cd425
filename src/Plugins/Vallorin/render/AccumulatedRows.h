// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The rows of an object's accumulator, merged from its inputs when they are read. An accumulator is read once, for the
// mask, so a picture of its own would cost memory and time for nothing.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <span>
#include <vector>

/// An object's accumulator with inputs that are still to be merged into it.
struct AccumulatedObject
{
    UT_SharedPtr<CEL_PixmapArea> merged;               ///< null: there is no accumulator
    std::vector<UT_SharedPtr<CEL_PixmapArea>> waiting; ///< in the order of their ports; of the accumulator's format
    Math::Box2di rect;                                 ///< the accumulator's rectangle when all of them are merged
};

/// Reads the rows of one. Used by one thread.
template<typename Pixel>
class AccumulatedRows
{
public:
    using Pixmap = CEL_PixmapOf<Pixel>;

    /// Of an accumulator into which all inputs are merged. It outlives the rows.
    AccumulatedRows(const Pixmap& merged) : _merged(merged), _rect(merged.allocatedRect()) {}

    /// Of an object whose pixmaps have this format. They outlive the rows.
    explicit AccumulatedRows(const AccumulatedObject& object);

    const Math::Size2di& size() const { return _merged.size(); }
    const Math::Box2di& canvasRect() const { return _merged.canvasRect(); }
    /// The accumulator's rectangle.
    const Math::Box2di& rect() const { return _rect; }

    /// The pixels x1 .. x2 - 1 of row y, which are inside the rectangle; G and B are without meaning. Valid until the
    /// next call.
    std::span<const Pixel> pixels(int y, int x1, int x2);

    /// The mask of those pixels: the value times the coverage of each.
    void weigh(int y, int x1, int x2, float* mask);

private:
    const Pixmap* onlyInput(const Math::Box2di& pixels) const;
    bool copyMerged(int y, int x1, std::span<Pixel> line) const;

    const Pixmap& _merged;
    Math::Box2di _rect;
    std::vector<const Pixmap*> _waiting;
    std::vector<Pixel> _line;
};
