// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The forms of maps: alpha, and 8 bits with dither.
#include "QuarvelNormalMap/NM_MapForm.h"

#include "Pixmaps.h"

#include <array>

namespace {

using U16 = std::uint16_t;
using Pixel = std::array<U16, 4>;

// A picture of one pixel repeated.
IIO_Picture filled(int width, int height, const Pixel& pixel)
{
    IIO_Picture picture =
        std::move(IIO_Picture::create(IIO_SampleType::UINT16, {width, height}, IIO_channelsRgba()).value());
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            std::ranges::copy(pixel, picture.row<U16>(y).begin() + std::ptrdiff_t{4} * x);
    return picture;
}

Pixel pixelAt(const IIO_Picture& picture, int x, int y)
{
    Pixel pixel{};
    std::copy_n(picture.row<U16>(y).begin() + std::ptrdiff_t{4} * x, 4, pixel.begin());
    return pixel;
}

} // namespace

TEST(MapForm, FullAlphaIsFullEverywhereAndHardAlphaWhereAnythingIsCovered)
{
    for (const U16 coverage : {U16{0}, U16{1}, U16{40000}, U16{65535}}) {
        const Pixel pixel{1, 2, 3, coverage};
        IIO_Picture full = filled(3, 2, pixel);
        NM_setAlpha(full, NM_Alpha::FULL);
        EXPECT_EQ(pixelAt(full, 2, 1), (Pixel{1, 2, 3, 65535}));
        IIO_Picture hard = filled(3, 2, pixel);
        NM_setAlpha(hard, NM_Alpha::HARD);
        EXPECT_EQ(pixelAt(hard, 2, 1), (Pixel{1, 2, 3, U16(coverage > 0 ? 65535 : 0)}));
        IIO_Picture kept = filled(3, 2, pixel);
        NM_setAlpha(kept, NM_Alpha::COVERAGE);
        EXPECT_EQ(pixelAt(kept, 2, 1), pixel);
    }
}

TEST(MapForm, SamplesOf8BitsAreOnAverageTheSamplesOf16)
{
    // 1000 lies 229/257 above the third step; 64 thresholds reproduce this fraction to within half a threshold.
    for (const U16 value : {U16{1000}, U16{32700}, U16{65000}}) {
        IIO_Picture picture = filled(8, 8, {value, value, 0, 12345});
        NM_ditherTo8Bits(picture);
        double sum = 0.0;
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x) {
                const Pixel pixel = pixelAt(picture, x, y);
                EXPECT_EQ(pixel[0] % 257, 0);
                EXPECT_LT(std::abs(int{pixel[0]} - value), 257);
                EXPECT_EQ(pixel[3], 48 * 257) << "alpha takes the nearest step";
                sum += pixel[0];
            }
        EXPECT_NEAR(sum / 64.0, value, 257.0 / 128.0 + 1e-9) << value;
    }
}

TEST(MapForm, WhatIsExactIn8BitsStaysAsItIs)
{
    for (const int step : {0, 1, 127, 254, 255}) {
        const auto value = static_cast<U16>(257 * step);
        IIO_Picture picture = filled(8, 8, {value, value, value, value});
        NM_ditherTo8Bits(picture);
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                EXPECT_EQ(pixelAt(picture, x, y), (Pixel{value, value, value, value})) << step;
    }
}

TEST(MapForm, WhatFacesTheViewerIsOneColourIn8Bits)
{
    IIO_Picture picture = filled(8, 8, {32768, 32768, 65535, 65535});
    NM_ditherTo8Bits(picture);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            EXPECT_EQ(pixelAt(picture, x, y), (Pixel{128 * 257, 128 * 257, 65535, 65535}));
}

TEST(MapForm, PadsBeforeTheCoverageIsGone)
{
    IIO_Picture picture = filled(5, 1, {32768, 32768, 65535, 0});
    std::ranges::copy(Pixel{100, 200, 300, 7}, picture.row<U16>(0).begin());
    NM_finishMap(picture, {.alpha = NM_Alpha::FULL, .pad = 2});
    EXPECT_EQ(pixelAt(picture, 0, 0), (Pixel{100, 200, 300, 65535}));
    EXPECT_EQ(pixelAt(picture, 2, 0), (Pixel{100, 200, 300, 65535}));
    EXPECT_EQ(pixelAt(picture, 3, 0), (Pixel{32768, 32768, 65535, 65535}));
    EXPECT_EQ(picture.metadata().value("Alpha"), "opaque");
    EXPECT_EQ(picture.metadata().value("Encoding"), "x = 2 R - 1, y = 2 G - 1, z = 2 B - 1");
}
