// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The vectors of a finished normal map, turned and mirrored where they are: what a map needs whose picture is turned or
// mirrored afterwards, or beforehand. The pixels stay at their places.
//
// A component n becomes -n as the sample 65535 - s. The sample of zero, 32768 (in 8 bits 128), stays itself, so that
// what is flat stays flat.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

/// Turns every vector about the z axis.
///
/// @param map          16-bit samples in the layout TANGENT, channels R G B A
/// @param quarterTurns clockwise, as the picture is seen; any number
/// @param yAxis        where the map's y points
QUARVELNORMALMAP_EXPORT void NM_turnVectors(IIO_Picture& map, int quarterTurns, NM_YAxis yAxis);

/// Turns the sign of every vector's x, of its y, or of both: for a program that mirrors a sprite left to right, upside
/// down, or both, and leaves the vectors as they are.
QUARVELNORMALMAP_EXPORT void NM_mirrorVectors(IIO_Picture& map, bool leftRight, bool upDown);
