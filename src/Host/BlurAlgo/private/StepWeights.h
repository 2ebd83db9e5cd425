// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The weights of one halving or doubling.
#pragma once

#include <vector>

namespace BlurAlgo {

/// The weights of one step along one axis; a step that leaves the axis alone has none.
struct StepWeights
{
    std::vector<float> weights; ///< from the middle outwards

    bool active() const { return !weights.empty(); }
    int reach() const { return static_cast<int>(weights.size()) - 1; }
};

/// One step along both axes.
struct StepPair
{
    StepWeights x;
    StepWeights y;
};

} // namespace BlurAlgo
