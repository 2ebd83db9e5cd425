// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The stage merge against values worked out by hand: levels, default layer, grey layer, scaling by coverage, both
// formats.
#include "reference/StageMerge.h"

#include "reference/Accumulator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace reference {
namespace {

RefPixel16 merged(RefPixel16 target, RefPixel16 source, double level, bool scale)
{
    RefImage16 targetImage(RefBox{0, 0, 1, 1});
    RefImage16 sourceImage(RefBox{0, 0, 1, 1});
    targetImage.at(0, 0) = target;
    sourceImage.at(0, 0) = source;
    stageMerge16(targetImage, sourceImage, level, scale);
    return targetImage.at(0, 0);
}

RefPixelFloat merged(RefPixelFloat target, RefPixelFloat source, double level, bool scale)
{
    RefImageFloat targetImage(RefBox{0, 0, 1, 1});
    RefImageFloat sourceImage(RefBox{0, 0, 1, 1});
    targetImage.at(0, 0) = target;
    sourceImage.at(0, 0) = source;
    stageMergeFloat(targetImage, sourceImage, level, scale);
    return targetImage.at(0, 0);
}

TEST(ReferenceStageLevel, IsQuantisedToEightBitsIn16Bit)
{
    EXPECT_EQ(stageLevel16(1.0), 32767);
    EXPECT_EQ(stageLevel16(0.0), 0);
    // 0.5 x 255 = 127.5, truncated 127; 127 x 32767 = 4161409; / 255 = 16319.25.
    EXPECT_EQ(stageLevel16(0.5), 16319);
    // 0.003 x 255 = 0.765, truncated 0.
    EXPECT_EQ(stageLevel16(0.003), 0);
}

TEST(ReferenceStageLevel, WrapsOutsideOfZeroToOneIn16Bit)
{
    // 1.5 x 255 = 382.5; 382 - 256 = 126; 126 x 32767 = 4128642; / 255 = 16190.75.
    EXPECT_EQ(stageLevel16(1.5), 16190);
    // -0.5 x 255 = -127.5, truncated -127; 256 - 127 = 129; 129 x 32767 = 4226943; / 255 = 16576.2.
    EXPECT_EQ(stageLevel16(-0.5), 16576);
}

TEST(ReferenceStageLevel, IsZeroForWhatNoIntegerCanHold)
{
    EXPECT_EQ(stageLevel16(std::nan("")), 0);
    EXPECT_EQ(stageLevel16(1e300), 0);
    EXPECT_EQ(stageLevel16(-std::numeric_limits<double>::infinity()), 0);
}

TEST(ReferenceStageLevel, IsNotQuantisedInFloat)
{
    EXPECT_EQ(stageLevelFloat(0.5), 0.5F);
    EXPECT_EQ(stageLevelFloat(1.5), 1.5F);
    EXPECT_EQ(stageLevelFloat(-0.25), -0.25F);
    EXPECT_EQ(stageLevelFloat(0.1), 0.1F);
}

TEST(ReferenceStageMerge16, GivesACoveredPixelTheLevelAndTheDefaultBlue)
{
    EXPECT_EQ(merged(RefPixel16{9, 8, 7, 32767}, RefPixel16{}, 1.0, false), (RefPixel16{32767, 0, 1024, 32767}));
    EXPECT_EQ(merged(RefPixel16{9, 8, 7, 1}, RefPixel16{}, 0.5, true), (RefPixel16{16319, 0, 1024, 1}));
}

TEST(ReferenceStageMerge16, ClearsAPixelWithoutCoverage)
{
    EXPECT_EQ(merged(RefPixel16{9, 8, 7, 0}, RefPixel16{}, 1.0, false), RefPixel16{});
    EXPECT_EQ(merged(RefPixel16{9, 8, 7, -5}, RefPixel16{}, 1.0, false), RefPixel16{});
}

TEST(ReferenceStageMerge16, WritesTheGreyEvenWhereTheTargetHasNoCoverage)
{
    EXPECT_EQ(merged(RefPixel16{9, 8, 7, 0}, RefPixel16{123, 0, 0, 456}, 1.0, false), (RefPixel16{0, 123, 456, 0}));
    // Scaled by a coverage that counts as 0, the grey becomes 0.
    EXPECT_EQ(merged(RefPixel16{9, 8, 7, -32767}, RefPixel16{123, 0, 0, 456}, 1.0, true), RefPixel16{});
}

TEST(ReferenceStageMerge16, PassesOverASourceWithoutCoverage)
{
    EXPECT_EQ(merged(RefPixel16{0, 0, 0, 5}, RefPixel16{123, 0, 0, 0}, 1.0, false), (RefPixel16{32767, 0, 1024, 5}));
    EXPECT_EQ(merged(RefPixel16{0, 0, 0, 5}, RefPixel16{123, 0, 0, -1}, 1.0, false), (RefPixel16{32767, 0, 1024, 5}));
}

TEST(ReferenceStageMerge16, ScalesInSinglePrecision)
{
    // 16384 / 32767 = 0.5 + 256.008 x 2^-24; as a float 0.5 + 2^-16.
    // Green: 32767 x that = 16383.5 + 0.49998 = 16383.99998; floats there are 2^-10 apart, so it becomes 16384 (in
    // double it would be cut to 16383). Blue: 20000 x that = 10000.305.
    EXPECT_EQ(merged(RefPixel16{0, 0, 0, 16384}, RefPixel16{32767, 0, 0, 20000}, 1.0, true),
              (RefPixel16{32767, 16384, 10000, 16384}));
}

TEST(ReferenceStageMerge16, DiffersFromADoubleProductByOneAtMost)
{
    int different = 0;
    RefImage16 target(RefBox{0, 0, 1, 1});
    RefImage16 source(RefBox{0, 0, 1, 1});
    for (int a = 1; a <= 32767; a += 97) {
        for (int r = 1; r <= 32767; r += 89) {
            target.at(0, 0) = RefPixel16{0, 0, 0, static_cast<std::int16_t>(a)};
            source.at(0, 0) = RefPixel16{static_cast<std::int16_t>(r), 0, 0, 1};
            stageMerge16(target, source, 1.0, true);
            const double factor = static_cast<double>(static_cast<float>(a / 32767.0));
            const int inDouble = static_cast<int>(r * factor);
            ASSERT_LE(std::abs(target.at(0, 0).g - inDouble), 1);
            different += target.at(0, 0).g != inDouble ? 1 : 0;
        }
    }
    EXPECT_GT(different, 0) << "single precision must be noticeable";
    EXPECT_LT(different, 338 * 369 / 1000);
}

TEST(ReferenceStageMerge16, TreatsTheWholeTargetAndNothingElse)
{
    RefImage16 target(RefBox{-1, -1, 1, 1});
    RefImage16 source(RefBox{0, 0, 3, 3});
    for (RefPixel16& pixel : target.pixels) {
        pixel.a = 100;
    }
    source.at(0, 0) = RefPixel16{7, 0, 0, 9};
    source.at(2, 2) = RefPixel16{7, 0, 0, 9};

    stageMerge16(target, source, 1.0, false);

    EXPECT_EQ(target.box, (RefBox{-1, -1, 1, 1}));
    EXPECT_EQ(target.at(-1, -1), (RefPixel16{32767, 0, 1024, 100}));
    EXPECT_EQ(target.at(0, -1), (RefPixel16{32767, 0, 1024, 100}));
    EXPECT_EQ(target.at(0, 0), (RefPixel16{32767, 7, 9, 100}));
}

TEST(ReferenceStageMergeFloat, GivesACoveredPixelTheLevelAndHalfABlue)
{
    EXPECT_EQ(merged(RefPixelFloat{9, 8, 7, 0.25F}, RefPixelFloat{}, 0.5, false),
              (RefPixelFloat{0.5F, 0, 0.5F, 0.25F}));
    EXPECT_EQ(merged(RefPixelFloat{9, 8, 7, 1.0F}, RefPixelFloat{}, 1.5, false), (RefPixelFloat{1.5F, 0, 0.5F, 1.0F}));
    EXPECT_EQ(merged(RefPixelFloat{9, 8, 7, 0.0F}, RefPixelFloat{}, 1.0, false), RefPixelFloat{});
    EXPECT_EQ(merged(RefPixelFloat{9, 8, 7, -1.0F}, RefPixelFloat{}, 1.0, false), RefPixelFloat{});
}

TEST(ReferenceStageMergeFloat, CutsGreenAndBlueToWholeNumbers)
{
    EXPECT_EQ(merged(RefPixelFloat{0, 0, 0, 1}, RefPixelFloat{0.75F, 0, 0, 0.9F}, 1.0, false),
              (RefPixelFloat{1, 0, 0, 1}));
    EXPECT_EQ(merged(RefPixelFloat{0, 0, 0, 1}, RefPixelFloat{2.75F, 0, 0, 1.0F}, 1.0, false),
              (RefPixelFloat{1, 2, 1, 1}));
    EXPECT_EQ(merged(RefPixelFloat{0, 0, 0, 1}, RefPixelFloat{-1.5F, 0, 0, 1.0F}, 1.0, false),
              (RefPixelFloat{1, -1, 1, 1}));
    // Scaled: 2.5 x 0.5 = 1.25 and 3 x 0.5 = 1.5, both truncated to 1.
    EXPECT_EQ(merged(RefPixelFloat{0, 0, 0, 0.5F}, RefPixelFloat{2.5F, 0, 0, 3.0F}, 1.0, true),
              (RefPixelFloat{1, 1, 1, 0.5F}));
    // Scaled below 1: 1 x 0.5 is truncated to 0.
    EXPECT_EQ(merged(RefPixelFloat{0, 0, 0, 0.5F}, RefPixelFloat{1, 0, 0, 1}, 1.0, true),
              (RefPixelFloat{1, 0, 0, 0.5F}));
}

TEST(ReferenceStageMergeFloat, WritesTheGreyEvenWhereTheTargetHasNoCoverage)
{
    EXPECT_EQ(merged(RefPixelFloat{9, 8, 7, -1}, RefPixelFloat{3, 0, 0, 1}, 1.0, false), (RefPixelFloat{0, 3, 1, 0}));
    EXPECT_EQ(merged(RefPixelFloat{9, 8, 7, -1}, RefPixelFloat{3, 0, 0, 1}, 1.0, true), RefPixelFloat{});
}

TEST(ReferenceStageMerge, LeavesAnUnlistedColourAtItsLevelIn16BitAndAtHalfOfItInFloat)
{
    // The default blue of 1024 is not above the second layer's threshold; 0.5 is above 0 and mixes 0 over the level.
    RefPixel16 accumulated16;
    mergePixel16(accumulated16, merged(RefPixel16{0, 0, 0, 32767}, RefPixel16{}, 1.0, false));
    EXPECT_EQ(accumulated16, (RefPixel16{32767, 0, 0, 32767}));

    RefPixelFloat accumulatedFloat;
    mergePixelFloat(accumulatedFloat, merged(RefPixelFloat{0, 0, 0, 1}, RefPixelFloat{}, 1.0, false));
    EXPECT_EQ(accumulatedFloat, (RefPixelFloat{0.5F, 0, 0, 1}));
}

} // namespace
} // namespace reference
