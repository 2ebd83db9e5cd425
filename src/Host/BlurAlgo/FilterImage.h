// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FilterImage: the description of a separable filter for blurs.
#pragma once

#include "BlurAlgo/BlurAlgoExport.h"

/// A Gaussian filter of its own standard deviation in x and in y. A filter that nobody has filled leaves pictures as
/// they are.
class BLURALGO_EXPORT FilterImage
{
public:
    /// A filter that leaves pictures as they are, of width x height weights: 1 in the middle, 0 around it. A size that
    /// is not odd and positive counts as the next larger one that is, so FilterImage(0, 0) has the single weight 1.
    FilterImage(int width, int height);

    /// Makes it a Gaussian. Its size becomes that of the offsets up to ceil(4 sigma) to each side.
    ///
    /// @param sigmaX, sigmaY standard deviations in pixels; what is not a positive finite number counts as 0, which
    /// leaves the axis as it is; what is beyond a million counts as a million
    /// @param normalise true: the weights of the whole Gaussian sum to 1; false: its largest weight is 1
    void setGaussian(double sigmaX, double sigmaY, bool normalise);

    double sigmaX() const { return _sigmaX; }
    double sigmaY() const { return _sigmaY; }

    /// Number of weights in x and in y; both are odd.
    int width() const { return _width; }
    int height() const { return _height; }

    /// By how much a blur's values are larger than those of the normalised filter: 1 when this one is.
    double gain() const;

private:
    double _sigmaX = 0.0;
    double _sigmaY = 0.0;
    bool _normalised = true;
    int _width = 1;
    int _height = 1;
};
