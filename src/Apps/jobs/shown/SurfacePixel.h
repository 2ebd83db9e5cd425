// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// SurfacePixel: reads and changes the surface that a pixel of the node's output stores, its direction and its
// elevation. Everything is computed in double precision and rounded once, when it is stored.
#pragma once

#include "QuarvelCelCore/CEL_Pixels.h"
#include "QuarvelNormalMap/NM_Direction.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

/// Where a pixel stores its elevation.
enum class SurfaceElevation
{
    NOWHERE,     ///< it stores a direction and something else in blue
    BLUE,        ///< beside the direction
    ALL_CHANNELS ///< it stores no direction
};

/// The place in the output of a node that makes normals or not, with the elevation in blue or not.
inline SurfaceElevation elevationPlace(bool makesNormals, bool elevationInBlue)
{
    if (!makesNormals)
        return SurfaceElevation::ALL_CHANNELS;
    return elevationInBlue ? SurfaceElevation::BLUE : SurfaceElevation::NOWHERE;
}

/// A share of full as the pixel's channel stores it.
template<typename Pixel>
typename CEL_PixelTraits<Pixel>::Channel channelOf(double share)
{
    using Channel = typename CEL_PixelTraits<Pixel>::Channel;
    const double value = share * static_cast<double>(CEL_PixelTraits<Pixel>::kFull);
    if constexpr (std::is_integral_v<Channel>)
        return static_cast<Channel>(std::lround(value));
    else
        return static_cast<Channel>(value);
}

/// Stores x and y of a unit vector. The other channels stay as they are.
template<typename Pixel>
void storeDirection(const Math::Vector3d& direction, Pixel& pixel)
{
    pixel.r = channelOf<Pixel>((direction.x + 1.0) / 2.0);
    pixel.g = channelOf<Pixel>((direction.y + 1.0) / 2.0);
}

/// The pixel's elevation as a share of its object's height, 0 to 1; 0 if it stores none.
template<typename Pixel>
double elevationIn(const Pixel& pixel, SurfaceElevation where)
{
    if (where == SurfaceElevation::NOWHERE)
        return 0.0;
    const auto channel = where == SurfaceElevation::BLUE ? pixel.b : pixel.r;
    return std::clamp(static_cast<double>(channel) / static_cast<double>(CEL_PixelTraits<Pixel>::kFull), 0.0, 1.0);
}

/// Stores an elevation, if the pixel stores any.
template<typename Pixel>
void storeElevation(double share, SurfaceElevation where, Pixel& pixel)
{
    const auto channel = channelOf<Pixel>(std::clamp(share, 0.0, 1.0));
    if (where == SurfaceElevation::ALL_CHANNELS)
        pixel = {channel, channel, channel, channel};
    else if (where == SurfaceElevation::BLUE)
        pixel.b = channel;
}

/// The direction of the sum of two surfaces, whose slopes are added. Both face the viewer or lie on the horizon; the
/// sign of their z does not count.
inline Math::Vector3d sumOfSurfaces(const Math::Vector3d& a, const Math::Vector3d& b)
{
    // Both slopes x / z are multiplied by the two z, so that nothing is divided by zero.
    const double za = std::abs(a.z);
    const double zb = std::abs(b.z);
    Math::Vector3d sum(a.x * zb + b.x * za, a.y * zb + b.y * za, za * zb);
    if (!(sum.length() > 0.0))
        return {a.x, a.y, za};
    sum.normalize();
    return sum;
}

/// Adds a surface to the pixel's direction. One that faces the viewer changes nothing, not even a rounding.
template<typename Pixel>
void addSurface(const Math::Vector3d& direction, Pixel& pixel)
{
    if (direction.x != 0.0 || direction.y != 0.0)
        storeDirection(sumOfSurfaces(NM_directionOf(pixel), direction), pixel);
}
