// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Average colours: of images and of gradients. Colours count as much as they cover; the average's alpha is the average
// alpha.
#pragma once

#include <QBrush>
#include <QColor>
#include <QImage>

/// The average of an image's pixels.
QColor DIO_averageColour(const QImage& image);

/// The average of a gradient from its start to its end.
QColor DIO_averageColour(const QGradient& gradient);

/// The one colour that stands for a brush.
QColor DIO_averageColour(const QBrush& brush);
