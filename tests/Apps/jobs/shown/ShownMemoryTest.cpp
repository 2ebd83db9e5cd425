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
    static RD_RenderParameters inFloat() { return {RD_RenderParameters::IMAGE_PROCESSING_FLOAT, {kWidth, kHeight}}; }

    HeldShares held(int frame, const RD_RenderParameters& parameters = inFloat()) const
    {
        return heldShares(ShownModule(node()), frame, parameters);
    }
    double bytes(const std::vector<int>& frames) const
    {
        return shownFrameBytes(ShownModule(node()), frames, inFloat(), {});
    }
    // Moves a column by units of which the frame is 720 wide.
    void move(int column, double units)
    {
        element(column).positionX()->setLocalValue(element(column).positionX()->localValue() + units);
    }
};

// A bar is 28 x 48; the last one has a foot 96 wide and 24 high, so that its rectangle is 124 x 48.
constexpr double kBar = 28.0 / 128.0;
constexpr double kBarWithFoot = 124.0 / 128.0;

TEST_F(ShownMemory, HoldsOneObjectAtATime)
{
    EXPECT_NEAR(held(1).inputs, kBarWithFoot, 0.01);
    EXPECT_NEAR(held(1).planes, kBarWithFoot, 0.01);
    EXPECT_EQ(held(1).results, 0.0) << "of one input, it comes in bands";
}

TEST_F(ShownMemory, HoldsAllInputsOfAnObjectAndItsResult)
{
    // The object with the foot gets the first bar, too.
    definition(0).objectNumber()->setLocalValue(kColumns);
    for (const double share : {held(1).inputs, held(1).planes, held(1).results})
        EXPECT_NEAR(share, kBarWithFoot + kBar, 0.01);
}

TEST_F(ShownMemory, CountsWhatLiesInTheMarginOfObjectsAlone)
{
    // The bar with the foot lies from -62 to 62.
    move(kColumns - 1, -360.0);
    EXPECT_NEAR(held(1).inputs, 62.0 / 128.0, 0.01);
    RD_RenderParameters wide = inFloat();
    wide.margins.left = 64;
    EXPECT_NEAR(held(1, wide).inputs, kBarWithFoot, 0.01);
    EXPECT_EQ(shownFrameBytes(wide, {}, held(1)), shownFrameBytes(inFloat(), {}, held(1)));
}

TEST_F(ShownMemory, TakesTheFrameThatShowsMost)
{
    // The bar with the foot comes from the left, from frame 1 to frame 3.
    AT_Curve moves;
    for (const int frame : {1, 3})
        moves.setKey({.frame = static_cast<double>(frame),
                      .value = element(kColumns - 1).positionX()->localValue() - (frame == 1 ? 2000.0 : 0.0),
                      .in = {},
                      .out = {},
                      .unknown = {}});
    ASSERT_TRUE(element(kColumns - 1).positionX()->setCurve(moves));
    EXPECT_NEAR(held(1).inputs, kBar, 0.01);
    EXPECT_NEAR(held(3).inputs, kBarWithFoot, 0.01);
    EXPECT_GT(bytes({3}), bytes({1}));
    EXPECT_GE(bytes({1, 2, 3}), bytes({3}));
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
    // The output, ten inputs of the frame's size with two planes of floats, and ten results.
    EXPECT_EQ(shownFrameBytes(wide, {}, {10.0, 10.0, 0.0}), 20000.0 * (11 * 8 + 10 * 8 + 4));
    EXPECT_EQ(shownFrameBytes(fine, {}, {10.0, 10.0, 0.0}), 20000.0 * (11 * 16 + 10 * 8 + 4));
    EXPECT_EQ(shownFrameBytes(fine, {}, {10.0, 10.0, 10.0}), 20000.0 * (21 * 16 + 10 * 8 + 4));
    // With a single object, lighting takes the most memory.
    EXPECT_GT(shownFrameBytes(wide, {.drawing = true}, {1.0, 1.0, 0.0}), shownFrameBytes(wide, {}, {1.0, 1.0, 0.0}));
}

} // namespace
