// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The merge of inputs into an accumulator, on single pixels worked out by hand: f(d, c) = (d (32767 - c) + 32767)
// >> 15.
#include "SmallPixmaps.h"

#include "render/CoverageMerge.h"

namespace {

template<typename Pixel>
Pixel merged(const Pixel& accumulator, const Pixel& input)
{
    const auto target = filled<Pixel>(1, 1, accumulator);
    mergeCoverage<Pixel>(*target, *filled<Pixel>(1, 1, input));
    return target->at(0, 0);
}

} // namespace

TEST(CoverageMerge, FullCoverageReplacesEvenAHigherValue)
{
    EXPECT_EQ(merged<Pixel16>({30000, 7, 7, 5}, {100, 0, 0, 32767}), (Pixel16{100, 0, 0, 32767}));
    EXPECT_EQ(merged<PixelFloat>({0.9F, 7, 7, 0.1F}, {0.25F, 0, 0, 1.5F}), (PixelFloat{0.25F, 0, 0, 1.0F}));
}

TEST(CoverageMerge, PartialCoverageAddsAHigherValue)
{
    // f(100, 16384) = (100 x 16383 + 32767) >> 15 = 1671067 >> 15 = 50, plus 1000.
    // f(0, 16384) = 32767 >> 15 = 0, plus 16384.
    EXPECT_EQ(merged<Pixel16>({100, 0, 0, 0}, {1000, 0, 0, 16384}), (Pixel16{1050, 0, 0, 16384}));
    EXPECT_EQ(merged<PixelFloat>({0.25F, 0, 0, 0.5F}, {0.5F, 0, 0, 0.5F}), (PixelFloat{0.625F, 0, 0, 0.75F}));
}

TEST(CoverageMerge, PartialCoverageLeavesAValueThatIsNotExceeded)
{
    EXPECT_EQ(merged<Pixel16>({1000, 3, 4, 7}, {1000, 0, 0, 16384}), (Pixel16{1000, 0, 0, 7}));
    EXPECT_EQ(merged<PixelFloat>({0.5F, 3, 4, 0.25F}, {0.5F, 0, 0, 0.5F}), (PixelFloat{0.5F, 0, 0, 0.25F}));
}

TEST(CoverageMerge, TheColoursLayerNeedsNoHigherValue)
{
    // f(30000, 16384) = (30000 x 16383 + 32767) >> 15 = 491522767 >> 15 = 15000, plus 10.
    // f(32767, 16384) = (32767 x 16383 + 32767) >> 15 = 536854528 >> 15 = 16383, plus 16384.
    EXPECT_EQ(merged<Pixel16>({30000, 0, 0, 32767}, {0, 10, 16384, 0}), (Pixel16{15010, 0, 0, 32767}));
}

TEST(CoverageMerge, TheColoursLayerCountsAbove1024In16BitAndAbove0InFloat)
{
    EXPECT_EQ(merged<Pixel16>({500, 0, 0, 600}, {0, 9, 1024, 0}), (Pixel16{500, 0, 0, 600}));
    // f(500, 1025) = (500 x 31742 + 32767) >> 15 = 15903767 >> 15 = 485, plus 9;
    // f(600, 1025) = (600 x 31742 + 32767) >> 15 = 19077967 >> 15 = 582, plus 1025.
    EXPECT_EQ(merged<Pixel16>({500, 0, 0, 600}, {0, 9, 1025, 0}), (Pixel16{494, 0, 0, 1607}));
    EXPECT_EQ(merged<PixelFloat>({1.0F, 0, 0, 1.0F}, {0, 0.0F, 0.5F, 0}), (PixelFloat{0.5F, 0, 0, 1.0F}));
}

TEST(CoverageMerge, SumsAreHeldToTheRange)
{
    // f(20000, 1) = (20000 x 32766 + 32767) >> 15 = 655352767 >> 15 = 19999; plus 30000 is above 32767.
    EXPECT_EQ(merged<Pixel16>({20000, 0, 0, 0}, {30000, 0, 0, 1}).r, 32767);
    EXPECT_EQ(merged<PixelFloat>({0, 0, 0, 0.9F}, {0.5F, 0, 0, 0.9F}).a,
              static_cast<float>(0.9F * (1.0 - 0.9F) + 0.9F));
}

TEST(CoverageMerge, GrowsTheAccumulatorToTheInputWithinItsCanvas)
{
    CEL_PixmapAreaRGBA16 accumulator({4, 4}, {0, 0, 4, 4});
    CEL_PixmapAreaRGBA16 input({4, 4}, {0, 0, 4, 4});
    input.realloc({-2, 1, 2, 9}, true);
    mergeCoverage<Pixel16>(accumulator, input);
    EXPECT_EQ(accumulator.allocatedRect(), Math::Box2di(0, 1, 2, 4));
}
