// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// FilterImage: the description of a separable filter for blurs.
#pragma once

#include "BlurAlgo/BlurAlgoExport.h"

/// A Gaussian filter with one standard deviation in x and one in y. A new filter leaves pictures unchanged.
class BLURALGO_EXPORT FilterImage
{
public:
    /// A filter that leaves pictures unchanged, of width x height weights: 1 in the middle, 0 around it. A size that is
    /// not odd and positive is raised to the next one that is, so FilterImage(0, 0) has the single weight 1.
    FilterImage(int width, int height);

    /// Makes it a Gaussian, whose weights reach ceil(4 sigma) to each side.
    ///
    /// @param sigmaX, sigmaY standard deviations in pixels; a value that is not positive and finite counts as 0, which
    /// leaves the axis unchanged; values above a million are clamped to a million
    /// @param normalise true: the weights of the whole Gaussian sum to 1; false: its largest weight is 1
    void setGaussian(double sigmaX, double sigmaY, bool normalise);

    double sigmaX() const { return _sigmaX; }
    double sigmaY() const { return _sigmaY; }

    /// Number of weights in x and in y; both are odd.
    int width() const { return _width; }
    int height() const { return _height; }

    /// The factor by which blurred values are larger than with the normalised filter; 1 for a normalised one.
    double gain() const;

private:
    double _sigmaX = 0.0;
    double _sigmaY = 0.0;
    bool _normalised = true;
    int _width = 1;
    int _height = 1;
};
