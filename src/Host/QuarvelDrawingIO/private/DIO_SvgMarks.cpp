// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Writing and reading of marks.
#include "QuarvelDrawingIO/private/DIO_SvgMarks.h"

#include <QByteArray>

#include <cmath>

QByteArray DIO_SvgMark::points() const
{
    return QByteArray::number(static_cast<int>(command)) + ',' + QByteArray::number(argument) + " 0,0 0,0";
}

std::optional<DIO_SvgMark> DIO_SvgMark::read(std::span<const QPointF> points)
{
    if (points.size() != 3)
        return std::nullopt;
    const auto command = static_cast<int>(std::lround(points[0].x()));
    if (command < static_cast<int>(Command::LAYER) || command > static_cast<int>(Command::MASK_POP))
        return std::nullopt;
    return DIO_SvgMark{static_cast<Command>(command), static_cast<int>(std::lround(points[0].y()))};
}
