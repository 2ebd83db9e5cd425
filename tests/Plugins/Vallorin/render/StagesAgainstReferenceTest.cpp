// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Every stage of the render against its slow reference, on thousands of random pictures in both formats.
#include "DepthSurface.h"
#include "RandomPictures.h"
#include "ReferenceFormat.h"

#include "render/CoverageMask.h"
#include "render/CoverageMerge.h"
#include "render/LevelMerge.h"
#include "render/NormalBlend.h"

#include <gtest/gtest.h>

namespace {

constexpr std::uint32_t kPictures = 2000;
const Math::Box2di kCanvas(-4, -3, 30, 25);

template<typename Pixel>
class Stage : public testing::Test
{
public:
    using Reference = ReferenceFormat<Pixel>;
};

using Formats = testing::Types<CEL_PixelRGBA16, CEL_PixelRGBAFloat>;
TYPED_TEST_SUITE(Stage, Formats);

// Compares a plane, which is 0 outside a box, with one channel of a picture of the reference.
template<typename Pixel>
testing::AssertionResult agreesInRed(const RefPictureOf<Pixel>& expected, const CEL_PixmapAreaZ& plane,
                                     const Math::Box2di& inside)
{
    const auto valueAt = [&](int x, int y) { return inside.contains(x, y) ? plane.at(x, y).value : 0.0F; };
    if (!(fromRef(expected.box) == plane.allocatedRect()))
        return testing::AssertionFailure() << "another rectangle";
    for (int y = expected.box.y1; y < expected.box.y2; ++y)
        for (int x = expected.box.x1; x < expected.box.x2; ++x)
            if (static_cast<float>(expected.at(x, y).r) != valueAt(x, y))
                return testing::AssertionFailure()
                       << x << ", " << y << ": " << valueAt(x, y) << " instead of " << expected.at(x, y).r;
    return testing::AssertionSuccess();
}

// A picture's red as a surface, made as the volume makes it.
template<typename Pixel>
struct SurfaceOfRed
{
    SurfaceOfRed(const CEL_PixmapOf<Pixel>& picture, double high, double smoothness)
        : plane(measure(planeOfRed<Pixel>(picture)))
        , surface(plane, plane.inside, profileOf<Pixel>(plane, smoothness), high)
    {}

    // The depths, as a picture.
    reference::RefDepth depths(const RefPictureOf<Pixel>& like) const
    {
        reference::RefDepth result(like.box, like.canvas, like.width, like.height);
        const auto width = static_cast<std::size_t>(surface.rect().width());
        for (int y = like.box.y1; y < like.box.y2; ++y) {
            std::vector<float> share(width);
            std::vector<float> depth(width);
            surface.row(y, share.data(), depth.data());
            for (int x = like.box.x1; x < like.box.x2; ++x)
                result.at(x, y) = depth[static_cast<std::size_t>(x - like.box.x1)];
        }
        return result;
    }

    ElevationPlane plane;
    BevelSurface surface;
};

// Fails with the first difference between depths; ignores the declared ranges, which affect no pixel.
testing::AssertionResult agree(reference::RefDepth expected, const reference::RefDepth& actual)
{
    expected.rangeLow = actual.rangeLow;
    expected.rangeHigh = actual.rangeHigh;
    const std::string differences = reference::differences(expected, actual, 0.0);
    return differences.empty() ? testing::AssertionSuccess() : testing::AssertionFailure() << differences;
}

// The reference continues from its own depths. It does not clamp their height to 1e38, so this function does.
template<typename Pixel, typename Reference>
testing::AssertionResult normalsAgree(const CEL_PixmapOf<Pixel>& blurred, double high, int quality,
                                      double tolerance = kNormalsInFloat)
{
    auto expectedBlurred = toRef<Pixel>(blurred);
    const auto depth = Reference::makeDepth(expectedBlurred, 0.0, std::clamp(high, -1e38, 1e38), 1.0);
    const auto expected = Reference::makeNormals(depth, expectedBlurred, quality);
    const SurfaceOfRed<Pixel> ours(blurred, high, 1.0);
    return agrees<Pixel>(expected, *normalsOf<Pixel>(ours.surface, quality, blurred.canvasRect()), tolerance);
}

} // namespace

TYPED_TEST(Stage, MergingIntoAnAccumulatorAgreesWithTheReference)
{
    for (std::uint32_t seed = 0; seed < kPictures; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        CEL_PixmapOf<TypeParam> accumulator({34, 28}, kCanvas);
        auto expected = toRef<TypeParam>(accumulator);
        for (int inputs = random.whole(1, 3); inputs > 0; --inputs) {
            const auto input = random.picture<TypeParam>(random.box(12, 24), kCanvas);
            mergeCoverage<TypeParam>(accumulator, *input);
            TestFixture::Reference::accumulate(expected, toRef<TypeParam>(*input));
        }
        ASSERT_TRUE(agrees<TypeParam>(expected, accumulator));
    }
}

TYPED_TEST(Stage, PreparingTheMaskAgreesWithTheReference)
{
    for (std::uint32_t seed = 0; seed < kPictures; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const auto pixmap = random.picture<TypeParam>(random.box(12, 24), kCanvas);
        const auto expected = TestFixture::Reference::makeMask(toRef<TypeParam>(*pixmap));
        const auto mask = makeMask<TypeParam>(*pixmap);
        ASSERT_EQ(static_cast<bool>(mask), expected.has_value());
        if (expected) {
            ASSERT_TRUE(agreesInRed<TypeParam>(*expected, *mask, mask->allocatedRect()));
        }
    }
}

TYPED_TEST(Stage, ClippingWithGeometryAgreesWithTheReferenceAtEveryWidth)
{
    for (std::uint32_t seed = 0; seed < kPictures; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const int width = static_cast<int>(seed % 64) + 1;
        const Math::Box2di rect(random.whole(-9, 9), random.whole(-9, 9), 0, 0);
        const auto blurred = random.picture<TypeParam>(
            Math::Box2di(rect.x1, rect.y1, rect.x1 + width, rect.y1 + random.whole(1, 12)), kCanvas);
        auto mask = random.picture<TypeParam>(random.box(12, 8), kCanvas);
        auto expected = toRef<TypeParam>(*blurred);
        // A mask has geometry in red alone.
        for (int y = mask->allocatedRect().y1; y < mask->allocatedRect().y2; ++y)
            for (TypeParam& pixel : mask->row(y))
                pixel.g = 0;
        TestFixture::Reference::clipToGeometry(expected, toRef<TypeParam>(*mask));
        // -32768, which no blur gives, would be rounded to -32767.
        for (auto& pixel : expected.pixels)
            pixel.r = std::max<decltype(pixel.r)>(pixel.r, -32767);
        const auto values = planeOfRed<TypeParam>(*blurred);
        const ElevationPlane clipped = roundAndClip<TypeParam>(values, planeOfRed<TypeParam>(*mask).get());
        ASSERT_TRUE(agreesInRed<TypeParam>(expected, *clipped.values, clipped.inside));
    }
}

TYPED_TEST(Stage, BuildingTheDepthAgreesWithTheReference)
{
    for (std::uint32_t seed = 0; seed < kPictures; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const auto blurred = random.picture<TypeParam>(random.box(12, 24), kCanvas);
        const double high = random.real(-100.0, 100.0);
        const double smoothness = random.chance(3) ? random.whole(-1, 2) : random.real(0.1, 8.0);
        auto expectedBlurred = toRef<TypeParam>(*blurred);
        const auto expected = TestFixture::Reference::makeDepth(expectedBlurred, 0.0, high, smoothness);
        const SurfaceOfRed<TypeParam> ours(*blurred, high, smoothness);
        ASSERT_TRUE(agree(expected, ours.depths(expectedBlurred)));
    }
}

TYPED_TEST(Stage, TakingEachValuesPowerOnceAgreesWithTheReference)
{
    // Few values over many pixels: 1 to 200 on the channel's scale, and some outside the span.
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const auto blurred = random.picture<TypeParam>({-3, 2, 37, 30}, kCanvas);
        for (int y = 2; y < 30; ++y)
            for (TypeParam& pixel : blurred->row(y))
                pixel.r = static_cast<decltype(pixel.r)>(random.whole(-5, 200));
        const double smoothness = random.real(0.1, 8.0);
        auto expectedBlurred = toRef<TypeParam>(*blurred);
        const auto expected = TestFixture::Reference::makeDepth(expectedBlurred, 0.0, 37.5, smoothness);
        const SurfaceOfRed<TypeParam> ours(*blurred, 37.5, smoothness);
        ASSERT_TRUE(agree(expected, ours.depths(expectedBlurred)));
    }
}

TYPED_TEST(Stage, DerivingNormalsAgreesWithTheReferenceAtEveryQuality)
{
    for (std::uint32_t seed = 0; seed < kPictures; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const auto blurred = random.picture<TypeParam>(random.box(12, 24), kCanvas);
        const double high = random.real(-40.0, 40.0);
        const int quality = random.whole(-1, 3);
        ASSERT_TRUE((normalsAgree<TypeParam, typename TestFixture::Reference>(*blurred, high, quality)));
    }
}

TYPED_TEST(Stage, DerivingNormalsAgreesWithTheReferenceAtEveryWidth)
{
    for (int width = 1; width <= 300; width += width < 140 ? 1 : 7)
        for (int quality = 0; quality <= 2; ++quality) {
            SCOPED_TRACE(testing::Message() << width << " wide, quality " << quality);
            RandomPictures random(static_cast<std::uint32_t>(width * 3 + quality));
            const auto blurred = random.picture<TypeParam>({-5, -2, width - 5, 3}, kCanvas);
            ASSERT_TRUE((normalsAgree<TypeParam, typename TestFixture::Reference>(*blurred, 20.0, quality)));
        }
}

TYPED_TEST(Stage, SteepAndFaintSlopesAgreeWithTheReference)
{
    for (const double height : {1e-38, 1e-12, 1e-4, 1e4, 1e12, 1e38, 1e300}) {
        SCOPED_TRACE(height);
        RandomPictures random(5);
        const auto blurred = random.picture<TypeParam>({0, 0, 28, 20}, kCanvas);
        for (int quality = 0; quality <= 2; ++quality)
            ASSERT_TRUE((normalsAgree<TypeParam, typename TestFixture::Reference>(*blurred, height, quality)));
    }
}

TYPED_TEST(Stage, TheSteepestElevationsThatPeopleSetAgreeWithTheReference)
{
    // An elevation of 10 on a canvas of 3840 pixels, with bevels of a few pixels, which makes cliffs.
    for (std::uint32_t seed = 0; seed < kPictures; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const auto blurred = random.picture<TypeParam>(random.box(12, 24), kCanvas);
        const double high = random.real(37.5, 10.0 * 37.5 * 3840.0 / 720.0);
        ASSERT_TRUE((normalsAgree<TypeParam, typename TestFixture::Reference>(*blurred, high, random.whole(0, 2))));
    }
}

TYPED_TEST(Stage, BlendingNormalsAgreesWithTheReference)
{
    RandomPictures random(1);
    for (int i = 0; i < 200'000; ++i) {
        auto out = random.pixel<TypeParam>();
        const auto object = random.pixel<TypeParam>();
        const double coverage = random.chance(4) ? 1.0 : random.real(0.0, 1.0);
        const auto blue = random.channel(out.b);
        typename TestFixture::Reference::RefPixel expected{out.r, out.g, out.b, out.a};
        TestFixture::Reference::blendNormal(expected, {object.r, object.g, object.b, object.a}, coverage, blue);
        blendNormal(out, object, coverage, blue);
        ASSERT_EQ(expected, (typename TestFixture::Reference::RefPixel{out.r, out.g, out.b, out.a})) << i;
    }
}

TYPED_TEST(Stage, MergingLevelsAgreesWithTheReference)
{
    for (std::uint32_t seed = 0; seed < kPictures; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const auto target = random.picture<TypeParam>(random.box(12, 24), kCanvas);
        const auto source = random.picture<TypeParam>(random.box(12, 24), kCanvas);
        const double level = random.real(0.0, 1.0);
        const bool scale = random.chance(2);
        auto expected = toRef<TypeParam>(*target);
        TestFixture::Reference::stageMerge(expected, toRef<TypeParam>(*source), level, scale);
        mergeLevel<TypeParam>(*target, *source, TestFixture::Reference::stageLevel(level), scale);
        ASSERT_TRUE(agrees<TypeParam>(expected, *target));
    }
}
