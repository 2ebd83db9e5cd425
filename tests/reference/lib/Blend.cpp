// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The blend of an object's normal into an output pixel. In 16-bit the mixed normal and alpha are truncated where the
// picture of normals rounds; in float the mixed alpha loses its fraction, so that it is either 0 or 1. Both are
// intended.
#include "reference/Blend.h"

#include "reference/Normals.h"
#include "reference/lib/Single.h"

#include <algorithm>
#include <cmath>

namespace reference {
namespace {

RefVector mixed(const RefVector& below, const RefVector& above, double a)
{
    const double k = 1.0 - a;
    return normalised(RefVector{k * below.x + a * above.x, k * below.y + a * above.y, k * below.z + a * above.z});
}

std::int16_t truncatedNormal(double component)
{
    return static_cast<std::int16_t>((component + 1.0) * 0.5 * 32767.0);
}

} // namespace

void blendNormal16(RefPixel16& out, const RefPixel16& object, double a, std::int16_t blue)
{
    if (a <= 0.0) {
        return;
    }
    if (out.a > 0 && a != 1.0) {
        const RefVector normal = mixed(decodeNormal16(out), decodeNormal16(object), a);
        const double alpha = std::trunc(static_cast<double>(out.a) * (1.0 - a) + a * 32767.0);
        out.r = truncatedNormal(normal.x);
        out.g = truncatedNormal(normal.y);
        out.b = blue;
        out.a = static_cast<std::int16_t>(std::min(32767.0, std::max(0.0, alpha)));
        return;
    }
    out = object;
    out.b = blue;
    out.a = static_cast<std::int16_t>(a * 32767.0);
}

void blendNormalFloat(RefPixelFloat& out, const RefPixelFloat& object, double a, float blue)
{
    if (a <= 0.0) {
        return;
    }
    if (out.a > 0.0F && a != 1.0) {
        const RefVector normal = mixed(decodeNormalFloat(out), decodeNormalFloat(object), a);
        const double alpha = std::trunc((1.0 - a) * static_cast<double>(out.a) + a);
        out.r = encodeNormalFloat(normal.x);
        out.g = encodeNormalFloat(normal.y);
        out.b = blue;
        out.a = singleOf(std::min(1.0, std::max(0.0, alpha)));
        return;
    }
    out = object;
    out.b = blue;
    out.a = singleOf(a * 1.0);
}

} // namespace reference
