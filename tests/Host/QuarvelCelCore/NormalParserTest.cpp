// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What the normal parser reads, and where it refuses to.
#include "MultiStageKvd/NormalParser.h"

#include <gtest/gtest.h>

using Math::Box2di;
using Math::Vector3d;

namespace {

CEL_PixmapAreaRGBA16 onePixel(CEL_PixelRGBA16 pixel)
{
    CEL_PixmapAreaRGBA16 pixmap({1, 1}, Box2di(0, 0, 1, 1));
    pixmap.realloc(Box2di(0, 0, 1, 1), true);
    pixmap.at(0, 0) = pixel;
    return pixmap;
}

} // namespace

TEST(NormalParser, FailsOutsideOfThePixmapAndLeavesTheVectorAlone)
{
    const auto pixmap = onePixel({0, 0, 0, 32767});
    Vector3d normal(7, 8, 9);
    EXPECT_FALSE(NormalParser(pixmap).normalAt(1, 0, normal));
    EXPECT_EQ(normal, Vector3d(7, 8, 9));
}

TEST(NormalParser, FailsOnEmptyPixels)
{
    const auto pixmap = onePixel({0, 0, 32767, 0});
    Vector3d normal;
    EXPECT_FALSE(NormalParser(pixmap).normalAt(0, 0, normal));
}

TEST(NormalParser, ReadsAVectorAlongX)
{
    // Full red is x = 1; y = 0 would be green 16383.5, and 16384 is y = 1/32767.
    const auto pixmap = onePixel({32767, 16384, 1, 32767});
    Vector3d normal;
    ASSERT_TRUE(NormalParser(pixmap).normalAt(0, 0, normal));
    EXPECT_DOUBLE_EQ(normal.x, 1.0);
    EXPECT_NEAR(normal.y, 1.0 / 32767.0, 1e-12);
    EXPECT_EQ(normal.z, 0.0) << "x and y are longer than 1 together, so nothing is left for z";
}

TEST(NormalParser, PointsAwayWhereBlueIsNegative)
{
    const auto pixmap = onePixel({16384, 16384, -1, 32767});
    Vector3d normal;
    ASSERT_TRUE(NormalParser(pixmap).normalAt(0, 0, normal));
    EXPECT_NEAR(normal.z, -1.0, 1e-8);
}

TEST(NormalParser, ReadsFloatPixmaps)
{
    CEL_PixmapAreaRGBAFloat pixmap({1, 1}, Box2di(0, 0, 1, 1));
    pixmap.realloc(Box2di(0, 0, 1, 1), true);
    pixmap.at(0, 0) = {0.8F, 0.5F, 0.0F, 1.0F};
    Vector3d normal;
    ASSERT_TRUE(NormalParser(pixmap).normalAt(0, 0, normal));
    EXPECT_NEAR(normal.x, 0.6, 1e-7);
    EXPECT_EQ(normal.y, 0.0);
    EXPECT_NEAR(normal.z, 0.8, 1e-7);
}

TEST(NormalParser, ReadsNothingFromDepth)
{
    CEL_PixmapAreaZ depth({1, 1}, Box2di(0, 0, 1, 1));
    depth.realloc(Box2di(0, 0, 1, 1), true);
    Vector3d normal;
    EXPECT_FALSE(NormalParser(depth).normalAt(0, 0, normal));
}
