// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// How directions are turned.
#include "jobs/shown/ObjectTilts.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Direction = std::array<double, 3>;

const Direction kViewer{0.0, 0.0, 1.0};

void expectNear(const Direction& found, const Direction& expected)
{
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(found[i], expected[i], 1e-12) << "component " << i;
}

} // namespace

TEST(Rotation, TurnsWhatFacesTheViewerToTheRightAndUpwards)
{
    const double half = std::sqrt(3.0) / 2.0;
    expectNear(Rotation(30.0, 0.0).turned(kViewer), {0.5, 0.0, half});
    // y points down.
    expectNear(Rotation(0.0, 30.0).turned(kViewer), {0.0, -0.5, half});
    expectNear(Rotation(-90.0, 0.0).turned(kViewer), {-1.0, 0.0, 0.0});
    expectNear(Rotation(30.0, 30.0).turned(kViewer), {0.5, -0.5 * half, half * half});
}

TEST(Rotation, ByNothingChangesNothing)
{
    const Direction direction{0.36, 0.48, 0.8};
    EXPECT_EQ(Rotation(0.0, 0.0).turned(direction), direction);
}

TEST(Rotation, KeepsLengthsAndAngles)
{
    const Rotation rotation(20.0, -15.0);
    const Direction a = rotation.turned({0.36, 0.48, 0.8});
    const Direction b = rotation.turned({0.0, 0.6, 0.8});
    EXPECT_NEAR(a[0] * a[0] + a[1] * a[1] + a[2] * a[2], 1.0, 1e-12);
    EXPECT_NEAR(a[0] * b[0] + a[1] * b[1] + a[2] * b[2], 0.48 * 0.6 + 0.8 * 0.8, 1e-12);
}

TEST(Rotation, MovesWhatTurnsAwayToTheHorizon)
{
    const Direction turned = Rotation(60.0, 0.0).turned({0.8, 0.0, 0.6});
    expectNear(turned, {1.0, 0.0, 0.0});
}
