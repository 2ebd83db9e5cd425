// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// PixelOwners: which input of a node each pixel of a frame shows, for what the programs do to single objects of a
// picture that the node rendered. A pixel belongs to the highest input that covers half of it or more; a pixel at an
// outline that none covers so far, to the highest one beside it. A cut-out owns nothing and takes the pixels from what
// lies below it.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "jobs/shown/InputCoverage.h"

#include <array>
#include <vector>

/// The owner of a pixel that shows no object.
inline constexpr int kNoOwner = -1;

/// The owners of the pixels of one row after another, from the top. Keeps three rows.
class PixelOwners
{
public:
    /// @param inputs of the frame, the lowest first; they must outlive this object
    /// @param rect   the pixels' rectangle, in the inputs' coordinates, not empty
    /// @param y      the first row
    PixelOwners(const ShownInputs& inputs, const Math::Box2di& rect, int y);

    /// Goes on to the next row; to be called before the first one as well.
    void next();
    /// The index of the input that owns a pixel of the row, or kNoOwner.
    ///
    /// @param x from 0, counted from the rectangle's left side
    int at(std::size_t x) const;

private:
    using Row = std::vector<int>;

    void find(int y, Row& owners) const;

    const ShownInputs& _inputs;
    Math::Box2di _rect;
    int _next; // the row below the current one
    std::array<Row, 3> _rows;
};

/// Calls visit(pixel, owner, x, y) for every pixel of a pixmap that shows an object, rows in parallel.
template<typename Pixmap, typename Visit>
void forOwnedPixels(Pixmap& pixels, const ShownInputs& inputs, const Visit& visit)
{
    const Math::Box2di rect = pixels.allocatedRect();
    if (rect.isEmpty())
        return;
    constexpr int kBand = 64;
    VL_parallelFor(tbb::blocked_range<int>(rect.y1, rect.y2, kBand), [&](const tbb::blocked_range<int>& band) {
        PixelOwners owners(inputs, rect, band.begin());
        for (int y = band.begin(); y < band.end(); ++y) {
            owners.next();
            const auto row = pixels.row(y);
            for (std::size_t x = 0; x < row.size(); ++x)
                if (const int owner = owners.at(x); owner != kNoOwner)
                    visit(row[x], static_cast<std::size_t>(owner), rect.x1 + static_cast<int>(x), y);
        }
    });
}
