// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Normals on small depth pictures worked out by hand, and their blending.
#include "DepthSurface.h"
#include "RandomPictures.h"
#include "SmallPixmaps.h"

#include "MultiStageKvd/NormalParser.h"
#include "render/NormalBlend.h"
#include "render/NormalKernels.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <vector>

namespace {

constexpr std::int16_t kMiddle = 16384; // (0 + 1) x 0.5 x 32767 = 16383.5, away from zero

// A plane that rises by (a, b) a pixel, 7 x 7, far from black.
UT_SharedPtr<CEL_PixmapAreaZ> plane(float a, float b)
{
    const auto depth = filledDepth(7, 7, 0.0F);
    for (int y = 0; y < 7; ++y)
        for (int x = 0; x < 7; ++x)
            depth->at(x, y).value = 100.0F + a * static_cast<float>(x) + b * static_cast<float>(y);
    return depth;
}

Pixel16 normalAt(const CEL_PixmapAreaZ& depth, int x, int y, int quality = LOW_NORMAL_QUALITY)
{
    // An elevation of 76.5 / 32765 is stored as 77.
    return normalsOf<Pixel16>(DepthSurface(depth, 76.5F / 32765.0F), quality, depth.allocatedRect())->at(x, y);
}

std::int16_t encoded(double n)
{
    return static_cast<std::int16_t>(std::lround((n + 1.0) * 0.5 * 32767.0));
}

} // namespace

TEST(NormalMap, AFlatElevationFacesTheViewer)
{
    EXPECT_EQ(normalAt(*filledDepth(5, 5, 3.0F), 2, 2), (Pixel16{kMiddle, kMiddle, 77, 32767}));
}

TEST(NormalMap, ASlopeLeansAwayFromWhereItRises)
{
    // A rise of 1 a pixel to the right: the plane's normal is (-1, 0, 1) / sqrt(2).
    EXPECT_EQ(normalAt(*plane(1.0F, 0.0F), 3, 3).r, encoded(-std::sqrt(0.5)));
    EXPECT_EQ(normalAt(*plane(1.0F, 0.0F), 3, 3).g, kMiddle);
    EXPECT_EQ(normalAt(*plane(0.0F, 1.0F), 3, 3).g, encoded(-std::sqrt(0.5)));
}

TEST(NormalMap, EveryQualityFindsTheNormalOfAPlane)
{
    // (-1, -2, 1) / sqrt(6).
    for (const int quality : {LOW_NORMAL_QUALITY, MEDIUM_NORMAL_QUALITY, HIGH_NORMAL_QUALITY}) {
        const Pixel16 normal = normalAt(*plane(1.0F, 2.0F), 3, 3, quality);
        EXPECT_NEAR(normal.r, encoded(-1.0 / std::sqrt(6.0)), 1) << quality;
        EXPECT_NEAR(normal.g, encoded(-2.0 / std::sqrt(6.0)), 1) << quality;
    }
}

TEST(NormalMap, APixelThatMissesAnAxisNeighbourHasAZeroNormalStoredAsTheMiddle)
{
    const auto depth = plane(1.0F, 2.0F);
    EXPECT_EQ(normalAt(*depth, 0, 3), (Pixel16{kMiddle, kMiddle, 77, 32767})) << "no pixel on the left";
    depth->at(3, 2).value = 0.0F;
    EXPECT_EQ(normalAt(*depth, 3, 3), (Pixel16{kMiddle, kMiddle, 77, 32767})) << "the pixel above is black";
    EXPECT_EQ(normalAt(*depth, 3, 2), (Pixel16{0, 0, 32767, 0})) << "the black pixel itself is empty";
}

TEST(NormalMap, AtLowQualityOnlyTheAxisNeighboursMatter)
{
    const auto depth = plane(1.0F, 0.0F);
    const Pixel16 before = normalAt(*depth, 3, 3);
    depth->at(2, 2).value = 900.0F;
    EXPECT_EQ(normalAt(*depth, 3, 3), before);
    EXPECT_NE(normalAt(*depth, 3, 3, MEDIUM_NORMAL_QUALITY), before);
}

TEST(NormalMap, TheDiagonalsCountOnlyWhereAllFourArePresent)
{
    const auto depth = plane(1.0F, 0.0F);
    depth->at(2, 2).value = 900.0F;
    depth->at(4, 4).value = 0.0F;
    EXPECT_EQ(normalAt(*depth, 3, 3, MEDIUM_NORMAL_QUALITY), normalAt(*depth, 3, 3, LOW_NORMAL_QUALITY));
}

TEST(NormalMap, TwoSlopesThatNearlyCancelOutAreNotLevel)
{
    // The axes give a normal of x = -1 / sqrt(5), the diagonals one of x = 2 / sqrt(20 + 3.2e-8): their sum is
    // -3.6e-10, which single precision rounds to 0. It is stored just below the middle.
    const auto depth = filledDepth(3, 3, 100.0F);
    constexpr float kTilt = 9e-5F;
    depth->at(0, 1).value = 99.5F;
    depth->at(2, 1).value = 100.5F;
    depth->at(0, 0).value = 101.0F;
    depth->at(2, 2).value = 100.0F + kTilt;
    depth->at(2, 0).value = 100.0F;
    depth->at(0, 2).value = 101.0F + kTilt;
    EXPECT_EQ(normalAt(*depth, 1, 1, MEDIUM_NORMAL_QUALITY).r, kMiddle - 1);
}

TEST(NormalMap, StoredNormalsAreReadBackAsTheParserReadsThem)
{
    // Every third pixel has a left and a right neighbour whose difference leads to one of the 32768 codes, and equal
    // ones above and below; without diagonals only these count.
    constexpr std::size_t kCodes = 32768;
    constexpr std::size_t kWidth = 3 * kCodes;
    std::vector<float> here(kWidth);
    std::vector<float> beside(kWidth, 0.0F);
    for (std::size_t code = 0; code < kCodes; ++code) {
        const double n = std::clamp(2.0 * static_cast<double>(code) / 32767.0 - 1.0, -0.9999999, 0.9999999);
        here[3 * code] = 1e-6F;
        here[3 * code + 1] = 1.0F;
        here[3 * code + 2] = static_cast<float>(1e-6 - 2.0 * n / std::sqrt(1.0 - n * n));
        beside[3 * code + 1] = 1.0F;
    }
    const std::size_t count = kWidth - 2;
    const VolumeRowKernels::DepthRows depth{beside.data() + 1, here.data() + 1, beside.data() + 1};
    const std::vector<float> share(count);
    std::vector<Pixel16> pixels(count);
    VolumeRowKernels::storeNormals(depth, true, share.data(), pixels);
    std::vector<float> x(count);
    std::vector<float> y(count);
    std::vector<float> z(count);
    VolumeRowKernels::readBackNormals(depth, count, VolumeRowKernels::NormalRow<float>{x.data(), y.data(), z.data()});
    std::set<std::int16_t> codes;
    for (std::size_t i = 0; i < count; i += 3) {
        const Math::Vector3d expected = NormalParser_decode(pixels[i]);
        ASSERT_NEAR(x[i], 32767.0 * expected.x, 1e-9) << pixels[i].r;
        ASSERT_NEAR(y[i], 32767.0 * expected.y, 1e-9);
        ASSERT_NEAR(z[i], 32767.0 * expected.z, 1.2e-7 * z[i] + 1e-9);
        ASSERT_GT(z[i], 0.0F) << "there is a normal";
        codes.insert(pixels[i].r);
    }
    EXPECT_GE(codes.size(), kCodes - 300) << "all but some of the steepest";
}

TEST(NormalMap, SmoothingLeavesAPixelWithoutAnyNormalAround)
{
    EXPECT_EQ(normalAt(*filledDepth(3, 3, 0.0F), 1, 1, HIGH_NORMAL_QUALITY), (Pixel16{0, 0, 32767, 0}));
}

TEST(NormalMap, SmoothingGivesAnEmptyPixelItsNeighboursNormalButNeitherBlueNorAlpha)
{
    const auto depth = filledDepth(3, 1, 0.0F);
    depth->at(0, 0).value = 5.0F;
    // The only sample is a pixel without a slope, stored as the middle: it decodes to x = y = 1 / 32767.
    EXPECT_EQ(normalAt(*depth, 1, 0, HIGH_NORMAL_QUALITY), (Pixel16{kMiddle, kMiddle, 32767, 0}));
    EXPECT_EQ(normalAt(*depth, 2, 0, HIGH_NORMAL_QUALITY), (Pixel16{0, 0, 32767, 0})) << "out of its reach";
}

TEST(NormalMap, SmoothingWeighsTheNineNormalsAsABinomialDoes)
{
    // Level pixels beside a wall that rises to the right by 2 a pixel, from column 4 on: a normal there is (-2, 0, 1) /
    // sqrt(5), and at column 3, between both, that of a rise of 1: (-1, 0, 1) / sqrt(2).
    const auto depth = filledDepth(9, 5, 1.0F);
    for (int y = 0; y < 5; ++y)
        for (int x = 4; x < 9; ++x)
            depth->at(x, y).value = 1.0F + 2.0F * static_cast<float>(x - 3);
    // Columns weigh 1/4, 1/2, 1/4.
    const double x = -0.5 / std::sqrt(2.0) - 0.25 * 2.0 / std::sqrt(5.0);
    const double z = 0.25 + 0.5 / std::sqrt(2.0) + 0.25 / std::sqrt(5.0);
    EXPECT_NEAR(normalAt(*depth, 3, 2, HIGH_NORMAL_QUALITY).r, encoded(x / std::hypot(x, z)), 2);
}

TEST(NormalMap, BandsAreTheRowsOfTheWhole)
{
    RandomPictures random(3);
    const auto depth = filledDepth(9, 14, 0.0F);
    for (int y = 0; y < 14; ++y)
        for (int x = 0; x < 9; ++x)
            depth->at(x, y).value = random.chance(5) ? 0.0F : static_cast<float>(random.real(0.5, 9.0));
    const DepthSurface surface(*depth, 0.25F);
    for (const int quality : {LOW_NORMAL_QUALITY, MEDIUM_NORMAL_QUALITY, HIGH_NORMAL_QUALITY})
        for (const int rows : {1, 2, 5, 14, 100}) {
            const auto whole = normalsOf<PixelFloat>(surface, quality, depth->allocatedRect());
            int next = 0;
            buildNormalBands<PixelFloat>(surface, quality, *whole, rows, [&](const auto& pixels) {
                const auto band = pixels.template dynamicCast<CEL_PixmapAreaRGBAFloat>();
                ASSERT_EQ(band->allocatedRect(), Math::Box2di(0, next, 9, std::min(next + rows, 14)));
                for (; next < band->allocatedRect().y2; ++next)
                    ASSERT_TRUE(std::ranges::equal(band->row(next), whole->row(next))) << rows << ' ' << next;
            });
            EXPECT_EQ(next, 14);
        }
}

TEST(NormalMap, MirroredDepthsGiveMirroredNormals)
{
    const auto depth = filledDepth(7, 5, 1.0F);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 7; ++x)
            depth->at(x, y).value = 1.0F + static_cast<float>((x * 7 + y * 3) % 5);
    const auto mirrored = filledDepth(7, 5, 1.0F);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 7; ++x)
            mirrored->at(6 - x, y).value = depth->at(x, y).value;
    for (int y = 1; y < 4; ++y)
        for (int x = 1; x < 6; ++x) {
            const Pixel16 a = normalAt(*depth, x, y);
            const Pixel16 b = normalAt(*mirrored, 6 - x, y);
            EXPECT_NEAR(a.r + b.r, 32767, 1);
            EXPECT_EQ(a.g, b.g);
        }
}

TEST(NormalBlend, OverAnEmptyPixelTheObjectTakesItsPlace)
{
    Pixel16 out{1, 2, 3, 0};
    blendNormal<Pixel16>(out, {100, 200, 300, 32767}, 0.5, 9);
    EXPECT_EQ(out, (Pixel16{100, 200, 9, 16383})) << "0.5 x 32767 = 16383.5, truncated";
}

TEST(NormalBlend, EveryAlphaThatIsNotSaturatedReplacesAsItself)
{
    // The composition relies on it: a / 32767 x 32767, truncated, is a.
    for (int a = 1; a <= 32767; ++a) {
        const auto alpha = static_cast<std::int16_t>(a);
        const double coverage = VolumeTraits<Pixel16>::coverageOf(alpha);
        ASSERT_EQ(VolumeTraits<Pixel16>::isSaturated(alpha), coverage >= 0.99) << a;
        if (!VolumeTraits<Pixel16>::isSaturated(alpha)) {
            ASSERT_EQ(VolumeTraits<Pixel16>::fullAlpha(coverage), alpha);
        }
    }
}

TEST(NormalBlend, FullCoverageReplaces)
{
    Pixel16 out{1, 2, 3, 32767};
    blendNormal<Pixel16>(out, {100, 200, 300, 32767}, 1.0, 9);
    EXPECT_EQ(out, (Pixel16{100, 200, 9, 32767}));
}

TEST(NormalBlend, NothingChangesWithoutCoverage)
{
    Pixel16 out{1, 2, 3, 4};
    blendNormal<Pixel16>(out, {100, 200, 300, 32767}, 0.0, 9);
    EXPECT_EQ(out, (Pixel16{1, 2, 3, 4}));
}

TEST(NormalBlend, ANegativeBlueTurnsTheDecodedNormalAway)
{
    EXPECT_GT(NormalParser_decode(Pixel16{kMiddle, kMiddle, 5, 32767}).z, 0.99);
    EXPECT_LT(NormalParser_decode(Pixel16{kMiddle, kMiddle, -5, 32767}).z, -0.99);
}

TEST(NormalBlend, ABlendedFloatAlphaIsZeroUnlessTheSumReachesOne)
{
    PixelFloat partly{0.5F, 0.5F, 0.0F, 0.5F};
    blendNormal<PixelFloat>(partly, {0.5F, 0.5F, 0.0F, 1.0F}, 0.5, 0.0F);
    EXPECT_EQ(partly.a, 0.0F) << "0.5 x 0.5 + 0.5 = 0.75, truncated";
    PixelFloat fully{0.5F, 0.5F, 0.0F, 1.0F};
    blendNormal<PixelFloat>(fully, {0.5F, 0.5F, 0.0F, 1.0F}, 0.5, 0.0F);
    EXPECT_EQ(fully.a, 1.0F) << "0.5 x 1 + 0.5 = 1";
}

TEST(NormalBlend, MixesNormalsByCoverage)
{
    // (1, 0, 0) and (0, 0, 1) in equal parts: (0.7071, 0, 0.7071).
    PixelFloat out{1.0F, 0.5F, 0.0F, 1.0F};
    blendNormal<PixelFloat>(out, {0.5F, 0.5F, 0.0F, 1.0F}, 0.5, 0.25F);
    EXPECT_NEAR(out.r, (std::sqrt(0.5) + 1.0) * 0.5, 1e-7);
    EXPECT_EQ(out.g, 0.5F);
    EXPECT_EQ(out.b, 0.25F);
}
