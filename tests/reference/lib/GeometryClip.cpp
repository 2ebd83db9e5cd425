// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The clip of a blurred object to its drawing, by looking at all 25 mask pixels around every blurred pixel.
#include "reference/GeometryClip.h"

namespace reference {

bool geometryNear16(const RefImage16& mask, int x, int y)
{
    for (int dy = -2; dy <= 2; ++dy) {
        for (int dx = -2; dx <= 2; ++dx) {
            if (!mask.has(x + dx, y + dy)) {
                continue;
            }
            const RefPixel16& pixel = mask.at(x + dx, y + dy);
            if (pixel.r >= 1 || pixel.g >= 1) {
                return true;
            }
        }
    }
    return false;
}

bool geometryNearFloat(const RefImageFloat& mask, int x, int y)
{
    for (int dy = -2; dy <= 2; ++dy) {
        for (int dx = -2; dx <= 2; ++dx) {
            if (!mask.has(x + dx, y + dy)) {
                continue;
            }
            const RefPixelFloat& pixel = mask.at(x + dx, y + dy);
            if (pixel.r > 0.0F || pixel.g > 0.0F) {
                return true;
            }
        }
    }
    return false;
}

void clipToGeometry16(RefImage16& blurred, const RefImage16& mask)
{
    for (int y = blurred.box.y1; y < blurred.box.y2; ++y) {
        for (int x = blurred.box.x1; x < blurred.box.x2; ++x) {
            if (!geometryNear16(mask, x, y)) {
                blurred.at(x, y) = RefPixel16{};
            }
        }
    }
}

void clipToGeometryFloat(RefImageFloat& blurred, const RefImageFloat& mask)
{
    for (int y = blurred.box.y1; y < blurred.box.y2; ++y) {
        for (int x = blurred.box.x1; x < blurred.box.x2; ++x) {
            if (!geometryNearFloat(mask, x, y)) {
                blurred.at(x, y) = RefPixelFloat{};
            }
        }
    }
}

} // namespace reference
