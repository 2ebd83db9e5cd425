// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts rows of float normals to rows of dithered 16-bit samples in the layout TANGENT, with vector code.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"
#include "QuarvelNormalMap/NM_Direction.h"
#include "QuarvelNormalMap/NM_Dither.h"

#include <cstdint>
#include <span>

/// Writes four samples for each pixel: its direction, y times ySign, each component n as (0.5 n + 0.5) 65535 dithered
/// (NM_Dither.h), and the coverage, clamped and rounded. A pixel without direction faces the viewer; vectors that face
/// the viewer get the samples 32768, 32768 and 65535. Computed in single precision, operation by operation the same on
/// every machine.
///
/// @param x,y     the place of the first pixel, for the dither
/// @param samples room for four samples per pixel
void NM_encodeFineTangents(std::span<const CEL_PixelRGBAFloat> pixels, int x, int y, float ySign,
                           std::uint16_t* samples);
