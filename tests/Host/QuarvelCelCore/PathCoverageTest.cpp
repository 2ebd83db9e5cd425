// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "QuarvelCelCore/CELVEC_PathCoverage.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Levels = std::vector<int>;

template<typename Step>
Levels coverageOf(const QPainterPath& path, const QRect& box, CELVEC_PathCoverage<Step> grid)
{
    std::vector<std::uint8_t> covered(static_cast<std::size_t>(box.width() * box.height()));
    grid.find(path, box, covered);
    return {covered.begin(), covered.end()};
}

// Of a grid of cells of the side 1 that begins at the origin.
template<typename Step>
CELVEC_PathCoverage<Step> unitCells()
{
    return {{0.0, 0.0}, {1.0, 1.0}};
}

Levels coverageOf(const QPainterPath& path, int width, int height)
{
    return coverageOf(path, {0, 0, width, height}, unitCells<float>());
}

QPainterPath polygon(const QPolygonF& points, Qt::FillRule rule = Qt::WindingFill)
{
    QPainterPath path;
    path.setFillRule(rule);
    path.addPolygon(points);
    return path;
}

QPolygonF square(double from, double to)
{
    return {{from, from}, {to, from}, {to, to}, {from, to}};
}

// Of 16 times 16 points in each cell, those that the path contains.
Levels countedCoverage(const QPainterPath& path, int width, int height)
{
    constexpr int kPoints = 16;
    Levels levels;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            int inside = 0;
            for (int i = 0; i < kPoints * kPoints; ++i)
                inside += path.contains(QPointF(x + (i % kPoints + 0.5) / kPoints, y + (i / kPoints + 0.5) / kPoints));
            levels.push_back(255 * inside / (kPoints * kPoints));
        }
    return levels;
}

void expectNear(const Levels& found, const Levels& expected, int tolerance)
{
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(found[i], expected[i], tolerance) << "cell " << i;
}

TEST(PathCoverage, IsTheAreaOfARectangleInEachCell)
{
    QPainterPath path;
    path.addRect(QRectF(QPointF(0.25, 0.5), QPointF(2.5, 2.0)));
    // Columns 0.75, 1, 0.5 and 0, rows 0.5 and 1, of 255.
    EXPECT_EQ(coverageOf(path, 4, 2), (Levels{96, 128, 64, 0, 191, 255, 128, 0}));
}

TEST(PathCoverage, IsTheAreaBesideALineThatCrossesSeveralCells)
{
    // Below a line from the upper left corner that falls by 1 in 4 cells: 1/8, 3/8, 5/8 and 7/8 lie above it.
    EXPECT_EQ(coverageOf(polygon({{0, 0}, {4, 1}, {0, 1}}), 5, 1), (Levels{223, 159, 96, 32, 0}));
    EXPECT_EQ(coverageOf(polygon({{0, 1}, {4, 1}, {0, 0}}), 5, 1), (Levels{223, 159, 96, 32, 0})) << "turning back";
}

TEST(PathCoverage, ClosesLoops)
{
    QPainterPath path(QPointF(0.0, 0.0));
    path.lineTo(2.0, 0.0);
    path.lineTo(2.0, 1.0);
    path.lineTo(0.0, 1.0);
    EXPECT_EQ(coverageOf(path, 3, 1), (Levels{255, 255, 0}));
}

TEST(PathCoverage, FollowsTheFillRule)
{
    for (const auto& [rule, inner] : {std::pair(Qt::WindingFill, 255), std::pair(Qt::OddEvenFill, 0)}) {
        QPainterPath path = polygon(square(0, 3), rule);
        path.addPolygon(square(1, 2));
        EXPECT_EQ(coverageOf(path, 3, 3), (Levels{255, 255, 255, 255, inner, 255, 255, 255, 255}));
    }
    QPainterPath ring = polygon(square(0, 3));
    ring.addPolygon(QPolygonF{{1, 1}, {1, 2}, {2, 2}, {2, 1}});
    EXPECT_EQ(coverageOf(ring, 3, 3)[4], 0) << "a loop that turns the other way is a hole";
}

TEST(PathCoverage, IsTheSameInABoxOfTheGrid)
{
    const QPainterPath path = polygon({{-3.0, 1.5}, {9.0, -2.0}, {20.0, 7.5}, {4.0, 12.0}});
    const QRect grid(0, 0, 12, 9);
    const QRect box(3, 2, 5, 4);
    const auto expectSame = [&](const Levels& all, const Levels& part, int tolerance) {
        for (int y = 0; y < box.height(); ++y)
            for (int x = 0; x < box.width(); ++x)
                EXPECT_NEAR(part[static_cast<std::size_t>(y * box.width() + x)],
                            all[static_cast<std::size_t>((y + box.top()) * 12 + x + box.left())], tolerance)
                    << x << ' ' << y;
    };
    expectSame(coverageOf(path, grid, unitCells<float>()), coverageOf(path, box, unitCells<float>()), 1);
    expectSame(coverageOf(path, grid, unitCells<double>()), coverageOf(path, box, unitCells<double>()), 0);
}

TEST(PathCoverage, AgreesWithCountedPoints)
{
    QPainterPath disc;
    disc.addEllipse(QRectF(1.3, 0.7, 9.0, 7.1));
    expectNear(coverageOf(disc, 12, 9), countedCoverage(disc, 12, 9), 8);

    QPainterPath leaf(QPointF(0.5, 8.0));
    leaf.cubicTo(QPointF(-2.0, -3.0), QPointF(14.0, 1.0), QPointF(11.0, 8.5));
    leaf.cubicTo(QPointF(7.0, 4.0), QPointF(5.0, 9.5), QPointF(0.5, 8.0));
    expectNear(coverageOf(leaf, 12, 9), countedCoverage(leaf, 12, 9), 8);
}

TEST(PathCoverage, ScalesTheFrameToTheCells)
{
    QPainterPath path;
    path.addRect(10.0, 20.0, 5.0, 2.0);
    EXPECT_EQ(coverageOf(path, {0, 0, 4, 2}, CELVEC_PathCoverage<float>({10.0, 20.0}, {0.4, 0.5})),
              (Levels{255, 255, 0, 0, 0, 0, 0, 0}));
}

TEST(PathCoverage, TakesNumbersThatNoCellCanHave)
{
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(coverageOf(polygon({{0, -infinite}, {1e300, -1e300}, {infinite, infinite}, {0, 1e300}}), 2, 1).size(),
              2U);
    QPainterPath wide;
    wide.addRect(QRectF(QPointF(-1e6, -1e6), QPointF(1e6, 1e6)));
    EXPECT_EQ(coverageOf(wide, 2, 2), (Levels{255, 255, 255, 255}));
}

} // namespace
