// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The vector code of the volume gives the same bits with every instruction set that this machine has, for all widths
// around the vectors' own.
#include "OneInstructionSet.h"
#include "RandomPictures.h"
#include "SmallPixmaps.h"

#include "render/Composition.h"
#include "render/CoverageMerge.h"
#include "render/ObjectVolume.h"

#include <gtest/gtest.h>

namespace {

template<typename Pixel>
std::vector<Pixel> pixelsOf(const CEL_PixmapArea& area)
{
    const auto& pixmap = dynamic_cast<const CEL_PixmapOf<Pixel>&>(area);
    std::vector<Pixel> pixels;
    for (int y = pixmap.allocatedRect().y1; y < pixmap.allocatedRect().y2; ++y)
        pixels.insert(pixels.end(), pixmap.row(y).begin(), pixmap.row(y).end());
    return pixels;
}

struct Job
{
    int width;
    int quality;
    bool clip;
    double smoothness;
};

// The volume of two random inputs merged, and its composition.
template<typename Pixel>
std::vector<Pixel> renderedWith(std::int64_t target, const Job& job)
{
    const OneInstructionSet only(target);
    RandomPictures random(static_cast<std::uint32_t>(job.width * 3 + job.quality));
    const Math::Box2di canvas(0, 0, job.width + 9, 14);
    const Math::Box2di box(4, 2, 4 + job.width, 12);
    const auto first = random.picture<Pixel>(box, canvas);
    const auto second = random.picture<Pixel>(box, canvas);
    const auto object = UT_makeShared<CEL_PixmapOf<Pixel>>(Math::Size2di{canvas.width(), canvas.height()}, canvas);
    mergeCoverage<Pixel>(*object, *first);
    mergeCoverage<Pixel>(*object, *second);
    std::pair<float, float> range;
    const auto result =
        buildObjectVolume(object, 3.0, 720, true, 1.0, object, range, job.quality, job.smoothness, job.clip).pixels;
    VallorinRenderHandler handler(1.0, MO_CompositeModuleBitmapHandler::CompositeModuleInterface{}, {});
    handler.portObjectIds = {1, 1};
    CEL_PixmapOf<Pixel> output({canvas.width(), canvas.height()}, canvas);
    PortComposition composition(handler, output, canvas);
    composition.include(canvas);
    composition.add(0, first, result);
    composition.add(1, second, result);
    composition.finish();
    std::vector<Pixel> pixels = pixelsOf<Pixel>(*result);
    const std::vector<Pixel> composed = pixelsOf<Pixel>(output);
    pixels.insert(pixels.end(), composed.begin(), composed.end());
    return pixels;
}

template<typename Pixel>
class InstructionSets : public testing::Test
{};

using Formats = testing::Types<Pixel16, PixelFloat>;
TYPED_TEST_SUITE(InstructionSets, Formats);

} // namespace

TYPED_TEST(InstructionSets, AllGiveTheSameBits)
{
    const std::int64_t supported = VL_supportedTargets();
    for (int width = 1; width <= 70; ++width)
        for (int quality = 0; quality <= 2; ++quality) {
            const Job job{width, quality, width % 2 == 0, width % 3 == 0 ? 2.0 : 1.0};
            // One pixel at a time, without vectors.
            const auto plain = renderedWith<TypeParam>(HWY_SCALAR, job);
            for (std::int64_t rest = supported; rest != 0; rest &= rest - 1) {
                const std::int64_t target = rest & -rest;
                ASSERT_EQ(renderedWith<TypeParam>(target, job), plain)
                    << hwy::TargetName(target) << ", width " << width << ", quality " << quality;
            }
        }
}
