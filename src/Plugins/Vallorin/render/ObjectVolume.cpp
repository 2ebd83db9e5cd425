// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The steps of the pipeline in their order, once for both formats.
#include "render/ObjectVolume.h"

#include "BlurAlgo/BlurAlgo.h"
#include "QuarvelCelCore/CEL_WithFormat.h"
#include "render/CoverageMask.h"
#include "render/ElevationPlane.h"
#include "render/PixelTraits.h"
#include "render/VolumeModel.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// Few enough for a processor's cache, enough for several threads to compose them.
constexpr int kBandRows = 256;

struct VolumeSettings
{
    double bevel;
    int resolutionX;
    bool generateNormals;
    double elevation;
    int quality;
    double smoothness;
    bool clip;
    Math::Box2di covered;
    std::optional<Math::Box2di> shown;
    bool inBands;
};

// Clamped to four of the canvas's diagonals: a wider filter makes no visible difference.
double filterSize(const VolumeSettings& settings, const Math::Box2di& canvas)
{
    const double size = settings.bevel / kUnitsAcross * settings.resolutionX * 0.25;
    return std::min(size, 4.0 * std::hypot(canvas.width(), canvas.height()));
}

// The blurred mask; null when its rectangle is larger than a blur can handle.
UT_SharedPtr<CEL_PixmapAreaZ> blurredMask(const CEL_PixmapAreaZ& mask, const VolumeSettings& settings)
{
    constexpr int kRedAlone = 2;
    const double size = filterSize(settings, mask.canvasRect());
    FilterImage filter(0, 0);
    BlurAlgo::getGaussianFilter(filter, size, size, true);
    auto blurred = BlurAlgo::blur(mask, filter, mask.canvasRect(), kRedAlone, BlurAlgo::TRANSPARENT_PADDING)
                       .dynamicCast<CEL_PixmapAreaZ>();
    if (blurred)
        blurred->clipToCanvas();
    return blurred;
}

template<typename Pixel>
ElevationPlane bevelled(const CEL_PixmapAreaZ& mask, const CEL_PixmapArea& reference, const VolumeSettings& settings)
{
    const auto blurred = blurredMask(mask, settings);
    if (!blurred)
        return {};
    blurred->reallocToFit(reference);
    return roundAndClip<Pixel>(blurred, settings.clip ? &mask : nullptr);
}

ElevationPlane unbevelled(const UT_SharedPtr<CEL_PixmapAreaZ>& mask, const CEL_PixmapArea& reference)
{
    mask->reallocToFit(reference);
    return measure(mask);
}

// Stores the plane's values in R, and full in A where isFull(x, y, value) is true.
template<typename Pixel, typename IsFull>
void storeValues(const ElevationPlane& plane, const IsFull& isFull, CEL_PixmapOf<Pixel>& result)
{
    using Channel = typename VolumeTraits<Pixel>::Channel;
    const Math::Box2di& rect = plane.values->allocatedRect();
    result.realloc(rect, false);
    for (int y = rect.y1; y < rect.y2; ++y) {
        const std::span<const CEL_PixelFloat> source = plane.values->row(y);
        const std::span<Pixel> target = result.row(y);
        for (std::size_t i = 0; i < target.size(); ++i) {
            const int x = rect.x1 + static_cast<int>(i);
            const float value = plane.inside.contains(x, y) ? source[i].value : 0.0F;
            const bool full = isFull(x, y, value);
            target[i] = {static_cast<Channel>(value), 0, 0, full ? VolumeTraits<Pixel>::kFull : Channel{0}};
        }
    }
}

// Without a blur, a pixel is covered where the mask and the accumulator have it; with one, where its value is not 0.
template<typename Pixel>
void storeElevations(const ElevationPlane& plane, bool isBlurred, const Math::Box2di& maskRect,
                     CEL_PixmapOf<Pixel>& result)
{
    if (isBlurred)
        storeValues<Pixel>(
            plane, [](int, int, float value) { return value != 0.0F; }, result);
    else
        storeValues<Pixel>(
            plane, [&](int x, int y, float) { return maskRect.contains(x, y); }, result);
}

// The visible part of a plane: where the clip leaves elevations, with room for the normals beside them, and where the
// object is covered. A long blur reaches much further.
Math::Box2di visibleRect(const ElevationPlane& plane, const Math::Box2di& object, const Math::Box2di& covered,
                         const CEL_PixmapArea& reference)
{
    const Math::Box2di& whole = plane.values->allocatedRect();
    // With reference pixels, the covered area may extend beyond both.
    if (!reference.allocatedRect().isEmpty())
        return whole;
    Math::Box2di visible = plane.inside;
    visible.add(object);
    visible.add(covered);
    return visible.getIntersection(whole);
}

// A normal that is shown depends on normals one pixel away, if it is smoothed, and these on depths one pixel farther.
Math::Box2di shownPart(const Math::Box2di& visible, const std::optional<Math::Box2di>& shown)
{
    constexpr int kReach = 2;
    return shown ? visible.getIntersection(shown->getEnlarged(kReach)) : visible;
}

// A plane with what its normals depend on.
template<typename Pixel>
class RaisedPlane
{
public:
    RaisedPlane(ElevationPlane plane, const Math::Box2di& visible, const VolumeSettings& settings)
        : _plane(std::move(plane))
        , _visible(visible)
        , _profile(_plane.span, settings.smoothness,
                   VolumeTraits<Pixel>::kIsWhole ? ElevationProfile::Values::WHOLE : ElevationProfile::Values::ANY,
                   visible.area())
        , _rise(settings.elevation * 37.5 * static_cast<float>(_plane.values->canvasRect().width() / kUnitsAcross))
        , _quality(settings.quality)
    {}

    UT_SharedPtr<CEL_PixmapArea> build() const
    {
        const auto result = UT_makeShared<CEL_PixmapOf<Pixel>>(_plane.values->size(), _plane.values->canvasRect());
        buildNormals<Pixel>(surface(), _quality, *result);
        return result;
    }

    void buildBands(const TakeBand& take) const
    {
        buildNormalBands<Pixel>(surface(), _quality, *_plane.values, kBandRows, take);
    }

private:
    BevelSurface surface() const { return {_plane, _visible, _profile, _rise}; }

    ElevationPlane _plane;
    Math::Box2di _visible;
    ElevationProfile _profile;
    double _rise;
    int _quality;
};

template<typename Pixel>
ObjectVolume build(const CEL_PixmapArea& reference, AccumulatedObject object, const VolumeSettings& settings,
                   std::pair<float, float>& range)
{
    auto mask = makeMask(AccumulatedRows<Pixel>(object));
    const Math::Box2di objectRect = object.rect;
    object = {};
    if (!mask)
        return {};
    const bool isBlurred = settings.bevel > 0.0;
    const Math::Box2di maskRect = mask->allocatedRect().getIntersection(objectRect);
    ElevationPlane plane = isBlurred ? bevelled<Pixel>(*mask, reference, settings) : unbevelled(mask, reference);
    if (!plane.values)
        return {};
    const Math::Box2di rect = plane.values->allocatedRect();
    // Frees a sixth of the memory that an object takes.
    mask = nullptr;
    if (!settings.generateNormals) {
        const auto result = UT_makeShared<CEL_PixmapOf<Pixel>>(plane.values->size(), plane.values->canvasRect());
        range = elevationRange(plane.span);
        storeElevations<Pixel>(plane, isBlurred, maskRect, *result);
        return {result, {}, rect};
    }
    range = {0.0F, 1.0F};
    const Math::Box2di visible = shownPart(visibleRect(plane, objectRect, settings.covered, reference), settings.shown);
    if (settings.shown && visible.isEmpty())
        return {nullptr, {}, rect};
    const auto raised = std::make_shared<const RaisedPlane<Pixel>>(std::move(plane), visible, settings);
    if (settings.inBands)
        return {nullptr, [raised](const TakeBand& take) { raised->buildBands(take); }, rect};
    return {raised->build(), {}, rect};
}

} // namespace

ObjectVolume buildObjectVolume(const UT_SharedPtr<CEL_PixmapArea>& reference, double bevel, int resolutionX,
                               bool generateNormals, double elevation, AccumulatedObject object,
                               std::pair<float, float>& range, int quality, double smoothness, bool clip,
                               const Math::Box2di& covered, const std::optional<Math::Box2di>& shown, bool inBands)
{
    if (!reference || !object.merged || reference->format() != object.merged->format())
        return {};
    const VolumeSettings settings{bevel,      resolutionX, generateNormals, elevation, quality,
                                  smoothness, clip,        covered,         shown,     inBands};
    ObjectVolume volume;
    CEL_withFormat(*reference, [&](const auto& typed) {
        volume = build<CEL_PixelOf<decltype(typed)>>(typed, std::move(object), settings, range);
    });
    return volume;
}

ObjectVolume buildObjectVolume(const UT_SharedPtr<CEL_PixmapArea>& reference, double bevel, int resolutionX,
                               bool generateNormals, double elevation, UT_SharedPtr<CEL_PixmapArea> objectPixmap,
                               std::pair<float, float>& range, int quality, double smoothness, bool clip,
                               const Math::Box2di& covered)
{
    const Math::Box2di rect = objectPixmap ? objectPixmap->allocatedRect() : Math::Box2di();
    return buildObjectVolume(reference, bevel, resolutionX, generateNormals, elevation,
                             AccumulatedObject{std::move(objectPixmap), {}, rect}, range, quality, smoothness, clip,
                             covered);
}
