// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops from depths to normals (VolumeModel.h). They run with the widest vectors that the processor has.
// Every pixel is computed by itself. Codes of 16-bit channels are those of the plain formula in double precision, to
// the bit. Float channels that are stored are computed in single precision, within a millionth of that formula; normals
// that are read back from float channels, and their smoothing, are computed in double precision, because errors of
// single precision grow without bound on steep slopes. No operation is fused, so all processors give the same bits.
//
// Rows that are written overlap no other row; only the named pixels are read and written.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"

#include <cstddef>
#include <span>

namespace VolumeRowKernels {

/// Three neighbouring rows of depths; black ones are 0. The first pixel of a run has index 0 in each row, and one more
/// pixel is readable on either side.
struct DepthRows
{
    const float* above;
    const float* here;
    const float* below;
};

/// Stores the normals of a run of pixels: the normal's x and y in R and G, the elevation in B, A full; the empty pixel
/// where the depth is black.
///
/// @param diagonals whether the diagonal neighbours count
/// @param share     the elevation of each pixel, 0 to 1
void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBA16> pixels);
void storeNormals(const DepthRows& depth, bool diagonals, const float* share, std::span<CEL_PixelRGBAFloat> pixels);

/// The three components of normals in rows of their own; z is positive where there is a normal, and all three are zero
/// elsewhere.
template<typename Component>
struct NormalRow
{
    Component* x;
    Component* y;
    Component* z;
};

/// The same normals, diagonals included, as they are read back from a pixel, rounded to its channels. Rows of floats
/// hold those of 16-bit pixels, whose length is 32767 and whose x and y are integers; rows of doubles hold those of
/// float pixels, of length 1.
void readBackNormals(const DepthRows& depth, std::size_t count, const NormalRow<float>& normals);
void readBackNormals(const DepthRows& depth, std::size_t count, const NormalRow<double>& normals);

} // namespace VolumeRowKernels
