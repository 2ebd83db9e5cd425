// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AxisPlan: how one axis of a picture is blurred with a Gaussian of a given standard deviation.
//
// A short Gaussian is a plain weighted sum. A long one goes through a pyramid: the axis is halved a few times with
// binomial filters, blurred there with a short filter, and doubled as many times with binomial filters. All of these
// are smooth, so together they are nearly a Gaussian already; the short filter is made so that the product of all
// frequency responses is the Gaussian that was asked for. What is left is what halving folds over and what doubling
// mirrors, and both are small because a Gaussian has next to nothing there.
//
// The weights are worked out with plain additions, multiplications, divisions and square roots, and rounded to
// multiples of 2^-24: they are the same on every machine, and their sums are exact, so that a constant 1.0 stays 1.0.
#pragma once

#include <vector>

namespace BlurAlgo {

/// One halving of an axis, and the doubling that undoes it. The filter of order 2m has the weights of (1/2 + 1/2)^2m,
/// m to each side of its middle; its response is cos^2m of half the frequency.
struct AxisStage
{
    int halvingReach = 0;  ///< m of the filter before every second sample is dropped
    int doublingReach = 0; ///< m of the filter after zeros have been put between the samples

    /// Weights of the halving, from the middle outwards; both sides together sum to 1.
    std::vector<float> halvingWeights() const;
    /// Weights of the doubling, from the middle outwards; both sides together sum to 2.
    std::vector<float> doublingWeights() const;
};

/// What to do along one axis.
struct AxisPlan
{
    std::vector<AxisStage> stages; ///< from the picture's own samples to the coarsest
    std::vector<float> weights;    ///< the filter on the coarsest samples, from the middle outwards; never empty

    int reach() const { return static_cast<int>(weights.size()) - 1; }
};

/// The plan for a standard deviation in samples. What is not a positive finite number counts as 0, which changes
/// nothing; what is beyond a million counts as a million.
AxisPlan planAxis(double sigma);

/// exp(-d^2 / (2 sigma^2)) for d = 0, 1, ... reach, the same bits on every machine. sigma must be above 0.
std::vector<double> gaussianSamples(double sigma, int reach);

} // namespace BlurAlgo
