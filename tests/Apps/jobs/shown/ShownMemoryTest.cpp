// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The estimate of a frame's memory.
#include "jobs/shown/ShownMemory.h"

#include "Apps/jobs/shown/ColumnScene.h"
#include "QuarvelSceneCore/attributes/AT_DoubleAttr.h"
#include "QuarvelSceneCore/attributes/AT_IntAttr.h"

namespace {

class ShownMemory : public ColumnScene
{
protected:
    double share(const std::vector<int>& frames) const { return heldShare(ShownModule(node()), frames); }
};

// A bar is 28 x 48; the last one has a foot 96 wide and 24 high, so that its rectangle is 124 x 48.
constexpr double kBar = 28.0 / 128.0;
constexpr double kBarWithFoot = 124.0 / 128.0;

TEST_F(ShownMemory, HoldsOneObjectAtATime)
{
    EXPECT_NEAR(share({1}), kBarWithFoot, 0.01);
}

TEST_F(ShownMemory, HoldsAllInputsOfAnObject)
{
    // The object with the foot gets the first bar, too.
    definition(0).objectNumber()->setLocalValue(kColumns);
    EXPECT_NEAR(share({1}), kBarWithFoot + kBar, 0.01);
}

TEST_F(ShownMemory, TakesTheFrameThatShowsMost)
{
    // The bar with the foot leaves the frame to the left, from frame 1 to frame 3.
    AT_Curve moves;
    for (const int frame : {1, 3})
        moves.setKey({.frame = static_cast<double>(frame),
                      .value = element(kColumns - 1).positionX()->localValue() - (frame == 1 ? 2000.0 : 0.0),
                      .in = {},
                      .out = {},
                      .unknown = {}});
    ASSERT_TRUE(element(kColumns - 1).positionX()->setCurve(moves));
    EXPECT_NEAR(share({1}), kBar, 0.01);
    EXPECT_NEAR(share({1, 2, 3}), kBarWithFoot, 0.01);
}

TEST_F(ShownMemory, SaysTheSizeThatFits)
{
    EXPECT_EQ(sizeThatFits({4000, 1000}, 400.0, 100.0), std::pair(2000, 500));
    EXPECT_EQ(sizeThatFits({100, 1}, 1e9, 1.0), std::pair(1, 1));
    EXPECT_EQ(sizeThatFits({100, 50}, 10.0, 20.0), std::pair(100, 50)) << "what fits is not made larger";
}

TEST_F(ShownMemory, GrowsWithPixelsObjectsAndTheirFormat)
{
    const RD_RenderParameters wide{RD_RenderParameters::IMAGE_PROCESSING_16BIT, {200, 100}};
    const RD_RenderParameters fine{RD_RenderParameters::IMAGE_PROCESSING_FLOAT, {200, 100}};
    // Inputs and results that cover the frame ten times, the output and a working pixmap: 22 pixmaps.
    EXPECT_EQ(shownFrameBytes(wide, {}, 10.0), 20000.0 * (22 * 8 + 4));
    EXPECT_EQ(shownFrameBytes(fine, {}, 10.0), 20000.0 * (22 * 16 + 4));
    // With a single object, lighting takes the most memory.
    EXPECT_GT(shownFrameBytes(wide, {.drawing = true}, 1.0), shownFrameBytes(wide, {}, 1.0));
}

} // namespace
