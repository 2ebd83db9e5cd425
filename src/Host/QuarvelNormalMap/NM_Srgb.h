// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts between the encoded values of pictures and linear amounts of light, in which light must be added and
// multiplied: the curve of CM_Srgb.h, clamped and fast.
#pragma once

#include "QuarvelNormalMap/QuarvelNormalMapExport.h"

#include <array>
#include <cstdint>

/// The amount of light, 0 .. 1, of an encoded value, 0 .. 1. Values outside are clamped, NaN becomes 0.
QUARVELNORMALMAP_EXPORT float NM_linearOfSrgb(float encoded);

/// The same for a 16-bit sample, from a table.
QUARVELNORMALMAP_EXPORT float NM_linearOfSrgb(std::uint16_t encoded);

/// Encodes amounts of light with an interpolated table: within 2e-5 of the curve, in the time of a look-up.
class QUARVELNORMALMAP_EXPORT NM_SrgbEncoder
{
public:
    /// The table, which is computed once.
    static const NM_SrgbEncoder& instance();

    /// The encoded value, 0 .. 1. Amounts outside 0 .. 1 are clamped; NaN becomes 0.
    float operator()(float linear) const
    {
        // Written so that NaN fails the comparison.
        if (!(linear > 0.0F))
            return 0.0F;
        if (linear >= 1.0F)
            return 1.0F;
        const float position = linear * static_cast<float>(kSteps);
        const auto index = static_cast<std::size_t>(position);
        const float fraction = position - static_cast<float>(index);
        return _values[index] + fraction * (_values[index + 1] - _values[index]);
    }

private:
    static constexpr int kSteps = 4096;

    NM_SrgbEncoder();

    std::array<float, kSteps + 2> _values{};
};
