// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// AxisPlan: how one axis of a picture is blurred with a Gaussian of a given standard deviation.
//
// A short Gaussian is a plain weighted sum. A long one goes through a pyramid: the axis is halved a few times with
// binomial filters, blurred there with a short filter, and doubled as many times with binomial filters. All of these
// are smooth, so together they are nearly a Gaussian; the short filter is chosen so that the product of all frequency
// responses is the requested Gaussian. The remaining error is the aliasing of the halvings and the images that doubling
// makes; both are small because a Gaussian has almost no high frequencies.
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

/// The plan for a standard deviation in samples. A value that is not positive and finite counts as 0, which leaves the
/// axis unchanged; values above a million are clamped to a million.
AxisPlan planAxis(double sigma);

/// exp(-d^2 / (2 sigma^2)) for d = 0, 1, ... reach, the same bits on every machine. sigma must be above 0.
std::vector<double> gaussianSamples(double sigma, int reach);

} // namespace BlurAlgo
