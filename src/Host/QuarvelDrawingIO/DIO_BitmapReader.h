// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Reads bitmaps as drawings: sprites that have no vector source. The drawing has one layer with one shape, a rectangle
// that shows the pixels, and covers what they cover. Its unit is a pixel.
//
// The layer is named after the file, without the digits of a frame number. The palette has one colour, the average of
// the covered pixels.
#pragma once

#include "QuarvelBaseCore/UT_Result.h"
#include "QuarvelDrawingIO/DIO_Drawing.h"

#include <QImage>

/// The ends of the names of bitmaps that can be read on this machine, lower case, without dot, sorted.
QUARVELDRAWINGIO_EXPORT QStringList DIO_bitmapSuffixes();

/// Reads a bitmap. Its kind follows from its contents. A picture that needs more memory than
/// QImageReader::allocationLimit() is an error. Any thread may call it.
QUARVELDRAWINGIO_EXPORT UT_Result<DIO_Drawing> DIO_readBitmap(const QString& path);

/// The pixels of a bitmap, with the same limit, in the format RGBA64 where the file has more than 8 bits a channel,
/// else ARGB32. Any thread may call it.
///
/// @param warnings takes what is to be told
QUARVELDRAWINGIO_EXPORT UT_Result<QImage> DIO_readImage(const QString& path, QStringList& warnings);

/// The drawing that shows an image. Any thread may call it.
///
/// @param image not empty, in one of the formats of DIO_readImage()
/// @param name  of the drawing and its layer
QUARVELDRAWINGIO_EXPORT DIO_Drawing DIO_bitmapDrawing(const QImage& image, const QString& name);

/// A file's name without folder, suffix and frame number, which is the last run of digits, with what sets it off:
/// "walk" of "art/walk_0012.png", "walk_arm" of "walk_12_arm.png". A name that is a number altogether stays as it is.
QUARVELDRAWINGIO_EXPORT QString DIO_nameWithoutNumber(const QString& path);
