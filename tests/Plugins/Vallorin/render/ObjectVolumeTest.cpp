// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pipeline of one object, with values worked out by hand.
#include "DepthSurface.h"
#include "SmallPixmaps.h"

#include "render/ObjectVolume.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

// A reference picture of the object's size without pixels.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapArea> blankLike(const CEL_PixmapOf<Pixel>& pixmap)
{
    return UT_makeShared<CEL_PixmapOf<Pixel>>(pixmap.size(), pixmap.canvasRect());
}

struct Settings
{
    double bevel = 0.0;
    bool generateNormals = false;
    bool clip = true;
    double elevation = 1.0;
    double smoothness = 1.0;
    int quality = 0;
};

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> build(const UT_SharedPtr<CEL_PixmapOf<Pixel>>& object, const Settings& settings,
                                        std::pair<float, float>& range)
{
    return buildObjectVolume(blankLike<Pixel>(*object), settings.bevel, object->size().width, settings.generateNormals,
                             settings.elevation, object, range, settings.quality, settings.smoothness, settings.clip)
        .pixels.template dynamicCast<CEL_PixmapOf<Pixel>>();
}

// The depths of a row of blurred values.
template<typename Pixel = Pixel16>
std::vector<float> depthsOf(const std::vector<float>& values, double high, double smoothness)
{
    const int width = static_cast<int>(values.size());
    const auto blurred = filledDepth(width, 1, 0.0F);
    for (int x = 0; x < width; ++x)
        blurred->at(x, 0).value = values[static_cast<std::size_t>(x)];
    const ElevationPlane plane = measure(blurred);
    std::vector<float> shares(values.size());
    std::vector<float> depths(values.size());
    BevelSurface(plane, plane.inside, profileOf<Pixel>(plane, smoothness), high).row(0, shares.data(), depths.data());
    return depths;
}

float depthOf(float value, float lowest, float highest, double high, double smoothness)
{
    return depthsOf({lowest, value, highest}, high, smoothness)[1];
}

} // namespace

TEST(ObjectVolume, WithoutABevelTheCroppedMaskGoesOnAsItIs)
{
    const auto object = filled<Pixel16>(9, 9, {});
    object->at(4, 4) = {20000, 0, 0, 32767};
    for (const double bevel : {0.0, -3.0}) {
        std::pair<float, float> range;
        const auto result = build<Pixel16>(object, {.bevel = bevel}, range);
        ASSERT_TRUE(result);
        EXPECT_EQ(result->allocatedRect(), Math::Box2di(2, 2, 7, 7)) << "the pixel and 2 around it";
        EXPECT_EQ(result->at(4, 4), (Pixel16{20000, 0, 0, 32767}));
        EXPECT_EQ(result->at(3, 4), (Pixel16{0, 0, 0, 32767})) << "neither blurred nor clipped";
    }
}

TEST(ObjectVolume, AMaskWithoutPositiveValuesKeepsTheStartValuesOfTheRange)
{
    std::pair<float, float> range;
    const auto result = build<Pixel16>(filled<Pixel16>(4, 4, {0, 0, 0, 32767}), {}, range);
    ASSERT_TRUE(result);
    EXPECT_EQ(range, std::make_pair(32767.0F, -1.0F / 65534.0F));
}

TEST(ObjectVolume, ABlurredPictureWithoutPositiveValuesIsBlackAllOver)
{
    EXPECT_EQ(depthsOf({0.0F, -5.0F, 0.0F}, 10.0, 1.0), (std::vector<float>{0.0F, 0.0F, 0.0F}));
    std::pair<float, float> range;
    const auto result = build<Pixel16>(filled<Pixel16>(3, 3, {-7, 0, 0, 32767}), {.generateNormals = true}, range);
    ASSERT_TRUE(result);
    EXPECT_EQ(range, std::make_pair(0.0F, 1.0F));
}

TEST(ObjectVolume, AMaskOfOneValueMapsToZero)
{
    std::pair<float, float> range;
    build<Pixel16>(filled<Pixel16>(4, 4, {12345, 0, 0, 32767}), {}, range);
    EXPECT_EQ(range, std::make_pair(12345.0F, 1.0F)) << "(12345 - 12345) x 1 is 0";
}

TEST(ObjectVolume, ARangeRunsFromTheLowestToTheHighestPositiveValue)
{
    const auto object = filled<Pixel16>(2, 2, {100, 0, 0, 32767});
    object->at(0, 0).r = 1100;
    object->at(1, 0).r = -500;
    std::pair<float, float> range;
    build<Pixel16>(object, {}, range);
    EXPECT_EQ(range, std::make_pair(100.0F, 1.0F / 1000.0F));
}

TEST(ObjectVolume, SmoothnessZeroAndOneLeaveTheProfileLinear)
{
    // x = (2600 - 100) / 10000 = 0.25 in single precision, times a height of 8.
    for (const double smoothness : {0.0, 1.0})
        EXPECT_NEAR(depthOf(2600, 100, 10100, 8.0, smoothness), 2.0, 1e-6);
}

TEST(ObjectVolume, SmoothnessTwoMakesTheProfileASquareRoot)
{
    EXPECT_NEAR(depthOf(2600, 100, 10100, 8.0, 2.0), 4.0, 1e-6);
}

TEST(ObjectVolume, ANegativeSmoothnessCountsAsZero)
{
    EXPECT_EQ(depthOf(2600, 100, 10100, 8.0, -3.0), depthOf(2600, 100, 10100, 8.0, 0.0));
    EXPECT_EQ(depthOf(2600, 100, 10100, 8.0, std::nan("")), depthOf(2600, 100, 10100, 8.0, 0.0));
}

TEST(ObjectVolume, AFloatThatIsNaNHasNoDepthAndLeavesTheOthersTheirs)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const double smoothness : {1.0, 2.0}) {
        EXPECT_EQ(depthsOf<PixelFloat>({0.5F, nan, 1.0F, nan}, 8.0, smoothness), (std::vector{0.0F, 0.0F, 8.0F, 0.0F}));
        std::vector<float> many(40, nan);
        many[33] = 0.5F;
        many[35] = 1.0F;
        std::vector<float> expected(40, 0.0F);
        expected[35] = 8.0F;
        EXPECT_EQ(depthsOf<PixelFloat>(many, 8.0, smoothness), expected) << "in whole vectors, too";
    }
}

TEST(ObjectVolume, ElevationIsStoredInBlueFromOneTo32766)
{
    // Three values in a row, and a pixel without a value.
    const auto object = filled<Pixel16>(4, 1, {100, 0, 0, 32767});
    object->at(1, 0).r = 200;
    object->at(2, 0).r = 0;
    object->at(3, 0).r = 150;
    std::pair<float, float> range;
    const auto result = build<Pixel16>(object, {.generateNormals = true}, range);
    // x = 100 x (1 / 100) in single precision is 1, and half of it stores trunc(0.5 x 32765 + 1).
    EXPECT_EQ(result->at(1, 0).b, 32766);
    EXPECT_EQ(result->at(3, 0).b, 16383);
    // The lowest value has a depth of 0, which is black.
    EXPECT_EQ(result->at(0, 0), (Pixel16{0, 0, 32767, 0}));
    EXPECT_EQ(result->at(2, 0), (Pixel16{0, 0, 32767, 0})) << "no elevation, nothing stored";
}

TEST(ObjectVolume, BlurredValuesAreRoundedToWholeOnesIn16BitsAlone)
{
    const auto plane = [] {
        const auto values = filledDepth(5, 1, 0.0F);
        const float row[] = {2.5F, -2.5F, 0.49F, 40000.0F, 7.2F};
        for (int x = 0; x < 5; ++x)
            values->at(x, 0).value = row[x];
        return values;
    };
    const auto rounded = plane();
    const ElevationPlane clipped = roundAndClip<Pixel16>(rounded, nullptr);
    const float expected[] = {3.0F, -3.0F, 0.0F, 32767.0F, 7.0F};
    for (int x = 0; x < 5; ++x)
        EXPECT_EQ(rounded->at(x, 0).value, expected[x]) << x;
    EXPECT_EQ(clipped.span.lowest, 3.0F);
    EXPECT_EQ(clipped.span.highest, 32767.0F);
    EXPECT_EQ(roundAndClip<PixelFloat>(plane(), nullptr).span.lowest, 0.49F);
}

TEST(ObjectVolume, KnowsTheColumnsThatAreElevated)
{
    const auto values = filledDepth(70, 3, 0.0F);
    values->at(21, 0).value = 5.0F;
    values->at(64, 0).value = 1.0F;
    values->at(69, 2).value = 9.0F;
    const ElevationPlane plane = measure(values);
    EXPECT_EQ(plane.elevated[0].first, 21);
    EXPECT_EQ(plane.elevated[0].end, 65);
    EXPECT_TRUE(plane.elevated[1].isEmpty());
    EXPECT_EQ(plane.elevated[2].first, 69);
    EXPECT_EQ(plane.elevated[2].end, 70);
}

TEST(ObjectVolume, ACanvasTwiceAsWideIsTwiceAsDeep)
{
    // A ramp from 1 to full over the picture: its slope is height / steps, the height 37.5 x width / 720. On a canvas
    // twice as wide with the same steps, the slope doubles, so x / z of the normal does.
    const auto slopeOn = [](int canvasWidth) {
        auto object =
            UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{canvasWidth, 5}, Math::Box2di(0, 0, canvasWidth, 5));
        object->realloc({0, 0, 11, 5}, true);
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 11; ++x)
                object->at(x, y) = {static_cast<std::int16_t>(1000 * (x + 1)), 0, 0, 32767};
        std::pair<float, float> range;
        const auto normals = build<Pixel16>(object, {.generateNormals = true, .elevation = 0.5}, range);
        const double x = 2.0 * normals->at(5, 2).r / 32767.0 - 1.0;
        return x / std::sqrt(1.0 - x * x);
    };
    EXPECT_NEAR(slopeOn(1440) / slopeOn(720), 2.0, 1e-3);
    // 0.5 x 37.5 over 10 steps, on a canvas of 720: 1.875 a pixel, leaning left.
    EXPECT_NEAR(slopeOn(720), -1.875, 1e-3);
}

TEST(ObjectVolume, ClippingKeepsTheBlurWithinTwoPixelsOfTheGeometry)
{
    const auto object = filled<Pixel16>(41, 41, {});
    for (int y = 18; y <= 22; ++y)
        for (int x = 18; x <= 22; ++x)
            object->at(x, y) = {32767, 0, 0, 32767};
    std::pair<float, float> range;
    const auto clipped = build<Pixel16>(object, {.bevel = 120.0, .clip = true}, range);
    const auto unclipped = build<Pixel16>(object, {.bevel = 120.0, .clip = false}, range);
    EXPECT_GT(clipped->at(16, 20).r, 0);
    EXPECT_EQ(clipped->at(15, 20), Pixel16{});
    EXPECT_GT(unclipped->at(15, 20).r, 0);
}

namespace {

// The volume of a full square of 5 x 5 pixels at (30, 30) on a canvas of 72 x 72, where a bevel of 120 is a blur with a
// sigma of 3 pixels, which reaches 12 pixels further.
ObjectVolume squareVolume(bool clip, const Math::Box2di& referenceRect, bool inBands = false, bool normals = true)
{
    constexpr int kSide = 72;
    const Math::Box2di canvas(0, 0, kSide, kSide);
    auto object = UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{kSide, kSide}, canvas);
    object->realloc({30, 30, 35, 35}, false);
    for (int y = 30; y < 35; ++y)
        std::ranges::fill(object->row(y), Pixel16{32767, 0, 0, 32767});
    auto reference = UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{kSide, kSide}, canvas);
    reference->realloc(referenceRect, true);
    std::pair<float, float> range;
    return buildObjectVolume(reference, 120.0, kSide, normals, 1.0, {object, {}, object->allocatedRect()}, range, 2,
                             1.0, clip, {}, {}, inBands);
}

} // namespace

TEST(ObjectVolume, OfWhatALongBlurReachesOnlyTheVisiblePartIsHeld)
{
    const ObjectVolume volume = squareVolume(true, {});
    EXPECT_EQ(volume.rect, Math::Box2di(16, 16, 49, 49)) << "the square with the crop's margin of 2, grown by 12";
    EXPECT_EQ(volume.pixels->allocatedRect(), Math::Box2di(26, 26, 39, 39))
        << "2 of the crop's margin, and 2 for the clip and the normals beside it";
    EXPECT_EQ(squareVolume(false, {}).pixels->allocatedRect(), volume.rect) << "without a clip everything counts";
}

TEST(ObjectVolume, WhereTheReferenceHasPixelsAllOfTheResultIsHeld)
{
    const ObjectVolume volume = squareVolume(true, {60, 40, 62, 42});
    EXPECT_EQ(volume.rect, Math::Box2di(16, 16, 62, 49));
    EXPECT_EQ(volume.pixels->allocatedRect(), volume.rect);
}

TEST(ObjectVolume, WhatIsHeldDoesNotChangeItsPixels)
{
    const auto held = squareVolume(true, {}).pixels.dynamicCast<CEL_PixmapAreaRGBA16>();
    const auto whole = squareVolume(true, {60, 40, 62, 42}).pixels.dynamicCast<CEL_PixmapAreaRGBA16>();
    const Math::Box2di& rect = whole->allocatedRect();
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x)
            EXPECT_EQ(whole->at(x, y), held->find(x, y) ? held->at(x, y) : (Pixel16{0, 0, 32767, 0})) << x << ' ' << y;
}

TEST(ObjectVolume, ComesInBandsWhereThatIsAskedFor)
{
    const auto whole = squareVolume(true, {}).pixels.dynamicCast<CEL_PixmapAreaRGBA16>();
    const ObjectVolume volume = squareVolume(true, {}, true);
    EXPECT_EQ(volume.rect, Math::Box2di(16, 16, 49, 49));
    EXPECT_FALSE(volume.pixels);
    ASSERT_TRUE(volume.bands);
    int rows = 0;
    volume.bands([&](const auto& pixels) {
        const auto band = pixels.template dynamicCast<CEL_PixmapAreaRGBA16>();
        for (int y = band->allocatedRect().y1; y < band->allocatedRect().y2; ++y, ++rows)
            EXPECT_TRUE(std::ranges::equal(band->row(y), whole->row(y))) << y;
    });
    EXPECT_EQ(rows, whole->allocatedRect().height());
    EXPECT_FALSE(squareVolume(true, {}, true, false).bands) << "without normals, there are no bands";
}

TEST(ObjectVolume, IsNoneWithoutPixelsOrInMixedFormats)
{
    std::pair<float, float> range{5.0F, 6.0F};
    const auto empty = UT_makeShared<CEL_PixmapAreaRGBA16>(Math::Size2di{4, 4}, Math::Box2di(0, 0, 4, 4));
    EXPECT_FALSE(build<Pixel16>(empty, {}, range));
    EXPECT_EQ(range, std::make_pair(5.0F, 6.0F)) << "the range stays";
    const auto object16 = filled<Pixel16>(2, 2, {1, 0, 0, 1});
    const auto objectFloat = filled<PixelFloat>(2, 2, {1, 0, 0, 1});
    EXPECT_FALSE(buildObjectVolume(object16, 0, 2, false, 1, objectFloat, range, 0, 1, true).pixels);
    EXPECT_FALSE(buildObjectVolume(nullptr, 0, 2, false, 1, object16, range, 0, 1, true).pixels);
    EXPECT_FALSE(buildObjectVolume(object16, 0, 2, false, 1, nullptr, range, 0, 1, true).pixels);
}

TEST(ObjectVolume, GrowsToTheReferencePicture)
{
    const auto object = filled<Pixel16>(9, 9, {});
    object->at(4, 4) = {1, 0, 0, 32767};
    const auto reference = filled<Pixel16>(9, 9, {});
    std::pair<float, float> range;
    EXPECT_EQ(buildObjectVolume(reference, 0, 9, false, 1, object, range, 0, 1, true).rect, Math::Box2di(0, 0, 9, 9));
}

TEST(ObjectVolume, IsNoneWhereTheBlurCannotReach)
{
    // Blurs are limited to coordinates of 2^28; this object lies just before that.
    constexpr int kEnd = 1 << 28;
    CEL_PixmapAreaRGBA16 object({kEnd, 4}, {0, 0, kEnd, 4});
    object.realloc({kEnd - 4, 0, kEnd, 4}, true);
    object.at(kEnd - 2, 2) = {32767, 0, 0, 32767};
    std::pair<float, float> range{5.0F, 6.0F};
    const auto accumulator = object.clone();
    EXPECT_FALSE(buildObjectVolume(accumulator, 100.0, 7200, true, 1.0, accumulator, range, 0, 1.0, true).pixels);
    EXPECT_EQ(range, std::make_pair(5.0F, 6.0F)) << "the range stays";
}
