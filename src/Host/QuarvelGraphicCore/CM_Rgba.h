// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The two small colour values: CM_Rgba, a colour as a palette holds it, and VS_RGBA, the paint that a rasteriser
// applies.
#pragma once

#include <cstdint>

/// A palette's colour: 8 bits a channel, colour channels not multiplied by alpha.
struct CM_Rgba
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    friend constexpr bool operator==(const CM_Rgba&, const CM_Rgba&) = default;
};

/// A paint: 8 bits a channel, colour channels not multiplied by alpha. The transparent paint, all four bytes 0, changes
/// no pixel.
struct VS_RGBA
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 0;

    friend constexpr bool operator==(const VS_RGBA&, const VS_RGBA&) = default;
};
