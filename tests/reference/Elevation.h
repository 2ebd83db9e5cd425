// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// From a blurred object to its elevation: either the range that normalises it (normals off), or a depth picture whose
// height is a share of the canvas's width (normals on).
#pragma once

#include "reference/Image.h"

namespace reference {

/// How an object's R maps to its elevation when normals are off: (R - offset) x scale.
struct RefRange
{
    float offset = 0.0F;
    float scale = 0.0F;

    bool operator==(const RefRange&) const = default;
};

/// Smallest and largest positive R; 32767 and -32767 where no R is positive.
struct RefSpan
{
    float lowest = 32767.0F;
    float highest = -32767.0F;
};

/// The span of the positive R of a picture.
RefSpan positiveSpan16(const RefImage16& blurred);
RefSpan positiveSpanFloat(const RefImageFloat& blurred);

/// The range of a span: (lowest, 1) when both ends are equal, else (lowest, 1 / (highest - lowest)), also for the empty
/// span.
RefRange rangeOfSpan(const RefSpan& span);

/// The canvas's width / 720, in single precision.
float canvasFactor(const RefBox& canvas);

/// The depth of the highest pixel: elevation x 37.5 x canvas factor, in double.
double depthHeight(double elevation, float factor);

/// The share x of the height, shaped: x to the power 1 / p for 0 < x < 1, where p = max(0, smoothness) is neither 0 nor
/// 1 (NaN counts as 0); x otherwise.
float shapedElevation(float x, double smoothness);

/// The depth picture of a blurred one, which it changes: B becomes the normalised elevation (16-bit: 1 ... 32766), R
/// becomes 0 where it is below 1 (float: not above 0). Without any positive R the depth stays 0 and the blurred picture
/// unchanged.
RefDepth makeDepth16(RefImage16& blurred, double low, double high, double smoothness);
RefDepth makeDepthFloat(RefImageFloat& blurred, double low, double high, double smoothness);

} // namespace reference
