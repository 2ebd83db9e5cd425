// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The merge: first the object's level, then the colours' where the source has pixels.
#include "render/LevelMerge.h"

#include "render/PixelTraits.h"

namespace {

template<typename Pixel>
void setLevel(std::span<Pixel> target, decltype(Pixel::r) level)
{
    for (Pixel& pixel : target)
        pixel = pixel.a > 0 ? Pixel{level, 0, VolumeTraits<Pixel>::kDefaultBlue, pixel.a} : Pixel{};
}

template<typename Pixel>
void setColours(std::span<Pixel> target, std::span<const Pixel> source, bool scaleByCoverage)
{
    using Traits = VolumeTraits<Pixel>;
    for (std::size_t i = 0; i < target.size(); ++i) {
        if (!(source[i].a > 0))
            continue;
        if (scaleByCoverage) {
            const float share = Traits::shareOf(target[i].a);
            target[i].g = Traits::scaledColour(source[i].r, share);
            target[i].b = Traits::scaledColour(source[i].a, share);
        } else {
            target[i].g = Traits::colour(source[i].r);
            target[i].b = Traits::colour(source[i].a);
        }
    }
}

} // namespace

template<typename Pixel>
void mergeLevel(CEL_PixmapOf<Pixel>& target, const CEL_PixmapOf<Pixel>& source,
                typename CEL_PixelTraits<Pixel>::Channel level, bool scaleByCoverage)
{
    const Math::Box2di& rect = target.allocatedRect();
    const Math::Box2di common = rect.getIntersection(source.allocatedRect());
    const auto width = static_cast<std::size_t>(common.width());
    for (int y = rect.y1; y < rect.y2; ++y) {
        setLevel<Pixel>(target.row(y), level);
        if (width == 0 || y < common.y1 || y >= common.y2)
            continue;
        const auto to = static_cast<std::size_t>(common.x1 - rect.x1);
        const auto from = static_cast<std::size_t>(common.x1 - source.allocatedRect().x1);
        setColours<Pixel>(target.row(y).subspan(to, width), source.row(y).subspan(from, width), scaleByCoverage);
    }
}

template void mergeLevel<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&, const CEL_PixmapAreaRGBA16&, std::int16_t, bool);
template void mergeLevel<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&, const CEL_PixmapAreaRGBAFloat&, float, bool);
