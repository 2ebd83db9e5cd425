// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/bitmap/pixels/EllipseFit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

// Points of an arc around (40, 30), with the radii 20 and 10, the long one turned by 30 degrees.
std::vector<QPointF> arc(double first, double last)
{
    std::vector<QPointF> points;
    const double turn = std::numbers::pi / 6.0;
    for (int i = 0; i <= 60; ++i) {
        const double angle = (first + (last - first) * i / 60.0) * std::numbers::pi / 180.0;
        const double u = 20.0 * std::cos(angle);
        const double v = 10.0 * std::sin(angle);
        points.emplace_back(40.0 + u * std::cos(turn) - v * std::sin(turn),
                            30.0 + u * std::sin(turn) + v * std::cos(turn));
    }
    return points;
}

} // namespace

TEST(EllipseFit, anArcOfAThirdTellsTheWholeEllipse)
{
    const auto found = Ellipse::through(arc(20.0, 140.0));
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->centre().x(), 40.0, 1e-6);
    EXPECT_NEAR(found->centre().y(), 30.0, 1e-6);
    EXPECT_NEAR(found->longRadius(), 20.0, 1e-6);
    EXPECT_NEAR(found->shortRadius(), 10.0, 1e-6);
    for (const QPointF& point : arc(140.0, 380.0))
        EXPECT_NEAR(found->distance(point), 0.0, 1e-6);
}

TEST(EllipseFit, distancesAreNegativeInside)
{
    const auto found = Ellipse::through(arc(0.0, 350.0));
    ASSERT_TRUE(found);
    const QPointF along(std::cos(std::numbers::pi / 6.0), std::sin(std::numbers::pi / 6.0));
    EXPECT_NEAR(found->distance(QPointF(40, 30) + 21.0 * along), 1.0, 0.05);
    EXPECT_NEAR(found->distance(QPointF(40, 30) + 19.0 * along), -1.0, 0.05);
    EXPECT_LT(found->distance({40, 30}), -9.0);
}

TEST(EllipseFit, rowsHoldThePixelsWhoseCentresLieInside)
{
    const auto found = Ellipse::through(arc(0.0, 350.0));
    ASSERT_TRUE(found);
    for (int y = 0; y < 60; ++y) {
        const auto [first, last] = found->pixelsIn(y, 0.0);
        for (int x = 0; x < 80; ++x)
            EXPECT_EQ(x >= first && x < last, found->distance({x + 0.5, y + 0.5}) < 0.0) << x << "," << y;
    }
}

TEST(EllipseFit, linesAndHyperbolasAreNoEllipses)
{
    std::vector<QPointF> line;
    std::vector<QPointF> hyperbola;
    for (int i = 1; i <= 40; ++i) {
        line.emplace_back(3.0 * i, 2.0 * i + 1.0);
        hyperbola.emplace_back(i, 40.0 / i);
    }
    EXPECT_FALSE(Ellipse::through(line));
    EXPECT_FALSE(Ellipse::through(hyperbola));
    EXPECT_FALSE(Ellipse::through(std::vector<QPointF>(5, QPointF(1, 1))));
}
