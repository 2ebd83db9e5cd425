// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Brings a picture that lies anyhow in a drawing into the form that shapes have: pixels that are stretched over an
// upright rectangle.
//
// Moved, scaled, mirrored and turned by quarters, a picture keeps its pixels. Turned otherwise or slanted, it is
// sampled anew: bilinearly between the pixels' centres, in double precision, with colours weighted by their coverage,
// and cut by its exact outline.
#pragma once

#include <QImage>
#include <QPainterPath>
#include <QTransform>

#include <optional>

struct DIO_PlacedPicture
{
    QPainterPath path;                ///< an upright rectangle
    std::optional<QPainterPath> clip; ///< the picture's outline where that is no upright rectangle
    QImage picture;                   ///< stretched over the path's rectangle
};

/// Places a picture.
///
/// @param image     in one of the formats of DIO_inOneForm(), not empty
/// @param toDrawing from the picture, one unit a pixel, to the drawing; invertible
/// @param pixelBudget how many pixels may be made anew; lessened by those that are. When it runs out, pictures become
///                    coarser
DIO_PlacedPicture DIO_placePicture(const QImage& image, const QTransform& toDrawing, qint64& pixelBudget);
