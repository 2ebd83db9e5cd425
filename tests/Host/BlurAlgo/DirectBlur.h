// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The Gaussian blur as the sum that defines it, in double precision: weights cut at eight standard deviations and
// divided by their sum, zero outside the picture. And the distance of a blur from it, in values and in slopes.
#pragma once

#include "BlurAlgo/BA_GaussianBlur.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace direct {

/// A picture of one channel.
template<typename Value>
struct Picture
{
    explicit Picture(const Math::Box2di& box) : rect(box), values(static_cast<std::size_t>(box.area())) {}

    Value& at(int x, int y) { return values[index(x, y)]; }
    const Value& at(int x, int y) const { return values[index(x, y)]; }
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y - rect.y1) * static_cast<std::size_t>(rect.width()) +
               static_cast<std::size_t>(x - rect.x1);
    }

    Math::Box2di rect;
    std::vector<Value> values;
};

using Plane = Picture<float>;
using Exact = Picture<double>;

inline BA_Plane view(const Plane& plane)
{
    return {const_cast<float*>(plane.values.data()), plane.rect.width(), plane.rect};
}

/// The rectangle of the result.
inline Math::Box2di grown(const Math::Box2di& rect, double sigmaX, double sigmaY)
{
    const int x = static_cast<int>(std::ceil(4 * sigmaX));
    const int y = static_cast<int>(std::ceil(4 * sigmaY));
    return {rect.x1 - x, rect.y1 - y, rect.x2 + x, rect.y2 + y};
}

inline std::vector<double> weights(double sigma)
{
    const int reach = static_cast<int>(8 * sigma);
    std::vector<double> result;
    double sum = 0.0;
    for (int d = -reach; d <= reach; ++d) {
        result.push_back(d == 0 ? 1.0 : std::exp(-0.5 * (d / sigma) * (d / sigma)));
        sum += result.back();
    }
    for (double& weight : result)
        weight /= sum;
    return result;
}

/// The exact blur: first along the rows, then along the columns.
inline Exact blurred(const Plane& source, double sigmaX, double sigmaY)
{
    const std::vector<double> wx = weights(sigmaX);
    const std::vector<double> wy = weights(sigmaY);
    const int reachX = static_cast<int>(wx.size() / 2);
    const int reachY = static_cast<int>(wy.size() / 2);
    const Math::Box2di rect = grown(source.rect, sigmaX, sigmaY);
    Exact rows(Math::Box2di(rect.x1, source.rect.y1, rect.x2, source.rect.y2));
    for (int y = source.rect.y1; y < source.rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x)
            for (int i = std::max(x - reachX, source.rect.x1); i <= std::min(x + reachX, source.rect.x2 - 1); ++i)
                rows.at(x, y) += wx[static_cast<std::size_t>(i - x + reachX)] * static_cast<double>(source.at(i, y));
    Exact result(rect);
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int i = std::max(y - reachY, source.rect.y1); i <= std::min(y + reachY, source.rect.y2 - 1); ++i) {
            const double weight = wy[static_cast<std::size_t>(i - y + reachY)];
            for (int x = rect.x1; x < rect.x2; ++x)
                result.at(x, y) += weight * rows.at(x, i);
        }
    return result;
}

/// The blur under test.
inline Plane blurredFast(const Plane& source, double sigmaX, double sigmaY)
{
    Plane result(grown(source.rect, sigmaX, sigmaY));
    // Makes unwritten samples visible.
    std::fill(result.values.begin(), result.values.end(), 1e6F);
    BA_GaussianBlur(sigmaX, sigmaY).run(view(source), view(result));
    return result;
}

/// The largest errors of a blur.
struct Errors
{
    double value = 0.0; ///< the largest error of a value
    double slope = 0.0; ///< the largest error of a difference of neighbours, as a share of the steepest true one
};

inline Errors errors(const Plane& blur, const Exact& exact)
{
    Errors result;
    double slope = 0.0;
    double steepest = 0.0;
    const Math::Box2di& rect = exact.rect;
    const auto compare = [&](std::size_t a, std::size_t b) {
        const double wanted = exact.values[b] - exact.values[a];
        const double got = static_cast<double>(blur.values[b]) - static_cast<double>(blur.values[a]);
        steepest = std::max(steepest, std::abs(wanted));
        slope = std::max(slope, std::abs(got - wanted));
    };
    for (int y = rect.y1; y < rect.y2; ++y)
        for (int x = rect.x1; x < rect.x2; ++x) {
            const std::size_t here = exact.index(x, y);
            result.value =
                std::max(result.value, std::abs(static_cast<double>(blur.values[here]) - exact.values[here]));
            if (x + 1 < rect.x2)
                compare(here, here + 1);
            if (y + 1 < rect.y2)
                compare(here, exact.index(x, y + 1));
        }
    if (steepest > 0.0)
        result.slope = slope / steepest;
    return result;
}

} // namespace direct
