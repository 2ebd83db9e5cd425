// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Bridges the code under test and its slow reference: pixmaps to reference pictures and back, and the reference's
// functions by pixel type, so that one test serves both formats. Results must agree exactly unless stated otherwise, in
// float too: both sides take the same steps in the same order, so a difference of one bit means a wrong step. Normals
// in float, which the reference computes in double precision, may differ slightly.
#pragma once

#include "BlurAlgo/BlurAlgo.h"
#include "QuarvelCelCore/CEL_PixmapArea.h"
#include "reference/Accumulator.h"
#include "reference/Blend.h"
#include "reference/Compare.h"
#include "reference/Elevation.h"
#include "reference/GeometryClip.h"
#include "reference/Mask.h"
#include "reference/Normals.h"
#include "reference/Render.h"
#include "reference/StageMerge.h"
#include "reference/Volume.h"

#include <gtest/gtest.h>

/// How far normals in float, which are partly computed in single precision, may be from the reference's.
constexpr double kNormalsInFloat = 1e-6;

inline reference::RefBox toRef(const Math::Box2di& box)
{
    return {box.x1, box.y1, box.x2, box.y2};
}

inline Math::Box2di fromRef(const reference::RefBox& box)
{
    return {box.x1, box.y1, box.x2, box.y2};
}

template<typename Pixel>
struct ReferenceFormat;

template<>
struct ReferenceFormat<CEL_PixelRGBA16>
{
    using RefPixel = reference::RefPixel16;
    using RefPicture = reference::RefImage16;
    using Input = reference::RefInput16;

    static constexpr auto render = reference::render16;
    static constexpr auto accumulate = reference::accumulate16;
    static constexpr auto makeMask = reference::makeMask16;
    static constexpr auto clipToGeometry = reference::clipToGeometry16;
    static constexpr auto shapeVolume = reference::shapeVolume16;
    static constexpr auto makeDepth = reference::makeDepth16;
    static constexpr auto makeNormals = reference::makeNormals16;
    static constexpr auto blendNormal = reference::blendNormal16;
    static constexpr auto stageMerge = reference::stageMerge16;
    static constexpr auto stageLevel = reference::stageLevel16;

    static std::string differences(const RefPicture& expected, const RefPicture& actual, double /*tolerance*/)
    {
        return reference::differences(expected, actual);
    }
};

template<>
struct ReferenceFormat<CEL_PixelRGBAFloat>
{
    using RefPixel = reference::RefPixelFloat;
    using RefPicture = reference::RefImageFloat;
    using Input = reference::RefInputFloat;

    static constexpr auto render = reference::renderFloat;
    static constexpr auto accumulate = reference::accumulateFloat;
    static constexpr auto makeMask = reference::makeMaskFloat;
    static constexpr auto clipToGeometry = reference::clipToGeometryFloat;
    static constexpr auto shapeVolume = reference::shapeVolumeFloat;
    static constexpr auto makeDepth = reference::makeDepthFloat;
    static constexpr auto makeNormals = reference::makeNormalsFloat;
    static constexpr auto blendNormal = reference::blendNormalFloat;
    static constexpr auto stageMerge = reference::stageMergeFloat;
    static constexpr auto stageLevel = reference::stageLevelFloat;

    static std::string differences(const RefPicture& expected, const RefPicture& actual, double tolerance)
    {
        return reference::differences(expected, actual, tolerance);
    }
};

template<typename Pixel>
using RefPictureOf = typename ReferenceFormat<Pixel>::RefPicture;

template<typename Pixel>
RefPictureOf<Pixel> toRef(const CEL_PixmapOf<Pixel>& pixmap)
{
    RefPictureOf<Pixel> picture(toRef(pixmap.allocatedRect()), toRef(pixmap.canvasRect()), pixmap.size().width,
                                pixmap.size().height);
    for (int y = picture.box.y1; y < picture.box.y2; ++y)
        for (int x = picture.box.x1; x < picture.box.x2; ++x) {
            const Pixel& p = pixmap.at(x, y);
            picture.at(x, y) = {p.r, p.g, p.b, p.a};
        }
    return picture;
}

inline reference::RefDepth toRef(const CEL_PixmapAreaZ& depth)
{
    reference::RefDepth picture(toRef(depth.allocatedRect()), toRef(depth.canvasRect()), depth.size().width,
                                depth.size().height);
    for (int y = picture.box.y1; y < picture.box.y2; ++y)
        for (int x = picture.box.x1; x < picture.box.x2; ++x)
            picture.at(x, y) = depth.at(x, y).value;
    picture.rangeLow = depth.zRangeLow();
    picture.rangeHigh = depth.zRangeHigh();
    return picture;
}

template<typename Pixel>
UT_SharedPtr<CEL_PixmapOf<Pixel>> fromRef(const RefPictureOf<Pixel>& picture)
{
    auto pixmap =
        UT_makeShared<CEL_PixmapOf<Pixel>>(Math::Size2di{picture.width, picture.height}, fromRef(picture.canvas));
    pixmap->realloc(fromRef(picture.box), true);
    for (int y = picture.box.y1; y < picture.box.y2; ++y)
        for (int x = picture.box.x1; x < picture.box.x2; ++x) {
            const auto& p = picture.at(x, y);
            pixmap->at(x, y) = {p.r, p.g, p.b, p.a};
        }
    return pixmap;
}

/// The production blur behind the reference's interface, so that both sides continue from the same blurred picture.
template<typename Pixel>
RefPictureOf<Pixel> productionBlur(const RefPictureOf<Pixel>& mask, double sigma)
{
    FilterImage filter(0, 0);
    BlurAlgo::getGaussianFilter(filter, sigma, sigma, true);
    const auto pixmap = fromRef<Pixel>(mask);
    const auto blurred = BlurAlgo::blur(*pixmap, filter, pixmap->canvasRect(), 2, BlurAlgo::TRANSPARENT_PADDING);
    return toRef<Pixel>(*blurred.template dynamicCast<CEL_PixmapOf<Pixel>>());
}

/// Fails with the first difference; for float channels, the first that exceeds the tolerance.
template<typename Pixel>
testing::AssertionResult agrees(const RefPictureOf<Pixel>& expected, const CEL_PixmapOf<Pixel>& actual,
                                double tolerance = 0.0)
{
    const std::string differences = ReferenceFormat<Pixel>::differences(expected, toRef<Pixel>(actual), tolerance);
    return differences.empty() ? testing::AssertionSuccess() : testing::AssertionFailure() << differences;
}
