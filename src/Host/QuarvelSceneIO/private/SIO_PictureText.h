// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pictures of shapes as texts: PNG files in base 64. A picture has red, green, blue and alpha with 8 or 16 bits;
// all other formats are converted to one of these, without loss unless they are more precise than 16 bits. PNG cannot
// tell whether colours are multiplied by alpha, so the caller stores that separately; the values are written unchanged
// in both cases, so that nothing is rounded.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QImage>
#include <QString>

#include <optional>

/// Converts a picture to one of the formats of files: ARGB32 or RGBA64, premultiplied if the picture is.
QUARVELSCENEIO_EXPORT QImage SIO_plainPicture(const QImage& picture);

/// Converts a picture from SIO_plainPicture() to a text; std::nullopt if it is too large for a file.
QUARVELSCENEIO_EXPORT std::optional<QString> SIO_pictureText(const QImage& plain);

/// The inverse; std::nullopt for texts that are not pictures, and for pictures that are too large.
QUARVELSCENEIO_EXPORT std::optional<QImage> SIO_parsePicture(const QString& text, bool premultiplied);
