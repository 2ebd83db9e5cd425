// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_GradientFade: how the opacity of a gradient runs over the plane. A gradient is painted in one colour, its
// average, but where it fades it covers less, down to nothing: a glow is not the rectangle that it is painted on.
//
// The opacity is approximated by steps of a sixteenth, that of a gradient of more than 64 stops by its values at 64
// places.
#pragma once

#include <QRectF>
#include <QString>
#include <QTransform>

#include <vector>

/// A linear or radial gradient's opacity, in coordinates of its own.
struct DIO_GradientFade
{
    /// The opacity at a place between the gradient's start, 0, and its end, 1.
    struct Stop
    {
        double at;
        double opacity;
    };

    bool isRadial = false;
    QPointF start;           ///< linear: where it starts; radial: the focal point
    QPointF end;             ///< linear: where it ends; radial: the centre
    double radius = 0.0;     ///< radial
    std::vector<Stop> stops; ///< at least one, in ascending order of place
    QTransform transform;    ///< from these coordinates to the user's, or to those of a box whose sides are 1
    bool isInBox = false;    ///< the latter

    /// True when the opacity changes visibly, and the gradient has an extent.
    bool isVisible() const;
};

/// An area, as path data to be filled by the even-odd rule, in which the opacity is at least a value.
struct DIO_FadeArea
{
    QString path;
    double opacity; ///< above 0, up to 1
};

/// The areas of all steps, in ascending order of opacity, so that each lies inside the one before. They are in the
/// gradient's own coordinates.
///
/// @param place what has to be covered, in the gradient's own coordinates
std::vector<DIO_FadeArea> DIO_areasOf(const DIO_GradientFade& fade, const QRectF& place);
