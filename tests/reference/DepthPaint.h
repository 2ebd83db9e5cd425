// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The paint of a palette colour while the elevation input is rasterised: an opaque grey of the colour's level where the
// colour table lists it, transparent where it does not.
#pragma once

#include <cstdint>
#include <vector>

namespace reference {

/// A row of the colour table: identifier of a palette colour, and its level (0 carves, 255 adds; other values wrap).
struct RefColourRecord
{
    std::uint64_t colourId = 0;
    std::int32_t value = 255;
};

/// A paint with 8 bits a channel.
struct RefPaint
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 0;

    bool operator==(const RefPaint&) const = default;
};

/// The opaque grey of a level: the low byte of its two's complement.
RefPaint depthPaint(std::int32_t value);

/// The paint of a colour: that of the last row that lists it, or transparent black.
RefPaint depthPaintOf(const std::vector<RefColourRecord>& records, std::uint64_t colourId);

} // namespace reference
