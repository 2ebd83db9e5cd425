// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The merge: first the object's level, then the colours' where the source has pixels.
#include "render/LevelMerge.h"

#include <cmath>

namespace {

template<typename Pixel>
struct LevelTraits;

template<>
struct LevelTraits<CEL_PixelRGBA16>
{
    static constexpr std::int16_t kDefaultBlue = 1024;

    static float factor(std::int16_t coverage) { return static_cast<float>(coverage / 32767.0); }
    static std::int16_t scaled(std::int16_t value, float factor)
    {
        return static_cast<std::int16_t>(static_cast<float>(value) * factor);
    }
    static std::int16_t unscaled(std::int16_t value) { return value; }
};

template<>
struct LevelTraits<CEL_PixelRGBAFloat>
{
    static constexpr float kDefaultBlue = 0.5F;

    static float factor(float coverage) { return coverage; }
    static float scaled(float value, float factor) { return std::trunc(value * factor); }
    static float unscaled(float value) { return std::trunc(value); }
};

template<typename Pixel>
void setLevel(std::span<Pixel> target, decltype(Pixel::r) level)
{
    for (Pixel& pixel : target)
        pixel = pixel.a > 0 ? Pixel{level, 0, LevelTraits<Pixel>::kDefaultBlue, pixel.a} : Pixel{};
}

template<typename Pixel>
void setColours(std::span<Pixel> target, std::span<const Pixel> source, bool scaleByCoverage)
{
    using Traits = LevelTraits<Pixel>;
    for (std::size_t i = 0; i < target.size(); ++i) {
        if (!(source[i].a > 0))
            continue;
        if (scaleByCoverage) {
            const float factor = Traits::factor(target[i].a);
            target[i].g = Traits::scaled(source[i].r, factor);
            target[i].b = Traits::scaled(source[i].a, factor);
        } else {
            target[i].g = Traits::unscaled(source[i].r);
            target[i].b = Traits::unscaled(source[i].a);
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
