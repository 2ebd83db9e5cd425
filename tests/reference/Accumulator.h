// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Accumulation of the inputs of one object. An accumulator starts with nothing allocated and grows with each input, but
// never beyond its canvas. Each input brings two layers per pixel, (value R, coverage A) and (value G, coverage B),
// which are merged in this order into the accumulator's R (value) and A (coverage).
#pragma once

#include "reference/Image.h"

namespace reference {

/// A new accumulator: nothing allocated, the render's output rectangle as canvas, the first input's size.
RefImage16 makeAccumulator16(const RefImage16& firstInput, const RefBox& outputRect);
RefImageFloat makeAccumulatorFloat(const RefImageFloat& firstInput, const RefBox& outputRect);

/// One input pixel merged into one accumulator pixel.
void mergePixel16(RefPixel16& out, const RefPixel16& input);
void mergePixelFloat(RefPixelFloat& out, const RefPixelFloat& input);

/// Grows the accumulator to the input, clips it to its canvas, and merges every pixel that both have. G and B of those
/// become 0.
void accumulate16(RefImage16& accumulator, const RefImage16& input);
void accumulateFloat(RefImageFloat& accumulator, const RefImageFloat& input);

} // namespace reference
