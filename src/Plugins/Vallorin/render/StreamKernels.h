// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writing past the cache: a large picture is written without being read first, and leaves in the cache what is still
// wanted there.
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
    PAST_CACHE ///< VL_finishStores() before anyone else reads them
};

/// What suits a picture of so many bytes that is written from one end to the other, and either read right after that or
/// later, when it has left the cache anyway.
enum class Reader
{
    SOON,
    LATER
};
Stores storesFor(std::int64_t bytes, Reader reader);

/// Writes the same pixel all over.
void fillPixels(std::span<CEL_PixelRGBA16> pixels, const CEL_PixelRGBA16& pixel, Stores stores);
void fillPixels(std::span<CEL_PixelRGBAFloat> pixels, const CEL_PixelRGBAFloat& pixel, Stores stores);

/// Writes what is at source; nothing overlaps.
void copyPixels(const CEL_PixelRGBA16* source, std::span<CEL_PixelRGBA16> pixels, Stores stores);
void copyPixels(const CEL_PixelRGBAFloat* source, std::span<CEL_PixelRGBAFloat> pixels, Stores stores);

} // namespace VolumeRowKernels
