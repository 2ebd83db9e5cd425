// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Work on a long row in strips, so that a strip's input stays in the first-level cache.
#pragma once

#include <algorithm>

/// Calls work(first, count) for the strips of a row of n; the last one may be shorter.
template<typename Count, typename Work>
void VL_forStrips(Count n, Count strip, const Work& work)
{
    for (Count first = 0; first < n; first += strip)
        work(first, std::min(strip, n - first));
}
