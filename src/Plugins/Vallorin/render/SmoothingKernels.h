// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The inner loops that smooth normals (NormalMap.h), with the precision of NormalKernels.h.
//
// Rows that are written overlap no other row; only the named pixels are read and written.
#pragma once

#include "render/NormalKernels.h"

namespace VolumeRowKernels {

/// Three neighbouring rows of normals.
template<typename Component>
struct NormalRows
{
    NormalRow<Component> above;
    NormalRow<Component> here;
    NormalRow<Component> below;
};

/// Stores the normals of a run of pixels, each the normalised weighted sum of the nine around it, in the form of
/// storeNormals(); an empty pixel with normals beside it gets R and G.
///
/// @param normals in the form of readBackNormals(), with one more pixel on either side
/// @param depth   of the run's row; black ones are 0
void smoothNormals(const NormalRows<float>& normals, const float* depth, const float* share,
                   std::span<CEL_PixelRGBA16> pixels);
void smoothNormals(const NormalRows<double>& normals, const float* depth, const float* share,
                   std::span<CEL_PixelRGBAFloat> pixels);

} // namespace VolumeRowKernels
