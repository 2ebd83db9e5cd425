// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// What all stages need.
#include "BlurAlgo/private/BlurStages.h"

#include "BlurAlgo/private/BandRows.h"

#include <algorithm>

namespace BlurAlgo {

Interval halvedSupport(Interval samples, int reach)
{
    return {ceilHalf(samples.lo - reach), floorHalf(samples.hi - 1 + reach) + 1};
}

Interval neededByDoubling(Interval samples, int reach)
{
    return halvedSupport(alignedToEven(samples), reach);
}

Interval doubledSupport(Interval samples, int reach)
{
    return {2 * samples.lo - reach, 2 * (samples.hi - 1) + reach + 1};
}

void RowMemory::reset(std::size_t rows, std::size_t samples)
{
    // One line more keeps columns of rows from falling on the same places of the cache all the time.
    _stride = (samples + kLine - 1) / kLine * kLine + kLine;
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

void clearBand(const Output& out, Interval y, RowMemory& memory)
{
    memory.reset(1, static_cast<std::size_t>(out.asked.size()));
    writeRows(out, y, memory, [&out](int, float* row) { std::fill_n(row, out.rect.width(), 0.0F); });
}

} // namespace BlurAlgo
