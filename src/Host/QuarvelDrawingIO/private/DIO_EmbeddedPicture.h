// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pictures that stand in a drawing's own text, as data URLs.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"

#include <QImage>
#include <QString>

/// Reads the picture of a data URL. Its format is one of DIO_inOneForm().
///
/// Only bitmaps whose first bytes name their format are decoded (PNG, JPEG, GIF, BMP, WebP), never a drawing within the
/// drawing, and never a file.
///
/// @param pixelBudget how many pixels may still be decoded; lessened by the picture's
/// @return the picture, or what is left out, as a piece of text for a list: "picture that cannot be decoded"
UT_Result<QImage> DIO_decodePicture(const QString& url, qint64& pixelBudget);
