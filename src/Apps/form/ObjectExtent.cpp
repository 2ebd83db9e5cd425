// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
#include "form/ObjectExtent.h"

#include <cmath>
#include <numbers>

ObjectExtent extentOf(const OutlineDistance& measured, double unitsPerCell)
{
    if (measured.area == 0)
        return {};
    const double discRadius = std::sqrt(measured.area / std::numbers::pi);
    return {3.0 * measured.mean * unitsPerCell, measured.cut ? 0.0 : measured.largest / discRadius};
}
