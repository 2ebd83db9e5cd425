// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_ShapeSink: who takes the shapes that the recording device makes of what is painted on it.
#pragma once

#include <QBrush>
#include <QPainterPath>

#include <span>

/// A fill, or a stroke's outline, as it was painted.
struct DIO_RecordedShape
{
    QPainterPath path; ///< in device coordinates
    QBrush brush;      ///< what it was filled or stroked with, the colour's alpha included
    double opacity;    ///< of the painter, 0 to 1
    QPainterPath clip; ///< the painter's clip in device coordinates, of use when clipped
    bool clipped;
};

/// Takes shapes in the order of painting.
class DIO_ShapeSink
{
public:
    virtual ~DIO_ShapeSink() = default;

    /// A fill or a stroke. A painter's operation that does both gives the fill first.
    virtual void shape(DIO_RecordedShape shape) = 0;

    /// An open polyline in local coordinates, before it is stroked.
    ///
    /// @return true when the sink keeps it for itself; then no shape is made of it
    virtual bool polyline(std::span<const QPointF> points) = 0;
};
