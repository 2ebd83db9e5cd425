// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// DIO_PictureAverage: what an embedded picture comes down to: its size and its average colour.
#pragma once

#include <QColor>
#include <QSize>
#include <QString>

#include <optional>

struct DIO_PictureAverage
{
    QSize size;
    QColor colour; ///< weighted by alpha; its alpha is the average alpha
};

/// Reads the picture of a data URL.
///
/// Only bitmaps whose first bytes name their format are decoded (PNG, JPEG, GIF, BMP, WebP), never a drawing within the
/// drawing.
///
/// @param pixelBudget how many pixels may still be decoded; lessened by the picture's
/// @return nothing for any other URL, a damaged picture, or one beyond the budget
std::optional<DIO_PictureAverage> DIO_averagePicture(const QString& url, qint64& pixelBudget);
