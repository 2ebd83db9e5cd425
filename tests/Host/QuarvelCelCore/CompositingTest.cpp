// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Compositing beside its formula in double precision, for channels of every kind: what painting makes, and what only a
// node can make, such as negative channels.
#include "QuarvelCelCore/CEL_Compositing.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Pixel = CEL_PixelRGBA16;

std::int16_t attenuated(std::int16_t above, std::int16_t below, std::int16_t alpha)
{
    const double sum = above + below * ((32767.0 - alpha) / 32767.0);
    return static_cast<std::int16_t>(std::clamp(std::round(sum), -32767.0, 32767.0));
}

CEL_PixmapAreaRGBA16 pictureOf(const std::vector<Pixel>& pixels)
{
    const int width = static_cast<int>(pixels.size());
    CEL_PixmapAreaRGBA16 picture({width, 1}, {0, 0, width, 1});
    picture.realloc({0, 0, width, 1}, false);
    std::ranges::copy(pixels, picture.row(0).begin());
    return picture;
}

std::vector<Pixel> randomPixels(int lowest, unsigned seed)
{
    std::mt19937 random(seed);
    const auto channel = [&] {
        const auto number = random();
        const int ends[] = {0, 1, 16383, 16384, 32766, 32767};
        const int span = 32767 - lowest + 1;
        return static_cast<std::int16_t>(number % 4 == 0 ? ends[number / 4 % 6]
                                                         : lowest + static_cast<int>(number / 4 % unsigned(span)));
    };
    std::vector<Pixel> pixels(20000);
    for (Pixel& pixel : pixels)
        pixel = {channel(), channel(), channel(), channel()};
    return pixels;
}

class Compositing : public testing::TestWithParam<int>
{};

TEST_P(Compositing, RoundsTheFormulaInDoublePrecision)
{
    const std::vector<Pixel> above = randomPixels(GetParam(), 1);
    const std::vector<Pixel> below = randomPixels(GetParam(), 2);
    CEL_PixmapAreaRGBA16 painted = pictureOf(below);
    CEL_PixmapAreaRGBA16 cut = pictureOf(below);
    CEL_paintOver(pictureOf(above), painted);
    CEL_cutOut(pictureOf(above), cut);
    for (std::size_t i = 0; i < above.size(); ++i) {
        const auto& [r, g, b, a] = below[i];
        const Pixel& top = above[i];
        const Pixel over{attenuated(top.r, r, top.a), attenuated(top.g, g, top.a), attenuated(top.b, b, top.a),
                         attenuated(top.a, a, top.a)};
        const Pixel out{attenuated(0, r, top.a), attenuated(0, g, top.a), attenuated(0, b, top.a),
                        attenuated(0, a, top.a)};
        const bool isEmpty = top == Pixel{};
        ASSERT_EQ(painted.row(0)[i], isEmpty ? below[i] : over) << i;
        ASSERT_EQ(cut.row(0)[i], isEmpty ? below[i] : out) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(, Compositing, testing::Values(0, -32768));

TEST(Compositing16, AgreesWithTheFormulaForEveryCoverageOfAFullPixel)
{
    std::vector<Pixel> above;
    for (int alpha = 0; alpha <= 32767; ++alpha)
        above.push_back({0, 1, 0, static_cast<std::int16_t>(alpha)});
    CEL_PixmapAreaRGBA16 painted = pictureOf(std::vector<Pixel>(above.size(), Pixel{32767, 16384, 12345, 32767}));
    CEL_paintOver(pictureOf(above), painted);
    for (std::size_t i = 0; i < above.size(); ++i) {
        const auto alpha = static_cast<std::int16_t>(i);
        const Pixel expected{attenuated(0, 32767, alpha), attenuated(1, 16384, alpha), attenuated(0, 12345, alpha),
                             attenuated(alpha, 32767, alpha)};
        ASSERT_EQ(painted.row(0)[i], expected) << alpha;
    }
}

} // namespace
