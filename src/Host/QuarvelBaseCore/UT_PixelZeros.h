// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Which part of a block of memory for pixels (UT_PixelMemory.h) is zero already: memory that comes fresh from the
// system is. Code that needs zeros there does not write them, which saves time, and memory pages that are never written
// take up none.
#pragma once

#include "QuarvelBaseCore/QuarvelBaseCoreExport.h"

#include <cstddef>

namespace UT_PixelMemory {

/// From which byte on a block held zeros when it was taken. Safe from any thread.
///
/// @param block what take() returned
/// @param bytes its size; also the answer where no part of it is known to have held zeros, as in small blocks
QUARVELBASECORE_EXPORT std::size_t zerosFrom(const void* block, std::size_t bytes) noexcept;

} // namespace UT_PixelMemory
