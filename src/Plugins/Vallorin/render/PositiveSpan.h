// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The lowest and the highest positive value of a blurred mask: between them lies the elevation.
#pragma once

#include <utility>

/// The range of the positive values. Without any, lowest is above highest.
struct PositiveSpan
{
    float lowest = 32767.0F;
    float highest = -32767.0F;

    bool isEmpty() const { return lowest > highest; }
};

/// Offset and scale that map the values of a span to 0 .. 1, in single precision: (lowest, 1 / (highest - lowest)), and
/// (lowest, 1) when there is only one value. A span without values gives the formula's result.
inline std::pair<float, float> elevationRange(const PositiveSpan& span)
{
    if (span.lowest == span.highest)
        return {span.lowest, 1.0F};
    return {span.lowest, 1.0F / (span.highest - span.lowest)};
}
