// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rows of an accumulator that are merged when they are read are those of the merged accumulator.
#include "OneInstructionSet.h"
#include "RandomPictures.h"
#include "SmallPixmaps.h"

#include "render/AccumulatorKernels.h"
#include "render/CoverageMask.h"
#include "render/CoverageMerge.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace {

const Math::Box2di kCanvas(-3, -2, 31, 26);

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> emptyAccumulator()
{
    return UT_makeShared<CEL_PixmapOf<Pixel>>(Math::Size2di{34, 28}, kCanvas);
}

// Some random inputs: all merged, and the same ones of which some are merged and the others wait.
template<typename Pixel>
struct Accumulation
{
    explicit Accumulation(RandomPictures& random)
    {
        const int inputs = random.whole(1, 4);
        const int alreadyMerged = random.whole(0, inputs);
        const auto partly = emptyAccumulator<Pixel>();
        for (int i = 0; i < inputs; ++i) {
            const auto input = random.picture<Pixel>(random.box(12, 24), kCanvas);
            mergeCoverage<Pixel>(*all, *input);
            if (i < alreadyMerged)
                mergeCoverage<Pixel>(*partly, *input);
            else
                object.waiting.push_back(input);
        }
        object.merged = partly;
        object.rect = all->allocatedRect();
    }

    UT_SharedPtr<CEL_PixmapOf<Pixel>> all = emptyAccumulator<Pixel>();
    AccumulatedObject object;
};

// Colours that cover fully or not at all, as most do.
template<typename Pixel>
void makeSecondLayerWhole(std::span<Pixel> row)
{
    constexpr auto kFull = CEL_PixelTraits<Pixel>::kFull;
    for (Pixel& pixel : row)
        pixel.b = pixel.b > kFull / 2 ? kFull : decltype(pixel.b){0};
}

template<typename Pixel>
class AccumulatedRowsOf : public testing::Test
{};

using Formats = testing::Types<Pixel16, PixelFloat>;
TYPED_TEST_SUITE(AccumulatedRowsOf, Formats);

} // namespace

TYPED_TEST(AccumulatedRowsOf, WaitingInputsAreThoseOfTheMergedPicture)
{
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const Accumulation<TypeParam> accumulation(random);
        AccumulatedRows<TypeParam> rows(accumulation.object);
        const Math::Box2di& rect = accumulation.all->allocatedRect();
        ASSERT_EQ(rows.rect(), rect);
        for (int y = rect.y1; y < rect.y2; ++y) {
            const int x1 = random.whole(rect.x1, rect.x2);
            const int x2 = random.whole(x1, rect.x2);
            const auto expected =
                std::as_const(*accumulation.all)
                    .row(y)
                    .subspan(static_cast<std::size_t>(x1 - rect.x1), static_cast<std::size_t>(x2 - x1));
            ASSERT_TRUE(std::ranges::equal(rows.pixels(y, x1, x2), expected)) << y;
        }
    }
}

TYPED_TEST(AccumulatedRowsOf, WaitingInputsGiveTheMaskOfTheMergedPicture)
{
    for (std::uint32_t seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        RandomPictures random(seed);
        const Accumulation<TypeParam> accumulation(random);
        const auto expected = makeMask<TypeParam>(*accumulation.all);
        const auto mask = makeMask(AccumulatedRows<TypeParam>(accumulation.object));
        ASSERT_EQ(static_cast<bool>(mask), static_cast<bool>(expected));
        if (!expected)
            continue;
        ASSERT_EQ(mask->allocatedRect(), expected->allocatedRect());
        for (int y = mask->allocatedRect().y1; y < mask->allocatedRect().y2; ++y)
            ASSERT_TRUE(std::ranges::equal(mask->row(y), expected->row(y))) << y;
    }
}

TYPED_TEST(AccumulatedRowsOf, TheMaskOfOneInputIsThatOfItsMergedPixelsWithEveryInstructionSet)
{
    for (std::int64_t rest = VL_supportedTargets() | HWY_SCALAR; rest != 0; rest &= rest - 1) {
        const OneInstructionSet only(rest & -rest);
        for (int width = 1; width <= 600; width += width < 70 ? 1 : 53) {
            SCOPED_TRACE(width);
            RandomPictures random(static_cast<std::uint32_t>(width));
            const Math::Box2di row(0, 0, width, 1);
            const auto input = random.picture<TypeParam>(row, row);
            if (width % 2 == 0)
                makeSecondLayerWhole(input->row(0));
            std::vector<TypeParam> merged(static_cast<std::size_t>(width));
            std::vector<float> expected(merged.size());
            std::vector<float> mask(merged.size());
            VolumeRowKernels::placeLayers(std::as_const(*input).row(0), merged.data());
            VolumeRowKernels::weigh(merged, expected.data());
            VolumeRowKernels::weighLayers(std::as_const(*input).row(0), mask.data());
            for (std::size_t i = 0; i < mask.size(); ++i)
                ASSERT_EQ(std::bit_cast<std::uint32_t>(mask[i]), std::bit_cast<std::uint32_t>(expected[i])) << i;
        }
    }
}
