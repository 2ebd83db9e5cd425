// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The mask of one object. The rectangle is taken from R before the weighing, so that it may hold pixels whose weighed R
// is 0.
#include "reference/Mask.h"

#include "reference/lib/Single.h"

namespace reference {

RefBox weighByCoverage16(RefImage16& mask)
{
    RefBox positive;
    for (int y = mask.box.y1; y < mask.box.y2; ++y) {
        for (int x = mask.box.x1; x < mask.box.x2; ++x) {
            RefPixel16& pixel = mask.at(x, y);
            if (pixel.r > 0) {
                positive = withPixel(positive, x, y);
            }
            const double weighed = static_cast<double>(pixel.r) * (static_cast<double>(pixel.a) / 32767.0);
            pixel.r = lowSixteenBits(static_cast<std::int32_t>(weighed));
            pixel.g = 0;
            pixel.b = 0;
            pixel.a = 32767;
        }
    }
    return positive;
}

RefBox weighByCoverageFloat(RefImageFloat& mask)
{
    RefBox positive;
    for (int y = mask.box.y1; y < mask.box.y2; ++y) {
        for (int x = mask.box.x1; x < mask.box.x2; ++x) {
            RefPixelFloat& pixel = mask.at(x, y);
            if (pixel.r > 0.0F) {
                positive = withPixel(positive, x, y);
            }
            pixel.r = single(pixel.r * pixel.a);
            pixel.g = 0.0F;
            pixel.b = 0.0F;
            pixel.a = 1.0F;
        }
    }
    return positive;
}

std::optional<RefImage16> makeMask16(const RefImage16& accumulator)
{
    if (accumulator.box.empty()) {
        return std::nullopt;
    }
    RefImage16 mask = accumulator;
    const RefBox positive = weighByCoverage16(mask);
    mask.realloc(enlarged(positive, 2));
    return mask;
}

std::optional<RefImageFloat> makeMaskFloat(const RefImageFloat& accumulator)
{
    if (accumulator.box.empty()) {
        return std::nullopt;
    }
    RefImageFloat mask = accumulator;
    const RefBox positive = weighByCoverageFloat(mask);
    mask.realloc(enlarged(positive, 2));
    return mask;
}

} // namespace reference
