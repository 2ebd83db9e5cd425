// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Rounding to single precision that no compiler can leave out, and the conversion of an integer to a 16-bit channel.
// Where an expression is single, every operation of it goes through single(); where it is double, nothing does until
// the value is stored.
#pragma once

#include <cstdint>

namespace reference {

/// The value after being stored in memory as a float.
inline float single(float value)
{
    volatile float stored = value;
    return stored;
}

/// A double rounded to a float in memory.
inline float singleOf(double value)
{
    volatile float stored = static_cast<float>(value);
    return stored;
}

/// The low 16 bits of an integer, read as a signed value.
inline std::int16_t lowSixteenBits(std::int32_t value)
{
    const std::uint32_t bits = static_cast<std::uint32_t>(value) & 0xFFFFU;
    const std::int32_t wrapped =
        bits >= 0x8000U ? static_cast<std::int32_t>(bits) - 0x10000 : static_cast<std::int32_t>(bits);
    return static_cast<std::int16_t>(wrapped);
}

} // namespace reference
