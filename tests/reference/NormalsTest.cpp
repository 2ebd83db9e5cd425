// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Normals by hand: slopes, missing neighbours, the three qualities, encoding, decoding, smoothing.
#include "reference/Normals.h"

#include <gtest/gtest.h>

#include <cmath>

namespace reference {
namespace {

RefDepth flat(float depth)
{
    RefDepth result(RefBox{0, 0, 3, 3});
    for (float& value : result.pixels) {
        value = depth;
    }
    return result;
}

void expectNear(const RefVector& actual, const RefVector& expected)
{
    EXPECT_NEAR(actual.x, expected.x, 1e-6);
    EXPECT_NEAR(actual.y, expected.y, 1e-6);
    EXPECT_NEAR(actual.z, expected.z, 1e-6);
}

TEST(ReferenceVector, HasTheUsualProductAndLength)
{
    EXPECT_EQ(crossProduct(RefVector{1, 0, 0}, RefVector{0, 1, 0}), (RefVector{0, 0, 1}));
    EXPECT_EQ(crossProduct(RefVector{1, 2, 3}, RefVector{4, 5, 6}), (RefVector{-3, 6, -3}));
    EXPECT_EQ(normalised(RefVector{3, 0, 4}), (RefVector{3.0 / 5.0, 0, 4.0 / 5.0}));
    EXPECT_EQ(normalised(RefVector{}), RefVector{});
}

TEST(ReferenceNormal, OfAFlatDepthFacesTheViewer)
{
    for (const int quality : {0, 1, 2}) {
        EXPECT_EQ(depthNormal(flat(5.0F), 1, 1, quality), (RefVector{0, 0, 1}));
    }
}

TEST(ReferenceNormal, LeansAwayFromTheRise)
{
    // a = (2, 0, 2), b = (0, 2, 0): a x b = (-4, 0, 4).
    RefDepth rising = flat(5.0F);
    rising.at(2, 1) = 7.0F;
    expectNear(depthNormal(rising, 1, 1, 0), RefVector{-std::sqrt(0.5), 0, std::sqrt(0.5)});

    // a = (2, 0, 0), b = (0, 2, -4): a x b = (0, 8, 4).
    RefDepth falling = flat(5.0F);
    falling.at(1, 2) = 1.0F;
    expectNear(depthNormal(falling, 1, 1, 0), RefVector{0, std::sqrt(0.8), std::sqrt(0.2)});
}

TEST(ReferenceNormal, IsZeroUnlessAllFourAxisNeighboursAreThereAndNotBlack)
{
    for (const int quality : {0, 1, 2}) {
        EXPECT_EQ(depthNormal(flat(5.0F), 0, 1, quality), RefVector{});
        EXPECT_EQ(depthNormal(flat(5.0F), 2, 1, quality), RefVector{});
        EXPECT_EQ(depthNormal(flat(5.0F), 1, 0, quality), RefVector{});
        EXPECT_EQ(depthNormal(flat(5.0F), 1, 2, quality), RefVector{});
        RefDepth black = flat(5.0F);
        black.at(1, 0) = 0.0F;
        EXPECT_EQ(depthNormal(black, 1, 1, quality), RefVector{});
    }
}

TEST(ReferenceNormal, AveragesTheDiagonalsInAboveLowQuality)
{
    // c = (2, 2, 2), d = (-2, 2, 0): c x d = (-4, -4, 8), of length sqrt(96): (-0.408248, -0.408248, 0.816497).
    // Half of it and half of (0, 0, 1): (-0.204124, -0.204124, 0.908248), of length 0.953021.
    RefDepth depth = flat(10.0F);
    depth.at(2, 2) = 12.0F;
    EXPECT_EQ(depthNormal(depth, 1, 1, 0), (RefVector{0, 0, 1}));
    expectNear(depthNormal(depth, 1, 1, 1), RefVector{-0.214186, -0.214186, 0.953021});
    EXPECT_EQ(depthNormal(depth, 1, 1, 2), depthNormal(depth, 1, 1, 1));
    EXPECT_EQ(depthNormal(depth, 1, 1, -1), depthNormal(depth, 1, 1, 1)) << "any quality but 0";

    // c = (2, 2, 0), d = (-2, 2, 2): c x d = (4, -4, 8): the same with x mirrored.
    RefDepth mirrored = flat(10.0F);
    mirrored.at(0, 2) = 12.0F;
    expectNear(depthNormal(mirrored, 1, 1, 1), RefVector{0.214186, -0.214186, 0.953021});
}

TEST(ReferenceNormal, LeavesTheDiagonalsOutUnlessAllFourAreThere)
{
    RefDepth depth = flat(10.0F);
    depth.at(2, 2) = 12.0F;
    depth.at(0, 0) = 0.0F;
    EXPECT_EQ(depthNormal(depth, 1, 1, 1), (RefVector{0, 0, 1}));
}

TEST(ReferenceNormal, TakesDifferencesOfDepthsInSinglePrecision)
{
    // 16777216 - 1.5 is 16777214.5, between the floats 16777214 and 16777215: the tie goes to the even 16777214.
    RefDepth depth = flat(1.0F);
    depth.at(2, 1) = 16777216.0F;
    depth.at(0, 1) = 1.5F;
    const double rise = 16777214.0;
    EXPECT_EQ(depthNormal(depth, 1, 1, 0), normalised(RefVector{-2.0 * rise, 0, 4}));
}

TEST(ReferenceEncoding, RoundsHalvesAwayFromZeroIn16Bit)
{
    EXPECT_EQ(encodeNormal16(0.0), 16384); // 16383.5
    EXPECT_EQ(encodeNormal16(1.0), 32767);
    EXPECT_EQ(encodeNormal16(-1.0), 0);
    EXPECT_EQ(encodeNormal16(-std::sqrt(0.5)), 4799); // 0.2928932 x 16383.5 = 4798.62
    EXPECT_EQ(encodeNormal16(5.0), 32767);
    EXPECT_EQ(encodeNormal16(-5.0), -32767); // -65534 is clamped to -32767
}

TEST(ReferenceEncoding, IsUnclampedInFloat)
{
    EXPECT_EQ(encodeNormalFloat(0.0), 0.5F);
    EXPECT_EQ(encodeNormalFloat(-1.0), 0.0F);
    EXPECT_EQ(encodeNormalFloat(3.0), 2.0F);
}

TEST(ReferenceDecoding, GivesBackAUnitVectorTowardsTheSignOfBlue)
{
    // 2 x 16384 / 32767 - 1 = 1 / 32767.
    const RefVector up = decodeNormal16(RefPixel16{16384, 16384, 0, 32767});
    EXPECT_DOUBLE_EQ(up.x, 2.0 * 16384.0 / 32767.0 - 1.0);
    EXPECT_NEAR(up.x, 3.05e-5, 1e-7);
    EXPECT_NEAR(up.z, 1.0, 1e-8);
    EXPECT_EQ(decodeNormal16(RefPixel16{16384, 16384, -1, 32767}).z, -up.z);

    // x = 0.6, y = 0: z = 0.8.
    expectNear(decodeNormalFloat(RefPixelFloat{0.8F, 0.5F, 0.0F, 1}), RefVector{0.6, 0, 0.8});
    expectNear(decodeNormalFloat(RefPixelFloat{0.8F, 0.5F, -0.1F, 1}), RefVector{0.6, 0, -0.8});
    expectNear(decodeNormalFloat(RefPixelFloat{0.8F, 0.5F, -0.0F, 1}), RefVector{0.6, 0, 0.8});
}

TEST(ReferenceDecoding, HasNoDepthWhereXAndYAreTooLong)
{
    EXPECT_EQ(decodeNormal16(RefPixel16{0, 0, 32767, 0}), (RefVector{-1, -1, 0}));
    EXPECT_EQ(decodeNormalFloat(RefPixelFloat{1, 1, 1, 0}), (RefVector{1, 1, 0}));
}

TEST(ReferenceStoredNormal, FailsOutsideAndOnEmptyPixels)
{
    RefImage16 normals(RefBox{0, 0, 2, 1});
    normals.at(0, 0) = RefPixel16{32767, 16384, 0, 0};
    normals.at(1, 0) = RefPixel16{32767, 16384, 0, 1};
    EXPECT_FALSE(storedNormal16(normals, 0, 0).has_value());
    EXPECT_TRUE(storedNormal16(normals, 1, 0).has_value());
    EXPECT_FALSE(storedNormal16(normals, 2, 0).has_value());
    EXPECT_FALSE(storedNormalFloat(RefImageFloat(RefBox{0, 0, 1, 1}), 0, 0).has_value());
}

TEST(ReferenceNormals, AreEmptyWhereTheDepthIsBlackAndMiddleWhereNoneCanBeComputed)
{
    RefDepth depth(RefBox{0, 0, 2, 1}, RefBox{0, 0, 9, 9}, 9, 9);
    depth.at(1, 0) = 3.0F;
    RefImage16 blurred(RefBox{0, 0, 2, 1});
    blurred.at(1, 0) = RefPixel16{5, 6, 7, 8};

    const RefImage16 normals = plainNormals16(depth, blurred, 0);
    EXPECT_EQ(normals.canvas, (RefBox{0, 0, 9, 9}));
    EXPECT_EQ(normals.at(0, 0), (RefPixel16{0, 0, 32767, 0}));
    EXPECT_EQ(normals.at(1, 0), (RefPixel16{16384, 16384, 7, 32767}));

    RefImageFloat blurredFloat(RefBox{0, 0, 2, 1});
    blurredFloat.at(1, 0).b = 0.25F;
    const RefImageFloat floats = plainNormalsFloat(depth, blurredFloat, 0);
    EXPECT_EQ(floats.at(0, 0), (RefPixelFloat{0, 0, 1, 0}));
    EXPECT_EQ(floats.at(1, 0), (RefPixelFloat{0.5F, 0.5F, 0.25F, 1}));
}

TEST(ReferenceNormals, HaveNoBlueWhereTheBlurIsMissing)
{
    EXPECT_EQ(plainNormals16(flat(4.0F), RefImage16(RefBox{0, 0, 1, 1}), 0).at(1, 1),
              (RefPixel16{16384, 16384, 0, 32767}));
}

TEST(ReferenceSmoothing, WeighsTheNeighboursWithoutReadingWhatItWrote)
{
    // Facing the viewer at (1, 1), to the right at (2, 1), no others.
    RefImageFloat normals(RefBox{0, 0, 4, 3});
    normals.at(1, 1) = RefPixelFloat{0.5F, 0.5F, 0.3F, 1};
    normals.at(2, 1) = RefPixelFloat{1.0F, 0.5F, 0.4F, 1};

    const RefImageFloat smoothed = smoothedNormalsFloat(normals);

    // (1, 1): 0.25 x (0, 0, 1) + 0.125 x (1, 0, 0), normalised (1, 0, 2) / sqrt(5): x = 0.447214, encoded 0.723607.
    EXPECT_NEAR(smoothed.at(1, 1).r, 0.723607, 1e-6);
    EXPECT_EQ(smoothed.at(1, 1).g, 0.5F);
    EXPECT_EQ(smoothed.at(1, 1).b, 0.3F);
    EXPECT_EQ(smoothed.at(1, 1).a, 1.0F);
    // (2, 1): 0.25 x (1, 0, 0) + 0.125 x (0, 0, 1): x = 0.894427, encoded 0.947214.
    EXPECT_NEAR(smoothed.at(2, 1).r, 0.947214, 1e-6);
    // Above (1, 1): 0.125 x (0, 0, 1) + 0.0625 x (1, 0, 0); an empty pixel that keeps its blue and alpha.
    EXPECT_NEAR(smoothed.at(1, 0).r, 0.723607, 1e-6);
    EXPECT_EQ(smoothed.at(1, 0).b, 0.0F);
    EXPECT_EQ(smoothed.at(1, 0).a, 0.0F);
    // (3, 2) has only (2, 1) in its neighbourhood, (0, 1) only (1, 1): their weights do not matter.
    EXPECT_EQ(smoothed.at(3, 2).r, 1.0F);
    EXPECT_EQ(smoothed.at(0, 1).r, 0.5F);
}

TEST(ReferenceSmoothing, LeavesAPixelWithoutAnyNormalAround)
{
    RefImage16 normals(RefBox{0, 0, 5, 1});
    for (RefPixel16& pixel : normals.pixels) {
        pixel = RefPixel16{0, 0, 32767, 0};
    }
    normals.at(0, 0) = RefPixel16{16384, 16384, 5, 32767};

    const RefImage16 smoothed = smoothedNormals16(normals);

    EXPECT_EQ(smoothed.at(0, 0), (RefPixel16{16384, 16384, 5, 32767}));
    EXPECT_EQ(smoothed.at(1, 0), (RefPixel16{16384, 16384, 32767, 0})) << "empty, but beside a normal";
    EXPECT_EQ(smoothed.at(2, 0), (RefPixel16{0, 0, 32767, 0})) << "empty and alone";
}

TEST(ReferenceSmoothing, LeavesAFloatPixelWithoutAnyNormalAround)
{
    RefImageFloat normals(RefBox{0, 0, 3, 1});
    normals.at(0, 0) = RefPixelFloat{0.25F, 0.5F, 0.3F, 1};
    normals.at(1, 0) = RefPixelFloat{0, 0, 1, 0};
    normals.at(2, 0) = RefPixelFloat{0, 0, 1, 0};
    const RefImageFloat smoothed = smoothedNormalsFloat(normals);
    EXPECT_EQ(smoothed.at(1, 0), (RefPixelFloat{0.25F, 0.5F, 1, 0}));
    EXPECT_EQ(smoothed.at(2, 0), (RefPixelFloat{0, 0, 1, 0}));
}

TEST(ReferenceNormals, AreSmoothedAtTheHighestQualityOnly)
{
    RefDepth depth = flat(10.0F);
    depth.at(2, 1) = 12.0F;
    const RefImage16 blurred(RefBox{0, 0, 3, 3});
    // Axis: (-4, 0, 4) x sqrt(1/32); diagonals flat: half of each is (-0.353553, 0, 0.853553), of length 0.923880:
    // x = -0.382683, encoded 0.617317 x 16383.5 = 10113.8. Around it only zero normals, which decode as facing the
    // viewer: (0.25 x -0.382683, 0, 0.25 x 0.923880 + 0.75) = (-0.095671, 0, 0.980970): x = -0.097067, 0.902933 x
    // 16383.5 = 14793.2.
    EXPECT_EQ(makeNormals16(depth, blurred, 1).at(1, 1).r, 10114);
    EXPECT_EQ(makeNormals16(depth, blurred, 3).at(1, 1).r, 10114);
    EXPECT_NEAR(makeNormals16(depth, blurred, 2).at(1, 1).r, 14793.2, 1.5);
}

} // namespace
} // namespace reference
