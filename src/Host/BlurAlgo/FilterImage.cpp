// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The samples of a Gaussian, and what they sum to.
#include "BlurAlgo/FilterImage.h"

#include "BlurAlgo/BA_GaussianBlur.h"
#include "BlurAlgo/private/AxisPlan.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

/// Samples further out than this many standard deviations are too small to change the sum in double precision.
constexpr double kWholeReach = 8.5;
/// From this standard deviation on, the sum of the samples equals the integral to the last bit.
constexpr double kSmoothSigma = 2.0;

int oddSize(int size)
{
    if (size <= 1)
        return 1;
    return size == std::numeric_limits<int>::max() ? size : size | 1;
}

double usableSigma(double sigma)
{
    return std::isfinite(sigma) && sigma > 0.0 ? std::min(sigma, BA_GaussianBlur::kLargestSigma) : 0.0;
}

/// The sum of exp(-d^2 / (2 sigma^2)) over all integers d.
double sumOfSamples(double sigma)
{
    if (sigma == 0.0)
        return 1.0;
    if (sigma >= kSmoothSigma)
        return sigma * std::sqrt(2 * std::numbers::pi);
    double sum = 0.0;
    for (const double sample : BlurAlgo::gaussianSamples(sigma, static_cast<int>(std::ceil(kWholeReach * sigma))))
        sum += 2 * sample;
    return sum - 1.0;
}

} // namespace

FilterImage::FilterImage(int width, int height) : _width(oddSize(width)), _height(oddSize(height)) {}

void FilterImage::setGaussian(double sigmaX, double sigmaY, bool normalise)
{
    _sigmaX = usableSigma(sigmaX);
    _sigmaY = usableSigma(sigmaY);
    _normalised = normalise;
    _width = 2 * BA_GaussianBlur::reach(_sigmaX) + 1;
    _height = 2 * BA_GaussianBlur::reach(_sigmaY) + 1;
}

double FilterImage::gain() const
{
    return _normalised ? 1.0 : sumOfSamples(_sigmaX) * sumOfSamples(_sigmaY);
}
