// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The bevel blur as the plain sum that defines it: every pixel of the result is the sum of the mask's reds times
// Gaussian weights, in double precision, with zero outside the mask. Only for small pictures. Wherever a blur is an
// argument, another function of the same signature can replace it, so that two versions can be compared on the same
// blurred picture.
#pragma once

#include "reference/Image.h"

#include <functional>
#include <vector>

namespace reference {

/// A blur of red alone: the mask, the standard deviation in pixels (above 0); the result keeps canvas and size.
using RefBlur16 = std::function<RefImage16(const RefImage16& mask, double sigma)>;
using RefBlurFloat = std::function<RefImageFloat(const RefImageFloat& mask, double sigma)>;

/// Standard deviation in pixels of an object's blur: bevel / 720 x resolutionX x 0.25.
double bevelSigma(double bevel, int resolutionX);

/// Weights for the offsets -n ... n with n = floor(8 sigma), exp(-(d / sigma)^2 / 2), divided by their sum.
std::vector<double> gaussianWeights(double sigma);

/// The blurred reds before any rounding, over the mask's allocated rectangle grown by ceil(4 sigma), row after row.
std::vector<double> blurredRed16(const RefImage16& mask, double sigma);
std::vector<double> blurredRedFloat(const RefImageFloat& mask, double sigma);

/// The blurred picture: R to the nearest integer (halves away from zero) or to float, G = B = 0, A full where R is not
/// zero and zero elsewhere. A mask without pixels stays without pixels.
RefImage16 gaussianBlur16(const RefImage16& mask, double sigma);
RefImageFloat gaussianBlurFloat(const RefImageFloat& mask, double sigma);

} // namespace reference
