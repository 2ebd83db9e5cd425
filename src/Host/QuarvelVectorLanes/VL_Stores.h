// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Finishing writes past the cache.
#pragma once

#include <hwy/cache_control.h>

/// Orders the writes past the cache before all later ones, so that another thread that sees a later one sees them too.
inline void VL_finishStores()
{
    hwy::FlushStream();
}
