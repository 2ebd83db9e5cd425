// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "jobs/shown/strokes/StrokeRelief.h"

#include "QuarvelCelCore/CEL_WithFormat.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"
#include "jobs/shown/strokes/Membrane.h"

#include <algorithm>
#include <cmath>

namespace {

// The covered pixels of the window with an empty one around them, which a border of the window cuts off.
template<typename Pixmap>
Math::Box2di coveredRect(const Pixmap& pixels, const Math::Box2di& window)
{
    const Math::Box2di known = pixels.allocatedRect().getIntersection(window);
    Math::Box2di covered{known.x2, known.y2, known.x1, known.y1};
    for (int y = known.y1; y < known.y2; ++y) {
        const auto row = pixels.row(y).subspan(static_cast<std::size_t>(known.x1 - pixels.allocatedRect().x1),
                                               static_cast<std::size_t>(std::max(0, known.width())));
        for (int x = 0; x < known.width(); ++x)
            if (row[static_cast<std::size_t>(x)].a > 0) {
                covered.x1 = std::min(covered.x1, known.x1 + x - 1);
                covered.x2 = std::max(covered.x2, known.x1 + x + 2);
                covered.y1 = std::min(covered.y1, y - 1);
                covered.y2 = y + 2;
            }
    }
    return covered.getIntersection(window);
}

template<typename Pixmap>
CellField coverageOf(const Pixmap& pixels, const Math::Box2di& rect)
{
    using Traits = CEL_PixelTraits<CEL_PixelOf<Pixmap>>;
    CellField coverage(rect.width(), rect.height());
    const Math::Box2di known = pixels.allocatedRect().getIntersection(rect);
    for (int y = known.y1; y < known.y2; ++y) {
        const auto row = pixels.row(y);
        for (int x = known.x1; x < known.x2; ++x)
            coverage.at(x - rect.x1, y - rect.y1) =
                std::clamp(static_cast<float>(row[static_cast<std::size_t>(x - pixels.allocatedRect().x1)].a) /
                               static_cast<float>(Traits::kFull),
                           0.0F, 1.0F);
    }
    return coverage;
}

// The square of the stroke's half width at a cell, where the membrane is not 0.
float halfWidthSquared(const CellField& membrane, int x, int y)
{
    const float own = membrane.at(x, y);
    // Beyond the outline, which lies between the two cells, the membrane would go on below 0.
    const auto at = [&](int nextX, int nextY) {
        const float next = membrane.near(nextX, nextY);
        return next > 0.0F ? next : -own;
    };
    const float across = (at(x + 1, y) - at(x - 1, y)) / 2.0F;
    const float down = (at(x, y + 1) - at(x, y - 1)) / 2.0F;
    return own + (across * across + down * down) / 4.0F;
}

// In the outermost cells the slope is not known well, so their neighbours farther inside count more.
float averageAround(const CellField& squares, const CellField& membrane, int x, int y)
{
    constexpr int kReach = 2;
    float sum = 0.0F;
    float weights = 0.0F;
    for (int dy = -kReach; dy <= kReach; ++dy)
        for (int dx = -kReach; dx <= kReach; ++dx) {
            const float height = membrane.near(x + dx, y + dy);
            sum += height * height * squares.near(x + dx, y + dy);
            weights += height * height;
        }
    return sum / weights;
}

} // namespace

StrokeRelief::StrokeRelief(const CEL_PixmapArea& strokes, const Math::Box2di& window)
{
    CellField coverage(0, 0);
    CEL_withFormat(strokes, [&](const auto& pixels) {
        _rect = coveredRect(pixels, window);
        if (!_rect.isEmpty())
            coverage = coverageOf(pixels, _rect);
    });
    if (_rect.isEmpty())
        return;
    const CellField membrane = membraneOver(coverage);
    CellField squares(coverage.width, coverage.height);
    const auto forCells = [&](const auto& work) {
        VL_parallelForEach(coverage.height, [&](int y) {
            for (int x = 0; x < coverage.width; ++x)
                if (membrane.at(x, y) > 0.0F)
                    work(x, y);
        });
    };
    forCells([&](int x, int y) { squares.at(x, y) = halfWidthSquared(membrane, x, y); });
    CellField heights(coverage.width, coverage.height);
    forCells([&](int x, int y) {
        const float square = averageAround(squares, membrane, x, y);
        const float own = membrane.at(x, y);
        heights.at(x, y) = own * own / (square * std::sqrt(square));
    });
    _heights = std::move(heights.values);
}
