// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The number of frames at once within a memory budget.
#include "jobs/frames/RenderMemory.h"

#include "jobs/frames/RenderFrames.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

RD_RenderParameters parameters(int format, int width, int height)
{
    return {format, {width, height}};
}

TEST(RenderMemory, LowersTheFramesAtOnceToWhatFits)
{
    const auto small = parameters(RD_RenderParameters::IMAGE_PROCESSING_16BIT, 100, 10);
    EXPECT_EQ(*framesAtOnce(8, small, 100'000.0, 350'000.0), 3);
    EXPECT_EQ(*framesAtOnce(2, small, 100'000.0, 350'000.0), 2);
    EXPECT_EQ(*framesAtOnce(8, small, 100'000.0, 100'000.0), 1);
    EXPECT_EQ(*framesAtOnce(1024, small, 100.0, 1e18), 1024);
}

TEST(RenderMemory, RefusesAFrameThatDoesNotFitAloneAndSaysWhatItNeeds)
{
    const auto large = parameters(RD_RenderParameters::IMAGE_PROCESSING_16BIT, 32767, 32767);
    const auto refused = framesAtOnce(4, large, 99.99 * 1024 * 1024 * 1024, 4.0 * 1024 * 1024 * 1024);
    ASSERT_FALSE(refused);
    EXPECT_THAT(refused.error().text.toStdString(), HasSubstr("99.99G"));
    EXPECT_THAT(refused.error().text.toStdString(), HasSubstr("4.00G"));
    EXPECT_THAT(refused.error().text.toStdString(), HasSubstr("32767 x 32767"));
    // 32767 sqrt(4 / 99.99) = 6553.7
    EXPECT_THAT(refused.error().text.toStdString(), HasSubstr("6553 x 6553 pixels fit"));
}

TEST(RenderMemory, CountsWhatTheContentOfARunIsMadeOf)
{
    RenderFramesSettings run;
    for (const FrameContent content : {FrameContent::HEIGHT, FrameContent::OCCLUSION, FrameContent::NUMBERS}) {
        run.content = content;
        const ShownParts parts = partsOf(run);
        EXPECT_TRUE(parts.objects && parts.drawing && parts.elevation);
    }
    for (const FrameContent content : {FrameContent::LIT, FrameContent::DRAWING, FrameContent::GLOSS}) {
        run.content = content;
        const ShownParts parts = partsOf(run);
        EXPECT_TRUE(parts.drawing);
        EXPECT_FALSE(parts.objects || parts.elevation || parts.channels);
    }
}

} // namespace
