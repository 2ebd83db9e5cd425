// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The steps of the pipeline in their order, once for both formats.
#include "render/ObjectVolume.h"

#include "BlurAlgo/BlurAlgo.h"
#include "render/CoverageMask.h"
#include "render/ElevationDepth.h"
#include "render/ElevationRange.h"
#include "render/GeometryClip.h"
#include "render/NormalMap.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kUnitsAcross = 720.0;

struct VolumeSettings
{
    double bevel;
    int resolutionX;
    bool generateNormals;
    double elevation;
    int quality;
    double smoothness;
    bool clip;
};

// What is wider than four of the canvas's diagonals makes no difference that could be seen.
double filterSize(const VolumeSettings& settings, const Math::Box2di& canvas)
{
    const double size = settings.bevel / kUnitsAcross * settings.resolutionX * 0.25;
    return std::min(size, 4.0 * std::hypot(canvas.width(), canvas.height()));
}

// The blurred mask; null when there is no memory for it. What lies outside of the canvas goes before the clip looks at
// it, which comes to the same.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> bevelled(const UT_SharedPtr<CEL_PixmapOf<Pixel>>& mask,
                                           const VolumeSettings& settings)
{
    if (!(settings.bevel > 0.0))
        return mask;
    constexpr int kRedAlone = 2;
    const double size = filterSize(settings, mask->canvasRect());
    FilterImage filter(0, 0);
    BlurAlgo::getGaussianFilter(filter, size, size, true);
    auto blurred = BlurAlgo::blur(*mask, filter, mask->canvasRect(), kRedAlone, static_cast<BlurAlgo::PaddingType>(0))
                       .template dynamicCast<CEL_PixmapOf<Pixel>>();
    if (!blurred)
        return nullptr;
    blurred->clipToCanvas();
    if (settings.clip)
        clipWithGeometry<Pixel>(*blurred, *mask);
    return blurred;
}

template<typename Pixel>
UT_SharedPtr<CEL_PixmapArea> build(const CEL_PixmapArea& reference, const CEL_PixmapOf<Pixel>& objectPixmap,
                                   const VolumeSettings& settings, std::pair<float, float>& range)
{
    const auto mask = makeMask<Pixel>(objectPixmap);
    if (!mask)
        return nullptr;
    const auto blurred = bevelled<Pixel>(mask, settings);
    if (!blurred)
        return nullptr;
    range = {0.0F, 1.0F};
    blurred->reallocToFit(reference);
    if (!settings.generateNormals) {
        range = elevationRange(findPositiveSpan<Pixel>(*blurred));
        return blurred;
    }
    const auto canvasFactor = static_cast<float>(blurred->canvasRect().width() / kUnitsAcross);
    const double high = settings.elevation * 37.5 * canvasFactor;
    const auto depth = buildDepth<Pixel>(*blurred, 0.0, high, settings.smoothness);
    return buildNormals<Pixel>(*depth, *blurred, settings.quality);
}

} // namespace

UT_SharedPtr<CEL_PixmapArea> buildObjectVolume(const UT_SharedPtr<CEL_PixmapArea>& reference, double bevel,
                                               int resolutionX, bool generateNormals, double elevation,
                                               const UT_SharedPtr<CEL_PixmapArea>& objectPixmap,
                                               std::pair<float, float>& range, int quality, double smoothness,
                                               bool clip)
{
    if (!reference || !objectPixmap || reference->format() != objectPixmap->format())
        return nullptr;
    const VolumeSettings settings{bevel, resolutionX, generateNormals, elevation, quality, smoothness, clip};
    if (const auto object16 = objectPixmap.dynamicCast<CEL_PixmapAreaRGBA16>())
        return build<CEL_PixelRGBA16>(*reference, *object16, settings, range);
    if (const auto objectFloat = objectPixmap.dynamicCast<CEL_PixmapAreaRGBAFloat>())
        return build<CEL_PixelRGBAFloat>(*reference, *objectFloat, settings, range);
    return nullptr;
}
