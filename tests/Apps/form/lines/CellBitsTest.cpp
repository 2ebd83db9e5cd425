// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares sets of bits with planes of one value for each cell. Rows are longer than a word.
#include "form/lines/CellBits.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using Plane = PixelPlane<std::uint8_t>;

Plane somePlane()
{
    Plane plane(*rc::gen::inRange(1, 140), *rc::gen::inRange(1, 12), 0);
    const int sparse = *rc::gen::inRange(1, 40);
    for (int i = 0; i < plane.count(); ++i)
        plane[i] = *rc::gen::inRange(0, 40) >= sparse ? 1 : 0;
    return plane;
}

CellBits bitsOf(const Plane& plane)
{
    CellBits bits(plane.width(), plane.height());
    for (int y = 0; y < plane.height(); ++y)
        for (int x = 0; x < plane.width(); ++x)
            if (plane.at(x, y) != 0)
                bits.mark({y, x, x + 1});
    return bits;
}

Plane planeOf(const CellBits& bits, bool ofMarked = true)
{
    Plane plane(bits.width(), bits.height(), 0);
    for (const PixelRun& run : bits.runs(ofMarked))
        for (int x = run.from; x < run.to; ++x)
            plane.at(x, run.row) = 1;
    return plane;
}

void expectEqual(const Plane& one, const Plane& other)
{
    for (int y = 0; y < one.height(); ++y)
        RC_ASSERT(std::ranges::equal(one.row(y), other.row(y)));
}

// Without obstacles, a shortest path takes as many diagonal steps as it can.
int pathLength(int across, int down)
{
    const auto [shorter, longer] = std::minmax({std::abs(across), std::abs(down)});
    return 4 * shorter + 3 * (longer - shorter);
}

bool isMarkedWithin(const Plane& plane, int x, int y, int longest)
{
    for (int row = 0; row < plane.height(); ++row)
        for (int column = 0; column < plane.width(); ++column)
            if (plane.at(column, row) != 0 && pathLength(column - x, row - y) <= longest)
                return true;
    return false;
}

} // namespace

RC_GTEST_PROP(CellBits, haveTheRunsOfTheirCells, ())
{
    const Plane plane = somePlane();
    const CellBits bits = bitsOf(plane);
    expectEqual(planeOf(bits), plane);
    Plane others = plane;
    for (int i = 0; i < others.count(); ++i)
        others[i] = plane[i] != 0 ? 0 : 1;
    expectEqual(planeOf(bits, false), others);
}

RC_GTEST_PROP(CellBits, ofARunAreMarkedTogether, ())
{
    const int width = *rc::gen::inRange(1, 300);
    const int from = *rc::gen::inRange(0, width);
    const int to = *rc::gen::inRange(from, width) + 1;
    CellBits bits(width, 3);
    bits.mark({1, from, to});
    const std::vector<PixelRun> runs = bits.runs();
    RC_ASSERT(runs.size() == 1U);
    RC_ASSERT(runs[0].row == 1);
    RC_ASSERT(runs[0].from == from);
    RC_ASSERT(runs[0].to == to);
}

RC_GTEST_PROP(CellBits, areMarkedFromALimitOn, ())
{
    const auto limit = static_cast<unsigned>(*rc::gen::inRange(1, 129));
    Plane values(*rc::gen::inRange(1, 140), 1, 0);
    for (int i = 0; i < values.count(); ++i)
        values[i] = static_cast<std::uint8_t>(*rc::gen::inRange(0, 256));
    CellBits bits(values.width(), 1);
    bits.markFrom(0, values.row(0), limit);
    const Plane marked = planeOf(bits);
    for (int x = 0; x < values.width(); ++x)
        RC_ASSERT((marked.at(x, 0) != 0) == (values.at(x, 0) >= limit));
}

RC_GTEST_PROP(CellBits, removeThoseOfOthers, ())
{
    const Plane plane = somePlane();
    CellBits bits = bitsOf(plane);
    CellBits others(plane.width(), plane.height());
    const int column = *rc::gen::inRange(0, plane.width());
    others.mark({0, 0, column + 1});
    bits.remove(others);
    Plane expected = plane;
    std::ranges::fill(expected.row(0).first(static_cast<std::size_t>(column) + 1), std::uint8_t{0});
    expectEqual(planeOf(bits), expected);
}

RC_GTEST_PROP(CellBits, growAsFarAsTheShortestPaths, ())
{
    const Plane plane = somePlane();
    const int longest = *rc::gen::inRange(0, 60);
    CellBits bits = bitsOf(plane);
    bits.grow(longest);
    const Plane grown = planeOf(bits);
    for (int y = 0; y < plane.height(); ++y)
        for (int x = 0; x < plane.width(); ++x)
            RC_ASSERT((grown.at(x, y) != 0) == isMarkedWithin(plane, x, y, longest));
}

TEST(CellBits, GrowFromWordToWord)
{
    for (const int x : {0, 62, 63, 64, 65, 127, 128, 149}) {
        Plane plane(150, 9, 0);
        plane.at(x, 4) = 1;
        CellBits bits = bitsOf(plane);
        bits.grow(11);
        const Plane grown = planeOf(bits);
        for (int y = 0; y < plane.height(); ++y)
            for (int column = 0; column < plane.width(); ++column)
                EXPECT_EQ(grown.at(column, y) != 0, pathLength(column - x, y - 4) <= 11) << x << ' ' << column;
    }
}
