// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The accumulation of inputs by hand: both layers, both formats, growth and clipping.
#include "reference/Accumulator.h"

#include <gtest/gtest.h>

#include <cmath>

namespace reference {
namespace {

RefPixel16 merged(RefPixel16 out, RefPixel16 input)
{
    mergePixel16(out, input);
    return out;
}

RefPixelFloat merged(RefPixelFloat out, RefPixelFloat input)
{
    mergePixelFloat(out, input);
    return out;
}

TEST(ReferenceMerge16, FullCoverageReplacesWhateverWasThere)
{
    EXPECT_EQ(merged(RefPixel16{10000, 3, 4, 500}, RefPixel16{50, 0, 0, 32767}), (RefPixel16{50, 0, 0, 32767}));
    // A copied value is not clamped.
    EXPECT_EQ(merged(RefPixel16{}, RefPixel16{-32768, 0, 0, 32767}), (RefPixel16{-32768, 0, 0, 32767}));
}

TEST(ReferenceMerge16, PartialCoverageFadesAndAdds)
{
    // R: (1000 x 16383 + 32767) >> 15 = 16415767 >> 15 = 500; + 5000. A: (2000 x 16383 + 32767) >> 15 = 1000; + 16384.
    EXPECT_EQ(merged(RefPixel16{1000, 0, 0, 2000}, RefPixel16{5000, 0, 0, 16384}), (RefPixel16{5500, 0, 0, 17384}));
}

TEST(ReferenceMerge16, PartialCoverageOfTheFirstLayerMustRiseAboveWhatIsThere)
{
    EXPECT_EQ(merged(RefPixel16{1000, 0, 0, 2000}, RefPixel16{1000, 0, 0, 16384}), (RefPixel16{1000, 0, 0, 2000}));
    EXPECT_EQ(merged(RefPixel16{-7, 0, 0, 0}, RefPixel16{-6, 0, 0, 32766}), (RefPixel16{-6, 0, 0, 32766}));
}

TEST(ReferenceMerge16, FadesNegativeValuesDownwards)
{
    // -1000 x 16383 + 32767 = -16350233; / 32768 = -498.97, rounded down -499; + 5 = -494.
    EXPECT_EQ(merged(RefPixel16{-1000, 0, 0, 0}, RefPixel16{5, 0, 0, 16384}).r, -494);
}

TEST(ReferenceMerge16, HoldsTheSumsToTheRange)
{
    // (30000 x 32766 + 32767) >> 15 = 29999; + 32000 is above 32767.
    EXPECT_EQ(merged(RefPixel16{30000, 0, 0, 0}, RefPixel16{32000, 0, 0, 1}).r, 32767);
    // (-32000 x 32766 + 32767) >> 15 = -31998; - 30000 is below -32767.
    EXPECT_EQ(merged(RefPixel16{-32000, 0, 0, 0}, RefPixel16{-30000, 0, 0, 1}).r, -32767);
}

TEST(ReferenceMerge16, TheSecondLayerHasAThresholdAndNoComparison)
{
    const RefPixel16 high{20000, 0, 0, 32767};
    EXPECT_EQ(merged(high, RefPixel16{0, 9000, 1024, 0}), high);
    // R: (20000 x 31742 + 32767) >> 15 = 634872767 >> 15 = 19374; + 0. A: (32767 x 31743) >> 15 = 31742; + 1025.
    EXPECT_EQ(merged(high, RefPixel16{0, 0, 1025, 0}), (RefPixel16{19374, 0, 0, 32767}));
    EXPECT_EQ(merged(RefPixel16{20000, 0, 0, 9}, RefPixel16{0, 5, 32767, 0}), (RefPixel16{5, 0, 0, 32767}));
}

TEST(ReferenceMerge16, TheSecondLayerWorksOnWhatTheFirstLeft)
{
    // First: R 8000, A 16384. Second: (8000 x 16383 + 32767) >> 15 = 4000; + 100. (16384 x 16383 + 32767) >> 15 = 8192;
    // + 16384.
    EXPECT_EQ(merged(RefPixel16{}, RefPixel16{8000, 100, 16384, 16384}), (RefPixel16{4100, 0, 0, 24576}));
}

TEST(ReferenceMerge16, ClearsGreenAndBlueAlsoWhenNothingIsMerged)
{
    EXPECT_EQ(merged(RefPixel16{7, 8, 9, 10}, RefPixel16{}), (RefPixel16{7, 0, 0, 10}));
}

TEST(ReferenceMergeFloat, FadesAndAddsWithoutAnUpperLimitForTheValue)
{
    // R: 0.5 x 0.75 + 1 = 1.375. A: 0.5 x 0.75 + 0.25 = 0.625.
    EXPECT_EQ(merged(RefPixelFloat{0.5F, 1, 1, 0.5F}, RefPixelFloat{1, 0, 0, 0.25F}),
              (RefPixelFloat{1.375F, 0, 0, 0.625F}));
    // A: 3 x 0.75 + 0.25 = 2.5 is clamped to 1; -3 x 0.75 + 0.25 to 0.
    EXPECT_EQ(merged(RefPixelFloat{0, 0, 0, 3}, RefPixelFloat{1, 0, 0, 0.25F}).a, 1.0F);
    EXPECT_EQ(merged(RefPixelFloat{0, 0, 0, -3}, RefPixelFloat{1, 0, 0, 0.25F}).a, 0.0F);
}

TEST(ReferenceMergeFloat, FullCoverageStoresExactlyOne)
{
    EXPECT_EQ(merged(RefPixelFloat{5, 0, 0, 0.5F}, RefPixelFloat{0.25F, 0, 0, 1.5F}), (RefPixelFloat{0.25F, 0, 0, 1}));
    EXPECT_EQ(merged(RefPixelFloat{5, 0, 0, 0.5F}, RefPixelFloat{0.25F, 0, 0, 1.0F}), (RefPixelFloat{0.25F, 0, 0, 1}));
    EXPECT_EQ(merged(RefPixelFloat{5, 0, 0, 0.5F}, RefPixelFloat{0, 0.5F, 2.0F, 0}), (RefPixelFloat{0.5F, 0, 0, 1}));
}

TEST(ReferenceMergeFloat, OnlyTheFirstLayerComparesAndTheSecondHasNoThreshold)
{
    EXPECT_EQ(merged(RefPixelFloat{0.5F, 0, 0, 1}, RefPixelFloat{0.5F, 0, 0, 0.5F}), (RefPixelFloat{0.5F, 0, 0, 1}));
    // 0.5 x (1 - 1/64) = 0.4921875.
    EXPECT_EQ(merged(RefPixelFloat{0.5F, 0, 0, 1}, RefPixelFloat{0, 0, 0.015625F, 0}),
              (RefPixelFloat{0.4921875F, 0, 0, 1}));
}

TEST(ReferenceMergeFloat, ComputesInDoubleAndRoundsOnce)
{
    // Coverage 2^-26, R 1, value 1 + 6u with u = 2^-24. Exactly: 1 - 0.25u + 1 + 6u = 2 + 5.75u, nearest float 2 + 4u.
    // In single precision 1 - coverage would be 1, and 2 + 6u a tie that goes to 2 + 8u.
    const float u = std::ldexp(1.0F, -24);
    const RefPixelFloat result =
        merged(RefPixelFloat{1, 0, 0, 0}, RefPixelFloat{1.0F + 6.0F * u, 0, 0, std::ldexp(1.0F, -26)});
    EXPECT_EQ(result.r, 2.0F + 4.0F * u);
}

TEST(ReferenceAccumulator, StartsWithoutPixelsOnTheRendersCanvas)
{
    const RefImage16 input(RefBox{0, 0, 3, 2}, RefBox{0, 0, 9, 9}, 30, 20);
    const RefImage16 accumulator = makeAccumulator16(input, RefBox{-1, -1, 8, 8});
    EXPECT_TRUE(accumulator.box.empty());
    EXPECT_EQ(accumulator.canvas, (RefBox{-1, -1, 8, 8}));
    EXPECT_EQ(accumulator.width, 30);
    EXPECT_EQ(accumulator.height, 20);
}

TEST(ReferenceAccumulator, GrowsToItsInputsWithinItsCanvas)
{
    RefImage16 input(RefBox{-2, 0, 2, 1});
    for (RefPixel16& pixel : input.pixels) {
        pixel = RefPixel16{100, 0, 0, 32767};
    }
    RefImage16 accumulator = makeAccumulator16(input, RefBox{-1, 0, 4, 4});

    accumulate16(accumulator, input);
    EXPECT_EQ(accumulator.box, (RefBox{-1, 0, 2, 1}));
    EXPECT_EQ(accumulator.at(-1, 0), (RefPixel16{100, 0, 0, 32767}));

    accumulate16(accumulator, RefImage16(RefBox{3, 3, 9, 9}));
    EXPECT_EQ(accumulator.box, (RefBox{-1, 0, 4, 4}));
    EXPECT_EQ(accumulator.at(1, 0), (RefPixel16{100, 0, 0, 32767}));
    EXPECT_EQ(accumulator.at(3, 3), RefPixel16{});
}

TEST(ReferenceAccumulator, LeavesWhatTheInputDoesNotCover)
{
    RefImageFloat accumulator(RefBox{0, 0, 2, 1});
    accumulator.at(0, 0) = RefPixelFloat{0.1F, 0.2F, 0.3F, 0.4F};
    accumulator.at(1, 0) = RefPixelFloat{0.1F, 0.2F, 0.3F, 0.4F};

    accumulateFloat(accumulator, RefImageFloat(RefBox{1, 0, 2, 1}));

    EXPECT_EQ(accumulator.at(0, 0), (RefPixelFloat{0.1F, 0.2F, 0.3F, 0.4F}));
    EXPECT_EQ(accumulator.at(1, 0), (RefPixelFloat{0.1F, 0, 0, 0.4F}));
}

} // namespace
} // namespace reference
