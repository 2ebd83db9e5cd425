// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Turns and mirrors vectors in place.
#include "QuarvelNormalMap/NM_TurnVectors.h"

#include "Pixmaps.h"

#include <array>

namespace {

using U16 = std::uint16_t;
using Pixel = std::array<U16, 4>;

IIO_Picture onePixel(const Pixel& pixel)
{
    IIO_Picture picture = std::move(IIO_Picture::create(IIO_SampleType::UINT16, {1, 1}, IIO_channelsRgba()).value());
    std::ranges::copy(pixel, picture.row<U16>(0).begin());
    return picture;
}

Pixel turned(const Pixel& pixel, int quarterTurns, NM_YAxis yAxis)
{
    IIO_Picture picture = onePixel(pixel);
    NM_turnVectors(picture, quarterTurns, yAxis);
    Pixel result{};
    std::ranges::copy(picture.row<U16>(0), result.begin());
    return result;
}

constexpr U16 kZero = 32768;
constexpr U16 kPlus = 60000;
constexpr U16 kMinus = 65535 - 60000;
constexpr Pixel kRight{kPlus, kZero, 50000, 123};

} // namespace

TEST(TurnVectors, ClockwiseTakesRightToBelow)
{
    EXPECT_EQ(turned(kRight, 1, NM_YAxis::UP), (Pixel{kZero, kMinus, 50000, 123}));
    EXPECT_EQ(turned(kRight, 1, NM_YAxis::DOWN), (Pixel{kZero, kPlus, 50000, 123}));
}

TEST(TurnVectors, CounterClockwiseTakesRightToAbove)
{
    EXPECT_EQ(turned(kRight, 3, NM_YAxis::UP), (Pixel{kZero, kPlus, 50000, 123}));
    EXPECT_EQ(turned(kRight, -1, NM_YAxis::DOWN), (Pixel{kZero, kMinus, 50000, 123}));
}

TEST(TurnVectors, HalfATurnTakesBothToTheOtherSide)
{
    EXPECT_EQ(turned({kPlus, kMinus, 1, 2}, 2, NM_YAxis::UP), (Pixel{kMinus, kPlus, 1, 2}));
    EXPECT_EQ(turned({kPlus, kMinus, 1, 2}, 4, NM_YAxis::UP), (Pixel{kPlus, kMinus, 1, 2}));
}

TEST(TurnVectors, WhatFacesTheViewerGoesOnDoingSo)
{
    const Pixel flat8{128 * 257, 128 * 257, 65535, 65535};
    for (int turns = 0; turns < 4; ++turns) {
        EXPECT_EQ(turned({kZero, kZero, 65535, 0}, turns, NM_YAxis::UP), (Pixel{kZero, kZero, 65535, 0}));
        EXPECT_EQ(turned(flat8, turns, NM_YAxis::UP), flat8);
    }
}

TEST(MirrorVectors, TurnsTheSignOfOneAxis)
{
    IIO_Picture leftRight = onePixel({kPlus, kPlus, 7, 8});
    NM_mirrorVectors(leftRight, true, false);
    EXPECT_EQ(allSamples<U16>(leftRight), (std::vector<U16>{kMinus, kPlus, 7, 8}));
    IIO_Picture upDown = onePixel({kPlus, kPlus, 7, 8});
    NM_mirrorVectors(upDown, false, true);
    EXPECT_EQ(allSamples<U16>(upDown), (std::vector<U16>{kPlus, kMinus, 7, 8}));
}
