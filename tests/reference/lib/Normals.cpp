// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Normals of a depth picture. Differences of two depths are single precision, as the depths are; everything else is
// double until a channel is stored.
#include "reference/Normals.h"

#include "reference/lib/Single.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace reference {
namespace {

double difference(float first, float second)
{
    return static_cast<double>(single(first - second));
}

RefVector decoded(double x, double y, bool negative)
{
    const double rest = 1.0 - x * x - y * y;
    const double z = std::sqrt(std::max(0.0, rest));
    return RefVector{x, y, negative ? -z : z};
}

/// One of the nine pixels that smoothing reads.
struct Sample
{
    int dx;
    int dy;
    double weight;
};

constexpr std::array<Sample, 9> samples = {{{-1, 0, 0.125},
                                            {0, -1, 0.125},
                                            {0, 0, 0.25},
                                            {0, 1, 0.125},
                                            {1, 0, 0.125},
                                            {-1, -1, 0.0625},
                                            {-1, 1, 0.0625},
                                            {1, -1, 0.0625},
                                            {1, 1, 0.0625}}};

} // namespace

RefVector crossProduct(const RefVector& a, const RefVector& b)
{
    return RefVector{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

RefVector normalised(const RefVector& v)
{
    const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    if (length == 0.0) {
        return v;
    }
    return RefVector{v.x / length, v.y / length, v.z / length};
}

RefVector depthNormal(const RefDepth& depth, int x, int y, int quality)
{
    if (!depth.hasDepth(x - 1, y) || !depth.hasDepth(x + 1, y) || !depth.hasDepth(x, y - 1) ||
        !depth.hasDepth(x, y + 1)) {
        return RefVector{};
    }
    const RefVector across{2.0, 0.0, difference(depth.at(x + 1, y), depth.at(x - 1, y))};
    const RefVector down{0.0, 2.0, difference(depth.at(x, y + 1), depth.at(x, y - 1))};
    const RefVector axisNormal = normalised(crossProduct(across, down));
    if (quality == 0) {
        return axisNormal;
    }

    if (!depth.hasDepth(x - 1, y - 1) || !depth.hasDepth(x + 1, y + 1) || !depth.hasDepth(x + 1, y - 1) ||
        !depth.hasDepth(x - 1, y + 1)) {
        return axisNormal;
    }
    const RefVector falling{2.0, 2.0, difference(depth.at(x + 1, y + 1), depth.at(x - 1, y - 1))};
    const RefVector rising{-2.0, 2.0, difference(depth.at(x - 1, y + 1), depth.at(x + 1, y - 1))};
    const RefVector diagonalNormal = normalised(crossProduct(falling, rising));
    return normalised(RefVector{0.5 * axisNormal.x + 0.5 * diagonalNormal.x,
                                0.5 * axisNormal.y + 0.5 * diagonalNormal.y,
                                0.5 * axisNormal.z + 0.5 * diagonalNormal.z});
}

std::int16_t encodeNormal16(double component)
{
    const double rounded = std::round((component + 1.0) * 0.5 * 32767.0);
    return static_cast<std::int16_t>(std::min(32767.0, std::max(-32767.0, rounded)));
}

float encodeNormalFloat(double component)
{
    return singleOf((component + 1.0) * 0.5);
}

RefVector decodeNormal16(const RefPixel16& pixel)
{
    const double x = 2.0 * static_cast<double>(pixel.r) / 32767.0 - 1.0;
    const double y = 2.0 * static_cast<double>(pixel.g) / 32767.0 - 1.0;
    return decoded(x, y, pixel.b < 0);
}

RefVector decodeNormalFloat(const RefPixelFloat& pixel)
{
    const double x = 2.0 * static_cast<double>(pixel.r) / 1.0 - 1.0;
    const double y = 2.0 * static_cast<double>(pixel.g) / 1.0 - 1.0;
    return decoded(x, y, pixel.b < 0.0F);
}

std::optional<RefVector> storedNormal16(const RefImage16& normals, int x, int y)
{
    if (!normals.has(x, y) || normals.at(x, y).a == 0) {
        return std::nullopt;
    }
    return decodeNormal16(normals.at(x, y));
}

std::optional<RefVector> storedNormalFloat(const RefImageFloat& normals, int x, int y)
{
    if (!normals.has(x, y) || normals.at(x, y).a == 0.0F) {
        return std::nullopt;
    }
    return decodeNormalFloat(normals.at(x, y));
}

RefImage16 plainNormals16(const RefDepth& depth, const RefImage16& blurred, int quality)
{
    RefImage16 normals(depth.box, depth.canvas, depth.width, depth.height);
    for (int y = depth.box.y1; y < depth.box.y2; ++y) {
        for (int x = depth.box.x1; x < depth.box.x2; ++x) {
            if (!depth.hasDepth(x, y)) {
                normals.at(x, y) = RefPixel16{0, 0, 32767, 0};
                continue;
            }
            const RefVector normal = depthNormal(depth, x, y, quality);
            const std::int16_t elevation = blurred.has(x, y) ? blurred.at(x, y).b : std::int16_t{0};
            normals.at(x, y) = RefPixel16{encodeNormal16(normal.x), encodeNormal16(normal.y), elevation, 32767};
        }
    }
    return normals;
}

RefImageFloat plainNormalsFloat(const RefDepth& depth, const RefImageFloat& blurred, int quality)
{
    RefImageFloat normals(depth.box, depth.canvas, depth.width, depth.height);
    for (int y = depth.box.y1; y < depth.box.y2; ++y) {
        for (int x = depth.box.x1; x < depth.box.x2; ++x) {
            if (!depth.hasDepth(x, y)) {
                normals.at(x, y) = RefPixelFloat{0.0F, 0.0F, 1.0F, 0.0F};
                continue;
            }
            const RefVector normal = depthNormal(depth, x, y, quality);
            const float elevation = blurred.has(x, y) ? blurred.at(x, y).b : 0.0F;
            normals.at(x, y) = RefPixelFloat{encodeNormalFloat(normal.x), encodeNormalFloat(normal.y), elevation, 1.0F};
        }
    }
    return normals;
}

RefImage16 smoothedNormals16(const RefImage16& normals)
{
    RefImage16 smoothed = normals;
    for (int y = normals.box.y1; y < normals.box.y2; ++y) {
        for (int x = normals.box.x1; x < normals.box.x2; ++x) {
            RefVector sum;
            double total = 0.0;
            for (const Sample& sample : samples) {
                const std::optional<RefVector> normal = storedNormal16(normals, x + sample.dx, y + sample.dy);
                if (!normal) {
                    continue;
                }
                sum.x += sample.weight * normal->x;
                sum.y += sample.weight * normal->y;
                sum.z += sample.weight * normal->z;
                total += sample.weight;
            }
            if (total == 0.0) {
                continue;
            }
            const RefVector mean = normalised(sum);
            smoothed.at(x, y).r = encodeNormal16(mean.x);
            smoothed.at(x, y).g = encodeNormal16(mean.y);
        }
    }
    return smoothed;
}

RefImageFloat smoothedNormalsFloat(const RefImageFloat& normals)
{
    RefImageFloat smoothed = normals;
    for (int y = normals.box.y1; y < normals.box.y2; ++y) {
        for (int x = normals.box.x1; x < normals.box.x2; ++x) {
            RefVector sum;
            double total = 0.0;
            for (const Sample& sample : samples) {
                const std::optional<RefVector> normal = storedNormalFloat(normals, x + sample.dx, y + sample.dy);
                if (!normal) {
                    continue;
                }
                sum.x += sample.weight * normal->x;
                sum.y += sample.weight * normal->y;
                sum.z += sample.weight * normal->z;
                total += sample.weight;
            }
            if (total == 0.0) {
                continue;
            }
            const RefVector mean = normalised(sum);
            smoothed.at(x, y).r = encodeNormalFloat(mean.x);
            smoothed.at(x, y).g = encodeNormalFloat(mean.y);
        }
    }
    return smoothed;
}

RefImage16 makeNormals16(const RefDepth& depth, const RefImage16& blurred, int quality)
{
    const RefImage16 normals = plainNormals16(depth, blurred, quality);
    return quality == 2 ? smoothedNormals16(normals) : normals;
}

RefImageFloat makeNormalsFloat(const RefDepth& depth, const RefImageFloat& blurred, int quality)
{
    const RefImageFloat normals = plainNormalsFloat(depth, blurred, quality);
    return quality == 2 ? smoothedNormalsFloat(normals) : normals;
}

} // namespace reference
