// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Neighbours often share a clip; they share the rounded one, too.
#include "QuarvelDrawingIO/private/DIO_RoundedShapes.h"

#include <algorithm>
#include <cmath>

namespace {

// Digits after the point where the side is 1.
constexpr int kDigits = 6;

} // namespace

// The quotient of two whole numbers is the double next to the decimal number, which is written with its few digits.
DIO_RoundedShapes::DIO_RoundedShapes(double side)
    : _perUnit(std::pow(10.0, std::clamp(kDigits - static_cast<int>(std::floor(std::log10(side))), 0, 12)))
{}

void DIO_RoundedShapes::round(std::vector<DIO_Shape>& shapes)
{
    std::optional<QPainterPath> before;
    std::optional<QPainterPath> after;
    for (DIO_Shape& shape : shapes) {
        round(shape.path);
        if (!shape.clip)
            continue;
        if (!before || *before != *shape.clip) {
            before = shape.clip;
            after = shape.clip;
            round(*after);
        }
        shape.clip = after;
    }
}

void DIO_RoundedShapes::round(QPainterPath& path) const
{
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element& element = path.elementAt(i);
        path.setElementPositionAt(i, std::round(element.x * _perUnit) / _perUnit,
                                  std::round(element.y * _perUnit) / _perUnit);
    }
}
