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

// Compares the distances inside a mask with those to each cell of the box in turn.
void expectNearestUncovered(const CellMask& mask, const QRect& box)
{
    const std::vector<int> squares = squaredDistancesInside(mask, box);
    std::size_t i = 0;
    for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x, ++i) {
            const int expected = nearest(mask, box, {x, y}, false);
            RC_ASSERT((expected >= 0 ? squares[i] == expected : squares[i] > 1000000));
        }
}

} // namespace

RC_GTEST_PROP(CellDistances, insideAnAreaAreThoseToTheNearestUncoveredCell, ())
{
    const CellMask mask = maskWith(*rc::gen::inRange(1, 20), *rc::gen::inRange(1, 20), false);
    const int margin = *rc::gen::inRange(0, 2);
    const QRect box = mask.box().adjusted(-margin, -margin, margin, margin);
    expectNearestUncovered(mask, box);
}

RC_GTEST_PROP(CellDistances, insideAnAreaAreFoundRowByRow, ())
{
    const CellMask mask = maskWith(*rc::gen::inRange(1, 20), *rc::gen::inRange(1, 20), false);
    const QRect box = mask.box().adjusted(-1, -1, 0, 1);
    const std::vector<int> all = squaredDistancesInside(mask, box);
    DistancesInside distances(mask, box);
    RC_ASSERT(distances.rows() == box.height());
    const auto width = static_cast<std::size_t>(box.width());
    for (int row = distances.rows() - 1; row >= 0; row -= 2) {
        const std::span expected = std::span(all).subspan(static_cast<std::size_t>(row) * width, width);
        RC_ASSERT(std::ranges::equal(distances.row(row), expected));
    }
    const int most = distances.mostSteps();
    RC_ASSERT(std::ranges::max(all) <= most * most);
}

// Few uncovered cells, so that they are near some runs and far from others.
RC_GTEST_PROP(CellDistances, inLongRowsAreThoseToTheNearestUncoveredCell, ())
{
    const QRect box(-3, 5, *rc::gen::inRange(1, 120), *rc::gen::inRange(1, 5));
    const int most = *rc::gen::inRange(2, 100);
    const CellMask mask = CellMask::where(box, [most](int, int) { return *rc::gen::inRange(0, most) > 0; });
    expectNearestUncovered(mask, box);
}

TEST(CellDistances, InARunAreThoseToItsNearerEnd)
{
    for (int length = 1; length < 80; ++length) {
        // Rows of covered cells above and below, which are farther from uncovered ones.
        const QRect box(0, 0, length + 2, 100);
        const CellMask mask = CellMask::where(box, [&](int x, int) { return x > 0 && x <= length; });
        DistancesInside distances(mask, box);
        const std::span<const int> row = distances.row(50);
        for (int x = 0; x < box.width(); ++x) {
            const int nearer = std::min(x, length + 1 - x);
            EXPECT_EQ(row[static_cast<std::size_t>(x)], nearer * nearer) << length;
        }
    }
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
