// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Where the 16-bit and the float variant of an algorithm differ, side by side; NormalCodes-inl.h has how they store
// normals and elevations. Everything else is one template over the pixel.
#pragma once

#include "QuarvelCelCore/CEL_PixmapArea.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

template<typename Pixel>
struct VolumeTraits;

/// A level in the range of the following conversion; NaN and levels outside the limit become 0.
inline double convertible(double level, double limit)
{
    return std::abs(level) < limit ? level : 0.0;
}

/// Signed 16-bit channels, 32767 is full.
template<>
struct VolumeTraits<CEL_PixelRGBA16>
{
    using Pixel = CEL_PixelRGBA16;
    using Channel = std::int16_t;
    static constexpr Channel kFull = 32767;
    /// Whether channels hold integers, to which blurred values are rounded.
    static constexpr bool kIsWhole = true;

    // The stage (LevelMerge.h). A level is quantised to 8 bits; one outside 0 to 1 keeps its low 8 bits.

    static constexpr Channel kDefaultBlue = 1024;
    static Channel levelOf(double objectLevel)
    {
        const int quantised = static_cast<std::int32_t>(convertible(objectLevel * 255.0, 2147483647.0)) & 0xFF;
        return static_cast<Channel>(quantised * 32767 / 255);
    }
    static float shareOf(Channel coverage) { return static_cast<float>(coverage / 32767.0); }
    static Channel scaledColour(Channel value, float share)
    {
        return static_cast<Channel>(static_cast<float>(value) * share);
    }
    static Channel colour(Channel value) { return value; }

    /// The type of a normal's component that is read back from a pixel (NormalKernels.h): a float holds every code.
    using NormalComponent = float;

    // Merging of inputs (CoverageMerge.h).

    static bool isFull(Channel coverage) { return coverage == kFull; }
    static bool isSecondLayer(Channel coverage) { return coverage > 1024; }

    static Channel mergeValue(Channel below, Channel coverage, Channel value)
    {
        return clampSum(fade(below, coverage) + value);
    }
    static Channel mergeCoverage(Channel below, Channel coverage) { return clampSum(fade(below, coverage) + coverage); }

    // The mask (CoverageMask.h).

    static Channel weighted(Channel value, Channel coverage)
    {
        return static_cast<Channel>(static_cast<std::int32_t>(value * (coverage / 32767.0)));
    }

    // The composition (Composition.h). Nearly full coverage counts as full, so that rounding in antialiasing leaves no
    // seam. isSaturated() tests an alpha as kSaturated does its share.

    static double coverageOf(Channel alpha) { return alpha / 32767.0; }
    static constexpr double kSaturated = 0.99;
    static bool isSaturated(Channel alpha)
    {
        static_assert(32439 / 32767.0 < kSaturated && 32440 / 32767.0 >= kSaturated);
        return alpha >= 32440;
    }
    static Channel cutAlpha(Channel alpha, double coverage) { return static_cast<Channel>(alpha * (1.0 - coverage)); }
    static Channel fullAlpha(double coverage) { return static_cast<Channel>(coverage * 32767.0); }
    static Channel blendAlpha(Channel alpha, double coverage)
    {
        const double sum = alpha * (1.0 - coverage) + coverage * 32767.0;
        return static_cast<Channel>(std::min(32767, std::max(0, static_cast<int>(sum))));
    }
    /// A component of a blended normal is truncated, not rounded like one that was computed from depths.
    static Channel blendedComponent(double n) { return static_cast<Channel>((n + 1.0) * 0.5 * 32767.0); }
    /// The blue of an object without elevation: the low 16 bits of its number.
    static Channel numberInBlue(std::int16_t number) { return number; }
    /// Only the low 16 bits are kept: values below the offset wrap around.
    static Channel normalised(Channel value, float offset, float scale)
    {
        return static_cast<Channel>(static_cast<std::int32_t>((static_cast<float>(value) - offset) * scale * 32767.0F));
    }

private:
    static int fade(int below, int coverage) { return (below * (32767 - coverage) + 32767) >> 15; }
    static Channel clampSum(int sum) { return static_cast<Channel>(std::clamp(sum, -32767, 32767)); }
};

/// Float channels, 1.0 is full.
template<>
struct VolumeTraits<CEL_PixelRGBAFloat>
{
    using Pixel = CEL_PixelRGBAFloat;
    using Channel = float;
    static constexpr Channel kFull = 1.0F;
    static constexpr bool kIsWhole = false;

    /// Grey and coverage of colours are truncated to whole numbers, so the values between carving and adding are lost.
    static constexpr Channel kDefaultBlue = 0.5F;
    static Channel levelOf(double objectLevel)
    {
        return static_cast<Channel>(convertible(objectLevel, std::numeric_limits<float>::max()));
    }
    static float shareOf(Channel coverage) { return coverage; }
    static Channel scaledColour(Channel value, float share) { return std::trunc(value * share); }
    static Channel colour(Channel value) { return std::trunc(value); }

    /// On a steep slope 1 - x^2 - y^2 is small and mostly rounding error in single precision, so reading z back takes
    /// double precision.
    using NormalComponent = double;

    static bool isFull(Channel coverage) { return coverage >= 1.0F; }
    static bool isSecondLayer(Channel coverage) { return coverage > 0.0F; }

    static Channel mergeValue(Channel below, Channel coverage, Channel value)
    {
        return static_cast<Channel>(below * (1.0 - coverage) + value);
    }
    static Channel mergeCoverage(Channel below, Channel coverage)
    {
        return static_cast<Channel>(std::clamp(below * (1.0 - coverage) + coverage, 0.0, 1.0));
    }

    static Channel weighted(Channel value, Channel coverage) { return value * coverage; }

    static double coverageOf(Channel alpha) { return alpha; }
    static constexpr double kSaturated = 0.9999;
    static bool isSaturated(Channel alpha) { return alpha >= kSaturated; }
    static Channel cutAlpha(Channel alpha, double coverage) { return static_cast<Channel>(alpha * (1.0 - coverage)); }
    static Channel fullAlpha(double coverage) { return static_cast<Channel>(coverage); }
    /// Truncated to a whole number: a blended alpha is 0.0 or 1.0.
    static Channel blendAlpha(Channel alpha, double coverage)
    {
        return static_cast<Channel>(std::clamp(std::trunc((1.0 - coverage) * alpha + coverage), 0.0, 1.0));
    }
    static Channel blendedComponent(double n) { return static_cast<Channel>((n + 1.0) * 0.5); }
    static Channel numberInBlue(std::int16_t) { return 0.0F; }
    static Channel normalised(Channel value, float offset, float scale) { return (value - offset) * scale; }
};
