// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compares 16-bit normals as 16-bit tangents with the plain formula, pixel by pixel, for every instruction set of the
// machine.
#include "OneInstructionSet.h"
#include "Pixmaps.h"

#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelNormalMap/NM_NormalPicture.h"

#include <algorithm>
#include <vector>

namespace {

using Samples = std::vector<std::uint16_t>;

std::uint16_t nearestSample(double component)
{
    return static_cast<std::uint16_t>(std::clamp(component * 0.5 + 0.5, 0.0, 1.0) * 65535.0 + 0.5);
}

Samples plainly(const Pixel16& pixel, double ySign)
{
    const Math::Vector3d normal = NM_directionOf(pixel);
    const int coverage = std::max<int>(pixel.a, 0);
    return {nearestSample(normal.x), nearestSample(ySign * normal.y), nearestSample(normal.z),
            static_cast<std::uint16_t>(2 * coverage + (coverage > 16383 ? 1 : 0))};
}

void expectPlainFormula(const std::vector<Pixel16>& pixels, NM_YAxis yAxis)
{
    const Math::Box2di rect(-3, 5, static_cast<int>(pixels.size()) - 3, 6);
    const TestPixmap<Pixel16> pixmap(rect, pixels);
    const auto picture = NM_toPicture(pixmap, rect, {.layout = NM_Layout::TANGENT, .yAxis = yAxis});
    ASSERT_TRUE(picture);
    const auto row = picture->row<std::uint16_t>(5);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const Pixel16& pixel = pixels[i];
        const auto samples = row.subspan(4 * i, 4);
        ASSERT_EQ(Samples(samples.begin(), samples.end()), plainly(pixel, yAxis == NM_YAxis::UP ? -1.0 : 1.0))
            << pixel.r << ' ' << pixel.g << ' ' << pixel.b << ' ' << pixel.a << " at " << i << " of " << pixels.size();
    }
}

std::int16_t anyCode(std::minstd_rand& random)
{
    return static_cast<std::int16_t>(random());
}

// Runs of flat, empty and sloping pixels, as in drawings.
std::vector<Pixel16> randomRow(std::size_t width, std::minstd_rand& random)
{
    const auto any = [&] { return anyCode(random); };
    std::vector<Pixel16> pixels;
    while (pixels.size() < width) {
        const auto kind = random() % 4;
        for (auto i = random() % 9; i > 0 && pixels.size() < width; --i)
            pixels.push_back(kind == 0   ? Pixel16{0, 0, any(), any()}
                             : kind == 1 ? Pixel16{16384, 16384, any(), any()}
                                         : Pixel16{any(), any(), any(), any()});
    }
    return pixels;
}

} // namespace

TEST(Tangents, AreThoseOfThePlainFormulaAtEveryWidth)
{
    withEachInstructionSet([] {
        std::minstd_rand random(17);
        for (std::size_t width = 1; width <= 70; ++width)
            for (int turn = 0; turn < 20; ++turn) {
                const NM_YAxis yAxis = turn % 2 == 0 ? NM_YAxis::UP : NM_YAxis::DOWN;
                ASSERT_NO_FATAL_FAILURE(expectPlainFormula(randomRow(width, random), yAxis));
            }
    });
}

TEST(Tangents, AreThoseOfThePlainFormulaForEveryCode)
{
    withEachInstructionSet([] {
        for (const int green : {0, 1, 9000, 16383, 16384, 16385, 30000, 32767}) {
            std::vector<Pixel16> pixels;
            for (int red = -32768; red <= 32767; ++red) {
                const auto code = static_cast<std::int16_t>(red);
                pixels.push_back({code, static_cast<std::int16_t>(green), static_cast<std::int16_t>(red % 3), code});
            }
            ASSERT_NO_FATAL_FAILURE(expectPlainFormula(pixels, NM_YAxis::UP));
        }
    });
}
