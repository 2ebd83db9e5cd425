// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Elevation of a blurred object. Spans, ranges and the share x are single precision, every operation rounded; the
// shaping, the elevation in B and the depth are computed in double and rounded once, when stored.
#include "reference/Elevation.h"

#include "reference/lib/Single.h"

#include <algorithm>
#include <cmath>

namespace reference {
namespace {

/// 1 / (highest - lowest) where that is positive, else 1.
float scaleOf(const RefSpan& span)
{
    if (!(span.highest > span.lowest)) {
        return 1.0F;
    }
    const float width = single(span.highest - span.lowest);
    return single(1.0F / width);
}

float shareOf(float r, const RefSpan& span, float scale)
{
    const float above = single(r - span.lowest);
    return single(above * scale);
}

/// (1 - x) is single, as both operands are; the products and the sum are double, as low and high are.
float depthAt(float x, double low, double high)
{
    const float rest = single(1.0F - x);
    return singleOf(static_cast<double>(rest) * low + static_cast<double>(x) * high);
}

RefDepth emptyDepth(const RefBox& box, const RefBox& canvas, int width, int height, double low, double high)
{
    RefDepth depth(box, canvas, width, height);
    depth.rangeLow = std::min(low, high);
    depth.rangeHigh = std::max(low, high);
    return depth;
}

} // namespace

RefSpan positiveSpan16(const RefImage16& blurred)
{
    RefSpan span;
    for (const RefPixel16& pixel : blurred.pixels) {
        if (pixel.r > 0) {
            span.lowest = std::min(span.lowest, static_cast<float>(pixel.r));
            span.highest = std::max(span.highest, static_cast<float>(pixel.r));
        }
    }
    return span;
}

RefSpan positiveSpanFloat(const RefImageFloat& blurred)
{
    RefSpan span;
    for (const RefPixelFloat& pixel : blurred.pixels) {
        if (pixel.r > 0.0F) {
            span.lowest = std::min(span.lowest, pixel.r);
            span.highest = std::max(span.highest, pixel.r);
        }
    }
    return span;
}

RefRange rangeOfSpan(const RefSpan& span)
{
    if (span.lowest == span.highest) {
        return RefRange{span.lowest, 1.0F};
    }
    const float width = single(span.highest - span.lowest);
    return RefRange{span.lowest, single(1.0F / width)};
}

float canvasFactor(const RefBox& canvas)
{
    return singleOf(static_cast<double>(canvas.x2 - canvas.x1) / 720.0);
}

double depthHeight(double elevation, float factor)
{
    return elevation * 37.5 * static_cast<double>(factor);
}

float shapedElevation(float x, double smoothness)
{
    const double p = smoothness > 0.0 ? smoothness : 0.0;
    if (p == 0.0 || p == 1.0) {
        return x;
    }
    if (!(x > 0.0F && x < 1.0F)) {
        return x;
    }
    return singleOf(std::exp(std::log(static_cast<double>(x)) / p));
}

RefDepth makeDepth16(RefImage16& blurred, double low, double high, double smoothness)
{
    RefDepth depth = emptyDepth(blurred.box, blurred.canvas, blurred.width, blurred.height, low, high);
    const RefSpan span = positiveSpan16(blurred);
    if (span.lowest > span.highest) {
        return depth;
    }
    const float scale = scaleOf(span);
    for (int y = depth.box.y1; y < depth.box.y2; ++y) {
        for (int x = depth.box.x1; x < depth.box.x2; ++x) {
            RefPixel16& pixel = blurred.at(x, y);
            if (pixel.r < 1) {
                pixel.r = 0;
                depth.at(x, y) = singleOf(low);
                continue;
            }
            const float share = shareOf(static_cast<float>(pixel.r), span, scale);
            const float shaped = shapedElevation(share, smoothness);
            const double elevation = static_cast<double>(shaped) * 32765.0 + 1.0;
            pixel.b = static_cast<std::int16_t>(elevation);
            depth.at(x, y) = depthAt(shaped, low, high);
        }
    }
    return depth;
}

RefDepth makeDepthFloat(RefImageFloat& blurred, double low, double high, double smoothness)
{
    RefDepth depth = emptyDepth(blurred.box, blurred.canvas, blurred.width, blurred.height, low, high);
    const RefSpan span = positiveSpanFloat(blurred);
    if (span.lowest > span.highest) {
        return depth;
    }
    const float scale = scaleOf(span);
    for (int y = depth.box.y1; y < depth.box.y2; ++y) {
        for (int x = depth.box.x1; x < depth.box.x2; ++x) {
            RefPixelFloat& pixel = blurred.at(x, y);
            if (pixel.r <= 0.0F) {
                pixel.r = 0.0F;
                depth.at(x, y) = singleOf(low);
                continue;
            }
            const float share = shareOf(pixel.r, span, scale);
            const float shaped = shapedElevation(share, smoothness);
            pixel.b = shaped;
            depth.at(x, y) = depthAt(shaped, low, high);
        }
    }
    return depth;
}

} // namespace reference
