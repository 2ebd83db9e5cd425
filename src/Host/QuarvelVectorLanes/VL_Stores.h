// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The end of writing past the cache.
#pragma once

#include <hwy/cache_control.h>

/// Makes what was written past the cache visible to other threads, in the order of what follows.
inline void VL_finishStores()
{
    hwy::FlushStream();
}
