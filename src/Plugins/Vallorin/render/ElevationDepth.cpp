// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The depth, row by row. Elevations come from one of three small functions of a value, so that the power of the profile
// costs nothing where it is linear, and in 16 bits no more than once a value.
#include "render/ElevationDepth.h"

#include "render/ElevationRange.h"
#include "render/PixelTraits.h"

#include <vector>

namespace {

// A value's share of the span.
struct LinearProfile
{
    explicit LinearProfile(const PositiveSpan& span)
        : lowest(span.lowest), k(span.highest > span.lowest ? 1.0F / (span.highest - span.lowest) : 1.0F)
    {}

    float operator()(float value) const { return (value - lowest) * k; }

    float lowest;
    float k;
};

// The same to the power 1 / p.
struct PowerProfile
{
    float operator()(float value) const
    {
        const float x = linear(value);
        if (!(x > 0.0F && x < 1.0F))
            return x;
        return static_cast<float>(std::exp(std::log(static_cast<double>(x)) / p));
    }

    LinearProfile linear;
    double p;
};

// The same for whole numbers, looked up.
struct TabulatedProfile
{
    TabulatedProfile(const PowerProfile& profile, const PositiveSpan& span) : lowest(static_cast<int>(span.lowest))
    {
        for (int value = lowest; value <= static_cast<int>(span.highest); ++value)
            shares.push_back(profile(static_cast<float>(value)));
    }

    float operator()(std::int16_t value) const { return shares[static_cast<std::size_t>(value - lowest)]; }

    int lowest;
    std::vector<float> shares;
};

struct DepthSpan
{
    double low;
    double high;
};

template<typename Pixel, typename Profile>
void depthRow(std::span<Pixel> row, std::span<CEL_PixelFloat> depth, const DepthSpan& depths, const Profile& profile)
{
    using Traits = VolumeTraits<Pixel>;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!Traits::isElevated(row[i].r)) {
            row[i].r = 0;
            depth[i].value = static_cast<float>(depths.low);
            continue;
        }
        const float x = profile(row[i].r);
        row[i].b = Traits::storedElevation(x);
        depth[i].value = static_cast<float>((1.0F - x) * depths.low + x * depths.high);
    }
}

template<typename Pixel, typename Profile>
void depthRows(CEL_PixmapOf<Pixel>& blurred, CEL_PixmapAreaZ& depth, const DepthSpan& depths, const Profile& profile)
{
    for (int y = depth.allocatedRect().y1; y < depth.allocatedRect().y2; ++y)
        depthRow<Pixel>(blurred.row(y), depth.row(y), depths, profile);
}

// Where there are more pixels than values, each value's power is taken once.
void powerRows(CEL_PixmapAreaRGBA16& blurred, CEL_PixmapAreaZ& depth, const DepthSpan& depths,
               const PowerProfile& profile, const PositiveSpan& span)
{
    if (static_cast<float>(blurred.allocatedRect().area()) > span.highest - span.lowest)
        depthRows<CEL_PixelRGBA16>(blurred, depth, depths, TabulatedProfile(profile, span));
    else
        depthRows<CEL_PixelRGBA16>(blurred, depth, depths, profile);
}

void powerRows(CEL_PixmapAreaRGBAFloat& blurred, CEL_PixmapAreaZ& depth, const DepthSpan& depths,
               const PowerProfile& profile, const PositiveSpan&)
{
    depthRows<CEL_PixelRGBAFloat>(blurred, depth, depths, profile);
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
    const LinearProfile linear(span);
    if (p == 0.0 || p == 1.0)
        depthRows<Pixel>(blurred, *depth, depths, linear);
    else
        powerRows(blurred, *depth, depths, PowerProfile{linear, p}, span);
    return depth;
}

template UT_SharedPtr<CEL_PixmapAreaZ> buildDepth<CEL_PixelRGBA16>(CEL_PixmapAreaRGBA16&, double, double, double);
template UT_SharedPtr<CEL_PixmapAreaZ> buildDepth<CEL_PixelRGBAFloat>(CEL_PixmapAreaRGBAFloat&, double, double, double);
