// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The choice of the pyramid's depth and filters, and the weights that make it a Gaussian.
#include "BlurAlgo/private/AxisPlan.h"

#include "BlurAlgo/BA_GaussianBlur.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace BlurAlgo {

namespace {

// Below this standard deviation the plain sum is used. Every halving leaves at least half of it, just enough for the
// Gaussian to hide aliasing. The errors of several halvings add up, but those of the finer ones are negligible: their
// samples are much closer together than the Gaussian needs.
constexpr double kFirstHalving = 3.3;
constexpr double kCoarsestSigma = kFirstHalving / 2;
// Where filters are cut, in standard deviations: the omitted weights are 7e-6 of the sum.
constexpr double kCut = 4.5;
constexpr double kWeightUnit = 1.0 / 16777216.0;

constexpr int kAngles = 64;
using Cosines = std::array<double, 4 * kAngles>;

/// exp(-x) for x >= 0.
double decay(double x)
{
    if (x > 700.0)
        return 0.0;
    int squarings = 0;
    while (x > 0.25) {
        x *= 0.5;
        ++squarings;
    }
    double sum = 1.0;
    for (int n = 16; n > 0; --n)
        sum = 1.0 - x * sum / n;
    for (; squarings > 0; --squarings)
        sum *= sum;
    return sum;
}

/// cos(x) for |x| <= pi / 2.
double cosine(double x)
{
    double sum = 1.0;
    for (int n = 26; n > 0; n -= 2)
        sum = 1.0 - x * x * sum / (n * (n - 1));
    return sum;
}

double power(double base, int exponent)
{
    double product = 1.0;
    for (int i = 0; i < exponent; ++i)
        product *= base;
    return product;
}

/// cos(pi m / (2 kAngles)) for a full turn of m.
Cosines cosineTable()
{
    Cosines table{};
    for (int m = 0; m <= kAngles; ++m) {
        const double c = m == kAngles ? 0.0 : cosine(std::numbers::pi * m / (2 * kAngles));
        table[static_cast<std::size_t>(m)] = c;
        table[static_cast<std::size_t>(2 * kAngles - m)] = -c;
        table[static_cast<std::size_t>(2 * kAngles + m) % table.size()] = -c;
        table[static_cast<std::size_t>(4 * kAngles - m) % table.size()] = c;
    }
    return table;
}

int levelsFor(double sigma)
{
    int levels = 0;
    while (sigma / (2 << levels) >= kCoarsestSigma)
        ++levels;
    return levels;
}

/// The narrower the Gaussian is on the halved samples, the more aliasing the halving's filter has to remove. The
/// reaches are limited, because a longer filter attenuates the highest frequencies by more than the short filter can
/// restore. A single halving to the narrowest Gaussian has less margin than one that others precede, so its filter is
/// longer.
///
/// With these reaches, the sums of all errors along an axis, over all positions of a pixel between coarse samples, are
/// at most 5.5e-5, and for most standard deviations less than 4e-5. Differences of neighbours are within 6.6e-4 of the
/// steepest ones that a single pixel gives, and within 1.8e-4 of those of an edge.
AxisStage stageFor(double halvedSigma, bool alone)
{
    if (halvedSigma < 1.7 && alone)
        return {5, 4};
    if (halvedSigma < 2.3)
        return {4, 4};
    if (halvedSigma < 4.0)
        return {3, 3};
    if (halvedSigma < 5.3)
        return {2, 3};
    return {2, 2};
}

/// The combined frequency response of all halvings and doublings, at an angle per coarsest sample.
double pyramidResponse(const std::vector<AxisStage>& stages, double angle)
{
    double product = 1.0;
    double halfAngle = angle / 2;
    for (std::size_t level = stages.size(); level-- > 0;) {
        halfAngle /= 2;
        product *= power(cosine(halfAngle), 2 * (stages[level].halvingReach + stages[level].doublingReach));
    }
    return product;
}

/// The variance that all halvings and doublings add, in coarsest samples. A binomial of order 2m adds m / 2.
double pyramidVariance(const std::vector<AxisStage>& stages)
{
    double variance = 0.0;
    double scale = 1.0;
    for (std::size_t level = stages.size(); level-- > 0;) {
        scale /= 4;
        variance += 0.5 * (stages[level].halvingReach + stages[level].doublingReach) * scale;
    }
    return variance;
}

/// The filter on the coarsest samples: the Gaussian's frequency response divided by the pyramid's, turned back into
/// weights by an inverse cosine transform.
std::vector<double> coarseWeights(const std::vector<AxisStage>& stages, double coarseSigma)
{
    static const Cosines cosines = cosineTable();
    const double remaining = std::sqrt(coarseSigma * coarseSigma - pyramidVariance(stages));
    const int reach = static_cast<int>(std::ceil(kCut * remaining - 0.5));
    std::vector<double> weights(static_cast<std::size_t>(reach) + 1, 0.0);
    for (int i = 0; i < kAngles; ++i) {
        const double angle = std::numbers::pi * (i + 0.5) / kAngles;
        const double wanted = decay(angle * angle * coarseSigma * coarseSigma / 2);
        const double response = wanted / pyramidResponse(stages, angle) / kAngles;
        for (std::size_t n = 0; n < weights.size(); ++n)
            weights[n] += response * cosines[(n * static_cast<std::size_t>(2 * i + 1)) % cosines.size()];
    }
    return weights;
}

/// Weights that sum to 1 exactly, none of them negative, without zeros at the end. The middle weight takes the rounding
/// errors of the others.
std::vector<float> normalised(std::vector<double> weights)
{
    double sum = 0.0;
    for (std::size_t n = 0; n < weights.size(); ++n) {
        weights[n] = std::max(weights[n], 0.0);
        sum += n == 0 ? weights[n] : 2 * weights[n];
    }
    std::vector<float> result(weights.size());
    double middle = 1.0;
    for (std::size_t n = 1; n < weights.size(); ++n) {
        const double weight = std::floor(weights[n] / sum / kWeightUnit + 0.5) * kWeightUnit;
        result[n] = static_cast<float>(weight);
        middle -= 2 * weight;
    }
    result[0] = static_cast<float>(middle);
    while (result.size() > 1 && result.back() == 0.0F)
        result.pop_back();
    return result;
}

std::vector<float> binomialWeights(int reach, double scale)
{
    std::vector<float> weights(static_cast<std::size_t>(reach) + 1);
    double weight = scale / power(4.0, reach);
    for (int n = reach; n >= 0; --n) {
        weights[static_cast<std::size_t>(n)] = static_cast<float>(weight);
        weight = weight * (reach + n) / (reach - n + 1);
    }
    return weights;
}

} // namespace

std::vector<float> AxisStage::halvingWeights() const
{
    return binomialWeights(halvingReach, 1.0);
}

std::vector<float> AxisStage::doublingWeights() const
{
    return binomialWeights(doublingReach, 2.0);
}

std::vector<double> gaussianSamples(double sigma, int reach)
{
    std::vector<double> samples(static_cast<std::size_t>(reach) + 1);
    for (int d = 0; d <= reach; ++d) {
        const double distance = d / sigma;
        samples[static_cast<std::size_t>(d)] = decay(distance * distance / 2);
    }
    return samples;
}

AxisPlan planAxis(double sigma)
{
    AxisPlan plan;
    if (!std::isfinite(sigma) || sigma <= 0.0) {
        plan.weights = {1.0F};
        return plan;
    }
    sigma = std::min(sigma, BA_GaussianBlur::kLargestSigma);

    const int levels = levelsFor(sigma);
    double halved = sigma;
    for (int level = 0; level < levels; ++level) {
        halved /= 2;
        plan.stages.push_back(stageFor(halved, levels == 1));
    }
    if (plan.stages.empty())
        plan.weights = normalised(gaussianSamples(sigma, static_cast<int>(std::ceil(kCut * sigma))));
    else
        plan.weights = normalised(coarseWeights(plan.stages, halved));
    return plan;
}

} // namespace BlurAlgo
