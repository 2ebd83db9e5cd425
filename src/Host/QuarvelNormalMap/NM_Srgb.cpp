// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The curve is computed in double precision, and the tables from it.
#include "QuarvelNormalMap/NM_Srgb.h"

#include "QuarvelGraphicCore/CM_Srgb.h"

#include <algorithm>
#include <vector>

namespace {

std::vector<float> decodeTable()
{
    constexpr int kCodes = 65536;
    std::vector<float> table(kCodes);
    for (int code = 0; code < kCodes; ++code)
        table[static_cast<std::size_t>(code)] = static_cast<float>(CM_linearOfSrgb(code / 65535.0));
    return table;
}

} // namespace

float NM_linearOfSrgb(float encoded)
{
    if (!(encoded > 0.0F))
        return 0.0F;
    return static_cast<float>(CM_linearOfSrgb(static_cast<double>(std::min(encoded, 1.0F))));
}

float NM_linearOfSrgb(std::uint16_t encoded)
{
    static const std::vector<float> table = decodeTable();
    return table[encoded];
}

NM_SrgbEncoder::NM_SrgbEncoder()
{
    for (std::size_t i = 0; i < _values.size(); ++i)
        _values[i] = static_cast<float>(CM_srgbOfLinear(std::min(static_cast<double>(i) / kSteps, 1.0)));
}

const NM_SrgbEncoder& NM_SrgbEncoder::instance()
{
    static const NM_SrgbEncoder encoder;
    return encoder;
}
