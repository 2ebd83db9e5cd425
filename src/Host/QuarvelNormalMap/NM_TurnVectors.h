// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Turns and mirrors the vectors of a finished normal map without moving pixels. A map needs this if its picture is
// turned or mirrored separately, before or after.
//
// Negating a component changes its sample s to 65535 - s. The sample of zero, 32768 (in 8 bits 128), stays unchanged,
// so that flat places stay flat.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "QuarvelNormalMap/NM_Layout.h"

/// Turns every vector around the z axis.
///
/// @param map          16-bit samples in the layout TANGENT, channels R G B A
/// @param quarterTurns clockwise on the screen; any number
/// @param yAxis        where the map's y points
QUARVELNORMALMAP_EXPORT void NM_turnVectors(IIO_Picture& map, int quarterTurns, NM_YAxis yAxis);

/// Changes the sign of every vector's x, y, or both: for programs that mirror a sprite left to right, upside down, or
/// both and do not change the vectors.
QUARVELNORMALMAP_EXPORT void NM_mirrorVectors(IIO_Picture& map, bool leftRight, bool upDown);
