// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Clearing a band.
#include "BlurAlgo/private/BandRows.h"

namespace BlurAlgo {

void clearBand(const Output& out, Interval y, RowMemory& memory)
{
    memory.reset(1, static_cast<std::size_t>(out.asked.size()));
    writeRows(out, y, memory, [&out](int, float* row) { std::fill_n(row, out.rect.width(), 0.0F); });
}

} // namespace BlurAlgo
