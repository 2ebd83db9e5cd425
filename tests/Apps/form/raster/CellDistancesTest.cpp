// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares the distances with a search through all cells.
#include "form/raster/CellDistances.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace {

// A few cells that differ from all the others.
CellMask maskWith(int width, int height, bool ofCovered)
{
    return CellMask::where(QRect(2, 3, width, height),
                           [ofCovered](int, int) { return (*rc::gen::inRange(0, 12) == 0) == ofCovered; });
}

// The squared distance to the nearest cell of a box that is covered, or uncovered; -1 if there is none.
int nearest(const CellMask& mask, const QRect& box, const QPoint& from, bool covered)
{
    int least = -1;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x)
            if (const QPoint way = QPoint(x, y) - from; mask.at(x, y) == covered)
                if (const int square = QPoint::dotProduct(way, way); least < 0 || square < least)
                    least = square;
    return least;
}

} // namespace

RC_GTEST_PROP(CellDistances, insideAnAreaAreThoseToTheNearestUncoveredCell, ())
{
    const CellMask mask = maskWith(*rc::gen::inRange(1, 20), *rc::gen::inRange(1, 20), false);
    const int margin = *rc::gen::inRange(0, 2);
    const QRect box = mask.box().adjusted(-margin, -margin, margin, margin);
    const std::vector<int> squares = squaredDistancesInside(mask, box);
    std::size_t i = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x, ++i) {
            const int expected = nearest(mask, box, {x, y}, false);
            RC_ASSERT((expected >= 0 ? squares[i] == expected : squares[i] > 1000000));
        }
}

RC_GTEST_PROP(CellDistances, insideAnAreaAreCounted, ())
{
    const CellMask mask = maskWith(*rc::gen::inRange(1, 20), *rc::gen::inRange(1, 20), false);
    const QRect box = mask.box().adjusted(-1, -1, 0, 1);
    const int most = *rc::gen::inRange(1, 60);
    const std::vector<int> counts = countSquaredDistancesInside(mask, box, most);
    const int last = std::min(most, box.width() * box.width() + box.height() * box.height());
    RC_ASSERT(counts.size() == static_cast<std::size_t>(last) + 1);
    std::vector<int> expected(counts.size());
    for (const int square : squaredDistancesInside(mask, box))
        ++expected[static_cast<std::size_t>(std::min(square, last))];
    RC_ASSERT(counts == expected);
}

RC_GTEST_PROP(CellDistances, toAnAreaAreThoseToItsNearestCell, ())
{
    const CellMask mask = maskWith(*rc::gen::inRange(1, 16), *rc::gen::inRange(1, 16), true);
    const QRect box = mask.box().adjusted(-5, -5, 5, 5);
    const int most = *rc::gen::inRange(0, 300);
    const DistanceToCovered distances(mask, box);
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x) {
            const int expected = nearest(mask, box, {x, y}, true);
            const int found = distances.squared(x, y, most);
            RC_ASSERT((expected >= 0 && expected <= most ? found == expected : found > most));
        }
}
