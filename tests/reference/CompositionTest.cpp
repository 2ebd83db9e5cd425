// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The composition by hand: coverage thresholds, cut-outs, normalised elevation with its wraps, order of inputs, blue
// channel.
#include "reference/Composition.h"

#include <gtest/gtest.h>

#include <cmath>

namespace reference {
namespace {

/// Inputs, results and ranges of a one-pixel composition; each input covers that pixel with the given alpha.
struct OnePixel16
{
    std::vector<RefInput16> inputs;
    std::map<int, RefImage16> results;
    std::map<int, RefRange> ranges;

    OnePixel16& input(int objectId, std::int16_t alpha)
    {
        RefImage16 image(RefBox{0, 0, 1, 1});
        image.at(0, 0) = RefPixel16{1, 1, 1, alpha};
        inputs.push_back(RefInput16{objectId, image});
        return *this;
    }

    OnePixel16& result(int objectId, RefPixel16 pixel, RefRange range = {0.0F, 1.0F})
    {
        RefImage16 image(RefBox{0, 0, 1, 1});
        image.at(0, 0) = pixel;
        results[objectId] = image;
        ranges[objectId] = range;
        return *this;
    }

    RefPixel16 composed(bool generateNormals = true, bool depthInBlue = false) const
    {
        RefImage16 output(RefBox{0, 0, 1, 1});
        compose16(output, inputs, results, ranges, generateNormals, depthInBlue);
        return output.at(0, 0);
    }
};

/// The same in float.
struct OnePixelFloat
{
    std::vector<RefInputFloat> inputs;
    std::map<int, RefImageFloat> results;
    std::map<int, RefRange> ranges;

    OnePixelFloat& input(int objectId, float alpha)
    {
        RefImageFloat image(RefBox{0, 0, 1, 1});
        image.at(0, 0) = RefPixelFloat{1, 1, 1, alpha};
        inputs.push_back(RefInputFloat{objectId, image});
        return *this;
    }

    OnePixelFloat& result(int objectId, RefPixelFloat pixel, RefRange range = {0.0F, 1.0F})
    {
        RefImageFloat image(RefBox{0, 0, 1, 1});
        image.at(0, 0) = pixel;
        results[objectId] = image;
        ranges[objectId] = range;
        return *this;
    }

    RefPixelFloat composed(bool generateNormals = true, bool depthInBlue = false) const
    {
        RefImageFloat output(RefBox{0, 0, 1, 1});
        composeFloat(output, inputs, results, ranges, generateNormals, depthInBlue);
        return output.at(0, 0);
    }
};

TEST(ReferenceCoverage, IsFullFrom99PercentIn16Bit)
{
    // 0.99 x 32767 = 32439.33.
    EXPECT_EQ(saturatedCoverage16(32440), 1.0);
    EXPECT_EQ(saturatedCoverage16(32439), 32439.0 / 32767.0);
    EXPECT_EQ(saturatedCoverage16(1), 1.0 / 32767.0);
}

TEST(ReferenceCoverage, IsFullFrom9999In10000InFloat)
{
    // The float nearest to 0.9999 lies below it, and is compared unchanged.
    EXPECT_LT(saturatedCoverageFloat(0.9999F), 1.0);
    EXPECT_EQ(saturatedCoverageFloat(std::nextafter(0.9999F, 1.0F)), 1.0);
    EXPECT_EQ(saturatedCoverageFloat(0.99F), static_cast<double>(0.99F));
    EXPECT_EQ(saturatedCoverageFloat(1.5F), 1.0);
}

TEST(ReferenceCut, TruncatesWhatIsLeft)
{
    // 10000 x (1 - 0.5000153) = 4999.85.
    EXPECT_EQ(cutAlpha16(10000, 16384), 4999);
    EXPECT_EQ(cutAlpha16(32767, 32767), 0);
    EXPECT_EQ(cutAlphaFloat(0.5F, 0.25F), 0.375F);
    EXPECT_EQ(cutAlphaFloat(1.0F, 1.5F), -0.5F) << "nothing holds it to 0";
}

TEST(ReferenceCut, LosesOneInFiveAlphasToTruncation)
{
    int lost = 0;
    for (int alpha = 1; alpha < 32767; ++alpha) {
        const int left = cutAlpha16(32767, static_cast<std::int16_t>(alpha));
        ASSERT_TRUE(left == 32767 - alpha || left == 32766 - alpha) << alpha;
        lost += left == 32766 - alpha ? 1 : 0;
    }
    EXPECT_NEAR(lost / 32766.0, 0.2, 0.02);
}

TEST(ReferenceCut, ClearsTheColourAndIsNotSaturated)
{
    OnePixel16 pixel;
    pixel.input(1, 32767).result(1, RefPixel16{1000, 2000, 3, 4}).input(0, 32700);
    const RefPixel16 out = pixel.composed();
    EXPECT_EQ(out.r, 0);
    EXPECT_EQ(out.g, 0);
    EXPECT_EQ(out.b, 0);
    EXPECT_NEAR(out.a, 67, 1);

    OnePixelFloat floats;
    floats.input(1, 1.0F).result(1, RefPixelFloat{0.1F, 0.2F, 0.3F, 0.4F}).input(0, 0.99995F);
    EXPECT_EQ(floats.composed(), (RefPixelFloat{0, 0, 0, 1.0F - 0.99995F}));
}

TEST(ReferenceCut, DoesNotReachInputsOfLaterPorts)
{
    OnePixel16 pixel;
    pixel.input(0, 32767).input(1, 32767).result(1, RefPixel16{1000, 2000, 3, 4});
    EXPECT_EQ(pixel.composed(), (RefPixel16{1000, 2000, 1, 32767}));
}

TEST(ReferenceComposition, PassesOverInputsWithoutObjectPictureOrCoverage)
{
    OnePixel16 pixel;
    pixel.result(1, RefPixel16{1000, 2000, 3, 4}).result(-1, RefPixel16{1000, 2000, 3, 4});
    pixel.input(-1, 32767).input(1, 0).input(1, -1).input(2, 32767);
    pixel.inputs.push_back(RefInput16{1, std::nullopt});
    pixel.inputs.push_back(RefInput16{1, RefImage16(RefBox{1, 0, 2, 1})});
    EXPECT_EQ(pixel.composed(), RefPixel16{});

    OnePixelFloat floats;
    floats.result(-1, RefPixelFloat{0.5F, 0.5F, 0, 1});
    floats.result(1, RefPixelFloat{0.5F, 0.5F, 0, 1}).input(-1, 1.0F).input(1, 0.0F).input(1, -1.0F).input(2, 1.0F);
    EXPECT_EQ(floats.composed(), RefPixelFloat{});
}

TEST(ReferenceComposition, ReadsTheInputsOwnCoverage)
{
    OnePixel16 pixel;
    pixel.input(1, 16384).result(1, RefPixel16{1000, 2000, 3, 4});
    EXPECT_EQ(pixel.composed(), (RefPixel16{1000, 2000, 1, 16384}));
}

TEST(ReferenceComposition, TakesThePortsInOrder)
{
    OnePixel16 pixel;
    pixel.result(1, RefPixel16{1, 1, 1, 1}).result(2, RefPixel16{2, 2, 2, 2});
    pixel.input(2, 32767).input(1, 32767);
    EXPECT_EQ(pixel.composed(), (RefPixel16{1, 1, 1, 32767}));
    pixel.input(2, 32767);
    EXPECT_EQ(pixel.composed(), (RefPixel16{2, 2, 2, 32767}));
}

TEST(ReferenceComposition, PutsTheNumberOrTheElevationInBlue)
{
    OnePixel16 pixel;
    pixel.input(7, 32767).result(7, RefPixel16{1, 2, 555, 4});
    EXPECT_EQ(pixel.composed(true, false).b, 7);
    EXPECT_EQ(pixel.composed(true, true).b, 555);

    OnePixelFloat floats;
    floats.input(7, 1.0F).result(7, RefPixelFloat{0.5F, 0.5F, 0.25F, 1});
    EXPECT_EQ(floats.composed(true, false).b, 0.0F);
    EXPECT_EQ(floats.composed(true, true).b, 0.25F);
}

TEST(ReferenceComposition, KeepsTheLowSixteenBitsOfANumber)
{
    OnePixel16 pixel;
    pixel.input(40000, 32767).result(40000, RefPixel16{});
    EXPECT_EQ(pixel.composed().b, 40000 - 65536);
    OnePixel16 wrapped;
    wrapped.input(65543, 32767).result(65543, RefPixel16{});
    EXPECT_EQ(wrapped.composed().b, 7);
}

TEST(ReferenceComposition, BlendsEmptyResultPixelsToo)
{
    OnePixel16 pixel;
    pixel.input(3, 32767).result(3, RefPixel16{0, 0, 32767, 0});
    EXPECT_EQ(pixel.composed(true, false), (RefPixel16{0, 0, 3, 32767}));
    EXPECT_EQ(pixel.composed(true, true), (RefPixel16{0, 0, 32767, 32767}));
}

TEST(ReferenceElevationOutput, LetsTheHighestObjectWin)
{
    // (600 - 100) x 0.002 = 1 of 32767, or half of it at scale 0.001.
    OnePixel16 pixel;
    pixel.result(1, RefPixel16{600, 0, 0, 0}, RefRange{100.0F, 0.001F});
    pixel.result(2, RefPixel16{200, 0, 0, 0}, RefRange{100.0F, 0.001F});
    pixel.input(1, 1).input(2, 32767);
    EXPECT_EQ(pixel.composed(false), (RefPixel16{16383, 16383, 16383, 16383}));

    OnePixelFloat floats;
    floats.result(1, RefPixelFloat{0.5F, 0, 0, 0}, RefRange{0.25F, 2.0F});
    floats.result(2, RefPixelFloat{0.75F, 0, 0, 0}, RefRange{0.25F, 2.0F});
    floats.input(2, 0.1F).input(1, 1.0F);
    EXPECT_EQ(floats.composed(false), (RefPixelFloat{1, 1, 1, 1}));
}

TEST(ReferenceElevationOutput, NeedsARange)
{
    OnePixel16 pixel;
    pixel.input(1, 32767).result(1, RefPixel16{600, 0, 0, 0});
    pixel.ranges.clear();
    EXPECT_EQ(pixel.composed(false), RefPixel16{});
}

TEST(ReferenceElevationOutput, WritesNothingForZeroAndBelow)
{
    OnePixel16 pixel;
    pixel.input(1, 32767).result(1, RefPixel16{100, 0, 0, 0}, RefRange{100.0F, 1.0F});
    EXPECT_EQ(pixel.composed(false), RefPixel16{});

    OnePixelFloat floats;
    floats.input(1, 1.0F).result(1, RefPixelFloat{0, 0, 0, 0}, RefRange{0.5F, 2.0F});
    EXPECT_EQ(floats.composed(false), RefPixelFloat{});
}

TEST(ReferenceElevationOutput, KeepsTheAlphaThatACutLeftUnderAnElevationOfZero)
{
    // Object 1 fills all channels with 500, the cut leaves 500 x (1 - 0.5000153) = 249.99 in alpha alone, object 2 has
    // 0.
    OnePixel16 pixel;
    pixel.result(1, RefPixel16{500, 0, 0, 0}, RefRange{0.0F, 1.0F / 32767.0F});
    pixel.result(2, RefPixel16{0, 0, 0, 0}, RefRange{0.0F, 1.0F / 32767.0F});
    pixel.input(1, 32767).input(0, 16384).input(2, 32767);
    EXPECT_EQ(pixel.composed(false), (RefPixel16{0, 0, 0, 249}));

    OnePixelFloat floats;
    floats.result(1, RefPixelFloat{0.5F, 0, 0, 0}).result(2, RefPixelFloat{});
    floats.input(1, 1.0F).input(0, 0.5F).input(2, 1.0F);
    EXPECT_EQ(floats.composed(false), (RefPixelFloat{0, 0, 0, 0.25F}));
}

TEST(ReferenceElevationOutput, OfAnObjectWithoutAnyPositiveValueIsTheMiddle)
{
    // (0 - 32767) x (-1 / 65534) = 0.5; x 32767 = 16383.5, truncated.
    const RefRange range = rangeOfSpan(RefSpan{});
    EXPECT_EQ(normalisedElevation16(0, range), 16383);
    EXPECT_EQ(normalisedElevationFloat(0.0F, range), 0.5F);
}

TEST(ReferenceElevationOutput, WrapsBelowTheOffsetIn16Bit)
{
    // (0 - 20000) / 12767 x 32767 = -51330.8, truncated -51330; + 65536 = 14206.
    EXPECT_EQ(normalisedElevation16(0, rangeOfSpan(RefSpan{20000.0F, 32767.0F})), 14206);
    // (0 - 22000) / 10767 x 32767 = -66952.2; -66952 + 65536 = -1416: not visible.
    EXPECT_EQ(normalisedElevation16(0, rangeOfSpan(RefSpan{22000.0F, 32767.0F})), -1416);
    EXPECT_LT(normalisedElevationFloat(0.0F, RefRange{0.25F, 2.0F}), 0.0F);
}

TEST(ReferenceElevationOutput, ShowsWrappedPixelsForAKnownNumberOfOffsets)
{
    int visible = 0;
    for (int lowest = 1; lowest <= 32766; ++lowest) {
        const RefRange range = rangeOfSpan(RefSpan{static_cast<float>(lowest), 32767.0F});
        visible += normalisedElevation16(0, range) > 0 ? 1 : 0;
    }
    EXPECT_EQ(visible, 10077);
}

TEST(ReferenceElevationOutput, ReachesFullForSixOfSevenSpans)
{
    // In single precision 85 % of the spans bring their highest pixel to 32767; the same scale times a double only 50
    // %.
    int inSingle = 0;
    int inDouble = 0;
    for (int span = 1; span <= 32766; ++span) {
        const RefRange range = rangeOfSpan(RefSpan{1.0F, static_cast<float>(span + 1)});
        inSingle += normalisedElevation16(static_cast<std::int16_t>(span + 1), range) == 32767 ? 1 : 0;
        inDouble += static_cast<int>(span * static_cast<double>(range.scale) * 32767.0) == 32767 ? 1 : 0;
    }
    EXPECT_NEAR(inSingle / 32766.0, 0.85, 0.005);
    EXPECT_NEAR(inDouble / 32766.0, 0.50, 0.005);
}

} // namespace
} // namespace reference
