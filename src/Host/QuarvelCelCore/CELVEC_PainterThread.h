// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Runs painting on threads of the pool that Qt's painter uses. On any other thread the painter splits each large fill
// into parts, passes these to its pool and waits for them, thousands of times in a picture. On a thread of the pool it
// fills directly, which is faster.
#pragma once

#include "QuarvelCelCore/QuarvelCelCoreExport.h"

#include <functional>

/// Runs work on a thread of the pool, and waits for it. On such a thread already, it is a plain call. What the work
/// throws is thrown here.
///
/// @param work must not wait for other threads of the pool
QUARVELCELCORE_EXPORT void CELVEC_onPainterThread(const std::function<void()>& work);

/// The same for long work, such as a whole picture, that may wait for other threads of the pool. Whatever it paints,
/// it paints without changing threads.
QUARVELCELCORE_EXPORT void CELVEC_workOnPainterThread(const std::function<void()>& work);
