// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The merge, and the differences between the two formats.
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
void mergePixel(Pixel& target, const Pixel* source, decltype(Pixel::r) level, bool scaleByCoverage)
{
    using Traits = LevelTraits<Pixel>;
    const auto coverage = target.a > 0 ? target.a : decltype(target.a){};
    target = target.a > 0 ? Pixel{level, 0, Traits::kDefaultBlue, coverage} : Pixel{};
    if (!source || !(source->a > 0))
        return;
    if (scaleByCoverage) {
        const float factor = Traits::factor(coverage);
        target.g = Traits::scaled(source->r, factor);
        target.b = Traits::scaled(source->a, factor);
        return;
    }
    target.g = Traits::unscaled(source->r);
    target.b = Traits::unscaled(source->a);
}

} // namespace

template<typename Pixel>
void mergeLevel(CEL_PixmapOf<Pixel>& target, const CEL_PixmapOf<Pixel>& source,
                typename CEL_PixelTraits<Pixel>::Channel level, bool scaleByCoverage)
{
    const Math::Box2di rect = target.allocatedRect();
    const Math::Box2di from = source.allocatedRect();
    for (int y = rect.y1; y < rect.y2; ++y) {
        const std::span<Pixel> row = target.row(y);
        const Pixel* sourceRow = y >= from.y1 && y < from.y2 ? source.row(y).data() : nullptr;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const int x = rect.x1 + static_cast<int>(i);
            const bool exists = sourceRow && x >= from.x1 && x < from.x2;
            mergePixel(row[i], exists ? sourceRow + (x - from.x1) : nullptr, level, scaleByCoverage);
        }
    }
}

template void mergeLevel<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&, const CEL_PixmapAreaRGBA16&, std::int16_t, bool);
template void mergeLevel<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&, const CEL_PixmapAreaRGBAFloat&, float, bool);
