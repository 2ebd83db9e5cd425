// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The pictures of shapes as texts: PNG files in base 64. A picture has red, green, blue and alpha of 8 or of 16 bits;
// all other formats are turned into one of these, without loss where they are no more precise than 16 bits. Whether the
// colours are multiplied by alpha is not for PNG to say and stands beside the text; the numbers are the same in both
// cases, so that nothing is rounded.
#pragma once

#include "QuarvelSceneIO/QuarvelSceneIOExport.h"

#include <QImage>
#include <QString>

#include <optional>

/// The picture in one of the formats that files hold: (A)RGB32 or RGBA64, premultiplied when it was.
QUARVELSCENEIO_EXPORT QImage SIO_plainPicture(const QImage& picture);

/// A picture as SIO_plainPicture() gives it, as a text; nothing when it is too large for a file.
QUARVELSCENEIO_EXPORT std::optional<QString> SIO_pictureText(const QImage& plain);

/// The inverse; nothing for texts that are no picture, and for pictures that are too large.
QUARVELSCENEIO_EXPORT std::optional<QImage> SIO_parsePicture(const QString& text, bool premultiplied);
