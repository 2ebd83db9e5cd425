// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops from inputs to the accumulator, and from that to the mask (VolumeModel.h). They run with the widest
// vectors that the processor has. Every pixel is computed by itself with the operations of the plain formula, in their
// order, none of them fused, so all processors give the same bits.
//
// Rows that are written overlap no other row; only the named pixels are read and written.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"

#include <span>

namespace VolumeRowKernels {

/// Merges the two layers of an input into the accumulator (LayerMerge.h).
void mergeLayers(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator);
void mergeLayers(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator);

/// The same for an accumulator whose pixels are uninitialised and count as zeros: they are not read.
void placeLayers(std::span<const CEL_PixelRGBA16> input, CEL_PixelRGBA16* accumulator);
void placeLayers(std::span<const CEL_PixelRGBAFloat> input, CEL_PixelRGBAFloat* accumulator);

/// mask[i] = value times coverage of accumulated[i] (VolumeTraits::weighted).
void weigh(std::span<const CEL_PixelRGBA16> accumulated, float* mask);
void weigh(std::span<const CEL_PixelRGBAFloat> accumulated, float* mask);

/// The same for an accumulator into which nothing but this input is merged.
void weighLayers(std::span<const CEL_PixelRGBA16> input, float* mask);
void weighLayers(std::span<const CEL_PixelRGBAFloat> input, float* mask);

} // namespace VolumeRowKernels
