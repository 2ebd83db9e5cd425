// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The curve is computed in double precision, and the tables from it.
#include "QuarvelNormalMap/NM_Srgb.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

double decode(double encoded)
{
    return encoded <= 0.04045 ? encoded / 12.92 : std::pow((encoded + 0.055) / 1.055, 2.4);
}

double encode(double linear)
{
    return linear <= 0.0031308 ? linear * 12.92 : 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055;
}

std::vector<float> decodeTable()
{
    constexpr int kCodes = 65536;
    std::vector<float> table(kCodes);
    for (int code = 0; code < kCodes; ++code)
        table[static_cast<std::size_t>(code)] = static_cast<float>(decode(code / 65535.0));
    return table;
}

} // namespace

float NM_linearOfSrgb(float encoded)
{
    if (!(encoded > 0.0F))
        return 0.0F;
    return static_cast<float>(decode(static_cast<double>(std::min(encoded, 1.0F))));
}

float NM_linearOfSrgb(std::uint16_t encoded)
{
    static const std::vector<float> table = decodeTable();
    return table[encoded];
}

NM_SrgbEncoder::NM_SrgbEncoder()
{
    for (std::size_t i = 0; i < _values.size(); ++i)
        _values[i] = static_cast<float>(encode(std::min(static_cast<double>(i) / kSteps, 1.0)));
}

const NM_SrgbEncoder& NM_SrgbEncoder::instance()
{
    static const NM_SrgbEncoder encoder;
    return encoder;
}
