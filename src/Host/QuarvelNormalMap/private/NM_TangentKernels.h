// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts rows of 16-bit normals to rows of 16-bit samples in the layout TANGENT, the most common conversion, with
// vector code.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"

#include <cstdint>
#include <span>

/// Writes four samples for each pixel: NM_directionOf() of the pixel, y times ySign, each component n as the nearest of
/// 0 .. 65535 to (0.5 n + 0.5) 65535, and the coverage. On every machine, the result is bit for bit that of the plain
/// formula in double precision.
///
/// @param samples room for four samples per pixel
void NM_encodeTangents(std::span<const CEL_PixelRGBA16> pixels, double ySign, std::uint16_t* samples);
