// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Shared by the tests of normal pictures: makes pixmaps with known or random pixels and reads the samples of pictures.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "QuarvelImageIO/IIO_Picture.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using Pixel16 = CEL_PixelRGBA16;
using PixelFloat = CEL_PixelRGBAFloat;

/// Allocates a pixmap to the rectangle and fills it, row by row, with the pixels that next() returns.
template<typename Pixmap, typename Next>
void fill(Pixmap& pixmap, const Math::Box2di& rect, Next next)
{
    pixmap.realloc(rect, true);
    for (int y = rect.y1; y < rect.y2; ++y)
        for (auto& pixel : pixmap.row(y))
            pixel = next();
}

/// A pixmap with a canvas of 64 x 64 and the given pixels in the rectangle.
template<typename Pixel>
class TestPixmap
{
public:
    TestPixmap(const Math::Box2di& rect, const std::vector<Pixel>& pixels) : _pixmap({64, 64}, {0, 0, 64, 64})
    {
        auto next = pixels.begin();
        fill(_pixmap, rect, [&] { return *next++; });
    }

    operator const CEL_PixmapArea&() const { return _pixmap; }
    const CEL_PixmapArea* get() const { return &_pixmap; }

private:
    CEL_PixmapOf<Pixel> _pixmap;
};

/// Random 16-bit pixels; some are empty.
class RandomPixel16
{
public:
    explicit RandomPixel16(unsigned seed) : _random(seed) {}

    Pixel16 operator()()
    {
        if (_any(_random) % 4 == 0)
            return {0, 0, 32767, 0};
        return {channel(), channel(), channel(), channel()};
    }

private:
    std::int16_t channel() { return static_cast<std::int16_t>(_any(_random)); }

    std::mt19937 _random;
    std::uniform_int_distribution<int> _any{0, 32767};
};

/// The four samples of a picture's pixel.
template<typename Sample>
std::vector<Sample> samplesAt(const IIO_Picture& picture, int x, int y)
{
    const auto channels = static_cast<std::size_t>(picture.channelCount());
    const auto pixel =
        picture.row<Sample>(y).subspan(static_cast<std::size_t>(x - picture.dataWindow().x1) * channels, channels);
    return {pixel.begin(), pixel.end()};
}

/// All samples of a picture.
template<typename Sample>
std::vector<Sample> allSamples(const IIO_Picture& picture)
{
    std::vector<Sample> samples;
    for (int y = picture.dataWindow().y1; y < picture.dataWindow().y2; ++y) {
        const auto row = picture.row<Sample>(y);
        samples.insert(samples.end(), row.begin(), row.end());
    }
    return samples;
}
