// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The cross-section of strokes, against its formula.
#include "jobs/shown/strokes/StrokeRelief.h"

#include <gtest/gtest.h>
#include <tbb/global_control.h>

#include <cmath>
#include <functional>

namespace {

// A pixmap whose coverage is a function of the pixel's middle.
CEL_PixmapAreaRGBAFloat covered(const Math::Box2di& rect, const std::function<double(double x, double y)>& coverage)
{
    CEL_PixmapAreaRGBAFloat pixels({rect.width(), rect.height()}, rect);
    pixels.realloc(rect, true);
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x) {
            const auto a = static_cast<float>(std::clamp(coverage(x + 0.5, y + 0.5), 0.0, 1.0));
            pixels.row(y)[static_cast<std::size_t>(x - rect.x1)] = {a, a, a, a};
        }
    return pixels;
}

// The coverage of a stroke at a distance from its middle.
double stroke(double distance, double halfWidth)
{
    return halfWidth + 0.5 - std::abs(distance);
}

double bump(double distance, double halfWidth)
{
    const double share = distance / halfWidth;
    return std::abs(share) < 1.0 ? halfWidth * (1.0 - share * share) * (1.0 - share * share) : 0.0;
}

const Math::Box2di kWindow{0, 0, 160, 120};

} // namespace

TEST(StrokeRelief, OfAStraightStrokeHasTheBumpOfItsWidth)
{
    for (const double halfWidth : {3.0, 5.5, 12.0, 30.0}) {
        const StrokeRelief relief(covered(kWindow, [&](double x, double) { return stroke(x - 60.25, halfWidth); }),
                                  kWindow);
        for (int x = 20; x < 100; ++x)
            EXPECT_NEAR(relief.nearHeight(x, 60), bump(x + 0.5 - 60.25, halfWidth), 0.06 * halfWidth)
                << x << " of " << halfWidth;
    }
}

TEST(StrokeRelief, OfASlantedStrokeHasTheSameBump)
{
    const double halfWidth = 8.0;
    const auto distance = [](double x, double y) { return (x - 80.0) * 0.8 + (y - 60.0) * 0.6; };
    const StrokeRelief relief(covered(kWindow, [&](double x, double y) { return stroke(distance(x, y), halfWidth); }),
                              kWindow);
    for (int y = 40; y < 80; y += 7)
        for (int x = 60; x < 100; ++x)
            EXPECT_NEAR(relief.nearHeight(x, y), bump(distance(x + 0.5, y + 0.5), halfWidth), 0.06 * halfWidth)
                << x << ' ' << y;
}

TEST(StrokeRelief, OfNothingIsNothing)
{
    const StrokeRelief relief(covered(kWindow, [](double, double) { return 0.0; }), kWindow);
    EXPECT_TRUE(relief.rect().isEmpty());
    EXPECT_TRUE(StrokeRelief().rect().isEmpty());
}

TEST(StrokeRelief, IsTheSameForAnyNumberOfThreads)
{
    const auto pixels = covered(kWindow, [](double x, double y) {
        return std::max(stroke(std::hypot(x - 70.0, y - 60.0) - 40.0, 4.0), stroke(x - y, 2.5));
    });
    const StrokeRelief many(pixels, kWindow);
    const tbb::global_control one(tbb::global_control::max_allowed_parallelism, 1);
    const StrokeRelief alone(pixels, kWindow);
    ASSERT_EQ(many.rect(), alone.rect());
    for (int y = many.rect().y1; y < many.rect().y2; ++y)
        for (int x = many.rect().x1; x < many.rect().x2; ++x)
            ASSERT_EQ(many.nearHeight(x, y), alone.nearHeight(x, y)) << x << ' ' << y;
}
