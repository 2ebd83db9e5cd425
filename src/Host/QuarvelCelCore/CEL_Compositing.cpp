// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One loop over the rows that both pictures have; one formula a pixel.
#include "QuarvelCelCore/CEL_Compositing.h"
#include "QuarvelVectorLanes/VL_ParallelFor.h"

#include <algorithm>

namespace {

// A channel of the lower pixel, attenuated by the pixel above it.
template<typename Pixel>
struct Below
{
    using Traits = CEL_PixelTraits<Pixel>;
    using Channel = typename Traits::Channel;

    explicit Below(const Pixel& top)
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
struct WholeBelow
{
    explicit WholeBelow(const CEL_PixelRGBA16& top) : through(32767 - top.a) {}

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
Pixel composed(const Channel& channel, const Pixel& above, const Pixel& below)
{
    return {channel(above.r, below.r), channel(above.g, below.g), channel(above.b, below.b), channel(above.a, below.a)};
}

// @param above what is painted: the top's own channels, or nothing where it only cuts
template<typename Pixel>
Pixel covered(const Pixel& top, const Pixel& above, const Pixel& bottom)
{
    if constexpr (std::is_same_v<Pixel, CEL_PixelRGBA16>)
        if (WholeBelow::isPossible(top, bottom)) {
            if (top.a == 32767 && (above.r | above.g | above.b) >= 0)
                return above;
            return composed(WholeBelow(top), above, bottom);
        }
    return composed(Below<Pixel>(top), above, bottom);
}

template<typename Pixel>
Pixel over(const Pixel& top, const Pixel& bottom)
{
    return covered(top, top, bottom);
}

template<typename Pixel>
Pixel cut(const Pixel& shape, const Pixel& bottom)
{
    return covered(shape, Pixel{}, bottom);
}

template<typename Pixel, auto kOperation>
void work(const CEL_PixmapArea& top, CEL_PixmapArea& target)
{
    const auto& source = static_cast<const CEL_PixmapOf<Pixel>&>(top);
    auto& pixels = static_cast<CEL_PixmapOf<Pixel>&>(target);
    const Math::Box2di rect = source.allocatedRect().getIntersection(pixels.allocatedRect());
    if (rect.isEmpty())
        return;
    const auto from = static_cast<std::size_t>(rect.x1 - source.allocatedRect().x1);
    const auto to = static_cast<std::size_t>(rect.x1 - pixels.allocatedRect().x1);
    const auto width = static_cast<std::size_t>(rect.width());
    VL_parallelFor(tbb::blocked_range<int>(rect.y1, rect.y2, 16), [&](const tbb::blocked_range<int>& rows) {
        for (int y = rows.begin(); y < rows.end(); ++y) {
            const auto above = source.row(y).subspan(from, width);
            const auto below = pixels.row(y).subspan(to, width);
            for (std::size_t i = 0; i < width; ++i)
                // Where nothing is painted, the lower pixel stays unchanged.
                if (above[i] != Pixel{})
                    below[i] = kOperation(above[i], below[i]);
        }
    });
}

} // namespace

void CEL_paintOver(const CEL_PixmapArea& top, CEL_PixmapArea& target)
{
    assert(top.format() == target.format());
    target.reallocToFit(top);
    if (top.format() == CEL_FORMAT_RGBA16)
        work<CEL_PixelRGBA16, over<CEL_PixelRGBA16>>(top, target);
    else
        work<CEL_PixelRGBAFloat, over<CEL_PixelRGBAFloat>>(top, target);
}

void CEL_cutOut(const CEL_PixmapArea& shape, CEL_PixmapArea& target)
{
    assert(shape.format() == target.format());
    if (shape.format() == CEL_FORMAT_RGBA16)
        work<CEL_PixelRGBA16, cut<CEL_PixelRGBA16>>(shape, target);
    else
        work<CEL_PixelRGBAFloat, cut<CEL_PixelRGBAFloat>>(shape, target);
}
