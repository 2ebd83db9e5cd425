// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Ambient occlusion: simple shapes with known light, random ones against the slow reference.
#include "QuarvelNormalMap/NM_Occlusion.h"

#include "Pixmaps.h"
#include "reference/Openness.h"

#include <rapidcheck/gtest.h>
#include <tbb/global_control.h>

namespace {

using U16 = std::uint16_t;
using HeightAt = std::function<double(int x, int y)>;

NM_HeightField fieldOf(int width, int height, const HeightAt& at)
{
    NM_HeightField field = std::move(NM_HeightField::create({width, height}).value());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            field.row(y)[static_cast<std::size_t>(x)] = static_cast<float>(at(x, y));
    return field;
}

NM_HeightField opennessOf(int width, int height, const HeightAt& at)
{
    return std::move(NM_openness(fieldOf(width, height, at)).value());
}

float valueAt(const NM_HeightField& field, int x, int y)
{
    return field.row(y)[static_cast<std::size_t>(x)];
}

NM_HeightField randomField(int width, int height, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> step(0, 7);
    return fieldOf(width, height, [&](int, int) { return step(random) * 1.5 - 3.0; });
}

std::vector<float> valuesOf(const NM_HeightField& field)
{
    std::vector<float> values;
    for (int y = 0; y < field.height(); ++y)
        values.insert(values.end(), field.row(y).begin(), field.row(y).end());
    return values;
}

} // namespace

TEST(Occlusion, OfAPlaneHoweverTiltedIsNone)
{
    for (const double tilt : {0.0, 0.25, -2.0}) {
        const NM_HeightField open = opennessOf(17, 11, [&](int x, int y) { return tilt * x - y; });
        for (int y = 0; y < 11; ++y)
            for (int x = 0; x < 17; ++x)
                ASSERT_NEAR(valueAt(open, x, y), 1.0F, 1e-6F) << x << ", " << y;
    }
}

TEST(Occlusion, OfWhatBulgesIsNone)
{
    const NM_HeightField open =
        opennessOf(41, 41, [](int x, int y) { return 40.0 - 0.05 * ((x - 20) * (x - 20) + (y - 20) * (y - 20)); });
    for (int y = 0; y < 41; ++y)
        for (int x = 0; x < 41; ++x)
            ASSERT_NEAR(valueAt(open, x, y), 1.0F, 1e-6F) << x << ", " << y;
}

// An endless wall hides all directions of its half of the circle; those along the wall see past it. The two directions
// along it have a share of 26.565 / 360 each, so the wall takes (360 - 2 * 26.565) / 2 / 360 = 0.426 at its foot.
TEST(Occlusion, AtTheFootOfAHighWallIsNearlyAllOfItsHalf)
{
    const NM_HeightField open = opennessOf(81, 81, [](int x, int) { return x < 40 ? 1e6 : 0.0; });
    EXPECT_NEAR(valueAt(open, 40, 40), 1.0F - 0.4262F, 1e-3F);
    EXPECT_NEAR(valueAt(open, 39, 40), 1.0F, 1e-6F) << "the wall's top";
}

// A step of 1 pixel, seen from 1, 2 and 4 pixels away straight ahead, under 45, 26.565 and 14.036 degrees: the light
// grows with the distance.
TEST(Occlusion, FadesWithTheDistance)
{
    const NM_HeightField open = opennessOf(81, 81, [](int x, int) { return x < 40 ? 1.0 : 0.0; });
    EXPECT_LT(valueAt(open, 40, 40), valueAt(open, 41, 40));
    EXPECT_LT(valueAt(open, 41, 40), valueAt(open, 43, 40));
    EXPECT_GT(valueAt(open, 79, 40), 0.98F);
}

TEST(Occlusion, DirectionsHaveTheSharesOfTheirAngles)
{
    double sum = 0.0;
    for (const NM_OcclusionDirection& direction : NM_occlusionDirections())
        sum += direction.share;
    EXPECT_NEAR(sum, 1.0, 1e-15);
    EXPECT_EQ(NM_occlusionDirections().size(), 16U);
}

RC_GTEST_PROP(Occlusion, IsThatOfTheSlowReference, ())
{
    const int width = *rc::gen::inRange(1, 20);
    const int height = *rc::gen::inRange(1, 20);
    const NM_HeightField field = randomField(width, height, *rc::gen::arbitrary<unsigned>());
    const NM_HeightField open = std::move(NM_openness(field).value());
    const reference::Heights heights{width, height,
                                     [&](int x, int y) { return static_cast<double>(valueAt(field, x, y)); }};
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            RC_ASSERT(std::abs(static_cast<double>(valueAt(open, x, y)) - reference::openness(heights, x, y)) < 1e-6);
}

TEST(Occlusion, IsTheSameForAnyNumberOfThreads)
{
    const NM_HeightField field = randomField(200, 150, 7);
    const auto many = valuesOf(*NM_openness(field));
    const tbb::global_control one(tbb::global_control::max_allowed_parallelism, 1);
    EXPECT_EQ(many, valuesOf(*NM_openness(field)));
}

TEST(OcclusionPicture, ContinuesBesideTheObjectAndIsWhiteBeyond)
{
    // One covered pixel at 2, 1 of a frame of 6 x 1 that begins at 1, 1.
    const TestPixmap<Pixel16> node({2, 1, 3, 2}, {Pixel16{16384, 16384, 0, 32767}});
    const NM_HeightField open = fieldOf(6, 1, [](int, int) { return 0.25; });
    const auto picture = NM_occlusionPicture(open, {1, 1, 7, 2}, node, {1, 1, 7, 2}, IIO_SampleType::UINT16, 2);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->channels(), IIO_channelsGrey());
    EXPECT_EQ(allSamples<U16>(*picture), (std::vector<U16>{16384, 16384, 16384, 16384, 65535, 65535}));
}
