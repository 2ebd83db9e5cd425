// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The depth, row by row, once with the profile's power and once without.
#include "render/ElevationDepth.h"

#include "render/ElevationRange.h"
#include "render/PixelTraits.h"

namespace {

struct Linear
{
    float operator()(float x) const { return x; }
};

struct Power
{
    double p;

    float operator()(float x) const
    {
        if (!(x > 0.0F && x < 1.0F))
            return x;
        return static_cast<float>(std::exp(std::log(static_cast<double>(x)) / p));
    }
};

struct DepthSpan
{
    double low;
    double high;
};

template<typename Pixel, typename Profile>
void depthRow(std::span<Pixel> row, std::span<CEL_PixelFloat> depth, const PositiveSpan& span, const DepthSpan& depths,
              const Profile& profile)
{
    using Traits = VolumeTraits<Pixel>;
    const float k = span.highest > span.lowest ? 1.0F / (span.highest - span.lowest) : 1.0F;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!Traits::isElevated(row[i].r)) {
            row[i].r = 0;
            depth[i].value = static_cast<float>(depths.low);
            continue;
        }
        const float x = profile((static_cast<float>(row[i].r) - span.lowest) * k);
        row[i].b = Traits::storedElevation(x);
        depth[i].value = static_cast<float>((1.0F - x) * depths.low + x * depths.high);
    }
}

template<typename Pixel, typename Profile>
void depthRows(CEL_PixmapOf<Pixel>& blurred, CEL_PixmapAreaZ& depth, const PositiveSpan& span, const DepthSpan& depths,
               const Profile& profile)
{
    for (int y = depth.allocatedRect().y1; y < depth.allocatedRect().y2; ++y)
        depthRow<Pixel>(blurred.row(y), depth.row(y), span, depths, profile);
}

} // namespace

template<typename Pixel>
UT_SharedPtr<CEL_PixmapAreaZ> buildDepth(CEL_PixmapOf<Pixel>& blurred, double low, double high, double smoothness)
{
    constexpr double kDeepest = 1e38;
    const DepthSpan depths{std::clamp(low, -kDeepest, kDeepest), std::clamp(high, -kDeepest, kDeepest)};
    auto depth = UT_makeShared<CEL_PixmapAreaZ>(blurred.size(), blurred.canvasRect());
    depth->realloc(blurred.allocatedRect(), true);
    depth->setZRange(std::min(low, high), std::max(low, high));

    const PositiveSpan span = findPositiveSpan<Pixel>(blurred);
    if (span.lowest > span.highest)
        return depth;
    const double p = std::max(0.0, smoothness);
    if (p == 0.0 || p == 1.0)
        depthRows<Pixel>(blurred, *depth, span, depths, Linear{});
    else
        depthRows<Pixel>(blurred, *depth, span, depths, Power{p});
    return depth;
}

template UT_SharedPtr<CEL_PixmapAreaZ> buildDepth<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&, double, double, double);
template UT_SharedPtr<CEL_PixmapAreaZ> buildDepth<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&, double, double, double);
