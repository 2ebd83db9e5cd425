// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The rows of LevelMerge. Float pixels are merged vector by vector; a 16-bit pixel takes a division where greys are
// scaled, and is merged by itself.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"

#include <cstdint>
#include <span>

namespace VolumeRowKernels {

/// What happens to all pixels of a merge (LevelMerge.h).
template<typename Pixel>
struct LevelOf
{
    decltype(Pixel::r) level;
    bool scaleByCoverage;
};

/// Merges a row in which the drawing has no greys.
void setLevel(std::span<CEL_PixelRGBA16> target, const LevelOf<CEL_PixelRGBA16>& how);
void setLevel(std::span<CEL_PixelRGBAFloat> target, const LevelOf<CEL_PixelRGBAFloat>& how);

/// Merges a row with as many greys.
void setLevelAndGreys(std::span<CEL_PixelRGBA16> target, const CEL_PixelRGBA16* greys,
                      const LevelOf<CEL_PixelRGBA16>& how);
void setLevelAndGreys(std::span<CEL_PixelRGBAFloat> target, const CEL_PixelRGBAFloat* greys,
                      const LevelOf<CEL_PixelRGBAFloat>& how);

/// Makes a row of a drawing whose greys are all white, from the alpha of the drawing and that of its greys. Of the
/// pixels, nothing is read.
void placeLevelAndWhite(const std::int16_t* coverage, const std::int16_t* white, const LevelOf<CEL_PixelRGBA16>& how,
                        std::span<CEL_PixelRGBA16> target);
void placeLevelAndWhite(const float* coverage, const float* white, const LevelOf<CEL_PixelRGBAFloat>& how,
                        std::span<CEL_PixelRGBAFloat> target);

} // namespace VolumeRowKernels
