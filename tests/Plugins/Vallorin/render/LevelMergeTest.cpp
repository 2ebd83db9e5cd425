// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two layers made of a drawing's coverage and its greys, on single pixels worked out by hand.
#include "OneInstructionSet.h"
#include "RandomPictures.h"
#include "SmallPixmaps.h"

#include "render/LevelMerge.h"

#include <algorithm>

namespace {

constexpr std::int16_t kLevel = 16319;

template<typename Pixel>
Pixel merged(const Pixel& target, const Pixel& source, decltype(Pixel::r) level, bool scaleByCoverage = false)
{
    const auto result = filled<Pixel>(1, 1, target);
    mergeLevel<Pixel>(*result, *filled<Pixel>(1, 1, source), level, scaleByCoverage);
    return result->at(0, 0);
}

} // namespace

TEST(LevelMerge, WhereTheDrawingCoversTheLevelCountsAndBlueHasItsDefault)
{
    EXPECT_EQ(merged<Pixel16>({7, 8, 9, 20000}, {}, kLevel), (Pixel16{kLevel, 0, 1024, 20000}));
    EXPECT_EQ(merged<PixelFloat>({7, 8, 9, 0.25F}, {}, 1.5F), (PixelFloat{1.5F, 0, 0.5F, 0.25F}));
}

TEST(LevelMerge, WhereNothingCoversAllIsZeroEvenForANegativeAlpha)
{
    for (const std::int16_t alpha : {std::int16_t{0}, std::int16_t{-5}})
        EXPECT_EQ(merged<Pixel16>({7, 8, 9, alpha}, {}, kLevel), Pixel16{});
    for (const float alpha : {0.0F, -0.5F})
        EXPECT_EQ(merged<PixelFloat>({7, 8, 9, alpha}, {}, 0.5F), PixelFloat{});
}

TEST(LevelMerge, TheColoursGreyAndCoverageBecomeTheSecondLayer)
{
    EXPECT_EQ(merged<Pixel16>({7, 8, 9, 20000}, {1000, 1, 2, 3000}, kLevel), (Pixel16{kLevel, 1000, 3000, 20000}));
    EXPECT_EQ(merged<Pixel16>({7, 8, 9, 0}, {1000, 1, 2, 3000}, kLevel), (Pixel16{0, 1000, 3000, 0}))
        << "even where the drawing itself does not cover";
    EXPECT_EQ(merged<Pixel16>({7, 8, 9, 20000}, {1000, 1, 2, 0}, kLevel), (Pixel16{kLevel, 0, 1024, 20000}))
        << "a grey without coverage is none";
}

TEST(LevelMerge, InFloatGreyAndItsCoverageAreCutToWholeNumbers)
{
    EXPECT_EQ(merged<PixelFloat>({0, 0, 0, 1.0F}, {0.9F, 0, 0, 0.9F}, 0.5F), (PixelFloat{0.5F, 0, 0, 1.0F}));
    EXPECT_EQ(merged<PixelFloat>({0, 0, 0, 1.0F}, {1.0F, 0, 0, 1.0F}, 0.5F), (PixelFloat{0.5F, 1.0F, 1.0F, 1.0F}));
    EXPECT_EQ(merged<PixelFloat>({0, 0, 0, 1.0F}, {-1.75F, 0, 0, 2.5F}, 0.5F), (PixelFloat{0.5F, -1.0F, 2.0F, 1.0F}));
}

TEST(LevelMerge, ScalingMultipliesGreyAndItsCoverageByTheDrawingsCoverage)
{
    // 16384 / 32767 = 0.500015: 500.015 and 10000.3, both truncated.
    EXPECT_EQ(merged<Pixel16>({0, 0, 0, 16384}, {1000, 0, 0, 20000}, kLevel, true),
              (Pixel16{kLevel, 500, 10000, 16384}));
    EXPECT_EQ(merged<Pixel16>({0, 0, 0, 32767}, {1000, 0, 0, 20000}, kLevel, true),
              (Pixel16{kLevel, 1000, 20000, 32767}));
    // 3 x 0.5 and 5 x 0.5, both truncated.
    EXPECT_EQ(merged<PixelFloat>({0, 0, 0, 0.5F}, {3.0F, 0, 0, 5.0F}, 1.0F, true),
              (PixelFloat{1.0F, 1.0F, 2.0F, 0.5F}));
}

TEST(LevelMerge, ScalingByNoCoverageLeavesNothing)
{
    EXPECT_EQ(merged<Pixel16>({7, 8, 9, -20}, {1000, 0, 0, 20000}, kLevel, true), Pixel16{});
    EXPECT_EQ(merged<PixelFloat>({7, 8, 9, -1.0F}, {1.0F, 0, 0, 1.0F}, 0.5F, true), PixelFloat{});
}

TEST(LevelMerge, PixelsThatTheSourceLacksKeepTheDefault)
{
    const auto target = filled<Pixel16>(3, 3, {0, 0, 0, 32767});
    CEL_PixmapAreaRGBA16 source({3, 3}, {0, 0, 3, 3});
    source.realloc({1, 1, 2, 9}, true);
    source.at(1, 1) = {5, 0, 0, 6};
    mergeLevel<Pixel16>(*target, source, kLevel, false);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 3; ++x)
            EXPECT_EQ(target->at(x, y),
                      x == 1 && y == 1 ? (Pixel16{kLevel, 5, 6, 32767}) : (Pixel16{kLevel, 0, 1024, 32767}));
}

namespace {

// Fills a plane with all alphas that there are; its rows begin at all places of a vector.
void fillWithAll(CELVEC_AlphaPlane& plane)
{
    unsigned alpha = 0;
    for (int y = plane.rect().y1; y < plane.rect().y2; ++y)
        for (std::uint16_t& value : plane.row(y))
            value = static_cast<std::uint16_t>(std::min(alpha++, 65535U));
}

// What the plane promises, as two pictures that are merged.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> mergedPictures(const CELVEC_AlphaPlane& plane, decltype(Pixel::r) level,
                                                 bool scaleByCoverage)
{
    const Math::Box2di& rect = plane.rect();
    const auto own = UT_makeShared<CEL_PixmapOf<Pixel>>(Math::Size2di{rect.width(), rect.height()}, rect);
    CEL_PixmapOf<Pixel> greys(own->size(), rect);
    own->realloc(rect, true);
    greys.realloc(rect, true);
    std::vector<decltype(Pixel::r)> alphas(static_cast<std::size_t>(rect.width()));
    for (int y = rect.y1; y < rect.y2; ++y) {
        plane.readOwn(y, alphas);
        for (std::size_t i = 0; i < alphas.size(); ++i)
            own->row(y)[i].a = alphas[i];
        plane.readWhite(y, alphas);
        for (std::size_t i = 0; i < alphas.size(); ++i)
            greys.row(y)[i] = {alphas[i], alphas[i], alphas[i], alphas[i]};
    }
    mergeLevel<Pixel>(*own, greys, level, scaleByCoverage);
    return own;
}

template<typename Pixel>
void expectPlacedAsMerged(const CELVEC_AlphaPlane& plane, decltype(Pixel::r) level, bool scaleByCoverage)
{
    const auto expected = mergedPictures<Pixel>(plane, level, scaleByCoverage);
    CEL_PixmapOf<Pixel> placed(expected->size(), plane.rect());
    placeLevel<Pixel>(plane, level, scaleByCoverage, placed);
    ASSERT_EQ(placed.allocatedRect(), plane.rect());
    for (int y = plane.rect().y1; y < plane.rect().y2; ++y)
        ASSERT_TRUE(std::ranges::equal(placed.row(y), expected->row(y))) << y;
}

} // namespace

TEST(LevelMerge, OfAnAlphaAloneGivesWhatTheTwoPicturesGiveWithEveryInstructionSet)
{
    for (std::int64_t rest = VL_supportedTargets() | HWY_SCALAR; rest != 0; rest &= rest - 1) {
        const OneInstructionSet only(rest & -rest);
        for (const bool isClosed : {false, true})
            for (const bool scaleByCoverage : {false, true}) {
                CELVEC_AlphaPlane plane({3, -2, 3 + 1371, -2 + 48}, isClosed);
                fillWithAll(plane);
                expectPlacedAsMerged<Pixel16>(plane, kLevel, scaleByCoverage);
                expectPlacedAsMerged<PixelFloat>(plane, 0.75F, scaleByCoverage);
            }
    }
}

TEST(LevelMerge, GivesTheSameBitsWithEveryInstructionSet)
{
    const auto mergedWith = [](std::int64_t target, int width, bool scaleByCoverage) {
        const OneInstructionSet only(target);
        RandomPictures random(static_cast<std::uint32_t>(width));
        const Math::Box2di canvas(0, 0, width + 4, 6);
        const auto drawing = random.picture<PixelFloat>({0, 0, width, 6}, canvas);
        const auto greys = random.picture<PixelFloat>({2, 1, width + 4, 5}, canvas);
        mergeLevel<PixelFloat>(*drawing, *greys, 0.75F, scaleByCoverage);
        std::vector<PixelFloat> pixels;
        for (int y = 0; y < 6; ++y)
            pixels.insert(pixels.end(), drawing->row(y).begin(), drawing->row(y).end());
        return pixels;
    };
    for (int width = 1; width <= 40; ++width)
        for (const bool scaleByCoverage : {false, true}) {
            const auto plain = mergedWith(HWY_SCALAR, width, scaleByCoverage);
            for (std::int64_t rest = VL_supportedTargets(); rest != 0; rest &= rest - 1)
                ASSERT_EQ(mergedWith(rest & -rest, width, scaleByCoverage), plain)
                    << hwy::TargetName(rest & -rest) << ", width " << width;
        }
}
