// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Handing out rows.
#include "BlurAlgo/private/RowMemory.h"

#include <algorithm>

namespace BlurAlgo {

void RowMemory::reset(std::size_t rows, std::size_t samples)
{
    _stride = (samples + kLine - 1) / kLine * kLine;
    _next = _memory.room(rows * _stride);
}

float* RowMemory::take()
{
    float* row = _next;
    _next += _stride;
    return row;
}

float* RowMemory::takeZeros()
{
    float* row = take();
    std::fill_n(row, _stride, 0.0F);
    return row;
}

} // namespace BlurAlgo
