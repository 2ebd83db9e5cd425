// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Halving: a plane of half as many samples along one axis or both, each the weighted sum of those around it.
#pragma once

#include "BlurAlgo/private/BandRows.h"
#include "BlurAlgo/private/StepWeights.h"

namespace BlurAlgo {

/// Rows y.lo .. y.hi - 1 of the halved plane.
///
/// @return a box outside of which these rows are zero, as small as is easily found: what is empty in the input is not
/// worked on
Math::Box2di halveBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory);

/// The same for two halvings, the second one along the rows at least: what lies between is not kept but made when it is
/// needed, within the rectangle between.
Math::Box2di halveTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                            const Output& out, Interval y, BandMemory& memory);

} // namespace BlurAlgo
