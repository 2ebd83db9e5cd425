// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The growth of the input rectangle, in doubles from left to right.
#include "reference/InputRect.h"

#include <cmath>
#include <limits>

namespace reference {

int inputGrowth(const std::vector<double>& bevels, double blurScale, double width)
{
    double widest = 0.0;
    for (const double bevel : bevels) {
        if (std::isfinite(bevel) && bevel > widest) {
            widest = bevel;
        }
    }
    const double growth = std::trunc(width * blurScale * widest / 720.0 + 0.5);
    if (std::isnan(growth)) {
        return 0;
    }
    if (growth >= static_cast<double>(std::numeric_limits<int>::max())) {
        return std::numeric_limits<int>::max();
    }
    if (growth <= static_cast<double>(std::numeric_limits<int>::min())) {
        return std::numeric_limits<int>::min();
    }
    return static_cast<int>(growth);
}

RefBox inputRect(const RefBox& rect, const std::vector<double>& bevels, double blurScale, double width)
{
    if (bevels.empty()) {
        return rect;
    }
    return enlarged(rect, inputGrowth(bevels, blurScale, width));
}

} // namespace reference
