// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pixels of pixmaps, and the traits through which one algorithm serves both colour formats.
//
// Colour pixels are associated: red, green and blue are multiplied by alpha, as painting produces them. Passes that use
// the channels for something else (levels, normals) say so.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <type_traits>

/// The formats of pixmaps, as render jobs name them.
enum CEL_Format : int
{
    CEL_FORMAT_NONE = 0,
    CEL_FORMAT_RGBA16 = 4,    ///< four signed 16-bit channels, 32767 = 1.0
    CEL_FORMAT_RGBAFLOAT = 5, ///< four 32-bit floats, 1.0 = full
    CEL_FORMAT_Z = 6          ///< one 32-bit float of depth
};

/// A pixel of four channels. All zero is the transparent, empty pixel.
template<typename Channel>
struct CEL_PixelRGBA
{
    Channel r{};
    Channel g{};
    Channel b{};
    Channel a{};

    friend constexpr bool operator==(const CEL_PixelRGBA&, const CEL_PixelRGBA&) = default;
};

using CEL_PixelRGBA16 = CEL_PixelRGBA<std::int16_t>;
using CEL_PixelRGBAFloat = CEL_PixelRGBA<float>;

/// A pixel of a depth pixmap.
struct CEL_PixelFloat
{
    float value = 0.0F;

    /// True when the depth is exactly 0.0, of either sign: there is no surface.
    constexpr bool isBlack() const { return value == 0.0F; }
    friend constexpr bool operator==(const CEL_PixelFloat&, const CEL_PixelFloat&) = default;
};

/// What an algorithm needs to know of a colour pixel's format.
///
/// kFull is the channel value of 1.0. toChannel rounds a value on the channel's own scale to one that the channel can
/// hold: in 16 bits to the nearest integer, halves away from zero, clamped to [-32767, 32767]; in float it is
/// unchanged.
template<typename Pixel>
struct CEL_PixelTraits;

template<>
struct CEL_PixelTraits<CEL_PixelRGBA16>
{
    using Channel = std::int16_t;
    static constexpr CEL_Format kFormat = CEL_FORMAT_RGBA16;
    static constexpr Channel kFull = 32767;

    static Channel toChannel(double value)
    {
        return static_cast<Channel>(std::clamp(std::round(value), -32767.0, 32767.0));
    }
};

template<>
struct CEL_PixelTraits<CEL_PixelRGBAFloat>
{
    using Channel = float;
    static constexpr CEL_Format kFormat = CEL_FORMAT_RGBAFLOAT;
    static constexpr Channel kFull = 1.0F;

    static Channel toChannel(double value) { return static_cast<Channel>(value); }
};
