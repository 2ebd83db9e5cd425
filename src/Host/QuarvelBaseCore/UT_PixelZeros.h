// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Memory for pixels (UT_PixelMemory.h) that comes fresh from the system holds zeros. Whoever wants zeros where nothing
// else is written need not write them there, and pages that nobody writes take no memory.
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
