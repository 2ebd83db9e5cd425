// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One pixel over another and one pixel cut out of another: the formulas of CEL_Compositing.h.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"

#include <algorithm>
#include <type_traits>

// A channel of the lower pixel, attenuated by the pixel above it.
template<typename Pixel>
struct CEL_Below
{
    using Traits = CEL_PixelTraits<Pixel>;
    using Channel = typename Traits::Channel;

    explicit CEL_Below(const Pixel& top)
        : through((static_cast<double>(Traits::kFull) - static_cast<double>(top.a)) /
                  static_cast<double>(Traits::kFull))
    {}

    Channel operator()(Channel above, Channel below) const
    {
        return Traits::toChannel(static_cast<double>(above) + static_cast<double>(below) * through);
    }

    double through;
};

// The same in integers, for channels that are not negative. The quotient below * through / 32767 is never halfway
// between two integers, because 32767 is odd, and never nearer to that than 1 / 65534; so rounding it gives what the
// formula in double precision gives. For n < 2^30, (n + (n >> 15) + 1) >> 15 is n / 32767, rounded down.
struct CEL_WholeBelow
{
    explicit CEL_WholeBelow(const CEL_PixelRGBA16& top) : through(32767 - top.a) {}

    static bool isPossible(const CEL_PixelRGBA16& top, const CEL_PixelRGBA16& bottom)
    {
        return (top.a | bottom.r | bottom.g | bottom.b | bottom.a) >= 0;
    }

    std::int16_t operator()(int above, int below) const
    {
        const int n = below * through + 16383;
        const int sum = above + ((n + (n >> 15) + 1) >> 15);
        return static_cast<std::int16_t>(std::clamp(sum, -32767, 32767));
    }

    int through;
};

template<typename Channel, typename Pixel>
Pixel CEL_composed(const Channel& channel, const Pixel& above, const Pixel& below)
{
    return {channel(above.r, below.r), channel(above.g, below.g), channel(above.b, below.b), channel(above.a, below.a)};
}

// @param above what is painted: the top's own channels, or nothing where it only cuts
template<typename Pixel>
Pixel CEL_covered(const Pixel& top, const Pixel& above, const Pixel& bottom)
{
    if constexpr (std::is_same_v<Pixel, CEL_PixelRGBA16>)
        if (CEL_WholeBelow::isPossible(top, bottom)) {
            if (top.a == 32767 && (above.r | above.g | above.b) >= 0)
                return above;
            return CEL_composed(CEL_WholeBelow(top), above, bottom);
        }
    return CEL_composed(CEL_Below<Pixel>(top), above, bottom);
}

/// The upper pixel painted over the lower one.
template<typename Pixel>
Pixel CEL_pixelOver(const Pixel& top, const Pixel& bottom)
{
    return CEL_covered(top, top, bottom);
}

/// The lower pixel with a shape cut out of it.
template<typename Pixel>
Pixel CEL_pixelCut(const Pixel& shape, const Pixel& bottom)
{
    return CEL_covered(shape, Pixel{}, bottom);
}
