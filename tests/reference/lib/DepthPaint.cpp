// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Greys of the colour table: the low byte of a level in all three channels, opaque.
#include "reference/DepthPaint.h"

namespace reference {

RefPaint depthPaint(std::int32_t value)
{
    const auto grey = static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) & 0xFFU);
    return RefPaint{grey, grey, grey, 255};
}

RefPaint depthPaintOf(const std::vector<RefColourRecord>& records, std::uint64_t colourId)
{
    RefPaint paint;
    for (const RefColourRecord& record : records) {
        if (record.colourId == colourId) {
            paint = depthPaint(record.value);
        }
    }
    return paint;
}

} // namespace reference
