// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Doubling: a plane of twice as many samples along one axis or both, each the weighted sum of the coarse ones around
// it.
#pragma once

#include "BlurAlgo/private/BandRows.h"
#include "BlurAlgo/private/StepWeights.h"

namespace BlurAlgo {

/// Rows y.lo .. y.hi - 1 of the doubled plane.
void doubleBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory);

/// The same for two doublings, the first one along the rows at least: what lies between is made when it is needed,
/// within the rectangle between.
void doubleTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                     const Output& out, Interval y, BandMemory& memory);

} // namespace BlurAlgo
