// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// A thread that waits for its parallel loop may work on other loops' parts meanwhile. Here such a part could ask for
// the same pixels and wait for itself, so the loops inside are isolated.
#include "QuarvelCelCore/CEL_DeferredPixels.h"

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <tbb/task_arena.h>

void CEL_DeferredPixels::make(const Take& take)
{
    const std::scoped_lock lock(_mutex);
    if (areMade())
        return;
    const UT_SharedPtr<CEL_PixmapArea> made = tbb::this_task_arena::isolate(_make);
    take(*made);
    _make = nullptr; // with what it held
    _areMade.store(true, std::memory_order_release);
}
