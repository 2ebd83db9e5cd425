// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Accumulation, pixel by pixel. The 16-bit mix is an integer one, (d x (32767 - c) + 32767) >> 15, with a shift that
// rounds down also for negative values; the float mix is computed in double and rounded once, when it is stored.
#include "reference/Accumulator.h"

#include "reference/lib/Single.h"

#include <algorithm>

namespace reference {
namespace {

std::int32_t faded(std::int32_t value, std::int32_t coverage)
{
    const std::int32_t sum = value * (32767 - coverage) + 32767;
    // Rounds the quotient down explicitly: a division rounds toward zero.
    std::int32_t quotient = sum / 32768;
    if (sum < 0 && sum % 32768 != 0) {
        quotient -= 1;
    }
    return quotient;
}

std::int16_t limited(std::int32_t value)
{
    return static_cast<std::int16_t>(std::min(32767, std::max(-32767, value)));
}

void mixInto(RefPixel16& out, std::int16_t value, std::int16_t coverage)
{
    const std::int32_t r = faded(out.r, coverage) + value;
    const std::int32_t a = faded(out.a, coverage) + coverage;
    out.r = limited(r);
    out.a = limited(a);
}

void mixInto(RefPixelFloat& out, float value, float coverage)
{
    const double k = 1.0 - static_cast<double>(coverage);
    const double r = static_cast<double>(out.r) * k + static_cast<double>(value);
    const double a = static_cast<double>(out.a) * k + static_cast<double>(coverage);
    out.r = singleOf(r);
    out.a = singleOf(std::min(1.0, std::max(0.0, a)));
}

} // namespace

RefImage16 makeAccumulator16(const RefImage16& firstInput, const RefBox& outputRect)
{
    return RefImage16(RefBox{}, outputRect, firstInput.width, firstInput.height);
}

RefImageFloat makeAccumulatorFloat(const RefImageFloat& firstInput, const RefBox& outputRect)
{
    return RefImageFloat(RefBox{}, outputRect, firstInput.width, firstInput.height);
}

void mergePixel16(RefPixel16& out, const RefPixel16& input)
{
    // First layer: only where it is above the accumulator's value.
    if (input.a == 32767) {
        out.r = input.r;
        out.a = 32767;
    } else if (input.a > 0 && input.r > out.r) {
        mixInto(out, input.r, input.a);
    }
    // Second layer: always, above a threshold that the default coverage does not reach.
    if (input.b == 32767) {
        out.r = input.g;
        out.a = 32767;
    } else if (input.b > 1024) {
        mixInto(out, input.g, input.b);
    }
    out.g = 0;
    out.b = 0;
}

void mergePixelFloat(RefPixelFloat& out, const RefPixelFloat& input)
{
    if (input.a >= 1.0F) {
        out.r = input.r;
        out.a = 1.0F;
    } else if (input.a > 0.0F && input.r > out.r) {
        mixInto(out, input.r, input.a);
    }
    if (input.b >= 1.0F) {
        out.r = input.g;
        out.a = 1.0F;
    } else if (input.b > 0.0F) {
        mixInto(out, input.g, input.b);
    }
    out.g = 0.0F;
    out.b = 0.0F;
}

void accumulate16(RefImage16& accumulator, const RefImage16& input)
{
    accumulator.reallocToFitAndClipToCanvas(input.box);
    const RefBox common = intersected(accumulator.box, input.box);
    for (int y = common.y1; y < common.y2; ++y) {
        for (int x = common.x1; x < common.x2; ++x) {
            mergePixel16(accumulator.at(x, y), input.at(x, y));
        }
    }
}

void accumulateFloat(RefImageFloat& accumulator, const RefImageFloat& input)
{
    accumulator.reallocToFitAndClipToCanvas(input.box);
    const RefBox common = intersected(accumulator.box, input.box);
    for (int y = common.y1; y < common.y2; ++y) {
        for (int x = common.x1; x < common.x2; ++x) {
            mergePixelFloat(accumulator.at(x, y), input.at(x, y));
        }
    }
}

} // namespace reference
