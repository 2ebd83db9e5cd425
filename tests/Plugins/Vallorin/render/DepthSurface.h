// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Surfaces from depths that tests write out, and conversion of the module's surfaces to pictures.
#pragma once

#include "render/ElevationSurface.h"
#include "render/NormalMap.h"

#include <algorithm>

/// The surface of a depth pixmap, with the same elevation everywhere.
class DepthSurface final : public ElevationSurface
{
public:
    /// @param share the elevation, from 0 to 1
    explicit DepthSurface(const CEL_PixmapAreaZ& depth, float share = 0.0F) : _depth(depth), _share(share) {}

    const Math::Box2di& rect() const override { return _depth.allocatedRect(); }

    ColumnSpan row(int y, float* share, float* depth) const override
    {
        const auto source = _depth.row(y);
        std::fill_n(share, source.size(), _share);
        std::ranges::transform(source, depth, [](const CEL_PixelFloat& pixel) { return pixel.value; });
        return {0, static_cast<int>(source.size())};
    }

private:
    const CEL_PixmapAreaZ& _depth;
    float _share;
};

/// The normals of a surface on a canvas.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> normalsOf(const ElevationSurface& surface, int quality, const Math::Box2di& canvas)
{
    auto normals = UT_makeShared<CEL_PixmapOf<Pixel>>(Math::Size2di{canvas.width(), canvas.height()}, canvas);
    buildNormals<Pixel>(surface, quality, *normals);
    return normals;
}

/// One channel of a picture as a plane.
template<typename Pixel>
UT_SharedPtr<CEL_PixmapAreaZ> planeOfRed(const CEL_PixmapOf<Pixel>& picture)
{
    auto plane = UT_makeShared<CEL_PixmapAreaZ>(picture.size(), picture.canvasRect());
    const Math::Box2di& rect = picture.allocatedRect();
    plane->realloc(rect, true);
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x)
            plane->at(x, y).value = static_cast<float>(picture.at(x, y).r);
    return plane;
}

/// Makes the profile in the same way as the volume.
template<typename Pixel>
ElevationProfile profileOf(const ElevationPlane& plane, double smoothness)
{
    constexpr bool kWhole = std::is_integral_v<decltype(Pixel::r)>;
    return {plane.span, smoothness, kWhole ? ElevationProfile::Values::WHOLE : ElevationProfile::Values::ANY,
            plane.values->allocatedRect().area()};
}
