// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The merge of the rendering stage, pixel by pixel. The target's alpha decides about the first layer; the source's
// alpha decides about the second, also where the target has no coverage.
#include "reference/StageMerge.h"

#include "reference/lib/Single.h"

#include <cmath>
#include <limits>

namespace reference {
namespace {

void mergePixel(RefPixel16& target, const RefPixel16* source, std::int16_t level, bool scaleByCoverage)
{
    std::int16_t a = target.a;
    target.g = 0;
    target.b = 0;
    if (a > 0) {
        target.b = 1024;
        target.r = level;
    } else {
        target.a = 0;
        target.r = 0;
        a = 0;
    }
    if (source == nullptr || source->a <= 0) {
        return;
    }
    if (!scaleByCoverage) {
        target.g = source->r;
        target.b = source->a;
        return;
    }
    const float factor = singleOf(static_cast<double>(a) / 32767.0);
    const float green = single(static_cast<float>(source->r) * factor);
    const float blue = single(static_cast<float>(source->a) * factor);
    target.g = lowSixteenBits(static_cast<std::int32_t>(green));
    target.b = lowSixteenBits(static_cast<std::int32_t>(blue));
}

void mergePixel(RefPixelFloat& target, const RefPixelFloat* source, float level, bool scaleByCoverage)
{
    float a = target.a;
    target.g = 0.0F;
    target.b = 0.0F;
    if (a > 0.0F) {
        target.b = 0.5F;
        target.r = level;
    } else {
        target.a = 0.0F;
        target.r = 0.0F;
        a = 0.0F;
    }
    if (source == nullptr || !(source->a > 0.0F)) {
        return;
    }
    float green = source->r;
    float blue = source->a;
    if (scaleByCoverage) {
        green = single(green * a);
        blue = single(blue * a);
    }
    target.g = std::trunc(green);
    target.b = std::trunc(blue);
}

} // namespace

std::int16_t stageLevel16(double objectLevel)
{
    const double product = objectLevel * 255.0;
    const double least = std::numeric_limits<std::int32_t>::min();
    const double greatest = std::numeric_limits<std::int32_t>::max();
    std::int32_t whole = 0;
    if (product >= least && product <= greatest) {
        whole = static_cast<std::int32_t>(product);
    }
    const auto q = static_cast<std::int32_t>(static_cast<std::uint32_t>(whole) & 0xFFU);
    if (q == 0) {
        return 0;
    }
    return static_cast<std::int16_t>(q * 32767 / 255);
}

float stageLevelFloat(double objectLevel)
{
    if (!std::isfinite(objectLevel) || std::abs(objectLevel) > static_cast<double>(std::numeric_limits<float>::max())) {
        return 0.0F;
    }
    return singleOf(objectLevel);
}

void stageMerge16(RefImage16& target, const RefImage16& source, double objectLevel, bool scaleByCoverage)
{
    const std::int16_t level = stageLevel16(objectLevel);
    for (int y = target.box.y1; y < target.box.y2; ++y) {
        for (int x = target.box.x1; x < target.box.x2; ++x) {
            const RefPixel16* pixel = source.has(x, y) ? &source.at(x, y) : nullptr;
            mergePixel(target.at(x, y), pixel, level, scaleByCoverage);
        }
    }
}

void stageMergeFloat(RefImageFloat& target, const RefImageFloat& source, double objectLevel, bool scaleByCoverage)
{
    const float level = stageLevelFloat(objectLevel);
    for (int y = target.box.y1; y < target.box.y2; ++y) {
        for (int x = target.box.x1; x < target.box.x2; ++x) {
            const RefPixelFloat* pixel = source.has(x, y) ? &source.at(x, y) : nullptr;
            mergePixel(target.at(x, y), pixel, level, scaleByCoverage);
        }
    }
}

} // namespace reference
