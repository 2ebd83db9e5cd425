// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The unit of the node's elevations, and the smallest one.
#pragma once

/// The height of the highest place of an object of elevation 1, in units of which the picture is 720 wide.
inline constexpr double kRiseOfElevation = 37.5;

/// The elevation of objects without volume: the smallest that the node tells from 0. The node treats an object of
/// elevation 0 as empty.
inline constexpr double kNoElevation = 1e-4;
