// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writing past the cache: a large picture is written without being read first, and the data that is needed next stays
// in the cache.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"
#include "QuarvelVectorLanes/VL_Stores.h"

#include <cstdint>
#include <span>

namespace VolumeRowKernels {

/// How pixels are written.
enum class Stores
{
    CACHED,
    PAST_CACHE ///< VL_finishStores() before another thread reads them
};

/// When written pixels are read: right after writing, or later, when they have left the cache anyway.
enum class Reader
{
    SOON,
    LATER
};
/// The best choice for a picture of this many bytes that is written from one end to the other.
Stores storesFor(std::int64_t bytes, Reader reader);

/// Fills pixels with one value.
void fillPixels(std::span<CEL_PixelRGBA16> pixels, const CEL_PixelRGBA16& pixel, Stores stores);
void fillPixels(std::span<CEL_PixelRGBAFloat> pixels, const CEL_PixelRGBAFloat& pixel, Stores stores);

/// Copies pixels; source and target must not overlap.
void copyPixels(const CEL_PixelRGBA16* source, std::span<CEL_PixelRGBA16> pixels, Stores stores);
void copyPixels(const CEL_PixelRGBAFloat* source, std::span<CEL_PixelRGBAFloat> pixels, Stores stores);

} // namespace VolumeRowKernels
