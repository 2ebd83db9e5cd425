// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where geometry is near, compared with a test of all 25 pixels around each, over several words of bits.
#include "RandomPictures.h"

#include "render/ElevationPlane.h"
#include "render/GeometryClip.h"

#include <gtest/gtest.h>

namespace {

UT_SharedPtr<CEL_PixmapAreaZ> sparseMask(RandomPictures& random, const Math::Box2di& rect, int oneIn)
{
    auto mask = UT_makeShared<CEL_PixmapAreaZ>(Math::Size2di{400, 40}, Math::Box2di(-100, -10, 300, 30));
    mask->realloc(rect, true);
    for (int y = rect.y1; y < rect.y2; ++y)
        for (CEL_PixelFloat& pixel : mask->row(y))
            pixel.value = random.chance(oneIn) ? static_cast<float>(random.whole(-1, 1)) : 0.0F;
    return mask;
}

bool isNear(const CEL_PixmapAreaZ& mask, int x, int y)
{
    for (int dy = -2; dy <= 2; ++dy)
        for (int dx = -2; dx <= 2; ++dx)
            if (const CEL_PixelFloat* const pixel = mask.find(x + dx, y + dy); pixel && pixel->value > 0.0F)
                return true;
    return false;
}

bool bitAt(std::span<const std::uint64_t> row, int index)
{
    const auto i = static_cast<std::size_t>(index);
    return i / 64 < row.size() && (row[i / 64] >> (i % 64) & 1) != 0;
}

} // namespace

TEST(GeometryClip, FindsWhatHasGeometryWithinTwoPixels)
{
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const int x1 = random.whole(-70, 70);
        const Math::Box2di maskRect(x1, -3, x1 + random.whole(1, 220), random.whole(-2, 9));
        const int left = random.whole(-80, 60);
        const Math::Box2di rect(left, random.whole(-8, 3), left + random.whole(1, 260), random.whole(4, 14));
        const auto mask = sparseMask(random, maskRect, random.chance(2) ? 60 : 3);
        NearGeometry near(*mask, rect);
        const Math::Box2di reach = near.reach();
        for (int y = rect.y1; y < rect.y2; ++y) {
            const bool isInReach = y >= reach.y1 && y < reach.y2;
            const std::span<const std::uint64_t> bits = isInReach ? near.nextRow(y) : std::span<const std::uint64_t>();
            for (int x = rect.x1; x < rect.x2; ++x)
                ASSERT_EQ(reach.contains(x, y) && bitAt(bits, x - reach.x1), isNear(*mask, x, y)) << x << ", " << y;
            for (int x = reach.x2; x < reach.x2 + 130 && isInReach; ++x)
                ASSERT_FALSE(bitAt(bits, x - reach.x1)) << "beyond the row";
        }
    }
}

TEST(GeometryClip, DropsWhatIsFarFromGeometryAndMeasuresTheRest)
{
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const Math::Box2di rect(-80, -5, 150, 12);
        const auto mask = sparseMask(random, {random.whole(-60, 0), -2, random.whole(10, 140), 9}, 40);
        const auto values = sparseMask(random, rect, 1);
        for (int y = rect.y1; y < rect.y2; ++y)
            for (CEL_PixelFloat& pixel : values->row(y))
                pixel.value *= static_cast<float>(random.whole(1, 9000));
        const auto before = values->clone().dynamicCast<CEL_PixmapAreaZ>();
        const ElevationPlane plane = roundAndClip<CEL_PixelRGBAFloat>(values, mask.get());
        PositiveSpan span;
        for (int y = rect.y1; y < rect.y2; ++y)
            for (int x = rect.x1; x < rect.x2; ++x) {
                const float expected = isNear(*mask, x, y) ? before->at(x, y).value : 0.0F;
                ASSERT_EQ(plane.inside.contains(x, y) ? values->at(x, y).value : 0.0F, expected) << x << ", " << y;
                if (expected > 0.0F) {
                    span.lowest = std::min(span.lowest, expected);
                    span.highest = std::max(span.highest, expected);
                }
            }
        EXPECT_EQ(plane.span.lowest, span.lowest);
        EXPECT_EQ(plane.span.highest, span.highest);
    }
}
