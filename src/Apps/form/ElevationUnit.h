// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The unit of the node's elevations.
#pragma once

/// The height of the highest place of an object of elevation 1, in units of which the picture is 720 wide.
inline constexpr double kRiseOfElevation = 37.5;
