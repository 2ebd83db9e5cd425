// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// Converts pictures for files to images for the screen.
#pragma once

#include "QuarvelImageIO/IIO_Picture.h"
#include "studio/preview/ViewOptions.h"

#include <QImage>

/// Converts a picture of 16-bit samples with the channels R G B A, Y A or Y to a premultiplied image with 8 bits per
/// channel.
///
/// @return null if there is not enough memory
QImage imageOf(const IIO_Picture& picture);

/// One channel of an image as opaque grey, divided by coverage if it is a colour; for ALL, the image itself.
///
/// @param image premultiplied, 8 bits per channel, or null
QImage channelOf(const QImage& image, PictureChannel channel);
