// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Halving: a plane of half as many samples along one axis or both, each the weighted sum of those around it.
#pragma once

#include "BlurAlgo/private/BandRows.h"
#include "BlurAlgo/private/StepWeights.h"

namespace BlurAlgo {

/// Makes the rows y of the halved plane. Empty parts of the input are skipped.
///
/// @return a box outside which these rows are zero; not always the smallest one
Math::Box2di halveBand(const Input& in, const StepPair& step, const Output& out, Interval y, RowMemory& memory);

/// The same for two halvings, the second one along the rows at least. The plane between them has the rectangle between;
/// its rows are made on demand and not stored.
Math::Box2di halveTwiceBand(const Input& in, const StepPair& first, const Math::Box2di& between, const StepPair& second,
                            const Output& out, Interval y, BandMemory& memory);

} // namespace BlurAlgo
