// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares grown areas with the shortest paths, which are shortened cell by cell until none becomes shorter.
#include "form/lines/AreaRuns.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <utility>

namespace {

constexpr int kFar = std::numeric_limits<int>::max() / 2;

using Way = std::pair<int, int>; // length and area

// An area of kNoLabel is open, one of kClosed is not.
constexpr int kClosed = -2;

void shorten(PixelPlane<Way>& ways, const PixelPlane<int>& cells, int x, int y)
{
    for (int i = 0; i < 9; ++i) {
        const int across = i % 3 - 1;
        const int down = i / 3 - 1;
        if (i == 4 || !cells.contains(x + across, y + down) || cells.at(x + across, y + down) == kClosed)
            continue;
        const auto [length, area] = ways.at(x + across, y + down);
        ways.at(x, y) = std::min(ways.at(x, y), Way(length + (across != 0 && down != 0 ? 4 : 3), area));
    }
}

PixelPlane<int> grownSlowly(const PixelPlane<int>& cells)
{
    PixelPlane<Way> ways(cells.width(), cells.height(), Way(kFar, kNoLabel));
    for (int i = 0; i < cells.count(); ++i)
        if (cells[i] >= 0)
            ways[i] = Way(0, cells[i]);
    for (int round = 0; round < cells.count(); ++round)
        for (int i = 0; i < cells.count(); ++i)
            if (cells[i] == kNoLabel)
                shorten(ways, cells, i % cells.width(), i / cells.width());
    PixelPlane<int> areas(cells.width(), cells.height(), kNoLabel);
    for (int i = 0; i < cells.count(); ++i)
        areas[i] = ways[i].first < kFar ? ways[i].second : kNoLabel;
    return areas;
}

AreaRuns runsOf(const PixelPlane<int>& cells)
{
    AreaRuns areas{cells.width(), cells.height(), {}};
    for (int i = 0; i < cells.count(); ++i)
        if (cells[i] >= 0)
            areas.append({i / cells.width(), i % cells.width(), i % cells.width() + 1}, cells[i]);
    return areas;
}

CellBits openOf(const PixelPlane<int>& cells)
{
    CellBits open(cells.width(), cells.height());
    for (int i = 0; i < cells.count(); ++i)
        if (cells[i] != kClosed)
            open.mark({i / cells.width(), i % cells.width(), i % cells.width() + 1});
    return open;
}

PixelPlane<int> planeOf(const AreaRuns& areas)
{
    PixelPlane<int> plane(areas.width, areas.height, kClosed);
    for (const auto& [cells, area] : areas.runs)
        for (int x = cells.from; x < cells.to; ++x)
            plane.at(x, cells.row) = area;
    return plane;
}

// A few areas, among cells of which some are open.
PixelPlane<int> someCells(int closed)
{
    PixelPlane<int> cells(*rc::gen::inRange(1, 14), *rc::gen::inRange(1, 14), kNoLabel);
    const int sparse = *rc::gen::inRange(2, 20);
    for (int i = 0; i < cells.count(); ++i)
        if (*rc::gen::inRange(0, 10) < closed)
            cells[i] = kClosed;
        else if (*rc::gen::inRange(0, sparse) == 0)
            cells[i] = *rc::gen::inRange(0, 5);
    return cells;
}

} // namespace

RC_GTEST_PROP(AreaRuns, growOverOpenCells, ())
{
    const PixelPlane<int> cells = someCells(*rc::gen::inRange(0, 8));
    const PixelPlane<int> expected = grownSlowly(cells);
    const PixelPlane<int> grown = planeOf(grownOver(runsOf(cells), openOf(cells)));
    for (int i = 0; i < cells.count(); ++i)
        RC_ASSERT(grown[i] == (cells[i] == kClosed ? kClosed : expected[i]));
}

RC_GTEST_PROP(AreaRuns, growOverAllCells, ())
{
    const PixelPlane<int> cells = someCells(0);
    const PixelPlane<int> expected = grownSlowly(cells);
    const PixelPlane<int> grown = planeOf(grownOverAll(runsOf(cells)));
    for (int i = 0; i < cells.count(); ++i)
        RC_ASSERT(grown[i] == expected[i]);
}

TEST(AreaRuns, GrowAroundCorners)
{
    // An open path that turns back and forth between closed rows; an area at either end.
    constexpr int kSide = 9;
    PixelPlane<int> cells(kSide, kSide, kNoLabel);
    for (int y = 1; y < kSide; y += 2)
        for (int x = 0; x < kSide - 1; ++x)
            cells.at(y % 4 == 1 ? x : x + 1, y) = kClosed;
    cells.at(0, 0) = 0;
    cells.at(kSide - 1, kSide - 1) = 1;
    const PixelPlane<int> grown = planeOf(grownOver(runsOf(cells), openOf(cells)));
    EXPECT_EQ(grown.at(0, 2), 0);
    EXPECT_EQ(grown.at(kSide - 1, kSide - 3), 1);
    // In the middle of the path both are equally near.
    EXPECT_EQ(grown.at(kSide / 2, kSide / 2), 0);
    EXPECT_EQ(grown.at(kSide / 2 - 1, kSide / 2) + grown.at(kSide / 2 + 1, kSide / 2), 1);
}

TEST(AreaRuns, AreNumberedByTheirFirstCells)
{
    CellBits marked(70, 4);
    marked.mark({0, 60, 66});
    marked.mark({1, 10, 12});
    marked.mark({2, 12, 14}); // shares a corner with the one above
    marked.mark({3, 63, 64});
    const AreaRuns areas = connectedAreas(marked);
    ASSERT_EQ(areas.runs.size(), 4U);
    EXPECT_EQ(areas.runs[0].area, 0);
    EXPECT_EQ(areas.runs[1].area, 1);
    EXPECT_EQ(areas.runs[2].area, 1);
    EXPECT_EQ(areas.runs[3].area, 2);
}

TEST(AreaRuns, OfOneAreaBesideEachOtherAreOne)
{
    AreaRuns areas{10, 2, {}};
    areas.append({0, 0, 3}, 7);
    areas.append({0, 3, 5}, 7);
    areas.append({0, 5, 6}, 8);
    areas.append({1, 6, 7}, 8);
    areas.append({1, 9, 9}, 8);
    ASSERT_EQ(areas.runs.size(), 3U);
    EXPECT_EQ(areas.runs[0].cells.to, 5);
}
