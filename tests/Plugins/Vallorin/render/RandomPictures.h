// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Random small pictures for comparisons with the reference: holes, flat areas, full and empty coverage, extremes,
// negative values, and rectangles anywhere around the canvas, including empty and one-pixel ones. The same seed gives
// the same pictures.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <random>

class RandomPictures
{
public:
    explicit RandomPictures(std::uint32_t seed) : _engine(seed) {}

    int whole(int low, int high) { return low + static_cast<int>(_engine() % static_cast<unsigned>(high - low + 1)); }
    bool chance(int oneIn) { return whole(1, oneIn) == 1; }
    double real(double low, double high)
    {
        return low + (high - low) * static_cast<double>(_engine()) / static_cast<double>(std::mt19937::max());
    }

    Math::Box2di box(int furthest, int largest)
    {
        if (chance(20))
            return {};
        const int x = whole(-furthest, furthest);
        const int y = whole(-furthest, furthest);
        return {x, y, x + (chance(6) ? 1 : whole(1, largest)), y + (chance(6) ? 1 : whole(1, largest))};
    }

    /// A picture of patches, like drawings: runs of equal pixels, with occasional noise.
    template<typename Pixel>
    UT_SharedPtr<CEL_PixmapOf<Pixel>> picture(const Math::Box2di& allocated, const Math::Box2di& canvas)
    {
        auto made = UT_makeShared<CEL_PixmapOf<Pixel>>(Math::Size2di{canvas.width(), canvas.height()}, canvas);
        made->realloc(allocated, true);
        const bool noisy = chance(3);
        Pixel current = pixel<Pixel>();
        for (int y = allocated.y1; y < allocated.y2; ++y)
            for (int x = allocated.x1; x < allocated.x2; ++x) {
                if (noisy || chance(4))
                    current = pixel<Pixel>();
                made->at(x, y) = !noisy && y > allocated.y1 && chance(2) ? made->at(x, y - 1) : current;
            }
        return made;
    }

    template<typename Pixel>
    Pixel pixel()
    {
        return {channel(Pixel{}.r), channel(Pixel{}.g), channel(Pixel{}.b), channel(Pixel{}.a)};
    }

    std::int16_t channel(std::int16_t)
    {
        static constexpr std::int16_t kOften[] = {0, 0, 32767, 32767, 32767, 16384, 1, 32766, 1024, 1025, 32439, 32440};
        if (chance(2))
            return kOften[whole(0, 11)];
        return static_cast<std::int16_t>(chance(12) ? whole(-32768, 32767) : whole(0, 32767));
    }

    float channel(float)
    {
        static constexpr float kOften[] = {0.0F, 0.0F, 1.0F, 1.0F, 1.0F, 0.5F, 0.9999F, 0.99995F, 1.5F, 1e-6F};
        if (chance(2))
            return kOften[whole(0, 9)];
        return static_cast<float>(chance(12) ? real(-1.0, 2.0) : real(0.0, 1.0));
    }

private:
    std::mt19937 _engine;
};
