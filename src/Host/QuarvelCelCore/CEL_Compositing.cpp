// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// One loop over the rows that both pictures have; one formula a pixel.
#include "QuarvelCelCore/CEL_Compositing.h"

#include <tbb/parallel_for.h>

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

template<typename Pixel>
Pixel over(const Pixel& top, const Pixel& bottom)
{
    const Below<Pixel> channel(top);
    return {channel(top.r, bottom.r), channel(top.g, bottom.g), channel(top.b, bottom.b), channel(top.a, bottom.a)};
}

template<typename Pixel>
Pixel cut(const Pixel& shape, const Pixel& bottom)
{
    const Below<Pixel> channel(shape);
    return {channel({}, bottom.r), channel({}, bottom.g), channel({}, bottom.b), channel({}, bottom.a)};
}

template<typename Pixel, typename Operation>
void work(const CEL_PixmapArea& top, CEL_PixmapArea& target, const Operation& operation)
{
    const auto& source = static_cast<const CEL_PixmapOf<Pixel>&>(top);
    auto& pixels = static_cast<CEL_PixmapOf<Pixel>&>(target);
    const Math::Box2di rect = source.allocatedRect().getIntersection(pixels.allocatedRect());
    if (rect.isEmpty())
        return;
    const auto from = static_cast<std::size_t>(rect.x1 - source.allocatedRect().x1);
    const auto to = static_cast<std::size_t>(rect.x1 - pixels.allocatedRect().x1);
    const auto width = static_cast<std::size_t>(rect.width());
    tbb::parallel_for(tbb::blocked_range<int>(rect.y1, rect.y2, 16), [&](const tbb::blocked_range<int>& rows) {
        for (int y = rows.begin(); y < rows.end(); ++y) {
            const auto above = source.row(y).subspan(from, width);
            const auto below = pixels.row(y).subspan(to, width);
            for (std::size_t i = 0; i < width; ++i)
                // Where nothing is painted, the lower pixel stays unchanged.
                if (above[i] != Pixel{})
                    below[i] = operation(above[i], below[i]);
        }
    });
}

} // namespace

void CEL_paintOver(const CEL_PixmapArea& top, CEL_PixmapArea& target)
{
    assert(top.format() == target.format());
    target.reallocToFit(top);
    if (top.format() == CEL_FORMAT_RGBA16)
        work<CEL_PixelRGBA16>(top, target, over<CEL_PixelRGBA16>);
    else
        work<CEL_PixelRGBAFloat>(top, target, over<CEL_PixelRGBAFloat>);
}

void CEL_cutOut(const CEL_PixmapArea& shape, CEL_PixmapArea& target)
{
    assert(shape.format() == target.format());
    if (shape.format() == CEL_FORMAT_RGBA16)
        work<CEL_PixelRGBA16>(shape, target, cut<CEL_PixelRGBA16>);
    else
        work<CEL_PixelRGBAFloat>(shape, target, cut<CEL_PixelRGBAFloat>);
}
