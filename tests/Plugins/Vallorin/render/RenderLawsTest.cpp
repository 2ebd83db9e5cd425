// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Laws that hold for every picture: the effect of mirroring, turning and lifting the surface on its normals, their unit
// length, and how coverages add up.
#include "DepthSurface.h"
#include "SmallPixmaps.h"

#include "MultiStageKvd/NormalParser.h"
#include "render/NormalBlend.h"

#include <rapidcheck/gtest.h>

namespace {

using Depths = UT_SharedPtr<CEL_PixmapAreaZ>;

// Integer heights from 1 to 40 with occasional black pixels, 1 to 64 wide.
Depths anyDepths(int largestWidth = 64)
{
    const int width = *rc::gen::inRange(1, largestWidth + 1);
    const int height = *rc::gen::inRange(1, 8);
    const auto heights = *rc::gen::container<std::vector<int>>(
        static_cast<std::size_t>(width * height),
        rc::gen::weightedOneOf<int>({{1, rc::gen::just(0)}, {9, rc::gen::inRange(1, 41)}}));
    const auto depths = filledDepth(width, height, 0.0F);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            depths->at(x, y).value = static_cast<float>(heights[static_cast<std::size_t>(y * width + x)]);
    return depths;
}

template<typename Place>
Depths moved(const Depths& depths, int width, int height, const Place& placeOf)
{
    const auto result = filledDepth(width, height, 0.0F);
    for (int y = 0; y < depths->allocatedRect().height(); ++y)
        for (int x = 0; x < depths->allocatedRect().width(); ++x) {
            const auto [newX, newY] = placeOf(x, y);
            result->at(newX, newY) = depths->at(x, y);
        }
    return result;
}

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> normalsOf(const Depths& depths, int quality = LOW_NORMAL_QUALITY)
{
    return normalsOf<Pixel>(DepthSurface(*depths), quality, depths->allocatedRect());
}

template<typename Pixel>
Math::Vector3d vectorOf(const Pixel& pixel)
{
    return NormalParser_decode(pixel);
}

// Two steps of a 16-bit channel, and rounding in float.
template<typename Pixel>
constexpr double kStep = std::is_same_v<Pixel, Pixel16> ? 2.0 / 32767.0 : 1e-6;

// Smoothing adds nine normals in an order that mirroring changes, so a code may be rounded the other way. Everything
// else is the same to the bit.
template<typename Channel>
bool isSameComponent(Channel a, Channel b, int quality)
{
    if (quality != HIGH_NORMAL_QUALITY)
        return a == b;
    const double step = std::is_integral_v<Channel> ? 1.0 : 1e-6;
    return std::abs(static_cast<double>(a) - static_cast<double>(b)) <= step;
}

template<typename Pixel>
class NormalLaws : public testing::Test
{};

using Formats = testing::Types<Pixel16, PixelFloat>;
TYPED_TEST_SUITE(NormalLaws, Formats);

template<typename Law>
void holds(const char* name, const Law& law)
{
    EXPECT_TRUE(rc::check(name, law));
}

int anyQuality()
{
    return *rc::gen::inRange(0, 3);
}

} // namespace

TYPED_TEST(NormalLaws, AMirroredSurfaceHasMirroredNormalsAtEveryQuality)
{
    holds("x is negated, y, B and A stay", [] {
        const Depths depths = anyDepths();
        const int quality = anyQuality();
        const int width = depths->allocatedRect().width();
        const int height = depths->allocatedRect().height();
        const Depths mirrored = moved(depths, width, height, [&](int x, int y) { return std::pair(width - 1 - x, y); });
        const auto normals = normalsOf<TypeParam>(depths, quality);
        const auto mirroredNormals = normalsOf<TypeParam>(mirrored, quality);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const TypeParam a = normals->at(x, y);
                const TypeParam b = mirroredNormals->at(width - 1 - x, y);
                RC_ASSERT(a.a == b.a);
                RC_ASSERT(a.b == b.b);
                RC_ASSERT(isSameComponent(a.g, b.g, quality));
                // In 16 bits the stored middle is half a step above 0 for both, and either may be off by a step of
                // rounding.
                if (a.a != 0)
                    RC_ASSERT(std::abs(vectorOf(a).x + vectorOf(b).x) <= 3 * kStep<TypeParam>);
            }
    });
}

TYPED_TEST(NormalLaws, ATransposedSurfaceHasTransposedNormalsAtEveryQuality)
{
    holds("x and y change places", [] {
        const Depths depths = anyDepths();
        const int quality = anyQuality();
        const int width = depths->allocatedRect().width();
        const int height = depths->allocatedRect().height();
        const Depths turned = moved(depths, height, width, [](int x, int y) { return std::pair(y, x); });
        const auto normals = normalsOf<TypeParam>(depths, quality);
        const auto turnedNormals = normalsOf<TypeParam>(turned, quality);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const TypeParam a = normals->at(x, y);
                const TypeParam b = turnedNormals->at(y, x);
                RC_ASSERT(a.a == b.a);
                RC_ASSERT(a.b == b.b);
                RC_ASSERT(isSameComponent(a.r, b.g, quality));
                RC_ASSERT(isSameComponent(a.g, b.r, quality));
            }
    });
}

TYPED_TEST(NormalLaws, LiftingASurfaceLeavesItsNormals)
{
    holds("only differences of heights count", [] {
        const Depths depths = anyDepths();
        const int quality = anyQuality();
        const auto before = normalsOf<TypeParam>(depths, quality);
        for (int y = 0; y < depths->allocatedRect().height(); ++y)
            for (CEL_PixelFloat& depth : depths->row(y))
                depth.value = depth.isBlack() ? 0.0F : depth.value + 100.0F;
        const auto after = normalsOf<TypeParam>(depths, quality);
        for (int y = 0; y < depths->allocatedRect().height(); ++y)
            RC_ASSERT(std::ranges::equal(before->row(y), after->row(y)));
    });
}

TYPED_TEST(NormalLaws, AFlatSurfaceFacesTheViewerAtEveryQuality)
{
    holds("x and y are 0", [] {
        const auto depths = filledDepth(*rc::gen::inRange(1, 65), *rc::gen::inRange(1, 9),
                                        static_cast<float>(*rc::gen::inRange(1, 1000)) / 8.0F);
        const auto normals = normalsOf<TypeParam>(depths, anyQuality());
        for (int y = 0; y < normals->allocatedRect().height(); ++y)
            for (const TypeParam& pixel : normals->row(y)) {
                RC_ASSERT(std::abs(vectorOf(pixel).x) <= kStep<TypeParam>);
                RC_ASSERT(std::abs(vectorOf(pixel).y) <= kStep<TypeParam>);
            }
    });
}

TYPED_TEST(NormalLaws, StoredNormalsHaveUnitLength)
{
    holds("x and y of a tilted plane leave the z that its slopes give", [] {
        // Slopes in eighths, so that the depths are exact; the middle pixel and its neighbours have eight neighbours
        // each.
        const double across = *rc::gen::inRange(-80, 81) / 8.0;
        const double down = *rc::gen::inRange(-80, 81) / 8.0;
        const auto depths = filledDepth(5, 5, 0.0F);
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 5; ++x)
                depths->at(x, y).value = static_cast<float>(100.0 + across * x + down * y);
        const TypeParam pixel = normalsOf<TypeParam>(depths, anyQuality())->at(2, 2);
        const Math::Vector3d stored = vectorOf(pixel);
        const double squareOfZ = 1.0 / (across * across + down * down + 1.0);
        RC_ASSERT(std::abs(stored.x * stored.x + stored.y * stored.y + squareOfZ - 1.0) <= 2 * kStep<TypeParam>);
    });
}

TYPED_TEST(NormalLaws, ABlendedNormalIsTheMixtureBroughtToUnitLength)
{
    holds("each counts by its coverage", [] {
        const auto normals = normalsOf<TypeParam>(anyDepths(8), anyQuality());
        const auto pixels = normals->row(0);
        TypeParam out = *rc::gen::elementOf(std::vector<TypeParam>(pixels.begin(), pixels.end()));
        const TypeParam object = *rc::gen::elementOf(std::vector<TypeParam>(pixels.begin(), pixels.end()));
        RC_PRE(out.a != 0 && object.a != 0);
        const double coverage = *rc::gen::inRange(1, 100) / 100.0;
        const Math::Vector3d below = vectorOf(out);
        const Math::Vector3d above = vectorOf(object);
        const double x = (1.0 - coverage) * below.x + coverage * above.x;
        const double y = (1.0 - coverage) * below.y + coverage * above.y;
        const double z = (1.0 - coverage) * below.z + coverage * above.z;
        const double length = std::hypot(x, y, z);
        blendNormal(out, object, coverage, {});
        RC_ASSERT(std::abs(vectorOf(out).x - x / length) <= kStep<TypeParam>);
        RC_ASSERT(std::abs(vectorOf(out).y - y / length) <= kStep<TypeParam>);
    });
}

RC_GTEST_PROP(CoverageLaws, In16BitTwoCoveragesLeaveWhatBothLeave, ())
{
    const double first = *rc::gen::inRange(1, 32439) / 32767.0;
    const double second = *rc::gen::inRange(1, 32439) / 32767.0;
    Pixel16 out;
    blendNormal<Pixel16>(out, {16384, 16384, 0, 32767}, first, 0);
    blendNormal<Pixel16>(out, {16384, 16384, 0, 32767}, second, 0);
    RC_ASSERT(std::abs(out.a / 32767.0 - (1.0 - (1.0 - first) * (1.0 - second))) <= 2.0 / 32767.0);
}

RC_GTEST_PROP(CoverageLaws, FullCoverageMakesNoDifferenceBetweenWhatLiesBelow, ())
{
    const auto channel = [] { return static_cast<std::int16_t>(*rc::gen::inRange(0, 32768)); };
    const Pixel16 object{channel(), channel(), channel(), 32767};
    Pixel16 out{channel(), channel(), channel(), channel()};
    blendNormal(out, object, 1.0, object.b);
    RC_ASSERT(out == object);
}
