// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The short filter: the weighted sum of the samples around each one, along both axes.
#pragma once

#include "BlurAlgo/private/BandRows.h"

#include <span>

namespace BlurAlgo {

/// Makes the rows y of the filtered plane.
void filterBand(const Input& in, std::span<const float> xWeights, std::span<const float> yWeights, const Output& out,
                Interval y, RowMemory& memory);

} // namespace BlurAlgo
