// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One object from accumulator to result by hand: with and without a bevel, clipped and grown, normals on and off.
#include "reference/Volume.h"

#include "reference/Compare.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace reference {
namespace {

/// A blur that must not be called.
RefImage16 noBlur(const RefImage16&, double)
{
    throw std::logic_error("blurred without a bevel");
}

RefImage16 covered16(const RefBox& box, const RefBox& canvas, std::int16_t value)
{
    RefImage16 image(box, canvas, canvas.width(), canvas.height());
    for (RefPixel16& pixel : image.pixels) {
        pixel = RefPixel16{value, 0, 0, 32767};
    }
    return image;
}

TEST(ReferenceVolume, IsNoneWithoutPixelsAndLeavesTheRange)
{
    RefRange range{3.0F, 4.0F};
    const RefImage16 accumulator(RefBox{}, RefBox{0, 0, 9, 9}, 9, 9);
    EXPECT_FALSE(buildVolume16(accumulator, RefBox{0, 0, 9, 9}, RefVolumeParameters{}, range).has_value());
    EXPECT_EQ(range, (RefRange{3.0F, 4.0F}));
}

TEST(ReferenceVolume, WithoutABevelIsTheMaskNeitherBlurredNorClipped)
{
    for (const double bevel : {0.0, -3.0}) {
        RefVolumeParameters parameters;
        parameters.bevel = bevel;
        parameters.generateNormals = false;
        parameters.clipWithGeometry = true;
        RefRange range;
        const RefImage16 accumulator = covered16(RefBox{0, 0, 1, 1}, RefBox{0, 0, 1, 1}, 500);

        const auto result = buildVolume16(accumulator, RefBox{0, 0, 5, 1}, parameters, range, noBlur);

        // The mask reaches two pixels beyond the canvas; the reference's rectangle is added to it.
        ASSERT_TRUE(result.has_value());
        EXPECT_EQ(result->box, (RefBox{-2, -2, 5, 3}));
        EXPECT_EQ(result->at(0, 0), (RefPixel16{500, 0, 0, 32767}));
        EXPECT_EQ(result->at(1, 0), RefPixel16{});
        EXPECT_EQ(range, (RefRange{500.0F, 1.0F}));
    }
}

TEST(ReferenceVolume, BlursByItsBevelAndClipsToTheCanvas)
{
    RefVolumeParameters parameters;
    parameters.bevel = 4.0; // sigma 4 / 720 x 720 x 0.25 = 1
    parameters.generateNormals = false;
    RefRange range;
    const RefBox canvas{0, 0, 20, 20};
    RefImage16 accumulator(canvas, canvas, 20, 20);
    accumulator.at(1, 1) = RefPixel16{32767, 0, 0, 32767};
    double asked = 0.0;
    const RefBlur16 blur = [&asked](const RefImage16& mask, double sigma) {
        asked = sigma;
        return gaussianBlur16(mask, sigma);
    };

    const auto result = buildVolume16(accumulator, RefBox{}, parameters, range, blur);

    // Mask [-1, 4), grown by 4 to [-5, 8), clipped to [0, 8). Centre 5215, diagonal neighbour 1919.
    EXPECT_EQ(asked, 1.0);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->box, (RefBox{0, 0, 8, 8}));
    EXPECT_EQ(result->at(1, 1), (RefPixel16{5215, 0, 0, 32767}));
    EXPECT_EQ(result->at(2, 2).r, 1919);
    // Three pixels beside and three below: 5215.03 x exp(-9) = 0.64, rounded 1: the smallest positive one.
    EXPECT_EQ(result->at(4, 4).r, 1);
    EXPECT_EQ(range, (RefRange{1.0F, 1.0F / 5214.0F}));
}

TEST(ReferenceVolume, ClipsTheBlurToItsGeometryOnRequest)
{
    RefVolumeParameters parameters;
    parameters.bevel = 4.0;
    parameters.generateNormals = false;
    parameters.clipWithGeometry = true;
    RefRange range;
    const RefBox canvas{0, 0, 20, 20};
    RefImage16 accumulator(canvas, canvas, 20, 20);
    accumulator.at(10, 10) = RefPixel16{32767, 0, 0, 32767};

    const auto result = buildVolume16(accumulator, RefBox{}, parameters, range);

    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->box, (RefBox{4, 4, 17, 17}));
    EXPECT_GT(result->at(12, 12).r, 0);
    EXPECT_EQ(result->at(13, 10), RefPixel16{});
    // The lowest is two pixels beside and two below: 5215.03 x exp(-4) = 95.52.
    EXPECT_EQ(range.offset, 96.0F);
}

TEST(ReferenceVolume, HasTheRangeOfOneAndEmptyPixelsForAConstantMaskWithNormals)
{
    RefVolumeParameters parameters;
    parameters.bevel = 0.0;
    RefRange range;
    const auto result = buildVolume16(covered16(RefBox{0, 0, 3, 3}, RefBox{0, 0, 9, 9}, 500), RefBox{0, 0, 3, 3},
                                      parameters, range, noBlur);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(range, (RefRange{0.0F, 1.0F}));
    for (const RefPixel16& pixel : result->pixels) {
        EXPECT_EQ(pixel, (RefPixel16{0, 0, 32767, 0}));
    }
}

TEST(ReferenceVolume, IsEmptyForAnElevationOfZero)
{
    RefVolumeParameters parameters;
    parameters.elevation = 0.0;
    RefRange range;
    const RefBox canvas{0, 0, 30, 30};
    const auto result =
        buildVolume16(covered16(RefBox{10, 10, 20, 20}, canvas, 32767), RefBox{10, 10, 20, 20}, parameters, range);
    ASSERT_TRUE(result.has_value());
    for (const RefPixel16& pixel : result->pixels) {
        EXPECT_EQ(pixel, (RefPixel16{0, 0, 32767, 0}));
    }
}

TEST(ReferenceVolume, WithoutAnyPositiveValueHasOnlyTheReferencesRectangle)
{
    RefVolumeParameters parameters;
    parameters.generateNormals = false;
    RefRange range;
    const auto result =
        buildVolume16(covered16(RefBox{0, 0, 3, 3}, RefBox{0, 0, 9, 9}, 0), RefBox{1, 1, 2, 2}, parameters, range);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->box, (RefBox{1, 1, 2, 2}));
    EXPECT_EQ(range, (RefRange{32767.0F, -1.0F / 65534.0F}));
}

TEST(ReferenceVolume, BlursClipsAndGrowsInFloatAlike)
{
    RefVolumeParameters parameters;
    parameters.bevel = 4.0;
    parameters.generateNormals = false;
    RefRange range;
    const RefBox canvas{0, 0, 20, 20};
    RefImageFloat accumulator(canvas, canvas, 20, 20);
    accumulator.at(1, 1) = RefPixelFloat{1, 0, 0, 1};

    const auto open = buildVolumeFloat(accumulator, RefBox{15, 0, 16, 1}, parameters, range);

    // Mask [-1, 4), grown by 4 to [-5, 8), clipped to [0, 8), grown to the reference's [15, 16) x [0, 1).
    ASSERT_TRUE(open.has_value());
    EXPECT_EQ(open->box, (RefBox{0, 0, 16, 8}));
    EXPECT_NEAR(open->at(1, 1).r, 0.1591549, 1e-7);
    EXPECT_GT(open->at(4, 1).r, 0.0F);
    EXPECT_EQ(open->at(15, 7), RefPixelFloat{});

    parameters.clipWithGeometry = true;
    const auto clipped = buildVolumeFloat(accumulator, RefBox{}, parameters, range);
    ASSERT_TRUE(clipped.has_value());
    EXPECT_EQ(clipped->at(4, 1), RefPixelFloat{});
    EXPECT_EQ(clipped->at(3, 3), open->at(3, 3));

    parameters.generateNormals = true;
    ASSERT_TRUE(buildVolumeFloat(accumulator, RefBox{}, parameters, range).has_value());
    EXPECT_EQ(range, (RefRange{0.0F, 1.0F}));
}

TEST(ReferenceVolume, WithoutABevelDoesNotBlurInFloatEither)
{
    RefVolumeParameters parameters;
    parameters.bevel = 0.0;
    parameters.generateNormals = false;
    RefRange range;
    RefImageFloat accumulator(RefBox{0, 0, 1, 1});
    accumulator.at(0, 0) = RefPixelFloat{0.5F, 0, 0, 1};
    const RefBlurFloat blur = [](const RefImageFloat&, double) -> RefImageFloat {
        throw std::logic_error("blurred without a bevel");
    };
    const auto result = buildVolumeFloat(accumulator, RefBox{}, parameters, range, blur);
    ASSERT_TRUE(result.has_value());
    EXPECT_EQ(result->box, (RefBox{-2, -2, 3, 3}));
    EXPECT_EQ(result->at(0, 0), (RefPixelFloat{0.5F, 0, 0, 1}));
}

TEST(ReferenceVolume, IsTheSameInStepsFromAGivenBlur)
{
    RefVolumeParameters parameters;
    parameters.quality = 2;
    parameters.clipWithGeometry = true;
    parameters.smoothness = 2.0;
    const RefBox canvas{0, 0, 30, 30};
    RefImageFloat accumulator(RefBox{5, 5, 15, 12}, canvas, 30, 30);
    for (int x = 5; x < 15; ++x) {
        accumulator.at(x, 7) = RefPixelFloat{static_cast<float>(x) / 16.0F, 0, 0, 1};
    }
    const RefImageFloat given = gaussianBlurFloat(accumulator, 1.5);
    const RefBlurFloat blur = [&given](const RefImageFloat&, double) { return given; };

    RefRange range;
    const auto whole = buildVolumeFloat(accumulator, canvas, parameters, range, blur);
    RefImageFloat mask = accumulator;
    for (RefPixelFloat& pixel : mask.pixels) {
        pixel = RefPixelFloat{pixel.r * pixel.a, 0, 0, 1};
    }
    RefRange stepRange;
    const RefImageFloat steps = shapeVolumeFloat(clippedBlurFloat(given, mask, true), canvas, parameters, stepRange);

    ASSERT_TRUE(whole.has_value());
    EXPECT_EQ(differences(*whole, steps, 0.0), "");
    EXPECT_EQ(range, stepRange);
}

} // namespace
} // namespace reference
