// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The Gaussian as a plain sum in double precision: first along the rows, then along the columns, which is the same sum
// as over the square of both. Weights are cut at 8 standard deviations, where they are below 2e-14 of the centre's.
#include "reference/Blur.h"

#include "reference/lib/Single.h"

#include <cmath>
#include <cstddef>

namespace reference {
namespace {

/// A rectangle of doubles; outside it everything is zero.
struct Plane
{
    RefBox box;
    std::vector<double> values;

    explicit Plane(const RefBox& box_)
        : box(box_), values(static_cast<std::size_t>(box_.width()) * static_cast<std::size_t>(box_.height()), 0.0)
    {}

    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y - box.y1) * static_cast<std::size_t>(box.width()) +
               static_cast<std::size_t>(x - box.x1);
    }

    double get(int x, int y) const { return box.contains(x, y) ? values.at(index(x, y)) : 0.0; }
    void set(int x, int y, double value) { values.at(index(x, y)) = value; }
};

/// The weight of offset d, which lies d places from the middle.
double weightAt(const std::vector<double>& weights, int d)
{
    const int place = static_cast<int>(weights.size() / 2) + d;
    return weights.at(static_cast<std::size_t>(place));
}

Plane blurredPlane(const Plane& input, double sigma)
{
    if (input.box.empty()) {
        return Plane(RefBox{});
    }
    const std::vector<double> weights = gaussianWeights(sigma);
    const int reach = static_cast<int>(weights.size() / 2);
    const RefBox grown = enlarged(input.box, static_cast<int>(std::ceil(4.0 * sigma)));

    Plane alongRows(RefBox{grown.x1, input.box.y1, grown.x2, input.box.y2});
    for (int y = input.box.y1; y < input.box.y2; ++y) {
        for (int x = grown.x1; x < grown.x2; ++x) {
            double sum = 0.0;
            for (int d = -reach; d <= reach; ++d) {
                sum += weightAt(weights, d) * input.get(x + d, y);
            }
            alongRows.set(x, y, sum);
        }
    }

    Plane result(grown);
    for (int y = grown.y1; y < grown.y2; ++y) {
        for (int x = grown.x1; x < grown.x2; ++x) {
            double sum = 0.0;
            for (int d = -reach; d <= reach; ++d) {
                sum += weightAt(weights, d) * alongRows.get(x, y + d);
            }
            result.set(x, y, sum);
        }
    }
    return result;
}

Plane redPlane(const RefImage16& mask)
{
    Plane plane(mask.box);
    for (int y = mask.box.y1; y < mask.box.y2; ++y) {
        for (int x = mask.box.x1; x < mask.box.x2; ++x) {
            plane.set(x, y, static_cast<double>(mask.at(x, y).r));
        }
    }
    return plane;
}

Plane redPlane(const RefImageFloat& mask)
{
    Plane plane(mask.box);
    for (int y = mask.box.y1; y < mask.box.y2; ++y) {
        for (int x = mask.box.x1; x < mask.box.x2; ++x) {
            plane.set(x, y, static_cast<double>(mask.at(x, y).r));
        }
    }
    return plane;
}

} // namespace

double bevelSigma(double bevel, int resolutionX)
{
    return bevel / 720.0 * static_cast<double>(resolutionX) * 0.25;
}

std::vector<double> gaussianWeights(double sigma)
{
    const int reach = static_cast<int>(std::floor(8.0 * sigma));
    std::vector<double> weights;
    double sum = 0.0;
    for (int d = -reach; d <= reach; ++d) {
        const double distance = static_cast<double>(d) / sigma;
        const double weight = std::exp(-0.5 * distance * distance);
        weights.push_back(weight);
        sum += weight;
    }
    for (double& weight : weights) {
        weight /= sum;
    }
    return weights;
}

std::vector<double> blurredRed16(const RefImage16& mask, double sigma)
{
    return blurredPlane(redPlane(mask), sigma).values;
}

std::vector<double> blurredRedFloat(const RefImageFloat& mask, double sigma)
{
    return blurredPlane(redPlane(mask), sigma).values;
}

RefImage16 gaussianBlur16(const RefImage16& mask, double sigma)
{
    const Plane plane = blurredPlane(redPlane(mask), sigma);
    RefImage16 result(plane.box, mask.canvas, mask.width, mask.height);
    for (int y = plane.box.y1; y < plane.box.y2; ++y) {
        for (int x = plane.box.x1; x < plane.box.x2; ++x) {
            const auto red = static_cast<std::int16_t>(std::round(plane.get(x, y)));
            result.at(x, y) = RefPixel16{red, 0, 0, static_cast<std::int16_t>(red != 0 ? 32767 : 0)};
        }
    }
    return result;
}

RefImageFloat gaussianBlurFloat(const RefImageFloat& mask, double sigma)
{
    const Plane plane = blurredPlane(redPlane(mask), sigma);
    RefImageFloat result(plane.box, mask.canvas, mask.width, mask.height);
    for (int y = plane.box.y1; y < plane.box.y2; ++y) {
        for (int x = plane.box.x1; x < plane.box.x2; ++x) {
            const float red = singleOf(plane.get(x, y));
            result.at(x, y) = RefPixelFloat{red, 0.0F, 0.0F, red != 0.0F ? 1.0F : 0.0F};
        }
    }
    return result;
}

} // namespace reference
