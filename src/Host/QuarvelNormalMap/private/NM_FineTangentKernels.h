// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rows of float normals become rows of 16-bit samples in the layout TANGENT, dithered, with vector code.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"
#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelNormalMap/NM_Dither.h"

#include <cstdint>
#include <span>

/// Writes four samples for each pixel: its direction, y times ySign, each component n as (0.5 n + 0.5) 65535 dithered
/// (NM_Dither.h), and the coverage, clamped and rounded. A pixel without direction faces the viewer; what faces the
/// viewer has the samples 32768, 32768 and 65535. In single precision, operation by operation the same on every
/// machine.
///
/// @param x,y     the place of the first pixel, for the dither
/// @param samples room for four for each pixel
void NM_encodeFineTangents(std::span<const CEL_PixelRGBAFloat> pixels, int x, int y, float ySign,
                           std::uint16_t* samples);
