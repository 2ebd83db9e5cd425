// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Doubling: a plane with twice as many samples along one axis or both. Each sample is a weighted sum of the coarse ones
// around it.
#pragma once

#include "BlurAlgo/private/BandRows.h"
#include "BlurAlgo/private/StepWeights.h"

namespace BlurAlgo {

/// Makes the rows y of the doubled plane.
void doubleBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory);

/// The same for two doublings, the first one along the rows at least. The plane between them has the rectangle between;
/// its rows are made on demand and not stored.
void doubleTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                     const Output& out, Interval y, BandMemory& memory);

} // namespace BlurAlgo
